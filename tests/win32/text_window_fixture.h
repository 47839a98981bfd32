// A text window as a real Win32 window with a real rich-edit control, driven
// through the same logic and append path as the program's.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include "display/filters.h"
#include "testing/fake_control_window.h"
#include "testing/session_fixture.h"
#include "win32/event_passes.h"
#include "win32/text_window_view.h"

namespace ferrow::win32 {

using ferrow::testing::FakeControlWindow;

constexpr Colour kText = 0x00C0C0C0, kFilter = 0x0000FFFF, kBack = 0x00402000;

// The look the window tests give the text window: grey text, yellow filter
// words ("error"), a dark blue background, Courier New at 10 points.
inline void SetTestLook(Options& options) {
  options.FileSection = "app.log";
  options.FontColour = kText;
  options.FilterColour = kFilter;
  options.BackColour = kBack;
  options.Font = "Courier New";
  options.FontSize = 10;
  options.MaxInputLength = 100000;
  options.FilterString = "error";
  RebuildFilterWords(options);
}

class Win32TextWindowTest : public ferrow::testing::SessionTest {
 protected:
  Win32TextWindowTest() {
    SetTestLook(options);
    window = new Win32TextWindow(session, control);
    control.shown_box = &window->Rtf();
  }
  ~Win32TextWindowTest() override {
    if (!closed) window->Logic().Close();
    // The window goes once no handler runs, from the message loop.
    for (int i = 0; i < 50 && IsWindow(hwnd()); ++i) {
      PumpMessages();
      Sleep(10);
    }
    EXPECT_FALSE(IsWindow(hwnd()));
  }
  HWND hwnd() { return handle ? handle : (handle = window->Handle()); }
  HWND box() { return window->Rtf().Handle(); }
  void Load() {
    hwnd();
    window->Form_Load();
    PumpMessages();
  }

  FakeControlWindow control;
  Win32TextWindow* window;
  HWND handle = nullptr;
  bool closed = false;
};

}  // namespace ferrow::win32
