// What a user does with Ferrow's windows and what they must see, written
// once and run against the real windows of every front-end. A scenario that
// passes on one front-end and fails on another is a defect of that one.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "frontend/scenario_helpers.h"
#include "frontend/scenario_registry.h"

namespace ferrow::frontend {
namespace {

constexpr Colour kRed = 0x0000FF;

// Following, the text and its colours.

FERROW_SCENARIO(ALoadedFileAndEveryLaterPollShowTheFileLineForLineInItsColours) {
  w.options.FileDefaults.FilterString = "error";
  w.options.FileDefaults.RedFilterString = "fatal";
  const std::string log = w.MakeLog("app.log", "one\r\nan error here\r\nthree\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  EXPECT_EQ(d.ShownText(), "one\nan error here\nthree\n");
  EXPECT_EQ(LineColours(d), (std::vector<Colour>{Grey(w), Blue(w), Grey(w)}));
  AppendAndPoll(w, d, log, "four\r\n");
  EXPECT_EQ(d.ShownText(), "one\nan error here\nthree\nfour\n");
  AppendAndPoll(w, d, log, "a fatal error\r\nfive\r\nerror six\r\n");
  AppendAndPoll(w, d, log, "seven\r\n");
  EXPECT_EQ(d.ShownText(), "one\nan error here\nthree\nfour\na fatal error\nfive\nerror six\nseven\n");
  EXPECT_EQ(LineColours(d), (std::vector<Colour>{Grey(w), Blue(w), Grey(w), Grey(w), kRed, Grey(w),
                                                 Blue(w), Grey(w)}));
  EXPECT_EQ(d.Caption(Window::kText), "Ferrow - " + log + " (" + Grouped(FileSize(log)) + " bytes) [8]");
}

// A poll that brings many lines at once shows each in its colour and in the
// window's font, as lines that come a few at a time do.
void ManyLinesInEachPoll(ScenarioWorld& w, FrontEndDriver& d, bool from_start) {
  w.options.FileDefaults.FilterString = "error";
  const std::string log = w.MakeLog("app.log", from_start ? "first\r\n" : "");
  ASSERT_TRUE(Open(w, d, log, from_start));
  std::string shown = from_start ? "first\n" : "";
  std::vector<Colour> colours;
  if (from_start) colours.push_back(Grey(w));
  for (int poll = 0; poll < 3; ++poll) {
    std::string block;
    // Long stretches of lines in one colour, as most logs have.
    for (int i = 0; i < 45; ++i) {
      const bool error = i % 20 == 17;
      const std::string line = (error ? "an error " : "line ") + std::to_string(poll * 100 + i);
      block += line + "\r\n";
      shown += line + "\n";
      colours.push_back(error ? Blue(w) : Grey(w));
    }
    AppendAndPoll(w, d, log, block);
  }
  EXPECT_EQ(d.ShownText(), shown);
  EXPECT_EQ(LineColours(d), colours);
  EXPECT_EQ(LineFonts(d), std::vector<std::string>(colours.size(), w.options.Font));
}

FERROW_SCENARIO(ManyLinesInEachPollShowInTheirColoursAndTheWindowsFont) {
  ManyLinesInEachPoll(w, d, true);
}

FERROW_SCENARIO(ManyLinesInEachPollOnAnEmptyWindowShowInTheirColoursAndTheWindowsFont) {
  ManyLinesInEachPoll(w, d, false);
}

FERROW_SCENARIO(WithoutBringFromStartOnlyWhatIsAppendedShows) {
  w.options.FileDefaults.FilterString = "error";
  const std::string log = w.MakeLog("app.log", "old one\r\nold error\r\n");
  ASSERT_TRUE(Open(w, d, log, false));
  EXPECT_EQ(d.ShownText(), "");
  EXPECT_EQ(d.Caption(Window::kText), "Ferrow - " + log + " (" + Grouped(FileSize(log)) + " bytes) [0]");
  AppendAndPoll(w, d, log, "new one\r\n");
  AppendAndPoll(w, d, log, "new error\r\nnew three\r\n");
  EXPECT_EQ(d.ShownText(), "new one\nnew error\nnew three\n");
  EXPECT_EQ(LineColours(d), (std::vector<Colour>{Grey(w), Blue(w), Grey(w)}));
}

FERROW_SCENARIO(NulBytesShowAndTheRestOfTheBlockToo) {
  const std::string log = w.MakeLog("app.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  AppendAndPoll(w, d, log, std::string("ab\0cd\r\nef\r\n", 11));
  AppendAndPoll(w, d, log, "gh\r\n");
  EXPECT_EQ(d.ShownText(), std::string("ab\0cd\nef\ngh\n", 12));
}

FERROW_SCENARIO(QuickScrollKeepsTheTextAfterANulByte) {
  w.options.FileDefaults.QuickScroll = true;
  const std::string log = w.MakeLog("app.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  AppendAndPoll(w, d, log, std::string("ab\0cd\r\nef\r\n", 11));
  AppendAndPoll(w, d, log, "gh\r\n");
  EXPECT_EQ(d.ShownText(), std::string("ab\0cd\nef\ngh\n", 12));
}

FERROW_SCENARIO(CarriageReturnOnlyAndLineFeedOnlyEndsBreakAppendedLines) {
  const std::string log = w.MakeLog("app.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  AppendAndPoll(w, d, log, "mac one\rmac two\r");
  AppendAndPoll(w, d, log, "unix one\nunix two\n");
  AppendAndPoll(w, d, log, "dos\r\n\r\n\nlast\n");
  EXPECT_EQ(d.ShownText(), "mac one\nmac two\nunix one\nunix two\ndos\nlast\n");
}

FERROW_SCENARIO(ALoadBreaksLinesAtCarriageReturnsAndLineFeedsAlone) {
  const std::string log = w.MakeLog("app.log", "unix one\nunix two\nmac one\rmac two\rdos\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  EXPECT_EQ(d.ShownText(), "unix one\nunix two\nmac one\nmac two\ndos\n");
  EXPECT_EQ(d.Caption(Window::kText), "Ferrow - " + log + " (39 bytes) [5]");
}

FERROW_SCENARIO(ALoadShowsNulBytesAndTheRestOfTheLine) {
  const std::string log = w.MakeLog("app.log", std::string("ab\0cd\r\nef\r\n", 11));
  ASSERT_TRUE(Open(w, d, log, true));
  EXPECT_EQ(d.ShownText(), std::string("ab\0cd\nef\n", 9));
}

// The box is modal: polls run while it is up.
FERROW_SCENARIO(ASoundThatCannotPlayIsReportedOnceAndNoLineShowsTwice) {
  w.options.FileDefaults.PlaySoundOnUpdate = true;
  w.options.FileDefaults.UpdateSound = w.dir.File("missing.wav");
  w.services.modal_ms = 500;
  const std::string log = w.MakeLog("app.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  AppendAndPoll(w, d, log, "one\r\n");
  AppendAndPoll(w, d, log, "two\r\n");
  EXPECT_EQ(d.ShownText(), "one\ntwo\n");
  EXPECT_EQ(w.services.messages,
            std::vector<std::string>{"|Problem encountered playing " + w.dir.File("missing.wav") +
                                     " (disabled sounds)"});
  EXPECT_EQ(d.Value(Control::chkPlaySound), 0);
}

FERROW_SCENARIO(PauseHoldsTheTextAndResumeShowsWhatCameMeanwhile) {
  const std::string log = w.MakeLog("web.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  AppendAndPoll(w, d, log, "one\r\n");
  EXPECT_EQ(d.Caption(Window::kControl), "Ferrow Menu - web.log");
  d.Click(Control::cmdPause);
  EXPECT_FALSE(d.TimerRunning());
  EXPECT_EQ(d.Caption(Window::kControl), "Ferrow Menu (Paused) - web.log");
  Append(log, "two\r\n");
  d.RunEvents(300);
  EXPECT_EQ(d.ShownText(), "one\n");
  d.Click(Control::cmdPause);
  EXPECT_EQ(d.Caption(Window::kControl), "Ferrow Menu - web.log");
  EXPECT_TRUE(d.RunEventsUntil([&] { return d.ShownText() == "one\ntwo\n"; })) << d.ShownText();
}

// The filter through the input box.

FERROW_SCENARIO(AFilterEnteredInTheInputBoxColoursTheReloadedFile) {
  w.options.FileDefaults.FilterString = "error";
  const std::string log = w.MakeLog("app.log", "a warning\r\nan error\r\nplain\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  std::string shown_text, prompt, caption;
  d.WhenInputBoxShows([&] {
    shown_text = d.InputBoxText();
    prompt = d.InputBoxPrompt();
    caption = d.Caption(Window::kInputBox);
    d.TypeInInputBox("warning");
    d.KeyInInputBox(vk::kEnter);
    ExpectInputBoxAnswered(d);
  });
  d.Click(Control::cmdFilter);
  EXPECT_EQ(shown_text, "error");
  EXPECT_EQ(prompt, "Enter filter words to highlight - separated by spaces");
  EXPECT_EQ(caption, "Text Highlighting Filter");
  ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kInputBox) && d.TimerRunning(); }));
  EXPECT_EQ(w.options.FilterString, "warning");
  EXPECT_EQ(d.ShownText(), "a warning\nan error\nplain\n");
  EXPECT_EQ(LineColours(d), (std::vector<Colour>{Blue(w), Grey(w), Grey(w)}));
}

FERROW_SCENARIO(EscapeOrTheInputBoxsCloseBoxKeepsTheFilter) {
  w.options.FileDefaults.FilterString = "error";
  const std::string log = w.MakeLog("app.log", "an error\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  d.WhenInputBoxShows([&] {
    d.TypeInInputBox("other");
    d.KeyInInputBox(vk::kEscape);
    ExpectInputBoxAnswered(d);
  });
  d.Click(Control::cmdFilter);
  EXPECT_EQ(w.options.FilterString, "error");
  d.WhenInputBoxShows([&] {
    d.TypeInInputBox("other");
    d.CloseBox(Window::kInputBox);
    ExpectInputBoxAnswered(d);
  });
  d.Click(Control::cmdFilter);
  EXPECT_EQ(w.options.FilterString, "error");
  EXPECT_FALSE(d.Shown(Window::kInputBox));
  EXPECT_TRUE(d.Enabled(Control::cmdFilter));
}

// Browse stays on while the filter's input box waits. A click on it is not
// lost: its dialog opens once the filter is answered and the file reloaded,
// not on top of the waiting box.
FERROW_SCENARIO(ABrowseClickWhileTheFilterIsAskedOpensTheDialogOnceTheFilterIsTaken) {
  const std::string log = w.MakeLog("app.log", "an error\r\n");
  const std::string other = w.MakeLog("other.log", "other\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  w.services.chosen = other;
  bool browse_enabled = false, box_up_at_dialog = true;
  std::string filter_at_dialog;
  w.services.while_dialog = [&] {
    box_up_at_dialog = d.Shown(Window::kInputBox);
    filter_at_dialog = w.options.FilterString;
  };
  d.WhenInputBoxShows([&] {
    browse_enabled = d.Enabled(Control::cmdBrowse);
    d.Click(Control::cmdBrowse);
    d.TypeInInputBox("error");
    d.KeyInInputBox(vk::kEnter);
    ExpectInputBoxAnswered(d);
  });
  d.Click(Control::cmdFilter);
  ASSERT_TRUE(d.RunEventsUntil([&] { return !w.services.dialogs.empty(); })) << "the click was lost";
  EXPECT_TRUE(browse_enabled);
  EXPECT_EQ(w.services.dialogs.size(), 1u);
  EXPECT_FALSE(box_up_at_dialog);
  EXPECT_EQ(filter_at_dialog, "error");
  EXPECT_EQ(d.Text(Control::cmbFileName), other);
}

// The settings dialog.

FERROW_SCENARIO(ApplyingEachThemeShowsItsBackgroundFontAndColoursAtOnce) {
  w.options.FileDefaults.FilterString = "error";
  const std::string log = w.MakeLog("app.log", "plain line\r\nan error line\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  for (int theme = 0; theme < kThemeCount; ++theme) {
    SCOPED_TRACE("theme " + std::to_string(theme));
    Options want;
    FillThemeTables(want.Themes);
    SetTheme(want, want.Themes, ThemeCode(theme));
    d.Click(Control::cmdOptions);
    ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kSettings); }));
    EXPECT_EQ(d.Caption(Window::kSettings), "Ferrow Settings");
    d.ClickTheme(theme);
    EXPECT_TRUE(d.ThemeChecked(theme));
    d.ClickSetting(SettingsControl::kOK);
    ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kSettings) && d.TimerRunning(); }));
    EXPECT_EQ(w.options.ThemeNumber, theme);
    EXPECT_EQ(d.ShownText(), "plain line\nan error line\n");
    EXPECT_EQ(LineColours(d), (std::vector<Colour>{want.FontColour, want.FilterColour}));
    EXPECT_EQ(d.Background(), want.BackColour);
    EXPECT_EQ(d.FontName(), want.Font);
    EXPECT_EQ(d.FontSize(), want.FontSize);
    EXPECT_EQ(d.FontBold(), want.FontBold);
    EXPECT_EQ(Ini(w).find("ThemeNumber=" + std::to_string(theme)) != std::string::npos, true) << Ini(w);
  }
}

