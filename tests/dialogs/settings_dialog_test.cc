#include "dialogs/settings_dialog.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>

#include "config/ini_file.h"
#include "control/fake_services.h"
#include "dialogs/fake_dialog_views.h"
#include "dialogs/key_codes.h"
#include "display/themes.h"
#include "session/session.h"
#include "testing/counting_env.h"
#include "testing/fake_menu_port.h"
#include "testing/recording_ui.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

using C = SettingsControl;

// An env whose event passes run the user's next queued action, as the
// program's waits let window events run.
class UserEnv : public testing::ProfileWriteEnv {
 public:
  void LetEventsRun() override {
    ProfileWriteEnv::LetEventsRun();
    if (user.empty()) return;
    std::function<void()> action = std::move(user.front());
    user.pop_front();
    action();
  }
  std::deque<std::function<void()>> user;
};

class SettingsDialogTest : public ::testing::Test {
 protected:
  SettingsDialogTest() {
    options.IniFileName = dir.File("Ferrow.INI");
    options.FileSection = "web.log";
    FillThemeTables(options.Themes);
    ApplyDefaultTheme(options, options.Themes);
    options.AlertOnUpdate = true;
  }
  std::string Stored(const std::string& key, const std::string& section = "web.log") {
    return ReadINIFile(env, options.IniFileName, section, key);
  }
  // A click on a check box: it toggles, then its handler runs.
  void Click(C box, void (SettingsDialog::*handler)()) {
    view.checked[box] = !view.checked[box];
    (dialog.*handler)();
  }

  testing::TempDir dir;
  UserEnv env;
  Options options;
  testing::RecordingUi ui;
  Session session{env, options, ui};
  testing::FakeMenuPort menu;
  testing::FakeServices services;
  testing::FakeSettingsView view;
  SettingsDialog dialog{session, menu, services, view};
};

TEST_F(SettingsDialogTest, OpensCentredWithTheSessionsChoicesAndEachThemeInItsFont) {
  options.ThemeNumber = 3;
  options.QuickScroll = true;
  options.UpdateSound = "C:\\Sounds\\ding.wav";
  dialog.Form_Load();
  EXPECT_TRUE(view.theme[3]);
  EXPECT_FALSE(view.theme[1]);
  EXPECT_TRUE(view.checked[C::kAlert]);
  EXPECT_TRUE(view.checked[C::kQuickScroll]);
  EXPECT_FALSE(view.checked[C::kPlaySound]);
  EXPECT_FALSE(view.checked[C::kCopyAsRTF]);
  EXPECT_EQ(view.sound_label, "C:\\Sounds\\ding.wav");
  EXPECT_EQ(view.theme_fonts[8], options.Themes.ThemeFontName[8] + " " +
                                     std::to_string(options.Themes.ThemeFontSize[8]));
  EXPECT_EQ(view.captions.back(), "Ferrow Settings");
  EXPECT_EQ(view.centred, 1);
  EXPECT_EQ(view.shown, 1);
}

TEST_F(SettingsDialogTest, CpuFriendlyModeShowsTheRateNotTheFlag) {
  options.NiceMode = true;
  options.TimerInterval = 500;
  dialog.Form_Load();
  EXPECT_FALSE(view.checked[C::kNiceMode]);
  options.NiceMode = false;
  options.TimerInterval = 2000;
  dialog.Form_Load();
  EXPECT_TRUE(view.checked[C::kNiceMode]);
}

TEST_F(SettingsDialogTest, NiceModeThenCloseKeepsTheSlowRateButNotTheRunningTimer) {
  dialog.Form_Load();
  Click(C::kNiceMode, &SettingsDialog::chkNiceMode_Click);
  EXPECT_TRUE(options.NiceMode);
  EXPECT_EQ(options.TimerInterval, 2000);
  EXPECT_EQ(Stored("AlertOnUpdate"), "") << "a click saves nothing";
  dialog.cmdCancel_Click();
  EXPECT_EQ(Stored("AlertOnUpdate"), "True") << "Close saved";
  EXPECT_EQ(options.TimerInterval, 2000) << "what the next start of following takes";
  EXPECT_EQ(menu.Count("TimerInterval=2000"), 0) << "the running timer keeps its interval";
  EXPECT_EQ(menu.Count("RestartFollowing"), 0);
  Click(C::kNiceMode, &SettingsDialog::chkNiceMode_Click);
  EXPECT_EQ(options.TimerInterval, 500);
}

