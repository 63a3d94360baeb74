// What was produced for the lines of `#OrderLines` (see order_lines.h).
#pragma once

#include <string_view>

namespace salerpt::middletier {

// A batch that makes
//   #Tasks      the tasks made for the lines: FInterID, and FOrderInterID, FOrderEntryID of the line.
//               Cancelled tasks do not count.
//   #Receipts   the lines of product receipts for the lines, each once: FBillID, FBillEntryID, FOrderInterID,
//               FOrderEntryID, and FWorkInterID, the task that brought it, 0 where none of #Tasks did. A
//               receipt that names a task belongs to the task's line, whatever order it names itself.
//               Receipts count that are audited or moved the stock when they were saved, cancelled ones
//               never.
extern const std::string_view kProductionText;

}  // namespace salerpt::middletier