FERROW_SCENARIO(EnterInASettingsControlAppliesAndEscapeClosesWithoutReloading) {
  const std::string log = w.MakeLog("app.log", "one\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  d.Click(Control::cmdOptions);
  ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kSettings); }));
  d.ClickTheme(2);
  d.KeyInSetting(SettingsControl::kQuickScroll, vk::kEscape);
  ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kSettings); }));
  EXPECT_EQ(w.options.ThemeNumber, 1) << "Escape does not apply";
  EXPECT_TRUE(d.Enabled(Control::cmdOptions));
  d.Click(Control::cmdOptions);
  ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kSettings); }));
  d.ClickTheme(2);
  d.KeyInSetting(SettingsControl::kAlert, vk::kEnter);
  ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kSettings) && d.TimerRunning(); }));
  EXPECT_EQ(w.options.ThemeNumber, 2);
}

FERROW_SCENARIO(TheSettingsAndAboutCloseBoxesGiveTheControlWindowBack) {
  const std::string log = w.MakeLog("app.log", "");
  ASSERT_TRUE(Open(w, d, log, false));
  d.Click(Control::cmdOptions);
  ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kSettings); }));
  EXPECT_FALSE(d.Enabled(Control::cmdOptions));
  d.CloseBox(Window::kSettings);
  ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kSettings); }));
  EXPECT_TRUE(d.Enabled(Control::cmdOptions));
  d.Click(Control::cmdAbout);
  ASSERT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kAbout); }));
  EXPECT_FALSE(d.Enabled(Control::cmdAbout));
  d.CloseBox(Window::kAbout);
  ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kAbout); }));
  EXPECT_TRUE(d.Enabled(Control::cmdAbout));
  AppendAndPoll(w, d, log, "one\r\n");
  EXPECT_EQ(d.ShownText(), "one\n") << "following goes on";
}

