#include "win32/message_loop.h"

#include <algorithm>
#include <vector>

namespace ferrow::win32 {
namespace {

std::vector<HWND>& DialogWindows() {
  static std::vector<HWND> windows;
  return windows;
}

}  // namespace

void AddDialogWindow(HWND window) { DialogWindows().push_back(window); }

void RemoveDialogWindow(HWND window) {
  auto& windows = DialogWindows();
  windows.erase(std::remove(windows.begin(), windows.end(), window), windows.end());
}

void DispatchOne(MSG& message) {
  // A copy: a message may close a window and change the list.
  const std::vector<HWND> windows = DialogWindows();
  for (HWND window : windows)
    if (IsWindow(window) && IsDialogMessageA(window, &message)) return;
  TranslateMessage(&message);
  DispatchMessageA(&message);
}

int RunMessageLoop() {
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchOne(message);
  return message.message == WM_QUIT ? static_cast<int>(message.wParam) : 0;
}

}  // namespace ferrow::win32
