// `Recordset`: a row set with named fields and a current row.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "runtime/object.h"

namespace salerpt {

// Field types by their ADO numbers. A row set of the middle tier may have further numbers (202, 20, …), which
// it keeps.
enum class FieldType : std::int16_t {
  kSmallInt = 2,     // 16-bit: years, periods, decimals
  kInteger = 3,      // 32-bit: ids, FSumSort
  kDouble = 5,       // quantities, prices
  kCurrency = 6,     // amounts
  kDate = 7,         // dates
  kBoolean = 11,     // flags
  kNumeric = 131,    // decimals of the server; held as doubles
  kTimestamp = 135,  // dates of the server
  kVarChar = 200     // texts
};

struct FieldInfo {
  std::string name;
  FieldType type;
  // Longest text in characters; for the other types as it was given.
  std::int32_t size;
};

// The members of the ADO object that the library uses. A field is named once, by FieldIndex, before a loop
// over rows; inside the loop it is read by its index. Every read raises no-current-row before the first or
// behind the last row, and every operation on a set that was closed or never opened raises closed-recordset.
class Recordset : public Object {
 public:
  static constexpr std::string_view kClassName = "ADODB.Recordset";
  // For AppendField and Open: the argument is left unspecified.
  static constexpr std::int32_t kUnspecified = -1;
  static constexpr std::int32_t kClientSide = 3;

  // --- Structure
  [[nodiscard]] virtual int FieldCount() const = 0;
  // `field` from 0.
  [[nodiscard]] virtual const FieldInfo& Field(int field) const = 0;
  // Index of a field by name, without regard to case; -1 where there is none.
  [[nodiscard]] virtual int FindField(std::string_view name) const = 0;
  // As FindField, but raises no-such-field, naming it.
  [[nodiscard]] int FieldIndex(std::string_view name) const;

  // --- Building a set of one's own: fields, then Open, then AddNew … Update for each row
  // Appends a field to a set that is not open. `size` counts characters and is read for texts only; left
  // unspecified, a text may have any length. Raises invalid call for a set that is open, duplicate key for a
  // name that another field has (without regard to case), wrong-arguments for a type or size that is none.
  virtual void AppendField(std::string_view name, FieldType type, std::int32_t size,
                           std::int32_t attributes = kUnspecified) = 0;
  virtual void SetCursorLocation(std::int32_t location) = 0;
  virtual void Open() = 0;
  // Begins a row, all fields null; it becomes the current one. RecordCount and the filter see it when it is
  // ended: by Update, a further AddNew, a move or a new filter.
  virtual void AddNew() = 0;
  // Ends the row begun by AddNew; it stays current, even where it does not pass the filter, until the set is
  // moved. Values already set on an existing row stand without it.
  virtual void Update() = 0;
  virtual void Close() = 0;
  [[nodiscard]] virtual bool IsOpen() const = 0;

  // --- Cursor. A freshly opened or filtered set stands on its first row.
  // Rows that pass the filter.
  [[nodiscard]] virtual std::int32_t RecordCount() const = 0;
  [[nodiscard]] virtual bool Eof() const = 0;
  // On a set without rows it does nothing.
  virtual void MoveFirst() = 0;
  // Behind the last row a further MoveNext raises no-current-row.
  virtual void MoveNext() = 0;
  // By `rows` from the current row, forward or (below 0) backward, among the rows that pass the filter; stops
  // behind the last or before the first. Raises no-current-row where it stands there already, and for a move
  // by 0 rows without a current row.
  virtual void Move(std::int32_t rows) = 0;

  // --- Filter: "A=1 And B='x'"; empty text takes it away. Raises wrong-arguments for a text that is no
  // criterion (naming the place) and no-such-field for an unknown field; the earlier filter then stays. A
  // row whose value is changed keeps its place among the rows that pass until the next filter. The grammar
  // stands at FilterCriteria.
  virtual void SetFilter(std::string_view criteria) = 0;
  [[nodiscard]] virtual std::string Filter() const = 0;

  // --- Values of the current row
  [[nodiscard]] virtual Variant Value(int field) const = 0;
  // Stored as the field's type; a value that cannot be raises type mismatch, overflow, or, for a text longer
  // than the field, wrong-arguments, naming field and value.
  virtual void SetValue(int field, const Variant& value) = 0;

  // The same without a Variant between, for loops over many rows. Reads raise invalid null on a null. A text
  // view lives until the set is changed or moved.
  [[nodiscard]] virtual bool IsNull(int field) const { return Value(field).IsNull(); }
  [[nodiscard]] virtual std::int32_t Int32(int field) const { return Value(field).ToInt32(); }
  [[nodiscard]] virtual double Double(int field) const { return Value(field).ToDouble(); }
  [[nodiscard]] virtual Currency Money(int field) const { return Value(field).ToCurrency(); }
  [[nodiscard]] virtual Date DateOf(int field) const { return Value(field).ToDate(); }
  // For text fields only.
  [[nodiscard]] virtual std::string_view Text(int field) const = 0;
  virtual void SetInt32(int field, std::int32_t value) { SetValue(field, value); }
  virtual void SetDouble(int field, double value) { SetValue(field, value); }
  virtual void SetMoney(int field, Currency value) { SetValue(field, value); }
  virtual void SetDate(int field, Date value) { SetValue(field, value); }
  virtual void SetText(int field, std::string_view value) { SetValue(field, value); }

  // By name, for single reads outside of loops.
  [[nodiscard]] Variant Value(std::string_view name) const { return Value(FieldIndex(name)); }
  void SetValue(std::string_view name, const Variant& value) { SetValue(FieldIndex(name), value); }

  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }
  // Late-bound callers reach RecordCount, EOF, MoveFirst, MoveNext, Move, Filter, Close, Fields (a name;
  // gives the current row's value) and the building members under the same names.
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override;
  static std::span<const Member<Recordset>> Members();
};
using RecordsetRef = std::shared_ptr<Recordset>;

// A new, disconnected set in memory: typed columns in blocks, rows appended in amortised constant time,
// equality filters served by a hash index that is built on first use and kept while rows are only appended.
RecordsetRef MakeRecordset();

}  // namespace salerpt
