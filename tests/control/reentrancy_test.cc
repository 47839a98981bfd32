// User actions that arrive while the program waits: real window events run
// inside the initial load, the configuration writes, Apply's reload and the
// start delay.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QWindow>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <chrono>

#include "config/history.h"
#include "config/ini_file.h"
#include "control/live_fixture.h"
#include "qt/frmAbout.h"
#include "qt/frmInputBox.h"
#include "qt/frmSettings.h"
#include "qt/frmText.h"

namespace ferrow {
namespace {

using testing::LiveForm1Test;

TEST_F(LiveForm1Test, ClosingTheTextWindowDuringTheInitialLoadStopsTheLoadSafely) {
  const std::string log = MakeLongLog("big.log");
  options.BringFromStartOfFile = true;
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->SetValue(1);
  QPointer<frmText> loading;
  DuringLoad(3, [&] {
    loading = form->TextWindow();
    ASSERT_TRUE(loading);
    loading->close();
  });
  form->Logic().OK_Click();
  ASSERT_TRUE(loading) << "deleted while the load still ran";
  EXPECT_EQ(form->TextWindow(), nullptr);
  EXPECT_TRUE(form->Logic().FileOpened);
  EXPECT_TRUE(form->cmdOK->isEnabled());
  Settle();
  EXPECT_FALSE(loading) << "a closed window goes once no handler runs";
}

TEST_F(LiveForm1Test, SettingsClosedOrAppliedAgainDuringApplyIsSafeAndClosesOnce) {
  const std::string log = MakeLongLog("big.log");
  FollowFromStart(log);
  form->Logic().cmdOptions_Click();
  QPointer<frmSettings> settings = Find<frmSettings>();
  ASSERT_TRUE(settings);
  bool buttons_came_back_early = false;
  env.At(2, [&] { settings->cmdCancel->click(); });
  env.At(3, [&] { Key(settings->chkQuickScroll, Qt::Key_Escape); });
  env.At(4, [&] { Key(settings->chkQuickScroll, Qt::Key_Return); });
  env.At(5, [&] {
    settings->cmdOK->click();
    settings->close();  // the close box
    buttons_came_back_early = form->cmdOK->isEnabled();
  });
  const int before = env.passes;
  settings->cmdOK_Click();
  EXPECT_GT(env.passes, before + 5) << "the reload let events run";
  EXPECT_FALSE(buttons_came_back_early);
  EXPECT_FALSE(settings->isVisible());
  EXPECT_TRUE(form->cmdOK->isEnabled());
  EXPECT_TRUE(form->Timer1->isActive());
  Settle();
  EXPECT_FALSE(settings);
}

TEST_F(LiveForm1Test, ClosingTheControlWindowDuringTheStartDelayEndsItWithoutAFile) {
  options.WaitOnStart = true;
  options.WaitSeconds = 30;
  env.At(3, [&] { form->close(); });
  const auto start = std::chrono::steady_clock::now();
  form->Logic().Form_Load();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  EXPECT_TRUE(form->Logic().Unloaded());
  EXPECT_FALSE(form->isVisible());
}

TEST_F(LiveForm1Test, ClosingTheControlWindowDuringTheStartDelayNeverOpensTheFile) {
  options.FileName = MakeLog("web.log", "one\r\ntwo\r\n");
  options.WaitOnStart = true;
  options.WaitSeconds = 30;
  env.At(3, [&] { form->close(); });
  form->Logic().Form_Load();
  EXPECT_TRUE(form->Logic().Unloaded());
  EXPECT_FALSE(form->Logic().FileOpened);
  EXPECT_FALSE(form->Timer1->isActive());
  EXPECT_EQ(form->TextWindow(), nullptr);
  EXPECT_FALSE(form->isVisible());
  Settle();
  EXPECT_EQ(Find<frmText>(), nullptr);
}

TEST_F(LiveForm1Test, AnOpenDuringAnOpenIsDroppedAndTheFileLoadsOnce) {
  const std::string log = MakeLongLog("big.log", 3000);
  const std::string other = MakeLog("other.log", "other\r\n");
  options.BringFromStartOfFile = true;
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->SetValue(1);
  QPointer<frmText> text;
  int step = 0;
  DuringLoad(2, [&] {
    text = form->TextWindow();
    Type(other);
    Key(form->chkFileStart, Qt::Key_Return);  // ENTER on a check box opens the named file
    form->Logic().follower().FerrowRestart();
    form->Logic().OK_Click();
    step = 1;
  });
  form->Logic().OK_Click();
  ASSERT_EQ(step, 1);
  ASSERT_TRUE(text);
  EXPECT_EQ(form->TextWindow(), text.data()) << "the window the open loaded is the one shown";
  EXPECT_EQ(options.FileName, log);
  const std::string shown = text->Rtf->Text();
  EXPECT_EQ(shown.find("line 0 of the log"), shown.rfind("line 0 of the log"));
  EXPECT_TRUE(form->Timer1->isActive());
}

TEST_F(LiveForm1Test, ClosingTheControlWindowDuringAnOpenUnloadsAfterItAndSavesTheFile) {
  const std::string log = MakeLongLog("big.log", 3000);
  options.BringFromStartOfFile = true;
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->SetValue(1);
  DuringLoad(3, [&] { form->close(); });
  form->Logic().OK_Click();
  EXPECT_TRUE(form->Logic().Unloaded());
  EXPECT_FALSE(form->Timer1->isActive());
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(form->TextWindow(), nullptr);
  form->Logic().follower().FerrowRestart();  // nothing starts again once closing
  form->Logic().ShowNormalAndActivate();
  EXPECT_FALSE(form->Timer1->isActive());
  EXPECT_FALSE(form->isVisible());
  Settle();
  EXPECT_EQ(Find<frmText>(), nullptr);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "big.log", "BringFromStartOfFile"), "True");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), log);
}

