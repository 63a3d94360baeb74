// The columns of a report, in each of its groupings.
#pragma once

#include <string>
#include <vector>

#include "reports_page/dialog_keys.h"
#include "runtime/report_class.h"

namespace salerpt::tools {

struct ReportColumn {
  // "销售数量/本期(基本)".
  std::string heading;
  std::string field;
  // "quantity", "amount", …
  std::string kind;
  // Of the groupings, by their place, those that show it.
  std::vector<std::size_t> groupings;
};

struct ReportColumns {
  // What is shown in any grouping, in an order that fits them all.
  std::vector<ReportColumn> columns;
  // Keys of the usage log lines that the fetch writes.
  std::vector<std::string> log_keys;
};

// Runs the report once for each grouping, against a recorded suite without rows. Raises invalid-call, naming
// report and grouping, where it answers a failure.
ReportColumns ReadReportColumns(const ReportClass& report, const std::vector<Grouping>& groupings);

}  // namespace salerpt::tools
