// A follower over fake windows and a real file that another process writes.
#pragma once

#include <string>
#include <vector>

#include "engine/follow_windows.h"
#include "engine/follower.h"
#include "testing/fake_text_box.h"
#include "testing/session_fixture.h"

namespace ferrow::testing {

class FakeFollowWindows : public FollowWindows {
 public:
  TextBox& TextWindowBox() override {
    ++box_requests;
    return box;
  }
  bool StillShowing(const TextBox&) override { return still_showing; }
  void SetTextWindowCaption(const std::string& caption) override { captions.push_back(caption); }
  void FlashTextWindow() override { ++flashes; }
  bool TimerEnabled() override { return timer_enabled; }
  void SetTimerEnabled(bool enabled) override { timer_enabled = enabled; }
  void SetTimerInterval(int ms) override { interval = ms; }
  void ShowPauseButton(bool following, const std::string& tip) override {
    shows_stop = following;
    tool_tip = tip;
  }
  std::string FileNameBoxText() override { return file_name_box; }
  void ClearPlaySoundCheckBox() override { ++sound_box_clears; }
  void RefreshFilterCaption() override { ++filter_caption_refreshes; }
  void StoreMenuPosition(Options& o) override {
    o.MenuX = 1500;
    o.MenuY = 900;
  }
  bool PlaySoundFile(const std::string& file, bool) override {
    played.push_back(file);
    return sound_works;
  }

  FakeTextBox box;
  std::vector<std::string> captions, played;
  int flashes = 0, sound_box_clears = 0, filter_caption_refreshes = 0, box_requests = 0;
  bool timer_enabled = true, sound_works = true, shows_stop = false, still_showing = true;
  int interval = 0;
  std::string tool_tip, file_name_box;
};

class EngineTest : public SessionTest {
 protected:
  EngineTest() {
    options.FileName = log;
    options.AlertOnUpdate = false;
    options.MaxInputLength = 256000;
    windows.box.max_length = 0;
  }
  // Runs the writer program (another process on POSIX) and waits for it.
  void Write(const std::vector<std::string>& args);
  void Append(const std::string& text) { Write({"append", log, text}); }
  void Tick() { follower.Timer1_Timer(); }
  std::string Shown() { return windows.box.text; }

  std::string log = dir.File("app.log");
  FakeFollowWindows windows;
  Follower follower{session, windows};
};

}  // namespace ferrow::testing
