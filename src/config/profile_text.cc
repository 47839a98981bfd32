#include "config/profile_text.h"

#include <vector>

#include "support/strings.h"

namespace ferrow {
namespace {

struct Line {
  std::string_view body;  // without its line end
  std::string_view end;   // "\r\n", "\n", "\r" or "" for an unterminated last line
};

std::vector<Line> SplitLines(std::string_view text) {
  std::vector<Line> lines;
  size_t pos = 0;
  while (pos < text.size()) {
    size_t stop = text.find_first_of("\r\n", pos);
    if (stop == std::string_view::npos) {
      lines.push_back({text.substr(pos), {}});
      break;
    }
    size_t width = (text[stop] == '\r' && stop + 1 < text.size() && text[stop + 1] == '\n') ? 2 : 1;
    lines.push_back({text.substr(pos, stop - pos), text.substr(stop, width)});
    pos = stop + width;
  }
  return lines;
}

// A line without the blanks and tabs at its ends, as the reader sees it.
std::string_view LineView(std::string_view body) {
  const size_t first = body.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return body.substr(first, body.find_last_not_of(" \t") - first + 1);
}

// The section name of a header line "[name]", or nothing. The name runs to
// the last "]", so that a followed file called log[1].txt is found again.
std::optional<std::string_view> HeaderName(std::string_view body) {
  std::string_view t = LineView(body);
  if (t.empty() || t.front() != '[') return std::nullopt;
  size_t close = t.rfind(']');
  if (close == std::string_view::npos) return std::nullopt;
  return TrimView(t.substr(1, close - 1));
}

bool IsEntry(std::string_view body) {
  std::string_view t = LineView(body);
  return !t.empty() && t.front() != ';';
}

// The key of an entry line: the trimmed text before "=", or the whole line.
std::string_view EntryKey(std::string_view body) {
  std::string_view t = LineView(body);
  return TrimView(t.substr(0, t.find('=')));
}

void Append(std::string& out, const Line& line) {
  out.append(line.body);
  out.append(line.end);
}

}  // namespace

std::string ApplyProfileWrite(std::string_view text, std::string_view section,
                              std::optional<std::string_view> key,
                              std::optional<std::string_view> value) {
  while (!text.empty() && text.back() == '\0') text.remove_suffix(1);
  std::vector<Line> lines = SplitLines(text);

  // Locate the section [first, last) of body lines and, within it, the key
  // line and the last entry line.
  size_t header = lines.size(), last = lines.size();
  for (size_t i = 0; i < lines.size(); ++i) {
    auto name = HeaderName(lines[i].body);
    if (!name) continue;
    if (header == lines.size()) {
      if (EqualsNoCase(*name, section)) header = i;
    } else {
      last = i;
      break;
    }
  }
  const bool found = header < lines.size();
  size_t key_line = lines.size(), last_entry = header;
  if (found && key) {
    for (size_t i = header + 1; i < last; ++i) {
      if (!IsEntry(lines[i].body)) continue;
      last_entry = i;
      if (key_line == lines.size() && EqualsNoCase(EntryKey(lines[i].body), *key)) key_line = i;
    }
  }

  std::string out;
  out.reserve(text.size() + section.size() + 64);
  const std::string new_entry =
      key && value ? std::string(*key) + "=" + std::string(*value) : std::string();

  for (size_t i = 0; i < lines.size(); ++i) {
    const Line& line = lines[i];
    if (found && !key && i >= header && i < last) continue;         // section deleted
    if (key_line == i && !value) continue;                          // key deleted
    if (key_line == i) {                                            // key rewritten in place
      out += std::string(EntryKey(line.body)) + "=" + std::string(*value);
      out.append(line.end.empty() ? std::string_view("\r\n") : line.end);
      continue;
    }
    Append(out, line);
    if (found && key && value && key_line == lines.size() && i == last_entry) {
      if (line.end.empty()) out += "\r\n";
      out += new_entry + "\r\n";
    }
  }

  if (!found && key && value) {
    if (!lines.empty() && lines.back().end.empty()) out += "\r\n";
    out += "[" + std::string(section) + "]\r\n" + new_entry + "\r\n";
  }
  return out;
}

}  // namespace ferrow
