// The key code of a key press, as the dialogs' logic knows them (0 for any
// other event or key).
#pragma once

#include <QEvent>
#include <QKeyEvent>

#include "dialogs/key_codes.h"

namespace ferrow {

inline int KeyCodeOf(const QEvent* event) {
  if (event->type() != QEvent::KeyPress) return 0;
  switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kKeyReturn;
    case Qt::Key_Escape:
      return kKeyEscape;
    case Qt::Key_Space:
      return kKeySpace;
    default:
      return 0;
  }
}

}  // namespace ferrow
