// Pictures of real windows for review.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace ferrow::win32 {

// Copies what the screen shows of `window` (frame included) into a 24-bit
// BMP file.
bool SaveWindowBitmap(HWND window, const std::string& path);

// What the screen shows in `area` (screen coordinates), row by row from the
// top, as 0x00BBGGRR colours.
std::vector<COLORREF> ScreenPixels(const RECT& area);

}  // namespace ferrow::win32
