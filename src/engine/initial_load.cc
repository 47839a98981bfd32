// The initial load: the end of the file as one rich-text document.
#include <deque>

#include "about/product.h"
#include "display/rtf_compose.h"
#include "display/text_box.h"
#include "engine/file_reader.h"
#include "engine/follow_windows.h"
#include "engine/follower.h"
#include "platform/env.h"
#include "session/session.h"
#include "support/dates.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/tokenize.h"

namespace ferrow {
namespace {

constexpr int32_t kMaxLoadBuffer = 1048576;
constexpr int kMaxLines = 1 << 30;

// The document while it is built: the header, then one CR LF-ended piece per
// line. Dropping the oldest line is dropping the first piece, so keeping the
// document within the buffer costs nothing per line however many are dropped,
// and gives the same document as stripping the text line by line.
class Document {
 public:
  explicit Document(std::string header) : header_(std::move(header)), length_(header_.size()) {}

  size_t length() const { return length_; }
  void Append(std::string piece) {
    length_ += piece.size();
    pieces_.push_back(std::move(piece));
  }
  // False when no line follows the header (the stripped document is empty).
  bool StripOldestLine() {
    if (pieces_.empty()) return false;
    length_ -= pieces_.front().size();
    pieces_.pop_front();
    return true;
  }
  std::string Text() const {
    std::string text;
    text.reserve(length_ + 1);
    text += header_;
    for (const std::string& piece : pieces_) text += piece;
    return text;
  }

 private:
  std::string header_;
  std::deque<std::string> pieces_;
  size_t length_;
};

}  // namespace

std::string StripRTFLine(const std::string& document, size_t offset) {
  const size_t end = document.find("\r\n", offset);
  if (end == std::string::npos) return "";
  return document.substr(0, offset) + document.substr(end + 2);
}

void Follower::LoadFileToTextBox(const std::string& file_name, TextBox& box, int32_t lines_to_read) {
  Options& o = session_.options;
  Env& env = session_.env;
  o.MaxInputLength = std::min(o.MaxInputLength, kMaxLoadBuffer);
  const int32_t buffer = o.MaxInputLength;
  if (file_name.empty() || !AcceptedTextBox(box) || !FileExists(env, file_name)) return;

  const std::string bare_name = FileNamePart(file_name);
  box.SetText("Loading file " + file_name);
  env.LetEventsRun();
  if (!windows_.StillShowing(box)) return;
  windows_.SetTextWindowCaption(std::string(kProductName) + " - Loading " + bare_name + "...");
  box.SetEnabled(false);

  const bool bold = box.FontBold();
  Document document(DocumentStart(session_, box.FontSize(), bold));

  const int64_t length = env.FileLength(file_name).value_or(0);
  std::string bytes;
  if (lines_to_read != 0) {
    auto file = env.OpenShared(file_name);
    // Only what the buffer can show is read; the scan lets window events run.
    std::optional<std::string> last =
        file ? ReadLastLines(*file, length, lines_to_read, buffer > 0 ? buffer : kNoReadLimit,
                             [&env] { env.LetEventsRun(); })
             : std::nullopt;
    if (!last) {
      session_.ui.ShowMessage("File " + file_name + " is not accessible", "Error",
                              MessageIcon::Information);
      return;
    }
    bytes = std::move(*last);
  } else {
    bytes = ReadFileTail(env, file_name, length, buffer);
  }
  std::vector<std::string> lines;
  Tokenize(decoder_.DecodeFresh(bytes), "\r\n", lines, kMaxLines);
  bytes.clear();

  int64_t characters = 0;
  for (size_t i = 1; i <= lines.size(); ++i) {
    const std::string& line = lines[i - 1];
    characters += static_cast<int64_t>(line.size());
    while (buffer > 0 && document.length() >= static_cast<size_t>(buffer)) {
      if (document.StripOldestLine()) continue;
      document.Append("* " + LongDateText(LocalTime(env.Now())) + " Log window cleared *\r\n");
      break;  // a buffer smaller than the header would otherwise never be satisfied
    }
    document.Append(DocumentLine(session_, line, bold));
    if (i % 100 == 0) {
      windows_.SetTextWindowCaption(std::string(kProductName) + " - Loading " + bare_name + " - " +
                                    std::to_string(i) + " lines read (" + GroupDigits(characters) +
                                    " bytes) " + std::string((i / 50) % 10, '.'));
      env.LetEventsRun();
      if (!windows_.StillShowing(box)) return;  // the user closed the window, or the program
    }
  }
  lines.clear();

  box.SetBackColor(o.BackColour);
  box.SetEnabled(true);
  box.SetTextRTF(document.Text() + "}");
  box.Refresh();
  box.SetSelStart(box.TextLength());
  box.Refresh();
  UpdateCaption();
}

}  // namespace ferrow
