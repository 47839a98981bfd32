// What the control window's logic asks of the toolkit's window: its caption,
// place and state, its controls by name, the file name box's list and the
// poll timer. Geometry is in twips. The toolkit's window forwards every
// event to ControlWindow and decides nothing itself.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ferrow {

enum class Control {
  cmbFileName, txtFileName, lblDragDropTip,
  cmdOK, cmdBrowse, cmdOptions, cmdFilter, cmdPause, cmdAbout, cmdClose, cmdLink,
  chkFileStart, chkMinimise, chkPlaySound,
};

class ControlView {
 public:
  virtual ~ControlView() = default;

  // The window.
  virtual void SetCaption(const std::string& caption) = 0;
  virtual std::string Caption() = 0;
  virtual void Repaint() = 0;
  virtual bool Minimised() = 0;
  // Its position; 0 where the window system does not tell it.
  virtual int32_t LeftTwips() = 0;
  virtual int32_t TopTwips() = 0;
  virtual void MoveTwips(int32_t left, int32_t top) = 0;
  virtual void ShowNormal() = 0;
  virtual void ShowMinimised() = 0;
  virtual void BringToFront() = 0;
  virtual void CentreOnScreen() = 0;
  // Removes the separator before Close, Size and Maximize from the system
  // menu, by what they are (SystemMenuEntriesToRemove); Close stays.
  virtual void TrimSystemMenu() = 0;
  // The unload is over: the window goes.
  virtual void CloseWindow() = 0;

  // Controls. Values are those of check boxes: 0 off, 1 on, 2 grayed.
  // Setting a text or a value raises the control's own change event, as a
  // toolkit does.
  virtual void SetEnabled(Control control, bool enabled) = 0;
  virtual bool Enabled(Control control) = 0;
  virtual void SetToolTip(Control control, const std::string& tip) = 0;
  virtual int Value(Control control) = 0;
  virtual void SetValue(Control control, int value) = 0;
  virtual std::string Text(Control control) = 0;
  virtual void SetText(Control control, const std::string& text) = 0;
  // The stop picture while following, the go picture while paused; no caption.
  virtual void SetPausePicture(bool following) = 0;

  // The file name box's drop-down list. Changing it keeps the box's text.
  virtual void SetList(const std::vector<std::string>& names) = 0;
  virtual std::vector<std::string> List() = 0;
  // The highlighted entry while the list is dropped down, else -1.
  virtual int HighlightedListIndex() = 0;
  virtual void RemoveListItem(int index) = 0;
  virtual void SelectBoxText() = 0;

  // Timer1, the poll timer.
  virtual void SetTimerInterval(int milliseconds) = 0;
  virtual void SetTimerEnabled(bool enabled) = 0;
  virtual bool TimerEnabled() = 0;

  // Plays a WAV file without waiting; false when it cannot be played.
  virtual bool PlaySoundFile(const std::string& file, bool loop) = 0;
};

}  // namespace ferrow
