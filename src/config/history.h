// The history of followed files: [Common] HistoryCount and History1..200 in
// the configuration file, HistoryList and HistoryTotal in memory. Several
// processes add to it, so every rewrite merges the file's list with this
// process's under the write lock.
#pragma once

#include <string>
#include <vector>

namespace ferrow {

class IniTransaction;
struct Options;
struct Session;

// Sorts names alphabetically without regard to case (upper-cased byte order,
// so \\server paths come after every drive letter).
void SortHistory(std::vector<std::string>& names);

// Replaces HistoryList with `names` (at most 200) and sets HistoryTotal.
void SetHistory(Options& options, const std::vector<std::string>& names);

// The first load at start-up: HistoryCount clamped to 0..200, the non-empty
// History<i> packed in key order, then sorted.
void LoadHistoryAtStartup(Session& session);

// Merges the file's history with this process's into HistoryList. The process
// side is walked only as far as the file side's length. Returns the names it
// read from the file. The first form reads within a transaction of the
// caller's, the second in one of its own.
std::vector<std::string> LoadHistory(Session& session, const IniTransaction& transaction);
std::vector<std::string> LoadHistory(Session& session);

// Writes HistoryCount and all 200 History<i> keys (empty ones too): within
// the caller's transaction, or as one transaction of its own.
void SaveHistory(Session& session, IniTransaction& transaction);
void SaveHistory(Session& session);

// The locked merge and rewrite; asks the user once when the lock is held.
// `file_side`, when given, receives what LoadHistory read. True when done.
bool TidyHistory(Session& session, std::vector<std::string>* file_side = nullptr);

// Puts a name at the top of the list in memory only (and remembers it as
// one this process added).
void AddToHistory(Options& options, const std::string& file_name);

// The locked removal of a name, as SHIFT+DEL in the file name box asks.
bool RemoveFromHistory(Session& session, const std::string& file_name);

}  // namespace ferrow
