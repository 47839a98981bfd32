#include "display/text_window.h"

#include <gtest/gtest.h>

#include "config/ini_file.h"
#include "display/append_block.h"
#include "display/text_ops.h"
#include "display/text_window_proc.h"
#include "testing/fake_text_view.h"
#include "testing/fake_control_window.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::FakeControlWindow;

class TextWindowTest : public testing::SessionTest {
 protected:
  TextWindowTest() {
    options.FileSection = "app.log";
    control.shown_box = &view.box;
    view.on_close = [this] { window.Form_Unload(); };
  }
  std::string Stored(const std::string& key) {
    return ReadINIFile(env, options.IniFileName, "app.log", key);
  }
  // Every key of a typed character: its key code first, then the character.
  void Type(int key_code, int character) {
    if (!window.Rtf_KeyDown(key_code)) {
      EXPECT_TRUE(window.Rtf_KeyPress(character));
    }
  }

  FakeControlWindow control;
  testing::FakeTextView view;
  TextWindow window{session, control, view};
};

TEST_F(TextWindowTest, StoredWidthOf1844OrLessOpensTenThousandTwipsWideAndCentred) {
  options.FormWidth = 1844;
  options.FormHeight = 650;
  window.Form_Load();
  EXPECT_EQ(view.place.width, 10000);
  EXPECT_EQ(view.place.height, 3500);
  EXPECT_EQ(view.place.left, (19200 - 10000) / 2);
  EXPECT_EQ(view.place.top, (10800 - 3500) / 2);
}

TEST_F(TextWindowTest, StoredWidthOf1845OpensThatWide) {
  options.FormWidth = 1845;
  options.FormHeight = 651;
  window.Form_Load();
  EXPECT_EQ(view.place.width, 1845);
  EXPECT_EQ(view.place.height, 651);
}

TEST_F(TextWindowTest, StoredPlaceOverridesTheCentreOnlyWhenAboveZero) {
  options.FormX = 1440;
  options.FormY = 0;
  window.Form_Load();
  EXPECT_EQ(view.place.left, 1440);
  EXPECT_EQ(view.place.top, (10800 - 3500) / 2);
}

TEST_F(TextWindowTest, LoadStylesAndEmptiesTheBoxShowsTheWindowAndSubclassesTheBox) {
  options.Font = "Arial";
  options.FontSize = 12;
  options.FontBold = true;
  options.MaxInputLength = 4096;
  options.BackColour = 0x112233;
  view.box.text = "old";
  view.box.wrap = true;
  window.Form_Load();
  EXPECT_EQ(view.box.text, "");
  EXPECT_FALSE(view.box.wrap);
  EXPECT_EQ(view.box.font_name, "Arial");
  EXPECT_EQ(view.box.font_size, 12);
  EXPECT_TRUE(view.box.font_bold);
  EXPECT_EQ(view.box.back_colour, 0x112233);
  EXPECT_EQ(view.box.max_length, 4096);
  EXPECT_TRUE(view.shown);
  EXPECT_TRUE(view.subclassed);
  EXPECT_TRUE(window.Loaded());
}

TEST_F(TextWindowTest, LoadLeavesRoomForTheFrameAroundTheBox) {
  options.FormWidth = 6000;
  options.FormHeight = 3000;
  window.Form_Load();
  EXPECT_EQ(view.box_place.width, 6000 - 85);
  EXPECT_EQ(view.box_place.height, 3000 - 490);
}

TEST_F(TextWindowTest, ResizeFillsTheClientAreaAndScrollsToTheLastLine) {
  window.Form_Load();
  view.box.SetText("one\ntwo\n");
  view.box.SetSelStart(2);
  const int locks = view.box.locks;
  view.place.width = 5000;
  view.place.height = 2000;
  window.Form_Resize();
  EXPECT_EQ(view.box_place.left, 0);
  EXPECT_EQ(view.box_place.width, 5000 - 60);
  EXPECT_EQ(view.box_place.height, 2000 - 400);
  EXPECT_EQ(view.box.sel_start, 8);
  EXPECT_EQ(view.box.locks, locks + 1);
}

