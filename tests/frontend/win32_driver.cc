// The scenarios against the real Win32 windows (the control window, the
// text window's rich-edit box, the settings dialog, the input box, the
// about window) in this process, under Wine with a display. Keys are posted
// to the focused control and go through the program's own message road
// (IsDialogMessage, then translate and dispatch), so the characters they
// type come from TranslateMessage; clicks are BM_CLICK, close boxes
// SC_CLOSE, drops a DROPFILES block, as the shell hands them over.
#include <windows.h>

#include <commctrl.h>
#include <richedit.h>
#include <shlobj.h>

#include <cstring>

#include "frontend/scenario_registry.h"
#include "win32/about_view.h"
#include "win32/control_ids.h"
#include "win32/control_window_view.h"
#include "win32/event_passes.h"
#include "win32/input_box_view.h"
#include "win32/settings_view.h"

namespace ferrow::frontend {

namespace {

using win32::Win32ControlWindow;

struct Found {
  const char* window_class;
  HWND hwnd = nullptr;
};

BOOL CALLBACK MatchVisible(HWND hwnd, LPARAM lparam) {
  auto* found = reinterpret_cast<Found*>(lparam);
  char name[64] = {};
  GetClassNameA(hwnd, name, sizeof(name));
  if (!IsWindowVisible(hwnd) || lstrcmpA(name, found->window_class) != 0) return TRUE;
  found->hwnd = hwnd;
  return FALSE;
}

// A visible top-level window of this thread of `window_class`.
HWND VisibleWindow(const char* window_class) {
  Found found{window_class};
  EnumThreadWindows(GetCurrentThreadId(), &MatchVisible, reinterpret_cast<LPARAM>(&found));
  return found.hwnd;
}

std::string TextOf(HWND hwnd) {
  std::string text(static_cast<size_t>(GetWindowTextLengthA(hwnd)) + 1, '\0');
  text.resize(static_cast<size_t>(GetWindowTextA(hwnd, text.data(), static_cast<int>(text.size()))));
  return text;
}

DWORD CALLBACK Collect(DWORD_PTR cookie, LPBYTE bytes, LONG count, LONG* done) {
  reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(bytes), static_cast<size_t>(count));
  *done = count;
  return 0;
}

// The box's whole text as the control holds it, NUL characters included.
std::string BoxText(HWND box) {
  std::string utf16;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&utf16), 0, &Collect};
  SendMessageA(box, EM_STREAMOUT, SF_TEXT | SF_UNICODE, reinterpret_cast<LPARAM>(&stream));
  const auto* wide = reinterpret_cast<const wchar_t*>(utf16.data());
  const int chars = static_cast<int>(utf16.size() / 2);
  std::string utf8(static_cast<size_t>(chars) * 3, '\0');
  utf8.resize(static_cast<size_t>(
      WideCharToMultiByte(CP_UTF8, 0, wide, chars, utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr)));
  std::string out;  // a break comes as CR LF or CR
  for (size_t i = 0; i < utf8.size(); ++i) {
    if (utf8[i] != '\r') out += utf8[i];
    else if (i + 1 >= utf8.size() || utf8[i + 1] != '\n') out += '\n';
  }
  return out;
}

CHARFORMAT2A FormatAt(HWND box, int64_t position) {
  CHARRANGE saved{};
  SendMessageA(box, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&saved));
  CHARRANGE one{static_cast<LONG>(position), static_cast<LONG>(position + 1)};
  SendMessageA(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&one));
  CHARFORMAT2A format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_COLOR | CFM_FACE | CFM_SIZE | CFM_BOLD;
  SendMessageA(box, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  SendMessageA(box, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&saved));
  return format;
}

// Shift and Ctrl held down while the key's messages are handled.
class HeldKeys {
 public:
  explicit HeldKeys(Modifiers m) {
    GetKeyboardState(saved_);
    BYTE state[256];
    memcpy(state, saved_, sizeof(state));
    if (m.shift) state[VK_SHIFT] = state[VK_LSHIFT] = 0x80;
    if (m.ctrl) state[VK_CONTROL] = state[VK_LCONTROL] = 0x80;
    SetKeyboardState(state);
  }
  ~HeldKeys() { SetKeyboardState(saved_); }

