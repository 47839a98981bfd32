// The file name box's edit field. Qt's editable combo box counts a typed
// text that equals a list entry as a pick when editing finishes (focus
// leaving the field, or ENTER): it emits `activated`. Only a pick from the
// list is a pick, so the field tells when editing is finishing.
#pragma once

#include <QLineEdit>

namespace ferrow {

class FileNameEdit : public QLineEdit {
  Q_OBJECT
 public:
  using QLineEdit::QLineEdit;
  // True while the field reports that editing finished.
  bool Finishing() const { return finishing_; }

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool finishing_ = false;
};

}  // namespace ferrow
