// How goods are sold: orders, their deliveries, what is invoiced, returned and paid.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "suite/accountset/fixed_rows.h"
#include "suite/accountset/generator/bill.h"
#include "suite/accountset/generator/random.h"
#include "suite/accountset/generator/supply_plan.h"

namespace salerpt::accountset::generator {

class SalesPlanner {
 public:
  // All four must outlive it.
  SalesPlanner(const Company& company, Random& random, Schedule& schedule, SupplyPlanner& supply);

  // Plans one sale that begins on `day`, with all that comes of it, and places its bills: an order, a sale
  // over the counter, or one that comes to nothing.
  void PlanSale(int day);
  // True until an order of each sale style is planned: the smallest company has them all.
  [[nodiscard]] bool Opens() const { return sales_ < kOpening.size(); }

 private:
  static constexpr std::array kOpening = {kInstalmentSale, kConsignmentSale, kStraightSale, kCreditSale,
                                          kCashSale};

  void PlanOrder(int day, int style);
  int DrawStyle();
  void PlanCounterSale(int day);
  void PlanLoneBill(int day);
  // The sale style of the next outbound bill of its own with a fate of PlanLoneBill.
  int LoneStyle(std::size_t fate);

  BillRef NewBill(BillKind kind, int type, int day, const Customer& customer, int style);
  // A bill made from another: the same customer, people and currency, at the rate of its own day.
  BillRef NewFollower(BillKind kind, int type, int day, const Bill& from);
  void AddLines(Bill& bill, int most);
  Line NewLine(const Item& item, const Bill& bill);

  void Deliver(const BillRef& order);
  void DeliverWave(const BillRef& order, int day, bool last, std::vector<Quantity>& open);
  void ReturnSome(const BillRef& outbound);
  void InvoiceOutbound(const BillRef& outbound);
  void InvoicePortion(const BillRef& outbound, int day, int portions_left);
  void InvoiceStraight(const BillRef& order);
  void Settle(Bill& invoice);
  int InvoiceType(const Bill& from);

  const Company& company_;
  Random& random_;
  Schedule& schedule_;
  SupplyPlanner& supply_;
  Popularity customers_;
  Popularity goods_;
  std::size_t sales_ = 0;                        // orders planned of kOpening
  std::array<std::size_t, 3> lone_outbounds_{};  // made of each fate
};

}  // namespace salerpt::accountset::generator
