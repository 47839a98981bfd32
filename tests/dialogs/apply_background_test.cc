// Apply with a new theme and bring-from-start off, with the real Qt windows:
// no load follows to set the background, and still the box shows the
// theme's at once.
#include <gtest/gtest.h>

#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

#include "control/form1_fixture.h"
#include "display/themes.h"
#include "qt/frmSettings.h"
#include "qt/frmText.h"
#include "qt/qt_convert.h"
#include "qt/rich_text_box.h"

namespace ferrow {
namespace {

using ApplyTheme = testing::Form1Test;

TEST_F(ApplyTheme, ShowsTheNewBackgroundAtOnceWithoutBringFromStart) {
  FillThemeTables(options.Themes);
  ApplyDefaultTheme(options, options.Themes);
  options.FileDefaults = static_cast<const FileOptions&>(options);
  Options paper;
  FillThemeTables(paper.Themes);
  SetTheme(paper, paper.Themes, "Paper");
  const std::string log = MakeLog("web.log", "line\r\n");
  form->Logic().Form_Load();
  Type(log);
  form->chkFileStart->setChecked(false);
  form->Logic().OK_Click();
  RichTextBox* box = form->TextWindow()->Rtf;
  ASSERT_NE(box->palette().color(QPalette::Base), ToQColor(paper.BackColour))
      << "the test would prove nothing";
  form->Logic().cmdOptions_Click();
  QPointer<frmSettings> dialog;
  for (QWidget* w : QApplication::topLevelWidgets())
    if (auto* s = qobject_cast<frmSettings*>(w); s && s->isVisible()) dialog = s;
  ASSERT_TRUE(dialog);
  dialog->optTheme[2]->click();  // Paper
  dialog->cmdOK->click();
  EXPECT_FALSE(options.BringFromStartOfFile);
  EXPECT_EQ(box->palette().color(QPalette::Base), ToQColor(paper.BackColour));
}

}  // namespace
}  // namespace ferrow
