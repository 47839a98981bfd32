#include "testing/counting_env.h"

#include "support/dates.h"

namespace ferrow::testing {

std::time_t FixedNow() {
  std::tm t{};
  t.tm_year = 2012 - 1900;
  t.tm_mon = 5;
  t.tm_mday = 30;
  t.tm_hour = 14;
  t.tm_min = 5;
  t.tm_sec = 9;
  t.tm_isdst = -1;
  return std::mktime(&t);
}

std::string CountingEnv::SystemShortDate(const std::tm& when) {
  return FormatTime("%d/%m/%Y", when);
}
std::string CountingEnv::SystemLongDate(const std::tm& when) {
  return std::to_string(when.tm_mday) + FormatTime(" %B %Y", when);
}
std::string CountingEnv::SystemLongTime(const std::tm& when) { return FormatTime("%H:%M:%S", when); }

bool ProfileWriteEnv::WriteProfileString(const char* section, const char* key, const char* value,
                                         const std::string& path) {
  ++writes;
  if (key && !value) ++deletes_of_key;
  faked_failure_ = succeed && !succeed(key, value);
  if (faked_failure_) return false;
  return CountingEnv::WriteProfileString(section, key, value, path);
}

bool ProfileWriteEnv::LastWriteFailureIsPermanent() {
  return faked_failure_ ? failures_permanent : CountingEnv::LastWriteFailureIsPermanent();
}

}  // namespace ferrow::testing
