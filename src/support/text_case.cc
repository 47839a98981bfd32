#include "support/text_case.h"

#include "support/codepage.h"

namespace ferrow {
namespace {

// In these ranges an even code point is the capital of the odd one after it.
constexpr char32_t kEvenUpperPairs[][2] = {
    {0x0100, 0x012F}, {0x0132, 0x0137}, {0x014A, 0x0177}, {0x0182, 0x0185}, {0x01A0, 0x01A5},
    {0x01DE, 0x01EF}, {0x01F8, 0x021F}, {0x0222, 0x0233}, {0x03D8, 0x03EF}, {0x0460, 0x0481},
    {0x048A, 0x04BF}, {0x04D0, 0x052F}, {0x1E00, 0x1E95}, {0x1EA0, 0x1EFF}};
// And here an odd one is the capital of the even one after it.
constexpr char32_t kOddUpperPairs[][2] = {
    {0x0139, 0x0148}, {0x0179, 0x017E}, {0x01CD, 0x01DC}, {0x04C1, 0x04CE}};

}  // namespace

char32_t UpperCodePoint(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 0x20 : c;
  if ((c >= 0xE0 && c <= 0xFE && c != 0xF7) || (c >= 0x3B1 && c <= 0x3CB && c != 0x3C2) ||
      (c >= 0x430 && c <= 0x44F))
    return c - 0x20;
  if (c >= 0x450 && c <= 0x45F) return c - 0x50;
  if (c >= 0xFF41 && c <= 0xFF5A) return c - 0x20;  // full-width Latin
  switch (c) {
    case 0xFF: return 0x178;
    case 0xB5: return 0x39C;
    case 0x3C2: return 0x3A3;
    case 0x3AC: return 0x386;
    case 0x3AD: case 0x3AE: case 0x3AF: return c - 0x25;
    case 0x3CC: return 0x38C;
    case 0x3CD: case 0x3CE: return c - 0x3F;
    default: break;
  }
  for (const auto& r : kEvenUpperPairs)
    if (c >= r[0] && c <= r[1]) return c % 2 ? c - 1 : c;
  for (const auto& r : kOddUpperPairs)
    if (c >= r[0] && c <= r[1]) return c % 2 ? c : c - 1;
  return c;
}

std::string UpperCaseText(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    const unsigned char b = static_cast<unsigned char>(text[i]);
    if (b < 0x80) {
      out += static_cast<char>(b >= 'a' && b <= 'z' ? b - 0x20 : b);
      ++i;
      continue;
    }
    const size_t extra = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC0 ? 1 : 0;
    bool whole = extra > 0;
    char32_t c = b & (0x3F >> extra);
    for (size_t k = 1; whole && k <= extra; ++k) {
      if (i + k >= text.size() || (static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) whole = false;
      else c = c << 6 | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    }
    if (!whole) {
      out += static_cast<char>(b);
      ++i;
      continue;
    }
    AppendUtf8(out, UpperCodePoint(c));
    i += extra + 1;
  }
  return out;
}

}  // namespace ferrow
