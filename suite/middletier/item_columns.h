// The item columns that a report's batch leaves blank for the middle tier to fill.
#pragma once

#include <string_view>

#include "suite/tsql/session.h"

namespace salerpt::middletier {

// Fills the item columns of a temporary table, such as "#DATA", from the item master, found by the table's
// `FNumber`:
//   FShortNumber, FName, FModel   of the item, where they are blank
//   FUnitName                     the base unit of the item's unit group, where it is blank
//   FCUUnitName, FSecUnitName     its sale unit and its secondary unit, where they are blank; a unit named
//   "*" is none FQtyDecimal, FPriceDecimal    decimals of its quantities and prices, whatever the batch put
//   there
// Only detail rows (`FSumSort` 0, where the table tells) are filled, and only the columns that the table has;
// a row whose code is no item's stays as it is. False where there is no such table; true otherwise, be there
// nothing to fill. Raises the engine's errors.
bool FillItemColumns(tsql::Session& session, std::string_view table);

}  // namespace salerpt::middletier
