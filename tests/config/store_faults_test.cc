// A failing disk: the configuration folder gone (a USB stick pulled out) or
// a configuration file this user may not read. Real store_driver processes
// start up as the program and close; neither may retry for minutes.
#include <signal.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "support/strings.h"
#include "testing/processes.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::LinesStartingWith;
using testing::ReadBytes;
using testing::Spawn;
using testing::TempDir;
using testing::WriteBytes;

// FERROW_STORE_DRIVER runs the tests against another build's driver.
const std::string kDriver =
    std::getenv("FERROW_STORE_DRIVER") ? std::getenv("FERROW_STORE_DRIVER") : FERROW_STORE_DRIVER;
constexpr long kStartupBoundMs = 8000;
constexpr long kCloseBoundMs = 10000;

struct Times {
  long startup_ms = -1, close_ms = -1;
};

// Runs `args` (a driver that prints its start-up and close times), killing it
// after 60 seconds.
Times RunTimed(const std::vector<std::string>& args, const std::string& out, const std::string& what) {
  pid_t pid = Spawn(args, out);
  EXPECT_GT(pid, 0);
  EXPECT_EQ(testing::WaitExitWithin(pid, 60), 0) << what << ": " << ReadBytes(out);
  Times times;
  const std::string printed = ReadBytes(out);
  auto startup = LinesStartingWith(printed, "startup_ms:");
  auto close = LinesStartingWith(printed, "close_ms:");
  if (startup.size() == 1) times.startup_ms = std::stol(startup[0]);
  if (close.size() == 1) times.close_ms = std::stol(close[0]);
  std::cout << what << ": start-up " << times.startup_ms << " ms, close " << times.close_ms
            << " ms\n";
  return times;
}

void ExpectWithinBounds(const Times& t) {
  EXPECT_GE(t.startup_ms, 0);
  EXPECT_LT(t.startup_ms, kStartupBoundMs);
  EXPECT_GE(t.close_ms, 0);
  EXPECT_LT(t.close_ms, kCloseBoundMs);
}

// The program's folder, and with it the configuration file, is gone when the
// program starts (no per-user folder to fall back on either).
TEST(StoreFaults, VanishedFolderAtStartCostsSecondsAtStartAndAtClose) {
  TempDir dir;
  const std::string gone = dir.File("stick");
  const std::string followed = dir.File("app.log");
  WriteBytes(followed, "a line\n");
  ::setenv("XDG_CONFIG_HOME", "/dev/null/none", 1);
  const Times t = RunTimed({kDriver, "start-close", gone, followed}, dir.File("out"),
                           "folder gone at start");
  ::unsetenv("XDG_CONFIG_HOME");
  ExpectWithinBounds(t);
  EXPECT_FALSE(testing::PathExists(gone));
}

// The folder goes while the program runs; then the user closes it.
TEST(StoreFaults, FolderVanishingWhileRunningCostsSecondsAtClose) {
  TempDir dir;
  const std::string stick = dir.File("stick");
  std::filesystem::create_directory(stick);
  const std::string followed = dir.File("app.log");
  WriteBytes(followed, "a line\n");
  WriteBytes(stick + "/Ferrow.INI", "[Common]\r\nWriteLock=False\r\nHistoryCount=1\r\nHistory1=old.log\r\n");
  const std::string out = dir.File("out");
  pid_t pid = Spawn({kDriver, "run", stick, followed}, out);
  ASSERT_TRUE(testing::WaitForText(out, "ready", 30)) << ReadBytes(out);
  std::filesystem::remove_all(stick);
  ::kill(pid, SIGTERM);
  EXPECT_EQ(testing::WaitExitWithin(pid, 60), 0) << ReadBytes(out);
  const auto close = LinesStartingWith(ReadBytes(out), "close_ms:");
  ASSERT_EQ(close.size(), 1u) << ReadBytes(out);
  std::cout << "folder gone while running: close " << close[0] << " ms\n";
  EXPECT_LT(std::stol(close[0]), kCloseBoundMs);
}

// Another user's configuration file, mode 000: the program runs as an
// unprivileged user (root reads anything, so a root run drops to nobody).
TEST(StoreFaults, UnreadableConfigurationFileCostsSecondsAtStartAndAtClose) {
  TempDir dir;
  const std::string followed = dir.File("app.log");
  const std::string ini = dir.File("Ferrow.INI");
  const std::string text = "[Common]\r\nWriteLock=False\r\nHistoryCount=1\r\nHistory1=old.log\r\n";
  WriteBytes(followed, "a line\n");
  WriteBytes(ini, text);
  ASSERT_EQ(::chmod(dir.path().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(followed.c_str(), 0644), 0);
  ASSERT_EQ(::chmod(ini.c_str(), 0), 0);
  const std::string out = dir.File("out");
  WriteBytes(out, "");
  ASSERT_EQ(::chmod(out.c_str(), 0666), 0);
  const Times t = RunTimed(testing::Unprivileged({kDriver, "start-close", dir.path(), followed}),
                           out, "unreadable configuration file");
  ExpectWithinBounds(t);
  ::chmod(ini.c_str(), 0644);
  EXPECT_EQ(ReadBytes(ini), text);
}

}  // namespace
}  // namespace ferrow
