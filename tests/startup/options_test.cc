#include "session/options.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

TEST(Options, AlertIsOnByDefaultAndTheOtherUpdateFlagsOff) {
  Options o;
  EXPECT_TRUE(o.AlertOnUpdate);
  EXPECT_FALSE(o.PlaySoundOnUpdate);
  EXPECT_FALSE(o.HideMenuOnStartup);
  EXPECT_FALSE(o.BringFromStartOfFile);
}

TEST(Options, FixedDefaultsOfTheRecord) {
  Options o;
  EXPECT_EQ(o.MaxInputLength, 256000);
  EXPECT_EQ(o.TimerInterval, 500);
  EXPECT_EQ(o.LinesToRead, 0);
  EXPECT_EQ(o.WaitSeconds, 30);
  EXPECT_EQ(o.UpdateSound, "Updated.wav");
  EXPECT_EQ(o.BrowseStartDir, "c:\\");
  EXPECT_EQ(o.FormWidth, 10000);
  EXPECT_EQ(o.FormHeight, 3500);
  EXPECT_EQ(o.HistoryTotal, 0);
  EXPECT_EQ(o.ThemeNumber, 1);
  EXPECT_EQ(o.Font, "Terminal");
  EXPECT_EQ(o.FontSize, 10);
  EXPECT_TRUE(o.FontBold);
  EXPECT_EQ(o.FontColour, 0xBEBEBE);
  EXPECT_EQ(o.BackColour, 0x000000);
  EXPECT_EQ(o.FilterColour, 0xFF0000);
  EXPECT_FALSE(o.Debug);
  EXPECT_FALSE(o.LoggingEnabled);
}

TEST(Options, DefaultsKeepTheConfigurationAndLogFileNames) {
  Options o;
  o.IniFileName = "x.INI";
  o.LogFileName = "x.LOG";
  o.TimerInterval = 2000;
  o.HistoryTotal = 3;
  SetDefaultOptions(o);
  EXPECT_EQ(o.IniFileName, "x.INI");
  EXPECT_EQ(o.LogFileName, "x.LOG");
  EXPECT_EQ(o.TimerInterval, 500);
  EXPECT_EQ(o.HistoryTotal, 0);
}

TEST(Options, FileDefaultsRestorePerFileValuesOnly) {
  Options o;
  o.FileDefaults.PlaySoundOnUpdate = true;  // as /S would leave them
  o.FileDefaults.MaxInputLength = 65536;
  o.PlaySoundOnUpdate = false;
  o.FontSize = 14;
  o.MaxInputLength = 500;
  o.HighWaterMark = 1234;
  o.HistoryTotal = 2;
  o.CopyAsRTF = true;
  SetFileDefaults(o);
  EXPECT_TRUE(o.PlaySoundOnUpdate);
  EXPECT_EQ(o.FontSize, 10);
  EXPECT_EQ(o.MaxInputLength, 65536);
  EXPECT_EQ(o.HighWaterMark, 0);
  EXPECT_EQ(o.HistoryTotal, 2);
  EXPECT_TRUE(o.CopyAsRTF);
}

TEST(Options, BooleansAsNumbersAreMinusOneAndZero) {
  EXPECT_EQ(AsNumber(true), -1);
  EXPECT_EQ(AsNumber(false), 0);
  EXPECT_TRUE(FromCheckValue(1));
  EXPECT_FALSE(FromCheckValue(2));  // grayed
  EXPECT_FALSE(FromCheckValue(0));
}

}  // namespace
}  // namespace ferrow
