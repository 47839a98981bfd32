#include "win32/sound.h"

#include <windows.h>
#include <mmsystem.h>

#include "engine/wav_check.h"
#include "win32/ansi_text.h"

namespace ferrow::win32 {

bool PlaySoundFile(const std::string& file, bool loop) {
  if (!FileLooksLikePlayableWav(ToAnsi(file))) return false;
  const DWORD flags = SND_ASYNC | SND_FILENAME | SND_NODEFAULT | (loop ? SND_LOOP : 0);
  return PlaySoundA(ToAnsi(file).c_str(), nullptr, flags) != FALSE;
}

}  // namespace ferrow::win32
