#include "win32/rich_edit_box.h"

#include <richedit.h>

#include <vector>

#include "display/text_window_proc.h"
#include "win32/ansi_text.h"

namespace ferrow::win32 {
namespace {

constexpr char kSavedProcProperty[] = "FerrowSavedTextWndProc";
// No limit, as far as the control goes.
constexpr LPARAM kUnlimited = 0x7FFFFFFE;

// The control's breaks (CR) as the program's ("\n").
std::string ProgramBreaks(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') out += text[i];
    else if (i + 1 >= text.size() || text[i + 1] != '\n') out += '\n';
  }
  return out;
}

const char* LoadRichEdit() {
  static const char* name = [] {
    if (LoadLibraryA("Msftedit.dll")) return "RICHEDIT50W";
    LoadLibraryA("Riched20.dll");
    return "RichEdit20A";
  }();
  return name;
}

}  // namespace

const char* RichEditBox::ClassName() { return LoadRichEdit(); }

RichEditBox::RichEditBox(HWND parent, int id) {
  hwnd_ = CreateWindowExA(0, LoadRichEdit(), "",
                          WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE |
                              ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_NOHIDESEL | ES_READONLY,
                          0, 0, 100, 100, parent,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                          GetModuleHandleA(nullptr), nullptr);
  // Read-only for the user, as the other toolkit's box: the control would act
  // on some keys (Backspace) before their character can be discarded.
  // Undo would keep every trimmed line; the user may not undo anyway.
  Send(EM_SETUNDOLIMIT, 0);
  Send(EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_KEYEVENTS | ENM_DROPFILES);
  Send(EM_EXLIMITTEXT, 0, kUnlimited);
  ApplyFont();
}

RichEditBox::~RichEditBox() {
  Unsubclass();
  if (IsWindow(hwnd_)) DestroyWindow(hwnd_);
}

LRESULT RichEditBox::Send(UINT message, WPARAM wparam, LPARAM lparam) const {
  return SendMessageA(hwnd_, message, wparam, lparam);
}

LRESULT CALLBACK RichEditBox::TextWindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  auto saved = reinterpret_cast<WNDPROC>(GetPropA(hwnd, kSavedProcProperty));
  if (TextWindowProcSwallows(message, static_cast<uint64_t>(wparam))) return 0;
  return saved ? CallWindowProcA(saved, hwnd, message, wparam, lparam)
               : DefWindowProcA(hwnd, message, wparam, lparam);
}

void RichEditBox::Subclass() {
  if (saved_proc_) return;
  saved_proc_ = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(hwnd_, GWLP_WNDPROC));
  SetPropA(hwnd_, kSavedProcProperty, reinterpret_cast<HANDLE>(saved_proc_));
  SetWindowLongPtrA(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TextWindowProc));
}

void RichEditBox::Unsubclass() {
  if (!saved_proc_) return;
  SetWindowLongPtrA(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(saved_proc_));
  RemovePropA(hwnd_, kSavedProcProperty);
  saved_proc_ = nullptr;
}

int64_t RichEditBox::TextLength() {
  GETTEXTLENGTHEX how{GTL_NUMCHARS | GTL_PRECISE, 1200};
  return Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how));
}

// One byte per character in the single-byte ANSI code pages, a CR at each break.
std::string RichEditBox::AnsiText() {
  std::vector<char> buffer(static_cast<size_t>(TextLength()) * 2 + 2, '\0');
  GETTEXTEX how{static_cast<DWORD>(buffer.size()), GT_DEFAULT, CP_ACP, nullptr, nullptr};
  Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(buffer.data()));
  return buffer.data();
}

std::string RichEditBox::Text() {
  return ProgramBreaks(FromAnsi(AnsiText()));
}

// The new text takes the insertion colour, as inserted text does.
void RichEditBox::SetText(const std::string& text) {
  SetSelection(0, -1);
  SetSelText(text);
  SetSelStart(0);
}

