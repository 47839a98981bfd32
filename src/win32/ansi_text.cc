#include "win32/ansi_text.h"

#include <windows.h>

namespace ferrow::win32 {
namespace {

std::string Convert(const std::string& text, UINT from, UINT to) {
  if (text.empty()) return {};
  const int n = static_cast<int>(text.size());
  const int wide_length = MultiByteToWideChar(from, 0, text.data(), n, nullptr, 0);
  if (wide_length <= 0) return text;
  std::wstring wide(static_cast<size_t>(wide_length), L'\0');
  MultiByteToWideChar(from, 0, text.data(), n, wide.data(), wide_length);
  const int length = WideCharToMultiByte(to, 0, wide.data(), wide_length, nullptr, 0, nullptr, nullptr);
  if (length <= 0) return text;
  std::string out(static_cast<size_t>(length), '\0');
  WideCharToMultiByte(to, 0, wide.data(), wide_length, out.data(), length, nullptr, nullptr);
  return out;
}

}  // namespace

std::string ToAnsi(const std::string& utf8) { return Convert(utf8, CP_UTF8, CP_ACP); }
std::string FromAnsi(const std::string& ansi) { return Convert(ansi, CP_ACP, CP_UTF8); }

bool ToAnsiExactly(const std::wstring& wide, std::string* ansi) {
  ansi->clear();
  if (wide.empty()) return true;
  const int n = static_cast<int>(wide.size());
  BOOL lost = FALSE;
  const int length = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), n, nullptr, 0, nullptr, &lost);
  if (length <= 0 || lost) return false;
  ansi->assign(static_cast<size_t>(length), '\0');
  WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), n, ansi->data(), length, nullptr, &lost);
  // A round trip proves it: some code pages fold characters without saying so.
  if (lost || WideFromAnsi(*ansi) != wide) {
    ansi->clear();
    return false;
  }
  return true;
}

std::string AnsiOrQuestionMarks(const std::wstring& wide) {
  if (wide.empty()) return {};
  const int n = static_cast<int>(wide.size());
  const int length = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), n, nullptr, 0, "?", nullptr);
  if (length <= 0) return {};
  std::string out(static_cast<size_t>(length), '\0');
  WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.data(), n, out.data(), length, "?", nullptr);
  return out;
}

std::wstring WideFromAnsi(const std::string& ansi) {
  if (ansi.empty()) return {};
  const int n = static_cast<int>(ansi.size());
  const int length = MultiByteToWideChar(CP_ACP, 0, ansi.data(), n, nullptr, 0);
  if (length <= 0) return {};
  std::wstring out(static_cast<size_t>(length), L'\0');
  MultiByteToWideChar(CP_ACP, 0, ansi.data(), n, out.data(), length);
  return out;
}

std::string WithCrLf(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) out += '\r';
    out += text[i];
  }
  return out;
}

}  // namespace ferrow::win32
