// Drill-through: a report that opens another one over a row.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "runtime/dictionary.h"
#include "runtime/object.h"
#include "runtime/recordset.h"

namespace salerpt {

// Moves the rows to `row`, from 0 among those that the host sees. True where it is a detail row; a total row
// (`FSumSort` above 0) has no detail. Raises object-not-set, source `parent` (a ProgID), where there are no
// rows, and what the row set raises for a row that it does not have.
bool MoveToDetailRow(const RecordsetRef& rows, std::int32_t row, std::string_view parent);

// Makes a report and runs it in the host's calling order: `RptID` is the number that the parent knows it by,
// `family` the plan family (nothing: the report keeps its own), `filter` its conditions. Gives the report;
// raises with number -1 and source `parent` the error that it answered; gives nothing, with the pointer back
// to normal, where it failed without a word.
ObjectRef RunDetailReport(std::string_view parent, std::string_view prog_id, std::int32_t number,
                          std::optional<std::int32_t> family, const DictionaryRef& filter);

}  // namespace salerpt
