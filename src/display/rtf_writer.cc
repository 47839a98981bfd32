#include <algorithm>

#include "display/rich_document.h"

namespace ferrow {
namespace {

// The next code point of UTF-8 `text` at `i`; a stray byte stands for itself.
char32_t NextCodePoint(const std::string& text, size_t& i) {
  const unsigned char b = static_cast<unsigned char>(text[i++]);
  int extra = b < 0x80 ? 0 : (b >> 5) == 6 ? 1 : (b >> 4) == 14 ? 2 : (b >> 3) == 30 ? 3 : -1;
  if (extra <= 0) return b;
  char32_t c = b & (0x3F >> extra);
  for (int k = 0; k < extra; ++k) {
    if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 0xFFFD;
    c = c << 6 | (static_cast<unsigned char>(text[i++]) & 0x3F);
  }
  return c;
}

void AppendUnicode(std::string& out, char32_t c) {
  auto unit = [&](unsigned u) {
    out += "\\u" + std::to_string(u >= 0x8000 ? static_cast<int>(u) - 65536 : static_cast<int>(u)) +
           "?";
  };
  if (c >= 0x10000) {
    c -= 0x10000;
    unit(0xD800 + static_cast<unsigned>(c >> 10));
    unit(0xDC00 + static_cast<unsigned>(c & 0x3FF));
  } else {
    unit(static_cast<unsigned>(c));
  }
  // An empty group ends the escape: some readers (unrtf) otherwise drop the
  // letters that follow a fallback character up to the next space.
  out += "{}";
}

void AppendText(std::string& out, const std::string& text) {
  for (size_t i = 0; i < text.size();) {
    const char32_t c = NextCodePoint(text, i);
    if (c == '\\' || c == '{' || c == '}') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c == '\n') {
      out += "\\par\r\n";
    } else if (c == '\r') {
      // line breaks are "\n" in runs; a lone CR says nothing more
    } else if (c == '\t') {
      out += "\\tab ";
    } else if (c < 0x80) {
      out += static_cast<char>(c);
    } else {
      AppendUnicode(out, c);
    }
  }
}

std::string ColourEntry(Colour colour) {
  const unsigned c = static_cast<unsigned>(colour);
  return "\\red" + std::to_string(c & 0xFF) + "\\green" + std::to_string((c >> 8) & 0xFF) +
         "\\blue" + std::to_string((c >> 16) & 0xFF) + ";";
}

}  // namespace

std::string WriteRtf(const RichDocument& document) {
  std::vector<Colour> colours;
  for (const RichRun& run : document.runs)
    if (run.has_colour && std::find(colours.begin(), colours.end(), run.colour) == colours.end())
      colours.push_back(run.colour);

  std::string font = document.font.empty() ? "Courier New" : document.font;
  std::string out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 ";
  AppendText(out, font);
  out += ";}}\r\n{\\colortbl ;";
  for (Colour c : colours) out += ColourEntry(c);
  out += "}\r\n\\viewkind4\\uc1\\pard\\f0\\fs" +
         std::to_string(2 * (document.font_size > 0 ? document.font_size : 10)) + " ";
  int current = -1;
  bool bold = false;
  for (const RichRun& run : document.runs) {
    int index = run.has_colour
                    ? static_cast<int>(std::find(colours.begin(), colours.end(), run.colour) -
                                       colours.begin()) + 1
                    : 0;
    if (index != current) out += "\\cf" + std::to_string(current = index) + " ";
    if (run.bold != bold) out += (bold = run.bold) ? "\\b " : "\\b0 ";
    AppendText(out, run.text);
  }
  return out + "}";
}

}  // namespace ferrow
