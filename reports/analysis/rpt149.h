// `Rpt149`: credit term analysis.
#pragma once

#include "reports/analysis/credit_report.h"

namespace salerpt {

// "信用期限分析表": for each credit object the term that it has been given, what it owes on the day of the
// report, and what is left of that after the cash discount for its age.
class Rpt149 final : public CreditReport {
 public:
  Rpt149() : CreditReport("Rpt149") {}
  [[nodiscard]] VectorRef PackMenuInfo() const override;
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt149"); }

 protected:
  void BuildTitle() override;
  [[nodiscard]] std::string_view CreditOperation() const override { return "GetCreditRptByDate"; }
  void AddColumns() override;
  [[nodiscard]] std::string NoFormulaTitle() const override;
};

}  // namespace salerpt
