// The open-file dialog closed by an Escape key that comes through a real X
// server, sent as a tester sends it (`xdotool key --window <dialog> Escape`,
// from another process while the program runs on): the dialog's wait ends
// and Browse opens the dialog again.
//
// That tool sends the press through the X server's test extension when the
// dialog has the focus, but the release as an event to the dialog's window,
// which is gone by then: the server keeps Escape held down and repeats it
// into whatever window has the focus next, closing every dialog at once.
// A keyboard always releases its keys, so the test releases it as well
// before it clicks again.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFileDialog>
#include <QGuiApplication>
#include <QProcess>

#include "control/real_dialogs_fixture.h"

namespace ferrow {
namespace {

class EscapeUnderX : public testing::UnderXTest {
 protected:
  void TearDown() override {
    if (QGuiApplication::platformName() == "xcb") Xdotool({"keyup", "Escape"});
  }
  static void Xdotool(const QStringList& args) {
#ifdef FERROW_XDOTOOL
    QProcess::execute(FERROW_XDOTOOL, args);
#endif
  }
};

TEST_F(EscapeUnderX, ABrowseDialogClosedByEscapeLeavesBrowseWorking) {
  QProcess tool;
  const bool ended = WaitEndsWhenEnded<QFileDialog>([&] { form->cmdBrowse->click(); }, [&](QFileDialog* dialog) {
#ifdef FERROW_XDOTOOL
    // Not waited for here: the dialog goes while the tool still runs.
    tool.start(FERROW_XDOTOOL, {"key", "--window", QString::number(dialog->winId()), "Escape"});
#endif
  });
  EXPECT_TRUE(ended) << "Escape did not end the dialog's wait";
  tool.waitForFinished(5000);
  Xdotool({"keyup", "Escape"});
  EXPECT_FALSE(session.gate.Asking());
  EXPECT_FALSE(session.gate.UserRequestWaiting());

  const bool again = WhenShown<QFileDialog>([&] { form->cmdBrowse->click(); },
                                            [](QFileDialog* dialog) { dialog->reject(); });
  EXPECT_TRUE(again) << "Browse showed no dialog after Escape closed the first one";
}

}  // namespace
}  // namespace ferrow
