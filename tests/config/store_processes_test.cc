// The configuration store shared by real processes: each runs store_driver
// for one operation while a watcher keeps reading the file.
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

#include "config/ini_file.h"
#include "platform/env.h"
#include "support/strings.h"
#include "testing/processes.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::LinesStartingWith;
using testing::ReadBytes;
using testing::Spawn;
using testing::TempDir;
using testing::WaitExit;
using testing::WriteBytes;
using Names = std::vector<std::string>;

const std::string kDriver = FERROW_STORE_DRIVER;

// The merge as the history's rules state it, written out independently: the
// file's names as read, then ours (walked only as far as the file's count)
// unless already there, at most 200, sorted on upper-cased text.
Names ExpectedMerge(const Names& read, const Names& ours) {
  Names merged = read;
  for (size_t j = 0; j < read.size() && j < ours.size(); ++j) {
    bool held = std::any_of(merged.begin(), merged.end(),
                            [&](const std::string& n) { return EqualsNoCase(n, ours[j]); });
    if (!held && merged.size() < 200) merged.push_back(ours[j]);
  }
  std::stable_sort(merged.begin(), merged.end(), [](const std::string& a, const std::string& b) {
    return UpperCase(a) < UpperCase(b);
  });
  return merged;
}

class StoreProcesses : public ::testing::Test {
 protected:
  std::string Out(int n) { return dir.File("out" + std::to_string(n) + ".txt"); }
  std::string Key(const std::string& section, const std::string& key) {
    return ReadINIFile(*Env::Default(), ini, section, key);
  }
  TempDir dir;
  std::string ini = dir.File("Ferrow.INI");
};

TEST_F(StoreProcesses, TwoTidiersNeverTearTheFileAndEachGetsTheMergeOfWhatItRead) {
  std::string text = "[Common]\r\nWriteLock=False\r\nHistoryCount=60\r\n";
  for (int i = 1; i <= 60; ++i) text += "History" + std::to_string(i) + "=C:\\logs\\f" + std::to_string(100 + i) + ".log\r\n";
  WriteBytes(ini, text);
  const Names first = {"C:\\one\\a.log", "C:\\LOGS\\F101.LOG", "\\\\srv\\share\\x.log"};
  const Names second = {"D:\\two\\b.log", "C:\\one\\a.log"};

  testing::TornFileWatch watch(ini);
  Names args1 = {kDriver, "tidy", ini}, args2 = {kDriver, "tidy", ini};
  args1.insert(args1.end(), first.begin(), first.end());
  args2.insert(args2.end(), second.begin(), second.end());
  pid_t a = Spawn(args1, Out(1)), b = Spawn(args2, Out(2));
  ASSERT_GT(a, 0);
  ASSERT_GT(b, 0);
  EXPECT_EQ(WaitExit(a), 0);
  EXPECT_EQ(WaitExit(b), 0);
  watch.Stop();
  EXPECT_EQ(watch.torn(), 0) << watch.first_problem();

  // AddToHistory puts the last name given on top.
  for (auto [out, given] : {std::pair{Out(1), first}, std::pair{Out(2), second}}) {
    Names ours(given.rbegin(), given.rend());
    std::string printed = ReadBytes(out);
    EXPECT_EQ(LinesStartingWith(printed, "list:"),
              ExpectedMerge(LinesStartingWith(printed, "read:"), ours))
        << printed;
  }
  std::string why;
  EXPECT_TRUE(testing::Parseable(ReadBytes(ini), &why)) << why;
  EXPECT_EQ(Key("Common", "WriteLock"), "False");
}

