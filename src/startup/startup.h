// The program's entry procedure, without the windows: it prepares the option
// record, makes sure the configuration file exists, reads [Common], applies
// the command line and tidies the configuration file when this is the only
// instance running.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "about/helper_library.h"
#include "platform/env.h"

namespace ferrow {

struct Session;

// What start-up leaves for the rest of the process's life.
struct StartupState {
  explicit StartupState(Env& env) : library(HelperLibrary::None(env)) {}
  HelperLibrary library;
  std::unique_ptr<InstanceClaim> instance;  // this process counts as running
};

// The five lines of a first run's configuration file.
extern const char kFirstRunIni[];

// Runs start-up with `args` (the arguments after the program's name) and
// ends by calling `load_control_window`. Returns false when the program is to
// end at once (/? showed the usage box).
bool RunStartup(Session& session, const std::vector<std::string>& args, StartupState& state,
                const std::function<void()>& load_control_window);

}  // namespace ferrow
