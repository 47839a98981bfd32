// The control window's keys, its file name box and history list, drops,
// and the keys of the text window and the dialogs: written once, run
// against the real windows of every front-end (scenarios.cc has the rest).
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "about/usage.h"
#include "frontend/scenario_helpers.h"
#include "frontend/scenario_registry.h"

namespace ferrow::frontend {
namespace {

const Control kButtonsAndBoxes[] = {Control::cmdOK,     Control::cmdBrowse,    Control::cmdOptions,
                                    Control::cmdFilter, Control::cmdPause,     Control::cmdAbout,
                                    Control::cmdClose,  Control::chkFileStart, Control::chkMinimise,
                                    Control::chkPlaySound, Control::cmbFileName};

const char* NameOf(Control control) {
  switch (control) {
    case Control::cmdOK: return "cmdOK";
    case Control::cmdBrowse: return "cmdBrowse";
    case Control::cmdOptions: return "cmdOptions";
    case Control::cmdFilter: return "cmdFilter";
    case Control::cmdPause: return "cmdPause";
    case Control::cmdAbout: return "cmdAbout";
    case Control::cmdClose: return "cmdClose";
    case Control::chkFileStart: return "chkFileStart";
    case Control::chkMinimise: return "chkMinimise";
    case Control::chkPlaySound: return "chkPlaySound";
    case Control::cmbFileName: return "cmbFileName";
    default: return "another control";
  }
}

std::string Unix(std::string text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i)
    if (!(text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')) out += text[i];
  return out;
}

// Keys of the control window.

FERROW_SCENARIO(F1OnEveryButtonCheckBoxAndTheFileNameBoxShowsTheHelpMessage) {
  const std::string log = w.MakeLog("app.log", "one\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  const std::string help = "Ferrow|" + UsageBoxText(w.options);
  for (Control control : kButtonsAndBoxes) {
    SCOPED_TRACE(NameOf(control));
    w.services.messages.clear();
    d.Key(control, vk::kF1);
    EXPECT_EQ(w.services.messages, std::vector<std::string>{help});
  }
}

FERROW_SCENARIO(EnterOnACheckBoxOrOnAboutFilterOptionsOrPauseOpensTheNamedFile) {
  const std::string a = w.MakeLog("a.log", "a\r\n"), b = w.MakeLog("b.log", "b\r\n");
  ASSERT_TRUE(Open(w, d, a, true));
  std::string next = b;
  for (Control control : {Control::cmdAbout, Control::cmdFilter, Control::cmdOptions, Control::cmdPause,
                          Control::chkFileStart, Control::chkMinimise, Control::chkPlaySound}) {
    SCOPED_TRACE(NameOf(control));
    FailIfInputBoxShows(d);
    d.Key(Control::cmbFileName, 'A', Modifiers{false, true});  // the whole name, typed over
    d.TypeInFileNameBox(next);
    d.Key(control, vk::kEnter);
    EXPECT_TRUE(d.RunEventsUntil([&] { return w.options.FileName == next && d.TimerRunning(); }))
        << w.options.FileName;
    EXPECT_FALSE(d.Shown(Window::kSettings) || d.Shown(Window::kAbout) || d.Shown(Window::kInputBox));
    next = next == a ? b : a;
  }
}

FERROW_SCENARIO(EnterOnBrowseCloseOrOpenDoesNothing) {
  const std::string a = w.MakeLog("a.log", "a\r\n"), b = w.MakeLog("b.log", "b\r\n");
  ASSERT_TRUE(Open(w, d, a, true));
  d.Key(Control::cmbFileName, 'A', Modifiers{false, true});
  d.TypeInFileNameBox(b);
  for (Control control : {Control::cmdBrowse, Control::cmdClose, Control::cmdOK}) {
    SCOPED_TRACE(NameOf(control));
    FailIfInputBoxShows(d);
    d.Key(control, vk::kEnter);
    d.RunEvents(50);
    EXPECT_EQ(w.options.FileName, a);
    EXPECT_TRUE(d.Shown(Window::kControl));
    EXPECT_TRUE(w.services.dialogs.empty());
  }
}

FERROW_SCENARIO(PlainLettersOnAFocusedButtonDoNothing) {
  const std::string log = w.MakeLog("app.log", "one\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  for (Control control : {Control::cmdOK, Control::cmdBrowse, Control::cmdOptions, Control::cmdFilter,
                          Control::cmdPause, Control::cmdAbout, Control::cmdClose}) {
    SCOPED_TRACE(NameOf(control));
    FailIfInputBoxShows(d);
    for (int letter : {'A', 'B', 'C', 'F', 'O', 'P'}) d.Key(control, letter);
    d.RunEvents(50);
    EXPECT_TRUE(d.Shown(Window::kControl));
    EXPECT_TRUE(d.TimerRunning());
    EXPECT_FALSE(d.Shown(Window::kSettings) || d.Shown(Window::kAbout) || d.Shown(Window::kInputBox));
    EXPECT_TRUE(w.services.dialogs.empty());
  }
}

FERROW_SCENARIO(SpaceOnACheckBoxTurnsItAndItsFlagOnAndOff) {
  const std::string log = w.MakeLog("app.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  const std::pair<Control, bool Options::*> boxes[] = {
      {Control::chkFileStart, &Options::BringFromStartOfFile},
      {Control::chkMinimise, &Options::HideMenuOnStartup},
      {Control::chkPlaySound, &Options::PlaySoundOnUpdate}};
  for (const auto& [box, flag] : boxes) {
    SCOPED_TRACE(NameOf(box));
    ASSERT_EQ(d.Value(box), 0);
    d.Key(box, vk::kSpace);
    EXPECT_EQ(d.Value(box), 1);
    EXPECT_TRUE(w.options.*flag);
    d.Key(box, vk::kSpace);
    EXPECT_EQ(d.Value(box), 0);
    EXPECT_FALSE(w.options.*flag);
  }
  EXPECT_TRUE(d.Shown(Window::kControl));
}

// The file name box and its history list.

FERROW_SCENARIO(TypingANameEnablesOpenGraysTheBoxesAndEnterOpensIt) {
  const std::string log = w.MakeLog("typed.log", "typed\r\n");
  d.Load();
  EXPECT_FALSE(d.Enabled(Control::cmdOK));
  d.TypeInFileNameBox(log);
  EXPECT_EQ(d.Text(Control::cmbFileName), log);
  EXPECT_TRUE(d.Enabled(Control::cmdOK));
  EXPECT_EQ(d.Value(Control::chkFileStart), 2);
  d.Key(Control::cmbFileName, vk::kEnter);
  ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kText) && d.TimerRunning(); }));
  EXPECT_EQ(d.Caption(Window::kControl), "Ferrow Menu - typed.log");
  AppendAndPoll(w, d, log, "more\r\n");
  EXPECT_EQ(d.ShownText(), "more\n");
}

