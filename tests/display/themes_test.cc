#include "display/themes.h"

#include <gtest/gtest.h>

#include "session/options.h"

namespace ferrow {
namespace {

class ThemesTest : public ::testing::Test {
 protected:
  ThemesTest() { FillThemeTables(options.Themes); }
  int16_t Set(const std::string& name) { return SetTheme(options, options.Themes, name); }
  void ExpectLook(const std::string& font, int size, bool bold, Colour text, Colour back,
                  Colour filter) {
    EXPECT_EQ(options.Font, font);
    EXPECT_EQ(options.FontSize, size);
    EXPECT_EQ(options.FontBold, bold);
    EXPECT_EQ(options.FontColour, text);
    EXPECT_EQ(options.BackColour, back);
    EXPECT_EQ(options.FilterColour, filter);
  }
  Options options;
};

TEST_F(ThemesTest, WordPerfectInLowerCaseIsSystemTwelveGreyOnDarkBlue) {
  EXPECT_EQ(Set("wp5"), 8);
  ExpectLook("System", 12, true, 0xBEBEBE, 0x800000, 0x00FFFF);
}

TEST_F(ThemesTest, SovietRedByItsCaptionGivesStandard) {
  options.Font = "Arial";
  EXPECT_EQ(Set("Soviet Red"), 1);
  ExpectLook("Terminal", 10, true, 0xBEBEBE, 0x000000, 0xFF0000);
  EXPECT_EQ(Set("RED"), 7);
  ExpectLook("Terminal", 10, true, 0xFFFFFF, 0x0000FF, 0x00FFFF);
}

TEST_F(ThemesTest, NameShorterThanThreeChangesNothing) {
  options.Font = "Courier";
  EXPECT_EQ(Set("ab"), 0);
  EXPECT_EQ(options.Font, "Courier");
  EXPECT_EQ(Set(""), 0);
}

TEST_F(ThemesTest, CustomGivesStandardColoursWithRowZerosFont) {
  options.Themes.ThemeFontName[0] = "Fixedsys";
  EXPECT_EQ(Set("Custom"), 1);
  ExpectLook("Fixedsys", 10, true, 0xBEBEBE, 0x000000, 0xFF0000);
}

TEST_F(ThemesTest, OnlyTheFirstThreeLettersCount) {
  EXPECT_EQ(Set("Paper"), 2);
  ExpectLook("Terminal", 9, false, 0x000000, 0xFFFFFF, 0xFF0000);
  EXPECT_EQ(Set("paper"), 2);
  EXPECT_EQ(Set("PAPxyz"), 2);
}

TEST_F(ThemesTest, StandardKeepsTheLiteralTerminalFont) {
  options.Themes.ThemeFontName[1] = "Lucida Console";
  options.Themes.ThemeFontSize[1] = 11;
  EXPECT_EQ(Set("STA"), 1);
  EXPECT_EQ(options.Font, "Terminal");
  EXPECT_EQ(options.FontSize, 11);
}

TEST_F(ThemesTest, EveryRowLooksAsTabled) {
  EXPECT_EQ(Set("Modern"), 3);
  ExpectLook("Arial", 10, true, 0xE6F0FA, 0x908070, 0x7280FA);
  EXPECT_EQ(Set("Fancy"), 4);
  ExpectLook("Papyrus", 10, true, 0xC1B6FF, 0x000000, 0xED9564);
  EXPECT_EQ(Set("Chocolate"), 5);
  ExpectLook("Papyrus", 10, true, 0xDCF5F5, 0x193258, 0xED9564);
  EXPECT_EQ(Set("Gothic"), 6);
  ExpectLook("Black Chancery", 12, false, 0xBEBEBE, 0x560052, 0xC1B6FF);
  EXPECT_EQ(Set("Office"), 9);
  ExpectLook("Arial", 10, true, 0xFFFFFF, 0x000000, 0x00FFFF);
  EXPECT_EQ(Set("Pink"), 10);
  ExpectLook("Arial", 10, true, 0xE6F0FA, 0xB469FF, 0x000000);
  EXPECT_EQ(Set("Times"), 11);
  ExpectLook("Times New Roman", 10, true, 0x000000, 0xDCF8FF, 0x0000FF);
}

TEST_F(ThemesTest, SetThemeFillsTheCodes) {
  Set("x");
  EXPECT_EQ(options.Themes.ThemeCode[0], "CUS");
  EXPECT_EQ(options.Themes.ThemeCode[8], "WP5");
  EXPECT_EQ(options.Themes.ThemeCode[11], "TIM");
  EXPECT_EQ(options.Themes.ThemeCode[12], "");
}

TEST_F(ThemesTest, DefaultThemeIsStandardWithHalfSecondPolls) {
  options.TimerInterval = 2000;
  options.ThemeNumber = 5;
  ApplyDefaultTheme(options, options.Themes);
  EXPECT_EQ(options.ThemeNumber, 1);
  EXPECT_EQ(options.TimerInterval, 500);
  ExpectLook("Terminal", 10, true, 0xBEBEBE, 0x000000, 0xFF0000);
}

TEST(ThemeCaptions, NameTheTwelveThemes) {
  EXPECT_STREQ(ThemeCaptions()[0], "Custom");
  EXPECT_STREQ(ThemeCaptions()[8], "WordPerfect 5.1");
  EXPECT_STREQ(ThemeCaptions()[11], "Times");
}

}  // namespace
}  // namespace ferrow