TEST_F(SettingsDialogTest, CheckBoxesActOnTheSessionAtOnceCopyFormatOnlyOnApply) {
  dialog.Form_Load();
  Click(C::kAlert, &SettingsDialog::chkAlert_Click);
  EXPECT_FALSE(options.AlertOnUpdate);
  Click(C::kQuickScroll, &SettingsDialog::chkQuickScroll_Click);
  EXPECT_TRUE(options.QuickScroll);
  Click(C::kPlaySound, &SettingsDialog::chkPlaySound_Click);
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_EQ(menu.calls.back(), "PlaySound=1") << "the control window's box follows";
  view.checked[C::kCopyAsRTF] = true;
  EXPECT_FALSE(options.CopyAsRTF);
  dialog.cmdOK_Click();
  EXPECT_TRUE(options.CopyAsRTF);
  EXPECT_EQ(Stored("CopyAsRTF", "Common"), "True");
}

TEST_F(SettingsDialogTest, CustomAppliedGivesGreyTerminalOnBlackWithABlueFilterAndStoresThemeZero) {
  options.FontColour = 0x123456;
  dialog.Form_Load();
  view.SetThemeChecked(0);
  dialog.cmdOK_Click();
  EXPECT_EQ(options.ThemeNumber, 0);
  EXPECT_EQ(options.Font, "Terminal");
  EXPECT_EQ(options.FontColour, 0xBEBEBE);
  EXPECT_EQ(options.BackColour, 0x000000);
  EXPECT_EQ(options.FilterColour, 0xFF0000);
  EXPECT_EQ(Stored("ThemeNumber"), "0");
  EXPECT_EQ(Stored("FontColour"), "Grey");
}

TEST_F(SettingsDialogTest, ApplyShowsItsCaptionSavesSetsTheTimerRestartsAndCloses) {
  dialog.Form_Load();
  view.SetThemeChecked(2);  // Paper
  view.checked[C::kNiceMode] = true;
  menu.during_restart = [&] { EXPECT_EQ(view.captions.back(), "Applying settings..."); };
  dialog.cmdOK_Click();
  EXPECT_EQ(options.ThemeNumber, 2);
  EXPECT_EQ(options.FontSize, 9);
  EXPECT_EQ(Stored("ThemeNumber"), "2");
  EXPECT_EQ(options.TimerInterval, 2000);
  const std::vector<std::string> tail(menu.calls.end() - 5, menu.calls.end());
  EXPECT_EQ(tail, (std::vector<std::string>{"TimerInterval=2000", "RestartFollowing",
                                            "RestartFollowing done", "EnableCheckBoxes",
                                            "EnableAllButtons"}));
  EXPECT_EQ(view.closes, 1);
  EXPECT_TRUE(dialog.Unloaded());
}

TEST_F(SettingsDialogTest, WhenSeveralThemesReportCheckedTheHighestWins) {
  dialog.Form_Load();
  view.theme[4] = view.theme[7] = true;
  dialog.cmdOK_Click();
  EXPECT_EQ(options.ThemeNumber, 7);
}

TEST_F(SettingsDialogTest, EscapeInAnyControlClosesAndSaves) {
  dialog.Form_Load();
  Click(C::kQuickScroll, &SettingsDialog::chkQuickScroll_Click);
  EXPECT_TRUE(dialog.Control_KeyDown(kKeyEscape));
  EXPECT_EQ(Stored("QuickScroll"), "True");
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.Count("RestartFollowing"), 0);
  EXPECT_EQ(menu.Count("EnableAllButtons"), 1);
}

