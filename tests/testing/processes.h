// Starting helper programs from tests (POSIX), and checking that a
// configuration file is whole.
#pragma once

#include <sys/types.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace ferrow::testing {

// Starts `args[0]` with `args`; its standard output goes to `stdout_path`
// when given. Returns the process id, or -1.
pid_t Spawn(const std::vector<std::string>& args, const std::string& stdout_path = "");

// `args` to run as an unprivileged user: as they are, or behind setpriv
// dropping to nobody when the tests run as root (who may write anything).
std::vector<std::string> Unprivileged(std::vector<std::string> args);

// Waits for the process; its exit code, or -1 when it did not exit normally.
int WaitExit(pid_t pid);

// WaitExit, but a process still running after `seconds` is killed: -2.
int WaitExitWithin(pid_t pid, int seconds);

// Waits up to `seconds` until the file at `path` holds `text`.
bool WaitForText(const std::string& path, const std::string& text, int seconds);

// True when `text` is whole CR LF lines, each a section header, a key=value
// line, a comment or blank (NUL padding at the end aside); otherwise `why`
// says what is wrong.
bool Parseable(const std::string& text, std::string* why);

// The lines of `text` that begin with `prefix`, without the prefix.
std::vector<std::string> LinesStartingWith(const std::string& text, const std::string& prefix);

// Reads a file over and over on a thread of its own while it lives, and
// remembers whether it ever found the file torn.
class TornFileWatch {
 public:
  explicit TornFileWatch(std::string path);
  ~TornFileWatch();
  // Stops watching; the counts below are final afterwards.
  void Stop();

  int reads() const { return reads_; }
  int torn() const { return torn_; }
  const std::string& first_problem() const { return first_problem_; }

 private:
  std::string path_;
  std::atomic<bool> watching_{true};
  std::atomic<int> reads_{0}, torn_{0};
  std::string first_problem_;
  std::thread thread_;
};

}  // namespace ferrow::testing

namespace ferrow::testing {

// Runs `work` on a thread of its own and waits up to `seconds` for it. Should
// it still be waiting on the FIFO at `fifo` by then, a writer opens and
// closes the FIFO so that the work ends (and the test with it) instead of
// hanging. True when the work finished within the time by itself.
bool FinishesWithoutAWriter(const std::string& fifo, const std::function<void()>& work,
                            int seconds = 5);

}  // namespace ferrow::testing
