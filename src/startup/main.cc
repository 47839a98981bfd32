// The program's entry point. The windows come later; for now it shows where
// the configuration lives and how long the named file is.
#include <iostream>

#include "config/config_location.h"
#include "platform/env.h"
#include "support/numbers.h"

int main(int argc, char** argv) {
  ferrow::Env& env = *ferrow::Env::Default();
  std::cout << "Ferrow 1.46\n";
  std::cout << "Configuration file: " << ferrow::IniFileName(env) << "\n";
  std::cout << "Debug log:          " << ferrow::LogFileName(env) << "\n";
  for (int i = 1; i < argc; ++i) {
    auto length = env.FileLength(argv[i]);
    std::cout << argv[i] << ": "
              << (length ? ferrow::GroupDigits(*length) + " bytes" : std::string("not accessible"))
              << "\n";
  }
  return 0;
}
