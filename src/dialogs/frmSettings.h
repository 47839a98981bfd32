// The settings dialog: theme, poll rate, sound, flashing, quick scrolling, the
// copy format, and clearing the history. Check boxes act on the session at
// once; Apply saves, reapplies the theme and reloads the file; Close saves
// without reloading.
#pragma once

#include <QWidget>
#include <array>

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace ferrow {

class MenuPort;
class WindowServices;
struct Session;

class frmSettings : public QWidget {
  Q_OBJECT

 public:
  frmSettings(Session& session, MenuPort& menu, WindowServices& services, QWidget* parent = nullptr);

  QGroupBox* Frame1;
  std::array<QRadioButton*, 12> optTheme{};
  QCheckBox *chkNiceMode, *chkQuickScroll, *chkCopyAsRTF, *chkAlert, *chkPlaySound;
  QGroupBox* Frame2;
  QLabel* lblUpdatedWav;
  QPushButton *cmdBrowseWav, *cmdRevertWav;
  QLabel* Label1;
  QPushButton* Command1;
  QPushButton *cmdOK, *cmdCancel;

  void Form_Load();
  void cmdOK_Click();
  void cmdCancel_Click();
  void Command1_Click();
  void cmdBrowseWav_Click();
  void cmdRevertWav_Click();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void SaveSettings();
  void Apply();

  Session& session_;
  MenuPort& menu_;
  WindowServices& services_;
  bool closing_ = false;  // closed by Apply or Close, not by the close box
};

}  // namespace ferrow
