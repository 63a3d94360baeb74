// The recordset in memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "runtime/case_blind.h"
#include "runtime/filtered_rows.h"
#include "runtime/recordset.h"
#include "runtime/row_filter.h"
#include "runtime/row_hash.h"
#include "runtime/row_index.h"
#include "runtime/row_store.h"

namespace salerpt {

// A disconnected set: rows in a RowStore, a cursor over all rows or over those that pass the filter, and hash
// indexes that filters on equalities ask for. What the members do is told in Recordset. Fields can be looked
// at while the set is built and while it is open; a closed set cannot be opened again.
class MemoryRecordset final : public Recordset {
 public:
  [[nodiscard]] int FieldCount() const override;
  [[nodiscard]] const FieldInfo& Field(int field) const override;
  [[nodiscard]] int FindField(std::string_view name) const override;

  void AppendField(std::string_view name, FieldType type, std::int32_t size,
                   std::int32_t attributes) override;
  void SetCursorLocation(std::int32_t location) override;
  void Open() override;
  void AddNew() override;
  void Update() override;
  void Close() override;
  [[nodiscard]] bool IsOpen() const override { return state_ == State::kOpen; }

  [[nodiscard]] std::int32_t RecordCount() const override;
  [[nodiscard]] bool Eof() const override;
  void MoveFirst() override;
  void MoveNext() override;
  void Move(std::int32_t rows) override;

  void SetFilter(std::string_view criteria) override;
  [[nodiscard]] std::string Filter() const override;

  using Recordset::SetValue;
  using Recordset::Value;
  [[nodiscard]] Variant Value(int field) const override;
  void SetValue(int field, const Variant& value) override;

  [[nodiscard]] bool IsNull(int field) const override;
  [[nodiscard]] std::int32_t Int32(int field) const override;
  [[nodiscard]] double Double(int field) const override;
  [[nodiscard]] Currency Money(int field) const override;
  [[nodiscard]] Date DateOf(int field) const override;
  [[nodiscard]] std::string_view Text(int field) const override;
  void SetInt32(int field, std::int32_t value) override;
  void SetDouble(int field, double value) override;
  void SetMoney(int field, Currency value) override;
  void SetDate(int field, Date value) override;
  void SetText(int field, std::string_view value) override;

  // Memory held for rows without their texts, in bytes; for measurements.
  [[nodiscard]] std::size_t CellBytes() const { return rows_.CellBytes(); }
  [[nodiscard]] std::size_t TextBytes() const { return rows_.TextBytes(); }

 private:
  enum class State : std::uint8_t { kBuilding, kOpen, kClosed };
  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const { return HashCaseBlind(0, name); }
  };
  struct NameEqual {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return EqualCaseBlind(a, b); }
  };

  void RequireOpen() const {
    if (state_ != State::kOpen) RaiseNotOpen();
  }
  void RequireNotClosed() const {
    if (state_ == State::kClosed) RaiseNotOpen();
  }
  // A current row and a field that there is.
  void RequireCell(int field) const {
    if (!place_ || static_cast<std::size_t>(field) >= fields_.size()) RaiseNoCell(field);
  }
  // Besides, a value that is not null.
  void RequireValue(int field) const {
    RequireCell(field);
    if (rows_.IsNull(place_, field)) RaiseNull(field);
  }
  [[noreturn]] void RaiseNotOpen() const;
  [[noreturn]] void RaiseNoCell(int field) const;
  [[noreturn]] void RaiseNoRow(std::string_view what) const;
  [[noreturn]] void RaiseNull(int field) const;
  [[noreturn]] void RaiseTooLong(int field, std::string_view value) const;
  // Does a conversion; an error that it raises gets the field's name before its text.
  template <typename Conversion>
  auto Convert(int field, Conversion conversion) const;

  // Before a cell of a row that stands is written: the rows of the filter are settled, and indexes over the
  // column go.
  void BeforeChange(int field) {
    RequireCell(field);
    if (!is_adding_ && (is_filtered_ || !indexes_.empty())) ForgetColumn(field);
  }
  void ForgetColumn(int field);
  void StoreText(int field, std::string_view value);

  // Ends the row begun by AddNew, if there is one.
  void EndRow();
  [[nodiscard]] std::int32_t RowAt(std::int32_t position) const;
  void GoTo(std::int32_t position);
  // The position to count from: behind the passing rows when the row last added is current and does not pass.
  [[nodiscard]] std::int32_t Position() const;
  // Nothing where the filter has no key.
  RowIndex* IndexFor(const RowFilter& filter);

  State state_ = State::kBuilding;
  std::vector<FieldInfo> fields_;
  std::unordered_map<std::string, int, NameHash, NameEqual> field_names_;
  RowStore rows_;
  // Rows that stand: all of `rows_` but a row being added.
  std::int32_t standing_rows_ = 0;
  bool is_adding_ = false;

  // Current row; none before the first and behind the last.
  RowPlace place_;
  // Its number among the rows that pass, -1 before the first. Without meaning while `is_on_added_row_`.
  std::int32_t position_ = 0;
  // The current row is the one last added, whether it passes the filter or not.
  bool is_on_added_row_ = false;

  bool is_filtered_ = false;
  std::string filter_text_;
  std::unique_ptr<RowFilter> filter_ = std::make_unique<RowFilter>();
  // The next filter is made ready here, so that the one in force stays where that fails.
  std::unique_ptr<RowFilter> next_filter_ = std::make_unique<RowFilter>();
  std::vector<std::unique_ptr<RowIndex>> indexes_;
  // Finding further rows is no change of the set.
  mutable FilteredRows filtered_{rows_};
};

}  // namespace salerpt
