#include "win32/rich_edit_box.h"

#include <richedit.h>

#include <algorithm>
#include <vector>

#include "display/rich_document.h"
#include "display/text_window_proc.h"
#include "win32/ansi_text.h"
#include "win32/wide_text.h"

namespace ferrow::win32 {
namespace {

// No limit, as far as the control goes.
constexpr LPARAM kUnlimited = 0x7FFFFFFE;
// See the constructor.
constexpr WPARAM kUndoSteps = 1;

struct RichEditClass {
  const char* name;
  const wchar_t* wide;
};

const RichEditClass& LoadRichEdit() {
  static const RichEditClass kind = []() -> RichEditClass {
    if (LoadLibraryA("Msftedit.dll")) return {"RICHEDIT50W", L"RICHEDIT50W"};
    LoadLibraryA("Riched20.dll");
    return {"RichEdit20W", L"RichEdit20W"};
  }();
  return kind;
}


}  // namespace

const char* RichEditBox::ClassName() { return LoadRichEdit().name; }

// A Unicode window, so every character of the text goes in and comes out as
// it is, whatever the ANSI code page.
// Read-only for the user, as the other toolkit's box: the control would act
// on some keys (Backspace) before their character can be discarded.
RichEditBox::RichEditBox(HWND parent, int id) {
  MakeControl(parent, id,
              WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOVSCROLL |
                  ES_AUTOHSCROLL | ES_NOHIDESEL | ES_READONLY,
              0, RECT{0, 0, 100, 100});
}

void RichEditBox::MakeControl(HWND parent, int id, DWORD style, DWORD ex_style, const RECT& place) {
  made_style_ = style;
  hwnd_ = CreateWindowExW(ex_style, LoadRichEdit().wide, L"", style, place.left, place.top,
                          place.right - place.left, place.bottom - place.top, parent,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  SetUpControl();
}

// The user may not undo, but with no undo at all some controls (Wine's)
// lose a block of memory for every line break they delete, every trimmed
// line: one step is kept, and emptied after every change (`ForgetUndo`).
void RichEditBox::SetUpControl() {
  Send(EM_SETUNDOLIMIT, kUndoSteps);
  Send(EM_SETEVENTMASK, 0, ENM_CHANGE | ENM_KEYEVENTS | ENM_DROPFILES);
  Send(EM_EXLIMITTEXT, 0, max_length_ > 0 ? max_length_ : kUnlimited);
  ApplyFont();
  if (has_back_colour_) SetBackColor(back_colour_);
  if (word_wrap_ >= 0) SetWordWrap(word_wrap_ == 1);
}

RichEditBox::~RichEditBox() {
  Unsubclass();
  if (IsWindow(hwnd_)) DestroyWindow(hwnd_);
}

LRESULT RichEditBox::Send(UINT message, WPARAM wparam, LPARAM lparam) const {
  return SendMessageW(hwnd_, message, wparam, lparam);
}

// Installed and called through the Unicode functions: an ANSI procedure in
// the chain would have the system turn every text message into the code page.
// The saved procedure is kept in the control's user data (the control is
// ours): a window property would cost a trip to the window server on every
// message the control gets.
LRESULT CALLBACK RichEditBox::TextWindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  auto saved = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
  if (TextWindowProcSwallows(message, static_cast<uint64_t>(wparam))) return 0;
  ++messages_running_;
  // Files dropped on the text go to the text window, which opens them. Not
  // every rich-edit control reports a drop as EN_DROPFILES (Wine's does not).
  const LRESULT result = message == WM_DROPFILES ? SendMessageW(GetParent(hwnd), message, wparam, lparam)
                         : saved ? CallWindowProcW(saved, hwnd, message, wparam, lparam)
                                 : DefWindowProcW(hwnd, message, wparam, lparam);
  --messages_running_;
  return result;
}

void RichEditBox::Subclass() {
  if (saved_proc_) return;
  saved_proc_ = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hwnd_, GWLP_WNDPROC));
  SetWindowLongPtrW(hwnd_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(saved_proc_));
  SetWindowLongPtrW(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TextWindowProc));
}

void RichEditBox::Unsubclass() {
  if (!saved_proc_) return;
  SetWindowLongPtrW(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(saved_proc_));
  SetWindowLongPtrW(hwnd_, GWLP_USERDATA, 0);
  saved_proc_ = nullptr;
}

