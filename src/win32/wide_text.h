// The rich-edit box speaks UTF-16; the rest of the program keeps text in
// UTF-8. Both conversions take and give lengths, so a NUL inside the text
// is a character like any other.
#pragma once

#include <string>

namespace ferrow::win32 {

std::wstring ToWide(const std::string& utf8);
std::string FromWide(const wchar_t* text, size_t length);
inline std::string FromWide(const std::wstring& text) {
  return FromWide(text.data(), text.size());
}

// The control's breaks (CR, or CR LF) as the program's ("\n").
std::string ProgramBreaks(const std::string& text);
// A control's text as the program's: UTF-8, "\n" at each break.
inline std::string ProgramText(const std::wstring& wide) { return ProgramBreaks(FromWide(wide)); }

}  // namespace ferrow::win32
