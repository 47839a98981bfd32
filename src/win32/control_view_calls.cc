// What the control window shows: caption, place, controls, the history list,
// the timer and the sound.
#include <windows.h>

#include <vector>

#include "control/system_menu.h"
#include "win32/ansi_text.h"
#include "win32/control_ids.h"
#include "win32/control_window_view.h"
#include "win32/sound.h"
#include "win32/tool_tips.h"
#include "win32/twips.h"
#include "win32/window_basics.h"

namespace ferrow::win32 {
void Win32ControlWindow::SetCaption(const std::string& caption) {
  SetWindowTextA(hwnd_, caption.c_str());
}

std::string Win32ControlWindow::Caption() { return AnsiTextOf(hwnd_); }

void Win32ControlWindow::Repaint() {
  RedrawWindow(hwnd_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

bool Win32ControlWindow::Minimised() { return IsIconic(hwnd_) != FALSE; }

int32_t Win32ControlWindow::LeftTwips() {
  RECT r{};
  GetWindowRect(hwnd_, &r);
  return PixelsToTwips(r.left);
}

int32_t Win32ControlWindow::TopTwips() {
  RECT r{};
  GetWindowRect(hwnd_, &r);
  return PixelsToTwips(r.top);
}

void Win32ControlWindow::MoveTwips(int32_t left, int32_t top) {
  SetWindowPos(hwnd_, nullptr, TwipsToPixels(left), TwipsToPixels(top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32ControlWindow::ShowNormal() {
  ShowWindow(hwnd_, SW_SHOWNORMAL);
  UpdateWindow(hwnd_);
}

void Win32ControlWindow::ShowMinimised() { ShowWindow(hwnd_, SW_SHOWMINIMIZED); }

void Win32ControlWindow::BringToFront() {
  BringWindowToTop(hwnd_);
  SetForegroundWindow(hwnd_);
}

void Win32ControlWindow::CentreOnScreen() { CentreOnWorkArea(hwnd_); }

namespace {

SystemMenuEntry EntryOf(HMENU menu, int position) {
  MENUITEMINFOA item{};
  item.cbSize = sizeof(item);
  item.fMask = MIIM_FTYPE | MIIM_ID;
  if (!GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &item)) return SystemMenuEntry::kOther;
  if (item.fType & MFT_SEPARATOR) return SystemMenuEntry::kSeparator;
  switch (item.wID & 0xFFF0) {  // the low four bits of a system command are the system's
    case SC_SIZE: return SystemMenuEntry::kSize;
    case SC_MAXIMIZE: return SystemMenuEntry::kMaximize;
    case SC_CLOSE: return SystemMenuEntry::kClose;
    default: return SystemMenuEntry::kOther;
  }
}

}  // namespace

// The entries go by what they are: a window system with more than the
// standard seven entries keeps Close, and with it the title bar's close box,
// Alt+F4 and the window manager's close request.
void Win32ControlWindow::TrimSystemMenu() {
  HMENU menu = GetSystemMenu(hwnd_, FALSE);
  if (!menu) return;
  std::vector<SystemMenuEntry> entries;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) entries.push_back(EntryOf(menu, i));
  for (int position : SystemMenuEntriesToRemove(entries))
    RemoveMenu(menu, static_cast<UINT>(position), MF_BYPOSITION);
  DrawMenuBar(hwnd_);
}

void Win32ControlWindow::SetEnabled(Control control, bool enabled) {
  EnableWindow(ControlHandle(control), enabled ? TRUE : FALSE);
}

bool Win32ControlWindow::Enabled(Control control) { return IsWindowEnabled(ControlHandle(control)) != FALSE; }

void Win32ControlWindow::SetToolTip(Control control, const std::string& tip) {
  tool_tips_->Set(ControlHandle(control), tip);
}

// BST_UNCHECKED, BST_CHECKED and BST_INDETERMINATE are 0, 1 and 2.
int Win32ControlWindow::Value(Control control) {
  return static_cast<int>(SendMessageA(ControlHandle(control), BM_GETCHECK, 0, 0));
}

void Win32ControlWindow::SetValue(Control control, int value) {
  SendMessageA(ControlHandle(control), BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

// Names, in the ANSI code page like every name the program holds.
std::string Win32ControlWindow::Text(Control control) { return AnsiTextOf(ControlHandle(control)); }

// The box's change event runs once for the program's own change, as the
// plain field's EN_CHANGE does.
void Win32ControlWindow::SetText(Control control, const std::string& text) {
  if (control != Control::cmbFileName) {
    SetWindowTextA(ControlHandle(control), text.c_str());
    return;
  }
  HWND box = ControlHandle(control);
  quiet_ = true;
  // A list left dropped down would show its highlight over the new name.
  if (SendMessageA(box, CB_GETDROPPEDSTATE, 0, 0)) SendMessageA(box, CB_SHOWDROPDOWN, FALSE, 0);
  SetWindowTextA(box, text.c_str());
  quiet_ = false;
  logic_.cmbFileName_Change();
}

void Win32ControlWindow::SetPausePicture(bool following) {
  HWND button = ControlHandle(Control::cmdPause);
  SetWindowTextA(button, "");
  SendMessageA(button, BM_SETIMAGE, IMAGE_ICON,
               reinterpret_cast<LPARAM>(following ? stop_picture_ : go_picture_));
}

void Win32ControlWindow::SetList(const std::vector<std::string>& names) {
  HWND box = ControlHandle(Control::cmbFileName);
  const std::string shown = Text(Control::cmbFileName);
  quiet_ = true;
  SendMessageA(box, CB_RESETCONTENT, 0, 0);
  for (const std::string& name : names)
    SendMessageA(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
  SetWindowTextA(box, shown.c_str());
  quiet_ = false;
}

std::vector<std::string> Win32ControlWindow::List() {
  HWND box = ControlHandle(Control::cmbFileName);
  std::vector<std::string> names;
  const LRESULT count = SendMessageA(box, CB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    std::string name(static_cast<size_t>(SendMessageA(box, CB_GETLBTEXTLEN, i, 0)) + 1, '\0');
    name.resize(static_cast<size_t>(SendMessageA(box, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(name.data()))));
    names.push_back(name);
  }
  return names;
}

int Win32ControlWindow::HighlightedListIndex() {
  HWND box = ControlHandle(Control::cmbFileName);
  if (!SendMessageA(box, CB_GETDROPPEDSTATE, 0, 0)) return -1;
  const LRESULT index = SendMessageA(box, CB_GETCURSEL, 0, 0);
  return index == CB_ERR ? -1 : static_cast<int>(index);
}

void Win32ControlWindow::RemoveListItem(int index) {
  HWND box = ControlHandle(Control::cmbFileName);
  const std::string shown = Text(Control::cmbFileName);
  const bool dropped = SendMessageA(box, CB_GETDROPPEDSTATE, 0, 0) != 0;
  quiet_ = true;
  SendMessageA(box, CB_DELETESTRING, static_cast<WPARAM>(index), 0);
  if (!dropped) SetWindowTextA(box, shown.c_str());
  quiet_ = false;
}

void Win32ControlWindow::SelectBoxText() {
  SendMessageA(ControlHandle(Control::cmbFileName), CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

void Win32ControlWindow::SetTimerInterval(int milliseconds) {
  timer_interval_ = milliseconds > 0 ? milliseconds : 1;
  if (timer_enabled_) SetTimer(hwnd_, kTimer1Id, static_cast<UINT>(timer_interval_), nullptr);
}

void Win32ControlWindow::SetTimerEnabled(bool enabled) {
  timer_enabled_ = enabled;
  if (enabled) SetTimer(hwnd_, kTimer1Id, static_cast<UINT>(timer_interval_), nullptr);
  else KillTimer(hwnd_, kTimer1Id);
}

bool Win32ControlWindow::TimerEnabled() { return timer_enabled_; }

bool Win32ControlWindow::PlaySoundFile(const std::string& file, bool loop) {
  return win32::PlaySoundFile(file, loop);
}

}  // namespace ferrow::win32
