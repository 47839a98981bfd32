#include "win32/settings_view.h"

#include "session/session.h"
#include "win32/ansi_text.h"
#include "win32/tool_tips.h"
#include "win32/twips.h"

namespace ferrow::win32 {

Win32SettingsDialog::Win32SettingsDialog(Session& session, MenuPort& menu, WindowServices& services)
    : DialogWindow(session.gate, "FerrowSettings", 612, 266), logic_(session, menu, services, *this) {
  tips_ = std::make_unique<ToolTips>(Handle(), Scaled(360));
  AddControl(SettingsControl::kFrame1, "BUTTON", BS_GROUPBOX, 10, 6, 350, 214);
  for (int i = 0; i < kThemeCount; ++i) {
    const DWORD first = i == 0 ? WS_GROUP | WS_TABSTOP : 0;
    Add(ThemeId(i), "BUTTON", ThemeCaptions()[static_cast<size_t>(i)], BS_AUTORADIOBUTTON | first,
        22 + (i / 6) * 166, 28 + (i % 6) * 31, 164, 28);
  }
  const SettingsControl boxes[] = {SettingsControl::kNiceMode, SettingsControl::kQuickScroll,
                                   SettingsControl::kCopyAsRTF, SettingsControl::kAlert,
                                   SettingsControl::kPlaySound};
  int y = 12;
  for (SettingsControl box : boxes) {
    AddControl(box, "BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP | (y == 12 ? WS_GROUP : 0), 374, y, 228, 22);
    y += 26;
  }
  AddControl(SettingsControl::kFrame2, "BUTTON", BS_GROUPBOX, 370, 146, 232, 74);
  Add(kIdSoundLabel, "STATIC", "", SS_LEFT | SS_PATHELLIPSIS | SS_NOPREFIX, 380, 166, 212,
      18);
  AddControl(SettingsControl::kBrowseWav, "BUTTON", BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP, 380, 188, 40, 24);
  AddControl(SettingsControl::kRevertWav, "BUTTON", BS_PUSHBUTTON | WS_TABSTOP, 426, 188, 166, 24);
  AddControl(SettingsControl::kClearHistory, "BUTTON", BS_PUSHBUTTON | WS_TABSTOP, 10, 232, 120, 26);
  AddControl(SettingsControl::kOK, "BUTTON", BS_DEFPUSHBUTTON | WS_TABSTOP, 442, 232, 76, 26);
  AddControl(SettingsControl::kCancel, "BUTTON", BS_PUSHBUTTON | WS_TABSTOP, 526, 232, 76, 26);
}

Win32SettingsDialog::~Win32SettingsDialog() {
  for (HFONT font : theme_fonts_)
    if (font) DeleteObject(font);
}

void Win32SettingsDialog::AddControl(SettingsControl control, const char* window_class, DWORD style, int x, int y,
                                     int width, int height) {
  const ControlText text = SettingsText(control);
  // A button without words shows what it does.
  const std::string caption = text.caption.empty() && control == SettingsControl::kBrowseWav ? "..." : text.caption;
  HWND made = Add(IdOf(control), window_class, caption, style, x, y, width, height);
  if (!text.tool_tip.empty()) tips_->Add(made, text.tool_tip);
}

bool Win32SettingsDialog::OnKey(int id, int key_code) {
  if (id == IdOf(SettingsControl::kOK)) return logic_.cmdOK_KeyDown(key_code);
  if (id == IdOf(SettingsControl::kCancel)) return logic_.cmdCancel_KeyDown(key_code);
  return logic_.Control_KeyDown(key_code);
}

void Win32SettingsDialog::OnCommand(int id, int code) {
  if (code != BN_CLICKED) return;
  switch (static_cast<SettingsControl>(id - IdOf(SettingsControl::kFrame1))) {
    case SettingsControl::kNiceMode: logic_.chkNiceMode_Click(); break;
    case SettingsControl::kQuickScroll: logic_.chkQuickScroll_Click(); break;
    case SettingsControl::kAlert: logic_.chkAlert_Click(); break;
    case SettingsControl::kPlaySound: logic_.chkPlaySound_Click(); break;
    case SettingsControl::kBrowseWav: logic_.cmdBrowseWav_Click(); break;
    case SettingsControl::kRevertWav: logic_.cmdRevertWav_Click(); break;
    case SettingsControl::kClearHistory: logic_.Command1_Click(); break;
    case SettingsControl::kOK: logic_.cmdOK_Click(); break;
    case SettingsControl::kCancel: logic_.cmdCancel_Click(); break;
    default: break;
  }
}

void Win32SettingsDialog::OnClose() {
  if (logic_.Form_QueryUnload()) Dispose();
}

void Win32SettingsDialog::SetThemeChecked(int index) {
  CheckRadioButton(Handle(), ThemeId(0), ThemeId(kThemeCount - 1), ThemeId(index));
}

bool Win32SettingsDialog::ThemeChecked(int index) {
  return IsDlgButtonChecked(Handle(), ThemeId(index)) == BST_CHECKED;
}

// Points to pixels at the screen's logical resolution.
void Win32SettingsDialog::SetThemeFont(int index, const std::string& font_name, int points) {
  HFONT& font = theme_fonts_.at(static_cast<size_t>(index));
  HFONT made = CreateFontA(-MulDiv(points, ScreenDpi(), 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                           DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                           DEFAULT_PITCH, ToAnsi(font_name).c_str());
  if (!made) return;
  SendMessageA(Item(ThemeId(index)), WM_SETFONT, reinterpret_cast<WPARAM>(made), TRUE);
  if (font) DeleteObject(font);
  font = made;
}

void Win32SettingsDialog::SetChecked(SettingsControl box, bool on) {
  CheckDlgButton(Handle(), IdOf(box), on ? BST_CHECKED : BST_UNCHECKED);
}

bool Win32SettingsDialog::Checked(SettingsControl box) {
  return IsDlgButtonChecked(Handle(), IdOf(box)) == BST_CHECKED;
}

void Win32SettingsDialog::SetSoundLabel(const std::string& text) {
  SetWindowTextA(Item(kIdSoundLabel), text.c_str());  // a file name: ANSI text
}

}  // namespace ferrow::win32
