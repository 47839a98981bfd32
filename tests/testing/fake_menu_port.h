// A control window that records, in order, what the dialogs asked of it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "control/menu_port.h"

namespace ferrow::testing {

class FakeMenuPort : public MenuPort {
 public:
  void EnableCheckBoxes() override { calls.push_back("EnableCheckBoxes"); }
  void EnableAllButtons() override { calls.push_back("EnableAllButtons"); }
  void ShowNormalAndActivate() override { calls.push_back("ShowNormalAndActivate"); }
  void SetPlaySoundCheckBox(bool on) override {
    calls.push_back(on ? "PlaySound=1" : "PlaySound=0");
  }
  void ClearHistoryList() override { calls.push_back("ClearHistoryList"); }
  void SetTimerInterval(int ms) override { calls.push_back("TimerInterval=" + std::to_string(ms)); }
  void RestartFollowing() override {
    calls.push_back("RestartFollowing");
    if (during_restart) during_restart();
    calls.push_back("RestartFollowing done");
  }

  int Count(const std::string& call) const {
    int n = 0;
    for (const std::string& c : calls) n += c == call;
    return n;
  }

  std::vector<std::string> calls;
  std::function<void()> during_restart;  // the reload, which lets events run
};

}  // namespace ferrow::testing
