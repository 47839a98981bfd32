#include "win32/window_capture.h"

#include <cstdio>
#include <vector>

namespace ferrow::win32 {

bool SaveWindowBitmap(HWND window, const std::string& path) {
  RECT r{};
  if (!GetWindowRect(window, &r)) return false;
  const int width = r.right - r.left, height = r.bottom - r.top;
  if (width <= 0 || height <= 0) return false;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, r.left, r.top, SRCCOPY);
  SelectObject(memory, old);
  BITMAPINFOHEADER info{};
  info.biSize = sizeof(info);
  info.biWidth = width;
  info.biHeight = height;  // bottom-up, as BMP files keep rows
  info.biPlanes = 1;
  info.biBitCount = 24;
  info.biCompression = BI_RGB;
  const DWORD row = (static_cast<DWORD>(width) * 3 + 3) & ~3u;
  std::vector<unsigned char> pixels(row * static_cast<size_t>(height));
  GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), pixels.data(),
            reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof(file) + sizeof(info);
  file.bfSize = file.bfOffBits + static_cast<DWORD>(pixels.size());
  FILE* out = std::fopen(path.c_str(), "wb");
  if (!out) return false;
  bool ok = std::fwrite(&file, sizeof(file), 1, out) == 1 && std::fwrite(&info, sizeof(info), 1, out) == 1 &&
            std::fwrite(pixels.data(), 1, pixels.size(), out) == pixels.size();
  return std::fclose(out) == 0 && ok;
}

std::vector<COLORREF> ScreenPixels(const RECT& area) {
  const int width = area.right - area.left, height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return {};
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // top-down
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  HDC screen = GetDC(nullptr);
  HDC memory = CreateCompatibleDC(screen);
  void* bits = nullptr;
  HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
  GdiFlush();
  std::vector<COLORREF> pixels(static_cast<size_t>(width) * static_cast<size_t>(height));
  const auto* quads = static_cast<const RGBQUAD*>(bits);
  for (size_t i = 0; bits && i < pixels.size(); ++i)
    pixels[i] = RGB(quads[i].rgbRed, quads[i].rgbGreen, quads[i].rgbBlue);
  SelectObject(memory, old);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return pixels;
}

}  // namespace ferrow::win32
