// The real ferrow.exe's settings dialog, input box and about window under
// Wine, driven from outside as a user would.
#include <gtest/gtest.h>

#include <string>

#include "about/about_text.h"
#include "display/themes.h"
#include "session/options.h"
#include "testing/temp_dir.h"
#include "win32/about_view.h"
#include "win32/exe_fixture.h"
#include "win32/input_box_view.h"
#include "win32/settings_view.h"
#include "win32/window_capture.h"

namespace ferrow::win32 {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

// What the screen shows at the text window's lower right, inside it.
COLORREF BackgroundOf(HWND window) {
  SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  RECT client{};
  GetClientRect(window, &client);
  POINT point{client.right - 40, client.bottom - 10};
  ClientToScreen(window, &point);
  HDC screen = GetDC(nullptr);
  const COLORREF colour = GetPixel(screen, point.x, point.y);
  ReleaseDC(nullptr, screen);
  return colour;
}

void Screenshot(HWND window, const char* name) {
  const char* folder = std::getenv("FERROW_SCREENSHOTS");
  if (!folder || !*folder) return;
  SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  Sleep(500);
  EXPECT_TRUE(SaveWindowBitmap(window, std::string(folder) + "\\" + name));
}

class FerrowDialogs : public FerrowExeTest {
 protected:
  FerrowDialogs() {
    WriteBytes(log, "one line\r\nan error line\r\nlast line\r\n");
  }
  void Click(HWND button) { PostMessageA(button, BM_CLICK, 0, 0); }
  // Paper is checked in the settings dialog, then Enter is pressed on
  // `button`; the theme the file's section holds once the program has closed.
  std::string ThemeAfterEnterOn(SettingsControl button) {
    if (!ferrow.Start("/F \"" + log + "\"") || !Ready()) return "not started";
    Click(Button(kIdOptions));
    HWND settings = ferrow.Window("FerrowSettings", "Settings");
    if (!settings) return "no settings dialog";
    const int paper_button = Win32SettingsDialog::ThemeId(2);
    Click(GetDlgItem(settings, paper_button));
    if (!WaitUntil([&] { return IsDlgButtonChecked(settings, paper_button) == BST_CHECKED; }))
      return "Paper not checked";
    PostMessageA(GetDlgItem(settings, Win32SettingsDialog::IdOf(button)), WM_KEYDOWN, VK_RETURN, 1);
    if (!WaitUntil([&] { return !IsWindowVisible(settings); }) || !Ready()) return "dialog still up";
    ferrow.Close();
    if (!ferrow.Ended()) return "still running";
    return IniValue("app.log", "ThemeNumber");
  }
  std::string Ini() { return ReadBytes(ferrow.IniPath()); }
  std::string IniValue(const std::string& section, const std::string& key) {
    char value[1024] = {};
    GetPrivateProfileStringA(section.c_str(), key.c_str(), "", value, sizeof(value), ferrow.IniPath().c_str());
    return value;
  }
};

TEST_F(FerrowDialogs, TheSettingsDialogAppliesATheme) {
  Options paper;
  FillThemeTables(paper.Themes);
  SetTheme(paper, paper.Themes, "Paper");
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  ASSERT_TRUE(TitleShows());
  ASSERT_TRUE(Ready());
  ASSERT_NE(BackgroundOf(ferrow.TextWindow()), static_cast<COLORREF>(paper.BackColour)) << "the test would prove nothing";
  Click(Button(kIdOptions));
  HWND settings = ferrow.Window("FerrowSettings", "Settings");
  ASSERT_TRUE(settings);
  EXPECT_FALSE(IsWindowEnabled(Button(kIdOptions))) << "the control window waits for the dialog";
  const int paper_button = Win32SettingsDialog::ThemeId(2);
  Click(GetDlgItem(settings, paper_button));
  ASSERT_TRUE(WaitUntil([&] { return IsDlgButtonChecked(settings, paper_button) == BST_CHECKED; }));
  Screenshot(settings, "settings-win32.bmp");
  Click(GetDlgItem(settings, Win32SettingsDialog::IdOf(SettingsControl::kOK)));
  ASSERT_TRUE(WaitUntil([&] { return !IsWindowVisible(settings); }));
  const auto paper_back = static_cast<COLORREF>(paper.BackColour);
  EXPECT_TRUE(WaitUntil([&] { return BackgroundOf(ferrow.TextWindow()) == paper_back; }))
      << std::hex << BackgroundOf(ferrow.TextWindow()) << " " << paper.BackColour;
  ASSERT_TRUE(Ready());
  ferrow.Close();
  ASSERT_TRUE(ferrow.Ended());
  EXPECT_EQ(IniValue("app.log", "ThemeNumber"), "2") << Ini();
}

TEST_F(FerrowDialogs, TheInputBoxSetsTheFilterWhileTheFileIsFollowed) {
  ASSERT_TRUE(ferrow.Start("/F /H=error \"" + log + "\""));
  ASSERT_TRUE(TitleShows());
  ASSERT_TRUE(Ready());
  Click(Button(kIdFilter));
  HWND box = ferrow.Window("FerrowInputBox", "Text Highlighting Filter");
  ASSERT_TRUE(box);
  HWND input = GetDlgItem(box, Win32InputBox::kIdInput);
  EXPECT_EQ(TextOf(input), "error");
  // Not modal: the poll goes on while it waits.
  WriteBytes(log, ReadBytes(log) + "more while asking\r\n");
  EXPECT_TRUE(TitleShows());
  SendMessageA(input, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("line"));
  Screenshot(box, "input-box-win32.bmp");
  Click(GetDlgItem(box, Win32InputBox::kIdOK));
  ASSERT_TRUE(WaitUntil([&] { return !IsWindowVisible(box); }));
  ASSERT_TRUE(Ready());
  ferrow.Close();
  ASSERT_TRUE(ferrow.Ended());
  EXPECT_EQ(IniValue("app.log", "FilterString"), "line") << Ini();
}

TEST_F(FerrowDialogs, TheAboutWindowShowsTheProgramAndOKGivesTheButtonsBack) {
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  ASSERT_TRUE(Ready());
  Click(Button(kIdAbout));
  HWND about = ferrow.Window("FerrowAbout");
  ASSERT_TRUE(about);
  EXPECT_EQ(UnixLineBreaks(TextOf(GetDlgItem(about, Win32AboutWindow::kIdTitle))), UnixLineBreaks(AboutTitle()));
  EXPECT_FALSE(TextOf(GetDlgItem(about, Win32AboutWindow::kIdInformation)).empty());
  EXPECT_FALSE(IsWindowEnabled(Button(kIdAbout)));
  Screenshot(about, "about-win32.bmp");
  Click(GetDlgItem(about, Win32AboutWindow::kIdOK));
  ASSERT_TRUE(WaitUntil([&] { return !IsWindowVisible(about); }));
  EXPECT_TRUE(Ready());
}

TEST_F(FerrowDialogs, EnterOnTheAboutWindowsOkClosesIt) {
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  ASSERT_TRUE(Ready());
  Click(Button(kIdAbout));
  HWND about = ferrow.Window("FerrowAbout");
  ASSERT_TRUE(about);
  HWND ok = GetDlgItem(about, Win32AboutWindow::kIdOK);
  PostMessageA(ok, WM_KEYDOWN, VK_RETURN, 1);
  EXPECT_TRUE(WaitUntil([&] { return !IsWindowVisible(about); }, 5000));
  EXPECT_TRUE(Ready()) << "the control window has its buttons back";
}

// Enter on the focused Close closes without applying: the checked theme is
// not taken, and the INI keeps the theme the file had.
TEST_F(FerrowDialogs, EnterOnTheSettingsCloseButtonClosesWithoutApplying) {
  EXPECT_EQ(ThemeAfterEnterOn(SettingsControl::kCancel), "1");
}

TEST_F(FerrowDialogs, EnterOnTheSettingsApplyButtonApplies) {
  EXPECT_EQ(ThemeAfterEnterOn(SettingsControl::kOK), "2");
}

// On the input box's focused buttons: Enter on OK takes the text, Enter on
// Cancel and Escape on OK drop it.
TEST_F(FerrowDialogs, EnterAndEscapeOnTheInputBoxButtonsPressThemAsInAnyDialog) {
  ASSERT_TRUE(ferrow.Start("/F /H=error \"" + log + "\""));
  ASSERT_TRUE(Ready());
  const struct { int button; WPARAM key; } presses[] = {
      {Win32InputBox::kIdCancel, VK_RETURN}, {Win32InputBox::kIdOK, VK_ESCAPE}, {Win32InputBox::kIdOK, VK_RETURN}};
  for (const auto& press : presses) {
    // Filter stays off until the wait for the last answer has ended, a
    // moment after its box has gone; the user clicks it once it is on.
    ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdFilter)) != FALSE; }));
    Click(Button(kIdFilter));
    HWND box = ferrow.Window("FerrowInputBox", "Text Highlighting Filter");
    ASSERT_TRUE(box);
    SendMessageA(GetDlgItem(box, Win32InputBox::kIdInput), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(press.button == Win32InputBox::kIdOK && press.key == VK_RETURN ? "taken" : "dropped"));
    PostMessageA(GetDlgItem(box, press.button), WM_KEYDOWN, press.key, 1);
    ASSERT_TRUE(WaitUntil([&] { return !IsWindowVisible(box); }, 5000)) << press.button << " " << press.key;
    ASSERT_TRUE(Ready());
  }
  // Closed once the last answer is taken (Filter is back), not while the
  // wait for it still ends.
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdFilter)) != FALSE; }));
  ferrow.Close();
  ASSERT_TRUE(ferrow.Ended());
  EXPECT_NE(Ini().find("FilterString=taken\r\n"), std::string::npos) << Ini();
}

