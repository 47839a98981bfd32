// A control window view that records what the logic shows, and raises the
// change events a toolkit raises; a window factory whose text windows hold a
// FakeTextBox.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "control/control_view.h"
#include "control/control_window.h"
#include "control/window_factory.h"
#include "display/control_port.h"
#include "testing/fake_text_box.h"

namespace ferrow::testing {

class FakeControlView : public ControlView {
 public:
  struct State {
    bool enabled = true;
    int value = 0;
    std::string text, tip;
  };
  ControlWindow* logic = nullptr;  // receives the change events

  void SetCaption(const std::string& c) override { caption = c; }
  std::string Caption() override { return caption; }
  void Repaint() override {}
  bool Minimised() override { return minimised; }
  int32_t LeftTwips() override { return left; }
  int32_t TopTwips() override { return top; }
  void MoveTwips(int32_t l, int32_t t) override {
    left = l;
    top = t;
  }
  void ShowNormal() override {
    shown = true;
    minimised = false;
  }
  void ShowMinimised() override { shown = minimised = true; }
  void BringToFront() override { ++brought_to_front; }
  void CentreOnScreen() override { ++centred; }
  void TrimSystemMenu() override { ++menu_trims; }
  void CloseWindow() override { shown = false, closed = true; }
  void SetEnabled(Control c, bool on) override { controls[c].enabled = on; }
  bool Enabled(Control c) override { return controls[c].enabled; }
  void SetToolTip(Control c, const std::string& tip) override { controls[c].tip = tip; }
  int Value(Control c) override { return controls[c].value; }
  void SetValue(Control c, int v) override { controls[c].value = v; }
  std::string Text(Control c) override { return controls[c].text; }
  void SetText(Control c, const std::string& text) override {
    if (controls[c].text == text) return;
    controls[c].text = text;
    if (!logic) return;
    if (c == Control::cmbFileName) logic->cmbFileName_Change();
    if (c == Control::txtFileName) logic->txtFileName_Change();
  }
  void SetPausePicture(bool f) override { following = f; }
  void SetList(const std::vector<std::string>& names) override { list = names; }
  std::vector<std::string> List() override { return list; }
  int HighlightedListIndex() override { return highlighted; }
  void RemoveListItem(int index) override { list.erase(list.begin() + index); }
  void SelectBoxText() override { ++box_selections; }
  void SetTimerInterval(int ms) override { interval = ms; }
  void SetTimerEnabled(bool on) override { timer = on; }
  bool TimerEnabled() override { return timer; }
  bool PlaySoundFile(const std::string& file, bool) override {
    sounds.push_back(file);
    return true;
  }

  // A click on a check box as the user makes it: the logic decides its new value.
  void Click(Control c) { logic->CheckBoxPressed(c); }
  // Picking entry `index` from the drop-down list.
  void Pick(int index) {
    controls[Control::cmbFileName].text = list[static_cast<size_t>(index)];
    logic->cmbFileName_Change();
    logic->cmbFileName_Click();
  }

  std::map<Control, State> controls;
  std::string caption;
  std::vector<std::string> list, sounds;
  int highlighted = -1, interval = 0, brought_to_front = 0, centred = 0, menu_trims = 0, box_selections = 0;
  int32_t left = 0, top = 0;
  bool minimised = false, shown = false, closed = false, timer = false, following = false;
};

class FakeTextWindow : public TextWindowPort {
 public:
  explicit FakeTextWindow(ControlWindowPort& control) : control_(control) {}
  TextBox& Box() override { return box; }
  void Load() override { loaded = true; }
  void SetCaption(const std::string& c) override { caption = c; }
  void Flash() override { ++flashes; }
  // As the toolkit's window does when it closes: tells the control window.
  void Close() override {
    closed = true;
    control_.TextWindowClosed(box);
  }
  FakeTextBox box;
  std::string caption;
  bool loaded = false, closed = false;
  int flashes = 0;

 private:
  ControlWindowPort& control_;
};

class FakeWindowFactory : public WindowFactory {
 public:
  TextWindowPort* NewTextWindow(ControlWindowPort& control) override {
    made.push_back(std::make_unique<FakeTextWindow>(control));
    made.back()->box.max_length = 0;
    return made.back().get();
  }
  void OpenSettings(MenuPort&) override { ++settings_opened; }
  void OpenAbout(MenuPort&) override { ++about_opened; }
  std::string InputMsg(const std::string& prompt, const std::string& title, const std::string& edit) override {
    asked.push_back(title + "|" + prompt + "|" + edit);
    if (while_asking) while_asking();
    return answer;
  }
  void UnloadOtherWindows() override { ++other_windows_unloaded; }

  FakeTextWindow* Last() { return made.empty() ? nullptr : made.back().get(); }

  std::vector<std::unique_ptr<FakeTextWindow>> made;
  std::vector<std::string> asked;
  std::string answer;
  std::function<void()> while_asking;  // what is seen while the input box waits
  int settings_opened = 0, about_opened = 0, other_windows_unloaded = 0;
};

}  // namespace ferrow::testing
