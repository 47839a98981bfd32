// One front-end's real windows, reached as a user reaches them: clicks,
// keys on a focused control, typing, the history list, drops, close boxes;
// and read back as a user sees them: the text window's whole text, the
// colour at each place, its background and font, the captions. The
// scenarios (scenarios.cc) are written once against this; each toolkit has
// a driver over its real windows (qt_driver.cc, win32_driver.cc).
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "control/control_view.h"
#include "control/fake_services.h"
#include "control/window_services.h"
#include "dialogs/settings_texts.h"
#include "display/themes.h"
#include "platform/env.h"
#include "session/options.h"
#include "session/session.h"
#include "testing/temp_dir.h"

namespace ferrow::frontend {

enum class Window { kControl, kText, kSettings, kInputBox, kAbout };
enum class DropTarget { kControlWindow, kFileNameBox, kTextWindow };

// Keys by their Windows virtual-key codes, as the windows' logic numbers them.
namespace vk {
inline constexpr int kBack = 8, kEnter = 13, kEscape = 27, kSpace = 32, kDown = 40, kDelete = 46,
                     kF1 = 112;
}  // namespace vk

struct Modifiers {
  bool shift = false;
  bool ctrl = false;
};

// The real environment with short sleeps: the program's waits still let
// window events run, through the events hook the driver installs.
// `during_waits`, when set, runs as each of the program's waits lets events
// run: what a user does while the program works.
class QuickEnv : public EnvWrapper {
 public:
  QuickEnv() : EnvWrapper(Env::Default()) {}
  void SleepMs(int ms) override { EnvWrapper::SleepMs(ms < 2 ? ms : 2); }
  void LetEventsRun() override {
    if (during_waits && !in_wait_) {
      in_wait_ = true;
      during_waits();
      in_wait_ = false;
    }
    EnvWrapper::LetEventsRun();
  }
  std::function<void()> during_waits;

 private:
  bool in_wait_ = false;
};

// Message boxes answered by a script. With `modal_ms` set, a box lets window
// events run that long before it is answered, as a real modal box's own
// message loop does (the poll timer's ticks among them).
class ScriptedServices : public testing::FakeServices {
 public:
  explicit ScriptedServices(Env& env) : env_(env) {}
  // A box opened inside another is answered at once, so that a program
  // that opens box after box fails the scenario instead of overflowing.
  void Message(const std::string& text, const std::string& title, MessageIcon icon) override {
    FakeServices::Message(text, title, icon);
    if (open_) return;
    open_ = true;
    for (int waited = 0; waited < modal_ms; waited += 10) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      env_.LetEventsRun();
    }
    open_ = false;
  }
  int modal_ms = 0;

 private:
  Env& env_;
  bool open_ = false;
};

// What a scenario runs in: a configuration file and logs in a fresh folder,
// a session as the program wires it, message boxes and the open-file dialog
// answered by a script.
struct ScenarioWorld {
  ScenarioWorld() {
    SetDefaultOptions(options);
    FillThemeTables(options.Themes);
    ApplyDefaultTheme(options, options.Themes);
    options.IniFileName = dir.File("Ferrow.INI");
    options.LogFileName = dir.File("Ferrow.LOG");
    options.FileDefaults = static_cast<const FileOptions&>(options);
    options.FileDefaults.TimerInterval = 40;  // polls come quickly; the rules are the same
  }
  std::string MakeLog(const std::string& name, const std::string& bytes) {
    const std::string path = dir.File(name);
    testing::WriteBytes(path, bytes);
    return path;
  }

  testing::TempDir dir;
  QuickEnv env;
  Options options;
  ScriptedServices services{env};
  RoutedUi routed{services};
  Session session{env, options, routed};
};

class FrontEndDriver {
 public:
  virtual ~FrontEndDriver() = default;

  // The control window made and loaded as the program does at start-up.
  virtual void Load() = 0;
  // Lets window events and timers run for `ms`.
  virtual void RunEvents(int ms) = 0;
  bool RunEventsUntil(const std::function<bool()>& done, int ms = 5000) {
    for (int waited = 0; waited <= ms; waited += 10) {
      if (done()) return true;
      RunEvents(10);
    }
    return done();
  }

  // The control window.
  virtual void Click(Control control) = 0;
  // A key pressed and released on `control` with the focus on it (on the
  // file name box: in its edit field, or in its list while dropped down).
  virtual void Key(Control control, int key, Modifiers modifiers = {}) = 0;
  virtual void TypeInFileNameBox(const std::string& text) = 0;
  virtual void DropDownList() = 0;
  virtual bool ListDroppedDown() = 0;
  // With the list dropped down, the highlight moves to entry `index`.
  virtual void HighlightInList(int index) = 0;
  // A click on entry `index` of the list (dropped down first).
  virtual void ClickInList(int index) = 0;
  virtual std::vector<std::string> ListEntries() = 0;
  virtual std::string Text(Control control) = 0;
  virtual int Value(Control control) = 0;  // check boxes: 0 off, 1 on, 2 grayed
  virtual bool Enabled(Control control) = 0;
  virtual bool TimerRunning() = 0;
  virtual void Drop(DropTarget where, const std::string& file) = 0;

  // Any window.
  virtual bool Shown(Window window) = 0;
  virtual std::string Caption(Window window) = 0;
  // The window's close box, as the user clicks it.
  virtual void CloseBox(Window window) = 0;

  // The text window's box.
  virtual std::string ShownText() = 0;  // the whole text, "\n" at each line break
  virtual Colour ColourAt(int64_t position) = 0;
  virtual Colour Background() = 0;  // as drawn, beside the text
  virtual std::string FontName() = 0;
  virtual std::string FontNameAt(int64_t position) = 0;
  virtual int FontSize() = 0;  // points
  virtual bool FontBold() = 0;
  virtual void KeyInText(int key, Modifiers modifiers = {}) = 0;
  virtual void TypeInText(char character) = 0;
  virtual std::string Clipboard() = 0;
  virtual void SetClipboard(const std::string& text) = 0;

  // The settings dialog.
  virtual void ClickTheme(int index) = 0;
  virtual bool ThemeChecked(int index) = 0;
  virtual void ClickSetting(SettingsControl control) = 0;
  virtual void KeyInSetting(SettingsControl control, int key) = 0;
  virtual void KeyOnTheme(int index, int key) = 0;

  // The about window: a key on its focused OK button.
  virtual void KeyInAbout(int key) = 0;

  // The input box: `answer` runs once the box shows, inside the program's
  // wait for it; the actions it takes arrive as the box's events.
  virtual void WhenInputBoxShows(std::function<void()> answer) = 0;
  virtual std::string InputBoxText() = 0;
  virtual std::string InputBoxPrompt() = 0;
  virtual void TypeInInputBox(const std::string& text) = 0;
  virtual void KeyInInputBox(int key) = 0;
  // A key on the focused OK (or Cancel) button, and a click on it.
  virtual void KeyOnInputBoxButton(bool ok, int key) = 0;
  virtual void ClickInputBoxButton(bool ok) = 0;
};

}  // namespace ferrow::frontend
