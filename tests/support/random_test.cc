#include "support/random.h"

#include <gtest/gtest.h>

namespace ferrow {
namespace {

class FixedRandom : public RandomSource {
 public:
  explicit FixedRandom(double value) : value_(value) {}
  double Rnd() override { return value_; }

 private:
  double value_;
};

TEST(RandomBetween, ScalesRndOntoLowToHigh) {
  FixedRandom zero(0.0), half(0.5), almost_one(0.999999);
  EXPECT_EQ(RandomBetween(1, 6, zero), 1);
  EXPECT_EQ(RandomBetween(1, 6, half), 4);
  EXPECT_EQ(RandomBetween(1, 6, almost_one), 6);
}

TEST(RandomBetween, RoundsDownForNegativeRanges) {
  FixedRandom r(0.3);
  EXPECT_EQ(RandomBetween(-5, -1, r), -4);  // Int(5 * 0.3 - 5) = Int(-3.5) = -4
}

TEST(RandomBetween, SystemSourceStaysInRange) {
  SystemRandom random;
  bool seen_low = false, seen_high = false;
  for (int i = 0; i < 2000; ++i) {
    int n = RandomBetween(1, 41, random);
    ASSERT_GE(n, 1);
    ASSERT_LE(n, 41);
    seen_low |= n == 1;
    seen_high |= n == 41;
  }
  EXPECT_TRUE(seen_low);
  EXPECT_TRUE(seen_high);
}

}  // namespace
}  // namespace ferrow
