// Pure helpers on path strings. Both "\" and "/" separate folders on every
// system, and ":" ends a drive (so C:app.log has the folder C:). They never
// touch the disk and never fail: odd input gives an empty or unchanged result.
#pragma once

#include <string>
#include <string_view>

namespace ferrow {

class Env;

// The separator new paths are joined with on this system.
char NativeSeparator();

bool IsSlash(char c);           // "\" or "/"
bool IsPathSeparator(char c);   // "\", "/", or ":" on Windows (a drive prefix)

// True when a file or folder of that name exists. The name is used as a search
// pattern, so one holding "*" or "?" exists when anything matches it.
bool FileExists(Env& env, const std::string& path);

// The text after the last separator; the whole path when it has none.
std::string FileNamePart(std::string_view path);

// The folder, without a trailing slash except for a drive root.
std::string FolderPart(std::string_view path);

// The text after the last "." of the file-name part, without the dot.
std::string FileExtension(std::string_view path);

// Appends the native separator unless the path already ends in a slash or ":".
// The caller's string is changed and also returned.
std::string EnsureTrailingSlash(std::string& path);

// 1-based position of the last `ch[0]` in `text`, 0 when absent (only the
// first character of `ch` is looked at).
int FindLast(std::string_view text, std::string_view ch);

// The absolute form of `path`, from the current folder when it is relative.
std::string FullPath(const std::string& path);

// `folder` and `name` joined with the native separator.
std::string JoinPath(std::string folder, std::string_view name);

}  // namespace ferrow
