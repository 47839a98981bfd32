#include "win32/dropped_files.h"

#include "win32/ansi_text.h"
#include "win32/unusable_name.h"

namespace ferrow::win32 {

std::vector<std::string> DroppedFiles(HDROP drop, Ui& ui) {
  std::vector<std::string> names;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring wide(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
    wide.resize(DragQueryFileW(drop, i, wide.data(), static_cast<UINT>(wide.size())));
    std::string name;
    if (ToAnsiExactly(wide, &name)) {
      names.push_back(name);
    } else if (names.empty()) {
      ShowUnusableName(ui, wide);
      return {};
    }
  }
  return names;
}

std::vector<std::string> TakeDroppedFiles(HDROP drop, Ui& ui) {
  std::vector<std::string> names = DroppedFiles(drop, ui);
  DragFinish(drop);
  return names;
}

}  // namespace ferrow::win32