int64_t RichEditBox::ControlLength() {
  GETTEXTLENGTHEX how{GTL_NUMCHARS | GTL_PRECISE, 1200};
  return Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how));
}

// Held-back text counts; past the limit it goes in first, to be cut there.
int64_t RichEditBox::TextLength() {
  if (!pending_.empty() && max_length_ > 0 && ControlLength() + pending_length_ > max_length_)
    Settle();
  return ControlLength() + pending_length_;
}

// Inside a batch, runs that go one after the other at the end in one colour
// are held back, with the caret moves and colour changes around them, and
// go in together when anything else is asked: the program asks for the
// length, the caret and the colour again before every line, and nothing is
// drawn inside a batch anyway.
void RichEditBox::Settle() {
  if (!pending_.empty()) {
    const std::wstring text = std::move(pending_);  // the control's notices may call back in
    pending_.clear();
    pending_length_ = 0;
    const int64_t end = ControlLength();
    SetSelection(end, end);
    SendColour(pending_colour_);
    InsertAtCaret(text);
  }
  if (colour_held_) {
    colour_held_ = false;
    const int64_t end = ControlLength();
    SetSelection(end, end);
    SendColour(insert_colour_);
  }
}

std::string RichEditBox::Text() {
  Settle();
  return ProgramText(WideText(GT_DEFAULT, TextLength()));
}

// The new text takes the insertion colour, as inserted text does.
void RichEditBox::SetText(const std::string& text) {
  Settle();
  caret_at_end_ = false;
  ReplaceControl();
  SetSelection(0, -1);
  SetSelText(text);
  SetSelStart(0);
}

void RichEditBox::SetSelection(int64_t start, int64_t end) {
  CHARRANGE range{static_cast<LONG>(start), static_cast<LONG>(end)};
  Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

int64_t RichEditBox::SelStart() {
  Settle();
  CHARRANGE range{};
  Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return range.cpMin;
}

void RichEditBox::SetSelStart(int64_t position) {
  const int64_t at = position < 0 ? 0 : position;
  if (batch_ > 0 && at >= TextLength()) {
    caret_at_end_ = true;
    if (pending_.empty() && !colour_held_) SetSelection(at, at);
    return;
  }
  Settle();
  caret_at_end_ = false;
  SetSelection(at, at);
}

int64_t RichEditBox::SelLength() {
  Settle();
  CHARRANGE range{};
  Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return range.cpMax - range.cpMin;
}

void RichEditBox::SetSelLength(int64_t length) {
  if (length <= 0 && caret_at_end_ && batch_ > 0) return;
  const int64_t start = SelStart();
  caret_at_end_ = false;
  SetSelection(start, start + (length < 0 ? 0 : length));
}

std::string RichEditBox::SelText() {
  Settle();
  return ProgramText(WideText(GT_SELECTION, SelLength()));
}

void RichEditBox::SetSelText(const std::string& text) {
  const std::wstring wide = ToWide(WithCrLf(text));
  const bool has_nul = wide.find(L'\0') != std::wstring::npos;
  if (batch_ > 0 && caret_at_end_ && colour_held_ && !has_nul) {
    if (!pending_.empty() && pending_colour_ != insert_colour_) Settle();
    colour_held_ = true;  // Settle may have applied it; it still holds for the runs after
    pending_colour_ = insert_colour_;
    int64_t added = static_cast<int64_t>(wide.size());
    for (size_t i = 0; i < wide.size(); ++i)
      if (wide[i] == L'\n' &&
          (i > 0 ? wide[i - 1] == L'\r' : !pending_.empty() && pending_.back() == L'\r'))
        --added;  // CR LF is one break
    pending_ += wide;
    pending_length_ += added;
    return;
  }
  Settle();
  InsertAtCaret(wide);
}

Colour RichEditBox::SelColor() {
  Settle();
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return static_cast<Colour>(format.crTextColor);
}

// A COLORREF is laid out as the program's colours are: 0x00BBGGRR.
void RichEditBox::SetSelColor(Colour colour) {
  if (batch_ > 0 && caret_at_end_) {
    insert_colour_ = colour;
    colour_held_ = true;
    return;
  }
  Settle();
  SendColour(colour);
}

void RichEditBox::SendColour(Colour colour) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_COLOR;
  format.crTextColor = static_cast<COLORREF>(colour);
  Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  ForgetUndo();
}


