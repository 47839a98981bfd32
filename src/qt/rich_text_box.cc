#include "qt/rich_text_box.h"

#include <QTextBlock>
#include <QTextDocument>

#include "qt/qt_convert.h"
#include "display/rich_document.h"

namespace ferrow {
namespace {

// Line breaks arrive as CR LF, LF or CR; the document keeps one break each.
QString NormaliseBreaks(const std::string& text) {
  QString q = ToQt(text);
  q.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  q.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return q;
}

std::string PlainFromSelection(QString text) {
  text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
  text.replace(QChar::LineSeparator, QLatin1Char('\n'));
  return FromQt(text);
}

}  // namespace

RichTextBox::RichTextBox(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  document()->setUndoRedoEnabled(false);
  ApplyFont();
  // Every change of the text moves the caret to the end, so the window always
  // follows the newest line.
  connect(this, &QPlainTextEdit::textChanged, this, [this] {
    if (batch_ == 0) FollowEnd();
  });
}

void RichTextBox::FollowEnd() {
  QTextCursor c = textCursor();
  if (c.hasSelection() || c.position() != TextLength()) {
    c.movePosition(QTextCursor::End);
    setTextCursor(c);
  }
}

QTextCursor RichTextBox::Current() const { return batch_ ? batch_cursor_ : textCursor(); }

void RichTextBox::Store(const QTextCursor& cursor) {
  if (batch_) batch_cursor_ = cursor;
  else setTextCursor(cursor);
}

int64_t RichTextBox::TextLength() { return document()->characterCount() - 1; }

std::string RichTextBox::Text() { return FromQt(toPlainText()); }

// The new text takes the insertion colour, so that it shows on any background.
void RichTextBox::SetText(const std::string& text) {
  QTextCursor c(document());
  if (!batch_) c.beginEditBlock();
  c.select(QTextCursor::Document);
  c.removeSelectedText();
  c.insertText(NormaliseBreaks(text), insert_format_);
  if (!batch_) c.endEditBlock();
  Store(c);
}

int64_t RichTextBox::SelStart() { return Current().selectionStart(); }

void RichTextBox::SetSelStart(int64_t position) {
  QTextCursor c = Current();
  c.setPosition(static_cast<int>(std::clamp<int64_t>(position, 0, TextLength())));
  Store(c);
}

int64_t RichTextBox::SelLength() {
  QTextCursor c = Current();
  return c.selectionEnd() - c.selectionStart();
}

void RichTextBox::SetSelLength(int64_t length) {
  QTextCursor c = Current();
  const int start = c.selectionStart();
  c.setPosition(start);
  c.setPosition(static_cast<int>(std::clamp<int64_t>(start + length, start, TextLength())),
                QTextCursor::KeepAnchor);
  Store(c);
}

std::string RichTextBox::SelText() { return PlainFromSelection(Current().selectedText()); }

void RichTextBox::SetSelText(const std::string& text) {
  QTextCursor c = Current();
  QString q = NormaliseBreaks(text);
  if (max_length_ > 0) {
    const int64_t room = max_length_ - (TextLength() - (c.selectionEnd() - c.selectionStart()));
    if (room < q.size()) q.truncate(static_cast<int>(std::max<int64_t>(room, 0)));
  }
  if (!batch_) c.beginEditBlock();
  if (q.isEmpty()) c.removeSelectedText();
  else c.insertText(q, insert_format_);
  if (!batch_) c.endEditBlock();
  Store(c);
}

Colour RichTextBox::SelColor() { return FromQColor(insert_format_.foreground().color()); }

void RichTextBox::SetSelColor(Colour colour) {
  insert_format_.setForeground(ToQColor(colour));
  QTextCursor c = Current();
  if (c.hasSelection()) {
    QTextCharFormat recolour;
    recolour.setForeground(ToQColor(colour));
    c.mergeCharFormat(recolour);
  }
}

std::string RichTextBox::SelRTF() {
  const QTextCursor c = Current();
  const int start = c.selectionStart(), end = c.selectionEnd();
  RichDocument doc;
  doc.font = font_name_;
  doc.font_size = font_size_;
  for (QTextBlock block = document()->findBlock(start); block.isValid() && block.position() < end;
       block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      const int from = std::max(start, fragment.position());
      const int to = std::min(end, fragment.position() + fragment.length());
      if (from >= to) continue;
      RichRun run;
      run.text = FromQt(fragment.text().mid(from - fragment.position(), to - from));
      const QBrush brush = fragment.charFormat().foreground();
      run.has_colour = brush.style() != Qt::NoBrush;
      run.colour = FromQColor(brush.color());
      run.bold = fragment.charFormat().fontWeight() >= QFont::Bold || font_bold_;
      doc.runs.push_back(std::move(run));
    }
    const int separator = block.position() + block.length() - 1;
    if (separator >= start && separator < end && block.next().isValid())
      doc.runs.push_back(RichRun{"\n", false, 0, font_bold_});
  }
  return WriteRtf(doc);
}

void RichTextBox::SetTextRTF(const std::string& document_text) {
  const RichDocument doc = ReadRtf(document_text);
  BeginBatch();
  batch_cursor_.select(QTextCursor::Document);
  batch_cursor_.removeSelectedText();
  for (const RichRun& run : doc.runs) {
    QTextCharFormat format;
    if (run.has_colour) format.setForeground(ToQColor(run.colour));
    if (run.bold) format.setFontWeight(QFont::Bold);
    batch_cursor_.insertText(ToQt(run.text), format);
  }
  EndBatch();
}

void RichTextBox::ApplyFont() { setFont(MakeFont(font_name_, font_size_, font_bold_)); }

void RichTextBox::SetFontName(const std::string& name) {
  if (name == font_name_) return;  // asked after every run: only a change costs a layout
  font_name_ = name;
  ApplyFont();
}

void RichTextBox::SetFontSize(int size) {
  if (size == font_size_) return;
  font_size_ = size;
  ApplyFont();
}

void RichTextBox::SetFontBold(bool bold) {
  if (bold == font_bold_) return;
  font_bold_ = bold;
  ApplyFont();
}

void RichTextBox::SetBackColor(Colour colour) {
  QPalette p = palette();
  for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
    p.setColor(group, QPalette::Base, ToQColor(colour));
  setPalette(p);
}

void RichTextBox::SetWordWrap(bool wrap) {
  setLineWrapMode(wrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
}

int64_t RichTextBox::LineCount() {
  return lineWrapMode() == QPlainTextEdit::NoWrap ? document()->blockCount()
                                                  : document()->lineCount();
}

int64_t RichTextBox::Find(char c, int64_t from) {
  if (c == '\n') {
    // Line breaks are block ends: the one after `from` is found without a search.
    for (QTextBlock block = document()->findBlock(static_cast<int>(from)); block.isValid();
         block = block.next()) {
      const int64_t separator = block.position() + block.length() - 1;
      if (!block.next().isValid()) return -1;
      if (separator >= from) return separator;
    }
    return -1;
  }
  const QTextCursor found = document()->find(QString(QChar(c)), static_cast<int>(from));
  return found.isNull() ? -1 : found.selectionStart();
}

bool RichTextBox::WindowMinimised() { return window()->isMinimized(); }

void RichTextBox::BeginBatch() {
  if (batch_++ > 0) return;
  batch_cursor_ = textCursor();
  batch_cursor_.beginEditBlock();
}

void RichTextBox::EndBatch() {
  if (batch_ == 0 || --batch_ > 0) return;
  batch_cursor_.endEditBlock();
  setTextCursor(batch_cursor_);
}

}  // namespace ferrow
