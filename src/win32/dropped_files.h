// The names of a file drop (WM_DROPFILES, EN_DROPFILES), in the ANSI code
// page like every name the program holds.
#pragma once

#include <windows.h>
#include <shellapi.h>

#include <string>
#include <vector>

namespace ferrow {
class Ui;
}

namespace ferrow::win32 {

// The dropped names. The shell hands them over in UTF-16; one the code page
// cannot hold is never passed on as a look-alike: when the first is such a
// name, `ui` says so and there are no names (a drop acts on its first).
std::vector<std::string> DroppedFiles(HDROP drop, Ui& ui);
// The same, and ends the drop (DragFinish), as WM_DROPFILES asks of its receiver.
std::vector<std::string> TakeDroppedFiles(HDROP drop, Ui& ui);

}  // namespace ferrow::win32
