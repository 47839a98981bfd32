#include "control/control_keys.h"

namespace ferrow {
namespace {

constexpr int kVirtualKeyLimit = 0x100;

}  // namespace

KeyDownArgs ControlKeyDown(const KeyStroke& key) {
  KeyDownArgs args;
  args.shift = (key.shift ? keys_down::kShift : 0) | (key.control ? keys_down::kCtrl : 0) |
               (key.alt ? keys_down::kAlt : 0);
  if (key.virtual_key == keys_down::kEnter && key.control)
    args.key_code = keys_down::kLineFeed;
  else if (key.virtual_key > 0 && key.virtual_key < kVirtualKeyLimit)
    args.key_code = key.virtual_key;
  return args;
}

int CheckBoxValueAfterClick(int value) {
  return value == 1 ? 0 : 1;
}

}  // namespace ferrow
