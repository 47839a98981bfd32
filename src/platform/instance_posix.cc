// "Is another instance running?" on POSIX: every instance holds a shared
// flock on one file per program; a newcomer that cannot take it exclusively
// knows another instance is alive. The OS drops the lock of a process that
// dies, so a file left behind by a dead process never counts. The last
// instance to end removes the file (one per place the program was run from
// would pile up otherwise); a newcomer that locked a file removed meanwhile
// tries again on the new one.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "platform/env.h"

namespace ferrow {
namespace {

class PosixInstanceClaim : public InstanceClaim {
 public:
  PosixInstanceClaim(int fd, std::string path) : fd_(fd), path_(std::move(path)) {}
  ~PosixInstanceClaim() override {
    if (fd_ < 0) return;
    // Alone when nobody else holds it: the file goes while we hold it
    // exclusively, so a newcomer waits and then finds it gone.
    if (::flock(fd_, LOCK_EX | LOCK_NB) == 0) ::unlink(path_.c_str());
    ::close(fd_);
  }

 private:
  int fd_;
  std::string path_;
};

// Whether `fd` is still the file at `path` (the last instance may have
// removed it between our open and our lock).
bool StillThere(int fd, const std::string& path) {
  struct stat held {}, named {};
  return ::fstat(fd, &held) == 0 && ::stat(path.c_str(), &named) == 0 && held.st_dev == named.st_dev &&
         held.st_ino == named.st_ino;
}

std::string LockFolder() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime && *runtime && ::access(runtime, W_OK) == 0) return runtime;
  return "/tmp";
}

}  // namespace

std::unique_ptr<InstanceClaim> PosixClaimInstance(const std::string& name, bool& another_running) {
  another_running = false;
  const std::string path = LockFolder() + "/" + name + "-" + std::to_string(::getuid()) + ".instance";
  for (int attempt = 0; attempt < 100; ++attempt) {
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) break;
    another_running = ::flock(fd, LOCK_EX | LOCK_NB) != 0;
    // Hold it shared from now on, so that later instances see this one.
    ::flock(fd, LOCK_SH);
    if (StillThere(fd, path)) return std::make_unique<PosixInstanceClaim>(fd, path);
    ::close(fd);
  }
  return std::make_unique<PosixInstanceClaim>(-1, "");
}

}  // namespace ferrow