void RichEditBox::SetSelection(int64_t start, int64_t end) {
  CHARRANGE range{static_cast<LONG>(start), static_cast<LONG>(end)};
  Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

int64_t RichEditBox::SelStart() {
  CHARRANGE range{};
  Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return range.cpMin;
}

void RichEditBox::SetSelStart(int64_t position) {
  const int64_t at = position < 0 ? 0 : position;
  SetSelection(at, at);
}

int64_t RichEditBox::SelLength() {
  CHARRANGE range{};
  Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return range.cpMax - range.cpMin;
}

void RichEditBox::SetSelLength(int64_t length) {
  const int64_t start = SelStart();
  SetSelection(start, start + (length < 0 ? 0 : length));
}

std::string RichEditBox::SelText() {
  std::vector<char> buffer(static_cast<size_t>(SelLength()) * 2 + 2, '\0');
  GETTEXTEX how{static_cast<DWORD>(buffer.size()), GT_SELECTION, CP_ACP, nullptr, nullptr};
  Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(buffer.data()));
  return ProgramBreaks(FromAnsi(buffer.data()));
}

void RichEditBox::SetSelText(const std::string& text) {
  const std::string ansi = ToAnsi(WithCrLf(text));
  Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(ansi.c_str()));
}

Colour RichEditBox::SelColor() {
  CHARFORMAT2A format{};
  format.cbSize = sizeof(format);
  Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return static_cast<Colour>(format.crTextColor);
}

// A COLORREF is laid out as the program's colours are: 0x00BBGGRR.
void RichEditBox::SetSelColor(Colour colour) {
  CHARFORMAT2A format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_COLOR;
  format.crTextColor = static_cast<COLORREF>(colour);
  Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

std::string RichEditBox::SelRTF() { return StreamOut(hwnd_, true); }

void RichEditBox::SetTextRTF(const std::string& document) {
  StreamIn(hwnd_, document);
  SetSelStart(TextLength());
}

void RichEditBox::SetMaxLength(int32_t length) {
  max_length_ = length;
  Send(EM_EXLIMITTEXT, 0, length > 0 ? length : kUnlimited);
}

void RichEditBox::ApplyFont() {
  CHARFORMAT2A format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD;
  lstrcpynA(format.szFaceName, ToAnsi(font_name_).c_str(), LF_FACESIZE);
  format.yHeight = font_size_ * 20;
  format.dwEffects = font_bold_ ? CFE_BOLD : 0;
  Send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
}

void RichEditBox::SetFontName(const std::string& name) {
  font_name_ = name;
  ApplyFont();
}

void RichEditBox::SetFontSize(int size) {
  font_size_ = size > 0 ? size : 10;
  ApplyFont();
}

void RichEditBox::SetFontBold(bool bold) {
  font_bold_ = bold;
  ApplyFont();
}

void RichEditBox::SetBackColor(Colour colour) {
  Send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(colour));
}

void RichEditBox::SetEnabled(bool enabled) { EnableWindow(hwnd_, enabled ? TRUE : FALSE); }

void RichEditBox::Refresh() {
  RedrawWindow(hwnd_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

// SetWordWrapOn and SetWordWrapOff: no target device, line width 0 or 1.
void RichEditBox::SetWordWrap(bool wrap) { Send(EM_SETTARGETDEVICE, 0, wrap ? 0 : 1); }

int64_t RichEditBox::LineCount() { return Send(EM_GETLINECOUNT); }

int64_t RichEditBox::Find(char c, int64_t from) {
  const std::string text = AnsiText();
  if (c == '\n') c = '\r';
  if (from < 0 || static_cast<size_t>(from) >= text.size()) return -1;
  const size_t at = text.find(c, static_cast<size_t>(from));
  return at == std::string::npos ? -1 : static_cast<int64_t>(at);
}

void RichEditBox::LockUpdates(bool locked) { LockWindowUpdate(locked ? hwnd_ : nullptr); }

bool RichEditBox::WindowMinimised() { return IsIconic(GetAncestor(hwnd_, GA_ROOT)) != FALSE; }

void RichEditBox::BeginBatch() {
  if (batch_++ == 0) Send(WM_SETREDRAW, FALSE);
}

void RichEditBox::EndBatch() {
  if (batch_ > 0 && --batch_ == 0) {
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(hwnd_, nullptr, TRUE);
  }
}

}  // namespace ferrow::win32
