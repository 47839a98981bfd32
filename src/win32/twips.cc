#include "win32/twips.h"

#include <windows.h>

namespace ferrow::win32 {

int ScreenDpi() {
  HDC screen = GetDC(nullptr);
  const int dpi = screen ? GetDeviceCaps(screen, LOGPIXELSY) : 96;
  if (screen) ReleaseDC(nullptr, screen);
  return dpi > 0 ? dpi : 96;
}

// Rounded to the nearest, negative places (a minimised window's) included.
int TwipsToPixels(int64_t twips) {
  const double pixels = static_cast<double>(twips) * ScreenDpi() / 1440.0;
  return static_cast<int>(pixels < 0 ? pixels - 0.5 : pixels + 0.5);
}

int32_t PixelsToTwips(int pixels) {
  const double twips = pixels * 1440.0 / ScreenDpi();
  return static_cast<int32_t>(twips < 0 ? twips - 0.5 : twips + 0.5);
}

}  // namespace ferrow::win32
