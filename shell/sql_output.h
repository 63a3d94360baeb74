// The rows of SQL statements, printed.
#pragma once

#include <iosfwd>
#include <memory>
#include <string_view>

#include "suite/tsql/session.h"

namespace salerpt::shell {

// Prints each row set as it comes: "table" lines it up, nulls as NULL; "csv" writes a heading record and the
// rows (RFC 4180), nulls empty; both put an empty line between two sets. "json" writes one object a set, one
// a line: "columns" (name and type), "rows" (arrays). Raises invalid-call for any other format.
std::unique_ptr<tsql::RowSink> MakeSqlOutput(std::string_view format, std::ostream& out);

}  // namespace salerpt::shell
