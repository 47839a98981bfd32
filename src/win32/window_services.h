// Message boxes and the open-file dialog as Windows shows them. Each runs
// its own message loop, counted as an event pass of `gate` when there is one.
#pragma once

#include <windows.h>

#include <string>

#include "control/window_services.h"

namespace ferrow {
class WindowGate;
}

namespace ferrow::win32 {

class Win32WindowServices : public WindowServices {
 public:
  // The window the boxes belong to; none: the desktop.
  HWND owner = nullptr;
  WindowGate* gate = nullptr;

  void Message(const std::string& text, const std::string& title, MessageIcon icon) override;
  bool AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) override;
  // One open-file dialog at a time: each runs its own message loop, so the
  // windows behind it still take clicks (Browse again, the settings'
  // Browse); a second request brings the open dialog to the front instead
  // of stacking another one inside it.
  std::string OpenFileName(const std::string& title, const std::string& filter,
                           const std::string& start_folder) override;

 private:
  std::string open_dialog_;  // the title of the open-file dialog showing, if any
};

// MB_ICON... for a message icon.
UINT IconFlags(MessageIcon icon);
// "Name|*.ext|Name|*.ext|" as the dialog takes it: each part ended by a NUL,
// the whole by a second one.
std::string Win32FileFilter(const std::string& filter);

}  // namespace ferrow::win32
