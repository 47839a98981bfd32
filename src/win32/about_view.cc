#include "win32/about_view.h"

#include <shellapi.h>

#include "session/session.h"
#include "win32/ansi_text.h"

namespace ferrow::win32 {
namespace {

COLORREF ColourOf(SystemColour colour) {
  return colour == kButtonFace ? GetSysColor(COLOR_BTNFACE) : static_cast<COLORREF>(colour);
}

}  // namespace

Win32AboutWindow::Win32AboutWindow(Session& session, MenuPort& menu)
    : DialogWindow(session.gate, "FerrowAbout", 460, 400), logic_(session, menu, *this) {
  HWND title = Add(kIdTitle, "STATIC", "", SS_LEFT | SS_NOPREFIX, 16, 12, 428, 28);
  LOGFONTA bold{};
  GetObjectA(reinterpret_cast<HFONT>(SendMessageA(title, WM_GETFONT, 0, 0)), sizeof(bold), &bold);
  bold.lfWeight = FW_BOLD;
  bold.lfHeight = bold.lfHeight * 3 / 2;
  title_font_ = CreateFontIndirectA(&bold);
  SendMessageA(title, WM_SETFONT, reinterpret_cast<WPARAM>(title_font_), FALSE);
  Add(kIdInformation, "STATIC", "", SS_LEFT | SS_NOPREFIX, 16, 46, 428, 300);
  Add(kIdWebsite, "STATIC", "", SS_LEFT | SS_NOTIFY | SS_NOPREFIX, 16, 362, 300, 20);
  Add(kIdOK, "BUTTON", "OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 368, 358, 76, 28);
}

Win32AboutWindow::~Win32AboutWindow() {
  if (title_font_) DeleteObject(title_font_);
  if (link_brush_) DeleteObject(link_brush_);
}

bool Win32AboutWindow::OnKey(int id, int key_code) { return id == kIdOK && logic_.Command1_KeyDown(key_code); }

void Win32AboutWindow::OnCommand(int id, int code) {
  if (id == kIdOK && code == BN_CLICKED) logic_.Command1_Click();
  if (id == kIdWebsite && code == STN_CLICKED) logic_.lblWebsite_Click();
}

// Whoever closes it, the window is unloaded.
void Win32AboutWindow::OnClose() {
  logic_.Form_Unload();
  Dispose();
}

void Win32AboutWindow::OnMouseOver(int id) {
  if (id == kIdWebsite && !over_link_) {
    over_link_ = true;
    logic_.lblWebsite_MouseMove();
  } else if (id != kIdWebsite && over_link_) {
    over_link_ = false;
    logic_.Form_MouseMove();
  }
}

bool Win32AboutWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
  switch (message) {
    case WM_MOUSEMOVE:
      OnMouseOver(0);
      return false;
    case WM_SETCURSOR:
      if (reinterpret_cast<HWND>(wparam) != Item(kIdWebsite)) return false;
      SetCursor(LoadCursor(nullptr, IDC_HAND));
      result = TRUE;
      return true;
    case WM_CTLCOLORSTATIC:
      if (reinterpret_cast<HWND>(lparam) != Item(kIdWebsite) || !link_brush_) return false;
      SetTextColor(reinterpret_cast<HDC>(wparam), link_text_);
      SetBkColor(reinterpret_cast<HDC>(wparam), link_back_);
      result = reinterpret_cast<LRESULT>(link_brush_);
      return true;
    default:
      return false;
  }
}

void Win32AboutWindow::SetTitle(const std::string& text) {
  SetWindowTextA(Item(kIdTitle), ToAnsi(text).c_str());
}

void Win32AboutWindow::SetInformation(const std::string& text) {
  // The program's and the library's paths in it are ANSI text, as Windows gave them.
  const std::string shown = WithCrLf(text);
  SetWindowTextA(Item(kIdInformation), shown.c_str());
  FitInformation(shown);
}

// The label takes the height its whole text needs at its width, and the link,
// OK and the window move down with it: the usage text's length is the
// program's, not the layout's.
void Win32AboutWindow::FitInformation(const std::string& shown) {
  HWND label = Item(kIdInformation);
  RECT bounds{};
  GetWindowRect(label, &bounds);
  MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&bounds), 2);
  RECT needed{0, 0, bounds.right - bounds.left, 0};
  HDC dc = GetDC(label);
  HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(label, WM_GETFONT, 0, 0)));
  DrawTextA(dc, shown.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
  SelectObject(dc, old);
  ReleaseDC(label, dc);
  const int grow = needed.bottom + Scaled(4) - (bounds.bottom - bounds.top);
  if (grow <= 0) return;
  SetWindowPos(label, nullptr, 0, 0, bounds.right - bounds.left, bounds.bottom - bounds.top + grow,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  for (int id : {kIdWebsite, kIdOK}) {
    RECT r{};
    GetWindowRect(Item(id), &r);
    MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&r), 2);
    SetWindowPos(Item(id), nullptr, r.left, r.top + grow, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  RECT frame{};
  GetWindowRect(Handle(), &frame);
  SetWindowPos(Handle(), nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top + grow,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32AboutWindow::SetWebsite(const std::string& address) {
  SetWindowTextA(Item(kIdWebsite), ToAnsi(address).c_str());
}

void Win32AboutWindow::SetWebsiteColours(SystemColour text, SystemColour background) {
  link_text_ = ColourOf(text);
  link_back_ = ColourOf(background);
  if (link_brush_) DeleteObject(link_brush_);
  link_brush_ = CreateSolidBrush(link_back_);
  InvalidateRect(Item(kIdWebsite), nullptr, TRUE);
}

void Win32AboutWindow::OpenAddress(const std::string& address) {
  ShellExecuteA(Handle(), "open", ToAnsi(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace ferrow::win32
