#include <gtest/gtest.h>

#include "platform/env.h"
#include "support/paths.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::TempDir;
using testing::WriteBytes;

class FileExistsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Env::Default()->CreateFolders(dir.File("logs"));
    WriteBytes(dir.File("logs") + NativeSeparator() + "app.log", "x\r\n");
  }
  bool Exists(const std::string& path) { return FileExists(*Env::Default(), path); }
  TempDir dir;
};

TEST_F(FileExistsTest, DriveRootIsTrueForPresentDrive) {
#ifdef _WIN32
  EXPECT_TRUE(Exists("C:\\"));
  EXPECT_TRUE(Exists("\\"));
#else
  EXPECT_TRUE(Exists("/"));
  EXPECT_TRUE(Exists("\\"));
  EXPECT_FALSE(Exists("Q:\\"));  // no drives here
#endif
}

TEST_F(FileExistsTest, FolderWithTrailingSlashTestsTheFolder) {
  EXPECT_TRUE(Exists(dir.File("logs") + "\\"));
  EXPECT_TRUE(Exists(dir.File("logs") + "/"));
  EXPECT_FALSE(Exists(dir.File("nothing") + "\\"));
}

TEST_F(FileExistsTest, StripsEveryTrailingSlashBeforeProbing) {
  EXPECT_TRUE(Exists(dir.File("logs") + "\\\\\\"));
}

TEST_F(FileExistsTest, FileAndMissingFile) {
  EXPECT_TRUE(Exists(dir.File("logs") + "\\app.log"));
  EXPECT_FALSE(Exists(dir.File("logs") + "\\other.log"));
  EXPECT_FALSE(Exists(""));
}

TEST_F(FileExistsTest, WildcardsExistWhenAnythingMatches) {
  EXPECT_TRUE(Exists(dir.File("logs") + "\\*.log"));
  EXPECT_TRUE(Exists(dir.File("logs") + "\\app.?og"));
  EXPECT_TRUE(Exists(dir.File("logs") + "\\*.*"));
  EXPECT_FALSE(Exists(dir.File("logs") + "\\*.txt"));
  EXPECT_FALSE(Exists(dir.File("missing") + "\\*"));
}

}  // namespace
}  // namespace ferrow
