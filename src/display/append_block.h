#pragma once

#include <string>

namespace ferrow {

class TextBox;
struct Session;

// Appends a block of text read from the followed file: line by line, blank
// lines dropped, lines with filter words in the filter colour and lines with
// red words in red, then trims the window to its size. With `quick_scroll`,
// unmarked lines in a row go in as one insertion.
void AppendTextBlock(Session& session, TextBox& box, const std::string& text, bool quick_scroll);

}  // namespace ferrow
