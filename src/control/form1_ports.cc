// What the control window does for the others: captions and messages for
// core, the file name box and the timer for the text window, the text window,
// timer, pause button and sound for the following engine.
#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>
#include <QToolButton>

#include "control/Form1.h"
#include "control/menu_position.h"
#include "control/window_services.h"
#include "display/frmText.h"
#include "display/qt_convert.h"
#include "control/sound_player.h"
#include "startup/session.h"

namespace ferrow {

void Form1::SetMenuCaption(const std::string& caption) { setWindowTitle(ToQt(caption)); }
std::string Form1::MenuCaption() { return FromQt(windowTitle()); }
void Form1::RefreshMenu() { repaint(); }

void Form1::ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) {
  services_.Message(text, title, icon);
}

bool Form1::AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) {
  return services_.AskYesNo(text, title, icon);
}

void Form1::SetFileNameBox(const std::string& name) { cmbFileName->setEditText(ToQt(name)); }

void Form1::StopTimer() { Timer1->stop(); }

void Form1::ClearHistoryList() { cmbFileName->clear(); }

void Form1::ShowNormalAndActivate() {
  if (session_.gate.Closing()) return;  // nothing comes back once the program is closing
  showNormal();
  raise();
  activateWindow();
}

// A text window the user closed is gone; the next update loads a new one
// (not shown once the program is closing).
frmText& Form1::LoadTextWindow() {
  if (!text_window_) {
    text_window_ = new frmText(session_, *this);
    if (!session_.gate.Closing()) text_window_->Form_Load();
  }
  return *text_window_;
}

// The text window may be the one asking (a file dropped on it opens that
// file): closed, it is deleted only once no handler runs (DeleteWindowLater).
void Form1::UnloadTextWindow() {
  if (!text_window_) return;
  frmText* leaving = text_window_;
  text_window_ = nullptr;
  leaving->close();
}

void Form1::TextWindowClosed(const TextBox& box) {
  if (text_window_ && text_window_->Rtf == &box) text_window_ = nullptr;
}

TextBox& Form1::TextWindowBox() { return *LoadTextWindow().Rtf; }

bool Form1::StillShowing(const TextBox& box) {
  return !session_.gate.Closing() && text_window_ && text_window_->Rtf == &box;
}

void Form1::SetTextWindowCaption(const std::string& caption) {
  LoadTextWindow().setWindowTitle(ToQt(caption));
}

void Form1::FlashTextWindow() { QApplication::alert(&LoadTextWindow(), 500); }

bool Form1::TimerEnabled() { return Timer1->isActive(); }

void Form1::SetTimerEnabled(bool enabled) {
  if (enabled && session_.gate.Closing()) return;
  if (enabled) Timer1->start();
  else Timer1->stop();
}

void Form1::SetTimerInterval(int milliseconds) { Timer1->setInterval(milliseconds); }

void Form1::ShowPauseButton(bool following, const std::string& tool_tip) {
  cmdPause->setText("");
  cmdPause->setIcon(following ? imgStop : imgGo);
  cmdPause->setToolTip(ToQt(tool_tip));
}

std::string Form1::FileNameBoxText() { return FromQt(cmbFileName->currentText()); }

void Form1::ClearPlaySoundCheckBox() { chkPlaySound->SetValue(0); }

void Form1::StoreMenuPosition(Options& options) {
  RememberMenuPosition(options, PixelsToTwips(x(), this), PixelsToTwips(y(), this));
}

bool Form1::PlaySoundFile(const std::string& file, bool loop) { return sound_->PlaySoundFile(file, loop); }

void Form1::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void Form1::dropEvent(QDropEvent* event) {
  QStringList names;
  for (const QUrl& url : event->mimeData()->urls()) names << url.toLocalFile();
  event->acceptProposedAction();
  Form_OLEDragDrop(names);
}

}  // namespace ferrow
