// What every window of the program does alike: its class, its font, its
// text and its place in the middle of the screen.
#pragma once

#include <windows.h>

#include <string>

namespace ferrow::win32 {

// Registers `class_name` once per process, with the program's icon, the
// arrow cursor and `background` (a COLOR_ index).
void RegisterWindowClass(const char* class_name, WNDPROC proc, int background, UINT style = 0);

// The font of message boxes, for controls; null when the system gives none.
HFONT MakeMessageFont();

// A window's or a control's text, in UTF-8.
std::string WindowTextOf(HWND window);
// A window's or a control's text as it is, in the ANSI code page: for file
// names and the captions that show them. A character the code page cannot
// hold is "?", never a look-alike.
std::string AnsiTextOf(HWND window);

// Moves `window` to the middle of the screen's work area.
void CentreOnWorkArea(HWND window);

}  // namespace ferrow::win32
