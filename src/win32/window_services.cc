#include "win32/window_services.h"

#include <commdlg.h>

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
  std::wstring chosen;
  {
    MaybeEventPass pass(gate);
    open_dialog_ = title.empty() ? " " : title;
    const std::wstring filters = WideFromAnsi(Win32FileFilter(filter));
    const std::wstring wide_title = WideFromAnsi(title), folder = WideFromAnsi(start_folder);
    std::vector<wchar_t> name(32768, L'\0');
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filters.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = name.data();
    dialog.nMaxFile = static_cast<DWORD>(name.size());
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
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
