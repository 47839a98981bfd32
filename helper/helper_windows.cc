#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#include <objbase.h>
#include <shlobj.h>

#include <cstring>
#include <string>

#include "ferrow_helper.h"
#include "helper_platform.h"

namespace ferrow::helper {
namespace {

std::wstring Wide(const std::string& text, UINT code_page) {
  int n = MultiByteToWideChar(code_page, 0, text.c_str(), -1, nullptr, 0);
  std::wstring out(n > 0 ? static_cast<size_t>(n) : 1, L'\0');
  if (n > 0) MultiByteToWideChar(code_page, 0, text.c_str(), -1, &out[0], n);
  out.resize(out.size() - 1);
  return out;
}

// "" when the code page cannot hold every character as it is: a "?" or a
// best-fit look-alike could name another file.
std::string Ansi(const std::wstring& text) {
  BOOL lost = FALSE;
  int n = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.c_str(), -1, nullptr, 0, nullptr, &lost);
  if (n <= 0 || lost) return "";
  std::string out(static_cast<size_t>(n), '\0');
  WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.c_str(), -1, &out[0], n, nullptr, &lost);
  out.resize(out.size() - 1);
  return lost || Wide(out, CP_ACP) != text ? "" : out;
}

// COM for the length of one call, on whatever thread calls us. The shell
// link object works in either apartment; a single-threaded one would need a
// window of its own, and on Wine a window needs the desktop's process,
// which a program without windows then starts, and which outlives it.
// (A thread already in a single-threaded apartment keeps it: the call works
// there as well.)
class ComScope {
 public:
  ComScope() : hr_(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
  ~ComScope() {
    if (SUCCEEDED(hr_)) CoUninitialize();
  }

 private:
  HRESULT hr_;
};

}  // namespace

char* AllocString(const std::string& text) {
  char* copy = static_cast<char*>(CoTaskMemAlloc(text.size() + 1));
  if (copy) std::memcpy(copy, text.c_str(), text.size() + 1);
  return copy;
}

std::string LibraryPath() {
  HMODULE self = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCSTR>(&DLLVersion), &self);
  char path[MAX_PATH * 4];
  DWORD n = GetModuleFileNameA(self, path, sizeof path);
  return std::string(path, n);
}

std::string DesktopFolder() {
  char path[MAX_PATH] = {};
  if (FAILED(SHGetFolderPathA(nullptr, CSIDL_DESKTOPDIRECTORY, nullptr, 0, path))) return "";
  return path;
}

bool MakeShortcut(const std::string& target, const std::string& link,
                  const std::string& description, int show_command) {
  ComScope com;
  IShellLinkA* shell_link = nullptr;
  if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                              reinterpret_cast<void**>(&shell_link))))
    return false;
  shell_link->SetPath(target.c_str());
  size_t slash = target.find_last_of("\\/");
  if (slash != std::string::npos) shell_link->SetWorkingDirectory(target.substr(0, slash).c_str());
  if (!description.empty()) shell_link->SetDescription(description.c_str());
  shell_link->SetShowCmd(show_command);
  IPersistFile* file = nullptr;
  bool ok = SUCCEEDED(shell_link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file)));
  if (ok) {
    ok = SUCCEEDED(file->Save(Wide(link, CP_ACP).c_str(), TRUE));
    file->Release();
  }
  shell_link->Release();
  return ok;
}

std::string SystemText(const lnk::LinkTarget& target) {
  return target.path_is_utf8 ? Ansi(Wide(target.path, CP_UTF8)) : target.path;
}

}  // namespace ferrow::helper
