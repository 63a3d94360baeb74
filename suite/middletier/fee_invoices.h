// Fee invoices: what was paid for carriage, loading, storage, and what is charged on to customers.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Both operations take the fee invoice lines that `filter` lets through:
//   "BDate", "EDate"             days of the bill, both included
//   "InvoiceStyle"               0 invoices to pay (kind 78, from a supplier), 1 to receive (kind 79, to a
//                                customer), else both
//   "CheckState"                 0 audited, 1 not audited, else both; cancelled bills never
//   "HookStatus"                 0 hooked, wholly or in part, 1 not hooked at all, else and where absent
//   both:
//                                all is what the dialog starts with
//   "BFeeNumber", "EFeeNumber"   codes of the fee
//   "BCust", "ECust"             codes of the customer; a bill without a customer lies in no such range
//   "BSupply", "ESupply"         codes of the supplier, likewise
//   "BItemClass"                 code of a class of items, or of one item: the lines whose fee was paid for
//   an
//                                item of it. Always a long code, as the lookup of the field gives it.
//   "bLongNumber"                whether the other codes are long ones
//   "DataRightWhereSupply", "DataRightWhereOrg"   conditions on supplier and customer, each with its alias;
//                                "DataRightFromSupply", "DataRightFromOrg": joins that they need. A bill that
//                                has no such party is not bound by them.
// An end of a range of codes that is absent or empty is open. Raise invalid-call for a missing day, what a
// value of the wrong kind raises, and the engine's errors.

// The fee invoice summary: fills `#T301B`, one row a line, and runs the batch of `request` over it.
//   FItemID, FCustID, FSupplyID     the fee and the party; 0 for the one that the bill does not have
//   FAuxQty                         in the unit of the fee
//   FAmount, FTaxAmount             with tax, and the tax of it that may be deducted, in base currency
// The blank columns FFeeType, FName and FUnit of the batch's detail rows are filled from the fee. Where short
// codes are in use the rows get a column FShortNumber, if the batch did not make one: the column that shows
// the code, and the label of the total row, reads it. In the rights alias V1 is the supplier or customer
// itself. Of `request` the keys of RunSaleBatch are read (see sale_batch.h).
RecordsetRef FeeSummary(Server& server, const Dictionary& filter, const Dictionary& request);

// The fee invoice list, one row a line and a total behind them. Amounts stand in the currency of the bill;
// the total row, "合计" in FBillNo, is in base currency, since the bills may be in several.
//   FDate, FBillNo, FInvType          of the bill; the kind in words
//   FPOStyle, FSaleStyle              style of purchase and sale in words
//   FSupplyFullNumber, FSupplyNumber, FSupplyName   long code, short code, name of the supplier
//   FCustFullNumber, FCustNumber, FCustName         of the customer
//   FFeeFullNumber, FFeeNumber, FFeeName            of the fee
//   FFeeType, FCurrencyName, FUnitName
//   FAuxQty, FAuxPrice, FTaxRate      of the line; null in the total row, but for the quantity
//   FAmount, FTaxAmount, FAmountEx    with tax, tax that may be deducted, without it
//   FCheckerName, FNote               who audited it; the note of the line, else of the bill
//   FSumSort                          0, in the total row 101
// "OrderBy" of the filter is a list of these columns, each with ASC or DESC behind it or neither, parted by
// commas; FNumber and FShortNumber in it are the fee's codes. Without one the lines stand by date, bill and
// line; lines that the order does not tell apart stand so, too. Raises invalid-call for an order by anything
// else. In the rights T7 is the customer, T8 the supplier. No row at all where no line is let through.
RecordsetRef FeeList(Server& server, const Dictionary& filter);

}  // namespace salerpt::middletier