// The control takes a document's last paragraph mark as the end of its
// text; it is put back where the document's text ends in a break, so that
// what follows starts a line of its own and the lines count right.
void RichEditBox::SetTextRTF(const std::string& document) {
  Settle();
  caret_at_end_ = false;
  StreamIn(hwnd_, document);
  ApplyFont();
  const std::string plain = ReadRtf(document).PlainText();
  RestoreNuls(ToWide(plain));
  const int64_t length = TextLength();
  if (!plain.empty() && plain.back() == '\n' && (length == 0 || CharAt(length - 1) != L'\r')) {
    SetSelection(length, length);
    Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"\r"));
  }
  ForgetUndo();
  SetSelStart(TextLength());
}

void RichEditBox::SetMaxLength(int32_t length) {
  Settle();
  max_length_ = length;
  Send(EM_EXLIMITTEXT, 0, length > 0 ? length : kUnlimited);
}

// Formats the whole text: only ever when the font changes or a document
// comes in, never on the append path (its cost grows with the text).
void RichEditBox::ApplyFont() {
  Settle();
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD;
  lstrcpynW(format.szFaceName, ToWide(font_name_).c_str(), LF_FACESIZE);
  format.yHeight = font_size_ * 20;
  format.dwEffects = font_bold_ ? CFE_BOLD : 0;
  // Without undo for the moment: the step would hold the old format of
  // every run of the text (tens of megabytes for a full window); a format
  // change deletes no line break, so nothing is lost with undo off.
  Send(EM_SETUNDOLIMIT, 0);
  Send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
  Send(EM_SETUNDOLIMIT, kUndoSteps);
  ForgetUndo();
}

// Asked again after every inserted run: only a change costs anything.
void RichEditBox::SetFontName(const std::string& name) {
  if (name == font_name_) return;
  font_name_ = name;
  ApplyFont();
}

void RichEditBox::SetFontSize(int size) {
  const int wanted = size > 0 ? size : 10;
  if (wanted == font_size_) return;
  font_size_ = wanted;
  ApplyFont();
}

void RichEditBox::SetFontBold(bool bold) {
  if (bold == font_bold_) return;
  font_bold_ = bold;
  ApplyFont();
}

void RichEditBox::SetBackColor(Colour colour) {
  has_back_colour_ = true;
  back_colour_ = colour;
  Send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(colour));
}

void RichEditBox::SetEnabled(bool enabled) { EnableWindow(hwnd_, enabled ? TRUE : FALSE); }

void RichEditBox::Refresh() {
  RedrawWindow(hwnd_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

// SetWordWrapOn and SetWordWrapOff: no target device, line width 0 or 1.
void RichEditBox::SetWordWrap(bool wrap) {
  word_wrap_ = wrap ? 1 : 0;
  Send(EM_SETTARGETDEVICE, 0, wrap ? 0 : 1);
}

int64_t RichEditBox::LineCount() {
  Settle();
  return Send(EM_GETLINECOUNT);
}

void RichEditBox::LockUpdates(bool locked) {
  Settle();
  LockWindowUpdate(locked ? hwnd_ : nullptr);
}

bool RichEditBox::WindowMinimised() { return IsIconic(GetAncestor(hwnd_, GA_ROOT)) != FALSE; }

// Nothing is drawn while a batch runs: with redrawing on, the control would
// repaint after every insertion and trim (half as much CPU again at 200
// lines a second).
void RichEditBox::BeginBatch() {
  if (batch_++ > 0) return;
  caret_at_end_ = false;  // the user may have moved it since
  Send(WM_SETREDRAW, FALSE);
}

void RichEditBox::EndBatch() {
  if (batch_ > 0 && --batch_ == 0) {
    Settle();
    Send(WM_SETREDRAW, TRUE);
    // The frame too: the control shows, hides and moves its scroll bars while
    // redrawing is off, and some (Wine's) then leave them undrawn, the text's
    // old pixels where a bar now is, until the user scrolls.
    RedrawWindow(hwnd_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
  }
}

}  // namespace ferrow::win32
