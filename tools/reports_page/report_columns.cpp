#include "reports_page/report_columns.h"

#include <algorithm>

#include "runtime/error.h"
#include "runtime/text.h"
#include "shell/header_layout.h"
#include "shell/recorded/json_value.h"
#include "shell/recorded/request.h"

namespace salerpt::tools {
namespace {

std::string_view KindName(ColumnType type) {
  switch (type) {
    case ColumnType::kDate:
      return "date";
    case ColumnType::kText:
      return "text";
    case ColumnType::kQuantity:
      return "quantity";
    case ColumnType::kPrice:
      return "price";
    case ColumnType::kAmount:
      return "amount";
    case ColumnType::kPercentage:
      return "percentage";
    case ColumnType::kExchangeRate:
      return "exchange rate";
    case ColumnType::kPeriod:
      return "period";
    case ColumnType::kBaseAmount:
      return "amount in base currency";
  }
  return "number";
}

// What a report needs to be answered so that it comes to an end: a credit formula's statement, the four row
// sets of the order batch tracking.
Json Answers() {
  const Json no_rows = {{"fields", Json::array({Json::array({"FInterID", 3, 4})})}, {"rows", Json::array()}};
  return {{"GetRpt192Data",
           {{"rsOrder", no_rows}, {"rsWorkBill", no_rows}, {"rsInStock", no_rows}, {"rsOutStock", no_rows}}}};
}
Json Replies() {
  const Json sql = {{"Sql", "Select 1"}};
  return {{"GetCreditRptByQty", sql}, {"GetCreditRptByAmt", sql}, {"GetCreditRptByDate", sql}};
}

Json Fetch(const ReportClass& report, const Grouping& grouping) {
  const Json answer = shell::RunRequest(
      report.name, Json{{"Filter", grouping.filter}, {"answers", Answers()}, {"replies", Replies()}});
  const Json& result = answer.at("Result");
  if (!result.value("OK", false)) {
    throw RuntimeError(error_number::kInvalidCall, "reports_page",
                       Join(report.name, " ", grouping.choice, " ", grouping.text, ": ", result.dump(), " ",
                            answer.at("boxes").dump()));
  }
  return answer;
}

bool IsSame(const ReportColumn& column, const std::string& heading, const shell::SheetColumn& shown) {
  return column.field == shown.field && column.heading == heading;
}

// Each column stands behind the one that stands before it in its grouping.
void Merge(std::vector<ReportColumn>& columns, const std::vector<shell::SheetColumn>& shown,
           std::size_t grouping) {
  auto place = columns.begin();
  for (const shell::SheetColumn& column : shown) {
    const std::string heading = column.Heading();
    auto found = std::find_if(columns.begin(), columns.end(), [&](const ReportColumn& known) {
      const bool taken = !known.groupings.empty() && known.groupings.back() == grouping;
      return !taken && IsSame(known, heading, column);
    });
    if (found == columns.end()) {
      found = columns.insert(place, {heading, column.field, std::string(KindName(column.type)), {}});
    }
    found->groupings.push_back(grouping);
    place = found + 1;
  }
}

}  // namespace

ReportColumns ReadReportColumns(const ReportClass& report, const std::vector<Grouping>& groupings) {
  ReportColumns told;
  for (std::size_t i = 0; i < groupings.size(); ++i) {
    const Json answer = Fetch(report, groupings[i]);
    const auto header = As<Vector>(shell::ToAnswer(shell::JsonPlace(answer.at("Header"))));
    Merge(told.columns, shell::LayOutHeader(*header), i);
    for (const Json& line : answer.at("log")) {
      const std::string key = line.at(0).get<std::string>();
      if (std::find(told.log_keys.begin(), told.log_keys.end(), key) == told.log_keys.end()) {
        told.log_keys.push_back(key);
      }
    }
  }
  return told;
}

}  // namespace salerpt::tools
