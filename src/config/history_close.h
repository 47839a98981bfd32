// The history's last rewrite, when the control window closes. Other processes
// may have added names since this one last read the list, and this one may
// have added names they do not know: both must survive, whatever the order in
// which the processes close, and whether or not the WriteLock could be had.
#pragma once

#include <string>
#include <vector>

namespace ferrow {

struct Session;

// The list to keep at close. `file` is what the file holds now, `mine` this
// process's list, `seen` the file's list as this process last read or wrote
// it, `added` the names this process added since it started. Every name of
// the three lists is kept once (compared without regard to case; this
// process's spelling wins), but for a name of `mine` that `seen` holds and
// `file` no longer does: another process removed it, and unless `added`
// holds it, it stays removed. When more than 200 remain, the fresh names stay
// (this process's own new names, then the file's names that `seen` lacks,
// which other processes added meanwhile) and what falls off are old names,
// the last in sorted order first. The result is sorted as SortHistory sorts.
std::vector<std::string> MergeAtClose(const std::vector<std::string>& file,
                                      const std::vector<std::string>& mine,
                                      const std::vector<std::string>& seen,
                                      const std::vector<std::string>& added);

// Takes the WriteLock (waiting up to 5 seconds for it, asking nothing); then,
// with or without it, in one transaction of the profile service: reads the
// file's History1..HistoryCount (at most 200), merges them with this
// process's list as MergeAtClose does, puts the result in HistoryList and
// HistoryTotal and writes it as SaveHistory does; releases the lock when it
// had it. False, with the list untouched, when the file could not be read
// and written (its folder gone, no permission).
bool MergeHistoryAtClose(Session& session);

}  // namespace ferrow
