// The control window, the "Menu": the file name box with its history, the
// buttons that drive the program, three check boxes for per-file options and
// the poll timer. This is its behaviour, written once for every toolkit; the
// toolkit's window (ControlView) draws it and forwards its events here. It is
// also what the text window, the following engine and the dialogs talk to,
// and it shows the captions and messages core asks for.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "control/control_keys.h"
#include "control/control_view.h"
#include "control/menu_port.h"
#include "display/control_port.h"
#include "engine/follow_windows.h"
#include "engine/follower.h"
#include "support/random.h"
#include "support/ui.h"

namespace ferrow {

class TextWindowPort;
class WindowFactory;
class WindowServices;
struct Session;

class ControlWindow : public Ui, public ControlWindowPort, public FollowWindows, public MenuPort {
 public:
  ControlWindow(Session& session, ControlView& view, WindowFactory& windows, WindowServices& services);
  ~ControlWindow() override;

  bool FileOpened = false;
  bool SuppressSettingsSave = false;  // the current file's settings are not saved on a switch
  int16_t LastTip = 0;
  // Called once the unload is done (the program ends its event loop here).
  std::function<void()> on_unloaded;

  void Form_Load();
  // Closing: now, or once the running open, restart or Apply is over.
  void Form_Unload();
  bool Unloaded() const { return unloaded_; }
  void OK_Click(bool startup_mode = false, int16_t changed_cpu_interval = 0,
                bool play_sound_change = false) override;
  void Timer1_Timer();

  // Buttons.
  void cmdOK_Click() { OK_Click(); }
  void cmdBrowse_Click();
  void cmdFilter_Click();
  void cmdOptions_Click();
  void cmdAbout_Click();
  void cmdClose_Click();
  void cmdLink_Click();
  void cmdPause_Click() { follower_.cmdPause_Click(); }
  void RefreshFilterToolTip();

  // Check boxes.
  void chkFileStart_Click() { CheckBoxClicked(Control::chkFileStart); }
  void chkMinimise_Click() { CheckBoxClicked(Control::chkMinimise); }
  void chkPlaySound_Click() { CheckBoxClicked(Control::chkPlaySound); }
  // The user clicked a check box (mouse or space bar): it takes its next
  // value, then its Click handler runs. Toolkits forward the click here and
  // change nothing themselves.
  void CheckBoxPressed(Control box);
  void DisableCheckBoxes();
  void EnableCheckBoxes() override;
  void SetCheckboxesDefault();
  void ClearCheckBoxes();
  void UpdateCheckboxes();
  void DisableAllButtons();
  void EnableAllButtons() override;

  // Keys, by key code and shift state, on any control; true when the key
  // goes no further.
  bool KeyDown(Control control, int key_code, int shift);
  // A key as the window system reports it, mapped once here.
  bool KeyDown(Control control, const KeyStroke& key);

  // The file name box (typing, picking, keys, drops), the plain name field
  // and the tip label.
  void cmbFileName_Change();
  void cmbFileName_Click();
  void cmbFileName_GotFocus();
  void cmbFileName_KeyPress(int character);
  void cmbFileName_KeyDown(int key_code, int shift);
  void cmbFileName_OLEDragDrop(const std::vector<std::string>& names);
  void Form_OLEDragDrop(const std::vector<std::string>& names);
  void txtFileName_Change();
  void lblDragDropTip_Click() { ShowTip(); }
  void ShowTip();
  void FillHistoryList();

  Follower& follower() { return follower_; }
  TextWindowPort* TextWindow() const { return text_window_; }

  // Ui: captions on this window, messages through the window services.
  void SetMenuCaption(const std::string& caption) override;
  std::string MenuCaption() override;
  void RefreshMenu() override;
  void ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) override;
  bool AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) override;

  // ControlWindowPort, for the text window.
  void SetFileNameBox(const std::string& name) override;
  void StopTimer() override;
  void ShowNormalAndActivate() override;
  bool ProgramClosing() override { return program_closing_; }
  void TextWindowClosed(const TextBox& box) override;

  // FollowWindows, for the following engine.
  TextBox& TextWindowBox() override;
  bool StillShowing(const TextBox& box) override;
  void SetTextWindowCaption(const std::string& caption) override;
  void FlashTextWindow() override;
  bool TimerEnabled() override;
  void SetTimerEnabled(bool enabled) override;
  void SetTimerInterval(int milliseconds) override;
  void ShowPauseButton(bool following, const std::string& tool_tip) override;
  std::string FileNameBoxText() override;
  void ClearPlaySoundCheckBox() override;
  void RefreshFilterCaption() override { RefreshFilterToolTip(); }
  void StoreMenuPosition(Options& options) override;
  bool PlaySoundFile(const std::string& file, bool loop) override;

  // MenuPort, for the settings dialog and the about window.
  void SetPlaySoundCheckBox(bool on) override;
  void ClearHistoryList() override;
  void RestartFollowing() override { follower_.RestartFollowing(); }

 private:
  void OpenFile(bool startup_mode, int16_t changed_cpu_interval, bool play_sound_change);
  void Unload();
  void CheckBoxClicked(Control box);
  void ApplyNewFilter(const std::string& answer);
  bool& FlagOf(Control check_box);
  // Browse, Filter and Link wait for the user: never inside an operation
  // (they would nest in its wait) nor once the program closes. Asked for
  // while one runs, they start right after it (WindowGate::AskTheUser).
  void AskTheUser(Control button, std::function<void()> ask);
  void BrowseForFile();
  void AskForFilter();
  void MakeDesktopLink();
  TextWindowPort& LoadTextWindow();
  void UnloadTextWindow();
  void WaitSeconds(int seconds);
  // The history entry the user sees: the highlighted one while the list is
  // dropped down, else the one the box shows; -1 when none.
  int ShownHistoryIndex();
  // An open stopped by the program closing: the file counts as opened.
  void KeepOpenedForUnload();
  // The entry highlighted in the dropped-down list, picked as a click picks.
  void PickHighlightedEntry();

  Session& session_;
  ControlView& view_;
  WindowFactory& windows_;
  WindowServices& services_;
  Follower follower_;
  SystemRandom random_;
  TextWindowPort* text_window_ = nullptr;
  bool program_closing_ = false;
  bool asking_filter_ = false;  // the input box of cmdFilter_Click waits
  bool unloaded_ = false;
  std::shared_ptr<const int> life_ = std::make_shared<const int>(0);
};

}  // namespace ferrow