// Closing windows.

FERROW_SCENARIO(TheControlWindowsCloseBoxSavesAndUnloadsEveryWindow) {
  const std::string log = w.MakeLog("app.log", "one\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  d.CloseBox(Window::kControl);
  ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kControl); }));
  EXPECT_FALSE(d.Shown(Window::kText));
  const std::string ini = Ini(w);
  EXPECT_NE(ini.find("[app.log]"), std::string::npos) << ini;
  EXPECT_NE(ini.find("History1=" + log), std::string::npos) << ini;
}

FERROW_SCENARIO(TheTextWindowsCloseBoxStopsFollowingAndResumeBringsItBack) {
  const std::string log = w.MakeLog("app.log", "one\r\n");
  ASSERT_TRUE(Open(w, d, log, true));
  d.CloseBox(Window::kText);
  ASSERT_TRUE(d.RunEventsUntil([&] { return !d.Shown(Window::kText); }));
  EXPECT_FALSE(d.TimerRunning());
  EXPECT_TRUE(d.Shown(Window::kControl));
  d.Click(Control::cmdPause);
  Append(log, "two\r\n");
  EXPECT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kText) && d.ShownText() == "two\n"; }))
      << d.ShownText();
}

// A close that lands inside the load leaves the file open and following
// stopped, whichever of the load's passes it lands in; the window stays
// closed while the file grows, and Pause brings it back with what came.
void CloseTheTextWindowWhileTheFileLoads(ScenarioWorld& w, FrontEndDriver& d,
                                         const std::function<bool()>& now) {
  std::string lines;
  for (int i = 0; i < 3000; ++i) lines += "line " + std::to_string(i) + "\r\n";
  const std::string log = w.MakeLog("big.log", lines);
  d.Load();
  d.TypeInFileNameBox(log);
  SetCheckBox(d, Control::chkFileStart, 1);
  bool closed = false;
  w.env.during_waits = [&] {
    if (closed || !d.Shown(Window::kText) || !now()) return;
    closed = true;
    d.CloseBox(Window::kText);
  };
  d.Click(Control::cmdOK);
  ASSERT_TRUE(d.RunEventsUntil([&] { return closed && d.Enabled(Control::cmdOK); }));
  w.env.during_waits = nullptr;
  d.RunEvents(200);
  EXPECT_FALSE(d.Shown(Window::kText));
  EXPECT_FALSE(d.TimerRunning());
  EXPECT_EQ(d.Caption(Window::kControl), "Ferrow Menu (Paused) - big.log");
  EXPECT_EQ(w.options.FileName, log);
  Append(log, "new\r\n");
  d.RunEvents(300);
  EXPECT_FALSE(d.Shown(Window::kText)) << "came back by itself";
  d.Click(Control::cmdPause);
  EXPECT_TRUE(d.RunEventsUntil([&] { return d.Shown(Window::kText) && d.ShownText() == "new\n"; }))
      << d.ShownText();
}

FERROW_SCENARIO(ClosingTheTextWindowAsTheLoadBeginsLeavesFollowingPaused) {
  CloseTheTextWindowWhileTheFileLoads(w, d, [&] { return d.ShownText().rfind("Loading file ", 0) == 0; });
}

FERROW_SCENARIO(ClosingTheTextWindowHalfwayThroughTheLoadLeavesFollowingPaused) {
  CloseTheTextWindowWhileTheFileLoads(
      w, d, [&] { return d.Caption(Window::kText).find("1500 lines read") != std::string::npos; });
}

}  // namespace
}  // namespace ferrow::frontend
