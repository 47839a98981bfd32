// The profile writer on POSIX: the Windows profile API's text rules (see
// config/profile_text.h) applied under the file's lock, and the result put in
// place by renaming a flushed temporary file, so that a reader sees either the
// old file or the new one, never a torn one.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <optional>
#include <string>

#include "config/profile_text.h"
#include "platform/posix_lock.h"

namespace ferrow {
namespace {

constexpr int kLockWaitMs = 2000;

// Why the last write of this thread failed: an errno value, 0 for a failure
// that may pass (the lock not had in time).
thread_local int t_last_failure = 0;

bool Fail(int error) {
  t_last_failure = error;
  return false;
}

bool ReadAll(int fd, std::string& out) {
  out.clear();
  if (::lseek(fd, 0, SEEK_SET) < 0) return false;
  char buffer[65536];
  for (;;) {
    ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    if (n == 0) return true;
    out.append(buffer, static_cast<size_t>(n));
  }
}

bool WriteAll(int fd, const std::string& data) {
  size_t done = 0;
  while (done < data.size()) {
    ssize_t n = ::write(fd, data.data() + done, data.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<size_t>(n);
  }
  return true;
}

// When no temporary file can be made beside the file (a folder we may not
// write, holding a file we may), the file is rewritten in place through the
// locked descriptor: a reader may then see it half written, which is better
// than losing the write.
bool RewriteInPlace(int fd, const std::string& bytes) {
  if (::lseek(fd, 0, SEEK_SET) < 0 || !WriteAll(fd, bytes) ||
      ::ftruncate(fd, static_cast<off_t>(bytes.size())) != 0 || ::fsync(fd) != 0)
    return Fail(errno);
  return true;
}

bool ReplaceFile(const std::string& native, const std::string& bytes, mode_t mode, int locked_fd) {
  std::string temp = native + ".XXXXXX";
  int fd = ::mkstemp(temp.data());
  if (fd < 0 && (errno == EACCES || errno == EPERM || errno == EROFS))
    return RewriteInPlace(locked_fd, bytes);
  if (fd < 0) return Fail(errno);
  const bool written = WriteAll(fd, bytes) && ::fchmod(fd, mode) == 0 && ::fsync(fd) == 0;
  int error = errno;
  const bool closed = ::close(fd) == 0;
  if (written && !closed) error = errno;
  if (written && closed) {
    if (::rename(temp.c_str(), native.c_str()) == 0) return true;
    error = errno;
  }
  ::unlink(temp.c_str());
  return Fail(error);
}

}  // namespace

bool PosixWriteProfileString(const char* section, const char* key, const char* value,
                             const std::string& path) {
  if (!section || path.empty()) return false;
  std::string native = PosixPath(path);
  // A configuration file that is a symbolic link is written through it: the
  // link stays and its target takes the new text.
  if (char* target = ::realpath(native.c_str(), nullptr)) {
    native = target;
    std::free(target);
  }
  const bool deleting = !key || !value;
  struct stat info {};
  if (deleting && ::stat(native.c_str(), &info) != 0) return errno == ENOENT || Fail(errno);

  errno = 0;
  auto lock = LockPathExclusive(native, /*create=*/true, kLockWaitMs);
  if (!lock) return Fail(errno);  // 0 when the lock was held too long
  std::string old_text;
  if (!ReadAll(lock->fd(), old_text) || ::fstat(lock->fd(), &info) != 0) return Fail(errno);

  std::optional<std::string_view> k, v;
  if (key) k = key;
  if (value) v = value;
  std::string new_text = ApplyProfileWrite(old_text, section, k, v);
  if (new_text == old_text) return true;
  return ReplaceFile(native, new_text, info.st_mode & 07777, lock->fd());
}

bool PosixLastWriteFailureIsPermanent() {
  switch (t_last_failure) {
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOSPC:
    case EDQUOT:
      return true;
    default:
      return false;
  }
}

}  // namespace ferrow
