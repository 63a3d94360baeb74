// The credit that customers, employees and departments are given, and what of it is in use.
#pragma once

#include <string>

#include "runtime/dictionary.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// Each gives the text of a batch whose last select is the report, or an empty text where the account set
// holds no limit of the kind. The filter:
//   "FCreditClass"             whose credit: 0 customers, 1 employees, 2 departments, 3 classes of customers,
//                              4 classes of employees; nobody's for any other number
//   "FGroupID"                 what uses it up: 0 contracts, 1 orders, 2 outbound bills, 3 sales invoices
//   "BDate", "EDate"           days of these bills
// Bills count that are audited, and outbound bills that moved the stock when they were saved; cancelled ones
// never. A customer's bill counts for its employee and department as the bill names them, and for their
// classes as they are now. Of customers those are shown that the user who is logged in may see; sums over
// employees, departments and classes are whole, or a limit would seem to have room that it does not have.
//
// They raise invalid-call for a missing day, for a kind of bill, a currency or an object that does not exist,
// what a value of the wrong kind raises, and the engine's errors.

// By quantity, a row for each limit; bills count in full, red ones against it. "FICItemIDFrom", "FICItemIDTo"
// are codes of items, "FItemIDFrom", "FItemIDTo" codes of the holder: long ones where "bLongNumber" is true,
// or where it is absent and the system uses them; a class has one code. An end that is absent or empty is
// open.
//   FNumber, FName                                      of the holder; the code in use
//   FICNumber, FICShortNumber, FICName, FModel          of the item
//   FUnitName, FCreditQty, FQty, FBalQty                in its base unit: limit, used, left
//   FSaleUnitName, FSaleUnitCreditQty, FSaleUnitQty, FSaleUnitBalQty   the same in its sale unit
std::string CreditByQuantity(Server& server, const Dictionary& filter);

// By amount, a row for each limit. Amounts are with tax. What is paid of a bill is free again: a bill counts
// with what is still owed for it. It uses the limit in its own currency; where the holder has none in that,
// the one in base currency, else the first, into which it is converted by its base amount. Outbound bills
// are in base currency. "FItemIDFrom", "FItemIDTo" are numbers of holders, whose codes bound the range; 0
// and empty are open. "FCurrencyID" and "FExchangeRate" tell into what is converted: absent the base
// currency, and the currency's own rate.
//   FNumber, FName, FCreditLevel
//   FCurrencyName                              the currency of the limit
//   FStdAmt, FCreditStdAmt, FBalStdAmt         in it: used, limit, left
//   FAmt, FCreditAmt, FBalAmt                  these converted, all three by the one rate of the day
std::string CreditByAmount(Server& server, const Dictionary& filter);

// By term: what is owed on sales invoices up to "FDate", a row for each stretch of days for which the holder
// is left the same discount; what has stood longer is left none. The days are counted from the invoice to
// "FDate". Neither "FGroupID" nor "BDate" and "EDate" are read. Invoices in the currency that is asked for
// count with their own amount, all others with their base amount, divided by the rate: "FRate", else
// "FExchangeRate". Holders as in CreditByAmount, as far as they have a term.
//   FNumber, FName, FCreditTime (days), FCreditLevel
//   FAmount                    owed, with tax, less what was received
//   FDiscountRate, FDicAmount  per cent left to who pays now, and what remains to be paid
std::string CreditByTerm(Server& server, const Dictionary& filter);

}  // namespace salerpt::middletier
