// Following a file: the poll, the read of what was appended, the alerts, the
// initial load of the file's end, pause and restart. Everything runs on the
// user-interface thread; the poll timer's enabled state is the only record
// of pausing.
#pragma once

#include <cstdint>
#include <string>

#include "engine/text_decoder.h"

namespace ferrow {

class FollowWindows;
class TextBox;
struct Session;

class Follower {
 public:
  Follower(Session& session, FollowWindows& windows);

  // The poll timer's tick.
  void Timer1_Timer();
  // True when the file grew since the last poll and the growth was shown.
  bool HasFileChanged(const std::string& file_name, bool limit_high_water_mark);
  // Reads from the 1-based `from_pos` to the end and appends it to the text window.
  void ReadChangedFile(const std::string& file_name, int64_t from_pos);
  // The text window's caption: file, size (the last poll's, or `file_size`)
  // and lines shown.
  void UpdateCaption();
  void UpdateCaption(int64_t file_size);
  bool PlayWav(const std::string& sound_file);

  // Fills the text window with the end of the file as one document.
  void LoadFileToTextBox(const std::string& file_name, TextBox& box, int32_t lines_to_read);

  void cmdPause_Click();
  void CheckPauseCaption();
  // Restarts following; dropped while an open, a restart, Apply or the
  // unload runs (see WindowGate).
  void FerrowRestart();
  // The restart itself, for an operation that already holds the gate (Apply).
  void RestartFollowing();

  int16_t TickCount() const { return tick_count_; }
  bool SoundsEnabled() const { return sounds_enabled_; }
  // A new file or a restart: a character held back from the old one is gone,
  // and the file's encoding is decided again from its first bytes.
  void ForgetPartialCharacter() { decoder_.StartFile(); }

 private:
  // The bytes of the initial load, decoded: the last lines, or the last
  // buffer-full of characters.
  std::string ReadLoadText(const std::string& file_name, int64_t length, int32_t lines_to_read,
                           int32_t buffer, bool* failed);

  Session& session_;
  FollowWindows& windows_;
  TextDecoder decoder_;
  int16_t tick_count_ = 0;
  bool sounds_enabled_ = true;
};

// Drops the first line (up to and including its CR LF) after `offset`
// characters of header; "" when no line follows the header.
std::string StripRTFLine(const std::string& document, size_t offset);

}  // namespace ferrow
