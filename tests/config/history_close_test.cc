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

TEST_F(HistoryAtClose, LeavesFileAndListAloneWhenTheLockIsHeld) {
  const std::string held = "[Common]\r\nWriteLock=True\r\nHistoryCount=1\r\nHistory1=a.log\r\n";
  WriteIni(held);
  AddToHistory(options, "mine.log");
  EXPECT_FALSE(MergeHistoryAtClose(session));
  EXPECT_EQ(Ini(), held);
  EXPECT_EQ(List(), (Names{"mine.log"}));
}

}  // namespace
}  // namespace ferrow
