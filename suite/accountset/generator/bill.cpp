#include "suite/accountset/generator/bill.h"

#include <algorithm>
#include <utility>

#include "suite/accountset/generator/calendar.h"

namespace salerpt::accountset::generator {

std::int64_t DivideRounded(std::int64_t a, std::int64_t b) {
  const std::int64_t half = a < 0 ? -(b / 2) : b / 2;
  return (a + half) / b;
}

void SetAmounts(Line& line, const Bill& bill) {
  // Ten-thousandths times ten-thousandths, down to the smallest coin of the currency.
  const std::int64_t coin = bill.currency->scale == 0 ? 100 : 1;
  line.net = DivideRounded(line.aux_quantity * line.aux_price, 1'000'000 * coin) * coin;
  line.tax = DivideRounded(line.net * line.tax_rate, 100 * coin) * coin;
  line.std_net = DivideRounded(line.net * bill.rate, kRateOne);
  line.std_tax = DivideRounded(line.tax * bill.rate, kRateOne);
}

Money ShareOf(Money amount, Quantity part, Quantity whole) {
  if (part == whole) return amount;
  // In hundredths of a unit, so that the product stays far from the limit.
  const Quantity whole_coarse = whole / 100 == 0 ? 1 : whole / 100;
  const std::int64_t sign = whole_coarse < 0 ? -1 : 1;
  return DivideRounded(amount * (part / 100) * sign, whole_coarse * sign);
}

std::int64_t RateOf(const Currency& currency, int day) {
  if (currency.id == 1) return kRateOne;
  const auto date = DayOf(day);
  const int step = (date.year * 12 + date.month) * 7 % 9 - 4;
  return DivideRounded(currency.rate * (1000 + step * 5), 1000);
}

int HookStatus(const Bill& bill) {
  const auto whole = [](const Line& line) { return line.hooked == line.Base(); };
  const auto none = [](const Line& line) { return line.hooked == 0; };
  if (std::all_of(bill.lines.begin(), bill.lines.end(), none)) return 0;
  return std::all_of(bill.lines.begin(), bill.lines.end(), whole) ? 2 : 1;
}

void Schedule::Place(BillRef bill) {
  lines_ += static_cast<std::int64_t>(bill->lines.size());
  days_[static_cast<std::size_t>(bill->day)].push_back(std::move(bill));
}

std::vector<BillRef> Schedule::Take(int day) {
  std::vector<BillRef> bills = std::exchange(days_[static_cast<std::size_t>(day)], {});
  std::stable_sort(bills.begin(), bills.end(),
                   [](const BillRef& a, const BillRef& b) { return a->kind < b->kind; });
  return bills;
}

}  // namespace salerpt::accountset::generator
