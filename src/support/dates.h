#pragma once

#include <ctime>
#include <string>

namespace ferrow {

// "st", "nd", "rd" or "th" for a day of the month; "" below 1.
std::string OrdinalSuffix(int day);

// e.g. "Monday 16th November 2026 - 01:45:00", with the day and month names
// of the C library's current LC_TIME locale.
std::string LongDateText(const std::tm& when);
std::string LongDateText();  // the present moment, local time

// strftime into a string.
std::string FormatTime(const char* format, const std::tm& when);

// The local time of `t`, thread-safe on every system.
std::tm LocalTime(std::time_t t);

}  // namespace ferrow
