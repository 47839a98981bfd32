#include "about/shortcut_files.h"

#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

std::string ShortcutFileExtension() {
#ifdef _WIN32
  return ".lnk";
#else
  return ".desktop";
#endif
}

bool IsShortcutFile(const std::string& name) {
  const std::string extension = UpperCase(FileExtension(name));
  return extension == "LNK" || extension == "DESKTOP";
}

}  // namespace ferrow
