// Dates and times in the C library's current locale (the program sets it from
// the environment at start-up).
#include <ctime>
#include <string>

#include "support/dates.h"
#include "support/strings.h"

namespace ferrow {

std::string PosixShortDate(const std::tm& when) { return FormatTime("%x", when); }

std::string PosixLongDate(const std::tm& when) {
  std::string text = FormatTime("%A %e %B %Y", when);
  size_t doubled;
  while ((doubled = text.find("  ")) != std::string::npos) text.erase(doubled, 1);
  return text;
}

std::string PosixLongTime(const std::tm& when) { return Trim(FormatTime("%X", when)); }

std::string PosixDateSeparator() {
  std::tm sample{};
  sample.tm_year = 2001 - 1900;
  sample.tm_mon = 1;
  sample.tm_mday = 3;
  for (char c : FormatTime("%x", sample))
    if (c < '0' || c > '9') return std::string(1, c);
  return "/";
}

}  // namespace ferrow
