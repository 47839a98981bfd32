// Writers of the configuration file killed with SIGKILL at random moments
// leave their temporary files behind; the next start removes them, but never
// the files of a writer that is still alive.
#include <signal.h>
#include <sys/types.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>
#include <thread>

#include "platform/env.h"
#include "testing/processes.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;
using Names = std::vector<std::string>;

// FERROW_STORE_DRIVER runs the tests against another build's driver.
const std::string kDriver =
    std::getenv("FERROW_STORE_DRIVER") ? std::getenv("FERROW_STORE_DRIVER") : FERROW_STORE_DRIVER;

std::string LargeFile() {
  std::string text = "[Common]\r\nWriteLock=False\r\nHistoryCount=0\r\n";
  for (int f = 0; f < 3000; ++f)
    text += "[file" + std::to_string(f) + ".log]\r\nFontSize=10\r\nObsolete=" + std::to_string(f) + "\r\n";
  return text;
}

class Leftovers : public ::testing::Test {
 protected:
  Names Temporaries() {
    Names found = Env::Default()->FindMatches(dir.File("TMP*.TMP"));
    for (const std::string& name : Env::Default()->FindMatches(dir.File("Ferrow.INI.??????")))
      found.push_back(name);
    return found;
  }
  size_t Count(const std::string& pattern) { return Env::Default()->FindMatches(dir.File(pattern)).size(); }
  // Kills runs of `args` at random moments until one left a temporary file
  // matching `pattern` (at most 200 tries); how many it took.
  int KillUntilLeft(const Names& args, const std::string& pattern, long max_us) {
    std::uniform_int_distribution<long> moment(0, max_us);
    for (int trial = 1; trial <= 200; ++trial) {
      pid_t p = testing::Spawn(args);
      std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
      ::kill(p, SIGKILL);
      testing::WaitExit(p);
      if (Count(pattern) > 0) return trial;
    }
    return -1;
  }
  // A start-up of the program beside the configuration file.
  void StartAndClose() {
    const std::string followed = dir.File("app.log");
    WriteBytes(followed, "a line\n");
    EXPECT_EQ(testing::WaitExitWithin(
                  testing::Spawn({kDriver, "start-close", dir.path(), followed}, dir.File("start.out")), 60),
              0);
  }
  // What a start does about left-over files, alone.
  std::string Clean() {
    EXPECT_EQ(testing::WaitExitWithin(testing::Spawn({kDriver, "clean", ini}, dir.File("clean.out")), 30), 0);
    return ReadBytes(dir.File("clean.out"));
  }
  testing::TempDir dir;
  std::string ini = dir.File("Ferrow.INI");
  std::mt19937 random{20};
};

TEST_F(Leftovers, KilledTrimsAndWritesLeaveNothingAfterTheNextStart) {
  WriteBytes(ini, LargeFile());
  const int trims = KillUntilLeft({kDriver, "trim", ini}, "TMP*.TMP", 60000);
  ASSERT_GT(trims, 0) << "no killed trim left its temporary file";
  const int writes = KillUntilLeft({kDriver, "write-loop", ini}, "Ferrow.INI.??????", 300000);
  ASSERT_GT(writes, 0) << "no killed write left its temporary file";
  std::cout << "a trim killed at random left its file after " << trims << " tries, a write after "
            << writes << "\n";
  StartAndClose();
  EXPECT_EQ(Temporaries(), Names{});
}

TEST_F(Leftovers, ALiveWritersFilesStayAndGoOnceItIsDead) {
  WriteBytes(ini, "[Common]\r\nWriteLock=False\r\n");
  const std::string out = dir.File("holder.out");
  pid_t holder = testing::Spawn({kDriver, "hold-profile", ini}, out);
  ASSERT_TRUE(testing::WaitForText(out, "held", 30));
  // What a writer holding the lock has made so far.
  WriteBytes(dir.File("Ferrow.INI.a1B2c3"), "[Common]\r\n");
  WriteBytes(dir.File("TMP01234.TMP"), ";Ferrow v1.46 [" + ini + "] written at 1/1/2026 10:00:00\r\n");
  // Another program's file of the same form stays whatever happens.
  WriteBytes(dir.File("TMP55555.TMP"), "not ours\r\n");
  EXPECT_EQ(Clean(), "removed:0\n");
  EXPECT_EQ(Count("Ferrow.INI.a1B2c3") + Count("TMP01234.TMP") + Count("TMP55555.TMP"), 3u);
  ::kill(holder, SIGKILL);
  testing::WaitExit(holder);
  EXPECT_EQ(Clean(), "removed:2\n");
  EXPECT_EQ(Temporaries(), Names{"TMP55555.TMP"});
}

}  // namespace
}  // namespace ferrow
