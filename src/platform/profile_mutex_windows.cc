// Profile writes on Windows, serialised between the program's processes by a
// named mutex per configuration file: each single write takes it for its one
// call, a transaction for the whole read-modify-write, so that two processes
// rewriting the history key by key cannot interleave. A process that dies
// holding the mutex abandons it, and the next one takes it over at once.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdio>
#include <memory>
#include <string>

#include "platform/env.h"
#include "support/strings.h"

namespace ferrow {
namespace {

constexpr DWORD kSingleWriteWaitMs = 2000;
constexpr DWORD kReadRetryMs = 25;
constexpr int kReadAttempts = 40;

// Why the last profile write of this thread failed.
thread_local DWORD t_last_write_error = ERROR_SUCCESS;

bool Fail(DWORD error) {
  t_last_write_error = error;
  return false;
}

// One name per configuration file, whatever spelling of its path is used.
std::string MutexName(const std::string& path) {
  char full[MAX_PATH * 4];
  DWORD n = GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
  const std::string key = UpperCase(n > 0 && n < sizeof full ? std::string(full, n) : path);
  unsigned long long hash = 14695981039346656037ull;
  for (char c : key) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
  char name[64];
  std::snprintf(name, sizeof name, "Local\\Ferrow-profile-%016llx", hash);
  return name;
}

// The mutex, held from construction to destruction when held() says so.
class ProfileMutex {
 public:
  ProfileMutex(const std::string& path, DWORD wait_ms) {
    handle_ = CreateMutexA(nullptr, FALSE, MutexName(path).c_str());
    if (!handle_) {
      error_ = GetLastError();
      return;
    }
    const DWORD got = WaitForSingleObject(handle_, wait_ms);
    held_ = got == WAIT_OBJECT_0 || got == WAIT_ABANDONED;  // abandoned: its owner died
    if (!held_) error_ = got == WAIT_TIMEOUT ? ERROR_SUCCESS : GetLastError();
  }
  ~ProfileMutex() {
    if (held_) ReleaseMutex(handle_);
    if (handle_) CloseHandle(handle_);
  }
  ProfileMutex(const ProfileMutex&) = delete;
  ProfileMutex& operator=(const ProfileMutex&) = delete;
  bool held() const { return held_; }
  // Why it is not held: ERROR_SUCCESS when another process held it too long.
  DWORD error() const { return error_; }

 private:
  HANDLE handle_ = nullptr;
  bool held_ = false;
  DWORD error_ = ERROR_SUCCESS;
};

// The file's bytes; a missing file reads as empty. A sharing violation (the
// profile service of a program that does not take the mutex) is waited out.
bool ReadWhole(const std::string& path, std::string& text) {
  text.clear();
  for (int attempt = 0;; ++attempt) {
    HANDLE h = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                           nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE) {
      const DWORD error = GetLastError();
      if (error == ERROR_FILE_NOT_FOUND) return true;
      if ((error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION) &&
          attempt < kReadAttempts) {
        Sleep(kReadRetryMs);
        continue;
      }
      return Fail(error);
    }
    char buffer[65536];
    DWORD got = 0;
    bool ok = true;
    while ((ok = ReadFile(h, buffer, sizeof buffer, &got, nullptr) != 0) && got > 0)
      text.append(buffer, got);
    const DWORD error = ok ? ERROR_SUCCESS : GetLastError();
    CloseHandle(h);
    return ok || Fail(error);
  }
}

bool RawWrite(const char* section, const char* key, const char* value, const std::string& path) {
  // Kept at once: whatever runs between the failure and the question may
  // overwrite the thread's last error.
  if (WritePrivateProfileStringA(section, key, value, path.c_str()) != 0) {
    t_last_write_error = ERROR_SUCCESS;
    return true;
  }
  return Fail(GetLastError());
}

// The profile service's own calls under the mutex; the text is read again
// after a write, when it is next asked for, so it is always the file's.
class WinProfileTransaction : public ProfileTransaction {
 public:
  WinProfileTransaction(std::string path, std::unique_ptr<ProfileMutex> mutex, std::string text)
      : path_(std::move(path)), mutex_(std::move(mutex)), text_(std::move(text)) {}

  const std::string& Text() override {
    if (stale_ && ReadWhole(path_, text_)) stale_ = false;
    return text_;
  }
  bool WriteProfileString(const char* section, const char* key, const char* value) override {
    const bool written = RawWrite(section, key, value, path_);
    stale_ = stale_ || written;
    return written;
  }
  bool Commit() override { return true; }  // each call above has written already

 private:
  std::string path_;
  std::unique_ptr<ProfileMutex> mutex_;
  std::string text_;
  bool stale_ = false;
};

}  // namespace

bool WinWriteProfileString(const char* section, const char* key, const char* value,
                           const std::string& path) {
  ProfileMutex mutex(path, kSingleWriteWaitMs);
  if (!mutex.held()) return Fail(mutex.error());
  return RawWrite(section, key, value, path);
}

std::unique_ptr<ProfileTransaction> WinBeginProfileTransaction(const std::string& path,
                                                               int wait_ms) {
  auto mutex = std::make_unique<ProfileMutex>(path, static_cast<DWORD>(wait_ms < 0 ? 0 : wait_ms));
  if (!mutex->held()) {
    Fail(mutex->error());
    return nullptr;
  }
  std::string text;
  if (!ReadWhole(path, text)) return nullptr;
  return std::make_unique<WinProfileTransaction>(path, std::move(mutex), std::move(text));
}

namespace {
class MutexLock : public FileLock {
 public:
  explicit MutexLock(std::unique_ptr<ProfileMutex> mutex) : mutex_(std::move(mutex)) {}

 private:
  std::unique_ptr<ProfileMutex> mutex_;
};
}  // namespace

std::unique_ptr<FileLock> WinLockProfile(const std::string& path, int wait_ms) {
  if (GetFileAttributesA(path.c_str()) == INVALID_FILE_ATTRIBUTES) return nullptr;
  auto mutex = std::make_unique<ProfileMutex>(path, static_cast<DWORD>(wait_ms < 0 ? 0 : wait_ms));
  if (!mutex->held()) return nullptr;
  return std::make_unique<MutexLock>(std::move(mutex));
}

bool WinFailureIsPermanent(DWORD error) {
  // Only what waiting can mend is retried: the mutex or a sharing lock held
  // elsewhere. A vanished folder or drive, an I/O error, a permission, a
  // full disk and the rest never pass.
  switch (error) {
    case ERROR_SUCCESS:  // the mutex held too long by another process
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_BUSY:
    case ERROR_TOO_MANY_OPEN_FILES:
      return false;
    default:
      return true;
  }
}

bool WinLastWriteFailureIsPermanent() { return WinFailureIsPermanent(t_last_write_error); }

}  // namespace ferrow