TEST_F(LiveForm1Test, ClosingTheControlWindowDuringAFilterRestartStopsFollowing) {
  const std::string log = MakeLongLog("big.log", 3000);
  FollowFromStart(log);
  DuringLoad(3, [&] { form->close(); });
  form->Logic().follower().FerrowRestart();
  EXPECT_TRUE(form->Logic().Unloaded());
  EXPECT_FALSE(form->Timer1->isActive());
}

TEST_F(LiveForm1Test, ClosingTheControlWindowDuringApplysReloadUnloadsOnceApplyIsOver) {
  const std::string log = MakeLongLog("big.log", 3000);
  FollowFromStart(log);
  form->Logic().cmdOptions_Click();
  QPointer<frmSettings> settings = Find<frmSettings>();
  ASSERT_TRUE(settings);
  DuringLoad(3, [&] { QCoreApplication::postEvent(form->windowHandle(), new QCloseEvent); });
  settings->cmdOK_Click();
  Settle();
  EXPECT_TRUE(form->Logic().Unloaded());
  EXPECT_FALSE(form->Timer1->isActive());
  EXPECT_FALSE(form->isVisible());
}

// SHIFT+DEL holds the write lock while its writes let events run.
TEST_F(LiveForm1Test, ClosingTheControlWindowDuringShiftDelUnloadsAfterItAndSavesTheFile) {
  const std::string log = MakeLog("web.log", "one\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->SetValue(1);
  form->Logic().OK_Click();
  ASSERT_TRUE(form->Logic().FileOpened);
  ASSERT_EQ(form->cmbFileName->count(), 1);
  options.BrowseStartDir = dir.path();  // changed since the open saved the common section
  bool unloaded_inside = true;
  env.At(1, [&] {
    form->close();  // the close box, while the removal holds the lock
    unloaded_inside = form->Logic().Unloaded();
  });
  Key(form->cmbFileName->lineEdit(), Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_FALSE(unloaded_inside);
  EXPECT_TRUE(form->Logic().Unloaded());
  EXPECT_EQ(form->cmbFileName->count(), 0) << "the removal the user saw was finished";
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "BringFromStartOfFile"), "True");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "BrowseStartDir"), dir.path());
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "WriteLock"), "False");
}

TEST_F(LiveForm1Test, EnterDuringShiftDelOpensNothingAndAsksNothing) {
  const std::string a = MakeLog("a.log", "a\r\n");
  const std::string b = MakeLog("b.log", "b\r\n");
  testing::WriteBytes(options.IniFileName,
                      "[Common]\r\nHistoryCount=2\r\nHistory1=" + a + "\r\nHistory2=" + b + "\r\n");
  LoadHistoryAtStartup(session);
  form->Logic().Form_Load();
  Type(b);
  form->Logic().OK_Click();
  Type(a);
  form->Logic().OK_Click();
  ASSERT_EQ(form->cmbFileName->count(), 2);
  env.At(1, [&] {
    Type(b);
    Key(form->cmbFileName->lineEdit(), Qt::Key_Return);
  });
  Type(a);
  Key(form->cmbFileName->lineEdit(), Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(services.questions, std::vector<std::string>{});
  EXPECT_EQ(options.FileName, a);
  EXPECT_EQ(options.FileSection, "a.log");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "WriteLock"), "False");
  EXPECT_TRUE(form->Timer1->isActive());
}