TEST_F(TextWindowTest, EveryChangeOfTheTextMovesTheCaretToTheEnd) {
  view.box.SetText("abc\n");
  view.box.SetSelStart(1);
  window.Rtf_Change();
  EXPECT_EQ(view.box.sel_start, 4);
}

TEST_F(TextWindowTest, ClosingAWindowSmallerThanTheMinimumStores1844By650) {
  window.Form_Load();
  view.place = {300, 200, 500, 100};
  window.Close();
  EXPECT_EQ(options.FormWidth, 1844);
  EXPECT_EQ(options.FormHeight, 650);
  EXPECT_EQ(Stored("FormX"), "300");
  EXPECT_EQ(Stored("FormY"), "200");
  EXPECT_FALSE(view.subclassed);
  EXPECT_FALSE(window.Loaded());
  EXPECT_EQ(control.closes, 1);
}

TEST_F(TextWindowTest, ClosingAMaximisedWindowKeepsTheStoredSize) {
  options.FormWidth = 6000;
  options.FormHeight = 3000;
  window.Form_Load();
  view.state = WindowState::kMaximised;
  view.place = {0, 0, 19200, 10800};
  window.Close();
  EXPECT_EQ(options.FormWidth, 6000);
  EXPECT_EQ(options.FormHeight, 3000);
  EXPECT_EQ(Stored("FormWidth"), "6000");
  EXPECT_EQ(Stored("FormHeight"), "3000");
}

TEST_F(TextWindowTest, ClosingAMinimisedWindowKeepsTheSizeButStoresItsPlaceAsItIs) {
  options.FormWidth = 7000;
  options.FormHeight = 2000;
  window.Form_Load();
  view.state = WindowState::kMinimised;
  view.place = {-48000, -48000, 2400, 400};
  window.Close();
  EXPECT_EQ(options.FormWidth, 7000);
  EXPECT_EQ(options.FormHeight, 2000);
  EXPECT_EQ(options.FormX, -48000);
  EXPECT_EQ(options.FormY, -48000);
}

TEST_F(TextWindowTest, ClosingTheTextWindowAloneStopsTheTimerAndReturnsToTheControlWindow) {
  window.Form_Load();
  window.Close();
  EXPECT_EQ(control.timer_stops, 1);
  EXPECT_EQ(control.activations, 1);
}

TEST_F(TextWindowTest, ClosingWithTheProgramLeavesTheControlWindowAlone) {
  control.closing = true;
  window.Form_Load();
  window.Close();
  EXPECT_EQ(control.timer_stops, 0);
  EXPECT_EQ(control.activations, 0);
  EXPECT_EQ(control.closes, 1);
}

TEST_F(TextWindowTest, AWindowNeverLoadedStoresNothingOnClose) {
  options.FormX = 77;
  window.Close();
  EXPECT_EQ(options.FormX, 77);
  EXPECT_EQ(Ini(), "");
  EXPECT_EQ(control.timer_stops, 0);
  EXPECT_EQ(control.closes, 1) << "the control window still learns it is gone";
}

TEST_F(TextWindowTest, ASecondCloseUnloadsNothingMore) {
  window.Form_Load();
  window.Close();
  options.FormX = 5;
  window.Close();
  EXPECT_EQ(options.FormX, 5);
  EXPECT_EQ(control.timer_stops, 1);
  EXPECT_EQ(view.subclass_removals, 1);
}

TEST_F(TextWindowTest, AnAppendTenOverTheLimitDeletesNineThenUpToTheNextLineFeed) {
  options.MaxInputLength = 20;
  window.Form_Load();
  view.box.SetText("0123456789abc\n");
  AppendTextBlock(session, window.Rtf(), "defghijklmnopqr\r\n", false);  // 30: 10 over
  EXPECT_EQ(view.box.text, "defghijklmnopqr\n");
  EXPECT_EQ(view.box.max_length, 20);
}

