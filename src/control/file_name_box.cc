// The file name box with its history list, the plain name field, drops on
// the window and on the box, and the tip label.
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QToolButton>

#include "about/shortcut_files.h"
#include "about/tips.h"
#include "config/history.h"
#include "control/Form1.h"
#include "display/qt_convert.h"
#include "startup/session.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

void Form1::cmbFileName_Change() {
  cmdLink->setEnabled(false);
  if (cmbFileName->currentText().isEmpty()) return;  // an emptied box leaves Open as it was
  cmdOK->setEnabled(true);
  ClearCheckBoxes();
  cmdLink->setEnabled(session_.options.HelperLibraryVersion > 0);
}

void Form1::cmbFileName_Click() {
  if (!cmbFileName->currentText().isEmpty()) {
    cmdOK->setEnabled(true);
    SetCheckboxesDefault();
    ClearCheckBoxes();
  } else {
    cmdOK->setEnabled(false);
  }
  cmdLink->setEnabled(session_.options.HelperLibraryVersion > 0);
}

// SHIFT+DEL removes the history entry the user sees, here and in the stored
// history; what the box shows stays as it is.
void Form1::cmbFileName_KeyDown(int key, Qt::KeyboardModifiers modifiers) {
  if (key != Qt::Key_Delete || modifiers != Qt::ShiftModifier) return;
  const int index = ShownHistoryIndex();
  if (index < 0) return;
  const std::string name = FromQt(cmbFileName->itemText(index));
  if (name.empty()) return;
  RemoveFromHistory(session_, name);
  const QString shown = cmbFileName->currentText();
  const QSignalBlocker quiet(cmbFileName);
  cmbFileName->removeItem(index);
  if (!cmbFileName->view()->isVisible()) cmbFileName->setEditText(shown);
}

int Form1::ShownHistoryIndex() const {
  if (cmbFileName->view()->isVisible()) return cmbFileName->view()->currentIndex().row();
  // Names are compared without regard to case, as the history keeps them.
  return cmbFileName->findText(cmbFileName->currentText(), Qt::MatchFixedString);
}

void Form1::cmbFileName_KeyPress(int character) {
  if (character == 13) OK_Click();
}

void Form1::cmbFileName_OLEDragDrop(const QStringList& names) {
  if (names.isEmpty() || names.first().isEmpty()) return;
  const std::string name = FromQt(names.first());
  SetFileNameBox(name);
  if (!IsShortcutFile(name) || !session_.helper) return;
  const std::string target = session_.helper->GetLinkTarget(name).value_or("");
  if (!target.empty() && FileExists(session_.env, target)) SetFileNameBox(target);
}

void Form1::Form_OLEDragDrop(const QStringList& names) {
  if (!names.isEmpty()) SetFileNameBox(FromQt(names.first()));
}

void Form1::txtFileName_Change() {
  const std::string text = FromQt(txtFileName->text());
  cmdOK->setEnabled(!text.empty());
  if (!text.empty()) session_.options.FileName = text;
}

void Form1::ShowTip() { lblDragDropTip->setText(ToQt(ferrow::ShowTip(LastTip, random_))); }

void Form1::FillHistoryList() {
  const QString text = cmbFileName->currentText();
  const QSignalBlocker quiet(cmbFileName);
  cmbFileName->clear();
  const Options& o = session_.options;
  for (int i = 0; i < o.HistoryTotal; ++i)
    if (!o.HistoryList[static_cast<size_t>(i)].empty())
      cmbFileName->addItem(ToQt(o.HistoryList[static_cast<size_t>(i)]));
  cmbFileName->setEditText(text);
}

}  // namespace ferrow
