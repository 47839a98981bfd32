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

struct DialogStart {
  std::string folder;
  std::string name;
  bool seen = false;
};

// The dialog opened on `start`, read as the user first sees it, then cancelled.
DialogStart OpenOn(const std::string& start) {
  DialogStart seen;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible()) return;
    poll.stop();
    seen.seen = true;
    seen.folder = QDir(dialog->directory()).canonicalPath().toStdString();
    if (auto* name = dialog->findChild<QLineEdit*>("fileNameEdit")) seen.name = name->text().toStdString();
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
  const DialogStart seen = OpenOn("C:\\");
  ASSERT_TRUE(seen.seen);
  EXPECT_EQ(seen.folder, Canonical(QDir::homePath().toStdString()));
  EXPECT_EQ(seen.name, "");
}

TEST(QtOpenFileDialog, AFolderIsWhereItStarts) {
  testing::TempDir dir;
  const DialogStart seen = OpenOn(dir.path());
  ASSERT_TRUE(seen.seen);
  EXPECT_EQ(seen.folder, Canonical(dir.path()));
  EXPECT_EQ(seen.name, "");
}

TEST(QtOpenFileDialog, AFileStartsInItsFolderWithItsNameFilledIn) {
  testing::TempDir dir;
  testing::WriteBytes(dir.File("Updated.wav"), "RIFF");
  const DialogStart seen = OpenOn(dir.File("Updated.wav"));
  ASSERT_TRUE(seen.seen);
  EXPECT_EQ(seen.folder, Canonical(dir.path()));
  EXPECT_EQ(seen.name, "Updated.wav");
}

TEST(QtOpenFileDialog, AFileThatIsGoneStillStartsInItsFolderWithItsName) {
  testing::TempDir dir;
  const DialogStart seen = OpenOn(dir.File("gone.wav"));
  ASSERT_TRUE(seen.seen);
  EXPECT_EQ(seen.folder, Canonical(dir.path()));
  EXPECT_EQ(seen.name, "gone.wav");
}

TEST(QtOpenFileDialog, AFolderWrittenWithBackslashesIsWhereItStarts) {
  testing::TempDir dir;
  ASSERT_TRUE(QDir().mkpath(QString::fromStdString(dir.File("logs"))));
  const DialogStart seen = OpenOn(dir.path() + "\\logs");
  ASSERT_TRUE(seen.seen);
  EXPECT_EQ(seen.folder, Canonical(dir.File("logs")));
  EXPECT_EQ(seen.name, "");
}

}  // namespace
}  // namespace ferrow
