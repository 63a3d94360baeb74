// The days that the made-up company has lived through.
#pragma once

#include <string>

namespace salerpt::accountset::generator {

inline constexpr int kFirstYear = 2023;
inline constexpr int kMonths = 30;

// A day, counted from 0 = 2023-01-01. Days behind the last one have not come yet.
struct CalendarDay {
  int year;
  int month;    // 1 to 12
  int day;      // 1 to 31
  int weekday;  // 0 Sunday to 6 Saturday
};
CalendarDay DayOf(int index);

// How many days the company has lived: the last one ends the thirtieth month.
int DayCount();

// "2023-01-01 00:00:00".
std::string DateText(int index);

}  // namespace salerpt::accountset::generator
