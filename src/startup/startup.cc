#include "startup/startup.h"

#include <cstdio>

#include "about/usage.h"
#include "config/config_location.h"
#include "config/ini_file.h"
#include "config/keys.h"
#include "config/known_keys.h"
#include "config/settings.h"
#include "config/write_lock.h"
#include "diag/debug_log.h"
#include "diag/leftover_files.h"
#include "diag/trim_file.h"
#include "display/filters.h"
#include "display/themes.h"
#include "startup/command_line.h"
#include "session/session.h"
#include "support/dates.h"
#include "support/flib.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

const char kFirstRunIni[] =
    "[Common]\r\nBrowseStartDir=C:\\\r\nHistoryCount=0\r\nLastFileSelected=\r\nLocked=False\r\n";

namespace {

constexpr int16_t kTrimLockWaitSeconds = 5;

// Instances are counted per program file, as two installations are two programs.
std::string InstanceName(Env& env) {
  uint32_t hash = 2166136261u;
  for (char c : UpperCase(env.ProgramPath())) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
  char hex[16];
  std::snprintf(hex, sizeof hex, "%08x", hash);
  return ProgramName(env) + "-" + hex;
}

// Theme fonts and sizes the user set by hand in [Common].
void ReadThemeFontOverrides(Session& s) {
  Options& o = s.options;
  for (int i = 1; i <= 12; ++i) {
    std::string font = RemoveChars(ReadINIFile(s.env, o.IniFileName, keys::kCommon, "FontName" + std::to_string(i)), "\"");
    if (!font.empty()) o.Themes.ThemeFontName[i] = font;
    std::string size = ReadINIFile(s.env, o.IniFileName, keys::kCommon, "FontSize" + std::to_string(i));
    if (IsNumeric(size) && Val(size) >= 0 && Val(size) <= INT16_MAX)
      o.Themes.ThemeFontSize[i] = static_cast<int16_t>(Val(size));
  }
}

void WriteFirstRunFile(Session& s) {
  FileTable files(s.env);
  int16_t n = files.FOpen(s.options.IniFileName, "w", "Main");
  if (n == 0) return;
  files.Put(n, kFirstRunIni);
  files.Close(n);
}

void TrimWhenAlone(Session& s) {
  Options& o = s.options;
  if (o.PrevInstance || !GetWriteLock(s, kTrimLockWaitSeconds)) return;
  TrimFile(s, o.IniFileName, KnownKeys(), true);
  ReleaseWriteLock(s);
}

}  // namespace

bool RunStartup(Session& s, const std::vector<std::string>& args, StartupState& state,
                const std::function<void()>& load_control_window) {
  Env& env = s.env;
  Options& o = s.options;
  s.ErrorLine = 10;
  SetDefaultOptions(o);
  bool another = false;
  state.instance = env.ClaimInstance(InstanceName(env), another);
  o.PrevInstance = another;

  s.ErrorLine = 20;
  state.library = HelperLibrary::Bind(env);
  CheckHelperLibrary(o, state.library);

  s.ErrorLine = 30;
  FillThemeTables(o.Themes);
  o.IniFileName = IniFileName(env);
  o.LogFileName = LogFileName(env);
  o.UpdateSound = "Updated.wav";
  o.StartTime = env.Now();
  o.UsageText = BuildUsageText(o.MaxInputLength / 1024);
  ApplyDefaultTheme(o, o.Themes);

  s.ErrorLine = 60;
  if (FileExists(env, o.IniFileName)) ReadThemeFontOverrides(s);
  else WriteFirstRunFile(s);

  s.ErrorLine = 70;
  LoadCommonSettings(s, o.IniFileName);
  o.LastFileSelected.clear();  // only the command line selects a file at start-up
  o.HideMenuOnStartup = false;
  ReadINIBool(env, o.IniFileName, keys::kCommon, keys::Debug, o.Debug);

  s.ErrorLine = 100;
  const std::vector<std::string> tokens =
      ParseCommandLine(env.RawCommandTail().value_or(JoinArguments(args)));
  DisabledSwitches disabled;
  if (!ApplyArguments(env, o, tokens, disabled)) {
    ShowUsage(s);
    return false;
  }
  if (!tokens.empty() && IsFileNameToken(env, tokens[0])) {
    o.LastFileSelected = tokens[0];
    o.FileSection = FileNamePart(tokens[0]);
  }

  s.ErrorLine = 120;
  if (o.Debug) {
    o.LoggingEnabled = true;
    const std::tm now = LocalTime(env.Now());
    LogEvent(s, o.LogFileName, "* * * Debug logging started at " + env.SystemShortDate(now) + " " +
                                   env.SystemLongTime(now) + " * * *");
  }
  if (!o.FileSection.empty()) {
    const std::pair<bool, const char*> remembered[] = {{disabled.F, keys::BringFromStartOfFile},
                                                       {disabled.M, keys::HideMenuOnStartup},
                                                       {disabled.S, keys::PlaySoundOnUpdate},
                                                       {disabled.A, keys::AlertOnUpdate}};
    for (const auto& [given, key] : remembered)
      if (given) WriteINIBool(env, o.IniFileName, o.FileSection, key, false);
  }

  s.ErrorLine = 140;
  RebuildFilterWords(o);
  // What every file opened in this session starts from.
  o.FileDefaults = static_cast<const FileOptions&>(o);

  s.ErrorLine = 150;
  RemoveLeftoverFiles(s, o.IniFileName);
  TrimWhenAlone(s);

  s.ErrorLine = 160;
  if (load_control_window) load_control_window();
  return true;
}

}  // namespace ferrow
