// A Qt key press as the window system's virtual key, for the control
// window's logic, which decides what the key means (control/control_keys.h).
// Only the translation lives here.
#pragma once

#include "control/control_keys.h"

class QKeyEvent;

namespace ferrow {

// Keys without a fixed virtual-key code (punctuation, whose code depends on
// the keyboard layout) give 0: no key a handler names. So "." never stands
// for DEL, although Qt's code for it has DEL's value.
KeyStroke KeyStrokeOf(const QKeyEvent& key);

}  // namespace ferrow
