// `Rpt147`: sales income detail.
#pragma once

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售收入明细表": every invoiced line of a range of accounting periods, period by period, with a total row
// behind each. No SQL is written here: the rows come from the middle tier one period at a time and are poured
// into a recordset of the report's own. A failure in one period drops the periods before it as well.
class Rpt147 final : public Report {
 public:
  Rpt147() : Report("Rpt147") {}
  // Four 16-bit integers: begin year, begin period, end year, end period. Gives the recordset.
  Variant GetRptList(Arguments arguments) override;
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt147"); }

 protected:
  void BuildTitle() override;
  void OnActive() override;
  void FetchData() override {}

 private:
  struct Period {
    std::int16_t year;
    std::int16_t number;
  };
  void FetchPeriods(Period begin, Period end, std::int32_t periods_of_year);
  void PourPeriod(Period period, Recordset& source);
};

}  // namespace salerpt
