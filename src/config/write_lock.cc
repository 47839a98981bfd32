#include "config/write_lock.h"

#include <string>

#include "config/ini_file.h"
#include "config/keys.h"
#include "session/session.h"

namespace ferrow {
namespace {

constexpr int kRoundMs = 500;
constexpr int kReleaseRetryMs = 250;
constexpr int kWriteAttempts = 100;
using keys::kCommon;
using keys::WriteLock;

std::string Dots(int count) { return std::string(static_cast<size_t>(count % 10), '.'); }

// Writes WriteLock=`value`, retrying with a caption while the write fails for
// a reason that may pass.
bool WriteLockValue(Session& s, bool value, const std::string& caption, int retry_ms) {
  const std::string& ini = s.options.IniFileName;
  bool written = WriteINIBool(s.env, ini, kCommon, WriteLock, value);
  for (int attempt = 1; !written && attempt < kWriteAttempts &&
                        !s.env.LastWriteFailureIsPermanent();
       ++attempt) {
    s.ui.SetMenuCaption(caption + Dots(attempt));
    s.ui.RefreshMenu();
    s.env.SleepMs(retry_ms);
    written = WriteINIBool(s.env, ini, kCommon, WriteLock, value);
  }
  return written;
}

}  // namespace

bool GetWriteLock(Session& s, int16_t max_wait_seconds) {
  const std::string& ini = s.options.IniFileName;
  const int rounds = max_wait_seconds * 1000 / kRoundMs;
  int remaining = max_wait_seconds;

  bool locked = false;
  if (ReadINIBool(s.env, ini, kCommon, WriteLock, locked) && locked) {
    for (int i = 0; locked && i < rounds; ++i) {
      if (i > 0) remaining = max_wait_seconds - i * kRoundMs / 1000;
      s.ui.SetMenuCaption("Ferrow - (Config file is locked: Waiting " + std::to_string(remaining) +
                          " seconds for unlock) " + Dots(i));
      s.ui.RefreshMenu();
      s.env.SleepMs(kRoundMs);
      bool now = false;
      // A vanished key leaves the last value (locked) in force.
      if (ReadINIBool(s.env, ini, kCommon, WriteLock, now)) locked = now;
    }
    if (locked) return false;
  }
  return WriteLockValue(s, true, "Ferrow - Waiting to get a write-lock on the config file ",
                        kRoundMs);
}

bool ReleaseWriteLock(Session& s) {
  return WriteLockValue(s, false, "Ferrow - Waiting to release the write-lock on the config file ",
                        kReleaseRetryMs);
}

}  // namespace ferrow
