// Functions over dates.
#include <cmath>

#include "suite/tsql/datetime.h"
#include "suite/tsql/functions.h"

namespace salerpt::tsql {
namespace {

DateTime Stored(const Call& call, int index) {
  return ParseDateTime(call.Text(index), -1);
}
DatePart Part(const Call& call) {
  return static_cast<DatePart>(call.Integer(0));
}

void ReturnDate(const Call& call, const DateTime& value) {
  call.Return(std::string_view(value.Canonical()));
}

DateTime Moved(const DateTime& value, double days) {
  const double whole = std::floor(days);
  const DateTime moved = AddToDate(value, DatePart::kDay, static_cast<std::int64_t>(whole));
  return AddToDate(moved, DatePart::kMillisecond,
                   static_cast<std::int64_t>(std::llround((days - whole) * 86'400'000)));
}

// ts_date(value, style): a text, or days since 1900-01-01.
void ToDate(const Call& call) {
  if (call.Type(0) == SQLITE_TEXT) {
    ReturnDate(call, ParseDateTime(call.Text(0), static_cast<int>(call.Integer(1))));
  } else {
    ReturnDate(call, Moved(DateTime{}, call.Double(0)));
  }
}

// ts_datenumber(date, whole): days since 1900-01-01; whole: rounded to a day.
void DateNumber(const Call& call) {
  const DateTime value = Stored(call, 0);
  const double days = static_cast<double>(value.days) + static_cast<double>(value.milliseconds) / 86'400'000;
  call.Return(call.Integer(1) != 0 ? std::floor(days + 0.5) : days);
}

void DateText(const Call& call) {
  std::string text = FormatDateTime(Stored(call, 0), static_cast<int>(call.Integer(1)));
  if (text.size() > static_cast<std::size_t>(call.Integer(2)))
    text.resize(static_cast<std::size_t>(call.Integer(2)));
  call.Return(std::string_view(text));
}

void DateAdd(const Call& call) {
  ReturnDate(call, AddToDate(Stored(call, 2), Part(call), call.Integer(1)));
}
void DateMove(const Call& call) {
  ReturnDate(call, Moved(Stored(call, 0), call.Double(1)));
}
void DateDiff(const Call& call) {
  call.Return(DateDifference(Part(call), Stored(call, 1), Stored(call, 2)));
}
void DatePartOf(const Call& call) {
  call.Return(PartOfDate(Part(call), Stored(call, 1)));
}
void DateName(const Call& call) {
  call.Return(std::string_view(NameOfPart(Part(call), Stored(call, 1))));
}
// One time for the whole statement.
void GetDate(const Call& call) {
  FunctionState& state = call.State();
  if (!state.now) state.now = Now();
  ReturnDate(call, *state.now);
}
void IsDate(const Call& call) {
  const bool date = !call.Text(0).empty() && TryParseDateTime(call.Text(0), -1).has_value();
  call.Return(std::int64_t{date ? 1 : 0});
}

constexpr FunctionDefinition kFunctions[] = {
    {"ts_date", 2, &ToDate},         {"ts_datenumber", 2, &DateNumber}, {"ts_datetext", 3, &DateText},
    {"ts_dateadd", 3, &DateAdd},     {"ts_datemove", 2, &DateMove},     {"ts_datediff", 3, &DateDiff},
    {"ts_datepart", 2, &DatePartOf}, {"ts_datename", 2, &DateName},     {"ts_now", 0, &GetDate, false},
    {"ts_isdate", 1, &IsDate},
};

}  // namespace

void RegisterDateFunctions(sqlite3* connection, FunctionState& state) {
  for (const FunctionDefinition& definition : kFunctions) RegisterFunction(connection, state, definition);
}

}  // namespace salerpt::tsql
