#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ferrow {

// Splits `text` at any character of `delimiters`; runs of delimiters give no
// empty tokens. When the double quote is a delimiter, a quoted phrase is one
// token without its quotes (an unclosed quote runs to the end of the text).
// At most `max_tokens` are stored in `tokens` (replaced, 0-based); returns the
// count stored.
int16_t Tokenize(std::string_view text, std::string_view delimiters,
                 std::vector<std::string>& tokens, int max_tokens);

}  // namespace ferrow
