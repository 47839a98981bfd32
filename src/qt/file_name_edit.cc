#include "qt/file_name_edit.h"

#include <QKeyEvent>

namespace ferrow {

void FileNameEdit::focusOutEvent(QFocusEvent* event) {
  finishing_ = true;
  QLineEdit::focusOutEvent(event);
  finishing_ = false;
}

void FileNameEdit::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  finishing_ = enter;
  QLineEdit::keyPressEvent(event);
  finishing_ = false;
}

}  // namespace ferrow
