// User actions that arrive while the program waits: real window events run
// inside the initial load, the configuration writes, Apply's reload and the
// start delay.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <chrono>

#include "config/ini_file.h"
#include "control/live_fixture.h"
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
  options.BringFromStartOfFile = true;
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->SetValue(1);
  form->Logic().OK_Click();
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
  options.BringFromStartOfFile = true;
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->SetValue(1);
  form->Logic().OK_Click();
  DuringLoad(3, [&] { form->close(); });
  form->Logic().follower().FerrowRestart();
  EXPECT_TRUE(form->Logic().Unloaded());
  EXPECT_FALSE(form->Timer1->isActive());
}

}  // namespace
}  // namespace ferrow
