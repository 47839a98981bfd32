// The binding to the companion library (ferrow.dll, libferrow.so). Every
// call is guarded: a missing library or function gives nothing back, as a
// trapped call error would, and never a message.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ferrow {

class Env;
struct Options;

constexpr int16_t kHelperLibraryMinimum = 103;

class HelperLibrary {
 public:
  // Binds the library by its plain name, from the program's folder first,
  // then from the folder an install puts it in, then wherever the system
  // looks for libraries.
  static HelperLibrary Bind(Env& env);
  // Binds the library file at `path` (tests).
  static HelperLibrary BindFile(Env& env, const std::string& path);
  // A binding to no library at all.
  static HelperLibrary None(Env& env) { return HelperLibrary(env, nullptr); }

  bool loaded() const { return handle_ != nullptr; }

  std::optional<int16_t> DLLVersion() const;
  std::optional<std::string> RTFFilter(const std::string& line) const;
  std::optional<std::string> RTFFilterNoSlash(const std::string& line) const;
  // "" for anything that is not a regular file, which is never opened.
  std::optional<std::string> GetLinkTarget(const std::string& link_path) const;
  std::optional<std::string> GetDLLFileName() const;
  std::optional<std::string> GetProfileDir(int32_t kind) const;
  std::optional<int16_t> CreateShortcut(const std::string& target, const std::string& link_path,
                                        const std::string& a, const std::string& b,
                                        const std::string& c, int32_t n1, int32_t n2) const;

 private:
  HelperLibrary(Env& env, void* handle) : env_(&env), handle_(handle) {}
  template <typename Fn>
  Fn Function(const char* name) const;
  std::optional<std::string> Take(char* text) const;
  std::optional<std::string> Filter(const char* function, const std::string& line) const;

  Env* env_;
  void* handle_;
};

// The plain file name of the companion library on this system.
std::string HelperLibraryFileName();

// Start-up's version check: HelperLibraryVersion is what DLLVersion returns
// (0 without the library), HelperLibraryInUse whether that is 103 or more.
void CheckHelperLibrary(Options& options, const HelperLibrary& library);

}  // namespace ferrow
