#include "diag/backup_file.h"

#include <cstdio>

#include "platform/env.h"
#include "support/paths.h"
#include "support/random.h"
#include "support/strings.h"

namespace ferrow {

std::string BackupFile(Env& env, std::string& file_name, bool numbered) {
  file_name = Trim(file_name);
  if (!file_name.empty() && IsSlash(file_name.back())) return "";
  size_t dot = file_name.rfind('.');
  const std::string base = dot == std::string::npos ? file_name : file_name.substr(0, dot);
  if (!numbered) return base + ".BAK";
  for (int i = 1; i <= 999; ++i) {
    char suffix[8];
    std::snprintf(suffix, sizeof suffix, ".%03d", i);
    if (!FileExists(env, base + suffix)) return base + suffix;
  }
  return "";
}

std::string MakeTempFile(Env& env, const std::string& folder, const std::string& prefix) {
  std::string where = folder;
  if (where.empty()) where = env.GetEnvVar("TEMP");
  if (where.empty()) where = env.GetEnvVar("TMPDIR");
  if (where.empty() || !env.IsFolder(where)) return "";
  SystemRandom random;
  for (int attempt = 0; attempt < 1000; ++attempt) {
    char tail[16];
    std::snprintf(tail, sizeof tail, "%05d.TMP", RandomBetween(0, 99999, random));
    std::string candidate = JoinPath(where, prefix + tail);
    if (!FileExists(env, candidate)) return candidate;
  }
  return "";
}

}  // namespace ferrow
