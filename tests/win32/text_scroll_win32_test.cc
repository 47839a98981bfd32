// The text window's vertical scroll bar while lines arrive, on a real
// window with a real rich-edit control: what the user sees of it, and where
// it stands.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "display/append_block.h"
#include "display/filters.h"
#include "testing/fake_control_window.h"
#include "testing/session_fixture.h"
#include "win32/event_passes.h"
#include "win32/text_window_view.h"
#include "win32/text_window_fixture.h"
#include "win32/window_capture.h"

namespace ferrow::win32 {
namespace {

using ferrow::testing::FakeControlWindow;

class Win32TextScrollTest : public ferrow::testing::SessionTest {
 protected:
  Win32TextScrollTest() {
    SetTestLook(options);
    options.FormX = 300;
    options.FormY = 200;
    options.FormWidth = 9000;
    options.FormHeight = 3000;
    window = new Win32TextWindow(session, control);
    control.shown_box = &window->Rtf();
    hwnd = window->Handle();
    window->Form_Load();
    Settle();
  }
  ~Win32TextScrollTest() override {
    window->Logic().Close();
    for (int i = 0; i < 50 && IsWindow(hwnd); ++i) {
      PumpMessages();
      Sleep(10);
    }
  }
  HWND box() { return window->Rtf().Handle(); }
  // The program idle for a while, as between two polls: what it drew has
  // reached the screen.
  void Settle(int ms = 50) {
    for (int i = 0; i < ms / 10; ++i) {
      PumpMessages();
      Sleep(10);
    }
  }
  void Append(const std::string& text) {
    AppendTextBlock(session, window->Rtf(), text, false);
    Settle();
  }
  bool BarShown() { return (GetWindowLongW(box(), GWL_STYLE) & WS_VSCROLL) != 0; }
  SCROLLINFO Bar() {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    GetScrollInfo(box(), SB_VERT, &info);
    return info;
  }
  // The strip at the box's right edge where its vertical bar goes, on screen.
  RECT BarStrip() {
    RECT r{};
    GetWindowRect(box(), &r);
    r.left = r.right - GetSystemMetrics(SM_CXVSCROLL);
    if (GetWindowLongW(box(), GWL_STYLE) & WS_HSCROLL) r.bottom -= GetSystemMetrics(SM_CYHSCROLL);
    return r;
  }
  // How many pixels of `area` on screen have `colour`.
  static int Count(const RECT& area, COLORREF colour) {
    int n = 0;
    for (COLORREF pixel : ScreenPixels(area)) n += pixel == colour;
    return n;
  }
  static int Size(const RECT& r) { return (r.right - r.left) * (r.bottom - r.top); }
  // The band of the screen where line `line` (0-based) of the box is drawn,
  // clipped to the box's client area.
  RECT LineBand(int line) {
    const LRESULT start = SendMessageW(box(), EM_LINEINDEX, static_cast<WPARAM>(line), 0);
    const LRESULT next = SendMessageW(box(), EM_LINEINDEX, static_cast<WPARAM>(line + 1), 0);
    POINTL top{}, bottom{};
    SendMessageW(box(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&top), start);
    SendMessageW(box(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&bottom), next);
    RECT client{};
    GetClientRect(box(), &client);
    RECT band{client.left, top.y, client.right, bottom.y};
    IntersectRect(&band, &band, &client);
    MapWindowPoints(box(), nullptr, reinterpret_cast<POINT*>(&band), 2);
    return band;
  }
  // Every line from the first one in view to `last` shows some text.
  void ExpectLinesPainted(int last) {
    const int first = static_cast<int>(SendMessageW(box(), EM_GETFIRSTVISIBLELINE, 0, 0));
    for (int line = first; line <= last; ++line) {
      const RECT band = LineBand(line);
      if (IsRectEmpty(&band)) continue;
      EXPECT_GT(Count(band, options.FontColour), 0) << "line " << line << " is not painted";
    }
  }
  void Screenshot(const std::string& name) {
    if (const char* folder = std::getenv("FERROW_SCREENSHOTS"))
      if (*folder) SaveWindowBitmap(hwnd, std::string(folder) + "\\" + name + ".bmp");
  }

