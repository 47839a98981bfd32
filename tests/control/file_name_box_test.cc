#include <gtest/gtest.h>

#include <QDropEvent>
#include <QMimeData>

#include "about/helper_library.h"
#include "config/history.h"
#include "config/ini_file.h"
#include "control/form1_fixture.h"

namespace ferrow {
namespace {

using testing::Form1Test;

class FileNameBox : public Form1Test {
 protected:
  // A shortcut made by the companion library to `target`.
  std::string Shortcut(const std::string& target) {
    library = std::make_unique<HelperLibrary>(HelperLibrary::BindFile(env, FERROW_HELPER_LIBRARY));
    app.helper = library.get();
    options.HelperLibraryInUse = true;
    const std::string link = dir.File("target.lnk");
    EXPECT_NE(library->CreateShortcut(target, link, "", "", "", 1, -1).value_or(0), 0);
    return link;
  }
  std::string Box() { return form->cmbFileName->currentText().toStdString(); }
  std::unique_ptr<HelperLibrary> library;
};

TEST_F(FileNameBox, ShortcutDroppedOnTheBoxFillsInItsTargetButOnTheWindowItsOwnPath) {
  const std::string target = MakeLog("target.log", "x");
  const std::string link = Shortcut(target);
  form->Logic().Form_Load();
  form->Logic().cmbFileName_OLEDragDrop({link});
  EXPECT_EQ(Box(), target);
  form->Logic().Form_OLEDragDrop({link});
  EXPECT_EQ(Box(), link);
}

TEST_F(FileNameBox, DroppedShortcutWhoseTargetIsGoneLeavesItsOwnPath) {
  const std::string target = MakeLog("gone.log", "x");
  const std::string link = Shortcut(target);
  env.RemoveFile(target);
  form->Logic().Form_Load();
  form->Logic().cmbFileName_OLEDragDrop({link});
  EXPECT_EQ(Box(), link);
}

TEST_F(FileNameBox, DropEventsOnTheBoxAndTheWindowArriveAsFileNames) {
  form->Logic().Form_Load();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile("/logs/one.log"), QUrl::fromLocalFile("/logs/two.log")});
  QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(form->cmbFileName->lineEdit(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(form->cmbFileName->lineEdit(), &drop);
  EXPECT_EQ(Box(), "/logs/one.log");
  EXPECT_FALSE(form->Logic().FileOpened);  // not opened until the user confirms
}

TEST_F(FileNameBox, ShiftDelRemovesTheEntryFromTheListAndTheStoredHistory) {
  WriteIni("[Common]\r\nHistoryCount=2\r\nHistory1=/logs/a.log\r\nHistory2=/logs/b.log\r\n");
  LoadHistoryAtStartup(app);
  form->Logic().Form_Load();
  ASSERT_EQ(form->cmbFileName->count(), 2);
  form->cmbFileName->setCurrentIndex(0);
  Key(form->cmbFileName, Qt::Key_Delete);  // DEL alone: nothing special
  EXPECT_EQ(form->cmbFileName->count(), 2);
  Key(form->cmbFileName, Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(form->cmbFileName->count(), 1);
  EXPECT_EQ(form->cmbFileName->itemText(0).toStdString(), "/logs/b.log");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), "/logs/b.log");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "HistoryCount"), "1");
}

// On some keyboards "." is typed with SHIFT; Qt's code for "." has DEL's value.
TEST_F(FileNameBox, AShiftedFullStopIsTypedAndRemovesNothing) {
  WriteIni("[Common]\r\nHistoryCount=2\r\nHistory1=/logs/a.log\r\nHistory2=/logs/b.log\r\n");
  LoadHistoryAtStartup(app);
  form->Logic().Form_Load();
  form->cmbFileName->setCurrentIndex(0);
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Period, Qt::ShiftModifier, ".");
  QApplication::sendEvent(form->cmbFileName->lineEdit(), &press);
  EXPECT_EQ(form->cmbFileName->count(), 2);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "HistoryCount"), "2");
  EXPECT_EQ(Box(), "/logs/a.log.");
}

