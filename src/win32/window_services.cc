#include "win32/window_services.h"

#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "about/product.h"
#include "control/window_gate.h"
#include "win32/ansi_text.h"
#include "win32/open_dialog_guard.h"
#include "win32/unusable_name.h"

namespace ferrow::win32 {
namespace {

// Captions and messages are ANSI text already: file names in them stay whole.
std::string Title(const std::string& title) {
  return title.empty() ? std::string(kProductName) : title;
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
  MessageBoxA(owner, text.c_str(), Title(title).c_str(), MB_OK | IconFlags(icon));
}

bool Win32WindowServices::AskYesNo(const std::string& text, const std::string& title,
                                   MessageIcon icon) {
  MaybeEventPass pass(gate);
  return MessageBoxA(owner, text.c_str(), Title(title).c_str(),
                     MB_YESNO | IconFlags(icon)) == IDYES;
}

// The dialog speaks UTF-16, so that a picked name the code page cannot hold
// is known as such (the ANSI dialog would hand over a look-alike).
std::string Win32WindowServices::OpenFileName(const std::string& title, const std::string& filter,
                                              const std::string& start_folder) {
  if (!open_dialog_.empty()) {
    if (HWND shown = ShownDialog(open_dialog_)) SetForegroundWindow(shown);
    return "";
  }
  // A start that is a file, or looks like one (a missing sound), names a
  // file: the dialog opens in its folder with its name filled in.
  const std::string& start = start_folder;
  std::string folder = start, file;
  const DWORD attributes = start.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesA(start.c_str());
  const size_t slash = start.find_last_of("\\/:");
  const bool is_file = attributes != INVALID_FILE_ATTRIBUTES ? !(attributes & FILE_ATTRIBUTE_DIRECTORY)
                                                             : start.find('.', slash + 1) != std::string::npos;
  if (is_file && slash != std::string::npos && slash + 1 < start.size()) {
    folder = start.substr(0, slash + 1);
    file = start.substr(slash + 1);
  }
  std::wstring chosen;
  {
    MaybeEventPass pass(gate);
    open_dialog_ = title.empty() ? " " : title;
    const std::wstring filters = WideFromAnsi(Win32FileFilter(filter));
    const std::wstring wide_title = WideFromAnsi(title), wide_folder = WideFromAnsi(folder);
    const std::wstring wide_file = WideFromAnsi(file);
    std::vector<wchar_t> name(32768, L'\0');
    std::copy(wide_file.begin(), wide_file.end(), name.begin());
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = DialogOwner(owner);
    dialog.lpstrFilter = filters.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = name.data();
    dialog.nMaxFile = static_cast<DWORD>(name.size());
    dialog.lpstrInitialDir = wide_folder.empty() ? nullptr : wide_folder.c_str();
    dialog.lpstrTitle = wide_title.c_str();
    dialog.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_ENABLEHOOK;
    dialog.lpfnHook = &OpenDialogHook;
    const BOOL picked = GetOpenFileNameW(&dialog);
    open_dialog_.clear();
    if (!picked) return "";
    chosen = name.data();
  }
  std::string ansi;
  if (ToAnsiExactly(chosen, &ansi)) return ansi;
  Message(UnusableNameMessage(chosen), "File Access Error", MessageIcon::Critical);
  return "";
}

}  // namespace ferrow::win32
