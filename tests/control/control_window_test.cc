// The control window's behaviour against a recording view: keys, check
// boxes, opening, the file name box, drops, the unload, and user actions
// that arrive while its waits let events run.
#include <gtest/gtest.h>

#include <algorithm>

#include "about/helper_library.h"
#include "config/history.h"
#include "config/ini_file.h"
#include "control/control_fixture.h"
#include "control/window_services.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

class ControlWindowTest : public testing::ControlFixture {
 protected:
  void Type(const std::string& name) { view.SetText(Control::cmbFileName, name); }
  std::string Box() { return view.Text(Control::cmbFileName); }
  void History(const std::vector<std::string>& names) {
    WriteHistory(names);
    LoadHistoryAtStartup(app);
  }
  std::string Shown() { return windows.Last() ? windows.Last()->box.text : ""; }
};

const std::string kUsageTitle = "Ferrow|Ferrow v1.46";

TEST_F(ControlWindowTest, F1OnAnyButtonOrCheckBoxShowsTheHelpMessage) {
  menu.Form_Load();
  for (Control c : {Control::cmdOK, Control::cmdBrowse, Control::cmdClose, Control::chkMinimise,
                    Control::cmbFileName, Control::cmdPause})
    EXPECT_TRUE(menu.KeyDown(c, keys_down::kF1, 0));
  ASSERT_EQ(services.messages.size(), 6u);
  for (const std::string& m : services.messages) EXPECT_EQ(m.rfind(kUsageTitle, 0), 0u) << m;
}

TEST_F(ControlWindowTest, EnterOnACheckBoxOpensTheNamedFile) {
  const std::string log = MakeLog("web.log", "line\r\n");
  menu.Form_Load();
  Type(log);
  EXPECT_TRUE(menu.KeyDown(Control::chkFileStart, keys_down::kEnter, 0));
  EXPECT_TRUE(menu.FileOpened);
  EXPECT_TRUE(view.timer);
  EXPECT_EQ(view.caption, "Ferrow Menu - web.log");
}

TEST_F(ControlWindowTest, EnterOnBrowseCloseOrOpenDoesNothing) {
  const std::string log = MakeLog("web.log", "line\r\n");
  menu.Form_Load();
  Type(log);
  for (Control c : {Control::cmdBrowse, Control::cmdClose, Control::cmdOK})
    EXPECT_FALSE(menu.KeyDown(c, keys_down::kEnter, 0));
  EXPECT_FALSE(menu.FileOpened);
}

TEST_F(ControlWindowTest, GrayedCheckBoxClickedOnSetsItsFlagAndOneLeftGrayedKeepsTheConfiguredValue) {
  const std::string log = MakeLog("web.log", "one\r\ntwo\r\n");
  WriteINIFile(env, options.IniFileName, "web.log", "MenuX", "100");
  WriteINIFile(env, options.IniFileName, "web.log", "PlaySoundOnUpdate", "True");
  menu.Form_Load();
  Type(log);
  ASSERT_EQ(view.Value(Control::chkFileStart), 2);
  view.Click(Control::chkFileStart);
  EXPECT_TRUE(options.BringFromStartOfFile);
  menu.OK_Click();
  EXPECT_TRUE(options.BringFromStartOfFile);
  EXPECT_TRUE(options.PlaySoundOnUpdate);  // grayed: as the file's section said
  EXPECT_EQ(view.Value(Control::chkPlaySound), 1);
  EXPECT_EQ(Shown(), "one\ntwo\n");
}

TEST_F(ControlWindowTest, AClickTurnsAGrayedBoxOnThenOffThenOnAndTheViewDecidesNothing) {
  menu.Form_Load();
  ASSERT_EQ(view.Value(Control::chkMinimise), 2);
  options.HideMenuOnStartup = false;
  std::vector<int> values;
  std::vector<bool> flags;
  for (int i = 0; i < 3; ++i) {
    menu.CheckBoxPressed(Control::chkMinimise);
    values.push_back(view.Value(Control::chkMinimise));
    flags.push_back(options.HideMenuOnStartup);
  }
  EXPECT_EQ(values, (std::vector<int>{1, 0, 1}));
  EXPECT_EQ(flags, (std::vector<bool>{true, false, true}));
}

