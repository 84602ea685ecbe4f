// The string table generator on texts that are hard for it: the table built
// from fixtures/strings.txt must hold each text exactly as written there.
#include <gtest/gtest.h>

#include "resources/strings.h"

namespace {

TEST(StringGenerator, KeepsEveryTextIntact) {
  EXPECT_STREQ(StringText(30000), "メモリーが不足しました");
  EXPECT_STREQ(StringText(30001), "say \"hi\" to C:\\temp\\");
  // A ';' or an open '[' must neither split this line nor swallow the next.
  EXPECT_STREQ(StringText(30002), "a;b;c [not closed");
  EXPECT_STREQ(StringText(30003), "tab\there\nline two: 100%%");
  EXPECT_EQ(FormatString(30003), "tab\there\nline two: 100%");
  // Written with a Windows line end.
  EXPECT_STREQ(StringText(30099), "carriage return ends this line");
  // Comments and blank lines make no entries.
  EXPECT_STREQ(StringText(30004), "");
}

}  // namespace
