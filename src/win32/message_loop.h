// The thread's message loop, in one fixed order for every message: the
// keyboard navigation of the windows that have controls (IsDialogMessage),
// then translate and dispatch. The waits' event passes take the same road.
#pragma once

#include <windows.h>

namespace ferrow::win32 {

// A window whose controls Tab, the arrows and Space reach (IsDialogMessage).
void AddDialogWindow(HWND window);
void RemoveDialogWindow(HWND window);

// Sends one message on its way.
void DispatchOne(MSG& message);

// Runs until WM_QUIT; returns its exit code.
int RunMessageLoop();

}  // namespace ferrow::win32
