#include "runtime/date.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

std::string TextOf(std::string_view text) {
  const auto date = Date::Parse(text);
  return date ? date->ToText() : "nothing";
}

TEST(Date, CountsDaysFromTheEndOf1899) {
  EXPECT_EQ(Date::FromYmd(1899, 12, 30).Serial(), 0);
  EXPECT_EQ(Date::FromYmd(1900, 1, 1).Serial(), 2);
  EXPECT_EQ(Date::FromYmd(1900, 3, 1).Serial(), 61);
  EXPECT_EQ(Date::FromYmd(2003, 7, 1).Serial(), 37803);
  EXPECT_EQ(Date::FromYmd(1899, 12, 29).Serial(), -1);
}

TEST(Date, HoldsTheYears100To9999) {
  EXPECT_EQ(Date::FromYmd(100, 1, 1).Serial(), -657434);
  EXPECT_EQ(Date::FromYmd(9999, 12, 31).Serial(), 2958465);
  EXPECT_EQ(Date::FromYmd(100, 1, 1).ToText(), "0100-01-01");
  EXPECT_EQ(Date::FromYmd(9999, 12, 31, 23, 59, 59).ToText(), "9999-12-31 23:59:59");
}

TEST(Date, HoldsTheTimeAsAFraction) {
  EXPECT_EQ(Date::FromYmd(1899, 12, 30, 18).Serial(), 0.75);
  EXPECT_EQ(Date::FromYmd(2003, 7, 1, 6).Serial(), 37803.25);
}

TEST(Date, CountsTheTimeAwayFromDayZeroBeforeIt) {
  EXPECT_EQ(Date::FromYmd(1899, 12, 29, 6).Serial(), -1.25);
  EXPECT_EQ(Date(-1.25).ToText(), "1899-12-29 06:00:00");
  EXPECT_EQ(Date::FromYmd(100, 1, 1, 12).ToText(), "0100-01-01 12:00:00");
}

TEST(Date, RaisesInvalidCallForADayThatIsNone) {
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(2003, 2, 29); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(2003, 13, 1); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(2003, 0, 1); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(2003, 1, 0); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(2003, 1, -1); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(2003, 257, 1); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(99, 12, 31); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(10000, 1, 1); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(2003, 1, 1, 24); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(2003, 1, 1, 0, 60); }), error_number::kInvalidCall);
}

TEST(Date, KnowsLeapYears) {
  EXPECT_EQ(Date::FromYmd(2004, 2, 29).ToText(), "2004-02-29");
  EXPECT_EQ(Date::FromYmd(2000, 2, 29).ToText(), "2000-02-29");
  EXPECT_EQ(NumberRaisedBy([] { Date::FromYmd(1900, 2, 29); }), error_number::kInvalidCall);
}

TEST(Date, PrintsTheTimeOnlyBesideMidnight) {
  EXPECT_EQ(Date::FromYmd(2003, 7, 1).ToText(), "2003-07-01");
  EXPECT_EQ(Date::FromYmd(2003, 7, 1, 8, 30).ToText(), "2003-07-01 08:30:00");
  EXPECT_EQ(Date::FromYmd(2003, 7, 1, 0, 0, 1).ToText(), "2003-07-01 00:00:01");
}

TEST(Date, SplitsToTheNearestSecond) {
  const Date::Parts parts = Date::FromYmd(2003, 7, 1, 23, 59, 59).Split();
  EXPECT_EQ(parts.year, 2003);
  EXPECT_EQ(parts.month, 7);
  EXPECT_EQ(parts.day, 1);
  EXPECT_EQ(parts.hour, 23);
  EXPECT_EQ(parts.minute, 59);
  EXPECT_EQ(parts.second, 59);
  EXPECT_EQ(Date(std::nextafter(37804.0, 0.0)).ToText(), "2003-07-02");
}

TEST(Date, RaisesOverflowWhereANumberIsNoDay) {
  EXPECT_EQ(NumberRaisedBy([] { (void)Date(1e300).Split(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Date(-1e9).ToText(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Date(std::nan("")).Format('/'); }), error_number::kOverflow);
}

TEST(Date, FormatsTheDayWithASeparator) {
  EXPECT_EQ(Date::FromYmd(2003, 7, 1, 8).Format('/'), "2003/07/01");
  EXPECT_EQ(Date::FromYmd(2003, 7, 1).Format('.'), "2003.07.01");
}

TEST(Date, ReadsDays) {
  EXPECT_EQ(TextOf("2003-7-1"), "2003-07-01");
  EXPECT_EQ(TextOf("2003/07/01"), "2003-07-01");
  EXPECT_EQ(TextOf("2004-2-29"), "2004-02-29");
}

TEST(Date, ReadsTimesBehindDays) {
  EXPECT_EQ(TextOf("2003-7-1 8:30"), "2003-07-01 08:30:00");
  EXPECT_EQ(TextOf("2003/07/01 08:30:59"), "2003-07-01 08:30:59");
  EXPECT_EQ(TextOf("2003-07-01 00:00:00"), "2003-07-01");
}

TEST(Date, ReadsNoOtherText) {
  for (const char* text : {"",
                           "2003",
                           "2003-",
                           "2003-7",
                           "2003-7-",
                           "2003-7/1",
                           "03-7-1",
                           "20030701",
                           "2003-7-32",
                           "2003-2-29",
                           "2003-7-1 ",
                           "2003-7-1 8",
                           "2003-7-1 8:",
                           "2003-7-1 24:00",
                           "2003-7-1 8:60",
                           "2003-7-1 8:30:",
                           "2003-7-1 8:30:61",
                           "2003-7-1x",
                           "2003-7-1  8:30",
                           "2003-007-1",
                           "-2003-7-1",
                           "1.7.2003",
                           "today",
                           "0099-01-01"}) {
    EXPECT_EQ(TextOf(text), "nothing") << text;
  }
}

TEST(Date, ComparesByTime) {
  EXPECT_LT(Date::FromYmd(2003, 7, 1), Date::FromYmd(2003, 7, 1, 0, 0, 1));
  EXPECT_EQ(Date::FromYmd(2003, 7, 1), Date(37803));
}

}  // namespace
}  // namespace salerpt
