#include <richedit.h>

#include "support/codepage.h"
#include "win32/rich_edit_box.h"

namespace ferrow::win32 {
namespace {

struct Reading {
  const std::string* text;
  size_t at;
};

DWORD CALLBACK ReadChunk(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
  auto* reading = reinterpret_cast<Reading*>(cookie);
  const size_t left = reading->text->size() - reading->at;
  const size_t n = left < static_cast<size_t>(wanted) ? left : static_cast<size_t>(wanted);
  memcpy(buffer, reading->text->data() + reading->at, n);
  reading->at += n;
  *given = static_cast<LONG>(n);
  return 0;
}

DWORD CALLBACK WriteChunk(DWORD_PTR cookie, LPBYTE buffer, LONG length, LONG* taken) {
  reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<char*>(buffer), length);
  *taken = length;
  return 0;
}

// Documents hold the file's text as UTF-8 where it was UTF-8; the control
// reads raw bytes in the document's code page, so such characters go in as
// "\uN?" (the documents say "\uc1").
std::string UnicodeEscaped(const std::string& document) {
  bool plain = true;
  for (unsigned char c : document) plain = plain && c < 0x80;
  if (plain || !IsValidUtf8(document)) return document;
  const int n = MultiByteToWideChar(CP_UTF8, 0, document.data(), static_cast<int>(document.size()),
                                    nullptr, 0);
  std::wstring wide(static_cast<size_t>(n), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, document.data(), static_cast<int>(document.size()), wide.data(), n);
  std::string out;
  out.reserve(document.size() + 16);
  for (wchar_t w : wide) {
    if (w < 0x80) {
      out += static_cast<char>(w);
    } else {
      const int unit = w >= 0x8000 ? static_cast<int>(w) - 65536 : static_cast<int>(w);
      out += "\\u" + std::to_string(unit) + "?";
    }
  }
  return out;
}

// The colour table's first entries are written "\Red", "\Green", "\Blue";
// the control knows only the lower-case words and would show those colours
// as its default one. Our own reader takes both.
std::string LowerCaseColourWords(std::string document) {
  const size_t table = document.find("{\\colortbl");
  if (table == std::string::npos) return document;
  const size_t end = document.find('}', table);
  for (const char* word : {"\\Red", "\\Green", "\\Blue"}) {
    for (size_t at = document.find(word, table); at < end; at = document.find(word, at + 1))
      document[at + 1] = static_cast<char>(document[at + 1] - 'A' + 'a');
  }
  return document;
}

}  // namespace

void StreamIn(HWND control, const std::string& document) {
  const std::string bytes = UnicodeEscaped(LowerCaseColourWords(document));
  Reading reading{&bytes, 0};
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&reading), 0, ReadChunk};
  SendMessageA(control, EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
}

void StreamInSelection(HWND control, const std::wstring& text) {
  const std::string bytes(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
  Reading reading{&bytes, 0};
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&reading), 0, ReadChunk};
  SendMessageW(control, EM_STREAMIN, SF_TEXT | SF_UNICODE | SFF_SELECTION,
               reinterpret_cast<LPARAM>(&stream));
}

std::string StreamOut(HWND control, bool selection_only) {
  std::string out;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&out), 0, WriteChunk};
  SendMessageA(control, EM_STREAMOUT, SF_RTF | (selection_only ? SFF_SELECTION : 0),
               reinterpret_cast<LPARAM>(&stream));
  return out;
}

}  // namespace ferrow::win32
