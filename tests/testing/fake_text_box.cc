#include "testing/fake_text_box.h"

#include <algorithm>

#include "display/rich_document.h"

namespace ferrow::testing {
namespace {

std::string Normalise(std::string t) {
  std::string out;
  for (size_t i = 0; i < t.size(); ++i) {
    if (t[i] == '\r') {
      out += '\n';
      if (i + 1 < t.size() && t[i + 1] == '\n') ++i;
    } else {
      out += t[i];
    }
  }
  return out;
}

}  // namespace

void FakeTextBox::SetText(const std::string& t) {
  text = Normalise(t);
  colours.assign(text.size(), insert_colour);
  sel_start = sel_length = 0;
}

void FakeTextBox::SetSelStart(int64_t p) {
  sel_start = std::clamp<int64_t>(p, 0, TextLength());
  sel_length = 0;
}

void FakeTextBox::SetSelLength(int64_t n) {
  sel_length = std::clamp<int64_t>(n, 0, TextLength() - sel_start);
}

void FakeTextBox::SetSelText(const std::string& t) {
  std::string in = Normalise(t);
  if (max_length > 0) {
    int64_t room = max_length - (TextLength() - sel_length);
    if (room < static_cast<int64_t>(in.size())) in.resize(static_cast<size_t>(std::max<int64_t>(room, 0)));
  }
  text.replace(sel_start, sel_length, in);
  colours.erase(colours.begin() + sel_start, colours.begin() + sel_start + sel_length);
  colours.insert(colours.begin() + sel_start, in.size(), insert_colour);
  if (in.empty()) ++empty_insertions;
  else insertions.push_back({in, insert_colour});
  sel_start += static_cast<int64_t>(in.size());
  sel_length = 0;
}

std::string FakeTextBox::SelRTF() {
  RichDocument doc;
  doc.font = font_name;
  for (int64_t i = sel_start; i < sel_start + sel_length; ++i) {
    if (doc.runs.empty() || doc.runs.back().colour != colours[i])
      doc.runs.push_back(RichRun{"", true, colours[i], false});
    doc.runs.back().text += text[i];
  }
  return WriteRtf(doc);
}

void FakeTextBox::SetTextRTF(const std::string& document) {
  RichDocument doc = ReadRtf(document);
  text.clear();
  colours.clear();
  for (const RichRun& run : doc.runs) {
    text += run.text;
    colours.insert(colours.end(), run.text.size(), run.has_colour ? run.colour : 0);
  }
  sel_start = TextLength();
  sel_length = 0;
}

int64_t FakeTextBox::LineCount() {
  return 1 + std::count(text.begin(), text.end(), '\n');
}

int64_t FakeTextBox::Find(char c, int64_t from) {
  size_t at = text.find(c, static_cast<size_t>(from));
  return at == std::string::npos ? -1 : static_cast<int64_t>(at);
}

std::vector<Insertion> FakeTextBox::Runs() const {
  std::vector<Insertion> runs;
  for (size_t i = 0; i < text.size(); ++i) {
    if (runs.empty() || runs.back().colour != colours[i]) runs.push_back({"", colours[i]});
    runs.back().text += text[i];
  }
  return runs;
}

}  // namespace ferrow::testing
