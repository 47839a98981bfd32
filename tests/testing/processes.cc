#include "testing/processes.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <unistd.h>

#include <chrono>
#include <future>
#include <sstream>
#include <thread>

#include "testing/temp_dir.h"

extern char** environ;

namespace ferrow::testing {

std::vector<std::string> Unprivileged(std::vector<std::string> args) {
  if (::geteuid() == 0)
    args.insert(args.begin(), {"/usr/bin/setpriv", "--reuid=65534", "--regid=65534",
                               "--clear-groups"});
  return args;
}

pid_t Spawn(const std::vector<std::string>& args, const std::string& stdout_path) {
  std::vector<char*> argv;
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!stdout_path.empty())
    posix_spawn_file_actions_addopen(&actions, 1, stdout_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0644);
  pid_t pid = -1;
  if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0) pid = -1;
  posix_spawn_file_actions_destroy(&actions);
  return pid;
}

int WaitExit(pid_t pid) {
  int status = 0;
  if (waitpid(pid, &status, 0) != pid || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

int WaitExitWithin(pid_t pid, int seconds) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  int status = 0;
  while (::waitpid(pid, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      ::kill(pid, SIGKILL);
      ::waitpid(pid, &status, 0);
      return -2;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool WaitForText(const std::string& path, const std::string& text, int seconds) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  while (ReadBytes(path).find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

bool Parseable(const std::string& whole, std::string* why) {
  // NUL padding that the start-up trim leaves behind is no part of the text.
  const std::string text = whole.substr(0, whole.find_last_not_of('\0') + 1);
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
    bool comment_or_blank = line.empty() || line.front() == ';';
    if (!header && !entry && !comment_or_blank) {
      *why = "bad line: " + line;
      return false;
    }
    pos = end + 2;
  }
  return true;
}

std::vector<std::string> LinesStartingWith(const std::string& text, const std::string& prefix) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  std::string line;
  while (std::getline(in, line))
    if (line.compare(0, prefix.size(), prefix) == 0) lines.push_back(line.substr(prefix.size()));
  return lines;
}

TornFileWatch::TornFileWatch(std::string path)
    : path_(std::move(path)), thread_([this] {
        while (watching_) {
          std::string text = ReadBytes(path_), why;
          ++reads_;
          if (!Parseable(text, &why) && torn_++ == 0) first_problem_ = why;
        }
      }) {}

TornFileWatch::~TornFileWatch() { Stop(); }

void TornFileWatch::Stop() {
  watching_ = false;
  if (thread_.joinable()) thread_.join();
}

}  // namespace ferrow::testing

namespace ferrow::testing {

bool FinishesWithoutAWriter(const std::string& fifo, const std::function<void()>& work,
                            int seconds) {
  std::promise<void> done;
  std::future<void> finished = done.get_future();
  std::thread worker([&] {
    work();
    done.set_value();
  });
  const bool in_time =
      finished.wait_for(std::chrono::seconds(seconds)) == std::future_status::ready;
  // Writers come and go until the work has seen one and ended.
  while (finished.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready) {
    int fd = ::open(fifo.c_str(), O_WRONLY | O_NONBLOCK);
    if (fd >= 0) ::close(fd);
  }
  worker.join();
  return in_time;
}

}  // namespace ferrow::testing
