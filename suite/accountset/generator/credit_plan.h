// The credit that the made-up company gives, and the contracts that it has with its key customers.
#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "suite/accountset/generator/bill.h"
#include "suite/accountset/generator/random.h"
#include "suite/accountset/sqlite.h"

namespace salerpt::accountset::generator {

// Watches what is ordered, and sets limits by it: some objects have room left in a usual month, others are
// beyond theirs. It draws from a random sequence of its own, so that the bills do not depend on it.
class CreditPlanner {
 public:
  // The company must outlive it.
  CreditPlanner(const Company& company, std::uint64_t seed);

  // Every bill, once it is written.
  void Watch(const Bill& bill);
  // Limits by amount, term and quantity, with discounts, for the key customers and all classes of customers,
  // for the employees and classes of employees that sell, and for their departments; and the contracts.
  void Write(Database& database);

 private:
  // Whose credit it is: class of credit and number.
  using Holder = std::pair<int, int>;
  struct Sold {
    Money amount = 0;  // with tax; of a customer in its own currency, else in base currency
    std::map<int, Quantity> items;
  };

  void Add(const Holder& holder, const Bill& bill);
  void AddToContract(const Customer& customer, const Bill& bill);
  void WriteAmounts(Database& database);
  void WriteQuantities(Database& database);
  void WriteContracts(Database& database);
  // `monthly` times 0.8 to 2.5, rounded up to a multiple of `step`.
  std::int64_t LimitFor(std::int64_t monthly, std::int64_t step);

  const Company& company_;
  Random random_;
  std::map<int, const Customer*> customers_;
  std::map<int, const Employee*> employees_;
  std::map<Holder, Sold> sold_;
  // Lines by customer and half-year.
  std::map<std::pair<int, int>, std::vector<Line>> contracts_;
};

}  // namespace salerpt::accountset::generator
