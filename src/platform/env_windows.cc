// Env for Windows: the real Win32 calls, ANSI ("A") variants throughout since
// the program works in the ANSI code page.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <objbase.h>
#include <io.h>
#include <share.h>

#include <cstdlib>
#include <cstring>

#include "platform/env.h"
#include "support/paths.h"

namespace ferrow {

bool WinWriteProfileString(const char* section, const char* key, const char* value,
                           const std::string& path);
bool WinLastWriteFailureIsPermanent();
bool WinFailureIsPermanent(DWORD error);
std::unique_ptr<ProfileTransaction> WinBeginProfileTransaction(const std::string& path,
                                                               int wait_ms);
std::unique_ptr<FileLock> WinLockProfile(const std::string& path, int wait_ms);

namespace {

// Reading never stands in a writer's way: the writer may go on appending,
// truncate the log, or delete and rotate it while we hold the handle.
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class WinSharedFile : public SharedFile {
 public:
  explicit WinSharedFile(HANDLE h) : h_(h) {}
  ~WinSharedFile() override { CloseHandle(h_); }
  bool Seek(int64_t offset) override {
    LARGE_INTEGER to;
    to.QuadPart = offset;
    return SetFilePointerEx(h_, to, nullptr, FILE_BEGIN) != 0;
  }
  int64_t Read(char* buffer, int64_t size) override {
    DWORD got = 0;
    if (!ReadFile(h_, buffer, static_cast<DWORD>(size), &got, nullptr)) return -1;
    return got;
  }

 private:
  HANDLE h_;
};

class MutexClaim : public InstanceClaim {
 public:
  explicit MutexClaim(HANDLE h) : h_(h) {}
  ~MutexClaim() override {
    if (h_) CloseHandle(h_);
  }

 private:
  HANDLE h_;
};

// The command line in the ANSI code page, a character it cannot hold as "?"
// (which names no file) rather than a best-fit look-alike (which could name
// another one), unlike GetCommandLineA.
std::string AnsiCommandLine() {
  const wchar_t* wide = GetCommandLineW();
  const int n = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide, -1, nullptr, 0, "?", nullptr);
  if (n <= 0) return GetCommandLineA();
  std::string line(static_cast<size_t>(n), '\0');
  WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide, -1, line.data(), n, "?", nullptr);
  line.resize(static_cast<size_t>(n) - 1);
  return line;
}

SYSTEMTIME ToSystemTime(const std::tm& when) {
  SYSTEMTIME st{};
  st.wYear = static_cast<WORD>(when.tm_year + 1900);
  st.wMonth = static_cast<WORD>(when.tm_mon + 1);
  st.wDayOfWeek = static_cast<WORD>(when.tm_wday);
  st.wDay = static_cast<WORD>(when.tm_mday);
  st.wHour = static_cast<WORD>(when.tm_hour);
  st.wMinute = static_cast<WORD>(when.tm_min);
  st.wSecond = static_cast<WORD>(when.tm_sec);
  return st;
}

std::string Date(const std::tm& when, DWORD flags) {
  SYSTEMTIME st = ToSystemTime(when);
  char buffer[128] = {};
  int n = GetDateFormatA(LOCALE_USER_DEFAULT, flags, &st, nullptr, buffer, sizeof buffer);
  return n > 0 ? std::string(buffer) : std::string();
}

// Why the last OpenStream of this thread failed.
thread_local DWORD t_last_open_error = ERROR_SUCCESS;

class WindowsEnv : public Env {
 public:
  std::optional<int64_t> FileLength(const std::string& path) override {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
    return (static_cast<int64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
  }

  std::unique_ptr<SharedFile> OpenShared(const std::string& path) override {
    HANDLE h = CreateFileA(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE) return nullptr;
    if (GetFileType(h) != FILE_TYPE_DISK) {  // a pipe or a device such as CON
      CloseHandle(h);
      return nullptr;
    }
    return std::make_unique<WinSharedFile>(h);
  }

  bool IsRegularFile(const std::string& path) override {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           !(attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE));
  }

