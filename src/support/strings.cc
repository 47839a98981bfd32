#include "support/strings.h"

namespace ferrow {
namespace {

char Upper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string_view TrimView(std::string_view text) {
  size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  size_t last = text.find_last_not_of(' ');
  return text.substr(first, last - first + 1);
}

std::string Trim(std::string_view text) { return std::string(TrimView(text)); }

std::string UpperCase(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = Upper(c);
  return out;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (Upper(a[i]) != Upper(b[i])) return false;
  return true;
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

void StripTrailing(std::string& text, char ch) {
  while (!text.empty() && text.back() == ch) text.pop_back();
}

std::string StripTrailingCopy(std::string text, char ch) {
  StripTrailing(text, ch);
  return text;
}

void StripOneTrailing(std::string& text, char ch) {
  if (!text.empty() && text.back() == ch) text.pop_back();
}

std::string RemoveChars(std::string_view text, std::string_view set) {
  std::string out;
  out.reserve(text.size());
  for (char c : text)
    if (set.find(c) == std::string_view::npos) out += c;
  return out;
}

std::string StripEnds(std::string_view text, std::string_view set) {
  size_t first = text.find_first_not_of(set);
  if (first == std::string_view::npos) return {};
  size_t last = text.find_last_not_of(set);
  return std::string(text.substr(first, last - first + 1));
}

std::string KeyOf(std::string_view line) {
  size_t eq = line.find('=');
  if (eq == std::string_view::npos) return {};
  return Trim(line.substr(0, eq));
}

}  // namespace ferrow
