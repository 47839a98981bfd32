#include "control/menu_position.h"

#include "session/options.h"

namespace ferrow {

void RememberMenuPosition(Options& o, int32_t left, int32_t top) {
  if (left > 0) o.MenuX = left;
  if (top > 0) o.MenuY = top;
  if (o.MenuX <= 0) o.MenuX = 1;
  if (o.MenuY <= 0) o.MenuY = 1;
}

}  // namespace ferrow