// a.log is followed without its start; b.log's own settings bring its start.
std::string TwoFilesInTheHistory(ScenarioWorld& w, FrontEndDriver& d, std::string& b) {
  const std::string a = w.MakeLog("a.log", "a\r\n");
  b = w.MakeLog("b.log", "b one\r\nb two\r\n");
  testing::WriteBytes(w.options.IniFileName, "[Common]\r\nHistoryCount=2\r\nHistory1=" + a + "\r\nHistory2=" + b +
                                                 "\r\n[b.log]\r\nMenuX=100\r\nBringFromStartOfFile=True\r\n");
  w.options.HistoryList[0] = a;
  w.options.HistoryList[1] = b;
  w.options.HistoryTotal = 2;
  EXPECT_TRUE(Open(w, d, a, false));
  EXPECT_EQ(d.ListEntries(), (std::vector<std::string>{a, b}));
  return a;
}

FERROW_SCENARIO(AClickOnAHistoryEntryGraysTheBoxesAndOpenTakesTheFilesOwnSettings) {
  std::string b;
  TwoFilesInTheHistory(w, d, b);
  EXPECT_EQ(d.Value(Control::chkFileStart), 0);
  d.ClickInList(1);
  EXPECT_FALSE(d.ListDroppedDown());
  EXPECT_EQ(d.Text(Control::cmbFileName), b);
  EXPECT_EQ(d.Value(Control::chkFileStart), 2);
  EXPECT_TRUE(d.Enabled(Control::cmdOK));
  d.Click(Control::cmdOK);
  ASSERT_TRUE(d.RunEventsUntil([&] { return w.options.FileName == b && d.TimerRunning(); }));
  EXPECT_EQ(d.ShownText(), "b one\nb two\n");
  EXPECT_EQ(d.Value(Control::chkFileStart), 1);
}

