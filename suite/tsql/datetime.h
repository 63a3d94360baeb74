// Dates as the server's datetime: 1753 to 9999, to the millisecond, kept as text 'YYYY-MM-DD HH:MM:SS[.mmm]'.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace salerpt::tsql {

struct DateTime {
  std::int64_t days = 0;          // since 1900-01-01
  std::int64_t milliseconds = 0;  // since midnight

  [[nodiscard]] std::string Canonical() const;
};

struct CivilDate {
  std::int64_t year;
  int month;
  int day;
};

std::int64_t DaysOfCivil(std::int64_t year, int month, int day);
CivilDate CivilOfDays(std::int64_t days);

// Reads the stored form; nothing when the text is not one.
std::optional<DateTime> ReadStored(std::string_view text);
// Reads any text that the server takes for a date, blank or empty being 1900-01-01. `style` is that of
// CONVERT, -1 none. Raises 241 for a text that is none and 242 for a date out of range.
DateTime ParseDateTime(std::string_view text, int style);
std::optional<DateTime> TryParseDateTime(std::string_view text, int style);
// The text of CONVERT(varchar, date, style); raises 281 for an unknown style.
std::string FormatDateTime(const DateTime& value, int style);

enum class DatePart : std::uint8_t {
  kYear,
  kQuarter,
  kMonth,
  kDayOfYear,
  kDay,
  kWeek,
  kWeekday,
  kHour,
  kMinute,
  kSecond,
  kMillisecond
};
// Of a word such as "yy" or "month"; nothing when it is none.
std::optional<DatePart> DatePartOfWord(std::string_view word);
// Raises 517 when the result leaves the range of a datetime.
DateTime AddToDate(const DateTime& value, DatePart part, std::int64_t count);
// Boundaries of the part that are crossed from `from` to `to`.
std::int64_t DateDifference(DatePart part, const DateTime& from, const DateTime& to);
std::int64_t PartOfDate(DatePart part, const DateTime& value);
// The name of the month or weekday, the number in digits for other parts.
std::string NameOfPart(DatePart part, const DateTime& value);
// Now, local time.
DateTime Now();

}  // namespace salerpt::tsql
