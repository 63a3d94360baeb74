// `Rpt134`: customer sales detail, and what the sales returns statistics have in common with it.
#pragma once

#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// A list of invoice lines by customer whose rows come from the middle tier as they stand: the report prepares
// columns, title lines and data rights, and hands over its whole `Filter`. The middle tier tells the lists
// apart by the plan family's number, "RptID".
class CustomerSalesList : public Report {
 public:
  // No arguments. Gives the recordset.
  Variant GetRptList(Arguments arguments) override;

 protected:
  using Report::Report;
  void BuildTitle() override;
  void OnActive() override;
  void FetchData() override;
  // `Header`, which is new.
  virtual void AddColumns();
};

// "客户单位销售情况明细表": every invoice line of the period with its date.
class Rpt134 final : public CustomerSalesList {
 public:
  Rpt134() : CustomerSalesList("Rpt134") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt134"); }

 protected:
  void AddColumns() override;
};

}  // namespace salerpt