TEST_F(TextWindowTest, TenOverWithNoLineFeedLeftDeletesOnlyNine) {
  options.MaxInputLength = 20;
  window.Form_Load();
  view.box.SetText("0123456789abcdefghijklmnopqrst");
  TrimTextWindow(window.Rtf(), options);
  EXPECT_EQ(view.box.text, "9abcdefghijklmnopqrst");
}

TEST_F(TextWindowTest, EditingKeysPrintableKeysAndBackspaceChangeNothing) {
  window.Form_Load();
  view.box.SetText("keep me\n");
  for (int key : {kKeyV, kKeyX, kKeyZ, kKeyY, kKeyDelete}) EXPECT_TRUE(window.Rtf_KeyDown(key));
  EXPECT_FALSE(window.Rtf_KeyDown(kKeyBackspace)) << "Backspace is passed on";
  EXPECT_TRUE(window.Rtf_KeyPress(8)) << "and its character discarded";
  Type('Q', 'q');
  Type('5', '5');
  Type(32, ' ');
  EXPECT_EQ(view.box.text, "keep me\n");
  EXPECT_TRUE(view.clipboard.empty());
}

TEST_F(TextWindowTest, CtrlASelectsAll) {
  window.Form_Load();
  view.box.SetText("one\ntwo");
  EXPECT_TRUE(window.Rtf_KeyPress(1));
  EXPECT_EQ(view.box.sel_start, 0);
  EXPECT_EQ(view.box.sel_length, 7);
}

TEST_F(TextWindowTest, CtrlCEnterCtrlEnterAndCtrlWCopyThePlainSelectionAndLetEventsRun) {
  window.Form_Load();
  view.box.SetText("one\ntwo");
  for (int character : {3, 13, 10, 23}) {
    view.box.SetSelStart(4);
    view.box.SetSelLength(3);
    EXPECT_TRUE(window.Rtf_KeyPress(character));
    EXPECT_EQ(view.box.sel_length, 0);
  }
  EXPECT_EQ(view.clipboard, (std::vector<std::string>(4, "two")));
  EXPECT_EQ(env.event_runs, 4);
}

TEST_F(TextWindowTest, EnterWithNothingSelectedPutsAnEmptyTextOnTheClipboard) {
  window.Form_Load();
  view.box.SetText("text");
  window.Rtf_KeyPress(13);
  EXPECT_EQ(view.clipboard, (std::vector<std::string>{""}));
}

TEST_F(TextWindowTest, CopyAsRtfPutsTheSelectionsMarkupOnTheClipboardAsText) {
  options.CopyAsRTF = true;
  window.Form_Load();
  AppendColouredText(window.Rtf(), options, "error line", 0x0000FF);
  window.Rtf_KeyPress(1);
  window.Rtf_KeyPress(23);
  ASSERT_EQ(view.clipboard.size(), 1u);
  const std::string& pasted = view.clipboard[0];
  EXPECT_EQ(pasted.rfind("{\\rtf1", 0), 0u) << pasted;
  EXPECT_NE(pasted.find("\\red255\\green0\\blue0"), std::string::npos) << pasted;
  EXPECT_NE(pasted.find("error line"), std::string::npos);
}

TEST_F(TextWindowTest, AWindowClosedWhileTheCopyLetsEventsRunIsUnloadedOnce) {
  window.Form_Load();
  view.box.SetText("abc");
  window.Rtf_KeyPress(1);
  env.on_events = [this] { window.Close(); };
  window.Rtf_KeyPress(3);
  EXPECT_EQ(view.clipboard, (std::vector<std::string>{"abc"}));
  EXPECT_EQ(view.box.sel_length, 0);
  EXPECT_FALSE(window.Loaded());
  EXPECT_EQ(control.timer_stops, 1);
}

