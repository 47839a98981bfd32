#include <gtest/gtest.h>

#include <string>

#include "support/ui.h"
#include "win32/ansi_text.h"
#include "win32/sound.h"
#include "win32/twips.h"
#include "win32/window_services.h"

namespace ferrow::win32 {
namespace {

TEST(Win32FileFilter, BarsBecomeNulsAndASecondNulEndsTheList) {
  EXPECT_EQ(Win32FileFilter("Log Files|*.log|All Files (*.*)|*.*|"),
            std::string("Log Files\0*.log\0All Files (*.*)\0*.*\0\0", 37));
  EXPECT_EQ(Win32FileFilter("Wave|*.wav"), std::string("Wave\0*.wav\0\0", 12));
}

TEST(Win32Messages, EachIconHasItsBoxIcon) {
  EXPECT_EQ(IconFlags(MessageIcon::Critical), static_cast<UINT>(MB_ICONHAND));
  EXPECT_EQ(IconFlags(MessageIcon::Question), static_cast<UINT>(MB_ICONQUESTION));
  EXPECT_EQ(IconFlags(MessageIcon::Exclamation), static_cast<UINT>(MB_ICONEXCLAMATION));
  EXPECT_EQ(IconFlags(MessageIcon::Information), static_cast<UINT>(MB_ICONASTERISK));
  EXPECT_EQ(IconFlags(MessageIcon::None), 0u);
}

TEST(Win32Twips, AnInchIs1440TwipsAtTheScreensLogicalDpi) {
  EXPECT_EQ(PixelsToTwips(ScreenDpi()), 1440);
  EXPECT_EQ(TwipsToPixels(1440), ScreenDpi());
  EXPECT_EQ(TwipsToPixels(-1440), -ScreenDpi());
}

TEST(Win32Text, Utf8GoesToTheAnsiCodePageAndBack) {
  const std::string cafe = "caf\xC3\xA9";
  EXPECT_EQ(FromAnsi(ToAnsi(cafe)), cafe);
  EXPECT_EQ(ToAnsi("plain"), "plain");
  EXPECT_EQ(WithCrLf("a\nb\r\nc"), "a\r\nb\r\nc");
}

TEST(Win32Sound, AMissingFileCannotBePlayed) {
  EXPECT_FALSE(PlaySoundFile("C:\\no\\such\\sound.wav", false));
  EXPECT_FALSE(PlaySoundFile("", false));
}

}  // namespace
}  // namespace ferrow::win32
