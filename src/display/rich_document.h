// Rich text as runs of equally formatted text: what our rich-text reader makes
// of a document and what our writer turns into one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/options.h"

namespace ferrow {

struct RichRun {
  std::string text;         // UTF-8, "\n" at line breaks
  bool has_colour = false;  // false: the box's own text colour
  Colour colour = 0;
  bool bold = false;
};

struct RichDocument {
  std::string font;   // the first font of the font table
  int font_size = 0;  // points, 0 when the document does not say
  std::vector<RichRun> runs;

  std::string PlainText() const;
};

// Reads a rich-text document. Everything this program writes is understood;
// of anything else a tolerant subset: unknown control words and "{\*...}"
// destinations are skipped, "\'hh" and "\uN" decoded, and unbalanced braces
// or a cut-off document never stop it. Linear in the size of the input.
RichDocument ReadRtf(std::string_view document);

// A complete document: header with the font, a colour table of the colours
// in use, the runs with "\cfN", and "\par" at each line break; characters
// beyond ASCII as "\uN?".
std::string WriteRtf(const RichDocument& document);

}  // namespace ferrow
