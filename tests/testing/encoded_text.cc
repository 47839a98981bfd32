#include "testing/encoded_text.h"

#include <fstream>

namespace ferrow::testing {

std::string Utf16Bytes(const std::string& text, bool big_endian) {
  std::string out;
  const auto unit = [&](char32_t u) {
    const char hi = static_cast<char>(u >> 8), lo = static_cast<char>(u & 0xFF);
    out += big_endian ? hi : lo;
    out += big_endian ? lo : hi;
  };
  for (size_t i = 0; i < text.size();) {
    const unsigned char b = static_cast<unsigned char>(text[i]);
    const int extra = b < 0x80 ? 0 : b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : 1;
    char32_t c = extra == 0 ? b : b & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) c = c << 6 | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    i += static_cast<size_t>(extra) + 1;
    if (c >= 0x10000) {
      unit(0xD800 + ((c - 0x10000) >> 10));
      unit(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
      unit(c);
    }
  }
  return out;
}

std::string Latin1(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    const unsigned char b = static_cast<unsigned char>(text[i]);
    if (b < 0x80) out += static_cast<char>(b);
    else out += static_cast<char>((b & 0x1F) << 6 | (static_cast<unsigned char>(text[++i]) & 0x3F));
  }
  return out;
}

std::vector<EncodedFile> EveryEncoding(const std::string& text, bool with_legacy) {
  std::vector<EncodedFile> files = {{"UTF-16LE", kUtf16LeMark + Utf16Le(text)},
                                    {"UTF-16BE", kUtf16BeMark + Utf16Be(text)},
                                    {"UTF-8 with mark", kUtf8Mark + text},
                                    {"UTF-8", text}};
  if (with_legacy) files.push_back({"ANSI", Latin1(text)});
  return files;
}

void AppendBytes(const std::string& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary | std::ios::app) << bytes;
}

}  // namespace ferrow::testing
