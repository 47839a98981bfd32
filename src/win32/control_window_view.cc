#include "win32/control_window_view.h"

#include <commctrl.h>
#include <shellapi.h>

#include "session/session.h"
#include "win32/ansi_text.h"
#include "win32/control_ids.h"
#include "win32/dropped_files.h"
#include "win32/input_box_view.h"
#include "win32/message_loop.h"
#include "win32/pause_pictures.h"
#include "win32/tool_tips.h"
#include "win32/twips.h"
#include "win32/window_basics.h"

namespace ferrow::win32 {
namespace {

int IdOf(Control control) { return kIdFileName + static_cast<int>(control); }

// The key as the window system reports it; the logic maps it.
KeyStroke KeyStrokeOf(WPARAM virtual_key) {
  return KeyStroke{static_cast<int>(virtual_key), GetKeyState(VK_SHIFT) < 0,
                   GetKeyState(VK_CONTROL) < 0, GetKeyState(VK_MENU) < 0};
}

}  // namespace

Win32ControlWindow::Win32ControlWindow(Session& session, WindowServices& services)
    : session_(session),
      services_(services),
      input_box_([this](const std::shared_ptr<InputBox>& box) -> InputView& {
        return (new Win32InputBox(session_.gate, box))->View();
      }),
      logic_(session, *this, *this, services) {
  INITCOMMONCONTROLSEX common{sizeof(common), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&common);
  RegisterWindowClass(kControlWindowClass, &WindowProc, COLOR_BTNFACE, CS_DBLCLKS);
  dpi_ = ScreenDpi();
  // Fixed size: no maximise box and no sizing border.
  const DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
  RECT frame{0, 0, Scaled(480), Scaled(146)};
  AdjustWindowRectEx(&frame, style, FALSE, WS_EX_ACCEPTFILES);
  hwnd_ = CreateWindowExA(WS_EX_ACCEPTFILES, kControlWindowClass, "Ferrow", style, CW_USEDEFAULT,
                          CW_USEDEFAULT, frame.right - frame.left, frame.bottom - frame.top,
                          nullptr, nullptr, GetModuleHandleA(nullptr), this);
  stop_picture_ = MakePausePicture(true, Scaled(16));
  go_picture_ = MakePausePicture(false, Scaled(16));
  BuildControls();
  DragAcceptFiles(hwnd_, TRUE);
  AddDialogWindow(hwnd_);
}

Win32ControlWindow::~Win32ControlWindow() {
  RemoveDialogWindow(hwnd_);
  if (IsWindow(hwnd_)) {
    SetWindowLongPtrA(hwnd_, GWLP_USERDATA, 0);
    DestroyWindow(hwnd_);
  }
  if (font_) DeleteObject(font_);
  if (stop_picture_) DestroyIcon(stop_picture_);
  if (go_picture_) DestroyIcon(go_picture_);
}

int Win32ControlWindow::Scaled(int pixels) const { return MulDiv(pixels, dpi_, 96); }

HWND Win32ControlWindow::ControlHandle(Control control) const {
  return controls_[static_cast<int>(control)];
}

HWND Win32ControlWindow::MakeControl(Control control, const char* window_class, const char* text,
                                     DWORD style, int x, int y, int width, int height) {
  HWND child = CreateWindowExA(0, window_class, text, WS_CHILD | style, Scaled(x), Scaled(y),
                               Scaled(width), Scaled(height), hwnd_,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(IdOf(control))),
                               GetModuleHandleA(nullptr), nullptr);
  SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
  SetWindowSubclass(child, &ChildProc, static_cast<UINT_PTR>(control), reinterpret_cast<DWORD_PTR>(this));
  controls_[static_cast<int>(control)] = child;
  return child;
}

