// `Rpt137`: order execution detail.
#pragma once

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售订单执行情况明细表": line by line, each order line with its deliveries and what remains undelivered. A
// report of its own, and the detail of a row of the order execution summary.
//
// Its rows come from the middle tier as they stand: the report prepares columns, title lines and data rights,
// and hands over its whole `Filter`. FSumSort tells what a row is: 0 a detail row, 102 a subtotal, 101 the
// total; subtotals are left out of sight where the user asked for lines alone ("DisplayType" 1).
class Rpt137 final : public Report {
 public:
  Rpt137() : Report("Rpt137") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt137"); }
  // No arguments. Gives the recordset.
  Variant GetRptList(Arguments arguments) override;

 protected:
  void BuildTitle() override;
  void OnActive() override;
  void FetchData() override;

 private:
  void AddColumns();
};

}  // namespace salerpt
