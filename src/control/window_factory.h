// The other windows, as the control window's logic makes and uses them. Each
// toolkit supplies them; tests pass fakes.
#pragma once

#include <string>

namespace ferrow {

class ControlWindowPort;
class MenuPort;
class TextBox;

// A text window, as the control window sees it.
class TextWindowPort {
 public:
  virtual ~TextWindowPort() = default;
  virtual TextBox& Box() = 0;
  // Sizes, places, styles and shows it.
  virtual void Load() = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  virtual void Flash() = 0;
  // Closes it as the user's close does; it is deleted once no handler runs.
  virtual void Close() = 0;
};

class WindowFactory {
 public:
  virtual ~WindowFactory() = default;
  // A new text window, not loaded yet; the toolkit owns it.
  virtual TextWindowPort* NewTextWindow(ControlWindowPort& control) = 0;
  virtual void OpenSettings(MenuPort& menu) = 0;
  virtual void OpenAbout(MenuPort& menu) = 0;
  // Asks for one line of text, letting events run while it waits; "" when
  // cancelled.
  virtual std::string InputMsg(const std::string& prompt, const std::string& title,
                               const std::string& edit_string) = 0;
  // Unloads every window but the control window.
  virtual void UnloadOtherWindows() = 0;
};

}  // namespace ferrow
