// The about window as a Win32 window: the title, the program and library
// information, the website label (a link) and OK. AboutWindow decides what
// they do.
#pragma once

#include <string>

#include "about/about_window.h"
#include "win32/dialog_window.h"

namespace ferrow {
class MenuPort;
struct Session;
}  // namespace ferrow

namespace ferrow::win32 {

class Win32AboutWindow : public DialogWindow, private AboutView {
 public:
  enum : int { kIdTitle = 10, kIdInformation, kIdWebsite, kIdOK };

  Win32AboutWindow(Session& session, MenuPort& menu);
  ~Win32AboutWindow() override;
  AboutWindow& Logic() { return logic_; }

 private:
  bool OnKey(int id, int key_code) override;
  void OnCommand(int id, int code) override;
  void OnClose() override;
  void OnMouseOver(int id) override;
  bool OnMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) override;

  void SetCaption(const std::string& caption) override { SetWindowCaption(caption); }
  void SetTitle(const std::string& text) override;
  void SetInformation(const std::string& text) override;
  void FitInformation(const std::string& shown);
  void SetWebsite(const std::string& address) override;
  void SetWebsiteColours(SystemColour text, SystemColour background) override;
  void OpenAddress(const std::string& address) override;
  void CentreOnScreen() override { Centre(); }
  void Show() override { ShowWithFocus(kIdOK); }
  void Close() override { Dispose(); }

  HFONT title_font_ = nullptr;
  COLORREF link_text_ = 0, link_back_ = 0;
  HBRUSH link_brush_ = nullptr;
  bool over_link_ = false;
  AboutWindow logic_;
};

}  // namespace ferrow::win32
