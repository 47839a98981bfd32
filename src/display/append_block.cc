#include "display/append_block.h"

#include <vector>

#include "display/filters.h"
#include "display/rtf_compose.h"
#include "display/text_box.h"
#include "display/text_ops.h"
#include "session/session.h"
#include "support/dates.h"
#include "support/tokenize.h"

namespace ferrow {
namespace {

constexpr Colour kRed = 0x0000FF;
constexpr int kMaxLinesPerBlock = 1 << 30;

}  // namespace

void AppendTextBlock(Session& s, TextBox& box, const std::string& text, bool quick_scroll) {
  const Options& o = s.options;
  if (o.Debug) s.DebugBlockCounter = s.DebugBlockCounter < 1001 ? s.DebugBlockCounter + 1 : 0;
  if (!AcceptedTextBox(box)) return;

  std::vector<std::string> lines;
  Tokenize(EscapeAppendBlock(s, text), "\r\n", lines, kMaxLinesPerBlock);
  if (lines.empty()) return;

  box.BeginBatch();
  RaiseMaxLength(box, o);
  if (o.Debug) {
    const std::tm now = LocalTime(s.env.Now());
    AppendColouredText(box, o,
                       "* * * Debug: Started block write " + std::to_string(s.DebugBlockCounter) +
                           " at " + s.env.SystemShortDate(now) + " " + s.env.SystemLongTime(now) +
                           " * * *\r\n",
                       o.FilterColour);
  }
  std::string pending;
  for (const std::string& line : lines) {
    if (line.empty()) continue;
    const bool filter = !o.FilterString.empty() && LineMatchesFilter(line, o.FilterWords);
    const bool red = !o.RedFilterString.empty() && LineMatchesFilter(line, o.RedFilterWords);
    if (!filter && !red) {
      if (quick_scroll) pending += line + "\r\n";
      else AppendColouredText(box, o, line + "\r\n", o.FontColour);
      continue;
    }
    if (!pending.empty()) {
      AppendColouredText(box, o, pending, o.FontColour);
      pending.clear();
    }
    AppendColouredText(box, o, line + "\r\n", red ? kRed : o.FilterColour, o.FontColour);
  }
  if (!pending.empty()) AppendColouredText(box, o, pending, o.FontColour);
  AppendColouredText(box, o, "", o.FontColour);
  TrimTextWindow(box, o);
  box.SetSelStart(box.TextLength());
  box.EndBatch();
}

}  // namespace ferrow
