// ferrow.exe: start-up, then the control window until it is closed. The
// process ends when the control window closes, whatever it waited for.
#include <windows.h>
#include <shellapi.h>

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "control/window_services.h"
#include "session/options.h"
#include "session/session.h"
#include "startup/startup.h"
#include "win32/ansi_text.h"
#include "win32/control_window_view.h"
#include "win32/event_passes.h"
#include "win32/message_loop.h"
#include "win32/unusable_name.h"
#include "win32/window_services.h"

namespace {

// The arguments after the program's name, split as the C runtime splits
// them, in the ANSI code page like every name the program holds.
std::vector<std::string> Arguments() {
  std::vector<std::string> args;
  for (int i = 1; i < __argc; ++i) args.push_back(__argv[i]);
  return args;
}

// A name on the command line that the code page cannot hold is said at
// once; it reaches the program with "?" for what was lost, and is dropped
// there. The refused name in that form, or "".
std::string RefuseUnusableArguments(ferrow::Ui& ui) {
  int count = 0;
  LPWSTR* args = CommandLineToArgvW(GetCommandLineW(), &count);
  if (!args) return "";
  std::string refused;
  for (int i = 1; i < count && refused.empty(); ++i) {
    std::string ansi;
    if (ferrow::win32::ToAnsiExactly(args[i], &ansi)) continue;
    ferrow::win32::ShowUnusableName(ui, args[i]);
    refused = ferrow::win32::AnsiOrQuestionMarks(args[i]);
  }
  LocalFree(args);
  return refused;
}

int Run() {
  ferrow::Env& env = *ferrow::Env::Default();
  ferrow::win32::Win32WindowServices services;
  ferrow::RoutedUi ui(services);
  ferrow::Options options;
  ferrow::Session session{env, options, ui};
  ferrow::win32::InstallEventsHook(env, session.gate);
  services.gate = &session.gate;
  ferrow::StartupState state(env);
  std::unique_ptr<ferrow::win32::Win32ControlWindow> form;

  const std::string refused = RefuseUnusableArguments(ui);
  const bool go_on = ferrow::RunStartup(session, Arguments(), state, [&] {
    if (!refused.empty() && options.LastFileSelected == refused) options.LastFileSelected.clear();
    session.helper = &state.library;
    form = std::make_unique<ferrow::win32::Win32ControlWindow>(session, services);
    services.owner = form->Handle();
    ui.SetTarget(&form->Logic());
    options.FileName = options.LastFileSelected;
    form->Logic().on_unloaded = [] { PostQuitMessage(0); };
    form->Logic().Form_Load();
  });
  int result = 0;
  // /? showed the usage; or closed while it waited to start or opened its
  // file: nothing is left to run.
  if (go_on && form && !form->Logic().Unloaded()) result = ferrow::win32::RunMessageLoop();
  ui.SetTarget(nullptr);
  services.owner = nullptr;
  return result;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  try {
    return Run();
  } catch (const std::exception&) {
    return 1;
  }
}
