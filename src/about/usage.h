#pragma once

#include <string>

namespace ferrow {

struct Options;
struct Session;

// "Ferrow v1.46 - Copyright ... 30th June 2012", a blank line, then the usage text.
std::string UsageBoxText(const Options& options);

// The version message box, for /? and F1.
void ShowUsage(Session& session);

}  // namespace ferrow
