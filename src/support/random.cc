#include "support/random.h"

#include <chrono>
#include <cmath>

namespace ferrow {

SystemRandom::SystemRandom()
    : engine_(std::random_device{}() ^
              static_cast<unsigned>(std::chrono::steady_clock::now().time_since_epoch().count())) {}

// 32 random bits over 2^32: never 1.0, unlike some generate_canonical builds.
double SystemRandom::Rnd() { return engine_() / 4294967296.0; }

int RandomBetween(int low, int high, RandomSource& random) {
  // Int() rounds towards minus infinity, also for negative ranges.
  return static_cast<int>(std::floor((high - low + 1) * random.Rnd() + low));
}

}  // namespace ferrow