  FakeControlWindow control;
  Win32TextWindow* window;
  HWND hwnd = nullptr;
};

std::string Lines(int from, int to) {
  std::string text;
  for (int i = from; i <= to; ++i) text += "2024-05-01 10:00:00 GET /index.html 200 line " + std::to_string(i) + "\r\n";
  return text;
}

// The control keeps its bar to itself while redrawing is off; once the lines
// no longer fit, the user must see the bar, its thumb at the end, and the
// newest lines whole.
TEST_F(Win32TextScrollTest, TheBarShowsOnceTheLinesOutgrowTheWindowWithTheNewestLinesInView) {
  Append(Lines(1, 3));
  Settle(400);
  EXPECT_FALSE(BarShown()) << "three lines fit";
  EXPECT_EQ(Count(BarStrip(), options.BackColour), Size(BarStrip())) << "the text's background";
  for (int i = 4; i <= 60; i += 3) Append(Lines(i, i + 2));
  Settle(400);
  Screenshot("scroll-bar-shown");
  ASSERT_TRUE(BarShown());
  const SCROLLINFO bar = Bar();
  EXPECT_GT(bar.nMax - bar.nMin + 1, static_cast<int>(bar.nPage)) << "the text is taller than the window";
  EXPECT_GE(bar.nPos + static_cast<int>(bar.nPage), bar.nMax) << "scrolled to the end";
  // The system draws the bar in colours of its own, not in the text's background.
  EXPECT_EQ(Count(BarStrip(), options.BackColour), 0) << "the bar is drawn where the text was";
  EXPECT_EQ(SendMessageW(box(), EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0), 60) << "the caret on the last line";
  ExpectLinesPainted(59);
  const RECT last = LineBand(59);
  RECT client{};
  GetClientRect(box(), &client);
  MapWindowPoints(box(), nullptr, reinterpret_cast<POINT*>(&client), 2);
  EXPECT_TRUE(last.top >= client.top && last.bottom <= client.bottom) << "the newest line is whole in view";
}

// Trimmed down to a few lines, the text fits again: the bar goes, as the
// control's own does, and the text takes its place.
TEST_F(Win32TextScrollTest, TheBarGoesWhenTheTextFitsAgain) {
  for (int i = 1; i <= 60; i += 3) Append(Lines(i, i + 2));
  ASSERT_TRUE(BarShown());
  options.MaxInputLength = 120;
  Append(Lines(61, 61));
  Settle(400);
  Screenshot("scroll-bar-gone");
  EXPECT_EQ(window->Rtf().Text(), "2024-05-01 10:00:00 GET /index.html 200 line 60\n"
                                  "2024-05-01 10:00:00 GET /index.html 200 line 61\n");
  EXPECT_FALSE(BarShown());
  EXPECT_EQ(Count(BarStrip(), options.BackColour), Size(BarStrip())) << "the text's background";
  ExpectLinesPainted(1);
}

// Lines wider than the window bring the horizontal bar too; the newest line
// stays whole above it.
TEST_F(Win32TextScrollTest, WithBothBarsTheNewestLineIsWholeAboveTheHorizontalBar) {
  const std::string wide(150, 'w');
  for (int i = 1; i <= 40; i += 4) {
    std::string text;
    for (int j = i; j < i + 4; ++j) text += wide + " " + std::to_string(j) + "\r\n";
    Append(text);
  }
  Settle(400);
  Screenshot("scroll-both-bars");
  ASSERT_TRUE(BarShown());
  EXPECT_TRUE(GetWindowLongW(box(), GWL_STYLE) & WS_HSCROLL);
  EXPECT_EQ(Count(BarStrip(), options.BackColour), 0) << "the bar is drawn where the text was";
  RECT hbar{};
  GetWindowRect(box(), &hbar);
  hbar.top = hbar.bottom - GetSystemMetrics(SM_CYHSCROLL);
  hbar.right -= GetSystemMetrics(SM_CXVSCROLL);
  EXPECT_EQ(Count(hbar, options.BackColour), 0) << "the horizontal bar is drawn";
  ExpectLinesPainted(39);
  const RECT last = LineBand(39);
  RECT client{};
  GetClientRect(box(), &client);
  MapWindowPoints(box(), nullptr, reinterpret_cast<POINT*>(&client), 2);
  EXPECT_TRUE(last.top >= client.top && last.bottom <= client.bottom) << "the newest line is whole in view";
}

}  // namespace
}  // namespace ferrow::win32
