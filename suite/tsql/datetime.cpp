#include "suite/tsql/datetime.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <chrono>
#include <ctime>

#include "runtime/text.h"
#include "suite/tsql/error.h"

namespace salerpt::tsql {
namespace {

constexpr std::int64_t kDayMilliseconds = 86'400'000;
constexpr std::array<std::string_view, 12> kMonths = {"January",   "February", "March",    "April",
                                                      "May",       "June",     "July",     "August",
                                                      "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};

bool IsLeap(std::int64_t year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int MonthDays(std::int64_t year, int month) {
  static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeap(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

std::int64_t FloorDivide(std::int64_t a, std::int64_t b) {
  return a / b - (a % b != 0 && (a < 0) != (b < 0) ? 1 : 0);
}

int Weekday(std::int64_t days) {
  return static_cast<int>(((days + 1) % 7 + 7) % 7);
}  // 1900-01-01 was a Monday

void CheckRange(std::int64_t days) {
  static const std::int64_t kFirst = DaysOfCivil(1753, 1, 1);
  static const std::int64_t kLast = DaysOfCivil(9999, 12, 31);
  if (days < kFirst || days > kLast) Raise(517, "Adding a value to a 'datetime' column caused an overflow.");
}

// Reads a date text piece by piece.
class DateReader {
 public:
  DateReader(std::string_view text, int style)
      : rest_(Trim(text)), day_first_(style >= 103 && style <= 105) {}

  std::optional<DateTime> Read() {
    if (rest_.empty()) return DateTime{};
    if (!LooksLikeTime()) {
      if (!ReadDate()) return std::nullopt;
      if (rest_.starts_with('T') || rest_.starts_with('t')) rest_.remove_prefix(1);
    }
    rest_ = Trim(rest_);
    if (!rest_.empty() && !ReadTime()) return std::nullopt;
    return Valid();
  }

  // A date that could be read but is outside the range, such as 1600-01-01 or February 30.
  [[nodiscard]] bool OutOfRange() const { return out_of_range_; }

 private:
  [[nodiscard]] bool LooksLikeTime() const {
    const std::size_t colon = rest_.find(':');
    return colon != std::string_view::npos && colon <= 2;
  }

  bool ReadNumber(std::int64_t& value, std::size_t* digits = nullptr) {
    std::size_t size = 0;
    while (size < rest_.size() && rest_[size] >= '0' && rest_[size] <= '9') ++size;
    if (size == 0 || size > 8) return false;
    std::from_chars(rest_.data(), rest_.data() + size, value);
    rest_.remove_prefix(size);
    if (digits != nullptr) *digits = size;
    return true;
  }

  bool ReadMonthName() {
    for (std::size_t i = 0; i < kMonths.size(); ++i) {
      for (const std::size_t length : {kMonths[i].size(), std::size_t{3}}) {
        if (rest_.size() < length || !EqualNames(rest_.substr(0, length), kMonths[i].substr(0, length)))
          continue;
        month_ = static_cast<std::int64_t>(i) + 1;
        rest_.remove_prefix(length);
        return true;
      }
    }
    return false;
  }

  void SkipBlanks() {
    while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == ',')) rest_.remove_prefix(1);
  }

  bool ReadDate() {
    if (ReadMonthName()) {  // Jan 5 2024
      SkipBlanks();
      if (!ReadNumber(day_)) return false;
      SkipBlanks();
      return ReadYear();
    }
    std::int64_t first = 0;
    std::size_t digits = 0;
    if (!ReadNumber(first, &digits)) return false;
    if (digits == 8 || digits == 6) {
      year_ = digits == 8 ? first / 10000 : FullYear(first / 10000);
      month_ = first / 100 % 100;
      day_ = first % 100;
      return true;
    }
    if (digits == 4 && (rest_.empty() || (rest_[0] != '-' && rest_[0] != '/' && rest_[0] != '.'))) {
      year_ = first;
      month_ = day_ = 1;
      return rest_.empty();
    }
    SkipBlanks();
    if (ReadMonthName()) {  // 5 Jan 2024
      day_ = first;
      SkipBlanks();
      return ReadYear();
    }
    return ReadSeparated(first, digits);
  }

  bool ReadSeparated(std::int64_t first, std::size_t digits) {
    std::int64_t second = 0;
    std::int64_t third = 0;
    std::size_t third_digits = 0;
    if (!TakeSeparator() || !ReadNumber(second) || !TakeSeparator() || !ReadNumber(third, &third_digits))
      return false;
    if (digits == 4) {
      year_ = first;
      month_ = second;
      day_ = third;
      return true;
    }
    if (digits > 2 || (third_digits != 2 && third_digits != 4)) return false;
    year_ = third_digits == 4 ? third : FullYear(third);
    month_ = day_first_ ? second : first;
    day_ = day_first_ ? first : second;
    return true;
  }

  bool TakeSeparator() {
    if (rest_.empty() || (rest_[0] != '-' && rest_[0] != '/' && rest_[0] != '.')) return false;
    rest_.remove_prefix(1);
    return true;
  }

  static std::int64_t FullYear(std::int64_t year) { return year < 50 ? 2000 + year : 1900 + year; }

  bool ReadYear() {
    std::size_t digits = 0;
    if (!ReadNumber(year_, &digits)) return false;
    if (digits <= 2) year_ = FullYear(year_);
    return digits == 2 || digits == 4;
  }

  bool ReadTime() {
    if (!ReadNumber(hour_) || !rest_.starts_with(':')) return false;
    rest_.remove_prefix(1);
    if (!ReadNumber(minute_)) return false;
    if (rest_.starts_with(':')) {
      rest_.remove_prefix(1);
      if (!ReadNumber(second_)) return false;
      if (rest_.starts_with('.') || rest_.starts_with(':')) {
        rest_.remove_prefix(1);
        std::size_t digits = 0;
        if (!ReadNumber(fraction_, &digits) || digits > 3) return false;
        for (; digits < 3; ++digits) fraction_ *= 10;
      }
    }
    rest_ = Trim(rest_);
    const bool afternoon = EqualNames(rest_, "pm");
    if (!rest_.empty() && !afternoon && !EqualNames(rest_, "am")) return false;
    if (!rest_.empty() && (hour_ > 12 || hour_ < 1)) return false;
    if (!rest_.empty()) hour_ = hour_ % 12 + (afternoon ? 12 : 0);
    return true;
  }

  std::optional<DateTime> Valid() {
    if (hour_ > 23 || minute_ > 59 || second_ > 59) return std::nullopt;
    if (month_ < 1 || month_ > 12 || year_ < 1753 || day_ < 1 ||
        day_ > MonthDays(year_, static_cast<int>(month_))) {
      out_of_range_ = true;
      return std::nullopt;
    }
    return DateTime{DaysOfCivil(year_, static_cast<int>(month_), static_cast<int>(day_)),
                    ((hour_ * 60 + minute_) * 60 + second_) * 1000 + fraction_};
  }

  std::string_view rest_;
  bool day_first_;
  bool out_of_range_ = false;
  std::int64_t year_ = 1900;
  std::int64_t month_ = 1;
  std::int64_t day_ = 1;
  std::int64_t hour_ = 0;
  std::int64_t minute_ = 0;
  std::int64_t second_ = 0;
  std::int64_t fraction_ = 0;
};

}  // namespace

std::int64_t DaysOfCivil(std::int64_t year, int month, int day) {
  year -= month <= 2 ? 1 : 0;
  const std::int64_t era = FloorDivide(year, 400);
  const std::int64_t year_of_era = year - era * 400;
  const std::int64_t day_of_year = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const std::int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 719468 + 25567;  // from 1970 to 1900
}

CivilDate CivilOfDays(std::int64_t days) {
  days += 719468 - 25567;
  const std::int64_t era = FloorDivide(days, 146097);
  const std::int64_t day_of_era = days - era * 146097;
  const std::int64_t year_of_era =
      (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const std::int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const std::int64_t shifted = (5 * day_of_year + 2) / 153;
  const int day = static_cast<int>(day_of_year - (153 * shifted + 2) / 5 + 1);
  const int month = static_cast<int>(shifted < 10 ? shifted + 3 : shifted - 9);
  return {year_of_era + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

std::string DateTime::Canonical() const {
  const CivilDate date = CivilOfDays(days);
  const std::int64_t seconds = milliseconds / 1000;
  std::string text = fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", date.year, date.month, date.day,
                                 seconds / 3600, seconds / 60 % 60, seconds % 60);
  if (milliseconds % 1000 != 0) text += fmt::format(".{:03}", milliseconds % 1000);
  return text;
}

std::optional<DateTime> ReadStored(std::string_view text) {
  return DateReader(text, -1).Read();
}

std::optional<DateTime> TryParseDateTime(std::string_view text, int style) {
  return DateReader(text, style).Read();
}

DateTime ParseDateTime(std::string_view text, int style) {
  DateReader reader(text, style);
  const std::optional<DateTime> value = reader.Read();
  if (value) return *value;
  if (reader.OutOfRange()) {
    Raise(242,
          "The conversion of a varchar data type to a datetime data type resulted in an out-of-range value.");
  }
  Raise(241, std::string(kDateConversionText));
}

std::string FormatDateTime(const DateTime& value, int style) {
  const CivilDate date = CivilOfDays(value.days);
  const std::int64_t seconds = value.milliseconds / 1000;
  const std::int64_t hour = seconds / 3600;
  const std::string year =
      style < 100 ? fmt::format("{:02}", date.year % 100) : fmt::format("{:04}", date.year);
  const std::string month = fmt::format("{:02}", date.month);
  const std::string day = fmt::format("{:02}", date.day);
  const std::string_view name = kMonths[static_cast<std::size_t>(date.month - 1)].substr(0, 3);
  const std::string time = fmt::format("{:02}:{:02}:{:02}", hour, seconds / 60 % 60, seconds % 60);
  const std::string thousandths = fmt::format("{:03}", value.milliseconds % 1000);
  const std::int64_t hour12 = hour % 12 == 0 ? 12 : hour % 12;
  const std::string_view half = hour < 12 ? "AM" : "PM";
  switch (style) {
    case 0:
    case 100:
      return fmt::format("{} {:>2} {:04} {:>2}:{:02}{}", name, date.day, date.year, hour12, seconds / 60 % 60,
                         half);
    case 9:
    case 109:
      return fmt::format("{} {:>2} {:04} {:>2}:{:02}:{:02}:{}{}", name, date.day, date.year, hour12,
                         seconds / 60 % 60, seconds % 60, thousandths, half);
    case 1:
    case 101:
      return month + "/" + day + "/" + year;
    case 2:
    case 102:
      return year + "." + month + "." + day;
    case 3:
    case 103:
      return day + "/" + month + "/" + year;
    case 4:
    case 104:
      return day + "." + month + "." + year;
    case 5:
    case 105:
      return day + "-" + month + "-" + year;
    case 6:
    case 106:
      return fmt::format("{} {} {}", day, name, year);
    case 7:
    case 107:
      return fmt::format("{} {}, {}", name, day, year);
    case 8:
    case 108:
      return time;
    case 10:
    case 110:
      return month + "-" + day + "-" + year;
    case 11:
    case 111:
      return year + "/" + month + "/" + day;
    case 12:
    case 112:
      return year + month + day;
    case 13:
    case 113:
      return fmt::format("{} {} {:04} {}:{}", day, name, date.year, time, thousandths);
    case 14:
    case 114:
      return time + ":" + thousandths;
    case 20:
    case 120:
      return fmt::format("{:04}-{}-{} {}", date.year, month, day, time);
    case 21:
    case 121:
      return fmt::format("{:04}-{}-{} {}.{}", date.year, month, day, time, thousandths);
    case 23:
      return fmt::format("{:04}-{}-{}", date.year, month, day);
    case 126:
      return fmt::format("{:04}-{}-{}T{}.{}", date.year, month, day, time, thousandths);
    default:
      Raise(281,
            fmt::format("{} is not a valid style number when converting from datetime to a character string.",
                        style));
  }
}

std::optional<DatePart> DatePartOfWord(std::string_view word) {
  struct Entry {
    std::string_view word;
    DatePart part;
  };
  static constexpr Entry kWords[] = {{"year", DatePart::kYear},       {"yy", DatePart::kYear},
                                     {"yyyy", DatePart::kYear},       {"quarter", DatePart::kQuarter},
                                     {"qq", DatePart::kQuarter},      {"q", DatePart::kQuarter},
                                     {"month", DatePart::kMonth},     {"mm", DatePart::kMonth},
                                     {"m", DatePart::kMonth},         {"dayofyear", DatePart::kDayOfYear},
                                     {"dy", DatePart::kDayOfYear},    {"y", DatePart::kDayOfYear},
                                     {"day", DatePart::kDay},         {"dd", DatePart::kDay},
                                     {"d", DatePart::kDay},           {"week", DatePart::kWeek},
                                     {"wk", DatePart::kWeek},         {"ww", DatePart::kWeek},
                                     {"weekday", DatePart::kWeekday}, {"dw", DatePart::kWeekday},
                                     {"w", DatePart::kWeekday},       {"hour", DatePart::kHour},
                                     {"hh", DatePart::kHour},         {"minute", DatePart::kMinute},
                                     {"mi", DatePart::kMinute},       {"n", DatePart::kMinute},
                                     {"second", DatePart::kSecond},   {"ss", DatePart::kSecond},
                                     {"s", DatePart::kSecond},        {"millisecond", DatePart::kMillisecond},
                                     {"ms", DatePart::kMillisecond}};
  for (const Entry& entry : kWords) {
    if (EqualNames(entry.word, word)) return entry.part;
  }
  return std::nullopt;
}

DateTime AddToDate(const DateTime& value, DatePart part, std::int64_t count) {
  if (count > 4'000'000'000'000 || count < -4'000'000'000'000) CheckRange(INT64_MAX);
  DateTime result = value;
  std::int64_t unit = 0;
  switch (part) {
    case DatePart::kYear:
    case DatePart::kQuarter:
    case DatePart::kMonth: {
      const std::int64_t months = count * (part == DatePart::kYear ? 12 : part == DatePart::kQuarter ? 3 : 1);
      const CivilDate date = CivilOfDays(value.days);
      const std::int64_t index = date.year * 12 + date.month - 1 + months;
      const std::int64_t year = FloorDivide(index, 12);
      const int month = static_cast<int>(index - year * 12) + 1;
      if (year < 1 || year > 9999) CheckRange(INT64_MAX);
      result.days = DaysOfCivil(year, month, std::min(date.day, MonthDays(year, month)));
      CheckRange(result.days);
      return result;
    }
    case DatePart::kWeek:
      count *= 7;
      [[fallthrough]];
    case DatePart::kDay:
    case DatePart::kDayOfYear:
    case DatePart::kWeekday:
      result.days += count;
      CheckRange(result.days);
      return result;
    case DatePart::kHour:
      unit = 3'600'000;
      break;
    case DatePart::kMinute:
      unit = 60'000;
      break;
    case DatePart::kSecond:
      unit = 1000;
      break;
    case DatePart::kMillisecond:
      unit = 1;
      break;
  }
  const std::int64_t total = value.milliseconds + count * unit;
  const std::int64_t days = FloorDivide(total, kDayMilliseconds);
  result.days += days;
  result.milliseconds = total - days * kDayMilliseconds;
  CheckRange(result.days);
  return result;
}

std::int64_t DateDifference(DatePart part, const DateTime& from, const DateTime& to) {
  const CivilDate a = CivilOfDays(from.days);
  const CivilDate b = CivilOfDays(to.days);
  const std::int64_t days = to.days - from.days;
  const auto boundaries = [&](std::int64_t unit) {
    return FloorDivide(to.days * kDayMilliseconds + to.milliseconds, unit) -
           FloorDivide(from.days * kDayMilliseconds + from.milliseconds, unit);
  };
  switch (part) {
    case DatePart::kYear:
      return b.year - a.year;
    case DatePart::kQuarter:
      return (b.year - a.year) * 4 + (b.month - 1) / 3 - (a.month - 1) / 3;
    case DatePart::kMonth:
      return (b.year - a.year) * 12 + b.month - a.month;
    case DatePart::kWeek:  // weeks begin on Sunday
      return FloorDivide(to.days + 1, 7) - FloorDivide(from.days + 1, 7);
    case DatePart::kHour:
      return boundaries(3'600'000);
    case DatePart::kMinute:
      return boundaries(60'000);
    case DatePart::kSecond:
      return boundaries(1000);
    case DatePart::kMillisecond:
      return boundaries(1);
    default:
      return days;
  }
}

std::int64_t PartOfDate(DatePart part, const DateTime& value) {
  const CivilDate date = CivilOfDays(value.days);
  const std::int64_t day_of_year = value.days - DaysOfCivil(date.year, 1, 1) + 1;
  switch (part) {
    case DatePart::kYear:
      return date.year;
    case DatePart::kQuarter:
      return (date.month - 1) / 3 + 1;
    case DatePart::kMonth:
      return date.month;
    case DatePart::kDayOfYear:
      return day_of_year;
    case DatePart::kDay:
      return date.day;
    case DatePart::kWeek:
      return (day_of_year - 1 + Weekday(DaysOfCivil(date.year, 1, 1))) / 7 + 1;
    case DatePart::kWeekday:
      return Weekday(value.days) + 1;
    case DatePart::kHour:
      return value.milliseconds / 3'600'000;
    case DatePart::kMinute:
      return value.milliseconds / 60'000 % 60;
    case DatePart::kSecond:
      return value.milliseconds / 1000 % 60;
    default:
      return value.milliseconds % 1000;
  }
}

std::string NameOfPart(DatePart part, const DateTime& value) {
  const auto number = PartOfDate(part, value);
  if (part == DatePart::kMonth) return std::string(kMonths[static_cast<std::size_t>(number - 1)]);
  if (part == DatePart::kWeekday) return std::string(kWeekdays[static_cast<std::size_t>(number - 1)]);
  return std::to_string(number);
}

DateTime Now() {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count();
  return {DaysOfCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday),
          ((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec) * std::int64_t{1000} + since % 1000};
}

}  // namespace salerpt::tsql
