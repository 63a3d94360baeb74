// Any text as the filter of a row set: it is refused with a run-time error, or gives the same rows by index
// and by scan.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/require.h"
#include "runtime/recordset.h"
#include "runtime/text.h"

namespace {

using salerpt::FieldType;
using salerpt::Recordset;
using salerpt::RecordsetRef;
using salerpt::fuzz::Require;

RecordsetRef SampleSet() {
  RecordsetRef set = salerpt::MakeRecordset();
  set->AppendField("A", FieldType::kSmallInt, 0);
  set->AppendField("B", FieldType::kInteger, 0);
  set->AppendField("C", FieldType::kDouble, 0);
  set->AppendField("D", FieldType::kCurrency, 0);
  set->AppendField("E", FieldType::kDate, 0);
  set->AppendField("F", FieldType::kBoolean, 0);
  set->AppendField("G", FieldType::kVarChar, 10);
  set->Open();
  for (int row = 0; row < 8; ++row) {
    set->AddNew();
    for (int field = 0; field < set->FieldCount(); ++field) {
      if ((row + field) % 5 != 0) set->SetInt32(field, row % 3);
    }
    set->Update();
  }
  return set;
}

std::vector<std::int32_t> PassingRows(Recordset& set, std::string_view filter) {
  set.SetFilter(filter);
  std::vector<std::int32_t> cells;
  for (; !set.Eof(); set.MoveNext()) {
    for (int field = 0; field < set.FieldCount(); ++field) {
      cells.push_back(set.IsNull(field) ? -1 : set.Value(field).ToInt32());
    }
  }
  Require(static_cast<std::size_t>(set.RecordCount()) * 7 == cells.size());
  return cells;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const RecordsetRef set = SampleSet();
  const std::string filter(salerpt::fuzz::AsText(data, size));
  std::vector<std::int32_t> cells;
  try {
    cells = PassingRows(*set, filter);
  } catch (const salerpt::RuntimeError&) {
    return 0;
  }
  if (set->Filter().empty()) return 0;
  // An alternative is served by a scan. Its brackets may be the ones too many.
  try {
    Require(PassingRows(*set, salerpt::Join("(", filter, ") Or (", filter, ")")) == cells);
  } catch (const salerpt::RuntimeError&) {
    Require(filter.find("((((((((") != std::string::npos);
  }
  return 0;
}
