#include "desktop_entry.h"

#include <vector>

namespace ferrow::desktop {
namespace {

bool Printable(const std::string& text) {
  for (unsigned char c : text)
    if (c < 0x20 || c == 0x7f) return false;
  return !text.empty();
}

// One argument of Exec, always quoted: inside quotes `"`, `` ` ``, `$` and
// `\` take a backslash, and a literal percent sign is written twice.
std::string QuoteArgument(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    if (c == '"' || c == '`' || c == '$' || c == '\\') out += '\\';
    if (c == '%') out += '%';
    out += c;
  }
  return out + "\"";
}

// A value of type string: backslashes are themselves escaped in the file.
std::string EscapeValue(const std::string& text) {
  std::string out;
  for (char c : text) {
    if (c == '\\') out += '\\';
    out += c;
  }
  return out;
}

std::string UnescapeValue(const std::string& text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      out += text[i];
      continue;
    }
    const char c = text[++i];
    out += c == 's' ? ' ' : c == 'n' ? '\n' : c == 't' ? '\t' : c == 'r' ? '\r' : c;
  }
  return out;
}

// Exec's arguments after its quoting rules; field codes are left out. None
// for a line that breaks the rules.
std::vector<std::string> SplitExec(const std::string& exec) {
  std::vector<std::string> args;
  std::string current;
  bool in_word = false, quoted = false, field_code = false;
  for (size_t i = 0; i < exec.size(); ++i) {
    const char c = exec[i];
    if (quoted) {
      if (c == '"') quoted = false;
      else if (c == '\\' && i + 1 < exec.size()) current += exec[++i];
      else if (c == '%' && i + 1 < exec.size() && exec[i + 1] == '%') current += exec[++i];
      else current += c;
    } else if (c == ' ' || c == '\t') {
      if (in_word && !field_code) args.push_back(current);
      current.clear();
      in_word = field_code = false;
    } else if (c == '"') {
      quoted = in_word = true;
    } else if (c == '%' && i + 1 < exec.size()) {
      in_word = true;
      if (exec[++i] == '%') current += '%';
      else field_code = true;  // %f, %u and the like stand for what the desktop passes
    } else {
      current += c;
      in_word = true;
    }
  }
  if (quoted) return {};  // an unterminated quote makes the whole line invalid
  if (in_word && !field_code) args.push_back(current);
  return args;
}

}  // namespace

std::string WriteLauncher(const NewLauncher& launcher) {
  if (!Printable(launcher.program) || !Printable(launcher.target)) return "";
  const size_t slash = launcher.target.find_last_of("/\\");
  const std::string name = launcher.target.substr(slash == std::string::npos ? 0 : slash + 1);
  std::string text = "[Desktop Entry]\nType=Application\nVersion=1.0\n";
  text += "Name=" + EscapeValue(name.empty() ? launcher.target : name) + "\n";
  text += "Comment=" + EscapeValue("Follow " + launcher.target + " in Ferrow") + "\n";
  text += "Exec=" + EscapeValue(QuoteArgument(launcher.program) + " " +
                                QuoteArgument(launcher.target)) + "\n";
  if (Printable(launcher.icon)) text += "Icon=" + EscapeValue(launcher.icon) + "\n";
  text += "Terminal=false\n";
  return text;
}

std::string ReadLauncherTarget(const std::string& data) {
  bool in_entry = false, application = false;
  std::string exec;
  size_t start = 0;
  while (start < data.size()) {
    size_t end = data.find('\n', start);
    if (end == std::string::npos) end = data.size();
    std::string line = data.substr(start, end - start);
    start = end + 1;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    if (line[0] == '[') {
      in_entry = line == "[Desktop Entry]";
      continue;
    }
    if (!in_entry) continue;
    const size_t equals = line.find('=');
    if (equals == std::string::npos) continue;
    std::string key = line.substr(0, equals), value = line.substr(equals + 1);
    while (!key.empty() && key.back() == ' ') key.pop_back();
    while (!value.empty() && value.front() == ' ') value.erase(0, 1);
    if (key == "Type") application = value == "Application";
    if (key == "Exec") exec = UnescapeValue(value);
  }
  if (!application) return "";
  const std::vector<std::string> args = SplitExec(exec);
  return args.size() >= 2 ? args.back() : "";
}

}  // namespace ferrow::desktop
