// The low-level operations on the text window's box that composition and the
// following engine use: coloured runs, the size limit, line count.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "session/options.h"

namespace ferrow {

class TextBox;

// Caret to the end, then the insertion colour.
void SetInsertColour(TextBox& box, Colour colour);

// Inserts `text` at the end in `colour` as plain text; `after` then becomes
// the insertion colour.
void AppendColouredText(TextBox& box, const Options& options, const std::string& text,
                        Colour colour, std::optional<Colour> after = std::nullopt);

// Lets the box take up to twice MaxInputLength, so an append is never cut short.
void RaiseMaxLength(TextBox& box, const Options& options);

// Deletes from the front what is over MaxInputLength, up to a whole line.
void TrimTextWindow(TextBox& box, const Options& options);

// Deletes count - 1 characters from the front and then, when `to_line_end`,
// everything up to and including the next line feed.
void DeleteLeadingText(TextBox& box, int64_t count, bool to_line_end);

// The box's line count, 0 for an empty text or a box of another kind.
int64_t GetLineCount(TextBox& box);

void SetWordWrapOn(TextBox& box);
void SetWordWrapOff(TextBox& box);

}  // namespace ferrow
