#include "support/dates.h"

#include <gtest/gtest.h>

#include <clocale>

namespace ferrow {
namespace {

TEST(OrdinalSuffix, FirstSecondThirdAndTh) {
  EXPECT_EQ(OrdinalSuffix(1), "st");
  EXPECT_EQ(OrdinalSuffix(2), "nd");
  EXPECT_EQ(OrdinalSuffix(3), "rd");
  EXPECT_EQ(OrdinalSuffix(4), "th");
  EXPECT_EQ(OrdinalSuffix(20), "th");
}

TEST(OrdinalSuffix, ElevenTwelveThirteenAreTh) {
  EXPECT_EQ(OrdinalSuffix(11), "th");
  EXPECT_EQ(OrdinalSuffix(12), "th");
  EXPECT_EQ(OrdinalSuffix(13), "th");
}

TEST(OrdinalSuffix, TwentyOneAndUpGoByLastDigit) {
  EXPECT_EQ(OrdinalSuffix(21), "st");
  EXPECT_EQ(OrdinalSuffix(22), "nd");
  EXPECT_EQ(OrdinalSuffix(23), "rd");
  EXPECT_EQ(OrdinalSuffix(24), "th");
  EXPECT_EQ(OrdinalSuffix(30), "th");
  EXPECT_EQ(OrdinalSuffix(31), "st");
  EXPECT_EQ(OrdinalSuffix(111), "st");
}

TEST(OrdinalSuffix, ZeroAndNegativeGiveNothing) {
  EXPECT_EQ(OrdinalSuffix(0), "");
  EXPECT_EQ(OrdinalSuffix(-3), "");
}

std::tm Moment(int year, int month, int day, int h, int m, int s) {
  std::tm t{};
  t.tm_year = year - 1900;
  t.tm_mon = month - 1;
  t.tm_mday = day;
  t.tm_hour = h;
  t.tm_min = m;
  t.tm_sec = s;
  t.tm_isdst = -1;
  std::mktime(&t);  // fills in the weekday
  return t;
}

TEST(LongDateText, DayNameOrdinalMonthYearAndTime) {
  std::setlocale(LC_TIME, "C");
  EXPECT_EQ(LongDateText(Moment(2026, 11, 16, 1, 45, 0)), "Monday 16th November 2026 - 01:45:00");
  EXPECT_EQ(LongDateText(Moment(2026, 11, 22, 23, 5, 9)), "Sunday 22nd November 2026 - 23:05:09");
}

TEST(LongDateText, WithoutArgumentTellsThePresent) {
  std::setlocale(LC_TIME, "C");
  std::tm now = LocalTime(std::time(nullptr));
  std::string text = LongDateText();
  EXPECT_NE(text.find(std::to_string(now.tm_year + 1900) + " - "), std::string::npos) << text;
}

}  // namespace
}  // namespace ferrow
