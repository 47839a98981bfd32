// The text transformation behind the profile writer: the bytes of a profile
// (INI) file before a write, plus the write, give the bytes after it. Kept
// pure so that it can be tested on strings and compared with the Windows API.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ferrow {

// Applies WritePrivateProfileString(section, key, value) to `text`:
// - a null key deletes the section with every line in it;
// - a null value deletes the key's line;
// - otherwise an existing key line is rewritten in place as Key=Value (the
//   file's spelling of the key kept), or a new line is added after the last
//   entry of the section, or a new section is appended at the end.
// Section and key names match without regard to case. Lines the write does not
// concern keep their bytes; new lines end in CR LF. NUL padding at the end of
// the text is dropped.
std::string ApplyProfileWrite(std::string_view text, std::string_view section,
                              std::optional<std::string_view> key,
                              std::optional<std::string_view> value);

}  // namespace ferrow
