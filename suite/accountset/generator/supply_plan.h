// Where goods come from: purchases, production for orders, goods bought to be sold straight on; and the fees
// of it all.
#pragma once

#include <string>

#include "suite/accountset/generator/bill.h"
#include "suite/accountset/generator/random.h"

namespace salerpt::accountset::generator {

class SupplyPlanner {
 public:
  // All three must outlive it.
  SupplyPlanner(const Company& company, Random& random, Schedule& schedule);

  // A purchase that begins on `day`: order, receipts, invoices, now and then a return.
  void PlanPurchase(int day);
  // Production tasks for lines of the order whose items are made, with their receipts and issues of material.
  void PlanProduction(const BillRef& order);
  // The purchase invoice for goods that `sale` sold straight on.
  void PlanStraightPurchase(const Bill& sale);
  // A fee invoice, to pay or to receive.
  void PlanFee(int day);

  // The batch of an item that leaves or enters the stock on a day.
  [[nodiscard]] std::string BatchOf(const Item& item, int day) const;

 private:
  BillRef NewBill(BillKind kind, int type, int day);
  void NameFeeParty(Bill& invoice);
  Line NewFeeLine(const Bill& invoice, std::int64_t place);
  void HookFees(Bill& invoice);
  BillRef NewPurchaseBill(BillKind kind, int type, int day, const Supplier& supplier);
  BillRef NewFollower(BillKind kind, int type, int day, const Bill& from);
  void ReceivePurchase(const BillRef& order);
  void InvoiceReceipt(const BillRef& receipt, int tax_kind);
  void Produce(const BillRef& order, std::size_t line);
  void IssueMaterial(const BillRef& task, const Bom& bom);

  const Company& company_;
  Random& random_;
  Schedule& schedule_;
  Popularity suppliers_;
  Popularity materials_;
  std::int64_t fee_invoices_ = 0;
};

}  // namespace salerpt::accountset::generator
