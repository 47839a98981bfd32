// A fresh folder per test, removed with everything in it afterwards.
#pragma once

#include <string>

namespace ferrow::testing {

class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::string& path() const { return path_; }
  // `name` inside the folder, joined with the native separator.
  std::string File(const std::string& name) const;

 private:
  std::string path_;
};

// Whole-file helpers, byte-exact.
void WriteBytes(const std::string& path, const std::string& bytes);
std::string ReadBytes(const std::string& path);
bool PathExists(const std::string& path);

}  // namespace ferrow::testing
