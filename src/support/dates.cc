#include "support/dates.h"

namespace ferrow {

std::string FormatTime(const char* format, const std::tm& when) {
  char buffer[256];
  size_t n = std::strftime(buffer, sizeof buffer, format, &when);
  return std::string(buffer, n);
}

std::string OrdinalSuffix(int day) {
  if (day < 1) return "";
  if (day < 21) {
    switch (day) {
      case 1: return "st";
      case 2: return "nd";
      case 3: return "rd";
      default: return "th";
    }
  }
  switch (day % 10) {
    case 1: return "st";
    case 2: return "nd";
    case 3: return "rd";
    default: return "th";
  }
}

std::string LongDateText(const std::tm& when) {
  return FormatTime("%A ", when) + std::to_string(when.tm_mday) + OrdinalSuffix(when.tm_mday) +
         FormatTime(" %B %Y - %H:%M:%S", when);
}

std::string LongDateText() { return LongDateText(LocalTime(std::time(nullptr))); }

std::tm LocalTime(std::time_t t) {
  std::tm out{};
#ifdef _WIN32
  localtime_s(&out, &t);
#else
  localtime_r(&t, &out);
#endif
  return out;
}

}  // namespace ferrow
