#include "engine/text_decoder.h"

#include <algorithm>

#include "platform/env.h"
#include "support/codepage.h"

namespace ferrow {
namespace {

constexpr char kReplacement[] = "\xEF\xBF\xBD";

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// The tail of a character cut in two by a read that starts inside it (at an
// odd file offset when `odd`).
size_t CutTail(const std::string& bytes, TextEncoding e, bool odd) {
  if (CodeUnitBytes(e) == 2) {
    size_t skip = odd ? 1 : 0;  // units lie at even offsets (the mark is 2 bytes)
    if (bytes.size() >= skip + 2) {
      const auto* p = reinterpret_cast<const unsigned char*>(bytes.data() + skip);
      const unsigned high = e == TextEncoding::kUtf16Be ? p[0] : p[1];
      if (high >= 0xDC && high < 0xE0) skip += 2;  // the second half of a surrogate pair
    }
    return std::min(skip, bytes.size());
  }
  if (e == TextEncoding::kLegacy) return 0;
  size_t start = 0;  // UTF-8, or undecided: what decides must not be a cut tail
  while (start < bytes.size() && start < 3 && IsContinuation(bytes[start])) ++start;
  return start;
}

}  // namespace

int Utf8SequenceLength(const std::string& s, size_t i) {
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

std::string SanitiseUtf8(const std::string& bytes, std::string* held_back) {
  std::string out;
  out.reserve(bytes.size());
  for (size_t i = 0; i < bytes.size();) {
    // ASCII runs are the common case: copy them in one go.
    size_t ascii = i;
    while (ascii < bytes.size() && static_cast<unsigned char>(bytes[ascii]) < 0x80) ++ascii;
    if (ascii > i) {
      out.append(bytes, i, ascii - i);
      i = ascii;
      continue;
    }
    int n = Utf8SequenceLength(bytes, i);
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

TextDecoder::TextDecoder(Env& env)
    : env_(env), encoding_(env.FileTextIsUtf8() ? TextEncoding::kUtf8 : TextEncoding::kLegacy) {}

std::string TextDecoder::Legacy(const std::string& bytes) {
  if (!env_.FileTextIsUtf8()) return env_.AnsiToUtf8(bytes);
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (size_t i = 0; i < bytes.size();) {
    size_t ascii = i;  // ASCII runs are the common case: copy them in one go
    while (ascii < bytes.size() && static_cast<unsigned char>(bytes[ascii]) < 0x80) ++ascii;
    out.append(bytes, i, ascii - i);
    if (ascii == bytes.size()) break;
    AppendUtf8(out, CodePageToUnicode(static_cast<unsigned char>(bytes[ascii]), 1252));
    i = ascii + 1;
  }
  return out;
}

// Decides an undecided encoding from the first byte that is not ASCII, then
// decodes; with `hold_back` an incomplete sequence at the end waits for more.
std::string TextDecoder::DecodeAs(const std::string& bytes, bool hold_back) {
  std::string* held = hold_back ? &pending_ : nullptr;
  if (encoding_ == TextEncoding::kUndecided) {
    const auto first = std::find_if(bytes.begin(), bytes.end(),
                                    [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    if (first == bytes.end()) return bytes;
    const size_t at = static_cast<size_t>(first - bytes.begin());
    const int n = Utf8SequenceLength(bytes, at);
    if (n < 0 && hold_back) {  // too early to tell
      pending_ = bytes.substr(at);
      return bytes.substr(0, at);
    }
    encoding_ = n > 1 ? TextEncoding::kUtf8 : TextEncoding::kLegacy;
  }
  switch (encoding_) {
    case TextEncoding::kUtf8:
      return SanitiseUtf8(bytes, held);
    case TextEncoding::kUtf16Le:
    case TextEncoding::kUtf16Be: {
      std::string out;
      out.reserve(bytes.size() / 2 + 8);
      AppendUtf16(out, bytes, encoding_ == TextEncoding::kUtf16Be, held);
      return out;
    }
    default:
      return Legacy(bytes);
  }
}

std::string TextDecoder::Decode(const std::string& bytes) {
  std::string all = pending_ + bytes;
  pending_.clear();
  if (next_offset_ >= 0) next_offset_ += static_cast<int64_t>(bytes.size());
  return DecodeAs(all, true);
}

std::string TextDecoder::DecodeFresh(const std::string& bytes) {
  Reset();
  return DecodeAs(bytes.substr(CutTail(bytes, encoding_, false)), false);
}

void TextDecoder::StartFile() {
  Reset();
  encoding_ = TextEncoding::kUndecided;
  mark_length_ = 0;
  head_seen_ = false;
}

void TextDecoder::LookAtHead(const std::string& head) {
  if (head_seen_) return;
  bool complete = false;
  const ByteOrderMark mark = FindByteOrderMark(head, &complete);
  if (!complete) return;  // a mark's beginning, or nothing yet: look again later
  head_seen_ = true;
  if (mark.length == 0 || encoding_ != TextEncoding::kUndecided) return;
  encoding_ = mark.encoding;
  mark_length_ = mark.length;
}

std::string TextDecoder::DecodeAt(const std::string& bytes, int64_t offset) {
  const bool fresh = offset != next_offset_;
  if (fresh) pending_.clear();
  const int64_t start = offset - static_cast<int64_t>(pending_.size());
  std::string joined;  // copied only when a character was held back
  if (!pending_.empty()) joined = pending_ + bytes;
  const std::string& all = pending_.empty() ? bytes : joined;
  pending_.clear();
  next_offset_ = offset + static_cast<int64_t>(bytes.size());
  if (start == 0) LookAtHead(all);
  if (start == 0 && !head_seen_) {  // the beginning of a mark, perhaps: wait for the rest
    pending_ = all;
    return {};
  }
  const int64_t mark = static_cast<int64_t>(mark_length_);
  size_t skip = 0;
  if (start < mark) skip = static_cast<size_t>(mark - start);  // the mark is never shown
  else if (fresh && start > 0) skip = CutTail(all, encoding_, start % 2 != 0);
  skip = std::min(skip, all.size());
  const bool undecided = encoding_ == TextEncoding::kUndecided;
  std::string text = skip == 0 ? DecodeAs(all, true) : DecodeAs(all.substr(skip), true);
  if (undecided && encoding_ == TextEncoding::kLegacy && skip > 0 && start >= mark) {
    pending_.clear();
    text = DecodeAs(all, true);  // decided legacy: what looked like a cut tail is text
  }
  return text;
}

}  // namespace ferrow