TEST_F(ControlWindowTest, AnyOtherKeyOnACheckBoxSetsItsFlagFromTheBoxAsItStands) {
  menu.Form_Load();
  options.BringFromStartOfFile = true;
  options.PlaySoundOnUpdate = false;
  options.HideMenuOnStartup = true;
  view.SetValue(Control::chkFileStart, 2);  // grayed: not 1, so off
  view.SetValue(Control::chkPlaySound, 1);
  view.SetValue(Control::chkMinimise, 0);
  const int kTab = 9, kSpace = 32, kLetterA = 65;
  EXPECT_FALSE(menu.KeyDown(Control::chkFileStart, kTab, 0));
  EXPECT_FALSE(menu.KeyDown(Control::chkPlaySound, kSpace, 0));
  EXPECT_FALSE(menu.KeyDown(Control::chkMinimise, kLetterA, keys_down::kShift));
  EXPECT_FALSE(options.BringFromStartOfFile);
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  EXPECT_FALSE(options.HideMenuOnStartup);
  EXPECT_EQ(view.Value(Control::chkFileStart), 2);  // the box itself stays as it was
}

// The window system moves the focus on Tab before a control sees the key, so
// tabbing past a grayed box leaves its flag as it was.
TEST_F(ControlWindowTest, TabbingPastAGrayedCheckBoxLeavesItsFlag) {
  menu.Form_Load();
  options.BringFromStartOfFile = true;
  view.SetValue(Control::chkFileStart, 2);
  KeyStroke tab;
  tab.virtual_key = keys_down::kTab;
  EXPECT_FALSE(menu.KeyDown(Control::chkFileStart, tab));
  tab.shift = true;
  EXPECT_FALSE(menu.KeyDown(Control::chkFileStart, tab));
  EXPECT_TRUE(options.BringFromStartOfFile);
  EXPECT_EQ(view.Value(Control::chkFileStart), 2);
}

TEST_F(ControlWindowTest, EnterInAnEmptiedBoxReopensTheFileAndLeavesOpenEnabled) {
  const std::string log = MakeLog("web.log", "line\r\n");
  menu.Form_Load();
  Type(log);
  menu.OK_Click();
  Type("");
  EXPECT_TRUE(menu.KeyDown(Control::cmbFileName, keys_down::kEnter, 0));
  EXPECT_EQ(options.FileName, log);
  EXPECT_TRUE(view.timer);
  EXPECT_TRUE(view.Enabled(Control::cmdOK));
}

TEST(ControlKeys, CtrlEnterIsALineFeedAndTheModifiersAddUp) {
  const auto code = [](KeyStroke key) {
    const KeyDownArgs args = ControlKeyDown(key);
    return std::to_string(args.key_code) + "/" + std::to_string(args.shift);
  };
  EXPECT_EQ(code({13, false, false, false}), "13/0");
  EXPECT_EQ(code({13, false, true, false}), "10/2");
  EXPECT_EQ(code({46, true, false, false}), "46/1");
  EXPECT_EQ(code({112, true, true, true}), "112/7");
  EXPECT_EQ(code({0x1000, false, false, false}), "0/0");
  EXPECT_EQ(code({0, true, false, false}), "0/1");
}

TEST_F(ControlWindowTest, ClosingAMinimisedControlWindowKeepsItsLastPosition) {
  options.MenuX = 1234;
  options.MenuY = 567;
  menu.Form_Load();
  view.minimised = true;
  view.left = view.top = 30000;  // where a minimised window is parked
  menu.Form_Unload();
  EXPECT_EQ(options.MenuX, 1234);
  EXPECT_EQ(options.MenuY, 567);
  EXPECT_TRUE(view.closed);
}

TEST_F(ControlWindowTest, EnteringAnEmptyFilterLeavesTheCurrentFilterInForce) {
  options.FilterString = "ERROR";
  menu.Form_Load();
  windows.answer = "";
  menu.cmdFilter_Click();
  EXPECT_EQ(options.FilterString, "ERROR");
  ASSERT_EQ(windows.asked.size(), 1u);
  EXPECT_EQ(windows.asked[0], "Text Highlighting Filter|Enter filter words to highlight - separated by spaces|ERROR");
  EXPECT_EQ(view.controls[Control::cmdFilter].tip, "Filtering on \"ERROR\"");
}

TEST_F(ControlWindowTest, NewFilterIsSavedAndShownInTheToolTip) {
  const std::string log = MakeLog("web.log", "x\r\n");
  menu.Form_Load();
  Type(log);
  menu.OK_Click();
  windows.answer = "FATAL WARN";
  menu.cmdFilter_Click();
  EXPECT_EQ(options.FilterString, "FATAL WARN");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "FilterString"), "FATAL WARN");
  EXPECT_EQ(view.controls[Control::cmdFilter].tip, "Filtering on \"FATAL WARN\"");
}

