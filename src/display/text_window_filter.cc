#include "display/text_window_filter.h"

#include <QContextMenuEvent>
#include <QKeySequence>
#include <QMouseEvent>

#include "display/rich_text_box.h"

namespace ferrow {
namespace {

constexpr char kSavedProc[] = "ferrowTextWindowProc";

TextWindowProc* Saved(const RichTextBox& box) {
  return box.property(kSavedProc).value<TextWindowProc*>();
}

}  // namespace

bool TextWindowProc::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress: {
      auto* mouse = static_cast<QMouseEvent*>(event);
      return mouse->button() == Qt::RightButton && mouse->buttons() == Qt::RightButton &&
             !(mouse->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier));
    }
    case QEvent::ContextMenu:
      return !(static_cast<QContextMenuEvent*>(event)->modifiers() &
               (Qt::ShiftModifier | Qt::ControlModifier));
    case QEvent::ShortcutOverride: {
      auto* key = static_cast<QKeyEvent*>(event);
      return key->matches(QKeySequence::Cut) || key->matches(QKeySequence::Paste) ||
             key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Delete);
    }
    default:
      return QObject::eventFilter(watched, event);
  }
}

void SubclassTextWindow(RichTextBox& box) {
  if (Saved(box)) return;
  auto* proc = new TextWindowProc(&box);
  box.viewport()->installEventFilter(proc);
  box.installEventFilter(proc);
  box.setProperty(kSavedProc, QVariant::fromValue(proc));
}

void UnsubclassTextWindow(RichTextBox& box) {
  TextWindowProc* proc = Saved(box);
  if (!proc) return;
  box.viewport()->removeEventFilter(proc);
  box.removeEventFilter(proc);
  box.setProperty(kSavedProc, QVariant());
  delete proc;
}

bool TextWindowSubclassed(const RichTextBox& box) { return Saved(box) != nullptr; }

}  // namespace ferrow
