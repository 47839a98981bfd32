// Tool tips (TOOLTIPS_CLASS) for the controls of one window.
#pragma once

#include <windows.h>

#include <string>

namespace ferrow::win32 {

class ToolTips {
 public:
  // Tips for the controls of `owner`, wrapped at `max_width` pixels.
  ToolTips(HWND owner, int max_width);
  HWND Handle() const { return tips_; }
  void Add(HWND control, const std::string& tip);
  void Set(HWND control, const std::string& tip);

 private:
  HWND owner_;
  HWND tips_;
};

}  // namespace ferrow::win32