TEST_F(ControlWindowTest, OpeningAnUnreachableUncPathShowsTheUncMessage) {
  menu.Form_Load();
  Type("\\\\server\\share\\app.log");
  menu.OK_Click();
  ASSERT_EQ(services.messages.size(), 1u);
  EXPECT_EQ(services.messages[0],
            "File Access Error|Can't open UNC path for file: \\\\server\\share\\app.log\r\n"
            "Please check your are connected to the network");
  EXPECT_FALSE(view.timer);
}

TEST_F(ControlWindowTest, OpeningAFolderClearsTheFileNameBox) {
  menu.Form_Load();
  Type(dir.path());
  menu.OK_Click();
  EXPECT_EQ(services.messages.at(0), "Error|You selected a directory");
  EXPECT_EQ(Box(), "");
  EXPECT_EQ(options.FileName, "");
}

TEST_F(ControlWindowTest, ReopeningTheSameFileDoesNotSaveItsSettingsFirstButOpeningAnotherDoes) {
  const std::string a = MakeLog("a.log", "a\r\n");
  const std::string b = MakeLog("b.log", "b\r\n");
  menu.Form_Load();
  Type(a);
  menu.OK_Click();
  options.FilterString = "CHANGED";
  menu.OK_Click();  // the same file: its settings are not saved first
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "a.log", "FilterString"), "");
  options.FilterString = "CHANGED";
  Type(b);
  menu.OK_Click();
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "a.log", "FilterString"), "CHANGED");
}

TEST_F(ControlWindowTest, FileWithoutASectionStartsFromTheDefaultsOverriddenByTheCheckBoxes) {
  const std::string log = MakeLog("new.log", "x\r\n");
  options.FilterString = "LEFTOVER";
  options.FileDefaults.FilterString = "";
  menu.Form_Load();
  Type(log);
  view.Click(Control::chkPlaySound);
  menu.OK_Click();
  EXPECT_EQ(options.FilterString, "");
  EXPECT_TRUE(options.PlaySoundOnUpdate);
}

TEST_F(ControlWindowTest, EnterInTheBoxOpensOnce) {
  menu.Form_Load();
  Type(dir.File("missing.log"));
  EXPECT_TRUE(menu.KeyDown(Control::cmbFileName, keys_down::kEnter, 0));
  EXPECT_EQ(services.messages.size(), 1u);
}

TEST_F(ControlWindowTest, ShiftDelOnAHistoryEntryRemovesItFromTheListAndTheStoredHistory) {
  History({"/logs/a.log", "/logs/b.log"});
  menu.Form_Load();
  Type("/logs/a.log");
  EXPECT_FALSE(menu.KeyDown(Control::cmbFileName, keys_down::kDelete, 0));  // DEL alone: nothing special
  EXPECT_EQ(view.list.size(), 2u);
  EXPECT_TRUE(menu.KeyDown(Control::cmbFileName, keys_down::kDelete, keys_down::kShift));
  EXPECT_EQ(view.list, std::vector<std::string>{"/logs/b.log"});
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), "/logs/b.log");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "HistoryCount"), "1");
}

TEST_F(ControlWindowTest, ShiftDelRemovesTheHighlightedEntryOrTheShownOneButNeverAnother) {
  History({"/logs/a.log", "/logs/b.log", "/logs/c.log"});
  menu.Form_Load();
  Type("/logs/typed.log");
  menu.KeyDown(Control::cmbFileName, keys_down::kDelete, keys_down::kShift);
  EXPECT_EQ(view.list.size(), 3u);
  view.highlighted = 1;  // the list is dropped down on b.log
  menu.KeyDown(Control::cmbFileName, keys_down::kDelete, keys_down::kShift);
  EXPECT_EQ(view.list, (std::vector<std::string>{"/logs/a.log", "/logs/c.log"}));
  view.highlighted = -1;
  Type("/LOGS/C.LOG");
  menu.KeyDown(Control::cmbFileName, keys_down::kDelete, keys_down::kShift);
  EXPECT_EQ(view.list, std::vector<std::string>{"/logs/a.log"});
  EXPECT_EQ(Box(), "/LOGS/C.LOG");
}

