#include "support/codepage.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

TEST(CodePage, WindowsWesternAndOemPages) {
  EXPECT_EQ(CodePageToUnicode(0x80, 1252), U'€');
  EXPECT_EQ(CodePageToUnicode(0xE9, 1252), U'é');
  EXPECT_EQ(CodePageToUnicode(0x82, 850), U'é');
  EXPECT_EQ(CodePageToUnicode(0xDB, 850), U'\u2588');
  EXPECT_EQ(CodePageToUnicode('A', 850), U'A');
}

TEST(CodePage, ValidUtf8IsKeptAndOtherBytesDecoded) {
  EXPECT_EQ(DecodeBytes("caf\xC3\xA9", 1252), "café");
  EXPECT_EQ(DecodeBytes("caf\xE9", 1252), "café");
  EXPECT_TRUE(IsValidUtf8("plain"));
  EXPECT_FALSE(IsValidUtf8("\xC3"));
  EXPECT_FALSE(IsValidUtf8("\xC0\x80"));
}

TEST(CodePage, Utf8OfEveryPlane) {
  std::string out;
  for (char32_t c : {U'a', U'é', U'€', U'😀'}) AppendUtf8(out, c);
  EXPECT_EQ(out, "aé€😀");
  out.clear();
  AppendUtf8(out, 0xD800);
  EXPECT_EQ(out, "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace ferrow
