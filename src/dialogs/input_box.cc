#include "dialogs/input_box.h"

#include "dialogs/key_codes.h"
#include "platform/env.h"

namespace ferrow {

void InputBox::Form_Load() {
  if (!view_) return;
  view_->SetText("");
  view_->SetPrompt("");
  view_->Show();
}

void InputBox::cmdOK_Click() {
  if (!view_) return;
  InputResult = view_->Text();
  InputDone = true;
  Unload();
}

void InputBox::cmdCancel_Click() {
  if (!view_) return;
  InputResult.clear();
  InputDone = true;
  Unload();
}

bool InputBox::cmdOK_KeyDown(int key_code) {
  if (!view_) return false;
  if (key_code == kKeyReturn || key_code == kKeySpace) cmdOK_Click();
  else if (key_code == kKeyEscape) cmdCancel_Click();
  else return false;
  return true;
}

bool InputBox::cmdCancel_KeyDown(int key_code) {
  if (!view_ || (key_code != kKeyReturn && key_code != kKeySpace && key_code != kKeyEscape)) return false;
  cmdCancel_Click();
  return true;
}

bool InputBox::txtInput_KeyDown(int key_code) {
  if (!view_) return false;
  if (key_code == kKeyReturn || key_code == kKeyLineFeed) {
    cmdOK_Click();
  } else if (key_code == kKeyEscape) {
    cmdCancel_Click();
  } else {
    return false;
  }
  InputDone = true;  // again: whatever the handler did, the wait ends
  return true;
}

void InputBox::Form_QueryUnload() {
  if (!view_) return;  // our own unload
  view_ = nullptr;
  if (!InputDone) {
    InputResult.clear();
    InputDone = true;
  }
}

void InputBox::ViewGone() {
  Form_QueryUnload();
}

void InputBox::Unload() {
  InputView* view = view_;
  view_ = nullptr;  // before Close, which may come back through Form_QueryUnload
  view->Close();
}

std::shared_ptr<InputBox> InputBoxSlot::Loaded() const {
  return box_ && box_->Loaded() ? box_ : nullptr;
}

std::shared_ptr<InputBox> InputBoxSlot::Load() {
  if (std::shared_ptr<InputBox> loaded = Loaded()) return loaded;
  auto box = std::make_shared<InputBox>();
  box->Attach(make_view_(box));
  box_ = box;
  box->Form_Load();
  return box;
}

std::string InputMsg(Env& env, InputBoxSlot& slot, const std::string& prompt,
                     const std::string& title, const std::string& edit_string,
                     const std::string& pw_char) {
  const std::shared_ptr<InputBox> box = slot.Load();
  box->InputDone = false;
  box->InputResult.clear();
  if (InputView* view = box->View()) {
    view->SetCaption(title);
    if (!pw_char.empty()) view->SetPasswordChar(pw_char);
    if (!edit_string.empty()) {
      view->SetText(edit_string);
      view->SelectText(0, static_cast<int>(edit_string.size()));  // typing replaces it
    }
    view->SetPrompt(prompt);
  }
  // A second call while this one waits shares the box; whichever answer
  // comes first ends both waits.
  while (!box->InputDone) {
    env.LetEventsRun();
    env.SleepMs(100);
    env.LetEventsRun();
  }
  return box->InputResult;
}

}  // namespace ferrow