// Filter comes back as the new filter's reload begins, and the reload lets
// events run: a click on it then is not lost, the box asks again once the
// reload is over, showing the filter just taken.
TEST_F(FerrowDialogs, AFilterClickWhileTheNewFilterReloadsTheFileAsksOnceTheReloadIsOver) {
  std::string text;
  for (int i = 0; i < 4000; ++i) text += "line " + std::to_string(i) + " of a log that takes a while to load\r\n";
  WriteBytes(log, text);
  ASSERT_TRUE(ferrow.Start("/F /H=error \"" + log + "\""));
  ASSERT_TRUE(Ready());
  Click(Button(kIdFilter));
  HWND box = ferrow.Window("FerrowInputBox", "Text Highlighting Filter");
  ASSERT_TRUE(box);
  SendMessageA(GetDlgItem(box, Win32InputBox::kIdInput), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("taken"));
  PostMessageA(GetDlgItem(box, Win32InputBox::kIdOK), WM_KEYDOWN, VK_RETURN, 1);
  ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(Button(kIdFilter)) != FALSE; }, 5000));
  Click(Button(kIdFilter));
  box = ferrow.Window("FerrowInputBox", "Text Highlighting Filter");
  ASSERT_TRUE(box) << "the click was lost";
  EXPECT_EQ(TextOf(GetDlgItem(box, Win32InputBox::kIdInput)), "taken");
  PostMessageA(GetDlgItem(box, Win32InputBox::kIdCancel), BM_CLICK, 0, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindowVisible(box); }, 5000));
  ASSERT_TRUE(Ready());
  ferrow.Close();
  ASSERT_TRUE(ferrow.Ended());
}

