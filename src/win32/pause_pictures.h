// The pause button's two pictures, drawn at run time: imgStop (two bars)
// while following, imgGo (a triangle) while paused.
#pragma once

#include <windows.h>

namespace ferrow::win32 {

// A `size`-pixel square icon; the caller destroys it.
HICON MakePausePicture(bool following, int size);

}  // namespace ferrow::win32
