// The control window as a real Win32 window: its controls' events reach the
// logic, and what the logic asks reaches the controls.
#include "win32/control_window_view.h"

#include <gtest/gtest.h>
#include <commctrl.h>
#include <shlobj.h>

#include <string>
#include <vector>

#include "config/history.h"
#include "control/fake_services.h"
#include "display/themes.h"
#include "startup/command_line.h"
#include "testing/session_fixture.h"
#include "win32/control_ids.h"
#include "win32/about_view.h"
#include "win32/event_passes.h"
#include "win32/input_box_view.h"
#include "win32/message_loop.h"
#include "win32/settings_view.h"

namespace ferrow::win32 {
namespace {

using ferrow::testing::FakeServices;

// A drop of `name` as the shell hands it over: a DROPFILES block.
HGLOBAL DropOf(const std::string& name) {
  HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + name.size() + 2);
  auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  memcpy(reinterpret_cast<char*>(drop) + sizeof(DROPFILES), name.c_str(), name.size());
  GlobalUnlock(memory);
  return memory;
}

class Win32ControlWindowTest : public ferrow::testing::SessionTest {
 protected:
  Win32ControlWindowTest() {
    SetDefaultOptions(options);
    FillThemeTables(options.Themes);
    InstallEventsHook(env, session.gate);
    window = std::make_unique<Win32ControlWindow>(session, services);
    window->Logic().on_unloaded = [this] { ++unloads; };
  }
  ~Win32ControlWindowTest() override {
    if (!window->Logic().Unloaded()) window->Logic().Form_Unload();
    for (int i = 0; i < 20; ++i) {
      PumpMessages();
      Sleep(10);
    }
    window.reset();
  }
  HWND Handle(Control control) { return window->ControlHandle(control); }
  HWND Edit() { return FindWindowExA(Handle(Control::cmbFileName), nullptr, "Edit", nullptr); }
  std::string FileLog() {
    const std::string path = dir.File("app.log");
    testing::WriteBytes(path, "one\r\ntwo\r\n");
    return path;
  }

  FakeServices services;
  std::unique_ptr<Win32ControlWindow> window;
  int unloads = 0;
};

std::vector<UINT> MenuIds(HMENU menu) {
  std::vector<UINT> ids;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) ids.push_back(GetMenuItemID(menu, i));
  return ids;
}

// By what they are, whatever else the window system puts in the menu: Size
// and Maximize go, and the separator before Close; Close stays, so the
// title bar's close box, Alt+F4 and the window manager can close it.
TEST_F(Win32ControlWindowTest, TheSystemMenuLosesSizeMaximizeAndTheSeparatorButKeepsClose) {
  HMENU menu = GetSystemMenu(window->Handle(), FALSE);
  std::vector<UINT> want;
  const std::vector<UINT> before = MenuIds(menu);
  for (size_t i = 0; i < before.size(); ++i) {
    const bool separator_before_close = before[i] == 0 && i + 1 < before.size() && before[i + 1] == SC_CLOSE;
    if (before[i] != SC_SIZE && before[i] != SC_MAXIMIZE && !separator_before_close) want.push_back(before[i]);
  }
  ASSERT_NE(GetMenuState(menu, SC_CLOSE, MF_BYCOMMAND), static_cast<UINT>(-1));
  window->Logic().Form_Load();
  EXPECT_EQ(MenuIds(menu), want);
  EXPECT_EQ(GetMenuState(menu, SC_SIZE, MF_BYCOMMAND), static_cast<UINT>(-1));
  EXPECT_EQ(GetMenuState(menu, SC_MAXIMIZE, MF_BYCOMMAND), static_cast<UINT>(-1));
  EXPECT_EQ(GetMenuState(menu, SC_CLOSE, MF_BYCOMMAND) & (MF_GRAYED | MF_DISABLED), 0u);
}

TEST_F(Win32ControlWindowTest, AltF4UnloadsTheControlWindow) {
  window->Logic().Form_Load();
  // As the keyboard delivers it: WM_SYSKEYDOWN with the Alt bit.
  PostMessageA(window->Handle(), WM_SYSKEYDOWN, VK_F4, 1 | (1 << 29));
  for (int i = 0; i < 20 && !window->Logic().Unloaded(); ++i) {
    PumpMessages();
    Sleep(10);
  }
  EXPECT_TRUE(window->Logic().Unloaded());
  EXPECT_EQ(unloads, 1);
}

