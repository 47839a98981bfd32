#include "config/write_lock.h"

#include <gtest/gtest.h>

#include <chrono>

#include "config/ini_file.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::SessionTest;

class WriteLockTest : public SessionTest {
 protected:
  std::string LockValue() { return ReadINIFile(env, options.IniFileName, "Common", "WriteLock"); }
  std::string Waiting(int seconds, int dots) {
    return "Ferrow - (Config file is locked: Waiting " + std::to_string(seconds) +
           " seconds for unlock) " + std::string(static_cast<size_t>(dots), '.');
  }
};

TEST_F(WriteLockTest, HeldLockMakesTenRoundsCountingDownAndGivesUpAfterFiveSeconds) {
  WriteIni("[Common]\r\nWriteLock=True\r\n");
  EXPECT_FALSE(GetWriteLock(session, 5));
  const std::vector<std::string> expected = {
      Waiting(5, 0), Waiting(5, 1), Waiting(4, 2), Waiting(4, 3), Waiting(3, 4),
      Waiting(3, 5), Waiting(2, 6), Waiting(2, 7), Waiting(1, 8), Waiting(1, 9)};
  EXPECT_EQ(ui.captions, expected);
  EXPECT_EQ(env.sleeps, 10);
  EXPECT_EQ(env.slept_ms, 5000);
  EXPECT_EQ(LockValue(), "True");
}

TEST_F(WriteLockTest, DotsStartAgainAfterNine) {
  WriteIni("[Common]\r\nWriteLock=True\r\n");
  EXPECT_FALSE(GetWriteLock(session, 6));
  ASSERT_EQ(ui.captions.size(), 12u);
  EXPECT_EQ(ui.captions[10], Waiting(1, 0));
  EXPECT_EQ(ui.captions[11], Waiting(1, 1));
}

TEST_F(WriteLockTest, ZeroWaitAgainstHeldLockFailsAtOnce) {
  WriteIni("[Common]\r\nWriteLock=True\r\n");
  EXPECT_FALSE(GetWriteLock(session, 0));
  EXPECT_EQ(env.sleeps, 0);
  EXPECT_TRUE(ui.captions.empty());
}

TEST_F(WriteLockTest, ZeroWaitAgainstFreeLockTakesIt) {
  WriteIni("[Common]\r\nWriteLock=False\r\n");
  EXPECT_TRUE(GetWriteLock(session, 0));
  EXPECT_EQ(LockValue(), "True");
}

TEST_F(WriteLockTest, FileWithoutWriteLockKeyCountsAsUnlocked) {
  WriteIni("[Common]\r\nHistoryCount=0\r\n");
  EXPECT_TRUE(GetWriteLock(session, 5));
  EXPECT_EQ(env.sleeps, 0);
  EXPECT_EQ(Ini(), "[Common]\r\nHistoryCount=0\r\nWriteLock=True\r\n");
}

TEST_F(WriteLockTest, YesCountsAsLocked) {
  WriteIni("[Common]\r\nWriteLock=yes\r\n");
  EXPECT_FALSE(GetWriteLock(session, 1));
}

TEST_F(WriteLockTest, MaybeCountsAsUnlocked) {
  WriteIni("[Common]\r\nWriteLock=maybe\r\n");
  EXPECT_TRUE(GetWriteLock(session, 1));
  EXPECT_EQ(env.sleeps, 0);
}

TEST_F(WriteLockTest, LockReleasedDuringTheWaitIsTaken) {
  WriteIni("[Common]\r\nWriteLock=True\r\n");
  env.on_sleep = [&] {
    if (env.sleeps == 3) WriteIni("[Common]\r\nWriteLock=False\r\n");
  };
  EXPECT_TRUE(GetWriteLock(session, 5));
  EXPECT_EQ(env.sleeps, 3);
  EXPECT_EQ(LockValue(), "True");
}

TEST_F(WriteLockTest, VanishedKeyLeavesTheLastValueLocked) {
  WriteIni("[Common]\r\nWriteLock=True\r\n");
  env.on_sleep = [&] { WriteIni("[Common]\r\n"); };
  EXPECT_FALSE(GetWriteLock(session, 2));
  EXPECT_EQ(env.sleeps, 4);
}

TEST_F(WriteLockTest, ReleaseWritesFalse) {
  WriteIni("[Common]\r\nWriteLock=True\r\n");
  EXPECT_TRUE(ReleaseWriteLock(session));
  EXPECT_EQ(LockValue(), "False");
}

TEST_F(WriteLockTest, FailingLockWriteIsRetriedWithGrowingDots) {
  env.succeed = [](const char*, const char*) { return false; };
  EXPECT_FALSE(GetWriteLock(session, 0));
  ASSERT_EQ(ui.captions.size(), 99u);
  EXPECT_EQ(ui.captions[0], "Ferrow - Waiting to get a write-lock on the config file .");
  EXPECT_EQ(ui.captions[8], "Ferrow - Waiting to get a write-lock on the config file .........");
  EXPECT_EQ(ui.captions[9], "Ferrow - Waiting to get a write-lock on the config file ");
  EXPECT_EQ(ui.refreshes, 99);
  EXPECT_EQ(env.writes, 100 * 200);
}

TEST_F(WriteLockTest, LockWriteFailingForGoodIsNotRetried) {
  WriteIni("[Common]\r\nWriteLock=False\r\n");
  env.succeed = [](const char*, const char*) { return false; };
  env.failures_permanent = true;
  EXPECT_FALSE(GetWriteLock(session, 5));
  EXPECT_FALSE(ReleaseWriteLock(session));
  EXPECT_EQ(env.writes, 2);
  EXPECT_EQ(env.sleeps, 0);
}

TEST_F(WriteLockTest, FailingReleaseIsRetriedEveryQuarterSecond) {
  int calls = 0;
  env.succeed = [&](const char*, const char*) { return ++calls > 200 * 2; };
  EXPECT_TRUE(ReleaseWriteLock(session));
  ASSERT_EQ(ui.captions.size(), 2u);
  EXPECT_EQ(ui.captions[1], "Ferrow - Waiting to release the write-lock on the config file ..");
  EXPECT_EQ(env.slept_ms, 2 * 200 * 25 + 2 * 250);
}

TEST(WriteLockRealTime, HeldLockIsWaitedForInRealTime) {
  testing::TempDir dir;
  Options options;
  options.IniFileName = dir.File("Ferrow.INI");
  testing::WriteBytes(options.IniFileName, "[Common]\r\nWriteLock=True\r\n");
  testing::RecordingUi ui;
  Session session{*Env::Default(), options, ui};
  auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(GetWriteLock(session, 1));
  auto elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_GE(elapsed, std::chrono::milliseconds(950));
  EXPECT_LT(elapsed, std::chrono::seconds(5));
  EXPECT_EQ(ui.captions.size(), 2u);
}

}  // namespace
}  // namespace ferrow
