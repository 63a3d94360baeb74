#include "shell/cell_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "runtime/recordset.h"

namespace salerpt::shell {
namespace {

constexpr int kMaxDecimals = 15;
// What the reports give their own total rows, for sets that say nothing.
constexpr std::int32_t kUsualQtyDecimals = 4;
constexpr std::int32_t kUsualPriceDecimals = 6;
constexpr int kMoneyDecimals = 2;
constexpr int kPercentDecimals = 2;
constexpr int kCurrencyDecimals = 4;
// The longest plain text of a double has some 310 digits before the point.
constexpr std::size_t kDigitRoom = 512;

// A decimal half is mostly not held exactly. One step away from zero brings those that lie below it over the
// edge and changes no other figure, as long as the digits asked for are digits that a double holds.
double Nudged(double value, int decimals) {
  constexpr double kHeldDigits = 1e15;
  if (value == 0 || std::abs(value) * std::pow(10.0, decimals) >= kHeldDigits) return value;
  return std::nextafter(value, std::copysign(std::numeric_limits<double>::infinity(), value));
}

// "-0.00" is "0.00".
void DropSignOfZero(std::string& out, std::size_t begin) {
  if (out[begin] == '-' && out.find_first_not_of("-0.", begin) == std::string::npos) out.erase(begin, 1);
}

}  // namespace

void AppendFixed(std::string& out, double value, int decimals) {
  std::array<char, kDigitRoom> digits;
  decimals = std::clamp(decimals, 0, kMaxDecimals);
  const auto end = std::to_chars(digits.begin(), digits.end(), Nudged(value, decimals),
                                 std::chars_format::fixed, decimals);
  const std::size_t begin = out.size();
  out.append(digits.begin(), end.ptr);
  DropSignOfZero(out, begin);
}

void AppendFixed(std::string& out, Currency value, int decimals) {
  decimals = std::clamp(decimals, 0, kMaxDecimals);
  const bool negative = value.Scaled() < 0;
  std::uint64_t scaled = static_cast<std::uint64_t>(value.Scaled());
  if (negative) scaled = 0 - scaled;
  std::uint64_t unit = Currency::kUnit;
  for (int i = decimals; i < kCurrencyDecimals; ++i) {
    scaled = scaled / 10 + (i + 1 == kCurrencyDecimals && scaled % 10 >= 5 ? 1 : 0);
    unit /= 10;
  }
  const std::size_t begin = out.size();
  if (negative) out += '-';
  out += std::to_string(scaled / unit);
  if (decimals > 0) {
    std::string fraction = std::to_string(scaled % unit);
    const auto kept = static_cast<std::size_t>(std::min(decimals, kCurrencyDecimals));
    out += '.';
    out.append(kept - fraction.size(), '0').append(fraction);
    out.append(static_cast<std::size_t>(decimals) - kept, '0');
  }
  DropSignOfZero(out, begin);
}

void AppendExact(std::string& out, double value) {
  std::array<char, kDigitRoom> digits;
  const auto end =
      std::to_chars(digits.begin(), digits.end(), value == 0 ? 0 : value, std::chars_format::fixed);
  out.append(digits.begin(), end.ptr);
}

SheetRows::SheetRows(const Sheet& sheet) : sheet_(sheet) {
  if (!sheet.rows) return;
  cells_.reserve(sheet.columns.size());
  for (const SheetColumn& column : sheet.columns) {
    const int field = sheet.rows->FindField(column.field);
    cells_.push_back({field, field < 0 ? FieldType::kVarChar : sheet.rows->Field(field).type, column.type});
  }
  sum_sort_ = sheet.rows->FindField("FSumSort");
  qty_decimal_ = sheet.rows->FindField("FQtyDecimal");
  price_decimal_ = sheet.rows->FindField("FPriceDecimal");
}

bool SheetRows::Next() {
  if (!sheet_.rows) return false;
  if (started_) {
    sheet_.rows->MoveNext();
  } else {
    started_ = true;
    if (sheet_.rows->RecordCount() == 0) return false;
    sheet_.rows->MoveFirst();
  }
  return !sheet_.rows->Eof();
}

SheetRows::Kind SheetRows::KindOf(std::size_t column) const {
  switch (cells_[column].type) {
    case FieldType::kVarChar:
      return Kind::kText;
    case FieldType::kDate:
    case FieldType::kTimestamp:
      return Kind::kDate;
    case FieldType::kBoolean:
      return Kind::kBoolean;
    default:
      return Kind::kNumber;
  }
}

double SheetRows::Number(std::size_t column) const {
  return sheet_.rows->Double(cells_[column].field);
}

bool SheetRows::Boolean(std::size_t column) const {
  return sheet_.rows->Value(cells_[column].field).ToBoolean();
}

Date SheetRows::DateOf(std::size_t column) const {
  return sheet_.rows->DateOf(cells_[column].field);
}

std::optional<int> SheetRows::Decimals(std::size_t column) const {
  switch (cells_[column].shown_as) {
    case ColumnType::kQuantity:
      return QuantityDecimals(cells_[column]);
    case ColumnType::kPrice:
      return IntegerOr(price_decimal_, kUsualPriceDecimals);
    case ColumnType::kAmount:
      return kMoneyDecimals;
    case ColumnType::kBaseAmount:
      return sheet_.amount_scale;
    case ColumnType::kPercentage:
      return kPercentDecimals;
    default:
      return std::nullopt;
  }
}

// The item's decimals are those of its base unit. In another unit a quantity may have more: its digits are
// shown, up to the usual number, or the column would not add up before the reader's eyes.
int SheetRows::QuantityDecimals(const Cell& cell) const {
  constexpr double kNoDigit = 1e-6;
  int decimals = IntegerOr(qty_decimal_, kUsualQtyDecimals);
  if (cell.field < 0 || sheet_.rows->IsNull(cell.field)) return decimals;
  const double value = sheet_.rows->Double(cell.field);
  const auto is_cut = [value](int at) {
    const double scaled = value * std::pow(10.0, at);
    return std::abs(scaled - std::round(scaled)) > kNoDigit;
  };
  while (decimals < kUsualQtyDecimals && is_cut(decimals)) ++decimals;
  return decimals;
}

void SheetRows::AppendShown(std::string& out, std::size_t column) const {
  const Cell& cell = cells_[column];
  if (IsNull(column)) return;
  switch (KindOf(column)) {
    case Kind::kNumber:
      return AppendNumber(out, cell, Decimals(column));
    case Kind::kDate:
      out += sheet_.rows->DateOf(cell.field).Format('-');
      return;
    case Kind::kText: {
      // Some reports fetch their dates as texts; the time of day in them says nothing.
      const std::string_view text = sheet_.rows->Text(cell.field);
      const auto date = cell.shown_as == ColumnType::kDate ? Date::Parse(text) : std::nullopt;
      out += date ? date->Format('-') : std::string(text);
      return;
    }
    case Kind::kBoolean:
      out += Boolean(column) ? '1' : '0';
  }
}

void SheetRows::AppendExactly(std::string& out, std::size_t column) const {
  const Cell& cell = cells_[column];
  if (IsNull(column)) return;
  switch (KindOf(column)) {
    case Kind::kNumber:
      return AppendNumber(out, cell, std::nullopt);
    case Kind::kDate:
      out += sheet_.rows->DateOf(cell.field).ToText();
      return;
    case Kind::kText:
      out += sheet_.rows->Text(cell.field);
      return;
    case Kind::kBoolean:
      out += Boolean(column) ? "true" : "false";
  }
}

std::int32_t SheetRows::IntegerOr(int field, std::int32_t absent) const {
  return field < 0 || sheet_.rows->IsNull(field) ? absent : sheet_.rows->Int32(field);
}

void SheetRows::AppendNumber(std::string& out, const Cell& cell, std::optional<int> decimals) const {
  if (cell.type == FieldType::kCurrency) {
    const Currency money = sheet_.rows->Money(cell.field);
    if (decimals) return AppendFixed(out, money, *decimals);
    out += money.ToText();
  } else if (decimals) {
    AppendFixed(out, sheet_.rows->Double(cell.field), *decimals);
  } else {
    AppendExact(out, sheet_.rows->Double(cell.field));
  }
}

}  // namespace salerpt::shell
