#include "qt/sound_player.h"

#include <gtest/gtest.h>

#include "testing/temp_dir.h"

namespace ferrow {
namespace {

TEST(SoundPlayer, PlaysAWavFileAndRefusesAnythingElse) {
  SoundPlayer player;
  EXPECT_TRUE(player.PlaySoundFile(FERROW_UPDATE_SOUND, false));
  testing::TempDir dir;
  testing::WriteBytes(dir.File("not.wav"), "plain text");
  EXPECT_FALSE(player.PlaySoundFile(dir.File("not.wav"), false));
  EXPECT_FALSE(player.PlaySoundFile(dir.File("missing.wav"), false));
}

}  // namespace
}  // namespace ferrow
