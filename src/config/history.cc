#include "config/history.h"

#include <algorithm>

#include "config/ini_file.h"
#include "config/ini_transaction.h"
#include "config/keys.h"
#include "config/write_lock.h"
#include "session/session.h"
#include "support/numbers.h"
#include "support/strings.h"

namespace ferrow {
namespace {

using keys::kCommon;

std::string HistoryKey(int i) { return "History" + std::to_string(i); }

bool Holds(const std::vector<std::string>& names, const std::string& name) {
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& n) { return EqualsNoCase(n, name); });
}

// HistoryCount as a loop bound: its number value, kept within what a 16-bit
// count can say so that a damaged file cannot keep us reading for ever.
int HistoryCountValue(const std::string& text) {
  double n = Val(text);
  return n < 0 ? 0 : n > 32767 ? 32767 : static_cast<int>(n);
}

std::vector<std::string> UsedEntries(const Options& o) {
  return {o.HistoryList.begin(), o.HistoryList.begin() + o.HistoryTotal};
}

// The file now holds what this process holds: that is the list it has seen.
bool CommitHistory(Session& s, IniTransaction& t) {
  if (!t.Commit()) return false;
  s.options.HistorySeen = UsedEntries(s.options);
  return true;
}

}  // namespace

void SortHistory(std::vector<std::string>& names) {
  std::stable_sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return UpperCase(a) < UpperCase(b);
  });
}

void SetHistory(Options& options, const std::vector<std::string>& names) {
  options.HistoryList.fill("");
  size_t total = std::min(names.size(), options.HistoryList.size());
  std::copy_n(names.begin(), total, options.HistoryList.begin());
  options.HistoryTotal = static_cast<int16_t>(total);
}

void LoadHistoryAtStartup(Session& s) {
  int n = HistoryCountValue(ReadINIFile(s.env, s.options.IniFileName, kCommon, keys::HistoryCount.name));
  n = std::min<int>(n, keys::HistoryCount.max);
  std::vector<std::string> names;
  for (int i = 1; i <= n; ++i) {
    std::string name = ReadINIFile(s.env, s.options.IniFileName, kCommon, HistoryKey(i));
    if (!name.empty()) names.push_back(name);
  }
  if (names.size() > 1) SortHistory(names);
  SetHistory(s.options, names);
  s.options.HistorySeen = names;
  s.options.HistoryAdded.clear();
}

std::vector<std::string> LoadHistory(Session& s, const IniTransaction& t) {
  const int n = HistoryCountValue(t.Read(kCommon, keys::HistoryCount.name));
  std::vector<std::string> merged;
  for (int i = 1; i <= n && merged.size() < kHistoryLimit; ++i) {
    std::string name = t.Read(kCommon, HistoryKey(i));
    if (!name.empty()) merged.push_back(name);
  }
  const std::vector<std::string> file_side = merged;
  const size_t m = file_side.size();
  for (size_t j = 0; j < m; ++j) {
    const std::string& mine = s.options.HistoryList[j];
    if (!mine.empty() && merged.size() < kHistoryLimit && !Holds(merged, mine))
      merged.push_back(mine);
  }
  SortHistory(merged);
  SetHistory(s.options, merged);
  s.options.HistorySeen = file_side;
  return file_side;
}

std::vector<std::string> LoadHistory(Session& s) {
  IniTransaction t(s.env, s.options.IniFileName);
  return LoadHistory(s, t);
}

void SaveHistory(Session& s, IniTransaction& t) {
  t.Write(kCommon, keys::HistoryCount.name, std::to_string(s.options.HistoryTotal));
  for (int i = 1; i <= kHistoryLimit; ++i) t.Write(kCommon, HistoryKey(i), s.options.HistoryList[i - 1]);
  if (s.options.HistoryTotal == 0) t.Write(kCommon, keys::LastFileSelected, "");
}

void SaveHistory(Session& s) {
  IniTransaction t(s.env, s.options.IniFileName);
  SaveHistory(s, t);
  if (!CommitHistory(s, t)) return;
  // A name the user erased from the list is no longer this process's to keep.
  auto& added = s.options.HistoryAdded;
  added.erase(std::remove_if(added.begin(), added.end(),
                             [&](const std::string& n) { return !Holds(s.options.HistorySeen, n); }),
              added.end());
}

bool TidyHistory(Session& s, std::vector<std::string>* file_side) {
  if (!GetWriteLock(s, 30)) {
    s.ui.SetMenuCaption("Ferrow Menu");
    if (!s.ui.AskYesNo("The configuration file is locked by another process - Try again?", "",
                       MessageIcon::Question))
      return false;
    if (!GetWriteLock(s, 60)) return false;
  }
  s.ui.SetMenuCaption("Ferrow Menu - Tidying the History ...");
  {
    // A file that cannot be read now (its folder gone) leaves the list as it is.
    IniTransaction t(s.env, s.options.IniFileName);
    if (t.Began()) {
      std::vector<std::string> read = LoadHistory(s, t);
      if (file_side) *file_side = std::move(read);
      SaveHistory(s, t);
      CommitHistory(s, t);
    }
  }
  ReleaseWriteLock(s);
  return true;
}

void AddToHistory(Options& options, const std::string& file_name) {
  auto& list = options.HistoryList;
  if (file_name.empty() || EqualsNoCase(list[0], file_name)) return;
  std::move_backward(list.begin(), list.end() - 1, list.end());
  list[0] = file_name;
  // Entries 1..HistoryTotal stay the used ones.
  if (options.HistoryTotal < kHistoryLimit) ++options.HistoryTotal;
  if (!Holds(options.HistoryAdded, file_name)) options.HistoryAdded.push_back(file_name);
}

bool RemoveFromHistory(Session& s, const std::string& file_name) {
  if (!GetWriteLock(s, 10)) return false;
  const std::string kept_caption = s.ui.MenuCaption();
  s.ui.SetMenuCaption("Ferrow Menu - Updating the History ...");
  {
    IniTransaction t(s.env, s.options.IniFileName);
    if (t.Began()) {
      LoadHistory(s, t);
      auto& list = s.options.HistoryList;
      if (!file_name.empty()) {
        for (int i = 0; i < s.options.HistoryTotal; ++i) {
          if (!EqualsNoCase(list[i], file_name)) continue;
          std::move(list.begin() + i + 1, list.begin() + s.options.HistoryTotal, list.begin() + i);
          list[s.options.HistoryTotal - 1].clear();
          --s.options.HistoryTotal;
        }
        auto& added = s.options.HistoryAdded;
        added.erase(std::remove_if(added.begin(), added.end(),
                                   [&](const std::string& n) { return EqualsNoCase(n, file_name); }),
                    added.end());
      }
      SaveHistory(s, t);
      CommitHistory(s, t);
    }
  }
  s.ui.SetMenuCaption(kept_caption);
  ReleaseWriteLock(s);
  return true;
}

}  // namespace ferrow
