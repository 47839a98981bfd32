// Started many times at once by the multi-process profile writer test:
// writes `count` distinct keys into the configuration file, spread over
// `sections` sections, and exits non-zero if any write failed.
#include <cstdlib>
#include <iostream>
#include <string>

#include "config/ini_file.h"
#include "platform/env.h"

int main(int argc, char** argv) {
  if (argc != 5) {
    std::cerr << "usage: ini_writer_child INI PREFIX COUNT SECTIONS\n";
    return 2;
  }
  const std::string ini = argv[1], prefix = argv[2];
  const int count = std::atoi(argv[3]), sections = std::atoi(argv[4]);
  ferrow::Env& env = *ferrow::Env::Default();
  int failures = 0;
  for (int i = 0; i < count; ++i) {
    const std::string section = "Section" + std::to_string(i % sections);
    const std::string key = prefix + "Key" + std::to_string(i);
    if (!ferrow::WriteINIFile(env, ini, section, key, prefix + "-value-" + std::to_string(i)))
      ++failures;
  }
  return failures == 0 ? 0 : 1;
}
