// From the engine's rows to a row set.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "runtime/recordset.h"
#include "suite/tsql/session.h"

namespace salerpt::middletier {

// Pours the rows of a batch into a disconnected row set. Of several selects the last one counts: it begins
// the set anew. Column types are kept as far as the row set knows them: bits are booleans, all whole numbers
// up to 32 bits keep their size, a 64-bit number becomes a decimal, all texts are variable-length. A column
// without a name becomes "Column" and its place, the second of a name that name, "_" and its place.
class RecordsetSink final : public tsql::RowSink {
 public:
  void BeginRows(std::span<const tsql::Column> columns) override;
  void Row(std::span<const tsql::Value> cells) override;
  void EndRows() override;

  // The rows of the last select, standing on the first. Where no select gave rows: a set that was never
  // opened, whose reads raise closed-recordset, as the server's answer to a statement without rows.
  [[nodiscard]] RecordsetRef Take();
  // True where a select gave rows, be it none at all.
  [[nodiscard]] bool HasRows() const { return rows_ != nullptr; }

 private:
  // How a cell of a column goes into its field.
  enum class Pour : std::uint8_t { kInteger, kBoolean, kDouble, kBigInteger, kMoney, kDate, kText };
  static Pour PourOf(FieldType type);

  RecordsetRef rows_;
  std::vector<Pour> pours_;
};

// A date as the engine writes it, 'YYYY-MM-DD HH:MM:SS' with or without '.mmm' behind it. Raises type
// mismatch, naming the text, where it is none.
Date DateOfEngine(std::string_view text);

}  // namespace salerpt::middletier
