#include "testing/unrtf.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "support/codepage.h"  // AppendUtf8
#include "testing/temp_dir.h"

namespace ferrow::testing {
namespace {

// unrtf's own table of the entities it writes, turned round: its keys are
// code points, as "<Uhex>" or in decimal (the first entry for an entity wins:
// later ones are the symbol font's private code points).
std::map<std::string, char32_t> EntityTable() {
  std::map<std::string, char32_t> table;
  std::ifstream conf("/usr/share/unrtf/html.conf");
  std::string key, line;
  while (std::getline(conf, line)) {
    if (!line.empty() && line[0] == '\t' && !key.empty() && line[1] == '&') {
      char32_t c = 0;
      if (key.rfind("<U", 0) == 0) c = static_cast<char32_t>(std::stoul(key.substr(2), nullptr, 16));
      else if (key.find_first_not_of("0123456789") == std::string::npos)
        c = static_cast<char32_t>(std::stoul(key));
      if (c) table.emplace(line.substr(1), c);
    }
    key = line.empty() || line[0] == '\t' ? std::string() : line;
  }
  return table;
}

std::string HtmlBodyText(const std::string& html) {
  const auto table = EntityTable();
  const size_t body = html.find("<body>"), end = html.rfind("</body>");
  if (body == std::string::npos || end == std::string::npos) return {};
  std::string out;
  char32_t high = 0;
  for (size_t i = body + 6; i < end;) {
    if (html.compare(i, 4, "<br>") == 0) {
      out += '\n';
      i += 4;
    } else if (html[i] == '<') {
      i = html.find('>', i) + 1;
    } else if (html[i] == '\n' || html[i] == '\r') {
      ++i;
    } else if (html[i] == '&') {
      const size_t semi = html.find(';', i);
      const std::string entity = html.substr(i, semi + 1 - i);
      i = semi + 1;
      char32_t c = 0xFFFD;
      if (entity.rfind("&#", 0) == 0) c = static_cast<char32_t>(std::stoul(entity.substr(2)));
      else if (table.count(entity)) c = table.at(entity);
      if (c >= 0xD800 && c < 0xDC00) {
        high = c;
        continue;
      }
      if (c >= 0xDC00 && c < 0xE000 && high) c = 0x10000 + ((high - 0xD800) << 10) + (c - 0xDC00);
      high = 0;
      AppendUtf8(out, c);
    } else {
      out += html[i++];
    }
  }
  return out;
}

}  // namespace

bool UnrtfInstalled() { return std::system("command -v unrtf >/dev/null 2>&1") == 0; }

std::optional<std::string> UnrtfText(const std::string& rtf_file) {
  TempDir dir;
  const std::string html = dir.File("out.html");
  if (std::system(("unrtf --html '" + rtf_file + "' > '" + html + "' 2>/dev/null").c_str()) != 0)
    return std::nullopt;
  std::ifstream in(html, std::ios::binary);
  std::stringstream all;
  all << in.rdbuf();
  return HtmlBodyText(all.str());
}

}  // namespace ferrow::testing
