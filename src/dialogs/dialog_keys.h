// Enter (or line feed) confirms and Escape cancels, in every dialog.
#pragma once

#include <QEvent>
#include <QKeyEvent>

namespace ferrow {

enum class DialogKey { kNone, kConfirm, kCancel };

inline DialogKey DialogKeyOf(const QEvent* event) {
  if (event->type() != QEvent::KeyPress) return DialogKey::kNone;
  switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return DialogKey::kConfirm;
    case Qt::Key_Escape: return DialogKey::kCancel;
    default: return DialogKey::kNone;
  }
}

}  // namespace ferrow
