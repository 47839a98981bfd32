// The about window: it draws the texts and the web page link, and forwards
// its events to `AboutWindow`, which decides everything.
#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>

#include "about/about_window.h"

class QPushButton;

namespace ferrow {

class WindowGate;

// The web page label: reports the mouse over it and clicks on it.
class WebsiteLabel : public QLabel {
  Q_OBJECT
 public:
  explicit WebsiteLabel(QWidget* parent = nullptr);

 signals:
  void clicked();
  void hovered();

 protected:
  void enterEvent(QEnterEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

class frmAbout : public QWidget, public AboutView {
  Q_OBJECT

 public:
  frmAbout(Session& session, MenuPort& menu, QWidget* parent = nullptr);

  QLabel* lblTitle;
  QLabel* lblInformation;
  WebsiteLabel* lblWebsite;
  QPushButton* Command1;

  void Form_Load() { logic_.Form_Load(); }
  void lblWebsite_Click() { logic_.lblWebsite_Click(); }
  void Command1_Click() { logic_.Command1_Click(); }

  // Opens addresses; tests replace it.
  std::function<void(const QString&)> open_url;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void SetCaption(const std::string& caption) override;
  void SetTitle(const std::string& text) override;
  void SetInformation(const std::string& text) override;
  void SetWebsite(const std::string& address) override;
  void SetWebsiteColours(SystemColour text, SystemColour background) override;
  void OpenAddress(const std::string& address) override;
  void CentreOnScreen() override;
  void Show() override;
  void Close() override { close(); }

  WindowGate& gate_;
  AboutWindow logic_;
};

}  // namespace ferrow
