// A window of the program that another X client destroys (as `xdotool
// windowclose` or a window manager's destroy does) while the program waits
// for it: the wait ends as if the user had cancelled, and the buttons that
// wait for the user act again. Real windows in a real X server (Xvfb), the
// real open-file dialog and input box, destroyed by another process.
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QGuiApplication>
#include <QProcess>
#include <QPushButton>

#include "control/real_dialogs_fixture.h"
#include "qt/frmInputBox.h"
#include "qt/frmSettings.h"

namespace ferrow {
namespace {

class LostWindow : public testing::UnderXTest {
 protected:
  // Destroys the window W that `act` shows, from another X client.
  template <class W>
  static bool WaitEndsWhenDestroyed(const std::function<void()>& act) {
    return WaitEndsWhenEnded<W>(act, [](W* window) {
#ifdef FERROW_XDOTOOL
      QProcess::execute(FERROW_XDOTOOL, {"windowclose", QString::number(window->winId())});
#endif
    });
  }
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
  OpenALog();
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

TEST_F(LostWindow, ASoundDialogDestroyedFromOutsideLeavesTheSettingsDialogAndItsBrowseWorking) {
  form->cmdOptions->click();
  frmSettings* settings = nullptr;
  for (QWidget* w : QApplication::topLevelWidgets())
    if (auto* found = qobject_cast<frmSettings*>(w); found && found->isVisible()) settings = found;
  ASSERT_NE(settings, nullptr);
  const std::string sound = options.UpdateSound;

  EXPECT_TRUE(WaitEndsWhenDestroyed<QFileDialog>([&] { settings->cmdBrowseWav->click(); }))
      << "the sound dialog's wait went on after its window was destroyed";
  EXPECT_EQ(options.UpdateSound, sound) << "a lost dialog chose nothing";
  ASSERT_TRUE(settings->isVisible()) << "the settings dialog stays";

  const bool again = WhenShown<QFileDialog>([&] { settings->cmdBrowseWav->click(); },
                                            [](QFileDialog* dialog) { dialog->reject(); });
  EXPECT_TRUE(again) << "the sound's Browse showed no dialog after the first one was destroyed";
  settings->close();
}

}  // namespace
}  // namespace ferrow
