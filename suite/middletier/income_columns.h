// The columns of the sales income statistics that their batches leave to the middle tier.
#pragma once

#include <string_view>

#include "suite/tsql/session.h"

namespace salerpt::middletier {

// Fills, of a table of income rows in rollup order (`FID`), those of these columns that it has:
//   item columns      see item_columns.h; the common unit is FCUUnitID
//   FCUUnitQty        where the batch counted none: FQty in the common unit; in total rows the sum of their
//                     detail rows
//   FAmount, FTaxAmount, FCountAmount   in total rows beside FAmountFor, FTaxAmountFor, FCountAmountFor:
//                     these, since such a row sums several currencies and stands for the base currency
//   FPrice            FAmount by FQty, see price_columns.h
//   FTaxRate          FTaxAmount by FAmount, in percent, in total rows too; 0 where there is no amount
//   FCurrencyName     the currency that FCurrencyID names; what names none, such as "本位币合计", as it is;
//                     "本位币合计" in a total row without FCurrencyID, which sums several
//   FAuxPropName      the auxiliary property that FAuxPropID names; "小计" in the subtotal of an item
//   FShortCustNumber, FShortDeptNumber, FShortEmpNumber   the short code of the party whose code stands in
//                     FCustNumber, FDeptNumber, FEmpNumber, or else in FCustName, FDeptName, FEmpName, with
//                     or without "(小计)" behind it
// False where there is no such table. Raises the engine's errors.
bool FillIncomeColumns(tsql::Session& session, std::string_view table);

}  // namespace salerpt::middletier
