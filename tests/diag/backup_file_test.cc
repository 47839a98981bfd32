#include "diag/backup_file.h"

#include <gtest/gtest.h>

#include "platform/env.h"
#include "support/paths.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::TempDir;
using testing::WriteBytes;

Env& env() { return *Env::Default(); }

TEST(BackupFile, PlainBackupReplacesTheExtension) {
  std::string name = "C:\\prog\\Ferrow.INI";
  EXPECT_EQ(BackupFile(env(), name, false), "C:\\prog\\Ferrow.BAK");
  std::string bare = "README";
  EXPECT_EQ(BackupFile(env(), bare, false), "README.BAK");
}

TEST(BackupFile, TrimsBlanksFromTheCallersName) {
  std::string name = "  Ferrow.INI  ";
  EXPECT_EQ(BackupFile(env(), name, false), "Ferrow.BAK");
  EXPECT_EQ(name, "Ferrow.INI");
}

TEST(BackupFile, FolderNameGivesNothing) {
  std::string name = "C:\\prog\\";
  EXPECT_EQ(BackupFile(env(), name, false), "");
}

TEST(BackupFile, NumberedBackupTakesTheFirstFreeNumber) {
  TempDir dir;
  std::string name = dir.File("Ferrow.INI");
  EXPECT_EQ(BackupFile(env(), name, true), dir.File("Ferrow.001"));
  WriteBytes(dir.File("Ferrow.001"), "x");
  WriteBytes(dir.File("Ferrow.002"), "x");
  EXPECT_EQ(BackupFile(env(), name, true), dir.File("Ferrow.003"));
}

TEST(MakeTempFile, NamesAFreshFileWithThePrefix) {
  TempDir dir;
  std::string name = MakeTempFile(env(), dir.path(), "TMP");
  ASSERT_FALSE(name.empty());
  EXPECT_EQ(FolderPart(name), dir.path());
  EXPECT_EQ(FileNamePart(name).substr(0, 3), "TMP");
  EXPECT_FALSE(testing::PathExists(name));
}

TEST(MakeTempFile, MissingFolderGivesNothing) {
  TempDir dir;
  EXPECT_EQ(MakeTempFile(env(), dir.File("none"), "TMP"), "");
}

}  // namespace
}  // namespace ferrow
