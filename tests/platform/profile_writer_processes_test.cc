// Many processes writing one configuration file at once: no update may be
// lost, and a reader must never find the file torn.
#include <spawn.h>
#include <sys/wait.h>

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "config/ini_file.h"
#include "platform/env.h"
#include "testing/temp_dir.h"

extern char** environ;

namespace ferrow {
namespace {

using testing::ReadBytes;
using testing::TempDir;

constexpr int kProcesses = 8;
constexpr int kKeysEach = 200;
constexpr int kSections = 3;

// Whole CR LF lines, each a section header or a key=value line.
bool Parseable(const std::string& text, std::string* why) {
  size_t pos = 0;
  while (pos < text.size()) {
    size_t end = text.find("\r\n", pos);
    if (end == std::string::npos) {
      *why = "unterminated line at " + std::to_string(pos);
      return false;
    }
    std::string line = text.substr(pos, end - pos);
    bool header = line.size() > 2 && line.front() == '[' && line.back() == ']';
    bool entry = line.find('=') != std::string::npos && line.front() != '[';
    if (!header && !entry) {
      *why = "bad line: " + line;
      return false;
    }
    pos = end + 2;
  }
  return true;
}

pid_t Spawn(const std::vector<std::string>& args) {
  std::vector<char*> argv;
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  pid_t pid = -1;
  if (posix_spawn(&pid, argv[0], nullptr, nullptr, argv.data(), environ) != 0) return -1;
  return pid;
}

TEST(ProfileWriterProcesses, EightWritersLoseNoKeyAndReadersNeverSeeATornFile) {
  TempDir dir;
  const std::string ini = dir.File("Ferrow.INI");

  std::atomic<bool> writing{true};
  std::atomic<int> reads{0}, torn{0};
  std::string first_problem;
  std::thread reader([&] {
    while (writing) {
      std::string text = ReadBytes(ini), why;
      ++reads;
      if (!Parseable(text, &why) && torn++ == 0) first_problem = why;
    }
  });

  std::vector<pid_t> children;
  for (int p = 0; p < kProcesses; ++p) {
    pid_t pid = Spawn({FERROW_INI_WRITER_CHILD, ini, "P" + std::to_string(p),
                       std::to_string(kKeysEach), std::to_string(kSections)});
    ASSERT_GT(pid, 0);
    children.push_back(pid);
  }
  for (pid_t pid : children) {
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a writer reported a failed write";
  }
  writing = false;
  reader.join();

  EXPECT_EQ(torn.load(), 0) << first_problem;
  EXPECT_GT(reads.load(), 0);

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

}  // namespace
}  // namespace ferrow