  std::FILE* OpenStream(const std::string& path, const char* mode) override {
    SetLastError(ERROR_SUCCESS);
    std::FILE* stream = _fsopen(path.c_str(), mode, _SH_DENYNO);
    t_last_open_error = stream ? ERROR_SUCCESS : GetLastError();
    return stream;
  }
  bool LastOpenFailureIsPermanent() override {
    // A file missing from a folder that is there may be put in place yet
    // (ERROR_PATH_NOT_FOUND, a folder gone, is for good). A failure the C
    // library made without asking the OS (a bad mode) does not pass either.
    if (t_last_open_error == ERROR_FILE_NOT_FOUND) return false;
    return t_last_open_error == ERROR_SUCCESS || WinFailureIsPermanent(t_last_open_error);
  }

  // Not std::filesystem: it reads and writes narrow names in other encodings.
  std::string FullPath(const std::string& path) override {
    if (path.empty()) return path;
    std::string full(MAX_PATH, '\0');
    DWORD n = GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (n >= full.size()) {
      full.assign(n + 1, '\0');
      n = GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    }
    if (n == 0 || n >= full.size()) return path;
    full.resize(n);
    return full;
  }

  bool FindFirstMatch(const std::string& pattern) override {
    WIN32_FIND_DATAA data;
    HANDLE h = FindFirstFileA(pattern.c_str(), &data);
    if (h == INVALID_HANDLE_VALUE) return false;
    FindClose(h);
    return true;
  }

  std::vector<std::string> FindMatches(const std::string& pattern) override {
    std::vector<std::string> names;
    WIN32_FIND_DATAA data;
    HANDLE h = FindFirstFileA(pattern.c_str(), &data);
    if (h == INVALID_HANDLE_VALUE) return names;
    do {
      const std::string name = data.cFileName;
      if (name != "." && name != "..") names.push_back(name);
    } while (FindNextFileA(h, &data));
    FindClose(h);
    return names;
  }

  bool WriteProfileString(const char* section, const char* key, const char* value,
                          const std::string& path) override {
    return WinWriteProfileString(section, key, value, path);
  }
  bool LastWriteFailureIsPermanent() override { return WinLastWriteFailureIsPermanent(); }
  std::unique_ptr<ProfileTransaction> BeginProfileTransaction(const std::string& path,
                                                              int wait_ms) override {
    return WinBeginProfileTransaction(path, wait_ms);
  }

  int RemoveFile(const std::string& path) override {
    return DeleteFileA(path.c_str()) ? 0 : static_cast<int>(GetLastError());
  }

  bool CopyWholeFile(const std::string& from, const std::string& to) override {
    return CopyFileA(from.c_str(), to.c_str(), FALSE) != 0;
  }

  bool RenameFile(const std::string& from, const std::string& to) override {
    return MoveFileA(from.c_str(), to.c_str()) != 0;
  }

