// The text window's own handling of what reaches its box: no context menu on
// a plain right click (Shift or Ctrl with it passes on), no cut, paste, clear
// or undo. Installed on the box by SubclassTextWindow and removed by
// UnsubclassTextWindow.
#pragma once

#include <QObject>

namespace ferrow {

class RichTextBox;

class TextWindowProc : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override;
};

// Installs the filter unless it is installed already.
void SubclassTextWindow(RichTextBox& box);
// Removes it when it is installed.
void UnsubclassTextWindow(RichTextBox& box);
// True while the filter is installed.
bool TextWindowSubclassed(const RichTextBox& box);

}  // namespace ferrow
