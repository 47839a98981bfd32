// Window services that answer from a script instead of waiting for a person.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "control/window_services.h"

namespace ferrow::testing {

class FakeServices : public WindowServices {
 public:
  void Message(const std::string& text, const std::string& title, MessageIcon) override {
    messages.push_back(title + "|" + text);
  }
  bool AskYesNo(const std::string& text, const std::string&, MessageIcon) override {
    questions.push_back(text);
    return yes;
  }
  std::string OpenFileName(const std::string& title, const std::string& filter,
                           const std::string& start) override {
    dialogs.push_back(title + "|" + filter + "|" + start);
    if (while_dialog) while_dialog();
    return chosen;
  }
  std::vector<std::string> messages, questions, dialogs;
  std::function<void()> while_dialog;  // what is seen while the dialog is up
  bool yes = false;
  std::string chosen;
};

}  // namespace ferrow::testing
