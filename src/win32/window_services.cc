#include "win32/window_services.h"

#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "about/product.h"
#include "control/window_gate.h"
#include "win32/ansi_text.h"

namespace ferrow::win32 {
namespace {

std::string Title(const std::string& title) {
  return ToAnsi(title.empty() ? std::string(kProductName) : title);
}

// The window the user asked from (the settings dialog for its sound, the
// control window for a log), so that the dialog stays above it and keeps it
// disabled while it is up; the control window when none of ours is active.
HWND DialogOwner(HWND fallback) {
  HWND active = GetActiveWindow();
  DWORD process = 0;
  if (active && GetWindowThreadProcessId(active, &process) == GetCurrentThreadId() && IsWindowVisible(active) &&
      IsWindowEnabled(active))
    return active;
  return fallback;
}

}  // namespace

UINT IconFlags(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Critical: return MB_ICONHAND;
    case MessageIcon::Question: return MB_ICONQUESTION;
    case MessageIcon::Exclamation: return MB_ICONEXCLAMATION;
    case MessageIcon::Information: return MB_ICONASTERISK;
    default: return 0;
  }
}

std::string Win32FileFilter(const std::string& filter) {
  std::string out = filter;
  for (char& c : out)
    if (c == '|') c = '\0';
  if (out.empty() || out.back() != '\0') out += '\0';
  out += '\0';
  return out;
}

void Win32WindowServices::Message(const std::string& text, const std::string& title,
                                  MessageIcon icon) {
  MaybeEventPass pass(gate);
  MessageBoxA(owner, ToAnsi(text).c_str(), Title(title).c_str(), MB_OK | IconFlags(icon));
}

bool Win32WindowServices::AskYesNo(const std::string& text, const std::string& title,
                                   MessageIcon icon) {
  MaybeEventPass pass(gate);
  return MessageBoxA(owner, ToAnsi(text).c_str(), Title(title).c_str(),
                     MB_YESNO | IconFlags(icon)) == IDYES;
}

std::string Win32WindowServices::OpenFileName(const std::string& title, const std::string& filter,
                                              const std::string& start_folder) {
  MaybeEventPass pass(gate);
  const std::string filters = Win32FileFilter(ToAnsi(filter));
  const std::string ansi_title = ToAnsi(title), start = ToAnsi(start_folder);
  std::vector<char> chosen(32768, '\0');
  // A start that is a file, or looks like one (a missing sound), names a
  // file: the dialog opens in its folder with its name filled in.
  std::string folder = start;
  const DWORD attributes = start.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesA(start.c_str());
  const size_t slash = start.find_last_of("\\/:");
  const bool is_file = attributes != INVALID_FILE_ATTRIBUTES ? !(attributes & FILE_ATTRIBUTE_DIRECTORY)
                                                             : start.find('.', slash + 1) != std::string::npos;
  if (is_file && slash != std::string::npos && slash + 1 < start.size()) {
    folder = start.substr(0, slash + 1);
    const std::string name = start.substr(slash + 1);
    std::copy(name.begin(), name.end(), chosen.begin());
  }
  OPENFILENAMEA dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = DialogOwner(owner);
  dialog.lpstrFilter = filters.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = chosen.data();
  dialog.nMaxFile = static_cast<DWORD>(chosen.size());
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  dialog.lpstrTitle = ansi_title.c_str();
  dialog.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
  if (!GetOpenFileNameA(&dialog)) return "";
  return FromAnsi(chosen.data());
}

}  // namespace ferrow::win32
