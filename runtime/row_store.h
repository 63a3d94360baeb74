// Rows of a set: typed columns in blocks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "runtime/recordset.h"
#include "runtime/text_arena.h"

namespace salerpt {

// How a cell is held. Several field types share one.
enum class CellKind : std::uint8_t { kInt16, kInt32, kDouble, kCurrency, kDate, kBoolean, kText };
CellKind CellKindOf(FieldType type);

// The place of a row: its block and its number in it. No block means no row.
struct RowPlace {
  std::byte* block = nullptr;
  std::uint32_t slot = 0;
  explicit operator bool() const { return block != nullptr; }
};

// Rows in blocks of equal size, so that appending never moves a row and never holds spare room for more than
// one block. Inside a block each column lies in one piece; the null bits of a row lie side by side behind
// them.
class RowStore {
 public:
#ifdef SALERPT_BLOCK_ROWS
  static constexpr std::uint32_t kBlockRows = SALERPT_BLOCK_ROWS;
#else
  static constexpr std::uint32_t kBlockRows = 512;
#endif

  // Columns come before the first row.
  void AddColumn(CellKind kind);
  // Appends a row, all cells null.
  RowPlace Append() {
    const std::uint32_t slot = static_cast<std::uint32_t>(rows_) % kBlockRows;
    if (slot == 0) AddBlock();
    ++rows_;
    const RowPlace place{blocks_.back().get(), slot};
    std::memset(NullBits(place), 0xFF, null_bytes_);
    return place;
  }
  [[nodiscard]] std::int32_t RowCount() const {
    return rows_;
  }
  [[nodiscard]] RowPlace At(std::int32_t row) const {
    const auto number = static_cast<std::uint32_t>(row);
    return {blocks_[number / kBlockRows].get(), number % kBlockRows};
  }

  [[nodiscard]] CellKind Kind(int column) const {
    return Of(column).kind;
  }
  [[nodiscard]] bool IsNull(RowPlace place, int column) const {
    const auto bit = static_cast<unsigned>(column);
    return ((std::to_integer<unsigned>(NullBits(place)[bit / 8]) >> (bit % 8)) & 1U) != 0;
  }
  void SetNull(RowPlace place, int column) {
    const auto bit = static_cast<unsigned>(column);
    NullBits(place)[bit / 8] |= std::byte{1} << (bit % 8);
  }

  // A cell as its kind holds it: int16_t, int32_t, double (doubles and dates), int64_t (ten-thousandths),
  // uint8_t (booleans). `T` must be the type of the column; the value of a null cell means nothing.
  template <typename T>
  [[nodiscard]] T Get(RowPlace place, int column) const {
    T value;
    std::memcpy(&value, Cell(place, column, sizeof(T)), sizeof(T));
    return value;
  }
  template <typename T>
  void Set(RowPlace place, int column, T value) {
    std::memcpy(Cell(place, column, sizeof(T)), &value, sizeof(T));
    ClearNull(place, column);
  }
  [[nodiscard]] std::string_view GetText(RowPlace place, int column) const {
    return texts_.Get(Get<TextArena::Ref>(place, column));
  }
  void SetText(RowPlace place, int column, std::string_view text) {
    Set(place, column,
        IsNull(place, column) ? texts_.Add(text)
                              : texts_.Overwrite(Get<TextArena::Ref>(place, column), text));
  }

  // Memory held for the rows without their texts, in bytes.
  [[nodiscard]] std::size_t CellBytes() const {
    return blocks_.size() * block_bytes_;
  }
  [[nodiscard]] std::size_t TextBytes() const {
    return texts_.Bytes();
  }

 private:
  struct Column {
    CellKind kind;
    // From the start of the block.
    std::size_t offset;
  };

  [[nodiscard]] const Column& Of(int column) const {
    return columns_[static_cast<std::size_t>(column)];
  }
  [[nodiscard]] std::byte* Cell(RowPlace place, int column, std::size_t width) const {
    return place.block + Of(column).offset + place.slot * width;
  }
  [[nodiscard]] std::byte* NullBits(RowPlace place) const {
    return place.block + null_offset_ + place.slot * null_bytes_;
  }
  void ClearNull(RowPlace place, int column) {
    const auto bit = static_cast<unsigned>(column);
    NullBits(place)[bit / 8] &= ~(std::byte{1} << (bit % 8));
  }
  void AddBlock();

  std::vector<Column> columns_;
  std::vector<std::unique_ptr<std::byte[]>> blocks_;
  TextArena texts_;
  std::int32_t rows_ = 0;
  std::size_t null_offset_ = 0;
  std::size_t null_bytes_ = 0;
  std::size_t block_bytes_ = 0;
};

}  // namespace salerpt
