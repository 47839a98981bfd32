// Steps and readings the scenarios share, over any front-end's driver.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frontend/front_end_driver.h"
#include "support/numbers.h"

namespace ferrow::frontend {

inline constexpr const char* kThemeCodes[kThemeCount] = {"CUS", "STA", "PAP", "MOD", "FAN", "CHO",
                                                         "GOT", "RED", "WP5", "OFF", "PIN", "TIM"};
inline std::string ThemeCode(int theme) { return kThemeCodes[theme]; }

// The look of a new configuration (Standard): grey text, blue filter words.
inline Colour Grey(const ScenarioWorld& w) { return w.options.FontColour; }
inline Colour Blue(const ScenarioWorld& w) { return w.options.FilterColour; }

inline int64_t FileSize(const std::string& path) { return static_cast<int64_t>(testing::ReadBytes(path).size()); }
inline std::string Grouped(int64_t n) { return GroupDigits(n); }
inline std::string Ini(const ScenarioWorld& w) { return testing::ReadBytes(w.options.IniFileName); }

inline void Append(const std::string& path, const std::string& bytes) {
  testing::WriteBytes(path, testing::ReadBytes(path) + bytes);
}

// The check box clicked until it shows `value` (a grayed box goes on first).
inline void SetCheckBox(FrontEndDriver& d, Control box, int value) {
  for (int i = 0; i < 3 && d.Value(box) != value; ++i) d.Click(box);
}

// The control window loaded, the name typed, bring-from-start set as asked,
// and Open clicked; true once the file is followed.
inline bool Open(ScenarioWorld& w, FrontEndDriver& d, const std::string& log, bool from_start) {
  d.Load();
  d.TypeInFileNameBox(log);
  SetCheckBox(d, Control::chkFileStart, from_start ? 1 : 0);
  d.Click(Control::cmdOK);
  return d.RunEventsUntil([&] { return d.Shown(Window::kText) && d.TimerRunning(); }) &&
         w.options.FileName == log;
}

// The bytes appended to the file, and the polls that read them let run.
inline void AppendAndPoll(ScenarioWorld& w, FrontEndDriver& d, const std::string& log,
                          const std::string& bytes) {
  Append(log, bytes);
  const int64_t size = FileSize(log);
  EXPECT_TRUE(d.RunEventsUntil([&] { return w.options.LastFileSize == size; })) << "not polled";
  d.RunEvents(20);
}

// Inside an input box's answer: once the answer's events have run, the box
// must be gone; a box still waiting fails the scenario and is cancelled, so
// the scenario goes on.
inline void ExpectInputBoxAnswered(FrontEndDriver& d) {
  if (d.RunEventsUntil([&] { return !d.Shown(Window::kInputBox); }, 2000)) return;
  ADD_FAILURE() << "the input box still waits for an answer";
  d.ClickInputBoxButton(false);
}

// An input box that should not open: if it does, the scenario fails and
// the box is cancelled.
inline void FailIfInputBoxShows(FrontEndDriver& d) {
  d.WhenInputBoxShows([&d] {
    ADD_FAILURE() << "an input box opened";
    d.ClickInputBoxButton(false);
  });
}

// What `read` gives at the first character of every line that has one.
template <typename Read>
auto AtLineStarts(FrontEndDriver& d, Read read) {
  const std::string text = d.ShownText();
  std::vector<decltype(read(int64_t{0}))> found;
  int64_t start = 0;
  while (start < static_cast<int64_t>(text.size())) {
    size_t end = text.find('\n', static_cast<size_t>(start));
    if (end == std::string::npos) end = text.size();
    if (static_cast<int64_t>(end) > start) found.push_back(read(start));
    start = static_cast<int64_t>(end) + 1;
  }
  return found;
}

inline std::vector<Colour> LineColours(FrontEndDriver& d) {
  return AtLineStarts(d, [&d](int64_t at) { return d.ColourAt(at); });
}

inline std::vector<std::string> LineFonts(FrontEndDriver& d) {
  return AtLineStarts(d, [&d](int64_t at) { return d.FontNameAt(at); });
}

}  // namespace ferrow::frontend
