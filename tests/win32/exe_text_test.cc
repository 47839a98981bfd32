// The real ferrow.exe's text window under Wine: what it shows after a load
// and appends, a NUL in the file, a theme applied, a sound that cannot play.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "display/themes.h"
#include "session/options.h"
#include "testing/temp_dir.h"
#include "win32/exe_fixture.h"
#include "win32/settings_view.h"
#include "win32/wide_text.h"

namespace ferrow::win32 {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

void Append(const std::string& path, const std::string& bytes) {
  WriteBytes(path, ReadBytes(path) + bytes);
}

// The box's whole text in UTF-16, as long as the control says (a NUL does
// not end it), with "\n" at each break.
std::string ShownText(HWND box) {
  const LRESULT length = SendMessageW(box, WM_GETTEXTLENGTH, 0, 0);
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  const LRESULT got =
      SendMessageW(box, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(got > 0 ? static_cast<size_t>(got) : 0);
  const std::string utf8 = FromWide(text);
  std::string out;
  for (size_t i = 0; i < utf8.size(); ++i) {
    if (utf8[i] != '\r')
      out += utf8[i];
    else if (i + 1 >= utf8.size() || utf8[i + 1] != '\n')
      out += '\n';
  }
  return out;
}

struct Boxes {
  DWORD process;
  std::vector<HWND> found;
};

BOOL CALLBACK CollectMessageBox(HWND hwnd, LPARAM lparam) {
  auto* boxes = reinterpret_cast<Boxes*>(lparam);
  DWORD process = 0;
  GetWindowThreadProcessId(hwnd, &process);
  char name[64] = {};
  GetClassNameA(hwnd, name, sizeof(name));
  if (process == boxes->process && IsWindowVisible(hwnd) && lstrcmpA(name, "#32770") == 0)
    boxes->found.push_back(hwnd);
  return TRUE;
}

// What the screen shows inside the window near its lower right corner.
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

class FerrowExeText : public FerrowExeTest {
 protected:
  std::vector<HWND> MessageBoxes() {
    Boxes boxes{GetProcessId(ferrow.Process()), {}};
    EnumWindows(&CollectMessageBox, reinterpret_cast<LPARAM>(&boxes));
    return boxes.found;
  }
};

TEST_F(FerrowExeText, AfterALoadEveryAppendedLineIsALineOfItsOwn) {
  WriteBytes(log, "one\r\ntwo\r\nthree\r\n");
  ASSERT_TRUE(ferrow.Start("/F \"" + log + "\""));
  ASSERT_TRUE(TitleShows());
  EXPECT_EQ(ShownText(ferrow.TextBox()), "one\ntwo\nthree\n");
  EXPECT_EQ(TitleLines(), 3);
  Append(log, "four\r\n");
  ASSERT_TRUE(TitleShows());
  Append(log, "five\r\nsix\r\n");
  ASSERT_TRUE(TitleShows());
  EXPECT_EQ(ShownText(ferrow.TextBox()), "one\ntwo\nthree\nfour\nfive\nsix\n");
  EXPECT_EQ(TitleLines(), 6);
}

TEST_F(FerrowExeText, TextAfterANulByteIsShown) {
  WriteBytes(log, "start\r\n");
  ASSERT_TRUE(ferrow.Start("/-F \"" + log + "\""));
  ASSERT_TRUE(Ready());
  Append(log, std::string("ab\0cd\r\nef\r\n", 11));
  ASSERT_TRUE(TitleShows());
  EXPECT_EQ(ShownText(ferrow.TextBox()), std::string("ab\0cd\nef\n", 9));
}

TEST_F(FerrowExeText, ApplyingAThemeShowsItsBackgroundAtOnceWithoutBringFromStart) {
  Options paper;
  FillThemeTables(paper.Themes);
  SetTheme(paper, paper.Themes, "Paper");
  WriteBytes(log, "one line\r\n");
  ASSERT_TRUE(ferrow.Start("/-F \"" + log + "\""));
  ASSERT_TRUE(Ready());
  const auto paper_back = static_cast<COLORREF>(paper.BackColour);
  ASSERT_NE(BackgroundOf(ferrow.TextWindow()), paper_back) << "the test would prove nothing";
  PostMessageA(Button(kIdOptions), BM_CLICK, 0, 0);
  HWND settings = ferrow.Window("FerrowSettings", "Settings");
  ASSERT_TRUE(settings);
  const int paper_button = Win32SettingsDialog::ThemeId(2);
  PostMessageA(GetDlgItem(settings, paper_button), BM_CLICK, 0, 0);
  ASSERT_TRUE(WaitUntil([&] { return IsDlgButtonChecked(settings, paper_button) == BST_CHECKED; }));
  PostMessageA(GetDlgItem(settings, Win32SettingsDialog::IdOf(SettingsControl::kOK)), BM_CLICK, 0,
               0);
  ASSERT_TRUE(WaitUntil([&] { return !IsWindowVisible(settings); }));
  ASSERT_TRUE(Ready());
  EXPECT_TRUE(WaitUntil([&] { return BackgroundOf(ferrow.TextWindow()) == paper_back; }, 3000))
      << std::hex << BackgroundOf(ferrow.TextWindow()) << " " << paper.BackColour;
}

// The box lets ticks run while it is up: more lines arrive meanwhile, and
// still one box shows and every line shows once.
TEST_F(FerrowExeText, ASoundThatCannotPlayIsReportedOnceAndNoLineShowsTwice) {
  WriteBytes(log, "start\r\n");
  ASSERT_TRUE(DeleteFileA(ferrow.dir().File("Updated.wav").c_str()));  // the sound it plays
  ASSERT_TRUE(ferrow.Start("/-F /S \"" + log + "\""));
  ASSERT_TRUE(Ready());
  Append(log, "one\r\n");
  HWND box = ferrow.Window("#32770", "");
  ASSERT_TRUE(box);
  EXPECT_NE(ferrow.MessageText(box).find("Problem encountered playing "), std::string::npos)
      << ferrow.MessageText(box);
  Append(log, "two\r\n");
  Sleep(1500);  // three polls with the box up
  Append(log, "three\r\n");
  Sleep(1500);
  EXPECT_EQ(MessageBoxes().size(), 1u);
  for (HWND each : MessageBoxes()) PostMessageA(each, WM_COMMAND, IDOK, 0);
  ASSERT_TRUE(WaitUntil([&] { return MessageBoxes().empty(); }, 3000));
  Append(log, "four\r\n");
  ASSERT_TRUE(TitleShows());
  EXPECT_TRUE(MessageBoxes().empty());
  EXPECT_EQ(ShownText(ferrow.TextBox()), "one\ntwo\nthree\nfour\n");
  EXPECT_EQ(IsDlgButtonChecked(ferrow.ControlWindow(), kIdPlaySound), BST_UNCHECKED);
}

}  // namespace
}  // namespace ferrow::win32
