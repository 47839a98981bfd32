#include "display/frmText.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>

#include "about/shortcut_files.h"
#include "config/settings.h"
#include "control/event_passes.h"
#include "display/control_port.h"
#include "display/qt_convert.h"
#include "display/text_ops.h"
#include "display/text_window_filter.h"
#include "startup/session.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {
namespace {

constexpr int32_t kDefaultWidth = 10000, kDefaultHeight = 3500;  // twips
constexpr int32_t kMinWidth = 1844, kMinHeight = 650;

}  // namespace

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
    : QWidget(parent, Qt::Window), Rtf(new RichTextBox(this)), session_(session), control_(control) {
  setAttribute(Qt::WA_DeleteOnClose, false);
  Rtf->installEventFilter(this);
  Rtf->viewport()->installEventFilter(this);
  Rtf->viewport()->setAcceptDrops(true);
}

frmText::~frmText() = default;

void frmText::Form_Load() {
  loaded_ = true;
  const Options& o = session_.options;
  SetWordWrapOff(*Rtf);
  Rtf->SetText("Loading...");
  Rtf->SetFontName(o.Font);
  Rtf->SetFontSize(o.FontSize);
  Rtf->SetFontBold(o.FontBold);
  Rtf->SetBackColor(o.BackColour);
  Rtf->Refresh();
  Rtf->SetText("");
  Rtf->SetMaxLength(o.MaxInputLength);
  PlaceWindow();
  Form_Resize();
  showNormal();
  SubclassTextWindow(*Rtf);
}

// The default size centred on the screen, then the stored geometry, each
// value only when it is in range.
void frmText::PlaceWindow() {
  const Options& o = session_.options;
  int width = TwipsToPixels(o.FormWidth > kMinWidth ? o.FormWidth : kDefaultWidth, this);
  int height = TwipsToPixels(o.FormHeight > kMinHeight ? o.FormHeight : kDefaultHeight, this);
  resize(width, height);
  CentreWindow(*this);
  if (o.FormX > 0) move(TwipsToPixels(o.FormX, this), y());
  if (o.FormY > 0) move(x(), TwipsToPixels(o.FormY, this));
}

void frmText::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Form_Resize();
}

void frmText::Form_Resize() {
  Rtf->setGeometry(0, 0, width(), height());
  // Caret to the start and back to the end scrolls the last line into view.
  Rtf->LockUpdates(true);
  Rtf->SetSelStart(0);
  Rtf->SetSelStart(Rtf->TextLength());
  Rtf->LockUpdates(false);
}

bool frmText::Rtf_KeyDown(int key, Qt::KeyboardModifiers) {
  switch (key) {
    case Qt::Key_X: case Qt::Key_Z: case Qt::Key_Y: case Qt::Key_V: case Qt::Key_Delete:
      return true;  // no cut, undo, redo or paste
    default:
      return false;
  }
}

bool frmText::Rtf_KeyPress(int character) {
  switch (character) {
    case 1:
      Rtf->SetSelStart(0);
      Rtf->SetSelLength(Rtf->TextLength());
      break;
    case 3: case 13: case 10: case 23:
      CopySelection();
      break;
    default:
      break;
  }
  return true;  // nothing the user types reaches the text
}

// As ordinary text either way: with CopyAsRTF a paste shows the markup itself.
void frmText::CopySelection() {
  QClipboard* clipboard = QApplication::clipboard();
  clipboard->clear();
  clipboard->setText(ToQt(session_.options.CopyAsRTF ? Rtf->SelRTF() : Rtf->SelText()));
  session_.env.LetEventsRun();
  Rtf->SetSelLength(0);
}

void frmText::Rtf_OLEDragDrop(const QStringList& names) {
  if (names.isEmpty() || names.first().isEmpty()) return;
  std::string name = FromQt(names.first());
  control_.SetFileNameBox(name);
  if (IsShortcutFile(name) && session_.options.HelperLibraryInUse &&
      session_.helper) {
    std::string target = session_.helper->GetLinkTarget(name).value_or("");
    if (!target.empty() && FileExists(session_.env, target)) control_.SetFileNameBox(target);
  }
  control_.OK_Click(false, 0, false);
}

bool frmText::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      auto* key = static_cast<QKeyEvent*>(event);
      if (Rtf_KeyDown(key->key(), key->modifiers())) return true;
      const int character = CharacterCode(key->key(), key->modifiers(), key->text());
      return character != 0 ? Rtf_KeyPress(character) : false;  // keys that type nothing move
    }
    case QEvent::DragEnter:
    case QEvent::DragMove: {
      auto* drag = static_cast<QDragMoveEvent*>(event);
      if (drag->mimeData()->hasUrls()) {
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
  Form_Unload();
  control_.TextWindowClosed(*Rtf);
  QWidget::closeEvent(event);
  DeleteWindowLater(session_.gate, this);
}

void frmText::Form_Unload() {
  if (unloaded_ || !loaded_) return;
  unloaded_ = true;
  Options& o = session_.options;
  if (!isMinimized() && !isMaximized()) {
    o.FormWidth = std::max(PixelsToTwips(width(), this), kMinWidth);
    o.FormHeight = std::max(PixelsToTwips(height(), this), kMinHeight);
  }
  o.FormX = PixelsToTwips(x(), this);
  o.FormY = PixelsToTwips(y(), this);
  SaveWindowSettings(session_);
  if (!control_.ProgramClosing()) {
    control_.StopTimer();
    control_.ShowNormalAndActivate();
  }
  UnsubclassTextWindow(*Rtf);
}

}  // namespace ferrow
