// Picking from the file name box's list, against typing a name that is also
// in it, with real focus changes: a real X server (Xvfb), real window
// activation and keyboard focus moving as it does for a user.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <cctype>

#include "config/history.h"
#include "config/ini_file.h"
#include "control/form1_fixture.h"

namespace ferrow {
namespace {

using testing::Form1Test;

class FocusPick : public Form1Test {
 protected:
  void SetUp() override {
    if (QGuiApplication::platformName() != "xcb")
      GTEST_SKIP() << "needs an X server (run under xvfb-run)";
  }
  // Waits until `window` is the active window, as the X server reports it.
  static bool WaitActive(QWidget* window) {
    window->activateWindow();
    QElapsedTimer clock;
    clock.start();
    while (!window->isActiveWindow() && clock.elapsed() < 5000) {
      QApplication::processEvents(QEventLoop::AllEvents, 50);
      if (clock.elapsed() % 500 < 60) window->activateWindow();
    }
    return window->isActiveWindow();
  }
  // The box, or its edit field, has the keyboard focus (the box passes it on).
  bool BoxHasFocus() const {
    QWidget* focus = QApplication::focusWidget();
    return focus && (focus == form->cmbFileName || focus == form->cmbFileName->lineEdit());
  }
  void TypeKeys(const std::string& text) {
    QLineEdit* edit = form->cmbFileName->lineEdit();
    for (char c : text) {
      const int key = std::isalpha(static_cast<unsigned char>(c)) ? std::toupper(c) : c;
      QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(c)));
      QApplication::sendEvent(edit, &press);
    }
  }
  // The followed file a.log has its own sound setting; b.log is in the history too.
  void OpenFollowedFile() {
    a = MakeLog("a.log", "a\r\n");
    b = MakeLog("b.log", "b\r\n");
    WriteHistory({a, b});
    WriteINIFile(env, options.IniFileName, "a.log", "MenuX", "100");
    WriteINIFile(env, options.IniFileName, "a.log", "PlaySoundOnUpdate", "True");
    LoadHistoryAtStartup(app);
    form->Logic().Form_Load();
    Type(a);
    form->Logic().OK_Click();
    ASSERT_TRUE(options.PlaySoundOnUpdate);
    ASSERT_FALSE(options.FileDefaults.PlaySoundOnUpdate);
    ASSERT_TRUE(WaitActive(form.get()));
    form->cmbFileName->lineEdit()->setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();
    ASSERT_TRUE(BoxHasFocus());
    form->cmbFileName->lineEdit()->clear();
    TypeKeys(b);
    ASSERT_EQ(form->cmbFileName->currentText().toStdString(), b);
  }

  std::string a, b;
};

TEST_F(FocusPick, TabbingAwayFromATypedHistoryNameIsNotAPick) {
  OpenFollowedFile();
  Key(form->cmbFileName->lineEdit(), Qt::Key_Tab);
  QApplication::processEvents();
  ASSERT_FALSE(BoxHasFocus()) << "the focus moved on";
  EXPECT_TRUE(options.PlaySoundOnUpdate) << "the followed file's flags stay";
  EXPECT_EQ(form->chkPlaySound->Value(), 2) << "typing grayed the box; nothing set it back";
}

TEST_F(FocusPick, AnotherWindowTakingTheFocusIsNotAPickAndEnterSavesTheOldFileAsItWas) {
  OpenFollowedFile();
  QWidget other;
  other.setWindowTitle("other");
  other.resize(200, 100);
  other.show();
  ASSERT_TRUE(WaitActive(&other));
  EXPECT_FALSE(form->isActiveWindow());
  EXPECT_TRUE(options.PlaySoundOnUpdate);
  ASSERT_TRUE(WaitActive(form.get()));
  form->cmbFileName->lineEdit()->setFocus(Qt::MouseFocusReason);
  Key(form->cmbFileName->lineEdit(), Qt::Key_Return);
  EXPECT_EQ(options.FileName, b);
  EXPECT_EQ(ReadINIFile(env, options.IniFileName, "a.log", "PlaySoundOnUpdate"), "True");
}

TEST_F(FocusPick, TheArrowKeyInTheBoxPicksTheNextEntry) {
  OpenFollowedFile();
  form->cmbFileName->setCurrentIndex(0);
  form->Logic().UpdateCheckboxes();
  ASSERT_EQ(form->chkPlaySound->Value(), 1);
  Key(form->cmbFileName->lineEdit(), Qt::Key_Down);
  EXPECT_EQ(form->cmbFileName->currentText().toStdString(), b);
  EXPECT_FALSE(options.PlaySoundOnUpdate) << "a pick takes the defaults";
  EXPECT_EQ(form->chkPlaySound->Value(), 2);
}

TEST_F(FocusPick, AClickOnAnEntryOfTheDroppedDownListIsAPick) {
  OpenFollowedFile();
  form->Logic().UpdateCheckboxes();
  form->cmbFileName->showPopup();
  QAbstractItemView* list = form->cmbFileName->view();
  QElapsedTimer clock;
  clock.start();
  while (!list->isVisible() && clock.elapsed() < 5000)
    QApplication::processEvents(QEventLoop::AllEvents, 50);
  ASSERT_TRUE(list->isVisible());
  const QPoint at = list->visualRect(list->model()->index(0, 0)).center();
  for (QEvent::Type type :
       {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent mouse(type, at, list->viewport()->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(list->viewport(), &mouse);
  }
  QApplication::processEvents();
  EXPECT_EQ(form->cmbFileName->currentText().toStdString(), a);
  EXPECT_FALSE(options.PlaySoundOnUpdate) << "a pick takes the defaults";
  EXPECT_EQ(form->chkPlaySound->Value(), 2);
}

}  // namespace
}  // namespace ferrow
