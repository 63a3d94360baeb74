#include "runtime/date.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/variant.h"

namespace salerpt {
namespace {

using std::chrono::sys_days;

constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr double kSecondsPerDay = 86400;
constexpr sys_days kDayZero{std::chrono::year{1899} / 12 / 30};
constexpr int kFirstDay = (sys_days{std::chrono::year{kFirstYear} / 1 / 1} - kDayZero).count();
constexpr int kLastDay = (sys_days{std::chrono::year{kLastYear} / 12 / 31} - kDayZero).count();

bool IsTime(int hour, int minute, int second) {
  return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

std::optional<Date> Make(int year, int month, int day, int hour, int minute, int second) {
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12 || day < 1 || day > 31)
    return std::nullopt;
  const std::chrono::year_month_day ymd{std::chrono::year{year},
                                        std::chrono::month{static_cast<unsigned>(month)},
                                        std::chrono::day{static_cast<unsigned>(day)}};
  if (!ymd.ok() || !IsTime(hour, minute, second)) return std::nullopt;
  const auto days = static_cast<double>((sys_days{ymd} - kDayZero).count());
  const double time = ((hour * 60 + minute) * 60 + second) / kSecondsPerDay;
  // Before day zero the time counts away from zero: -1.25 is six in the morning of the day before it.
  return Date(days < 0 ? days - time : days + time);
}

// Takes `least` to `most` digits away from the front; -1 where there are fewer.
int TakeNumber(std::string_view& text, std::size_t least, std::size_t most) {
  std::size_t count = 0;
  int value = 0;
  while (count < most && count < text.size() && text[count] >= '0' && text[count] <= '9') {
    value = value * 10 + (text[count++] - '0');
  }
  if (count < least) return -1;
  text.remove_prefix(count);
  return value;
}

bool TakeMark(std::string_view& text, char mark) {
  if (!text.starts_with(mark)) return false;
  text.remove_prefix(1);
  return true;
}

struct TimeOfDay {
  int hour = 0, minute = 0, second = 0;
};

// Reads " 8:30" or " 08:30:00" to the end; midnight where nothing is left.
std::optional<TimeOfDay> ParseTime(std::string_view text) {
  TimeOfDay time;
  if (text.empty()) return time;
  if (!TakeMark(text, ' ')) return std::nullopt;
  time.hour = TakeNumber(text, 1, 2);
  if (!TakeMark(text, ':')) return std::nullopt;
  time.minute = TakeNumber(text, 2, 2);
  if (TakeMark(text, ':')) time.second = TakeNumber(text, 2, 2);
  if (!text.empty()) return std::nullopt;
  return time;
}

char* WriteDigits(char* at, int value, int digits) {
  for (int i = digits - 1; i >= 0; --i, value /= 10) at[i] = static_cast<char>('0' + value % 10);
  return at + digits;
}

char* WriteDay(char* at, const Date::Parts& parts, char separator) {
  at = WriteDigits(at, parts.year, 4);
  *at++ = separator;
  at = WriteDigits(at, parts.month, 2);
  *at++ = separator;
  return WriteDigits(at, parts.day, 2);
}

}  // namespace

Date Date::FromYmd(int year, int month, int day, int hour, int minute, int second) {
  if (const auto date = Make(year, month, day, hour, minute, second)) return *date;
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("there is no day ", year, "-", month, "-", day, " ", hour, ":", minute, ":", second,
                          "; a day of the years 100 to 9999 was expected"));
}

std::optional<Date> Date::Parse(std::string_view text) {
  const int year = TakeNumber(text, 4, 4);
  const char separator = text.empty() ? '\0' : text.front();
  if (separator != '-' && separator != '/') return std::nullopt;
  text.remove_prefix(1);
  const int month = TakeNumber(text, 1, 2);
  if (!TakeMark(text, separator)) return std::nullopt;
  const int day = TakeNumber(text, 1, 2);
  const auto time = ParseTime(text);
  if (!time) return std::nullopt;
  return Make(year, month, day, time->hour, time->minute, time->second);
}

Date::Parts Date::Split() const {
  if (!(serial_ > kFirstDay - 1 && serial_ < kLastDay + 1)) {
    throw RuntimeError(error_number::kOverflow, "",
                       Join("the number ", NumberText(serial_), " is no day of the years 100 to 9999"));
  }
  auto days = static_cast<int>(serial_);
  auto seconds = static_cast<int>(std::lround(std::fabs(serial_ - days) * kSecondsPerDay));
  if (seconds == static_cast<int>(kSecondsPerDay)) {
    ++days;
    seconds = 0;
  }
  const std::chrono::year_month_day ymd{kDayZero + std::chrono::days{days}};
  return {static_cast<int>(ymd.year()),
          static_cast<int>(static_cast<unsigned>(ymd.month())),
          static_cast<int>(static_cast<unsigned>(ymd.day())),
          seconds / 3600,
          seconds / 60 % 60,
          seconds % 60};
}

std::string Date::ToText() const {
  const Parts parts = Split();
  std::array<char, 19> buffer{};
  char* at = WriteDay(buffer.data(), parts, '-');
  if (parts.hour != 0 || parts.minute != 0 || parts.second != 0) {
    *at++ = ' ';
    at = WriteDigits(at, parts.hour, 2);
    *at++ = ':';
    at = WriteDigits(at, parts.minute, 2);
    *at++ = ':';
    at = WriteDigits(at, parts.second, 2);
  }
  return {buffer.data(), at};
}

std::string Date::Format(char separator) const {
  std::array<char, 10> buffer{};
  return {buffer.data(), WriteDay(buffer.data(), Split(), separator)};
}

}  // namespace salerpt