TEST_F(SettingsDialogTest, EnterInAnyControlApplies) {
  dialog.Form_Load();
  view.SetThemeChecked(9);
  EXPECT_TRUE(dialog.Control_KeyDown(kKeyReturn));
  EXPECT_EQ(options.ThemeNumber, 9);
  EXPECT_EQ(menu.Count("RestartFollowing"), 1);
  EXPECT_EQ(view.closes, 1);
}

TEST_F(SettingsDialogTest, OtherKeysAreLeftToTheControl) {
  dialog.Form_Load();
  EXPECT_FALSE(dialog.Control_KeyDown('A'));
  EXPECT_FALSE(dialog.Control_KeyDown(kKeyLineFeed));
  EXPECT_EQ(view.closes, 0);
  EXPECT_EQ(Stored("ThemeNumber"), "");
}

TEST_F(SettingsDialogTest, ClearingAnEmptyHistoryStillSaysHistoryCleared) {
  dialog.Form_Load();
  dialog.Command1_Click();
  EXPECT_EQ(services.messages, std::vector<std::string>{"Information|History Cleared"});
  EXPECT_EQ(menu.Count("ClearHistoryList"), 1);
  EXPECT_EQ(Stored("HistoryCount", "Common"), "0");
}

TEST_F(SettingsDialogTest, ClearingTheHistoryEmptiesEveryEntryAndTheList) {
  options.HistoryList[0] = "C:\\a.log";
  options.HistoryList[1] = "C:\\b.log";
  options.HistoryTotal = 2;
  dialog.Form_Load();
  dialog.Command1_Click();
  EXPECT_EQ(options.HistoryTotal, 0);
  EXPECT_EQ(options.HistoryList[0], "");
  EXPECT_EQ(options.HistoryList[1], "");
  EXPECT_EQ(Stored("HistoryCount", "Common"), "0");
  EXPECT_EQ(view.closes, 0) << "the dialog stays open";
}

// Its writes let events run: it does not nest inside another operation,
// nor run once the program closes.
TEST_F(SettingsDialogTest, ClearingTheHistoryInsideAnOperationOrWhileClosingIsDropped) {
  options.HistoryList[0] = "C:\\a.log";
  options.HistoryTotal = 1;
  dialog.Form_Load();
  session.gate.Run(WindowGate::Work::kRestart, [&] { dialog.Command1_Click(); });
  session.gate.RequestUnload([] {});
  dialog.Command1_Click();
  EXPECT_EQ(options.HistoryTotal, 1);
  EXPECT_EQ(options.HistoryList[0], "C:\\a.log");
  EXPECT_EQ(menu.Count("ClearHistoryList"), 0);
  EXPECT_EQ(services.messages, std::vector<std::string>{});
}

TEST_F(SettingsDialogTest, ABrowsedSoundThatExistsIsTakenAMissingOneIsIgnored) {
  const std::string wav = dir.File("ding.wav");
  testing::WriteBytes(wav, "RIFF");
  options.UpdateSound = wav;
  dialog.Form_Load();
  services.chosen = dir.File("missing.wav");
  dialog.cmdBrowseWav_Click();
  EXPECT_EQ(services.dialogs.back(), "Select Update Sound|WAV files|*.wav||" + wav);
  EXPECT_EQ(options.UpdateSound, wav);
  services.chosen = "";  // cancelled
  dialog.cmdBrowseWav_Click();
  EXPECT_EQ(options.UpdateSound, wav);
  const std::string other = dir.File("other.wav");
  testing::WriteBytes(other, "RIFF");
  services.chosen = other;
  dialog.cmdBrowseWav_Click();
  EXPECT_EQ(options.UpdateSound, other);
  EXPECT_EQ(view.sound_label, other);
}

