#include "dialogs/frmSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include "about/product.h"
#include "config/history.h"
#include "config/settings.h"
#include "control/menu_port.h"
#include "control/event_passes.h"
#include "control/window_services.h"
#include "dialogs/dialog_keys.h"
#include "display/qt_convert.h"
#include "display/themes.h"
#include "session/session.h"
#include "support/paths.h"

namespace ferrow {
namespace {

constexpr int kNiceInterval = 2000, kNormalInterval = 500;

}  // namespace

frmSettings::frmSettings(Session& session, MenuPort& menu, WindowServices& services, QWidget* parent)
    : QWidget(parent, Qt::Dialog), session_(session), menu_(menu), services_(services) {
  BuildControls();
}

void frmSettings::BuildControls() {
  Frame1 = new QGroupBox(tr("Colour Scheme"), this);
  auto* themes = new QGridLayout(Frame1);
  for (int i = 0; i < kThemeCount; ++i) {
    optTheme[static_cast<size_t>(i)] = new QRadioButton(ThemeCaptions()[static_cast<size_t>(i)], Frame1);
    themes->addWidget(optTheme[static_cast<size_t>(i)], i % 6, i / 6);
  }
  auto check = [this](const QString& caption, const QString& tip) {
    auto* box = new QCheckBox(caption, this);
    box->setToolTip(tip);
    return box;
  };
  chkNiceMode = check(tr("CPU friendly mode"), tr("Kinder on CPU usage"));
  chkQuickScroll = check(tr("Quick scrolling"), tr("Improves CPU performance"));
  chkCopyAsRTF = check(tr("Copy using RTF format"), tr("Applies when selecting text and pressing ENTER"));
  chkAlert = check(tr("Flash window on update"), tr("Notify events by flashing the window"));
  chkPlaySound = check(tr("Play sound on update"), tr("Play any WAV file you have selected below"));

  Frame2 = new QGroupBox(tr("Update Sound"), this);
  lblUpdatedWav = new QLabel(Frame2);
  lblUpdatedWav->setTextInteractionFlags(Qt::TextSelectableByMouse);
  cmdBrowseWav = new QPushButton(style()->standardIcon(QStyle::SP_DirOpenIcon), "", Frame2);
  cmdBrowseWav->setToolTip(tr("Browse for new sound file"));
  cmdRevertWav = new QPushButton(tr("Revert to default sound"), Frame2);
  auto* sound = new QGridLayout(Frame2);
  sound->addWidget(lblUpdatedWav, 0, 0, 1, 2);
  sound->addWidget(cmdBrowseWav, 1, 0);
  sound->addWidget(cmdRevertWav, 1, 1);

  Label1 = new QLabel(tr("Clear history"), this);
  Command1 = new QPushButton(style()->standardIcon(QStyle::SP_TrashIcon), "", this);
  const QString history_tip = tr("You can clear individual list items using SHIFT+DEL in the main window");
  Label1->setToolTip(history_tip);
  Command1->setToolTip(history_tip);
  cmdOK = new QPushButton(tr("&Apply"), this);
  cmdOK->setToolTip(tr("Close and reload the log file"));
  cmdCancel = new QPushButton(tr("&Close"), this);
  cmdCancel->setToolTip(tr("Close without reloading the log file"));

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

  Options& o = session_.options;
  connect(chkAlert, &QCheckBox::clicked, this, [&o](bool on) { o.AlertOnUpdate = on; });
  connect(chkNiceMode, &QCheckBox::clicked, this, [&o](bool on) {
    o.NiceMode = on;
    o.TimerInterval = static_cast<int16_t>(on ? kNiceInterval : kNormalInterval);
  });
  connect(chkPlaySound, &QCheckBox::clicked, this, [this, &o](bool on) {
    o.PlaySoundOnUpdate = on;
    menu_.SetPlaySoundCheckBox(on);
  });
  connect(chkQuickScroll, &QCheckBox::clicked, this, [&o](bool on) { o.QuickScroll = on; });
  connect(cmdOK, &QPushButton::clicked, this, &frmSettings::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmSettings::cmdCancel_Click);
  connect(Command1, &QPushButton::clicked, this, &frmSettings::Command1_Click);
  connect(cmdBrowseWav, &QPushButton::clicked, this, &frmSettings::cmdBrowseWav_Click);
  connect(cmdRevertWav, &QPushButton::clicked, this, &frmSettings::cmdRevertWav_Click);
  for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
  installEventFilter(this);
}

void frmSettings::Form_Load() {
  const Options& o = session_.options;
  if (o.ThemeNumber >= 0 && o.ThemeNumber < kThemeCount)
    optTheme[static_cast<size_t>(o.ThemeNumber)]->setChecked(true);
  chkNiceMode->setChecked(o.TimerInterval == kNiceInterval);
  chkPlaySound->setChecked(o.PlaySoundOnUpdate);
  chkQuickScroll->setChecked(o.QuickScroll);
  chkAlert->setChecked(o.AlertOnUpdate);
  chkCopyAsRTF->setChecked(o.CopyAsRTF);
  lblUpdatedWav->setText(ToQt(o.UpdateSound));
  // Each theme's button in that theme's font: the list previews the themes.
  for (int i = 0; i < kThemeCount; ++i)
    optTheme[static_cast<size_t>(i)]->setFont(MakeFont(o.Themes.ThemeFontName[static_cast<size_t>(i)],
                                                       o.Themes.ThemeFontSize[static_cast<size_t>(i)], false));
  setWindowTitle(ToQt(std::string(kProductName) + " Settings"));
  adjustSize();
  CentreWindow(*this);
  show();
}

void frmSettings::SaveSettings() {
  SaveFileSettings(session_, session_.options.FileSection);
  SaveCommonSettings(session_);
}

// Apply runs once at a time; keys and clicks that arrive while its reload
// lets events run are dropped (it closes the dialog itself when done).
void frmSettings::cmdOK_Click() {
  session_.gate.Run(WindowGate::Work::kApply, [this] { Apply(); });
}

void frmSettings::Apply() {
  Options& o = session_.options;
  setWindowTitle(tr("Applying settings..."));
  for (int i = 0; i < kThemeCount; ++i)
    if (optTheme[static_cast<size_t>(i)]->isChecked()) o.ThemeNumber = static_cast<int16_t>(i);
  if (o.Themes.ThemeCode[0].empty()) SetTheme(o, o.Themes, "");  // fills the codes
  SetTheme(o, o.Themes, o.Themes.ThemeCode[static_cast<size_t>(o.ThemeNumber)]);
  o.NiceMode = chkNiceMode->isChecked();
  o.TimerInterval = static_cast<int16_t>(o.NiceMode ? kNiceInterval : kNormalInterval);
  o.PlaySoundOnUpdate = chkPlaySound->isChecked();
  o.AlertOnUpdate = chkAlert->isChecked();
  menu_.SetPlaySoundCheckBox(o.PlaySoundOnUpdate);
  o.CopyAsRTF = chkCopyAsRTF->isChecked();
  o.QuickScroll = chkQuickScroll->isChecked();
  SaveSettings();
  menu_.SetTimerInterval(o.TimerInterval);
  menu_.RestartFollowing();
  closing_ = true;
  close();
}

void frmSettings::cmdCancel_Click() {
  if (session_.gate.Running() == WindowGate::Work::kApply) return;
  SaveSettings();
  closing_ = true;
  close();
}

void frmSettings::Command1_Click() {
  Options& o = session_.options;
  for (int i = 0; i < o.HistoryTotal; ++i) o.HistoryList[static_cast<size_t>(i)].clear();
  o.HistoryTotal = 0;
  menu_.ClearHistoryList();
  SaveHistory(session_);
  services_.Message("History Cleared", "Information", MessageIcon::Information);
}

void frmSettings::cmdBrowseWav_Click() {
  Options& o = session_.options;
  std::string folder = FolderPart(o.UpdateSound);
  if (folder.empty()) folder = FolderPart(session_.env.ProgramPath());
  const std::string chosen = services_.OpenFileName("Select Update Sound", "WAV files|*.wav|",
                                                    JoinPath(folder, FileNamePart(o.UpdateSound)));
  if (chosen.empty() || !FileExists(session_.env, chosen)) return;
  o.UpdateSound = chosen;
  lblUpdatedWav->setText(ToQt(chosen));
}

void frmSettings::cmdRevertWav_Click() {
  session_.options.UpdateSound = "Updated.wav";
  lblUpdatedWav->setText("Updated.wav");
}

// Enter applies and Escape closes, whichever control has the focus.
bool frmSettings::eventFilter(QObject* watched, QEvent* event) {
  const DialogKey key = DialogKeyOf(event);
  if (key == DialogKey::kConfirm) cmdOK_Click();
  if (key == DialogKey::kCancel) cmdCancel_Click();
  return key != DialogKey::kNone || QWidget::eventFilter(watched, event);
}

void frmSettings::closeEvent(QCloseEvent* event) {
  if (session_.gate.Running() == WindowGate::Work::kApply && !closing_) {
    event->ignore();  // Apply closes the dialog itself once its reload is over
    return;
  }
  // A running open re-enables them itself at its end.
  const WindowGate& gate = session_.gate;
  if (!gate.Closing() && (!gate.Busy() || gate.Running() == WindowGate::Work::kApply)) {
    menu_.EnableCheckBoxes();
    menu_.EnableAllButtons();
  }
  QWidget::closeEvent(event);
  DeleteWindowLater(session_.gate, this);
}

}  // namespace ferrow
