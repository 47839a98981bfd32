#include "win32/pause_pictures.h"

namespace ferrow::win32 {
namespace {

// Draws the shape into `dc` with `brush`, the rest left as it is.
void DrawShape(HDC dc, bool following, int size, HBRUSH brush) {
  const int m = size / 8;
  if (following) {
    const int bar = (size - 2 * m) / 3;
    RECT left{m, m, m + bar, size - m}, right{size - m - bar, m, size - m, size - m};
    FillRect(dc, &left, brush);
    FillRect(dc, &right, brush);
    return;
  }
  const POINT triangle[] = {{m + 1, m}, {size - m, size / 2}, {m + 1, size - m}};
  HGDIOBJ old_brush = SelectObject(dc, brush);
  HGDIOBJ old_pen = SelectObject(dc, GetStockObject(NULL_PEN));
  Polygon(dc, triangle, 3);
  SelectObject(dc, old_pen);
  SelectObject(dc, old_brush);
}

}  // namespace

HICON MakePausePicture(bool following, int size) {
  HDC screen = GetDC(nullptr);
  HDC dc = CreateCompatibleDC(screen);
  HBITMAP colour = CreateCompatibleBitmap(screen, size, size);
  HBITMAP mask = CreateBitmap(size, size, 1, 1, nullptr);
  RECT all{0, 0, size, size};

  // The mask: white is transparent, black shows the colour bitmap.
  HGDIOBJ old = SelectObject(dc, mask);
  FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  DrawShape(dc, following, size, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  SelectObject(dc, colour);
  FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  HBRUSH paint = CreateSolidBrush(following ? RGB(176, 32, 32) : RGB(32, 144, 48));
  DrawShape(dc, following, size, paint);
  DeleteObject(paint);
  SelectObject(dc, old);

  ICONINFO info{TRUE, 0, 0, mask, colour};
  HICON icon = CreateIconIndirect(&info);
  DeleteObject(colour);
  DeleteObject(mask);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  return icon;
}

}  // namespace ferrow::win32
