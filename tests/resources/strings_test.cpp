// The program's string table: texts as the user must see them, formatting,
// and the source file's own rules.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "resources/strings.h"

namespace {

TEST(StringTable, TextsReadAsWritten) {
  struct Expected {
    int id;
    const char* text;
  };
  // Across the whole range; odd spellings and spacing are part of the texts.
  const Expected expected[] = {
      {1000, "Preference"},
      {1102, "%s [%s] of %s"},
      {1308, "Double starting of Tesel is not possible!"},
      {1411, "Before using Clone Brush, drag the canvas with [SHIFT] key down."},
      {1612, "Clipboard"},
      {1809, "RGB"},
      {6000, "Change would make image size go below zero.  Process will be aborted."},
      {7005, "View"},
      {12006, "Hue and Saturation"},
      {15004, "Processing...: %03d%% Complete"},
      {17002, "Untitled"},
      {18023, "Show outdide Border"},
      {18038, "----"},
      {20003, "Selection[*.TSS]/*.TSS/"},
      {22002, "UpperLeft Color"},
      {23008, "Bezier"},
      {25003, "Selection History"},
      {26101, "Edit..."},
      {26202, "Print CMYK"},
      {26210, "Japanese"},
  };
  for (const Expected& e : expected) EXPECT_STREQ(StringText(e.id), e.text) << "string " << e.id;
}

TEST(StringTable, MissingIdsReadEmpty) {
  // 1002 is a gap inside the range; 7006 the blank that ends the tool bar's groups.
  for (int id : {999, 1002, 7006, 26301, -1}) EXPECT_STREQ(StringText(id), "") << id;
  EXPECT_EQ(FormatString(1002, 5, "x"), "");
}

TEST(StringTable, FormatStringFillsArguments) {
  EXPECT_EQ(FormatString(15007, 10, 20, 41, 60, 32, 41, 25, 40),
            "[10,20]-[41,60], Size[32x41], Center[25,40]");
  EXPECT_EQ(FormatString(15004, 7), "Processing...: 007% Complete");
  EXPECT_EQ(FormatString(1102, "Standard Accuracy", "Mask", "C:\\a.tsl"),
            "Standard Accuracy [Mask] of C:\\a.tsl");
  EXPECT_EQ(FormatString(20000, 640, 480, "FullColor"), "640 x 480pixels FullColor");
  EXPECT_EQ(FormatString(1000), "Preference");
  // A result longer than any fixed buffer comes out whole.
  const std::string name(5000, 'n');
  EXPECT_EQ(FormatString(9002, name.c_str()), "Delete layer [" + name + "]?");
}

// The C escapes of strings.txt, decoded the slow way for comparison.
std::string Unescape(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      out += text[i];
      continue;
    }
    const char next = text[++i];
    out += next == 'n' ? '\n' : next == 't' ? '\t' : next;
  }
  return out;
}

TEST(StringTable, SourceFileIdsInRangeUniqueAndCompiledAsWritten) {
  std::ifstream file(TESEL_STRINGS_TXT);
  ASSERT_TRUE(file) << TESEL_STRINGS_TXT;
  std::set<int> ids;
  std::string line;
  int lineNumber = 0;
  while (std::getline(file, line)) {
    ++lineNumber;
    if (line.empty() || line[0] == '#') continue;
    const size_t tab = line.find('\t');
    ASSERT_NE(tab, std::string::npos) << "line " << lineNumber;
    const int id = std::stoi(line.substr(0, tab));
    EXPECT_GE(id, 1000) << "line " << lineNumber;
    EXPECT_LE(id, 26300) << "line " << lineNumber;
    EXPECT_TRUE(ids.insert(id).second) << "id " << id << " twice, line " << lineNumber;
    EXPECT_EQ(StringText(id), Unescape(line.substr(tab + 1))) << "string " << id;
  }
  EXPECT_GT(ids.size(), 150u);
}

}  // namespace