FERROW_SCENARIO(EnterWithTheListDroppedDownPicksTheHighlightedEntryThenOpensIt) {
  std::string b;
  TwoFilesInTheHistory(w, d, b);
  d.DropDownList();
  ASSERT_TRUE(d.ListDroppedDown());
  d.HighlightInList(1);
  d.Key(Control::cmbFileName, vk::kEnter);
  ASSERT_TRUE(d.RunEventsUntil([&] { return w.options.FileName == b && d.TimerRunning(); }))
      << w.options.FileName;
  EXPECT_FALSE(d.ListDroppedDown());
  EXPECT_EQ(d.ShownText(), "b one\nb two\n") << "b.log's own settings bring its start";
  EXPECT_EQ(d.Value(Control::chkFileStart), 1);
}

FERROW_SCENARIO(ShiftDelRemovesTheShownHistoryEntryAndDelAloneDoesNot) {
  std::string b;
  const std::string a = TwoFilesInTheHistory(w, d, b);
  ASSERT_EQ(d.Text(Control::cmbFileName), a);
  d.Key(Control::cmbFileName, vk::kDelete, Modifiers{true, false});
  EXPECT_EQ(d.ListEntries(), std::vector<std::string>{b});
  EXPECT_EQ(Ini(w).find("=" + a + "\r\n"), std::string::npos) << Ini(w);
  d.Key(Control::cmbFileName, vk::kDelete);  // edits the box's text, as in any edit field
  EXPECT_EQ(d.ListEntries(), std::vector<std::string>{b});
}

// Drops.

FERROW_SCENARIO(AFileDroppedOnTheControlWindowOrTheBoxIsNamedNotOpened) {
  const std::string a = w.MakeLog("a.log", "a\r\n"), b = w.MakeLog("b.log", "b\r\n");
  const std::string c = w.MakeLog("c.log", "c\r\n");
  ASSERT_TRUE(Open(w, d, a, false));
  d.Drop(DropTarget::kControlWindow, b);
  EXPECT_EQ(d.Text(Control::cmbFileName), b);
  d.Drop(DropTarget::kFileNameBox, c);
  EXPECT_EQ(d.Text(Control::cmbFileName), c);
  d.RunEvents(100);
  EXPECT_EQ(w.options.FileName, a);
  EXPECT_EQ(d.ShownText(), "");
}

FERROW_SCENARIO(AFileDroppedOnTheTextWindowIsOpened) {
  w.options.FileDefaults.BringFromStartOfFile = true;
  const std::string a = w.MakeLog("a.log", "a\r\n"), b = w.MakeLog("b.log", "b one\r\nb two\r\n");
  ASSERT_TRUE(Open(w, d, a, true));
  d.Drop(DropTarget::kTextWindow, b);
  ASSERT_TRUE(d.RunEventsUntil([&] { return w.options.FileName == b && d.TimerRunning(); }));
  EXPECT_EQ(d.Text(Control::cmbFileName), b);
  EXPECT_EQ(d.ShownText(), "b one\nb two\n");
}

// The text window's keys.

FERROW_SCENARIO(TheTextWindowTakesNoEditingKeysAndCopiesWithCtrlAThenCtrlC) {
  const std::string log = w.MakeLog("app.log", "keep me\r\nand me\r\n");
  ASSERT_TRUE(Open(w, d, log, false));
  AppendAndPoll(w, d, log, "new\r\nlines\r\n");
  d.SetClipboard("PASTE");
  for (int key : {'V', 'X', 'Z', 'Y'}) d.KeyInText(key, Modifiers{false, true});
  d.KeyInText(vk::kDelete);
  d.KeyInText(vk::kBack);
  d.TypeInText('q');
  d.KeyInText(vk::kEnter);
  EXPECT_EQ(d.ShownText(), "new\nlines\n");
  d.KeyInText('A', Modifiers{false, true});
  d.KeyInText('C', Modifiers{false, true});
  EXPECT_EQ(Unix(d.Clipboard()), "new\nlines\n");
  EXPECT_EQ(d.ShownText(), "new\nlines\n");
}

