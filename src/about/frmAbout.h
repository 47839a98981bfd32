// The about window: program, companion library and usage information, and a
// link to the project's web page.
#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>

class QPushButton;

namespace ferrow {

class MenuPort;
struct Session;

// The web page label: blue on the button face, white on blue under the mouse.
class WebsiteLabel : public QLabel {
  Q_OBJECT
 public:
  explicit WebsiteLabel(const QString& address, QWidget* parent = nullptr);
  void ShowHover(bool hovering);

 signals:
  void clicked();

 protected:
  void enterEvent(QEnterEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

class frmAbout : public QWidget {
  Q_OBJECT

 public:
  frmAbout(Session& session, MenuPort& menu, QWidget* parent = nullptr);

  QLabel* lblTitle;
  QLabel* lblInformation;
  WebsiteLabel* lblWebsite;
  QPushButton* Command1;

  void Form_Load();
  void lblWebsite_Click();
  void Command1_Click();

  // Opens addresses; tests replace it.
  std::function<void(const QString&)> open_url;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  Session& session_;
  MenuPort& menu_;
};

}  // namespace ferrow
