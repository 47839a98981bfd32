// Bytes of the followed file to text. On POSIX the file is UTF-8 (the
// locale's encoding): a character split between two reads is held back and
// shown whole with the next read, and bytes that are not UTF-8 show as one
// replacement mark each. On Windows every byte is a character of the ANSI
// code page.
#pragma once

#include <string>

namespace ferrow {

class Env;

class TextDecoder {
 public:
  explicit TextDecoder(Env& env) : env_(env) {}

  // The text of `bytes`, which follow the bytes of the previous call.
  std::string Decode(const std::string& bytes);
  // Forgets a held-back partial character (the file shrank, or following restarted).
  void Reset() { pending_.clear(); }
  // The text of a read that may start in the middle of a character.
  std::string DecodeFresh(const std::string& bytes);

 private:
  Env& env_;
  std::string pending_;
};

// UTF-8 with every ill-formed byte replaced by U+FFFD; `held_back` receives
// an incomplete sequence at the very end, when it is given.
std::string SanitiseUtf8(const std::string& bytes, std::string* held_back);

}  // namespace ferrow
