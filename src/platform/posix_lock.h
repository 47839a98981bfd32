// The lock that serialises writers of one profile file between processes on
// POSIX: flock() on the file itself, re-checked after locking because a writer
// that finished meanwhile has renamed a new file over the name.
#pragma once

#include <memory>
#include <string>

#include "platform/env.h"

namespace ferrow {

class PosixFileLock : public FileLock {
 public:
  explicit PosixFileLock(int fd) : fd_(fd) {}
  ~PosixFileLock() override;
  int fd() const { return fd_; }

 private:
  int fd_;
};

// Opens `path` (creating it when `create`) and locks it exclusively, waiting
// up to `wait_ms`. nullptr when the file is missing (and not to be created)
// or the lock could not be had in time.
std::unique_ptr<PosixFileLock> LockPathExclusive(const std::string& path, bool create, int wait_ms);

// `path` with every "\" turned into "/", the form the POSIX calls take.
std::string PosixPath(const std::string& path);

}  // namespace ferrow
