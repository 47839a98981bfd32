// The scenarios against the real Qt windows (Form1, frmText, frmSettings,
// frmInputBox, frmAbout) in this process, offscreen. Keys, clicks and drops
// arrive as Qt events on the widget that has them, as the user makes them.
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QThread>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

#include "frontend/scenario_registry.h"
#include "qt/Form1.h"
#include "qt/event_passes.h"
#include "qt/frmAbout.h"
#include "qt/frmInputBox.h"
#include "qt/frmSettings.h"
#include "qt/frmText.h"

namespace ferrow::frontend {

namespace {

Colour FromRgb(QRgb rgb) {
  return static_cast<Colour>(qRed(rgb)) | static_cast<Colour>(qGreen(rgb)) << 8 |
         static_cast<Colour>(qBlue(rgb)) << 16;
}

// The Qt key, the text it types and the modifiers of a virtual key.
QKeyEvent KeyEvent(QEvent::Type type, int key, Modifiers m) {
  Qt::KeyboardModifiers modifiers;
  if (m.shift) modifiers |= Qt::ShiftModifier;
  if (m.ctrl) modifiers |= Qt::ControlModifier;
  int qt_key = 0;
  QString text;
  if (key >= 'A' && key <= 'Z') {
    qt_key = Qt::Key_A + (key - 'A');
    text = m.ctrl ? QString(QChar(key - 'A' + 1)) : QString(QChar(m.shift ? key : key - 'A' + 'a'));
  } else {
    switch (key) {
      case vk::kBack: qt_key = Qt::Key_Backspace; text = "\b"; break;
      case vk::kEnter: qt_key = Qt::Key_Return; text = m.ctrl ? "\n" : "\r"; break;
      case vk::kEscape: qt_key = Qt::Key_Escape; text = "\x1b"; break;
      case vk::kSpace: qt_key = Qt::Key_Space; text = " "; break;
      case vk::kDown: qt_key = Qt::Key_Down; break;
      case vk::kDelete: qt_key = Qt::Key_Delete; break;
      case vk::kF1: qt_key = Qt::Key_F1; break;
      default: break;
    }
  }
  return QKeyEvent(type, qt_key, modifiers, text);
}

void Press(QWidget* target, int key, Modifiers m = {}) {
  QKeyEvent press = KeyEvent(QEvent::KeyPress, key, m);
  QApplication::sendEvent(target, &press);
  QKeyEvent release = KeyEvent(QEvent::KeyRelease, key, m);
  QApplication::sendEvent(target, &release);
}

void Type(QWidget* target, const std::string& text) {
  for (char c : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar::fromLatin1(c)));
    QApplication::sendEvent(target, &press);
  }
}

template <class W>
W* Visible() {
  for (QWidget* w : QApplication::topLevelWidgets())
    if (auto* found = qobject_cast<W*>(w); found && found->isVisible()) return found;
  return nullptr;
}

class QtDriver : public FrontEndDriver {
 public:
  explicit QtDriver(ScenarioWorld& w) : w_(w) {
    InstallEventsHook(w.env, w.session.gate);
    QObject::connect(&watcher_, &QTimer::timeout, [this] {
      frmInputBox* box = LoadedInputBox();
      if (!box || !box->isVisible()) return;
      watcher_.stop();
      std::function<void()> answer = std::move(answer_);
      if (answer) answer();
    });
  }
  ~QtDriver() override {
    watcher_.stop();
    if (form_ && !form_->Logic().Unloaded()) form_->close();
    RunEvents(20);
    form_.reset();
    w_.routed.SetTarget(nullptr);
    QApplication::processEvents();
    Env::Default()->SetEventsHook(nullptr);
  }

  void Load() override {
    form_ = std::make_unique<Form1>(w_.session, w_.services);
    w_.routed.SetTarget(&form_->Logic());
    form_->Logic().Form_Load();
  }
  void RunEvents(int ms) override {
    QElapsedTimer clock;
    clock.start();
    do {
      QApplication::processEvents(QEventLoop::AllEvents);
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QThread::msleep(2);
    } while (clock.elapsed() < ms);
  }

