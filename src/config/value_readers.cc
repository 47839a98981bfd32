#include "config/value_readers.h"

#include <algorithm>
#include <cmath>

#include "config/ini_file.h"
#include "display/colours.h"
#include "support/numbers.h"
#include "support/strings.h"

namespace ferrow {

bool WholeNumber(const std::string& value, double& number) {
  if (!IsNumeric(value)) return false;
  number = std::nearbyint(Val(value));  // ties to even, like BASIC's CInt and CLng
  return true;
}

std::string SectionReader::Raw(const char* key) const { return ReadINIFile(env, ini, section, key); }

void SectionReader::String(const char* key, std::string& field) const {
  std::string value = Raw(key);
  if (!value.empty()) field = value;
}

void SectionReader::Bool(const char* key, bool& field) const {
  bool value = false;
  if (ReadINIBool(env, ini, section, key, value)) field = value;
}

void SectionReader::BasicBool(const char* key, bool& field) const {
  std::string value = Trim(Raw(key));
  if (EqualsNoCase(value, "True")) field = true;
  else if (EqualsNoCase(value, "False")) field = false;
  else if (IsNumeric(value)) field = Val(value) != 0;
}

void SectionReader::Colour(const char* key, ferrow::Colour& field) const {
  std::string value = Trim(Raw(key));
  if (value.empty()) return;
  double number = 0;
  if (WholeNumber(value, number) || WholeNumber("&h" + value, number)) {
    if (number >= INT32_MIN && number <= 4294967295.0)
      field = static_cast<ferrow::Colour>(static_cast<int64_t>(number));
    return;
  }
  TryColourFromName(value, field);
}

bool SectionReader::Number(const keys::NumberKey& key, int64_t& field) const {
  double number = 0;
  if (!WholeNumber(Raw(key.name), number)) return false;
  if (key.clamp) number = std::min<double>(std::max<double>(number, key.min), key.max);
  if (number < key.min || number > key.max) return false;
  field = static_cast<int64_t>(number);
  return true;
}

void SectionReader::Number(const keys::NumberKey& key, int32_t& field) const {
  int64_t value = 0;
  if (Number(key, value)) field = static_cast<int32_t>(value);
}

void SectionReader::Number(const keys::NumberKey& key, int16_t& field) const {
  int64_t value = 0;
  if (Number(key, value) && value >= INT16_MIN && value <= INT16_MAX)
    field = static_cast<int16_t>(value);
}

}  // namespace ferrow
