#include "runtime/row_filter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <compare>
#include <optional>

#include "runtime/case_blind.h"
#include "runtime/error.h"
#include "runtime/number_text.h"
#include "runtime/row_hash.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

[[noreturn]] void RaiseUnsuitable(const Criterion& criterion, const FieldInfo& field,
                                  std::string_view expected) {
  throw RuntimeError(error_number::kWrongArguments, std::string(Recordset::kClassName),
                     Join("the filter on field ", field.name, " has \"", criterion.literal, "\" where ",
                          expected, " was expected"));
}

// The whole number that the whole text is.
std::optional<std::int64_t> ReadWhole(std::string_view text) {
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// A plain decimal text in ten-thousandths; nothing where it has an exponent, more decimals, or does not fit.
std::optional<std::int64_t> ReadTenThousandths(std::string_view text) {
  constexpr std::size_t kDecimals = 4;
  const std::size_t point = text.find('.');
  const std::string_view decimals = point == std::string_view::npos ? "" : text.substr(point + 1);
  if (decimals.size() > kDecimals) return std::nullopt;
  std::string digits(text.substr(0, point));
  digits += decimals;
  digits.append(kDecimals - decimals.size(), '0');
  return ReadWhole(digits);
}

// A date in the order of the suite, or, as date literals of other tools have it, month/day/year.
std::optional<Date> ReadDate(std::string_view text) {
  text = Trim(text);
  if (const std::optional<Date> date = Date::Parse(text)) return date;
  const std::size_t first = text.find('/');
  const std::size_t second = first == std::string_view::npos ? first : text.find('/', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const std::string_view year = text.substr(second + 1, 4);
  return Date::Parse(Join(year, "/", text.substr(0, second), text.substr(second + 1 + year.size())));
}

bool Agrees(CriterionTest test, std::partial_ordering order) {
  switch (test) {
    case CriterionTest::kEqual:
      return std::is_eq(order);
    case CriterionTest::kNotEqual:
      return std::is_neq(order);
    case CriterionTest::kLess:
      return std::is_lt(order);
    case CriterionTest::kGreater:
      return std::is_gt(order);
    case CriterionTest::kAtMost:
      return std::is_lteq(order);
    case CriterionTest::kAtLeast:
      return std::is_gteq(order);
    case CriterionTest::kLike:
      break;
  }
  return false;
}

std::int64_t WholeOf(CellKind kind, const RowStore& rows, RowPlace place, int column) {
  switch (kind) {
    case CellKind::kInt16:
      return rows.Get<std::int16_t>(place, column);
    case CellKind::kInt32:
      return rows.Get<std::int32_t>(place, column);
    case CellKind::kBoolean:
      return rows.Get<std::uint8_t>(place, column);
    default:
      return rows.Get<std::int64_t>(place, column);
  }
}

}  // namespace

void RowFilter::BindNumber(const Criterion& criterion, const FieldInfo& field, Condition& condition) {
  std::optional<double> number;
  if (criterion.kind == LiteralKind::kNumber || criterion.kind == LiteralKind::kText) {
    const std::optional<std::int64_t> whole = condition.kind == CellKind::kCurrency
                                                  ? ReadTenThousandths(criterion.literal)
                                                  : ReadWhole(criterion.literal);
    condition.is_exact = whole.has_value();
    condition.whole = whole.value_or(0);
    number = whole && condition.kind != CellKind::kCurrency ? static_cast<double>(*whole)
                                                            : ParseDouble(criterion.literal);
  }
  if (!number) RaiseUnsuitable(criterion, field, "a number");
  condition.number = *number;
  if (condition.is_exact || condition.kind == CellKind::kDouble) return;
  // "12.0" and "1e3" are whole numbers too, and "1e-1" is an amount.
  const double scale = condition.kind == CellKind::kCurrency ? 10000 : 1;
  constexpr double kExactDoubles = 9007199254740992;
  const double scaled = *number * scale;
  if (std::abs(scaled) < kExactDoubles && scaled == std::floor(scaled) && scaled / scale == *number) {
    condition.is_exact = true;
    condition.whole = static_cast<std::int64_t>(scaled);
  }
}

void RowFilter::BindDate(const Criterion& criterion, const FieldInfo& field, Condition& condition) {
  if (criterion.kind == LiteralKind::kNumber) {
    condition.number = ParseDouble(criterion.literal).value_or(0);
    return;
  }
  std::optional<Date> date;
  if (criterion.kind != LiteralKind::kBoolean) date = ReadDate(criterion.literal);
  if (!date) RaiseUnsuitable(criterion, field, "a date such as #2003-07-01#");
  condition.number = date->Serial();
}

void RowFilter::BindBoolean(const Criterion& criterion, const FieldInfo& field, Condition& condition) {
  if (condition.test != CriterionTest::kEqual && condition.test != CriterionTest::kNotEqual) {
    RaiseUnsuitable(criterion, field, "only = or <> on a flag");
  }
  std::optional<double> number;
  if (EqualCaseBlind(criterion.literal, "true")) {
    number = 1;
  } else if (EqualCaseBlind(criterion.literal, "false")) {
    number = 0;
  } else {
    number = ParseDouble(criterion.literal);
  }
  if (!number) RaiseUnsuitable(criterion, field, "True, False or a number");
  condition.whole = *number != 0 ? 1 : 0;
}

void RowFilter::BindLiteral(const Criterion& criterion, const FieldInfo& field, Condition& condition) {
  if (condition.test == CriterionTest::kLike &&
      (condition.kind != CellKind::kText || criterion.kind != LiteralKind::kText)) {
    RaiseUnsuitable(criterion, field, "a text field and a 'text' around Like");
  }
  if (criterion.kind == LiteralKind::kNull) {
    if (condition.test != CriterionTest::kEqual && condition.test != CriterionTest::kNotEqual) {
      RaiseUnsuitable(criterion, field, "only = or <> before Null");
    }
    condition.against_null = true;
    return;
  }
  switch (condition.kind) {
    case CellKind::kText:
      if (criterion.kind == LiteralKind::kDate) RaiseUnsuitable(criterion, field, "a 'text'");
      condition.text = criterion.literal;
      return;
    case CellKind::kDate:
      return BindDate(criterion, field, condition);
    case CellKind::kBoolean:
      return BindBoolean(criterion, field, condition);
    default:
      return BindNumber(criterion, field, condition);
  }
}

void RowFilter::Bind(std::string_view text, const Recordset& fields) {
  conditions_.clear();
  criteria_.Parse(text);
  for (const Criterion& criterion : criteria_.All()) {
    Condition condition;
    condition.column = fields.FieldIndex(criterion.field);
    const FieldInfo& field = fields.Field(condition.column);
    condition.kind = CellKindOf(field.type);
    condition.test = criterion.test;
    condition.begins_group = criterion.begins_group;
    BindLiteral(criterion, field, condition);
    conditions_.push_back(condition);
  }
  FindKey();
}

void RowFilter::FindKey() {
  key_columns_.clear();
  key_hash_ = 0;
  const auto groups = std::ranges::count_if(conditions_, &Condition::begins_group);
  if (groups != 1) return;
  for (const Condition& condition : conditions_) {
    if (condition.test == CriterionTest::kEqual) key_columns_.push_back(condition.column);
  }
  std::ranges::sort(key_columns_);
  key_columns_.erase(std::unique(key_columns_.begin(), key_columns_.end()), key_columns_.end());
  for (const int column : key_columns_) {
    const Condition& condition = KeyCondition(column);
    if (condition.against_null) {
      key_hash_ = HashNull(key_hash_);
      continue;
    }
    switch (condition.kind) {
      case CellKind::kText:
        key_hash_ = HashCaseBlind(key_hash_, condition.text);
        break;
      case CellKind::kDouble:
      case CellKind::kDate:
        key_hash_ = HashNumber(key_hash_, condition.number);
        break;
      default:
        // A number that no cell holds leads to a chain of which no row passes.
        key_hash_ = HashWhole(key_hash_, condition.whole);
    }
  }
}

const RowFilter::Condition& RowFilter::KeyCondition(int column) const {
  return *std::ranges::find_if(conditions_, [column](const Condition& condition) {
    return condition.column == column && condition.test == CriterionTest::kEqual;
  });
}

bool RowFilter::Uses(int column) const {
  return std::ranges::any_of(conditions_, [column](const Condition& c) { return c.column == column; });
}

bool RowFilter::Passes(const Condition& condition, const RowStore& rows, RowPlace place) {
  const bool is_null = rows.IsNull(place, condition.column);
  if (condition.against_null) return is_null == (condition.test == CriterionTest::kEqual);
  if (is_null) return false;
  switch (condition.kind) {
    case CellKind::kText: {
      const std::string_view text = rows.GetText(place, condition.column);
      if (condition.test == CriterionTest::kEqual) return EqualCaseBlind(text, condition.text);
      if (condition.test == CriterionTest::kLike) return MatchesPattern(text, condition.text);
      return Agrees(condition.test, CompareCaseBlind(text, condition.text) <=> 0);
    }
    case CellKind::kDouble:
    case CellKind::kDate:
      return Agrees(condition.test, rows.Get<double>(place, condition.column) <=> condition.number);
    default: {
      const std::int64_t whole = WholeOf(condition.kind, rows, place, condition.column);
      if (condition.is_exact) return Agrees(condition.test, whole <=> condition.whole);
      if (condition.test == CriterionTest::kEqual) return false;
      if (condition.test == CriterionTest::kNotEqual) return true;
      const double number = condition.kind == CellKind::kCurrency ? Currency::FromScaled(whole).ToDouble()
                                                                  : static_cast<double>(whole);
      return Agrees(condition.test, number <=> condition.number);
    }
  }
}

bool RowFilter::Passes(const RowStore& rows, RowPlace place) const {
  bool passes = true;
  for (const Condition& condition : conditions_) {
    if (condition.begins_group) {
      if (&condition != conditions_.data() && passes) return true;
      passes = true;
    }
    passes = passes && Passes(condition, rows, place);
  }
  return passes;
}

}  // namespace salerpt
