// What the following engine asks of the windows: the text window's box and
// caption, the flash, the poll timer, the pause button, the file name box and
// the sound. The control window implements it; tests use a fake.
#pragma once

#include <string>

namespace ferrow {

class TextBox;
struct Options;

class FollowWindows {
 public:
  virtual ~FollowWindows() = default;

  // The text window's rich-text box; the window is made first when there is none.
  virtual TextBox& TextWindowBox() = 0;
  // False once `box`'s window has been closed or the program is closing: a
  // load that let events run stops writing into it.
  virtual bool StillShowing(const TextBox& box) = 0;
  virtual void SetTextWindowCaption(const std::string& caption) = 0;
  // Flashes the text window's title bar once.
  virtual void FlashTextWindow() = 0;

  // The poll timer (its enabled state is the only record of pausing).
  virtual bool TimerEnabled() = 0;
  virtual void SetTimerEnabled(bool enabled) = 0;
  virtual void SetTimerInterval(int milliseconds) = 0;

  // The pause button's picture (stop while following, go while paused) and tip.
  virtual void ShowPauseButton(bool following, const std::string& tool_tip) = 0;
  virtual std::string FileNameBoxText() = 0;
  virtual void ClearPlaySoundCheckBox() = 0;
  virtual void RefreshFilterCaption() = 0;
  // The control window's position into MenuX and MenuY.
  virtual void StoreMenuPosition(Options& options) = 0;

  // Plays a WAV file without waiting for it; false when it cannot be played.
  virtual bool PlaySoundFile(const std::string& file, bool loop) = 0;
};

}  // namespace ferrow
