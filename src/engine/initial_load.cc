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
#include "support/text_encoding.h"
#include "support/tokenize.h"

namespace ferrow {
namespace {

constexpr int32_t kMaxLoadBuffer = 1048576;
constexpr int kMaxLines = 1 << 30;

// The document while it is built: the header, then one CR LF-ended piece per
// line. Its length counts characters, as the box will. Dropping the oldest line is dropping the first piece, so keeping the
// document within the buffer costs nothing per line however many are dropped,
// and gives the same document as stripping the text line by line.
class Document {
 public:
  explicit Document(std::string header)
      : header_(std::move(header)), length_(Utf16Length(header_)) {}

  size_t length() const { return length_; }
  void Append(std::string piece) {
    const size_t characters = Utf16Length(piece);
    length_ += characters;
    pieces_.emplace_back(std::move(piece), characters);
  }
  // False when no line follows the header (the stripped document is empty).
  bool StripOldestLine() {
    if (pieces_.empty()) return false;
    length_ -= pieces_.front().second;
    pieces_.pop_front();
    return true;
  }
  std::string Text() const {
    std::string text;
    text.reserve(length_ + 1);
    text += header_;
    for (const auto& piece : pieces_) text += piece.first;
    return text;
  }

 private:
  std::string header_;
  std::deque<std::pair<std::string, size_t>> pieces_;
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
  bool failed = false;
  std::vector<std::string> lines;
  Tokenize(ReadLoadText(file_name, length, lines_to_read, buffer, &failed), "\r\n", lines, kMaxLines);
  if (failed) {
    session_.ui.ShowMessage("File " + file_name + " is not accessible", "Error",
                            MessageIcon::Information);
    return;
  }

  int64_t characters = 0;
  for (size_t i = 1; i <= lines.size(); ++i) {
    const std::string& line = lines[i - 1];
    characters += static_cast<int64_t>(Utf16Length(line));
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

std::string Follower::ReadLoadText(const std::string& file_name, int64_t length,
                                   int32_t lines_to_read, int32_t buffer, bool* failed) {
  Env& env = session_.env;
  decoder_.LookAtHead(ReadFileHead(env, file_name));
  const TextEncoding encoding = decoder_.encoding();
  if (lines_to_read != 0) {
    // Only what the buffer can show is read (a character is 2 bytes of UTF-16,
    // up to 4 of UTF-8 named by its mark; a file without a mark is read as
    // one byte a character, as ANSI files always were); the scan lets window
    // events run.
    const int64_t unit = encoding == TextEncoding::kUtf8 ? 4 : CodeUnitBytes(encoding);
    auto file = env.OpenShared(file_name);
    std::optional<std::string> last =
        file ? ReadLastLines(*file, length, lines_to_read, buffer > 0 ? unit * buffer : kNoReadLimit,
                             [&env] { env.LetEventsRun(); }, encoding)
             : std::nullopt;
    if (!last) {
      *failed = true;
      return {};
    }
    return decoder_.DecodeAt(*last, length - static_cast<int64_t>(last->size()));
  }
  int64_t offset = 0;
  std::string bytes =
      ReadFileTail(env, file_name, length, buffer, &offset, CodeUnitBytes(encoding));
  const int64_t end = offset + static_cast<int64_t>(bytes.size());
  std::string text = decoder_.DecodeAt(bytes, offset);
  // As many characters as a byte a character would give: UTF-8 needs more bytes.
  const int64_t characters = static_cast<int64_t>(bytes.size() / CodeUnitBytes(encoding));
  if (decoder_.encoding() == TextEncoding::kUtf8 && offset > 0 &&
      static_cast<int64_t>(Utf16Length(text)) < characters) {
    int64_t wide_offset = 0;
    bytes = ReadBefore(env, file_name, end, characters, 4, &wide_offset);
    text = decoder_.DecodeAt(bytes, wide_offset);
    text = std::string(LastCharacters(text, static_cast<size_t>(characters)));
  }
  return text;
}

}  // namespace ferrow
