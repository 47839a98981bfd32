// Browse, Filter and Link wait for the user. A click on one of them that
// lands while an open or a restart still runs is kept and acted on once that
// is over, never inside it, and never once the program closes.
#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "control/control_fixture.h"

namespace ferrow {
namespace {

class UserRequestTest : public testing::ControlFixture {
 protected:
  // A log long enough for its load to let events run a few times.
  std::string MakeLongLog(const std::string& name) {
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "line " + std::to_string(i) + "\r\n";
    return MakeLog(name, text);
  }
  // Opened with bring-from-start; `during_load` runs at the load's
  // `nth` event pass.
  void OpenWhile(const std::string& log, int nth, const std::function<void()>& during_load) {
    menu.Form_Load();
    view.SetText(Control::cmbFileName, log);
    view.SetValue(Control::chkFileStart, 1);
    int passes = 0;
    env.on_events = [&] {
      if (!windows.Last() || windows.Last()->box.enabled) return;  // only inside the load
      if (++passes == nth) during_load();
    };
    menu.OK_Click();
    env.on_events = nullptr;
  }
  // Opened with bring-from-start, so that a restart reloads it, letting
  // events run.
  void OpenWithItsEnd() {
    menu.Form_Load();
    view.SetText(Control::cmbFileName, MakeLongLog("web.log"));
    view.SetValue(Control::chkFileStart, 1);
    menu.OK_Click();
  }
  // What the open-file dialog saw of the program when it was up.
  struct Seen {
    bool busy = true, opened = false;
  };
  void WatchTheDialog(Seen& seen) {
    services.while_dialog = [&] {
      seen.busy = app.gate.Busy();
      seen.opened = menu.FileOpened;
    };
  }
};

TEST_F(UserRequestTest, ABrowseClickDuringAnOpenShowsTheDialogOnceTheOpenIsOver) {
  const std::string log = MakeLongLog("big.log");
  Seen seen;
  WatchTheDialog(seen);
  OpenWhile(log, 2, [&] {
    menu.cmdBrowse_Click();
    EXPECT_TRUE(services.dialogs.empty()) << "not inside the open";
  });
  ASSERT_EQ(services.dialogs.size(), 1u);
  EXPECT_EQ(services.dialogs[0].substr(0, services.dialogs[0].find('|')), "Select Log File");
  EXPECT_FALSE(seen.busy);
  EXPECT_TRUE(seen.opened) << "the open had ended";
}

TEST_F(UserRequestTest, ABrowseClickDuringAnOpenIsDroppedWhenTheProgramStartsClosing) {
  const std::string log = MakeLongLog("big.log");
  OpenWhile(log, 2, [&] {
    menu.cmdBrowse_Click();
    menu.Form_Unload();  // the close box, before the open is over
  });
  EXPECT_TRUE(menu.Unloaded());
  EXPECT_TRUE(services.dialogs.empty());
}

TEST_F(UserRequestTest, AClickOnTwoButtonsDuringAnOpenActsOnTheFirstOnly) {
  const std::string log = MakeLongLog("big.log");
  options.HelperLibraryVersion = 103;
  OpenWhile(log, 2, [&] {
    menu.cmdFilter_Click();
    menu.cmdBrowse_Click();
    menu.cmdFilter_Click();
  });
  EXPECT_EQ(windows.asked.size(), 1u);
  EXPECT_TRUE(services.dialogs.empty());
}

// The filter's restart reloads the file, letting events run: Filter is back
// by then, and a click on it asks again once the
// restart is over, showing the filter just taken.
TEST_F(UserRequestTest, AFilterClickDuringTheFiltersRestartAsksAgainOnceItIsOver) {
  OpenWithItsEnd();
  ASSERT_TRUE(menu.FileOpened);
  windows.answer = "FATAL";
  bool clicked = false, busy_when_asked_again = true;
  env.on_events = [&] {
    if (clicked || app.gate.Running() != WindowGate::Work::kRestart) return;
    clicked = true;
    EXPECT_TRUE(view.Enabled(Control::cmdFilter));
    menu.cmdFilter_Click();
    EXPECT_EQ(windows.asked.size(), 1u) << "not inside the restart";
  };
  windows.while_asking = [&] {
    if (windows.asked.size() == 2) busy_when_asked_again = app.gate.Busy();
  };
  menu.cmdFilter_Click();
  ASSERT_TRUE(clicked) << "no events ran during the restart";
  ASSERT_EQ(windows.asked.size(), 2u);
  EXPECT_EQ(windows.asked[1],
            "Text Highlighting Filter|Enter filter words to highlight - separated by spaces|FATAL");
  EXPECT_FALSE(busy_when_asked_again);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "FilterString"), "FATAL");
}

// Browse stays on while the filter's input box waits; its dialog comes once
// the filter is answered and taken, not on top of the waiting box.
TEST_F(UserRequestTest, ABrowseClickWhileTheFilterIsAskedShowsTheDialogAfterTheFilter) {
  OpenWithItsEnd();
  windows.answer = "FATAL";
  windows.while_asking = [&] {
    EXPECT_TRUE(view.Enabled(Control::cmdBrowse));
    menu.cmdBrowse_Click();
    EXPECT_TRUE(services.dialogs.empty()) << "not on top of the input box";
  };
  std::string filter_when_browsing;
  services.while_dialog = [&] { filter_when_browsing = options.FilterString; };
  menu.cmdFilter_Click();
  EXPECT_EQ(services.dialogs.size(), 1u);
  EXPECT_EQ(filter_when_browsing, "FATAL");
}

// A click kept during a restart that the user then follows with Options:
// the settings dialog took the buttons away, and the kept click goes with
// them, as a click would land on a button that is off.
TEST_F(UserRequestTest, AKeptClickIsDroppedWhenTheSettingsDialogTookTheButtons) {
  OpenWithItsEnd();
  windows.answer = "FATAL";
  bool clicked = false;
  env.on_events = [&] {
    if (clicked || app.gate.Running() != WindowGate::Work::kRestart) return;
    clicked = true;
    menu.cmdBrowse_Click();
    menu.cmdOptions_Click();
  };
  menu.cmdFilter_Click();
  ASSERT_TRUE(clicked);
  EXPECT_EQ(windows.settings_opened, 1);
  EXPECT_TRUE(services.dialogs.empty());
}

}  // namespace
}  // namespace ferrow
