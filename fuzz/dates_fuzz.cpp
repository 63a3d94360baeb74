// Any text as a date: the library and the engine agree about it, and a date that was read survives being
// written and read again.
#include <cmath>
#include <optional>
#include <string>

#include "fuzz/require.h"
#include "runtime/date.h"
#include "runtime/error.h"
#include "runtime/variant.h"
#include "suite/tsql/datetime.h"
#include "suite/tsql/session.h"

namespace {

using salerpt::Date;
using salerpt::fuzz::Require;
namespace tsql = salerpt::tsql;

constexpr int kStyles[] = {-1, 0, 1, 3, 101, 102, 103, 104, 105, 110, 111, 112, 120, 121, 126};

// A day and a time of day of both kinds are the same.
void RequireSame(const Date& date, const tsql::DateTime& moment) {
  const Date::Parts parts = date.Split();
  const tsql::CivilDate day = tsql::CivilOfDays(moment.days);
  Require(parts.year == day.year && parts.month == day.month && parts.day == day.day);
  Require(((parts.hour * 60 + parts.minute) * 60 + parts.second) * 1000 == moment.milliseconds);
}

void CheckLibrary(std::string_view text) {
  const std::optional<Date> date = Date::Parse(text);
  if (!date) return;
  Require(Date::Parse(date->ToText()) == date);
  Require(date->ToText().starts_with(date->Format('-')));
  const Date::Parts parts = date->Split();
  Require(Date::FromYmd(parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second) == *date);
  Require(salerpt::Variant(text).ToDate() == *date);
  constexpr int kFirstYearOfTheServer = 1753;
  const auto moment = tsql::TryParseDateTime(text, -1);
  Require(moment.has_value() == (parts.year >= kFirstYearOfTheServer));
  if (moment) RequireSame(*date, *moment);
}

bool IsSame(const std::optional<tsql::DateTime>& a, const tsql::DateTime& b) {
  return a && a->days == b.days && a->milliseconds == b.milliseconds;
}

void CheckEngine(std::string_view text, int style) {
  const auto moment = tsql::TryParseDateTime(text, style);
  try {
    Require(IsSame(moment, tsql::ParseDateTime(text, style)));
  } catch (const tsql::TsqlError&) {
    Require(!moment);
    return;
  }
  Require(moment->milliseconds >= 0 && moment->milliseconds < 86'400'000);
  Require(IsSame(tsql::ReadStored(moment->Canonical()), *moment));
  Require(IsSame(tsql::TryParseDateTime(tsql::FormatDateTime(*moment, 121), -1), *moment));
  const auto day = tsql::TryParseDateTime(tsql::FormatDateTime(*moment, 112), -1);
  Require(day && day->days == moment->days && day->milliseconds == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = salerpt::fuzz::AsText(data, size);
  CheckLibrary(text);
  for (const int style : kStyles) CheckEngine(text, style);
  (void)tsql::ReadStored(text);
  (void)tsql::DatePartOfWord(text);
  return 0;
}
