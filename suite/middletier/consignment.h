// Goods that have left the house but are not sold yet: consigned, or to be paid in instalments.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// The consignment list, and the instalment list: fills `#Rpt303` and runs the batch of `request` over it.
//
// Sent is what stands on outbound bills of the sale style. Settled is what sales invoices bill of it: each of
// their lines names the outbound line that it was made from. An outbound line that is invoiced before it is
// sent counts as settled on the day it is sent. Whose the goods are is told by the outbound line, also for
// what is settled, so that every row's balance closes.
//
// All amounts are the sale amount of the outbound line, without tax, in base currency, and what is settled is
// valued by the same price, whatever the invoice asks: the balance then adds up, and a line that is settled
// wholly leaves nothing, not a cent.
//
// `#Rpt303` has one row for each item, customer, employee, department and batch that has an opening balance
// or moved in the period:
//   FItemID, FCustID, FEmpID, FDeptID, FBatchNo, FQtyDecimal (of the item)
//   FBegQty, FCUBegQty, FBegAmount         sent before the period and not settled before it
//   FSendQty, FCUSendQty, FSendAmount      sent in the period
//   FVerifQty, FCUVerifQty, FVerifAmount   settled in the period
// Quantities in the base unit, FCU… in the item's sale unit.
//
// Read of the request, beside the keys of RunSaleBatch (see sale_batch.h):
//   "BDate", "Edate"     the period, both days included; invalid-call where one is missing
//   "FSaleStyle"         the sale style; invalid-call where it is absent
//   "sWheChk"            condition on the state of the bills, in which u1 is the bill: the outbound bill for
//                        what is sent, the invoice for what is settled. Goods on a bill that it leaves out
//                        are not sent, and nothing of them settled.
//   "ShowVirtualStock"   0 leaves out what went from virtual stocks; a line without a stock stays. All where
//                        it is absent.
//   "Filter"             condition in which t1 is the item, t2 the customer, t3 the employee, t4 the
//   department
// Behind "SELECT" the item columns of `#DATA` are filled (see item_columns.h), and on all its rows, sums
// included, the closing columns FEndQty, FCUEndQty, FEndAmount (opening and sent less settled) and the eight
// prices, amount by quantity, 0 where the quantity is 0.
// Raises what a value of the wrong kind raises, and the engine's errors.
RecordsetRef ConsignmentList(Server& server, const Dictionary& request);

}  // namespace salerpt::middletier
