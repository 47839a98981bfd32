#include "display/filters.h"

#include <algorithm>

#include "session/options.h"
#include "support/strings.h"
#include "support/text_case.h"
#include "support/tokenize.h"

namespace ferrow {

int TokeniseFilter(std::string& filter, std::vector<std::string>& words) {
  words.clear();
  if (filter.empty()) return 0;
  std::vector<std::string> tokens;
  int count = Tokenize(filter, " \"", tokens, 1000);
  std::string rewritten;
  for (const std::string& word : tokens) {
    if (word.empty() || std::find(words.begin(), words.end(), word) != words.end()) continue;
    words.push_back(word);
    rewritten += word + " ";
  }
  filter = Trim(rewritten);
  return count;
}

bool LineMatchesFilter(const std::string& line, const std::vector<std::string>& words) {
  if (line.empty() || words.empty()) return false;
  // Text, not names: accented and non-Latin letters match whatever their case.
  const std::string upper = UpperCaseText(line);
  return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
    return upper.find(UpperCaseText(word)) != std::string::npos;
  });
}

void RebuildFilterWords(Options& options) {
  TokeniseFilter(options.FilterString, options.FilterWords);
  TokeniseFilter(options.RedFilterString, options.RedFilterWords);
}

}  // namespace ferrow
