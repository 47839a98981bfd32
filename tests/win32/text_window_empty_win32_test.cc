// Emptying a window that holds a lot of text (a restart does, after Apply or
// a new filter): the box behind it is a new control, which must look and act
// as the old one did.
#include <gtest/gtest.h>
#include <richedit.h>
#include <windows.h>

#include <string>
#include <vector>

#include "display/append_block.h"
#include "win32/text_window_fixture.h"

namespace ferrow::win32 {
namespace {

std::string Lines(int from, int to, const std::string& word) {
  std::string text;
  for (int i = from; i <= to; ++i) text += "2024-05-01 10:00:00 " + word + " line " + std::to_string(i) + "\r\n";
  return text;
}

std::vector<HWND> RichEditChildren(HWND window) {
  std::vector<HWND> found;
  for (HWND child = FindWindowExA(window, nullptr, RichEditBox::ClassName(), nullptr); child;
       child = FindWindowExA(window, child, RichEditBox::ClassName(), nullptr))
    found.push_back(child);
  return found;
}

CHARFORMAT2W FormatAt(HWND box, LONG position) {
  CHARRANGE one{position, position + 1};
  SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&one));
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  SendMessageW(box, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format;
}

TEST_F(Win32TextWindowTest, AFullWindowEmptiedLooksAndActsAsBefore) {
  Load();
  RichEditBox& rtf = window->Rtf();
  AppendTextBlock(session, rtf, Lines(1, 2000, "GET"), false);
  ASSERT_GT(rtf.TextLength(), 60000);
  RECT before{};
  GetWindowRect(box(), &before);
  constexpr LONG kBars = WS_VSCROLL | WS_HSCROLL;  // shown as the text needs them
  const LONG style = GetWindowLongW(box(), GWL_STYLE), ex_style = GetWindowLongW(box(), GWL_EXSTYLE);
  ASSERT_EQ(style & kBars, WS_VSCROLL);

  rtf.SetText("");

  EXPECT_EQ(rtf.Text(), "");
  EXPECT_EQ(RichEditChildren(hwnd()), std::vector<HWND>{box()}) << "the old control is gone";
  RECT after{};
  GetWindowRect(box(), &after);
  EXPECT_TRUE(EqualRect(&before, &after));
  EXPECT_EQ(GetWindowLongW(box(), GWL_STYLE) & ~kBars, style & ~kBars);
  EXPECT_EQ(GetWindowLongW(box(), GWL_EXSTYLE), ex_style);
  EXPECT_EQ(GetDlgCtrlID(box()), 1);
  EXPECT_TRUE(rtf.Subclassed());
  EXPECT_EQ(SendMessageW(box(), EM_GETLIMITTEXT, 0, 0), options.MaxInputLength);
  EXPECT_EQ(static_cast<Colour>(SendMessageW(box(), EM_SETBKGNDCOLOR, 0, kBack)), kBack);

  // Lines go on in their colours and the window's font, long ones unwrapped.
  const std::string more = Lines(1, 30, "GET") + "an error line\r\n" + std::string(400, 'x') + "\r\n";
  AppendTextBlock(session, rtf, more, false);
  std::string shown = more;
  for (size_t at = shown.find("\r\n"); at != std::string::npos; at = shown.find("\r\n", at)) shown.erase(at, 1);
  EXPECT_EQ(rtf.Text(), shown);
  EXPECT_EQ(SendMessageW(box(), EM_GETLINECOUNT, 0, 0), 33);
  EXPECT_EQ(GetWindowLongW(box(), GWL_STYLE) & kBars, kBars) << "the long line shows both bars";
  std::vector<std::string> looks, expected;
  LONG start = 0;
  for (int line = 1; line <= 32; ++line) {
    const CHARFORMAT2W format = FormatAt(box(), start);
    char face[LF_FACESIZE] = {};
    WideCharToMultiByte(CP_ACP, 0, format.szFaceName, -1, face, sizeof(face), nullptr, nullptr);
    looks.push_back(std::string(face) + " " + std::to_string(format.crTextColor));
    expected.push_back("Courier New " + std::to_string(line == 31 ? kFilter : kText));
    start = static_cast<LONG>(shown.find('\n', static_cast<size_t>(start))) + 1;
  }
  EXPECT_EQ(looks, expected);
}

}  // namespace
}  // namespace ferrow::win32
