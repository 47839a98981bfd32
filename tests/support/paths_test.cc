#include "support/paths.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

const std::string kSep(1, NativeSeparator());

TEST(FolderPart, ExamplesFromDrivePathsUncAndBareNames) {
  EXPECT_EQ(FolderPart("C:\\logs\\app.log"), "C:\\logs");
  EXPECT_EQ(FolderPart("C:\\app.log"), "C:\\");
  EXPECT_EQ(FolderPart("app.log"), "");
  EXPECT_EQ(FolderPart("\\\\server\\share\\x.log"), "\\\\server\\share");
}

// A drive prefix exists on Windows only; elsewhere ":" is part of a name.
const bool kDrives = NativeSeparator() == '\\';

TEST(FolderPart, DrivePrefixEndsTheFolderOnWindowsOnly) {
  EXPECT_EQ(FolderPart("C:x.log"), kDrives ? "C:" : "");
}

TEST(PathParts, ColonIsAnOrdinaryCharacterOfPosixNames) {
  if (kDrives) GTEST_SKIP() << "Windows names hold no colon";
  EXPECT_EQ(FileNamePart("/var/log/app-10:30.log"), "app-10:30.log");
  EXPECT_EQ(FolderPart("/var/log/app-10:30.log"), "/var/log");
  EXPECT_EQ(FileExtension("/var/log/x.y:z"), "y:z");
  std::string folder = "/srv/a:";
  EXPECT_EQ(EnsureTrailingSlash(folder), "/srv/a:/");
}

TEST(FolderPart, PathEndingInTwoBackslashesKeepsOne) {
  EXPECT_EQ(FolderPart("C:\\logs\\\\"), "C:\\logs\\");
}

TEST(FolderPart, PathEndingInOneSlashLosesIt) {
  EXPECT_EQ(FolderPart("C:\\logs\\"), "C:\\logs");
  EXPECT_EQ(FolderPart("/var/log/"), "/var/log");
}

TEST(FolderPart, RootsAndDotsComeBackUnchanged) {
  EXPECT_EQ(FolderPart("C:\\"), "C:\\");
  EXPECT_EQ(FolderPart("\\"), "\\");
  EXPECT_EQ(FolderPart("/"), "/");
  EXPECT_EQ(FolderPart("."), ".");
  EXPECT_EQ(FolderPart(".."), "..");
  EXPECT_EQ(FolderPart(""), "");
}

TEST(FolderPart, ForwardSlashesSeparateFolders) {
  EXPECT_EQ(FolderPart("/var/log/syslog"), "/var/log");
  EXPECT_EQ(FolderPart("/syslog"), "/");
  EXPECT_EQ(FolderPart("logs/a/b.log"), "logs/a");
}

TEST(FileNamePart, TakesTextAfterLastSlashOrDrivePrefix) {
  EXPECT_EQ(FileNamePart("C:\\logs\\app.log"), "app.log");
  EXPECT_EQ(FileNamePart("C:app.log"), kDrives ? "app.log" : "C:app.log");
  EXPECT_EQ(FileNamePart("app.log"), "app.log");
  EXPECT_EQ(FileNamePart("/var/log/app.log"), "app.log");
  EXPECT_EQ(FileNamePart("C:\\logs\\"), "");
  EXPECT_EQ(FileNamePart(""), "");
}

TEST(FileExtension, ArchiveTarGzIsGz) { EXPECT_EQ(FileExtension("archive.tar.gz"), "gz"); }

TEST(FileExtension, NameEndingInDotHasNone) { EXPECT_EQ(FileExtension("report."), ""); }

TEST(FileExtension, DotInFolderNameIsNotAnExtension) {
  EXPECT_EQ(FileExtension("C:\\my.dir\\file"), "");
  EXPECT_EQ(FileExtension("/my.dir/file"), "");
  EXPECT_EQ(FileExtension("C:file"), "");
}

TEST(FileExtension, LeadingDotNameIsAllExtension) {
  EXPECT_EQ(FileExtension(".profile"), "profile");
  EXPECT_EQ(FileExtension("C:\\logs\\app.LOG"), "LOG");
}

TEST(EnsureTrailingSlash, AppendsNativeSeparatorAndChangesCallersString) {
  std::string path = "C:\\logs";
  EXPECT_EQ(EnsureTrailingSlash(path), "C:\\logs" + kSep);
  EXPECT_EQ(path, "C:\\logs" + kSep);
}

TEST(EnsureTrailingSlash, LeavesPathsEndingInSlashOrDriveColonAlone) {
  std::string a = "C:\\logs\\", b = "C:", c = "/var/log/";
  EXPECT_EQ(EnsureTrailingSlash(a), "C:\\logs\\");
  EXPECT_EQ(EnsureTrailingSlash(b), kDrives ? "C:" : "C:/");
  EXPECT_EQ(EnsureTrailingSlash(c), "/var/log/");
}

TEST(EnsureTrailingSlash, EmptyBecomesTheSeparator) {
  std::string empty;
  EXPECT_EQ(EnsureTrailingSlash(empty), kSep);
}

TEST(FindLast, LooksOnlyAtFirstCharacterOfSecondArgument) {
  EXPECT_EQ(FindLast("a.b.c", ".x"), 4);
  EXPECT_EQ(FindLast("a.b.c", "x."), 0);
}

TEST(FindLast, IsOneBasedAndZeroWhenAbsent) {
  EXPECT_EQ(FindLast("C:\\logs\\app.log", "\\"), 8);
  EXPECT_EQ(FindLast("abc", "a"), 1);
  EXPECT_EQ(FindLast("abc", "z"), 0);
  EXPECT_EQ(FindLast("abc", ""), 0);
  EXPECT_EQ(FindLast("", "a"), 0);
}

TEST(JoinPath, JoinsWithNativeSeparatorOnce) {
  EXPECT_EQ(JoinPath("dir", "a.log"), "dir" + kSep + "a.log");
  EXPECT_EQ(JoinPath("dir/", "a.log"), "dir/a.log");
  EXPECT_EQ(JoinPath("", "a.log"), "a.log");
}

}  // namespace
}  // namespace ferrow
