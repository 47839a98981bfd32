#include "about/helper_library.h"

#include <cstddef>
#include <type_traits>
#include <vector>

#include "ferrow_helper.h"
#include "platform/env.h"
#include "session/options.h"
#include "support/install_layout.h"
#include "support/paths.h"
#include "support/strings.h"

namespace ferrow {

std::string HelperLibraryFileName() {
#ifdef _WIN32
  return "ferrow.dll";
#else
  return "libferrow.so";
#endif
}

HelperLibrary HelperLibrary::Bind(Env& env) {
  const std::string name = HelperLibraryFileName();
  void* handle = env.OpenLibrary(JoinPath(FolderPart(env.ProgramPath()), name));
  const std::string installed = InstalledLibraryFolder(env);
  if (!handle && !installed.empty()) handle = env.OpenLibrary(JoinPath(installed, name));
  if (!handle) handle = env.OpenLibrary(name);
  return HelperLibrary(env, handle);
}

HelperLibrary HelperLibrary::BindFile(Env& env, const std::string& path) {
  return HelperLibrary(env, env.OpenLibrary(path));
}

template <typename Fn>
Fn HelperLibrary::Function(const char* name) const {
  return reinterpret_cast<Fn>(env_->LibrarySymbol(handle_, name));
}

std::optional<std::string> HelperLibrary::Take(char* text) const {
  if (!text) return std::nullopt;
  std::string copy = text;
  env_->FreeLibraryString(text);
  StripTrailing(copy, '\0');
  return copy;
}

std::optional<int16_t> HelperLibrary::DLLVersion() const {
  auto fn = Function<decltype(&::DLLVersion)>("DLLVersion");
  if (!fn) return std::nullopt;
  return fn();
}

// The library takes zero-terminated text, so a line holding NUL bytes goes
// over piece by piece and the NULs are put back between the answers; each
// piece goes in a buffer of its own because the library may rewrite it.
std::optional<std::string> HelperLibrary::Filter(const char* function, const std::string& line) const {
  static_assert(std::is_same_v<decltype(&::RTFFilter), decltype(&::RTFFilterNoSlash)>);
  auto fn = Function<decltype(&::RTFFilter)>(function);
  if (!fn) return std::nullopt;
  std::string out;
  size_t start = 0;
  for (;;) {
    const size_t nul = line.find('\0', start);
    const size_t stop = nul == std::string::npos ? line.size() : nul;
    std::vector<char> buffer(line.begin() + static_cast<std::ptrdiff_t>(start),
                             line.begin() + static_cast<std::ptrdiff_t>(stop));
    buffer.push_back('\0');
    std::optional<std::string> piece = Take(fn(buffer.data()));
    if (!piece) return std::nullopt;
    out += *piece;
    if (nul == std::string::npos) return out;
    out += '\0';
    start = nul + 1;
  }
}

std::optional<std::string> HelperLibrary::RTFFilter(const std::string& line) const {
  return Filter("RTFFilter", line);
}

std::optional<std::string> HelperLibrary::RTFFilterNoSlash(const std::string& line) const {
  return Filter("RTFFilterNoSlash", line);
}

std::optional<std::string> HelperLibrary::GetLinkTarget(const std::string& link_path) const {
  auto fn = Function<decltype(&::GetLinkTarget)>("GetLinkTarget");
  if (!fn) return std::nullopt;
  // The library reads the file with blocking calls: a FIFO named x.lnk would
  // hold the program until a writer came, and a device might never end.
  if (!env_->IsRegularFile(link_path)) return std::string();
  return Take(fn(link_path.c_str()));
}

std::optional<std::string> HelperLibrary::GetDLLFileName() const {
  auto fn = Function<decltype(&::GetDLLFileName)>("GetDLLFileName");
  if (!fn) return std::nullopt;
  return Take(fn());
}

std::optional<std::string> HelperLibrary::GetProfileDir(int32_t kind) const {
  auto fn = Function<decltype(&::GetProfileDir)>("GetProfileDir");
  if (!fn) return std::nullopt;
  return Take(fn(kind));
}

std::optional<int16_t> HelperLibrary::CreateShortcut(const std::string& target,
                                                     const std::string& link_path,
                                                     const std::string& a, const std::string& b,
                                                     const std::string& c, int32_t n1,
                                                     int32_t n2) const {
  auto fn = Function<decltype(&::CreateShortcut)>("CreateShortcut");
  if (!fn) return std::nullopt;
  return fn(target.c_str(), link_path.c_str(), a.c_str(), b.c_str(), c.c_str(), n1, n2);
}

void CheckHelperLibrary(Options& options, const HelperLibrary& library) {
  options.HelperLibraryVersion = library.DLLVersion().value_or(0);
  options.HelperLibraryInUse = options.HelperLibraryVersion >= kHelperLibraryMinimum;
}

}  // namespace ferrow
