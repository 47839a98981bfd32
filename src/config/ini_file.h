// Reading and writing the shared configuration (INI) file by section and key.
// Every read opens, scans and closes the file, so a value another process has
// written is seen at the next read; every write goes through the platform's
// profile writer. Neither reports anything: "" and false say it all.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace ferrow {

class Env;

// The value of `key` in `section`, or "" when the file, section or key is
// missing or an argument is empty. Retries the open 50 times, 25 ms apart.
std::string ReadINIFile(Env& env, const std::string& file_name, const std::string& section,
                        const std::string& key);

// Writes Key=Value (retrying 200 times, 25 ms apart). An empty key deletes the
// section; an empty value leaves "Key=" and deletes the key only when that
// cannot be written.
bool WriteINIFile(Env& env, const std::string& file_name, const std::string& section,
                  const std::string& key, const std::string& value);

// True when the key holds a recognised boolean (YES/1/TRUE, NO/0/FALSE, any
// case, quotes and blanks ignored), which is then stored in `value`; false,
// with `value` set false, otherwise.
bool ReadINIBool(Env& env, const std::string& file_name, const std::string& section,
                 const std::string& key, bool& value);

// ReadINIFile's rules applied to a file's text already in memory.
std::string FindINIValue(std::string_view text, const std::string& section,
                         const std::string& key);

// WriteINIFile's rules (the value stripped, the retries, the empty value)
// over any profile writer: WriteProfileString(section, key, value).
using ProfileWrite = std::function<bool(const char* section, const char* key, const char* value)>;
bool WriteINIWith(Env& env, const ProfileWrite& write, const std::string& section,
                  const std::string& key, const std::string& value);

bool WriteINIBool(Env& env, const std::string& file_name, const std::string& section,
                  const std::string& key, bool value);

}  // namespace ferrow
