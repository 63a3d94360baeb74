#include "runtime/row_store.h"

#include <limits>

#include "runtime/error.h"

namespace salerpt {
namespace {

std::size_t WidthOf(CellKind kind) {
  switch (kind) {
    case CellKind::kInt16:
      return sizeof(std::int16_t);
    case CellKind::kInt32:
      return sizeof(std::int32_t);
    case CellKind::kBoolean:
      return sizeof(std::uint8_t);
    default:
      return sizeof(std::uint64_t);
  }
}

constexpr std::size_t RoundUp(std::size_t bytes) {
  return (bytes + 7) / 8 * 8;
}

// The types that no report appends itself, but a row set of the middle tier may have: each keeps its number
// and is held as its nearest kin.
CellKind KindOfServerType(int number) {
  switch (number) {
    case 16:  // 8-bit
    case 17:  // 8-bit unsigned
      return CellKind::kInt16;
    case 18:  // 16-bit unsigned
      return CellKind::kInt32;
    case 4:   // single
    case 14:  // decimal
    case 19:  // 32-bit unsigned
    case 20:  // 64-bit
      return CellKind::kDouble;
    case 133:  // day without a time
      return CellKind::kDate;
    case 8:    // automation text
    case 129:  // fixed length
    case 130:  // fixed length, wide
    case 201:  // long
    case 202:  // variable length, wide
    case 203:  // long, wide
      return CellKind::kText;
    default:
      throw RuntimeError(error_number::kWrongArguments, std::string(Recordset::kClassName),
                         "field type " + std::to_string(number) + " is none that a row set can hold");
  }
}

}  // namespace

CellKind CellKindOf(FieldType type) {
  switch (type) {
    case FieldType::kSmallInt:
      return CellKind::kInt16;
    case FieldType::kInteger:
      return CellKind::kInt32;
    case FieldType::kDouble:
    case FieldType::kNumeric:
      return CellKind::kDouble;
    case FieldType::kCurrency:
      return CellKind::kCurrency;
    case FieldType::kDate:
    case FieldType::kTimestamp:
      return CellKind::kDate;
    case FieldType::kBoolean:
      return CellKind::kBoolean;
    case FieldType::kVarChar:
      return CellKind::kText;
  }
  return KindOfServerType(static_cast<int>(type));
}

void RowStore::AddColumn(CellKind kind) {
  columns_.push_back({kind, null_offset_});
  null_offset_ += RoundUp(WidthOf(kind) * kBlockRows);
  null_bytes_ = (columns_.size() + 7) / 8;
  block_bytes_ = null_offset_ + null_bytes_ * kBlockRows;
}

void RowStore::AddBlock() {
  // Row numbers have 31 bits.
  if (rows_ > std::numeric_limits<std::int32_t>::max() - static_cast<std::int32_t>(kBlockRows)) {
    throw RuntimeError(error_number::kOverflow, std::string(Recordset::kClassName),
                       "a row set of " + std::to_string(rows_) + " rows takes no more rows");
  }
  blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(block_bytes_));
}

}  // namespace salerpt
