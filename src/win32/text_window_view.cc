#include "win32/text_window_view.h"

#include <richedit.h>
#include <shellapi.h>

#include <vector>

#include "session/session.h"
#include "win32/ansi_text.h"
#include "win32/control_ids.h"
#include "win32/dropped_files.h"
#include "win32/event_passes.h"
#include "win32/twips.h"
#include "win32/window_basics.h"

namespace ferrow::win32 {
namespace {

constexpr int kBoxId = 1;

TwipsRect Twips(const RECT& r) {
  return {PixelsToTwips(r.left), PixelsToTwips(r.top), PixelsToTwips(r.right - r.left),
          PixelsToTwips(r.bottom - r.top)};
}

}  // namespace

Win32TextWindow::Win32TextWindow(Session& session, ControlWindowPort& control)
    : session_(session), logic_(session, control, *this) {
  RegisterWindowClass(kTextWindowClass, &WindowProc, COLOR_WINDOW);
  hwnd_ = CreateWindowExA(WS_EX_ACCEPTFILES, kTextWindowClass, "", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                          CW_USEDEFAULT, 640, 240, nullptr, nullptr, GetModuleHandleA(nullptr), this);
  box_ = std::make_unique<RichEditBox>(hwnd_, kBoxId);
  DragAcceptFiles(hwnd_, TRUE);
  DragAcceptFiles(box_->Handle(), TRUE);
}

Win32TextWindow::~Win32TextWindow() {
  box_.reset();
  if (IsWindow(hwnd_)) {
    SetWindowLongPtrA(hwnd_, GWLP_USERDATA, 0);
    DestroyWindow(hwnd_);
  }
}

// One object per window, bound when the window is made.
LRESULT CALLBACK Win32TextWindow::WindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_NCCREATE) {
    auto* create = reinterpret_cast<CREATESTRUCTA*>(lparam);
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* self = reinterpret_cast<Win32TextWindow*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
  if (!self || !self->box_) return DefWindowProcA(hwnd, message, wparam, lparam);
  return self->OnMessage(message, wparam, lparam);
}

LRESULT Win32TextWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_SIZE:
      if (wparam != SIZE_MINIMIZED) logic_.Form_Resize();
      return 0;
    case WM_COMMAND:
      if (LOWORD(wparam) == kBoxId && HIWORD(wparam) == EN_CHANGE) logic_.Rtf_Change();
      return 0;
    case WM_NOTIFY:
      return Notify(*reinterpret_cast<const NMHDR*>(lparam));
    case WM_DROPFILES:
      Dropped(reinterpret_cast<HDROP>(wparam));
      DragFinish(reinterpret_cast<HDROP>(wparam));
      return 0;
    case WM_CLOSE:
      Closed();
      return 0;
    default:
      return DefWindowProcA(hwnd_, message, wparam, lparam);
  }
}

// The box reports keys and drops here; non-zero keeps a key from the box.
LRESULT Win32TextWindow::Notify(const NMHDR& header) {
  if (header.idFrom != kBoxId) return 0;
  if (header.code == EN_MSGFILTER) {
    const auto& filter = reinterpret_cast<const MSGFILTER&>(header);
    if (filter.msg == WM_KEYDOWN) return logic_.Rtf_KeyDown(static_cast<int>(filter.wParam));
    if (filter.msg == WM_CHAR) return logic_.Rtf_KeyPress(static_cast<int>(filter.wParam));
    return 0;
  }
  if (header.code == EN_DROPFILES) {
    Dropped(static_cast<HDROP>(reinterpret_cast<const ENDROPFILES&>(header).hDrop));
    return 0;  // the control inserts nothing
  }
  return 0;
}

void Win32TextWindow::Dropped(HDROP drop) { logic_.Rtf_OLEDragDrop(DroppedFiles(drop, session_.ui)); }

// Hidden now, destroyed once no handler runs: this may be inside one.
void Win32TextWindow::Closed() {
  logic_.Form_Unload();
  if (closed_) return;
  closed_ = true;
  ShowWindow(hwnd_, SW_HIDE);
  DeleteWindowLater(session_.gate, [this] { delete this; });
}

void Win32TextWindow::Close() { SendMessageA(hwnd_, WM_CLOSE, 0, 0); }

TwipsRect Win32TextWindow::Place() {
  RECT r{};
  GetWindowRect(hwnd_, &r);
  return Twips(r);
}

void Win32TextWindow::SetPlace(const TwipsRect& place) {
  MoveWindow(hwnd_, TwipsToPixels(place.left), TwipsToPixels(place.top),
             TwipsToPixels(place.width), TwipsToPixels(place.height), TRUE);
}

TwipsRect Win32TextWindow::ScreenArea() {
  return {0, 0, PixelsToTwips(GetSystemMetrics(SM_CXSCREEN)),
          PixelsToTwips(GetSystemMetrics(SM_CYSCREEN))};
}

WindowState Win32TextWindow::State() {
  if (IsIconic(hwnd_)) return WindowState::kMinimised;
  return IsZoomed(hwnd_) ? WindowState::kMaximised : WindowState::kNormal;
}

void Win32TextWindow::ShowNormal() {
  ShowWindow(hwnd_, SW_SHOWNORMAL);
  UpdateWindow(hwnd_);
}

TwipsRect Win32TextWindow::ClientArea() {
  RECT r{};
  GetClientRect(hwnd_, &r);
  return Twips(r);
}

void Win32TextWindow::PlaceBox(const TwipsRect& place) {
  MoveWindow(box_->Handle(), TwipsToPixels(place.left), TwipsToPixels(place.top),
             TwipsToPixels(place.width), TwipsToPixels(place.height), TRUE);
}

void Win32TextWindow::SetCaption(const std::string& caption) {
  SetWindowTextA(hwnd_, caption.c_str());  // it shows the file's name: ANSI text
}

std::string Win32TextWindow::Caption() { return AnsiTextOf(hwnd_); }

void Win32TextWindow::Flash() { FlashWindow(hwnd_, TRUE); }

// As CF_TEXT, even for rich-text source: a paste shows the markup itself.
void Win32TextWindow::CopyToClipboard(const std::string& text) {
  if (!OpenClipboard(hwnd_)) return;
  EmptyClipboard();
  const std::string ansi = ToAnsi(WithCrLf(text));
  if (HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, ansi.size() + 1)) {
    if (void* bytes = GlobalLock(memory)) {
      memcpy(bytes, ansi.c_str(), ansi.size() + 1);
      GlobalUnlock(memory);
      if (!SetClipboardData(CF_TEXT, memory)) GlobalFree(memory);
    } else {
      GlobalFree(memory);
    }
  }
  CloseClipboard();
}

}  // namespace ferrow::win32
