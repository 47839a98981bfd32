// The control window's position, kept in MenuX and MenuY (twips).
#pragma once

#include <cstdint>

namespace ferrow {

struct Options;

// A position above 0 is taken; otherwise the last known one stays. Where
// the window system keeps a window's position to itself (Wayland), it reads
// as 0, 0 and none is ever known: then 1 (the screen's edge) is kept, because
// opening a file takes the file's own settings only from a section that
// holds MenuX, and a section this program writes must come back.
void RememberMenuPosition(Options& options, int32_t left, int32_t top);

}  // namespace ferrow
