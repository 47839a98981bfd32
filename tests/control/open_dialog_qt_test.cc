// Where the Qt open-file dialog starts: the folder it is given, the folder
// of a file it is given with the name filled in, and the home folder for a
// start that is not on this system (a new configuration names "C:\").
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

#include "qt/qt_window_services.h"
#include "testing/temp_dir.h"

namespace ferrow {
namespace {

// The dialog opened on `start`, read as the user first sees it ("folder |
// name in the name box"), then cancelled.
std::string OpenOn(const std::string& start) {
  std::string seen = "<the dialog never showed>";
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible()) return;
    poll.stop();
    const auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    seen = dialog->directory().canonicalPath().toStdString() + " | " +
           (name ? name->text().toStdString() : "<no name box>");
    dialog->reject();
  });
  poll.start(10);
  QtWindowServices services;
  EXPECT_EQ(services.OpenFileName("Select Log File", "All Files (*.*)|*.*|", start), "");
  return seen;
}

std::string Canonical(const std::string& folder) {
  return QDir(QString::fromStdString(folder)).canonicalPath().toStdString();
}

TEST(QtOpenFileDialog, AStartThatIsNotOnThisSystemStartsInTheHomeFolderWithNoName) {
  EXPECT_EQ(OpenOn("C:\\"), Canonical(QDir::homePath().toStdString()) + " | ");
}

TEST(QtOpenFileDialog, AFolderIsWhereItStarts) {
  testing::TempDir dir;
  EXPECT_EQ(OpenOn(dir.path()), Canonical(dir.path()) + " | ");
}

TEST(QtOpenFileDialog, AFileStartsInItsFolderWithItsNameFilledIn) {
  testing::TempDir dir;
  testing::WriteBytes(dir.File("Updated.wav"), "RIFF");
  EXPECT_EQ(OpenOn(dir.File("Updated.wav")), Canonical(dir.path()) + " | Updated.wav");
}

TEST(QtOpenFileDialog, AFileThatIsGoneStillStartsInItsFolderWithItsName) {
  testing::TempDir dir;
  EXPECT_EQ(OpenOn(dir.File("gone.wav")), Canonical(dir.path()) + " | gone.wav");
}

TEST(QtOpenFileDialog, AFolderWrittenWithBackslashesIsWhereItStarts) {
  testing::TempDir dir;
  ASSERT_TRUE(QDir().mkpath(QString::fromStdString(dir.File("logs"))));
  EXPECT_EQ(OpenOn(dir.path() + "\\logs"), Canonical(dir.File("logs")) + " | ");
}

}  // namespace
}  // namespace ferrow
