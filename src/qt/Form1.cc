#include "qt/Form1.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QStyle>
#include <QTimer>
#include <QToolButton>

#include "qt/control_keys_qt.h"
#include "qt/file_name_edit.h"
#include "qt/frmAbout.h"
#include "qt/drawn_icons.h"
#include "qt/event_passes.h"
#include "qt/sound_player.h"
#include "qt/frmInputBox.h"
#include "qt/frmSettings.h"
#include "qt/frmText.h"
#include "qt/qt_convert.h"
#include "session/session.h"

namespace ferrow {
namespace {

// The text window as the control window's logic uses it; a child of the
// window, so it goes with it.
class TextWindowAdapter : public QObject, public TextWindowPort {
 public:
  explicit TextWindowAdapter(frmText* window) : QObject(window), window_(window) {}
  frmText* window() const { return window_; }
  TextBox& Box() override { return window_->Logic().Rtf(); }
  void Load() override { window_->Logic().Form_Load(); }
  void SetCaption(const std::string& caption) override { window_->Logic().SetCaption(caption); }
  void Flash() override { window_->Logic().Flash(); }
  void Close() override { window_->Logic().Close(); }

 private:
  frmText* window_;
};

std::vector<std::string> DroppedFiles(const QMimeData* data) {
  std::vector<std::string> names;
  for (const QUrl& url : data->urls()) names.push_back(FromQt(url.toLocalFile()));
  return names;
}

}  // namespace

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

// The control window's logic gives the box its next value when it hears of
// the click.
void TriStateBox::nextCheckState() {}

Form1::Form1(Session& session, WindowServices& services, QWidget* parent)
    : QWidget(parent),
      session_(session),
      services_(services),
      sound_(new SoundPlayer(this)),
      logic_(session, *this, *this, services) {
  BuildControls();
  Connect();
}

Form1::~Form1() = default;

void Form1::BuildControls() {
  QStyle* st = style();
  auto button = [this](const QIcon& icon, const QString& tip) {
    auto* b = new QToolButton(this);
    b->setIcon(icon);
    b->setIconSize(QSize(24, 24));
    b->setToolTip(tip);
    b->installEventFilter(this);
    return b;
  };
  cmbFileName = new QComboBox(this);
  cmbFileName->setEditable(true);
  file_name_edit_ = new FileNameEdit(cmbFileName);
  cmbFileName->setLineEdit(file_name_edit_);
  cmbFileName->setInsertPolicy(QComboBox::NoInsert);
  cmbFileName->setMinimumContentsLength(40);
  // No completion: what opens is exactly what the user typed, and only a
  // pick from the list counts as picking.
  cmbFileName->setCompleter(nullptr);
  cmbFileName->setToolTip(tr("Type or pick the file to follow, or drop one here (SHIFT+DEL removes it from the list)"));
  for (QObject* o : {static_cast<QObject*>(cmbFileName), static_cast<QObject*>(cmbFileName->lineEdit()),
                     static_cast<QObject*>(cmbFileName->view())})
    o->installEventFilter(this);
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
  ControlWindow& l = logic_;
  connect(cmdOK, &QToolButton::clicked, this, [&l] { l.cmdOK_Click(); });
  connect(cmdBrowse, &QToolButton::clicked, this, [&l] { l.cmdBrowse_Click(); });
  connect(cmdOptions, &QToolButton::clicked, this, [&l] { l.cmdOptions_Click(); });
  connect(cmdFilter, &QToolButton::clicked, this, [&l] { l.cmdFilter_Click(); });
  connect(cmdPause, &QToolButton::clicked, this, [&l] { l.cmdPause_Click(); });
  connect(cmdAbout, &QToolButton::clicked, this, [&l] { l.cmdAbout_Click(); });
  connect(cmdClose, &QToolButton::clicked, this, [&l] { l.cmdClose_Click(); });
  connect(cmdLink, &QToolButton::clicked, this, [&l] { l.cmdLink_Click(); });
  connect(Timer1, &QTimer::timeout, this, [&l] { l.Timer1_Timer(); });
  connect(cmbFileName, &QComboBox::editTextChanged, this, [&l] { l.cmbFileName_Change(); });
  // A pick from the list or with the arrow keys; not a typed name that
  // equals an entry, which Qt reports the same way when editing finishes.
  connect(cmbFileName, QOverload<int>::of(&QComboBox::activated), this, [this, &l] {
    if (!file_name_edit_->Finishing()) l.cmbFileName_Click();
  });
  connect(txtFileName, &QLineEdit::textChanged, this, [&l] { l.txtFileName_Change(); });
  const std::pair<TriStateBox*, Control> boxes[] = {{chkFileStart, Control::chkFileStart},
                                                    {chkMinimise, Control::chkMinimise},
                                                    {chkPlaySound, Control::chkPlaySound}};
  for (const auto& [box, name] : boxes)
    connect(box, &QCheckBox::clicked, this, [&l, name = name] { l.CheckBoxPressed(name); });
}

QWidget* Form1::Widget(Control control) const {
  switch (control) {
    case Control::cmbFileName: return cmbFileName;
    case Control::txtFileName: return txtFileName;
    case Control::lblDragDropTip: return lblDragDropTip;
    case Control::cmdOK: return cmdOK;
    case Control::cmdBrowse: return cmdBrowse;
    case Control::cmdOptions: return cmdOptions;
    case Control::cmdFilter: return cmdFilter;
    case Control::cmdPause: return cmdPause;
    case Control::cmdAbout: return cmdAbout;
    case Control::cmdClose: return cmdClose;
    case Control::cmdLink: return cmdLink;
    case Control::chkFileStart: return chkFileStart;
    case Control::chkMinimise: return chkMinimise;
    case Control::chkPlaySound: return chkPlaySound;
  }
  return nullptr;
}

Control Form1::ControlOf(QObject* watched) const {
  if (watched == cmbFileName->lineEdit() || watched == cmbFileName->view()) return Control::cmbFileName;
  for (Control c : {Control::cmbFileName, Control::cmdOK, Control::cmdBrowse, Control::cmdOptions,
                    Control::cmdFilter, Control::cmdPause, Control::cmdAbout, Control::cmdClose,
                    Control::cmdLink, Control::chkFileStart, Control::chkMinimise, Control::chkPlaySound})
    if (Widget(c) == watched) return c;
  return Control::lblDragDropTip;
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
  const bool box = watched == cmbFileName || watched == cmbFileName->lineEdit();
  switch (event->type()) {
    case QEvent::KeyPress: {
      const KeyStroke key = KeyStrokeOf(*static_cast<QKeyEvent*>(event));
      // In the dropped-down list only SHIFT+DEL and ENTER are the box's; the
      // rest moves in the list.
      if (watched == cmbFileName->view() && key.virtual_key != keys_down::kDelete &&
          key.virtual_key != keys_down::kEnter)
        return false;
      return logic_.KeyDown(ControlOf(watched), key);
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (watched != lblDragDropTip) break;
      logic_.lblDragDropTip_Click();
      return true;
    case QEvent::FocusIn:
      if (box) QTimer::singleShot(0, this, [this] { logic_.cmbFileName_GotFocus(); });
      break;
    case QEvent::DragEnter:
    case QEvent::DragMove: {
      auto* drag = static_cast<QDragMoveEvent*>(event);
      if (!box || !drag->mimeData()->hasUrls()) break;
      drag->acceptProposedAction();
      return true;
    }
    case QEvent::Drop: {
      auto* drop = static_cast<QDropEvent*>(event);
      if (!box || !drop->mimeData()->hasUrls()) break;
      drop->acceptProposedAction();
      logic_.cmbFileName_OLEDragDrop(DroppedFiles(drop->mimeData()));
      return true;
    }
    default: break;
  }
  return QWidget::eventFilter(watched, event);
}

void Form1::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void Form1::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  logic_.Form_OLEDragDrop(DroppedFiles(event->mimeData()));
}

// The close box, a signal or the Close button: the unload runs now, or once
// the running open, restart or Apply is over (the window stays till then).
void Form1::closeEvent(QCloseEvent* event) {
  if (!logic_.Unloaded()) {
    in_close_event_ = true;
    logic_.Form_Unload();
    in_close_event_ = false;
    if (!logic_.Unloaded()) {
      event->ignore();
      return;
    }
  }
  QWidget::closeEvent(event);
}

void Form1::CloseWindow() {
  if (!in_close_event_) close();
}

TextWindowPort* Form1::NewTextWindow(ControlWindowPort& control) {
  return new TextWindowAdapter(new frmText(session_, control));
}

frmText* Form1::TextWindow() const {
  auto* adapter = dynamic_cast<TextWindowAdapter*>(logic_.TextWindow());
  return adapter ? adapter->window() : nullptr;
}

void Form1::OpenSettings(MenuPort& menu) { (new frmSettings(session_, menu, services_))->Form_Load(); }

void Form1::OpenAbout(MenuPort& menu) { (new frmAbout(session_, menu))->Form_Load(); }

std::string Form1::InputMsg(const std::string& prompt, const std::string& title, const std::string& edit) {
  return ferrow::InputMsg(session_.env, prompt, title, edit);
}

void Form1::UnloadOtherWindows() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window != this && window->isVisible()) window->close();
}

}  // namespace ferrow
