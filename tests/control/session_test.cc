// A whole session through the real windows, as a person would have it.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

#include "config/ini_file.h"
#include "config/settings.h"
#include "control/form1_fixture.h"
#include "qt/frmText.h"

namespace ferrow {
namespace {

using testing::Form1Test;

// Lets events run until `done` or two seconds have passed.
bool WaitFor(const std::function<bool()>& done) {
  QElapsedTimer clock;
  clock.start();
  while (!done() && clock.elapsed() < 2000) QApplication::processEvents(QEventLoop::AllEvents, 20);
  return done();
}

TEST_F(Form1Test, WholeSessionFromTypingANameToItsSettingsComingBack) {
  const std::string log = MakeLog("web.log", "GET / 200\r\n");
  form->Logic().Form_Load();
  Type(log);
  Key(form->cmbFileName->lineEdit(), Qt::Key_Return);
  ASSERT_TRUE(form->Logic().FileOpened);
  options.FilterString = "ERROR";
  options.FontSize = 12;
  form->Logic().follower().FerrowRestart();  // as the filter button does after a change

  testing::WriteBytes(log, "GET / 200\r\nGET /x 404\r\nERROR in /y\r\n");
  frmText* text = form->TextWindow();
  ASSERT_TRUE(WaitFor([&] { return text->Rtf->Text() == "GET /x 404\nERROR in /y\n"; }))
      << text->Rtf->Text();
  EXPECT_EQ(text->windowTitle().toStdString(), "Ferrow - " + log + " (36 bytes) [2]");
  ASSERT_TRUE(WaitFor([&] { return options.LastFileSize == 36; }));

  form->cmdPause->click();
  EXPECT_EQ(Caption(), "Ferrow Menu (Paused) - web.log");
  form->cmdPause->click();
  EXPECT_EQ(Caption(), "Ferrow Menu - web.log");
  form->close();

  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), log);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "LastFileSelected"), log);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "FilterString"), "ERROR");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "FontSize"), "12");

  // The next run: [Common] at start-up, then the file's own section on opening.
  Options next;
  next.IniFileName = options.IniFileName;
  next.LogFileName = options.LogFileName;
  next.FileDefaults = static_cast<const FileOptions&>(next);
  RoutedUi routed2{services};
  Session again{env, next, routed2};
  LoadCommonSettings(again, next.IniFileName);
  EXPECT_EQ(next.HistoryTotal, 1);
  Form1 second(again, services);
  routed2.SetTarget(&second.Logic());
  second.Logic().Form_Load();
  EXPECT_EQ(second.cmbFileName->count(), 1);
  second.cmbFileName->setEditText(QString::fromStdString(log));
  second.Logic().OK_Click();
  EXPECT_EQ(next.FilterString, "ERROR");
  EXPECT_EQ(next.FontSize, 12);
  second.close();
}

}  // namespace
}  // namespace ferrow
