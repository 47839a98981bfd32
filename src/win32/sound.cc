#include "win32/sound.h"

#include <windows.h>
#include <mmsystem.h>

#include "engine/wav_check.h"

namespace ferrow::win32 {

// `file` is a name, in the ANSI code page.
bool PlaySoundFile(const std::string& file, bool loop) {
  if (!FileLooksLikePlayableWav(file)) return false;
  const DWORD flags = SND_ASYNC | SND_FILENAME | SND_NODEFAULT | (loop ? SND_LOOP : 0);
  return PlaySoundA(file.c_str(), nullptr, flags) != FALSE;
}

}  // namespace ferrow::win32
