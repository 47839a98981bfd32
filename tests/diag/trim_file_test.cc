#include "diag/trim_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "config/ini_file.h"
#include "config/known_keys.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::SessionTest;

class TrimFileTest : public SessionTest {
 protected:
  bool TrimIni() { return TrimFile(session, options.IniFileName, KnownKeys(), true); }
  std::string Header() {
    return ";Ferrow v1.46 [" + options.IniFileName + "] written at 30/06/2012 14:05:09\r\n";
  }
  // The file's text without the NUL padding that keeps its length.
  std::string Text() {
    std::string text = Ini();
    return text.substr(0, text.find('\0'));
  }
  void DebugOn() {
    options.Debug = true;
    options.LoggingEnabled = true;
  }
  std::string Prefix() { return "Trimfile(" + options.IniFileName; }
};

TEST_F(TrimFileTest, KeepsKnownKeysCommentsAndSectionsAndDropsTheRest) {
  std::string before =
      ";Ferrow v1.45 [old] written at yesterday\r\n"
      "; my own note\r\n"
      "\r\n"
      "[Common]\r\n"
      "BrowseStartDir=C:\\\r\n"
      "BufferSizeKb=250\r\n"
      "CopyAsRTF=True\r\n"
      "Locked=False\r\n"
      "   HistoryCount = 1   \r\n"
      "History1=C:\\a.log\r\n"
      "\tstray line\r\n"
      "Obsolete=1\r\n"
      "[app.log]\r\n"
      "FontSize=10\r\n"
      "ThemeName=Paper\r\n";
  before.append(300, '\0');
  WriteIni(before);
  ASSERT_TRUE(TrimIni());
  EXPECT_EQ(Text(), Header() +
                        "; my own note\r\n"
                        "\r\n[Common]\r\n"
                        "BrowseStartDir=C:\\\r\n"
                        "HistoryCount = 1\r\n"
                        "History1=C:\\a.log\r\n"
                        "\r\n[app.log]\r\n"
                        "FontSize=10\r\n"
                        "ThemeName=Paper\r\n");
  EXPECT_EQ(Ini(), Text());  // replaced whole: no NUL padding behind the text
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), "C:\\a.log");
}

TEST_F(TrimFileTest, LeavesABakCopyOfTheOldFile) {
  WriteIni("[Common]\r\nLocked=False\r\n");
  ASSERT_TRUE(TrimIni());
  EXPECT_EQ(testing::ReadBytes(dir.File("Ferrow.BAK")), "[Common]\r\nLocked=False\r\n");
}

TEST_F(TrimFileTest, StarEntryKeepsEveryKeyWithThePrefix) {
  WriteIni("[Common]\r\nHistory1=a\r\nhistory22=b\r\nHistor=c\r\n");
  ASSERT_TRUE(TrimIni());
  EXPECT_EQ(Text(), Header() + "\r\n[Common]\r\nHistory1=a\r\nhistory22=b\r\n");
}

TEST_F(TrimFileTest, PlainEntryMatchesTheWholeKeyOnly) {
  WriteIni("[Common]\r\ndebug=1\r\nDebugger=1\r\n");
  ASSERT_TRUE(TrimIni());
  EXPECT_EQ(Text(), Header() + "\r\n[Common]\r\ndebug=1\r\n");
}

TEST_F(TrimFileTest, KeyLineWithNothingBeforeEqualsIsDropped) {
  WriteIni("[Common]\r\n=x\r\nDebug=1\r\n");
  ASSERT_TRUE(TrimIni());
  EXPECT_EQ(Text(), Header() + "\r\n[Common]\r\nDebug=1\r\n");
}

TEST_F(TrimFileTest, WithoutFilteringEveryNonEmptyLineStays) {
  WriteIni("[Common]\r\n\r\nObsolete=1\r\n;Ferrow v1.0 old\r\n");
  ASSERT_TRUE(TrimFile(session, options.IniFileName, KnownKeys(), false));
  EXPECT_EQ(Text(), Header() + "[Common]\r\nObsolete=1\r\n;Ferrow v1.0 old\r\n");
}

