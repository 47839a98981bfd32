// The option record: everything one process knows about how to follow and
// show its file. Fields bear the names of the configuration keys that store
// them. There is one per process, owned by start-up and passed to whatever
// needs it; tests make their own.
#pragma once

#include <array>
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "display/themes.h"

namespace ferrow {

using Colour = int32_t;  // 0x00BBGGRR, red in the low byte

constexpr int kHistoryLimit = 200;

// Booleans that are written or compared as numbers keep the 16-bit meaning
// true = -1; a check box value of 1 means true.
constexpr int16_t AsNumber(bool value) { return value ? -1 : 0; }
constexpr bool FromCheckValue(int value) { return value == 1; }

// What a followed file's own section may set. Opening a file puts these back
// to the session's defaults before the file's section is read over them.
struct FileOptions {
  // Following
  int32_t MaxInputLength = 256000;  // bytes
  bool BringFromStartOfFile = false;
  int16_t TimerInterval = 500;  // ms
  // Behaviour on update
  bool HideMenuOnStartup = false;
  bool PlaySoundOnUpdate = false;
  bool AlertOnUpdate = true;
  std::string UpdateSound = "Updated.wav";
  bool QuickScroll = false;
  // Look of the text window (the Standard theme's values)
  int16_t ThemeNumber = 1;
  std::string FilterString;
  std::string RedFilterString;
  Colour FilterColour = 0xFF0000;  // blue
  Colour FontColour = 0xBEBEBE;    // grey
  Colour BackColour = 0x000000;    // black
  std::string Font = "Terminal";
  int16_t FontSize = 10;
  bool FontBold = true;
  // Window geometry, twips
  int32_t FormX = 0;
  int32_t FormY = 0;
  int32_t FormWidth = 10000;
  int32_t FormHeight = 3500;
  int32_t MenuX = 0;
  int32_t MenuY = 0;
};

struct Options : FileOptions {
  // Files and identity
  std::string IniFileName;
  std::string LogFileName;
  std::string LastFileSelected;
  std::string FileSection;
  std::string BrowseStartDir = "c:\\";
  std::array<std::string, kHistoryLimit> HistoryList{};  // HistoryList[0] is entry 1
  int16_t HistoryTotal = 0;
  // The file's history as this process last read or wrote it, and the names
  // this process added since it started: what the merge at close needs to
  // tell other processes' new names, its own and old ones apart.
  std::vector<std::string> HistorySeen;
  std::vector<std::string> HistoryAdded;

  // Following
  int32_t LinesToRead = 0;
  bool NiceMode = false;
  bool WaitOnStart = false;
  int16_t WaitSeconds = 30;

  // Behaviour
  bool CopyAsRTF = false;

  // Diagnostics and environment
  bool Debug = false;
  bool LoggingEnabled = false;
  int32_t MaxLogSize = 0;  // defaulted by the first log write
  int16_t HelperLibraryVersion = 0;
  bool HelperLibraryInUse = false;
  bool PrevInstance = false;  // another instance was running when this one started
  std::string UsageText;
  std::time_t StartTime = 0;  // when start-up ran, for the about window

  // The themes' fonts and codes, and the filter word lists built from
  // FilterString and RedFilterString.
  ThemeTables Themes;
  std::vector<std::string> FilterWords;
  std::vector<std::string> RedFilterWords;

  // The per-file values this session starts every file with: the fixed
  // defaults as changed by [Common] and the command line.
  FileOptions FileDefaults;

  // Following state
  std::string FileName;
  int64_t LastFileSize = 0;
  int64_t HighWaterMark = 0;
};

// The fixed defaults of every field except the identity of the configuration
// and log files, which start-up sets.
void SetDefaultOptions(Options& options);

// Puts the per-file options back to the session's defaults, as opening a file
// does before it reads the file's own section.
void SetFileDefaults(Options& options);

}  // namespace ferrow
