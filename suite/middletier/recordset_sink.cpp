#include "suite/middletier/recordset_sink.h"

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace salerpt::middletier {
namespace {

constexpr double kMillisecondsOfADay = 24.0 * 60 * 60 * 1000;

// ADO's numbers of the types that a row set does not know by themselves.
FieldType FieldTypeOf(const tsql::ColumnType& type) {
  switch (type.kind) {
    case tsql::TypeKind::kBit:
      return FieldType::kBoolean;
    case tsql::TypeKind::kTinyInt:
    case tsql::TypeKind::kSmallInt:
      return FieldType::kSmallInt;
    case tsql::TypeKind::kNull:
    case tsql::TypeKind::kInt:
      return FieldType::kInteger;
    case tsql::TypeKind::kBigInt:
    case tsql::TypeKind::kDecimal:
      return FieldType::kNumeric;
    case tsql::TypeKind::kMoney:
      return FieldType::kCurrency;
    case tsql::TypeKind::kReal:
    case tsql::TypeKind::kFloat:
      return FieldType::kDouble;
    case tsql::TypeKind::kDateTime:
      return FieldType::kTimestamp;
    case tsql::TypeKind::kChar:
    case tsql::TypeKind::kVarChar:
    case tsql::TypeKind::kNChar:
    case tsql::TypeKind::kNVarChar:
      return FieldType::kVarChar;
  }
  throw RuntimeError(error_number::kTypeMismatch, "MiddleTier",
                     Join("a column of type ", type.Name(), " has no place in a row set"));
}

// The name of the next field. The server gives columns without a name and several of one name, a row set does
// not take them: they are told apart by their place, counted from 1. The first of a name keeps it, so reads
// by name find it.
std::string FreeName(const Recordset& rows, std::string_view name) {
  const int place = rows.FieldCount() + 1;
  std::string free = name.empty() ? Join("Column", place) : std::string(name);
  while (rows.FindField(free) >= 0) Append(free, "_", place);
  return free;
}

// The whole number in `digits`; nothing where anything else stands there.
std::optional<int> Digits(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

[[noreturn]] void RaiseNoDate(std::string_view text) {
  throw RuntimeError(error_number::kTypeMismatch, "MiddleTier",
                     Join("'", text, "' is no date of the form YYYY-MM-DD HH:MM:SS"));
}

int DatePart(std::string_view text, std::size_t place, std::size_t length) {
  const auto number = place + length <= text.size() ? Digits(text.substr(place, length)) : std::nullopt;
  if (!number || *number < 0) RaiseNoDate(text);
  return *number;
}

}  // namespace

Date DateOfEngine(std::string_view text) {
  constexpr std::size_t kDay = 10;      // YYYY-MM-DD
  constexpr std::size_t kSeconds = 19;  // and HH:MM:SS
  const int year = DatePart(text, 0, 4);
  const int month = DatePart(text, 5, 2);
  const int day = DatePart(text, 8, 2);
  if (text.size() == kDay) return Date::FromYmd(year, month, day);
  const Date date =
      Date::FromYmd(year, month, day, DatePart(text, 11, 2), DatePart(text, 14, 2), DatePart(text, 17, 2));
  if (text.size() == kSeconds) return date;
  return Date(date.Serial() + DatePart(text, kSeconds + 1, text.size() - kSeconds - 1) / kMillisecondsOfADay);
}

RecordsetSink::Pour RecordsetSink::PourOf(FieldType type) {
  switch (type) {
    case FieldType::kSmallInt:
    case FieldType::kInteger:
      return Pour::kInteger;
    case FieldType::kBoolean:
      return Pour::kBoolean;
    case FieldType::kCurrency:
      return Pour::kMoney;
    case FieldType::kDate:
    case FieldType::kTimestamp:
      return Pour::kDate;
    case FieldType::kVarChar:
      return Pour::kText;
    case FieldType::kDouble:
    case FieldType::kNumeric:
      return Pour::kDouble;
  }
  return Pour::kDouble;
}

void RecordsetSink::BeginRows(std::span<const tsql::Column> columns) {
  rows_ = MakeRecordset();
  pours_.clear();
  pours_.reserve(columns.size());
  for (const tsql::Column& column : columns) {
    const FieldType type = FieldTypeOf(column.type);
    // An empty literal has no size of its own.
    const std::int32_t size = column.type.size > 0 ? column.type.size : Recordset::kUnspecified;
    rows_->AppendField(FreeName(*rows_, column.name), type, type == FieldType::kVarChar ? size : 0);
    pours_.push_back(column.type.kind == tsql::TypeKind::kBigInt ? Pour::kBigInteger : PourOf(type));
  }
  rows_->SetCursorLocation(Recordset::kClientSide);
  rows_->Open();
}

void RecordsetSink::Row(std::span<const tsql::Value> cells) {
  Recordset& rows = *rows_;
  rows.AddNew();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const tsql::Value& cell = cells[i];
    if (cell.IsNull()) continue;
    const int field = static_cast<int>(i);
    switch (pours_[i]) {
      case Pour::kInteger:
        rows.SetInt32(field, static_cast<std::int32_t>(cell.Integer()));
        break;
      case Pour::kBoolean:
        rows.SetValue(field, cell.Integer() != 0);
        break;
      case Pour::kDouble:
        rows.SetDouble(field, cell.Double());
        break;
      case Pour::kBigInteger:
        rows.SetDouble(field, static_cast<double>(cell.Integer()));
        break;
      case Pour::kMoney:
        rows.SetMoney(field, Currency::FromDouble(cell.Double()));
        break;
      case Pour::kDate:
        rows.SetDate(field, DateOfEngine(cell.Text()));
        break;
      case Pour::kText:
        rows.SetText(field, cell.Text());
        break;
    }
  }
  rows.Update();
}

void RecordsetSink::EndRows() {
  if (rows_->RecordCount() > 0) rows_->MoveFirst();
}

RecordsetRef RecordsetSink::Take() {
  return rows_ ? std::exchange(rows_, nullptr) : MakeRecordset();
}

}  // namespace salerpt::middletier