// The control window's messages go through the dialog navigation, as in the
// program's loop; a letter there must not reach a button's mnemonic.
TEST_F(Win32ControlWindowTest, APlainLetterOnAFocusedButtonPressesNoButton) {
  window->Logic().Form_Load();
  window->Logic().EnableAllButtons();
  for (Control focused : {Control::cmdOptions, Control::cmdAbout, Control::chkFileStart}) {
    SetFocus(Handle(focused));
    for (WPARAM letter : {'c', 'o', 's', 'a', 'f', 'b', 'C'}) {
      MSG message{Handle(focused), WM_CHAR, letter, 1, 0, {}};
      DispatchOne(message);
      PumpMessages();
    }
  }
  EXPECT_FALSE(window->Logic().Unloaded()) << "'c' pressed Close";
  EXPECT_FALSE(FindWindowA("FerrowSettings", nullptr)) << "'s' pressed Settings";
  EXPECT_FALSE(FindWindowA("FerrowAbout", nullptr)) << "'a' pressed About";
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_TRUE(IsWindowEnabled(Handle(Control::cmdOptions)));
}

TEST_F(Win32ControlWindowTest, AClickOnAGrayedBoxTurnsItOnAndTheNextOff) {
  window->Logic().Form_Load();
  window->Logic().EnableCheckBoxes();
  ASSERT_EQ(window->Value(Control::chkFileStart), 2);
  options.BringFromStartOfFile = false;
  SendMessageA(Handle(Control::chkFileStart), BM_CLICK, 0, 0);
  EXPECT_EQ(window->Value(Control::chkFileStart), 1);
  EXPECT_TRUE(options.BringFromStartOfFile);
  SendMessageA(Handle(Control::chkFileStart), BM_CLICK, 0, 0);
  EXPECT_EQ(window->Value(Control::chkFileStart), 0);
  EXPECT_FALSE(options.BringFromStartOfFile);
}

TEST_F(Win32ControlWindowTest, F1OnAButtonShowsTheUsageAndEnterInTheBoxOpensTheFile) {
  window->Logic().Form_Load();
  SendMessageA(Handle(Control::cmdAbout), WM_KEYDOWN, VK_F1, 0);
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].rfind("Ferrow|Ferrow v", 0), 0u) << ui.messages[0];
  window->SetText(Control::cmbFileName, FileLog());
  SendMessageA(Edit(), WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_TRUE(window->Logic().FileOpened);
  EXPECT_TRUE(window->TimerEnabled());
  EXPECT_TRUE(FindWindowA(kTextWindowClass, nullptr));
}

TEST_F(Win32ControlWindowTest, TypingEnablesOpenAndGraysTheBoxes) {
  window->Logic().Form_Load();
  window->Logic().UpdateCheckboxes();
  ASSERT_FALSE(IsWindowEnabled(Handle(Control::cmdOK)));
  SetFocus(Edit());
  SendMessageA(Edit(), WM_CHAR, 'x', 0);
  EXPECT_EQ(window->Text(Control::cmbFileName), "x");
  EXPECT_TRUE(IsWindowEnabled(Handle(Control::cmdOK)));
  EXPECT_EQ(window->Value(Control::chkPlaySound), 2);
}

TEST_F(Win32ControlWindowTest, PickingFromTheHistoryShowsThePickAndGraysTheBoxes) {
  options.HistoryList[0] = "C:\\logs\\a.log";
  options.HistoryList[1] = "C:\\logs\\b.log";
  options.HistoryTotal = 2;
  window->Logic().Form_Load();
  window->Logic().UpdateCheckboxes();
  ASSERT_EQ(window->List().size(), 2u);
  HWND box = Handle(Control::cmbFileName);
  SendMessageA(box, CB_SETCURSEL, 1, 0);
  SendMessageA(window->Handle(), WM_COMMAND, MAKEWPARAM(kIdFileName, CBN_SELENDOK), reinterpret_cast<LPARAM>(box));
  EXPECT_EQ(window->Text(Control::cmbFileName), "C:\\logs\\b.log");
  EXPECT_TRUE(IsWindowEnabled(Handle(Control::cmdOK)));
  EXPECT_EQ(window->Value(Control::chkFileStart), 2);
}

TEST_F(Win32ControlWindowTest, AFileDroppedOnTheBoxOrTheWindowGoesIntoTheBox) {
  window->Logic().Form_Load();
  SendMessageA(Handle(Control::cmbFileName), WM_DROPFILES, reinterpret_cast<WPARAM>(DropOf("C:\\x\\box.log")), 0);
  EXPECT_EQ(window->Text(Control::cmbFileName), "C:\\x\\box.log");
  SendMessageA(window->Handle(), WM_DROPFILES, reinterpret_cast<WPARAM>(DropOf("C:\\x\\form.log")), 0);
  EXPECT_EQ(window->Text(Control::cmbFileName), "C:\\x\\form.log");
  EXPECT_FALSE(window->Logic().FileOpened) << "a drop only names the file";
}