TEST_F(TextWindowTest, OnlyFileListsMayBeDroppedAndOnlyAsACopy) {
  EXPECT_EQ(window.Rtf_OLEDragOver(true, 7), 1);
  EXPECT_EQ(window.Rtf_OLEDragOver(true, 2), 0);
  EXPECT_EQ(window.Rtf_OLEDragOver(false, 1), 0);
}

TEST_F(TextWindowTest, DroppingTwoFilesOpensOnlyTheFirst) {
  window.Rtf_OLEDragDrop({"/logs/first.log", "/logs/second.log"});
  EXPECT_EQ(control.opened, (std::vector<std::string>{"/logs/first.log"}));
}

TEST_F(TextWindowTest, ADropWithNoNameOpensNothing) {
  window.Rtf_OLEDragDrop({});
  window.Rtf_OLEDragDrop({"", "/logs/second.log"});
  EXPECT_TRUE(control.opened.empty());
}

TEST_F(TextWindowTest, DroppingAShortcutOpensItsTargetOrTheShortcutItselfWhenTheTargetIsGone) {
  HelperLibrary library = HelperLibrary::BindFile(env, FERROW_HELPER_LIBRARY);
  ASSERT_TRUE(library.loaded());
  session.helper = &library;
  options.HelperLibraryInUse = true;
  const std::string target = dir.File("target.log"), link = dir.File("target.log.lnk");
  testing::WriteBytes(target, "x");
  ASSERT_NE(library.CreateShortcut(target, link, "", "", "", 1, -1).value_or(0), 0);
  window.Rtf_OLEDragDrop({link});
  env.RemoveFile(target);
  window.Rtf_OLEDragDrop({link});
  ASSERT_EQ(control.opened.size(), 2u);
  EXPECT_EQ(control.opened[0], target);
  EXPECT_EQ(control.opened[1], link);
}

TEST_F(TextWindowTest, ShortcutsAreNotFollowedWhileTheLibraryIsOutOfUse) {
  options.HelperLibraryInUse = false;
  window.Rtf_OLEDragDrop({"/x/a.LNK"});
  EXPECT_EQ(control.opened, (std::vector<std::string>{"/x/a.LNK"}));
}

TEST_F(TextWindowTest, CaptionFlashAndCloseReachTheWindow) {
  window.Form_Load();
  window.SetCaption("Ferrow - x (0 bytes) [0]");
  window.Flash();
  EXPECT_EQ(window.Caption(), "Ferrow - x (0 bytes) [0]");
  EXPECT_EQ(view.caption, "Ferrow - x (0 bytes) [0]");
  EXPECT_EQ(view.flashes, 1);
  window.Close();
  EXPECT_EQ(view.closes, 1);
  EXPECT_FALSE(view.shown);
}

TEST(TextWindowProc, APlainRightClickIsSwallowedButShiftOrCtrlRightClickPassesOn) {
  EXPECT_TRUE(TextWindowProcSwallows(kWmRButtonDown, kMkRButton));
  EXPECT_FALSE(TextWindowProcSwallows(kWmRButtonDown, kMkRButton | kMkShift));
  EXPECT_FALSE(TextWindowProcSwallows(kWmRButtonDown, kMkRButton | kMkControl));
  EXPECT_FALSE(TextWindowProcSwallows(kWmRButtonDown, kMkRButton | 1));
}

TEST(TextWindowProc, CutPasteClearAndUndoAreSwallowedAndAllElsePasses) {
  for (uint32_t message : {kWmCut, kWmPaste, kWmClear, kWmUndo})
    EXPECT_TRUE(TextWindowProcSwallows(message, 0));
  for (uint32_t message : {0x0001u, 0x000Cu, 0x0100u, 0x0201u, 0x0205u, 0x0301u})
    EXPECT_FALSE(TextWindowProcSwallows(message, kMkRButton));
}

}  // namespace
}  // namespace ferrow
