// `Rpt302`: sales fee invoice detail.
#pragma once

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售费用发票明细表": the lines of fee invoices against suppliers or customers. The rows come from the
// middle tier as they stand, selected and ordered by `Filter` and by the data rights written into it.
class Rpt302 final : public Report {
 public:
  Rpt302() : Report("Rpt302") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt302"); }

 protected:
  void BuildTitle() override;
  void FetchData() override;

 private:
  void AddColumns();
};

}  // namespace salerpt
