// Keeps the open-file dialog whole while the program's own loops run above
// its message loop (see open_dialog_guard.cc).
#pragma once

#include <windows.h>

#include <string>

namespace ferrow::win32 {

// The dialog's hook (OFN_ENABLEHOOK): it guards the dialog from a second end.
UINT_PTR CALLBACK OpenDialogHook(HWND child, UINT message, WPARAM wparam, LPARAM lparam);

// This thread's dialog titled `title` (another Ferrow may show one too).
HWND ShownDialog(const std::string& title);

}  // namespace ferrow::win32
