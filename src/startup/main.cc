// The program's entry point: runs start-up, then hands over to the windows.
// Until the windows exist, it reports on the console what start-up did.
#include <clocale>
#include <iostream>

#include "startup/options.h"
#include "startup/session.h"
#include "startup/startup.h"
#include "support/numbers.h"

namespace {

// Message boxes on the console while there are no windows.
class ConsoleUi : public ferrow::HeadlessUi {
 public:
  void ShowMessage(const std::string& text, const std::string& title,
                   ferrow::MessageIcon) override {
    std::cout << (title.empty() ? "Ferrow" : title) << ":\n" << text << "\n";
  }
};

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  ferrow::Env& env = *ferrow::Env::Default();
  ferrow::Options options;
  ConsoleUi ui;
  ferrow::Session session{env, options, ui};
  ferrow::StartupState state(env);
  const std::vector<std::string> args(argv + 1, argv + argc);

  bool go_on = ferrow::RunStartup(session, args, state, [&] {
    std::cout << "Ferrow 1.46\n"
              << "Configuration file: " << options.IniFileName << "\n"
              << "Companion library:  v" << options.HelperLibraryVersion
              << (options.HelperLibraryInUse ? " (in use)" : " (not in use)") << "\n";
    if (!options.LastFileSelected.empty()) {
      auto length = env.FileLength(options.LastFileSelected);
      std::cout << "Following:          " << options.LastFileSelected << " ("
                << (length ? ferrow::GroupDigits(*length) + " bytes" : std::string("not accessible"))
                << ")\n";
    }
  });
  (void)go_on;  // /? ends the program as well, and not in error
  return 0;
}
