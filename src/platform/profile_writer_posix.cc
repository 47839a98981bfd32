// The profile writer on POSIX: the Windows profile API's text rules (see
// config/profile_text.h) applied under the file's lock, and the result put in
// place by renaming a flushed temporary file, so that a reader sees either the
// old file or the new one, never a torn one.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>

#include "config/profile_text.h"
#include "platform/posix_lock.h"

namespace ferrow {
namespace {

constexpr int kLockWaitMs = 2000;

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

bool ReplaceFile(const std::string& native, const std::string& bytes, mode_t mode) {
  std::string temp = native + ".XXXXXX";
  int fd = ::mkstemp(temp.data());
  if (fd < 0) return false;
  bool ok = WriteAll(fd, bytes) && ::fchmod(fd, mode) == 0 && ::fsync(fd) == 0;
  ok = (::close(fd) == 0) && ok;
  if (ok && ::rename(temp.c_str(), native.c_str()) == 0) return true;
  ::unlink(temp.c_str());
  return false;
}

}  // namespace

bool PosixWriteProfileString(const char* section, const char* key, const char* value,
                             const std::string& path) {
  if (!section || path.empty()) return false;
  const std::string native = PosixPath(path);
  const bool deleting = !key || !value;
  struct stat info {};
  if (deleting && ::stat(native.c_str(), &info) != 0) return errno == ENOENT;

  auto lock = LockPathExclusive(native, /*create=*/true, kLockWaitMs);
  if (!lock) return false;
  std::string old_text;
  if (!ReadAll(lock->fd(), old_text) || ::fstat(lock->fd(), &info) != 0) return false;

  std::optional<std::string_view> k, v;
  if (key) k = key;
  if (value) v = value;
  std::string new_text = ApplyProfileWrite(old_text, section, k, v);
  if (new_text == old_text) return true;
  return ReplaceFile(native, new_text, info.st_mode & 07777);
}

}  // namespace ferrow
