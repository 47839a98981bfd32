// The advisory write lock between processes, kept in the configuration file
// itself as [Common] WriteLock. It is cooperative and has no test-and-set:
// between the read that finds it free and the write that takes it another
// process may take it too. It narrows the window of conflict, no more.
#pragma once

#include <cstdint>

namespace ferrow {

struct Session;

// Waits up to `max_wait_seconds` (two rounds of 500 ms per second) while the
// lock is held, showing the wait in the control window's caption, then takes
// it. True when this process now holds the lock.
bool GetWriteLock(Session& session, int16_t max_wait_seconds);

// Writes WriteLock=False. True when that was written.
bool ReleaseWriteLock(Session& session);

}  // namespace ferrow
