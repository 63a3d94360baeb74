// The item columns that a report's batch leaves blank for the middle tier to fill.
#pragma once

#include <cstdint>
#include <string_view>

#include "suite/tsql/session.h"

namespace salerpt::middletier {

// The unit in which a batch counts the quantities that it calls common: its name must be of the same unit.
enum class CommonUnit : std::uint8_t {
  kSaleUnit,    // the item's sale unit, FSaleUnitID: outbound summary and detail, gross profit
  kCommonUnit,  // the item's common unit, FCUUnitID: income statistics, customer sales, order execution
};

// Fills the item columns of a temporary table, such as "#DATA", from the item master, found by the table's
// `FNumber`:
//   FShortNumber, FName, FModel   of the item, where they are blank
//   FUnitName                     the base unit of the item's unit group, where it is blank
//   FCUUnitName                   the unit that `common_unit` names, where it is blank
//   FSecUnitName                  its secondary unit, where it is blank; a unit named "*" is none
//   FQtyDecimal, FPriceDecimal    decimals of its quantities and prices, whatever the batch put there
// Rows of one item are filled, be they details or the item's own subtotal; the rows that sum several items
// name no item and stay as they are. Only the columns that the table has are filled. False where there is no
// such table; true otherwise, be there nothing to fill. Raises the engine's errors.
bool FillItemColumns(tsql::Session& session, std::string_view table,
                     CommonUnit common_unit = CommonUnit::kSaleUnit);

}  // namespace salerpt::middletier
