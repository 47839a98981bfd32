// Making text safe to stand inside the rich text the program composes.
#pragma once

#include <string>
#include <string_view>

namespace ferrow {

// Every "\" becomes "\\", every "{" "\{" and every "}" "\}".
std::string RTFEscape(std::string_view text);

// Every "{" becomes "\{" and every "}" "\}"; backslashes stay as they are.
std::string EscapeBraces(std::string_view text);

}  // namespace ferrow
