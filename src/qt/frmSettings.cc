#include "qt/frmSettings.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

#include "qt/event_passes.h"
#include "qt/dialog_keys.h"
#include "qt/qt_convert.h"
#include "display/themes.h"
#include "session/session.h"

namespace ferrow {
namespace {

template <typename Control>
Control* Make(SettingsControl which, QWidget* parent) {
  const ControlText text = SettingsText(which);
  auto* control = new Control(ToQt(text.caption), parent);
  control->setToolTip(ToQt(text.tool_tip));
  return control;
}

}  // namespace

frmSettings::frmSettings(Session& session, MenuPort& menu, WindowServices& services,
                         QWidget* parent)
    : QWidget(parent, Qt::Dialog), gate_(session.gate), logic_(session, menu, services, *this) {
  BuildControls();
}

void frmSettings::BuildControls() {
  Frame1 = Make<QGroupBox>(SettingsControl::kFrame1, this);
  auto* themes = new QGridLayout(Frame1);
  for (int i = 0; i < kThemeCount; ++i) {
    optTheme[static_cast<size_t>(i)] =
        new QRadioButton(ThemeCaptions()[static_cast<size_t>(i)], Frame1);
    themes->addWidget(optTheme[static_cast<size_t>(i)], i % 6, i / 6);
  }
  chkNiceMode = Make<QCheckBox>(SettingsControl::kNiceMode, this);
  chkQuickScroll = Make<QCheckBox>(SettingsControl::kQuickScroll, this);
  chkCopyAsRTF = Make<QCheckBox>(SettingsControl::kCopyAsRTF, this);
  chkAlert = Make<QCheckBox>(SettingsControl::kAlert, this);
  chkPlaySound = Make<QCheckBox>(SettingsControl::kPlaySound, this);

  Frame2 = Make<QGroupBox>(SettingsControl::kFrame2, this);
  lblUpdatedWav = new QLabel(Frame2);
  lblUpdatedWav->setTextInteractionFlags(Qt::TextSelectableByMouse);
  cmdBrowseWav = Make<QPushButton>(SettingsControl::kBrowseWav, Frame2);
  cmdBrowseWav->setIcon(style()->standardIcon(QStyle::SP_DirOpenIcon));
  cmdRevertWav = Make<QPushButton>(SettingsControl::kRevertWav, Frame2);
  auto* sound = new QGridLayout(Frame2);
  sound->addWidget(lblUpdatedWav, 0, 0, 1, 2);
  sound->addWidget(cmdBrowseWav, 1, 0);
  sound->addWidget(cmdRevertWav, 1, 1);

  Label1 = Make<QLabel>(SettingsControl::kClearHistory, this);
  Command1 = Make<QPushButton>(SettingsControl::kClearHistory, this);
  Command1->setText("");
  Command1->setIcon(style()->standardIcon(QStyle::SP_TrashIcon));
  cmdOK = Make<QPushButton>(SettingsControl::kOK, this);
  cmdCancel = Make<QPushButton>(SettingsControl::kCancel, this);

  auto* checks = new QVBoxLayout;
  for (QCheckBox* box : {chkNiceMode, chkQuickScroll, chkCopyAsRTF, chkAlert, chkPlaySound})
    checks->addWidget(box);
  checks->addStretch();
  auto* history = new QHBoxLayout;
  history->addWidget(Label1);
  history->addStretch();
  history->addWidget(Command1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  auto* grid = new QGridLayout(this);
  grid->addWidget(Frame1, 0, 0, 2, 1);
  grid->addLayout(checks, 0, 1);
  grid->addWidget(Frame2, 1, 1);
  grid->addLayout(history, 2, 0, 1, 2);
  grid->addLayout(buttons, 3, 0, 1, 2);
  grid->setSizeConstraint(QLayout::SetFixedSize);

  SettingsDialog* logic = &logic_;
  connect(chkAlert, &QCheckBox::clicked, this, [logic] { logic->chkAlert_Click(); });
  connect(chkNiceMode, &QCheckBox::clicked, this, [logic] { logic->chkNiceMode_Click(); });
  connect(chkPlaySound, &QCheckBox::clicked, this, [logic] { logic->chkPlaySound_Click(); });
  connect(chkQuickScroll, &QCheckBox::clicked, this, [logic] { logic->chkQuickScroll_Click(); });
  connect(cmdOK, &QPushButton::clicked, this, &frmSettings::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmSettings::cmdCancel_Click);
  connect(Command1, &QPushButton::clicked, this, &frmSettings::Command1_Click);
  connect(cmdBrowseWav, &QPushButton::clicked, this, &frmSettings::cmdBrowseWav_Click);
  connect(cmdRevertWav, &QPushButton::clicked, this, &frmSettings::cmdRevertWav_Click);
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
  installEventFilter(this);
}

QCheckBox* frmSettings::Box(SettingsControl box) const {
  switch (box) {
    case SettingsControl::kNiceMode:
      return chkNiceMode;
    case SettingsControl::kQuickScroll:
      return chkQuickScroll;
    case SettingsControl::kCopyAsRTF:
      return chkCopyAsRTF;
    case SettingsControl::kAlert:
      return chkAlert;
    case SettingsControl::kPlaySound:
      return chkPlaySound;
    default:
      return nullptr;
  }
}

void frmSettings::SetCaption(const std::string& caption) {
  setWindowTitle(ToQt(caption));
}

void frmSettings::SetThemeChecked(int index) {
  optTheme.at(static_cast<size_t>(index))->setChecked(true);
}

bool frmSettings::ThemeChecked(int index) {
  return optTheme.at(static_cast<size_t>(index))->isChecked();
}

void frmSettings::SetThemeFont(int index, const std::string& font_name, int points) {
  optTheme.at(static_cast<size_t>(index))->setFont(MakeFont(font_name, points, false));
}

void frmSettings::SetChecked(SettingsControl box, bool on) {
  if (QCheckBox* check = Box(box)) check->setChecked(on);
}

bool frmSettings::Checked(SettingsControl box) {
  const QCheckBox* check = Box(box);
  return check && check->isChecked();
}

void frmSettings::SetSoundLabel(const std::string& text) {
  lblUpdatedWav->setText(ToQt(text));
}

void frmSettings::CentreOnScreen() {
  adjustSize();
  CentreWindow(*this);
}

bool frmSettings::eventFilter(QObject* watched, QEvent* event) {
  const int key = KeyCodeOf(event);
  if (!key) return QWidget::eventFilter(watched, event);
  const bool taken = watched == cmdOK       ? logic_.cmdOK_KeyDown(key)
                     : watched == cmdCancel ? logic_.cmdCancel_KeyDown(key)
                                            : logic_.Control_KeyDown(key);
  if (taken) return true;
  return QWidget::eventFilter(watched, event);
}

void frmSettings::closeEvent(QCloseEvent* event) {
  if (!logic_.Form_QueryUnload()) {
    event->ignore();
    return;
  }
  QWidget::closeEvent(event);
  DeleteWindowLater(gate_, this);
}

}  // namespace ferrow
