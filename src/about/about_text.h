// The texts of the about window.
#pragma once

#include <string>

namespace ferrow {

struct Options;

// "About Ferrow for Windows".
std::string AboutCaption();
// "Ferrow v1.46 - 30th June 2012" and a blank line.
std::string AboutTitle();
// The information label: what the program does, where it runs from and since
// when, the companion library's version and state (with its path when in
// use), the notes, and the usage text.
std::string AboutInformation(const Options& options, const std::string& program_path,
                             const std::string& started, const std::string& library_path);
// The companion library's version in general number format: 103 -> "1.03".
std::string LibraryVersionText(int version);

}  // namespace ferrow
