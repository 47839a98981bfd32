// What the user sees in the file name box is what opens, what SHIFT+DEL
// removes and what the captions say.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <cctype>

#include "config/history.h"
#include "config/ini_file.h"
#include "control/form1_fixture.h"
#include "qt/frmText.h"

namespace ferrow {
namespace {

using testing::Form1Test;

class WhatOpens : public Form1Test {
 protected:
  // Types `text` key by key, as a user does.
  void TypeKeys(const std::string& text) {
    QLineEdit* edit = form->cmbFileName->lineEdit();
    form->activateWindow();
    edit->setFocus();  // completion, where there is any, works on the focused box
    for (char c : text) {
      const int key = std::isalpha(static_cast<unsigned char>(c)) ? std::toupper(c) : c;
      QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(c)));
      QApplication::sendEvent(edit, &press);
    }
  }
  // ENTER goes where a user's key goes: to a completion list when the box
  // offers one (its ENTER takes the completion, as on a real display), else
  // to the box.
  void PressEnter() {
    if (QCompleter* completer = form->cmbFileName->completer()) {
      emit completer->activated(completer->currentIndex());
      emit completer->activated(completer->currentCompletion());
      return;
    }
    Key(form->cmbFileName->lineEdit(), Qt::Key_Return);
  }
  void History(const std::vector<std::string>& names) {
    WriteHistory(names);
    LoadHistoryAtStartup(app);
  }
  std::string Box() { return form->cmbFileName->currentText().toStdString(); }
  std::vector<std::string> Listed() {
    std::vector<std::string> names;
    for (int i = 0; i < form->cmbFileName->count(); ++i)
      names.push_back(form->cmbFileName->itemText(i).toStdString());
    return names;
  }
};

TEST_F(WhatOpens, EnterInTheBoxOpensOnceWhereverTheKeyArrives) {
  form->Logic().Form_Load();
  Type(dir.File("missing.log"));
  Key(form->cmbFileName->lineEdit(), Qt::Key_Return);
  EXPECT_EQ(services.messages.size(), 1u);
  Key(form->cmbFileName, Qt::Key_Enter);
  EXPECT_EQ(services.messages.size(), 2u);
}

TEST_F(WhatOpens, TypingANameFromTheHistoryIsNotPickingItAndKeepsTheFilesCheckBoxes) {
  const std::string log = MakeLog("app.log", "one\r\n");
  History({log});
  WriteINIFile(env, options.IniFileName, "app.log", "MenuX", "100");
  WriteINIFile(env, options.IniFileName, "app.log", "PlaySoundOnUpdate", "True");
  form->Logic().Form_Load();
  Type(log);
  form->Logic().OK_Click();
  ASSERT_TRUE(options.PlaySoundOnUpdate);
  Type("");
  TypeKeys(log);
  EXPECT_EQ(Box(), log);
  PressEnter();
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_NE(form->chkPlaySound->Value(), 0);
  form->close();
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "app.log", "PlaySoundOnUpdate"), "True");
}

TEST_F(WhatOpens, TypedNameOpensAsTypedEvenWhenALongerOneIsInTheHistory) {
  const std::string log = MakeLog("app.log", "short\r\n");
  const std::string longer = MakeLog("app.log.1", "rotated\r\n");
  History({longer});
  form->Logic().Form_Load();
  Type("");
  TypeKeys(log);
  EXPECT_EQ(Box(), log);
  PressEnter();
  EXPECT_EQ(options.FileName, log);
  EXPECT_EQ(form->cmbFileName->completer(), nullptr) << "nothing completes what the user types";
}

TEST_F(WhatOpens, ShiftDelRemovesOnlyTheEntryTheBoxShows) {
  History({"/logs/a.log", "/logs/b.log", "/logs/c.log"});
  form->Logic().Form_Load();
  form->cmbFileName->setCurrentIndex(2);  // the last file opened, say
  Type("/logs/typed.log");
  Key(form->cmbFileName->lineEdit(), Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(Listed(), (std::vector<std::string>{"/logs/a.log", "/logs/b.log", "/logs/c.log"}));
  EXPECT_EQ(Box(), "/logs/typed.log");
  Type("/LOGS/A.LOG");  // the history compares names without regard to case
  Key(form->cmbFileName->lineEdit(), Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(Listed(), (std::vector<std::string>{"/logs/b.log", "/logs/c.log"}));
  EXPECT_EQ(Box(), "/LOGS/A.LOG");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), "/logs/b.log");
}

TEST_F(WhatOpens, ShiftDelInTheDroppedDownListRemovesTheHighlightedEntry) {
  History({"/logs/a.log", "/logs/b.log", "/logs/c.log"});
  form->Logic().Form_Load();
  Type("/logs/a.log");
  form->cmbFileName->showPopup();
  QAbstractItemView* list = form->cmbFileName->view();
  list->setCurrentIndex(list->model()->index(1, 0));
  Key(list, Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(Listed(), (std::vector<std::string>{"/logs/a.log", "/logs/c.log"}));
  form->cmbFileName->hidePopup();
}

TEST_F(WhatOpens, TextWindowCaptionShowsTheSizeAtOnceWithoutBringingFromStart) {
  const std::string log = MakeLog("web.log", "0123456789\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->SetValue(0);
  form->Logic().OK_Click();
  ASSERT_TRUE(form->TextWindow());
  EXPECT_EQ(form->TextWindow()->windowTitle().toStdString(), "Ferrow - " + log + " (12 bytes) [0]");
}

TEST_F(WhatOpens, FileSettingsComeBackWhenTheWindowPositionIsUnknown) {
  const std::string log = MakeLog("web.log", "line\r\n");
  form->Logic().Form_Load();
  form->move(0, 0);  // as a window system that keeps positions to itself reports it
  ASSERT_EQ(form->pos(), QPoint(0, 0));
  Type(log);
  form->Logic().OK_Click();
  options.FilterString = "ERROR";
  form->close();
  EXPECT_FALSE(ReadINIFile(env, options.IniFileName, "web.log", "MenuX").empty());

  Options next;
  next.IniFileName = options.IniFileName;
  next.FileDefaults = static_cast<const FileOptions&>(next);
  RoutedUi routed2{services};
  Session again{env, next, routed2};
  Form1 second(again, services);
  routed2.SetTarget(&second.Logic());
  second.Logic().Form_Load();
  second.cmbFileName->setEditText(QString::fromStdString(log));
  second.Logic().OK_Click();
  EXPECT_EQ(next.FilterString, "ERROR");
  second.close();
}

}  // namespace
}  // namespace ferrow
