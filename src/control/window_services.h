// The modal parts of the windows (message boxes, the open-file dialog),
// behind an interface so that tests answer them instead of a person. Each
// toolkit has its own.
#pragma once

#include <string>

#include "support/ui.h"

namespace ferrow {

class WindowServices {
 public:
  virtual ~WindowServices() = default;
  virtual void Message(const std::string& text, const std::string& title, MessageIcon icon) = 0;
  virtual bool AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) = 0;
  // A file chosen in the open-file dialog, or "" when cancelled. `filter` is
  // in the "Name|*.ext|Name|*.ext|" form. `start_folder` is a folder, or a
  // file's path: the dialog then starts in its folder with its name filled in.
  virtual std::string OpenFileName(const std::string& title, const std::string& filter,
                                   const std::string& start_folder) = 0;
};

// A Ui whose captions go nowhere and whose messages go to `services`; the
// control window takes over once it exists.
class RoutedUi : public Ui {
 public:
  explicit RoutedUi(WindowServices& services) : services_(services) {}
  void SetTarget(Ui* target) { target_ = target; }
  void SetMenuCaption(const std::string& c) override;
  std::string MenuCaption() override;
  void RefreshMenu() override;
  void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) override;
  bool AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) override;

 private:
  WindowServices& services_;
  Ui* target_ = nullptr;
  std::string caption_;
};

}  // namespace ferrow
