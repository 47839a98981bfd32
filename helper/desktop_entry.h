// Desktop entry (.desktop) launchers, the shortcuts of Linux desktops: a
// writer for the link button's launcher, and a reader that finds the file a
// launcher opens. The reader takes untrusted input (a user may drop any file)
// and only ever scans it once, front to back.
#pragma once

#include <string>

namespace ferrow::desktop {

struct NewLauncher {
  std::string program;  // full path of the program the launcher runs
  std::string target;   // full path of the file it runs the program on
  std::string icon;     // icon name from the icon theme, "" for none
};

// The text of a launcher that runs `program` on `target`; "" when either
// holds a character no desktop entry can carry (line breaks, control codes).
std::string WriteLauncher(const NewLauncher& launcher);

// The file a launcher of type Application opens: the last argument of its
// Exec line that is not a field code such as %f. "" when `data` is no such
// launcher or its command names no file.
std::string ReadLauncherTarget(const std::string& data);

}  // namespace ferrow::desktop
