// Bills in the making: planned whole, with all that will come of them, before the first is written.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "suite/accountset/generator/company.h"

namespace salerpt::accountset::generator {

// In the order in which the bills of one day are written: a bill stands behind those that it was made from.
enum class BillKind {
  kOrder,
  kPurchaseOrder,
  kPurchaseReceipt,
  kTask,
  kProductReceipt,
  kIssue,
  kOutbound,
  kSaleInvoice,
  kPurchaseInvoice,
  kFeeInvoice,
};

struct Bill;
using BillRef = std::shared_ptr<Bill>;

// A line of another bill, counted from 1; no bill: none.
struct LineRef {
  BillRef bill;
  int entry = 0;
};

struct Line {
  const Item* item = nullptr;
  const Fee* fee = nullptr;  // of lines of fee invoices; their item is what the fee was paid for, if anything
  int aux_prop = 0;
  std::string batch;
  int unit = 0;
  std::int64_t coefficient = 1;  // base units in one unit of the line
  Quantity aux_quantity = 0;     // in the unit of the line
  Price aux_price = 0;           // of that unit, bill currency, without tax
  int tax_rate = 0;              // per cent
  Money net = 0;                 // bill currency
  Money tax = 0;
  Money std_net = 0;  // base currency
  Money std_tax = 0;
  Money cost = 0;  // base currency
  int stock = 0;
  int due_day = 0;
  LineRef order;
  LineRef source;
  BillRef task;

  // What has come, or will come, of the line; in base units, without what falls behind the last day.
  Quantity delivered = 0;
  Quantity invoiced = 0;
  Quantity hooked = 0;
  Money invoiced_all = 0;  // with tax, bill currency
  Money invoiced_std = 0;
  Money received = 0;  // bill currency
  Money received_std = 0;

  [[nodiscard]] Quantity Base() const { return aux_quantity * coefficient; }
};

struct Bill {
  BillKind kind = BillKind::kOrder;
  int type = 0;  // FTranType
  int day = 0;
  int id = 0;  // FInterID, given when it is written
  std::string number;
  int partner = 0;  // id of the customer or supplier
  int department = 0;
  int employee = 0;
  int style = 0;  // of sale or purchase
  int range = 0;  // order type
  int branch = 0;
  const Currency* currency = nullptr;
  std::int64_t rate = kRateOne;
  bool red = false;
  bool cancelled = false;
  bool early_stock = false;  // moved the stock when it was saved, before its audit
  int status = 1;
  bool closed = false;
  Money deposit = 0;
  Money prepaid = 0;
  std::string note;
  std::vector<Line> lines;
};

// a / b, half away from zero; b above 0.
std::int64_t DivideRounded(std::int64_t a, std::int64_t b);

// Works out the amounts of a line from its quantity and price, in the bill's currency at its rate.
void SetAmounts(Line& line, const Bill& bill);

// The share of `amount` that `part` is of `whole`, rounded to hundredths; whole not 0.
Money ShareOf(Money amount, Quantity part, Quantity whole);

// The rate of a currency on a day: that of its month, up to two per cent off the usual one.
std::int64_t RateOf(const Currency& currency, int day);

// 0 nothing of the bill is hooked, 1 some, 2 all.
int HookStatus(const Bill& bill);

// The bills to come, by day.
class Schedule {
 public:
  explicit Schedule(int days) : days_(static_cast<std::size_t>(days)) {}

  [[nodiscard]] int Days() const { return static_cast<int>(days_.size()); }
  [[nodiscard]] bool Holds(int day) const { return day < Days(); }
  // Takes a bill of a day that it holds.
  void Place(BillRef bill);
  // The bills of a day in writing order, taken out.
  std::vector<BillRef> Take(int day);
  // Lines of all bills placed so far.
  [[nodiscard]] std::int64_t Lines() const { return lines_; }

 private:
  std::vector<std::vector<BillRef>> days_;
  std::int64_t lines_ = 0;
};

}  // namespace salerpt::accountset::generator
