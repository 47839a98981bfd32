// A Ui that records what core asked of the windows and answers questions
// from a script.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "support/ui.h"

namespace ferrow::testing {

class RecordingUi : public Ui {
 public:
  void SetMenuCaption(const std::string& caption) override {
    caption_ = caption;
    captions.push_back(caption);
  }
  std::string MenuCaption() override { return caption_; }
  void RefreshMenu() override { ++refreshes; }
  void ShowMessage(const std::string& text, const std::string& title, MessageIcon) override {
    messages.push_back(title + "|" + text);
  }
  bool AskYesNo(const std::string& text, const std::string&, MessageIcon) override {
    questions.push_back(text);
    if (answers.empty()) return false;
    bool answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::vector<std::string> captions, messages, questions;
  std::deque<bool> answers;
  int refreshes = 0;

 private:
  std::string caption_;
};

}  // namespace ferrow::testing
