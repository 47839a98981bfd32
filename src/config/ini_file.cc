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

// The reader's rules for one line at a time: which section the line opens,
// and whether it holds the wanted key.
class KeyScan {
 public:
  KeyScan(const std::string& section, const std::string& key)
      : section_(UpperCase(section)), key_(UpperCase(key)) {}

  // False when the search is over; `found` then says whether `value` holds
  // the key's value.
  bool Take(const std::string& raw, std::string& value, bool& found) {
    std::string line = StripEnds(raw, kLineBlanks);
    if (line.empty()) return true;
    if (line[0] == '[') {
      if (inside_) return false;
      size_t close = line.rfind(']');  // section names may hold "]": log[1].txt
      if (close != std::string::npos && close + 1 > 2 &&
          UpperCase(Trim(line.substr(1, close - 1))) == section_)
        inside_ = true;
      return true;
    }
    if (!inside_) return true;
    size_t eq = line.find('=');
    if (eq == std::string::npos || UpperCase(Trim(line.substr(0, eq))) != key_) return true;
    value = line.substr(eq + 1);
    size_t comment = value.find(';');
    if (comment != std::string::npos) value = Trim(value.substr(0, comment));
    found = true;
    return false;
  }

 private:
  std::string section_, key_;
  bool inside_ = false;
};

}  // namespace

std::string ReadINIFile(Env& env, const std::string& file_name, const std::string& section,
                        const std::string& key) {
  if (file_name.empty() || section.empty() || key.empty()) return "";

  FileTable files(env);
  int16_t number = files.FOpen(file_name, "r", "ReadINIFile");
  // Only a failure that may pass (a sharing violation) is worth the wait: a
  // vanished folder or a file we may not read stays so.
  for (int attempt = 1; number == 0 && attempt < kReadAttempts &&
                        !env.LastOpenFailureIsPermanent();
       ++attempt) {
    env.SleepMs(kRetryMs);
    env.LetEventsRun();
    number = files.FOpen(file_name, "r", "ReadINIFile");
  }
  if (number == 0) return "";

  KeyScan scan(section, key);
  std::string raw, value;
  bool found = false;
  while (files.LineInput(number, raw) == 0)
    if (!scan.Take(raw, value, found)) break;
  return found ? value : "";
}

std::string FindINIValue(std::string_view text, const std::string& section,
                         const std::string& key) {
  if (section.empty() || key.empty()) return "";
  KeyScan scan(section, key);
  std::string value;
  bool found = false;
  size_t pos = 0;
  // Lines end as LineInput ends them: CR LF, CR or LF.
  while (pos < text.size()) {
    size_t end = text.find_first_of("\r\n", pos);
    if (end == std::string_view::npos) end = text.size();
    if (!scan.Take(std::string(text.substr(pos, end - pos)), value, found)) break;
    pos = end;
    if (pos == text.size()) break;
    if (text[pos++] == '\r' && pos < text.size() && text[pos] == '\n') ++pos;
  }
  return found ? value : "";
}

bool WriteINIWith(Env& env, const ProfileWrite& write, const std::string& section,
                  const std::string& key, const std::string& value) {
  const std::string stripped = StripEnds(value, kValueBlanks);
  if (section.empty()) return false;
  const char* s = section.c_str();
  if (key.empty()) return Retry(env, [&] { return write(s, nullptr, nullptr); }, false);
  const char* k = key.c_str();
  if (!stripped.empty())
    return Retry(env, [&] { return write(s, k, stripped.c_str()); }, true);
  if (write(s, k, "")) return true;
  if (env.LastWriteFailureIsPermanent()) return false;
  return Retry(env, [&] { return write(s, k, nullptr); }, false);
}

bool WriteINIFile(Env& env, const std::string& file_name, const std::string& section,
                  const std::string& key, const std::string& value) {
  if (file_name.empty()) return false;
  return WriteINIWith(
      env,
      [&](const char* s, const char* k, const char* v) {
        return env.WriteProfileString(s, k, v, file_name);
      },
      section, key, value);
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
