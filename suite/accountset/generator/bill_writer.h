// Writes the bills of the made-up company, day by day.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>

#include "suite/accountset/generator/bill.h"
#include "suite/accountset/generator/bill_tables.h"
#include "suite/accountset/sqlite.h"

namespace salerpt::accountset::generator {

class BillWriter {
 public:
  // The database must outlive it.
  explicit BillWriter(Database& database);

  // Gives the bill its number and writes it. Bills that it was made from must be written already.
  void Write(Bill& bill);
  // Writes what is left in the stocks after all bills.
  void WriteInventory();

 private:
  void WriteOrder(const Bill& bill);
  void WriteOrderLine(const Bill& bill, const Line& line, int entry);
  void WriteStockBill(const Bill& bill);
  void WriteStockLine(const Bill& bill, const Line& line, int entry);
  void WriteSaleInvoice(const Bill& bill);
  void WriteSaleLine(const Bill& bill, const Line& line, int entry);
  void WritePurchaseOrder(const Bill& bill);
  void WritePurchaseInvoice(const Bill& bill);
  void WriteTask(const Bill& bill);
  void WriteFeeInvoice(const Bill& bill);
  void NumberBill(Bill& bill);
  // The voucher into which the day's invoices go; made for the first of them.
  int VoucherOf(int day);
  void MoveStock(const Bill& bill, const Line& line);

  Database& database_;
  OrderTables orders_;
  StockTables stock_;
  SaleTables sales_;
  PurchaseTables purchases_;
  OtherTables others_;
  std::map<std::string, int> last_numbers_;  // by the prefix of the bill number
  std::array<int, 7> last_ids_{};            // by head table
  int voucher_day_ = -1;
  int voucher_id_ = 0;
  int voucher_month_ = 0;
  int voucher_number_ = 0;

  // Item, auxiliary property, batch and stock.
  using StockKey = std::tuple<int, int, std::string, int>;
  std::map<StockKey, Quantity> stock_moves_;
};

}  // namespace salerpt::accountset::generator
