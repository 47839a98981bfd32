// Pictures of real windows for review.
#pragma once

#include <windows.h>

#include <string>

namespace ferrow::win32 {

// Copies what the screen shows of `window` (frame included) into a 24-bit
// BMP file.
bool SaveWindowBitmap(HWND window, const std::string& path);

}  // namespace ferrow::win32
