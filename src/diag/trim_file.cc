#include "diag/trim_file.h"

#include <functional>
#include <string_view>

#include "diag/backup_file.h"
#include "diag/debug_log.h"
#include "diag/error_report.h"
#include "session/session.h"
#include "support/dates.h"
#include "support/flib.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {
namespace {

using namespace std::string_view_literals;

constexpr int kPassLimit = 20000;

bool IsHeader(const std::string& line) {
  return !line.empty() && line[0] == '[' && line.find(']') != std::string::npos;
}
constexpr int kProfileLockWaitMs = 5000;
const std::string kHeaderPrefix = kTrimHeaderPrefix;

class Trimmer {
 public:
  explicit Trimmer(Session& s) : s_(s), o_(s.options), files_(s.env) {}

  bool Run(const std::string& file_name, const std::vector<std::string>& known, bool filter);
  bool hang() const { return hang_; }
  // Run gave up at a step that reports its own failure and skips the summary.
  bool gave_up() const { return gave_up_; }

 private:
  void Log(const std::string& rest) {
    if (o_.Debug) LogEvent(s_, o_.LogFileName, "Trimfile(" + o_.IniFileName + rest);
  }
  // The error handler: keep the number, log it (end of file marked as safe)
  // and go on with the next statement.
  void Trap(int error) {
    err_ = error;
    if (!o_.Debug) return;
    std::string text = ErrorText(error, ErrorDescription(error), s_.ErrorLine, "TrimFile");
    if (error == kErrPastEndOfFile) text = "Safe " + text;
    LogEvent(s_, o_.LogFileName, text);
  }
  void Step(int16_t step) { s_.ErrorLine = step; }
  void Put(int16_t file, const std::string& bytes) {
    if (int e = files_.Put(file, bytes)) {
      Trap(e);
      write_failed_ = true;
    }
  }
  // Reads the lines of `file` into `take`: at most kPassLimit passes, ending
  // at the end of the file. The error number is kept across passes, so after
  // a read error every further pass skips its line.
  void EachLine(int16_t file, int16_t read_step, const std::function<void(std::string&)>& take);
  bool KeepKeyLine(const std::string& line, const std::vector<std::string>& known);
  bool HasCommonSection(const std::string& file_name);
  void CopyKnownLines(int16_t source, int16_t temp, const std::vector<std::string>& known,
                      bool filter);

