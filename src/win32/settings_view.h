// The settings dialog as a Win32 window: the twelve theme option buttons,
// each in its own theme's font, the check boxes, the update sound, the
// history button, Apply and Close. SettingsDialog decides what they do.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "dialogs/settings_dialog.h"
#include "display/themes.h"
#include "win32/dialog_window.h"

namespace ferrow {
class MenuPort;
class WindowServices;
struct Session;
}  // namespace ferrow

namespace ferrow::win32 {

class ToolTips;

class Win32SettingsDialog : public DialogWindow, private SettingsView {
 public:
  // Ids: the controls by SettingsControl from 10, the theme buttons from 40.
  static int IdOf(SettingsControl control) { return 10 + static_cast<int>(control); }
  static int ThemeId(int index) { return 40 + index; }
  static constexpr int kIdSoundLabel = 9;  // lblUpdatedWav

  Win32SettingsDialog(Session& session, MenuPort& menu, WindowServices& services);
  ~Win32SettingsDialog() override;
  SettingsDialog& Logic() { return logic_; }

 private:
  bool OnKey(int id, int key_code) override;
  void OnCommand(int id, int code) override;
  void OnClose() override;
  void AddControl(SettingsControl control, const char* window_class, DWORD style, int x, int y, int width,
                  int height);

  void SetCaption(const std::string& caption) override { SetWindowCaption(caption); }
  void SetThemeChecked(int index) override;
  bool ThemeChecked(int index) override;
  void SetThemeFont(int index, const std::string& font_name, int points) override;
  void SetChecked(SettingsControl box, bool on) override;
  bool Checked(SettingsControl box) override;
  void SetSoundLabel(const std::string& text) override;
  void CentreOnScreen() override { Centre(); }
  void Show() override { ShowWithFocus(IdOf(SettingsControl::kOK)); }
  void Close() override { Dispose(); }

  std::unique_ptr<ToolTips> tips_;
  std::array<HFONT, kThemeCount> theme_fonts_{};
  SettingsDialog logic_;
};

}  // namespace ferrow::win32
