#include "control/Form1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QToolButton>

#include "about/desktop_link.h"
#include "about/frmAbout.h"
#include "about/tips.h"
#include "about/usage.h"
#include "config/history.h"
#include "config/ini_file.h"
#include "config/keys.h"
#include "config/settings.h"
#include "config/write_lock.h"
#include "control/control_texts.h"
#include "control/drawn_icons.h"
#include "control/menu_position.h"
#include "control/window_services.h"
#include "diag/debug_log.h"
#include "dialogs/frmInputBox.h"
#include "dialogs/frmSettings.h"
#include "display/filters.h"
#include "display/frmText.h"
#include "display/qt_convert.h"
#include "control/sound_player.h"
#include "startup/session.h"
#include "support/paths.h"

namespace ferrow {

int TriStateBox::Value() const {
  switch (checkState()) {
    case Qt::Checked: return 1;
    case Qt::PartiallyChecked: return 2;
    default: return 0;
  }
}

void TriStateBox::SetValue(int value) {
  setTristate(true);
  setCheckState(value == 1 ? Qt::Checked : value == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
}

void TriStateBox::nextCheckState() {
  setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

Form1::Form1(Session& session, WindowServices& services, QWidget* parent)
    : QWidget(parent),
      session_(session),
      services_(services),
      follower_(session, *this),
      sound_(new SoundPlayer(this)) {
  BuildControls();
  Connect();
  open_settings = [this] { (new frmSettings(session_, *this, services_))->Form_Load(); };
  open_about = [this] { (new frmAbout(session_, *this))->Form_Load(); };
}

Form1::~Form1() { delete text_window_.data(); }

void Form1::BuildControls() {
  QStyle* st = style();
  auto button = [this](const QIcon& icon, const QString& tip) {
    auto* b = new QToolButton(this);
    b->setIcon(icon);
    b->setIconSize(QSize(24, 24));
    b->setAutoRaise(false);
    b->setToolTip(tip);
    b->installEventFilter(this);
    return b;
  };
  cmbFileName = new QComboBox(this);
  cmbFileName->setEditable(true);
  cmbFileName->setInsertPolicy(QComboBox::NoInsert);
  cmbFileName->setMinimumContentsLength(40);
  // No completion: what opens is exactly what the user typed, and only a
  // pick from the list counts as picking.
  cmbFileName->setCompleter(nullptr);
  cmbFileName->setToolTip(tr("Type or pick the file to follow, or drop one here (SHIFT+DEL removes it from the list)"));
  cmbFileName->installEventFilter(this);
  cmbFileName->lineEdit()->installEventFilter(this);
  cmbFileName->view()->installEventFilter(this);
  txtFileName = new QLineEdit(this);
  txtFileName->hide();  // a second entry field, kept for what it does to the Open button

  cmdOK = button(st->standardIcon(QStyle::SP_DialogOpenButton), tr("Open the file and follow it"));
  cmdBrowse = button(st->standardIcon(QStyle::SP_DirOpenIcon), tr("Browse for a file"));
  cmdOptions = button(SpannerIcon(), tr("Settings"));
  cmdFilter = button(BinocularsIcon(), "");
  imgStop = st->standardIcon(QStyle::SP_MediaPause);
  imgGo = st->standardIcon(QStyle::SP_MediaPlay);
  cmdPause = button(imgStop, tr("Click to pause"));
  cmdAbout = button(st->standardIcon(QStyle::SP_MessageBoxQuestion), tr("About and command-line options"));
  cmdLink = button(st->standardIcon(QStyle::SP_FileLinkIcon), tr("Create a desktop shortcut to this file"));
  cmdClose = button(st->standardIcon(QStyle::SP_DialogCloseButton), tr("Close"));

  chkFileStart = new TriStateBox(tr("Bring from start of file"), this);
  chkMinimise = new TriStateBox(tr("Minimise this menu"), this);
  chkPlaySound = new TriStateBox(tr("Play sound on update"), this);
  for (TriStateBox* box : {chkFileStart, chkMinimise, chkPlaySound}) {
    box->setTristate(true);
    box->installEventFilter(this);
  }
  chkFileStart->setToolTip(tr("Show as much as the buffer holds from the end of the file when it is opened"));
  chkMinimise->setToolTip(tr("Minimise this window once the file is opened"));
  chkPlaySound->setToolTip(tr("Play a sound each time the file grows"));

  lblDragDropTip = new QLabel(this);
  lblDragDropTip->setToolTip(tr("Click for another tip"));
  lblDragDropTip->installEventFilter(this);
  Timer1 = new QTimer(this);

  auto* buttons = new QHBoxLayout;
  for (QToolButton* b : {cmdOK, cmdOptions, cmdFilter, cmdPause, cmdAbout, cmdLink, cmdClose})
    buttons->addWidget(b);
  buttons->addStretch();
  auto* checks = new QHBoxLayout;
  for (TriStateBox* box : {chkFileStart, chkMinimise, chkPlaySound}) checks->addWidget(box);
  checks->addStretch();
  auto* grid = new QGridLayout(this);
  grid->addWidget(cmbFileName, 0, 0);
  grid->addWidget(cmdBrowse, 0, 1);
  grid->addLayout(buttons, 1, 0, 1, 2);
  grid->addLayout(checks, 2, 0, 1, 2);
  grid->addWidget(lblDragDropTip, 3, 0, 1, 2);
  grid->setSizeConstraint(QLayout::SetFixedSize);  // a fixed-size window

  setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
  setAcceptDrops(true);
}

void Form1::Connect() {
  connect(cmdOK, &QToolButton::clicked, this, [this] { OK_Click(); });
  connect(cmdBrowse, &QToolButton::clicked, this, &Form1::cmdBrowse_Click);
  connect(cmdOptions, &QToolButton::clicked, this, &Form1::cmdOptions_Click);
  connect(cmdFilter, &QToolButton::clicked, this, &Form1::cmdFilter_Click);
  connect(cmdPause, &QToolButton::clicked, this, [this] { follower_.cmdPause_Click(); });
  connect(cmdAbout, &QToolButton::clicked, this, &Form1::cmdAbout_Click);
  connect(cmdClose, &QToolButton::clicked, this, &Form1::cmdClose_Click);
  connect(cmdLink, &QToolButton::clicked, this, &Form1::cmdLink_Click);
  connect(Timer1, &QTimer::timeout, this, [this] {
    if (!session_.gate.Closing()) follower_.Timer1_Timer();
  });
  connect(cmbFileName, &QComboBox::editTextChanged, this, [this] { cmbFileName_Change(); });
  connect(cmbFileName, QOverload<int>::of(&QComboBox::activated), this, [this] { cmbFileName_Click(); });
  connect(txtFileName, &QLineEdit::textChanged, this, [this] { txtFileName_Change(); });
  Options& o = session_.options;
  connect(chkFileStart, &QCheckBox::clicked, this, [this, &o] {
    if (chkFileStart->Value() != 2) o.BringFromStartOfFile = chkFileStart->Value() == 1;
  });
  connect(chkMinimise, &QCheckBox::clicked, this, [this, &o] {
    if (chkMinimise->Value() != 2) o.HideMenuOnStartup = chkMinimise->Value() == 1;
  });
  connect(chkPlaySound, &QCheckBox::clicked, this, [this, &o] {
    if (chkPlaySound->Value() != 2) o.PlaySoundOnUpdate = chkPlaySound->Value() == 1;
  });
}

void Form1::Form_Load() {
  Options& o = session_.options;
  ShowTip();
  cmdLink->setEnabled(false);
  cmdOK->setEnabled(false);
  RefreshFilterToolTip();
  DisableCheckBoxes();
  Timer1->setInterval(o.TimerInterval);
  Timer1->stop();
  const QString name = ToQt(o.FileName);
  cmbFileName->setEditText(name);
  FillHistoryList();
  cmbFileName->setEditText(name);
  follower_.CheckPauseCaption();
  ClearCheckBoxes();
  if (!o.FileSection.empty()) LoadFileSettings(session_, o.IniFileName, o.FileSection);
  adjustSize();
  if (o.MenuX == 0 && o.MenuY == 0) CentreWindow(*this);
  if (!o.FileName.empty() && o.HideMenuOnStartup) showMinimized();
  else showNormal();
  if (o.WaitOnStart) {
    SetMenuCaption(std::string("Ferrow Waiting ") + std::to_string(o.WaitSeconds) + " seconds to start ...");
    WaitSeconds(o.WaitSeconds);
  }
  if (!o.FileName.empty()) OK_Click(true);
  if (session_.gate.Closing()) return;  // closed while it waited or opened
  EnableCheckBoxes();
  EnableAllButtons();
}

void Form1::WaitSeconds(int seconds) {
  for (int i = 0; i < seconds * 10 && !session_.gate.Closing(); ++i) {
    session_.env.LetEventsRun();
    session_.env.SleepMs(100);
  }
}

void Form1::cmdBrowse_Click() {
  Timer1->stop();
  Options& o = session_.options;
  const std::string chosen = services_.OpenFileName(
      "Select Log File", "Log Files|*.log|CSV Files|*.csv|Text Files|*.txt|All Files (*.*)|*.*|",
      o.BrowseStartDir);
  if (chosen.empty()) return;
  FileOpened = false;
  cmbFileName->setEditText(ToQt(chosen));
  o.FileName = chosen;
  o.BrowseStartDir = FolderPart(chosen);
}

void Form1::cmdFilter_Click() {
  Options& o = session_.options;
  const std::string answer = InputMsg(session_.env, "Enter filter words to highlight - separated by spaces",
                                      "Text Highlighting Filter", o.FilterString);
  if (session_.gate.Closing()) return;
  if (answer.empty() || answer == o.FilterString) return;
  o.FilterString = answer;
  RebuildFilterWords(o);
  SaveFileSettings(session_, o.FileSection);
  follower_.FerrowRestart();
  RefreshFilterToolTip();
}

void Form1::RefreshFilterToolTip() { cmdFilter->setToolTip(ToQt(FilterToolTip(session_.options))); }

void Form1::cmdOptions_Click() {
  DisableAllButtons();
  DisableCheckBoxes();
  if (open_settings) open_settings();
}

void Form1::cmdAbout_Click() {
  DisableAllButtons();
  DisableCheckBoxes();
  if (open_about) open_about();
}

void Form1::cmdClose_Click() {
  DisableAllButtons();
  close();
}

void Form1::cmdLink_Click() {
  const HelperLibrary none = HelperLibrary::None(session_.env);
  CreateDesktopLink(session_, session_.helper ? *session_.helper : none, FileNameBoxText());
}

void Form1::DisableCheckBoxes() {
  for (QWidget* w : {static_cast<QWidget*>(chkFileStart), static_cast<QWidget*>(chkMinimise),
                     static_cast<QWidget*>(chkPlaySound), static_cast<QWidget*>(cmdOptions)})
    w->setEnabled(false);
}

void Form1::EnableCheckBoxes() {
  for (TriStateBox* box : {chkFileStart, chkMinimise, chkPlaySound}) box->setEnabled(true);
}

void Form1::SetCheckboxesDefault() {
  Options& o = session_.options;
  o.BringFromStartOfFile = o.FileDefaults.BringFromStartOfFile;
  o.HideMenuOnStartup = o.FileDefaults.HideMenuOnStartup;
  o.PlaySoundOnUpdate = o.FileDefaults.PlaySoundOnUpdate;
  UpdateCheckboxes();
}

void Form1::ClearCheckBoxes() {
  for (TriStateBox* box : {chkFileStart, chkMinimise, chkPlaySound}) box->SetValue(2);
}

void Form1::UpdateCheckboxes() {
  const Options& o = session_.options;
  chkFileStart->SetValue(o.BringFromStartOfFile ? 1 : 0);
  chkMinimise->SetValue(o.HideMenuOnStartup ? 1 : 0);
  chkPlaySound->SetValue(o.PlaySoundOnUpdate ? 1 : 0);
}

void Form1::DisableAllButtons() {
  for (QToolButton* b : {cmdOK, cmdBrowse, cmdOptions, cmdFilter, cmdPause, cmdAbout, cmdClose, cmdLink})
    b->setEnabled(false);
  cmbFileName->setEnabled(false);
}

void Form1::EnableAllButtons() {
  for (QToolButton* b : {cmdBrowse, cmdOptions, cmdFilter, cmdPause, cmdAbout, cmdClose})
    b->setEnabled(true);
  cmdOK->setEnabled(!cmbFileName->currentText().isEmpty());  // nothing to open without a name
  cmbFileName->setEnabled(true);
  cmdLink->setEnabled(session_.options.HelperLibraryVersion > 0);
}

// ENTER or line feed on a check box or on the About, Filter, Options and
// Pause buttons opens the named file; F1 anywhere shows the help message.
bool Form1::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_F1) {
      ShowUsage(session_);
      return true;
    }
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    const bool shift_del = key->key() == Qt::Key_Delete && key->modifiers() == Qt::ShiftModifier;
    if (watched == cmbFileName->view() && shift_del) {
      cmbFileName_KeyDown(key->key(), key->modifiers());
      return true;
    }
    if (watched == cmbFileName || watched == cmbFileName->lineEdit()) {
      // Taken here, where the key first arrives, so that one ENTER opens once.
      if (enter) {
        cmbFileName_KeyPress(13);
        return true;
      }
      cmbFileName_KeyDown(key->key(), key->modifiers());
      return shift_del;
    }
    const bool opens = watched == cmdAbout || watched == cmdFilter || watched == cmdOptions ||
                       watched == cmdPause || watched == chkFileStart || watched == chkMinimise ||
                       watched == chkPlaySound;
    if (enter && opens) {
      OK_Click();
      return true;
    }
  }
  if (watched == lblDragDropTip &&
      (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)) {
    ShowTip();
    return true;
  }
  if (watched == cmbFileName || watched == cmbFileName->lineEdit()) {
    if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, cmbFileName->lineEdit(), &QLineEdit::selectAll);
    if (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove) {
      auto* drag = static_cast<QDragMoveEvent*>(event);
      if (!drag->mimeData()->hasUrls()) return false;
      drag->acceptProposedAction();
      return true;
    }
    if (event->type() == QEvent::Drop) {
      auto* drop = static_cast<QDropEvent*>(event);
      if (!drop->mimeData()->hasUrls()) return false;
      QStringList names;
      for (const QUrl& url : drop->mimeData()->urls()) names << url.toLocalFile();
      drop->acceptProposedAction();
      cmbFileName_OLEDragDrop(names);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void Form1::closeEvent(QCloseEvent* event) {
  if (!unloaded_) {
    in_close_event_ = true;
    Form_Unload();
    in_close_event_ = false;
    if (!unloaded_) {  // an open, restart or Apply is running: the unload follows it
      event->ignore();
      return;
    }
  }
  QWidget::closeEvent(event);
}

void Form1::Form_Unload() {
  session_.gate.RequestUnload([this] {
    Unload();
    if (!in_close_event_) close();
  });
}

void Form1::Unload() {
  unloaded_ = true;
  Options& o = session_.options;
  Timer1->stop();
  DisableAllButtons();
  program_closing_ = true;
  UnloadTextWindow();
  if (isMinimized()) RememberMenuPosition(o, 0, 0);  // keeps the last position
  else RememberMenuPosition(o, PixelsToTwips(x(), this), PixelsToTwips(y(), this));
  SetMenuCaption(MenuTitle(" - Saving Settings ..."));
  o.HistoryTotal = static_cast<int16_t>(std::min(cmbFileName->count(), static_cast<int>(kHistoryLimit)));
  if (o.Debug) LogEvent(session_, o.LogFileName, "** Unloading Main Form [" + o.FileSection + "] **");
  if (!o.FileName.empty() && FileOpened) {
    if (GetWriteLock(session_, 5)) {
      SaveFileSettings(session_, o.FileSection);
      SaveCommonSettings(session_);
      ReleaseWriteLock(session_);
    }
    SetMenuCaption(MenuTitle(" - Updating History ..."));
    SaveHistory(session_);  // this window's list, counted just above
    SetMenuCaption(MenuTitle(" - Saving Settings ..."));
  }
  SetMenuCaption(MenuTitle(" - Exiting ..."));
  UnloadAllForms();
  if (on_unloaded) on_unloaded();
}

void Form1::UnloadAllForms() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window != this && window->isVisible()) window->close();
}

}  // namespace ferrow