TEST_F(TrimFileTest, FileOfMoreThanTwentyThousandLinesIsCutAndTheHangLogged) {
  DebugOn();
  std::string text = "[Common]\r\n";
  for (int i = 1; i < 25000; ++i) text += "History" + std::to_string(i) + "=f\r\n";
  WriteIni(text);
  ASSERT_TRUE(TrimIni());
  // The copy stops after 20000 lines of the old file; the new header and the
  // blank line before [Common] come on top.
  std::string trimmed = Ini();
  EXPECT_EQ(std::count(trimmed.begin(), trimmed.end(), '\n'), 20002);
  EXPECT_NE(trimmed.find("\r\nHistory19999=f\r\n"), std::string::npos);
  EXPECT_EQ(trimmed.find("\r\nHistory20000=f\r\n"), std::string::npos);
  EXPECT_NE(Log().find(Prefix() + ") while loop hang detected\""), std::string::npos);
}

TEST_F(TrimFileTest, SecondInstanceNeverTrims) {
  DebugOn();
  options.PrevInstance = true;
  WriteIni("[Common]\r\nObsolete=1\r\n");
  EXPECT_FALSE(TrimIni());
  EXPECT_EQ(Ini(), "[Common]\r\nObsolete=1\r\n");
  EXPECT_NE(Log().find(Prefix() + ") aborted due to app.previnstance\""), std::string::npos);
  EXPECT_FALSE(testing::PathExists(dir.File("Ferrow.BAK")));
}

TEST_F(TrimFileTest, MissingFileYieldsFalseAndFailedIsLogged) {
  DebugOn();
  EXPECT_FALSE(TrimIni());
  std::string log = Log();
  EXPECT_NE(log.find(Prefix() + ") Got last app.instance OK\""), std::string::npos);
  EXPECT_NE(log.find(Prefix() + ") failed!\""), std::string::npos);
}

TEST_F(TrimFileTest, DebugLogTellsTheStoryWithSafeEndOfFileErrors) {
  DebugOn();
  WriteIni("[Common]\r\nDebug=True\r\n");
  ASSERT_TRUE(TrimIni());
  std::string log = Log();
  EXPECT_NE(log.find(",\"" + Prefix() + ") Got last app.instance OK\"\r\n"), std::string::npos);
  EXPECT_NE(log.find(",\"Safe Error 62 (Input past end of file) at 42 in TrimFile()\"\r\n"),
            std::string::npos)
      << log;
  EXPECT_NE(log.find(",\"" + Prefix() + ") success\"\r\n"), std::string::npos);
}

TEST_F(TrimFileTest, WithDebugOffTheTrappedErrorsLeaveNoTrace) {
  WriteIni("[Common]\r\nDebug=True\r\n");
  ASSERT_TRUE(TrimIni());
  EXPECT_FALSE(testing::PathExists(options.LogFileName));
  EXPECT_EQ(Text(), Header() + "\r\n[Common]\r\nDebug=True\r\n");
}

TEST_F(TrimFileTest, BackupThatCannotBeRemovedStopsTheTrim) {
  DebugOn();
  WriteIni("[Common]\r\nObsolete=1\r\n");
  Env::Default()->CreateFolders(dir.File("Ferrow.BAK"));  // a folder will not unlink
  EXPECT_FALSE(TrimIni());
  EXPECT_EQ(Ini(), "[Common]\r\nObsolete=1\r\n");
  std::string log = Log();
  EXPECT_NE(log.find(Prefix() + ") Failed to unlink(" + dir.File("Ferrow.BAK") + ")\""),
            std::string::npos);
  EXPECT_EQ(log.find(") failed!"), std::string::npos);
}

TEST_F(TrimFileTest, FailedBackupCopyIsReportedAndStopsTheTrim) {
  DebugOn();
  WriteIni("[Common]\r\nObsolete=1\r\n");
  class NoCopyEnv : public testing::CountingEnv {
   public:
    bool CopyWholeFile(const std::string&, const std::string&) override { return false; }
  } no_copy;
  Session s{no_copy, options, ui};
  EXPECT_FALSE(TrimFile(s, options.IniFileName, KnownKeys(), true));
  std::string log = Log();
  EXPECT_NE(log.find("\"Error 75 (Path/File access error) at 15 in TrimFile()\""),
            std::string::npos);
  EXPECT_NE(log.find(") Failed to filecopy(" + options.IniFileName + "," + dir.File("Ferrow.BAK") +
                     ")\""),
            std::string::npos);
}

