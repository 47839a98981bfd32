// Two kinds of text meet in the Win32 windows. File names, captions and
// messages are in the ANSI code page: that is how the command line, the INI
// file, the companion library and the *A calls hand them over, so they pass
// through untouched. Only what the program holds in UTF-8 (the followed
// file's decoded text, the dialogs' edit fields) is converted.
#pragma once

#include <string>

namespace ferrow::win32 {

std::string ToAnsi(const std::string& utf8);
std::string FromAnsi(const std::string& ansi);
// Line breaks as the Windows clipboard and edit controls want them: CR LF.
std::string WithCrLf(const std::string& text);

// `wide` in the ANSI code page, only when the code page holds every
// character as it is: no "?" and no best-fit look-alike ("o" for "\u014d"),
// either of which could name another file.
bool ToAnsiExactly(const std::wstring& wide, std::string* ansi);
// `wide` in the ANSI code page, characters it cannot hold as "?".
std::string AnsiOrQuestionMarks(const std::wstring& wide);
std::wstring WideFromAnsi(const std::string& ansi);

}  // namespace ferrow::win32
