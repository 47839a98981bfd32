// The open-file dialogs of the real ferrow.exe under Wine, driven as the
// random-action test drove them each time it ended the program: each case
// here once crashed it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/temp_dir.h"
#include "win32/control_ids.h"
#include "win32/exe_fixture.h"
#include "win32/exe_monkey_tools.h"
#include "win32/settings_view.h"

namespace ferrow::win32 {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

// One click on `button`, once it is enabled, and the window it opens. A
// click that lands while an open still ends is kept and acted on once the
// open is over: one click is enough.
HWND ClickAndWaitFor(FerrowProcess& ferrow, HWND button, const char* window_class, const char* title) {
  if (!WaitUntil([&] { return IsWindowEnabled(button) != FALSE; })) return nullptr;
  PostMessageA(button, BM_CLICK, 0, 0);
  return ferrow.Window(window_class, title);
}

// ferrow.exe following `log`, its settings dialog up, then the log's
// open-file dialog over it.
struct DialogsUp {
  HWND control = nullptr, settings = nullptr, browse = nullptr;
};
DialogsUp SettingsThenBrowse(FerrowProcess& ferrow, const std::string& log) {
  DialogsUp up;
  if (!ferrow.Start("/F \"" + log + "\"") || !(up.control = ferrow.ControlWindow())) return up;
  up.settings = ClickAndWaitFor(ferrow, GetDlgItem(up.control, kIdOptions), "FerrowSettings", "Settings");
  if (!up.settings) return up;
  // The settings dialog has taken the buttons; a click that reaches Browse
  // all the same (as the random run's did) opens its dialog.
  PostMessageA(GetDlgItem(up.control, kIdBrowse), BM_CLICK, 0, 0);
  up.browse = ferrow.Window("#32770", "Select Log File");
  return up;
}

// What a random run did before it ended the program with a call through
// freed memory in the dialog library: Browse, and Browse again from the
// settings dialog, while the first open-file dialog ran its message loop.
// Now only one open-file dialog is ever up; the second request brings it forward.
TEST(ExeDialogCrash, ASecondOpenFileDialogNeverStacksOnTheFirst) {
  FerrowProcess ferrow;
  const std::string log = ferrow.dir().File("app.log");
  WriteBytes(log, "one\r\ntwo\r\n");
  Writer writer({log}, 7);
  const DialogsUp up = SettingsThenBrowse(ferrow, log);
  HWND control = up.control, settings = up.settings, first = up.browse;
  ASSERT_TRUE(first);
  HWND sound_browse = GetDlgItem(settings, Win32SettingsDialog::IdOf(SettingsControl::kBrowseWav));
  for (int i = 0; i < 3; ++i) {
    PostMessageA(sound_browse, BM_CLICK, 0, 0);
    PostMessageA(GetDlgItem(control, kIdBrowse), BM_CLICK, 0, 0);
  }
  EXPECT_FALSE(ferrow.Window("#32770", "Select Update Sound", 1500)) << "a second dialog stacked on the first";
  PostMessageA(settings, WM_CLOSE, 0, 0);
  PostMessageA(first, WM_CLOSE, 0, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(first); }));
  HWND text = ferrow.TextWindow();
  if (text) {
    HWND box = FindWindowExA(text, nullptr, nullptr, nullptr);
    PostMessageA(text, WM_CLOSE, 0, 0);
    PostMessageA(text, WM_CLOSE, 0, 0);
    PostMessageA(box, WM_CHAR, 13, 0);
    PostMessageA(box, WM_CHAR, 22, 0);
  }
  ASSERT_TRUE(Answers(ferrow));
  ASSERT_TRUE(CloseAll(ferrow));
  EXPECT_EQ(ferrow.ExitCode(), 0u) << std::hex << ferrow.ExitCode();
  EXPECT_TRUE(ReadsBackWhole(ReadBytes(ferrow.IniPath())));
}

// What another run did before it ended the program inside the dialog
// library: with the open-file dialog up, a message box of the program's own
// (the settings' "History Cleared") runs its loop above the dialog's, and
// Cancel and a close queued for the dialog run in it: the dialog was ended
// twice over. An ended dialog takes no further close or OK.
TEST(ExeDialogCrash, AnEndedOpenFileDialogTakesNoSecondClose) {
  FerrowProcess ferrow;
  const std::string log = ferrow.dir().File("app.log");
  WriteBytes(log, "one\r\ntwo\r\n");
  const DialogsUp up = SettingsThenBrowse(ferrow, log);
  HWND settings = up.settings, dialog = up.browse;
  ASSERT_TRUE(dialog);
  PostMessageA(GetDlgItem(settings, Win32SettingsDialog::IdOf(SettingsControl::kClearHistory)), BM_CLICK, 0, 0);
  HWND box = ferrow.Window("#32770", "Information");
  ASSERT_TRUE(box);
  for (int i = 0; i < 3; ++i) {
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    PostMessageA(dialog, WM_CLOSE, 0, 0);
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
  }
  Sleep(500);
  PostMessageA(box, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(dialog) || ferrow.Ended(0); }));
  ASSERT_TRUE(Answers(ferrow));
  ASSERT_TRUE(CloseAll(ferrow));
  EXPECT_EQ(ferrow.ExitCode(), 0u) << std::hex << ferrow.ExitCode();
}

// What a random run did before it ended the program inside the dialog
// library: a missing name typed in the open-file dialog and OK (the dialog
// shows its own "not found" box), the dialog closed by WM_CLOSE meanwhile,
// then the box answered. The dialog waiting on its box now takes no close.
TEST(ExeDialogCrash, TheOpenFileDialogTakesNoCloseWhileItsOwnBoxWaits) {
  FerrowProcess ferrow;
  const std::string log = ferrow.dir().File("app.log");
  WriteBytes(log, "one\r\ntwo\r\n");
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  HWND control = ferrow.ControlWindow();
  ASSERT_TRUE(control);
  HWND dialog = ClickAndWaitFor(ferrow, GetDlgItem(control, kIdBrowse), "#32770", "Select Log File");
  ASSERT_TRUE(dialog);
  const std::vector<HWND> children = ChildrenOf(dialog);
  HWND field = nullptr;
  for (HWND child : children)
    if (ClassOf(child) == "Edit" && IsWindowVisible(child)) field = child;
  ASSERT_TRUE(field);
  const std::string missing = ferrow.dir().File("missing.log");
  SendMessageA(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(missing.c_str()));
  PostMessageA(dialog, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindowEnabled(dialog); })) << "the dialog's own box shows";
  PostMessageA(dialog, WM_CLOSE, 0, 0);
  PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  Sleep(300);
  for (HWND box : ShownWindows(ferrow))
    if (box != dialog && ClassOf(box) == "#32770") PostMessageA(box, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(dialog) != FALSE; }));
  EXPECT_TRUE(IsWindowVisible(dialog)) << "the close waited on the box was dropped";
  PostMessageA(dialog, WM_CLOSE, 0, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(dialog); }));
  ASSERT_TRUE(Answers(ferrow));
  ASSERT_TRUE(CloseAll(ferrow));
  EXPECT_EQ(ferrow.ExitCode(), 0u) << std::hex << ferrow.ExitCode();
}

}  // namespace
}  // namespace ferrow::win32
