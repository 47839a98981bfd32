// Text as files in each encoding hold it, for the tests of encoded logs.
#pragma once

#include <string>
#include <vector>

namespace ferrow::testing {

// UTF-8 `text` as UTF-16 bytes (little- or big-endian), without a mark.
std::string Utf16Bytes(const std::string& text, bool big_endian);
inline std::string Utf16Le(const std::string& text) { return Utf16Bytes(text, false); }
inline std::string Utf16Be(const std::string& text) { return Utf16Bytes(text, true); }

constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";
constexpr char kUtf16LeMark[] = "\xFF\xFE";
constexpr char kUtf16BeMark[] = "\xFE\xFF";

// UTF-8 `text` of code points below 256 as Windows-1252 (Latin-1) bytes.
std::string Latin1(const std::string& text);

// The same text in each encoding a followed file may be in; `text` holds only
// code points below 256 when `with_legacy`.
struct EncodedFile {
  const char* name;
  std::string bytes;
};
std::vector<EncodedFile> EveryEncoding(const std::string& text, bool with_legacy);

// Appends raw bytes to a file.
void AppendBytes(const std::string& file, const std::string& bytes);

}  // namespace ferrow::testing
