#include "dialogs/frmSettings.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "config/ini_file.h"
#include "control/form1_fixture.h"
#include "display/frmText.h"
#include "display/themes.h"

namespace ferrow {
namespace {

class SettingsDialog : public testing::Form1Test {
 protected:
  SettingsDialog() {
    FillThemeTables(options.Themes);
    ApplyDefaultTheme(options, options.Themes);
    options.FileDefaults = static_cast<const FileOptions&>(options);
    log = MakeLog("web.log", "line\r\n");
    form->Logic().Form_Load();
    Type(log);
    form->Logic().OK_Click();
    dialog = new frmSettings(app, form->Logic(), services);
    dialog->Form_Load();
  }
  std::string Stored(const std::string& key) { return ReadINIFile(env, options.IniFileName, "web.log", key); }
  std::string log;
  frmSettings* dialog;
};

TEST_F(SettingsDialog, OpensWithTheSessionsChoicesAndTheirCaptions) {
  EXPECT_TRUE(dialog->optTheme[1]->isChecked());
  EXPECT_EQ(dialog->windowTitle().toStdString(), "Ferrow Settings");
  EXPECT_EQ(dialog->Frame1->title().toStdString(), "Colour Scheme");
  EXPECT_EQ(dialog->optTheme[8]->text().toStdString(), "WordPerfect 5.1");
  EXPECT_EQ(dialog->chkNiceMode->toolTip().toStdString(), "Kinder on CPU usage");
  EXPECT_EQ(dialog->cmdOK->text().toStdString(), "&Apply");
  EXPECT_EQ(dialog->cmdCancel->text().toStdString(), "&Close");
  EXPECT_EQ(dialog->lblUpdatedWav->text().toStdString(), "Updated.wav");
  EXPECT_TRUE(dialog->chkAlert->isChecked());
  EXPECT_EQ(dialog->optTheme[3]->font().family().toStdString().empty(), false);
  dialog->cmdCancel_Click();
}

TEST_F(SettingsDialog, NiceModeThenCloseKeepsTheSlowRateButNotTheRunningTimer) {
  const int running = form->Timer1->interval();
  dialog->chkNiceMode->click();
  EXPECT_EQ(options.TimerInterval, 2000);
  EXPECT_TRUE(options.NiceMode);
  dialog->cmdCancel_Click();
  EXPECT_EQ(form->Timer1->interval(), running);
  form->Logic().follower().FerrowRestart();  // the next start of following
  EXPECT_EQ(form->Timer1->interval(), 2000);
}

TEST_F(SettingsDialog, CustomAppliedGivesTheStandardLookWithThemeZeroStored) {
  options.FontColour = 0x123456;
  dialog->optTheme[0]->setChecked(true);
  dialog->cmdOK_Click();
  EXPECT_EQ(options.ThemeNumber, 0);
  EXPECT_EQ(options.Font, "Terminal");
  EXPECT_EQ(options.FontColour, 0xBEBEBE);
  EXPECT_EQ(options.BackColour, 0x000000);
  EXPECT_EQ(options.FilterColour, 0xFF0000);
  EXPECT_EQ(Stored("ThemeNumber"), "0");
  EXPECT_EQ(Stored("FontColour"), "Grey");
}

TEST_F(SettingsDialog, ApplyingAThemeReloadsTheFileInItsLook) {
  dialog->optTheme[2]->setChecked(true);  // Paper
  dialog->cmdOK_Click();
  EXPECT_EQ(options.ThemeNumber, 2);
  EXPECT_EQ(options.FontSize, 9);
  EXPECT_EQ(form->TextWindow()->Rtf->FontSize(), 9);
  EXPECT_TRUE(form->Timer1->isActive());
  EXPECT_EQ(Stored("ThemeNumber"), "2");
}

TEST_F(SettingsDialog, EscapeInAnyControlClosesAndSavesEnterApplies) {
  dialog->chkQuickScroll->click();
  Key(dialog->chkQuickScroll, Qt::Key_Escape);
  EXPECT_TRUE(options.QuickScroll);
  EXPECT_EQ(Stored("QuickScroll"), "True");
  EXPECT_TRUE(form->cmdOptions->isEnabled());  // the control window is usable again
  auto* second = new frmSettings(app, form->Logic(), services);
  second->Form_Load();
  second->optTheme[9]->setChecked(true);
  Key(second->optTheme[9], Qt::Key_Return);
  EXPECT_EQ(options.ThemeNumber, 9);
}

TEST_F(SettingsDialog, ClearingTheHistoryEvenWhenEmptySaysSo) {
  dialog->Command1_Click();
  EXPECT_EQ(options.HistoryTotal, 0);
  EXPECT_EQ(form->cmbFileName->count(), 0);
  EXPECT_EQ(services.messages.back(), "Information|History Cleared");
  dialog->Command1_Click();
  EXPECT_EQ(services.messages.size(), 2u);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "HistoryCount"), "0");
  dialog->cmdCancel_Click();
}

TEST_F(SettingsDialog, SoundCanBeBrowsedForAndRevertedToTheDefault) {
  const std::string wav = MakeLog("ding.wav", "RIFF");
  services.chosen = wav;
  dialog->cmdBrowseWav_Click();
  EXPECT_EQ(options.UpdateSound, wav);
  EXPECT_EQ(dialog->lblUpdatedWav->text().toStdString(), wav);
  EXPECT_NE(services.dialogs.back().find("Select Update Sound|WAV files|*.wav||"), std::string::npos);
  services.chosen = dir.File("missing.wav");
  dialog->cmdBrowseWav_Click();
  EXPECT_EQ(options.UpdateSound, wav);  // a name that does not exist changes nothing
  dialog->cmdRevertWav_Click();
  EXPECT_EQ(options.UpdateSound, "Updated.wav");
  dialog->cmdCancel_Click();
}

TEST_F(SettingsDialog, PlaySoundTicksTheControlWindowsBoxToo) {
  dialog->chkPlaySound->click();
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_EQ(form->chkPlaySound->Value(), 1);
  dialog->chkAlert->click();
  EXPECT_FALSE(options.AlertOnUpdate);
  dialog->cmdCancel_Click();
}

}  // namespace
}  // namespace ferrow
