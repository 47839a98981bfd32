#include <cstdlib>

#include "display/rich_document.h"
#include "support/codepage.h"

namespace ferrow {
namespace {

enum class Destination { kText, kFontTable, kColourTable, kSkip };

struct GroupState {
  Destination dest = Destination::kText;
  int colour_index = 0;
  bool bold = false;
  int unicode_skip = 1;  // \ucN: fallback characters after each \uN
};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexValue(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool IsSkippedDestination(const std::string& word) {
  static const char* const kSkipped[] = {
      "stylesheet", "info",     "pict",      "header",   "footer",   "headerl",  "headerr",
      "footerl",    "footerr",  "footnote",  "fldinst",  "object",   "listtable",
      "listoverridetable", "rsidtbl", "xmlnstbl", "themedata", "colorschememapping",
      "datastore", "latentstyles", "mmathPr", "generator", "filetbl", "revtbl"};
  for (const char* skipped : kSkipped)
    if (word == skipped) return true;
  return false;
}

class Reader {
 public:
  explicit Reader(std::string_view input) : in_(input) {}

  RichDocument Read() {
    while (pos_ < in_.size()) {
      char c = in_[pos_++];
      if (c == '{') {
        Flush();
        stack_.push_back(state_);
      } else if (c == '}') {
        Flush();
        EndGroup();
      } else if (c == '\\') {
        Control();
      } else if (c != '\r' && c != '\n' && !(c == '\0' && stack_.empty())) {
        // Rich-edit controls end the text they stream out with a NUL after the
        // document; a NUL inside the document is a character of the log.
        Byte(c);
      }
    }
    Flush();
    if (!run_.text.empty()) doc_.runs.push_back(run_);
    return std::move(doc_);
  }

 private:
  // The first font named in the font table is the document's font.
  void EndFontName() {
    if (font_done_ || font_name_.empty()) return;
    size_t first = font_name_.find_first_not_of(' ');
    doc_.font = DecodeBytes(first == std::string::npos ? "" : font_name_.substr(first), code_page_);
    font_done_ = true;
  }

  void EndGroup() {
    if (state_.dest == Destination::kFontTable) EndFontName();
    if (!stack_.empty()) {
      state_ = stack_.back();
      stack_.pop_back();
    }
  }

  // One text byte: kept raw until the next control, so that UTF-8 sequences
  // are decoded whole.
  void Byte(char c) {
    if (skip_fallback_ > 0) {
      --skip_fallback_;
      return;
    }
    switch (state_.dest) {
      case Destination::kText: raw_ += c; break;
      case Destination::kFontTable:
        if (c == ';') EndFontName();
        else if (!font_done_) font_name_ += c;
        break;
      case Destination::kColourTable:
        if (c == ';') {
          colours_.push_back(pending_colour_);
          pending_colour_ = 0;
        }
        break;
      case Destination::kSkip: break;
    }
  }

  void Flush() {
    if (raw_.empty()) return;
    Emit(DecodeBytes(raw_, code_page_));
    raw_.clear();
  }

  void Emit(const std::string& text) {
    if (state_.dest != Destination::kText || text.empty()) return;
    const bool has_colour = state_.colour_index > 0 &&
                            static_cast<size_t>(state_.colour_index) < colours_.size();
    const Colour colour = has_colour ? colours_[state_.colour_index] : 0;
    if (!run_.text.empty() &&
        (run_.has_colour != has_colour || run_.colour != colour || run_.bold != state_.bold)) {
      doc_.runs.push_back(std::move(run_));
      run_ = RichRun();
    }
    if (run_.text.empty()) {
      run_.has_colour = has_colour;
      run_.colour = colour;
      run_.bold = state_.bold;
    }
    run_.text += text;
  }

  void EmitCodePoint(char32_t c) {
    std::string text;
    AppendUtf8(text, c);
    Emit(text);
  }

  void Control() {
    if (pos_ >= in_.size()) return;
    const char c = in_[pos_];
    if (!IsLetter(c)) {
      ++pos_;
      Symbol(c);
      return;
    }
    Flush();
    size_t start = pos_;
    while (pos_ < in_.size() && IsLetter(in_[pos_])) ++pos_;
    std::string word(in_.substr(start, pos_ - start));
    bool has_number = false;
    long number = 0;
    size_t num_start = pos_;
    if (pos_ < in_.size() && (in_[pos_] == '-' || IsDigit(in_[pos_]))) {
      ++pos_;
      while (pos_ < in_.size() && IsDigit(in_[pos_]) && pos_ - num_start < 10) ++pos_;
      std::string digits(in_.substr(num_start, pos_ - num_start));
      has_number = digits != "-";
      number = std::strtol(digits.c_str(), nullptr, 10);
    }
    if (pos_ < in_.size() && in_[pos_] == ' ') ++pos_;
    Word(word, has_number, number);
  }

  void Symbol(char c) {
    switch (c) {
      case '\\': case '{': case '}': Byte(c); break;
      case '\'': {
        int hi = pos_ < in_.size() ? HexValue(in_[pos_]) : -1;
        int lo = pos_ + 1 < in_.size() ? HexValue(in_[pos_ + 1]) : -1;
        if (hi < 0) return;
        if (lo < 0) {  // half an escape: drop it
          ++pos_;
          return;
        }
        pos_ += 2;
        Flush();
        if (skip_fallback_ > 0) {
          --skip_fallback_;
          return;
        }
        if (state_.dest == Destination::kText)
          EmitCodePoint(CodePageToUnicode(static_cast<unsigned char>(hi * 16 + lo), code_page_));
        else if (state_.dest == Destination::kFontTable && !font_done_)
          font_name_ += static_cast<char>(hi * 16 + lo);
        break;
      }
      case '*': state_.dest = Destination::kSkip; break;
      case '~': Flush(); EmitCodePoint(0xA0); break;
      case '_': Flush(); EmitCodePoint('-'); break;
      case '\r': case '\n': Flush(); Emit("\n"); break;
      default: break;  // "\-" optional hyphen and the like: nothing to show
    }
  }

  void Word(const std::string& w, bool has_number, long n) {
    if (state_.dest == Destination::kColourTable) {
      if (w == "red" || w == "Red") pending_colour_ |= (n & 0xFF);
      else if (w == "green" || w == "Green") pending_colour_ |= (n & 0xFF) << 8;
      else if (w == "blue" || w == "Blue") pending_colour_ |= (n & 0xFF) << 16;
      return;
    }
    if (w == "fonttbl") state_.dest = Destination::kFontTable;
    else if (w == "colortbl") state_.dest = Destination::kColourTable;
    else if (IsSkippedDestination(w)) state_.dest = Destination::kSkip;
    else if (w == "ansicpg" && has_number) code_page_ = static_cast<int>(n);
    else if (state_.dest != Destination::kText) return;
    else if (w == "par" || w == "line" || w == "sect" || w == "page" || w == "row") Emit("\n");
    else if (w == "tab" || w == "cell") Emit("\t");
    else if (w == "cf") state_.colour_index = has_number ? static_cast<int>(n) : 0;
    else if (w == "b") state_.bold = !has_number || n != 0;
    else if (w == "plain") state_ = GroupState{Destination::kText, 0, false, state_.unicode_skip};
    else if (w == "fs" && has_number && doc_.font_size == 0) doc_.font_size = static_cast<int>(n / 2);
    else if (w == "uc" && has_number) state_.unicode_skip = static_cast<int>(n < 0 ? 0 : n);
    else if (w == "u" && has_number) {
      long code = n < 0 ? n + 65536 : n;
      UnicodeUnit(static_cast<char32_t>(code));
      skip_fallback_ = state_.unicode_skip;
    }
  }

  // \uN gives UTF-16 units; a surrogate pair comes as two of them.
  void UnicodeUnit(char32_t unit) {
    if (unit >= 0xD800 && unit < 0xDC00) {
      high_surrogate_ = unit;
      return;
    }
    if (unit >= 0xDC00 && unit < 0xE000 && high_surrogate_) {
      EmitCodePoint(0x10000 + ((high_surrogate_ - 0xD800) << 10) + (unit - 0xDC00));
    } else {
      EmitCodePoint(unit);
    }
    high_surrogate_ = 0;
  }

  std::string_view in_;
  size_t pos_ = 0;
  GroupState state_;
  std::vector<GroupState> stack_;
  std::string raw_;
  RichDocument doc_;
  RichRun run_;
  std::vector<Colour> colours_;
  Colour pending_colour_ = 0;
  std::string font_name_;
  bool font_done_ = false;
  int code_page_ = 1252;
  int skip_fallback_ = 0;
  char32_t high_surrogate_ = 0;
};

}  // namespace

RichDocument ReadRtf(std::string_view document) { return Reader(document).Read(); }

std::string RichDocument::PlainText() const {
  std::string text;
  for (const RichRun& run : runs) text += run.text;
  return text;
}

}  // namespace ferrow
