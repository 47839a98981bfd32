// What the text window's logic asks of the window that draws it. Each
// toolkit implements it over a real window; tests pass a recording fake.
// Geometry is in twips, as the rest of the program keeps it.
#pragma once

#include <cstdint>
#include <string>

namespace ferrow {

class TextBox;

struct TwipsRect {
  int32_t left = 0, top = 0, width = 0, height = 0;
};

enum class WindowState { kNormal, kMinimised, kMaximised };

class TextView {
 public:
  virtual ~TextView() = default;

  // The rich-text box the window holds; it lives as long as the view.
  virtual TextBox& Box() = 0;

  // The window's outer rectangle, and where the screen lets windows go.
  virtual TwipsRect Place() = 0;
  virtual void SetPlace(const TwipsRect& place) = 0;
  virtual TwipsRect ScreenArea() = 0;
  virtual WindowState State() = 0;
  // Restores the window to its normal state, shown.
  virtual void ShowNormal() = 0;
  // The size of the client area (left and top are 0), and where the box goes in it.
  virtual TwipsRect ClientArea() = 0;
  virtual void PlaceBox(const TwipsRect& place) = 0;

  virtual void SetCaption(const std::string& caption) = 0;
  virtual std::string Caption() = 0;
  // Flashes the title bar once.
  virtual void Flash() = 0;
  // Empties the clipboard and puts `text` on it as plain text.
  virtual void CopyToClipboard(const std::string& text) = 0;

  // Installs the window procedure that keeps the box read-only (no cut,
  // paste, clear, undo or context menu); installing twice, or removing what
  // is not installed, does nothing.
  virtual void SubclassBox() = 0;
  virtual void UnsubclassBox() = 0;

  // Closes the window as the user's close does: the view then calls
  // TextWindow::Form_Unload.
  virtual void Close() = 0;
};

}  // namespace ferrow
