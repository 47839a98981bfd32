#include "config/history_close.h"

#include <algorithm>
#include <string>
#include <vector>

#include "config/history.h"
#include "config/ini_file.h"
#include "config/keys.h"
#include "config/write_lock.h"
#include "session/session.h"
#include "support/numbers.h"
#include "support/strings.h"

namespace ferrow {
namespace {

constexpr int kLockWaitSeconds = 5;

void AddUnlessHeld(std::vector<std::string>& names, const std::string& name) {
  if (name.empty() || names.size() >= static_cast<size_t>(kHistoryLimit)) return;
  for (const std::string& held : names)
    if (EqualsNoCase(held, name)) return;
  names.push_back(name);
}

}  // namespace

bool MergeHistoryAtClose(Session& s) {
  if (!GetWriteLock(s, kLockWaitSeconds)) return false;
  const std::string& ini = s.options.IniFileName;
  std::vector<std::string> merged;
  for (const std::string& mine : s.options.HistoryList) AddUnlessHeld(merged, mine);
  const double count = Val(ReadINIFile(s.env, ini, keys::kCommon, keys::HistoryCount.name));
  // The file holds no more than History1..History200, whatever its count says.
  const int n = count < 0 ? 0 : static_cast<int>(std::min<double>(count, kHistoryLimit));
  for (int i = 1; i <= n && merged.size() < static_cast<size_t>(kHistoryLimit); ++i)
    AddUnlessHeld(merged, ReadINIFile(s.env, ini, keys::kCommon, "History" + std::to_string(i)));
  SortHistory(merged);
  SetHistory(s.options, merged);
  SaveHistory(s);
  ReleaseWriteLock(s);
  return true;
}

}  // namespace ferrow
