// The profile writer on POSIX: the Windows profile API's text rules (see
// config/profile_text.h) applied under the file's lock, and the result put in
// place by renaming a flushed temporary file, so that a reader sees either the
// old file or the new one, never a torn one. A transaction holds that lock
// from its read to its commit and writes the file once, however many keys it
// changed.
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

// The real path behind `path`: a configuration file that is a symbolic link
// is written through it, so the link stays and its target takes the new text.
std::string ResolvedPath(const std::string& path) {
  std::string native = PosixPath(path);
  if (char* target = ::realpath(native.c_str(), nullptr)) {
    native = target;
    std::free(target);
  }
  return native;
}

// The whole read-modify-write under the writer's lock: the text is read once,
// every write of the transaction applied to it in memory, and the result put
// in place by one rename at the commit.
class PosixProfileTransaction : public ProfileTransaction {
 public:
  PosixProfileTransaction(std::string native, std::unique_ptr<PosixFileLock> lock, std::string text,
                          mode_t mode, bool made_here)
      : native_(std::move(native)), lock_(std::move(lock)), old_(text), text_(std::move(text)),
        mode_(mode), made_here_(made_here) {}
  // A file this transaction had to make in order to lock it, and that it
  // never wrote, is not left behind.
  ~PosixProfileTransaction() override {
    struct stat held {};
    if (made_here_ && ::fstat(lock_->fd(), &held) == 0 && held.st_size == 0) ::unlink(native_.c_str());
  }

  const std::string& Text() override { return text_; }

  bool WriteProfileString(const char* section, const char* key, const char* value) override {
    if (!section) return Fail(EINVAL);
    std::optional<std::string_view> k, v;
    if (key) k = key;
    if (value) v = value;
    text_ = ApplyProfileWrite(text_, section, k, v);
    return true;
  }

  bool Commit() override {
    if (text_ == old_) return true;
    if (!ReplaceFile(native_, text_, mode_, lock_->fd())) return false;
    old_ = text_;
    made_here_ = false;
    return true;
  }

 private:
  std::string native_;
  std::unique_ptr<PosixFileLock> lock_;
  std::string old_, text_;
  mode_t mode_;
  bool made_here_;
};

}  // namespace

bool PosixWriteProfileString(const char* section, const char* key, const char* value,
                             const std::string& path) {
  if (!section || path.empty()) return false;
  const std::string native = ResolvedPath(path);
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

std::unique_ptr<ProfileTransaction> PosixBeginProfileTransaction(const std::string& path,
                                                                 int wait_ms) {
  if (path.empty()) {
    Fail(EINVAL);
    return nullptr;
  }
  std::string native = ResolvedPath(path);
  struct stat before {};
  const bool existed = ::stat(native.c_str(), &before) == 0;
  errno = 0;
  auto lock = LockPathExclusive(native, /*create=*/true, wait_ms);
  if (!lock) {
    Fail(errno);  // 0 when the lock was held too long
    return nullptr;
  }
  std::string text;
  struct stat info {};
  if (!ReadAll(lock->fd(), text) || ::fstat(lock->fd(), &info) != 0) {
    Fail(errno);
    return nullptr;
  }
  return std::make_unique<PosixProfileTransaction>(std::move(native), std::move(lock),
                                                   std::move(text), info.st_mode & 07777,
                                                   !existed && info.st_size == 0);
}

bool PosixFailureIsPermanent(int error) {
  // Only what waiting can mend is retried: a lock held elsewhere (0), an
  // interrupted call, a busy resource. A vanished folder (ENOENT, ESTALE),
  // an I/O error, a permission, a full disk and the rest never pass.
  switch (error) {
    case 0:
    case EINTR:
    case EAGAIN:
#if EWOULDBLOCK != EAGAIN
    case EWOULDBLOCK:
#endif
    case EBUSY:
    case ETXTBSY:
    case EMFILE:
    case ENFILE:
      return false;
    default:
      return true;
  }
}

bool PosixLastWriteFailureIsPermanent() { return PosixFailureIsPermanent(t_last_failure); }

}  // namespace ferrow
