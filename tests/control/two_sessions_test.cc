// Two Ferrow processes following two files with one configuration file.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "config/ini_file.h"
#include "platform/env.h"
#include "testing/processes.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::LinesStartingWith;
using testing::ReadBytes;

void WaitForLine(const std::string& out, const std::string& line) {
  for (int i = 0; i < 1000 && ReadBytes(out).find(line) == std::string::npos; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

TEST(TwoSessions, EachFileKeepsItsSectionTheFileIsNeverTornAndTheHistoryIsTheLastSaved) {
  testing::TempDir dir;
  const std::string a = dir.File("a.log"), b = dir.File("b.log"), ini = dir.File("Ferrow.INI");
  testing::WriteBytes(a, "a start\r\n");
  testing::WriteBytes(b, "b start\r\n");
  pid_t first = testing::Spawn({FERROW_SESSION_DRIVER, dir.path(), a, "10", "800"}, dir.File("a.out"));
  pid_t second = testing::Spawn({FERROW_SESSION_DRIVER, dir.path(), b, "10", "2000"}, dir.File("b.out"));
  ASSERT_GT(first, 0);
  ASSERT_GT(second, 0);
  // After start-up (and the trim one of them makes) every write is a whole-file replace.
  WaitForLine(dir.File("a.out"), "opened");
  WaitForLine(dir.File("b.out"), "opened");
  testing::TornFileWatch watch(ini);
  EXPECT_EQ(testing::WaitExit(first), 0);
  EXPECT_EQ(testing::WaitExit(second), 0);
  watch.Stop();
  EXPECT_EQ(watch.torn(), 0) << watch.first_problem();
  EXPECT_GT(watch.reads(), 0);

  Env& env = *Env::Default();
  EXPECT_EQ(ReadINIFile(env, ini, "a.log", "Font"), "Terminal");
  EXPECT_EQ(ReadINIFile(env, ini, "b.log", "Font"), "Terminal");
  for (const char* out : {"a.out", "b.out"})
    EXPECT_EQ(LinesStartingWith(ReadBytes(dir.File(out)), "shown:"), std::vector<std::string>{"11"})
        << ReadBytes(dir.File(out));
  // The history is what the window that closed last saved.
  const std::vector<std::string> saved = LinesStartingWith(ReadBytes(dir.File("b.out")), "list:");
  ASSERT_FALSE(saved.empty());
  EXPECT_EQ(ReadINIFile(env, ini, "Common", "HistoryCount"), std::to_string(saved.size()));
  for (size_t i = 0; i < saved.size(); ++i)
    EXPECT_EQ(ReadINIFile(env, ini, "Common", "History" + std::to_string(i + 1)), saved[i]);
  std::string why;
  EXPECT_TRUE(testing::Parseable(ReadBytes(ini), &why)) << why;
}

}  // namespace
}  // namespace ferrow
