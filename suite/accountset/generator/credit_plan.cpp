#include "suite/accountset/generator/credit_plan.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "suite/accountset/accountset.h"
#include "suite/accountset/fixed_rows.h"
#include "suite/accountset/generator/calendar.h"

namespace salerpt::accountset::generator {
namespace {

// Classes of credit.
enum CreditClass { kOfCustomer, kOfEmployee, kOfDepartment, kOfCustomerClass, kOfEmployeeClass };

struct Discount {
  int days;
  int percent;
};
struct Level {
  const char* name;
  int term;  // days
  std::array<Discount, 2> discounts;
};
constexpr std::array kLevels = {
    Level{"A级", 60, {{{10, 3}, {30, 1}}}},
    Level{"B级", 45, {{{10, 2}, {20, 1}}}},
    Level{"C级", 30, {{{7, 2}, {15, 1}}}},
};

std::int64_t HalfYearOf(int day) {
  const auto date = DayOf(day);
  return (date.year - kFirstYear) * 2 + (date.month > 6 ? 1 : 0);
}

// The first day of a half-year, counted from that of the first year.
int FirstDayOf(int half_year) {
  int day = 0;
  while (HalfYearOf(day) < half_year) ++day;
  return day;
}

Decimal OfMoney(Money money) {
  return {money, 2};
}
Decimal OfQuantity(Quantity quantity) {
  return {quantity, 4};
}
Decimal OfPrice(Price price) {
  return {price, 4};
}

// What of a contract is paid, per cent: the older ones as a rule wholly.
int PaidOf(bool old, Random& random) {
  if (old && random.Percent(85)) return 100;
  return random.Percent(30) ? 50 : 0;
}

}  // namespace

CreditPlanner::CreditPlanner(const Company& company, std::uint64_t seed)
    : company_(company), random_(seed ^ 0x5AFEC2ED17000001U) {
  for (const Customer& customer : company.customers) customers_.emplace(customer.node.id, &customer);
  for (const Employee& employee : company.employees) employees_.emplace(employee.node.id, &employee);
}

void CreditPlanner::Watch(const Bill& bill) {
  if (bill.kind != BillKind::kOrder || bill.status == 0 || bill.cancelled) return;
  const Customer& customer = *customers_.at(bill.partner);
  if (customer.type == kKeyCustomer) {
    Add({kOfCustomer, bill.partner}, bill);
    AddToContract(customer, bill);
  }
  Add({kOfEmployee, bill.employee}, bill);
  Add({kOfDepartment, bill.department}, bill);
  Add({kOfCustomerClass, customer.type}, bill);
  Add({kOfEmployeeClass, employees_.at(bill.employee)->type}, bill);
}

void CreditPlanner::Add(const Holder& holder, const Bill& bill) {
  Sold& sold = sold_[holder];
  const bool own_currency = holder.first == kOfCustomer;
  for (const Line& line : bill.lines) {
    sold.amount += own_currency ? line.net + line.tax : line.std_net + line.std_tax;
    sold.items[line.item->node.id] += line.Base();
  }
}

void CreditPlanner::AddToContract(const Customer& customer, const Bill& bill) {
  constexpr std::size_t kMostLines = 3;
  auto& lines = contracts_[{customer.node.id, static_cast<int>(HalfYearOf(bill.day))}];
  for (const Line& ordered : bill.lines) {
    const bool there =
        std::ranges::any_of(lines, [&](const Line& line) { return line.item == ordered.item; });
    if (there || lines.size() == kMostLines) continue;
    Line line;
    line.item = ordered.item;
    line.aux_prop = ordered.aux_prop;
    line.unit = ordered.unit;
    line.coefficient = ordered.coefficient;
    line.aux_quantity = ordered.aux_quantity;
    line.aux_price = ordered.aux_price;
    line.tax_rate = ordered.tax_rate;
    lines.push_back(line);
  }
}

std::int64_t CreditPlanner::LimitFor(std::int64_t monthly, std::int64_t step) {
  const std::int64_t limit = monthly * random_.Between(80, 250) / 100;
  return std::max<std::int64_t>(1, (limit + step - 1) / step) * step;
}

void CreditPlanner::WriteAmounts(Database& database) {
  constexpr Money kStep = 10'000'00;
  Insert amount(database, "ICCreditAmount",
                {"FCreditClass", "FItemID", "FCurrencyID", "FCreditLevel", "FCreditAmount", "FCreditTime"});
  Insert discount(database, "ICCreditDiscount", {"FCreditClass", "FItemID", "FDays", "FDiscountRate"});
  for (const auto& [holder, sold] : sold_) {
    const auto [credit_class, id] = holder;
    const int currency = credit_class == kOfCustomer ? customers_.at(id)->currency : 1;
    const Level& level = random_.Pick(kLevels);
    amount.Row(credit_class, id, currency, level.name, OfMoney(LimitFor(sold.amount / kMonths, kStep)),
               level.term);
    for (const Discount& row : level.discounts) discount.Row(credit_class, id, row.days, row.percent);
  }
}

void CreditPlanner::WriteQuantities(Database& database) {
  constexpr Quantity kStep = 10 * kQuantityOne;
  constexpr std::size_t kItems = 3;  // those that are ordered most
  Insert insert(database, "ICCreditQty", {"FCreditClass", "FItemID", "FICItemID", "FCreditQty"});
  for (const auto& [holder, sold] : sold_) {
    std::vector<std::pair<int, Quantity>> items(sold.items.begin(), sold.items.end());
    std::ranges::stable_sort(items, std::greater<>(), &std::pair<int, Quantity>::second);
    items.resize(std::min(items.size(), kItems));
    for (const auto& [item, quantity] : items) {
      insert.Row(holder.first, holder.second, item, OfQuantity(LimitFor(quantity / kMonths, kStep)));
    }
  }
}

void CreditPlanner::WriteContracts(Database& database) {
  constexpr int kHalfYear = 181;  // days
  const int last_half_year = static_cast<int>(HalfYearOf(DayCount() - 1));
  Insert head(database, "SEContract",
              {"FInterID", "FBillNo", "FDate", "FEndDate", "FCustID", "FDeptID", "FEmpID", "FCurrencyID",
               "FExchangeRate", "FStatus", "FCancelLation", "FCheckerID", "FCheckDate", "FExplanation"});
  Insert entry(database, "SEContractEntry",
               {"FInterID", "FEntryID", "FItemID", "FAuxPropID", "FUnitID", "FQty", "FAuxQty", "FPrice",
                "FAuxPrice", "FTaxRate", "FAmount", "FTaxAmount", "FAllAmount", "FStdAllAmount",
                "FReceiveAmountFor", "FReceiveAmount"});
  int id = 0;
  for (auto& [key, lines] : contracts_) {
    const auto& [customer_id, half_year] = key;
    const Customer& customer = *customers_.at(customer_id);
    Bill contract;
    contract.day = FirstDayOf(half_year) + static_cast<int>(random_.Below(20));
    contract.currency = &company_.currencies[static_cast<std::size_t>(customer.currency - 1)];
    contract.rate = RateOf(*contract.currency, contract.day);
    const auto fate = random_.Below(100);
    const bool audited = fate >= 6;
    head.Row(++id, fmt::format("XSHT{:06}", id), DateText(contract.day), DateText(contract.day + kHalfYear),
             customer_id, customer.department, customer.employee, customer.currency, OfPrice(contract.rate),
             audited ? 1 : 0, fate < 3, audited ? std::optional(kLoginUser) : std::nullopt,
             audited ? std::optional(DateText(contract.day)) : std::nullopt, "框架合同");
    const int paid = audited ? PaidOf(half_year < last_half_year, random_) : 0;
    const std::int64_t coin = contract.currency->scale == 0 ? 100 : 1;
    int number = 0;
    for (Line& line : lines) {
      line.aux_quantity *= random_.Between(1, 4);
      SetAmounts(line, contract);
      const Money all = line.net + line.tax;
      const Money std_all = line.std_net + line.std_tax;
      const Money received = DivideRounded(all * paid, 100 * coin) * coin;
      const Money received_std = paid == 100 ? std_all : DivideRounded(received * contract.rate, kRateOne);
      const Decimal price = {DivideRounded(line.aux_price * 10000, line.coefficient), 8};
      entry.Row(id, ++number, line.item->node.id, line.aux_prop, line.unit, OfQuantity(line.Base()),
                OfQuantity(line.aux_quantity), price, OfPrice(line.aux_price), line.tax_rate,
                OfMoney(line.net), OfMoney(line.tax), OfMoney(all), OfMoney(std_all), OfMoney(received),
                OfMoney(received_std));
    }
  }
}

void CreditPlanner::Write(Database& database) {
  WriteAmounts(database);
  WriteQuantities(database);
  WriteContracts(database);
}

}  // namespace salerpt::accountset::generator
