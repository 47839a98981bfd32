// The profile service's transactions on real files: on Windows the real
// profile API under the program's mutex, elsewhere our writer under its lock.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "config/ini_transaction.h"
#include "platform/env.h"
#include "support/paths.h"
#include "testing/counting_env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

Env& env() { return *Env::Default(); }

TEST(ProfileTransaction, ReadsItsOwnWritesAndCommitsThemAll) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  WriteBytes(ini, "[Common]\r\nHistoryCount=1\r\nHistory1=a.log\r\n");
  {
    auto t = env().BeginProfileTransaction(ini, 1000);
    ASSERT_TRUE(t);
    EXPECT_EQ(t->Text(), "[Common]\r\nHistoryCount=1\r\nHistory1=a.log\r\n");
    ASSERT_TRUE(t->WriteProfileString("Common", "HistoryCount", "2"));
    ASSERT_TRUE(t->WriteProfileString("Common", "History2", "b.log"));
    ASSERT_TRUE(t->WriteProfileString("app.log", "FontSize", "10"));
    EXPECT_EQ(t->Text(),
              "[Common]\r\nHistoryCount=2\r\nHistory1=a.log\r\nHistory2=b.log\r\n[app.log]\r\nFontSize=10\r\n");
    ASSERT_TRUE(t->Commit());
  }
  EXPECT_EQ(ReadBytes(ini),
            "[Common]\r\nHistoryCount=2\r\nHistory1=a.log\r\nHistory2=b.log\r\n[app.log]\r\nFontSize=10\r\n");
}

// Another process's transaction, or its single writes, wait for this one.
TEST(ProfileTransaction, ASecondOneWaitsUntilTheFirstHasEnded) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  WriteBytes(ini, "[Common]\r\nk=0\r\n");
  std::atomic<bool> began{false};
  std::thread first([&] {
    auto t = env().BeginProfileTransaction(ini, 1000);
    ASSERT_TRUE(t);
    began = true;
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    t->WriteProfileString("Common", "k", "1");
    t->Commit();
  });
  while (!began) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_EQ(env().BeginProfileTransaction(ini, 50), nullptr);
  EXPECT_FALSE(env().LastWriteFailureIsPermanent());  // waiting mends it
  auto second = env().BeginProfileTransaction(ini, 5000);
  ASSERT_TRUE(second);
  EXPECT_EQ(second->Text(), "[Common]\r\nk=1\r\n");
  second.reset();
  first.join();
}

TEST(ProfileTransaction, VanishedFolderFailsAtOnceForGood) {
  TempDir dir;
  testing::CountingEnv counting;
  IniTransaction t(counting, JoinPath(dir.File("gone"), "Ferrow.INI"));
  EXPECT_FALSE(t.Began());
  EXPECT_EQ(counting.event_runs, 0);
  EXPECT_TRUE(env().LastWriteFailureIsPermanent());
}

TEST(ProfileTransaction, OneThatWroteNothingLeavesNoFileBehind) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  {
    auto t = env().BeginProfileTransaction(ini, 1000);
    ASSERT_TRUE(t);
    EXPECT_EQ(t->Text(), "");
  }
  EXPECT_FALSE(testing::PathExists(ini));
}

}  // namespace
}  // namespace ferrow
