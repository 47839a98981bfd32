// Windows: ten processes merging their history into one configuration file at
// the same moment, through the real profile API. Every name must be kept. The
// WriteLock key is stale, so all ten give up waiting for it at the same moment
// and only the serialisation of the profile service stands between them.
#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

#include "config/ini_file.h"
#include "platform/env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::TempDir;
using testing::WriteBytes;
using Names = std::vector<std::string>;

// FERROW_CLOSE_MERGE_CHILD runs the test against another build's child.
const std::string kChild = std::getenv("FERROW_CLOSE_MERGE_CHILD") ? std::getenv("FERROW_CLOSE_MERGE_CHILD")
                                                                     : FERROW_CLOSE_MERGE_CHILD;

HANDLE Start(const std::string& command) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION info{};
  std::string line = command;
  if (!CreateProcessA(nullptr, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info))
    return nullptr;
  CloseHandle(info.hThread);
  return info.hProcess;
}

int Rounds() {
  const char* rounds = std::getenv("FERROW_CLOSING_ROUNDS");
  return rounds && std::atoi(rounds) > 0 ? std::atoi(rounds) : 1;
}

TEST(CloseMergeProcesses, TenProcessesMergingAtOnceWithoutTheLockKeepEveryName) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  Env& env = *Env::Default();
  const int rounds = Rounds();
  int kept_all = 0;
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    WriteBytes(ini, "[Common]\r\nWriteLock=True\r\nHistoryCount=1\r\nHistory1=old.log\r\n");
    const std::string go = dir.File("go" + std::to_string(round));
    Names expected;
    std::vector<HANDLE> children;
    std::vector<std::string> ready;
    for (int i = 0; i < 10; ++i) {
      expected.push_back("C:\\logs\\r" + std::to_string(round) + "f" + std::to_string(i) + ".log");
      ready.push_back(dir.File("ready" + std::to_string(round) + "-" + std::to_string(i)));
      children.push_back(Start("\"" + kChild + "\" \"" + ini + "\" " + expected.back() + " \"" +
                               ready.back() + "\" \"" + go + "\""));
      ASSERT_NE(children.back(), nullptr);
    }
    for (const std::string& r : ready)
      for (int wait = 0; wait < 6000 && !env.FileLength(r); ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    WriteBytes(go, "go");
    expected.push_back("old.log");  // sorted without regard to case: after "C:\..."
    for (HANDLE child : children) {
      EXPECT_EQ(WaitForSingleObject(child, 60000), WAIT_OBJECT_0);
      CloseHandle(child);
    }
    Names history;
    const int n = std::atoi(ReadINIFile(env, ini, "Common", "HistoryCount").c_str());
    for (int i = 1; i <= n; ++i) history.push_back(ReadINIFile(env, ini, "Common", "History" + std::to_string(i)));
    EXPECT_EQ(history, expected);
    if (history == expected) ++kept_all;
  }
  std::cout << "ten processes merging at once: " << kept_all << " of " << rounds
            << " rounds kept all ten names\n";
}

}  // namespace
}  // namespace ferrow
