// What the settings dialog and the about window ask of the control window.
// The control window implements it; tests pass a fake.
#pragma once

namespace ferrow {

class MenuPort {
 public:
  virtual ~MenuPort() = default;

  // A dialog has closed: the control window's buttons and check boxes come back.
  virtual void EnableCheckBoxes() = 0;
  virtual void EnableAllButtons() = 0;
  virtual void ShowNormalAndActivate() = 0;
  // The control window's play-sound check box follows the dialog's.
  virtual void SetPlaySoundCheckBox(bool on) = 0;
  // Empties the file name box's history list.
  virtual void ClearHistoryList() = 0;
  virtual void SetTimerInterval(int milliseconds) = 0;
  // Restarts following, inside the caller's Apply (which holds the gate).
  virtual void RestartFollowing() = 0;
};

}  // namespace ferrow
