// `Rpt189`: delivery due warning of sales orders.
#pragma once

#include <cstdint>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售订单到期交货预警表": order lines whose delivery date is due while their quantity is not fully shipped,
// by customer or by item. No SQL is written here: the report prepares columns, title lines and data rights
// and hands over its whole `Filter`. What counts as due is the middle tier's.
class Rpt189 final : public Report {
 public:
  Rpt189() : Report("Rpt189") {}
  // Conditions without a dialog: all order lines that are due until today, by customer. The host then calls
  // GetReportData.
  void ShowNoFilter() override;
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt189"); }

 protected:
  void BuildTitle() override;
  void FetchData() override;

 private:
  void AddColumns();
  void AddColumnsByCustomer();
  void AddColumnsByItem();
};

}  // namespace salerpt
