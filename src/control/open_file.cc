// Opening a file: check the name, save the file followed so far, switch to
// the new file's section, apply the check boxes and overrides, prepare the
// text window, load the file's end and start following.
#include <QComboBox>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

#include "config/history.h"
#include "config/ini_file.h"
#include "config/keys.h"
#include "config/settings.h"
#include "control/Form1.h"
#include "control/control_texts.h"
#include "display/filters.h"
#include "display/frmText.h"
#include "display/qt_convert.h"
#include "startup/session.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

void Form1::OK_Click(bool startup_mode, int16_t changed_cpu_interval, bool play_sound_change) {
  session_.gate.Run(WindowGate::Work::kOpen, [&] {
    OpenFile(startup_mode, changed_cpu_interval, play_sound_change);
  });
}

// Every step that lets events run (message boxes, configuration writes, the
// load) may see the program start closing; the open then stops there and
// the unload follows.
void Form1::OpenFile(bool startup_mode, int16_t changed_cpu_interval, bool play_sound_change) {
  Options& o = session_.options;
  const WindowGate& gate = session_.gate;
  Env& env = session_.env;
  Timer1->stop();
  const std::string typed = FromQt(cmbFileName->currentText());
  if (!typed.empty()) o.FileName = typed;
  if (o.FileName.empty()) return;
  SetMenuCaption(MenuTitle(" - Checking file..."));

  if (auto refusal = CheckFileToOpen(env, o.FileName)) {
    ShowMessage(refusal->text, refusal->title, MessageIcon::Critical);
    if (refusal->clear_name) {
      o.FileName.clear();
      cmbFileName->setEditText("");
    }
    return;
  }

  o.FileName = FullPath(o.FileName);
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
  if (gate.Closing()) return;

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

  if (chkFileStart->Value() != 2) o.BringFromStartOfFile = chkFileStart->Value() == 1;
  if (chkPlaySound->Value() != 2) o.PlaySoundOnUpdate = chkPlaySound->Value() == 1;
  if (chkMinimise->Value() != 2) o.HideMenuOnStartup = chkMinimise->Value() == 1;
  UpdateCheckboxes();
  RebuildFilterWords(o);

  if (startup_mode && !isMinimized()) {
    QPoint at = pos();
    if (o.MenuX > 0) at.setX(TwipsToPixels(o.MenuX, this));
    if (o.MenuY > 0) at.setY(TwipsToPixels(o.MenuY, this));
    move(at);
  }
  if (o.HideMenuOnStartup) showMinimized();
  else showNormal();

  frmText& text = LoadTextWindow();
  RefreshFilterToolTip();
  text.Rtf->SetFontName(o.Font);
  text.Rtf->SetFontSize(o.FontSize);
  text.Rtf->SetFontBold(o.FontBold);
  if (o.BringFromStartOfFile) follower_.LoadFileToTextBox(o.FileName, *text.Rtf, o.LinesToRead);
  if (gate.Closing()) {  // the file is open: the unload that follows saves it and its history
    AddToHistory(o, o.FileName);
    FileOpened = true;
    return;
  }
  // The size at once, also when nothing was brought from the file.
  if (StillShowing(*text.Rtf)) follower_.UpdateCaption();

  EnableAllButtons();
  EnableCheckBoxes();
  AddToHistory(o, o.FileName);
  FillHistoryList();
  UpdateCheckboxes();
  ShowTip();

  Timer1->setInterval(o.TimerInterval);
  SetTimerEnabled(true);
  follower_.CheckPauseCaption();
  FileOpened = true;
}

}  // namespace ferrow
