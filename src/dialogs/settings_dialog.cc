#include "dialogs/settings_dialog.h"

#include "about/product.h"
#include "config/history.h"
#include "config/settings.h"
#include "control/menu_port.h"
#include "control/window_services.h"
#include "dialogs/key_codes.h"
#include "display/themes.h"
#include "session/session.h"
#include "support/paths.h"

namespace ferrow {
namespace {

constexpr int kNiceInterval = 2000, kNormalInterval = 500;
constexpr char kDefaultSound[] = "Updated.wav";

int16_t IntervalFor(bool nice) {
  return static_cast<int16_t>(nice ? kNiceInterval : kNormalInterval);
}

}  // namespace

SettingsDialog::SettingsDialog(Session& session, MenuPort& menu, WindowServices& services,
                               SettingsView& view)
    : session_(session), menu_(menu), services_(services), view_(view) {}

void SettingsDialog::Form_Load() {
  const Options& o = session_.options;
  if (o.ThemeNumber >= 0 && o.ThemeNumber < kThemeCount) view_.SetThemeChecked(o.ThemeNumber);
  // Shown by the rate, whatever NiceMode holds.
  view_.SetChecked(SettingsControl::kNiceMode, o.TimerInterval == kNiceInterval);
  view_.SetChecked(SettingsControl::kPlaySound, o.PlaySoundOnUpdate);
  view_.SetChecked(SettingsControl::kQuickScroll, o.QuickScroll);
  view_.SetChecked(SettingsControl::kAlert, o.AlertOnUpdate);
  view_.SetChecked(SettingsControl::kCopyAsRTF, o.CopyAsRTF);
  view_.SetSoundLabel(o.UpdateSound);
  // Each theme's button in that theme's font: the list previews the themes.
  for (int i = 0; i < kThemeCount; ++i)
    view_.SetThemeFont(i, o.Themes.ThemeFontName[static_cast<size_t>(i)],
                       o.Themes.ThemeFontSize[static_cast<size_t>(i)]);
  view_.SetCaption(std::string(kProductName) + " Settings");
  view_.CentreOnScreen();
  view_.Show();
}

// The check boxes change the session at once and save nothing; the running
// poll timer keeps its interval until Apply.
void SettingsDialog::chkAlert_Click() {
  session_.options.AlertOnUpdate = view_.Checked(SettingsControl::kAlert);
}

void SettingsDialog::chkNiceMode_Click() {
  Options& o = session_.options;
  o.NiceMode = view_.Checked(SettingsControl::kNiceMode);
  o.TimerInterval = IntervalFor(o.NiceMode);
}

void SettingsDialog::chkPlaySound_Click() {
  session_.options.PlaySoundOnUpdate = view_.Checked(SettingsControl::kPlaySound);
  menu_.SetPlaySoundCheckBox(session_.options.PlaySoundOnUpdate);
}

void SettingsDialog::chkQuickScroll_Click() {
  session_.options.QuickScroll = view_.Checked(SettingsControl::kQuickScroll);
}

bool SettingsDialog::Control_KeyDown(int key_code) {
  if (key_code == kKeyReturn) {
    cmdOK_Click();
    return true;
  }
  if (key_code == kKeyEscape) {
    cmdCancel_Click();
    return true;
  }
  return false;
}

// A focused button is pressed by Enter as by Space, as in the system's own
// dialogs: Enter on Close must not apply.
bool SettingsDialog::cmdOK_KeyDown(int key_code) {
  if (key_code == kKeyReturn || key_code == kKeySpace) {
    cmdOK_Click();
    return true;
  }
  if (key_code != kKeyEscape) return false;
  cmdCancel_Click();
  return true;
}

bool SettingsDialog::cmdCancel_KeyDown(int key_code) {
  if (key_code != kKeyReturn && key_code != kKeySpace && key_code != kKeyEscape) return false;
  cmdCancel_Click();
  return true;
}

void SettingsDialog::SaveSettings() {
  SaveFileSettings(session_, session_.options.FileSection);
  SaveCommonSettings(session_);
}

// Apply runs once at a time: its reload lets events run, and a second Apply,
// a Close, a key or the close box arriving meanwhile is dropped (Apply closes
// the dialog itself when it is done).
void SettingsDialog::cmdOK_Click() {
  if (unloaded_) return;
  session_.gate.Run(WindowGate::Work::kApply, [this] { Apply(); });
}

void SettingsDialog::Apply() {
  Options& o = session_.options;
  view_.SetCaption("Applying settings...");
  for (int i = 0; i < kThemeCount; ++i)  // when several report checked, the highest wins
    if (view_.ThemeChecked(i)) o.ThemeNumber = static_cast<int16_t>(i);
  if (o.Themes.ThemeCode[0].empty()) SetTheme(o, o.Themes, "");  // fills the codes
  SetTheme(o, o.Themes, o.Themes.ThemeCode[static_cast<size_t>(o.ThemeNumber)]);
  o.NiceMode = view_.Checked(SettingsControl::kNiceMode);
  o.TimerInterval = IntervalFor(o.NiceMode);
  o.PlaySoundOnUpdate = view_.Checked(SettingsControl::kPlaySound);
  o.AlertOnUpdate = view_.Checked(SettingsControl::kAlert);
  menu_.SetPlaySoundCheckBox(o.PlaySoundOnUpdate);
  o.CopyAsRTF = view_.Checked(SettingsControl::kCopyAsRTF);
  o.QuickScroll = view_.Checked(SettingsControl::kQuickScroll);
  SaveSettings();
  menu_.SetTimerInterval(o.TimerInterval);
  menu_.RestartFollowing();
  Unload();
}

void SettingsDialog::cmdCancel_Click() {
  if (unloaded_ || session_.gate.Running() == WindowGate::Work::kApply) return;
  SaveSettings();
  Unload();
}

// Its writes let events run: an edit of the history, one at a time, and
// none once the program closes.
void SettingsDialog::Command1_Click() {
  const bool cleared = session_.gate.Run(WindowGate::Work::kHistory, [this] {
    Options& o = session_.options;
    for (int i = 0; i < o.HistoryTotal; ++i) o.HistoryList[static_cast<size_t>(i)].clear();
    o.HistoryTotal = 0;
    menu_.ClearHistoryList();
    SaveHistory(session_);
  });
  if (cleared && !session_.gate.Closing())
    services_.Message("History Cleared", "Information", MessageIcon::Information);
}

void SettingsDialog::cmdBrowseWav_Click() {
  Options& o = session_.options;
  std::string folder = FolderPart(o.UpdateSound);
  if (folder.empty()) folder = FolderPart(session_.env.ProgramPath());
  const std::string chosen = services_.OpenFileName("Select Update Sound", "WAV files|*.wav|",
                                                    JoinPath(folder, FileNamePart(o.UpdateSound)));
  if (chosen.empty() || !FileExists(session_.env, chosen)) return;
  o.UpdateSound = chosen;
  view_.SetSoundLabel(chosen);
}

void SettingsDialog::cmdRevertWav_Click() {
  session_.options.UpdateSound = kDefaultSound;
  view_.SetSoundLabel(kDefaultSound);
}

bool SettingsDialog::Form_QueryUnload() {
  if (!unloaded_ && session_.gate.Running() == WindowGate::Work::kApply) return false;
  Form_Unload();
  return true;
}

void SettingsDialog::Unload() {
  Form_Unload();
  view_.Close();
}

// The control window's buttons and check boxes come back, unless the program
// is closing, or an open runs (it re-enables them itself at its end). Apply
// unloads the dialog as its last step, so its own run does not count.
void SettingsDialog::Form_Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  const WindowGate& gate = session_.gate;
  if (!gate.Closing() && (!gate.Busy() || gate.Running() == WindowGate::Work::kApply)) {
    menu_.EnableCheckBoxes();
    menu_.EnableAllButtons();
  }
}

}  // namespace ferrow
