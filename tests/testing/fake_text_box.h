// An in-memory rich-text box: text with a colour per character, a selection,
// and a log of every insertion, so tests can check both the runs core asked
// for and the result. Positions count bytes; line breaks are kept as "\n".
#pragma once

#include <string>
#include <vector>

#include "display/text_box.h"

namespace ferrow::testing {

struct Insertion {
  std::string text;
  Colour colour;
  bool operator==(const Insertion& o) const { return text == o.text && colour == o.colour; }
};

class FakeTextBox : public TextBox {
 public:
  std::string type_name = "RichTextBox";
  std::string text;
  std::vector<Colour> colours;  // one per byte of `text`
  int64_t sel_start = 0, sel_length = 0;
  Colour insert_colour = 0;
  int32_t max_length = 0;
  std::string font_name;
  int font_size = 10;
  bool font_bold = false, enabled = true, wrap = false, minimised = false;
  int locks = 0, batches = 0, open_batches = 0;
  Colour back_colour = 0;
  std::vector<Insertion> insertions;  // non-empty SetSelText calls, in order
  int empty_insertions = 0;

  std::string TypeName() const override { return type_name; }
  int64_t TextLength() override { return static_cast<int64_t>(text.size()); }
  std::string Text() override { return text; }
  void SetText(const std::string& t) override;
  int64_t SelStart() override { return sel_start; }
  void SetSelStart(int64_t p) override;
  int64_t SelLength() override { return sel_length; }
  void SetSelLength(int64_t n) override;
  std::string SelText() override { return text.substr(sel_start, sel_length); }
  void SetSelText(const std::string& t) override;
  Colour SelColor() override { return insert_colour; }
  void SetSelColor(Colour c) override { insert_colour = c; }
  std::string SelRTF() override;
  void SetTextRTF(const std::string& document) override;
  int32_t MaxLength() override { return max_length; }
  void SetMaxLength(int32_t n) override { max_length = n; }
  void SetFontName(const std::string& n) override { font_name = n; }
  void SetFontSize(int s) override { font_size = s; }
  void SetFontBold(bool b) override { font_bold = b; }
  int FontSize() override { return font_size; }
  bool FontBold() override { return font_bold; }
  void SetBackColor(Colour c) override { back_colour = c; }
  void SetEnabled(bool e) override { enabled = e; }
  void Refresh() override {}
  void SetWordWrap(bool w) override { wrap = w; }
  int64_t LineCount() override;
  int64_t Find(char c, int64_t from) override;
  void LockUpdates(bool locked) override { locks += locked ? 1 : 0; }
  bool WindowMinimised() override { return minimised; }
  void BeginBatch() override { ++batches, ++open_batches; }
  void EndBatch() override { --open_batches; }

  // The text of each run of equal colour, with its colour.
  std::vector<Insertion> Runs() const;
};

}  // namespace ferrow::testing
