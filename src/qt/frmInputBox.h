// The input box's window: it draws the prompt, the text box and the buttons,
// and forwards their events to `InputBox`, which decides everything.
#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "dialogs/input_box.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace ferrow {

class Env;

class frmInputBox : public QWidget, public InputView {
  Q_OBJECT

 public:
  explicit frmInputBox(std::shared_ptr<InputBox> logic, QWidget* parent = nullptr);
  ~frmInputBox() override;

  QLabel* Label1;
  QLineEdit* txtInput;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

  void cmdOK_Click() { logic_->cmdOK_Click(); }
  void cmdCancel_Click() { logic_->cmdCancel_Click(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void SetCaption(const std::string& caption) override;
  void SetPrompt(const std::string& prompt) override;
  void SetText(const std::string& text) override;
  std::string Text() override;
  void SelectText(int start, int length) override;
  void SetPasswordChar(const std::string& pw_char) override;
  void Show() override;
  void Close() override { close(); }

  std::shared_ptr<InputBox> logic_;
};

// The program's input box: `InputMsg` of input_box.h over this window.
std::string InputMsg(Env& env, const std::string& prompt, const std::string& title,
                     const std::string& edit_string = "", const std::string& pw_char = "");

// The loaded box's window, or nullptr (for tests).
frmInputBox* LoadedInputBox();

}  // namespace ferrow
