#include "win32/window_basics.h"

#include <set>

#include "win32/ansi_text.h"

namespace ferrow::win32 {

void RegisterWindowClass(const char* class_name, WNDPROC proc, int background, UINT style) {
  static std::set<std::string> registered;
  if (!registered.insert(class_name).second) return;
  WNDCLASSEXA window_class{};
  window_class.cbSize = sizeof(window_class);
  window_class.style = style;
  window_class.lpfnWndProc = proc;
  window_class.hInstance = GetModuleHandleA(nullptr);
  window_class.hCursor = LoadCursor(nullptr, IDC_ARROW);
  window_class.hIcon = LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(1));
  window_class.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(background + 1));
  window_class.lpszClassName = class_name;
  RegisterClassExA(&window_class);
}

HFONT MakeMessageFont() {
  NONCLIENTMETRICSA metrics{};
  metrics.cbSize = sizeof(metrics);
  if (!SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) return nullptr;
  return CreateFontIndirectA(&metrics.lfMessageFont);
}

std::string WindowTextOf(HWND window) { return FromAnsi(AnsiTextOf(window)); }

// Read in UTF-16: GetWindowTextA would hand over a best-fit look-alike for
// a pasted character the code page cannot hold, which could name another file.
std::string AnsiTextOf(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return AnsiOrQuestionMarks(text);
}

void CentreOnWorkArea(HWND window) {
  RECT work{}, r{};
  SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
  GetWindowRect(window, &r);
  SetWindowPos(window, nullptr, work.left + ((work.right - work.left) - (r.right - r.left)) / 2,
               work.top + ((work.bottom - work.top) - (r.bottom - r.top)) / 2, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace ferrow::win32
