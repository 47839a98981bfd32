#include "qt/frmAbout.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QEnterEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "qt/event_passes.h"
#include "qt/dialog_keys.h"
#include "qt/qt_convert.h"
#include "session/session.h"

namespace ferrow {

WebsiteLabel::WebsiteLabel(QWidget* parent) : QLabel(parent) {
  setAutoFillBackground(true);
  setCursor(Qt::PointingHandCursor);
  setMouseTracking(true);
  setMargin(2);
}

void WebsiteLabel::enterEvent(QEnterEvent* event) {
  emit hovered();
  QLabel::enterEvent(event);
}

void WebsiteLabel::mouseMoveEvent(QMouseEvent* event) {
  emit hovered();
  QLabel::mouseMoveEvent(event);
}

void WebsiteLabel::mousePressEvent(QMouseEvent* event) {
  QLabel::mousePressEvent(event);
  emit clicked();
}

frmAbout::frmAbout(Session& session, MenuPort& menu, QWidget* parent)
    : QWidget(parent, Qt::Dialog),
      lblTitle(new QLabel(this)),
      lblInformation(new QLabel(this)),
      lblWebsite(new WebsiteLabel(this)),
      Command1(new QPushButton(tr("OK"), this)),
      open_url([](const QString& address) { QDesktopServices::openUrl(QUrl(address)); }),
      gate_(session.gate),
      logic_(session, menu, *this) {
  QFont title = lblTitle->font();
  title.setBold(true);
  title.setPointSizeF(title.pointSizeF() * 1.3);
  lblTitle->setFont(title);
  lblInformation->setWordWrap(true);
  lblInformation->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblInformation->setMinimumWidth(560);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(lblWebsite);
  bottom->addStretch();
  bottom->addWidget(Command1);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblTitle);
  layout->addWidget(lblInformation);
  layout->addLayout(bottom);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  AboutWindow* logic = &logic_;
  connect(lblWebsite, &WebsiteLabel::clicked, this, [logic] { logic->lblWebsite_Click(); });
  connect(lblWebsite, &WebsiteLabel::hovered, this, [logic] { logic->lblWebsite_MouseMove(); });
  connect(Command1, &QPushButton::clicked, this, [logic] { logic->Command1_Click(); });
  Command1->installEventFilter(this);
  installEventFilter(this);
  setMouseTracking(true);
}

void frmAbout::OpenAddress(const std::string& address) {
  open_url(ToQt(address));
}

void frmAbout::SetCaption(const std::string& caption) {
  setWindowTitle(ToQt(caption));
}

// The title's trailing blank lines would only pad the layout.
void frmAbout::SetTitle(const std::string& text) {
  lblTitle->setText(ToQt(text).trimmed());
}

void frmAbout::SetInformation(const std::string& text) {
  lblInformation->setText(ToQt(text));
}

void frmAbout::SetWebsite(const std::string& address) {
  lblWebsite->setText(ToQt(address));
}

void frmAbout::SetWebsiteColours(SystemColour text, SystemColour background) {
  auto colour = [this](SystemColour c) {
    return c == kButtonFace ? palette().color(QPalette::Button) : ToQColor(static_cast<Colour>(c));
  };
  QPalette p = lblWebsite->palette();
  p.setColor(QPalette::Window, colour(background));
  p.setColor(QPalette::WindowText, colour(text));
  lblWebsite->setPalette(p);
}

void frmAbout::CentreOnScreen() {
  adjustSize();
  CentreWindow(*this);
}

void frmAbout::Show() {
  show();
  Command1->setFocus();
}

bool frmAbout::eventFilter(QObject* watched, QEvent* event) {
  if (watched == this && (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter))
    logic_.Form_MouseMove();
  if (watched == Command1 && logic_.Command1_KeyDown(KeyCodeOf(event))) return true;
  return QWidget::eventFilter(watched, event);
}

void frmAbout::closeEvent(QCloseEvent* event) {
  logic_.Form_Unload();
  QWidget::closeEvent(event);
  DeleteWindowLater(gate_, this);
}

}  // namespace ferrow
