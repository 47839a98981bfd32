// The control window, the "Menu": the file name box with its history, the
// buttons that drive the program, three check boxes for per-file options, and
// the poll timer. It is also what the text window and the following engine
// talk to, and it shows the captions and messages core asks for.
#pragma once

#include <QCheckBox>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "control/menu_port.h"
#include "display/control_port.h"
#include "display/frmText.h"
#include "engine/follow_windows.h"
#include "engine/follower.h"
#include "support/random.h"
#include "support/ui.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTimer;
class QToolButton;

namespace ferrow {

class SoundPlayer;
class WindowServices;
struct Session;

// A check box whose third state, grayed, means "not set for this file": the
// program grays it; a click on a grayed box turns it on.
class TriStateBox : public QCheckBox {
  Q_OBJECT
 public:
  using QCheckBox::QCheckBox;
  int Value() const;  // 0 off, 1 on, 2 grayed
  void SetValue(int value);

 protected:
  void nextCheckState() override;
};

class Form1 : public QWidget, public Ui, public ControlWindowPort, public FollowWindows, public MenuPort {
  Q_OBJECT

 public:
  Form1(Session& session, WindowServices& services, QWidget* parent = nullptr);
  ~Form1() override;

  QComboBox* cmbFileName;
  QLineEdit* txtFileName;
  QToolButton *cmdOK, *cmdBrowse, *cmdOptions, *cmdFilter, *cmdPause, *cmdAbout, *cmdClose, *cmdLink;
  TriStateBox *chkFileStart, *chkMinimise, *chkPlaySound;
  QTimer* Timer1;
  QIcon imgStop, imgGo;
  QLabel* lblDragDropTip;

  bool FileOpened = false;
  bool SuppressSettingsSave = false;  // the current file's settings are not saved on a switch
  int16_t LastTip = 0;

  // The settings dialog and the about window, which open from here.
  std::function<void()> open_settings;
  std::function<void()> open_about;

  frmText* TextWindow() const { return text_window_; }
  Follower& follower() { return follower_; }

  void Form_Load();
  // Closing: now, or once the running open, restart or Apply is over.
  void Form_Unload();
  bool Unloaded() const { return unloaded_; }
  // Called once the unload is done (the program ends its event loop here).
  std::function<void()> on_unloaded;
  void OK_Click(bool startup_mode = false, int16_t changed_cpu_interval = 0,
                bool play_sound_change = false) override;

  // Buttons.
  void cmdBrowse_Click();
  void cmdFilter_Click();
  void cmdOptions_Click();
  void cmdAbout_Click();
  void cmdClose_Click();
  void cmdLink_Click();
  void RefreshFilterToolTip();

  // Check boxes.
  void DisableCheckBoxes();
  void EnableCheckBoxes() override;
  void SetCheckboxesDefault();
  void ClearCheckBoxes();
  void UpdateCheckboxes();
  void DisableAllButtons();
  void EnableAllButtons() override;

  // The file name box (typing, picking, focus, keys, drops) and the tip label.
  void cmbFileName_Change();
  void cmbFileName_Click();
  void cmbFileName_KeyDown(int key, Qt::KeyboardModifiers modifiers);
  void cmbFileName_KeyPress(int character);
  void cmbFileName_OLEDragDrop(const QStringList& names);
  void Form_OLEDragDrop(const QStringList& names);
  void txtFileName_Change();
  void ShowTip();
  void FillHistoryList();

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

  // MenuPort, for the settings dialog and the about window.
  void SetPlaySoundCheckBox(bool on) override { chkPlaySound->SetValue(on ? 1 : 0); }
  void ClearHistoryList() override;
  void RestartFollowing() override { follower_.RestartFollowing(); }
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

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void BuildControls();
  void Connect();
  void OpenFile(bool startup_mode, int16_t changed_cpu_interval, bool play_sound_change);
  void Unload();
  frmText& LoadTextWindow();
  void UnloadTextWindow();
  void WaitSeconds(int seconds);
  void UnloadAllForms();
  // The history entry the user sees: the highlighted one while the list is
  // dropped down, else the one the box shows; -1 when none.
  int ShownHistoryIndex() const;

  Session& session_;
  WindowServices& services_;
  Follower follower_;
  SystemRandom random_;
  SoundPlayer* sound_;
  QPointer<frmText> text_window_;
  bool program_closing_ = false;
  bool unloaded_ = false;
  bool in_close_event_ = false;
};

}  // namespace ferrow
