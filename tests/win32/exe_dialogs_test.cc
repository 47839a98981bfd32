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

}  // namespace
}  // namespace ferrow::win32