TEST_F(ControlWindowTest, PickingAHistoryEntryGraysTheCheckBoxesAndOpeningTakesTheFilesSettings) {
  const std::string log = MakeLog("picked.log", "x\r\n");
  WriteIni("[Common]\r\nHistoryCount=1\r\nHistory1=" + log + "\r\n[picked.log]\r\nMenuX=10\r\n"
           "PlaySoundOnUpdate=True\r\nFilterString=PICKED\r\n");
  LoadHistoryAtStartup(app);
  menu.Form_Load();
  view.Pick(0);
  for (Control c : {Control::chkFileStart, Control::chkMinimise, Control::chkPlaySound})
    EXPECT_EQ(view.Value(c), 2);
  EXPECT_TRUE(view.Enabled(Control::cmdOK));
  menu.OK_Click();
  EXPECT_EQ(options.FilterString, "PICKED");
  EXPECT_TRUE(options.PlaySoundOnUpdate);
}

TEST_F(ControlWindowTest, EnterWithTheListDroppedDownPicksTheHighlightedEntryThenOpensItWithItsOwnSettings) {
  const std::string first = MakeLog("first.log", "x\r\n");
  const std::string picked = MakeLog("picked.log", "y\r\n");
  WriteIni("[Common]\r\nHistoryCount=2\r\nHistory1=" + first + "\r\nHistory2=" + picked +
           "\r\n[picked.log]\r\nMenuX=10\r\nPlaySoundOnUpdate=False\r\n");
  LoadHistoryAtStartup(app);
  menu.Form_Load();
  Type(first);
  menu.OK_Click();
  view.SetValue(Control::chkPlaySound, 1);  // the first file's box, left on
  menu.chkPlaySound_Click();
  view.highlighted = 1;                     // arrowed down to picked.log
  view.controls[Control::cmbFileName].text = picked;  // the box shows it, not picked yet
  EXPECT_TRUE(menu.KeyDown(Control::cmbFileName, keys_down::kEnter, 0));
  EXPECT_EQ(options.FileName, picked);
  EXPECT_FALSE(options.PlaySoundOnUpdate) << "the file's own setting, not the previous file's box";
  EXPECT_EQ(view.Value(Control::chkPlaySound), 0);
}

TEST_F(ControlWindowTest, ShortcutDroppedOnTheBoxFillsInItsTargetButOnTheWindowItsOwnPath) {
  HelperLibrary library = HelperLibrary::BindFile(env, FERROW_HELPER_LIBRARY);
  app.helper = &library;
  options.HelperLibraryVersion = 103;
  options.HelperLibraryInUse = true;
  const std::string target = MakeLog("target.log", "x");
  const std::string link = dir.File("target.lnk");
  ASSERT_NE(library.CreateShortcut(target, link, "", "", "", 1, -1).value_or(0), 0);
  menu.Form_Load();
  menu.cmbFileName_OLEDragDrop({link});
  EXPECT_EQ(Box(), target);
  menu.Form_OLEDragDrop({link});
  EXPECT_EQ(Box(), link);
  env.RemoveFile(target);
  menu.cmbFileName_OLEDragDrop({link});
  EXPECT_EQ(Box(), link) << "a shortcut whose target is gone leaves its own path";
  EXPECT_FALSE(menu.FileOpened);  // not opened until the user confirms
}

TEST_F(ControlWindowTest, ShortcutDroppedOnTheBoxKeepsItsOwnPathWhenTheLibraryIsTooOld) {
  HelperLibrary library = HelperLibrary::BindFile(env, FERROW_HELPER_LIBRARY);
  app.helper = &library;
  const std::string target = MakeLog("target.log", "x");
  const std::string link = dir.File("target.lnk");
  ASSERT_NE(library.CreateShortcut(target, link, "", "", "", 1, -1).value_or(0), 0);
  options.HelperLibraryVersion = 102;  // bound, but older than 103
  options.HelperLibraryInUse = false;
  menu.Form_Load();
  menu.cmbFileName_OLEDragDrop({link});
  EXPECT_EQ(Box(), link);
}

TEST_F(ControlWindowTest, TextWindowCaptionShowsTheSizeAtOnceWithoutBringingFromStart) {
  const std::string log = MakeLog("web.log", "0123456789\r\n");
  menu.Form_Load();
  Type(log);
  view.SetValue(Control::chkFileStart, 0);
  menu.OK_Click();
  ASSERT_TRUE(windows.Last());
  EXPECT_EQ(windows.Last()->caption, "Ferrow - " + log + " (12 bytes) [0]");
}

