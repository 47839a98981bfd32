// The reader facing files it was never meant to read: it must return "" within
// its retry budget, never crash or hang.
#include <gtest/gtest.h>

#include <random>

#include "config/ini_file.h"
#include "testing/counting_env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::CountingEnv;
using testing::TempDir;
using testing::WriteBytes;

TEST(IniBadInput, BinaryGarbageGivesEmpty) {
  TempDir dir;
  std::mt19937 random(42);
  std::string garbage(256 * 1024, '\0');
  for (char& c : garbage) c = static_cast<char>(random());
  WriteBytes(dir.File("bin.ini"), garbage);
  CountingEnv env;
  EXPECT_EQ(ReadINIFile(env, dir.File("bin.ini"), "Common", "HistoryCount"), "");
  EXPECT_EQ(env.sleeps, 0);
}

TEST(IniBadInput, TenMegabyteLineGivesEmptyAndKeyAfterItIsStillFound) {
  TempDir dir;
  std::string text = "[Common]\r\n" + std::string(10 * 1024 * 1024, 'x') + "\r\nk=after\r\n";
  WriteBytes(dir.File("long.ini"), text);
  CountingEnv env;
  EXPECT_EQ(ReadINIFile(env, dir.File("long.ini"), "Common", "missing"), "");
  EXPECT_EQ(ReadINIFile(env, dir.File("long.ini"), "Common", "k"), "after");
}

TEST(IniBadInput, FileVanishingBetweenRetriesGivesEmptyWithinBudget) {
  TempDir dir;
  const std::string ini = dir.File("gone.ini");
  WriteBytes(ini, "[A]\r\nk=1\r\n");
  // The first open finds the file held elsewhere; while we wait it is deleted.
  class HeldThenGoneEnv : public CountingEnv {
   public:
    std::FILE* OpenStream(const std::string& path, const char* mode) override {
      if (opens++ == 0) return nullptr;
      return CountingEnv::OpenStream(path, mode);
    }
    int opens = 0;
  } env;
  env.on_sleep = [&] {
    if (env.sleeps == 1) Env::Default()->RemoveFile(ini);
  };
  EXPECT_EQ(ReadINIFile(env, ini, "A", "k"), "");
  EXPECT_EQ(env.opens, 50);
  EXPECT_EQ(env.sleeps, 49);
}

TEST(IniBadInput, UnreadableFileGivesEmptyWithinBudget) {
  TempDir dir;
  const std::string ini = dir.File("locked.ini");
  WriteBytes(ini, "[A]\r\nk=1\r\n");
  // The OS refuses the open as it does for a file without read permission
  // (a real chmod would not stop a test running as root).
  class DeniedEnv : public CountingEnv {
   public:
    std::FILE* OpenStream(const std::string&, const char*) override { return nullptr; }
  } env;
  EXPECT_EQ(ReadINIFile(env, ini, "A", "k"), "");
  EXPECT_EQ(env.sleeps, 49);
}

TEST(IniBadInput, FolderInPlaceOfFileGivesEmpty) {
  TempDir dir;
  CountingEnv env;
  EXPECT_EQ(ReadINIFile(env, dir.path(), "A", "k"), "");
}

}  // namespace
}  // namespace ferrow
