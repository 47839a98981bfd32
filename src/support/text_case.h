// Upper case of text that a followed file holds, in any script the program
// meets in logs: ASCII, Latin (with accents), Greek and Cyrillic. The ASCII
// UpperCase of strings.h stays for names and keys, which compare as they
// always did.
#pragma once

#include <string>
#include <string_view>

namespace ferrow {

// The upper case of one code point (itself when it has none here).
char32_t UpperCodePoint(char32_t c);

// UTF-8 `text` in upper case; ill-formed bytes are kept as they are.
std::string UpperCaseText(std::string_view text);

}  // namespace ferrow
