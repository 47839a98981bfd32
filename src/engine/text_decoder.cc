#include "engine/text_decoder.h"

#include "platform/env.h"

namespace ferrow {
namespace {

constexpr char kReplacement[] = "\xEF\xBF\xBD";

// The length of the well-formed sequence starting at `i`, 0 when ill-formed,
// -1 when it is cut off by the end of the bytes.
int SequenceLength(const std::string& s, size_t i) {
  const unsigned char b = static_cast<unsigned char>(s[i]);
  if (b < 0x80) return 1;
  int n = b >= 0xC2 && b <= 0xDF ? 2 : b >= 0xE0 && b <= 0xEF ? 3 : b >= 0xF0 && b <= 0xF4 ? 4 : 0;
  if (n == 0) return 0;
  for (int k = 1; k < n; ++k) {
    if (i + static_cast<size_t>(k) >= s.size()) return -1;
    const unsigned char c = static_cast<unsigned char>(s[i + static_cast<size_t>(k)]);
    if ((c & 0xC0) != 0x80) return 0;
    if (k == 1 && ((b == 0xE0 && c < 0xA0) || (b == 0xED && c > 0x9F) || (b == 0xF0 && c < 0x90) ||
                   (b == 0xF4 && c > 0x8F)))
      return 0;
  }
  return n;
}

}  // namespace

std::string SanitiseUtf8(const std::string& bytes, std::string* held_back) {
  std::string out;
  out.reserve(bytes.size());
  for (size_t i = 0; i < bytes.size();) {
    int n = SequenceLength(bytes, i);
    if (n < 0 && held_back) {
      *held_back = bytes.substr(i);
      break;
    }
    if (n <= 0) {
      out += kReplacement;
      ++i;
      continue;
    }
    out.append(bytes, i, static_cast<size_t>(n));
    i += static_cast<size_t>(n);
  }
  return out;
}

std::string TextDecoder::Decode(const std::string& bytes) {
  if (!env_.FileTextIsUtf8()) return env_.AnsiToUtf8(bytes);
  std::string all = pending_ + bytes;
  pending_.clear();
  return SanitiseUtf8(all, &pending_);
}

std::string TextDecoder::DecodeFresh(const std::string& bytes) {
  Reset();
  if (!env_.FileTextIsUtf8()) return env_.AnsiToUtf8(bytes);
  // Up to three continuation bytes at the start belong to a character cut in two.
  size_t start = 0;
  while (start < bytes.size() && start < 3 && (static_cast<unsigned char>(bytes[start]) & 0xC0) == 0x80)
    ++start;
  return SanitiseUtf8(bytes.substr(start), nullptr);
}

}  // namespace ferrow
