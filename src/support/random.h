#pragma once

#include <random>

namespace ferrow {

// The source of Rnd: uniformly distributed numbers in [0, 1).
class RandomSource {
 public:
  virtual ~RandomSource() = default;
  virtual double Rnd() = 0;
};

// A RandomSource seeded from the clock and the OS.
class SystemRandom : public RandomSource {
 public:
  SystemRandom();
  double Rnd() override;

 private:
  std::mt19937 engine_;
};

// Int((high - low + 1) * Rnd + low): a whole number from low to high.
int RandomBetween(int low, int high, RandomSource& random);

}  // namespace ferrow
