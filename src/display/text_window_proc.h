// The messages the text window's box never acts on, whatever toolkit draws
// it: cut, paste, clear and undo, and a right click with no other key or
// button held (so no context menu; Shift or Ctrl with it passes on).
#pragma once

#include <cstdint>

namespace ferrow {

constexpr uint32_t kWmCut = 0x300, kWmPaste = 0x302, kWmClear = 0x303, kWmUndo = 0x304;
constexpr uint32_t kWmRButtonDown = 0x204;
constexpr uint64_t kMkRButton = 2, kMkShift = 4, kMkControl = 8;

// True when TextWindowProc swallows `message` (its result is then 0);
// false when it goes on to the box's own procedure.
constexpr bool TextWindowProcSwallows(uint32_t message, uint64_t wparam) {
  switch (message) {
    case kWmCut: case kWmPaste: case kWmClear: case kWmUndo:
      return true;
    case kWmRButtonDown:
      return wparam == kMkRButton;
    default:
      return false;
  }
}

}  // namespace ferrow
