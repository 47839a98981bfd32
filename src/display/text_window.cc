#include "display/text_window.h"

#include <algorithm>

#include "about/shortcut_files.h"
#include "config/settings.h"
#include "display/control_port.h"
#include "display/text_box.h"
#include "display/text_ops.h"
#include "display/text_view.h"
#include "session/session.h"
#include "support/paths.h"

namespace ferrow {
namespace {

constexpr int32_t kDefaultWidth = 10000, kDefaultHeight = 3500;  // twips
constexpr int32_t kMinWidth = 1844, kMinHeight = 650;
// What the frame and the title bar take, before the first resize places the box.
constexpr int32_t kFrameWidth = 85, kFrameHeight = 490;

}  // namespace

TextWindow::TextWindow(Session& session, ControlWindowPort& control, TextView& view)
    : session_(session), control_(control), view_(view) {}

TextBox& TextWindow::Rtf() { return view_.Box(); }

void TextWindow::ApplyFont() {
  const Options& o = session_.options;
  Rtf().SetFontName(o.Font);
  Rtf().SetFontSize(o.FontSize);
  Rtf().SetFontBold(o.FontBold);
}

void TextWindow::Form_Load() {
  loaded_ = true;
  TextBox& box = Rtf();
  SetWordWrapOff(box);
  box.SetText("Loading...");
  ApplyFont();
  box.SetBackColor(session_.options.BackColour);
  box.Refresh();
  box.SetText("");
  box.SetMaxLength(session_.options.MaxInputLength);
  PlaceWindow();
  const TwipsRect outer = view_.Place();
  if (outer.width - kFrameWidth > 0 && outer.height - kFrameHeight > 0)
    view_.PlaceBox({0, 0, outer.width - kFrameWidth, outer.height - kFrameHeight});
  ApplyFont();
  view_.ShowNormal();
  view_.SubclassBox();
}

// The default size centred on the screen, then the stored geometry, each
// value only when it is in range.
void TextWindow::PlaceWindow() {
  const Options& o = session_.options;
  const TwipsRect screen = view_.ScreenArea();
  TwipsRect place;
  place.width = o.FormWidth > kMinWidth ? o.FormWidth : kDefaultWidth;
  place.height = o.FormHeight > kMinHeight ? o.FormHeight : kDefaultHeight;
  place.left = o.FormX > 0 ? o.FormX : screen.left + (screen.width - place.width) / 2;
  place.top = o.FormY > 0 ? o.FormY : screen.top + (screen.height - place.height) / 2;
  view_.SetPlace(place);
}

void TextWindow::Form_Resize() {
  const TwipsRect client = view_.ClientArea();
  view_.PlaceBox({0, 0, client.width, client.height});
  // Caret to the start and back to the end scrolls the last line into view.
  TextBox& box = Rtf();
  box.LockUpdates(true);
  box.SetSelStart(0);
  box.SetSelStart(box.TextLength());
  box.LockUpdates(false);
}

void TextWindow::Rtf_Change() { Rtf().SetSelStart(Rtf().TextLength()); }

bool TextWindow::Rtf_KeyDown(int key_code) {
  switch (key_code) {
    case kKeyX: case kKeyZ: case kKeyY: case kKeyV: case kKeyDelete:
      return true;  // no cut, undo, redo, paste or delete
    default:
      return false;  // Backspace too: its character is discarded later
  }
}

bool TextWindow::Rtf_KeyPress(int character) {
  switch (character) {
    case 1:
      Rtf().SetSelStart(0);
      Rtf().SetSelLength(Rtf().TextLength());
      break;
    case 3: case 13: case 10: case 23:
      CopySelection();
      break;
    default:
      break;
  }
  return true;  // nothing the user types reaches the text
}

// As ordinary text either way: with CopyAsRTF a paste shows the markup itself.
// The events that run meanwhile may close the window; the box outlives them.
void TextWindow::CopySelection() {
  TextBox& box = Rtf();
  view_.CopyToClipboard(session_.options.CopyAsRTF ? box.SelRTF() : box.SelText());
  session_.env.LetEventsRun();
  box.SetSelLength(0);
}

int TextWindow::Rtf_OLEDragOver(bool offers_files, int effect) const {
  return offers_files ? effect % 2 : 0;
}

void TextWindow::Rtf_OLEDragDrop(const std::vector<std::string>& names) {
  if (names.empty() || names.front().empty()) return;
  const std::string& name = names.front();
  control_.SetFileNameBox(name);
  if (IsShortcutFile(name) && session_.options.HelperLibraryInUse && session_.helper) {
    std::string target = session_.helper->GetLinkTarget(name).value_or("");
    if (!target.empty() && FileExists(session_.env, target)) control_.SetFileNameBox(target);
  }
  control_.OK_Click(false, 0, false);
}

void TextWindow::Form_Unload() {
  if (loaded_ && !unloaded_) {
    unloaded_ = true;
    StoreGeometry();
    if (!control_.ProgramClosing()) {
      control_.StopTimer();
      control_.ShowNormalAndActivate();
    }
    view_.UnsubclassBox();
  }
  control_.TextWindowClosed(Rtf());
}

// The size only of a normal window, never below the least; the place in
// every state, a minimised window's off-screen place included.
void TextWindow::StoreGeometry() {
  Options& o = session_.options;
  const TwipsRect place = view_.Place();
  if (view_.State() == WindowState::kNormal) {
    o.FormWidth = std::max(place.width, kMinWidth);
    o.FormHeight = std::max(place.height, kMinHeight);
  }
  o.FormX = place.left;
  o.FormY = place.top;
  SaveWindowSettings(session_);
}

void TextWindow::SetCaption(const std::string& caption) { view_.SetCaption(caption); }
std::string TextWindow::Caption() { return view_.Caption(); }
void TextWindow::Flash() { view_.Flash(); }
void TextWindow::Close() { view_.Close(); }

}  // namespace ferrow
