// The control window as the text window sees it: records the file name box,
// the files opened, and how often the timer stopped and the window came back.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "display/control_port.h"

namespace ferrow::testing {

class FakeControlWindow : public ControlWindowPort {
 public:
  void SetFileNameBox(const std::string& name) override { box = name; }
  // A drop opens as OK does, with all three arguments false.
  void OK_Click(bool startup, int16_t interval, bool sound) override {
    opened.push_back(box);
    EXPECT_FALSE(startup);
    EXPECT_EQ(interval, 0);
    EXPECT_FALSE(sound);
  }
  void StopTimer() override { ++timer_stops; }
  void ShowNormalAndActivate() override { ++activations; }
  bool ProgramClosing() override { return closing; }
  void TextWindowClosed(const TextBox& closed) override {
    if (shown_box) {
      EXPECT_EQ(&closed, shown_box);
    }
    ++closes;
  }

  std::string box;
  std::vector<std::string> opened;
  const TextBox* shown_box = nullptr;  // when set, the box closes must name
  int timer_stops = 0, activations = 0, closes = 0;
  bool closing = false;
};

}  // namespace ferrow::testing
