// Drops as the shell makes them (UTF-16 names) on the real control window:
// a name the ANSI code page holds arrives whole, in that code page; one it
// cannot hold is refused with a message and never becomes a look-alike.
#include <gtest/gtest.h>
#include <shlobj.h>

#include <cstring>
#include <memory>
#include <string>

#include "control/fake_services.h"
#include "display/themes.h"
#include "testing/session_fixture.h"
#include "win32/ansi_text.h"
#include "win32/control_window_view.h"
#include "win32/event_passes.h"
#include "win32/unusable_name.h"

namespace ferrow::win32 {
namespace {

// A drop of `name` as the shell hands it over: a DROPFILES block in UTF-16.
HGLOBAL WideDropOf(const std::wstring& name) {
  const size_t bytes = (name.size() + 2) * sizeof(wchar_t);
  HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
  auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  drop->fWide = TRUE;
  std::memcpy(reinterpret_cast<char*>(drop) + sizeof(DROPFILES), name.c_str(), name.size() * sizeof(wchar_t));
  GlobalUnlock(memory);
  return memory;
}

class Win32Names : public ferrow::testing::SessionTest {
 protected:
  Win32Names() {
    SetDefaultOptions(options);
    FillThemeTables(options.Themes);
    InstallEventsHook(env, session.gate);
    window = std::make_unique<Win32ControlWindow>(session, services);
    window->Logic().Form_Load();
  }
  ~Win32Names() override {
    if (!window->Logic().Unloaded()) window->Logic().Form_Unload();
    for (int i = 0; i < 20; ++i) {
      PumpMessages();
      Sleep(10);
    }
    window.reset();
  }
  void Drop(const std::wstring& name) {
    SendMessageW(window->ControlHandle(Control::cmbFileName), WM_DROPFILES,
                 reinterpret_cast<WPARAM>(WideDropOf(name)), 0);
  }

  ferrow::testing::FakeServices services;
  std::unique_ptr<Win32ControlWindow> window;
};

TEST_F(Win32Names, ADroppedNameWithAccentsArrivesInTheAnsiCodePage) {
  const std::wstring name = L"C:\\logs\\caf\u00e9\\na\u00efve.log";
  std::string ansi;
  if (!ToAnsiExactly(name, &ansi)) GTEST_SKIP() << "the code page " << GetACP() << " has no accents";
  Drop(name);
  EXPECT_EQ(window->Text(Control::cmbFileName), ansi);
  EXPECT_EQ(WideFromAnsi(window->Text(Control::cmbFileName)), name);
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(Win32Names, ADroppedNameTheCodePageCannotHoldIsRefusedWithAMessage) {
  const std::wstring name = L"C:\\logs\\\u65e5\u672c.log";
  std::string ansi;
  if (ToAnsiExactly(name, &ansi)) GTEST_SKIP() << "the code page " << GetACP() << " holds it";
  window->SetText(Control::cmbFileName, "C:\\logs\\before.log");
  Drop(name);
  EXPECT_EQ(window->Text(Control::cmbFileName), "C:\\logs\\before.log") << "no look-alike takes its place";
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "File Access Error|Can't open: C:\\logs\\??.log\r\n\r\n"
                            "The name holds characters that this system's code page cannot show "
                            "(shown here as ?). Rename the file or its folder, then try again.");
}

// Pasted into the box: the name keeps a "?" where the code page has no
// character (no file name holds one), never the best-fit "o".
TEST_F(Win32Names, ATypedNameIsNeverTurnedIntoALookAlike) {
  if (GetACP() != 1252) GTEST_SKIP() << "the code page " << GetACP();
  SetWindowTextW(window->ControlHandle(Control::cmbFileName), L"C:\\logs\\t\u014dky\u014d.log");
  EXPECT_EQ(window->Text(Control::cmbFileName), "C:\\logs\\t?ky?.log");
}

// The best-fit forms Windows offers ("o" for "\u014d") could be another file.
TEST_F(Win32Names, ANameIsNeverTurnedIntoALookAlike) {
  std::string ansi;
  if (GetACP() == 1252) {
    EXPECT_FALSE(ToAnsiExactly(L"C:\\logs\\t\u014dky\u014d.log", &ansi));
  }
  EXPECT_EQ(ansi, "");
  EXPECT_TRUE(ToAnsiExactly(L"C:\\logs\\plain.log", &ansi));
  EXPECT_EQ(ansi, "C:\\logs\\plain.log");
}

}  // namespace
}  // namespace ferrow::win32
