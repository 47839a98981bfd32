// The seven functions the program calls (built with FERROW_HELPER_BUILD).
#include "ferrow_helper.h"

#include <cstdio>
#include <string>

#include "desktop_entry.h"
#include "helper_platform.h"
#include "lnk_format.h"

namespace {

constexpr int16_t kLibraryVersion = 110;
constexpr long kMaxLinkFileSize = 1 << 20;  // real shortcuts are a few kilobytes

std::string Escape(const char* line, bool backslashes) {
  std::string out;
  for (const char* p = line ? line : ""; *p; ++p) {
    if (*p == '{' || *p == '}' || (backslashes && *p == '\\')) out += '\\';
    out += *p;
  }
  return out;
}

std::string ReadSmallFile(const char* path) {
  std::string data;
  std::FILE* f = path ? std::fopen(path, "rb") : nullptr;
  if (!f) return data;
  char buffer[4096];
  size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, f)) > 0 &&
         data.size() < static_cast<size_t>(kMaxLinkFileSize))
    data.append(buffer, n);
  std::fclose(f);
  return data;
}

std::string FolderOf(const std::string& path) {
  size_t slash = path.find_last_of("\\/");
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

}  // namespace

extern "C" {

FERROW_API int16_t FERROW_CALL DLLVersion(void) { return kLibraryVersion; }

FERROW_API char* FERROW_CALL RTFFilter(char* line) {
  return ferrow::helper::AllocString(Escape(line, true));
}

FERROW_API char* FERROW_CALL RTFFilterNoSlash(char* line) {
  return ferrow::helper::AllocString(Escape(line, false));
}

FERROW_API char* FERROW_CALL GetLinkTarget(const char* link_path) {
  std::string data = ReadSmallFile(link_path);
  ferrow::lnk::LinkTarget target = ferrow::lnk::ReadLink(data, FolderOf(link_path ? link_path : ""));
  // Not a Windows shortcut: perhaps a desktop launcher, the Linux kind.
  if (target.path.empty()) {
    target.path = ferrow::desktop::ReadLauncherTarget(data);
    target.path_is_utf8 = true;
  }
  return ferrow::helper::AllocString(ferrow::helper::SystemText(target));
}

FERROW_API char* FERROW_CALL GetDLLFileName(void) {
  return ferrow::helper::AllocString(ferrow::helper::LibraryPath());
}

FERROW_API char* FERROW_CALL GetProfileDir(int32_t kind) {
  return ferrow::helper::AllocString(kind == 0 ? ferrow::helper::DesktopFolder() : "");
}

FERROW_API int16_t FERROW_CALL CreateShortcut(const char* target, const char* link_path,
                                              const char* description, const char*,
                                              const char*, int32_t show_command, int32_t) {
  if (!target || !*target || !link_path || !*link_path) return 0;
  return ferrow::helper::MakeShortcut(target, link_path, description ? description : "",
                                      show_command)
             ? 1
             : 0;
}

}  // extern "C"
