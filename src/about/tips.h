// The line of tips on the control window.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace ferrow {

class RandomSource;

constexpr int kTipCount = 41;

// Indices 0 to 40; the drag-and-drop tip fills every third slot so that it
// comes up most often.
const std::array<std::string, kTipCount>& Tips();

// Draws a tip index other than `last_tip`, stores it in `last_tip` and
// returns the label's caption, "Tip: " + the tip.
std::string ShowTip(int16_t& last_tip, RandomSource& random);

}  // namespace ferrow
