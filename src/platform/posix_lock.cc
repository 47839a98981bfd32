#include "platform/posix_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

namespace ferrow {

PosixFileLock::~PosixFileLock() { ::close(fd_); }  // closing drops the flock

std::string PosixPath(const std::string& path) {
  std::string out = path;
  for (char& c : out)
    if (c == '\\') c = '/';
  return out;
}

std::unique_ptr<PosixFileLock> LockPathExclusive(const std::string& path, bool create,
                                                 int wait_ms) {
  const std::string native = PosixPath(path);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(wait_ms);
  for (;;) {
    int fd = ::open(native.c_str(), O_RDWR | O_CLOEXEC | (create ? O_CREAT : 0), 0666);
    if (fd < 0) return nullptr;
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0) {
      struct stat held {}, named {};
      if (::fstat(fd, &held) == 0 && ::stat(native.c_str(), &named) == 0 &&
          held.st_ino == named.st_ino && held.st_dev == named.st_dev)
        return std::make_unique<PosixFileLock>(fd);
      // The name now belongs to a newer file: lock that one instead.
      ::close(fd);
      continue;
    }
    ::close(fd);
    if (std::chrono::steady_clock::now() >= deadline) return nullptr;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace ferrow
