#include "dialogs/settings_texts.h"

namespace ferrow {

ControlText SettingsText(SettingsControl control) {
  switch (control) {
    case SettingsControl::kFrame1:
      return {"Colour Scheme", ""};
    case SettingsControl::kNiceMode:
      return {"CPU friendly mode", "Kinder on CPU usage"};
    case SettingsControl::kQuickScroll:
      return {"Quick scrolling", "Improves CPU performance"};
    case SettingsControl::kCopyAsRTF:
      return {"Copy using RTF format", "Applies when selecting text and pressing ENTER"};
    case SettingsControl::kAlert:
      return {"Flash window on update", "Notify events by flashing the window"};
    case SettingsControl::kPlaySound:
      return {"Play sound on update", "Play any WAV file you have selected below"};
    case SettingsControl::kFrame2:
      return {"Update Sound", ""};
    case SettingsControl::kBrowseWav:
      return {"", "Browse for new sound file"};
    case SettingsControl::kRevertWav:
      return {"Revert to default sound", ""};
    case SettingsControl::kClearHistory:
      return {"Clear history",
              "You can clear individual list items using SHIFT+DEL in the main window"};
    case SettingsControl::kOK:
      return {"&Apply", "Close and reload the log file"};
    case SettingsControl::kCancel:
      return {"&Close", "Close without reloading the log file"};
  }
  return {};
}

}  // namespace ferrow
