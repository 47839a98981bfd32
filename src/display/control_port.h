// What the text window asks of the control window. The control window
// implements it; tests pass a fake.
#pragma once

#include <cstdint>
#include <string>

namespace ferrow {

class TextBox;

class ControlWindowPort {
 public:
  virtual ~ControlWindowPort() = default;

  // The file name box.
  virtual void SetFileNameBox(const std::string& name) = 0;
  // Opens the file named in the box.
  virtual void OK_Click(bool startup_mode, int16_t changed_cpu_interval, bool play_sound_change) = 0;
  // Stops the poll timer, and brings the control window back to the front.
  virtual void StopTimer() = 0;
  virtual void ShowNormalAndActivate() = 0;
  // True while the whole program is closing.
  virtual bool ProgramClosing() = 0;
  // The text window showing `box` has closed; the next update makes a new one.
  virtual void TextWindowClosed(const TextBox& box) = 0;
};

}  // namespace ferrow
