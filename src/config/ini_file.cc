#include "config/ini_file.h"

#include <string_view>

#include "platform/env.h"
#include "support/flib.h"
#include "support/strings.h"

namespace ferrow {
namespace {

using namespace std::string_view_literals;

constexpr int kReadAttempts = 50;
constexpr int kWriteAttempts = 200;
constexpr int kRetryMs = 25;
constexpr std::string_view kLineBlanks = " \t\r\n"sv;
constexpr std::string_view kValueBlanks = " \t\r\n\0"sv;
constexpr std::string_view kBoolNoise = "\"\t; "sv;

// Calls `write` until it succeeds, at most kWriteAttempts times; a failure
// that waiting cannot mend ends the loop at once.
template <typename Write>
bool Retry(Env& env, Write write, bool events_after_each) {
  for (int attempt = 0; attempt < kWriteAttempts; ++attempt) {
    bool ok = write();
    if (events_after_each) env.LetEventsRun();
    if (ok) return true;
    if (env.LastWriteFailureIsPermanent()) return false;
    env.LetEventsRun();
    env.SleepMs(kRetryMs);
  }
  return false;
}

}  // namespace

std::string ReadINIFile(Env& env, const std::string& file_name, const std::string& section,
                        const std::string& key) {
  if (file_name.empty() || section.empty() || key.empty()) return "";
  const std::string wanted_section = UpperCase(section);
  const std::string wanted_key = UpperCase(key);

  FileTable files(env);
  int16_t number = files.FOpen(file_name, "r", "ReadINIFile");
  for (int attempt = 1; number == 0 && attempt < kReadAttempts; ++attempt) {
    env.SleepMs(kRetryMs);
    env.LetEventsRun();
    number = files.FOpen(file_name, "r", "ReadINIFile");
  }
  if (number == 0) return "";

  bool inside = false;
  std::string raw;
  while (files.LineInput(number, raw) == 0) {
    std::string line = StripEnds(raw, kLineBlanks);
    if (line.empty()) continue;
    if (line[0] == '[') {
      if (inside) return "";
      size_t close = line.rfind(']');  // section names may hold "]": log[1].txt
      if (close != std::string::npos && close + 1 > 2 &&
          UpperCase(Trim(line.substr(1, close - 1))) == wanted_section)
        inside = true;
      continue;
    }
    if (!inside) continue;
    size_t eq = line.find('=');
    if (eq == std::string::npos || UpperCase(Trim(line.substr(0, eq))) != wanted_key) continue;
    std::string value = line.substr(eq + 1);
    size_t comment = value.find(';');
    if (comment != std::string::npos) value = Trim(value.substr(0, comment));
    return value;
  }
  return "";
}

bool WriteINIFile(Env& env, const std::string& file_name, const std::string& section,
                  const std::string& key, const std::string& value) {
  const std::string stripped = StripEnds(value, kValueBlanks);
  if (file_name.empty() || section.empty()) return false;
  const char* s = section.c_str();
  if (key.empty()) {
    return Retry(env, [&] { return env.WriteProfileString(s, nullptr, nullptr, file_name); },
                 false);
  }
  const char* k = key.c_str();
  if (!stripped.empty()) {
    return Retry(
        env, [&] { return env.WriteProfileString(s, k, stripped.c_str(), file_name); }, true);
  }
  if (env.WriteProfileString(s, k, "", file_name)) return true;
  if (env.LastWriteFailureIsPermanent()) return false;
  return Retry(env, [&] { return env.WriteProfileString(s, k, nullptr, file_name); }, false);
}

bool ReadINIBool(Env& env, const std::string& file_name, const std::string& section,
                 const std::string& key, bool& value) {
  const std::string text = UpperCase(StripEnds(ReadINIFile(env, file_name, section, key), kBoolNoise));
  if (text == "YES" || text == "1" || text == "TRUE") {
    value = true;
    return true;
  }
  if (text == "NO" || text == "0" || text == "FALSE") {
    value = false;
    return true;
  }
  value = false;
  return false;
}

bool WriteINIBool(Env& env, const std::string& file_name, const std::string& section,
                  const std::string& key, bool value) {
  return WriteINIFile(env, file_name, section, key, value ? "True" : "False");
}

}  // namespace ferrow
