#include "control/system_menu.h"

#include <algorithm>

namespace ferrow {

std::vector<int> SystemMenuEntriesToRemove(const std::vector<SystemMenuEntry>& menu) {
  std::vector<int> positions;
  const int n = static_cast<int>(menu.size());
  for (int i = 0; i < n; ++i) {
    const SystemMenuEntry entry = menu[static_cast<size_t>(i)];
    if (entry == SystemMenuEntry::kSize || entry == SystemMenuEntry::kMaximize) positions.push_back(i);
    // The separator that sets Close apart; once Size and Maximize are gone,
    // Close follows Minimize directly as on any fixed-size window.
    const bool before_close = i + 1 < n && menu[static_cast<size_t>(i + 1)] == SystemMenuEntry::kClose;
    if (entry == SystemMenuEntry::kSeparator && before_close) positions.push_back(i);
  }
  std::sort(positions.rbegin(), positions.rend());
  return positions;
}

}  // namespace ferrow
