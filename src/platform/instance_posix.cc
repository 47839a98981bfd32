// "Is another instance running?" on POSIX: every instance holds a shared
// flock on one file per program; a newcomer that cannot take it exclusively
// knows another instance is alive. The OS drops the lock of a process that
// dies, so a file left behind by a dead process never counts.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "platform/env.h"

namespace ferrow {
namespace {

class PosixInstanceClaim : public InstanceClaim {
 public:
  explicit PosixInstanceClaim(int fd) : fd_(fd) {}
  ~PosixInstanceClaim() override {
    if (fd_ >= 0) ::close(fd_);
  }

 private:
  int fd_;
};

std::string LockFolder() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime && *runtime && ::access(runtime, W_OK) == 0) return runtime;
  return "/tmp";
}

}  // namespace

std::unique_ptr<InstanceClaim> PosixClaimInstance(const std::string& name, bool& another_running) {
  another_running = false;
  std::string path = LockFolder() + "/" + name + "-" + std::to_string(::getuid()) + ".instance";
  int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (fd < 0) return std::make_unique<PosixInstanceClaim>(-1);
  another_running = ::flock(fd, LOCK_EX | LOCK_NB) != 0;
  // Hold it shared from now on, so that later instances see this one.
  ::flock(fd, LOCK_SH);
  return std::make_unique<PosixInstanceClaim>(fd);
}

}  // namespace ferrow
