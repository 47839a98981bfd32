#include "control/window_services.h"

namespace ferrow {

void RoutedUi::SetMenuCaption(const std::string& c) {
  if (target_) target_->SetMenuCaption(c);
  else caption_ = c;
}

std::string RoutedUi::MenuCaption() { return target_ ? target_->MenuCaption() : caption_; }

void RoutedUi::RefreshMenu() {
  if (target_) target_->RefreshMenu();
}

void RoutedUi::ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) {
  if (target_) target_->ShowMessage(text, title, icon);
  else services_.Message(text, title, icon);
}

bool RoutedUi::AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) {
  return target_ ? target_->AskYesNo(text, title, icon) : services_.AskYesNo(text, title, icon);
}

}  // namespace ferrow
