#include "suite/accountset/generator/supply_plan.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "suite/accountset/fixed_rows.h"
#include "suite/accountset/generator/calendar.h"

namespace salerpt::accountset::generator {
namespace {

constexpr int kPurchaseOrderType = 71;
constexpr int kPurchaseReceiptType = 1;
constexpr int kProductReceiptType = 2;
constexpr int kIssueType = 24;
constexpr int kTaskType = 85;
constexpr int kSpecialInvoice = 75;
constexpr int kPlainInvoice = 76;

Line NewLine(const Item& item, Quantity quantity, Price price, int tax_rate, const Bill& bill) {
  Line line;
  line.item = &item;
  line.unit = item.base_unit;
  line.aux_quantity = quantity;
  line.aux_price = price;
  line.tax_rate = tax_rate;
  line.stock = item.stock;
  SetAmounts(line, bill);
  line.cost = line.std_net;
  return line;
}

}  // namespace

SupplyPlanner::SupplyPlanner(const Company& company, Random& random, Schedule& schedule)
    : company_(company),
      random_(random),
      schedule_(schedule),
      suppliers_(company.suppliers.size(), random),
      materials_(company.materials.size(), random) {}

BillRef SupplyPlanner::NewBill(BillKind kind, int type, int day) {
  auto bill = std::make_shared<Bill>();
  bill->kind = kind;
  bill->type = type;
  bill->day = day;
  bill->currency = &company_.currencies.front();
  return bill;
}

BillRef SupplyPlanner::NewPurchaseBill(BillKind kind, int type, int day, const Supplier& supplier) {
  BillRef bill = NewBill(kind, type, day);
  bill->partner = supplier.node.id;
  const Employee& buyer = company_.employees[company_.employees.size() - 6];
  bill->employee = buyer.node.id;
  bill->department = buyer.department;
  return bill;
}

BillRef SupplyPlanner::NewFollower(BillKind kind, int type, int day, const Bill& from) {
  auto bill = std::make_shared<Bill>(from);
  bill->kind = kind;
  bill->type = type;
  bill->day = day;
  bill->lines.clear();
  return bill;
}

void SupplyPlanner::PlanPurchase(int day) {
  const Supplier& supplier = company_.suppliers[suppliers_.Draw(random_)];
  const BillRef order = NewPurchaseBill(BillKind::kPurchaseOrder, kPurchaseOrderType, day, supplier);
  order->style = random_.Percent(25) ? kCashPurchase : kCreditPurchase;
  const auto count = random_.Between(1, 6);
  for (std::int64_t i = 0; i < count; ++i) {
    // Materials for the most part, and goods that are bought to be sold.
    const int index =
        random_.Percent(65) ? company_.materials[materials_.Draw(random_)] : random_.Pick(company_.goods);
    const Item& item = company_.items[static_cast<std::size_t>(index)];
    if (item.kind != kPurchasedItem) continue;
    const Price price = std::max<Price>(100, item.cost * random_.Between(94, 106) / 10000 * 100);
    order->lines.push_back(
        NewLine(item, random_.Between(5, 300) * kQuantityOne, price, supplier.tax_rate, *order));
    order->lines.back().due_day = day + static_cast<int>(random_.Between(5, 25));
  }
  if (order->lines.empty()) return;
  const bool stays = random_.Percent(4);
  order->status = stays ? 0 : 1;
  schedule_.Place(order);
  if (!stays) ReceivePurchase(order);
}

void SupplyPlanner::ReceivePurchase(const BillRef& order) {
  const int day = order->day + static_cast<int>(random_.Between(4, 22));
  if (!schedule_.Holds(day)) return;
  const BillRef receipt = NewFollower(BillKind::kPurchaseReceipt, kPurchaseReceiptType, day, *order);
  for (std::size_t i = 0; i < order->lines.size(); ++i) {
    Line& ordered = order->lines[i];
    const Quantity part =
        random_.Percent(85) ? ordered.aux_quantity : ordered.aux_quantity / kQuantityOne / 2 * kQuantityOne;
    if (part == 0) continue;
    Line line = NewLine(*ordered.item, part, ordered.aux_price, ordered.tax_rate, *receipt);
    if (line.item->batches) line.batch = BatchOf(*line.item, day);
    line.source = {order, static_cast<int>(i) + 1};
    ordered.delivered += line.Base();
    receipt->lines.push_back(std::move(line));
  }
  if (receipt->lines.empty()) return;
  schedule_.Place(receipt);
  if (random_.Percent(88)) InvoiceReceipt(receipt, random_.Percent(75) ? kSpecialInvoice : kPlainInvoice);
}

void SupplyPlanner::InvoiceReceipt(const BillRef& receipt, int tax_kind) {
  const int day = receipt->day + static_cast<int>(random_.Between(0, 30));
  if (!schedule_.Holds(day)) return;
  const BillRef invoice = NewFollower(BillKind::kPurchaseInvoice, tax_kind, day, *receipt);
  invoice->status = random_.Percent(95) ? 1 : 0;
  const bool hooks = invoice->status != 0 && random_.Percent(92);
  for (std::size_t i = 0; i < receipt->lines.size(); ++i) {
    Line& from = receipt->lines[i];
    Line line = NewLine(*from.item, from.aux_quantity, from.aux_price, from.tax_rate, *invoice);
    line.batch = from.batch;
    line.source = {receipt, static_cast<int>(i) + 1};
    line.hooked = hooks ? line.Base() : 0;
    from.invoiced += line.Base();
    from.hooked += line.hooked;
    invoice->lines.push_back(std::move(line));
  }
  schedule_.Place(invoice);
}

void SupplyPlanner::PlanStraightPurchase(const Bill& sale) {
  const Supplier& supplier = company_.suppliers[suppliers_.Draw(random_)];
  const BillRef invoice = NewPurchaseBill(BillKind::kPurchaseInvoice, kSpecialInvoice, sale.day, supplier);
  invoice->style = kStraightPurchase;
  for (const auto& sold : sale.lines) {
    Line line = NewLine(*sold.item, sold.Base(), sold.item->cost / 100 * 100, supplier.tax_rate, *invoice);
    line.hooked = line.Base();
    invoice->lines.push_back(std::move(line));
  }
  schedule_.Place(invoice);
}

void SupplyPlanner::PlanProduction(const BillRef& order) {
  for (std::size_t i = 0; i < order->lines.size(); ++i) {
    if (order->lines[i].item->kind == kMadeItem && random_.Percent(35)) Produce(order, i);
  }
}

void SupplyPlanner::Produce(const BillRef& order, std::size_t index) {
  const Line& ordered = order->lines[index];
  const Item& item = *ordered.item;
  const int begin = order->day + static_cast<int>(random_.Below(4));
  if (!schedule_.Holds(begin)) return;
  const BillRef task = NewBill(BillKind::kTask, kTaskType, begin);
  task->department = random_.Pick(company_.workshops);
  Line made = NewLine(item, ordered.Base(), item.cost, 0, *task);
  made.aux_prop = ordered.aux_prop;
  made.due_day = begin + static_cast<int>(random_.Between(5, 20));
  made.order = {order, static_cast<int>(index) + 1};
  if (item.batches) made.batch = BatchOf(item, begin);
  task->lines.push_back(made);
  schedule_.Place(task);
  IssueMaterial(task, company_.boms[static_cast<std::size_t>(item.bom) - 1]);

  const int day = begin + static_cast<int>(random_.Between(2, 15));
  if (!schedule_.Holds(day)) return;
  const BillRef receipt = NewFollower(BillKind::kProductReceipt, kProductReceiptType, day, *task);
  const bool whole = random_.Percent(85);
  Line line = NewLine(item, whole ? made.aux_quantity : made.aux_quantity / kQuantityOne / 2 * kQuantityOne,
                      item.cost, 0, *receipt);
  if (line.aux_quantity == 0) return;
  line.aux_prop = made.aux_prop;
  line.batch = made.batch;
  line.order = made.order;
  line.task = task;
  task->lines.front().delivered = line.Base();
  task->status = whole ? 3 : 1;
  receipt->lines.push_back(std::move(line));
  schedule_.Place(receipt);
}

void SupplyPlanner::IssueMaterial(const BillRef& task, const Bom& bom) {
  const int day = task->day + static_cast<int>(random_.Below(3));
  if (!schedule_.Holds(day)) return;
  const BillRef issue = NewFollower(BillKind::kIssue, kIssueType, day, *task);
  for (const auto& part : bom.lines) {
    const Item& item = company_.items[static_cast<std::size_t>(part.item)];
    Line line = NewLine(item, task->lines.front().aux_quantity * part.quantity, item.cost, 0, *issue);
    if (item.batches) line.batch = BatchOf(item, day);
    line.task = task;
    issue->lines.push_back(std::move(line));
  }
  schedule_.Place(issue);
}

// What is rare among fee invoices comes in turn and is not drawn: the smaller companies have it, too.
void SupplyPlanner::PlanFee(int day) {
  ++fee_invoices_;
  const bool to_pay = random_.Percent(60);
  const BillRef invoice = NewBill(BillKind::kFeeInvoice, to_pay ? 78 : 79, day);
  NameFeeParty(*invoice);
  const auto& seller = company_.employees[static_cast<std::size_t>(random_.Below(12))];
  invoice->employee = seller.node.id;
  invoice->department = seller.department;
  invoice->status = random_.Percent(92) ? 1 : 0;
  invoice->red = fee_invoices_ % 12 == 8;
  if (invoice->red) invoice->note = "费用冲销";
  const auto count = random_.Between(1, 3);
  for (std::int64_t i = 0; i < count; ++i) invoice->lines.push_back(NewFeeLine(*invoice, i));
  HookFees(*invoice);
  schedule_.Place(invoice);
}

void SupplyPlanner::NameFeeParty(Bill& invoice) {
  if (invoice.type == 78) {
    invoice.partner = random_.Pick(company_.suppliers).node.id;
    invoice.style = kCreditPurchase;
    return;
  }
  const Customer& customer = random_.Pick(company_.customers);
  invoice.partner = customer.node.id;
  invoice.style = kCreditSale;
  invoice.currency = &company_.currencies[static_cast<std::size_t>(customer.currency - 1)];
  invoice.rate = RateOf(*invoice.currency, invoice.day);
}

Line SupplyPlanner::NewFeeLine(const Bill& invoice, std::int64_t place) {
  Line line;
  line.fee = &random_.Pick(company_.fees);
  line.aux_quantity = random_.Between(1, 20) * (invoice.red ? -kQuantityOne : kQuantityOne);
  const Price price = line.fee->price * random_.Between(90, 110) / 100;
  line.aux_price = DivideRounded(price * kRateOne, invoice.rate);
  line.tax_rate = line.fee->tax_rate;
  if (const std::int64_t turn = fee_invoices_ + place; turn % 3 != 0) {
    const auto index = static_cast<std::size_t>(turn * 7) % company_.goods.size();
    line.item = &company_.items[static_cast<std::size_t>(company_.goods[index])];
  }
  SetAmounts(line, invoice);
  return line;
}

void SupplyPlanner::HookFees(Bill& invoice) {
  const bool hooks = invoice.status != 0 && random_.Percent(70);
  for (auto& line : invoice.lines) line.hooked = hooks ? line.Base() : 0;
  if (fee_invoices_ % 5 == 2 && invoice.lines.size() > 1) invoice.lines.back().hooked = 0;
  if (fee_invoices_ % 12 != 5) return;
  invoice.cancelled = true;
  for (auto& line : invoice.lines) line.hooked = 0;
}

std::string SupplyPlanner::BatchOf(const Item& item, int day) const {
  const auto date = DayOf(day);
  return fmt::format("P{:02}{:02}-{:02}", date.year % 100, date.month, item.node.id % 20);
}

}  // namespace salerpt::accountset::generator
