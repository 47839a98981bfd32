// The start-up trim of the shared configuration file: it keeps only comments,
// section headers and the known keys, drops obsolete keys, stray lines, blank
// lines and the previous version header, and writes a fresh header line. A
// ".BAK" copy is made first and stays behind (unless the file has no [Common]
// section, when the old copy is kept instead).
#pragma once

#include <string>
#include <vector>

namespace ferrow {

struct Session;

// The version this program writes into the header of a trimmed file.
inline constexpr char kTrimVersion[] = "1.46";
// The header line of a trimmed file begins so, then the version, then
// " [" + the file's name + "] written at " and the time.
inline constexpr char kTrimHeaderPrefix[] = ";Ferrow v";

// Replaces `file_name` whole with the trimmed text, which is first written to
// a temporary file and synced; any failed write or sync, or a failed
// replacement, leaves the old file as it was and logs the failure.
// `known_keys` is used from index 1; an entry ending in "*" is a prefix. With
// `filter_keys` false every non-empty line is kept.
bool TrimFile(Session& session, const std::string& file_name,
              const std::vector<std::string>& known_keys, bool filter_keys);

}  // namespace ferrow
