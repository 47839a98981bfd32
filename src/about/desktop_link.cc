#include "about/desktop_link.h"

#include "about/helper_library.h"
#include "about/shortcut_files.h"
#include "session/session.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

void CreateDesktopLink(Session& s, const HelperLibrary& library, const std::string& name) {
  std::string message = "Could not create shortcut: ";
  if (name.empty()) {
    // nothing more to say: the bare text is shown
  } else if (UpperCase(FileExtension(name)) == "LNK") {
    message = "Can't create a shortcut to a shortcut (LNK) file";
  } else if (!FileExists(s.env, name)) {
    message += " File does not exist";
  } else {
    std::string link_file = library.GetProfileDir(0).value_or("");
    EnsureTrailingSlash(link_file);
    link_file += FileNamePart(name) + ShortcutFileExtension();
    // Success is told only when the shortcut is really there to double-click.
    if (library.CreateShortcut(name, link_file, "", "", "", 1, -1).value_or(0) != 0 &&
        FileExists(s.env, link_file)) {
      message.clear();
      s.ui.ShowMessage("Successfully created desktop link", "", MessageIcon::Information);
    } else {
      message += " Unknown error";
    }
  }
  if (!message.empty()) s.ui.ShowMessage(message, "", MessageIcon::Critical);
}

}  // namespace ferrow
