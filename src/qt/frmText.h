// The text window drawn with Qt: one rich-text box, Rtf, filling it. What
// the window does is TextWindow's; this class draws it and forwards the
// box's keys, drops and the window's resizes and close.
#pragma once

#include <QStringList>
#include <QWidget>

#include "qt/rich_text_box.h"
#include "display/text_view.h"
#include "display/text_window.h"

namespace ferrow {

class ControlWindowPort;
struct Session;

class frmText : public QWidget, private TextView {
  Q_OBJECT

 public:
  frmText(Session& session, ControlWindowPort& control, QWidget* parent = nullptr);
  ~frmText() override;

  RichTextBox* Rtf;

  void Form_Load() { logic_.Form_Load(); }
  TextWindow& Logic() { return logic_; }
  void Rtf_OLEDragDrop(const QStringList& names);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  TextBox& Box() override { return *Rtf; }
  TwipsRect Place() override;
  void SetPlace(const TwipsRect& place) override;
  TwipsRect ScreenArea() override;
  WindowState State() override;
  void ShowNormal() override { showNormal(); }
  TwipsRect ClientArea() override;
  void PlaceBox(const TwipsRect& place) override;
  void SetCaption(const std::string& caption) override;
  std::string Caption() override;
  void Flash() override;
  void CopyToClipboard(const std::string& text) override;
  void SubclassBox() override;
  void UnsubclassBox() override;
  void Close() override { close(); }

  int Twips(int pixels) const;
  int Pixels(int32_t twips) const;

  Session& session_;
  TextWindow logic_;
};

// The key code a Qt key stands for (the Windows virtual-key code).
int KeyCode(int key);
// The character code a key press stands for: Ctrl+A is 1, Ctrl+C 3, Enter 13,
// Ctrl+Enter 10, Ctrl+W 23, and so on; 0 for keys that type nothing.
int CharacterCode(int key, Qt::KeyboardModifiers modifiers, const QString& text);

}  // namespace ferrow
