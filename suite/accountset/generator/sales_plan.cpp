#include "suite/accountset/generator/sales_plan.h"

#include <algorithm>
#include <utility>

namespace salerpt::accountset::generator {
namespace {

constexpr int kOrderType = 81;
constexpr int kOutboundType = 21;

// Half of a quantity, in whole units; what cannot be halved so goes whole, since most items are not divided.
Quantity HalfOf(Quantity quantity) {
  const Quantity half = quantity / 2;
  return half >= kQuantityOne ? half / kQuantityOne * kQuantityOne : quantity;
}

// `from` as a line of another bill, with `quantity` of it.
Line Copied(const Line& from, Quantity quantity, const Bill& bill) {
  Line line;
  line.item = from.item;
  line.aux_prop = from.aux_prop;
  line.batch = from.batch;
  line.unit = from.unit;
  line.coefficient = from.coefficient;
  line.aux_quantity = quantity;
  line.aux_price = from.aux_price;
  line.tax_rate = from.tax_rate;
  line.stock = from.stock;
  line.order = from.order;
  SetAmounts(line, bill);
  return line;
}

void SetCost(Line& line) {
  line.cost = DivideRounded(line.Base() / 100 * line.item->cost, 10'000);
}

}  // namespace

SalesPlanner::SalesPlanner(const Company& company, Random& random, Schedule& schedule, SupplyPlanner& supply)
    : company_(company),
      random_(random),
      schedule_(schedule),
      supply_(supply),
      customers_(company.customers.size(), random),
      goods_(company.goods.size(), random) {}

void SalesPlanner::PlanSale(int day) {
  if (Opens()) return PlanOrder(day, kOpening[sales_++]);
  const auto draw = random_.Below(100);
  if (draw < 76) {
    PlanOrder(day, DrawStyle());
  } else if (draw < 94) {
    PlanCounterSale(day);
  } else {
    PlanLoneBill(day);
  }
}

int SalesPlanner::DrawStyle() {
  const auto draw = random_.Below(100);
  if (draw < 30) return kCashSale;
  if (draw < 74) return kCreditSale;
  if (draw < 84) return kInstalmentSale;
  return draw < 94 ? kConsignmentSale : kStraightSale;
}

void SalesPlanner::PlanOrder(int day, int style) {
  const Customer& customer = company_.customers[customers_.Draw(random_)];
  const BillRef order = NewBill(BillKind::kOrder, kOrderType, day, customer, style);
  order->range = random_.Percent(96) ? kOrderOfSale : kOrderOfTransfer;
  order->branch = random_.Percent(25) ? random_.Pick(company_.branches).id : 0;
  AddLines(*order, 9);
  for (auto& line : order->lines) line.due_day = day + static_cast<int>(random_.Between(5, 45));
  const auto fate = random_.Below(100);
  order->status = fate < 4 ? 0 : 1;
  order->cancelled = fate == 4;
  schedule_.Place(order);
  if (fate <= 4) return;
  Money all = 0;
  for (const auto& line : order->lines) all += line.net + line.tax;
  if (random_.Percent(15)) order->deposit = DivideRounded(all, 1000) * 100;
  if (order->deposit != 0 && random_.Percent(50)) order->prepaid = order->deposit;
  if (style == kStraightSale) {
    InvoiceStraight(order);
  } else {
    supply_.PlanProduction(order);
    Deliver(order);
  }
}

void SalesPlanner::PlanCounterSale(int day) {
  const Customer& customer = company_.customers[customers_.Draw(random_)];
  const int style = random_.Percent(60) ? kRetailSale : kCashSale;
  const BillRef outbound = NewBill(BillKind::kOutbound, kOutboundType, day, customer, style);
  AddLines(*outbound, 6);
  for (auto& line : outbound->lines) SetCost(line);
  schedule_.Place(outbound);
  InvoiceOutbound(outbound);
}

void SalesPlanner::PlanLoneBill(int day) {
  // An outbound bill or an invoice that nothing else belongs to: not audited yet, cancelled, or still to be
  // hooked.
  const Customer& customer = company_.customers[customers_.Draw(random_)];
  const bool invoice = random_.Percent(50);
  const BillRef bill = invoice ? NewBill(BillKind::kSaleInvoice, 86, day, customer, kCreditSale)
                               : NewBill(BillKind::kOutbound, kOutboundType, day, customer, kCreditSale);
  AddLines(*bill, 4);
  for (auto& line : bill->lines) SetCost(line);
  const auto fate = random_.Below(3);
  bill->status = fate == 0 ? 1 : 0;
  bill->cancelled = fate == 1;
  if (!invoice) bill->style = LoneStyle(static_cast<std::size_t>(fate));
  schedule_.Place(bill);
}

int SalesPlanner::LoneStyle(std::size_t fate) {
  // In turn, not drawn, so that what is drawn behind it stays the same.
  constexpr std::array kStyles = {kInstalmentSale, kConsignmentSale, kCreditSale};
  return kStyles[lone_outbounds_[fate]++ % kStyles.size()];
}

BillRef SalesPlanner::NewBill(BillKind kind, int type, int day, const Customer& customer, int style) {
  auto bill = std::make_shared<Bill>();
  bill->kind = kind;
  bill->type = type;
  bill->day = day;
  bill->partner = customer.node.id;
  bill->department = customer.department;
  bill->employee = customer.employee;
  bill->style = style;
  bill->currency = &company_.currencies[static_cast<std::size_t>(customer.currency - 1)];
  bill->rate = RateOf(*bill->currency, day);
  return bill;
}

BillRef SalesPlanner::NewFollower(BillKind kind, int type, int day, const Bill& from) {
  auto bill = std::make_shared<Bill>(from);
  bill->kind = kind;
  bill->type = type;
  bill->day = day;
  bill->status = 1;
  bill->cancelled = false;
  bill->closed = false;
  bill->early_stock = false;
  bill->deposit = 0;
  bill->prepaid = 0;
  bill->rate = RateOf(*bill->currency, day);
  bill->lines.clear();
  return bill;
}

void SalesPlanner::AddLines(Bill& bill, int most) {
  const auto count = random_.Between(1, most);
  for (std::int64_t i = 0; i < count; ++i) {
    const int index = company_.goods[goods_.Draw(random_)];
    bill.lines.push_back(NewLine(company_.items[static_cast<std::size_t>(index)], bill));
  }
}

Line SalesPlanner::NewLine(const Item& item, const Bill& bill) {
  Line line;
  line.item = &item;
  const bool in_sale_unit = random_.Percent(80);
  line.unit = in_sale_unit ? item.sale_unit : item.base_unit;
  line.coefficient = in_sale_unit ? item.sale_coefficient : 1;
  line.aux_quantity = random_.Between(1, random_.Percent(10) ? 200 : 30) * kQuantityOne;
  if (item.quantity_decimals > 0) line.aux_quantity += random_.Below(4) * kQuantityOne / 4;
  if (item.aux_class != 0) {
    const auto& aux = random_.Pick(company_.aux_items);
    line.aux_prop = aux.aux_class == item.aux_class ? aux.id : item.aux_class == 1 ? 2 : 6;
  }
  if (item.batches) line.batch = supply_.BatchOf(item, bill.day);
  const std::int64_t list = item.price * line.coefficient * random_.Between(88, 106) / 100;
  // Prices have two decimals, those in a currency without coins none.
  const std::int64_t step = bill.currency->scale == 0 ? 10000 : 100;
  line.aux_price = std::max(step, DivideRounded(list * kRateOne, bill.rate * step) * step);
  line.tax_rate = item.tax_rate;
  line.stock = random_.Percent(98) ? item.stock : company_.stocks.back().node.id;
  SetAmounts(line, bill);
  return line;
}

void SalesPlanner::Deliver(const BillRef& order) {
  std::vector<Quantity> open;
  for (const auto& line : order->lines) open.push_back(line.aux_quantity);
  const auto waves = random_.Between(1, 3);
  int day = order->day;
  for (std::int64_t wave = 1; wave <= waves; ++wave) {
    day += static_cast<int>(random_.Between(2, 16));
    if (!schedule_.Holds(day)) break;
    DeliverWave(order, day, wave == waves, open);
  }
  const bool all_out = std::all_of(open.begin(), open.end(), [](Quantity left) { return left == 0; });
  if (all_out || random_.Percent(3)) {
    order->status = 3;
    order->closed = true;
  }
}

void SalesPlanner::DeliverWave(const BillRef& order, int day, bool last, std::vector<Quantity>& open) {
  const BillRef outbound = NewFollower(BillKind::kOutbound, kOutboundType, day, *order);
  for (std::size_t i = 0; i < open.size(); ++i) {
    const auto draw = random_.Below(100);
    const Quantity part = draw < (last ? 88 : 70) ? open[i] : draw < 92 ? HalfOf(open[i]) : 0;
    if (part == 0) continue;
    open[i] -= part;
    Line line = Copied(order->lines[i], part, *outbound);
    line.order = {order, static_cast<int>(i) + 1};
    line.source = line.order;
    if (line.item->batches) line.batch = supply_.BatchOf(*line.item, day);
    SetCost(line);
    order->lines[i].delivered += line.Base();
    outbound->lines.push_back(std::move(line));
  }
  if (outbound->lines.empty()) return;
  schedule_.Place(outbound);
  if (random_.Percent(3)) {
    // Saved, and out of the stock, but not audited yet: nothing follows.
    outbound->status = 0;
    outbound->early_stock = true;
    return;
  }
  InvoiceOutbound(outbound);
  if (random_.Percent(4)) ReturnSome(outbound);
}

void SalesPlanner::ReturnSome(const BillRef& outbound) {
  const int day = outbound->day + static_cast<int>(random_.Between(3, 40));
  if (!schedule_.Holds(day)) return;
  const BillRef red = NewFollower(BillKind::kOutbound, kOutboundType, day, *outbound);
  red->red = true;
  red->note = "客户退货";
  const auto index =
      static_cast<std::size_t>(random_.Below(static_cast<std::int64_t>(outbound->lines.size())));
  const Line& sold = outbound->lines[index];
  Line line = Copied(sold, -HalfOf(sold.aux_quantity), *red);
  if (line.aux_quantity == 0) return;
  line.source = {outbound, static_cast<int>(index) + 1};
  SetCost(line);
  if (line.order.bill)
    line.order.bill->lines[static_cast<std::size_t>(line.order.entry) - 1].delivered += line.Base();
  red->lines.push_back(std::move(line));
  schedule_.Place(red);
  InvoicePortion(red, day + static_cast<int>(random_.Below(5)), 1);
}

void SalesPlanner::InvoiceOutbound(const BillRef& outbound) {
  int portions = 1;
  int days_between = 4;
  if (outbound->style == kInstalmentSale) {
    portions = 3;
    days_between = 30;
  } else if (outbound->style == kConsignmentSale) {
    portions = static_cast<int>(random_.Between(1, 3));
    days_between = 20;
  } else if (const auto draw = random_.Below(100); draw >= 80) {
    portions = draw < 92 ? 2 : 0;
  }
  // Consigned goods are not all sold: the last portion may stay with the agent.
  const int settled = outbound->style == kConsignmentSale && random_.Percent(50) ? portions - 1 : portions;
  int day = outbound->day;
  for (int n = 0; n < settled; ++n) {
    day += static_cast<int>(random_.Between(n == 0 ? 0 : days_between, days_between + 6));
    InvoicePortion(outbound, day, portions - n);
  }
}

void SalesPlanner::InvoicePortion(const BillRef& outbound, int day, int portions_left) {
  if (!schedule_.Holds(day)) return;
  const BillRef invoice = NewFollower(BillKind::kSaleInvoice, InvoiceType(*outbound), day, *outbound);
  const auto fate = random_.Below(100);
  invoice->status = fate < 5 ? 0 : 1;
  for (std::size_t i = 0; i < outbound->lines.size(); ++i) {
    Line& from = outbound->lines[i];
    const Quantity open = from.aux_quantity - from.invoiced / from.coefficient;
    Quantity part = open / portions_left;
    if (portions_left > 1) part = part / kQuantityOne * kQuantityOne;
    if (part == 0) continue;
    Line line = Copied(from, part, *invoice);
    line.source = {outbound, static_cast<int>(i) + 1};
    // Audited invoices are hooked as a rule; some wait for it, some are hooked for a part.
    if (fate >= 11) line.hooked = line.Base();
    if (fate >= 5 && fate < 8) line.hooked = HalfOf(line.aux_quantity) * line.coefficient;
    from.invoiced += line.Base();
    from.hooked += line.hooked;
    invoice->lines.push_back(std::move(line));
  }
  if (invoice->lines.empty()) return;
  Settle(*invoice);
  schedule_.Place(invoice);
}

void SalesPlanner::InvoiceStraight(const BillRef& order) {
  const int day = order->day + static_cast<int>(random_.Between(3, 20));
  if (!schedule_.Holds(day)) return;
  const BillRef invoice = NewFollower(BillKind::kSaleInvoice, InvoiceType(*order), day, *order);
  for (std::size_t i = 0; i < order->lines.size(); ++i) {
    Line line = Copied(order->lines[i], order->lines[i].aux_quantity, *invoice);
    line.order = {order, static_cast<int>(i) + 1};
    line.source = line.order;
    line.hooked = line.Base();
    invoice->lines.push_back(std::move(line));
  }
  Settle(*invoice);
  schedule_.Place(invoice);
  supply_.PlanStraightPurchase(*invoice);
}

void SalesPlanner::Settle(Bill& invoice) {
  // What the customer has paid of it until now, per cent.
  constexpr int kUsualTerm = 60;
  int paid = 0;
  if (invoice.status != 0) {
    const bool due = schedule_.Holds(invoice.day + kUsualTerm);
    const bool at_once = invoice.style == kCashSale || invoice.style == kRetailSale;
    paid = at_once || (due && random_.Percent(85)) ? 100 : random_.Percent(30) ? 50 : 0;
  }
  const std::int64_t coin = invoice.currency->scale == 0 ? 100 : 1;
  for (auto& line : invoice.lines) {
    line.received = DivideRounded((line.net + line.tax) * paid, 100 * coin) * coin;
    line.received_std =
        paid == 100 ? line.std_net + line.std_tax : DivideRounded(line.received * invoice.rate, kRateOne);
    if (!line.order.bill) continue;
    Line& ordered = line.order.bill->lines[static_cast<std::size_t>(line.order.entry) - 1];
    ordered.invoiced += line.Base();
    ordered.invoiced_all += line.net + line.tax;
    ordered.invoiced_std += line.std_net + line.std_tax;
    ordered.received += line.received;
    ordered.received_std += line.received_std;
  }
}

int SalesPlanner::InvoiceType(const Bill& from) {
  const bool plain = from.currency->id != 1 || from.style == kRetailSale || random_.Percent(25);
  return plain ? 86 : 80;
}

}  // namespace salerpt::accountset::generator
