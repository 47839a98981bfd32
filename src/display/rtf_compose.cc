#include "display/rtf_compose.h"

#include "display/filters.h"
#include "display/rtf_escape.h"
#include "session/session.h"
#include "support/strings.h"

namespace ferrow {
namespace {

constexpr char kGenerator[] = "{\\*\\generator Msftedit 5.41.15.1503;}\\viewkind4\\uc1\\pard\\f0";

}  // namespace

std::string RTFColour(Colour colour) {
  const unsigned c = static_cast<unsigned>(colour);
  return "\\Red" + std::to_string(c & 0xFF) + "\\Green" + std::to_string((c >> 8) & 0xFF) +
         "\\Blue" + std::to_string((c >> 16) & 0xFF);
}

std::string RTFBold(bool bold) { return bold ? "\\b " : "\\b0 "; }

std::string RTFFontSize(int points) { return "\\fs" + std::to_string(points * 2); }

std::string EscapeDocumentLine(const Session& s, const std::string& line) {
  if (s.options.HelperLibraryInUse && s.helper)
    if (auto escaped = s.helper->RTFFilter(line)) return *escaped;
  return RTFEscape(line);
}

std::string EscapeAppendBlock(const Session& s, const std::string& block) {
  if (s.options.HelperLibraryInUse && s.helper)
    if (auto escaped = s.helper->RTFFilterNoSlash(block)) return *escaped;
  return EscapeBraces(block);
}

std::string DocumentHeader(const std::string& font, int font_size) {
  if (UpperCase(font) == "TERMINAL" && font_size < 10)
    return "{\\rtf1\\ansi\\ansicpg850\\deff0{\\fonttbl{\\f0\\fnil\\fcharset255 Terminal;}}";
  return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 " + font +
         ";}}";
}

std::string ColourTable(Colour font_colour, Colour filter_colour) {
  return "{\\colortbl ;" + RTFColour(font_colour) + ";" + RTFColour(filter_colour) +
         ";\\red0\\green255\\blue0;\\red0\\green0\\blue255;}";
}

std::string DocumentStart(const Session& s, int box_size, bool box_bold) {
  const Options& o = s.options;
  return DocumentHeader(o.Font, o.FontSize) + ColourTable(o.FontColour, o.FilterColour) +
         kGenerator + RTFFontSize(box_size) + RTFBold(box_bold) + "\\cf1 ";
}

std::string DocumentLine(const Session& s, const std::string& raw, bool box_bold) {
  const std::string line = EscapeDocumentLine(s, raw);
  if (LineMatchesFilter(line, s.options.FilterWords))
    return "\\cf2 " + RTFBold(box_bold) + line + "\\cf1 \\par\r\n";
  return RTFBold(box_bold) + line + "\\par\r\n";
}

std::string ComposeInitialDocument(const Session& s, const std::vector<std::string>& lines,
                                   int box_size, bool box_bold) {
  std::string doc = DocumentStart(s, box_size, box_bold);
  for (const std::string& line : lines) doc += DocumentLine(s, line, box_bold);
  return doc + "}";
}

}  // namespace ferrow