  Session& s_;
  Options& o_;
  FileTable files_;
  int err_ = 0;
  bool hang_ = false;
  bool write_failed_ = false;
  bool gave_up_ = false;
};

void Trimmer::EachLine(int16_t file, int16_t read_step, const std::function<void(std::string&)>& take) {
  err_ = 0;
  int count = 0;
  std::string line;
  while (!files_.Eof(file) && count < kPassLimit) {
    ++count;
    Step(read_step);
    if (int e = files_.LineInput(file, line)) Trap(e);
    Step(static_cast<int16_t>(read_step + 2));
    if (err_ == kErrPastEndOfFile) break;
    if (err_ != 0) continue;
    take(line);
  }
  if (count >= kPassLimit) hang_ = true;
}

bool Trimmer::KeepKeyLine(const std::string& line, const std::vector<std::string>& known) {
  Step(130);
  const std::string key = KeyOf(line);
  for (size_t i = 1; i < known.size(); ++i) {
    Step(131);
    const std::string& entry = known[i];
    size_t star = entry.find('*');
    if (star == std::string::npos || star == 0) {
      Step(134);
      if (EqualsNoCase(key, entry)) return true;
    } else {
      Step(132);
      Step(133);
      if (EqualsNoCase(key.substr(0, star), entry.substr(0, star))) return true;
    }
  }
  return false;
}

void Trimmer::CopyKnownLines(int16_t source, int16_t temp, const std::vector<std::string>& known,
                          bool filter) {
  EachLine(source, 42, [&](std::string& raw) {
    Step(46);
    std::string line = Trim(RemoveChars(raw, "\r\n\t\0"sv));
    Step(50);
    if (line.empty()) return;
    if (!filter) {
      Step(100);
      Put(temp, line + "\r\n");
    } else if (line[0] == ';') {
      Step(120);
      if (!StartsWithNoCase(line, kHeaderPrefix)) Put(temp, line + "\r\n");
    } else if (IsHeader(line) || line.find('=') == std::string::npos || line[0] == '=') {
      // A header may hold "=" in its name ([job=42.log]): it is no key line.
      if (line[0] == '[') {
        Step(150);
        Put(temp, "\r\n" + line + "\r\n");
      }
    } else if (KeepKeyLine(line, known)) {
      Step(140);
      Put(temp, line + "\r\n");
      Step(141);
    }
  });
}

// The trimmed text is built whole in a temporary file beside the old one and
// synced to disk, then put in the old one's place in one step, so that at
// every moment (a crash, a kill, a full disk) the file is the old one or the
// trimmed one.
bool Trimmer::Run(const std::string& file_name, const std::vector<std::string>& known, bool filter) {
  std::string folder = FolderPart(file_name);
  EnsureTrailingSlash(folder);
  Step(12);
  std::string name = file_name;
  const std::string backup = BackupFile(s_.env, name, false);
  Step(13);
  // A file that lost its [Common] section is no copy worth keeping in place
  // of the last good one.
  if (!backup.empty() && HasCommonSection(file_name)) {
    Step(14);
    if (FileExists(s_.env, backup) && Unlink(s_.env, backup) != 0) {
      Log(") Failed to unlink(" + backup + ")");
      gave_up_ = true;
      return false;
    }
    Step(15);
    if (!s_.env.CopyWholeFile(file_name, backup)) {
      ReportError(s_, 75, ErrorDescription(75), s_.ErrorLine, "TrimFile");
      Log(") Failed to filecopy(" + file_name + "," + backup + ")");
      gave_up_ = true;
      return false;
    }
  }

  // Held to the end, so that no profile write of another process lands in the
  // middle of the rewrite (or is lost between our read and our rewrite). The
  // file is opened for writing too, so that a file nobody may write is left
  // as it is.
  Step(18);
  auto profile_lock = s_.env.LockProfile(file_name, kProfileLockWaitMs);
  int16_t source = profile_lock ? files_.FOpen(file_name, "wb", "") : 0;
  Step(20);
  if (source == 0) {
    Log(") Failed to fopen(" + file_name + ") @18");
    gave_up_ = true;
    return false;
  }

  bool success = false;
  std::string temp_name = MakeTempFile(s_.env, folder, "TMP");
  int16_t temp = 0;
  if (!temp_name.empty()) {
    Step(30);
    temp = files_.FOpen(temp_name, "wb", "");
  }
  if (temp != 0) {
    const std::tm now = LocalTime(s_.env.Now());
    Put(temp, kHeaderPrefix + kTrimVersion + " [" + file_name + "] written at " +
                  s_.env.SystemShortDate(now) + " " + s_.env.SystemLongTime(now) + "\r\n");
    // On disk at once: a trim killed from here on leaves a file that says
    // whose it is, which the next start removes.
    if (int e = files_.Commit(temp)) {
      Trap(e);
      write_failed_ = true;
    }
    Step(40);
    CopyKnownLines(source, temp, known, filter);
    Step(200);
    if (int e = files_.Commit(temp)) {
      Trap(e);
      write_failed_ = true;
    }
    files_.Close(temp);
    temp = 0;
    files_.Close(source);
    source = 0;
    Step(210);
    if (write_failed_) {
      Log(") Failed to write(" + temp_name + ")");
    } else if (!s_.env.ReplaceWithFile(temp_name, file_name)) {
      Log(") Failed to replace(" + file_name + "," + temp_name + ")");
    } else {
      success = true;
    }
  }
  Step(280);
  if (temp) files_.Close(temp);
  Step(290);
  if (source) files_.Close(source);
  Step(300);
  if (!temp_name.empty() && FileExists(s_.env, temp_name)) Unlink(s_.env, temp_name);
  return success;
}

bool Trimmer::HasCommonSection(const std::string& file_name) {
  FileTable files(s_.env);
  const int16_t file = files.FOpen(file_name, "r", "");
  std::string line;
  while (file != 0 && files.LineInput(file, line) == 0) {
    line = Trim(RemoveChars(line, "\r\n\t\0"sv));
    if (IsHeader(line) && EqualsNoCase(Trim(line.substr(1, line.rfind(']') - 1)), "Common"))
      return true;
  }
  return false;
}

}  // namespace

bool TrimFile(Session& s, const std::string& file_name, const std::vector<std::string>& known_keys,
              bool filter_keys) {
  Options& o = s.options;
  auto log = [&](const std::string& rest) {
    if (o.Debug) LogEvent(s, o.LogFileName, "Trimfile(" + o.IniFileName + rest);
  };
  s.ErrorLine = 10;
  if (o.PrevInstance) {
    log(") aborted due to app.previnstance");
    return false;
  }
  log(") Got last app.instance OK");
  bool success = false, hang = false;
  if (FileExists(s.env, file_name)) {
    Trimmer trim(s);
    success = trim.Run(file_name, known_keys, filter_keys);
    if (trim.gave_up()) return false;
    hang = trim.hang();
  }
  if (hang) log(") while loop hang detected");
  log(success ? ") success" : ") failed!");
  return success;
}

}  // namespace ferrow
