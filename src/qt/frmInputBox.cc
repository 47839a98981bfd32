#include "qt/frmInputBox.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/dialog_keys.h"
#include "qt/qt_convert.h"

namespace ferrow {
namespace {

// The program's one input box; its InputMsg takes no object that could hold it.
InputBoxSlot& ProgramSlot() {
  static InputBoxSlot slot(
      [](const std::shared_ptr<InputBox>& box) -> InputView& { return *new frmInputBox(box); });
  return slot;
}

}  // namespace

frmInputBox::frmInputBox(std::shared_ptr<InputBox> logic, QWidget* parent)
    : QWidget(parent, Qt::Dialog),
      Label1(new QLabel(this)),
      txtInput(new QLineEdit(this)),
      cmdOK(new QPushButton(tr("OK"), this)),
      cmdCancel(new QPushButton(tr("Cancel"), this)),
      logic_(std::move(logic)) {
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
  cmdOK->installEventFilter(this);
  cmdCancel->installEventFilter(this);
}

frmInputBox::~frmInputBox() {
  logic_->ViewGone();
}

void frmInputBox::SetCaption(const std::string& caption) {
  setWindowTitle(ToQt(caption));
}
void frmInputBox::SetPrompt(const std::string& prompt) {
  Label1->setText(ToQt(prompt));
}
void frmInputBox::SetText(const std::string& text) {
  txtInput->setText(ToQt(text));
}
std::string frmInputBox::Text() {
  return FromQt(txtInput->text());
}
void frmInputBox::SelectText(int start, int length) {
  txtInput->setSelection(start, length);
}

void frmInputBox::SetPasswordChar(const std::string& pw_char) {
  txtInput->setEchoMode(pw_char.empty() ? QLineEdit::Normal : QLineEdit::Password);
}

void frmInputBox::Show() {
  show();
  activateWindow();
  txtInput->setFocus();
}

bool frmInputBox::eventFilter(QObject* watched, QEvent* event) {
  const int key = KeyCodeOf(event);
  if (key && watched == txtInput && logic_->txtInput_KeyDown(key)) return true;
  if (key && watched == cmdOK && logic_->cmdOK_KeyDown(key)) return true;
  if (key && watched == cmdCancel && logic_->cmdCancel_KeyDown(key)) return true;
  return QWidget::eventFilter(watched, event);
}

void frmInputBox::closeEvent(QCloseEvent* event) {
  logic_->Form_QueryUnload();
  QWidget::closeEvent(event);
  deleteLater();
}

frmInputBox* LoadedInputBox() {
  const std::shared_ptr<InputBox> box = ProgramSlot().Loaded();
  return box ? static_cast<frmInputBox*>(box->View()) : nullptr;
}

std::string InputMsg(Env& env, const std::string& prompt, const std::string& title,
                     const std::string& edit_string, const std::string& pw_char) {
  return InputMsg(env, ProgramSlot(), prompt, title, edit_string, pw_char);
}

}  // namespace ferrow