 private:
  BYTE saved_[256];
};

LPARAM KeyData(int key, bool up) {
  const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyA(static_cast<UINT>(key), MAPVK_VK_TO_VSC)) << 16;
  return 1 | scan | (up ? (LPARAM{3} << 30) : 0);
}

void PostKey(HWND target, int key) {
  PostMessageA(target, WM_KEYDOWN, static_cast<WPARAM>(key), KeyData(key, false));
  PostMessageA(target, WM_KEYUP, static_cast<WPARAM>(key), KeyData(key, true));
}

void PostCharacters(HWND target, const std::string& text) {
  for (char c : text) PostMessageA(target, WM_CHAR, static_cast<unsigned char>(c), 1);
}

HGLOBAL DropOf(const std::string& name) {
  HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + name.size() + 2);
  auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  memcpy(reinterpret_cast<char*>(drop) + sizeof(DROPFILES), name.c_str(), name.size());
  GlobalUnlock(memory);
  return memory;
}

const char* ClassOf(Window window) {
  switch (window) {
    case Window::kControl: return win32::kControlWindowClass;
    case Window::kText: return win32::kTextWindowClass;
    case Window::kSettings: return "FerrowSettings";
    case Window::kInputBox: return "FerrowInputBox";
    case Window::kAbout: return "FerrowAbout";
  }
  return "";
}

class Win32Driver;
Win32Driver* answering = nullptr;

class Win32Driver : public FrontEndDriver {
 public:
  explicit Win32Driver(ScenarioWorld& w) : w_(w) { win32::InstallEventsHook(w.env, w.session.gate); }
  ~Win32Driver() override {
    if (form_ && !form_->Logic().Unloaded()) form_->Logic().Form_Unload();
    RunEvents(200);
    form_.reset();
    w_.routed.SetTarget(nullptr);
    Env::Default()->SetEventsHook(nullptr);
    if (watcher_) KillTimer(nullptr, watcher_);
    answering = nullptr;
  }

  void Load() override {
    form_ = std::make_unique<Win32ControlWindow>(w_.session, w_.services);
    w_.routed.SetTarget(&form_->Logic());
    form_->Logic().Form_Load();
  }
  void RunEvents(int ms) override {
    const ULONGLONG until = GetTickCount64() + static_cast<ULONGLONG>(ms);
    do {
      win32::PumpMessages();
      Sleep(2);
    } while (GetTickCount64() < until);
  }

