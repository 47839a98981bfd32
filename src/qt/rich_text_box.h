// The rich-text box over a Qt text widget: read-only, no undo (it would grow
// without bound), no wrapping unless asked. Every edit goes through one text
// cursor inside an edit block; a batch holds the block open across many edits.
#pragma once

#include <QPlainTextEdit>
#include <QTextCharFormat>
#include <QTextCursor>

#include "display/text_box.h"

namespace ferrow {

class RichTextBox : public QPlainTextEdit, public TextBox {
  Q_OBJECT

 public:
  explicit RichTextBox(QWidget* parent = nullptr);

  std::string TypeName() const override { return "RichTextBox"; }

  int64_t TextLength() override;
  std::string Text() override;
  void SetText(const std::string& text) override;

  int64_t SelStart() override;
  void SetSelStart(int64_t position) override;
  int64_t SelLength() override;
  void SetSelLength(int64_t length) override;
  std::string SelText() override;
  void SetSelText(const std::string& text) override;
  Colour SelColor() override;
  void SetSelColor(Colour colour) override;
  std::string SelRTF() override;
  void SetTextRTF(const std::string& document) override;

  int32_t MaxLength() override { return max_length_; }
  void SetMaxLength(int32_t length) override { max_length_ = length; }

  void SetFontName(const std::string& name) override;
  void SetFontSize(int size) override;
  void SetFontBold(bool bold) override;
  int FontSize() override { return font_size_; }
  bool FontBold() override { return font_bold_; }
  void SetBackColor(Colour colour) override;
  void SetEnabled(bool enabled) override { setEnabled(enabled); }
  void Refresh() override { viewport()->repaint(); }
  void SetWordWrap(bool wrap) override;

  int64_t LineCount() override;
  int64_t Find(char c, int64_t from) override;

  void LockUpdates(bool locked) override { setUpdatesEnabled(!locked); }
  bool WindowMinimised() override;

  void BeginBatch() override;
  void EndBatch() override;

 private:
  QTextCursor Current() const;
  void Store(const QTextCursor& cursor);
  void ApplyFont();
  void FollowEnd();

  QTextCursor batch_cursor_;
  int batch_ = 0;
  QTextCharFormat insert_format_;
  int32_t max_length_ = 0;
  std::string font_name_ = "Terminal";
  int font_size_ = 10;
  bool font_bold_ = false;
};

}  // namespace ferrow
