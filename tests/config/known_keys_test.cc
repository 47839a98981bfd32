#include "config/known_keys.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ferrow {
namespace {

TEST(KnownKeys, HasThirtyFourEntriesFromIndexOne) {
  const auto& keys = KnownKeys();
  ASSERT_EQ(keys.size(), 35u);
  EXPECT_EQ(keys[0], "");
  EXPECT_EQ(keys[1], "BackColour");
  EXPECT_EQ(keys[17], "History*");
  EXPECT_EQ(keys[34], "FontSize*");
}

TEST(KnownKeys, LeavesOutBufferSizeCopyAsRtfAndLocked) {
  const auto& keys = KnownKeys();
  for (const char* gone : {"BufferSizeKb", "CopyAsRTF", "Locked"})
    EXPECT_EQ(std::count(keys.begin(), keys.end(), gone), 0) << gone;
}

TEST(KnownKeys, IsBuiltOnce) { EXPECT_EQ(&KnownKeys(), &KnownKeys()); }

}  // namespace
}  // namespace ferrow
