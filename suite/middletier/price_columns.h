// Ratios that a report's batch leaves to the middle tier.
#pragma once

#include <string_view>

#include "suite/tsql/session.h"

namespace salerpt::middletier {

// Sets a price, `amount` by `quantity`, in the rows of one item that FNumber names; 0 where the quantity is
// 0. It is kept to the last digit: whoever shows it rounds it to the row's FPriceDecimal. Rows that sum
// several items have no price: null. All four are columns of `table`. Raises the engine's errors.
void FillPrice(tsql::Session& session, std::string_view table, std::string_view price,
               std::string_view amount, std::string_view quantity);

}  // namespace salerpt::middletier
