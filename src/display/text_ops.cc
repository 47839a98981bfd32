#include "display/text_ops.h"

#include "display/text_box.h"

namespace ferrow {

void SetInsertColour(TextBox& box, Colour colour) {
  if (!AcceptedTextBox(box)) return;
  box.SetSelStart(box.TextLength());
  box.SetSelColor(colour);
}

void AppendColouredText(TextBox& box, const Options& options, const std::string& text,
                        Colour colour, std::optional<Colour> after) {
  if (!AcceptedTextBox(box)) return;
  SetInsertColour(box, colour);
  box.SetSelStart(box.TextLength());
  box.SetSelText(text);
  box.SetFontName(options.Font);
  if (after) SetInsertColour(box, *after);
}

void RaiseMaxLength(TextBox& box, const Options& options) {
  if (!AcceptedTextBox(box)) return;
  box.SetMaxLength(static_cast<int32_t>(2LL * options.MaxInputLength));
}

void TrimTextWindow(TextBox& box, const Options& options) {
  if (!AcceptedTextBox(box)) return;
  const bool lock = !box.WindowMinimised();
  if (lock) box.LockUpdates(true);
  const int64_t excess = box.TextLength() - options.MaxInputLength;
  DeleteLeadingText(box, excess, true);
  box.SetMaxLength(options.MaxInputLength);
  if (lock) box.LockUpdates(false);
}

void DeleteLeadingText(TextBox& box, int64_t count, bool to_line_end) {
  if (!AcceptedTextBox(box) || count < 1) return;
  box.SetSelStart(0);
  box.SetSelLength(count - 1);
  box.SetSelText("");
  if (!to_line_end) return;
  const int64_t line_feed = box.Find('\n', 0);
  if (line_feed < 0) return;
  box.SetSelStart(0);
  box.SetSelLength(line_feed + 1);
  box.SetSelText("");
}

int64_t GetLineCount(TextBox& box) {
  if (!AcceptedTextBox(box) || box.TextLength() == 0) return 0;
  return box.LineCount();
}

void SetWordWrapOn(TextBox& box) { box.SetWordWrap(true); }
void SetWordWrapOff(TextBox& box) { box.SetWordWrap(false); }

}  // namespace ferrow
