// What core asks of the windows. The Qt layer implements it; tests record it.
#pragma once

#include <string>

namespace ferrow {

enum class MessageIcon { None, Critical, Question, Exclamation, Information };

class Ui {
 public:
  virtual ~Ui() = default;

  // The control window's caption.
  virtual void SetMenuCaption(const std::string& caption) = 0;
  virtual std::string MenuCaption() = 0;
  // Repaints the control window now, so a changed caption is seen during a wait.
  virtual void RefreshMenu() = 0;

  // A message box with an OK button; an empty title means the program's own.
  virtual void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) = 0;
  // A question with Yes and No buttons; true for Yes.
  virtual bool AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) = 0;
};

// For running without windows: remembers the caption, shows nothing, says No.
class HeadlessUi : public Ui {
 public:
  void SetMenuCaption(const std::string& caption) override { caption_ = caption; }
  std::string MenuCaption() override { return caption_; }
  void RefreshMenu() override {}
  void ShowMessage(const std::string&, const std::string&, MessageIcon) override {}
  bool AskYesNo(const std::string&, const std::string&, MessageIcon) override { return false; }

 private:
  std::string caption_;
};

}  // namespace ferrow
