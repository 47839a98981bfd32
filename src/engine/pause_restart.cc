// Pausing, resuming and restarting the following of the current file.
#include "about/product.h"
#include "config/settings.h"
#include "diag/error_report.h"
#include "display/filters.h"
#include "display/text_box.h"
#include "display/text_ops.h"
#include "engine/follow_windows.h"
#include "engine/follower.h"
#include "session/session.h"
#include "support/paths.h"

namespace ferrow {
namespace {

constexpr int kErrFileNotFound = 53;

}  // namespace

void Follower::cmdPause_Click() {
  windows_.SetTimerEnabled(!windows_.TimerEnabled());
  CheckPauseCaption();
}

void Follower::CheckPauseCaption() {
  const std::string name = FileNamePart(session_.options.FileName);
  const std::string menu = std::string(kProductName) + " Menu";
  if (windows_.TimerEnabled()) {
    windows_.ShowPauseButton(true, "Click to pause");
    session_.ui.SetMenuCaption(menu + " - " + name);
  } else {
    windows_.ShowPauseButton(false, "Click to restart");
    session_.ui.SetMenuCaption(menu + " (Paused) - " + (name.empty() ? "No file" : name));
  }
}

void Follower::FerrowRestart() {
  session_.gate.Run(WindowGate::Work::kRestart, [this] { RestartFollowing(); });
}

void Follower::RestartFollowing() {
  Options& o = session_.options;
  const WindowGate& gate = session_.gate;
  session_.ErrorLine = 10;
  RebuildFilterWords(o);
  const std::string box_text = windows_.FileNameBoxText();
  if (!box_text.empty()) o.FileName = box_text;
  session_.ErrorLine = 30;
  const std::optional<int64_t> length = session_.env.FileLength(o.FileName);
  if (!length) {
    // The file has vanished: report it and stop here, leaving the window,
    // the marks and the timer as they are, so that nothing is shown twice.
    ReportError(session_, kErrFileNotFound, ErrorDescription(kErrFileNotFound),
                session_.ErrorLine, "FerrowRestart");
    return;
  }
  o.LastFileSize = *length;
  decoder_.StartFile();

  session_.ErrorLine = 40;
  if (o.FileSection != "Config") {
    windows_.StoreMenuPosition(o);
    SaveFileSettings(session_, o.FileSection);  // its write retries let events run
    if (gate.Closing()) return;
  }
  windows_.RefreshFilterCaption();

  session_.ErrorLine = 60;
  TextBox& box = windows_.TextWindowBox();
  box.SetFontName(o.Font);
  box.SetFontSize(o.FontSize);
  box.SetFontBold(o.FontBold);
  // The theme's background at once: without bring-from-start no load follows
  // to set it, and the new text colour would show on the old background.
  box.SetBackColor(o.BackColour);
  SetWordWrapOff(box);  // a right margin of 200000: lines do not wrap
  box.SetText("");

  session_.ErrorLine = 70;
  windows_.SetTimerEnabled(false);
  if (o.BringFromStartOfFile) LoadFileToTextBox(o.FileName, box, o.LinesToRead);
  if (gate.Closing()) return;
  windows_.SetTimerInterval(o.TimerInterval);
  // A text window the user closed during the load stays closed, and
  // following stopped with it.
  windows_.SetTimerEnabled(windows_.StillShowing(box));
  CheckPauseCaption();
}

}  // namespace ferrow
