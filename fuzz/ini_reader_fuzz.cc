// The configuration file reader on any file text: a section line, a key line,
// then the file. It must answer without crashing, and a value it finds never
// holds a line end.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "config/ini_file.h"
#include "fuzz_input.h"
#include "platform/env.h"

namespace {

const std::string& ScratchFile() {
  static const std::string path = [] {
    char name[] = "/tmp/ferrow-fuzz-ini-XXXXXX";
    const int fd = ::mkstemp(name);
    if (fd < 0) std::abort();
    std::fclose(fdopen(fd, "wb"));
    return std::string(name);
  }();
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ferrow::fuzz::Input in(data, size);
  const std::string section = in.Field(), key = in.Field(), text = in.Rest();
  std::FILE* f = std::fopen(ScratchFile().c_str(), "wb");
  if (!f) std::abort();
  std::fwrite(text.data(), 1, text.size(), f);
  std::fclose(f);
  ferrow::Env& env = *ferrow::Env::Default();
  const std::string value = ferrow::ReadINIFile(env, ScratchFile(), section, key);
  if (value.find_first_of("\r\n") != std::string::npos) std::abort();
  bool flag = false;
  ferrow::ReadINIBool(env, ScratchFile(), section, key, flag);
  return 0;
}
