#include "startup/command_line.h"

#include <algorithm>

#include "about/product.h"
#include "display/themes.h"
#include "platform/env.h"
#include "session/options.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/strings.h"
#include "support/tokenize.h"

namespace ferrow {
namespace {

constexpr char kDelimiters[] = "\" ,;";

// The value glued to a switch: the text from its 4th character on.
std::string ValueOf(const std::string& token) { return token.size() > 3 ? token.substr(3) : ""; }

int32_t Clamp(double value, double low, double high) {
  return static_cast<int32_t>(std::clamp(value, low, high));
}

// A known switch followed by "=" or ":" and a value, such as /H=GET/api.
bool IsSwitchWithValue(const std::string& token) {
  static const char* const kNames[] = {"B", "N", "H", "T", "W", "WAIT"};
  const size_t mark = token.find_first_of("=:");
  if (mark == std::string::npos || mark < 2) return false;
  const std::string name = UpperCase(token.substr(1, mark - 1));
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [&](const char* known) { return name == known; });
}

// On POSIX a token such as /var/log/syslog is a path, not a switch.
bool IsPosixPath(Env& env, const std::string& token) {
  if (NativeSeparator() != '/' || token.empty() || token[0] != '/') return false;
  if (IsSwitchWithValue(token)) return false;
  // A plain look-up: the existence probe's wildcards would make "/?" a path.
  return token.find('/', 1) != std::string::npos || env.FileLength(token).has_value();
}

// "/X" turns `field` on; "/-X" turns it off and is remembered.
void Flag(const std::string& t, const char* on, bool& field, bool& remembered) {
  if (t == on) field = true;
  if (t.size() == 3 && t[1] == '-' && t[0] == '/' && t[2] == on[1]) {
    field = false;
    remembered = true;
  }
}

}  // namespace

bool IsFileNameToken(Env& env, const std::string& token) {
  return !token.empty() && ((token[0] != '/' && token[0] != '-') || IsPosixPath(env, token));
}

namespace {

void SelectFile(Options& o, const std::string& name) {
  o.LastFileSelected = name;
  o.FileSection = FileNamePart(name);
}

}  // namespace

std::vector<std::string> ParseCommandLine(const std::string& text) {
  std::vector<std::string> tokens;
  Tokenize(text, kDelimiters, tokens, kMaxArguments);
  return tokens;
}

std::string JoinArguments(const std::vector<std::string>& args) {
  std::string line;
  for (const std::string& arg : args) {
    if (!line.empty()) line += ' ';
    bool quote = arg.find_first_of(" ,;") != std::string::npos;
    line += quote ? "\"" + arg + "\"" : arg;
  }
  return line;
}

std::string BuildUsageText(int buffer_kb) {
  const std::string lines[] = {
      " /F     Bring as much as possible from start of file",
      " /N <x> Read in <x> lines from file (as with Unix ferrow)",
      " /B=<n> Buffer n kilobytes (default is " + std::to_string(buffer_kb) + "kb)",
      " /M     Minimise control menu on opening file",
      " /A     Alert (flash window) on each update",
      " /S     Play sound (any WAV file) on each update",
      " /COPYRTF      Copy selections as Rich Text instead of plain text",
      " /NICE  More CPU friendly",
      " /H=<String>   Highlight lines with <string> tokens present",
      " /T=<Theme>    Paper, Modern, Chocolate, Gothic, Fancy. Use /T alone to set to Standard",
      " Prefix switches with / or - Disable F,M,A,S using /- or --",
  };
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += "\r\n";
    text += kProductName + line;
  }
  return text;
}

bool ApplyArguments(Env& env, Options& o, const std::vector<std::string>& args,
                    DisabledSwitches& disabled) {
  for (std::string token : args) {
    if (token.empty()) continue;
    if (IsFileNameToken(env, token)) {
      SelectFile(o, token);
      continue;
    }
    if (token[0] == '-') token[0] = '/';
    const std::string t = UpperCase(token);
    auto starts = [&](const std::string& prefix) { return t.compare(0, prefix.size(), prefix) == 0; };

    if (t == "/?") return false;
    if (starts("/DEBUG")) o.Debug = o.LoggingEnabled = true;
    Flag(t, "/F", o.BringFromStartOfFile, disabled.F);
    Flag(t, "/M", o.HideMenuOnStartup, disabled.M);
    if (starts("/NICE")) {
      o.NiceMode = true;
      o.TimerInterval = 2000;
    } else if (t.substr(0, 5) == "/COPYRTF") {
      // Five characters never equal eight: the switch is listed but has no
      // effect, and CopyAsRTF comes only from [Common] and the dialog.
    } else if (starts("/B")) {
      if (t.size() > 2) o.MaxInputLength = Clamp(Val(ValueOf(token)), 1, 1024) * 1024;
    } else if (starts("/N")) {
      if (t.size() > 2) o.LinesToRead = Clamp(Val(ValueOf(token)), 0, INT32_MAX);
    }
    if (starts("/H") && t.size() > 3)
      o.FilterString += (o.FilterString.empty() ? "" : " ") + ValueOf(token);
    Flag(t, "/S", o.PlaySoundOnUpdate, disabled.S);
    Flag(t, "/A", o.AlertOnUpdate, disabled.A);
    if (starts("/T")) {
      // /T alone, or a word too short to name a theme, selects Standard.
      std::string name = t.size() > 3 ? ValueOf(token) : "";
      o.ThemeNumber = SetTheme(o, o.Themes, name.size() < 3 ? "STA" : name);
    }
    if (starts("/WAIT")) {
      o.WaitOnStart = true;
      if (t.size() > 6) o.WaitSeconds = static_cast<int16_t>(Clamp(Val(token.substr(6)), 0, INT16_MAX));
    } else if (starts("/W")) {
      o.WaitOnStart = true;
      if (t.size() > 3) o.WaitSeconds = static_cast<int16_t>(Clamp(Val(ValueOf(token)), 0, INT16_MAX));
    }
  }
  return true;
}

}  // namespace ferrow
