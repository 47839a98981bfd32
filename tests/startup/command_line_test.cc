#include "startup/command_line.h"

#include <gtest/gtest.h>

#include "platform/env.h"
#include "session/options.h"
#include "support/paths.h"

namespace ferrow {
namespace {

using Tokens = std::vector<std::string>;

class CommandLineTest : public ::testing::Test {
 protected:
  CommandLineTest() { FillThemeTables(options.Themes); }
  bool Apply(const std::string& line) {
    return ApplyArguments(*Env::Default(), options, ParseCommandLine(line), disabled);
  }
  Options options;
  DisabledSwitches disabled;
};

TEST(ParseCommandLine, SplitsOnQuotesBlanksCommasAndSemicolons) {
  EXPECT_EQ(ParseCommandLine("a,b;c  \"d e\" f"), (Tokens{"a", "b", "c", "d e", "f"}));
}

TEST(ParseCommandLine, KeepsAtMostOneHundredTwentyEightTokens) {
  std::string line;
  for (int i = 0; i < 200; ++i) line += "t" + std::to_string(i) + " ";
  Tokens tokens = ParseCommandLine(line);
  ASSERT_EQ(tokens.size(), 128u);
  EXPECT_EQ(tokens.back(), "t127");
}

TEST(JoinArguments, QuotesArgumentsHoldingDelimitersSoTheyStayWhole) {
  Tokens args = {"/F", "/home/me/my logs/app,1.log", "x;y"};
  EXPECT_EQ(JoinArguments(args), "/F \"/home/me/my logs/app,1.log\" \"x;y\"");
  EXPECT_EQ(ParseCommandLine(JoinArguments(args)), args);
}

TEST_F(CommandLineTest, BufferSwitchIsClampedToOneMegabyte) {
  Apply("-b=2048");
  EXPECT_EQ(options.MaxInputLength, 1048576);
}

TEST_F(CommandLineTest, BufferOfZeroBecomesOneKilobyte) {
  Apply("/B=0");
  EXPECT_EQ(options.MaxInputLength, 1024);
}

TEST_F(CommandLineTest, BufferValueMayBeGluedWithAnyCharacter) {
  Apply("/B:64");
  EXPECT_EQ(options.MaxInputLength, 65536);
  Apply("/BX32");
  EXPECT_EQ(options.MaxInputLength, 32768);
  Apply("/B");
  EXPECT_EQ(options.MaxInputLength, 32768);
}

TEST_F(CommandLineTest, HighlightSwitchesAccumulateWithOneBlank) {
  Apply("/H=error /H=warn");
  EXPECT_EQ(options.FilterString, "error warn");
}

TEST_F(CommandLineTest, LinesSwitchNeedsItsValueGlued) {
  Apply("/N=50");
  EXPECT_EQ(options.LinesToRead, 50);
  Apply("/N 70");
  EXPECT_EQ(options.LinesToRead, 50);
  EXPECT_EQ(options.LastFileSelected, "70");
  Apply("/N=-5");
  EXPECT_EQ(options.LinesToRead, 0);
}

TEST_F(CommandLineTest, NiceNeverReachesTheLinesTest) {
  options.LinesToRead = 9;
  Apply("/NICE");
  EXPECT_TRUE(options.NiceMode);
  EXPECT_EQ(options.TimerInterval, 2000);
  EXPECT_EQ(options.LinesToRead, 9);
}

TEST_F(CommandLineTest, CopyRtfSwitchLeavesCopyAsRtfUnchanged) {
  Apply("/COPYRTF -copyrtf");
  EXPECT_FALSE(options.CopyAsRTF);
  options.CopyAsRTF = true;
  Apply("/COPYRTF");
  EXPECT_TRUE(options.CopyAsRTF);
}

TEST_F(CommandLineTest, WaitAloneWaitsTheDefaultThirtySeconds) {
  Apply("/W");
  EXPECT_TRUE(options.WaitOnStart);
  EXPECT_EQ(options.WaitSeconds, 30);
}

TEST_F(CommandLineTest, WaitValuesComeFromTheirOwnPositions) {
  Apply("/W=10");
  EXPECT_EQ(options.WaitSeconds, 10);
  Apply("/WAIT=15");
  EXPECT_EQ(options.WaitSeconds, 15);
  Apply("-wait");
  EXPECT_EQ(options.WaitSeconds, 15);
}

TEST_F(CommandLineTest, DashAndSlashAreTheSameAndDisablingIsRemembered) {
  Apply("-F -M -S -A");
  EXPECT_TRUE(options.BringFromStartOfFile);
  EXPECT_TRUE(options.HideMenuOnStartup);
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_TRUE(options.AlertOnUpdate);
  EXPECT_FALSE(disabled.F || disabled.M || disabled.S || disabled.A);
  Apply("--F /-m --s /-A");
  EXPECT_FALSE(options.BringFromStartOfFile);
  EXPECT_FALSE(options.HideMenuOnStartup);
  EXPECT_FALSE(options.PlaySoundOnUpdate);
  EXPECT_FALSE(options.AlertOnUpdate);
  EXPECT_TRUE(disabled.F && disabled.M && disabled.S && disabled.A);
}

TEST_F(CommandLineTest, ThemeSwitchLooksUpTheWord) {
  Apply("/T=paper");
  EXPECT_EQ(options.ThemeNumber, 2);
  EXPECT_EQ(options.FontSize, 9);
  Apply("/T");
  EXPECT_EQ(options.ThemeNumber, 1);
  EXPECT_EQ(options.FontSize, 10);
}

TEST_F(CommandLineTest, DebugTurnsLoggingOn) {
  Apply("/debugging");
  EXPECT_TRUE(options.Debug);
  EXPECT_TRUE(options.LoggingEnabled);
}

TEST_F(CommandLineTest, QuestionMarkAsksForTheUsageBox) {
  EXPECT_FALSE(Apply("/F /?"));
  EXPECT_TRUE(options.BringFromStartOfFile);
}

TEST_F(CommandLineTest, UnknownSwitchesAreIgnored) {
  EXPECT_TRUE(Apply("/XYZ /-Q -"));
  EXPECT_EQ(options.LastFileSelected, "");
}

TEST_F(CommandLineTest, FileNameSetsTheSectionAndTheLastOneWins) {
  Apply("C:\\logs\\app.log /F D:\\other.log");
  EXPECT_EQ(options.LastFileSelected, "D:\\other.log");
  EXPECT_EQ(options.FileSection, "other.log");
}

TEST_F(CommandLineTest, PathStartingWithSlashIsAFileOnPosix) {
  Apply("/var/log/syslog");
  if (NativeSeparator() == '/') {
    EXPECT_EQ(options.LastFileSelected, "/var/log/syslog");
    EXPECT_EQ(options.FileSection, "syslog");
  } else {
    EXPECT_EQ(options.LastFileSelected, "");
  }
}

TEST_F(CommandLineTest, KnownSwitchWithAValueHoldingASlashStaysASwitch) {
  Apply("/H=GET/api /var/log/nginx/access.log /T:Paper/x -B=64/2");
  EXPECT_EQ(options.FilterString, "GET/api");
  EXPECT_EQ(options.MaxInputLength, 64 * 1024);
  if (NativeSeparator() == '/') {
    EXPECT_EQ(options.LastFileSelected, "/var/log/nginx/access.log");
    EXPECT_EQ(options.FileSection, "access.log");
  }
}

TEST_F(CommandLineTest, ColonInAPosixFileNameBelongsToItsSection) {
  if (NativeSeparator() != '/') GTEST_SKIP() << "Windows names hold no colon";
  Apply("/var/log/app-10:30.log");
  EXPECT_EQ(options.LastFileSelected, "/var/log/app-10:30.log");
  EXPECT_EQ(options.FileSection, "app-10:30.log");
}

TEST(UsageText, ElevenLinesEachStartingWithTheProductName) {
  std::string text = BuildUsageText(250);
  EXPECT_EQ(text.rfind("Ferrow /F     Bring as much as possible from start of file\r\n", 0), 0u);
  EXPECT_NE(text.find("\r\nFerrow /B=<n> Buffer n kilobytes (default is 250kb)\r\n"),
            std::string::npos);
  size_t lines = 1;
  for (size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; at += 2) ++lines;
  EXPECT_EQ(lines, 11u);
  EXPECT_EQ(text.substr(text.size() - 2), "--");
}

}  // namespace
}  // namespace ferrow
