// Window events inside the program's waits, and the deferred destruction of
// windows that goes with them (the rule is in control/window_gate.h).
#pragma once

class QWidget;

namespace ferrow {

class Env;
class WindowGate;

// The program's events hook: each wait lets pending window events run,
// counted as an event pass.
void InstallEventsHook(Env& env, WindowGate& gate);

// Deletes `window` once no event pass and no operation is
// running, from the top of the event loop. Call it when the window closes.
void DeleteWindowLater(WindowGate& gate, QWidget* window);

}  // namespace ferrow
