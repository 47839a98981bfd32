#include "support/numbers.h"

#include <cmath>
#include <cstdlib>

#include "support/strings.h"

namespace ferrow {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Parses a number at the start of `text`; `used` is how many characters it took.
double ParseLeadingNumber(std::string_view text, size_t& used) {
  used = 0;
  if (text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h' || text[1] == 'O' || text[1] == 'o')) {
    const bool hex = text[1] == 'H' || text[1] == 'h';
    uint32_t value = 0;
    size_t i = 2;
    for (; i < text.size(); ++i) {
      char c = text[i];
      int digit = IsDigit(c) ? c - '0'
                  : (hex && c >= 'a' && c <= 'f') ? c - 'a' + 10
                  : (hex && c >= 'A' && c <= 'F') ? c - 'A' + 10 : -1;
      if (digit < 0 || (!hex && digit > 7)) break;
      value = value * (hex ? 16u : 8u) + static_cast<uint32_t>(digit);
    }
    if (i == 2) return 0;
    used = i;
    return static_cast<double>(static_cast<int32_t>(value));
  }
  size_t i = 0;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  size_t digits_start = i;
  while (i < text.size() && IsDigit(text[i])) ++i;
  size_t int_digits = i - digits_start;
  size_t frac_digits = 0;
  if (i < text.size() && text[i] == '.') {
    size_t j = i + 1;
    while (j < text.size() && IsDigit(text[j])) ++j;
    frac_digits = j - i - 1;
    if (int_digits + frac_digits > 0) i = j;
  }
  if (int_digits + frac_digits == 0) return 0;
  if (i < text.size() && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
    size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    size_t exp_start = j;
    while (j < text.size() && IsDigit(text[j])) ++j;
    if (j > exp_start) i = j;
  }
  used = i;
  std::string number(text.substr(0, i));
  for (char& c : number)
    if (c == 'D' || c == 'd') c = 'e';
  return std::strtod(number.c_str(), nullptr);
}

std::string_view SkipBlanks(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  return text;
}

}  // namespace

std::string GroupDigits(int64_t number) {
  return GroupDigitsText(std::to_string(number), ",", 3);
}

std::string GroupDigitsText(std::string_view text, std::string_view separator, int group_size) {
  if (text.empty() || group_size < 1) return std::string(text);
  const char sep = separator.empty() ? ',' : separator[0];
  size_t dot = text.find('.');
  std::string_view whole = TrimView(text.substr(0, dot));
  std::string reversed;
  int in_group = 0;
  for (size_t i = whole.size(); i > 0; --i) {
    char c = whole[i - 1];
    if (IsDigit(c)) {
      if (in_group == group_size) {
        reversed += sep;
        in_group = 0;
      }
      ++in_group;
    }
    reversed += c;
  }
  std::string out(reversed.rbegin(), reversed.rend());
  out = Trim(out);
  if (dot != std::string_view::npos) out += std::string(text.substr(dot));
  return out;
}

double Val(std::string_view text) {
  size_t used = 0;
  return ParseLeadingNumber(SkipBlanks(text), used);
}

bool IsNumeric(std::string_view text) {
  text = SkipBlanks(text);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  if (text.empty()) return false;
  size_t used = 0;
  ParseLeadingNumber(text, used);
  return used == text.size();
}

}  // namespace ferrow
