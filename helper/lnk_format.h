// The Shell Link (.lnk) file format: a reader for any shortcut file, ours or
// one Windows made, and a writer of the same layout for systems without the
// Windows shell. The reader takes untrusted input (a user may drop any file):
// every length and offset is checked before it is used.
#pragma once

#include <cstdint>
#include <string>

namespace ferrow::lnk {

struct LinkTarget {
  std::string path;            // the target's full path, "" when none was found
  bool path_is_utf8 = false;   // from a Unicode field; otherwise 8-bit as stored
  std::string working_folder;  // from the string data (UTF-8), when present
};

// The target of the shortcut whose bytes are `data`. `link_folder` resolves a
// relative path, the last resort when the link has no location information.
LinkTarget ReadLink(const std::string& data, const std::string& link_folder);

struct NewLink {
  std::string target;          // full path
  std::string working_folder;  // "" for none
  std::string description;     // "" for none
  uint32_t target_size = 0;
  bool target_is_folder = false;
  int32_t show_command = 1;
};

// The bytes of a shortcut to `link.target`: header, location information with
// the local path, and the strings, as Windows lays them out.
std::string WriteLink(const NewLink& link);

// UTF-8 <-> UTF-16LE, for the format's Unicode strings.
std::string Utf16ToUtf8(const std::u16string& text);
std::u16string Utf8ToUtf16(const std::string& text);

}  // namespace ferrow::lnk
