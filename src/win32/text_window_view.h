// The text window as a Win32 window: one rich-edit box filling it. What the
// window does is TextWindow's; this class makes the window and forwards the
// box's keys, changes and drops, the window's resizes and its close.
// Made with new; once closed it deletes itself when that is safe.
#pragma once

#include <windows.h>

#include <memory>

#include "display/text_view.h"
#include "control/window_factory.h"
#include "display/text_window.h"
#include "win32/rich_edit_box.h"

namespace ferrow {
class ControlWindowPort;
struct Session;
}  // namespace ferrow

namespace ferrow::win32 {

class Win32TextWindow : private TextView {
 public:
  Win32TextWindow(Session& session, ControlWindowPort& control);
  ~Win32TextWindow() override;
  Win32TextWindow(const Win32TextWindow&) = delete;
  Win32TextWindow& operator=(const Win32TextWindow&) = delete;

  HWND Handle() const { return hwnd_; }
  RichEditBox& Rtf() { return *box_; }
  TextWindow& Logic() { return logic_; }
  void Form_Load() { logic_.Form_Load(); }
  // The window as the control window's logic uses it; it goes with the window.
  TextWindowPort& Port() { return port_; }

 private:
  class PortAdapter : public TextWindowPort {
   public:
    explicit PortAdapter(Win32TextWindow& window) : window_(window) {}
    TextBox& Box() override { return window_.Rtf(); }
    void Load() override { window_.logic_.Form_Load(); }
    void SetCaption(const std::string& caption) override { window_.logic_.SetCaption(caption); }
    void Flash() override { window_.logic_.Flash(); }
    void Close() override { window_.logic_.Close(); }

   private:
    Win32TextWindow& window_;
  };

  static LRESULT CALLBACK WindowProc(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT Notify(const NMHDR& header);
  void Dropped(HDROP drop);
  void Closed();

  TextBox& Box() override { return *box_; }
  TwipsRect Place() override;
  void SetPlace(const TwipsRect& place) override;
  TwipsRect ScreenArea() override;
  WindowState State() override;
  void ShowNormal() override;
  TwipsRect ClientArea() override;
  void PlaceBox(const TwipsRect& place) override;
  void SetCaption(const std::string& caption) override;
  std::string Caption() override;
  void Flash() override;
  void CopyToClipboard(const std::string& text) override;
  void SubclassBox() override { box_->Subclass(); }
  void UnsubclassBox() override { box_->Unsubclass(); }
  void Close() override;

  Session& session_;
  HWND hwnd_ = nullptr;
  std::unique_ptr<RichEditBox> box_;
  TextWindow logic_;
  PortAdapter port_{*this};
  bool closed_ = false;
};

}  // namespace ferrow::win32
