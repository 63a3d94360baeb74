// The world in which the outbound summary runs.
#pragma once

#include "tests/reports/report_world.h"
#include "tests/reports/rpt128_texts.h"

namespace salerpt::testing {

class Rpt128World : public ReportWorld {
 protected:
  Rpt128World() : ReportWorld("Rpt128", "GetSaleAmountData", 1) {}
  [[nodiscard]] const Pieces& Texts() const override { return Rpt128Pieces(); }
};

}  // namespace salerpt::testing
