#include "session/options.h"

namespace ferrow {

void SetDefaultOptions(Options& options) {
  std::string ini = std::move(options.IniFileName);
  std::string log = std::move(options.LogFileName);
  options = Options();
  options.IniFileName = std::move(ini);
  options.LogFileName = std::move(log);
}

void SetFileDefaults(Options& options) {
  static_cast<FileOptions&>(options) = options.FileDefaults;
  options.HighWaterMark = 0;
}

}  // namespace ferrow
