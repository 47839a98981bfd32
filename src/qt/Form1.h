// The control window in Qt: draws the controls and forwards every event to
// ControlWindow, which decides what happens. It also makes the other windows
// for it (WindowFactory).
#pragma once

#include <QCheckBox>
#include <QIcon>
#include <QWidget>
#include <memory>

#include "control/control_view.h"
#include "control/control_window.h"
#include "control/window_factory.h"
#include "qt/lost_window_guard.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTimer;
class QToolButton;

namespace ferrow {

class FileNameEdit;
class SoundPlayer;
class WindowServices;
class frmText;
struct Session;

// A check box whose third state, grayed, means "not set for this file". A
// click changes nothing by itself: the control window's logic sets the value.
class TriStateBox : public QCheckBox {
  Q_OBJECT
 public:
  using QCheckBox::QCheckBox;
  int Value() const;  // 0 off, 1 on, 2 grayed
  void SetValue(int value);

 protected:
  void nextCheckState() override;
};

class Form1 : public QWidget, public ControlView, public WindowFactory {
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

  ControlWindow& Logic() { return logic_; }
  // The text window, when there is one.
  frmText* TextWindow() const;

  // ControlView.
  void SetCaption(const std::string& caption) override;
  std::string Caption() override;
  void Repaint() override;
  bool Minimised() override;
  int32_t LeftTwips() override;
  int32_t TopTwips() override;
  void MoveTwips(int32_t left, int32_t top) override;
  void ShowNormal() override;
  void ShowMinimised() override;
  void BringToFront() override;
  void CentreOnScreen() override;
  void TrimSystemMenu() override {}  // a fixed-size window without maximise: nothing to trim
  void CloseWindow() override;
  void SetEnabled(Control control, bool enabled) override;
  bool Enabled(Control control) override;
  void SetToolTip(Control control, const std::string& tip) override;
  int Value(Control control) override;
  void SetValue(Control control, int value) override;
  std::string Text(Control control) override;
  void SetText(Control control, const std::string& text) override;
  void SetPausePicture(bool following) override;
  void SetList(const std::vector<std::string>& names) override;
  std::vector<std::string> List() override;
  int HighlightedListIndex() override;
  void RemoveListItem(int index) override;
  void SelectBoxText() override;
  void SetTimerInterval(int milliseconds) override;
  void SetTimerEnabled(bool enabled) override;
  bool TimerEnabled() override;
  bool PlaySoundFile(const std::string& file, bool loop) override;

  // WindowFactory.
  TextWindowPort* NewTextWindow(ControlWindowPort& control) override;
  void OpenSettings(MenuPort& menu) override;
  void OpenAbout(MenuPort& menu) override;
  std::string InputMsg(const std::string& prompt, const std::string& title,
                       const std::string& edit_string) override;
  void UnloadOtherWindows() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void BuildControls();
  void Connect();
  QWidget* Widget(Control control) const;
  Control ControlOf(QObject* watched) const;

  Session& session_;
  WindowServices& services_;
  SoundPlayer* sound_;
  ControlWindow logic_;
  FileNameEdit* file_name_edit_ = nullptr;
  bool in_close_event_ = false;
  // For every window of the program, whose life this window spans.
  LostWindowGuard lost_window_guard_;
};

}  // namespace ferrow
