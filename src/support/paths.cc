#include "support/paths.h"

#include <filesystem>
#include <system_error>

#include "platform/env.h"

namespace ferrow {
namespace {

bool IsDriveRoot(std::string_view p) { return p.size() == 3 && p[1] == ':' && IsSlash(p[2]); }

size_t LastSeparator(std::string_view path) {
  for (size_t i = path.size(); i > 0; --i)
    if (IsPathSeparator(path[i - 1])) return i - 1;
  return std::string_view::npos;
}

}  // namespace

char NativeSeparator() {
#ifdef _WIN32
  return '\\';
#else
  return '/';
#endif
}

bool IsSlash(char c) { return c == '\\' || c == '/'; }
// A colon ends a drive prefix ("C:") on Windows, where no file name holds
// one; elsewhere it is an ordinary character (/var/log/app-10:30.log).
bool IsPathSeparator(char c) { return IsSlash(c) || (c == ':' && NativeSeparator() == '\\'); }

bool FileExists(Env& env, const std::string& path) {
  std::string probe;
  if (IsDriveRoot(path)) {
    probe = path + "nul";
  } else if (path.size() == 1 && IsSlash(path[0])) {
    probe = path + "nul";
  } else {
    probe = path;
    while (!probe.empty() && IsSlash(probe.back())) probe.pop_back();
  }
  if (probe.empty()) return false;
  return env.FindFirstMatch(probe);
}

std::string FileNamePart(std::string_view path) {
  size_t sep = LastSeparator(path);
  return std::string(sep == std::string_view::npos ? path : path.substr(sep + 1));
}

std::string FolderPart(std::string_view path) {
  if (path.empty()) return {};
  if ((path.size() == 1 && IsSlash(path[0])) || path == "." || path == "..")
    return std::string(path);
  if (IsSlash(path.back())) {
    if (IsDriveRoot(path)) return std::string(path);
    return std::string(path.substr(0, path.size() - 1));
  }
  size_t sep = LastSeparator(path);
  std::string folder(sep == std::string_view::npos ? std::string_view() : path.substr(0, sep + 1));
  auto keeps_slash = [](const std::string& f) {
    return (f.size() <= 3 && f.size() >= 2 && f[1] == ':') || (f.size() == 1 && IsSlash(f[0]));
  };
  while (!folder.empty() && IsSlash(folder.back()) && !keeps_slash(folder)) folder.pop_back();
  return folder;
}

std::string FileExtension(std::string_view path) {
  for (size_t i = path.size(); i > 0; --i) {
    char c = path[i - 1];
    if (c == '.') return std::string(path.substr(i));
    if (IsPathSeparator(c)) break;
  }
  return {};
}

std::string EnsureTrailingSlash(std::string& path) {
  if (path.empty() || !IsPathSeparator(path.back())) path += NativeSeparator();
  return path;
}

int FindLast(std::string_view text, std::string_view ch) {
  if (ch.empty()) return 0;
  size_t pos = text.rfind(ch[0]);
  return pos == std::string_view::npos ? 0 : static_cast<int>(pos + 1);
}

std::string FullPath(const std::string& path) {
  if (path.empty()) return path;
  std::error_code ec;
  std::filesystem::path full = std::filesystem::absolute(path, ec);
  return ec ? path : full.lexically_normal().string();
}

std::string JoinPath(std::string folder, std::string_view name) {
  if (!folder.empty()) EnsureTrailingSlash(folder);
  return folder + std::string(name);
}

}  // namespace ferrow
