#include "dialogs/frmInputBox.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <chrono>
#include <functional>
#include <thread>

#include "testing/counting_env.h"

namespace ferrow {
namespace {

// Runs `answer` on the box once InputMsg has shown it.
void Answer(std::function<void(frmInputBox&)> answer) {
  QTimer::singleShot(20, [answer] {
    if (frmInputBox* box = LoadedInputBox()) answer(*box);
  });
}

class InputBoxTest : public ::testing::Test {
 protected:
  testing::CountingEnv env;  // counts the 100 ms sleeps instead of sleeping
};

TEST_F(InputBoxTest, OkReturnsTheTextAndCancelReturnsNothing) {
  Answer([](frmInputBox& box) {
    EXPECT_EQ(box.windowTitle().toStdString(), "Title");
    EXPECT_EQ(box.Label1->text().toStdString(), "Prompt");
    EXPECT_EQ(box.txtInput->selectedText().toStdString(), "start");
    box.txtInput->setText("typed");
    box.cmdOK_Click();
  });
  EXPECT_EQ(InputMsg(env, "Prompt", "Title", "start"), "typed");
  Answer([](frmInputBox& box) {
    box.txtInput->setText("ignored");
    box.cmdCancel_Click();
  });
  EXPECT_EQ(InputMsg(env, "Prompt", "Title", "start"), "");
}

TEST_F(InputBoxTest, OkWithAnEmptyTextLooksLikeCancel) {
  Answer([](frmInputBox& box) { box.cmdOK_Click(); });
  EXPECT_EQ(InputMsg(env, "p", "t"), "");
}

TEST_F(InputBoxTest, EmptyEditStringAndPasswordCharLeaveTheBoxPlain) {
  Answer([](frmInputBox& box) {
    EXPECT_EQ(box.txtInput->text().toStdString(), "");
    EXPECT_EQ(box.txtInput->echoMode(), QLineEdit::Normal);
    box.cmdCancel_Click();
  });
  InputMsg(env, "p", "t", "", "");
  Answer([](frmInputBox& box) {
    EXPECT_EQ(box.txtInput->echoMode(), QLineEdit::Password);
    box.cmdCancel_Click();
  });
  InputMsg(env, "p", "t", "", "*");
}

TEST_F(InputBoxTest, EnterReturnsAtOnceAndEscapeCancels) {
  Answer([](frmInputBox& box) {
    box.txtInput->setText("entered");
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(box.txtInput, &enter);
  });
  EXPECT_EQ(InputMsg(env, "p", "t"), "entered");
  Answer([](frmInputBox& box) {
    box.txtInput->setText("dropped");
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(box.txtInput, &escape);
  });
  EXPECT_EQ(InputMsg(env, "p", "t"), "");
}

TEST_F(InputBoxTest, TheCloseBoxEndsTheWaitAsCancel) {
  Answer([](frmInputBox& box) {
    box.txtInput->setText("x");
    box.close();
  });
  EXPECT_EQ(InputMsg(env, "p", "t"), "");
}

TEST_F(InputBoxTest, WaitSleepsAHundredMillisecondsAPassAndOtherWindowsStayLive) {
  int ticks = 0;
  QTimer other;
  QObject::connect(&other, &QTimer::timeout, [&] { ++ticks; });
  other.start(1);
  env.on_sleep = [&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));  // time for the other timer
    if (env.sleeps == 30)
      if (frmInputBox* box = LoadedInputBox()) box->cmdCancel_Click();
  };
  InputMsg(env, "p", "t");
  EXPECT_EQ(env.sleeps, 30);
  EXPECT_EQ(env.slept_ms, 3000);
  EXPECT_GT(ticks, 0);
}

TEST_F(InputBoxTest, ASecondCallWhileOneWaitsReusesTheLoadedWindow) {
  frmInputBox* first = nullptr;
  std::string inner;
  QTimer::singleShot(20, [&] {
    first = LoadedInputBox();
    QTimer::singleShot(20, [&] {
      EXPECT_EQ(LoadedInputBox(), first);
      first->txtInput->setText("inner answer");
      first->cmdOK_Click();
    });
    inner = InputMsg(env, "second", "t");
  });
  std::string outer = InputMsg(env, "first", "t");
  EXPECT_EQ(inner, "inner answer");
  EXPECT_EQ(outer, "inner answer");
}

}  // namespace
}  // namespace ferrow