// The sound's dialog opens in the sound's folder with its name filled in,
// owned by the settings dialog, which waits for it.
TEST_F(FerrowDialogs, TheSoundBrowseDialogStartsAtTheSoundAndIsOwnedByTheSettingsDialog) {
  const std::string sounds = ferrow.dir().File("sounds");
  CreateDirectoryA(sounds.c_str(), nullptr);
  const std::string ding = sounds + "\\ding.wav";
  CopyFileA(ferrow.dir().File("Updated.wav").c_str(), ding.c_str(), FALSE);
  WriteBytes(ferrow.IniPath(), "[app.log]\r\nMenuX=100\r\nUpdateSound=" + ding + "\r\n");
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  ASSERT_TRUE(Ready());
  Click(Button(kIdOptions));
  HWND settings = ferrow.Window("FerrowSettings", "Settings");
  ASSERT_TRUE(settings);
  ASSERT_EQ(TextOf(GetDlgItem(settings, Win32SettingsDialog::kIdSoundLabel)), ding);
  Click(GetDlgItem(settings, Win32SettingsDialog::IdOf(SettingsControl::kBrowseWav)));
  HWND dialog = ferrow.Window("#32770", "Select Update Sound");
  ASSERT_TRUE(dialog);
  EXPECT_EQ(GetWindow(dialog, GW_OWNER), settings);
  EXPECT_FALSE(IsWindowEnabled(settings)) << "the settings dialog stays usable behind it";
  // The explorer-style dialog's name box (cmb13 or edt1) and its folder list (cmb2).
  HWND name = GetDlgItem(dialog, 0x47c);
  if (!name) name = GetDlgItem(dialog, 0x480);
  EXPECT_EQ(TextOf(name), "ding.wav");
  EXPECT_EQ(TextOf(GetDlgItem(dialog, 0x471)), "sounds");
  PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindow(dialog) || !IsWindowVisible(dialog); }));
  EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(settings) != FALSE; }));
  Click(GetDlgItem(settings, Win32SettingsDialog::IdOf(SettingsControl::kCancel)));
}

}  // namespace
}  // namespace ferrow::win32
