// An Env over the real one that counts sleeps and event runs instead of
// sleeping, so retry loops can be checked without waiting for them.
#pragma once

#include <functional>

#include "platform/env.h"

namespace ferrow::testing {

class CountingEnv : public EnvWrapper {
 public:
  CountingEnv() : EnvWrapper(Env::Default()) {}

  void SleepMs(int ms) override {
    ++sleeps;
    slept_ms += ms;
    if (on_sleep) on_sleep();
  }
  void LetEventsRun() override { ++event_runs; }

  int sleeps = 0;
  long slept_ms = 0;
  int event_runs = 0;
  std::function<void()> on_sleep;
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
