// Window events inside the program's waits on Win32, and the deferred
// destruction of windows that goes with them (the rule is in
// control/window_gate.h).
#pragma once

#include <functional>

namespace ferrow {
class Env;
class WindowGate;
}  // namespace ferrow

namespace ferrow::win32 {

// Dispatches every pending message of this thread; a WM_QUIT met is posted
// again for the main loop.
void PumpMessages();

// The program's events hook: each wait pumps the pending messages, counted
// as an event pass.
void InstallEventsHook(Env& env, WindowGate& gate);

// Runs `destroy` once no event pass and no operation is running, from a
// timer of the thread's message loop. Call it when a window closes.
void DeleteWindowLater(WindowGate& gate, std::function<void()> destroy);

}  // namespace ferrow::win32
