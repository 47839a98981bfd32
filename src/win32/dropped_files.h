// The names of a file drop (WM_DROPFILES, EN_DROPFILES), in UTF-8.
#pragma once

#include <windows.h>
#include <shellapi.h>

#include <string>
#include <vector>

namespace ferrow::win32 {

// The dropped names; Take also ends the drop (DragFinish), as WM_DROPFILES
// asks of its receiver.
std::vector<std::string> DroppedFiles(HDROP drop);
std::vector<std::string> TakeDroppedFiles(HDROP drop);

}  // namespace ferrow::win32
