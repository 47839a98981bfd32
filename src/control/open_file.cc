// Opening a file: check the name, save the file followed so far, switch to
// the new file's section, apply the check boxes and overrides, prepare the
// text window, load the file's end and start following.
#include "config/history.h"
#include "config/ini_file.h"
#include "config/keys.h"
#include "config/settings.h"
#include "control/control_texts.h"
#include "control/control_window.h"
#include "control/window_factory.h"
#include "display/filters.h"
#include "display/text_box.h"
#include "session/session.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

void ControlWindow::OK_Click(bool startup_mode, int16_t changed_cpu_interval, bool play_sound_change) {
  session_.gate.Run(WindowGate::Work::kOpen, [&] {
    OpenFile(startup_mode, changed_cpu_interval, play_sound_change);
  });
}

// Every step that lets events run (message boxes, configuration writes, the
// load) may see the program start closing; the open then stops there and
// the unload follows.
void ControlWindow::OpenFile(bool startup_mode, int16_t changed_cpu_interval, bool play_sound_change) {
  Options& o = session_.options;
  Env& env = session_.env;
  const WindowGate& gate = session_.gate;
  view_.SetTimerEnabled(false);
  const std::string typed = FileNameBoxText();
  if (!typed.empty()) o.FileName = typed;
  if (o.FileName.empty()) return;
  SetMenuCaption(MenuTitle(" - Checking file..."));

  if (auto refusal = CheckFileToOpen(env, o.FileName)) {
    ShowMessage(refusal->text, refusal->title, MessageIcon::Critical);
    if (refusal->clear_name) {
      o.FileName.clear();
      view_.SetText(Control::cmbFileName, "");
    }
    return;
  }

  o.FileName = env.FullPath(o.FileName);
  follower_.CheckPauseCaption();
  DisableAllButtons();
  StoreMenuPosition(o);
  UnloadTextWindow();

  const std::string section = FileNamePart(o.FileName);
  if (!SuppressSettingsSave) {
    if (!o.FileSection.empty() && !EqualsNoCase(section, o.FileSection)) {
      SetMenuCaption(MenuTitle(" - Saving current settings..."));
      SaveFileSettings(session_, o.FileSection);
      TidyHistory(session_);
    }
    SaveCommonSettings(session_);
  }
  SuppressSettingsSave = false;

  o.LastFileSize = env.FileLength(o.FileName).value_or(0);
  o.FileSection = section;
  o.LastFileSelected = o.FileName;
  follower_.ForgetPartialCharacter();
  SetMenuCaption(MenuTitle(" - Loading " + section + "..."));

  SetFileDefaults(o);
  if (!ReadINIFile(env, o.IniFileName, section, keys::MenuX.name).empty())
    LoadFileSettings(session_, o.IniFileName, section);
  if (changed_cpu_interval > 0) o.TimerInterval = changed_cpu_interval;
  if (play_sound_change) o.PlaySoundOnUpdate = play_sound_change;

  const auto apply = [this](Control box, bool& flag) {
    if (view_.Value(box) != 2) flag = view_.Value(box) == 1;
  };
  apply(Control::chkFileStart, o.BringFromStartOfFile);
  apply(Control::chkPlaySound, o.PlaySoundOnUpdate);
  apply(Control::chkMinimise, o.HideMenuOnStartup);
  UpdateCheckboxes();
  RebuildFilterWords(o);
  // Asked to close while the settings were written (their writes let events
  // run, and a close box's WM_CLOSE comes in then): the file the user named
  // is the one followed now, so the unload saves its section and its name
  // in the history, as when the close comes during the load.
  if (gate.Closing()) {
    KeepOpenedForUnload();
    return;
  }

  if (startup_mode && !view_.Minimised()) {
    view_.MoveTwips(o.MenuX > 0 ? o.MenuX : view_.LeftTwips(), o.MenuY > 0 ? o.MenuY : view_.TopTwips());
  }
  if (o.HideMenuOnStartup) view_.ShowMinimised();
  else view_.ShowNormal();

  TextWindowPort& text = LoadTextWindow();
  RefreshFilterToolTip();
  TextBox& box = text.Box();
  box.SetFontName(o.Font);
  box.SetFontSize(o.FontSize);
  box.SetFontBold(o.FontBold);
  if (o.BringFromStartOfFile) follower_.LoadFileToTextBox(o.FileName, box, o.LinesToRead);
  if (gate.Closing()) {  // the file is open: the unload that follows saves it and its history
    KeepOpenedForUnload();
    return;
  }
  // Closed by the user while the file loaded: the file is open, but
  // following stays stopped, as after a close at any other time.
  const bool closed_meanwhile = !StillShowing(box);
  // The size at once, also when nothing was brought from the file.
  if (!closed_meanwhile) follower_.UpdateCaption();

  EnableAllButtons();
  // Open comes back whatever the box shows: ENTER in an emptied box opened
  // the file followed so far, and Open opens it again.
  view_.SetEnabled(Control::cmdOK, true);
  EnableCheckBoxes();
  AddToHistory(o, o.FileName);
  FillHistoryList();
  UpdateCheckboxes();
  ShowTip();

  view_.SetTimerInterval(o.TimerInterval);
  SetTimerEnabled(!closed_meanwhile);
  follower_.CheckPauseCaption();
  FileOpened = true;
}

// The unload takes the history's count from the list it shows, so the list
// holds the new name before the unload runs.
void ControlWindow::KeepOpenedForUnload() {
  AddToHistory(session_.options, session_.options.FileName);
  FillHistoryList();
  FileOpened = true;
}

}  // namespace ferrow
