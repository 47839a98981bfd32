#include "startup/startup.h"

#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

// The program lives in the test's folder; whether another instance runs and
// whether the companion library is found are the test's to say.
class StartupEnv : public testing::CountingEnv {
 public:
  std::string ProgramPath() override { return program; }
  std::unique_ptr<InstanceClaim> ClaimInstance(const std::string&, bool& another) override {
    another = another_running;
    return nullptr;
  }
  void* OpenLibrary(const std::string& path) override {
    return with_library ? CountingEnv::OpenLibrary(path) : nullptr;
  }
  std::optional<std::string> RawCommandTail() override { return std::nullopt; }

  std::string program;
  bool another_running = false;
  bool with_library = false;
};

class StartupTest : public ::testing::Test {
 protected:
  StartupTest() { env.program = dir.File("Ferrow.exe"); }
  bool Run(const std::vector<std::string>& args) {
    return RunStartup(session, args, state, [&] { ++control_window_loads; });
  }
  std::string Ini() { return testing::ReadBytes(dir.File("Ferrow.INI")); }
  void WriteIni(const std::string& text) { testing::WriteBytes(dir.File("Ferrow.INI"), text); }
  std::string Key(const std::string& section, const std::string& key) {
    return ReadINIFile(env, dir.File("Ferrow.INI"), section, key);
  }

  testing::TempDir dir;
  StartupEnv env;
  Options options;
  testing::RecordingUi ui;
  Session session{env, options, ui};
  StartupState state{env};
  int control_window_loads = 0;
};

TEST_F(StartupTest, FirstRunCreatesTheFiveLineFileBeforeReadingIt) {
  ASSERT_FALSE(Run({"/?"}));
  EXPECT_EQ(Ini(),
            "[Common]\r\nBrowseStartDir=C:\\\r\nHistoryCount=0\r\nLastFileSelected=\r\n"
            "Locked=False\r\n");
  EXPECT_EQ(options.BrowseStartDir, "C:\\");
}

TEST_F(StartupTest, QuestionMarkShowsTheUsageAndEndsBeforeTheTrim) {
  WriteIni("[Common]\r\nObsolete=1\r\n");
  EXPECT_FALSE(Run({"/?"}));
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].rfind("Ferrow|Ferrow v1.46 - ", 0), 0u);
  EXPECT_NE(ui.messages[0].find("30th June 2012\r\n\r\nFerrow /F "), std::string::npos);
  EXPECT_EQ(Ini(), "[Common]\r\nObsolete=1\r\n");
  EXPECT_EQ(control_window_loads, 0);
}

TEST_F(StartupTest, AloneItTrimsTheFileAndLoadsTheControlWindow) {
  WriteIni("[Common]\r\nObsolete=1\r\nHistoryCount=0\r\n");
  EXPECT_TRUE(Run({}));
  EXPECT_EQ(Ini().rfind(";Ferrow v1.46 [", 0), 0u);
  EXPECT_EQ(Ini().find("Obsolete"), std::string::npos);
  EXPECT_EQ(Key("Common", "WriteLock"), "False");
  EXPECT_EQ(control_window_loads, 1);
}

TEST_F(StartupTest, HeldLockSkipsTheTrimAfterAboutFiveSeconds) {
  WriteIni("[Common]\r\nWriteLock=True\r\nObsolete=1\r\n");
  EXPECT_TRUE(Run({}));
  EXPECT_EQ(env.slept_ms, 5000);
  EXPECT_EQ(Ini(), "[Common]\r\nWriteLock=True\r\nObsolete=1\r\n");
  EXPECT_EQ(control_window_loads, 1);
}

TEST_F(StartupTest, SecondInstanceDoesNotTrim) {
  env.another_running = true;
  WriteIni("[Common]\r\nObsolete=1\r\n");
  EXPECT_TRUE(Run({}));
  EXPECT_TRUE(options.PrevInstance);
  EXPECT_EQ(Ini(), "[Common]\r\nObsolete=1\r\n");
}

TEST_F(StartupTest, DisablingSoundIsRememberedForTheFile) {
  WriteIni("[Common]\r\n");
  Run({"/-S", "app.log"});
  EXPECT_FALSE(options.PlaySoundOnUpdate);
  EXPECT_EQ(Key("app.log", "PlaySoundOnUpdate"), "False");
  EXPECT_EQ(Key("app.log", "BringFromStartOfFile"), "");
}

TEST_F(StartupTest, FirstTokenFileWinsOverALaterOne) {
  WriteIni("[Common]\r\n");
  Run({"app.log", "/F", "other.log"});
  EXPECT_EQ(options.LastFileSelected, "app.log");
  EXPECT_EQ(options.FileSection, "app.log");
}

TEST_F(StartupTest, AfterASwitchFirstTheLastFileNameStands) {
  WriteIni("[Common]\r\n");
  Run({"/F", "app.log", "other.log"});
  EXPECT_EQ(options.LastFileSelected, "other.log");
}

TEST_F(StartupTest, OnlyTheCommandLineSelectsAFile) {
  WriteIni("[Common]\r\nLastFileSelected=C:\\old.log\r\nBufferSizeKb=64\r\n");
  Run({});
  EXPECT_EQ(options.LastFileSelected, "");
  EXPECT_EQ(options.MaxInputLength, 65536);
  EXPECT_FALSE(options.HideMenuOnStartup);
}

TEST_F(StartupTest, DebugInCommonStartsTheLog) {
  WriteIni("[Common]\r\nDebug=True\r\n");
  Run({});
  EXPECT_TRUE(options.LoggingEnabled);
  std::string log = testing::ReadBytes(dir.File("Ferrow.LOG"));
  EXPECT_NE(log.find(",\"* * * Debug logging started at 30/06/2012 14:05:09 * * *\"\r\n"),
            std::string::npos)
      << log;
}

TEST_F(StartupTest, ThemeFontsCanBeSetByHandInCommon) {
  WriteIni("[Common]\r\nFontName3=\"Courier New\"\r\nFontSize3=14\r\nFontSize4=big\r\n");
  Run({"/T=modern"});
  EXPECT_EQ(options.ThemeNumber, 3);
  EXPECT_EQ(options.Font, "Courier New");
  EXPECT_EQ(options.FontSize, 14);
  EXPECT_EQ(options.Themes.ThemeFontSize[4], 10);
}

TEST_F(StartupTest, DefaultsOfTheSessionIncludeTheCommandLine) {
  WriteIni("[Common]\r\n");
  Run({"/S", "/NICE", "/H=error"});
  EXPECT_TRUE(options.FileDefaults.PlaySoundOnUpdate);
  EXPECT_EQ(options.FileDefaults.TimerInterval, 2000);
  EXPECT_EQ(options.FilterWords, (std::vector<std::string>{"error"}));
  EXPECT_EQ(options.UsageText.find("(default is 250kb)") != std::string::npos, true);
}

TEST_F(StartupTest, MissingCompanionLibraryIsSilent) {
  WriteIni("[Common]\r\n");
  Run({});
  EXPECT_EQ(options.HelperLibraryVersion, 0);
  EXPECT_FALSE(options.HelperLibraryInUse);
  EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace ferrow
