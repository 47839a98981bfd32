// The Win32 control window reports keys and check-box clicks as they come
// and the logic decides what they mean: the real window, real messages.
#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <vector>

#include "control/fake_services.h"
#include "display/themes.h"
#include "testing/session_fixture.h"
#include "win32/control_window_view.h"
#include "win32/event_passes.h"

namespace ferrow::win32 {
namespace {

class Win32ControlKeysTest : public ferrow::testing::SessionTest {
 protected:
  Win32ControlKeysTest() {
    SetDefaultOptions(options);
    FillThemeTables(options.Themes);
    InstallEventsHook(env, session.gate);
    window = std::make_unique<Win32ControlWindow>(session, services);
  }
  ~Win32ControlKeysTest() override {
    if (!window->Logic().Unloaded()) window->Logic().Form_Unload();
    for (int i = 0; i < 20; ++i) {
      PumpMessages();
      Sleep(10);
    }
    window.reset();
  }
  HWND Handle(Control control) { return window->ControlHandle(control); }

  ferrow::testing::FakeServices services;
  std::unique_ptr<Win32ControlWindow> window;
};

TEST_F(Win32ControlKeysTest, AnyOtherKeyOnAGrayedBoxTurnsItsFlagOffAndLeavesTheBoxGrayed) {
  window->Logic().Form_Load();
  window->Logic().EnableCheckBoxes();
  ASSERT_EQ(window->Value(Control::chkPlaySound), 2);
  options.PlaySoundOnUpdate = true;
  SendMessageA(Handle(Control::chkPlaySound), WM_KEYDOWN, 'A', 0);
  EXPECT_FALSE(options.PlaySoundOnUpdate);
  EXPECT_EQ(window->Value(Control::chkPlaySound), 2);
}

TEST_F(Win32ControlKeysTest, ClicksGiveAGrayedBoxTheValuesTheLogicDecides) {
  window->Logic().Form_Load();
  window->Logic().EnableCheckBoxes();
  ASSERT_EQ(window->Value(Control::chkMinimise), 2);
  std::vector<int> values;
  for (int i = 0; i < 3; ++i) {
    SendMessageA(Handle(Control::chkMinimise), BM_CLICK, 0, 0);
    values.push_back(window->Value(Control::chkMinimise));
  }
  EXPECT_EQ(values, (std::vector<int>{1, 0, 1}));
  EXPECT_TRUE(options.HideMenuOnStartup);
}

}  // namespace
}  // namespace ferrow::win32
