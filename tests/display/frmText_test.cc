#include "qt/frmText.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>

#include "config/ini_file.h"
#include "qt/qt_convert.h"
#include "qt/text_window_filter.h"
#include "testing/fake_control_window.h"
#include "testing/session_fixture.h"

namespace ferrow {
namespace {

using testing::FakeControlWindow;

class FrmTextTest : public testing::SessionTest {
 protected:
  FrmTextTest() { options.FileSection = "app.log"; }
  int Twips(int pixels) { return PixelsToTwips(pixels, &window); }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = "") {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(window.Rtf, &press);
  }
  std::string Stored(const std::string& key) {
    return ReadINIFile(env, options.IniFileName, "app.log", key);
  }

  FakeControlWindow control;
  frmText window{session, control};
};

TEST_F(FrmTextTest, TheStoredGeometryReachesTheWindowInTwips) {
  options.FormWidth = 1845;
  options.FormX = 1440;
  window.Form_Load();
  EXPECT_NEAR(Twips(window.width()), 1845, 20);
  EXPECT_NEAR(Twips(window.x()), 1440, 20);
}

TEST_F(FrmTextTest, LoadStylesTheBoxAndSubclassesIt) {
  options.Font = "Arial";
  options.FontSize = 12;
  options.MaxInputLength = 4096;
  options.BackColour = 0x112233;
  window.Form_Load();
  EXPECT_EQ(window.Rtf->Text(), "");
  EXPECT_EQ(window.Rtf->MaxLength(), 4096);
  EXPECT_EQ(window.Rtf->FontSize(), 12);
  EXPECT_EQ(FromQColor(window.Rtf->palette().color(QPalette::Base)), 0x112233);
  EXPECT_TRUE(TextWindowSubclassed(*window.Rtf));
  EXPECT_TRUE(window.isVisible());
}

TEST_F(FrmTextTest, TheCloseEventStoresTheGeometryAndReturnsToTheControlWindow) {
  window.Form_Load();
  window.resize(50, 20);
  window.close();
  EXPECT_EQ(options.FormWidth, 1844);
  EXPECT_EQ(options.FormHeight, 650);
  EXPECT_EQ(Stored("FormWidth"), "");  // saved only when above the minimum
  EXPECT_NE(Stored("FormX"), "");
  EXPECT_EQ(control.timer_stops, 1);
  EXPECT_EQ(control.activations, 1);
  EXPECT_FALSE(TextWindowSubclassed(*window.Rtf));
}

TEST_F(FrmTextTest, ClosingAMaximisedWindowKeepsTheStoredSize) {
  options.FormWidth = 6000;
  options.FormHeight = 3000;
  window.Form_Load();
  window.showMaximized();
  QApplication::processEvents();
  ASSERT_TRUE(window.isMaximized());
  window.close();
  EXPECT_EQ(options.FormWidth, 6000);
  EXPECT_EQ(options.FormHeight, 3000);
  EXPECT_EQ(Stored("FormWidth"), "6000");
}

TEST_F(FrmTextTest, EditingKeysAndTypingChangeNothing) {
  window.Form_Load();
  window.Rtf->SetText("keep me\n");
  QApplication::clipboard()->setText("clip");
  Key(Qt::Key_V, Qt::ControlModifier);
  Key(Qt::Key_X, Qt::ControlModifier);
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Delete);
  Key(Qt::Key_Q, Qt::NoModifier, "q");
  Key(Qt::Key_Backspace, Qt::NoModifier, "\b");
  EXPECT_EQ(window.Rtf->Text(), "keep me\n");
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "clip");
}

TEST_F(FrmTextTest, CtrlASelectsAllAndCtrlCCopiesPlainText) {
  window.Form_Load();
  window.Rtf->SetText("one\ntwo");
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(window.Rtf->SelLength(), 7);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "one\ntwo");
  EXPECT_EQ(window.Rtf->SelLength(), 0);
}

TEST_F(FrmTextTest, CopyAsRtfPutsTheMarkupOnTheClipboardAsText) {
  options.CopyAsRTF = true;
  window.Form_Load();
  window.Rtf->SetSelColor(0x0000FF);
  window.Rtf->SetSelText("error line");
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_W, Qt::ControlModifier);
  const QMimeData* data = QApplication::clipboard()->mimeData();
  EXPECT_FALSE(data->hasFormat("text/rtf"));
  std::string pasted = data->text().toStdString();
  EXPECT_EQ(pasted.rfind("{\\rtf1", 0), 0u) << pasted;
  EXPECT_NE(pasted.find("\\red255\\green0\\blue0"), std::string::npos);
  EXPECT_NE(pasted.find("error line"), std::string::npos);
}

