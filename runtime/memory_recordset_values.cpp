// Values of the current row of a recordset in memory: as variants, and typed for loops over many rows.
#include <algorithm>
#include <limits>

#include "runtime/error.h"
#include "runtime/memory_recordset.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

// UTF-8 characters: the bytes that continue none.
std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

template <typename Conversion>
auto MemoryRecordset::Convert(int field, Conversion conversion) const {
  try {
    return conversion();
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.Number(), std::string(kClassName),
                       Join("field ", Field(field).name, ": ", error.Description()));
  }
}

Variant MemoryRecordset::Value(int field) const {
  RequireCell(field);
  if (rows_.IsNull(place_, field)) return Null();
  switch (rows_.Kind(field)) {
    case CellKind::kInt16:
      return rows_.Get<std::int16_t>(place_, field);
    case CellKind::kInt32:
      return rows_.Get<std::int32_t>(place_, field);
    case CellKind::kDouble:
      return rows_.Get<double>(place_, field);
    case CellKind::kCurrency:
      return Currency::FromScaled(rows_.Get<std::int64_t>(place_, field));
    case CellKind::kDate:
      return Date(rows_.Get<double>(place_, field));
    case CellKind::kBoolean:
      return rows_.Get<std::uint8_t>(place_, field) != 0;
    case CellKind::kText:
      break;
  }
  return rows_.GetText(place_, field);
}

void MemoryRecordset::SetValue(int field, const Variant& value) {
  BeforeChange(field);
  if (value.IsNull()) return rows_.SetNull(place_, field);
  Convert(field, [&] {
    switch (rows_.Kind(field)) {
      case CellKind::kInt16:
        return rows_.Set(place_, field, value.ToInt16());
      case CellKind::kInt32:
        return rows_.Set(place_, field, value.ToInt32());
      case CellKind::kDouble:
        return rows_.Set(place_, field, value.ToDouble());
      case CellKind::kCurrency:
        return rows_.Set(place_, field, value.ToCurrency().Scaled());
      case CellKind::kDate:
        return rows_.Set(place_, field, value.ToDate().Serial());
      case CellKind::kBoolean:
        return rows_.Set(place_, field, static_cast<std::uint8_t>(value.ToBoolean()));
      case CellKind::kText:
        break;
    }
    if (const std::string* text = value.TextIf()) return StoreText(field, *text);
    StoreText(field, value.ToText());
  });
}

bool MemoryRecordset::IsNull(int field) const {
  RequireCell(field);
  return rows_.IsNull(place_, field);
}

std::int32_t MemoryRecordset::Int32(int field) const {
  RequireValue(field);
  const CellKind kind = rows_.Kind(field);
  if (kind == CellKind::kInt32) return rows_.Get<std::int32_t>(place_, field);
  if (kind == CellKind::kInt16) return rows_.Get<std::int16_t>(place_, field);
  return Convert(field, [&] { return Value(field).ToInt32(); });
}

double MemoryRecordset::Double(int field) const {
  RequireValue(field);
  if (rows_.Kind(field) == CellKind::kDouble) return rows_.Get<double>(place_, field);
  return Convert(field, [&] { return Value(field).ToDouble(); });
}

Currency MemoryRecordset::Money(int field) const {
  RequireValue(field);
  if (rows_.Kind(field) == CellKind::kCurrency) {
    return Currency::FromScaled(rows_.Get<std::int64_t>(place_, field));
  }
  return Convert(field, [&] { return Value(field).ToCurrency(); });
}

Date MemoryRecordset::DateOf(int field) const {
  RequireValue(field);
  if (rows_.Kind(field) == CellKind::kDate) return Date(rows_.Get<double>(place_, field));
  return Convert(field, [&] { return Value(field).ToDate(); });
}

std::string_view MemoryRecordset::Text(int field) const {
  RequireValue(field);
  if (rows_.Kind(field) != CellKind::kText) {
    throw RuntimeError(
        error_number::kTypeMismatch, std::string(kClassName),
        Join("field ", Field(field).name, " holds ", KindName(Value(field).GetKind()), ", not text"));
  }
  return rows_.GetText(place_, field);
}

void MemoryRecordset::SetInt32(int field, std::int32_t value) {
  RequireCell(field);
  switch (rows_.Kind(field)) {
    case CellKind::kInt32:
      BeforeChange(field);
      return rows_.Set(place_, field, value);
    case CellKind::kInt16:
      if (value < std::numeric_limits<std::int16_t>::min() ||
          value > std::numeric_limits<std::int16_t>::max())
        break;
      BeforeChange(field);
      return rows_.Set(place_, field, static_cast<std::int16_t>(value));
    case CellKind::kDouble:
      BeforeChange(field);
      return rows_.Set(place_, field, static_cast<double>(value));
    default:
      break;
  }
  SetValue(field, value);
}

void MemoryRecordset::SetDouble(int field, double value) {
  BeforeChange(field);
  if (rows_.Kind(field) == CellKind::kDouble) return rows_.Set(place_, field, value);
  SetValue(field, value);
}

void MemoryRecordset::SetMoney(int field, Currency value) {
  BeforeChange(field);
  if (rows_.Kind(field) == CellKind::kCurrency) return rows_.Set(place_, field, value.Scaled());
  SetValue(field, value);
}

void MemoryRecordset::SetDate(int field, Date value) {
  BeforeChange(field);
  if (rows_.Kind(field) == CellKind::kDate) return rows_.Set(place_, field, value.Serial());
  SetValue(field, value);
}

void MemoryRecordset::SetText(int field, std::string_view value) {
  BeforeChange(field);
  if (rows_.Kind(field) == CellKind::kText) return StoreText(field, value);
  SetValue(field, value);
}

void MemoryRecordset::StoreText(int field, std::string_view value) {
  const auto size = static_cast<std::size_t>(fields_[static_cast<std::size_t>(field)].size);
  if (value.size() > size && CountCharacters(value) > size) RaiseTooLong(field, value);
  rows_.SetText(place_, field, value);
}

}  // namespace salerpt
