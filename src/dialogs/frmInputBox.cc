#include "dialogs/frmInputBox.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/dialog_keys.h"
#include "display/qt_convert.h"
#include "platform/env.h"

namespace ferrow {
namespace {

QPointer<frmInputBox> loaded;
// The last answer given, for a wait whose box is already gone (one call
// waiting inside another shares the box, and the inner one unloads it).
std::string last_answer;

}  // namespace

frmInputBox::frmInputBox(QWidget* parent)
    : QWidget(parent, Qt::Dialog),
      Label1(new QLabel(this)),
      txtInput(new QLineEdit(this)),
      cmdOK(new QPushButton(tr("OK"), this)),
      cmdCancel(new QPushButton(tr("Cancel"), this)) {
  Label1->setWordWrap(true);
  txtInput->setMinimumWidth(360);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(Label1);
  layout->addWidget(txtInput);
  layout->addLayout(buttons);
  connect(cmdOK, &QPushButton::clicked, this, &frmInputBox::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmInputBox::cmdCancel_Click);
  txtInput->installEventFilter(this);
}

void frmInputBox::Form_Load() {
  txtInput->clear();
  Label1->clear();
  show();
  activateWindow();
  txtInput->setFocus();
}

void frmInputBox::cmdOK_Click() {
  InputResult = last_answer = FromQt(txtInput->text());
  InputDone = true;
  close();
}

void frmInputBox::cmdCancel_Click() {
  InputResult.clear();
  last_answer.clear();
  InputDone = true;
  close();
}

// Enter and line feed confirm, Escape cancels; other keys edit the text.
bool frmInputBox::eventFilter(QObject* watched, QEvent* event) {
  const DialogKey key = watched == txtInput ? DialogKeyOf(event) : DialogKey::kNone;
  if (key == DialogKey::kConfirm) cmdOK_Click();
  if (key == DialogKey::kCancel) cmdCancel_Click();
  return key != DialogKey::kNone || QWidget::eventFilter(watched, event);
}

// The close box answers as Cancel does.
void frmInputBox::closeEvent(QCloseEvent* event) {
  if (!InputDone) {
    InputResult.clear();
    last_answer.clear();
    InputDone = true;
  }
  QWidget::closeEvent(event);
}

frmInputBox* LoadedInputBox() { return loaded.data(); }

std::string InputMsg(Env& env, const std::string& prompt, const std::string& title,
                     const std::string& edit_string, const std::string& pw_char) {
  if (!loaded) {
    loaded = new frmInputBox;
    loaded->Form_Load();
  }
  QPointer<frmInputBox> box = loaded;
  box->InputDone = false;
  box->InputResult.clear();
  box->setWindowTitle(ToQt(title));
  if (!pw_char.empty()) box->txtInput->setEchoMode(QLineEdit::Password);
  if (!edit_string.empty()) {
    box->txtInput->setText(ToQt(edit_string));
    box->txtInput->selectAll();
  }
  box->Label1->setText(ToQt(prompt));
  while (box && !box->InputDone) {
    QApplication::processEvents();
    env.SleepMs(100);
    QApplication::processEvents();
  }
  const std::string answer = box ? box->InputResult : last_answer;
  // Unloaded before the answer goes back; a later call makes a new box.
  if (loaded == box) loaded.clear();
  if (box) box->deleteLater();
  return answer;
}

}  // namespace ferrow