TEST_F(FrmTextTest, PlainRightClickIsSwallowedButShiftRightClickPassesOn) {
  window.Form_Load();
  TextWindowProc proc;
  QWidget* target = window.Rtf->viewport();
  QMouseEvent plain(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::RightButton,
                    Qt::RightButton, Qt::NoModifier);
  QMouseEvent shifted(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::RightButton,
                      Qt::RightButton, Qt::ShiftModifier);
  QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5), Qt::NoModifier);
  QContextMenuEvent ctrl_menu(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5),
                              Qt::ControlModifier);
  EXPECT_TRUE(proc.eventFilter(target, &plain));
  EXPECT_FALSE(proc.eventFilter(target, &shifted));
  EXPECT_TRUE(proc.eventFilter(target, &menu));
  EXPECT_FALSE(proc.eventFilter(target, &ctrl_menu));
}

TEST_F(FrmTextTest, SubclassingIsInstalledOnceAndRemovedOnce) {
  SubclassTextWindow(*window.Rtf);
  SubclassTextWindow(*window.Rtf);
  EXPECT_EQ(window.Rtf->findChildren<TextWindowProc*>().size(), 1);
  UnsubclassTextWindow(*window.Rtf);
  UnsubclassTextWindow(*window.Rtf);
  EXPECT_FALSE(TextWindowSubclassed(*window.Rtf));
  EXPECT_EQ(window.Rtf->findChildren<TextWindowProc*>().size(), 0);
}

TEST_F(FrmTextTest, DroppedFilesArriveThroughTheDropEvent) {
  window.Form_Load();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile("/logs/one.log"), QUrl::fromLocalFile("/logs/two.log")});
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  // A drop reaches the widget that accepted the drag as it entered.
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.Rtf->viewport(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QApplication::sendEvent(window.Rtf->viewport(), &drop);
  EXPECT_EQ(control.opened, (std::vector<std::string>{"/logs/one.log"}));
  QMimeData words;
  words.setText("not files");
  QDragEnterEvent text_enter(QPoint(5, 5), Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.Rtf->viewport(), &text_enter);
  EXPECT_FALSE(text_enter.isAccepted());
  QDropEvent text_drop(QPointF(5, 5), Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.Rtf->viewport(), &text_drop);
  EXPECT_EQ(control.opened.size(), 1u);
  EXPECT_EQ(window.Rtf->Text(), "");
}

TEST_F(FrmTextTest, CaptionAndFlashReachTheTitleBar) {
  window.Form_Load();
  window.Logic().SetCaption("Ferrow - a.log (1 bytes) [1]");
  EXPECT_EQ(window.windowTitle().toStdString(), "Ferrow - a.log (1 bytes) [1]");
  EXPECT_EQ(window.Logic().Caption(), "Ferrow - a.log (1 bytes) [1]");
  window.Logic().Flash();
}

TEST_F(FrmTextTest, TheLogicsCloseClosesTheWindow) {
  window.Form_Load();
  window.Logic().Close();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(control.closes, 1);
  EXPECT_FALSE(window.Logic().Loaded());
}

TEST(KeyCode, LettersDigitsDeleteAndBackspaceTakeTheirWindowsCodes) {
  EXPECT_EQ(KeyCode(Qt::Key_V), 86);
  EXPECT_EQ(KeyCode(Qt::Key_5), '5');
  EXPECT_EQ(KeyCode(Qt::Key_Delete), 46);
  EXPECT_EQ(KeyCode(Qt::Key_Backspace), 8);
  EXPECT_EQ(KeyCode(Qt::Key_Period), 0) << "not Delete's code, though Qt gives it 46";
}

TEST(CharacterCode, ControlKeysMapToTheirCodes) {
  EXPECT_EQ(CharacterCode(Qt::Key_A, Qt::ControlModifier, ""), 1);
  EXPECT_EQ(CharacterCode(Qt::Key_C, Qt::ControlModifier, ""), 3);
  EXPECT_EQ(CharacterCode(Qt::Key_W, Qt::ControlModifier, ""), 23);
  EXPECT_EQ(CharacterCode(Qt::Key_Return, Qt::NoModifier, "\r"), 13);
  EXPECT_EQ(CharacterCode(Qt::Key_Enter, Qt::ControlModifier, ""), 10);
  EXPECT_EQ(CharacterCode(Qt::Key_Down, Qt::NoModifier, ""), 0);
  EXPECT_EQ(CharacterCode(Qt::Key_Q, Qt::NoModifier, "q"), 'q');
}

}  // namespace
}  // namespace ferrow
