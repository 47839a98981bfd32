#include "about/tips.h"

#include <gtest/gtest.h>

#include <set>

#include "support/random.h"

namespace ferrow {
namespace {

TEST(Tips, FortyOneTipsNoneEmpty) {
  for (const std::string& tip : Tips()) EXPECT_FALSE(tip.empty());
  EXPECT_EQ(Tips().size(), 41u);
}

TEST(Tips, DragAndDropFillsEveryThirdSlot) {
  for (int i : {0, 3, 6, 9, 12, 15, 18, 21, 24, 27, 30, 34, 39})
    EXPECT_EQ(Tips()[i], "Drag and drop files onto the input bar") << i;
  EXPECT_EQ(Tips()[2], "UNC paths (\\\\server\\path) are supported)");
  EXPECT_EQ(Tips()[31], "You can associate *.LOG files with Ferrow");
}

TEST(ShowTip, NeverTheSameIndexTwiceInARowAndEveryIndexComesUp) {
  SystemRandom random;
  int16_t last = 0;
  std::set<int> seen;
  for (int draw = 0; draw < 5000; ++draw) {
    int16_t before = last;
    std::string caption = ShowTip(last, random);
    ASSERT_NE(last, before);
    EXPECT_EQ(caption, "Tip: " + Tips()[static_cast<size_t>(last)]);
    seen.insert(last);
  }
  EXPECT_EQ(seen.size(), 41u);
}

TEST(ShowTip, FirstTipAfterStartIsNeverSlotZero) {
  class Script : public RandomSource {
   public:
    double Rnd() override { return calls++ == 0 ? 0.0 : 0.5; }
    int calls = 0;
  } random;
  int16_t last = 0;
  ShowTip(last, random);
  EXPECT_EQ(last, 20);
  EXPECT_EQ(random.calls, 2);
}

}  // namespace
}  // namespace ferrow
