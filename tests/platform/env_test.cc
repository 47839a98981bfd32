#include "platform/env.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/dates.h"
#include "support/paths.h"
#include "testing/temp_dir.h"
#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "testing/processes.h"
#endif

namespace ferrow {
namespace {

using testing::TempDir;
using testing::WriteBytes;

Env& env() { return *Env::Default(); }

std::string ReadAt(SharedFile& file, int64_t offset, int64_t size) {
  std::string buffer(static_cast<size_t>(size), '\0');
  EXPECT_TRUE(file.Seek(offset));
  int64_t n = file.Read(buffer.data(), size);
  buffer.resize(n < 0 ? 0 : static_cast<size_t>(n));
  return buffer;
}

TEST(Env, SharedReadWhileAnotherHandleKeepsWriting) {
  TempDir dir;
  const std::string log = dir.File("app.log");
  std::ofstream writer(log, std::ios::binary);
  writer << "first line\r\n" << std::flush;

  auto reader = env().OpenShared(log);
  ASSERT_TRUE(reader);
  EXPECT_EQ(ReadAt(*reader, 0, 100), "first line\r\n");

  writer << "second line\r\n" << std::flush;  // the writer is not blocked
  EXPECT_EQ(env().FileLength(log).value_or(-1), 25);
  EXPECT_EQ(ReadAt(*reader, 12, 100), "second line\r\n");
}

TEST(Env, FileBeingReadCanBeDeletedForRotation) {
  TempDir dir;
  const std::string log = dir.File("rotate.log");
  WriteBytes(log, "old log\r\n");
  auto reader = env().OpenShared(log);
  ASSERT_TRUE(reader);
  EXPECT_EQ(env().RemoveFile(log), 0);
  reader.reset();  // Windows removes the name when the last handle closes
  EXPECT_FALSE(env().FileLength(log).has_value());
}

TEST(Env, MissingFileHasNoLengthAndCannotBeOpened) {
  TempDir dir;
  EXPECT_FALSE(env().FileLength(dir.File("none")).has_value());
  EXPECT_EQ(env().OpenShared(dir.File("none")), nullptr);
}

TEST(Env, ReadingPastTheEndGivesNothing) {
  TempDir dir;
  WriteBytes(dir.File("short"), "ab");
  auto reader = env().OpenShared(dir.File("short"));
  ASSERT_TRUE(reader);
  EXPECT_EQ(ReadAt(*reader, 10, 5), "");
}

TEST(Env, FindFirstMatchTreatsStarAndQuestionMarkAsWildcards) {
  TempDir dir;
  WriteBytes(dir.File("server.log"), "x");
  std::string base = dir.path() + NativeSeparator();
  EXPECT_TRUE(env().FindFirstMatch(base + "*.log"));
  EXPECT_TRUE(env().FindFirstMatch(base + "server.lo?"));
#ifdef _WIN32
  EXPECT_TRUE(env().FindFirstMatch(base + "SERVER.LOG"));  // names ignore case there
#else
  EXPECT_FALSE(env().FindFirstMatch(base + "SERVER.LOG"));  // and respect it here
  EXPECT_FALSE(env().FindFirstMatch(base + "SERVER.*"));
#endif
  EXPECT_FALSE(env().FindFirstMatch(base + "*.txt"));
  EXPECT_TRUE(env().FindFirstMatch(base + "nul"));
  EXPECT_FALSE(env().FindFirstMatch(dir.File("missing") + NativeSeparator() + "nul"));
}

TEST(Env, FoldersCanBeMadeAndTestedForWriting) {
  TempDir dir;
  const std::string nested = JoinPath(JoinPath(dir.path(), "a"), "b");
  EXPECT_FALSE(env().IsFolder(nested));
  EXPECT_TRUE(env().CreateFolders(nested));
  EXPECT_TRUE(env().IsFolder(nested));
  EXPECT_TRUE(env().IsFolderWritable(nested));
  EXPECT_FALSE(env().IsFolderWritable(dir.File("missing")));
}

TEST(Env, CopyWholeFileCopiesEveryByte) {
  TempDir dir;
  std::string bytes("a\0b\r\n", 5);
  WriteBytes(dir.File("src"), bytes);
  EXPECT_TRUE(env().CopyWholeFile(dir.File("src"), dir.File("dst")));
  EXPECT_EQ(testing::ReadBytes(dir.File("dst")), bytes);
  EXPECT_FALSE(env().CopyWholeFile(dir.File("none"), dir.File("dst2")));
}

TEST(Env, ProgramPathNamesThisTestProgram) {
  std::string path = env().ProgramPath();
  EXPECT_NE(FileNamePart(path).find("platform_tests"), std::string::npos) << path;
  EXPECT_TRUE(env().FileLength(path).has_value());
}

TEST(Env, EventsHookRunsWhenAskedAndIsANoOpByDefault) {
  env().LetEventsRun();  // nothing installed: must simply return
  int runs = 0;
  env().SetEventsHook([&] { ++runs; });
  env().LetEventsRun();
  env().LetEventsRun();
  env().SetEventsHook(nullptr);
  env().LetEventsRun();
  EXPECT_EQ(runs, 2);
}

TEST(Env, ProfileLockIsHeldUntilReleased) {
  TempDir dir;
  WriteBytes(dir.File("Ferrow.INI"), "[Common]\r\n");
  auto lock = env().LockProfile(dir.File("Ferrow.INI"), 100);
  ASSERT_TRUE(lock);
  EXPECT_EQ(env().LockProfile(dir.File("missing.INI"), 10), nullptr);
}

#ifdef _WIN32
TEST(Env, OsMajorVersionIsReportedOnWindows) { EXPECT_GE(env().OsMajorVersion(), 5); }
#else
TEST(Env, OsMajorVersionIsZeroOffWindows) { EXPECT_EQ(env().OsMajorVersion(), 0); }

TEST(Env, ProfileLockKeepsProfileWritersOut) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  WriteBytes(ini, "[Common]\r\n");
  {
    auto lock = env().LockProfile(ini, 100);
    ASSERT_TRUE(lock);
    EXPECT_FALSE(env().WriteProfileString("Common", "k", "v", ini));
    EXPECT_FALSE(env().LastWriteFailureIsPermanent());  // a held lock passes
  }
  EXPECT_TRUE(env().WriteProfileString("Common", "k", "v", ini));
}

TEST(Env, FifoOrDeviceIsRefusedForSharedReadingWithoutBlocking) {
  TempDir dir;
  const std::string fifo = dir.File("x.log");
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  std::unique_ptr<SharedFile> opened;
  EXPECT_TRUE(testing::FinishesWithoutAWriter(fifo, [&] { opened = env().OpenShared(fifo); }));
  EXPECT_EQ(opened, nullptr);
  EXPECT_EQ(env().OpenShared("/dev/zero"), nullptr);
  EXPECT_FALSE(env().IsRegularFile(fifo));
  EXPECT_FALSE(env().IsRegularFile("/dev/null"));
  EXPECT_FALSE(env().IsRegularFile(dir.path()));
  WriteBytes(dir.File("a.log"), "x");
  EXPECT_TRUE(env().IsRegularFile(dir.File("a.log")));
  EXPECT_NE(env().OpenShared(dir.File("a.log")), nullptr);
}

TEST(Env, UserConfigFolderFollowsXdgConfigHome) {
  const char* old = std::getenv("XDG_CONFIG_HOME");
  std::string saved = old ? old : "";
  setenv("XDG_CONFIG_HOME", "/tmp/xdg-test", 1);
  EXPECT_EQ(env().UserConfigFolder(), "/tmp/xdg-test/ferrow");
  unsetenv("XDG_CONFIG_HOME");
  std::string home = env().GetEnvVar("HOME");
  if (!home.empty()) {
    EXPECT_EQ(env().UserConfigFolder(), home + "/.config/ferrow");
  }
  if (old) setenv("XDG_CONFIG_HOME", saved.c_str(), 1);
}

TEST(Env, BackslashPathsReachTheSameFiles) {
  TempDir dir;
  WriteBytes(dir.File("b.log"), "abc");
  std::string with_backslashes = dir.path();
  for (char& c : with_backslashes)
    if (c == '/') c = '\\';
  EXPECT_EQ(env().FileLength(with_backslashes + "\\b.log").value_or(-1), 3);
}
#endif

}  // namespace
}  // namespace ferrow

