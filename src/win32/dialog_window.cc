#include "win32/dialog_window.h"

#include <commctrl.h>

#include "win32/ansi_text.h"
#include "win32/event_passes.h"
#include "win32/message_loop.h"
#include "win32/twips.h"
#include "win32/window_basics.h"

namespace ferrow::win32 {
DialogWindow::DialogWindow(WindowGate& gate, const char* class_name, int width, int height)
    : gate_(gate), dpi_(ScreenDpi()) {
  RegisterWindowClass(class_name, &WindowProc, COLOR_BTNFACE);
  font_ = MakeMessageFont();
  const DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU;
  RECT frame{0, 0, Scaled(width), Scaled(height)};
  AdjustWindowRectEx(&frame, style, FALSE, WS_EX_DLGMODALFRAME);
  CreateWindowExA(WS_EX_DLGMODALFRAME, class_name, "", style, CW_USEDEFAULT, CW_USEDEFAULT,
                  frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                  GetModuleHandleA(nullptr), this);
  AddDialogWindow(hwnd_);
}

DialogWindow::~DialogWindow() {
  RemoveDialogWindow(hwnd_);
  if (IsWindow(hwnd_)) {
    SetWindowLongPtrA(hwnd_, GWLP_USERDATA, 0);
    DestroyWindow(hwnd_);
  }
  if (font_) DeleteObject(font_);
}

int DialogWindow::Scaled(int pixels) const { return MulDiv(pixels, dpi_, 96); }

HWND DialogWindow::Add(int id, const char* window_class, const std::string& text, DWORD style, int x,
                       int y, int width, int height) {
  HWND control = CreateWindowExA(0, window_class, ToAnsi(text).c_str(), WS_CHILD | WS_VISIBLE | style,
                                 Scaled(x), Scaled(y), Scaled(width), Scaled(height), hwnd_,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                 GetModuleHandleA(nullptr), nullptr);
  SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
  SetWindowSubclass(control, &ChildProc, static_cast<UINT_PTR>(id), reinterpret_cast<DWORD_PTR>(this));
  return control;
}

void DialogWindow::SetWindowCaption(const std::string& caption) { SetWindowTextA(hwnd_, ToAnsi(caption).c_str()); }

std::string DialogWindow::TextOf(HWND control) { return WindowTextOf(control); }

void DialogWindow::Centre() { CentreOnWorkArea(hwnd_); }

void DialogWindow::ShowWithFocus(int id) {
  ShowWindow(hwnd_, SW_SHOWNORMAL);
  SetForegroundWindow(hwnd_);
  if (HWND control = Item(id)) SetFocus(control);
}

void DialogWindow::Dispose() {
  if (disposed_) return;
  disposed_ = true;
  ShowWindow(hwnd_, SW_HIDE);
  DeleteWindowLater(gate_, [this] { delete this; });
}

bool DialogWindow::OnMessage(UINT, WPARAM, LPARAM, LRESULT&) { return false; }

void DialogWindow::RememberFocus() {
  HWND focus = GetFocus();
  if (focus && IsChild(hwnd_, focus)) focused_ = focus;
}

void DialogWindow::RestoreFocus() {
  if (disposed_ || IsIconic(hwnd_)) return;
  HWND target = focused_;
  if (!target || !IsWindow(target) || !IsChild(hwnd_, target) || !IsWindowEnabled(target) || !IsWindowVisible(target))
    target = GetNextDlgTabItem(hwnd_, nullptr, FALSE);
  if (target && GetFocus() != target) SetFocus(target);
}

LRESULT CALLBACK DialogWindow::WindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_NCCREATE) {
    auto* self = static_cast<DialogWindow*>(reinterpret_cast<CREATESTRUCTA*>(lparam)->lpCreateParams);
    self->hwnd_ = hwnd;
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
  if (!self) return DefWindowProcA(hwnd, message, wparam, lparam);
  LRESULT result = 0;
  switch (message) {
    case WM_COMMAND:
      if (!self->disposed_ && lparam) self->OnCommand(LOWORD(wparam), HIWORD(wparam));
      return 0;
    case WM_CLOSE:
      if (!self->disposed_) self->OnClose();
      return 0;
    case WM_ACTIVATE:
      // Left: remember the control with the keyboard; back: give it back, so
      // Enter, Escape and typing work at once, as in the system's dialogs.
      if (LOWORD(wparam) == WA_INACTIVE) self->RememberFocus();
      else self->RestoreFocus();
      return 0;
    case WM_SETFOCUS:
      self->RestoreFocus();
      return 0;
    default:
      if (self->OnMessage(message, wparam, lparam, result)) return result;
      return DefWindowProcA(hwnd, message, wparam, lparam);
  }
}

// Enter and Escape are the window's keys, not the dialog navigation's.
LRESULT CALLBACK DialogWindow::ChildProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam,
                                         UINT_PTR id, DWORD_PTR self_pointer) {
  auto* self = reinterpret_cast<DialogWindow*>(self_pointer);
  switch (message) {
    case WM_NCDESTROY:
      RemoveWindowSubclass(hwnd, &ChildProc, id);
      break;
    case WM_GETDLGCODE: {
      const auto* key = reinterpret_cast<const MSG*>(lparam);
      const LRESULT code = DefSubclassProc(hwnd, message, wparam, lparam);
      if (key && key->message == WM_KEYDOWN && (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE))
        return code | DLGC_WANTMESSAGE;
      // A plain letter goes to the control (where it does nothing on a
      // button), not to the dialog navigation, which would press the button
      // whose mnemonic it is; Alt+letter still does.
      if (key && key->message == WM_CHAR) return code | DLGC_WANTCHARS;
      return code;
    }
    case WM_KEYDOWN: {
      const int key = wparam == VK_RETURN && GetKeyState(VK_CONTROL) < 0 ? 10 : static_cast<int>(wparam);
      if (!self->disposed_ && self->OnKey(static_cast<int>(id), key)) return 0;
      break;
    }
    case WM_MOUSEMOVE:
      if (!self->disposed_) self->OnMouseOver(static_cast<int>(id));
      break;
    case WM_CHAR:
      if (wparam == '\r' || wparam == '\n' || wparam == 27) return 0;  // taken as keys
      break;
    default:
      break;
  }
  return DefSubclassProc(hwnd, message, wparam, lparam);
}

}  // namespace ferrow::win32
