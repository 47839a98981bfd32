// The settings dialog's window over a real control window: captions and
// values reach the controls, clicks and keys reach the dialog, and Apply
// really reloads. What the dialog decides is tested against a fake window
// in settings_dialog_test.cc.
#include "qt/frmSettings.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

#include "config/ini_file.h"
#include "control/form1_fixture.h"
#include "qt/frmText.h"
#include "display/themes.h"

namespace ferrow {
namespace {

class SettingsWindow : public testing::Form1Test {
 protected:
  SettingsWindow() {
    FillThemeTables(options.Themes);
    ApplyDefaultTheme(options, options.Themes);
    options.FileDefaults = static_cast<const FileOptions&>(options);
    log = MakeLog("web.log", "line\r\n");
    form->Logic().Form_Load();
    Type(log);
    form->Logic().OK_Click();
    dialog = Open();
  }
  // Opened as the user does, from the control window.
  frmSettings* Open() {
    form->Logic().cmdOptions_Click();
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* s = qobject_cast<frmSettings*>(w); s && s->isVisible()) return s;
    return nullptr;
  }
  std::string log;
  QPointer<frmSettings> dialog;
};

TEST_F(SettingsWindow, CaptionsAndTheSessionsChoicesReachTheControls) {
  ASSERT_TRUE(dialog);
  EXPECT_FALSE(form->cmdOptions->isEnabled());
  EXPECT_TRUE(dialog->optTheme[1]->isChecked());
  EXPECT_EQ(dialog->windowTitle().toStdString(), "Ferrow Settings");
  EXPECT_EQ(dialog->Frame1->title().toStdString(), "Colour Scheme");
  EXPECT_EQ(dialog->optTheme[8]->text().toStdString(), "WordPerfect 5.1");
  EXPECT_EQ(dialog->chkNiceMode->toolTip().toStdString(), "Kinder on CPU usage");
  EXPECT_EQ(dialog->Command1->toolTip(), dialog->Label1->toolTip());
  EXPECT_EQ(dialog->cmdOK->text().toStdString(), "&Apply");
  EXPECT_EQ(dialog->cmdCancel->text().toStdString(), "&Close");
  EXPECT_EQ(dialog->lblUpdatedWav->text().toStdString(), "Updated.wav");
  EXPECT_TRUE(dialog->chkAlert->isChecked());
  dialog->cmdCancel->click();
}

TEST_F(SettingsWindow, CheckBoxClicksReachTheDialogAndTheControlWindow) {
  dialog->chkPlaySound->click();
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_EQ(form->chkPlaySound->Value(), 1);
  dialog->chkAlert->click();
  EXPECT_FALSE(options.AlertOnUpdate);
  dialog->chkQuickScroll->click();
  EXPECT_TRUE(options.QuickScroll);
  dialog->cmdCancel->click();
}

TEST_F(SettingsWindow, NiceModeThenCloseKeepsTheSlowRateButNotTheRunningTimer) {
  const int running = form->Timer1->interval();
  dialog->chkNiceMode->click();
  EXPECT_EQ(options.TimerInterval, 2000);
  dialog->cmdCancel->click();
  EXPECT_EQ(form->Timer1->interval(), running);
  form->Logic().follower().FerrowRestart();  // the next start of following
  EXPECT_EQ(form->Timer1->interval(), 2000);
}

TEST_F(SettingsWindow, ApplyReloadsTheFileInTheCheckedThemesLook) {
  dialog->optTheme[2]->click();  // Paper
  dialog->cmdOK->click();
  EXPECT_EQ(options.ThemeNumber, 2);
  EXPECT_EQ(form->TextWindow()->Rtf->FontSize(), 9);
  EXPECT_TRUE(form->Timer1->isActive());
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "ThemeNumber"), "2");
}

TEST_F(SettingsWindow, EscapeAndEnterInAControlReachTheDialog) {
  Key(dialog->chkQuickScroll, Qt::Key_Escape);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(form->cmdOptions->isEnabled());  // the control window is usable again
  frmSettings* second = Open();
  ASSERT_TRUE(second);
  second->optTheme[9]->setChecked(true);
  Key(second->optTheme[9], Qt::Key_Enter);
  EXPECT_EQ(options.ThemeNumber, 9);
  EXPECT_FALSE(second->isVisible());
  EXPECT_TRUE(form->cmdOptions->isEnabled());
}

// On the focused Close, Enter closes without applying; on Apply, Enter and
// Space apply; Escape on either closes.
TEST_F(SettingsWindow, EnterOnCloseClosesWithoutApplyingAndEnterOrSpaceOnApplyApplies) {
  dialog->optTheme[2]->setChecked(true);
  Key(dialog->cmdCancel, Qt::Key_Return);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_EQ(options.ThemeNumber, 1) << "Enter on Close applied the checked theme";
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "ThemeNumber"), "1");
  for (int key : {Qt::Key_Return, Qt::Key_Space}) {
    frmSettings* again = Open();
    ASSERT_TRUE(again);
    again->optTheme[key == Qt::Key_Space ? 3 : 2]->setChecked(true);
    Key(again->cmdOK, key);
    EXPECT_FALSE(again->isVisible());
    EXPECT_EQ(options.ThemeNumber, key == Qt::Key_Space ? 3 : 2);
  }
  frmSettings* last = Open();
  ASSERT_TRUE(last);
  last->optTheme[5]->setChecked(true);
  Key(last->cmdOK, Qt::Key_Escape);
  EXPECT_FALSE(last->isVisible());
  EXPECT_EQ(options.ThemeNumber, 3);
}

TEST_F(SettingsWindow, SoundAndHistoryButtonsReachTheDialog) {
  const std::string wav = MakeLog("ding.wav", "RIFF");
  services.chosen = wav;
  dialog->cmdBrowseWav->click();
  EXPECT_EQ(dialog->lblUpdatedWav->text().toStdString(), wav);
  dialog->cmdRevertWav->click();
  EXPECT_EQ(dialog->lblUpdatedWav->text().toStdString(), "Updated.wav");
  dialog->Command1->click();
  EXPECT_EQ(form->cmbFileName->count(), 0);
  EXPECT_EQ(services.messages.back(), "Information|History Cleared");
  dialog->cmdCancel->click();
}

TEST_F(SettingsWindow, TheCloseBoxClosesAndTheWindowGoesLater) {
  dialog->close();
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(form->cmdOptions->isEnabled());
  for (int i = 0; i < 5 && dialog; ++i) QApplication::processEvents();
  EXPECT_FALSE(dialog);
}

}  // namespace
}  // namespace ferrow
