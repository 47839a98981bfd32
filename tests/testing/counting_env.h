// An Env over the real one that counts sleeps and event runs instead of
// sleeping, and fixes the clock and the locale, so that retry loops and
// dated records can be checked exactly and without waiting.
#pragma once

#include <functional>

#include "platform/env.h"

namespace ferrow::testing {

// 2012-06-30 14:05:09, local time.
std::time_t FixedNow();

class CountingEnv : public EnvWrapper {
 public:
  CountingEnv() : EnvWrapper(Env::Default()) {}

  void SleepMs(int ms) override {
    ++sleeps;
    slept_ms += ms;
    if (on_sleep) on_sleep();
  }
  void LetEventsRun() override {
    ++event_runs;
    if (on_events) on_events();
  }

  std::time_t Now() override { return FixedNow() + slept_ms / 1000; }
  std::string SystemDateSeparator() override { return date_separator; }
  std::string SystemShortDate(const std::tm& when) override;
  std::string SystemLongDate(const std::tm& when) override;
  std::string SystemLongTime(const std::tm& when) override;

  int sleeps = 0;
  long slept_ms = 0;
  int event_runs = 0;
  std::string date_separator = "/";
  std::function<void()> on_sleep;
  std::function<void()> on_events;  // what the user does while events run
};

// Counts and then fails or passes every profile write, to drive the writer's
// retry loops.
class ProfileWriteEnv : public CountingEnv {
 public:
  bool WriteProfileString(const char* section, const char* key, const char* value,
                          const std::string& path) override;

  int writes = 0;
  int deletes_of_key = 0;
  std::function<bool(const char* key, const char* value)> succeed;  // default: real write
};

}  // namespace ferrow::testing
