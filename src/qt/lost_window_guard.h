// A window of ours that another X client destroys (a window manager's
// "destroy", `xdotool windowclose`) is gone for good, but Qt still holds it
// shown: a modal dialog's loop would wait for it forever, hold every other
// window, and the click that waits for it would never be answered. The
// guard closes such a window as its close box would, so its wait ends the
// usual way (a dialog is cancelled, the input box answers nothing).
#pragma once

#include <QAbstractNativeEventFilter>

namespace ferrow {

class LostWindowGuard : public QAbstractNativeEventFilter {
 public:
  // Watches the application's native events for the life of the guard.
  LostWindowGuard();
  ~LostWindowGuard() override;
  LostWindowGuard(const LostWindowGuard&) = delete;
  LostWindowGuard& operator=(const LostWindowGuard&) = delete;

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
};

}  // namespace ferrow
