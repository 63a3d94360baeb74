// Dates as the automation date type holds them.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace salerpt {

// A point in time: days since 1899-12-30 with the time of day as the fraction. Years 100 to 9999.
class Date {
 public:
  constexpr Date() = default;
  explicit constexpr Date(double serial) : serial_(serial) {}
  // Raises invalid call where there is no such day.
  static Date FromYmd(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
  // Reads "2003-7-1", "2003/07/01", with or without " 8:30", " 08:30:00" behind it. Nothing for any other
  // text.
  static std::optional<Date> Parse(std::string_view text);

  // Days since 1899-12-30, as the automation date type holds them.
  [[nodiscard]] constexpr double Serial() const { return serial_; }
  // The calendar's parts, to the nearest second. Raises overflow outside of the years 100 to 9999.
  struct Parts {
    int year, month, day, hour, minute, second;
  };
  [[nodiscard]] Parts Split() const;
  // "2003-07-01", and " 08:30:00" behind it where the time is not midnight.
  [[nodiscard]] std::string ToText() const;
  // The day with a separator of one's own: Format('/') is "2003/07/01".
  [[nodiscard]] std::string Format(char separator) const;

  friend constexpr auto operator<=>(Date, Date) = default;

 private:
  double serial_ = 0;
};

}  // namespace salerpt
