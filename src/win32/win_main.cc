// ferrow.exe: start-up, then the control window until it is closed. The
// process ends when the control window closes, whatever it waited for.
#include <windows.h>

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "control/window_services.h"
#include "session/options.h"
#include "session/session.h"
#include "startup/startup.h"
#include "win32/control_window_view.h"
#include "win32/event_passes.h"
#include "win32/message_loop.h"
#include "win32/window_services.h"

namespace {

// The arguments after the program's name, split as the C runtime splits
// them, in the ANSI code page like every name the program holds.
std::vector<std::string> Arguments() {
  std::vector<std::string> args;
  for (int i = 1; i < __argc; ++i) args.push_back(__argv[i]);
  return args;
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

  const bool go_on = ferrow::RunStartup(session, Arguments(), state, [&] {
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
