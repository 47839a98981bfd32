#include "config/history.h"

#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::SessionTest;
using Names = std::vector<std::string>;

std::string HistoryFile(const Names& names, const std::string& extra = "") {
  std::string text = "[Common]\r\nHistoryCount=" + std::to_string(names.size()) + "\r\n";
  for (size_t i = 0; i < names.size(); ++i)
    text += "History" + std::to_string(i + 1) + "=" + names[i] + "\r\n";
  return text + extra;
}

class HistoryTest : public SessionTest {
 protected:
  Names List() {
    return Names(options.HistoryList.begin(), options.HistoryList.begin() + options.HistoryTotal);
  }
  std::string Key(const std::string& key) {
    return ReadINIFile(env, options.IniFileName, "Common", key);
  }
  int HistoryKeysInFile() {
    int count = 0;
    std::string text = Ini();
    for (size_t at = 0; (at = text.find("\r\nHistory", at)) != std::string::npos; ++at)
      if (text.compare(at + 2, 12, "HistoryCount") != 0) ++count;
    return count;
  }
};

TEST(HistorySort, UncPathsComeAfterDriveLetters) {
  Names names = {"c:\\b.log", "\\\\srv\\x.log", "A:\\z.log"};
  SortHistory(names);
  EXPECT_EQ(names, (Names{"A:\\z.log", "c:\\b.log", "\\\\srv\\x.log"}));
}

TEST_F(HistoryTest, AddingSameNameInOtherCaseChangesNothing) {
  AddToHistory(options, "c:\\a.log");
  AddToHistory(options, "C:\\A.LOG");
  EXPECT_EQ(List(), (Names{"c:\\a.log"}));
}

TEST_F(HistoryTest, AddingPushesEntriesDownAndLosesTheTwoHundredth) {
  for (int i = 200; i >= 1; --i) AddToHistory(options, "f" + std::to_string(i));
  EXPECT_EQ(options.HistoryTotal, 200);
  EXPECT_EQ(options.HistoryList[0], "f1");
  EXPECT_EQ(options.HistoryList[199], "f200");
  AddToHistory(options, "new");
  EXPECT_EQ(options.HistoryList[0], "new");
  EXPECT_EQ(options.HistoryList[1], "f1");
  EXPECT_EQ(options.HistoryList[199], "f199");
  EXPECT_EQ(options.HistoryTotal, 200);
}

TEST_F(HistoryTest, AddingKeepsALowerCopyOfTheName) {
  AddToHistory(options, "a");
  AddToHistory(options, "b");
  AddToHistory(options, "a");
  EXPECT_EQ(List(), (Names{"a", "b", "a"}));
  AddToHistory(options, "");
  EXPECT_EQ(options.HistoryTotal, 3);
}

TEST_F(HistoryTest, StartupLoadPacksNonEmptyEntriesAndSorts) {
  WriteIni("[Common]\r\nHistoryCount=4\r\nHistory1=z.log\r\nHistory2=\r\nHistory3=B.log\r\n"
           "History4=a.log\r\nHistory5=beyond.log\r\n");
  LoadHistoryAtStartup(session);
  EXPECT_EQ(List(), (Names{"a.log", "B.log", "z.log"}));
}

TEST_F(HistoryTest, StartupLoadClampsTheCountToTwoHundred) {
  Names names;
  for (int i = 1; i <= 205; ++i) names.push_back("f" + std::to_string(1000 + i));
  WriteIni(HistoryFile(names));
  LoadHistoryAtStartup(session);
  EXPECT_EQ(options.HistoryTotal, 200);
  EXPECT_EQ(options.HistoryList[199], "f1200");
}

TEST_F(HistoryTest, MergeAddsOwnEntriesNotInTheFile) {
  WriteIni(HistoryFile({"c:\\x.log", "c:\\y.log"}));
  AddToHistory(options, "C:\\X.LOG");
  AddToHistory(options, "c:\\mine.log");
  Names read = LoadHistory(session);
  EXPECT_EQ(read, (Names{"c:\\x.log", "c:\\y.log"}));
  EXPECT_EQ(List(), (Names{"c:\\mine.log", "c:\\x.log", "c:\\y.log"}));
}

TEST_F(HistoryTest, MergeWalksOwnEntriesOnlyAsFarAsTheFileSide) {
  WriteIni(HistoryFile({"f.log"}));
  AddToHistory(options, "second.log");
  AddToHistory(options, "first.log");
  LoadHistory(session);
  EXPECT_EQ(List(), (Names{"f.log", "first.log"}));
}

TEST_F(HistoryTest, EmptyFileSideMergesNoneOfOurOwn) {
  WriteIni("[Common]\r\nHistoryCount=0\r\n");
  AddToHistory(options, "mine.log");
  LoadHistory(session);
  EXPECT_EQ(options.HistoryTotal, 0);
}

TEST_F(HistoryTest, DuplicatesFromTheFileSideAreKept) {
  WriteIni(HistoryFile({"a.log", "A.LOG"}));
  LoadHistory(session);
  EXPECT_EQ(options.HistoryTotal, 2);
}