// Three processes load the history at start-up, each follows a file of its
// own, and they close one after the other in every possible order.
TEST_F(StoreProcesses, ThreeFollowersClosedInAnyOrderLeaveAllThreeInTheHistory) {
  const Names followed = {"a.log", "b.log", "c.log"};
  std::vector<int> order = {0, 1, 2};
  int round = 0;
  do {
    SCOPED_TRACE("round " + std::to_string(round));
    WriteBytes(ini, "[Common]\r\nWriteLock=False\r\nHistoryCount=1\r\nHistory1=old.log\r\n");
    std::vector<pid_t> pids;
    Names go;
    for (int i = 0; i < 3; ++i) {
      go.push_back(dir.File("go" + std::to_string(round) + std::to_string(i)));
      pids.push_back(Spawn({kDriver, "follow", ini, followed[static_cast<size_t>(i)], go.back()},
                           Out(10 * round + i)));
      ASSERT_GT(pids.back(), 0);
    }
    for (int i = 0; i < 3; ++i)
      while (ReadBytes(Out(10 * round + i)).find("ready") == std::string::npos)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    for (int i : order) {
      WriteBytes(go[static_cast<size_t>(i)], "x");
      EXPECT_EQ(WaitExit(pids[static_cast<size_t>(i)]), 0);
    }
    EXPECT_EQ(Key("Common", "HistoryCount"), "4");
    Names history;
    for (int i = 1; i <= 4; ++i) history.push_back(Key("Common", "History" + std::to_string(i)));
    EXPECT_EQ(history, (Names{"a.log", "b.log", "c.log", "old.log"}));
    ++round;
  } while (std::next_permutation(order.begin(), order.end()));
}

// A follower that loaded the history before another process removed a
// name from it does not bring the name back when it closes.
TEST_F(StoreProcesses, ANameAnotherProcessRemovedStaysRemovedWhenAFollowerCloses) {
  WriteBytes(ini, "[Common]\r\nWriteLock=False\r\nHistoryCount=2\r\nHistory1=cr.log\r\nHistory2=old.log\r\n");
  const std::string go = dir.File("go");
  pid_t follower = Spawn({kDriver, "follow", ini, "a.log", go}, Out(1));
  ASSERT_GT(follower, 0);
  while (ReadBytes(Out(1)).find("ready") == std::string::npos)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_EQ(WaitExit(Spawn({kDriver, "remove", ini, "cr.log"}, Out(2))), 0);
  WriteBytes(go, "x");
  EXPECT_EQ(WaitExit(follower), 0);
  EXPECT_EQ(Key("Common", "HistoryCount"), "2");
  EXPECT_EQ(Key("Common", "History1"), "a.log");
  EXPECT_EQ(Key("Common", "History2"), "old.log");
}

