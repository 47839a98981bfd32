// The text window's behaviour, whatever toolkit draws it: loading and
// placing the window, following the end of the text, the keys that copy and
// the ones that would edit, drops, and what closing stores. It reaches the
// window through TextView and the control window through ControlWindowPort.
#pragma once

#include <string>
#include <vector>

namespace ferrow {

class ControlWindowPort;
class TextBox;
class TextView;
struct Session;

// Key codes the text window looks at.
constexpr int kKeyBackspace = 8, kKeyDelete = 46;
constexpr int kKeyV = 86, kKeyX = 88, kKeyY = 89, kKeyZ = 90;

class TextWindow {
 public:
  TextWindow(Session& session, ControlWindowPort& control, TextView& view);

  TextBox& Rtf();

  // Styles the box, places the window (the stored geometry where it is in
  // range) and shows it.
  void Form_Load();
  // The box fills the client area; the last line stays in view.
  void Form_Resize();
  // The text changed: the caret follows its end.
  void Rtf_Change();
  // True when the key goes no further (it would cut, undo, redo, paste or
  // delete).
  bool Rtf_KeyDown(int key_code);
  // Ctrl+A selects all; Ctrl+C, Enter, Ctrl+Enter and Ctrl+W copy. True:
  // the character is always discarded.
  bool Rtf_KeyPress(int character);
  // The effect a drag may have: copy for file lists, none for anything else.
  int Rtf_OLEDragOver(bool offers_files, int effect) const;
  // Opens the first dropped file (a shortcut's target when it exists).
  void Rtf_OLEDragDrop(const std::vector<std::string>& names);
  // The window has closed: stores its geometry, sends the user back to the
  // control window unless the program is closing, tells the control window.
  void Form_Unload();

  void SetCaption(const std::string& caption);
  std::string Caption();
  void Flash();
  void Close();
  // Between Form_Load and Form_Unload.
  bool Loaded() const { return loaded_ && !unloaded_; }

 private:
  void PlaceWindow();
  void ApplyFont();
  void CopySelection();
  void StoreGeometry();

  Session& session_;
  ControlWindowPort& control_;
  TextView& view_;
  bool loaded_ = false;
  bool unloaded_ = false;
};

}  // namespace ferrow
