#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "desktop_entry.h"
#include "ferrow_helper.h"
#include "helper_platform.h"
#include "launcher_trust.h"

namespace ferrow::helper {
namespace {

std::string Home() {
  const char* home = std::getenv("HOME");
  return home ? home : "";
}

// XDG_DESKTOP_DIR from user-dirs.dirs: a line XDG_DESKTOP_DIR="$HOME/Desktop".
std::string XdgDesktop() {
  const char* config = std::getenv("XDG_CONFIG_HOME");
  std::string file = (config && *config ? std::string(config) : Home() + "/.config") + "/user-dirs.dirs";
  std::ifstream in(file);
  std::string line;
  while (std::getline(in, line)) {
    const std::string key = "XDG_DESKTOP_DIR=\"";
    if (line.compare(0, key.size(), key) != 0) continue;
    std::string value = line.substr(key.size());
    size_t close = value.rfind('"');
    if (close == std::string::npos) return "";
    value.erase(close);
    if (value.compare(0, 5, "$HOME") == 0) value = Home() + value.substr(5);
    return value;
  }
  return "";
}

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string ProgramPath() {
  char path[4096];
  const ssize_t n = ::readlink("/proc/self/exe", path, sizeof path - 1);
  return n > 0 ? std::string(path, static_cast<size_t>(n)) : "";
}

bool WriteFile(const std::string& path, const std::string& bytes) {
  std::FILE* out = std::fopen(path.c_str(), "wb");
  if (!out) return false;
  bool ok = std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
  return (std::fclose(out) == 0) && ok;
}

// What a Linux desktop starts: a launcher that runs this program on the file.
bool MakeLauncher(const std::string& target, const std::string& link) {
  const std::string text = desktop::WriteLauncher({ProgramPath(), target, FERROW_APP_ID});
  if (text.empty() || !WriteFile(link, text)) return false;
  MarkLauncherTrusted(link);
  return true;
}

}  // namespace

char* AllocString(const std::string& text) {
  char* copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (copy) std::memcpy(copy, text.c_str(), text.size() + 1);
  return copy;
}

std::string LibraryPath() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<void*>(&DLLVersion), &info) || !info.dli_fname) return "";
  char resolved[4096];
  return realpath(info.dli_fname, resolved) ? resolved : info.dli_fname;
}

std::string DesktopFolder() {
  std::string desktop = XdgDesktop();
  return desktop.empty() ? Home() + "/Desktop" : desktop;
}

bool MakeShortcut(const std::string& target, const std::string& link,
                  const std::string& description, int show_command) {
  if (EndsWith(link, ".desktop")) return MakeLauncher(target, link);
  lnk::NewLink shortcut;
  shortcut.target = target;
  shortcut.description = description;
  shortcut.show_command = show_command;
  size_t slash = target.find_last_of('/');
  if (slash != std::string::npos) shortcut.working_folder = slash == 0 ? "/" : target.substr(0, slash);
  struct stat info {};
  if (::stat(target.c_str(), &info) == 0) {
    shortcut.target_size = static_cast<uint32_t>(info.st_size);
    shortcut.target_is_folder = S_ISDIR(info.st_mode);
  }
  return WriteFile(link, lnk::WriteLink(shortcut));
}

std::string SystemText(const lnk::LinkTarget& target) { return target.path; }

}  // namespace ferrow::helper
