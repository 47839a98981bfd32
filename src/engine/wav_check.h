#pragma once

#include <string>

namespace ferrow {

// True when `bytes` begin like a WAV file the sound players take: RIFF,
// WAVE, a "fmt " chunk of PCM or IEEE-float samples.
bool LooksLikePlayableWav(const std::string& bytes);
// The same of the first bytes of the file at `path`; false when it cannot be read.
bool FileLooksLikePlayableWav(const std::string& path);

}  // namespace ferrow
