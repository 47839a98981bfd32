// Performs one configuration-store operation per run, for the tests that
// start several processes at once:
//   store_driver lock INI SECONDS       GetWriteLock; exit 0 when got, 3 when not
//   store_driver hold-lock INI          GetWriteLock(0), print "held", wait to be killed
//   store_driver tidy INI NAME...       AddToHistory each NAME, then TidyHistory
//   store_driver remove INI NAME        RemoveFromHistory
//   store_driver follow INI NAME GO     start-up history load, AddToHistory NAME,
//                                       print "ready", wait for the file GO, then
//                                       MergeHistoryAtClose
//   store_driver save INI SECTION SIZE  SaveFileSettings with FontSize = SIZE
//   store_driver trim INI               the start-up trim of INI, as a lone instance
//   store_driver claim NAME [hold]      ClaimInstance; print "another" or "alone"
//   store_driver start-close DIR FILE   start-up as the program beside DIR/Ferrow.INI
//                                       following FILE, then what closing writes;
//                                       prints "startup_ms:N" and "close_ms:N"
//   store_driver write-loop INI         writes one key over and over until killed
//   store_driver clean INI              removes what dead writers left beside INI
//   store_driver hold-profile INI       holds the profile writer's lock, prints
//                                       "held", waits to be killed
//   store_driver run DIR FILE           the same, but after start-up prints "ready"
//                                       and closes only when sent SIGTERM (as at
//                                       log-off)
// Captions, and for tidy what it read and what it ended with, go to stdout.
#include <signal.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

#include "config/history.h"
#include "config/history_close.h"
#include "config/ini_file.h"
#include "config/known_keys.h"
#include "config/settings.h"
#include "diag/leftover_files.h"
#include "diag/trim_file.h"
#include "startup/startup.h"
#include "support/paths.h"
#include "config/write_lock.h"
#include "session/session.h"

namespace {

using namespace ferrow;

class PrintingUi : public HeadlessUi {
 public:
  void SetMenuCaption(const std::string& caption) override {
    std::cout << "caption:" << caption << "\n";
    HeadlessUi::SetMenuCaption(caption);
  }
};

class BesideEnv : public EnvWrapper {
 public:
  explicit BesideEnv(std::string folder) : EnvWrapper(Env::Default()), folder_(std::move(folder)) {}
  std::string ProgramPath() override { return JoinPath(folder_, "Ferrow"); }

 private:
  std::string folder_;
};

long MsSince(std::chrono::steady_clock::time_point start) {
  return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(
                               std::chrono::steady_clock::now() - start)
                               .count());
}

// What closing the control window writes, once a file was opened.
void WriteAtClose(Session& session) {
  Options& options = session.options;
  if (GetWriteLock(session, 5)) {
    SaveFileSettings(session, options.FileSection);
    SaveCommonSettings(session);
    ReleaseWriteLock(session);
  }
  MergeHistoryAtClose(session);
}

// Start-up, then the configuration writes of closing the control window:
// at once, or when SIGTERM arrives.
int StartAndClose(const std::string& folder, const std::string& file, bool until_term) {
  sigset_t term;
  sigemptyset(&term);
  sigaddset(&term, SIGTERM);
  if (until_term) ::sigprocmask(SIG_BLOCK, &term, nullptr);
  BesideEnv env(folder);
  Options options;
  HeadlessUi ui;
  Session session{env, options, ui};
  StartupState state(env);
  auto start = std::chrono::steady_clock::now();
  if (!RunStartup(session, {file}, state, nullptr)) return 3;
  std::cout << "startup_ms:" << MsSince(start) << std::endl;
  options.FileName = file;
  AddToHistory(options, file);
  if (until_term) {
    std::cout << "ready" << std::endl;
    int signal = 0;
    ::sigwait(&term, &signal);
  }
  start = std::chrono::steady_clock::now();
  WriteAtClose(session);
  std::cout << "close_ms:" << MsSince(start) << std::endl;
  return 0;
}

[[noreturn]] void WaitToBeKilled() {
  std::cout.flush();
  for (;;) std::this_thread::sleep_for(std::chrono::seconds(1));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string op = argv[1];
  Env& env = *Env::Default();
  Options options;
  options.IniFileName = argv[2];
  PrintingUi ui;
  Session session{env, options, ui};

  if (op == "lock" && argc == 4) return GetWriteLock(session, std::atoi(argv[3])) ? 0 : 3;
  if (op == "hold-lock") {
    if (!GetWriteLock(session, 0)) return 3;
    std::cout << "held\n";
    WaitToBeKilled();
  }
  if (op == "tidy") {
    for (int i = 3; i < argc; ++i) AddToHistory(options, argv[i]);
    std::vector<std::string> read;
    if (!TidyHistory(session, &read)) return 3;
    for (const auto& name : read) std::cout << "read:" << name << "\n";
    for (int i = 0; i < options.HistoryTotal; ++i)
      std::cout << "list:" << options.HistoryList[static_cast<size_t>(i)] << "\n";
    return 0;
  }
  if (op == "follow" && argc == 5) {
    LoadHistoryAtStartup(session);
    AddToHistory(options, argv[3]);
    std::cout << "ready" << std::endl;
    while (!env.FileLength(argv[4])) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return MergeHistoryAtClose(session) ? 0 : 3;
  }
  if (op == "write-loop") {
    for (long i = 0;; ++i) WriteINIFile(env, options.IniFileName, "Common", "Counter", std::to_string(i));
  }
  if (op == "clean") {
    std::cout << "removed:" << RemoveLeftoverFiles(session, options.IniFileName) << "\n";
    return 0;
  }
  if (op == "hold-profile") {
    auto lock = env.LockProfile(options.IniFileName, 5000);
    if (!lock) return 3;
    std::cout << "held\n";
    WaitToBeKilled();
  }
  if (op == "remove" && argc == 4) return RemoveFromHistory(session, argv[3]) ? 0 : 3;
  if (op == "save" && argc == 5) {
    options.FontSize = static_cast<int16_t>(std::atoi(argv[4]));
    SaveFileSettings(session, argv[3]);
    return 0;
  }
  if (op == "trim") return TrimFile(session, options.IniFileName, KnownKeys(), true) ? 0 : 3;
  if (op == "start-close" && argc == 4) return StartAndClose(argv[2], argv[3], false);
  if (op == "run" && argc == 4) return StartAndClose(argv[2], argv[3], true);
  if (op == "claim") {
    bool another = false;
    auto claim = env.ClaimInstance(argv[2], another);
    std::cout << (another ? "another" : "alone") << "\n";
    if (argc > 3) WaitToBeKilled();
    return 0;
  }
  return 2;
}
