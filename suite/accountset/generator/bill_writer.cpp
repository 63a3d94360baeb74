#include "suite/accountset/generator/bill_writer.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "suite/accountset/accountset.h"
#include "suite/accountset/fixed_rows.h"
#include "suite/accountset/generator/calendar.h"

namespace salerpt::accountset::generator {
namespace {

// The head tables, each with its own row of numbers.
enum Table { kOrders, kStockBills, kSales, kPurchaseOrders, kPurchases, kTasks, kFees };

struct KindInfo {
  Table table;
  const char* prefix;
};

KindInfo InfoOf(const Bill& bill) {
  switch (bill.kind) {
    case BillKind::kOrder:
      return {kOrders, "SEORD"};
    case BillKind::kPurchaseOrder:
      return {kPurchaseOrders, "POORD"};
    case BillKind::kPurchaseReceipt:
      return {kStockBills, "WIN"};
    case BillKind::kTask:
      return {kTasks, "WORK"};
    case BillKind::kProductReceipt:
      return {kStockBills, "CIN"};
    case BillKind::kIssue:
      return {kStockBills, "SOUT"};
    case BillKind::kOutbound:
      return {kStockBills, "XOUT"};
    case BillKind::kSaleInvoice:
      return {kSales, bill.type == 80 ? "XSZP" : "XSPP"};
    case BillKind::kPurchaseInvoice:
      return {kPurchases, bill.type == 75 ? "CGZP" : "CGPP"};
    case BillKind::kFeeInvoice:
      break;
  }
  return {kFees, "FYFP"};
}

Decimal Qty(Quantity quantity) {
  return {quantity, 4};
}
Decimal Amount(Money money) {
  return {money, 2};
}
Decimal Rate(std::int64_t rate) {
  return {rate, 4};
}
Decimal AuxPrice(const Line& line) {
  return {line.aux_price, 4};
}
Decimal BasePrice(const Line& line) {
  return {DivideRounded(line.aux_price * 10000, line.coefficient), 8};
}
Decimal TaxPrice(const Line& line) {
  return {line.aux_price * (100 + line.tax_rate), 6};
}
Decimal SecondQty(const Line& line) {
  if (line.item->second_coefficient == 0) return {0, 0};
  return {DivideRounded(line.Base(), line.item->second_coefficient), 4};
}

std::optional<std::string> CheckDate(const Bill& bill) {
  return bill.status > 0 ? std::optional(DateText(bill.day)) : std::nullopt;
}
std::optional<int> Checker(const Bill& bill) {
  return bill.status > 0 ? std::optional(kLoginUser) : std::nullopt;
}
std::optional<std::string> Note(const Bill& bill) {
  return bill.note.empty() ? std::nullopt : std::optional(bill.note);
}
std::optional<int> OrderId(const Line& line) {
  return line.order.bill ? std::optional(line.order.bill->id) : std::nullopt;
}
std::optional<int> OrderEntry(const Line& line) {
  return line.order.bill ? std::optional(line.order.entry) : std::nullopt;
}
std::optional<int> TaskId(const Line& line) {
  return line.task ? std::optional(line.task->id) : std::nullopt;
}
std::string OrderNumber(const Line& line) {
  return line.order.bill ? line.order.bill->number : "";
}
int SourceType(const Line& line) {
  return line.source.bill ? line.source.bill->type : 0;
}
int SourceId(const Line& line) {
  return line.source.bill ? line.source.bill->id : 0;
}

// Kinds 80 and 75 keep amounts without tax, kinds 86 and 76 with it.
bool WithTax(const Bill& bill) {
  return bill.type == 86 || bill.type == 76;
}
Money InvoiceAmount(const Bill& bill, const Line& line) {
  return WithTax(bill) ? line.net + line.tax : line.net;
}
Money InvoiceStd(const Bill& bill, const Line& line) {
  return WithTax(bill) ? line.std_net + line.std_tax : line.std_net;
}
Money Hooked(const Line& line, Money amount) {
  return line.hooked == 0 ? 0 : ShareOf(amount, line.hooked, line.Base());
}

}  // namespace

BillWriter::BillWriter(Database& database)
    : database_(database),
      orders_(database),
      stock_(database),
      sales_(database),
      purchases_(database),
      others_(database) {}

void BillWriter::Write(Bill& bill) {
  NumberBill(bill);
  switch (bill.kind) {
    case BillKind::kOrder:
      return WriteOrder(bill);
    case BillKind::kPurchaseOrder:
      return WritePurchaseOrder(bill);
    case BillKind::kPurchaseReceipt:
    case BillKind::kProductReceipt:
    case BillKind::kIssue:
    case BillKind::kOutbound:
      return WriteStockBill(bill);
    case BillKind::kTask:
      return WriteTask(bill);
    case BillKind::kSaleInvoice:
      return WriteSaleInvoice(bill);
    case BillKind::kPurchaseInvoice:
      return WritePurchaseInvoice(bill);
    case BillKind::kFeeInvoice:
      return WriteFeeInvoice(bill);
  }
}

void BillWriter::NumberBill(Bill& bill) {
  const KindInfo info = InfoOf(bill);
  bill.id = ++last_ids_[info.table];
  bill.number = fmt::format("{}{:06}", info.prefix, ++last_numbers_[info.prefix]);
}

void BillWriter::WriteOrder(const Bill& bill) {
  orders_.head.Row(bill.id, bill.number, DateText(bill.day), bill.partner, bill.department, bill.employee,
                   bill.currency->id, Rate(bill.rate), bill.style, bill.range, bill.branch, bill.status,
                   bill.closed, bill.cancelled, Checker(bill), CheckDate(bill), Note(bill),
                   Amount(bill.deposit), Amount(DivideRounded(bill.deposit * bill.rate, kRateOne)),
                   Amount(bill.prepaid), Amount(DivideRounded(bill.prepaid * bill.rate, kRateOne)));
  int entry = 0;
  for (const auto& line : bill.lines) WriteOrderLine(bill, line, ++entry);
}

void BillWriter::WriteOrderLine(const Bill& bill, const Line& line, int entry) {
  const Money all = line.net + line.tax;
  orders_.line.Row(
      bill.id, entry, line.item->node.id, line.aux_prop, line.unit, Qty(line.Base()), Qty(line.aux_quantity),
      SecondQty(line), BasePrice(line), AuxPrice(line), TaxPrice(line), line.tax_rate, Amount(line.net),
      Amount(line.tax), Amount(all), Amount(line.std_net + line.std_tax), Qty(line.delivered),
      Qty(line.delivered / line.coefficient), Qty(line.invoiced), Qty(line.invoiced / line.coefficient),
      Amount(line.invoiced_all), Amount(line.invoiced_std), Amount(line.received), Amount(line.received_std),
      DateText(line.due_day), DateText(line.due_day), line.item->bom, bill.closed);
}

void BillWriter::WriteStockBill(const Bill& bill) {
  const bool sale = bill.kind == BillKind::kOutbound;
  const bool purchase = bill.kind == BillKind::kPurchaseReceipt;
  stock_.head.Row(bill.id, bill.type, bill.number, DateText(bill.day), bill.partner, bill.department,
                  bill.employee, sale ? bill.style : 0, purchase ? bill.style : 0, bill.red ? -1 : 1,
                  bill.status, bill.cancelled, HookStatus(bill), bill.early_stock, Checker(bill),
                  CheckDate(bill), Note(bill));
  int entry = 0;
  for (const auto& line : bill.lines) WriteStockLine(bill, line, ++entry);
}

void BillWriter::WriteStockLine(const Bill& bill, const Line& line, int entry) {
  const bool out = bill.kind == BillKind::kOutbound || bill.kind == BillKind::kIssue;
  const bool sale = bill.kind == BillKind::kOutbound;
  // Outbound lines are valued at cost, and at the sale price beside it; receipts and issues at their price.
  const Decimal cost_price = sale ? Decimal{line.item->cost, 4} : BasePrice(line);
  const std::int64_t coefficient = line.coefficient;
  const Decimal aux_cost = sale ? Decimal{line.item->cost * coefficient, 4} : AuxPrice(line);
  const Decimal sale_price =
      sale ? Decimal{DivideRounded(line.aux_price * bill.rate, kRateOne), 4} : Decimal{};
  const bool ages = line.item->shelf_days > 0;
  // Sales and receipts name the place in FDCStockID, issues the place that they take from in FSCStockID.
  const int from_stock = bill.kind == BillKind::kIssue ? line.stock : 0;
  stock_.line.Row(bill.id, entry, line.item->node.id, line.aux_prop, line.batch, line.item->shelf_days,
                  line.unit, Qty(line.Base()), Qty(line.aux_quantity), SecondQty(line), cost_price, aux_cost,
                  Amount(line.cost), sale_price, Amount(sale ? line.std_net : 0), from_stock,
                  from_stock == 0 ? line.stock : 0, Qty(line.invoiced), Qty(line.hooked),
                  Amount(Hooked(line, line.cost)), OrderId(line), OrderEntry(line), OrderNumber(line),
                  SourceType(line), SourceId(line), line.source.entry, TaskId(line),
                  ages ? std::optional(DateText(std::max(0, bill.day - (out ? 20 : 0)))) : std::nullopt);
  if (!bill.cancelled) MoveStock(bill, line);
}

void BillWriter::WriteSaleInvoice(const Bill& bill) {
  constexpr int kTerm = 30;
  Money received = 0;
  Money received_std = 0;
  for (const auto& line : bill.lines) {
    received += line.received;
    received_std += line.received_std;
  }
  const int voucher = bill.status > 0 && !bill.cancelled ? VoucherOf(bill.day) : 0;
  const auto note = bill.note.empty() ? std::string("销售收入") : bill.note;
  sales_.head.Row(bill.id, bill.type, bill.number, DateText(bill.day), bill.partner, bill.department,
                  bill.employee, bill.currency->id, Rate(bill.rate), bill.style, bill.red ? -1 : 1,
                  bill.status, bill.cancelled, HookStatus(bill), voucher, Checker(bill), CheckDate(bill),
                  DateText(bill.day + kTerm), Amount(received), Amount(received_std), note);
  int entry = 0;
  for (const auto& line : bill.lines) WriteSaleLine(bill, line, ++entry);
}

void BillWriter::WriteSaleLine(const Bill& bill, const Line& line, int entry) {
  sales_.line.Row(bill.id, entry, line.item->node.id, line.aux_prop, line.batch, line.unit, Qty(line.Base()),
                  Qty(line.aux_quantity), SecondQty(line), BasePrice(line), AuxPrice(line), TaxPrice(line),
                  line.tax_rate, Amount(InvoiceAmount(bill, line)), Amount(line.tax),
                  Amount(InvoiceStd(bill, line)), Amount(line.std_tax), Qty(line.hooked),
                  Amount(Hooked(line, line.std_net)), Amount(line.received), Amount(line.received_std),
                  OrderId(line), OrderEntry(line), OrderNumber(line), SourceType(line), SourceId(line),
                  line.source.entry);
}

void BillWriter::WritePurchaseOrder(const Bill& bill) {
  purchases_.order_head.Row(bill.id, bill.number, DateText(bill.day), bill.partner, bill.department,
                            bill.employee, bill.style, bill.status, Checker(bill), CheckDate(bill));
  int entry = 0;
  for (const auto& line : bill.lines) {
    purchases_.order_line.Row(bill.id, ++entry, line.item->node.id, line.unit, Qty(line.Base()),
                              Qty(line.aux_quantity), BasePrice(line), AuxPrice(line), line.tax_rate,
                              Amount(line.net), Amount(line.tax), Amount(line.net + line.tax),
                              Qty(line.delivered), DateText(line.due_day));
  }
}

void BillWriter::WritePurchaseInvoice(const Bill& bill) {
  purchases_.head.Row(bill.id, bill.type, bill.number, DateText(bill.day), bill.partner, bill.department,
                      bill.employee, bill.style, bill.status, HookStatus(bill), Checker(bill),
                      CheckDate(bill));
  int entry = 0;
  for (const auto& line : bill.lines) {
    purchases_.line.Row(
        bill.id, ++entry, line.item->node.id, line.batch, line.unit, Qty(line.Base()), Qty(line.aux_quantity),
        SecondQty(line), BasePrice(line), AuxPrice(line), line.tax_rate, Amount(InvoiceAmount(bill, line)),
        Amount(line.tax), Amount(InvoiceStd(bill, line)), Amount(line.std_tax), Qty(line.hooked),
        Amount(Hooked(line, line.std_net)), SourceType(line), SourceId(line), line.source.entry);
  }
}

void BillWriter::WriteTask(const Bill& bill) {
  const Line& line = bill.lines.front();
  others_.task.Row(bill.id, bill.number, DateText(bill.day), DateText(bill.day), DateText(line.due_day),
                   line.item->node.id, line.aux_prop, line.unit, Qty(line.Base()), Qty(line.aux_quantity),
                   Qty(line.delivered), Qty(line.delivered), bill.department, line.item->bom,
                   line.order.bill->id, line.order.entry, line.batch, bill.status);
}

void BillWriter::WriteFeeInvoice(const Bill& bill) {
  const bool to_pay = bill.type == 78;
  others_.fee_head.Row(bill.id, bill.type, bill.number, DateText(bill.day), to_pay ? bill.partner : 0,
                       to_pay ? 0 : bill.partner, bill.department, bill.employee, bill.currency->id,
                       Rate(bill.rate), to_pay ? bill.style : 0, to_pay ? 0 : bill.style, bill.red ? -1 : 1,
                       bill.status, bill.cancelled, HookStatus(bill), Checker(bill), CheckDate(bill),
                       Note(bill));
  int entry = 0;
  for (const auto& line : bill.lines) {
    // Fee amounts include their tax.
    const int item = line.item == nullptr ? 0 : line.item->node.id;
    others_.fee_line.Row(bill.id, ++entry, line.fee->node.id, item, Qty(line.aux_quantity), AuxPrice(line),
                         Amount(line.net + line.tax), line.tax_rate, Amount(line.tax),
                         Amount(line.std_net + line.std_tax), Amount(line.std_tax));
  }
}

int BillWriter::VoucherOf(int day) {
  if (day == voucher_day_) return voucher_id_;
  const auto date = DayOf(day);
  if (date.month != voucher_month_) voucher_number_ = 0;
  voucher_day_ = day;
  voucher_month_ = date.month;
  sales_.voucher.Row(++voucher_id_, DateText(day), date.year, date.month, 1, ++voucher_number_, "销售收入");
  return voucher_id_;
}

void BillWriter::MoveStock(const Bill& bill, const Line& line) {
  const bool in = bill.kind == BillKind::kPurchaseReceipt || bill.kind == BillKind::kProductReceipt;
  stock_moves_[{line.item->node.id, line.aux_prop, line.batch, line.stock}] +=
      in ? line.Base() : -line.Base();
}

void BillWriter::WriteInventory() {
  Insert insert(database_, "ICInventory", {"FItemID", "FAuxPropID", "FBatchNo", "FStockID", "FQty"});
  for (const auto& [key, moved] : stock_moves_) {
    const auto& [item, aux_prop, batch, stock] = key;
    // What was there before the first day covers what the bills took beyond what they brought.
    insert.Row(item, aux_prop, batch, stock, Qty(std::max<Quantity>(moved, 0)));
  }
}

}  // namespace salerpt::accountset::generator