TEST_F(ControlWindowTest, ASectionWrittenWhereThePositionIsUnknownStillHoldsMenuX) {
  const std::string log = MakeLog("web.log", "line\r\n");
  menu.Form_Load();
  Type(log);
  menu.OK_Click();  // the view's position reads 0, 0
  menu.Form_Unload();
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "web.log", "MenuX"), "1");
}

TEST_F(ControlWindowTest, ClosingKeepsHistoryNamesAnotherProcessAddedMeanwhile) {
  const std::string mine = MakeLog("mine.log", "x\r\n");
  History({"/logs/old.log"});
  menu.Form_Load();
  Type(mine);
  menu.OK_Click();
  // Another process closes first and records its own file.
  WriteINIFile(env, options.IniFileName, "Common", "HistoryCount", "2");
  WriteINIFile(env, options.IniFileName, "Common", "History2", "/logs/theirs.log");
  menu.Form_Unload();
  std::vector<std::string> stored;
  for (int i = 1; i <= 3; ++i)
    stored.push_back(ReadINIFile(env, options.IniFileName, "Common", "History" + std::to_string(i)));
  std::sort(stored.begin(), stored.end());
  EXPECT_EQ(stored, (std::vector<std::string>{"/logs/old.log", "/logs/theirs.log", mine}));
}

TEST_F(ControlWindowTest, ClosingDuringTheStartDelayEndsTheWaitAndNeverOpensTheFile) {
  options.FileName = MakeLog("web.log", "one\r\n");
  options.WaitOnStart = true;
  options.WaitSeconds = 30;
  env.on_events = [&] {
    if (env.event_runs == 3) menu.Form_Unload();
  };
  menu.Form_Load();
  EXPECT_LT(env.slept_ms, 1000);
  EXPECT_TRUE(menu.Unloaded());
  EXPECT_FALSE(menu.FileOpened);
  EXPECT_FALSE(view.timer);
  EXPECT_TRUE(windows.made.empty());
}

TEST_F(ControlWindowTest, OpenRestartAndUnloadAskedForDuringAnOpenNeverRunInsideIt) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text += "line " + std::to_string(i) + "\r\n";
  const std::string log = MakeLog("big.log", text);
  const std::string other = MakeLog("other.log", "other\r\n");
  menu.Form_Load();
  Type(log);
  view.SetValue(Control::chkFileStart, 1);
  int during_load = 0;
  env.on_events = [&] {
    if (!windows.Last() || windows.Last()->box.enabled) return;  // only inside the load
    ++during_load;
    Type(other);
    menu.KeyDown(Control::chkMinimise, keys_down::kEnter, 0);
    menu.follower().FerrowRestart();
    if (during_load == 3) menu.Form_Unload();
  };
  menu.OK_Click();
  EXPECT_GE(during_load, 3);
  EXPECT_EQ(windows.made.size(), 1u) << "one open, one text window";
  EXPECT_EQ(options.FileName, log);
  EXPECT_TRUE(menu.Unloaded()) << "the unload ran once the open was over";
  EXPECT_FALSE(view.timer);
  EXPECT_TRUE(view.closed);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), log);
  menu.ShowNormalAndActivate();
  EXPECT_EQ(view.brought_to_front, 0) << "nothing comes back once closing";
}

// The close box pressed while the open writes the settings, before the text
// window exists: the file named is kept in the history and its section saved.
TEST_F(ControlWindowTest, ClosingWhileTheOpenWritesTheSettingsKeepsTheFileInTheHistory) {
  const std::string first = MakeLog("first.log", "x\r\n");
  const std::string log = MakeLog("early.log", "x\r\n");
  menu.Form_Load();
  Type(first);
  menu.OK_Click();
  Type(log);
  // A neighbour holds the write lock for a moment, so the history update of
  // the next open waits, letting events run, before its text window is made.
  WriteINIFile(env, options.IniFileName, "Common", "WriteLock", "True");
  const size_t windows_before = windows.made.size();
  bool asked = false;
  env.on_sleep = [&] {  // the lock's wait lets events run
    if (asked || windows.made.size() != windows_before) return;
    asked = true;
    WriteINIFile(env, options.IniFileName, "Common", "WriteLock", "False");
    menu.Form_Unload();
  };
  menu.OK_Click();
  ASSERT_TRUE(asked) << "no events ran before the text window";
  EXPECT_TRUE(menu.Unloaded());
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "HistoryCount"), "2");
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History1"), log);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "Common", "History2"), first);
  EXPECT_FALSE(ReadINIFile(env, options.IniFileName, "early.log", "MenuX").empty());
}