TEST_F(HistoryTest, AfterATidyTheFileHoldsTwoHundredHistoryKeys) {
  WriteIni(HistoryFile({"b.log", "a.log"}, "WriteLock=False\r\n"));
  AddToHistory(options, "c.log");
  ASSERT_TRUE(TidyHistory(session));
  EXPECT_EQ(HistoryKeysInFile(), 200);
  EXPECT_EQ(Key("HistoryCount"), "3");
  EXPECT_EQ(Key("History1"), "a.log");
  EXPECT_EQ(Key("History3"), "c.log");
  EXPECT_EQ(Key("History4"), "");
  EXPECT_NE(Ini().find("\r\nHistory200=\r\n"), std::string::npos);
  EXPECT_EQ(Key("WriteLock"), "False");
  EXPECT_EQ(ui.captions.back(), "Ferrow Menu - Tidying the History ...");
}

TEST_F(HistoryTest, TidyAgainstHeldLockAsksAndStopsOnNo) {
  WriteIni(HistoryFile({"a.log"}, "WriteLock=True\r\n"));
  ui.answers = {false};
  EXPECT_FALSE(TidyHistory(session));
  EXPECT_EQ(ui.questions,
            (Names{"The configuration file is locked by another process - Try again?"}));
  EXPECT_EQ(ui.captions.back(), "Ferrow Menu");
  EXPECT_EQ(env.slept_ms, 30000);
  EXPECT_EQ(HistoryKeysInFile(), 1);
}

TEST_F(HistoryTest, TidyAgainstHeldLockWaitsSixtyMoreSecondsOnYes) {
  WriteIni(HistoryFile({"a.log"}, "WriteLock=True\r\n"));
  ui.answers = {true};
  EXPECT_FALSE(TidyHistory(session));
  EXPECT_EQ(ui.questions.size(), 1u);
  EXPECT_EQ(env.slept_ms, 90000);
}

TEST_F(HistoryTest, TidyTakesTheLockFreedDuringTheSecondWait) {
  WriteIni(HistoryFile({"a.log"}, "WriteLock=True\r\n"));
  ui.answers = {true};
  env.on_sleep = [&] {
    if (env.slept_ms == 40000) WriteINIFile(env, options.IniFileName, "Common", "WriteLock", "False");
  };
  EXPECT_TRUE(TidyHistory(session));
  EXPECT_EQ(HistoryKeysInFile(), 200);
}

TEST_F(HistoryTest, RemovingTheLastEntryClearsLastFileSelected) {
  WriteIni(HistoryFile({"c:\\only.log"}, "LastFileSelected=c:\\only.log\r\n"));
  options.HistoryList[0] = "c:\\only.log";
  options.HistoryTotal = 1;
  ASSERT_TRUE(RemoveFromHistory(session, "C:\\ONLY.LOG"));
  EXPECT_EQ(options.HistoryTotal, 0);
  EXPECT_EQ(Key("HistoryCount"), "0");
  EXPECT_NE(Ini().find("\r\nLastFileSelected=\r\n"), std::string::npos);
}

TEST_F(HistoryTest, RemovalKeepsTheSecondOfTwoAdjacentEqualEntries) {
  WriteIni(HistoryFile({"a.log", "b.log", "B.LOG", "c.log"}));
  ASSERT_TRUE(RemoveFromHistory(session, "b.log"));
  EXPECT_EQ(List(), (Names{"a.log", "B.LOG", "c.log"}));
  EXPECT_EQ(Key("HistoryCount"), "3");
}

TEST_F(HistoryTest, RemovalRestoresTheCaption) {
  WriteIni(HistoryFile({"a.log"}));
  ui.SetMenuCaption("Ferrow Menu - a.log");
  ASSERT_TRUE(RemoveFromHistory(session, "a.log"));
  EXPECT_EQ(ui.MenuCaption(), "Ferrow Menu - a.log");
  EXPECT_NE(std::find(ui.captions.begin(), ui.captions.end(),
                      "Ferrow Menu - Updating the History ..."),
            ui.captions.end());
}

TEST_F(HistoryTest, RemovalGivesUpSilentlyWhenLocked) {
  WriteIni(HistoryFile({"a.log"}, "WriteLock=True\r\n"));
  EXPECT_FALSE(RemoveFromHistory(session, "a.log"));
  EXPECT_EQ(Key("History1"), "a.log");
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(env.slept_ms, 10000);
}

TEST_F(HistoryTest, HugeHistoryCountCannotKeepTheReaderBusyForEver) {
  WriteIni("[Common]\r\nHistoryCount=2000000000\r\nHistory1=a.log\r\n");
  Names read = LoadHistory(session);
  EXPECT_EQ(read, (Names{"a.log"}));
}

// The 201 history keys are one transaction of the profile service: the only
// single profile writes are the two of the WriteLock key.
TEST_F(HistoryTest, TidyWritesTheHistoryAsOneTransaction) {
  WriteHistory({"b.log"});
  AddToHistory(options, "a.log");
  ASSERT_TRUE(TidyHistory(session));
  EXPECT_EQ(env.writes, 2);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), "a.log");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History2"), "b.log");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "WriteLock"), "False");
}

}  // namespace
}  // namespace ferrow
