// However the toolkit's open-file dialog ends (Escape, Cancel, its close
// box, hidden), the wait for it is over: the gate no longer counts the user
// as asked, and Browse and Filter act on the next click (Link waits through
// the same gate; it would make a real desktop shortcut). The real dialog,
// offscreen.
#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <ostream>
#include <string>

#include "control/real_dialogs_fixture.h"
#include "qt/frmInputBox.h"

namespace ferrow {
namespace {

struct Ending {
  const char* name;
  void (*end)(QFileDialog*);
};
void PrintTo(const Ending& ending, std::ostream* out) { *out << ending.name; }

void PressEscape(QFileDialog* dialog) {
  QWidget* focus = dialog->focusWidget() ? dialog->focusWidget() : dialog;
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(focus, &press);
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(focus, &release);
}

void ClickCancel(QFileDialog* dialog) {
  for (auto* buttons : dialog->findChildren<QDialogButtonBox*>())
    if (QPushButton* cancel = buttons->button(QDialogButtonBox::Cancel)) cancel->click();
}

const Ending kEndings[] = {
    {"EscapeKey", PressEscape},
    {"CancelButton", ClickCancel},
    {"CloseBox", [](QFileDialog* dialog) { dialog->close(); }},
    {"Reject", [](QFileDialog* dialog) { dialog->reject(); }},
    {"Hidden", [](QFileDialog* dialog) { dialog->hide(); }},
};

class BrowseDialogEnded : public testing::RealDialogsTest, public ::testing::WithParamInterface<Ending> {};

TEST_P(BrowseDialogEnded, LeavesBrowseAndFilterWorking) {
  OpenALog();
  const std::string followed = options.FileName;
  ASSERT_TRUE(form->cmdFilter->isEnabled());

  EXPECT_TRUE(WaitEndsWhenEnded<QFileDialog>([&] { form->cmdBrowse->click(); }, GetParam().end))
      << "the dialog's wait went on after it ended";
  EXPECT_FALSE(session.gate.Asking());
  EXPECT_FALSE(session.gate.UserRequestWaiting());
  EXPECT_EQ(options.FileName, followed) << "nothing was chosen";

  EXPECT_TRUE(WhenShown<QFileDialog>([&] { form->cmdBrowse->click(); },
                                     [](QFileDialog* dialog) { dialog->reject(); }))
      << "Browse showed no dialog";
  EXPECT_TRUE(WhenShown<frmInputBox>([&] { form->cmdFilter->click(); }, [](frmInputBox* box) { box->close(); }))
      << "Filter showed no input box";
  EXPECT_FALSE(session.gate.Asking());
}

INSTANTIATE_TEST_SUITE_P(EveryWay, BrowseDialogEnded, ::testing::ValuesIn(kEndings),
                         [](const ::testing::TestParamInfo<Ending>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace ferrow
