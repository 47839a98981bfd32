// Sounds by file name, without waiting for them to end.
#pragma once

#include <string>

namespace ferrow::win32 {

// PlaySoundA, asynchronous (and looping when asked); false when the file
// cannot be played. Never the system's default sound in its place.
bool PlaySoundFile(const std::string& file, bool loop);

}  // namespace ferrow::win32
