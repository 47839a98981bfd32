#include <gtest/gtest.h>

#include <QPointer>
#include <QTimer>

#include "config/ini_file.h"
#include "control/form1_fixture.h"
#include "qt/frmInputBox.h"
#include "qt/frmText.h"
#include "support/paths.h"

namespace ferrow {
namespace {

using testing::Form1Test;

std::string Usage() { return "Ferrow|Ferrow v1.46"; }

TEST_F(Form1Test, LoadWithoutAFileWaitsForOne) {
  form->Logic().Form_Load();
  EXPECT_FALSE(form->cmdOK->isEnabled());
  EXPECT_FALSE(form->Timer1->isActive());
  EXPECT_EQ(Caption(), "Ferrow Menu (Paused) - No file");
  EXPECT_EQ(form->chkFileStart->Value(), 2);
  EXPECT_EQ(form->lblDragDropTip->text().left(5), "Tip: ");
  EXPECT_TRUE(form->isVisible());
}

TEST_F(Form1Test, F1OnAnyButtonOrCheckBoxShowsTheHelpMessage) {
  options.UsageText = "usage";
  form->Logic().Form_Load();
  for (QWidget* control : {static_cast<QWidget*>(form->cmdOK), static_cast<QWidget*>(form->cmdBrowse),
                           static_cast<QWidget*>(form->cmdClose), static_cast<QWidget*>(form->chkMinimise),
                           static_cast<QWidget*>(form->cmbFileName)})
    Key(control, Qt::Key_F1);
  ASSERT_EQ(services.messages.size(), 5u);
  for (const std::string& m : services.messages) EXPECT_EQ(m.rfind(Usage(), 0), 0u) << m;
}

TEST_F(Form1Test, EnterOnACheckBoxOpensTheNamedFile) {
  const std::string log = MakeLog("web.log", "line\r\n");
  form->Logic().Form_Load();
  Type(log);
  Key(form->chkFileStart, Qt::Key_Return);
  EXPECT_EQ(options.FileName, log);
  EXPECT_TRUE(form->Logic().FileOpened);
  EXPECT_TRUE(form->Timer1->isActive());
  EXPECT_EQ(Caption(), "Ferrow Menu - web.log");
}

TEST_F(Form1Test, CheckBoxClickedFromGrayToOnSetsItsFlagAndAGrayOneLeavesTheConfiguredValue) {
  const std::string log = MakeLog("web.log", "one\r\ntwo\r\n");
  WriteINIFile(env, options.IniFileName, "web.log", "MenuX", "100");
  WriteINIFile(env, options.IniFileName, "web.log", "PlaySoundOnUpdate", "True");
  form->Logic().Form_Load();
  Type(log);
  ASSERT_EQ(form->chkFileStart->Value(), 2);
  form->chkFileStart->click();
  EXPECT_EQ(form->chkFileStart->Value(), 1);
  EXPECT_TRUE(options.BringFromStartOfFile);
  form->Logic().OK_Click();
  EXPECT_TRUE(options.BringFromStartOfFile);
  EXPECT_TRUE(options.PlaySoundOnUpdate);  // grayed: as the file's section said
  EXPECT_EQ(form->chkPlaySound->Value(), 1);
  EXPECT_EQ(form->TextWindow()->Rtf->Text(), "one\ntwo\n");
}

TEST_F(Form1Test, ClosingAMinimisedControlWindowKeepsItsLastPosition) {
  options.MenuX = 1234;
  options.MenuY = 567;
  form->Logic().Form_Load();
  form->showMinimized();
  QApplication::processEvents();
  form->close();
  EXPECT_EQ(options.MenuX, 1234);
  EXPECT_EQ(options.MenuY, 567);
}

TEST_F(Form1Test, AnEmptyFilterLeavesTheCurrentOneInForce) {
  options.FilterString = "ERROR";
  form->Logic().Form_Load();
  env.on_sleep = [] {  // the input box's wait
    if (frmInputBox* box = LoadedInputBox()) {
      box->txtInput->clear();
      box->cmdOK_Click();
    }
  };
  form->Logic().cmdFilter_Click();
  EXPECT_EQ(options.FilterString, "ERROR");
  EXPECT_EQ(form->cmdFilter->toolTip().toStdString(), "Filtering on \"ERROR\"");
}

TEST_F(Form1Test, NewFilterIsSavedAndShownInTheToolTip) {
  const std::string log = MakeLog("web.log", "x\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->Logic().OK_Click();
  env.on_sleep = [] {  // the input box's wait
    if (frmInputBox* box = LoadedInputBox()) {
      box->txtInput->setText("FATAL WARN");
      box->cmdOK_Click();
    }
  };
  form->Logic().cmdFilter_Click();
  EXPECT_EQ(options.FilterString, "FATAL WARN");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "FilterString"), "FATAL WARN");
  EXPECT_EQ(form->cmdFilter->toolTip().toStdString(), "Filtering on \"FATAL WARN\"");
}

TEST_F(Form1Test, UnreachableUncPathGivesTheNetworkMessage) {
  form->Logic().Form_Load();
  Type("\\\\server\\share\\app.log");
  form->Logic().OK_Click();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0],
            "File Access Error|Can't open UNC path for file: \\\\server\\share\\app.log\r\n"
            "Please check your are connected to the network");
  EXPECT_FALSE(form->Timer1->isActive());
}

