// A filter made ready for the columns of one row set.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "runtime/filter_criteria.h"
#include "runtime/recordset.h"
#include "runtime/row_store.h"

namespace salerpt {

// Criteria bound to columns, with literals in the form of the cells. A null cell passes only `= Null`, and
// `<>` only against Null; texts compare without regard to case.
class RowFilter {
 public:
  // Takes the criteria in the place of earlier ones. Raises wrong-arguments for a text that is no criterion,
  // and for a literal or a test that does not suit its field; no-such-field for an unknown field.
  void Bind(std::string_view text, const Recordset& fields);

  [[nodiscard]] bool IsEmpty() const { return conditions_.empty(); }
  [[nodiscard]] bool Passes(const RowStore& rows, RowPlace place) const;
  [[nodiscard]] bool Uses(int column) const;

  // The columns that every passing row agrees in with the filter, ascending: those of the equalities of a
  // filter that has no Or. Empty where an index is of no use.
  [[nodiscard]] std::span<const int> KeyColumns() const { return key_columns_; }
  // Hash of the values of the key columns, as RowIndex makes it of a row.
  [[nodiscard]] std::uint64_t KeyHash() const { return key_hash_; }

 private:
  struct Condition {
    int column = 0;
    CellKind kind = CellKind::kInt32;
    CriterionTest test = CriterionTest::kEqual;
    bool begins_group = false;
    bool against_null = false;
    // The literal can be held by a cell of the kind; otherwise it only lies between such values.
    bool is_exact = true;
    // Whole number, ten-thousandths, or 0 and 1 for booleans.
    std::int64_t whole = 0;
    double number = 0;
    std::string_view text;
  };

  static void BindLiteral(const Criterion& criterion, const FieldInfo& field, Condition& condition);
  static void BindNumber(const Criterion& criterion, const FieldInfo& field, Condition& condition);
  static void BindDate(const Criterion& criterion, const FieldInfo& field, Condition& condition);
  static void BindBoolean(const Criterion& criterion, const FieldInfo& field, Condition& condition);
  static bool Passes(const Condition& condition, const RowStore& rows, RowPlace place);
  void FindKey();
  [[nodiscard]] const Condition& KeyCondition(int column) const;

  FilterCriteria criteria_;
  std::vector<Condition> conditions_;
  std::vector<int> key_columns_;
  std::uint64_t key_hash_ = 0;
};

}  // namespace salerpt
