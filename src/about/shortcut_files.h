// The shortcut files the program makes and follows: Windows shortcuts (.lnk)
// and Linux desktop launchers (.desktop). The companion library reads both.
#pragma once

#include <string>

namespace ferrow {

// What the link button makes on this system: ".lnk" on Windows, a desktop
// launcher (".desktop") elsewhere, since that is what a Linux desktop starts.
std::string ShortcutFileExtension();

// True when a dropped file is a shortcut to resolve to its target: its
// extension, whatever its case, is LNK or DESKTOP.
bool IsShortcutFile(const std::string& name);

}  // namespace ferrow