TEST_F(Form1Test, MissingFileGivesTheNetworkDriveMessage) {
  form->Logic().Form_Load();
  Type(dir.File("none.log"));
  form->Logic().OK_Click();
  EXPECT_EQ(services.messages.at(0), "File Access Error|Can't open: " + dir.File("none.log") +
                                         "\r\n\r\nIf this is a network drive then please check "
                                         "your are connected to the network");
}

TEST_F(Form1Test, OpeningAFolderClearsTheFileNameBox) {
  form->Logic().Form_Load();
  Type(dir.path());
  form->Logic().OK_Click();
  EXPECT_EQ(services.messages.at(0), "Error|You selected a directory");
  EXPECT_EQ(form->cmbFileName->currentText().toStdString(), "");
  EXPECT_EQ(options.FileName, "");
}

TEST_F(Form1Test, ReopeningTheSameFileDoesNotSaveButOpeningAnotherDoes) {
  const std::string a = MakeLog("a.log", "a\r\n"), b = MakeLog("b.log", "b\r\n");
  form->Logic().Form_Load();
  Type(a);
  form->Logic().OK_Click();
  options.FontSize = 14;
  Type(a);
  form->Logic().OK_Click();
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "a.log", "FontSize"), "");
  options.FontSize = 14;
  Type(b);
  form->Logic().OK_Click();
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "a.log", "FontSize"), "14");
}

TEST_F(Form1Test, FileWithoutASectionStartsFromTheDefaultsAndTheCheckBoxes) {
  const std::string log = MakeLog("new.log", "x\r\n");
  options.FontSize = 20;
  options.FileDefaults.FontSize = 10;
  form->Logic().Form_Load();
  Type(log);
  form->chkPlaySound->click();  // gray -> on
  form->Logic().OK_Click();
  EXPECT_EQ(options.FontSize, 10);
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_FALSE(options.BringFromStartOfFile);
}

TEST_F(Form1Test, BrowseFillsTheBoxAndRemembersTheFolder) {
  const std::string log = MakeLog("picked.log", "x\r\n");
  services.chosen = log;
  form->Logic().Form_Load();
  form->Logic().cmdBrowse_Click();
  EXPECT_EQ(services.dialogs.at(0),
            "Select Log File|Log Files|*.log|CSV Files|*.csv|Text Files|*.txt|All Files (*.*)|*.*||c:\\");
  EXPECT_EQ(form->cmbFileName->currentText().toStdString(), log);
  EXPECT_EQ(options.BrowseStartDir, dir.path());
  EXPECT_FALSE(form->Timer1->isActive());
  EXPECT_FALSE(form->Logic().FileOpened);
}

