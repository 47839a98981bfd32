#pragma once

#include <string>

namespace ferrow {

class HelperLibrary;
struct Session;

// The link button: a desktop shortcut to the file named in the file name
// box (a .lnk on Windows, a .desktop launcher elsewhere), made through the
// companion library; the outcome is told in a message
// box. Does not ask whether the library is in use: without it the command
// ends in "Could not create shortcut:  Unknown error".
void CreateDesktopLink(Session& session, const HelperLibrary& library, const std::string& name);

}  // namespace ferrow
