// The key codes the dialogs act on, as the window system numbers them; each
// toolkit's view turns its own key events into these.
#pragma once

namespace ferrow {

inline constexpr int kKeyLineFeed = 10;
inline constexpr int kKeyReturn = 13;
inline constexpr int kKeyEscape = 27;
inline constexpr int kKeySpace = 32;

}  // namespace ferrow
