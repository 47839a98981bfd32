#include "support/text_encoding.h"

#include "support/codepage.h"

namespace ferrow {
namespace {

bool StartsWith(std::string_view s, std::string_view prefix) {
  return s.substr(0, prefix.size()) == prefix;
}

// The UTF-16 units a UTF-8 lead byte stands for (0 for a continuation byte).
size_t UnitsOfLead(unsigned char b) { return (b & 0xC0) == 0x80 ? 0 : b >= 0xF0 ? 2 : 1; }

}  // namespace

ByteOrderMark FindByteOrderMark(std::string_view head, bool* complete) {
  static constexpr std::string_view kUtf8 = "\xEF\xBB\xBF", kLe = "\xFF\xFE", kBe = "\xFE\xFF";
  if (complete) *complete = true;
  if (StartsWith(head, kUtf8)) return {TextEncoding::kUtf8, 3};
  if (StartsWith(head, kLe)) return {TextEncoding::kUtf16Le, 2};
  if (StartsWith(head, kBe)) return {TextEncoding::kUtf16Be, 2};
  // Shorter than a mark and the beginning of one (or nothing yet): too early to tell.
  if (complete && head.size() < 3)
    *complete = !StartsWith(kUtf8, head) && !StartsWith(kLe, head) && !StartsWith(kBe, head);
  return {};
}

void AppendUtf16(std::string& out, std::string_view bytes, bool big_endian, std::string* held_back) {
  const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
  const size_t units = bytes.size() / 2;
  const auto unit = [&](size_t i) -> char32_t {
    return big_endian ? (p[2 * i] << 8 | p[2 * i + 1]) : (p[2 * i + 1] << 8 | p[2 * i]);
  };
  size_t i = 0;
  for (; i < units; ++i) {
    const char32_t u = unit(i);
    if (u < 0x80) {
      out += static_cast<char>(u);
    } else if (u >= 0xD800 && u < 0xDC00) {
      if (i + 1 == units && held_back) break;  // its partner has not arrived yet
      const char32_t low = i + 1 < units ? unit(i + 1) : 0;
      if (low >= 0xDC00 && low < 0xE000) {
        AppendUtf8(out, 0x10000 + ((u - 0xD800) << 10) + (low - 0xDC00));
        ++i;
      } else {
        AppendUtf8(out, 0xFFFD);
      }
    } else {
      AppendUtf8(out, u);  // a lone low surrogate becomes U+FFFD there
    }
  }
  if (held_back) {
    *held_back = std::string(bytes.substr(2 * i));
  } else if (bytes.size() % 2) {
    AppendUtf8(out, 0xFFFD);
  }
}

size_t Utf16Length(std::string_view text) {
  size_t n = 0;
  for (char c : text) n += UnitsOfLead(static_cast<unsigned char>(c));
  return n;
}

std::string_view LastCharacters(std::string_view text, size_t count) {
  size_t units = 0, i = text.size();
  while (i > 0) {
    size_t start = i - 1;
    while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80) --start;
    units += UnitsOfLead(static_cast<unsigned char>(text[start]));
    if (units > count) break;
    i = start;
  }
  return text.substr(i);
}

std::string_view FirstCharacters(std::string_view text, size_t count) {
  size_t units = 0, i = 0;
  while (i < text.size()) {
    size_t next = i + 1;
    while (next < text.size() && (static_cast<unsigned char>(text[next]) & 0xC0) == 0x80) ++next;
    units += UnitsOfLead(static_cast<unsigned char>(text[i]));
    if (units > count) break;
    i = next;
  }
  return text.substr(0, i);
}

}  // namespace ferrow
