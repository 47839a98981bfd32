// The start-up trim in a process of its own, killed with SIGKILL at random
// moments: whatever the moment, the configuration file is the old one or the
// trimmed one, never a torn, padded or empty one.
#include <signal.h>
#include <sys/types.h>

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include "testing/processes.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

const std::string kDriver = FERROW_STORE_DRIVER;

// A large file that the trim shortens: known keys, obsolete keys, sections.
std::string LargeFile() {
  std::string text = ";Ferrow v1.45 [old] written at yesterday\r\n[Common]\r\nHistoryCount=200\r\n";
  for (int i = 1; i <= 200; ++i) text += "History" + std::to_string(i) + "=C:\\logs\\f" + std::to_string(i) + ".log\r\n";
  for (int f = 0; f < 1500; ++f) {
    text += "[file" + std::to_string(f) + ".log]\r\nFontSize=10\r\nObsolete=" + std::to_string(f) +
            "\r\n  \r\nThemeName=Paper\r\n";
  }
  return text;
}

// The trimmed text without its first line, which holds the time of writing.
std::string AfterHeader(const std::string& text) { return text.substr(text.find("\r\n") + 2); }

TEST(TrimProcesses, KilledAtAnyMomentLeavesTheOldFileOrTheTrimmedOne) {
  testing::TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  const std::string old = LargeFile();

  // One trim left to finish shows what a trimmed file holds and how long it takes.
  WriteBytes(ini, old);
  const auto start = std::chrono::steady_clock::now();
  ASSERT_EQ(testing::WaitExit(testing::Spawn({kDriver, "trim", ini})), 0);
  const auto took = std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now() - start);
  const std::string trimmed = ReadBytes(ini);
  ASSERT_LT(trimmed.size(), old.size());
  ASSERT_EQ(trimmed.rfind(";Ferrow v1.46 [", 0), 0u);
  const std::string trimmed_body = AfterHeader(trimmed);

  std::mt19937 random(12);
  std::uniform_int_distribution<long> moment(0, took.count() * 5 / 4);
  int held_old = 0, held_trimmed = 0;
  constexpr int kTrials = 60;
  for (int trial = 0; trial < kTrials; ++trial) {
    WriteBytes(ini, old);
    pid_t p = testing::Spawn({kDriver, "trim", ini});
    ASSERT_GT(p, 0);
    std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
    ::kill(p, SIGKILL);
    testing::WaitExit(p);
    const std::string now = ReadBytes(ini);
    if (now == old) {
      ++held_old;
    } else {
      ASSERT_EQ(now.rfind(";Ferrow v1.46 [", 0), 0u) << "trial " << trial << ": torn file";
      ASSERT_EQ(AfterHeader(now), trimmed_body) << "trial " << trial << ": torn file";
      ++held_trimmed;
    }
  }
  std::cout << kTrials << " kills during a trim of " << took.count() / 1000 << " ms: " << held_old
            << " left the old file, " << held_trimmed << " the trimmed one\n";
  EXPECT_EQ(held_old + held_trimmed, kTrials);
}

}  // namespace
}  // namespace ferrow
