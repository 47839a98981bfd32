// Many processes writing one configuration file at once: no update may be
// lost, and a reader must never find the file torn.
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "config/ini_file.h"
#include "platform/env.h"
#include "testing/processes.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using testing::Parseable;
using testing::ReadBytes;
using testing::Spawn;
using testing::TempDir;

constexpr int kProcesses = 8;
constexpr int kKeysEach = 200;
constexpr int kSections = 3;

TEST(ProfileWriterProcesses, EightWritersLoseNoKeyAndReadersNeverSeeATornFile) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");

  testing::TornFileWatch watch(ini);

  std::vector<pid_t> children;
  for (int p = 0; p < kProcesses; ++p) {
    pid_t pid = Spawn({FERROW_INI_WRITER_CHILD, ini, "P" + std::to_string(p),
                       std::to_string(kKeysEach), std::to_string(kSections)});
    ASSERT_GT(pid, 0);
    children.push_back(pid);
  }
  for (pid_t pid : children)
    EXPECT_EQ(testing::WaitExit(pid), 0) << "a writer reported a failed write";
  watch.Stop();
  EXPECT_EQ(watch.torn(), 0) << watch.first_problem();
  EXPECT_GT(watch.reads(), 0);

  const std::string text = ReadBytes(ini);
  std::string why;
  ASSERT_TRUE(Parseable(text, &why)) << why;
  std::set<std::string> lines;
  for (size_t pos = 0; pos < text.size();) {
    size_t end = text.find("\r\n", pos);
    lines.insert(text.substr(pos, end - pos));
    pos = end + 2;
  }
  EXPECT_EQ(lines.size(), static_cast<size_t>(kProcesses * kKeysEach + kSections));
  for (int p = 0; p < kProcesses; ++p) {
    for (int i = 0; i < kKeysEach; ++i) {
      std::string prefix = "P" + std::to_string(p);
      std::string line = prefix + "Key" + std::to_string(i) + "=" + prefix + "-value-" +
                         std::to_string(i);
      EXPECT_TRUE(lines.count(line)) << "lost: " << line;
    }
  }
  EXPECT_EQ(ReadINIFile(*Env::Default(), ini, "Section1", "P7Key199"), "P7-value-199");
}

// A folder nobody may write holding a configuration file everybody may: the
// write happens in place. Root writes any folder, so a root test run drops to
// nobody for the writer.
TEST(ProfileWriterProcesses, FileInAFolderThatCannotBeWrittenIsStillWrittenInPlace) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");
  testing::WriteBytes(ini, "[Section0]\r\nOld=1\r\n");
  ASSERT_EQ(::chmod(ini.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(dir.path().c_str(), 0555), 0);
  EXPECT_EQ(testing::WaitExit(Spawn(testing::Unprivileged({FERROW_INI_WRITER_CHILD, ini, "P", "3", "1"}))), 0);
  ::chmod(dir.path().c_str(), 0755);
  EXPECT_EQ(ReadBytes(ini),
            "[Section0]\r\nOld=1\r\nPKey0=P-value-0\r\nPKey1=P-value-1\r\nPKey2=P-value-2\r\n");
}

}  // namespace
}  // namespace ferrow
