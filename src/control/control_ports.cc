// What the control window does for the others: captions and messages for
// core, the file name box and the timer for the text window, the text window,
// timer, pause button and sound for the following engine, and the buttons,
// check box and list for the dialogs.
#include "control/control_window.h"
#include "control/menu_position.h"
#include "control/window_factory.h"
#include "control/window_services.h"
#include "display/text_box.h"
#include "session/session.h"

namespace ferrow {

void ControlWindow::SetMenuCaption(const std::string& caption) { view_.SetCaption(caption); }
std::string ControlWindow::MenuCaption() { return view_.Caption(); }
void ControlWindow::RefreshMenu() { view_.Repaint(); }

void ControlWindow::ShowMessage(const std::string& text, const std::string& title, MessageIcon icon) {
  services_.Message(text, title, icon);
}

bool ControlWindow::AskYesNo(const std::string& text, const std::string& title, MessageIcon icon) {
  return services_.AskYesNo(text, title, icon);
}

void ControlWindow::SetFileNameBox(const std::string& name) { view_.SetText(Control::cmbFileName, name); }

// The text window was closed: following stops, and the pause button and the
// caption say so, so that the user sees how to resume.
void ControlWindow::StopTimer() {
  view_.SetTimerEnabled(false);
  if (!program_closing_) follower_.CheckPauseCaption();
}

void ControlWindow::ShowNormalAndActivate() {
  if (session_.gate.Closing()) return;  // nothing comes back once the program is closing
  view_.ShowNormal();
  view_.BringToFront();
}

// A text window the user closed is gone; the next update loads a new one
// (not shown once the program is closing).
TextWindowPort& ControlWindow::LoadTextWindow() {
  if (!text_window_) {
    text_window_ = windows_.NewTextWindow(*this);
    if (!session_.gate.Closing()) text_window_->Load();
  }
  return *text_window_;
}

// The text window may be the one asking (a file dropped on it opens that
// file): closed, it is deleted only once no handler runs.
void ControlWindow::UnloadTextWindow() {
  if (!text_window_) return;
  TextWindowPort* leaving = text_window_;
  text_window_ = nullptr;
  leaving->Close();
}

void ControlWindow::TextWindowClosed(const TextBox& box) {
  if (text_window_ && &text_window_->Box() == &box) text_window_ = nullptr;
}

TextBox& ControlWindow::TextWindowBox() { return LoadTextWindow().Box(); }

bool ControlWindow::StillShowing(const TextBox& box) {
  return !session_.gate.Closing() && text_window_ && &text_window_->Box() == &box;
}

void ControlWindow::SetTextWindowCaption(const std::string& caption) { LoadTextWindow().SetCaption(caption); }

void ControlWindow::FlashTextWindow() { LoadTextWindow().Flash(); }

bool ControlWindow::TimerEnabled() { return view_.TimerEnabled(); }

void ControlWindow::SetTimerEnabled(bool enabled) {
  if (enabled && session_.gate.Closing()) return;
  view_.SetTimerEnabled(enabled);
}

void ControlWindow::SetTimerInterval(int milliseconds) { view_.SetTimerInterval(milliseconds); }

void ControlWindow::ShowPauseButton(bool following, const std::string& tool_tip) {
  view_.SetPausePicture(following);
  view_.SetToolTip(Control::cmdPause, tool_tip);
}

std::string ControlWindow::FileNameBoxText() { return view_.Text(Control::cmbFileName); }

void ControlWindow::ClearPlaySoundCheckBox() { view_.SetValue(Control::chkPlaySound, 0); }

void ControlWindow::StoreMenuPosition(Options& options) {
  RememberMenuPosition(options, view_.LeftTwips(), view_.TopTwips());
}

bool ControlWindow::PlaySoundFile(const std::string& file, bool loop) { return view_.PlaySoundFile(file, loop); }

void ControlWindow::SetPlaySoundCheckBox(bool on) { view_.SetValue(Control::chkPlaySound, on ? 1 : 0); }

void ControlWindow::ClearHistoryList() { view_.SetList({}); }

}  // namespace ferrow
