// The few operating-system services the program needs, behind one interface so
// that the core never calls the OS directly and tests can substitute fakes.
// One implementation per OS: env_posix.cc and env_windows.cc (chosen by CMake).
#pragma once

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ferrow {

// A file opened for reading while other processes keep writing, truncating or
// renaming it. Closed when destroyed.
class SharedFile {
 public:
  virtual ~SharedFile() = default;
  virtual bool Seek(int64_t offset) = 0;
  // Reads up to `size` bytes; returns the count read, or -1 on error.
  virtual int64_t Read(char* buffer, int64_t size) = 0;
};

// An exclusive lock between processes; released when destroyed (or when the
// holding process dies).
class FileLock {
 public:
  virtual ~FileLock() = default;
};

// Proof that this process has announced itself as a running instance of the
// program; held until the process ends.
class InstanceClaim {
 public:
  virtual ~InstanceClaim() = default;
};

// One read-modify-write of a profile file that no profile write of another
// process of the program interleaves with. Destroying it ends it; on POSIX
// writes not committed by then are dropped.
class ProfileTransaction {
 public:
  virtual ~ProfileTransaction() = default;
  // The file's bytes as this transaction sees them: as they were when it
  // began, with its own writes applied ("" for a file that does not exist).
  virtual const std::string& Text() = 0;
  // Env::WriteProfileString within the transaction; after a failure,
  // Env::LastWriteFailureIsPermanent tells whether waiting can mend it.
  virtual bool WriteProfileString(const char* section, const char* key, const char* value) = 0;
  // Makes the writes the file's, in one step where the platform can.
  virtual bool Commit() = 0;
};

class Env {
 public:
  virtual ~Env() = default;

  // The process-wide environment of the running OS.
  static Env* Default();

  // Length of the named file, or nothing when it cannot be asked.
  virtual std::optional<int64_t> FileLength(const std::string& path) = 0;

  // `path` made absolute and tidied ("." and ".." resolved), in the encoding
  // it came in (on Windows the ANSI code page); unchanged when that fails.
  virtual std::string FullPath(const std::string& path) = 0;

  // Opens a regular file for reading without ever blocking a writer (nullptr
  // on failure). Anything else (a FIFO, a device) is refused without waiting
  // for a writer to appear.
  virtual std::unique_ptr<SharedFile> OpenShared(const std::string& path) = 0;

  // True when `path` names a regular file (not a folder, FIFO or device).
  virtual bool IsRegularFile(const std::string& path) = 0;

  // A C stream for the numbered-file layer; `mode` is an fopen mode. Other
  // processes may read and write the file while it is open.
  virtual std::FILE* OpenStream(const std::string& path, const char* mode) = 0;

  // True when a directory entry matches `pattern`, in the manner of a
  // first-match directory search: "*" and "?" in the last component are
  // wildcards, and a last component of "nul" names the null device, which
  // exists in every existing folder.
  virtual bool FindFirstMatch(const std::string& pattern) = 0;
  // The names (last components only) of every directory entry that matches
  // `pattern` as FindFirstMatch matches it; "." and ".." never.
  virtual std::vector<std::string> FindMatches(const std::string& pattern) = 0;

  // The profile writer. A null key deletes the section, a null value deletes
  // the key. Returns false when the write could not be done now.
  virtual bool WriteProfileString(const char* section, const char* key, const char* value,
                                  const std::string& path) = 0;
  // After WriteProfileString failed on this thread: true when waiting cannot
  // mend the failure (permission denied, read-only file system, disk full),
  // false when it may pass (a sharing violation, a lock held elsewhere).
  virtual bool LastWriteFailureIsPermanent() = 0;

  // Begins a transaction on the profile file `path`, waiting up to `wait_ms`
  // while another process holds one (nullptr when it could not begin; then
  // LastWriteFailureIsPermanent tells why). On POSIX it holds the lock the
  // profile writer takes; on Windows a mutex per file that every profile
  // write of the program takes.
  virtual std::unique_ptr<ProfileTransaction> BeginProfileTransaction(const std::string& path,
                                                                      int wait_ms) = 0;

  // After OpenStream failed on this thread: true when waiting cannot mend
  // the failure (a missing file or folder, permission denied, an I/O error),
  // false when it may pass (a sharing violation).
  virtual bool LastOpenFailureIsPermanent() = 0;

  // 0 on success, like the C library's unlink.
  virtual int RemoveFile(const std::string& path) = 0;
  virtual bool CopyWholeFile(const std::string& from, const std::string& to) = 0;
  // Renames, replacing nothing: fails when `to` exists.
  virtual bool RenameFile(const std::string& from, const std::string& to) = 0;
  // Puts the file `from` in the place of `to` in one step, so that a reader
  // (or a crash) finds either the old `to` or all of `from`. `to` keeps its
  // permissions, and when it is a symbolic link the link stays and its
  // target is replaced.
  virtual bool ReplaceWithFile(const std::string& from, const std::string& to) = 0;
  // Writes out what `stream` buffers and waits until the device holds it.
  virtual bool SyncStream(std::FILE* stream) = 0;
  virtual bool IsFolder(const std::string& path) = 0;
  virtual bool IsFolderWritable(const std::string& folder) = 0;
  virtual bool CreateFolders(const std::string& folder) = 0;

  // Holds the lock the profile writer takes on `path`, so that a rewrite of
  // the file in place cannot interleave with a profile write (nullptr when it
  // could not be had within `wait_ms`).
  virtual std::unique_ptr<FileLock> LockProfile(const std::string& path, int wait_ms) = 0;

  virtual void SleepMs(int ms) = 0;
  virtual std::time_t Now() = 0;

  // Dates and times as the user's locale writes them.
  virtual std::string SystemDateSeparator() = 0;
  virtual std::string SystemShortDate(const std::tm& when) = 0;
  virtual std::string SystemLongDate(const std::tm& when) = 0;
  virtual std::string SystemLongTime(const std::tm& when) = 0;

  // Announces this process as an instance of the program called `name`;
  // `another_running` tells whether an instance was running already. The
  // claim lapses when the process ends, however it ends.
  virtual std::unique_ptr<InstanceClaim> ClaimInstance(const std::string& name,
                                                       bool& another_running) = 0;

  // Lets pending window events run; the window layer installs the hook.
  virtual void LetEventsRun() = 0;
  virtual void SetEventsHook(std::function<void()> hook) = 0;

  // The OS major version on Windows, 0 elsewhere.
  virtual int OsMajorVersion() = 0;

  // Full path of the running program file.
  virtual std::string ProgramPath() = 0;

  // The per-user configuration folder ($XDG_CONFIG_HOME/ferrow, %APPDATA%\Ferrow).
  virtual std::string UserConfigFolder() = 0;

  virtual std::string GetEnvVar(const std::string& name) = 0;

  // Shared libraries and their functions: nullptr when missing.
  virtual void* OpenLibrary(const std::string& path) = 0;
  virtual void* LibrarySymbol(void* library, const char* name) = 0;
  // Frees a string a shared library handed over (CoTaskMemFree / free).
  virtual void FreeLibraryString(char* text) = 0;

  // How the followed file's bytes become text: UTF-8 as they are (POSIX), or
  // the ANSI code page, one character per byte, converted to UTF-8 (Windows).
  virtual bool FileTextIsUtf8() = 0;
  virtual std::string AnsiToUtf8(const std::string& bytes) = 0;

  // The process's own command line after the program's name, where the OS
  // keeps one (Windows); nothing elsewhere, where it is rebuilt from argv.
  virtual std::optional<std::string> RawCommandTail() = 0;
};

// Forwards every call to another Env; tests derive from it and override the
// few calls they want to watch or bend.
class EnvWrapper : public Env {
 public:
  explicit EnvWrapper(Env* target) : target_(target) {}

  std::optional<int64_t> FileLength(const std::string& p) override { return target_->FileLength(p); }
  std::string FullPath(const std::string& p) override { return target_->FullPath(p); }
  std::unique_ptr<SharedFile> OpenShared(const std::string& p) override {
    return target_->OpenShared(p);
  }
  bool IsRegularFile(const std::string& p) override { return target_->IsRegularFile(p); }
  std::FILE* OpenStream(const std::string& p, const char* m) override {
    return target_->OpenStream(p, m);
  }
  bool FindFirstMatch(const std::string& p) override { return target_->FindFirstMatch(p); }
  std::vector<std::string> FindMatches(const std::string& p) override {
    return target_->FindMatches(p);
  }
  bool WriteProfileString(const char* s, const char* k, const char* v,
                          const std::string& p) override {
    return target_->WriteProfileString(s, k, v, p);
  }
  bool LastWriteFailureIsPermanent() override { return target_->LastWriteFailureIsPermanent(); }
  std::unique_ptr<ProfileTransaction> BeginProfileTransaction(const std::string& p,
                                                              int w) override {
    return target_->BeginProfileTransaction(p, w);
  }
  bool LastOpenFailureIsPermanent() override { return target_->LastOpenFailureIsPermanent(); }
  int RemoveFile(const std::string& p) override { return target_->RemoveFile(p); }
  bool CopyWholeFile(const std::string& f, const std::string& t) override {
    return target_->CopyWholeFile(f, t);
  }
  bool RenameFile(const std::string& f, const std::string& t) override {
    return target_->RenameFile(f, t);
  }
  bool ReplaceWithFile(const std::string& f, const std::string& t) override {
    return target_->ReplaceWithFile(f, t);
  }
  bool SyncStream(std::FILE* s) override { return target_->SyncStream(s); }
  bool IsFolder(const std::string& p) override { return target_->IsFolder(p); }
  bool IsFolderWritable(const std::string& f) override { return target_->IsFolderWritable(f); }
  bool CreateFolders(const std::string& f) override { return target_->CreateFolders(f); }
  std::unique_ptr<FileLock> LockProfile(const std::string& p, int w) override {
    return target_->LockProfile(p, w);
  }
  void SleepMs(int ms) override { target_->SleepMs(ms); }
  std::time_t Now() override { return target_->Now(); }
  std::string SystemDateSeparator() override { return target_->SystemDateSeparator(); }
  std::string SystemShortDate(const std::tm& w) override { return target_->SystemShortDate(w); }
  std::string SystemLongDate(const std::tm& w) override { return target_->SystemLongDate(w); }
  std::string SystemLongTime(const std::tm& w) override { return target_->SystemLongTime(w); }
  std::unique_ptr<InstanceClaim> ClaimInstance(const std::string& n, bool& a) override {
    return target_->ClaimInstance(n, a);
  }
  void LetEventsRun() override { target_->LetEventsRun(); }
  void SetEventsHook(std::function<void()> h) override { target_->SetEventsHook(std::move(h)); }
  int OsMajorVersion() override { return target_->OsMajorVersion(); }
  std::string ProgramPath() override { return target_->ProgramPath(); }
  std::string UserConfigFolder() override { return target_->UserConfigFolder(); }
  std::string GetEnvVar(const std::string& n) override { return target_->GetEnvVar(n); }
  void* OpenLibrary(const std::string& p) override { return target_->OpenLibrary(p); }
  void* LibrarySymbol(void* l, const char* n) override { return target_->LibrarySymbol(l, n); }
  void FreeLibraryString(char* t) override { target_->FreeLibraryString(t); }
  std::optional<std::string> RawCommandTail() override { return target_->RawCommandTail(); }
  bool FileTextIsUtf8() override { return target_->FileTextIsUtf8(); }
  std::string AnsiToUtf8(const std::string& b) override { return target_->AnsiToUtf8(b); }

 private:
  Env* target_;
};

}  // namespace ferrow
