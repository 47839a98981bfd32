// The input box's window: what InputMsg sets reaches the controls, and the
// buttons, keys and close box reach the box. What the box decides is tested
// against a fake window in input_box_logic_test.cc.
#include "qt/frmInputBox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "qt/event_passes.h"
#include "control/window_gate.h"
#include "platform/env.h"

namespace ferrow {
namespace {

// The real environment with the program's events hook and short sleeps.
class QuickEnv : public EnvWrapper {
 public:
  QuickEnv() : EnvWrapper(Env::Default()) {}
  void SleepMs(int) override { ++sleeps; }
  int sleeps = 0;
};

class InputBoxWindow : public ::testing::Test {
 protected:
  InputBoxWindow() { InstallEventsHook(env, gate); }
  ~InputBoxWindow() override {
    Env::Default()->SetEventsHook(nullptr);
    QApplication::processEvents();
  }
  // Runs `answer` on the box once InputMsg has shown it.
  static void Answer(std::function<void(frmInputBox&)> answer) {
    QTimer::singleShot(20, [answer] {
      if (frmInputBox* box = LoadedInputBox()) answer(*box);
    });
  }
  static void Key(QWidget* target, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
  }
  QuickEnv env;
  WindowGate gate;
};

TEST_F(InputBoxWindow, TitlePromptAndStartTextReachTheWindowAndOkReturnsTheText) {
  Answer([](frmInputBox& box) {
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(box.windowTitle().toStdString(), "Title");
    EXPECT_EQ(box.Label1->text().toStdString(), "Prompt");
    EXPECT_EQ(box.txtInput->selectedText().toStdString(), "start");
    box.txtInput->setText("typed");
    box.cmdOK->click();
  });
  EXPECT_EQ(InputMsg(env, "Prompt", "Title", "start"), "typed");
}

TEST_F(InputBoxWindow, CancelButtonReachesTheBox) {
  Answer([](frmInputBox& box) {
    box.txtInput->setText("ignored");
    box.cmdCancel->click();
  });
  EXPECT_EQ(InputMsg(env, "p", "t"), "");
}

TEST_F(InputBoxWindow, EnterAndEscapeInTheTextBoxReachTheBox) {
  Answer([](frmInputBox& box) {
    box.txtInput->setText("entered");
    Key(box.txtInput, Qt::Key_Return);
  });
  EXPECT_EQ(InputMsg(env, "p", "t"), "entered");
  Answer([](frmInputBox& box) {
    box.txtInput->setText("dropped");
    Key(box.txtInput, Qt::Key_Escape);
  });
  EXPECT_EQ(InputMsg(env, "p", "t"), "");
}

// On the focused buttons, as in any dialog: Enter or Space presses that
// button, Escape cancels.
TEST_F(InputBoxWindow, EnterSpaceAndEscapeOnTheButtonsPressThemOrCancel) {
  const struct { bool ok; int key; const char* answer; } presses[] = {
      {true, Qt::Key_Return, "typed"}, {true, Qt::Key_Space, "typed"}, {true, Qt::Key_Escape, ""},
      {false, Qt::Key_Return, ""},     {false, Qt::Key_Space, ""},     {false, Qt::Key_Escape, ""}};
  for (const auto& press : presses) {
    Answer([press](frmInputBox& box) {
      box.txtInput->setText("typed");
      Key(press.ok ? static_cast<QWidget*>(box.cmdOK) : box.cmdCancel, press.key);
      // A key that did nothing leaves the box up: Cancel ends the wait then.
      if (box.isVisible()) box.cmdCancel->click();
    });
    EXPECT_EQ(InputMsg(env, "p", "t"), press.answer) << press.ok << " " << press.key;
  }
}

TEST_F(InputBoxWindow, APasswordCharHidesWhatIsTyped) {
  Answer([](frmInputBox& box) {
    EXPECT_EQ(box.txtInput->echoMode(), QLineEdit::Password);
    box.cmdCancel->click();
  });
  InputMsg(env, "p", "t", "", "*");
}

TEST_F(InputBoxWindow, TheCloseBoxEndsTheWaitAsCancelAndTheWindowGoes) {
  QPointer<frmInputBox> window;
  Answer([&](frmInputBox& box) {
    window = &box;
    box.txtInput->setText("x");
    box.close();
  });
  EXPECT_EQ(InputMsg(env, "p", "t"), "");
  EXPECT_EQ(LoadedInputBox(), nullptr);
  for (int i = 0; i < 3 && window; ++i) QApplication::processEvents();
  EXPECT_FALSE(window);
}

TEST_F(InputBoxWindow, TheWaitRunsOtherWindowsEventsAsCountedEventPasses) {
  int ticks = 0, passes_seen = 0;
  QTimer other;
  QObject::connect(&other, &QTimer::timeout, [&] {
    ++ticks;
    passes_seen = gate.EventPasses();
  });
  other.start(1);
  Answer([&](frmInputBox& box) {
    if (ticks > 0)
      box.cmdCancel->click();
    else
      Answer([](frmInputBox& again) { again.cmdCancel->click(); });
  });
  InputMsg(env, "p", "t");
  EXPECT_GT(ticks, 0);
  EXPECT_EQ(passes_seen, 1);
  EXPECT_GT(env.sleeps, 0);
}

}  // namespace
}  // namespace ferrow
