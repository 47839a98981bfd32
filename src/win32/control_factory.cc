// The other windows, as the control window makes them.
#include <string>
#include <vector>

#include "session/session.h"
#include "win32/control_ids.h"
#include "win32/control_window_view.h"
#include "win32/about_view.h"
#include "win32/settings_view.h"
#include "win32/text_window_view.h"

namespace ferrow::win32 {
namespace {

struct OtherWindows {
  HWND control;
  std::vector<HWND> found;
};

// The program's own top-level windows, never the tool tips or the input
// method's windows of this thread.
BOOL CALLBACK CollectOwnWindow(HWND hwnd, LPARAM lparam) {
  auto* windows = reinterpret_cast<OtherWindows*>(lparam);
  char name[64] = {};
  GetClassNameA(hwnd, name, sizeof(name));
  if (hwnd != windows->control && std::string(name).rfind("Ferrow", 0) == 0) windows->found.push_back(hwnd);
  return TRUE;
}

}  // namespace

TextWindowPort* Win32ControlWindow::NewTextWindow(ControlWindowPort& control) {
  return &(new Win32TextWindow(session_, control))->Port();
}

// Each window deletes itself once closed.
void Win32ControlWindow::OpenSettings(MenuPort& menu) {
  (new Win32SettingsDialog(session_, menu, services_))->Logic().Form_Load();
}

void Win32ControlWindow::OpenAbout(MenuPort& menu) { (new Win32AboutWindow(session_, menu))->Logic().Form_Load(); }

std::string Win32ControlWindow::InputMsg(const std::string& prompt, const std::string& title,
                                         const std::string& edit_string) {
  return ferrow::InputMsg(session_.env, input_box_, prompt, title, edit_string);
}

void Win32ControlWindow::UnloadOtherWindows() {
  OtherWindows windows{hwnd_, {}};
  EnumThreadWindows(GetCurrentThreadId(), &CollectOwnWindow, reinterpret_cast<LPARAM>(&windows));
  for (HWND window : windows.found)
    if (IsWindow(window) && IsWindowVisible(window)) SendMessageA(window, WM_CLOSE, 0, 0);
}

}  // namespace ferrow::win32
