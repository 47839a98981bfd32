#include "support/numbers.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

TEST(GroupDigits, PutsCommaEveryThreeDigitsFromTheRight) {
  EXPECT_EQ(GroupDigits(1234567), "1,234,567");
  EXPECT_EQ(GroupDigits(1000), "1,000");
  EXPECT_EQ(GroupDigits(999), "999");
  EXPECT_EQ(GroupDigits(0), "0");
  EXPECT_EQ(GroupDigits(2147483648LL * 3), "6,442,450,944");
}

TEST(GroupDigits, KeepsSignInFront) { EXPECT_EQ(GroupDigits(-1234567), "-1,234,567"); }

TEST(GroupDigitsText, KeepsFractionalPartBehindGroupedWholePart) {
  EXPECT_EQ(GroupDigitsText("1234567.891", ",", 3), "1,234,567.891");
}

TEST(GroupDigitsText, UsesOnlyFirstCharacterOfSeparator) {
  EXPECT_EQ(GroupDigitsText("1234567", ". ", 3), "1.234.567");
}

TEST(GroupDigitsText, ReturnsTextUnchangedForEmptyOrGroupBelowOne) {
  EXPECT_EQ(GroupDigitsText("", ",", 3), "");
  EXPECT_EQ(GroupDigitsText("12345", ",", 0), "12345");
  EXPECT_EQ(GroupDigitsText("12345", ",", 2), "1,23,45");
}

TEST(Val, ReadsTheLeadingNumber) {
  EXPECT_EQ(Val("64"), 64);
  EXPECT_EQ(Val("  12abc"), 12);
  EXPECT_EQ(Val("-3.5x"), -3.5);
  EXPECT_EQ(Val("1e3"), 1000);
  EXPECT_EQ(Val(".5"), 0.5);
}

TEST(Val, TextThatDoesNotStartWithNumberGivesZero) {
  EXPECT_EQ(Val("abc"), 0);
  EXPECT_EQ(Val(""), 0);
  EXPECT_EQ(Val("-"), 0);
  EXPECT_EQ(Val("x12"), 0);
}

TEST(Val, ReadsHexAndOctalPrefixes) {
  EXPECT_EQ(Val("&hFF"), 255);
  EXPECT_EQ(Val("&H00FF00"), 65280);
  EXPECT_EQ(Val("&o17"), 15);
  EXPECT_EQ(Val("&hZZ"), 0);
}

TEST(IsNumeric, WholeTextMustBeOneNumber) {
  EXPECT_TRUE(IsNumeric("500"));
  EXPECT_TRUE(IsNumeric(" 500 "));
  EXPECT_TRUE(IsNumeric("-2.5"));
  EXPECT_TRUE(IsNumeric("&hFF"));
  EXPECT_FALSE(IsNumeric("500ms"));
  EXPECT_FALSE(IsNumeric(""));
  EXPECT_FALSE(IsNumeric("Red"));
}

}  // namespace
}  // namespace ferrow
