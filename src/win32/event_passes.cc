#include "win32/event_passes.h"

#include <windows.h>

#include <map>
#include <memory>

#include "control/window_gate.h"
#include "platform/env.h"
#include "win32/message_loop.h"

namespace ferrow::win32 {
namespace {

constexpr UINT kRetryMs = 20;

struct Pending {
  WindowGate* gate;
  std::weak_ptr<const int> life;
};

// Thread timers carry no context: each one's gate is found by its id.
std::map<UINT_PTR, Pending>& Timers() {
  static std::map<UINT_PTR, Pending> timers;
  return timers;
}

void Arm(WindowGate& gate, UINT delay_ms);

void CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD) {
  KillTimer(nullptr, id);
  auto found = Timers().find(id);
  if (found == Timers().end()) return;
  Pending pending = found->second;
  Timers().erase(found);
  if (pending.life.expired()) return;
  if (pending.gate->DestroyPending()) Arm(*pending.gate, kRetryMs);
}

void Arm(WindowGate& gate, UINT delay_ms) {
  const UINT_PTR id = SetTimer(nullptr, 0, delay_ms, &OnTimer);
  if (id) Timers()[id] = Pending{&gate, gate.Life()};
}

}  // namespace

void PumpMessages() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    DispatchOne(message);
  }
}

void InstallEventsHook(Env& env, WindowGate& gate) {
  env.SetEventsHook([&gate] {
    EventPassScope pass(gate);
    PumpMessages();
  });
}

void DeleteWindowLater(WindowGate& gate, std::function<void()> destroy) {
  gate.DestroyLater(std::move(destroy));
  Arm(gate, 0);
}

}  // namespace ferrow::win32
