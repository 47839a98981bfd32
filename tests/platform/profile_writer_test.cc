// The platform's profile writer on real files. On Windows this is the real
// WritePrivateProfileStringA; elsewhere it is ours and must behave the same.
#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>

#include <filesystem>
#endif

#include "config/ini_file.h"
#include "config/profile_text.h"
#include "platform/env.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

Env& env() { return *Env::Default(); }

TEST(ProfileWriter, FileBuiltOnlyThroughCallsHasWindowsLayout) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  ASSERT_TRUE(env().WriteProfileString("Common", "BrowseStartDir", "C:\\", ini));
  ASSERT_TRUE(env().WriteProfileString("Common", "HistoryCount", "0", ini));
  ASSERT_TRUE(env().WriteProfileString("app.log", "FontSize", "10", ini));
  ASSERT_TRUE(env().WriteProfileString("Common", "LastFileSelected", "", ini));
  ASSERT_TRUE(env().WriteProfileString("COMMON", "historycount", "2", ini));
  ASSERT_TRUE(env().WriteProfileString("other.log", "Font", "Arial", ini));
  ASSERT_TRUE(env().WriteProfileString("app.log", "FontSize", nullptr, ini));
  ASSERT_TRUE(env().WriteProfileString("other.log", nullptr, nullptr, ini));
  EXPECT_EQ(ReadBytes(ini),
            "[Common]\r\nBrowseStartDir=C:\\\r\nHistoryCount=2\r\nLastFileSelected=\r\n"
            "[app.log]\r\n");
}

TEST(ProfileWriter, DeletingFromMissingFileSucceedsWithoutMakingIt) {
  TempDir dir;
  const std::string ini = dir.File("none.INI");
  EXPECT_TRUE(env().WriteProfileString("A", "k", nullptr, ini));
  EXPECT_FALSE(testing::PathExists(ini));
}

TEST(ProfileWriter, MissingFolderFailsTheWrite) {
  TempDir dir;
  EXPECT_FALSE(env().WriteProfileString("A", "k", "v", dir.File("no") + "/x/Ferrow.INI"));
}

#ifndef _WIN32
TEST(ProfileWriter, EditTouchesOnlyTheChangedLine) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  const std::string before =
      "; hand-made\r\n\r\n[Common]\r\n  Debug = True  ; on\r\nOdd line\r\n\r\n"
      "[app.log]\r\nFontSize = 10\r\n";
  WriteBytes(ini, before);
  ASSERT_TRUE(env().WriteProfileString("app.log", "FontSize", "12", ini));
  EXPECT_EQ(ReadBytes(ini), ApplyProfileWrite(before, "app.log", "FontSize", "12"));
  EXPECT_EQ(ReadBytes(ini).substr(0, 63), before.substr(0, 63));
}

TEST(ProfileWriter, NulPaddedFileKeepsAllItsKeys) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  std::string padded = "[Common]\r\nHistoryCount=1\r\nHistory1=/var/log/a.log\r\n";
  padded.append(500, '\0');
  WriteBytes(ini, padded);
  ASSERT_TRUE(WriteINIFile(env(), ini, "Common", "HistoryCount", "2"));
  ASSERT_TRUE(WriteINIFile(env(), ini, "Common", "History2", "/var/log/b.log"));
  EXPECT_EQ(ReadINIFile(env(), ini, "Common", "History1"), "/var/log/a.log");
  EXPECT_EQ(ReadBytes(ini),
            "[Common]\r\nHistoryCount=2\r\nHistory1=/var/log/a.log\r\nHistory2=/var/log/b.log\r\n");
}

TEST(ProfileWriter, KeepsTheFilePermissions) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  WriteBytes(ini, "[A]\r\n");
  ASSERT_EQ(chmod(ini.c_str(), 0640), 0);
  ASSERT_TRUE(env().WriteProfileString("A", "k", "v", ini));
  struct stat info {};
  ASSERT_EQ(stat(ini.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
}

TEST(ProfileWriter, LeavesNoTemporaryFilesBehind) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  for (int i = 0; i < 20; ++i)
    ASSERT_TRUE(env().WriteProfileString("A", ("k" + std::to_string(i)).c_str(), "v", ini));
  int entries = 0;
  for (const auto& entry : std::filesystem::directory_iterator(dir.path())) {
    (void)entry;
    ++entries;
  }
  EXPECT_EQ(entries, 1);
}
#endif

TEST(ProfileWriter, SectionNameHoldingABracketIsFoundAgainSoRepeatedSavesDoNotGrowTheFile) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  ASSERT_TRUE(WriteINIFile(env(), ini, "log[1].txt", "FontSize", "10"));
  const std::string once = ReadBytes(ini);
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(WriteINIFile(env(), ini, "log[1].txt", "FontSize", "10"));
  EXPECT_EQ(ReadBytes(ini), once);
  ASSERT_TRUE(WriteINIFile(env(), ini, "log[1].txt", "FontSize", "12"));
  EXPECT_EQ(ReadINIFile(env(), ini, "log[1].txt", "FontSize"), "12");
  EXPECT_EQ(ReadBytes(ini), "[log[1].txt]\r\nFontSize=12\r\n");
}

TEST(ProfileWriter, TabIndentedKeyIsRewrittenWhereTheReaderFindsIt) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  WriteBytes(ini, "[Common]\r\n\tHistoryCount=1\r\n\t[app.log]\t\r\n\tFontSize=9\r\n");
  ASSERT_TRUE(WriteINIFile(env(), ini, "Common", "HistoryCount", "2"));
  ASSERT_TRUE(WriteINIFile(env(), ini, "app.log", "FontSize", "11"));
  EXPECT_EQ(ReadINIFile(env(), ini, "Common", "HistoryCount"), "2");
  EXPECT_EQ(ReadINIFile(env(), ini, "app.log", "FontSize"), "11");
#ifndef _WIN32  // our writer keeps the lines it does not concern byte for byte
  EXPECT_EQ(ReadBytes(ini), "[Common]\r\nHistoryCount=2\r\n\t[app.log]\t\r\nFontSize=11\r\n");
#endif
}

#ifndef _WIN32
TEST(ProfileWriter, ConfigurationFileThatIsASymbolicLinkIsWrittenThroughTheLink) {
  TempDir dir;
  const std::string real = dir.File("real.INI"), link = dir.File("Ferrow.INI");
  WriteBytes(real, "[Common]\r\nHistoryCount=0\r\n");
  std::filesystem::create_symlink(real, link);
  ASSERT_TRUE(WriteINIFile(env(), link, "Common", "HistoryCount", "3"));
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_EQ(ReadBytes(real), "[Common]\r\nHistoryCount=3\r\n");
}
#endif

}  // namespace
}  // namespace ferrow