void Win32ControlWindow::BuildControls() {
  font_ = MakeMessageFont();
  const DWORD tab = WS_VISIBLE | WS_TABSTOP;
  MakeControl(Control::cmbFileName, WC_COMBOBOXA, "", tab | CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL,
              8, 9, 380, 240);
  MakeControl(Control::cmdBrowse, WC_BUTTONA, "&Browse...", tab | BS_PUSHBUTTON, 394, 8, 78, 24);
  MakeControl(Control::txtFileName, WC_EDITA, "", ES_AUTOHSCROLL, 8, 9, 380, 22);  // hidden
  const struct { Control control; const char* text; int width; } buttons[] = {
      {Control::cmdOK, "&Open", 62},      {Control::cmdOptions, "&Settings", 70},
      {Control::cmdFilter, "&Filter", 62}, {Control::cmdPause, "", 36},
      {Control::cmdAbout, "&About", 62},   {Control::cmdLink, "&Link", 62},
      {Control::cmdClose, "&Close", 62}};
  int x = 8;
  for (const auto& b : buttons) {
    const DWORD icon = b.control == Control::cmdPause ? BS_ICON : 0;
    MakeControl(b.control, WC_BUTTONA, b.text, tab | BS_PUSHBUTTON | icon, x, 42, b.width, 28);
    x += b.width + 6;
  }
  const struct { Control control; const char* text; int x, width; } boxes[] = {
      {Control::chkFileStart, "Bring from start of file", 8, 160},
      {Control::chkMinimise, "Minimise this menu", 172, 138},
      {Control::chkPlaySound, "Play sound on update", 314, 158}};
  for (const auto& b : boxes) MakeControl(b.control, WC_BUTTONA, b.text, tab | BS_3STATE, b.x, 80, b.width, 20);
  MakeControl(Control::lblDragDropTip, WC_STATICA, "", WS_VISIBLE | SS_NOTIFY | SS_LEFT, 8, 106, 464, 34);
  SetPausePicture(true);

  // The box and the edit field inside it take dropped files too.
  HWND box = ControlHandle(Control::cmbFileName);
  DragAcceptFiles(box, TRUE);
  if (HWND edit = FindWindowExA(box, nullptr, WC_EDITA, nullptr)) {
    DragAcceptFiles(edit, TRUE);
    SetWindowSubclass(edit, &ChildProc, static_cast<UINT_PTR>(Control::cmbFileName),
                      reinterpret_cast<DWORD_PTR>(this));
  }

  tool_tips_ = std::make_unique<ToolTips>(hwnd_, Scaled(420));
  const struct { Control control; const char* tip; } tips[] = {
      {Control::cmbFileName, "Type or pick the file to follow, or drop one here (SHIFT+DEL removes it from the list)"},
      {Control::cmdOK, "Open the file and follow it"},
      {Control::cmdBrowse, "Browse for a file"},
      {Control::cmdOptions, "Settings"},
      {Control::cmdFilter, ""},
      {Control::cmdPause, "Click to pause"},
      {Control::cmdAbout, "About and command-line options"},
      {Control::cmdLink, "Create a desktop shortcut to this file"},
      {Control::cmdClose, "Close"},
      {Control::chkFileStart, "Show as much as the buffer holds from the end of the file when it is opened"},
      {Control::chkMinimise, "Minimise this window once the file is opened"},
      {Control::chkPlaySound, "Play a sound each time the file grows"},
      {Control::lblDragDropTip, "Click for another tip"}};
  for (const auto& t : tips) tool_tips_->Add(ControlHandle(t.control), t.tip);
}

// One object per window, bound when the window is made.
LRESULT CALLBACK Win32ControlWindow::WindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_NCCREATE) {
    auto* create = reinterpret_cast<CREATESTRUCTA*>(lparam);
    auto* self = static_cast<Win32ControlWindow*>(create->lpCreateParams);
    self->hwnd_ = hwnd;
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<Win32ControlWindow*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
  if (!self) return DefWindowProcA(hwnd, message, wparam, lparam);
  return self->OnMessage(message, wparam, lparam);
}

LRESULT Win32ControlWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_COMMAND:
      Command(LOWORD(wparam), HIWORD(wparam));
      return 0;
    case WM_TIMER:
      if (wparam == kTimer1Id) logic_.Timer1_Timer();
      return 0;
    case WM_DROPFILES:
      logic_.Form_OLEDragDrop(TakeDroppedFiles(reinterpret_cast<HDROP>(wparam), session_.ui));
      return 0;
    case WM_CLOSE:
      Closing();
      return 0;
    case WM_ENDSESSION:  // the user logs off: settings and history are saved as on close
      if (wparam) Closing();
      return 0;
    default:
      return DefWindowProcA(hwnd_, message, wparam, lparam);
  }
}

// Keys and drops of each control; everything else is the control's own.
LRESULT CALLBACK Win32ControlWindow::ChildProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam,
                                               UINT_PTR id, DWORD_PTR self) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(hwnd, &ChildProc, id);
  return reinterpret_cast<Win32ControlWindow*>(self)->OnChildMessage(hwnd, static_cast<Control>(id), message,
                                                                     wparam, lparam);
}

