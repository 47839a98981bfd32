// Reading one key into one field of the option record. Each reader leaves the
// field as it was when the key is missing, empty or not of the right form.
#pragma once

#include <cstdint>
#include <string>

#include "config/keys.h"
#include "session/options.h"

namespace ferrow {

class Env;

struct SectionReader {
  Env& env;
  const std::string& ini;
  const std::string& section;

  std::string Raw(const char* key) const;
  void String(const char* key, std::string& field) const;  // non-empty
  void Bool(const char* key, bool& field) const;           // YES/NO/1/0/TRUE/FALSE
  void BasicBool(const char* key, bool& field) const;      // "True"/"False" or a number
  void Colour(const char* key, ferrow::Colour& field) const;
  // A whole number, clamped into or else ignored outside the key's range
  // and the field's type.
  bool Number(const keys::NumberKey& key, int64_t& field) const;
  void Number(const keys::NumberKey& key, int32_t& field) const;
  void Number(const keys::NumberKey& key, int16_t& field) const;
};

// The number a value holds as a whole number (rounded as BASIC rounds), when
// the whole value is numeric.
bool WholeNumber(const std::string& value, double& number);

}  // namespace ferrow
