#include "about/frmAbout.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QEnterEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

#include "about/about_text.h"
#include "about/product.h"
#include "control/menu_port.h"
#include "control/event_passes.h"
#include "display/qt_convert.h"
#include "session/session.h"
#include "support/dates.h"

namespace ferrow {

WebsiteLabel::WebsiteLabel(const QString& address, QWidget* parent) : QLabel(address, parent) {
  setAutoFillBackground(true);
  setCursor(Qt::PointingHandCursor);
  setMargin(2);
  ShowHover(false);
}

void WebsiteLabel::ShowHover(bool hovering) {
  QPalette p = palette();
  p.setColor(QPalette::Window, hovering ? QColor(Qt::blue) : parentWidget()
                                                                  ? parentWidget()->palette().color(QPalette::Button)
                                                                  : p.color(QPalette::Button));
  p.setColor(QPalette::WindowText, hovering ? QColor(Qt::white) : QColor(Qt::blue));
  setPalette(p);
}

void WebsiteLabel::enterEvent(QEnterEvent* event) {
  ShowHover(true);
  QLabel::enterEvent(event);
}

void WebsiteLabel::mousePressEvent(QMouseEvent* event) {
  QLabel::mousePressEvent(event);
  emit clicked();
}

frmAbout::frmAbout(Session& session, MenuPort& menu, QWidget* parent)
    : QWidget(parent, Qt::Dialog),
      lblTitle(new QLabel(this)),
      lblInformation(new QLabel(this)),
      lblWebsite(new WebsiteLabel(kWebsite, this)),
      Command1(new QPushButton(tr("OK"), this)),
      open_url([](const QString& address) { QDesktopServices::openUrl(QUrl(address)); }),
      session_(session),
      menu_(menu) {
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
  connect(lblWebsite, &WebsiteLabel::clicked, this, &frmAbout::lblWebsite_Click);
  connect(Command1, &QPushButton::clicked, this, &frmAbout::Command1_Click);
  Command1->installEventFilter(this);
  installEventFilter(this);
  setMouseTracking(true);
}

void frmAbout::Form_Load() {
  const Options& o = session_.options;
  setWindowTitle(ToQt(AboutCaption()));
  lblTitle->setText(ToQt(AboutTitle()).trimmed());
  const std::tm started = LocalTime(o.StartTime);
  const std::string since = session_.env.SystemShortDate(started) + " " + session_.env.SystemLongTime(started);
  const std::string library =
      o.HelperLibraryInUse && session_.helper ? session_.helper->GetDLLFileName().value_or("") : "";
  lblInformation->setText(ToQt(AboutInformation(o, session_.env.ProgramPath(), since, library)));
  adjustSize();
  CentreWindow(*this);
  show();
  Command1->setFocus();
}

void frmAbout::lblWebsite_Click() {
  open_url(lblWebsite->text());
  menu_.ShowNormalAndActivate();
  close();
}

void frmAbout::Command1_Click() { close(); }

// The mouse over the rest of the window gives the link its normal colours
// back; Escape on the OK button closes the window.
bool frmAbout::eventFilter(QObject* watched, QEvent* event) {
  if (watched == this && event->type() == QEvent::MouseMove) lblWebsite->ShowHover(false);
  if (watched == this && event->type() == QEvent::Enter) lblWebsite->ShowHover(false);
  if (watched == Command1 && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    Command1_Click();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void frmAbout::closeEvent(QCloseEvent* event) {
  WindowGate& gate = session_.gate;
  if (!gate.Closing() && !gate.Busy()) {  // a running open re-enables them itself at its end
    menu_.EnableCheckBoxes();
    menu_.EnableAllButtons();
    menu_.ShowNormalAndActivate();
  }
  QWidget::closeEvent(event);
  DeleteWindowLater(gate, this);
}

}  // namespace ferrow
