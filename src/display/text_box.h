// The rich-text box as the rest of the program sees it: the primitives of a
// rich-edit control. Positions and lengths count characters, 0-based for the
// caret; a line break counts as one character. The Qt layer implements it over
// a text widget; tests use an in-memory one.
#pragma once

#include <cstdint>
#include <string>

#include "session/options.h"

namespace ferrow {

class TextBox {
 public:
  virtual ~TextBox() = default;

  // "RichTextBox" for the real box; operations refuse any other kind but
  // "Textbox".
  virtual std::string TypeName() const = 0;

  virtual int64_t TextLength() = 0;
  virtual std::string Text() = 0;  // UTF-8, "\n" between lines
  virtual void SetText(const std::string& text) = 0;

  virtual int64_t SelStart() = 0;
  virtual void SetSelStart(int64_t position) = 0;  // also empties the selection
  virtual int64_t SelLength() = 0;
  virtual void SetSelLength(int64_t length) = 0;
  virtual std::string SelText() = 0;
  // Replaces the selection with plain text (never parsed as markup) in the
  // insertion colour; cut short where it would pass MaxLength.
  virtual void SetSelText(const std::string& text) = 0;
  virtual Colour SelColor() = 0;
  // The colour of the selection, and of what is inserted next.
  virtual void SetSelColor(Colour colour) = 0;
  virtual std::string SelRTF() = 0;  // the selection as a rich-text document
  virtual void SetTextRTF(const std::string& document) = 0;

  virtual int32_t MaxLength() = 0;  // 0: no limit
  virtual void SetMaxLength(int32_t length) = 0;

  virtual void SetFontName(const std::string& name) = 0;
  virtual void SetFontSize(int size) = 0;
  virtual void SetFontBold(bool bold) = 0;
  virtual int FontSize() = 0;
  virtual bool FontBold() = 0;
  virtual void SetBackColor(Colour colour) = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual void Refresh() = 0;
  // Lines wrap at the window's edge, or the text scrolls sideways.
  virtual void SetWordWrap(bool wrap) = 0;

  // The number of lines; a text ending in a line break counts the empty last line.
  virtual int64_t LineCount() = 0;
  // Position of the first `c` at or after `from`, or -1.
  virtual int64_t Find(char c, int64_t from) = 0;

  // Redrawing off and on again (LockWindowUpdate); and whether the box's
  // window is minimised.
  virtual void LockUpdates(bool locked) = 0;
  virtual bool WindowMinimised() = 0;

  // Groups many edits into one, for speed; nothing is drawn in between.
  virtual void BeginBatch() = 0;
  virtual void EndBatch() = 0;
};

// True for the kinds of control the text operations accept.
inline bool AcceptedTextBox(TextBox& box) {
  const std::string kind = box.TypeName();
  return kind == "Textbox" || kind == "RichTextBox";
}

}  // namespace ferrow
