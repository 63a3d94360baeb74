// The tables of an account set.
#pragma once

#include "suite/accountset/sqlite.h"

namespace salerpt::accountset {

// The declared types are the suite's: INT, SMALLINT, BIT, FLOAT, MONEY, DECIMAL(p,s), VARCHAR(n) and DATETIME
// (text 'YYYY-MM-DD HH:MM:SS'); the T-SQL engine reads them. Text columns compare without regard to case.
// Head tables are keyed by FInterID, entry tables by FInterID and FEntryID and stored in that order, so that
// a bill's lines lie together: the reports join heads to their lines and nothing else needs an index for
// that.

// Makes all tables, empty, and the mark of an account set in the file's header.
void CreateTables(Database& database);

// The indexes that pay, made when the rows are in: look-ups of a bill's lines by the order that they deliver,
// of an item's last receipt, and of bills by kind and date.
void CreateIndexes(Database& database);

// The pieces of CreateTables, one text each.
extern const char* const kMasterTables;  // items, customers, units and all else that bills point to
extern const char* const kSalesTables;   // contracts, orders, outbound and other stock bills, invoices
extern const char* const kSupplyTables;  // purchases, production, fees, stock on hand
extern const char* const kSuiteTables;   // what the suite keeps for itself: parameters, users, plans, log

}  // namespace salerpt::accountset
