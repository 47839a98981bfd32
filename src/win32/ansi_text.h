// The Win32 windows speak the ANSI code page; the rest of the program keeps
// text in UTF-8.
#pragma once

#include <string>

namespace ferrow::win32 {

std::string ToAnsi(const std::string& utf8);
std::string FromAnsi(const std::string& ansi);
// Line breaks as the Windows clipboard and edit controls want them: CR LF.
std::string WithCrLf(const std::string& text);

}  // namespace ferrow::win32