  void Click(Control control) override { SendMessageA(Handle(control), BM_CLICK, 0, 0); }
  void Key(Control control, int key, Modifiers modifiers) override {
    HWND target = control == Control::cmbFileName ? Edit() : Handle(control);
    SetFocus(target);
    HeldKeys held(modifiers);
    PostKey(target, key);
    win32::PumpMessages();
  }
  void TypeInFileNameBox(const std::string& text) override {
    SetFocus(Edit());
    PostCharacters(Edit(), text);
    win32::PumpMessages();
  }
  void DropDownList() override {
    SetFocus(Edit());
    SendMessageA(Handle(Control::cmbFileName), CB_SHOWDROPDOWN, TRUE, 0);
    win32::PumpMessages();
  }
  bool ListDroppedDown() override {
    return SendMessageA(Handle(Control::cmbFileName), CB_GETDROPPEDSTATE, 0, 0) != 0;
  }
  // As the user does: the arrow keys move the highlight.
  void HighlightInList(int index) override {
    for (int i = 0; i < 50; ++i) {
      const auto at = static_cast<int>(SendMessageA(Handle(Control::cmbFileName), CB_GETCURSEL, 0, 0));
      if (at >= index) break;
      Key(Control::cmbFileName, vk::kDown, Modifiers{});
    }
  }
  void ClickInList(int index) override {
    DropDownList();
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    GetComboBoxInfo(Handle(Control::cmbFileName), &info);
    RECT item{};
    SendMessageA(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    const LPARAM at = MAKELPARAM((item.left + item.right) / 2, (item.top + item.bottom) / 2);
    SendMessageA(info.hwndList, WM_MOUSEMOVE, 0, at);
    SendMessageA(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageA(info.hwndList, WM_LBUTTONUP, 0, at);
    win32::PumpMessages();
  }
  std::vector<std::string> ListEntries() override { return form_->List(); }
  std::string Text(Control control) override { return form_->Text(control); }
  int Value(Control control) override { return form_->Value(control); }
  bool Enabled(Control control) override { return IsWindowEnabled(Handle(control)) != FALSE; }
  bool TimerRunning() override { return form_->TimerEnabled(); }
  void Drop(DropTarget where, const std::string& file) override {
    HWND target = where == DropTarget::kControlWindow ? form_->Handle()
                  : where == DropTarget::kFileNameBox ? Handle(Control::cmbFileName)
                                                      : Box();
    SendMessageA(target, WM_DROPFILES, reinterpret_cast<WPARAM>(DropOf(file)), 0);
    win32::PumpMessages();
  }

  bool Shown(Window window) override { return VisibleWindow(ClassOf(window)) != nullptr; }
  std::string Caption(Window window) override {
    HWND shown = VisibleWindow(ClassOf(window));
    return shown ? TextOf(shown) : "<no window>";
  }
  // The close box asks the window's system command. Windows draws the box
  // grayed, and a click on it does nothing, when the system menu has no
  // enabled Close.
  void CloseBox(Window window) override {
    HWND shown = VisibleWindow(ClassOf(window));
    if (!shown) return;
    const UINT close = GetMenuState(GetSystemMenu(shown, FALSE), SC_CLOSE, MF_BYCOMMAND);
    if (close == static_cast<UINT>(-1) || (close & (MF_GRAYED | MF_DISABLED))) return;
    PostMessageA(shown, WM_SYSCOMMAND, SC_CLOSE, 0);
    win32::PumpMessages();
  }

  std::string ShownText() override { return Box() ? BoxText(Box()) : "<no text window>"; }
  Colour ColourAt(int64_t position) override {
    const CHARFORMAT2A format = FormatAt(Box(), position);
    return (format.dwEffects & CFE_AUTOCOLOR) ? GetSysColor(COLOR_WINDOWTEXT) : format.crTextColor;
  }
  Colour Background() override {
    HWND window = VisibleWindow(win32::kTextWindowClass);
    // On top, as the user looks at it; painted by the program alone.
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    RunEvents(100);
    // What the screen shows there, as the user sees it.
    RECT client{};
    GetClientRect(Box(), &client);
    POINT point{client.right - 3, client.bottom - 3};
    ClientToScreen(Box(), &point);
    HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, point.x, point.y);
    ReleaseDC(nullptr, screen);
    return colour;
  }
  std::string FontName() override { return FormatAt(Box(), 0).szFaceName; }
  std::string FontNameAt(int64_t position) override { return FormatAt(Box(), position).szFaceName; }
  int FontSize() override { return static_cast<int>(FormatAt(Box(), 0).yHeight / 20); }
  bool FontBold() override { return (FormatAt(Box(), 0).dwEffects & CFE_BOLD) != 0; }
  void KeyInText(int key, Modifiers modifiers) override {
    SetFocus(Box());
    HeldKeys held(modifiers);
    PostKey(Box(), key);
    win32::PumpMessages();
  }
  void TypeInText(char character) override {
    SetFocus(Box());
    PostCharacters(Box(), std::string(1, character));
    win32::PumpMessages();
  }
  std::string Clipboard() override {
    std::string text;
    if (!OpenClipboard(nullptr)) return "<clipboard closed>";
    if (HANDLE data = GetClipboardData(CF_TEXT)) {
      if (const char* bytes = static_cast<const char*>(GlobalLock(data))) text = bytes;
      GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
  }
  void SetClipboard(const std::string& text) override {
    if (!OpenClipboard(nullptr)) return;
    EmptyClipboard();
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    memcpy(GlobalLock(memory), text.c_str(), text.size() + 1);
    GlobalUnlock(memory);
    SetClipboardData(CF_TEXT, memory);
    CloseClipboard();
  }

  void ClickTheme(int index) override {
    SendMessageA(SettingItem(win32::Win32SettingsDialog::ThemeId(index)), BM_CLICK, 0, 0);
  }
  bool ThemeChecked(int index) override {
    return SendMessageA(SettingItem(win32::Win32SettingsDialog::ThemeId(index)), BM_GETCHECK, 0, 0) ==
           BST_CHECKED;
  }
  void ClickSetting(SettingsControl control) override {
    SendMessageA(SettingItem(win32::Win32SettingsDialog::IdOf(control)), BM_CLICK, 0, 0);
  }
  void KeyInSetting(SettingsControl control, int key) override {
    HWND item = SettingItem(win32::Win32SettingsDialog::IdOf(control));
    SetFocus(item);
    PostKey(item, key);
    win32::PumpMessages();
  }

  void KeyOnTheme(int index, int key) override {
    HWND item = SettingItem(win32::Win32SettingsDialog::ThemeId(index));
    SetFocus(item);
    PostKey(item, key);
    win32::PumpMessages();
  }
  void KeyInAbout(int key) override {
    HWND ok = GetDlgItem(VisibleWindow("FerrowAbout"), win32::Win32AboutWindow::kIdOK);
    SetFocus(ok);
    PostKey(ok, key);
    win32::PumpMessages();
  }

  void WhenInputBoxShows(std::function<void()> answer) override {
    answer_ = std::move(answer);
    answering = this;
    if (!watcher_) watcher_ = SetTimer(nullptr, 0, 10, &Win32Driver::Answer);
  }
  std::string InputBoxText() override { return TextOf(InputItem(win32::Win32InputBox::kIdInput)); }
  std::string InputBoxPrompt() override { return TextOf(InputItem(win32::Win32InputBox::kIdPrompt)); }
  // Posted: they arrive inside the program's wait for the answer.
  void TypeInInputBox(const std::string& text) override {
    SetFocus(InputItem(win32::Win32InputBox::kIdInput));
    PostCharacters(InputItem(win32::Win32InputBox::kIdInput), text);
  }
  void KeyInInputBox(int key) override { PostKey(InputItem(win32::Win32InputBox::kIdInput), key); }
  void KeyOnInputBoxButton(bool ok, int key) override {
    HWND button = InputItem(ok ? win32::Win32InputBox::kIdOK : win32::Win32InputBox::kIdCancel);
    SetFocus(button);
    PostKey(button, key);
  }
  void ClickInputBoxButton(bool ok) override {
    if (HWND button = InputItem(ok ? win32::Win32InputBox::kIdOK : win32::Win32InputBox::kIdCancel))
      PostMessageA(button, BM_CLICK, 0, 0);
  }

 private:
  static void CALLBACK Answer(HWND, UINT, UINT_PTR, DWORD) {
    if (!answering || !answering->answer_ || !VisibleWindow("FerrowInputBox")) return;
    std::function<void()> answer = std::move(answering->answer_);
    answering->answer_ = nullptr;
    answer();
  }
  HWND Handle(Control control) { return form_->ControlHandle(control); }
  HWND Edit() { return FindWindowExA(Handle(Control::cmbFileName), nullptr, "Edit", nullptr); }
  HWND Box() {
    HWND window = VisibleWindow(win32::kTextWindowClass);
    if (!window) return nullptr;
    HWND box = FindWindowExA(window, nullptr, "RICHEDIT50W", nullptr);
    return box ? box : FindWindowExA(window, nullptr, "RichEdit20A", nullptr);
  }
  HWND SettingItem(int id) { return GetDlgItem(VisibleWindow("FerrowSettings"), id); }
  HWND InputItem(int id) { return GetDlgItem(VisibleWindow("FerrowInputBox"), id); }

  ScenarioWorld& w_;
  std::unique_ptr<Win32ControlWindow> form_;
  std::function<void()> answer_;
  UINT_PTR watcher_ = 0;  // waits for the input box to show
};

}  // namespace

std::unique_ptr<FrontEndDriver> MakeDriver(ScenarioWorld& world) { return std::make_unique<Win32Driver>(world); }

}  // namespace ferrow::frontend
