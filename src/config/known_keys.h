#pragma once

#include <string>
#include <vector>

namespace ferrow {

// The keys the start-up trim keeps, 1-based (element 0 is empty); an entry
// ending in "*" is a prefix. BufferSizeKb, CopyAsRTF and Locked are left out on
// purpose, so a trim removes them. Built once per process.
const std::vector<std::string>& KnownKeys();

}  // namespace ferrow
