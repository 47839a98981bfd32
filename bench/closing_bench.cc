// N Ferrow processes closing together, as at log-off: each starts up as the
// program beside one configuration file, follows a file of its own and, when
// SIGTERM arrives, writes what closing the control window writes (its file's
// section, [Common], the history merge). Measured: the time from the signal
// until every process has ended, and how many of the N sections and N new
// history names the file holds afterwards.
//   closing_bench [N...] [-r ROUNDS]      default: 2 5 10 20, 5 rounds each
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "config/history.h"
#include "config/history_close.h"
#include "config/ini_file.h"
#include "config/settings.h"
#include "config/write_lock.h"
#include "session/session.h"
#include "startup/startup.h"
#include "support/paths.h"

extern char** environ;

namespace {

using namespace ferrow;
namespace fs = std::filesystem;

class BesideEnv : public EnvWrapper {
 public:
  explicit BesideEnv(std::string folder) : EnvWrapper(Env::Default()), folder_(std::move(folder)) {}
  std::string ProgramPath() override { return JoinPath(folder_, "Ferrow"); }

 private:
  std::string folder_;
};

int Child(const std::string& folder, const std::string& file) {
  sigset_t term;
  sigemptyset(&term);
  sigaddset(&term, SIGTERM);
  ::sigprocmask(SIG_BLOCK, &term, nullptr);
  BesideEnv env(folder);
  Options options;
  HeadlessUi ui;
  Session session{env, options, ui};
  StartupState state(env);
  if (!RunStartup(session, {file}, state, nullptr)) return 3;
  options.FileName = file;
  AddToHistory(options, file);
  std::printf("ready\n");
  std::fflush(stdout);
  int signal = 0;
  ::sigwait(&term, &signal);
  if (GetWriteLock(session, 5)) {
    SaveFileSettings(session, options.FileSection);
    SaveCommonSettings(session);
    ReleaseWriteLock(session);
  }
  MergeHistoryAtClose(session);
  return 0;
}

pid_t Spawn(const std::vector<std::string>& args, const std::string& out) {
  std::vector<char*> argv;
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  pid_t pid = -1;
  if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0) pid = -1;
  posix_spawn_file_actions_destroy(&actions);
  return pid;
}

std::string Slurp(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

struct Round {
  double seconds = 0;
  int sections = 0, names = 0;
};

Round RunRound(const std::string& self, int n, const fs::path& dir) {
  fs::remove_all(dir);
  fs::create_directories(dir);
  const std::string ini = (dir / "Ferrow.INI").string();
  std::ofstream(ini, std::ios::binary) << "[Common]\r\nWriteLock=False\r\nHistoryCount=1\r\nHistory1=old.log\r\n";
  std::vector<pid_t> pids;
  std::vector<std::string> files, outs;
  for (int i = 0; i < n; ++i) {
    files.push_back((dir / ("f" + std::to_string(i) + ".log")).string());
    outs.push_back(files.back() + ".out");
    std::ofstream(files.back()) << "a line\n";
    pids.push_back(Spawn({self, "child", dir.string(), files.back()}, outs.back()));
  }
  for (const std::string& out : outs)
    while (Slurp(out).find("ready") == std::string::npos)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
  const auto start = std::chrono::steady_clock::now();
  for (pid_t pid : pids) ::kill(pid, SIGTERM);
  for (pid_t pid : pids) ::waitpid(pid, nullptr, 0);
  Round round;
  round.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  Env& env = *Env::Default();
  const int count = std::atoi(ReadINIFile(env, ini, "Common", "HistoryCount").c_str());
  std::vector<std::string> history;
  for (int i = 1; i <= count; ++i) history.push_back(ReadINIFile(env, ini, "Common", "History" + std::to_string(i)));
  for (const std::string& file : files) {
    if (!ReadINIFile(env, ini, FileNamePart(file), "FontSize").empty()) ++round.sections;
    for (const std::string& name : history)
      if (name == file) ++round.names;
  }
  return round;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && std::string(argv[1]) == "child") return Child(argv[2], argv[3]);
  std::vector<int> sizes;
  int rounds = 5;
  for (int i = 1; i < argc; ++i) {
    if (std::string(argv[i]) == "-r" && i + 1 < argc) rounds = std::atoi(argv[++i]);
    else sizes.push_back(std::atoi(argv[i]));
  }
  if (sizes.empty()) sizes = {2, 5, 10, 20};
  const std::string self = fs::read_symlink("/proc/self/exe").string();
  const fs::path dir = fs::temp_directory_path() / ("ferrow-closing-bench-" + std::to_string(::getpid()));
  std::printf("%4s %7s %12s %12s %18s %18s\n", "N", "rounds", "mean s", "max s", "sections kept", "new names kept");
  for (int n : sizes) {
    double total = 0, worst = 0;
    int sections = 0, names = 0;
    for (int r = 0; r < rounds; ++r) {
      const Round round = RunRound(self, n, dir);
      total += round.seconds;
      worst = std::max(worst, round.seconds);
      sections += round.sections;
      names += round.names;
    }
    std::printf("%4d %7d %12.3f %12.3f %11d / %-5d %11d / %-5d\n", n, rounds, total / rounds, worst,
                sections, n * rounds, names, n * rounds);
  }
  fs::remove_all(dir);
  return 0;
}