TEST_F(Win32ControlWindowTest, TheFilterToolTipAndThePausePictureFollowTheLogic) {
  options.FilterString = "error warn";
  window->Logic().Form_Load();
  char text[256] = {};
  TOOLINFOA tool{};
  tool.cbSize = sizeof(tool);
  tool.hwnd = window->Handle();
  tool.uId = reinterpret_cast<UINT_PTR>(Handle(Control::cmdFilter));
  tool.lpszText = text;
  HWND tips = FindWindowExA(nullptr, nullptr, TOOLTIPS_CLASSA, nullptr);
  for (; tips; tips = FindWindowExA(nullptr, tips, TOOLTIPS_CLASSA, nullptr))
    if (GetWindow(tips, GW_OWNER) == window->Handle()) break;
  ASSERT_TRUE(tips);
  SendMessageA(tips, TTM_GETTEXTA, sizeof(text), reinterpret_cast<LPARAM>(&tool));
  EXPECT_STREQ(text, "Filtering on \"error warn\"");
  window->SetPausePicture(true);
  const LRESULT following = SendMessageA(Handle(Control::cmdPause), BM_GETIMAGE, IMAGE_ICON, 0);
  window->SetPausePicture(false);
  const LRESULT paused = SendMessageA(Handle(Control::cmdPause), BM_GETIMAGE, IMAGE_ICON, 0);
  EXPECT_NE(following, 0);
  EXPECT_NE(paused, 0);
  EXPECT_NE(following, paused);
}

