// `Rpt146`: credit amount analysis.
#pragma once

#include "reports/analysis/credit_report.h"

namespace salerpt {

// "信用额度分析表": for each credit object the amount that it owes, the amount that it may owe and the
// difference, in document currency and converted.
class Rpt146 final : public CreditReport {
 public:
  Rpt146() : CreditReport("Rpt146") {}
  [[nodiscard]] VectorRef PackMenuInfo() const override;
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt146"); }

 protected:
  void BuildTitle() override;
  [[nodiscard]] std::string_view CreditOperation() const override { return "GetCreditRptByAmt"; }
  void AddColumns() override;
  [[nodiscard]] std::string NoFormulaTitle() const override;
};

}  // namespace salerpt
