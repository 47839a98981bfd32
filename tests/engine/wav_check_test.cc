#include "engine/wav_check.h"

#include <gtest/gtest.h>

#include "testing/temp_dir.h"

namespace ferrow {
namespace {

TEST(WavCheck, TheBuildsOwnUpdateSoundIsPlayable) {
#ifdef FERROW_UPDATE_SOUND
  std::string wav = testing::ReadBytes(FERROW_UPDATE_SOUND);
  EXPECT_TRUE(LooksLikePlayableWav(wav));
  EXPECT_GT(wav.size(), 10000u);
#endif
  std::string pcm = std::string("RIFF\x24\0\0\0WAVEfmt \x10\0\0\0\x01\0", 22);
  EXPECT_TRUE(LooksLikePlayableWav(pcm));
}

TEST(WavCheck, OtherFilesAreNot) {
  EXPECT_FALSE(LooksLikePlayableWav(""));
  EXPECT_FALSE(LooksLikePlayableWav("ID3 an mp3 file......................"));
  EXPECT_FALSE(LooksLikePlayableWav(std::string("RIFF\x24\0\0\0AVI fmt \x10\0\0\0\x01\0", 22)));
}

}  // namespace
}  // namespace ferrow
