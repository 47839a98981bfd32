// Bytes of the followed file to text (UTF-8).
//
// A followed file's encoding is decided from its first bytes: a byte-order
// mark (UTF-8, UTF-16LE, UTF-16BE) decides; without one the first bytes that
// are not ASCII do: a well-formed UTF-8 sequence means UTF-8, anything else
// the legacy code page (the ANSI code page on Windows, Windows-1252
// elsewhere). Until then everything seen was ASCII, which reads the same in
// each. A character split between two reads is held back and shown whole with
// the next read; the mark itself is never shown.
//
// A decoder made without an encoding reads the platform's own file text, as
// the program always did: UTF-8 on POSIX, where bytes that are not UTF-8 show
// as one replacement mark each, and the ANSI code page on Windows.
#pragma once

#include <cstdint>
#include <string>

#include "support/text_encoding.h"

namespace ferrow {

class Env;

class TextDecoder {
 public:
  explicit TextDecoder(Env& env);
  // A decoder in `encoding`; kUndecided: a followed file, decided from its bytes.
  TextDecoder(Env& env, TextEncoding encoding)
      : env_(env), encoding_(encoding), head_seen_(encoding != TextEncoding::kUndecided) {}

  // The text of `bytes`, which follow the bytes of the previous call.
  std::string Decode(const std::string& bytes);
  // Forgets a held-back partial character (the file shrank, or following restarted).
  void Reset() {
    pending_.clear();
    next_offset_ = -1;
  }
  // The text of a read that may start in the middle of a character.
  std::string DecodeFresh(const std::string& bytes);

  // A file opened anew: its encoding is decided again from its first bytes.
  void StartFile();
  // The first bytes of the file (at least 3 when the file has them): a
  // byte-order mark there decides the encoding. Looked at once per StartFile.
  void LookAtHead(const std::string& head);
  bool WantsHead() const { return !head_seen_; }
  // The text of `bytes` read at the 0-based file `offset`: they continue the
  // previous read when they start where it ended, else they are a fresh start
  // (an odd UTF-16 byte or the tail of a character cut in two is dropped).
  std::string DecodeAt(const std::string& bytes, int64_t offset);

  TextEncoding encoding() const { return encoding_; }

 private:
  std::string DecodeAs(const std::string& bytes, bool hold_back);
  std::string Legacy(const std::string& bytes);

  Env& env_;
  TextEncoding encoding_;
  std::string pending_;
  int64_t next_offset_ = -1;  // where the held-back bytes end; -1: no read yet
  size_t mark_length_ = 0;
  bool head_seen_ = true;
};

// UTF-8 with every ill-formed byte replaced by U+FFFD; `held_back` receives
// an incomplete sequence at the very end, when it is given.
std::string SanitiseUtf8(const std::string& bytes, std::string* held_back);

// The length of the well-formed UTF-8 sequence at `i`: 0 when ill-formed,
// -1 when the bytes end inside it.
int Utf8SequenceLength(const std::string& s, size_t i);

}  // namespace ferrow
