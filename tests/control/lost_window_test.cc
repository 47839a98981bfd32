// A window of the program that another X client destroys (as `xdotool
// windowclose` or a window manager's destroy does) while the program waits
// for it: the wait ends as if the user had cancelled, and the buttons that
// wait for the user act again. Real windows in a real X server (Xvfb), the
// real open-file dialog and input box, destroyed by another process.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QGuiApplication>
#include <QProcess>
#include <QTimer>
#include <QToolButton>
#include <QWindow>
#include <functional>
#include <memory>

#include "qt/Form1.h"
#include "qt/event_passes.h"
#include "qt/frmInputBox.h"
#include "qt/qt_window_services.h"
#include "control/live_fixture.h"

namespace ferrow {
namespace {

// How long a wait may take to end once its window is gone before the test
// calls it stuck (and ends it itself, so that the test fails, not hangs).
constexpr int kStuckMs = 5000;

class LostWindow : public ::testing::Test {
 protected:
  void SetUp() override {
    if (QGuiApplication::platformName() != "xcb") GTEST_SKIP() << "needs an X server (run under xvfb-run)";
#ifndef FERROW_XDOTOOL
    GTEST_SKIP() << "needs xdotool";
#endif
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
  void TearDown() override {
    if (form) {
      form->close();
      form.reset();
      for (int i = 0; i < 5; ++i) QApplication::processEvents();
    }
    Env::Default()->SetEventsHook(nullptr);
  }

  // Destroys `window`'s X window from another client.
  static void DestroyFromOutside(QWidget* window) {
#ifdef FERROW_XDOTOOL
    QProcess::execute(FERROW_XDOTOOL, {"windowclose", QString::number(window->winId())});
#endif
  }

  // Runs `with` on the first visible top-level window of type W once the X
  // server shows it, from a timer, while `act` (a click that waits) runs;
  // false when no such window came up.
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
      if (clock.elapsed() > kStuckMs) poll.stop();
    });
    poll.start();
    act();
    poll.stop();
    return shown;
  }

  // Destroys the window W from outside as soon as `act` shows it; true when
  // its wait then ended by itself (`act` returned), false when the test had
  // to end it.
  template <class W>
  static bool WaitEndsWhenDestroyed(const std::function<void()>& act) {
    bool stuck = false;
    const bool shown = WhenShown<W>(act, [&](W* window) {
      DestroyFromOutside(window);
      QTimer::singleShot(kStuckMs, window, [&stuck, window] {
        if (!window->isVisible()) return;
        stuck = true;
        window->close();
        if (auto* dialog = qobject_cast<QDialog*>(window)) dialog->reject();
      });
    });
    EXPECT_TRUE(shown) << "the window never came up";
    return shown && !stuck;
  }

  testing::TempDir dir;
  testing::LiveEnv env;  // waits let the real window events run
  Options options;
  QtWindowServices services;
  RoutedUi routed{services};
  Session session{env, options, routed};
  std::unique_ptr<Form1> form;
};

TEST_F(LostWindow, ABrowseDialogDestroyedFromOutsideEndsItsWaitAndBrowseOpensItAgain) {
  EXPECT_TRUE(WaitEndsWhenDestroyed<QFileDialog>([&] { form->cmdBrowse->click(); }))
      << "the dialog's wait went on after its window was destroyed";
  EXPECT_FALSE(session.gate.Asking());
  EXPECT_FALSE(session.gate.UserRequestWaiting());
  EXPECT_EQ(options.FileName, "") << "a lost dialog chose nothing";

  const bool again = WhenShown<QFileDialog>([&] { form->cmdBrowse->click(); },
                                            [](QFileDialog* dialog) { dialog->reject(); });
  EXPECT_TRUE(again) << "Browse showed no dialog after the first one was destroyed";
}

TEST_F(LostWindow, AFilterInputBoxDestroyedFromOutsideIsCancelledAndFilterAsksAgain) {
  const std::string log = dir.File("web.log");
  testing::WriteBytes(log, "one\r\n");
  form->cmbFileName->setEditText(QString::fromStdString(log));
  form->Logic().OK_Click();
  ASSERT_TRUE(form->cmdFilter->isEnabled());

  EXPECT_TRUE(WaitEndsWhenDestroyed<frmInputBox>([&] { form->cmdFilter->click(); }))
      << "the input box's wait went on after its window was destroyed";
  EXPECT_FALSE(session.gate.Asking());
  EXPECT_TRUE(form->cmdFilter->isEnabled()) << "Filter comes back once the box is gone";
  EXPECT_EQ(options.FilterString, "");

  const bool again = WhenShown<frmInputBox>([&] { form->cmdFilter->click(); },
                                            [](frmInputBox* box) { box->close(); });
  EXPECT_TRUE(again) << "Filter showed no input box after the first one was destroyed";
}

}  // namespace
}  // namespace ferrow
