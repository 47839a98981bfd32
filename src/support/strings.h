// Small text routines shared by the whole program. Strings hold bytes in the
// program's 8-bit encoding; case folding touches ASCII letters only, as the
// configuration file's names are ASCII.
#pragma once

#include <string>
#include <string_view>

namespace ferrow {

// Blanks (spaces) removed from both ends, as the BASIC Trim.
std::string Trim(std::string_view text);
std::string_view TrimView(std::string_view text);

std::string UpperCase(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);

// Removes every copy of `ch` from the end of `text`.
void StripTrailing(std::string& text, char ch);
std::string StripTrailingCopy(std::string text, char ch);
// Removes one copy of `ch` from the end of `text`, if there is one.
void StripOneTrailing(std::string& text, char ch);

// `text` with every character of `set` removed, wherever it stands.
std::string RemoveChars(std::string_view text, std::string_view set);

// `text` with the characters of `set` removed from both ends.
std::string StripEnds(std::string_view text, std::string_view set);

// The key of a "key=value" line: Trim(text before the first "="); "" without "=".
std::string KeyOf(std::string_view line);

}  // namespace ferrow
