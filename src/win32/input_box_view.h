// The input box as a Win32 window: the prompt, the text box and the
// buttons; their events go to InputBox, which decides everything. Not
// modal: the other windows stay live while InputMsg waits.
#pragma once

#include <memory>
#include <string>

#include "dialogs/input_box.h"
#include "win32/dialog_window.h"

namespace ferrow::win32 {

class Win32InputBox : public DialogWindow, private InputView {
 public:
  enum : int { kIdPrompt = 10, kIdInput, kIdOK, kIdCancel };

  Win32InputBox(WindowGate& gate, std::shared_ptr<InputBox> logic);
  ~Win32InputBox() override;
  InputView& View() { return *this; }

 private:
  bool OnKey(int id, int key_code) override;
  void OnCommand(int id, int code) override;
  void OnClose() override;

  void SetCaption(const std::string& caption) override { SetWindowCaption(caption); }
  void SetPrompt(const std::string& prompt) override;
  void SetText(const std::string& text) override;
  std::string Text() override { return TextOf(Item(kIdInput)); }
  void SelectText(int start, int length) override;
  void SetPasswordChar(const std::string& pw_char) override;
  void Show() override;
  void Close() override;

  std::shared_ptr<InputBox> logic_;
};

}  // namespace ferrow::win32
