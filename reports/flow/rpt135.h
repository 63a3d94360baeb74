// `Rpt135`: sales returns statistics.
#pragma once

#include "reports/flow/rpt134.h"

namespace salerpt {

// "销售退货统计表": what customers sent back, in the columns of the customer sales detail but its date.
class Rpt135 final : public CustomerSalesList {
 public:
  Rpt135() : CustomerSalesList("Rpt135") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt135"); }
};

}  // namespace salerpt
