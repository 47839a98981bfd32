// The selection as a rich-text document, written by the program's own writer
// from the control's text and colours, as the Qt window writes it. The
// control's own stream is not used for copying: some rich-edit controls
// (Wine's) write a character beyond the code page as its nearest look-alike
// ("\u937" as "O"), so the copy would not read back as the text shown.
#include <richedit.h>

#include "display/rich_document.h"
#include "win32/rich_edit_box.h"
#include "win32/wide_text.h"

namespace ferrow::win32 {
namespace {

// The format of the characters [start, end) where they all share it.
bool UniformFormat(HWND box, LONG start, LONG end, CHARFORMAT2W* format) {
  CHARRANGE range{start, end};
  SendMessageW(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
  *format = CHARFORMAT2W{};
  format->cbSize = sizeof(*format);
  SendMessageW(box, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(format));
  return (format->dwMask & (CFM_COLOR | CFM_BOLD)) == (CFM_COLOR | CFM_BOLD);
}

void AddRun(RichDocument& doc, const std::wstring& text, const CHARFORMAT2W& format) {
  RichRun run;
  run.text = ProgramText(text);
  run.has_colour = !(format.dwEffects & CFE_AUTOCOLOR);
  run.colour = static_cast<Colour>(format.crTextColor);
  run.bold = (format.dwEffects & CFE_BOLD) != 0;
  if (!doc.runs.empty() && doc.runs.back().has_colour == run.has_colour &&
      doc.runs.back().colour == run.colour && doc.runs.back().bold == run.bold) {
    doc.runs.back().text += run.text;
  } else {
    doc.runs.push_back(std::move(run));
  }
}

}  // namespace

// A line of the log has one colour, so a line is asked once; a piece whose
// characters differ is asked a character at a time.
std::string RichEditBox::SelRTF() {
  Settle();
  CHARRANGE selection{};
  Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  const std::wstring text = WideText(GT_SELECTION, selection.cpMax - selection.cpMin);
  RichDocument doc;
  doc.font = font_name_;
  doc.font_size = font_size_;
  CHARFORMAT2W format{};
  for (size_t from = 0; from < text.size();) {
    size_t end = text.find(L'\r', from);
    end = end == std::wstring::npos ? text.size() : end + 1;
    const LONG start = selection.cpMin + static_cast<LONG>(from);
    if (UniformFormat(hwnd_, start, selection.cpMin + static_cast<LONG>(end), &format)) {
      AddRun(doc, text.substr(from, end - from), format);
    } else {
      for (size_t i = from, n = 1; i < end; i += n) {
        n = text[i] >= 0xD800 && text[i] <= 0xDBFF && i + 1 < end ? 2 : 1;  // a surrogate pair
        UniformFormat(hwnd_, selection.cpMin + static_cast<LONG>(i),
                      selection.cpMin + static_cast<LONG>(i + n), &format);
        AddRun(doc, text.substr(i, n), format);
      }
    }
    from = end;
  }
  Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  return WriteRtf(doc);
}

}  // namespace ferrow::win32
