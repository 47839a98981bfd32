#include "diag/debug_log.h"

#include "session/session.h"
#include "support/dates.h"

namespace ferrow {
namespace {

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string TwoDigits(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

void Put(std::FILE* file, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), file);
}

}  // namespace

void WriteLogStamp(Session& session, std::FILE* file) {
  const std::tm now = LocalTime(session.env.Now());
  const std::string sep = session.env.SystemDateSeparator();
  const std::string date = std::to_string(now.tm_year + 1900) + sep + TwoDigits(now.tm_mon + 1) +
                           sep + TwoDigits(now.tm_mday);
  Put(file, Quoted(date) + "," + Quoted(session.env.SystemLongTime(now)));
}

void LogEvent(Session& session, const std::string& file_name, const std::string& text1,
              const std::string& text2, const std::string& text3, const std::string& text4) {
  Options& options = session.options;
  Env& env = session.env;
  if (file_name.empty()) return;
  if (options.MaxLogSize < 1) options.MaxLogSize = kDefaultMaxLogSize;
  if (!options.LoggingEnabled) return;

  const std::tm started = LocalTime(env.Now());
  bool fresh = true;
  if (auto length = env.FileLength(file_name)) {
    if (*length > options.MaxLogSize) {
      env.RemoveFile(file_name + ".bak");
      env.RenameFile(file_name, file_name + ".bak");
    } else {
      fresh = false;
    }
  }
  std::FILE* file = env.OpenStream(file_name, fresh ? "wb" : "ab");
  if (!file) return;  // nobody to tell: the program goes on
  if (fresh) {
    WriteLogStamp(session, file);
    Put(file, "," + Quoted("Log cleared/started on " + env.SystemLongDate(started) + " at " +
                           env.SystemLongTime(started)) + "\r\n");
  }
  WriteLogStamp(session, file);
  Put(file, "," + Quoted(text1));
  for (const std::string* text : {&text2, &text3, &text4})
    if (!text->empty()) Put(file, "," + Quoted(*text));
  Put(file, "\r\n");
  std::fclose(file);
}

}  // namespace ferrow
