#include "config/history_close.h"

#include <algorithm>

#include "config/history.h"
#include "config/ini_transaction.h"
#include "config/keys.h"
#include "config/write_lock.h"
#include "session/session.h"
#include "support/numbers.h"
#include "support/strings.h"

namespace ferrow {
namespace {

constexpr int kLockWaitSeconds = 5;

bool Holds(const std::vector<std::string>& names, const std::string& name) {
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& n) { return EqualsNoCase(n, name); });
}

void AddUnlessHeld(std::vector<std::string>& names, const std::string& name) {
  if (!name.empty() && !Holds(names, name)) names.push_back(name);
}

std::vector<std::string> FileHistory(const IniTransaction& t) {
  const double count = Val(t.Read(keys::kCommon, keys::HistoryCount.name));
  // The file holds no more than History1..History200, whatever its count says.
  const int n = count < 0 ? 0 : static_cast<int>(std::min<double>(count, kHistoryLimit));
  std::vector<std::string> names;
  for (int i = 1; i <= n; ++i) {
    std::string name = t.Read(keys::kCommon, "History" + std::to_string(i));
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

}  // namespace

std::vector<std::string> MergeAtClose(const std::vector<std::string>& file,
                                      const std::vector<std::string>& mine,
                                      const std::vector<std::string>& seen,
                                      const std::vector<std::string>& added) {
  std::vector<std::string> all;
  for (const std::string& name : added) AddUnlessHeld(all, name);
  // A name the file held and holds no more was removed meanwhile by another
  // process (SHIFT+DEL, clearing the history): it stays removed, unless this
  // process opened it again.
  for (const std::string& name : mine)
    if (!Holds(seen, name) || Holds(file, name)) AddUnlessHeld(all, name);
  for (const std::string& name : file) AddUnlessHeld(all, name);
  std::vector<std::string> fresh, old;
  for (const std::string& name : all) {
    const bool others_new = Holds(file, name) && !Holds(seen, name);
    (Holds(added, name) || others_new ? fresh : old).push_back(name);
  }
  // This process's own names come first in `all`, so they are the last to go.
  if (fresh.size() > static_cast<size_t>(kHistoryLimit)) fresh.resize(kHistoryLimit);
  SortHistory(old);
  old.resize(std::min(old.size(), static_cast<size_t>(kHistoryLimit) - fresh.size()));
  fresh.insert(fresh.end(), old.begin(), old.end());
  SortHistory(fresh);
  return fresh;
}

bool MergeHistoryAtClose(Session& s) {
  const bool locked = GetWriteLock(s, kLockWaitSeconds);
  bool saved = false;
  {
    IniTransaction t(s.env, s.options.IniFileName);
    if (t.Began()) {
      Options& o = s.options;
      const std::vector<std::string> mine(o.HistoryList.begin(), o.HistoryList.end());
      SetHistory(o, MergeAtClose(FileHistory(t), mine, o.HistorySeen, o.HistoryAdded));
      SaveHistory(s, t);
      saved = t.Commit();
      if (saved) o.HistorySeen.assign(o.HistoryList.begin(), o.HistoryList.begin() + o.HistoryTotal);
    }
  }
  if (locked) ReleaseWriteLock(s);
  return saved;
}

}  // namespace ferrow
