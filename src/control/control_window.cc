#include "control/control_window.h"

#include "about/desktop_link.h"
#include "about/product.h"
#include "about/usage.h"
#include "config/history.h"
#include "config/history_close.h"
#include "config/keys.h"
#include "config/settings.h"
#include "config/write_lock.h"
#include "control/control_texts.h"
#include "control/menu_position.h"
#include "control/window_factory.h"
#include "control/window_services.h"
#include "diag/debug_log.h"
#include "display/filters.h"
#include "session/session.h"
#include "support/paths.h"

namespace ferrow {

ControlWindow::ControlWindow(Session& session, ControlView& view, WindowFactory& windows,
                             WindowServices& services)
    : session_(session), view_(view), windows_(windows), services_(services), follower_(session, *this) {}

ControlWindow::~ControlWindow() {
  if (text_window_) text_window_->Close();
}

void ControlWindow::Form_Load() {
  Options& o = session_.options;
  ShowTip();
  view_.SetEnabled(Control::cmdLink, false);
  view_.SetEnabled(Control::cmdOK, false);
  RefreshFilterToolTip();
  DisableCheckBoxes();
  view_.SetTimerInterval(o.TimerInterval);
  view_.SetTimerEnabled(false);
  view_.SetText(Control::cmbFileName, o.FileName);
  FillHistoryList();
  view_.SetText(Control::cmbFileName, o.FileName);
  follower_.CheckPauseCaption();
  ClearCheckBoxes();
  if (!o.FileSection.empty()) LoadFileSettings(session_, o.IniFileName, o.FileSection);
  if (o.MenuX == 0 && o.MenuY == 0) view_.CentreOnScreen();
  view_.TrimSystemMenu();
  if (!o.FileName.empty() && o.HideMenuOnStartup) view_.ShowMinimised();
  else view_.ShowNormal();
  if (o.WaitOnStart) {
    SetMenuCaption(std::string(kProductName) + " Waiting " + std::to_string(o.WaitSeconds) +
                   " seconds to start ...");
    WaitSeconds(o.WaitSeconds);
  }
  if (!o.FileName.empty()) OK_Click(true);
  if (session_.gate.Closing()) return;  // closed while it waited or opened
  EnableCheckBoxes();
  EnableAllButtons();
}

void ControlWindow::WaitSeconds(int seconds) {
  for (int i = 0; i < seconds * 10 && !session_.gate.Closing(); ++i) {
    session_.env.LetEventsRun();
    session_.env.SleepMs(100);
  }
}

void ControlWindow::Timer1_Timer() {
  if (!session_.gate.Closing()) follower_.Timer1_Timer();
}

// Kept by the gate while an operation runs or the user is asked something
// else, the request starts once they are over, unless its button has gone
// since (the settings dialog or the about window took the buttons, or the
// program closes): as if the click had been made then.
void ControlWindow::AskTheUser(Control button, std::function<void()> ask) {
  WindowGate& gate = session_.gate;
  const bool now = !gate.Busy() && !gate.Asking();
  std::weak_ptr<const int> alive = life_;  // the gate may outlive this window
  gate.AskTheUser([this, alive, button, now, ask = std::move(ask)] {
    if (alive.expired() || (!now && !view_.Enabled(button))) return;
    ask();
  });
}

void ControlWindow::cmdBrowse_Click() {
  AskTheUser(Control::cmdBrowse, [this] { BrowseForFile(); });
}

void ControlWindow::BrowseForFile() {
  view_.SetTimerEnabled(false);
  Options& o = session_.options;
  const std::string chosen = services_.OpenFileName(
      "Select Log File", "Log Files|*.log|CSV Files|*.csv|Text Files|*.txt|All Files (*.*)|*.*|",
      o.BrowseStartDir);
  if (chosen.empty() || session_.gate.Closing()) return;
  FileOpened = false;
  view_.SetText(Control::cmbFileName, chosen);
  o.FileName = chosen;
  o.BrowseStartDir = FolderPart(chosen);
}

// While the input box waits, the Filter button is off: a second click would
// ask a second time. It comes back with the other buttons (an open or a
// dialog that began meanwhile may have taken them away).
void ControlWindow::cmdFilter_Click() {
  if (asking_filter_) return;
  AskTheUser(Control::cmdFilter, [this] { AskForFilter(); });
}

void ControlWindow::AskForFilter() {
  Options& o = session_.options;
  asking_filter_ = true;
  view_.SetEnabled(Control::cmdFilter, false);
  const std::string answer = windows_.InputMsg("Enter filter words to highlight - separated by spaces",
                                               "Text Highlighting Filter", o.FilterString);
  asking_filter_ = false;
  if (session_.gate.Closing()) return;
  view_.SetEnabled(Control::cmdFilter, view_.Enabled(Control::cmdBrowse));
  if (answer.empty() || answer == o.FilterString) return;
  // The save and the restart let events run: one operation of the gate.
  session_.gate.Run(WindowGate::Work::kRestart, [&] { ApplyNewFilter(answer); });
}

void ControlWindow::ApplyNewFilter(const std::string& answer) {
  Options& o = session_.options;
  o.FilterString = answer;
  RebuildFilterWords(o);
  SaveFileSettings(session_, o.FileSection);
  if (session_.gate.Closing()) return;
  follower_.RestartFollowing();
  RefreshFilterToolTip();
}

void ControlWindow::RefreshFilterToolTip() {
  view_.SetToolTip(Control::cmdFilter, FilterToolTip(session_.options));
}

// Nothing opens once the program closes.
void ControlWindow::cmdOptions_Click() {
  if (session_.gate.Closing()) return;
  DisableAllButtons();
  DisableCheckBoxes();
  windows_.OpenSettings(*this);
}

void ControlWindow::cmdAbout_Click() {
  if (session_.gate.Closing()) return;
  DisableAllButtons();
  DisableCheckBoxes();
  windows_.OpenAbout(*this);
}

void ControlWindow::cmdClose_Click() {
  DisableAllButtons();
  Form_Unload();
}

// Its message boxes let events run: it waits for the user as Browse does.
void ControlWindow::cmdLink_Click() {
  AskTheUser(Control::cmdLink, [this] { MakeDesktopLink(); });
}

void ControlWindow::MakeDesktopLink() {
  const HelperLibrary none = HelperLibrary::None(session_.env);
  CreateDesktopLink(session_, session_.helper ? *session_.helper : none, FileNameBoxText());
}

void ControlWindow::CheckBoxPressed(Control box) {
  view_.SetValue(box, CheckBoxValueAfterClick(view_.Value(box)));
  CheckBoxClicked(box);
}

void ControlWindow::CheckBoxClicked(Control box) {
  const int value = view_.Value(box);
  if (value == 2) return;  // a grayed box changes nothing
  FlagOf(box) = value == 1;
}

bool& ControlWindow::FlagOf(Control box) {
  Options& o = session_.options;
  return box == Control::chkFileStart ? o.BringFromStartOfFile
         : box == Control::chkMinimise ? o.HideMenuOnStartup
                                       : o.PlaySoundOnUpdate;
}

void ControlWindow::DisableCheckBoxes() {
  for (Control c : {Control::chkFileStart, Control::chkMinimise, Control::chkPlaySound, Control::cmdOptions})
    view_.SetEnabled(c, false);
}

// Once the program closes, nothing comes back.
void ControlWindow::EnableCheckBoxes() {
  if (session_.gate.Closing()) return;
  for (Control c : {Control::chkFileStart, Control::chkMinimise, Control::chkPlaySound})
    view_.SetEnabled(c, true);
}

void ControlWindow::SetCheckboxesDefault() {
  Options& o = session_.options;
  o.BringFromStartOfFile = o.FileDefaults.BringFromStartOfFile;
  o.HideMenuOnStartup = o.FileDefaults.HideMenuOnStartup;
  o.PlaySoundOnUpdate = o.FileDefaults.PlaySoundOnUpdate;
  UpdateCheckboxes();
}

void ControlWindow::ClearCheckBoxes() {
  for (Control c : {Control::chkFileStart, Control::chkMinimise, Control::chkPlaySound}) view_.SetValue(c, 2);
}

void ControlWindow::UpdateCheckboxes() {
  const Options& o = session_.options;
  view_.SetValue(Control::chkFileStart, o.BringFromStartOfFile ? 1 : 0);
  view_.SetValue(Control::chkMinimise, o.HideMenuOnStartup ? 1 : 0);
  view_.SetValue(Control::chkPlaySound, o.PlaySoundOnUpdate ? 1 : 0);
}

void ControlWindow::DisableAllButtons() {
  for (Control c : {Control::cmdOK, Control::cmdBrowse, Control::cmdOptions, Control::cmdFilter,
                    Control::cmdPause, Control::cmdAbout, Control::cmdClose, Control::cmdLink,
                    Control::cmbFileName})
    view_.SetEnabled(c, false);
}

void ControlWindow::EnableAllButtons() {
  if (session_.gate.Closing()) return;
  for (Control c : {Control::cmdBrowse, Control::cmdOptions, Control::cmdFilter, Control::cmdPause,
                    Control::cmdAbout, Control::cmdClose, Control::cmbFileName})
    view_.SetEnabled(c, true);
  view_.SetEnabled(Control::cmdOK, !FileNameBoxText().empty());  // nothing to open without a name
  view_.SetEnabled(Control::cmdLink, session_.options.HelperLibraryVersion > 0);
}

bool ControlWindow::KeyDown(Control control, const KeyStroke& key) {
  // Tab moves the focus between the controls; the window system takes it
  // before any control sees it, so it is no key of the control (tabbing past
  // a grayed check box leaves its flag alone).
  if (key.virtual_key == keys_down::kTab && !key.control && !key.alt) return false;
  const KeyDownArgs args = ControlKeyDown(key);
  return KeyDown(control, args.key_code, args.shift);
}

// ENTER or line feed on a check box or on the About, Filter, Options and
// Pause buttons opens the named file; any other key on a check box sets its
// flag from the box as it stands (a grayed box: off); F1 anywhere shows the
// help message.
bool ControlWindow::KeyDown(Control control, int key_code, int shift) {
  using namespace keys_down;
  if (key_code == kF1) {
    ShowUsage(session_);
    return true;
  }
  if (control == Control::cmbFileName) {
    // Taken here, where the key first arrives, so that one ENTER opens once.
    // With the list dropped down, ENTER picks the highlighted entry first:
    // the pick grays the check boxes, so the new file opens with its own
    // settings, not the previous file's.
    if (key_code == kEnter) {
      PickHighlightedEntry();
      cmbFileName_KeyPress(13);
      return true;
    }
    cmbFileName_KeyDown(key_code, shift);
    return key_code == kDelete && shift == kShift;
  }
  const bool check_box = control == Control::chkFileStart || control == Control::chkMinimise ||
                         control == Control::chkPlaySound;
  const bool opens = check_box || control == Control::cmdAbout || control == Control::cmdFilter ||
                     control == Control::cmdOptions || control == Control::cmdPause;
  if ((key_code == kEnter || key_code == kLineFeed) && opens) {
    OK_Click();
    return true;
  }
  if (check_box) FlagOf(control) = view_.Value(control) == 1;
  return false;
}

// The buttons go at once, also when the unload waits for a running
// operation: nothing may be started or opened meanwhile.
void ControlWindow::Form_Unload() {
  if (!session_.gate.Closing()) {
    DisableAllButtons();
    DisableCheckBoxes();
  }
  session_.gate.RequestUnload([this] {
    Unload();
    view_.CloseWindow();
  });
}

void ControlWindow::Unload() {
  unloaded_ = true;
  Options& o = session_.options;
  view_.SetTimerEnabled(false);
  DisableAllButtons();
  program_closing_ = true;
  UnloadTextWindow();
  if (view_.Minimised()) RememberMenuPosition(o, 0, 0);  // keeps the last position
  else RememberMenuPosition(o, view_.LeftTwips(), view_.TopTwips());
  SetMenuCaption(MenuTitle(" - Saving Settings ..."));
  o.HistoryTotal = static_cast<int16_t>(std::min(view_.List().size(), static_cast<size_t>(kHistoryLimit)));
  if (o.Debug) LogEvent(session_, o.LogFileName, "** Unloading Main Form [" + o.FileSection + "] **");
  if (!o.FileName.empty() && FileOpened) {
    if (GetWriteLock(session_, 5)) {
      SaveFileSettings(session_, o.FileSection);
      SaveCommonSettings(session_);
      ReleaseWriteLock(session_);
    }
    SetMenuCaption(MenuTitle(" - Updating History ..."));
    // Merged with what other processes added meanwhile, with or without the
    // lock: never this window's list over theirs.
    MergeHistoryAtClose(session_);
    SetMenuCaption(MenuTitle(" - Saving Settings ..."));
  }
  SetMenuCaption(MenuTitle(" - Exiting ..."));
  windows_.UnloadOtherWindows();
  if (on_unloaded) on_unloaded();
}

}  // namespace ferrow
