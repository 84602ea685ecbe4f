#include <gtest/gtest.h>

#include "layers/dialog_fields.h"

TEST(DialogFields, TypedNumbersClampAndNeverOverflow) {
  EXPECT_EQ(FieldNumber("250", 1, 1000, 7), 250);
  EXPECT_EQ(FieldNumber("  -12px", -100, 100, 7), -12);
  EXPECT_EQ(FieldNumber("+5", 0, 10, 7), 5);
  EXPECT_EQ(FieldNumber("0", 1, 1000, 7), 1);
  EXPECT_EQ(FieldNumber("1001", 1, 1000, 7), 1000);
  EXPECT_EQ(FieldNumber("99999999999999999999999", 1, 1000, 7), 1000);
  EXPECT_EQ(FieldNumber("-99999999999999999999999", -1000, 1000, 7), -1000);
  // Nothing to read: the value stays what it was.
  EXPECT_EQ(FieldNumber("", 1, 1000, 7), 7);
  EXPECT_EQ(FieldNumber("abc", 1, 1000, 7), 7);
  EXPECT_EQ(FieldNumber("-", 1, 1000, 7), 7);
  EXPECT_EQ(FieldNumber("- 3", 1, 1000, 7), 7);
}

TEST(DialogFields, AnglesAreReadWithinOneTurnEachWay) {
  EXPECT_DOUBLE_EQ(FieldAngle("12.5", 0), 12.5);
  EXPECT_DOUBLE_EQ(FieldAngle("-45", 0), -45);
  EXPECT_DOUBLE_EQ(FieldAngle("720", 0), 360);
  EXPECT_DOUBLE_EQ(FieldAngle("-1e300", 0), -360);
  EXPECT_DOUBLE_EQ(FieldAngle("x", 30), 30);
  EXPECT_DOUBLE_EQ(FieldAngle("nan", 30), 30);
  EXPECT_DOUBLE_EQ(FieldAngle("inf", 30), 30);
}

TEST(DialogFields, KeptAspectRoundsToTheNearestPixelWithinTheNewLimits) {
  EXPECT_EQ(KeptAspectSide(320, 640, 480), 240);
  EXPECT_EQ(KeptAspectSide(2, 3, 2), 1);              // 1.33
  EXPECT_EQ(KeptAspectSide(5, 3, 2), 3);              // 3.33
  EXPECT_EQ(KeptAspectSide(5, 2, 3), 8);              // 7.5 rounds up
  EXPECT_EQ(KeptAspectSide(1, 1000, 10), 1);          // 0.01, at least a pixel
  EXPECT_EQ(KeptAspectSide(10240, 1, 10240), 10240);  // no overflow, at most the largest side
  EXPECT_EQ(KeptAspectSide(50, 0, 30), 30);           // no old size to keep: the other side stays
}