TEST_F(SettingsDialogTest, BrowsingFromABareSoundNameStartsInTheProgramsFolder) {
  dialog.Form_Load();
  dialog.cmdBrowseWav_Click();
  const std::string program_folder =
      env.ProgramPath().substr(0, env.ProgramPath().find_last_of("/\\"));
  EXPECT_EQ(
      services.dialogs.back().rfind("Select Update Sound|WAV files|*.wav||" + program_folder, 0),
      0u)
      << services.dialogs.back();
  EXPECT_NE(services.dialogs.back().find("Updated.wav"), std::string::npos);
}

TEST_F(SettingsDialogTest, RevertGivesTheDefaultSound) {
  options.UpdateSound = "C:\\x.wav";
  dialog.Form_Load();
  dialog.cmdRevertWav_Click();
  EXPECT_EQ(options.UpdateSound, "Updated.wav");
  EXPECT_EQ(view.sound_label, "Updated.wav");
}

TEST_F(SettingsDialogTest, TheCloseBoxClosesWithoutSavingAndGivesTheButtonsBack) {
  dialog.Form_Load();
  Click(C::kQuickScroll, &SettingsDialog::chkQuickScroll_Click);
  EXPECT_TRUE(dialog.Form_QueryUnload());
  EXPECT_EQ(Stored("QuickScroll"), "");
  EXPECT_EQ(menu.Count("EnableCheckBoxes"), 1);
  EXPECT_EQ(menu.Count("EnableAllButtons"), 1);
}

TEST_F(SettingsDialogTest, ButtonsStayOffWhenTheProgramIsClosing) {
  dialog.Form_Load();
  session.gate.RequestUnload([] {});
  dialog.cmdCancel_Click();
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.Count("EnableAllButtons"), 0);
}

TEST_F(SettingsDialogTest, ButtonsAreLeftToAnOpenThatRuns) {
  dialog.Form_Load();
  session.gate.Run(WindowGate::Work::kOpen, [&] { dialog.cmdCancel_Click(); });
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.Count("EnableAllButtons"), 0);
}

// The reload (and each configuration write) lets events run: the user's
// Close, Escape, Enter, Apply and close box arrive inside Apply.
TEST_F(SettingsDialogTest, EverythingArrivingDuringApplyIsDroppedAndTheDialogClosesOnce) {
  dialog.Form_Load();
  bool close_box_kept_open = false;
  menu.during_restart = [&] {
    env.user = {
        [&] { dialog.cmdCancel_Click(); }, [&] { EXPECT_TRUE(dialog.Control_KeyDown(kKeyEscape)); },
        [&] { EXPECT_TRUE(dialog.Control_KeyDown(kKeyReturn)); }, [&] { dialog.cmdOK_Click(); },
        [&] { close_box_kept_open = !dialog.Form_QueryUnload(); }};
    while (!env.user.empty()) env.LetEventsRun();
    EXPECT_EQ(view.closes, 0);
    EXPECT_EQ(menu.Count("EnableAllButtons"), 0) << "the buttons come back only at the end";
  };
  dialog.cmdOK_Click();
  EXPECT_TRUE(close_box_kept_open);
  EXPECT_EQ(menu.Count("RestartFollowing"), 1);
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.Count("EnableAllButtons"), 1);
  EXPECT_EQ(menu.calls.back(), "EnableAllButtons");
  EXPECT_FALSE(session.gate.Busy());
}

TEST_F(SettingsDialogTest, ClicksOnAnUnloadedDialogDoNothing) {
  dialog.Form_Load();
  dialog.cmdCancel_Click();
  dialog.cmdCancel_Click();
  dialog.cmdOK_Click();
  EXPECT_TRUE(dialog.Control_KeyDown(kKeyEscape));
  EXPECT_TRUE(dialog.Form_QueryUnload());
  EXPECT_EQ(view.closes, 1);
  EXPECT_EQ(menu.Count("EnableAllButtons"), 1);
  EXPECT_EQ(menu.Count("RestartFollowing"), 0);
}

}  // namespace
}  // namespace ferrow
