// `Rpt142`: sales flow analysis.
#pragma once

#include <string_view>

#include "reports/analysis/sales_analysis.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售流向分析": where the sales between two days went, by region, item class and customer.
class Rpt142 final : public SalesAnalysis {
 public:
  Rpt142() : SalesAnalysis("Rpt142") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt142"); }

 protected:
  void AddPeriodLines(TitleLines& lines) const override;
  [[nodiscard]] std::string_view StateCondition() const override;
  void AddColumns() override;
  [[nodiscard]] std::string_view FirstTextKey() const override { return "Select"; }
  [[nodiscard]] std::string_view Operation() const override { return "GetRpt142Data"; }
};

}  // namespace salerpt