TEST_F(FileNameBox, CtrlEnterInTheBoxIsALineFeedAndOpensNothing) {
  const std::string log = MakeLog("enter.log", "x\r\n");
  form->Logic().Form_Load();
  Type(log);
  Key(form->cmbFileName->lineEdit(), Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(form->Logic().FileOpened);
  Key(form->chkFileStart, Qt::Key_Return, Qt::ControlModifier);  // on a check box it opens
  EXPECT_TRUE(form->Logic().FileOpened);
}

TEST_F(FileNameBox, PickingAHistoryEntryGraysTheCheckBoxesAndOpeningTakesTheFilesSettings) {
  const std::string log = MakeLog("picked.log", "x\r\n");
  WriteIni("[Common]\r\nHistoryCount=1\r\nHistory1=" + log + "\r\n[picked.log]\r\nMenuX=10\r\n"
           "BringFromStartOfFile=True\r\n");
  LoadHistoryAtStartup(app);
  form->Logic().Form_Load();
  form->Logic().UpdateCheckboxes();
  form->cmbFileName->setCurrentIndex(0);
  form->Logic().cmbFileName_Click();
  EXPECT_EQ(form->chkFileStart->Value(), 2);
  EXPECT_EQ(form->chkMinimise->Value(), 2);
  EXPECT_EQ(form->chkPlaySound->Value(), 2);
  EXPECT_TRUE(form->cmdOK->isEnabled());
  form->Logic().OK_Click();
  EXPECT_TRUE(options.BringFromStartOfFile);
  EXPECT_EQ(form->chkFileStart->Value(), 1);
}

TEST_F(FileNameBox, TypingEnablesOpenAndTheLinkButtonWhenTheLibraryIsPresent) {
  form->Logic().Form_Load();
  form->cmdOK->setEnabled(false);
  options.HelperLibraryVersion = 0;
  Type("/x/y.log");
  EXPECT_TRUE(form->cmdOK->isEnabled());
  EXPECT_FALSE(form->cmdLink->isEnabled());
  options.HelperLibraryVersion = 102;  // too old for the rest, enough for the shortcut
  options.HelperLibraryInUse = false;
  Type("/x/z.log");
  EXPECT_TRUE(form->cmdLink->isEnabled());
  Type("");
  EXPECT_TRUE(form->cmdOK->isEnabled());  // an emptied box leaves Open as it was
  EXPECT_FALSE(form->cmdLink->isEnabled());
}

TEST_F(FileNameBox, EnterInTheBoxOpensTheFile) {
  const std::string log = MakeLog("enter.log", "x\r\n");
  form->Logic().Form_Load();
  Type(log);
  Key(form->cmbFileName->lineEdit(), Qt::Key_Return);
  EXPECT_TRUE(form->Logic().FileOpened);
}

TEST_F(FileNameBox, EnterInAnEmptiedBoxOpensTheFollowedFileAgainAndOpenStaysOn) {
  const std::string log = MakeLog("enter.log", "x\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->Logic().OK_Click();
  form->cmbFileName->lineEdit()->clear();
  Key(form->cmbFileName->lineEdit(), Qt::Key_Return);
  EXPECT_EQ(options.FileName, log);
  EXPECT_TRUE(form->Timer1->isActive());
  EXPECT_TRUE(form->cmdOK->isEnabled());
}

TEST_F(FileNameBox, PlainNameFieldSetsTheFileNameAndTheOpenButton) {
  form->Logic().Form_Load();
  form->txtFileName->setText("/logs/plain.log");
  EXPECT_EQ(options.FileName, "/logs/plain.log");
  EXPECT_TRUE(form->cmdOK->isEnabled());
  form->txtFileName->setText("");
  EXPECT_FALSE(form->cmdOK->isEnabled());
}

TEST_F(FileNameBox, ClickingTheTipShowsAnotherOne) {
  form->Logic().Form_Load();
  int16_t before = form->Logic().LastTip;
  QMouseEvent click(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(form->lblDragDropTip, &click);
  EXPECT_NE(form->Logic().LastTip, before);
}

}  // namespace
}  // namespace ferrow
