// A small window that asks for one line of text. Not modal: while
// `InputMsg` waits, the other windows stay live and the poll timer keeps
// appending text. Each toolkit's window implements `InputView` and forwards
// its events to `InputBox`.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace ferrow {

class Env;

class InputView {
 public:
  virtual ~InputView() = default;
  virtual void SetCaption(const std::string& caption) = 0;
  // Label1.
  virtual void SetPrompt(const std::string& prompt) = 0;
  // txtInput.
  virtual void SetText(const std::string& text) = 0;
  virtual std::string Text() = 0;
  virtual void SelectText(int start, int length) = 0;
  // Every typed character is shown as `pw_char`.
  virtual void SetPasswordChar(const std::string& pw_char) = 0;
  // Shown, not modally, with the focus in txtInput.
  virtual void Show() = 0;
  // Hides the window for good; the window disposes of itself later.
  virtual void Close() = 0;
};

// The box's state outlives its window: a wait reads the answer after the
// window is gone.
class InputBox {
 public:
  // The window the box talks to until it is unloaded.
  void Attach(InputView& view) { view_ = &view; }

  std::string InputResult;
  bool InputDone = false;

  void Form_Load();
  void cmdOK_Click();
  void cmdCancel_Click();
  // Enter (13) or line feed (10) confirms, Escape (27) cancels; true when
  // the key was one of them. Other keys edit the text.
  bool txtInput_KeyDown(int key_code);
  // Keys on the focused OK or Cancel: Enter and Space press that button,
  // Escape cancels; true when the key was one of them.
  bool cmdOK_KeyDown(int key_code);
  bool cmdCancel_KeyDown(int key_code);
  // The close box answers as Cancel does; the window always closes.
  void Form_QueryUnload();
  // The window was destroyed: the box is unloaded, and a wait still running
  // ends as if cancelled.
  void ViewGone();

  bool Loaded() const { return view_ != nullptr; }
  InputView* View() const { return view_; }

 private:
  void Unload();

  InputView* view_ = nullptr;  // null once unloaded
};

// The one loaded input box, made on demand.
class InputBoxSlot {
 public:
  // Makes the window of a new box; the window forwards its events to `box`
  // and tells it `ViewGone` when destroyed.
  using MakeView = std::function<InputView&(const std::shared_ptr<InputBox>& box)>;
  explicit InputBoxSlot(MakeView make_view) : make_view_(std::move(make_view)) {}

  // The loaded box, or null.
  std::shared_ptr<InputBox> Loaded() const;
  // The loaded box, or a new one loaded now (its Form_Load has run).
  std::shared_ptr<InputBox> Load();

 private:
  MakeView make_view_;
  std::shared_ptr<InputBox> box_;
};

// Shows the box of `slot` (reusing a loaded one) and waits, letting window
// events run, until the user answers. Returns the confirmed text, or "" when
// cancelled (OK on an empty text gives "" too). `pw_char`, when given, hides
// what is typed.
std::string InputMsg(Env& env, InputBoxSlot& slot, const std::string& prompt,
                     const std::string& title, const std::string& edit_string = "",
                     const std::string& pw_char = "");

}  // namespace ferrow
