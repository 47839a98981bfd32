// The profile writer's text rules on any file text and any write. A write of
// a plain key and value is found again by the reader's rules and repeating it
// changes nothing.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "config/profile_text.h"
#include "fuzz_input.h"

namespace {

// Names the reader can find again: no line end, no "[" "]" "=" ";" and no
// blank or tab at either end.
bool Plain(const std::string& s) {
  return !s.empty() && s.find_first_of("\r\n[]=;\t\"") == std::string::npos &&
         s.front() != ' ' && s.back() != ' ' && s.find('\0') == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ferrow::fuzz::Input in(data, size);
  const uint8_t mode = in.Byte();
  const std::string section = in.Field(), key = in.Field(), value = in.Field(), text = in.Rest();
  std::optional<std::string_view> k, v;
  if (!(mode & 1)) k = key;
  if (!(mode & 2)) v = value;
  const std::string once = ferrow::ApplyProfileWrite(text, section, k, v);
  if (k && v && Plain(section) && Plain(key) && Plain(value)) {
    const std::string twice = ferrow::ApplyProfileWrite(once, section, k, v);
    if (twice != once) std::abort();
  }
  return 0;
}
