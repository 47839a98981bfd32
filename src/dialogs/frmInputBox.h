// A small window that asks for one line of text. Not modal: while it waits,
// the other windows stay live and the poll timer keeps appending text.
#pragma once

#include <QWidget>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;

namespace ferrow {

class Env;

class frmInputBox : public QWidget {
  Q_OBJECT

 public:
  explicit frmInputBox(QWidget* parent = nullptr);

  QLabel* Label1;
  QLineEdit* txtInput;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

  std::string InputResult;
  bool InputDone = false;

  void Form_Load();
  void cmdOK_Click();
  void cmdCancel_Click();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
};

// Shows the box and waits, letting window events run, until the user answers.
// Returns the confirmed text, or "" when cancelled (OK on an empty text gives
// "" too). `pw_char`, when given, hides what is typed.
std::string InputMsg(Env& env, const std::string& prompt, const std::string& title,
                     const std::string& edit_string = "", const std::string& pw_char = "");

// The loaded box, or nullptr (for tests and for reuse).
frmInputBox* LoadedInputBox();

}  // namespace ferrow
