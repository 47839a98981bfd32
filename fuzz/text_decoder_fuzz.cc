// The followed file's bytes to text, cut into reads at any places: the text is
// always valid UTF-8, and cutting never changes it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "engine/text_decoder.h"
#include "fuzz_input.h"
#include "platform/env.h"

namespace {

bool ValidUtf8(const std::string& s) {
  std::string held;
  return ferrow::SanitiseUtf8(s, &held) == s && held.empty();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ferrow::fuzz::Input in(data, size);
  const uint8_t cut = in.Byte();
  const std::string bytes = in.Rest();
  ferrow::TextDecoder whole(*ferrow::Env::Default()), pieces(*ferrow::Env::Default());
  const std::string at_once = whole.Decode(bytes);
  std::string in_pieces;
  const size_t step = cut == 0 ? 1 : cut;
  for (size_t at = 0; at < bytes.size(); at += step) in_pieces += pieces.Decode(bytes.substr(at, step));
  if (!ValidUtf8(at_once) || in_pieces != at_once) std::abort();
  (void)whole.DecodeFresh(bytes);
  return 0;
}
