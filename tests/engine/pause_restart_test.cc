#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "engine/engine_fixture.h"

namespace ferrow {
namespace {

using testing::EngineTest;

TEST_F(EngineTest, PausingWithNoFileSaysNoFile) {
  options.FileName = "";
  follower.cmdPause_Click();
  EXPECT_FALSE(windows.timer_enabled);
  EXPECT_EQ(ui.MenuCaption(), "Ferrow Menu (Paused) - No file");
  EXPECT_FALSE(windows.shows_stop);
  EXPECT_EQ(windows.tool_tip, "Click to restart");
}

TEST_F(EngineTest, PausingAndResumingNameTheFile) {
  options.FileName = "C:\\logs\\web.log";
  follower.cmdPause_Click();
  EXPECT_EQ(ui.MenuCaption(), "Ferrow Menu (Paused) - web.log");
  follower.cmdPause_Click();
  EXPECT_EQ(ui.MenuCaption(), "Ferrow Menu - web.log");
  EXPECT_TRUE(windows.shows_stop);
  EXPECT_EQ(windows.tool_tip, "Click to pause");
}

TEST_F(EngineTest, BytesWrittenDuringAPauseAreAllShownOnResume) {
  Append("before\n");
  options.LastFileSize = env.FileLength(log).value_or(0);
  follower.cmdPause_Click();
  Append("during one\n");
  Append("during two\n");
  EXPECT_FALSE(windows.timer_enabled);  // no ticks while paused
  follower.cmdPause_Click();
  Tick();
  EXPECT_EQ(Shown(), "during one\nduring two\n");
}

TEST_F(EngineTest, RestartWithoutBringingFromStartLeavesTheWindowEmptyUntilTheFileGrows) {
  Append("existing\n");
  windows.box.SetText("old text");
  windows.file_name_box = log;
  options.BringFromStartOfFile = false;
  options.TimerInterval = 750;
  follower.FerrowRestart();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(options.LastFileSize, 10);
  EXPECT_TRUE(windows.timer_enabled);
  EXPECT_EQ(windows.interval, 750);
  EXPECT_EQ(ui.MenuCaption(), "Ferrow Menu - app.log");
  Append("fresh\n");
  Tick();
  EXPECT_EQ(Shown(), "fresh\n");
}

TEST_F(EngineTest, RestartBringingFromStartLoadsTheFilesEnd) {
  Append("one\ntwo\n");
  options.BringFromStartOfFile = true;
  options.LinesToRead = 1;
  follower.FerrowRestart();
  EXPECT_EQ(Shown(), "two\n");
}

TEST_F(EngineTest, RestartSavesTheFilesSettingsWithTheControlWindowsPosition) {
  Append("x\n");
  options.FileSection = "app.log";
  follower.FerrowRestart();
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "app.log", "MenuX"), "1500");
  EXPECT_EQ(windows.filter_caption_refreshes, 1);
  options.FileSection = "Config";
  options.FontSize = 20;
  follower.FerrowRestart();
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "app.log", "FontSize"), "10");
}

TEST_F(EngineTest, RestartTakesTheNameFromTheFileNameBox) {
  const std::string other = dir.File("other.log");
  testing::WriteBytes(other, "12345");
  windows.file_name_box = other;
  follower.FerrowRestart();
  EXPECT_EQ(options.FileName, other);
  EXPECT_EQ(options.LastFileSize, 5);
}

TEST_F(EngineTest, RestartOnAVanishedFileReportsItAndLeavesWindowMarksAndTimerAsTheyWere) {
  options.Debug = options.LoggingEnabled = true;
  Append("one\ntwo\n");
  Tick();
  const int64_t mark = options.LastFileSize;
  const std::string shown = Shown();
  windows.timer_enabled = false;
  windows.file_name_box = log;
  ASSERT_EQ(Env::Default()->RemoveFile(log), 0);
  follower.FerrowRestart();
  EXPECT_EQ(options.LastFileSize, mark);
  EXPECT_EQ(Shown(), shown);
  EXPECT_FALSE(windows.timer_enabled);
  EXPECT_NE(Log().find("Error 53 (File not found) at 30 in FerrowRestart()"), std::string::npos)
      << Log();
  // Back with the same text, it is not shown a second time.
  Append("one\ntwo\n");
  windows.timer_enabled = true;
  Tick();
  EXPECT_EQ(Shown(), shown);
}

}  // namespace
}  // namespace ferrow