TEST_F(Win32ControlWindowTest, TheCloseBoxUnloadsOnceAndHidesTheWindow) {
  window->Logic().Form_Load();
  SendMessageA(window->Handle(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(window->Logic().Unloaded());
  EXPECT_FALSE(IsWindowVisible(window->Handle()));
  SendMessageA(window->Handle(), WM_CLOSE, 0, 0);
  EXPECT_EQ(unloads, 1);
}

TEST_F(Win32ControlWindowTest, Timer1IsAWindowTimerThatPolls) {
  const std::string log = FileLog();
  options.BringFromStartOfFile = true;
  window->Logic().Form_Load();
  window->SetText(Control::cmbFileName, log);
  window->Logic().OK_Click();
  ASSERT_TRUE(window->Logic().FileOpened) << (ui.messages.empty() ? "" : ui.messages[0]);
  window->SetTimerInterval(20);
  ASSERT_TRUE(window->TimerEnabled());
  testing::WriteBytes(log, "one\r\ntwo\r\nthree\r\n");
  for (int i = 0; i < 50 && options.LastFileSize != 17; ++i) {
    PumpMessages();
    Sleep(20);
  }
  EXPECT_EQ(options.LastFileSize, 17);
}

// Arrowed down to a history entry with the list open, ENTER picks it as a
// click does (the check boxes go grayed) and then opens it: the file's own
// settings win over the boxes the previous file left.
TEST_F(Win32ControlWindowTest, EnterWithTheListDroppedDownPicksTheHighlightedEntryBeforeOpening) {
  const std::string first = FileLog();
  const std::string picked = dir.File("picked.log");
  testing::WriteBytes(picked, "picked\r\n");
  WriteIni("[Common]\r\nHistoryCount=2\r\nHistory1=" + first + "\r\nHistory2=" + picked +
           "\r\n[picked.log]\r\nMenuX=10\r\nPlaySoundOnUpdate=False\r\n");
  LoadHistoryAtStartup(session);
  window->Logic().Form_Load();
  window->SetText(Control::cmbFileName, first);
  window->Logic().OK_Click();
  ASSERT_TRUE(window->Logic().FileOpened);
  SendMessageA(Handle(Control::chkPlaySound), BM_CLICK, 0, 0);  // left on for the first file
  ASSERT_EQ(window->Value(Control::chkPlaySound), 1);
  HWND box = Handle(Control::cmbFileName);
  SetFocus(Edit());
  SendMessageA(box, CB_SHOWDROPDOWN, TRUE, 0);
  SendMessageA(box, CB_SETCURSEL, 1, 0);
  ASSERT_EQ(window->HighlightedListIndex(), 1);
  SendMessageA(Edit(), WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_EQ(options.FileName, picked);
  EXPECT_FALSE(options.PlaySoundOnUpdate) << "the previous file's box won over the file's own setting";
  EXPECT_EQ(window->Value(Control::chkPlaySound), 0);
  EXPECT_FALSE(SendMessageA(box, CB_GETDROPPEDSTATE, 0, 0));
}

// The whole information text fits its label, and the label, the link and OK
// fit the window, however long the usage text is.
TEST_F(Win32ControlWindowTest, TheAboutWindowShowsItsWholeInformationText) {
  options.UsageText = BuildUsageText(options.MaxInputLength / 1024);  // as start-up gives it
  window->Logic().Form_Load();
  window->OpenAbout(window->Logic());
  HWND about = FindWindowA("FerrowAbout", nullptr);
  ASSERT_TRUE(about);
  HWND label = GetDlgItem(about, Win32AboutWindow::kIdInformation);
  char text[8192] = {};
  GetWindowTextA(label, text, sizeof(text));
  ASSERT_NE(std::string(text).find("/NICE"), std::string::npos) << text;
  ASSERT_NE(std::string(text).find("/H"), std::string::npos) << text;
  RECT shown{};
  GetClientRect(label, &shown);
  RECT needed{0, 0, shown.right, 0};
  HDC dc = GetDC(label);
  SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(label, WM_GETFONT, 0, 0)));
  DrawTextA(dc, text, -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
  ReleaseDC(label, dc);
  EXPECT_LE(needed.bottom, shown.bottom) << "the text after some line is cut off";
  const auto place = [about](int id) {
    RECT r{};
    GetWindowRect(GetDlgItem(about, id), &r);
    MapWindowPoints(nullptr, about, reinterpret_cast<POINT*>(&r), 2);
    return r;
  };
  RECT client{};
  GetClientRect(about, &client);
  EXPECT_LE(place(Win32AboutWindow::kIdInformation).bottom, place(Win32AboutWindow::kIdOK).top);
  EXPECT_LE(place(Win32AboutWindow::kIdInformation).bottom, place(Win32AboutWindow::kIdWebsite).top);
  EXPECT_LE(place(Win32AboutWindow::kIdOK).bottom, client.bottom);
  SendMessageA(about, WM_CLOSE, 0, 0);
}

// Left for another window and activated again, the settings dialog gives the
// keyboard back to the control that had it: Escape there closes it at once.
TEST_F(Win32ControlWindowTest, TheSettingsDialogGivesTheKeyboardBackWhenActivatedAgain) {
  window->Logic().Form_Load();
  window->OpenSettings(window->Logic());
  HWND settings = FindWindowA("FerrowSettings", nullptr);
  ASSERT_TRUE(settings);
  HWND quick = GetDlgItem(settings, Win32SettingsDialog::IdOf(SettingsControl::kQuickScroll));
  SetFocus(quick);
  ASSERT_EQ(GetFocus(), quick);
  SetActiveWindow(window->Handle());
  PumpMessages();
  ASSERT_NE(GetFocus(), quick);
  SetActiveWindow(settings);
  PumpMessages();
  EXPECT_EQ(GetFocus(), quick);
  SendMessageA(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
  EXPECT_FALSE(IsWindowVisible(settings));
}

// Letters in the settings dialog press none of its buttons either ("&Apply",
// "&Close"), wherever the keyboard is.
TEST_F(Win32ControlWindowTest, APlainLetterInTheSettingsDialogPressesNoButton) {
  window->Logic().Form_Load();
  window->OpenSettings(window->Logic());
  HWND settings = FindWindowA("FerrowSettings", nullptr);
  ASSERT_TRUE(settings);
  for (SettingsControl focused : {SettingsControl::kQuickScroll, SettingsControl::kRevertWav, SettingsControl::kOK}) {
    HWND control = GetDlgItem(settings, Win32SettingsDialog::IdOf(focused));
    SetFocus(control);
    for (WPARAM letter : {'c', 'a', 'C', 'A'}) {
      MSG message{control, WM_CHAR, letter, 1, 0, {}};
      DispatchOne(message);
      PumpMessages();
    }
  }
  EXPECT_TRUE(IsWindowVisible(settings));
  EXPECT_EQ(Ini().find("ThemeNumber"), std::string::npos) << "nothing was saved: " << Ini();
  SendMessageA(settings, WM_CLOSE, 0, 0);
}

// The input box too: back from another window, its focused button has the
// keyboard again, and Escape there cancels at once.
TEST_F(Win32ControlWindowTest, TheInputBoxGivesTheKeyboardBackWhenActivatedAgain) {
  window->Logic().Form_Load();
  InputBoxSlot slot([this](const std::shared_ptr<InputBox>& box) -> InputView& {
    return (new Win32InputBox(session.gate, box))->View();
  });
  const std::shared_ptr<InputBox> box = slot.Load();
  box->View()->Show();
  HWND input = FindWindowA("FerrowInputBox", nullptr);
  ASSERT_TRUE(input);
  HWND ok = GetDlgItem(input, Win32InputBox::kIdOK);
  SetFocus(ok);
  SetActiveWindow(window->Handle());
  PumpMessages();
  ASSERT_NE(GetFocus(), ok);
  SetActiveWindow(input);
  PumpMessages();
  EXPECT_EQ(GetFocus(), ok);
  SendMessageA(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
  EXPECT_TRUE(box->InputDone);
  EXPECT_FALSE(box->Loaded());
}

}  // namespace
}  // namespace ferrow::win32
