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

bool NoEdgeBlanks(const std::string& s) {
  return !s.empty() && s.front() != ' ' && s.back() != ' ' && s.front() != '\t' &&
         s.back() != '\t';
}

// A section name may hold any character but a line end ("]" and "=" too:
// log[1].txt, job=42.log).
bool PlainSection(const std::string& s) {
  return NoEdgeBlanks(s) && s.find_first_of(std::string("\r\n\0", 3)) == std::string::npos;
}

// Keys and values the reader can find again.
bool Plain(const std::string& s) {
  return NoEdgeBlanks(s) && s.find_first_of(std::string("\r\n[]=;\t\"\0", 9)) == std::string::npos;
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
  if (k && v && PlainSection(section) && Plain(key) && Plain(value)) {
    const std::string twice = ferrow::ApplyProfileWrite(once, section, k, v);
    if (twice != once) std::abort();
  }
  return 0;
}
