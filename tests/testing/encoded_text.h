// Text as files in each encoding hold it, for the tests of encoded logs.
#pragma once

#include <string>

namespace ferrow::testing {

// UTF-8 `text` as UTF-16 bytes (little- or big-endian), without a mark.
std::string Utf16Bytes(const std::string& text, bool big_endian);
inline std::string Utf16Le(const std::string& text) { return Utf16Bytes(text, false); }
inline std::string Utf16Be(const std::string& text) { return Utf16Bytes(text, true); }

constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";
constexpr char kUtf16LeMark[] = "\xFF\xFE";
constexpr char kUtf16BeMark[] = "\xFE\xFF";

// Appends raw bytes to a file.
void AppendBytes(const std::string& file, const std::string& bytes);

}  // namespace ferrow::testing