namespace ferrow {
namespace {

TEST(EnvInstance, LaterClaimSeesAnEarlierOneUntilItLapses) {
  const std::string name = "ferrow-env-test-" + std::to_string(std::time(nullptr));
  bool another = true;
  auto first = env().ClaimInstance(name, another);
  EXPECT_FALSE(another);
  auto second = env().ClaimInstance(name, another);
  EXPECT_TRUE(another);
  first.reset();
  second.reset();
  auto third = env().ClaimInstance(name, another);
  EXPECT_FALSE(another);
}

#ifndef _WIN32
// The file behind the claims: one per place the program runs from, so it
// must not outlive the last instance.
TEST(EnvInstance, TheLastInstanceToEndLeavesNoFileBehind) {
  const std::string name = "ferrow-env-test-last-" + std::to_string(::getpid());
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  const std::string folder = runtime && *runtime && ::access(runtime, W_OK) == 0 ? runtime : "/tmp";
  const std::string file = folder + "/" + name + "-" + std::to_string(::getuid()) + ".instance";
  bool another = true;
  auto first = env().ClaimInstance(name, another);
  auto second = env().ClaimInstance(name, another);
  EXPECT_TRUE(another);
  first.reset();
  EXPECT_TRUE(testing::PathExists(file)) << "gone while another instance runs";
  auto third = env().ClaimInstance(name, another);
  EXPECT_TRUE(another) << "the second instance was not seen";
  second.reset();
  third.reset();
  EXPECT_FALSE(testing::PathExists(file));
  auto fourth = env().ClaimInstance(name, another);
  EXPECT_FALSE(another);
  fourth.reset();
  EXPECT_FALSE(testing::PathExists(file));
}
#endif

TEST(EnvFiles, RenameRefusesToReplaceAFile) {
  testing::TempDir dir;
  testing::WriteBytes(dir.File("a"), "a");
  testing::WriteBytes(dir.File("b"), "b");
  EXPECT_FALSE(env().RenameFile(dir.File("a"), dir.File("b")));
  EXPECT_TRUE(env().RenameFile(dir.File("a"), dir.File("c")));
  EXPECT_EQ(testing::ReadBytes(dir.File("c")), "a");
}

TEST(EnvLocale, DatesAndTimesAreNotEmpty) {
  std::tm when = LocalTime(env().Now());
  EXPECT_FALSE(env().SystemShortDate(when).empty());
  EXPECT_FALSE(env().SystemLongDate(when).empty());
  EXPECT_FALSE(env().SystemLongTime(when).empty());
  EXPECT_EQ(env().SystemDateSeparator().size(), 1u);
}

}  // namespace
}  // namespace ferrow
