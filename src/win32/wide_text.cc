#include "win32/wide_text.h"

#include <windows.h>

namespace ferrow::win32 {

std::wstring ToWide(const std::string& utf8) {
  if (utf8.empty()) return {};
  const int n = static_cast<int>(utf8.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), n, nullptr, 0);
  if (length <= 0) return {};
  std::wstring wide(static_cast<size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), n, wide.data(), length);
  return wide;
}

std::string FromWide(const wchar_t* text, size_t length) {
  if (length == 0) return {};
  const int n = static_cast<int>(length);
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, n, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return {};
  std::string out(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, n, out.data(), size, nullptr, nullptr);
  return out;
}

std::string ProgramBreaks(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') out += text[i];
    else if (i + 1 >= text.size() || text[i + 1] != '\n') out += '\n';
  }
  return out;
}

}  // namespace ferrow::win32
