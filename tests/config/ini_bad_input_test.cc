// The reader facing files it was never meant to read: it must return "" within
// its retry budget, never crash or hang.
#include <gtest/gtest.h>

#include <random>

#include "config/ini_file.h"
#include "support/paths.h"
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
      held_ = opens++ == 0;
      if (held_) return nullptr;
      return CountingEnv::OpenStream(path, mode);
    }
    bool LastOpenFailureIsPermanent() override {
      return !held_ && CountingEnv::LastOpenFailureIsPermanent();
    }
    int opens = 0;

   private:
    bool held_ = false;
  } env;
  env.on_sleep = [&] {
    if (env.sleeps == 1) Env::Default()->RemoveFile(ini);
  };
  EXPECT_EQ(ReadINIFile(env, ini, "A", "k"), "");
  EXPECT_EQ(env.opens, 50);
  EXPECT_EQ(env.sleeps, 49);
}

// Waiting cannot mend a refusal, so the read gives up at once.
TEST(IniBadInput, UnreadableFileGivesEmptyAtOnce) {
  TempDir dir;
  const std::string ini = dir.File("locked.ini");
  WriteBytes(ini, "[A]\r\nk=1\r\n");
  // The OS refuses the open as it does for a file without read permission
  // (a real chmod would not stop a test running as root).
  class DeniedEnv : public CountingEnv {
   public:
    std::FILE* OpenStream(const std::string&, const char*) override { return nullptr; }
    bool LastOpenFailureIsPermanent() override { return true; }
  } env;
  EXPECT_EQ(ReadINIFile(env, ini, "A", "k"), "");
  EXPECT_EQ(env.sleeps, 0);
}

TEST(IniBadInput, FileInAVanishedFolderGivesEmptyAtOnce) {
  TempDir dir;
  CountingEnv env;
  EXPECT_EQ(ReadINIFile(env, dir.File("gone/Ferrow.INI"), "A", "k"), "");
  EXPECT_EQ(env.sleeps, 0);
}

TEST(IniBadInput, WriteIntoAVanishedFolderFailsAtOnce) {
  TempDir dir;
  CountingEnv env;
  EXPECT_FALSE(WriteINIFile(env, JoinPath(dir.File("gone"), "Ferrow.INI"), "Common", "k", "v"));
  EXPECT_EQ(env.sleeps, 0);
}

TEST(IniBadInput, FolderInPlaceOfFileGivesEmpty) {
  TempDir dir;
  CountingEnv env;
  EXPECT_EQ(ReadINIFile(env, dir.path(), "A", "k"), "");
}

}  // namespace
}  // namespace ferrow
