// Windows for the dialogs' logic that only record what they were told and
// answer with what a test has put into their controls.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "about/about_window.h"
#include "dialogs/input_box.h"
#include "dialogs/settings_dialog.h"

namespace ferrow::testing {

class FakeSettingsView : public SettingsView {
 public:
  void SetCaption(const std::string& c) override { captions.push_back(c); }
  void SetThemeChecked(int index) override {
    theme.fill(false);  // option buttons: one checked at a time
    theme.at(static_cast<size_t>(index)) = true;
  }
  bool ThemeChecked(int index) override { return theme.at(static_cast<size_t>(index)); }
  void SetThemeFont(int index, const std::string& name, int points) override {
    theme_fonts.at(static_cast<size_t>(index)) = name + " " + std::to_string(points);
  }
  void SetChecked(SettingsControl box, bool on) override { checked[box] = on; }
  bool Checked(SettingsControl box) override { return checked[box]; }
  void SetSoundLabel(const std::string& text) override { sound_label = text; }
  void CentreOnScreen() override { ++centred; }
  void Show() override { ++shown; }
  void Close() override { ++closes; }

  std::vector<std::string> captions;
  std::array<bool, 12> theme{};
  std::array<std::string, 12> theme_fonts{};
  std::map<SettingsControl, bool> checked;
  std::string sound_label;
  int centred = 0, shown = 0, closes = 0;
};

class FakeInputView : public InputView {
 public:
  void SetCaption(const std::string& c) override { caption = c; }
  void SetPrompt(const std::string& p) override { prompt = p; }
  void SetText(const std::string& t) override {
    text = t;
    selected.clear();
  }
  std::string Text() override { return text; }
  void SelectText(int start, int length) override {
    selected = text.substr(static_cast<size_t>(start), static_cast<size_t>(length));
  }
  void SetPasswordChar(const std::string& c) override { password_char = c; }
  void Show() override { ++shown; }
  void Close() override { ++closes; }

  std::string caption = "unset", prompt = "unset", text = "unset", selected, password_char;
  int shown = 0, closes = 0;
};

class FakeAboutView : public AboutView {
 public:
  void SetCaption(const std::string& c) override { caption = c; }
  void SetTitle(const std::string& t) override { title = t; }
  void SetInformation(const std::string& t) override { information = t; }
  void SetWebsite(const std::string& a) override { website = a; }
  void SetWebsiteColours(SystemColour text, SystemColour background) override {
    website_text = text;
    website_back = background;
  }
  void OpenAddress(const std::string& a) override { opened.push_back(a); }
  void CentreOnScreen() override { ++centred; }
  void Show() override { ++shown; }
  void Close() override { ++closes; }

  std::string caption, title, information, website;
  SystemColour website_text = -1, website_back = -1;
  std::vector<std::string> opened;
  int centred = 0, shown = 0, closes = 0;
};

}  // namespace ferrow::testing
