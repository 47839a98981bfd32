// The control window as a real Win32 window: its controls' events reach the
// logic, and what the logic asks reaches the controls.
#include "win32/control_window_view.h"

#include <gtest/gtest.h>
#include <commctrl.h>
#include <shlobj.h>

#include <string>
#include <vector>

#include "control/fake_services.h"
#include "display/themes.h"
#include "testing/session_fixture.h"
#include "win32/control_ids.h"
#include "win32/event_passes.h"

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

// By position, whatever the menu holds: with n entries, n-2, then n-5,
// then n-4 of the menu as it then stands. The standard seven lose the
// separator, Size and Maximize.
TEST_F(Win32ControlWindowTest, TheSystemMenuIsTrimmedByPosition) {
  HMENU menu = GetSystemMenu(window->Handle(), FALSE);
  std::vector<UINT> want = MenuIds(menu);
  const int n = static_cast<int>(want.size());
  ASSERT_GE(n, 7);
  for (int position : {n - 2, n - 5, n - 4}) want.erase(want.begin() + position);
  window->Logic().Form_Load();
  EXPECT_EQ(MenuIds(menu), want);
  if (n == 7) {
    EXPECT_EQ(GetMenuState(menu, SC_SIZE, MF_BYCOMMAND), static_cast<UINT>(-1));
    EXPECT_EQ(GetMenuState(menu, SC_MAXIMIZE, MF_BYCOMMAND), static_cast<UINT>(-1));
  }
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

}  // namespace
}  // namespace ferrow::win32
