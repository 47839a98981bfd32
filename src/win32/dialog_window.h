// What the program's small Win32 windows (settings, input box, about) share:
// one object per window bound at WM_NCCREATE, controls made in dialog units
// of 96 dpi scaled to the screen, the message font, keys of every control
// offered to the window first, the close box, and the deferred end.
#pragma once

#include <windows.h>

#include <string>

namespace ferrow {
class WindowGate;
}

namespace ferrow::win32 {

class DialogWindow {
 public:
  DialogWindow(const DialogWindow&) = delete;
  DialogWindow& operator=(const DialogWindow&) = delete;
  HWND Handle() const { return hwnd_; }
  HWND Item(int id) const { return GetDlgItem(hwnd_, id); }

 protected:
  // A window of `class_name` with a client area of `width` by `height`
  // pixels at 96 dpi; not shown yet.
  DialogWindow(WindowGate& gate, const char* class_name, int width, int height);
  virtual ~DialogWindow();

  HWND Add(int id, const char* window_class, const std::string& text, DWORD style, int x, int y,
           int width, int height);
  int Scaled(int pixels) const;
  void SetWindowCaption(const std::string& caption);
  static std::string TextOf(HWND control);
  void Centre();
  void ShowWithFocus(int id);
  // Hidden now, deleted once no handler runs; the window's end.
  void Dispose();
  bool Disposed() const { return disposed_; }

  // A key pressed in control `id`; true when it goes no further.
  virtual bool OnKey(int id, int key_code) = 0;
  virtual void OnCommand(int id, int code) = 0;
  // The close box, Alt+F4 or WM_CLOSE.
  virtual void OnClose() = 0;
  // The mouse moved over control `id`.
  virtual void OnMouseOver(int id) { (void)id; }
  // Other messages; return true with `result` set when handled.
  virtual bool OnMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result);

 private:
  void RememberFocus();
  void RestoreFocus();
  static LRESULT CALLBACK WindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
  static LRESULT CALLBACK ChildProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam,
                                    UINT_PTR id, DWORD_PTR self);

  WindowGate& gate_;
  HWND hwnd_ = nullptr;
  HFONT font_ = nullptr;
  int dpi_ = 96;
  bool disposed_ = false;
  HWND focused_ = nullptr;  // the control that had the keyboard when the window was left
};

}  // namespace ferrow::win32
