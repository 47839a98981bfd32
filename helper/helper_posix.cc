#include <dlfcn.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "ferrow_helper.h"
#include "helper_platform.h"

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
  std::string bytes = lnk::WriteLink(shortcut);
  std::FILE* out = std::fopen(link.c_str(), "wb");
  if (!out) return false;
  bool ok = std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
  return (std::fclose(out) == 0) && ok;
}

std::string SystemText(const lnk::LinkTarget& target) { return target.path; }

}  // namespace ferrow::helper
