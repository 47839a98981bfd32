// Linux desktops start a launcher only when the user may run it.
#pragma once

#include <string>

namespace ferrow::helper {

// Makes the launcher at `path` executable (for whoever may read it) and, when
// a desktop session is running, marks it trusted through gio's metadata, as
// GNOME's desktop asks before it starts a launcher it did not make itself.
// Marking is best effort: a desktop without gio only needs the executable bit.
void MarkLauncherTrusted(const std::string& path);

}  // namespace ferrow::helper
