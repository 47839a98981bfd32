#include "win32/open_dialog_guard.h"

#include <commctrl.h>
#include <commdlg.h>

namespace ferrow::win32 {
namespace {

// The open-file dialog frees its folder view when it ends, and ends again
// on a second Cancel or OK: then it calls through what it freed and ends the
// program. A second one reaches it whenever a loop above the dialog's own
// runs its queued messages (a message box of the program's, or the
// dialog's own "not found" box, while the dialog was closed meanwhile). So a
// dialog that has ended, or waits on a box of its own (disabled, as for a
// user), takes no close, Cancel or OK.
constexpr char kDialogEnded[] = "FerrowOpenDialogEnded";

bool EndsTheDialog(UINT message, WPARAM wparam) {
  return message == WM_CLOSE || (message == WM_SYSCOMMAND && (wparam & 0xFFF0) == SC_CLOSE) ||
         (message == WM_COMMAND && (LOWORD(wparam) == IDOK || LOWORD(wparam) == IDCANCEL));
}

LRESULT CALLBACK GuardedDialog(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR id,
                               DWORD_PTR) {
  if (message == WM_NCDESTROY) {
    RemovePropA(dialog, kDialogEnded);
    RemoveWindowSubclass(dialog, &GuardedDialog, id);
  }
  if (EndsTheDialog(message, wparam) && (GetPropA(dialog, kDialogEnded) || !IsWindowEnabled(dialog))) return 0;
  const LRESULT result = DefSubclassProc(dialog, message, wparam, lparam);
  // Cancel always ends it; OK does once the file was accepted (CDN_FILEOK).
  if (message == WM_COMMAND && LOWORD(wparam) == IDCANCEL && IsWindow(dialog))
    SetPropA(dialog, kDialogEnded, reinterpret_cast<HANDLE>(1));
  return result;
}

}  // namespace

// The hook's own (empty) child dialog: its parent is the open-file dialog.
UINT_PTR CALLBACK OpenDialogHook(HWND child, UINT message, WPARAM, LPARAM lparam) {
  if (message == WM_INITDIALOG) SetWindowSubclass(GetParent(child), &GuardedDialog, 1, 0);
  if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lparam)->code == CDN_FILEOK)
    SetPropA(GetParent(child), kDialogEnded, reinterpret_cast<HANDLE>(1));
  return 0;
}

HWND ShownDialog(const std::string& title) {
  struct Search {
    const std::string& title;
    HWND found = nullptr;
  } search{title};
  EnumThreadWindows(GetCurrentThreadId(), [](HWND hwnd, LPARAM lparam) -> BOOL {
    auto* s = reinterpret_cast<Search*>(lparam);
    char name[16] = {}, text[256] = {};
    GetClassNameA(hwnd, name, sizeof(name));
    GetWindowTextA(hwnd, text, sizeof(text));
    if (lstrcmpA(name, "#32770") != 0 || s->title != text) return TRUE;
    s->found = hwnd;
    return FALSE;
  }, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace ferrow::win32
