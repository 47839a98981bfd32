// The poll: has the followed file grown, and if so read, show and alert.
#include "about/product.h"
#include "display/append_block.h"
#include "display/text_box.h"
#include "display/text_ops.h"
#include "engine/file_reader.h"
#include "engine/follow_windows.h"
#include "engine/follower.h"
#include "session/session.h"
#include "support/install_layout.h"
#include "support/numbers.h"
#include "support/paths.h"

namespace ferrow {

Follower::Follower(Session& session, FollowWindows& windows)
    : session_(session), windows_(windows), decoder_(session.env, TextEncoding::kUndecided) {
  decoder_.StartFile();
}

void Follower::Timer1_Timer() {
  HasFileChanged(session_.options.FileName, false);
  if (++tick_count_ > 10000) tick_count_ = 0;
  session_.env.SleepMs(10);
}

bool Follower::HasFileChanged(const std::string& file_name, bool limit_high_water_mark) {
  Options& o = session_.options;
  Env& env = session_.env;
  if (file_name.empty()) {
    o.LastFileSize = o.HighWaterMark = 0;
    return false;
  }
  const std::optional<int64_t> measured =
      env.OsMajorVersion() >= 6 ? FileLenFresh(env, file_name) : env.FileLength(file_name);
  if (!measured || env.IsFolder(file_name)) return false;  // gone, hidden or not a file: next tick
  const int64_t length = *measured;
  if (length == 0) {
    // Emptied: a character held back from before is gone with it, and what
    // is written next may be in another encoding.
    decoder_.StartFile();
    return false;
  }
  if (length < o.LastFileSize) {
    o.LastFileSize = length;
    decoder_.StartFile();
  }
  if (length - o.LastFileSize <= 0) {
    o.LastFileSize = o.HighWaterMark = length;
    return false;
  }
  if (!limit_high_water_mark || length > o.HighWaterMark) ReadChangedFile(file_name, o.LastFileSize + 1);
  bool sound_failed = false;
  if (o.PlaySoundOnUpdate && !PlayWav(o.UpdateSound)) {
    o.PlaySoundOnUpdate = false;
    windows_.ClearPlaySoundCheckBox();
    sound_failed = true;
  }
  if (o.AlertOnUpdate) windows_.FlashTextWindow();
  o.LastFileSize = o.HighWaterMark = length;
  // The message box lets ticks run inside it: by then the marks have moved
  // past what was shown and the sound is off, so a tick inside shows only
  // what is new and opens no second box; nor are the marks set back after it.
  if (sound_failed)
    session_.ui.ShowMessage("Problem encountered playing " + o.UpdateSound + " (disabled sounds)", "",
                            MessageIcon::Critical);
  return true;
}

void Follower::ReadChangedFile(const std::string& file_name, int64_t from_pos) {
  if (!FileExists(session_.env, file_name)) return;
  bool message = false;
  int64_t reached = 0;
  std::string head;
  const std::string bytes = ReadFileFromPos(session_.env, file_name, from_pos, &message, &reached,
                                            decoder_.WantsHead() ? &head : nullptr);
  std::string text;
  if (message) {
    decoder_.Reset();  // the skipped bytes are never shown
    text = bytes;
  } else {
    if (!head.empty()) decoder_.LookAtHead(head);
    text = decoder_.DecodeAt(bytes, reached - static_cast<int64_t>(bytes.size()));
  }
  AppendTextBlock(session_, windows_.TextWindowBox(), text, session_.options.QuickScroll);
  // The size the display has just reached, not the mark the poll is about to move.
  UpdateCaption(reached);
}

void Follower::UpdateCaption() { UpdateCaption(session_.options.LastFileSize); }

void Follower::UpdateCaption(int64_t file_size) {
  const int64_t lines = std::max<int64_t>(GetLineCount(windows_.TextWindowBox()) - 1, 0);
  windows_.SetTextWindowCaption(std::string(kProductName) + " - " + session_.options.FileName +
                                " (" + GroupDigits(file_size) + " bytes) [" +
                                std::to_string(lines) + "]");
}

bool Follower::PlayWav(const std::string& sound_file) {
  if (!sounds_enabled_) return false;
  std::string name = sound_file;
  if (FolderPart(name).empty()) name = ProgramDataFile(session_.env, name);
  if (!FileExists(session_.env, name)) return false;
  const bool played = windows_.PlaySoundFile(name, false);
  for (int i = 0; i < 4; ++i) session_.env.SleepMs(10);
  return played;
}

}  // namespace ferrow
