// Emptying a box that holds a lot of text: Wine's control deletes text a
// piece of a line at a time and, for each piece, walks the whole text (to
// find the place, or to renumber what follows), so emptying a full 1 MB
// window took it 15 seconds, the program frozen meanwhile (Apply and the
// filter's reload empty it). A new control in place of the old one costs a
// few milliseconds, whatever the old one held.
#include <richedit.h>

#include "win32/rich_edit_box.h"

namespace ferrow::win32 {
namespace {

// Below this the old control empties itself quickly enough.
constexpr int64_t kReplaceAbove = 16 * 1024;

}  // namespace

int RichEditBox::messages_running_ = 0;

// The new control is made as the old one was (styles as made, its shown and
// enabled state, place, id, drop
// target, its place among its siblings), then set up as this box keeps it
// (font, colours, limits, wrapping, subclassing, redrawing held off inside a
// batch); it takes the format the old text began with, as text that
// replaces the old one would, and the focus if the old one had it. Never
// while a message of a box's control is being handled: that control's own
// procedure may be among the callers.
bool RichEditBox::ReplaceControl() {
  if (messages_running_ > 0 || ControlLength() <= kReplaceAbove) return false;
  const HWND old = hwnd_;
  const HWND parent = GetParent(old);
  RECT place{};
  GetWindowRect(old, &place);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  CHARFORMAT2W first{};
  first.cbSize = sizeof(first);
  SetSelection(0, 1);
  Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&first));
  const bool focused = GetFocus() == old;
  const bool subclassed = Subclassed();
  Unsubclass();

  constexpr DWORD kState = WS_VISIBLE | WS_DISABLED;
  const DWORD style = (made_style_ & ~kState) | (static_cast<DWORD>(GetWindowLongW(old, GWL_STYLE)) & kState);
  MakeControl(parent, GetDlgCtrlID(old), style, static_cast<DWORD>(GetWindowLongW(old, GWL_EXSTYLE)), place);
  SetWindowPos(hwnd_, old, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  DestroyWindow(old);

  Send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&first));
  if (GetWindowLongW(hwnd_, GWL_EXSTYLE) & WS_EX_ACCEPTFILES) DragAcceptFiles(hwnd_, TRUE);
  if (subclassed) Subclass();
  if (batch_ > 0) Send(WM_SETREDRAW, FALSE);
  if (focused) SetFocus(hwnd_);
  return true;
}

}  // namespace ferrow::win32
