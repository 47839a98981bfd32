// The settings dialog's controls and what they say, for every toolkit's window.
#pragma once

#include <string>

namespace ferrow {

enum class SettingsControl {
  kFrame1,
  kNiceMode,
  kQuickScroll,
  kCopyAsRTF,
  kAlert,
  kPlaySound,
  kFrame2,
  kBrowseWav,
  kRevertWav,
  kClearHistory,  // Label1 and Command1
  kOK,
  kCancel,
};

struct ControlText {
  std::string caption;
  std::string tool_tip;
};

// The caption and tool tip of `control` (either may be empty).
ControlText SettingsText(SettingsControl control);

}  // namespace ferrow
