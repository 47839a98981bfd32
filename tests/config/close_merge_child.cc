// One Ferrow process's history as it closes, for the Windows test that starts
// several at once: loads the history as start-up does, adds NAME, writes
// READY, waits until the file GO exists, then merges at close.
//   close_merge_child INI NAME READY GO
#include <chrono>
#include <fstream>
#include <string>
#include <thread>

#include "config/history.h"
#include "config/history_close.h"
#include "session/session.h"

int main(int argc, char** argv) {
  using namespace ferrow;
  if (argc != 5) return 2;
  Env& env = *Env::Default();
  Options options;
  options.IniFileName = argv[1];
  HeadlessUi ui;
  Session session{env, options, ui};
  LoadHistoryAtStartup(session);
  AddToHistory(options, argv[2]);
  std::ofstream(argv[3]) << "ready";
  while (!env.FileLength(argv[4])) std::this_thread::sleep_for(std::chrono::milliseconds(2));
  return MergeHistoryAtClose(session) ? 0 : 3;
}
