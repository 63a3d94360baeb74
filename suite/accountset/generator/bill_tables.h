// The tables that bills are written to, each with the columns that the writer fills.
#pragma once

#include "suite/accountset/sqlite.h"

namespace salerpt::accountset::generator {

// Sales orders.
struct OrderTables {
  explicit OrderTables(Database& database);
  Insert head;
  Insert line;
};

// Outbound bills, receipts, issues.
struct StockTables {
  explicit StockTables(Database& database);
  Insert head;
  Insert line;
};

// Sales invoices and the vouchers that they are booked under.
struct SaleTables {
  explicit SaleTables(Database& database);
  Insert head;
  Insert line;
  Insert voucher;
};

// Purchase orders and invoices.
struct PurchaseTables {
  explicit PurchaseTables(Database& database);
  Insert order_head;
  Insert order_line;
  Insert head;
  Insert line;
};

// Production tasks and fee invoices.
struct OtherTables {
  explicit OtherTables(Database& database);
  Insert task;
  Insert fee_head;
  Insert fee_line;
};

}  // namespace salerpt::accountset::generator