// The settings dialog: Enter applies and Escape closes in every control
// but Apply and Close.

void OpenSettings(FrontEndDriver& d) {
  d.Click(Control::cmdOptions);
  ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kSettings); }));
}

FERROW_SCENARIO(EnterInEverySettingsControlAppliesAndEscapeClosesWithoutApplying) {
  const std::string log = w.MakeLog("app.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  const SettingsControl controls[] = {SettingsControl::kAlert,     SettingsControl::kNiceMode,
                                      SettingsControl::kPlaySound, SettingsControl::kQuickScroll,
                                      SettingsControl::kBrowseWav, SettingsControl::kRevertWav,
                                      SettingsControl::kClearHistory};
  int theme = 2;
  for (int key : {vk::kEscape, vk::kEnter}) {
    for (int i = 0; i <= static_cast<int>(std::size(controls)); ++i) {
      SCOPED_TRACE((key == vk::kEnter ? "Enter in control " : "Escape in control ") + std::to_string(i));
      const int16_t before = w.options.ThemeNumber;
      OpenSettings(d);
      d.ClickTheme(theme);
      if (i < static_cast<int>(std::size(controls))) d.KeyInSetting(controls[i], key);
      else d.KeyOnTheme(theme, key);
      ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kSettings) && d.TimerRunning(); }));
      EXPECT_EQ(w.options.ThemeNumber, key == vk::kEnter ? theme : before);
      EXPECT_TRUE(w.services.dialogs.empty()) << "no sound file dialog";
      EXPECT_TRUE(w.services.messages.empty()) << "the history is not cleared";
      theme = theme == 2 ? 3 : 2;
    }
  }
}

// The about window closes on Enter, Space and Escape.

FERROW_SCENARIO(EnterSpaceOrEscapeOnTheAboutWindowClosesIt) {
  const std::string log = w.MakeLog("app.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  for (int key : {vk::kEnter, vk::kSpace, vk::kEscape}) {
    SCOPED_TRACE(key);
    d.Click(Control::cmdAbout);
    ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kAbout); }));
    d.KeyInAbout(key);
    EXPECT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kAbout); }, 1000));
    if (d.Shown(Window::kAbout)) d.CloseBox(Window::kAbout);
    EXPECT_TRUE(d.RunEventsUntil([&] { return d.Enabled(Control::cmdAbout); }, 1000));
  }
}

// The dialogs' buttons take Enter as a press of themselves.

FERROW_SCENARIO(EnterOnTheSettingsCloseButtonClosesWithoutApplying) {
  const std::string log = w.MakeLog("app.log", "one\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  d.Click(Control::cmdOptions);
  ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kSettings); }));
  d.ClickTheme(2);
  d.KeyInSetting(SettingsControl::kCancel, vk::kEnter);
  ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kSettings); }));
  EXPECT_EQ(w.options.ThemeNumber, 1);
}

FERROW_SCENARIO(EnterOnTheInputBoxsButtonsPressesThemAndEscapeCancels) {
  w.options.FileDefaults.FilterString = "error";
  const std::string log = w.MakeLog("app.log", "an error\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  d.WhenInputBoxShows([&] {
    d.TypeInInputBox("other");
    d.KeyOnInputBoxButton(false, vk::kEnter);
    ExpectInputBoxAnswered(d);
  });
  d.Click(Control::cmdFilter);
  EXPECT_FALSE(d.Shown(Window::kInputBox));
  EXPECT_EQ(w.options.FilterString, "error");
  d.WhenInputBoxShows([&] {
    d.TypeInInputBox("other");
    d.KeyOnInputBoxButton(true, vk::kEnter);
    ExpectInputBoxAnswered(d);
  });
  d.Click(Control::cmdFilter);
  EXPECT_EQ(w.options.FilterString, "other");
  d.WhenInputBoxShows([&] {
    d.TypeInInputBox("again");
    d.KeyOnInputBoxButton(true, vk::kEscape);
    ExpectInputBoxAnswered(d);
  });
  d.Click(Control::cmdFilter);
  EXPECT_EQ(w.options.FilterString, "other") << "Escape on OK cancels";
}

}  // namespace
}  // namespace ferrow::frontend
