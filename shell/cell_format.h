// Cells of the current row as text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/sheet.h"

namespace salerpt::shell {

// --- Numbers
// With so many decimals (0 to 15), halves away from zero: 2.675 with two is "2.68", as people reckon,
// although the double lies below. No number that rounds to zero keeps its sign.
void AppendFixed(std::string& out, double value, int decimals);
void AppendFixed(std::string& out, Currency value, int decimals);
// The shortest plain digits, without an exponent, that give the number back.
void AppendExact(std::string& out, double value);

// Walks the rows of a sheet. Fields are found once, by the constructor; a cell is read by its column's
// number. A column whose field the rows do not have is empty: some reports keep such columns.
class SheetRows {
 public:
  explicit SheetRows(const Sheet& sheet);

  // Goes to the next row, at first to the first one; false behind the last.
  bool Next();
  // Before the first row again.
  void Rewind() { started_ = false; }

  // Level of the current row.
  [[nodiscard]] std::int32_t SumSort() const { return IntegerOr(sum_sort_, kDetailRow); }
  [[nodiscard]] bool IsTotal() const { return SumSort() > kDetailRow; }
  [[nodiscard]] bool IsNull(std::size_t column) const {
    const int field = cells_[column].field;
    return field < 0 || sheet_.rows->IsNull(field);
  }

  // How a cell is held, for formats that keep numbers and dates apart from texts.
  enum class Kind : std::uint8_t { kText, kNumber, kBoolean, kDate };
  [[nodiscard]] Kind KindOf(std::size_t column) const;
  [[nodiscard]] double Number(std::size_t column) const;
  [[nodiscard]] bool Boolean(std::size_t column) const;
  [[nodiscard]] Date DateOf(std::size_t column) const;
  [[nodiscard]] std::string_view Text(std::size_t column) const {
    return sheet_.rows->Text(cells_[column].field);
  }
  // Decimals that a person sees: quantities by the row's FQtyDecimal, prices by its FPriceDecimal,
  // percentages 2, amounts 2 or the base currency's; nothing where the digits stand as they are.
  [[nodiscard]] std::optional<int> Decimals(std::size_t column) const;

  // Appends what a person reads; nothing for a null.
  void AppendShown(std::string& out, std::size_t column) const;
  // Appends the value without loss: all digits, dates as YYYY-MM-DD and the time where there is one. Nothing
  // for a null.
  void AppendExactly(std::string& out, std::size_t column) const;

 private:
  struct Cell {
    int field;
    FieldType type;
    ColumnType shown_as;
  };

  [[nodiscard]] int QuantityDecimals(const Cell& cell) const;
  [[nodiscard]] std::int32_t IntegerOr(int field, std::int32_t absent) const;
  void AppendNumber(std::string& out, const Cell& cell, std::optional<int> decimals) const;

  const Sheet& sheet_;
  std::vector<Cell> cells_;
  int sum_sort_ = -1;
  int qty_decimal_ = -1;
  int price_decimal_ = -1;
  bool started_ = false;
};

}  // namespace salerpt::shell
