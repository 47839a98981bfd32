// What the control window shows: caption, place, controls, the history list,
// the timer and the sound; and the other windows it makes.
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

#include "qt/frmAbout.h"
#include "qt/Form1.h"
#include "qt/sound_player.h"
#include "qt/frmInputBox.h"
#include "qt/frmSettings.h"
#include "qt/frmText.h"
#include "qt/qt_convert.h"
#include "session/session.h"

namespace ferrow {
void Form1::SetCaption(const std::string& caption) { setWindowTitle(ToQt(caption)); }
std::string Form1::Caption() { return FromQt(windowTitle()); }
void Form1::Repaint() { repaint(); }
bool Form1::Minimised() { return isMinimized(); }
int32_t Form1::LeftTwips() { return PixelsToTwips(x(), this); }
int32_t Form1::TopTwips() { return PixelsToTwips(y(), this); }
void Form1::MoveTwips(int32_t left, int32_t top) { move(TwipsToPixels(left, this), TwipsToPixels(top, this)); }
void Form1::ShowMinimised() { showMinimized(); }
void Form1::CentreOnScreen() {
  adjustSize();
  CentreWindow(*this);
}

void Form1::ShowNormal() {
  adjustSize();
  showNormal();
}

void Form1::BringToFront() {
  raise();
  activateWindow();
}

void Form1::SetEnabled(Control control, bool enabled) { Widget(control)->setEnabled(enabled); }
bool Form1::Enabled(Control control) { return Widget(control)->isEnabled(); }
void Form1::SetToolTip(Control control, const std::string& tip) { Widget(control)->setToolTip(ToQt(tip)); }

int Form1::Value(Control control) {
  auto* box = qobject_cast<TriStateBox*>(Widget(control));
  return box ? box->Value() : 0;
}

void Form1::SetValue(Control control, int value) {
  if (auto* box = qobject_cast<TriStateBox*>(Widget(control))) box->SetValue(value);
}

std::string Form1::Text(Control control) {
  switch (control) {
    case Control::cmbFileName: return FromQt(cmbFileName->currentText());
    case Control::txtFileName: return FromQt(txtFileName->text());
    case Control::lblDragDropTip: return FromQt(lblDragDropTip->text());
    default: return "";
  }
}

void Form1::SetText(Control control, const std::string& text) {
  switch (control) {
    case Control::cmbFileName:
      // A name the program puts in the box closes the list, as the Windows box does.
      cmbFileName->hidePopup();
      cmbFileName->setEditText(ToQt(text));
      break;
    case Control::txtFileName: txtFileName->setText(ToQt(text)); break;
    case Control::lblDragDropTip: lblDragDropTip->setText(ToQt(text)); break;
    default: break;
  }
}

void Form1::SetPausePicture(bool following) {
  cmdPause->setText("");
  cmdPause->setIcon(following ? imgStop : imgGo);
}

void Form1::SetList(const std::vector<std::string>& names) {
  const QString text = cmbFileName->currentText();
  const QSignalBlocker quiet(cmbFileName);
  cmbFileName->clear();
  for (const std::string& name : names) cmbFileName->addItem(ToQt(name));
  cmbFileName->setEditText(text);
}

std::vector<std::string> Form1::List() {
  std::vector<std::string> names;
  for (int i = 0; i < cmbFileName->count(); ++i) names.push_back(FromQt(cmbFileName->itemText(i)));
  return names;
}

int Form1::HighlightedListIndex() {
  return cmbFileName->view()->isVisible() ? cmbFileName->view()->currentIndex().row() : -1;
}

void Form1::RemoveListItem(int index) {
  const QString shown = cmbFileName->currentText();
  const bool dropped = cmbFileName->view()->isVisible();
  const QSignalBlocker quiet(cmbFileName);
  cmbFileName->removeItem(index);
  if (!dropped) cmbFileName->setEditText(shown);
}

void Form1::SelectBoxText() { cmbFileName->lineEdit()->selectAll(); }

void Form1::SetTimerInterval(int milliseconds) { Timer1->setInterval(milliseconds); }

void Form1::SetTimerEnabled(bool enabled) {
  if (enabled) Timer1->start();
  else Timer1->stop();
}

bool Form1::TimerEnabled() { return Timer1->isActive(); }

bool Form1::PlaySoundFile(const std::string& file, bool loop) { return sound_->PlaySoundFile(file, loop); }

}  // namespace ferrow
