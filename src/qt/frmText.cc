#include "qt/frmText.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>

#include "qt/event_passes.h"
#include "qt/qt_convert.h"
#include "qt/text_window_filter.h"
#include "session/session.h"

namespace ferrow {

int KeyCode(int key) {
  switch (key) {
    case Qt::Key_Backspace: return kKeyBackspace;
    case Qt::Key_Delete: return kKeyDelete;
    default:  // letters and digits have the same codes in both
      return (key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z) ? key : 0;
  }
}

int CharacterCode(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const bool ctrl = modifiers & Qt::ControlModifier;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) return ctrl ? 10 : 13;
  if (ctrl && key >= Qt::Key_A && key <= Qt::Key_Z) return key - Qt::Key_A + 1;
  if (key == Qt::Key_Backspace) return 8;
  if (key == Qt::Key_Tab) return 9;
  if (key == Qt::Key_Escape) return 27;
  return text.isEmpty() ? 0 : text.at(0).unicode();
}

frmText::frmText(Session& session, ControlWindowPort& control, QWidget* parent)
    : QWidget(parent, Qt::Window), Rtf(new RichTextBox(this)), session_(session),
      logic_(session, control, *this) {
  setAttribute(Qt::WA_DeleteOnClose, false);
  Rtf->installEventFilter(this);
  Rtf->viewport()->installEventFilter(this);
  Rtf->viewport()->setAcceptDrops(true);
}

frmText::~frmText() = default;

int frmText::Twips(int pixels) const { return PixelsToTwips(pixels, this); }
int frmText::Pixels(int32_t twips) const { return TwipsToPixels(twips, this); }

TwipsRect frmText::Place() { return {Twips(x()), Twips(y()), Twips(width()), Twips(height())}; }

void frmText::SetPlace(const TwipsRect& place) {
  resize(Pixels(place.width), Pixels(place.height));
  move(Pixels(place.left), Pixels(place.top));
}

TwipsRect frmText::ScreenArea() {
  const QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
  if (!screen) return {};
  const QRect area = screen->availableGeometry();
  return {Twips(area.x()), Twips(area.y()), Twips(area.width()), Twips(area.height())};
}

WindowState frmText::State() {
  if (isMinimized()) return WindowState::kMinimised;
  return isMaximized() ? WindowState::kMaximised : WindowState::kNormal;
}

TwipsRect frmText::ClientArea() { return {0, 0, Twips(width()), Twips(height())}; }

void frmText::PlaceBox(const TwipsRect& place) {
  Rtf->setGeometry(Pixels(place.left), Pixels(place.top), Pixels(place.width), Pixels(place.height));
}

void frmText::SetCaption(const std::string& caption) { setWindowTitle(ToQt(caption)); }
std::string frmText::Caption() { return FromQt(windowTitle()); }
void frmText::Flash() { QApplication::alert(this, 500); }

void frmText::CopyToClipboard(const std::string& text) {
  QClipboard* clipboard = QApplication::clipboard();
  clipboard->clear();
  clipboard->setText(ToQt(text));
}

void frmText::SubclassBox() { SubclassTextWindow(*Rtf); }
void frmText::UnsubclassBox() { UnsubclassTextWindow(*Rtf); }

void frmText::Rtf_OLEDragDrop(const QStringList& names) {
  std::vector<std::string> files;
  for (const QString& name : names) files.push_back(FromQt(name));
  logic_.Rtf_OLEDragDrop(files);
}

void frmText::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  logic_.Form_Resize();
}

bool frmText::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      auto* key = static_cast<QKeyEvent*>(event);
      if (logic_.Rtf_KeyDown(KeyCode(key->key()))) return true;
      const int character = CharacterCode(key->key(), key->modifiers(), key->text());
      return character != 0 ? logic_.Rtf_KeyPress(character) : false;  // keys that type nothing move
    }
    case QEvent::DragEnter:
    case QEvent::DragMove: {
      auto* drag = static_cast<QDragMoveEvent*>(event);
      if (logic_.Rtf_OLEDragOver(drag->mimeData()->hasUrls(), Qt::CopyAction) != 0) {
        drag->setDropAction(Qt::CopyAction);
        drag->accept();
      } else {
        drag->ignore();
      }
      return true;
    }
    case QEvent::Drop: {
      auto* drop = static_cast<QDropEvent*>(event);
      QStringList names;
      for (const QUrl& url : drop->mimeData()->urls())
        if (url.isLocalFile()) names << url.toLocalFile();
      if (!names.isEmpty()) {
        drop->acceptProposedAction();
        Rtf_OLEDragDrop(names);
      }
      return true;
    }
    default:
      return QWidget::eventFilter(watched, event);
  }
}

void frmText::closeEvent(QCloseEvent* event) {
  logic_.Form_Unload();
  QWidget::closeEvent(event);
  DeleteWindowLater(session_.gate, this);
}

}  // namespace ferrow
