#pragma once

#include <string>
#include <vector>

namespace ferrow::testing {

// One change to a file, as the writer program makes it: append, fill,
// truncate, delete or folder. True on success.
bool ApplyWriterOp(const std::vector<std::string>& args);

}  // namespace ferrow::testing