TEST_F(LiveForm1Test, ClosingDuringTheFiltersRestartTakesTheButtonsAwayAndOpensNoAboutWindow) {
  const std::string log = MakeLongLog("big.log", 3000);
  options.BringFromStartOfFile = true;
  options.HelperLibraryVersion = 103;  // the Link button is on
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->SetValue(1);
  form->Logic().OK_Click();
  ASSERT_TRUE(form->cmdLink->isEnabled());
  env.At(3, [&] {
    frmInputBox* box = LoadedInputBox();
    ASSERT_TRUE(box);
    box->txtInput->setText("FATAL");
    box->cmdOK_Click();
  });
  std::vector<std::string> enabled;
  bool about_opened = false;
  DuringLoad(3, [&] {
    form->close();
    const std::pair<const char*, QToolButton*> buttons[] = {
        {"Browse", form->cmdBrowse}, {"Filter", form->cmdFilter}, {"Options", form->cmdOptions},
        {"About", form->cmdAbout},   {"Link", form->cmdLink}};
    for (const auto& [name, button] : buttons)
      if (button->isEnabled()) enabled.push_back(name);
    form->cmdAbout->click();
    form->Logic().cmdAbout_Click();  // a click already queued
    about_opened = Find<frmAbout>() != nullptr;
  });
  form->cmdFilter->click();
  EXPECT_EQ(enabled, std::vector<std::string>{});
  EXPECT_FALSE(about_opened);
  EXPECT_TRUE(form->Logic().Unloaded());
  EXPECT_EQ(options.FilterString, "FATAL");
  Settle();
  EXPECT_EQ(Find<frmAbout>(), nullptr);
}

TEST_F(LiveForm1Test, TheFilterButtonIsOffWhileTheInputBoxWaitsAndASecondClickWaitsForNothing) {
  const std::string log = MakeLog("web.log", "one\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->Logic().OK_Click();
  bool enabled_while_waiting = true;
  int nested_passes = -1;
  env.At(3, [&] {
    enabled_while_waiting = form->cmdFilter->isEnabled();
    const int before = env.passes;
    form->Logic().cmdFilter_Click();  // a second click that reached the logic
    nested_passes = env.passes - before;
  });
  env.At(8, [&] {
    frmInputBox* box = LoadedInputBox();
    ASSERT_TRUE(box);
    box->txtInput->setText("FATAL");
    box->cmdOK_Click();
  });
  form->cmdFilter->click();
  EXPECT_FALSE(enabled_while_waiting);
  EXPECT_EQ(nested_passes, 0);
  EXPECT_EQ(options.FilterString, "FATAL");
  EXPECT_TRUE(form->cmdFilter->isEnabled());
  EXPECT_TRUE(form->Timer1->isActive());
}

// Filter is back as the new filter's reload begins; a click on it then is
// kept, and the box asks again once the reload is over, with the filter just
// taken.
TEST_F(LiveForm1Test, AFilterClickDuringTheNewFiltersReloadAsksAgainOnceItIsOver) {
  const std::string log = MakeLongLog("big.log", 3000);
  FollowFromStart(log);
  int asked = 0;
  bool enabled_in_reload = false, busy_when_asked_again = true;
  std::string shown_again;
  // Each box that shows is answered from an event inside its wait.
  env.every_pass = [&] {
    frmInputBox* box = LoadedInputBox();
    if (!box || !box->isVisible() || box->property("answering").toBool()) return;
    box->setProperty("answering", true);
    if (++asked == 2) {
      busy_when_asked_again = session.gate.Busy();
      shown_again = box->txtInput->text().toStdString();
    }
    QTimer::singleShot(0, qApp, [box, asked] {
      box->txtInput->setText(asked == 1 ? "FATAL" : "");
      box->cmdOK_Click();
    });
  };
  bool clicked = false;
  QTimer reload_watch;  // the second click, inside the reload
  QObject::connect(&reload_watch, &QTimer::timeout, [&] {
    if (clicked || session.gate.Running() != WindowGate::Work::kRestart) return;
    clicked = true;
    enabled_in_reload = form->cmdFilter->isEnabled();
    form->cmdFilter->click();
  });
  reload_watch.start(0);
  form->cmdFilter->click();
  ASSERT_TRUE(clicked) << "no events ran during the reload";
  EXPECT_TRUE(enabled_in_reload);
  EXPECT_EQ(asked, 2) << "the click in the reload was lost";
  EXPECT_FALSE(busy_when_asked_again);
  EXPECT_EQ(shown_again, "FATAL");
  EXPECT_EQ(options.FilterString, "FATAL");
  EXPECT_TRUE(form->cmdFilter->isEnabled());
}

}  // namespace
}  // namespace ferrow
