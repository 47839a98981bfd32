// The control window's keys and check-box clicks, decided here once for every
// toolkit: the toolkit's window reports what the user pressed and clicked,
// the control window's logic decides what it means.
#pragma once

namespace ferrow {

// Key codes as the control window's handlers take them: the virtual-key
// codes of the window system (letters and digits as their capitals).
namespace keys_down {
inline constexpr int kTab = 9, kLineFeed = 10, kEnter = 13, kDelete = 46, kF1 = 112;
inline constexpr int kShift = 1, kCtrl = 2, kAlt = 4;
}  // namespace keys_down

// A key pressed as the window system reports it. `virtual_key` is the
// virtual-key code (0 for a key that has none, such as a punctuation key
// whose code depends on the keyboard layout).
struct KeyStroke {
  int virtual_key = 0;
  bool shift = false, control = false, alt = false;
};

// What a key-down handler takes: the key code and the shift state (1 SHIFT,
// 2 CTRL, 4 ALT, added).
struct KeyDownArgs {
  int key_code = 0;
  int shift = 0;
};

// CTRL+ENTER arrives as a line feed (10), as the window system's own text
// boxes see it; codes beyond the virtual-key range are no key at all.
KeyDownArgs ControlKeyDown(const KeyStroke& key);

// A check box's value after a click (mouse or space bar): a set box goes
// off, a cleared or grayed one goes on. Values: 0 off, 1 on, 2 grayed.
int CheckBoxValueAfterClick(int value);

}  // namespace ferrow
