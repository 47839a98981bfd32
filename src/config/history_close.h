// The history's last rewrite, when the control window closes. Other processes
// may have added names since this one loaded the list, and this one may have
// added names they do not know: both must survive, whatever the order in
// which the processes close.
#pragma once

namespace ferrow {

struct Session;

// Under the write lock (waiting up to 5 seconds for it, asking nothing):
// reads the file's History1..HistoryCount, joins every name of this process's
// HistoryList, drops empty names and duplicates (compared without regard to
// case; this process's spelling wins), keeps at most 200 (this process's
// names first, then the file's in key order), sorts them as SortHistory does,
// puts the result in HistoryList and HistoryTotal and writes it as
// SaveHistory does. False, with the file and the list untouched, when the
// lock could not be had.
bool MergeHistoryAtClose(Session& session);

}  // namespace ferrow
