// The text window's box over a real rich-edit control: Msftedit's
// "RICHEDIT50W", or RichEdit 2.0's "RichEdit20W" where that is missing.
// Rich text goes in and out through the control's own stream; text through
// its selection messages, in UTF-16, so any character shows and reads back.
// Positions count UTF-16 units, a line break (the control's CR) as one.
#pragma once

#include <windows.h>

#include <string>

#include "display/text_box.h"

namespace ferrow::win32 {

class RichEditBox : public TextBox {
 public:
  // Loads the control's library once, then creates the control as child
  // `id` of `parent`.
  RichEditBox(HWND parent, int id);
  ~RichEditBox() override;
  RichEditBox(const RichEditBox&) = delete;
  RichEditBox& operator=(const RichEditBox&) = delete;

  HWND Handle() const { return hwnd_; }
  // The window class the control was made of.
  static const char* ClassName();

  // SubclassTextWindow and UnsubclassTextWindow: TextWindowProc in front of
  // the control's own procedure, kept in SavedTextWndProc.
  void Subclass();
  void Unsubclass();
  bool Subclassed() const { return saved_proc_ != nullptr; }

  std::string TypeName() const override { return "RichTextBox"; }
  int64_t TextLength() override;
  std::string Text() override;
  void SetText(const std::string& text) override;
  int64_t SelStart() override;
  void SetSelStart(int64_t position) override;
  int64_t SelLength() override;
  void SetSelLength(int64_t length) override;
  std::string SelText() override;
  void SetSelText(const std::string& text) override;
  Colour SelColor() override;
  void SetSelColor(Colour colour) override;
  std::string SelRTF() override;
  void SetTextRTF(const std::string& document) override;
  int32_t MaxLength() override { return max_length_; }
  void SetMaxLength(int32_t length) override;
  void SetFontName(const std::string& name) override;
  void SetFontSize(int size) override;
  void SetFontBold(bool bold) override;
  int FontSize() override { return font_size_; }
  bool FontBold() override { return font_bold_; }
  void SetBackColor(Colour colour) override;
  void SetEnabled(bool enabled) override;
  void Refresh() override;
  void SetWordWrap(bool wrap) override;
  int64_t LineCount() override;
  int64_t Find(char c, int64_t from) override;
  void LockUpdates(bool locked) override;
  bool WindowMinimised() override;
  void BeginBatch() override;
  void EndBatch() override;

 private:
  static LRESULT CALLBACK TextWindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
  // The control made and set up as this box keeps it (rich_edit_replace.cc).
  void MakeControl(HWND parent, int id, DWORD style, DWORD ex_style, const RECT& place);
  void SetUpControl();
  // A new control with no text in place of the old one, when that is cheaper
  // than deleting the old one's text; false when it was not (see the .cc).
  bool ReplaceControl();
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
  void SetSelection(int64_t start, int64_t end);
  int64_t ControlLength();
  void SendColour(Colour colour);
  void Settle();
  void InsertAtCaret(const std::wstring& text);
  void ForgetUndo();
  void RestoreNuls(const std::wstring& plain);
  void ApplyFont();
  std::wstring WideText(DWORD flags, int64_t length);
  wchar_t CharAt(int64_t position);

  HWND hwnd_ = nullptr;
  WNDPROC saved_proc_ = nullptr;
  int32_t max_length_ = 0;
  std::string font_name_ = "Terminal";
  int font_size_ = 10;
  bool font_bold_ = false;
  int batch_ = 0;
  // Runs held back inside a batch (see Settle): their text with CR LF
  // breaks, their length in the control's characters, their colour; the
  // insertion colour asked for and not yet given to the control; whether
  // the caret was last put at the end.
  std::wstring pending_;
  int64_t pending_length_ = 0;
  Colour pending_colour_ = 0;
  Colour insert_colour_ = 0;
  bool colour_held_ = false;
  bool caret_at_end_ = false;
  // What a new control is given again.
  bool has_back_colour_ = false;
  Colour back_colour_ = 0;
  int word_wrap_ = -1;  // -1 never set, else 0 or 1
  // As made: the control takes its scroll bars' styles off while they hide.
  DWORD made_style_ = 0;
  // Messages of a box's control being handled, ours or the control's own
  // procedure: the control may not be destroyed meanwhile.
  static int messages_running_;
};

// The rich text stream of the control: a whole document in, the selection out.
void StreamIn(HWND control, const std::string& document);
// Plain UTF-16 text in place of the selection, NULs included.
void StreamInSelection(HWND control, const std::wstring& text);
std::string StreamOut(HWND control, bool selection_only);

}  // namespace ferrow::win32
