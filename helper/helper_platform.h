// What the companion library needs from the operating system; one
// implementation per system (helper_posix.cc, helper_windows.cc).
#pragma once

#include <string>

#include "lnk_format.h"

namespace ferrow::helper {

// A copy of `text` in the shared allocator the caller frees with.
char* AllocString(const std::string& text);

// The full path of the library file itself.
std::string LibraryPath();

// The user's desktop folder.
std::string DesktopFolder();

// Writes a shortcut at `link` to `target`; true on success.
bool MakeShortcut(const std::string& target, const std::string& link,
                  const std::string& description, int show_command);

// The target's path in the system's 8-bit code page.
std::string SystemText(const lnk::LinkTarget& target);

}  // namespace ferrow::helper
