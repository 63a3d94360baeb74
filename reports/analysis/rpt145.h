// `Rpt145`: credit quantity analysis.
#pragma once

#include "reports/analysis/credit_report.h"

namespace salerpt {

// "信用数量分析表": for each credit object and item the quantity that may be taken on credit, what is taken
// of it and the difference, in the base and the usual unit.
class Rpt145 final : public CreditReport {
 public:
  Rpt145() : CreditReport("Rpt145") {}
  [[nodiscard]] VectorRef PackMenuInfo() const override;
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt145"); }

 protected:
  void BuildTitle() override;
  [[nodiscard]] std::string_view CreditOperation() const override { return "GetCreditRptByQty"; }
  void AddColumns() override;
  [[nodiscard]] std::string NoFormulaTitle() const override;
};

}  // namespace salerpt
