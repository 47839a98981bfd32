#include "qt/lost_window_guard.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <cstdint>

namespace ferrow {
namespace {

// An X DestroyNotify event as it comes off the wire (the core protocol's
// layout, so no X development headers are needed).
struct DestroyNotify {
  uint8_t response_type;
  uint8_t pad0;
  uint16_t sequence;
  uint32_t event;
  uint32_t window;
};
constexpr uint8_t kDestroyNotify = 17;
constexpr uint8_t kSentEventBit = 0x80;

// Closed from the event loop, not inside the X event's handling: the close
// runs the window's own logic, which may let events run.
void CloseLater(QWidget* window) {
  QMetaObject::invokeMethod(
      window,
      [window = QPointer<QWidget>(window)] {
        if (window && window->isVisible()) window->close();
      },
      Qt::QueuedConnection);
}

}  // namespace

LostWindowGuard::LostWindowGuard() {
  if (qApp) qApp->installNativeEventFilter(this);
}

LostWindowGuard::~LostWindowGuard() {
  if (qApp) qApp->removeNativeEventFilter(this);
}

bool LostWindowGuard::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t" || !message) return false;
  const auto* event = static_cast<const DestroyNotify*>(message);
  if ((event->response_type & ~kSentEventBit) != kDestroyNotify) return false;
  // Only a window Qt still shows under that id: when Qt destroys a native
  // window itself, the widget is hidden, gone or has a new one by then.
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->internalWinId() == event->window) CloseLater(window);
  }
  return false;  // Qt sees the event as before
}

}  // namespace ferrow
