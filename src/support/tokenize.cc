#include "support/tokenize.h"

namespace ferrow {

int16_t Tokenize(std::string_view text, std::string_view delimiters,
                 std::vector<std::string>& tokens, int max_tokens) {
  tokens.clear();
  if (text.empty() || delimiters.empty()) return 0;
  const bool quotes = delimiters.find('"') != std::string_view::npos;
  auto is_delim = [&](char c) { return delimiters.find(c) != std::string_view::npos; };
  auto full = [&] { return static_cast<int>(tokens.size()) >= max_tokens; };

  while (!text.empty() && !full()) {
    if (quotes && text.front() == '"') {
      size_t close = text.find('"', 1);
      std::string_view phrase = text.substr(1, close == std::string_view::npos ? text.npos : close - 1);
      if (!phrase.empty()) tokens.emplace_back(phrase);
      text = close == std::string_view::npos ? std::string_view() : text.substr(close + 1);
      continue;
    }
    if (is_delim(text.front())) {
      text.remove_prefix(1);
      continue;
    }
    size_t stop = 0;
    while (stop < text.size() && !is_delim(text[stop])) ++stop;
    tokens.emplace_back(text.substr(0, stop));
    text = stop < text.size() ? text.substr(stop + 1) : std::string_view();
  }
  return static_cast<int16_t>(tokens.size());
}

}  // namespace ferrow
