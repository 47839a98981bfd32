// Single-byte code pages the program meets in rich text: 1252 (Windows
// Western) and 850 (the OEM code page of the Terminal font).
#pragma once

#include <string>
#include <string_view>

namespace ferrow {

// The Unicode code point of `byte` in code page 1252 or 850 (any other page
// is read as 1252).
char32_t CodePageToUnicode(unsigned char byte, int code_page);

// Appends `code_point` to `out` in UTF-8.
void AppendUtf8(std::string& out, char32_t code_point);

// True when `bytes` is well-formed UTF-8.
bool IsValidUtf8(std::string_view bytes);

// `bytes` in UTF-8: as they are when already valid UTF-8, else byte by byte
// through the code page.
std::string DecodeBytes(std::string_view bytes, int code_page);

}  // namespace ferrow
