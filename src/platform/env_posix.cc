// Env for Linux and other POSIX systems. Paths may use "\" or "/"; they are
// handed to the OS with "/".
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "platform/env.h"
#include "platform/posix_lock.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

bool PosixWriteProfileString(const char* section, const char* key, const char* value,
                             const std::string& path);
bool PosixLastWriteFailureIsPermanent();
bool PosixFailureIsPermanent(int error);
std::unique_ptr<ProfileTransaction> PosixBeginProfileTransaction(const std::string& path,
                                                                 int wait_ms);
std::string PosixShortDate(const std::tm& when);
std::string PosixLongDate(const std::tm& when);
std::string PosixLongTime(const std::tm& when);
std::string PosixDateSeparator();
std::unique_ptr<InstanceClaim> PosixClaimInstance(const std::string& name, bool& another_running);

namespace {

// Whether the last OpenStream of this thread failed for good.
thread_local bool t_open_failure_permanent = false;

class PosixSharedFile : public SharedFile {
 public:
  explicit PosixSharedFile(int fd) : fd_(fd) {}
  ~PosixSharedFile() override { ::close(fd_); }
  bool Seek(int64_t offset) override { return ::lseek(fd_, offset, SEEK_SET) >= 0; }
  int64_t Read(char* buffer, int64_t size) override {
    for (;;) {
      ssize_t n = ::read(fd_, buffer, static_cast<size_t>(size));
      if (n < 0 && errno == EINTR) continue;
      return n;
    }
  }

 private:
  int fd_;
};

// Folder and last component of a "/" path; the folder of a bare name is ".".
void SplitLast(const std::string& path, std::string& folder, std::string& leaf) {
  size_t slash = path.rfind('/');
  if (slash == std::string::npos) {
    folder = ".";
    leaf = path;
  } else {
    folder = slash == 0 ? "/" : path.substr(0, slash);
    leaf = path.substr(slash + 1);
  }
}

// Entries of `folder` matching `leaf`, "." and ".." aside.
std::vector<std::string> EntriesMatching(const std::string& folder, std::string leaf) {
  if (leaf == "*.*") leaf = "*";
  std::vector<std::string> names;
  DIR* dir = ::opendir(folder.c_str());
  if (!dir) return names;
  for (;;) {
    dirent* entry = ::readdir(dir);
    if (!entry) break;
    const std::string name = entry->d_name;
    if (name != "." && name != ".." && ::fnmatch(leaf.c_str(), name.c_str(), FNM_NOESCAPE) == 0)
      names.push_back(name);
  }
  ::closedir(dir);
  return names;
}

bool AnyEntryMatches(const std::string& folder, std::string leaf) {
  // "*.*" is the DOS spelling of "every name", dotted or not. Case counts, as
  // it does for every other name on this file system.
  if (leaf == "*.*") leaf = "*";
  DIR* dir = ::opendir(folder.c_str());
  if (!dir) return false;
  bool found = false;
  while (!found) {
    dirent* entry = ::readdir(dir);
    if (!entry) break;
    found = ::fnmatch(leaf.c_str(), entry->d_name, FNM_NOESCAPE) == 0;
  }
  ::closedir(dir);
  return found;
}

class PosixEnv : public Env {
 public:
  std::optional<int64_t> FileLength(const std::string& path) override {
    struct stat info {};
    if (::stat(PosixPath(path).c_str(), &info) != 0) return std::nullopt;
    return static_cast<int64_t>(info.st_size);
  }

  std::string FullPath(const std::string& path) override { return ferrow::FullPath(path); }

