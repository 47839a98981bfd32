#pragma once

#include <string>

namespace ferrow {

class Env;

// The name of a safety copy of `file_name` (trimmed of blanks in place):
// Base + ".BAK", or when `numbered` the first free Base + ".001" ... ".999".
// Base is the name up to its last "."; "" when the name ends in "\" or when
// all 999 numbered names are taken.
std::string BackupFile(Env& env, std::string& file_name, bool numbered);

// The name of a file that does not exist yet in `folder` and begins with
// `prefix`; "" when none can be found. An empty folder means the TEMP folder.
std::string MakeTempFile(Env& env, const std::string& folder, const std::string& prefix);

}  // namespace ferrow
