#include "qt/text_window_filter.h"

#include <QContextMenuEvent>
#include <QKeySequence>
#include <QMouseEvent>

#include "qt/rich_text_box.h"
#include "display/text_window_proc.h"

namespace ferrow {
namespace {

constexpr char kSavedProc[] = "ferrowTextWindowProc";

TextWindowProc* Saved(const RichTextBox& box) {
  return box.property(kSavedProc).value<TextWindowProc*>();
}

// The mouse and key state of a right click as its message carries it.
uint64_t RightButtonState(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
  uint64_t state = kMkRButton;
  if (buttons & Qt::LeftButton) state |= 1;
  if (buttons & Qt::MiddleButton) state |= 0x10;
  if (modifiers & Qt::ShiftModifier) state |= kMkShift;
  if (modifiers & Qt::ControlModifier) state |= kMkControl;
  return state;
}

uint32_t EditMessage(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Cut)) return kWmCut;
  if (key.matches(QKeySequence::Paste)) return kWmPaste;
  if (key.matches(QKeySequence::Delete)) return kWmClear;
  if (key.matches(QKeySequence::Undo)) return kWmUndo;
  return 0;
}

}  // namespace

bool TextWindowProc::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress: {
      auto* mouse = static_cast<QMouseEvent*>(event);
      return mouse->button() == Qt::RightButton &&
             TextWindowProcSwallows(kWmRButtonDown,
                                    RightButtonState(mouse->buttons(), mouse->modifiers()));
    }
    case QEvent::ContextMenu:
      return TextWindowProcSwallows(
          kWmRButtonDown,
          RightButtonState(Qt::RightButton, static_cast<QContextMenuEvent*>(event)->modifiers()));
    case QEvent::ShortcutOverride:
      return TextWindowProcSwallows(EditMessage(*static_cast<QKeyEvent*>(event)), 0);
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