// A configuration file nobody may write: the program starts and closes as
// an unprivileged user (root writes anything, so a root test run drops to
// nobody for it), and neither step may spend minutes retrying.
TEST_F(StoreProcesses, UnwritableConfigurationFileCostsAtMostAFewSecondsAtStartAndAtClose) {
  const std::string followed = dir.File("app.log");
  const std::string text = "[Common]\r\nWriteLock=False\r\nHistoryCount=1\r\nHistory1=old.log\r\n";
  WriteBytes(followed, "a line\r\n");
  WriteBytes(ini, text);
  ASSERT_EQ(::chmod(dir.path().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(ini.c_str(), 0444), 0);
  pid_t p = Spawn(testing::Unprivileged({kDriver, "start-close", dir.path(), followed}), Out(1));
  ASSERT_GT(p, 0);
  int status = 0;
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (::waitpid(p, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      ::kill(p, SIGKILL);
      ::waitpid(p, &status, 0);
      FAIL() << "still retrying after 30 seconds: " << ReadBytes(Out(1));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << ReadBytes(Out(1));
  const std::string printed = ReadBytes(Out(1));
  const Names startup = LinesStartingWith(printed, "startup_ms:");
  const Names close = LinesStartingWith(printed, "close_ms:");
  ASSERT_EQ(startup.size(), 1u) << printed;
  ASSERT_EQ(close.size(), 1u) << printed;
  EXPECT_LT(std::stol(startup[0]), 3000);
  EXPECT_LT(std::stol(close[0]), 3000);
  EXPECT_EQ(ReadBytes(ini), text);
  std::cout << "unwritable configuration file: start-up " << startup[0] << " ms, close "
            << close[0] << " ms\n";
}

TEST_F(StoreProcesses, ProcessFindingTheLockHeldWaitsAndGivesUp) {
  WriteBytes(ini, "[Common]\r\nWriteLock=True\r\n");
  auto start = std::chrono::steady_clock::now();
  pid_t p = Spawn({kDriver, "lock", ini, "1"}, Out(1));
  EXPECT_EQ(WaitExit(p), 3);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(950));
  EXPECT_EQ(LinesStartingWith(ReadBytes(Out(1)), "caption:"),
            (Names{"Ferrow - (Config file is locked: Waiting 1 seconds for unlock) ",
                   "Ferrow - (Config file is locked: Waiting 1 seconds for unlock) ."}));
}

TEST_F(StoreProcesses, ProcessKilledWhileHoldingTheLockLeavesItStale) {
  WriteBytes(ini, "[Common]\r\nWriteLock=False\r\n");
  pid_t holder = Spawn({kDriver, "hold-lock", ini}, Out(1));
  ASSERT_GT(holder, 0);
  for (int i = 0; i < 500 && ReadBytes(Out(1)).find("held") == std::string::npos; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  ASSERT_EQ(kill(holder, SIGKILL), 0);
  EXPECT_EQ(WaitExit(holder), -1);
  EXPECT_EQ(Key("Common", "WriteLock"), "True");
  EXPECT_EQ(WaitExit(Spawn({kDriver, "lock", ini, "0"})), 3);  // nothing expires it
}

TEST_F(StoreProcesses, RemovalAndSavesFromOtherProcessesLandWhole) {
  WriteBytes(ini, "[Common]\r\nHistoryCount=2\r\nHistory1=a.log\r\nHistory2=b.log\r\n");
  testing::TornFileWatch watch(ini);
  pid_t remover = Spawn({kDriver, "remove", ini, "A.LOG"});
  pid_t saver1 = Spawn({kDriver, "save", ini, "x.log", "12"});
  pid_t saver2 = Spawn({kDriver, "save", ini, "y.log", "14"});
  EXPECT_EQ(WaitExit(remover), 0);
  EXPECT_EQ(WaitExit(saver1), 0);
  EXPECT_EQ(WaitExit(saver2), 0);
  watch.Stop();
  EXPECT_EQ(watch.torn(), 0) << watch.first_problem();
  EXPECT_EQ(Key("Common", "HistoryCount"), "1");
  EXPECT_EQ(Key("Common", "History1"), "b.log");
  EXPECT_EQ(Key("x.log", "FontSize"), "12");
  EXPECT_EQ(Key("y.log", "FontSize"), "14");
}

TEST_F(StoreProcesses, InstanceOfADeadProcessDoesNotCount) {
  const std::string name = "ferrow-test-" + std::to_string(getpid());
  pid_t first = Spawn({kDriver, "claim", name, "hold"}, Out(1));
  for (int i = 0; i < 500 && ReadBytes(Out(1)).empty(); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_EQ(ReadBytes(Out(1)), "alone\n");
  EXPECT_EQ(WaitExit(Spawn({kDriver, "claim", name}, Out(2))), 0);
  EXPECT_EQ(ReadBytes(Out(2)), "another\n");
  kill(first, SIGKILL);
  WaitExit(first);
  EXPECT_EQ(WaitExit(Spawn({kDriver, "claim", name}, Out(3))), 0);
  EXPECT_EQ(ReadBytes(Out(3)), "alone\n");
}

// The last instance to end removes the claims' file; one that starts just
// then must still be seen by the next.
TEST_F(StoreProcesses, AnInstanceStartedWhileOthersComeAndGoIsSeenByTheNext) {
  const std::string name = "ferrow-test-churn-" + std::to_string(getpid());
  for (int round = 0; round < 150; ++round) {
    std::vector<pid_t> churn;
    for (int i = 0; i < 4; ++i) churn.push_back(Spawn({kDriver, "claim", name}, Out(10 + i)));
    pid_t holder = Spawn({kDriver, "claim", name, "hold"}, Out(1));
    for (int i = 0; i < 500 && ReadBytes(Out(1)).empty(); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    for (pid_t p : churn) WaitExit(p);
    EXPECT_EQ(WaitExit(Spawn({kDriver, "claim", name}, Out(2))), 0);
    EXPECT_EQ(ReadBytes(Out(2)), "another\n") << "round " << round;
    kill(holder, SIGTERM);
    WaitExit(holder);
  }
}

}  // namespace
}  // namespace ferrow
