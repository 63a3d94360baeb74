// `Rpt1010`: order outbound and receipt tracking.
#pragma once

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售订单出库收款跟踪表": one row for each order line with its signing, deliveries, invoices, receipts and
// deposits. The rows come from the middle tier as they stand. It must give
//   32-bit integers        FInterID, FItemID, FTranType, FSumSort
//   dates                  FDate, FSendDate
//   texts of 355           FBillNo, FCustNumber, FCustName, FExplanation, FItemNumber, FItemName, FModel,
//                          FAuxPropName, FUnitName, FCurrencyName, FDeptNumber, FDeptName, FEmpNumber,
//                          FEmpName, FNote
//   decimals of 23 digits  FExchangeRate, FOrderQty, FOrderPriceFor, FOrderPrice, FOutQty, FNotOutQty,
//                          FInvoiceQty, FNotInvoiceQty
//   decimals of 18 digits  FOrderAmountFor, FOrderAmount, FInvoiceAmountFor, FInvoiceAmount, FReceiveAmount,
//                          FOrderNotReceiveAmount, FInvoiceNotReceiveAmount, FOrderDepositFor,
//                          FOrderDeposit, FOrderPrePayAmountFor, FOrderPrePayAmount
class Rpt1010 final : public Report {
 public:
  Rpt1010() : Report("Rpt1010") {}
  // No arguments. Gives the recordset.
  Variant GetRptList(Arguments arguments) override;
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt1010"); }

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void OnActive() override;
  void FetchData() override;

 private:
  // `Header`, which is new.
  void AddColumns();
};

}  // namespace salerpt
