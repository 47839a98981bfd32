#include "win32/input_box_view.h"

#include "win32/ansi_text.h"

namespace ferrow::win32 {

Win32InputBox::Win32InputBox(WindowGate& gate, std::shared_ptr<InputBox> logic)
    : DialogWindow(gate, "FerrowInputBox", 380, 118), logic_(std::move(logic)) {
  Add(kIdPrompt, "STATIC", "", SS_LEFT, 10, 10, 360, 34);
  Add(kIdInput, "EDIT", "", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 10, 48, 360, 22);
  Add(kIdOK, "BUTTON", "OK", WS_TABSTOP | BS_DEFPUSHBUTTON, 210, 82, 76, 26);
  Add(kIdCancel, "BUTTON", "Cancel", WS_TABSTOP | BS_PUSHBUTTON, 294, 82, 76, 26);
}

// However it ends, the box knows its window is gone.
Win32InputBox::~Win32InputBox() { logic_->ViewGone(); }

bool Win32InputBox::OnKey(int id, int key_code) {
  if (id == kIdOK) return logic_->cmdOK_KeyDown(key_code);
  if (id == kIdCancel) return logic_->cmdCancel_KeyDown(key_code);
  return id == kIdInput && logic_->txtInput_KeyDown(key_code);
}

void Win32InputBox::OnCommand(int id, int code) {
  if (code != BN_CLICKED) return;
  if (id == kIdOK) logic_->cmdOK_Click();
  if (id == kIdCancel) logic_->cmdCancel_Click();
}

// The close box answers as Cancel does.
void Win32InputBox::OnClose() {
  logic_->Form_QueryUnload();
  Dispose();
}

void Win32InputBox::SetPrompt(const std::string& prompt) {
  SetWindowTextA(Item(kIdPrompt), ToAnsi(prompt).c_str());
}

void Win32InputBox::SetText(const std::string& text) {
  SetWindowTextA(Item(kIdInput), ToAnsi(text).c_str());
}

void Win32InputBox::SelectText(int start, int length) {
  SendMessageA(Item(kIdInput), EM_SETSEL, static_cast<WPARAM>(start), start + length);
}

void Win32InputBox::SetPasswordChar(const std::string& pw_char) {
  const std::string ansi = ToAnsi(pw_char);
  SendMessageA(Item(kIdInput), EM_SETPASSWORDCHAR, ansi.empty() ? 0 : static_cast<unsigned char>(ansi[0]), 0);
}

void Win32InputBox::Show() {
  Centre();
  ShowWithFocus(kIdInput);
}

void Win32InputBox::Close() { Dispose(); }

}  // namespace ferrow::win32
