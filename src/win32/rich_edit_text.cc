// The box's plain text in pieces: read as long as the control says, found
// without copying the whole text, inserted a line at a time.
#include <richedit.h>

#include <algorithm>

#include "win32/rich_edit_box.h"

namespace ferrow::win32 {

// UTF-16, a CR at each break; the count the control gives, not the first NUL,
// ends it.
std::wstring RichEditBox::WideText(DWORD flags, int64_t length) {
  std::wstring buffer(static_cast<size_t>(length) + 1, L'\0');
  GETTEXTEX how{static_cast<DWORD>(buffer.size() * sizeof(wchar_t)), flags, 1200, nullptr, nullptr};
  const LRESULT n =
      Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(buffer.data()));
  buffer.resize(n > 0 && static_cast<size_t>(n) < buffer.size() ? static_cast<size_t>(n) : 0);
  return buffer;
}

wchar_t RichEditBox::CharAt(int64_t position) {
  wchar_t buffer[2] = {};
  TEXTRANGEW range{{static_cast<LONG>(position), static_cast<LONG>(position + 1)}, buffer};
  return Send(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range)) == 1 ? buffer[0] : L'\0';
}

// Ten lines at a time: the control gives every line of one insertion room
// for all the rest of it (some 8 KB a line for a 100-line block, for as long
// as the line is shown), while each insertion costs it a pass over its
// lines. EM_REPLACESEL ends its text at the first NUL; a piece that holds
// one goes in through the plain-text stream, which is counted.
// Every piece takes the format the first one was given: after a line break
// the control would give the next piece the format of the text's last
// paragraph mark instead (Wine's: black, in the control's own font).
void RichEditBox::InsertAtCaret(const std::wstring& text) {
  if (text.empty()) {
    Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
    ForgetUndo();
    return;
  }
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  constexpr int kLinesPerInsertion = 10;
  for (size_t from = 0; from < text.size();) {
    if (from > 0) Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    size_t end = from;
    for (int lines = 0; lines < kLinesPerInsertion && end < text.size(); ++lines) {
      end = text.find_first_of(L"\r\n", end);
      if (end == std::wstring::npos) end = text.size();
      else end += text[end] == L'\r' && end + 1 < text.size() && text[end + 1] == L'\n' ? 2 : 1;
    }
    const std::wstring piece = text.substr(from, end - from);
    if (piece.find(L'\0') == std::wstring::npos)
      Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(piece.c_str()));
    else
      StreamInSelection(hwnd_, piece);
    from = end;
  }
  ForgetUndo();
}

// The one step of undo the control keeps holds what was deleted or changed
// last: let go of it at once, so memory stays flat and nothing can be undone.
void RichEditBox::ForgetUndo() { Send(EM_EMPTYUNDOBUFFER); }

// The control streams a NUL of a document in as a blank; plain text keeps it.
// Each one goes back where the document has it, in the colour of its place
// (a paragraph mark counts one character both in `plain` and in the control).
void RichEditBox::RestoreNuls(const std::wstring& plain) {
  for (size_t at = plain.find(L'\0'); at != std::wstring::npos; at = plain.find(L'\0', at + 1)) {
    SetSelection(static_cast<int64_t>(at), static_cast<int64_t>(at) + 1);
    InsertAtCaret(std::wstring(1, L'\0'));
  }
}

// Reads on from `from` a piece at a time, each twice the last, so finding
// the first line break (each trim asks for it) costs about the length of the
// first line, not of the whole text.
int64_t RichEditBox::Find(char c, int64_t from) {
  const wchar_t wanted = c == '\n' ? L'\r' : static_cast<wchar_t>(static_cast<unsigned char>(c));
  Settle();
  const int64_t length = TextLength();
  std::wstring buffer;
  int64_t piece = 256;
  for (int64_t at = from < 0 ? length : from; at < length;
       at += piece, piece = std::min<int64_t>(piece * 2, 1 << 16)) {
    const int64_t end = std::min(at + piece, length);
    buffer.assign(static_cast<size_t>(end - at) + 1, L'\0');
    TEXTRANGEW range{{static_cast<LONG>(at), static_cast<LONG>(end)}, buffer.data()};
    const LRESULT n = Send(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
    for (LRESULT i = 0; i < n; ++i)
      if (buffer[static_cast<size_t>(i)] == wanted) return at + i;
    if (n <= 0) break;
  }
  return -1;
}

}  // namespace ferrow::win32
