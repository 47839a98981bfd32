#include "display/rtf_escape.h"

namespace ferrow {
namespace {

std::string Escape(std::string_view text, bool backslashes) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  for (char c : text) {
    if (c == '{' || c == '}' || (backslashes && c == '\\')) out += '\\';
    out += c;
  }
  return out;
}

}  // namespace

std::string RTFEscape(std::string_view text) { return Escape(text, true); }
std::string EscapeBraces(std::string_view text) { return Escape(text, false); }

}  // namespace ferrow