LRESULT Win32ControlWindow::OnChildMessage(HWND child, Control control, UINT message, WPARAM wparam,
                                           LPARAM lparam) {
  switch (message) {
    case WM_GETDLGCODE: {
      // ENTER is the control's (the logic's), not the dialog navigation's.
      const auto* key = reinterpret_cast<const MSG*>(lparam);
      const LRESULT code = DefSubclassProc(child, message, wparam, lparam);
      if (key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN) return code | DLGC_WANTMESSAGE;
      // A plain letter is the control's too, where the key table gives it
      // nothing to do on a button or check box; left to the dialog navigation
      // it would press the button whose mnemonic it is ('c' closing the
      // program). Alt+letter (WM_SYSCHAR) still reaches the mnemonics.
      if (key && key->message == WM_CHAR) return code | DLGC_WANTCHARS;
      return code;
    }
    case WM_KEYDOWN:
      if (logic_.KeyDown(control, KeyStrokeOf(wparam))) return 0;
      break;
    case WM_CHAR:
      if (wparam == '\r' || wparam == '\n') return 0;  // ENTER was taken as a key
      break;
    case WM_DROPFILES:
      logic_.cmbFileName_OLEDragDrop(TakeDroppedFiles(reinterpret_cast<HDROP>(wparam), session_.ui));
      return 0;
    default:
      break;
  }
  return DefSubclassProc(child, message, wparam, lparam);
}

void Win32ControlWindow::Command(int id, int code) {
  if (id < kIdFileName || id > kIdPlaySound) return;  // IDOK, IDCANCEL of the dialog keys
  const auto control = static_cast<Control>(id - kIdFileName);
  switch (control) {
    case Control::cmbFileName:
      if (code == CBN_EDITCHANGE && !quiet_) logic_.cmbFileName_Change();
      if (code == CBN_SETFOCUS) logic_.cmbFileName_GotFocus();
      if (code == CBN_SELENDOK) {
        // A pick: the box shows the picked name before the logic looks.
        HWND box = ControlHandle(control);
        const LRESULT index = SendMessageA(box, CB_GETCURSEL, 0, 0);
        if (index == CB_ERR) return;
        std::string name(static_cast<size_t>(SendMessageA(box, CB_GETLBTEXTLEN, index, 0)) + 1, '\0');
        SendMessageA(box, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(name.data()));
        quiet_ = true;
        SetWindowTextA(box, name.c_str());
        quiet_ = false;
        logic_.cmbFileName_Click();
      }
      return;
    case Control::txtFileName:
      if (code == EN_CHANGE) logic_.txtFileName_Change();
      return;
    case Control::lblDragDropTip:
      if (code == STN_CLICKED || code == STN_DBLCLK) logic_.lblDragDropTip_Click();
      return;
    case Control::chkFileStart:
    case Control::chkMinimise:
    case Control::chkPlaySound:
      if (code == BN_CLICKED) logic_.CheckBoxPressed(control);  // the logic sets the value
      return;
    default:
      break;
  }
  if (code != BN_CLICKED) return;
  switch (control) {
    case Control::cmdOK: logic_.cmdOK_Click(); break;
    case Control::cmdBrowse: logic_.cmdBrowse_Click(); break;
    case Control::cmdOptions: logic_.cmdOptions_Click(); break;
    case Control::cmdFilter: logic_.cmdFilter_Click(); break;
    case Control::cmdPause: logic_.cmdPause_Click(); break;
    case Control::cmdAbout: logic_.cmdAbout_Click(); break;
    case Control::cmdClose: logic_.cmdClose_Click(); break;
    case Control::cmdLink: logic_.cmdLink_Click(); break;
    default: break;
  }
}

// The close box, Alt+F4 or WM_CLOSE from outside: the unload runs now, or
// once the running open, restart or Apply is over (the window stays till then).
void Win32ControlWindow::Closing() {
  if (!logic_.Unloaded()) logic_.Form_Unload();
}

// The window is hidden now and destroyed by its owner once the loop is over.
void Win32ControlWindow::CloseWindow() {
  if (closed_) return;
  closed_ = true;
  SetTimerEnabled(false);
  ShowWindow(hwnd_, SW_HIDE);
}

}  // namespace ferrow::win32
