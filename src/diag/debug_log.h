// The optional debug log: comma-separated records, every field in double
// quotes, each written by one open, write and close of the file. It renews
// itself (the old one kept as ".bak") when it grows past MaxLogSize.
#pragma once

#include <cstdio>
#include <string>

namespace ferrow {

struct Session;

constexpr int32_t kDefaultMaxLogSize = 5242880;

// Writes one record of Text1 (always) and Text2..Text4 (each only when not
// empty) to `file_name`, when logging is enabled.
void LogEvent(Session& session, const std::string& file_name, const std::string& text1,
              const std::string& text2 = "", const std::string& text3 = "",
              const std::string& text4 = "");

// Writes the date and time fields of a record, without ending the line.
void WriteLogStamp(Session& session, std::FILE* file);

}  // namespace ferrow
