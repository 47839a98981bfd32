// What killed writers of the configuration file leave beside it: the start-up
// trim's temporary file (TMP<five digits>.TMP, its first line the header naming
// the configuration file, or empty when the trim died before writing it) and the POSIX profile writer's temporary file
// (<file name>.XXXXXX). Both exist only while their writer holds the profile
// lock on the configuration file, so whoever holds that lock knows that any
// such file it finds belongs to a dead process.
#pragma once

#include <string>

namespace ferrow {

struct Session;

// With the profile lock on `ini_file` (not waiting for it: a live writer's
// files stay until a later start), removes the files above; returns how many.
int RemoveLeftoverFiles(Session& session, const std::string& ini_file);

}  // namespace ferrow
