#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ferrow {

// `number` in decimal with "," between groups of three digits: 1,234,567.
std::string GroupDigits(int64_t number);

// The general grouping routine behind GroupDigits: groups the integer part of
// `text` (before its first ".") by `group_size` digits from the right, with the
// first character of `separator` between groups; a fractional part is kept.
// Text is returned unchanged when empty or when `group_size` is below 1.
std::string GroupDigitsText(std::string_view text, std::string_view separator, int group_size);

// The leading-number rule: the number that `text` starts with (after blanks),
// with an optional sign, digits and fraction, or "&H"/"&O" followed by hex or
// octal digits; 0 when it starts with no number.
double Val(std::string_view text);

// True when the whole of `text` (blanks aside) is one number.
bool IsNumeric(std::string_view text);

}  // namespace ferrow
