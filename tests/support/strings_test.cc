#include "support/strings.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

TEST(KeyOf, TrimsTextBeforeFirstEquals) {
  EXPECT_EQ(KeyOf("  Font = Arial"), "Font");
  EXPECT_EQ(KeyOf("a=b=c"), "a");
  EXPECT_EQ(KeyOf("=x"), "");
}

TEST(KeyOf, SectionHeaderHasNoKey) { EXPECT_EQ(KeyOf("[Common]"), ""); }

TEST(StripTrailing, RemovesEveryTrailingCopyInPlace) {
  std::string s = "C:\\logs\\\\\\";
  StripTrailing(s, '\\');
  EXPECT_EQ(s, "C:\\logs");
  std::string none = "abc";
  StripTrailing(none, 'x');
  EXPECT_EQ(none, "abc");
  std::string all = "xxx";
  StripTrailing(all, 'x');
  EXPECT_EQ(all, "");
}

TEST(StripTrailingCopy, LeavesOriginalAlone) {
  const std::string s = "a..";
  EXPECT_EQ(StripTrailingCopy(s, '.'), "a");
  EXPECT_EQ(s, "a..");
}

TEST(StripOneTrailing, RemovesOnlyOneCopy) {
  std::string s = "a\\\\";
  StripOneTrailing(s, '\\');
  EXPECT_EQ(s, "a\\");
  std::string empty;
  StripOneTrailing(empty, '\\');
  EXPECT_EQ(empty, "");
}

TEST(RemoveChars, RemovesEveryCharacterOfTheSetAnywhere) {
  EXPECT_EQ(RemoveChars("\"a b\";c", "\" ;"), "abc");
  EXPECT_EQ(RemoveChars("abc", ""), "abc");
}

TEST(StripEnds, StripsSetFromBothEndsOnly) {
  EXPECT_EQ(StripEnds(" \t a b \r\n", " \t\r\n"), "a b");
  EXPECT_EQ(StripEnds("   ", " "), "");
  EXPECT_EQ(StripEnds(std::string("x\0\0", 3), std::string_view("\0", 1)), "x");
}

TEST(Trim, RemovesBlanksNotTabs) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
}

TEST(EqualsNoCase, IgnoresAsciiCase) {
  EXPECT_TRUE(EqualsNoCase("App.Log", "APP.LOG"));
  EXPECT_FALSE(EqualsNoCase("app.log", "app.lo"));
  EXPECT_TRUE(StartsWithNoCase("History12", "HISTORY"));
  EXPECT_FALSE(StartsWithNoCase("Hi", "HISTORY"));
  EXPECT_EQ(UpperCase("ab1-z"), "AB1-Z");
}

}  // namespace
}  // namespace ferrow