TEST_F(Form1Test, StartupFileOpensAtLoadAndTheWindowMinimisesWhenAsked) {
  const std::string log = MakeLog("start.log", "x\r\n");
  options.FileName = log;
  options.HideMenuOnStartup = true;
  options.FileDefaults.HideMenuOnStartup = true;
  form->Logic().Form_Load();
  EXPECT_TRUE(form->Logic().FileOpened);
  EXPECT_TRUE(form->isMinimized());
  EXPECT_TRUE(form->cmdOK->isEnabled());
}

TEST_F(Form1Test, FileDroppedOnTheTextWindowIsOpenedInANewOne) {
  const std::string first = MakeLog("first.log", "1\r\n"), second = MakeLog("second.log", "2\r\n");
  form->Logic().Form_Load();
  Type(first);
  form->Logic().OK_Click();
  QPointer<frmText> old_window = form->TextWindow();
  ASSERT_TRUE(old_window);
  old_window->Rtf_OLEDragDrop({QString::fromStdString(second)});
  EXPECT_EQ(options.FileName, second);
  EXPECT_NE(form->TextWindow(), old_window.data());
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(old_window);
  EXPECT_TRUE(form->TextWindow()->isVisible());
}

TEST_F(Form1Test, ClosingTheTextWindowStopsFollowingAndTheNextUpdateBringsANewOne) {
  const std::string log = MakeLog("web.log", "1\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->Logic().OK_Click();
  QPointer<frmText> first = form->TextWindow();
  first->close();
  QApplication::processEvents();  // deleted once no handler runs
  EXPECT_FALSE(first);
  EXPECT_FALSE(form->Timer1->isActive());
  form->cmdPause->click();  // resume
  testing::WriteBytes(log, "1\r\n2\r\n");
  form->Logic().follower().Timer1_Timer();
  ASSERT_TRUE(form->TextWindow());
  EXPECT_TRUE(form->TextWindow()->isVisible());
  EXPECT_EQ(form->TextWindow()->Rtf->Text(), "2\n");
}

TEST_F(Form1Test, StartDelayWaitsTheGivenSecondsWithEventsRunning) {
  options.WaitOnStart = true;
  options.WaitSeconds = 2;
  std::vector<std::string> seen;
  env.on_sleep = [&] { seen.push_back(Caption()); };
  form->Logic().Form_Load();
  EXPECT_EQ(env.sleeps, 20);
  EXPECT_EQ(env.slept_ms, 2000);
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen.front(), "Ferrow Waiting 2 seconds to start ...");
}

TEST_F(Form1Test, OpeningWithOverridesTakesTheGivenIntervalAndSound) {
  const std::string log = MakeLog("web.log", "x\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->Logic().OK_Click(false, 2000, true);
  EXPECT_EQ(options.TimerInterval, 2000);
  EXPECT_EQ(form->Timer1->interval(), 2000);
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_EQ(form->chkPlaySound->Value(), 1);
}

TEST_F(Form1Test, ClosingWithDebugOnLogsTheUnload) {
  const std::string log = MakeLog("web.log", "x\r\n");
  options.Debug = options.LoggingEnabled = true;
  form->Logic().Form_Load();
  Type(log);
  form->Logic().OK_Click();
  form->close();
  EXPECT_NE(testing::ReadBytes(options.LogFileName).find(",\"** Unloading Main Form [web.log] **\"\r\n"),
            std::string::npos);
}

TEST_F(Form1Test, ClosingSavesSettingsCommonAndHistory) {
  const std::string log = MakeLog("web.log", "x\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->Logic().OK_Click();
  form->close();
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), log);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "HistoryCount"), "1");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "LastFileSelected"), log);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "Font"), "Terminal");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "WriteLock"), "False");
  EXPECT_EQ(Caption(), "Ferrow Menu - Exiting ...");
  EXPECT_FALSE(form->TextWindow());
}

}  // namespace
}  // namespace ferrow
