// What the core procedures of one process work with: the operating system,
// the option record and the windows. Passed by reference instead of globals.
#pragma once

#include <cstdint>

#include "about/helper_library.h"
#include "control/window_gate.h"
#include "platform/env.h"
#include "session/options.h"
#include "support/ui.h"

namespace ferrow {

struct Session {
  Env& env;
  Options& options;
  Ui& ui;
  // The companion library, when start-up bound one.
  const HelperLibrary* helper = nullptr;
  // The step a reporting procedure has reached, for its error reports.
  int16_t ErrorLine = 0;
  // Numbers the appended blocks in the debug banner, for the whole run.
  int16_t DebugBlockCounter = 0;
  // Which of open, restart, Apply and unload runs, and whether the program
  // is closing: shared by every window.
  WindowGate gate{};
};

}  // namespace ferrow
