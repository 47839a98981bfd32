// A text window that records what its logic asked of it: where it was put,
// its caption, flashes, the clipboard, the window procedure, the close.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "display/text_view.h"
#include "testing/fake_text_box.h"

namespace ferrow::testing {

class FakeTextView : public TextView {
 public:
  FakeTextBox box;
  TwipsRect place{0, 0, 0, 0};
  TwipsRect screen{0, 0, 19200, 10800};
  TwipsRect box_place{-1, -1, -1, -1};
  WindowState state = WindowState::kNormal;
  bool shown = false, subclassed = false;
  int subclass_installs = 0, subclass_removals = 0, flashes = 0, closes = 0;
  std::string caption;
  std::vector<std::string> clipboard;  // every text copied, in order
  std::function<void()> on_close;      // the toolkit's close: runs the unload

  TextBox& Box() override { return box; }
  TwipsRect Place() override { return place; }
  void SetPlace(const TwipsRect& p) override { place = p; }
  TwipsRect ScreenArea() override { return screen; }
  WindowState State() override { return state; }
  void ShowNormal() override { shown = true, state = WindowState::kNormal; }
  // A frame of 60 by 400 twips around the client area.
  TwipsRect ClientArea() override { return {0, 0, place.width - 60, place.height - 400}; }
  void PlaceBox(const TwipsRect& p) override { box_place = p; }
  void SetCaption(const std::string& c) override { caption = c; }
  std::string Caption() override { return caption; }
  void Flash() override { ++flashes; }
  void CopyToClipboard(const std::string& text) override { clipboard.push_back(text); }
  void SubclassBox() override {
    if (!subclassed) ++subclass_installs;
    subclassed = true;
  }
  void UnsubclassBox() override {
    if (subclassed) ++subclass_removals;
    subclassed = false;
  }
  void Close() override {
    ++closes;
    shown = false;
    if (on_close) on_close();
  }
};

}  // namespace ferrow::testing
