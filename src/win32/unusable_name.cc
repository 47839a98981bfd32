#include "win32/unusable_name.h"

#include "support/ui.h"
#include "win32/ansi_text.h"

namespace ferrow::win32 {

std::string UnusableNameMessage(const std::wstring& name) {
  return "Can't open: " + AnsiOrQuestionMarks(name) +
         "\r\n\r\nThe name holds characters that this system's code page cannot show "
         "(shown here as ?). Rename the file or its folder, then try again.";
}

void ShowUnusableName(Ui& ui, const std::wstring& name) {
  ui.ShowMessage(UnusableNameMessage(name), "File Access Error", MessageIcon::Critical);
}

}  // namespace ferrow::win32
