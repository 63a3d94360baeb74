// `Rpt140`: sales growth analysis.
#pragma once

#include <string_view>

#include "reports/analysis/sales_analysis.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售增长分析": the sales of a period against those of the same period of the year before, per item, in
// quantity and income, with the growth of both in percent.
class Rpt140 final : public SalesAnalysis {
 public:
  Rpt140() : SalesAnalysis("Rpt140") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt140"); }

 protected:
  void AddPeriodLines(TitleLines& lines) const override;
  [[nodiscard]] std::string_view StateCondition() const override;
  void AddColumns() override;
  [[nodiscard]] std::string_view FirstTextKey() const override { return "SElECT"; }
  [[nodiscard]] std::string_view Operation() const override { return "GetRpt140Data"; }

 private:
  // A column under a heading that it shares: `caption` opens the group, or is one blank in it.
  void AddGroupedColumn(std::string_view caption, std::string_view head_second, ColumnType type,
                        std::string_view name);
};

}  // namespace salerpt