TEST_F(ControlWindowTest, ClosingTheTextWindowPausesFollowingAndSaysSo) {
  const std::string log = MakeLog("web.log", "x\r\n");
  menu.Form_Load();
  Type(log);
  menu.OK_Click();
  ASSERT_EQ(view.caption, "Ferrow Menu - web.log");
  menu.StopTimer();  // what the text window's unload asks
  EXPECT_FALSE(view.timer);
  EXPECT_EQ(view.caption, "Ferrow Menu (Paused) - web.log");
  EXPECT_FALSE(view.following);
  menu.cmdPause_Click();
  EXPECT_TRUE(view.timer);
  EXPECT_EQ(view.caption, "Ferrow Menu - web.log");
}

TEST_F(ControlWindowTest, ClosingTheTextWindowDuringTheLoadStopsTheLoad) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text += "line " + std::to_string(i) + "\r\n";
  const std::string log = MakeLog("big.log", text);
  menu.Form_Load();
  Type(log);
  view.SetValue(Control::chkFileStart, 1);
  env.on_events = [&] {
    if (windows.Last() && !windows.Last()->box.enabled && !windows.Last()->closed) windows.Last()->Close();
  };
  menu.OK_Click();
  EXPECT_EQ(menu.TextWindow(), nullptr);
  EXPECT_EQ(windows.Last()->box.text, "Loading file " + log) << "the load stopped where the window closed";
  EXPECT_TRUE(menu.FileOpened);
  EXPECT_TRUE(view.Enabled(Control::cmdOK));
}

// Whichever pass of the load the close lands in, the user closed the window:
// following stays stopped, as a close does at any other time, and Pause
// starts it again. The first pass shows "Loading file"; the later ones come
// every 100 lines read, with the box disabled.
class CloseDuringLoadTest : public ControlWindowTest, public ::testing::WithParamInterface<bool> {
 protected:
  std::string BigLog() {
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "line " + std::to_string(i) + "\r\n";
    return MakeLog("big.log", text);
  }
  // What the window's unload does when the user closes it.
  void CloseWhenLoadingReaches(bool first_pass) {
    env.on_events = [this, first_pass] {
      testing::FakeTextWindow* text = windows.Last();
      if (!text || text->closed || text->box.enabled != first_pass) return;
      menu.StopTimer();
      text->Close();
    };
  }
};

TEST_P(CloseDuringLoadTest, ClosingTheTextWindowDuringTheLoadLeavesFollowingPaused) {
  const std::string log = BigLog();
  menu.Form_Load();
  Type(log);
  view.SetValue(Control::chkFileStart, 1);
  CloseWhenLoadingReaches(GetParam());
  menu.OK_Click();
  env.on_events = nullptr;
  EXPECT_EQ(menu.TextWindow(), nullptr);
  EXPECT_FALSE(view.timer);
  EXPECT_EQ(view.caption, "Ferrow Menu (Paused) - big.log");
  EXPECT_FALSE(view.following);
  EXPECT_TRUE(menu.FileOpened);
  menu.cmdPause_Click();
  EXPECT_TRUE(view.timer);
  EXPECT_EQ(view.caption, "Ferrow Menu - big.log");
  testing::WriteBytes(log, testing::ReadBytes(log) + "new\r\n");
  menu.Timer1_Timer();
  ASSERT_NE(menu.TextWindow(), nullptr);
  EXPECT_EQ(windows.Last()->box.text, "new\n");
}

TEST_P(CloseDuringLoadTest, ClosingTheTextWindowDuringARestartsLoadLeavesFollowingPaused) {
  const std::string log = BigLog();
  menu.Form_Load();
  Type(log);
  view.SetValue(Control::chkFileStart, 1);
  menu.OK_Click();
  ASSERT_TRUE(view.timer);
  CloseWhenLoadingReaches(GetParam());
  menu.follower().FerrowRestart();
  env.on_events = nullptr;
  EXPECT_EQ(menu.TextWindow(), nullptr);
  EXPECT_FALSE(view.timer);
  EXPECT_EQ(view.caption, "Ferrow Menu (Paused) - big.log");
}

INSTANTIATE_TEST_SUITE_P(FirstOrLaterPass, CloseDuringLoadTest, ::testing::Bool());

}  // namespace
}  // namespace ferrow
