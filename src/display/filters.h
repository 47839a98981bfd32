// The highlight filters: word lists built from FilterString and
// RedFilterString, and the rule that says whether a line carries a word.
#pragma once

#include <string>
#include <vector>

namespace ferrow {

struct Options;

// Rebuilds `words` from `filter`: words split on blanks (a phrase in double
// quotes stays one word), each kept once; `filter` is rewritten as the kept
// words with one blank between. Returns the number of words the split found,
// repeats included.
int TokeniseFilter(std::string& filter, std::vector<std::string>& words);

// True when the line is not empty and its upper-cased text holds any of the
// upper-cased words.
bool LineMatchesFilter(const std::string& line, const std::vector<std::string>& words);

// Both lists from the record's filter strings.
void RebuildFilterWords(Options& options);

}  // namespace ferrow
