#include "suite/accountset/generator/calendar.h"

#include <fmt/format.h>

#include <chrono>

namespace salerpt::accountset::generator {
namespace {

namespace chrono = std::chrono;

constexpr chrono::sys_days kFirstDay{chrono::year{kFirstYear} / 1 / 1};

}  // namespace

CalendarDay DayOf(int index) {
  const chrono::sys_days point = kFirstDay + chrono::days{index};
  const chrono::year_month_day date{point};
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(chrono::weekday{point}.c_encoding())};
}

int DayCount() {
  const auto end = chrono::year_month{chrono::year{kFirstYear}, chrono::month{1}} + chrono::months{kMonths};
  return static_cast<int>((chrono::sys_days{end / 1} - kFirstDay).count());
}

std::string DateText(int index) {
  const auto date = DayOf(index);
  return fmt::format("{:04}-{:02}-{:02} 00:00:00", date.year, date.month, date.day);
}

}  // namespace salerpt::accountset::generator
