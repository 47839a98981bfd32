// The about window's behaviour: program, companion library and usage
// information, and a link to the project's web page. Each toolkit's window
// implements `AboutView` and forwards its events to `AboutWindow`.
#pragma once

#include <cstdint>
#include <string>

namespace ferrow {

class MenuPort;
struct Session;

// A colour as the window system knows it: 0x00BBGGRR, or the face colour
// of buttons, which depends on the user's scheme.
using SystemColour = int64_t;
inline constexpr SystemColour kButtonFace = 0x8000000F;

class AboutView {
 public:
  virtual ~AboutView() = default;
  virtual void SetCaption(const std::string& caption) = 0;
  // lblTitle, lblInformation and lblWebsite.
  virtual void SetTitle(const std::string& text) = 0;
  virtual void SetInformation(const std::string& text) = 0;
  virtual void SetWebsite(const std::string& address) = 0;
  virtual void SetWebsiteColours(SystemColour text, SystemColour background) = 0;
  // Opens `address` with the system's default handler.
  virtual void OpenAddress(const std::string& address) = 0;
  virtual void CentreOnScreen() = 0;
  // Shown, with the focus on the OK button.
  virtual void Show() = 0;
  // Hides the window for good; the window disposes of itself later.
  virtual void Close() = 0;
};

class AboutWindow {
 public:
  AboutWindow(Session& session, MenuPort& menu, AboutView& view);

  void Form_Load();
  void lblWebsite_Click();
  // The mouse over the link, and over the rest of the window.
  void lblWebsite_MouseMove();
  void Form_MouseMove();
  void Command1_Click();
  // Escape or Enter on the OK button closes the window; true when that was
  // the key.
  bool Command1_KeyDown(int key_code);
  // The window is closing, whoever closed it.
  void Form_Unload();
  bool Unloaded() const { return unloaded_; }

 private:
  void Unload();

  Session& session_;
  MenuPort& menu_;
  AboutView& view_;
  bool unloaded_ = false;
};

}  // namespace ferrow
