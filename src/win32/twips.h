// Twips are 1440 to the logical inch of the screen.
#pragma once

#include <cstdint>

namespace ferrow::win32 {

int ScreenDpi();
int TwipsToPixels(int64_t twips);
int32_t PixelsToTwips(int pixels);

}  // namespace ferrow::win32
