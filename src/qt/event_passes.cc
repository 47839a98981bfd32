#include "qt/event_passes.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "control/window_gate.h"
#include "platform/env.h"

namespace ferrow {
namespace {

constexpr int kRetryMs = 20;

void DestroyWhenSafe(WindowGate& gate, int delay_ms) {
  QTimer::singleShot(delay_ms, qApp, [&gate, life = gate.Life()] {
    if (life.expired()) return;
    if (gate.DestroyPending()) DestroyWhenSafe(gate, kRetryMs);
  });
}

}  // namespace

void InstallEventsHook(Env& env, WindowGate& gate) {
  env.SetEventsHook([&gate] {
    EventPassScope pass(gate);
    QApplication::processEvents();
  });
}

void DeleteWindowLater(WindowGate& gate, QWidget* window) {
  QPointer<QWidget> doomed(window);
  gate.DestroyLater([doomed] { delete doomed.data(); });
  DestroyWhenSafe(gate, 0);
}

}  // namespace ferrow
