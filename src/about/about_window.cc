#include "about/about_window.h"

#include "about/about_text.h"
#include "about/product.h"
#include "control/menu_port.h"
#include "dialogs/key_codes.h"
#include "session/session.h"
#include "support/dates.h"

namespace ferrow {
namespace {

constexpr SystemColour kBlue = 0xFF0000, kWhite = 0xFFFFFF;

}  // namespace

AboutWindow::AboutWindow(Session& session, MenuPort& menu, AboutView& view)
    : session_(session), menu_(menu), view_(view) {}

void AboutWindow::Form_Load() {
  const Options& o = session_.options;
  view_.SetCaption(AboutCaption());
  view_.SetTitle(AboutTitle());
  const std::tm started = LocalTime(o.StartTime);
  const std::string since =
      session_.env.SystemShortDate(started) + " " + session_.env.SystemLongTime(started);
  const std::string library =
      o.HelperLibraryInUse && session_.helper ? session_.helper->GetDLLFileName().value_or("") : "";
  view_.SetInformation(AboutInformation(o, session_.env.ProgramPath(), since, library));
  view_.SetWebsite(kWebsite);
  Form_MouseMove();
  view_.CentreOnScreen();
  view_.Show();
}

// Blue on the button face; white on blue under the mouse.
void AboutWindow::lblWebsite_MouseMove() {
  view_.SetWebsiteColours(kWhite, kBlue);
}

void AboutWindow::Form_MouseMove() {
  view_.SetWebsiteColours(kBlue, kButtonFace);
}

void AboutWindow::lblWebsite_Click() {
  if (unloaded_) return;
  view_.OpenAddress(kWebsite);
  menu_.ShowNormalAndActivate();
  Unload();
}

void AboutWindow::Command1_Click() {
  Unload();
}

// Enter presses the focused OK as on any button of the system's dialogs.
bool AboutWindow::Command1_KeyDown(int key_code) {
  if (key_code != kKeyEscape && key_code != kKeyReturn) return false;
  Command1_Click();
  return true;
}

void AboutWindow::Unload() {
  if (unloaded_) return;
  Form_Unload();
  view_.Close();
}

// The control window comes back, unless the program is closing or an open
// runs (it re-enables the buttons itself at its end).
void AboutWindow::Form_Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  const WindowGate& gate = session_.gate;
  if (!gate.Closing() && !gate.Busy()) {
    menu_.EnableCheckBoxes();
    menu_.EnableAllButtons();
    menu_.ShowNormalAndActivate();
  }
}

}  // namespace ferrow
