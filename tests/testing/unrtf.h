// Rich text read back by a second program, unrtf (installed by
// scripts/setup --tests): the plain text it finds, to compare whole.
#pragma once

#include <optional>
#include <string>

namespace ferrow::testing {

// True when unrtf can be run.
bool UnrtfInstalled();

// The text unrtf reads from the rich-text file `rtf_file` (UTF-8, "\n"
// between paragraphs), taken from its HTML output; nothing when it fails.
std::optional<std::string> UnrtfText(const std::string& rtf_file);

}  // namespace ferrow::testing
