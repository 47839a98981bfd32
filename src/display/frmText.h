// The window in which the followed file is shown: one rich-text box, Rtf,
// filling it. Read-only for the user: it scrolls, selects, copies and takes
// dropped files, and is never edited.
#pragma once

#include <QWidget>

#include "display/rich_text_box.h"

namespace ferrow {

class ControlWindowPort;
struct Session;

class frmText : public QWidget {
  Q_OBJECT

 public:
  frmText(Session& session, ControlWindowPort& control, QWidget* parent = nullptr);
  ~frmText() override;

  RichTextBox* Rtf;

  // Sizes, places, styles and shows the window.
  void Form_Load();

  // The key handlers of the box; true when the key went no further.
  bool Rtf_KeyDown(int key, Qt::KeyboardModifiers modifiers);
  bool Rtf_KeyPress(int character);
  // The drop handlers of the box; `names` are the dropped files.
  void Rtf_OLEDragDrop(const QStringList& names);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Form_Resize();
  void Form_Unload();
  void CopySelection();
  void PlaceWindow();

  Session& session_;
  ControlWindowPort& control_;
  bool loaded_ = false;
  bool unloaded_ = false;
};

// The character code a key press stands for: Ctrl+A is 1, Ctrl+C 3, Enter 13,
// Ctrl+Enter 10, Ctrl+W 23, and so on; 0 for keys that type nothing.
int CharacterCode(int key, Qt::KeyboardModifiers modifiers, const QString& text);

}  // namespace ferrow
