#include "config/history_close.h"

#include <gtest/gtest.h>

#include "config/history.h"
#include "config/ini_file.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using Names = std::vector<std::string>;

class HistoryAtClose : public testing::SessionTest {
 protected:
  Names List() {
    return Names(options.HistoryList.begin(), options.HistoryList.begin() + options.HistoryTotal);
  }
  Names FileList() {
    Names names;
    const int n = std::stoi(ReadINIFile(env, options.IniFileName, "Common", "HistoryCount"));
    for (int i = 1; i <= n; ++i)
      names.push_back(ReadINIFile(env, options.IniFileName, "Common", "History" + std::to_string(i)));
    return names;
  }
};

TEST_F(HistoryAtClose, KeepsEveryNameOfTheFileAndOfThisProcessSortedWithoutDuplicates) {
  WriteIni("[Common]\r\nHistoryCount=3\r\nHistory1=b.log\r\nHistory2=B.LOG\r\nHistory3=z.log\r\n");
  AddToHistory(options, "mine.log");
  AddToHistory(options, "Z.LOG");
  ASSERT_TRUE(MergeHistoryAtClose(session));
  EXPECT_EQ(FileList(), (Names{"b.log", "mine.log", "Z.LOG"}));
  EXPECT_EQ(List(), FileList());
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "WriteLock"), "False");
}

TEST_F(HistoryAtClose, KeepsThisProcessNamesWhenTheFileHasNoHistory) {
  AddToHistory(options, "only.log");
  ASSERT_TRUE(MergeHistoryAtClose(session));
  EXPECT_EQ(FileList(), (Names{"only.log"}));
}

TEST_F(HistoryAtClose, KeepsAtMostTwoHundredNamesPreferringThisProcessOnes) {
  std::string text = "[Common]\r\nHistoryCount=250\r\n";
  for (int i = 1; i <= 250; ++i)
    text += "History" + std::to_string(i) + "=f" + std::to_string(1000 + i) + ".log\r\n";
  WriteIni(text);
  AddToHistory(options, "zz-mine.log");
  ASSERT_TRUE(MergeHistoryAtClose(session));
  Names names = FileList();
  ASSERT_EQ(names.size(), 200u);
  EXPECT_EQ(names.back(), "zz-mine.log");
  EXPECT_EQ(names.front(), "f1001.log");
}

std::string HistoryText(const std::string& head, const Names& names) {
  std::string text = head + "HistoryCount=" + std::to_string(names.size()) + "\r\n";
  for (size_t i = 1; i <= 200; ++i)
    text += "History" + std::to_string(i) + "=" + (i <= names.size() ? names[i - 1] : "") + "\r\n";
  return text;
}

// A stale or busy WriteLock: the close still saves, merged with the file.
TEST_F(HistoryAtClose, MergesWithTheFileWhenTheLockIsHeld) {
  WriteIni("[Common]\r\nWriteLock=True\r\nHistoryCount=1\r\nHistory1=a.log\r\n");
  LoadHistoryAtStartup(session);
  // Another process adds a name while this one runs, without the lock.
  WriteINIFile(env, options.IniFileName, "Common", "HistoryCount", "2");
  WriteINIFile(env, options.IniFileName, "Common", "History2", "other.log");
  AddToHistory(options, "mine.log");
  EXPECT_TRUE(MergeHistoryAtClose(session));
  EXPECT_EQ(Ini(), HistoryText("[Common]\r\nWriteLock=True\r\n", {"a.log", "mine.log", "other.log"}));
  EXPECT_EQ(List(), (Names{"a.log", "mine.log", "other.log"}));
}

Names Numbered(const std::string& prefix, int from, int to) {
  Names names;
  for (int i = from; i <= to; ++i) names.push_back(prefix + std::to_string(1000 + i) + ".log");
  return names;
}

// A full list: what falls off is an old name, never a fresh one of this
// process or of another.
TEST(MergeAtClose, FullListDropsOldNamesAndKeepsEveryFreshOne) {
  const Names seen = Numbered("f", 1, 200);
  Names file = Numbered("f", 1, 199);  // another process added n.log, losing f1200
  file.push_back("n.log");
  Names mine = {"m.log"};
  const Names more = Numbered("f", 1, 199);
  mine.insert(mine.end(), more.begin(), more.end());
  Names expected = Numbered("f", 1, 198);
  expected.insert(expected.end(), {"m.log", "n.log"});
  EXPECT_EQ(MergeAtClose(file, mine, seen, {"m.log"}), expected);
}

TEST(MergeAtClose, ANameAnotherProcessRemovedStaysRemoved) {
  EXPECT_EQ(MergeAtClose({"a.log"}, {"a.log", "cr.log"}, {"a.log", "cr.log"}, {}), (Names{"a.log"}));
}

TEST(MergeAtClose, ANameAnotherProcessRemovedComesBackWhenThisOneOpenedIt) {
  EXPECT_EQ(MergeAtClose({"a.log"}, {"cr.log", "a.log"}, {"a.log", "cr.log"}, {"cr.log"}),
            (Names{"a.log", "cr.log"}));
}

TEST(MergeAtClose, AHistoryAnotherProcessClearedKeepsOnlyWhatThisOneOpened) {
  EXPECT_EQ(MergeAtClose({}, {"mine.log", "a.log", "b.log"}, {"a.log", "b.log"}, {"mine.log"}),
            (Names{"mine.log"}));
}

TEST(MergeAtClose, KeepsThisProcessSpellingAndDropsDuplicates) {
  EXPECT_EQ(MergeAtClose({"A.LOG", "b.log"}, {"a.log"}, {"A.LOG", "b.log"}, {}),
            (Names{"a.log", "b.log"}));
}

}  // namespace
}  // namespace ferrow
