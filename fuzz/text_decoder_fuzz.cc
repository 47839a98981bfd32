// The followed file's bytes to text, in every encoding (decided from the
// bytes, or given), cut into reads at any places: the text is always valid
// UTF-8, and cutting never changes it. Reads that start anywhere in the file
// and the upper case of the text the filters use keep it valid too.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "engine/text_decoder.h"
#include "fuzz_input.h"
#include "platform/env.h"
#include "support/text_case.h"
#include "support/text_encoding.h"

namespace {

using ferrow::TextDecoder;
using ferrow::TextEncoding;

bool ValidUtf8(const std::string& s) {
  std::string held;
  return ferrow::SanitiseUtf8(s, &held) == s && held.empty();
}

void Check(bool ok) {
  if (!ok) std::abort();
}

constexpr TextEncoding kEncodings[] = {TextEncoding::kUndecided, TextEncoding::kLegacy,
                                       TextEncoding::kUtf8, TextEncoding::kUtf16Le,
                                       TextEncoding::kUtf16Be};

// A decoder for a followed file: deciding from its bytes, or in `e` already.
TextDecoder FileDecoder(TextEncoding e) {
  TextDecoder decoder(*ferrow::Env::Default(), e);
  if (e == TextEncoding::kUndecided) decoder.StartFile();
  return decoder;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ferrow::fuzz::Input in(data, size);
  const uint8_t cut = in.Byte();
  const uint8_t choice = in.Byte();
  const uint8_t start = in.Byte();
  const std::string bytes = in.Rest();
  const size_t step = cut == 0 ? 1 : cut;

  // The platform's own decoder, as the program always read files.
  TextDecoder whole(*ferrow::Env::Default()), pieces(*ferrow::Env::Default());
  const std::string at_once = whole.Decode(bytes);
  std::string in_pieces;
  for (size_t at = 0; at < bytes.size(); at += step) in_pieces += pieces.Decode(bytes.substr(at, step));
  Check(ValidUtf8(at_once) && in_pieces == at_once);
  Check(ValidUtf8(whole.DecodeFresh(bytes)));

  // A followed file in each encoding, read as the poll reads it.
  const TextEncoding e = kEncodings[choice % 5];
  TextDecoder file_whole = FileDecoder(e), file_pieces = FileDecoder(e);
  const std::string file_at_once = file_whole.DecodeAt(bytes, 0);
  std::string file_in_pieces;
  for (size_t at = 0; at < bytes.size(); at += step)
    file_in_pieces += file_pieces.DecodeAt(bytes.substr(at, step), static_cast<int64_t>(at));
  Check(ValidUtf8(file_at_once) && file_in_pieces == file_at_once);
  Check(file_whole.encoding() == file_pieces.encoding());

  // A read from the middle, after the head was looked at (a restart, a rotation).
  TextDecoder middle = FileDecoder(e);
  middle.LookAtHead(bytes.substr(0, 3));
  const size_t from = bytes.empty() ? 0 : start % bytes.size();
  Check(ValidUtf8(middle.DecodeAt(bytes.substr(from), static_cast<int64_t>(from))));

  Check(ValidUtf8(ferrow::UpperCaseText(file_at_once)));
  Check(ferrow::Utf16Length(ferrow::LastCharacters(file_at_once, start)) <= start);
  return 0;
}
