#include "win32/dropped_files.h"

#include "win32/ansi_text.h"

namespace ferrow::win32 {

std::vector<std::string> DroppedFiles(HDROP drop) {
  std::vector<std::string> names;
  const UINT count = DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::vector<char> name(DragQueryFileA(drop, i, nullptr, 0) + 1, '\0');
    DragQueryFileA(drop, i, name.data(), static_cast<UINT>(name.size()));
    names.push_back(FromAnsi(name.data()));
  }
  return names;
}

std::vector<std::string> TakeDroppedFiles(HDROP drop) {
  std::vector<std::string> names = DroppedFiles(drop);
  DragFinish(drop);
  return names;
}

}  // namespace ferrow::win32