  std::unique_ptr<SharedFile> OpenShared(const std::string& path) override {
    // Without O_NONBLOCK opening a FIFO would wait for a writer for ever.
    int fd = ::open(PosixPath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return nullptr;
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode) ||
        ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK) != 0) {
      ::close(fd);
      return nullptr;
    }
    return std::make_unique<PosixSharedFile>(fd);
  }

  bool IsRegularFile(const std::string& path) override {
    struct stat info {};
    return ::stat(PosixPath(path).c_str(), &info) == 0 && S_ISREG(info.st_mode);
  }

  std::FILE* OpenStream(const std::string& path, const char* mode) override {
    const std::string native = PosixPath(path);
    std::FILE* stream = std::fopen(native.c_str(), mode);
    const int error = stream ? 0 : errno;
    // A file missing from a folder that is there may be put in place yet; a
    // missing folder (a drive pulled out) will not come back while we wait.
    std::string folder, leaf;
    SplitLast(native, folder, leaf);
    t_open_failure_permanent =
        error == ENOENT ? !IsFolder(folder) : PosixFailureIsPermanent(error);
    return stream;
  }
  bool LastOpenFailureIsPermanent() override { return t_open_failure_permanent; }

  bool FindFirstMatch(const std::string& pattern) override {
    std::string folder, leaf, native = PosixPath(pattern);
    SplitLast(native, folder, leaf);
    if (EqualsNoCase(leaf, "nul")) return IsFolder(folder);
    if (leaf.find_first_of("*?") != std::string::npos) return AnyEntryMatches(folder, leaf);
    struct stat info {};
    return ::stat(native.c_str(), &info) == 0;
  }

  std::vector<std::string> FindMatches(const std::string& pattern) override {
    std::string folder, leaf;
    SplitLast(PosixPath(pattern), folder, leaf);
    return EntriesMatching(folder, leaf);
  }

  bool WriteProfileString(const char* section, const char* key, const char* value,
                          const std::string& path) override {
    return PosixWriteProfileString(section, key, value, path);
  }
  bool LastWriteFailureIsPermanent() override { return PosixLastWriteFailureIsPermanent(); }
  std::unique_ptr<ProfileTransaction> BeginProfileTransaction(const std::string& path,
                                                              int wait_ms) override {
    return PosixBeginProfileTransaction(path, wait_ms);
  }

  int RemoveFile(const std::string& path) override {
    return ::unlink(PosixPath(path).c_str()) == 0 ? 0 : errno;
  }

  bool CopyWholeFile(const std::string& from, const std::string& to) override {
    std::FILE* in = std::fopen(PosixPath(from).c_str(), "rb");
    if (!in) return false;
    std::FILE* out = std::fopen(PosixPath(to).c_str(), "wb");
    bool ok = out != nullptr;
    char buffer[65536];
    while (ok) {
      size_t n = std::fread(buffer, 1, sizeof buffer, in);
      if (n == 0) break;
      ok = std::fwrite(buffer, 1, n, out) == n;
    }
    ok = ok && !std::ferror(in);
    std::fclose(in);
    if (out) ok = (std::fclose(out) == 0) && ok;
    return ok;
  }

  bool RenameFile(const std::string& from, const std::string& to) override {
    struct stat info {};
    if (::lstat(PosixPath(to).c_str(), &info) == 0) return false;
    return ::rename(PosixPath(from).c_str(), PosixPath(to).c_str()) == 0;
  }

  bool ReplaceWithFile(const std::string& from, const std::string& to) override {
    std::string place = PosixPath(to);
    if (char* resolved = ::realpath(place.c_str(), nullptr)) {
      place = resolved;
      std::free(resolved);
    }
    struct stat info {};
    if (::stat(place.c_str(), &info) == 0 &&
        ::chmod(PosixPath(from).c_str(), info.st_mode & 07777) != 0)
      return false;
    return ::rename(PosixPath(from).c_str(), place.c_str()) == 0;
  }

  bool SyncStream(std::FILE* stream) override {
    return std::fflush(stream) == 0 && ::fsync(::fileno(stream)) == 0;
  }

  bool IsFolder(const std::string& path) override {
    struct stat info {};
    return ::stat(PosixPath(path).c_str(), &info) == 0 && S_ISDIR(info.st_mode);
  }

  bool IsFolderWritable(const std::string& folder) override {
    return IsFolder(folder) && ::access(PosixPath(folder).c_str(), W_OK | X_OK) == 0;
  }

  bool CreateFolders(const std::string& folder) override {
    std::string native = PosixPath(folder);
    for (size_t i = 1; i <= native.size(); ++i) {
      if (i < native.size() && native[i] != '/') continue;
      std::string part = native.substr(0, i);
      if (::mkdir(part.c_str(), 0777) != 0 && errno != EEXIST) return false;
    }
    return IsFolder(folder);
  }

  std::unique_ptr<FileLock> LockProfile(const std::string& path, int wait_ms) override {
    return LockPathExclusive(path, /*create=*/false, wait_ms);
  }

  void SleepMs(int ms) override { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }
  std::time_t Now() override { return std::time(nullptr); }

  std::string SystemDateSeparator() override { return PosixDateSeparator(); }
  std::string SystemShortDate(const std::tm& when) override { return PosixShortDate(when); }
  std::string SystemLongDate(const std::tm& when) override { return PosixLongDate(when); }
  std::string SystemLongTime(const std::tm& when) override { return PosixLongTime(when); }

  std::unique_ptr<InstanceClaim> ClaimInstance(const std::string& name,
                                               bool& another_running) override {
    return PosixClaimInstance(name, another_running);
  }

  void LetEventsRun() override {
    if (events_hook_) events_hook_();
  }
  void SetEventsHook(std::function<void()> hook) override { events_hook_ = std::move(hook); }

  int OsMajorVersion() override { return 0; }

  std::string ProgramPath() override {
    char buffer[4096];
    ssize_t n = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    return n > 0 ? std::string(buffer, static_cast<size_t>(n)) : std::string();
  }

  std::string UserConfigFolder() override {
    std::string base = GetEnvVar("XDG_CONFIG_HOME");
    if (base.empty()) {
      std::string home = GetEnvVar("HOME");
      if (home.empty()) return {};
      base = home + "/.config";
    }
    return JoinPath(base, "ferrow");
  }

  std::string GetEnvVar(const std::string& name) override {
    const char* value = std::getenv(name.c_str());
    return value ? value : "";
  }

  void* OpenLibrary(const std::string& path) override {
    return ::dlopen(PosixPath(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  }
  void* LibrarySymbol(void* library, const char* name) override {
    return library ? ::dlsym(library, name) : nullptr;
  }
  void FreeLibraryString(char* text) override { std::free(text); }
  std::optional<std::string> RawCommandTail() override { return std::nullopt; }
  bool FileTextIsUtf8() override { return true; }
  std::string AnsiToUtf8(const std::string& bytes) override { return bytes; }

 private:
  std::function<void()> events_hook_;
};

}  // namespace

Env* Env::Default() {
  static PosixEnv* env = new PosixEnv;  // never destroyed: used until the process ends
  return env;
}

}  // namespace ferrow
