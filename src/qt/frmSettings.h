// The settings dialog's window: it draws the controls and forwards their
// events to `SettingsDialog`, which decides everything.
#pragma once

#include <QWidget>
#include <array>

#include "dialogs/settings_dialog.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace ferrow {

class WindowGate;

class frmSettings : public QWidget, public SettingsView {
  Q_OBJECT

 public:
  frmSettings(Session& session, MenuPort& menu, WindowServices& services,
              QWidget* parent = nullptr);

  QGroupBox* Frame1;
  std::array<QRadioButton*, 12> optTheme{};
  QCheckBox *chkNiceMode, *chkQuickScroll, *chkCopyAsRTF, *chkAlert, *chkPlaySound;
  QGroupBox* Frame2;
  QLabel* lblUpdatedWav;
  QPushButton *cmdBrowseWav, *cmdRevertWav;
  QLabel* Label1;
  QPushButton* Command1;
  QPushButton *cmdOK, *cmdCancel;

  void Form_Load() { logic_.Form_Load(); }
  void cmdOK_Click() { logic_.cmdOK_Click(); }
  void cmdCancel_Click() { logic_.cmdCancel_Click(); }
  void Command1_Click() { logic_.Command1_Click(); }
  void cmdBrowseWav_Click() { logic_.cmdBrowseWav_Click(); }
  void cmdRevertWav_Click() { logic_.cmdRevertWav_Click(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  QCheckBox* Box(SettingsControl box) const;

  void SetCaption(const std::string& caption) override;
  void SetThemeChecked(int index) override;
  bool ThemeChecked(int index) override;
  void SetThemeFont(int index, const std::string& font_name, int points) override;
  void SetChecked(SettingsControl box, bool on) override;
  bool Checked(SettingsControl box) override;
  void SetSoundLabel(const std::string& text) override;
  void CentreOnScreen() override;
  void Show() override { show(); }
  void Close() override { close(); }

  WindowGate& gate_;
  SettingsDialog logic_;
};

}  // namespace ferrow
