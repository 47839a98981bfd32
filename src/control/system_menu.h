// Which entries of the control window's system menu go: the separator before
// Close, Size and Maximize, found by what they are. The window is fixed in
// size, so sizing entries would only mislead; Close always stays, since every
// way of closing the window (title bar, Alt+F4, the window manager) needs it.
#pragma once

#include <vector>

namespace ferrow {

enum class SystemMenuEntry { kSeparator, kSize, kMaximize, kClose, kOther };

// The positions to remove, highest first, so each removal leaves the
// positions still to go where they were. On the standard seven entries
// (Restore, Move, Size, Minimize, Maximize, separator, Close) these are the
// separator, Maximize and Size.
std::vector<int> SystemMenuEntriesToRemove(const std::vector<SystemMenuEntry>& menu);

}  // namespace ferrow