  bool ReplaceWithFile(const std::string& from, const std::string& to) override {
    return MoveFileExA(from.c_str(), to.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  }

  bool SyncStream(std::FILE* stream) override {
    return std::fflush(stream) == 0 && _commit(_fileno(stream)) == 0;
  }

  bool IsFolder(const std::string& path) override {
    DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
  }

  bool IsFolderWritable(const std::string& folder) override {
    if (!IsFolder(folder)) return false;
    char name[MAX_PATH];
    if (!GetTempFileNameA(folder.c_str(), "frw", 0, name)) return false;
    DeleteFileA(name);
    return true;
  }

  bool CreateFolders(const std::string& folder) override {
    for (size_t i = 1; i <= folder.size(); ++i) {
      if (i < folder.size() && !IsSlash(folder[i])) continue;
      std::string part = folder.substr(0, i);
      if (part.size() == 2 && part[1] == ':') continue;
      CreateDirectoryA(part.c_str(), nullptr);
    }
    return IsFolder(folder);
  }

  std::unique_ptr<FileLock> LockProfile(const std::string& path, int wait_ms) override {
    return WinLockProfile(path, wait_ms);
  }

  void SleepMs(int ms) override { Sleep(static_cast<DWORD>(ms)); }
  std::time_t Now() override { return std::time(nullptr); }

  std::string SystemDateSeparator() override {
    char buffer[8] = {};
    int n = GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDATE, buffer, sizeof buffer);
    return n > 1 ? std::string(buffer) : std::string("/");
  }
  std::string SystemShortDate(const std::tm& when) override { return Date(when, DATE_SHORTDATE); }
  std::string SystemLongDate(const std::tm& when) override { return Date(when, DATE_LONGDATE); }
  std::string SystemLongTime(const std::tm& when) override {
    SYSTEMTIME st = ToSystemTime(when);
    char buffer[128] = {};
    int n = GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &st, nullptr, buffer, sizeof buffer);
    std::string text = n > 0 ? std::string(buffer) : std::string();
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
  }

  std::unique_ptr<InstanceClaim> ClaimInstance(const std::string& name,
                                               bool& another_running) override {
    HANDLE mutex = CreateMutexA(nullptr, FALSE, ("Local\\" + name).c_str());
    another_running = mutex != nullptr && GetLastError() == ERROR_ALREADY_EXISTS;
    return std::make_unique<MutexClaim>(mutex);
  }

  void LetEventsRun() override {
    if (events_hook_) events_hook_();
  }
  void SetEventsHook(std::function<void()> hook) override { events_hook_ = std::move(hook); }

  int OsMajorVersion() override {
    // GetVersionEx lies to programs without a manifest; ntdll does not.
    using RtlGetVersionFn = LONG(WINAPI*)(OSVERSIONINFOW*);
    HMODULE ntdll = GetModuleHandleA("ntdll.dll");
    auto fn = ntdll ? reinterpret_cast<RtlGetVersionFn>(
                          reinterpret_cast<void*>(GetProcAddress(ntdll, "RtlGetVersion")))
                    : nullptr;
    OSVERSIONINFOW info;
    std::memset(&info, 0, sizeof info);
    info.dwOSVersionInfoSize = sizeof info;
    if (fn && fn(&info) == 0) return static_cast<int>(info.dwMajorVersion);
    return 0;
  }

  std::string ProgramPath() override {
    char buffer[MAX_PATH * 4];
    DWORD n = GetModuleFileNameA(nullptr, buffer, sizeof buffer);
    return std::string(buffer, n);
  }

  std::string UserConfigFolder() override {
    std::string appdata = GetEnvVar("APPDATA");
    return appdata.empty() ? std::string() : JoinPath(appdata, "Ferrow");
  }

  void* OpenLibrary(const std::string& path) override {
    return reinterpret_cast<void*>(LoadLibraryA(path.c_str()));
  }
  void* LibrarySymbol(void* library, const char* name) override {
    return library ? reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name))
                   : nullptr;
  }
  void FreeLibraryString(char* text) override { CoTaskMemFree(text); }

  std::optional<std::string> RawCommandTail() override {
    const std::string line = AnsiCommandLine();
    const char* p = line.c_str();
    if (*p == '"') {
      for (++p; *p && *p != '"'; ++p) {
      }
      if (*p) ++p;
    } else {
      while (*p && *p != ' ' && *p != '\t') ++p;
    }
    while (*p == ' ' || *p == '\t') ++p;
    return std::string(p);
  }

  bool FileTextIsUtf8() override { return false; }

  std::string AnsiToUtf8(const std::string& bytes) override {
    if (bytes.empty()) return {};
    const int size = static_cast<int>(bytes.size());
    int wide_size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<size_t>(wide_size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, &wide[0], wide_size);
    int utf8_size = WideCharToMultiByte(CP_UTF8, 0, wide.data(), wide_size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<size_t>(utf8_size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), wide_size, &utf8[0], utf8_size, nullptr, nullptr);
    return utf8;
  }

  std::string GetEnvVar(const std::string& name) override {
    char buffer[32768];
    DWORD n = GetEnvironmentVariableA(name.c_str(), buffer, sizeof buffer);
    return n > 0 && n < sizeof buffer ? std::string(buffer, n) : std::string();
  }

 private:
  std::function<void()> events_hook_;
};

}  // namespace

Env* Env::Default() {
  static WindowsEnv* env = new WindowsEnv;
  return env;
}

}  // namespace ferrow
