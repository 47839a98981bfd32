// Many Ferrow processes closing together, as at log-off: each is a real
// store_driver process that starts up as the program, follows a file of its
// own and writes what closing writes when SIGTERM arrives.
#include <signal.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "config/ini_file.h"
#include "platform/env.h"
#include "support/strings.h"
#include "testing/processes.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::ReadBytes;
using testing::Spawn;
using testing::TempDir;
using testing::WriteBytes;
using Names = std::vector<std::string>;

// FERROW_STORE_DRIVER runs the tests against another build's driver.
const std::string kDriver =
    std::getenv("FERROW_STORE_DRIVER") ? std::getenv("FERROW_STORE_DRIVER") : FERROW_STORE_DRIVER;

// Rounds of the ten-process test; FERROW_CLOSING_ROUNDS asks for a long run.
int Rounds() {
  const char* rounds = std::getenv("FERROW_CLOSING_ROUNDS");
  return rounds && std::atoi(rounds) > 0 ? std::atoi(rounds) : 2;
}

class StoreClosing : public ::testing::Test {
 protected:
  std::string Key(const std::string& section, const std::string& key) {
    return ReadINIFile(*Env::Default(), ini, section, key);
  }
  Names History() {
    Names names;
    const int n = std::atoi(Key("Common", "HistoryCount").c_str());
    for (int i = 1; i <= n; ++i) names.push_back(Key("Common", "History" + std::to_string(i)));
    return names;
  }
  // Starts a driver following `file` and waits until it has started up.
  pid_t StartFollowing(const std::string& file, const std::string& out) {
    WriteBytes(file, "a line\n");
    pid_t pid = Spawn({kDriver, "run", dir.path(), file}, out);
    EXPECT_TRUE(testing::WaitForText(out, "ready", 30)) << ReadBytes(out);
    return pid;
  }
  TempDir dir;
  std::string ini = dir.File("Ferrow.INI");
};

Names Sorted(Names names) {
  std::stable_sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return UpperCase(a) < UpperCase(b);
  });
  return names;
}

TEST_F(StoreClosing, TenProcessesTerminatedAtOnceKeepEveryName) {
  const int rounds = Rounds();
  int kept_all = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    WriteBytes(ini, "[Common]\r\nWriteLock=False\r\nHistoryCount=1\r\nHistory1=old.log\r\n");
    Names expected = {"old.log"};
    std::vector<pid_t> pids;
    for (int i = 0; i < 10; ++i) {
      const std::string name = "r" + std::to_string(round) + "f" + std::to_string(i) + ".log";
      expected.push_back(dir.File(name));
      pids.push_back(StartFollowing(expected.back(), dir.File(name + ".out")));
    }
    for (pid_t pid : pids) ::kill(pid, SIGTERM);
    for (pid_t pid : pids) EXPECT_EQ(testing::WaitExitWithin(pid, 60), 0);
    const Names history = History();
    EXPECT_EQ(history, Sorted(expected));
    if (history == Sorted(expected)) ++kept_all;
    EXPECT_EQ(Key("Common", "WriteLock"), "False");
  }
  std::cout << "ten processes terminated at once: " << kept_all << " of " << rounds
            << " rounds kept all ten names\n";
}

// A full history: what each of two processes added survives both closes.
TEST_F(StoreClosing, FullHistoryKeepsTheNewNamesOfProcessesClosingOneAfterTheOther) {
  std::string text = "[Common]\r\nWriteLock=False\r\nHistoryCount=200\r\n";
  for (int i = 1; i <= 200; ++i)
    text += "History" + std::to_string(i) + "=C:\\old\\h" + std::to_string(1000 + i) + ".log\r\n";
  WriteBytes(ini, text);
  const std::string p = dir.File("p.log"), q = dir.File("q.log");
  pid_t first = StartFollowing(p, dir.File("p.out"));
  pid_t second = StartFollowing(q, dir.File("q.out"));
  ::kill(first, SIGTERM);
  EXPECT_EQ(testing::WaitExitWithin(first, 30), 0);
  ::kill(second, SIGTERM);
  EXPECT_EQ(testing::WaitExitWithin(second, 30), 0);
  const Names history = History();
  ASSERT_EQ(history.size(), 200u);
  EXPECT_EQ(std::count(history.begin(), history.end(), p), 1);
  EXPECT_EQ(std::count(history.begin(), history.end(), q), 1);
  EXPECT_EQ(history, Sorted(history));
}

// A stale WriteLock (its holder died): the close still saves the history,
// merged with what another process added meanwhile.
TEST_F(StoreClosing, CloseWithoutTheLockKeepsTheNamesOthersAdded) {
  WriteBytes(ini, "[Common]\r\nWriteLock=False\r\nHistoryCount=1\r\nHistory1=old.log\r\n");
  const std::string mine = dir.File("mine.log");
  pid_t pid = StartFollowing(mine, dir.File("mine.out"));
  // Another process takes the lock, adds a name and dies holding the lock.
  Env& env = *Env::Default();
  WriteINIFile(env, ini, "Common", "WriteLock", "True");
  WriteINIFile(env, ini, "Common", "HistoryCount", "2");
  WriteINIFile(env, ini, "Common", "History2", "other.log");
  ::kill(pid, SIGTERM);
  EXPECT_EQ(testing::WaitExitWithin(pid, 60), 0);
  EXPECT_EQ(History(), Sorted({mine, "old.log", "other.log"}));
  EXPECT_EQ(Key("Common", "WriteLock"), "True");  // never taken, never released
}

}  // namespace
}  // namespace ferrow