  void Click(Control control) override { static_cast<QAbstractButton*>(Widget(control))->click(); }
  void Key(Control control, int key, Modifiers modifiers) override {
    QWidget* target = Widget(control);
    if (control == Control::cmbFileName)
      target = ListDroppedDown() ? static_cast<QWidget*>(form_->cmbFileName->view())
                                 : static_cast<QWidget*>(form_->cmbFileName->lineEdit());
    target->setFocus();
    Press(target, key, modifiers);
  }
  void TypeInFileNameBox(const std::string& text) override { Type(form_->cmbFileName->lineEdit(), text); }
  void DropDownList() override { form_->cmbFileName->showPopup(); }
  bool ListDroppedDown() override { return form_->cmbFileName->view()->isVisible(); }
  void HighlightInList(int index) override {
    QAbstractItemView* view = form_->cmbFileName->view();
    view->setCurrentIndex(view->model()->index(index, 0));
  }
  void ClickInList(int index) override {
    DropDownList();
    RunEvents(600);  // the list takes no click in its first moments, as a double click's guard
    HighlightInList(index);
    QAbstractItemView* view = form_->cmbFileName->view();
    const QPoint at = view->visualRect(view->model()->index(index, 0)).center();
    QMouseEvent press(QEvent::MouseButtonPress, at, view->viewport()->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, view->viewport()->mapToGlobal(at), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &release);
  }
  std::vector<std::string> ListEntries() override { return form_->List(); }
  std::string Text(Control control) override { return form_->Text(control); }
  int Value(Control control) override { return form_->Value(control); }
  bool Enabled(Control control) override { return Widget(control)->isEnabled(); }
  bool TimerRunning() override { return form_->Timer1->isActive(); }
  void Drop(DropTarget where, const std::string& file) override {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file))});
    QWidget* target = where == DropTarget::kControlWindow ? static_cast<QWidget*>(form_.get())
                      : where == DropTarget::kFileNameBox ? form_->cmbFileName->lineEdit()
                                                          : form_->TextWindow()->Rtf->viewport();
    // A drop reaches the widget that accepted the drag as it entered.
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
  }

  bool Shown(Window window) override {
    QWidget* shown = Of(window);
    return shown && shown->isVisible();
  }
  std::string Caption(Window window) override {
    QWidget* shown = Of(window);
    return shown ? shown->windowTitle().toStdString() : "<no window>";
  }
  void CloseBox(Window window) override {
    if (QWidget* shown = Of(window)) shown->close();
  }

  std::string ShownText() override { return Box()->toPlainText().toStdString(); }
  Colour ColourAt(int64_t position) override {
    QTextCursor at(Box()->document());
    at.setPosition(static_cast<int>(position) + 1);
    const QBrush brush = at.charFormat().foreground();
    return FromRgb(brush.style() == Qt::NoBrush ? Box()->palette().color(QPalette::Text).rgb()
                                                : brush.color().rgb());
  }
  Colour Background() override {
    QWidget* viewport = Box()->viewport();
    const QImage drawn = viewport->grab().toImage();
    return FromRgb(drawn.pixel(drawn.width() - 3, drawn.height() - 3));
  }
  std::string FontName() override { return Box()->font().family().toStdString(); }
  std::string FontNameAt(int64_t position) override {
    QTextCursor at(Box()->document());
    at.setPosition(static_cast<int>(position) + 1);
    const QStringList families = at.charFormat().fontFamilies().toStringList();
    return families.isEmpty() ? FontName() : families.front().toStdString();
  }
  int FontSize() override { return Box()->font().pointSize(); }
  bool FontBold() override { return Box()->font().bold(); }
  void KeyInText(int key, Modifiers modifiers) override { Press(Box(), key, modifiers); }
  void TypeInText(char character) override { Type(Box(), std::string(1, character)); }
  std::string Clipboard() override { return QGuiApplication::clipboard()->text().toStdString(); }
  void SetClipboard(const std::string& text) override {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
  }

  void ClickTheme(int index) override { Visible<frmSettings>()->optTheme[static_cast<size_t>(index)]->click(); }
  bool ThemeChecked(int index) override {
    return Visible<frmSettings>()->optTheme[static_cast<size_t>(index)]->isChecked();
  }
  void ClickSetting(SettingsControl control) override {
    static_cast<QAbstractButton*>(SettingWidget(control))->click();
  }
  void KeyInSetting(SettingsControl control, int key) override {
    QWidget* target = SettingWidget(control);
    target->setFocus();
    Press(target, key);
  }

  void KeyOnTheme(int index, int key) override {
    QWidget* target = Visible<frmSettings>()->optTheme[static_cast<size_t>(index)];
    target->setFocus();
    Press(target, key);
  }
  void KeyInAbout(int key) override {
    QWidget* target = Visible<frmAbout>()->Command1;
    target->setFocus();
    Press(target, key);
  }

  void WhenInputBoxShows(std::function<void()> answer) override {
    answer_ = std::move(answer);
    watcher_.start(10);
  }
  std::string InputBoxText() override { return LoadedInputBox()->txtInput->text().toStdString(); }
  std::string InputBoxPrompt() override { return LoadedInputBox()->Label1->text().toStdString(); }
  void TypeInInputBox(const std::string& text) override { Type(LoadedInputBox()->txtInput, text); }
  void KeyInInputBox(int key) override { Press(LoadedInputBox()->txtInput, key); }
  void KeyOnInputBoxButton(bool ok, int key) override {
    frmInputBox* box = LoadedInputBox();
    QPushButton* button = ok ? box->cmdOK : box->cmdCancel;
    button->setFocus();
    Press(button, key);
  }
  void ClickInputBoxButton(bool ok) override {
    if (frmInputBox* box = LoadedInputBox()) (ok ? box->cmdOK : box->cmdCancel)->click();
  }

 private:
  RichTextBox* Box() {
    frmText* text = form_->TextWindow();
    return text ? text->Rtf : nullptr;
  }
  QWidget* Of(Window window) {
    switch (window) {
      case Window::kControl: return form_.get();
      case Window::kText: return form_ ? form_->TextWindow() : nullptr;
      case Window::kSettings: return Visible<frmSettings>();
      case Window::kInputBox: return LoadedInputBox();
      case Window::kAbout: return Visible<frmAbout>();
    }
    return nullptr;
  }
  QWidget* Widget(Control control) {
    switch (control) {
      case Control::cmbFileName: return form_->cmbFileName;
      case Control::txtFileName: return form_->txtFileName;
      case Control::lblDragDropTip: return form_->lblDragDropTip;
      case Control::cmdOK: return form_->cmdOK;
      case Control::cmdBrowse: return form_->cmdBrowse;
      case Control::cmdOptions: return form_->cmdOptions;
      case Control::cmdFilter: return form_->cmdFilter;
      case Control::cmdPause: return form_->cmdPause;
      case Control::cmdAbout: return form_->cmdAbout;
      case Control::cmdClose: return form_->cmdClose;
      case Control::cmdLink: return form_->cmdLink;
      case Control::chkFileStart: return form_->chkFileStart;
      case Control::chkMinimise: return form_->chkMinimise;
      case Control::chkPlaySound: return form_->chkPlaySound;
    }
    return nullptr;
  }
  QWidget* SettingWidget(SettingsControl control) {
    frmSettings* s = Visible<frmSettings>();
    switch (control) {
      case SettingsControl::kNiceMode: return s->chkNiceMode;
      case SettingsControl::kQuickScroll: return s->chkQuickScroll;
      case SettingsControl::kCopyAsRTF: return s->chkCopyAsRTF;
      case SettingsControl::kAlert: return s->chkAlert;
      case SettingsControl::kPlaySound: return s->chkPlaySound;
      case SettingsControl::kBrowseWav: return s->cmdBrowseWav;
      case SettingsControl::kRevertWav: return s->cmdRevertWav;
      case SettingsControl::kClearHistory: return s->Command1;
      case SettingsControl::kOK: return s->cmdOK;
      case SettingsControl::kCancel: return s->cmdCancel;
      default: return s;
    }
  }

  ScenarioWorld& w_;
  std::unique_ptr<Form1> form_;
  QTimer watcher_;  // waits for the input box to show
  std::function<void()> answer_;
};

}  // namespace

std::unique_ptr<FrontEndDriver> MakeDriver(ScenarioWorld& world) { return std::make_unique<QtDriver>(world); }

}  // namespace ferrow::frontend
