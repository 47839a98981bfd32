// The encodings a followed file may be in, how the start of a file names one
// (a byte-order mark), and UTF-16 to UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ferrow {

enum class TextEncoding {
  kUndecided,  // nothing but ASCII seen yet: it reads the same in every encoding below
  kLegacy,     // one byte a character: the ANSI code page on Windows, Windows-1252 elsewhere
  kUtf8,
  kUtf16Le,
  kUtf16Be,
};

struct ByteOrderMark {
  TextEncoding encoding = TextEncoding::kUndecided;
  size_t length = 0;  // 0: no mark
};

// The mark `head` (the first bytes of a file) starts with. `complete` is
// false when `head` is too short to tell yet (it is a mark's beginning).
ByteOrderMark FindByteOrderMark(std::string_view head, bool* complete = nullptr);

// Bytes per code unit: 2 for UTF-16, else 1.
inline size_t CodeUnitBytes(TextEncoding e) {
  return e == TextEncoding::kUtf16Le || e == TextEncoding::kUtf16Be ? 2 : 1;
}

// UTF-16 `bytes` to UTF-8 appended to `out`. An odd last byte and a high
// surrogate at the very end are left in `held_back` (when given; else they
// are shown as U+FFFD); unpaired surrogates show as U+FFFD.
void AppendUtf16(std::string& out, std::string_view bytes, bool big_endian, std::string* held_back);

// The length of UTF-8 `text` in UTF-16 code units: the characters a text box
// counts (a character beyond U+FFFF counts two).
size_t Utf16Length(std::string_view text);

// The last (or first) `count` characters of UTF-8 `text`, counted as
// Utf16Length counts them, never cutting a character in two.
std::string_view LastCharacters(std::string_view text, size_t count);
std::string_view FirstCharacters(std::string_view text, size_t count);

}  // namespace ferrow
