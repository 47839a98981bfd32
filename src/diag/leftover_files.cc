#include "diag/leftover_files.h"

#include <cctype>
#include <cstdio>

#include "diag/trim_file.h"
#include "session/session.h"
#include "support/paths.h"

namespace ferrow {
namespace {

constexpr int kLockWaitMs = 100;

// mkstemp's six characters: letters and digits.
bool IsWriterTempName(const std::string& name, const std::string& ini_leaf) {
  if (name.size() != ini_leaf.size() + 7 || name.compare(0, ini_leaf.size() + 1, ini_leaf + ".") != 0)
    return false;
  for (size_t i = ini_leaf.size() + 1; i < name.size(); ++i)
    if (!std::isalnum(static_cast<unsigned char>(name[i]))) return false;
  return true;
}

// The trim's own name: "TMP", five digits, ".TMP" (the system's temporary
// names carry four hexadecimal digits).
bool IsTrimTempName(const std::string& name) {
  if (name.size() != 12 || name.compare(0, 3, "TMP") != 0 || name.compare(8, 4, ".TMP") != 0) return false;
  for (size_t i = 3; i < 8; ++i)
    if (!std::isdigit(static_cast<unsigned char>(name[i]))) return false;
  return true;
}

// The trim writes its header, naming the configuration file, before
// anything else, and flushes it at once; killed between making the file and
// that flush, it leaves the file empty.
bool IsTrimTempOf(Env& env, const std::string& folder, const std::string& name, const std::string& ini_file) {
  const std::string path = JoinPath(folder, name);
  const std::string header = kTrimHeaderPrefix;
  const std::string names = " [" + ini_file + "] written at ";
  if (!env.IsRegularFile(path)) return false;  // a FIFO would keep us waiting
  std::FILE* f = env.OpenStream(path, "rb");
  if (!f) return false;
  std::string start(header.size() + 8 + names.size() + 16, '\0');
  start.resize(std::fread(&start[0], 1, start.size(), f));
  std::fclose(f);
  if (start.empty()) return IsTrimTempName(name);
  return start.compare(0, header.size(), header) == 0 && start.find(names) != std::string::npos;
}

}  // namespace

int RemoveLeftoverFiles(Session& s, const std::string& ini_file) {
  Env& env = s.env;
  auto lock = env.LockProfile(ini_file, kLockWaitMs);
  if (!lock) return 0;
  const std::string folder = FolderPart(ini_file);
  const std::string leaf = FileNamePart(ini_file);
  int removed = 0;
  for (const std::string& name : env.FindMatches(JoinPath(folder, leaf + ".??????")))
    if (IsWriterTempName(name, leaf) && env.RemoveFile(JoinPath(folder, name)) == 0) ++removed;
  for (const std::string& name : env.FindMatches(JoinPath(folder, "TMP*.TMP"))) {
    if (IsTrimTempOf(env, folder, name, ini_file) && env.RemoveFile(JoinPath(folder, name)) == 0) ++removed;
  }
  return removed;
}

}  // namespace ferrow
