// A control window whose dialogs are the toolkit's real ones (the open-file
// dialog, the message boxes, the input box), over a real configuration file,
// with waits that let real window events run. The test acts on a dialog from
// a timer while the click that showed it waits.
#pragma once

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <functional>
#include <memory>
#include <string>

#include "control/live_fixture.h"
#include "qt/Form1.h"
#include "qt/event_passes.h"
#include "qt/qt_window_services.h"

namespace ferrow::testing {

class RealDialogsTest : public ::testing::Test {
 protected:
  // How long a dialog may take to come up, or its wait to end once the test
  // ended the dialog, before the test gives up on it.
  static constexpr int kPatienceMs = 5000;

  RealDialogsTest() {
    options.IniFileName = dir.File("Ferrow.INI");
    options.LogFileName = dir.File("Ferrow.LOG");
    options.FileDefaults = static_cast<const FileOptions&>(options);
    InstallEventsHook(env, session.gate);
    services.gate = &session.gate;
    form = std::make_unique<Form1>(session, services);
    routed.SetTarget(&form->Logic());
    form->Logic().Form_Load();
    form->show();
  }
  ~RealDialogsTest() override {
    form->close();
    form.reset();
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
    Env::Default()->SetEventsHook(nullptr);
  }

  // A followed file opened, so that Filter is enabled.
  void OpenALog() {
    const std::string log = dir.File("web.log");
    WriteBytes(log, "one\r\n");
    form->cmbFileName->setEditText(QString::fromStdString(log));
    form->Logic().OK_Click();
  }

  // Runs `with` on the first visible top-level window of type W once it is
  // shown, from a timer, while `act` (a click that waits) runs; false when
  // no such window came up.
  template <class W>
  static bool WhenShown(const std::function<void()>& act, const std::function<void(W*)>& with) {
    bool shown = false;
    QElapsedTimer clock;
    clock.start();
    QTimer poll;
    poll.setInterval(20);
    QObject::connect(&poll, &QTimer::timeout, [&] {
      for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<W*>(w);
        if (!window || !window->isVisible() || !window->windowHandle() || !window->windowHandle()->isExposed())
          continue;
        poll.stop();
        shown = true;
        with(window);
        return;
      }
      if (clock.elapsed() > kPatienceMs) poll.stop();
    });
    poll.start();
    act();
    poll.stop();
    return shown;
  }

  // Ends the window W that `act` shows with `end`; true when its wait then
  // ended by itself (`act` returned), false when the test had to end it.
  template <class W>
  static bool WaitEndsWhenEnded(const std::function<void()>& act, const std::function<void(W*)>& end) {
    bool stuck = false;
    const bool shown = WhenShown<W>(act, [&](W* window) {
      end(window);
      QTimer::singleShot(kPatienceMs, window, [&stuck, window] {
        if (!window->isVisible()) return;
        stuck = true;
        window->close();
        if (auto* dialog = qobject_cast<QDialog*>(window)) dialog->reject();
      });
    });
    EXPECT_TRUE(shown) << "the window never came up";
    return shown && !stuck;
  }

  TempDir dir;
  LiveEnv env;  // waits let the real window events run
  Options options;
  QtWindowServices services;
  RoutedUi routed{services};
  Session session{env, options, routed};
  std::unique_ptr<Form1> form;
};

// The same, in a real X server where another X client (xdotool) acts on the
// program's windows; skipped elsewhere.
class UnderXTest : public RealDialogsTest {
 protected:
  void SetUp() override {
    if (QGuiApplication::platformName() != "xcb") GTEST_SKIP() << "needs an X server (run under xvfb-run)";
#ifndef FERROW_XDOTOOL
    GTEST_SKIP() << "needs xdotool";
#endif
  }
};

}  // namespace ferrow::testing
