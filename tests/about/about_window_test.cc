#include "qt/frmAbout.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>

#include "about/usage.h"
#include "control/form1_fixture.h"
#include "qt/frmSettings.h"
#include "startup/command_line.h"

namespace ferrow {
namespace {

class AboutWindow : public testing::Form1Test {
 protected:
  AboutWindow() {
    options.UsageText = BuildUsageText(250);
    options.StartTime = std::time(nullptr);
    form->Logic().Form_Load();
  }
};

TEST_F(AboutWindow, CaptionTitleInformationAndTheWebsiteReachTheWindow) {
  auto* about = new frmAbout(app, form->Logic());
  about->Form_Load();
  EXPECT_TRUE(about->isVisible());
  EXPECT_EQ(about->windowTitle().toStdString(), "About Ferrow for Windows");
  EXPECT_EQ(about->lblTitle->text().toStdString(), "Ferrow v1.46 - 30th June 2012");
  EXPECT_NE(about->lblInformation->text().toStdString().find("FERROW.DLL helper v0 is NOT active "),
            std::string::npos);
  EXPECT_EQ(about->lblWebsite->text().toStdString(), "https://ferrow.example.org/");
  about->Command1->click();
  EXPECT_FALSE(about->isVisible());
}

TEST_F(AboutWindow, TheMouseAndAClickOnTheLinkReachTheWindow) {
  auto* about = new frmAbout(app, form->Logic());
  std::string opened;
  about->open_url = [&](const QString& address) { opened = address.toStdString(); };
  about->Form_Load();
  EXPECT_EQ(about->lblWebsite->palette().color(QPalette::WindowText), QColor(Qt::blue));
  EXPECT_EQ(about->lblWebsite->palette().color(QPalette::Window),
            about->palette().color(QPalette::Button));
  QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
  QApplication::sendEvent(about->lblWebsite, &enter);
  EXPECT_EQ(about->lblWebsite->palette().color(QPalette::WindowText), QColor(Qt::white));
  EXPECT_EQ(about->lblWebsite->palette().color(QPalette::Window), QColor(Qt::blue));
  QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), QPointF(1, 1), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(about, &move);
  EXPECT_EQ(about->lblWebsite->palette().color(QPalette::WindowText), QColor(Qt::blue));
  QPointer<frmAbout> alive(about);
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(about->lblWebsite, &press);
  EXPECT_EQ(opened, "https://ferrow.example.org/");
  EXPECT_FALSE(about->isVisible());
  for (int i = 0; i < 5 && alive; ++i) QApplication::processEvents();
  EXPECT_FALSE(alive);  // closed, then deleted once no handler runs
}

TEST_F(AboutWindow, EscapeOnOkClosesAndTheButtonsComeBack) {
  form->Logic().cmdAbout_Click();
  EXPECT_FALSE(form->cmdBrowse->isEnabled());
  frmAbout* about = nullptr;
  for (QWidget* w : QApplication::topLevelWidgets())
    if (auto* a = qobject_cast<frmAbout*>(w)) about = a;
  ASSERT_TRUE(about);
  Key(about->Command1, Qt::Key_Escape);
  EXPECT_TRUE(form->cmdBrowse->isEnabled());
}

TEST_F(AboutWindow, EnterOnOkClosesAsOkDoes) {
  form->Logic().cmdAbout_Click();
  frmAbout* about = nullptr;
  for (QWidget* w : QApplication::topLevelWidgets())
    if (auto* a = qobject_cast<frmAbout*>(w); a && a->isVisible()) about = a;
  ASSERT_TRUE(about);
  Key(about->Command1, Qt::Key_Return);
  EXPECT_FALSE(about->isVisible());
  EXPECT_TRUE(form->cmdBrowse->isEnabled());
}

TEST_F(AboutWindow, UsageBoxMatchesTheStartUpUsageTextLineByLine) {
  Key(form->cmdAbout, Qt::Key_F1);
  ASSERT_EQ(services.messages.size(), 1u);
  const std::string shown = services.messages[0];
  EXPECT_EQ(shown, "Ferrow|" + UsageBoxText(options));
  EXPECT_EQ(shown.substr(shown.find("\r\n\r\n") + 4), BuildUsageText(250));
}

// Pictures of the two windows for review: written when FERROW_SCREENSHOTS
// names a folder.
TEST_F(AboutWindow, Screenshots) {
  const QByteArray folder = qgetenv("FERROW_SCREENSHOTS");
  auto* about = new frmAbout(app, form->Logic());
  about->Form_Load();
  auto* settings = new frmSettings(app, form->Logic(), services);
  FillThemeTables(options.Themes);
  settings->Form_Load();
  if (!folder.isEmpty()) {
    // Run once as it is and once with QT_SCALE_FACTOR=2 and the suffix "-200".
    QDir().mkpath(folder);
    const QString suffix = QString::fromLocal8Bit(qgetenv("FERROW_SCREENSHOT_SUFFIX")) + ".png";
    settings->grab().save(folder + "/settings" + suffix);
    about->grab().save(folder + "/about" + suffix);
    form->grab().save(folder + "/control" + suffix);
  }
  EXPECT_GT(settings->grab().width(), 100);
  settings->cmdCancel_Click();
  about->Command1_Click();
}

}  // namespace
}  // namespace ferrow
