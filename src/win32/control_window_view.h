// The control window as a Win32 window: the file name box (an editable
// combo box holding the history), the buttons, three three-state check
// boxes, the tip label, tool tips and Timer1 as a window timer. What the
// window does is ControlWindow's: this class makes the controls, forwards
// their events and draws what the logic asks. It also makes the other
// windows (WindowFactory).
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "control/control_view.h"
#include "control/control_window.h"
#include "control/window_factory.h"
#include "dialogs/input_box.h"

namespace ferrow {
class WindowServices;
struct Session;
}  // namespace ferrow

namespace ferrow::win32 {

class ToolTips;

class Win32ControlWindow : public ControlView, public WindowFactory {
 public:
  Win32ControlWindow(Session& session, WindowServices& services);
  ~Win32ControlWindow() override;
  Win32ControlWindow(const Win32ControlWindow&) = delete;
  Win32ControlWindow& operator=(const Win32ControlWindow&) = delete;

  HWND Handle() const { return hwnd_; }
  HWND ControlHandle(Control control) const;
  ControlWindow& Logic() { return logic_; }

  // ControlView.
  void SetCaption(const std::string& caption) override;
  std::string Caption() override;
  void Repaint() override;
  bool Minimised() override;
  int32_t LeftTwips() override;
  int32_t TopTwips() override;
  void MoveTwips(int32_t left, int32_t top) override;
  void ShowNormal() override;
  void ShowMinimised() override;
  void BringToFront() override;
  void CentreOnScreen() override;
  void TrimSystemMenu() override;
  void CloseWindow() override;
  void SetEnabled(Control control, bool enabled) override;
  bool Enabled(Control control) override;
  void SetToolTip(Control control, const std::string& tip) override;
  int Value(Control control) override;
  void SetValue(Control control, int value) override;
  std::string Text(Control control) override;
  void SetText(Control control, const std::string& text) override;
  void SetPausePicture(bool following) override;
  void SetList(const std::vector<std::string>& names) override;
  std::vector<std::string> List() override;
  int HighlightedListIndex() override;
  void RemoveListItem(int index) override;
  void SelectBoxText() override;
  void SetTimerInterval(int milliseconds) override;
  void SetTimerEnabled(bool enabled) override;
  bool TimerEnabled() override;
  bool PlaySoundFile(const std::string& file, bool loop) override;

  // WindowFactory.
  TextWindowPort* NewTextWindow(ControlWindowPort& control) override;
  void OpenSettings(MenuPort& menu) override;
  void OpenAbout(MenuPort& menu) override;
  std::string InputMsg(const std::string& prompt, const std::string& title,
                       const std::string& edit_string) override;
  void UnloadOtherWindows() override;

 private:
  static LRESULT CALLBACK WindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
  static LRESULT CALLBACK ChildProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam,
                                    UINT_PTR id, DWORD_PTR self);
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT OnChildMessage(HWND child, Control control, UINT message, WPARAM wparam, LPARAM lparam);
  void Command(int id, int code);
  void Closing();
  void BuildControls();
  HWND MakeControl(Control control, const char* window_class, const char* text, DWORD style,
                   int x, int y, int width, int height);
  int Scaled(int pixels) const;

  Session& session_;
  WindowServices& services_;
  HWND hwnd_ = nullptr;
  HWND controls_[14] = {};
  std::unique_ptr<ToolTips> tool_tips_;
  HFONT font_ = nullptr;
  HICON stop_picture_ = nullptr, go_picture_ = nullptr;
  int dpi_ = 96;
  int timer_interval_ = 500;
  bool timer_enabled_ = false;
  bool quiet_ = false;  // the box's text is being set by the program
  bool closed_ = false;
  InputBoxSlot input_box_;
  ControlWindow logic_;
};

}  // namespace ferrow::win32
