// The settings dialog's behaviour: theme, poll rate, sound, flashing, quick
// scrolling, the copy format, and clearing the history. Check boxes act on
// the session at once; Apply saves, reapplies the theme and reloads the
// file; Close saves without reloading. Each toolkit's window implements
// `SettingsView` and forwards its events to `SettingsDialog`.
#pragma once

#include <string>

#include "dialogs/settings_texts.h"

namespace ferrow {

class MenuPort;
class WindowServices;
struct Session;

class SettingsView {
 public:
  virtual ~SettingsView() = default;
  virtual void SetCaption(const std::string& caption) = 0;
  // optTheme(index), 0 to 11.
  virtual void SetThemeChecked(int index) = 0;
  virtual bool ThemeChecked(int index) = 0;
  virtual void SetThemeFont(int index, const std::string& font_name, int points) = 0;
  // The check boxes (kNiceMode to kPlaySound).
  virtual void SetChecked(SettingsControl box, bool on) = 0;
  virtual bool Checked(SettingsControl box) = 0;
  // lblUpdatedWav.
  virtual void SetSoundLabel(const std::string& text) = 0;
  virtual void CentreOnScreen() = 0;
  virtual void Show() = 0;
  // Hides the window for good; the window disposes of itself later.
  virtual void Close() = 0;
};

class SettingsDialog {
 public:
  SettingsDialog(Session& session, MenuPort& menu, WindowServices& services, SettingsView& view);

  void Form_Load();
  void cmdOK_Click();
  void cmdCancel_Click();
  void Command1_Click();
  void cmdBrowseWav_Click();
  void cmdRevertWav_Click();
  void chkAlert_Click();
  void chkNiceMode_Click();
  void chkPlaySound_Click();
  void chkQuickScroll_Click();
  // The key-down of every control but Apply and Close: Enter applies,
  // Escape closes. True when the
  // key was one of them (the window then does nothing more with it).
  bool Control_KeyDown(int key_code);
  // Keys on the focused Apply and Close buttons: Enter and Space press that
  // button, Escape closes. True when the key was one of them.
  bool cmdOK_KeyDown(int key_code);
  bool cmdCancel_KeyDown(int key_code);
  // The window is asked to close (its close box, or the window closing
  // itself): false keeps it open.
  bool Form_QueryUnload();
  bool Unloaded() const { return unloaded_; }

 private:
  void Apply();
  void SaveSettings();
  void Unload();
  void Form_Unload();

  Session& session_;
  MenuPort& menu_;
  WindowServices& services_;
  SettingsView& view_;
  bool unloaded_ = false;
};

}  // namespace ferrow
