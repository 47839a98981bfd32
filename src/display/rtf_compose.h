// The rich text the program composes: control-word helpers, the escaping of
// its two paths, and the document the initial load assigns in one go.
#pragma once

#include <string>
#include <vector>

#include "session/options.h"

namespace ferrow {

struct Session;

// "\Red<r>\Green<g>\Blue<b>" from a 0x00BBGGRR colour.
std::string RTFColour(Colour colour);
// "\b " or "\b0 ".
std::string RTFBold(bool bold);
// "\fs" and the size in half-points.
std::string RTFFontSize(int points);

// A line for the initial document: RTFFilter when the companion library is in
// use, else RTFEscape.
std::string EscapeDocumentLine(const Session& session, const std::string& line);
// A block for appending: RTFFilterNoSlash when the library is in use, else
// EscapeBraces. (The result is inserted as plain text, so braces show with a
// backslash in front.)
std::string EscapeAppendBlock(const Session& session, const std::string& block);

// The header with the font table: code page 850 and the OEM character set for
// Terminal below 10 points, else code page 1252 naming the font.
std::string DocumentHeader(const std::string& font, int font_size);

// The colour table: FontColour, FilterColour, then green and blue.
std::string ColourTable(Colour font_colour, Colour filter_colour);

// The start of the initial document: header, colour table and paragraph start.
std::string DocumentStart(const Session& session, int box_size, bool box_bold);
// One line of it, escaped, in the filter colour when it carries a filter word.
std::string DocumentLine(const Session& session, const std::string& line, bool box_bold);

// The whole initial document for `lines` (already in file order). `box_size`
// and `box_bold` are the box's current font size and bold flag.
std::string ComposeInitialDocument(const Session& session, const std::vector<std::string>& lines,
                                   int box_size, bool box_bold);

}  // namespace ferrow
