// `Rpt143`: sales structure analysis.
#pragma once

#include <string_view>

#include "reports/analysis/sales_analysis.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售结构分析": the sales of a period per item, the share of each in its class, and the growth of its
// income against the same period of the year before.
class Rpt143 final : public SalesAnalysis {
 public:
  Rpt143() : SalesAnalysis("Rpt143") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt143"); }

 protected:
  void AddPeriodLines(TitleLines& lines) const override;
  [[nodiscard]] std::string_view StateCondition() const override;
  void AddColumns() override;
  [[nodiscard]] std::string_view FirstTextKey() const override { return "Select"; }
  [[nodiscard]] std::string_view Operation() const override { return "GetRpt143Data"; }
};

}  // namespace salerpt
