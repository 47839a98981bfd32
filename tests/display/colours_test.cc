#include "display/colours.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

TEST(Colours, TableHoldsFortyEightNames) {
  ASSERT_EQ(ColourTable().size(), 48u);
  EXPECT_STREQ(ColourTable()[0].name, "Black");
  EXPECT_STREQ(ColourTable()[47].name, "DarkViolet");
  EXPECT_EQ(ColourTable()[47].value, 0x560052);
}

TEST(Colours, PaletteKeepsItsOwnValues) {
  EXPECT_EQ(ColourFromName("LightCoral"), 0x80800F);
  EXPECT_EQ(ColourFromName("LightSteelBlue"), 0xDEC40C);
  EXPECT_EQ(ColourFromName("DarkViolet"), 0x560052);
}

TEST(ColourFromName, IgnoresCase) { EXPECT_EQ(ColourFromName("slateGREY"), 0x908070); }

TEST(ColourFromName, UnknownNameIsBlack) { EXPECT_EQ(ColourFromName("Chartreuse"), 0); }

TEST(TryColourFromName, LeavesColourAloneForUnknownName) {
  Colour c = 0x123456;
  EXPECT_FALSE(TryColourFromName("nope", c));
  EXPECT_EQ(c, 0x123456);
  EXPECT_TRUE(TryColourFromName("hotpink", c));
  EXPECT_EQ(c, 0xB469FF);
}

TEST(ColourToName, FirstNameWins) {
  EXPECT_EQ(ColourToName(0xBEBEBE), "Grey");
  EXPECT_EQ(ColourToName(0x908070), "SlateGray");
  EXPECT_EQ(ColourToName(0xFF), "Red");
}

TEST(ColourToName, UnnamedColourIsUpperCaseHexWithoutLeadingZeros) {
  EXPECT_EQ(ColourToName(0x123456), "&h123456");
  EXPECT_EQ(ColourToName(0x0F), "&hF");
  EXPECT_EQ(ColourToName(0x800000), "&h800000");
  EXPECT_EQ(ColourToName(0xABCDEF), "&hABCDEF");
}

}  // namespace
}  // namespace ferrow
