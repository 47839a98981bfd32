#include "engine/wav_check.h"

#include <fstream>

namespace ferrow {

bool LooksLikePlayableWav(const std::string& bytes) {
  if (bytes.size() < 22 || bytes.compare(0, 4, "RIFF") != 0 || bytes.compare(8, 4, "WAVE") != 0 ||
      bytes.compare(12, 4, "fmt ") != 0)
    return false;
  const unsigned format = static_cast<unsigned char>(bytes[20]) | static_cast<unsigned char>(bytes[21]) << 8;
  return format == 1 || format == 3 || format == 0xFFFE;  // PCM, float, extensible
}

bool FileLooksLikePlayableWav(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string head(64, '\0');
  in.read(head.data(), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<size_t>(in.gcount()));
  return LooksLikePlayableWav(head);
}

}  // namespace ferrow
