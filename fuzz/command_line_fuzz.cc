// Tokenize and the command line on any text: at most 128 tokens, none
// holding a quote (a quoted phrase keeps its blanks, commas and semicolons),
// and applying them never crashes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "display/themes.h"
#include "fuzz_input.h"
#include "platform/env.h"
#include "startup/command_line.h"
#include "session/options.h"
#include "support/tokenize.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ferrow::fuzz::Input in(data, size);
  const std::string delimiters = in.Field('\0'), text = in.Rest();
  std::vector<std::string> tokens;
  ferrow::Tokenize(text, delimiters, tokens, 16);
  if (tokens.size() > 16) std::abort();

  tokens = ferrow::ParseCommandLine(text);
  if (tokens.size() > static_cast<size_t>(ferrow::kMaxArguments)) std::abort();
  for (const std::string& token : tokens)
    if (token.find('"') != std::string::npos) std::abort();
  ferrow::Options options;
  ferrow::FillThemeTables(options.Themes);
  ferrow::DisabledSwitches disabled;
  ferrow::ApplyArguments(*ferrow::Env::Default(), options, tokens, disabled);
  if (options.MaxInputLength < 1024 || options.MaxInputLength > 1024 * 1024) std::abort();
  return 0;
}