TEST_F(TrimFileTest, TempFileThatCannotBeWrittenLeavesTheFileAlone) {
  WriteIni("[Common]\r\nObsolete=1\r\n");
  class ReadOnlyTempEnv : public testing::CountingEnv {
   public:
    // The temporary file opens, but every write to it fails.
    std::FILE* OpenStream(const std::string& path, const char* mode) override {
      if (path.find("TMP") == std::string::npos) return CountingEnv::OpenStream(path, mode);
      if (std::FILE* created = CountingEnv::OpenStream(path, "w+b")) std::fclose(created);
      return CountingEnv::OpenStream(path, "rb");
    }
  } read_only_temp;
  Session s{read_only_temp, options, ui};
  EXPECT_FALSE(TrimFile(s, options.IniFileName, KnownKeys(), true));
  EXPECT_EQ(Ini(), "[Common]\r\nObsolete=1\r\n");
}

}  // namespace
}  // namespace ferrow

namespace ferrow {
namespace {

#ifndef _WIN32
// A temporary file that takes every write into its buffer and then cannot
// put it on the disk, as on a full disk.
class FullDiskTempEnv : public testing::CountingEnv {
 public:
  std::FILE* OpenStream(const std::string& path, const char* mode) override {
    if (path.find("TMP") == std::string::npos) return CountingEnv::OpenStream(path, mode);
    cookie_io_functions_t io{};
    io.read = [](void*, char*, size_t) -> ssize_t { return 0; };
    io.write = [](void*, const char*, size_t) -> ssize_t {
      errno = ENOSPC;
      return -1;
    };
    return fopencookie(nullptr, mode, io);
  }
};

TEST_F(TrimFileTest, TempFileThatCannotBeFlushedLeavesTheOldFileAndLogsTheFailure) {
  DebugOn();
  const std::string old = "[Common]\r\nHistoryCount=1\r\nObsolete=1\r\n";
  WriteIni(old);
  FullDiskTempEnv full;
  Session s{full, options, ui};
  EXPECT_FALSE(TrimFile(s, options.IniFileName, KnownKeys(), true));
  EXPECT_EQ(Ini(), old);
  EXPECT_NE(Log().find(") Failed to write("), std::string::npos);
  EXPECT_NE(Log().find(Prefix() + ") failed!\""), std::string::npos);
  EXPECT_EQ(Log().find(") success"), std::string::npos);
}
#endif

TEST_F(TrimFileTest, FileWithoutACommonSectionNeverReplacesTheBak) {
  testing::WriteBytes(dir.File("Ferrow.BAK"), "[Common]\r\nHistoryCount=0\r\n");
  WriteIni(std::string(64, '\0') + "stray\r\n[app.log]\r\nFontSize=9\r\n");
  ASSERT_TRUE(TrimIni());
  EXPECT_EQ(testing::ReadBytes(dir.File("Ferrow.BAK")), "[Common]\r\nHistoryCount=0\r\n");
  WriteIni("[ common ]\r\nHistoryCount=2\r\n");
  ASSERT_TRUE(TrimIni());
  EXPECT_EQ(testing::ReadBytes(dir.File("Ferrow.BAK")), "[ common ]\r\nHistoryCount=2\r\n");
}

TEST_F(TrimFileTest, SectionHeaderHoldingAnEqualsSignIsKeptWithItsKeys) {
  WriteIni("[Common]\r\nHistoryCount=1\r\n[job=42.log]\r\nFontSize=10\r\n");
  ASSERT_TRUE(TrimIni());
  EXPECT_EQ(Text(), Header() + "\r\n[Common]\r\nHistoryCount=1\r\n\r\n[job=42.log]\r\nFontSize=10\r\n");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "job=42.log", "FontSize"), "10");
}

TEST_F(TrimFileTest, RewriteWaitsForTheProfileWritersLockAndGivesUpWithoutIt) {
  DebugOn();
  WriteIni("[Common]\r\nObsolete=1\r\n");
  class LockTakenEnv : public testing::CountingEnv {
   public:
    std::unique_ptr<FileLock> LockProfile(const std::string& path, int wait_ms) override {
      asked_for = path;
      waited_ms = wait_ms;
      return nullptr;
    }
    std::string asked_for;
    int waited_ms = 0;
  } locked;
  Session s{locked, options, ui};
  EXPECT_FALSE(TrimFile(s, options.IniFileName, KnownKeys(), true));
  EXPECT_EQ(locked.asked_for, options.IniFileName);
  EXPECT_GT(locked.waited_ms, 0);
  EXPECT_EQ(Ini(), "[Common]\r\nObsolete=1\r\n");
  EXPECT_NE(Log().find(") Failed to fopen(" + options.IniFileName + ") @18\""), std::string::npos);
}

}  // namespace
}  // namespace ferrow
