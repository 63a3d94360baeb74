#include "suite/accountset/generator/bill_tables.h"

namespace salerpt::accountset::generator {

// Columns in lines, in the order of the values; one a line would hide the order.
// clang-format off
OrderTables::OrderTables(Database& database)
    : head(database, "SEOrder",
           {"FInterID", "FBillNo", "FDate", "FCustID", "FDeptID", "FEmpID", "FCurrencyID",
            "FExchangeRate", "FSaleStyle", "FAreaPS", "FRelateBrID", "FStatus", "FClosed",
            "FCancelLation", "FCheckerID", "FCheckDate", "FExplanation", "FDepositFor", "FDeposit",
            "FPrePayAmountFor", "FPrePayAmount"}),
      line(database, "SEOrderEntry",
           {"FInterID", "FEntryID", "FItemID", "FAuxPropID", "FUnitID", "FQty", "FAuxQty",
            "FSecQty", "FPrice", "FAuxPrice", "FTaxPrice", "FTaxRate", "FAmount", "FTaxAmount",
            "FAllAmount", "FStdAllAmount", "FCommitQty", "FAuxCommitQty", "FInvoiceQty",
            "FAuxInvoiceQty", "FInvoiceAmountFor", "FInvoiceAmount", "FReceiveAmountFor",
            "FReceiveAmount", "FAdviceConsignDate", "FDate", "FBomInterID", "FMrpClosed"}) {}

StockTables::StockTables(Database& database)
    : head(database, "ICStockBill",
           {"FInterID", "FTranType", "FBillNo", "FDate", "FSupplyID", "FDeptID", "FEmpID",
            "FSaleStyle", "FPOStyle", "FROB", "FStatus", "FCancelLation", "FHookStatus",
            "FUpStockWhenSave", "FCheckerID", "FCheckDate", "FExplanation"}),
      line(database, "ICStockBillEntry",
           {"FInterID", "FEntryID", "FItemID", "FAuxPropID", "FBatchNo", "FKFPeriod", "FUnitID",
            "FQty", "FAuxQty", "FSecQty", "FPrice", "FAuxPrice", "FAmount", "FConsignPrice",
            "FConsignAmount", "FSCStockID", "FDCStockID", "FQtyInvoice", "FAllHookQTY",
            "FAllHookAmount", "FOrderInterID", "FOrderEntryID", "FOrderBillNo", "FSourceTranType",
            "FSourceInterID", "FSourceEntryID", "FICMOInterID", "FKFDate"}) {}

SaleTables::SaleTables(Database& database)
    : head(database, "ICSale",
           {"FInterID", "FTranType", "FBillNo", "FDate", "FCustID", "FDeptID", "FEmpID",
            "FCurrencyID", "FExchangeRate", "FSaleStyle", "FROB", "FStatus", "FCancelLation",
            "FHookStatus", "FVchInterID", "FCheckerID", "FCheckDate", "FSettleDate",
            "FReceiveAmountFor", "FReceiveAmount", "FNote"}),
      line(database, "ICSaleEntry",
           {"FInterID", "FEntryID", "FItemID", "FAuxPropID", "FBatchNo", "FUnitID", "FQty",
            "FAuxQty", "FSecQty", "FPrice", "FAuxPrice", "FTaxPrice", "FTaxRate", "FAmount",
            "FTaxAmount", "FStdAmount", "FStdTaxAmount", "FAllHookQTY", "FAllHookAmount",
            "FReceiveAmountFor", "FReceiveAmount", "FOrderInterID", "FOrderEntryID",
            "FOrderBillNo", "FSourceTranType", "FSourceInterID", "FSourceEntryID"}),
      voucher(database, "t_Voucher",
           {"FVoucherID", "FDate", "FYear", "FPeriod", "FGroupID", "FNumber", "FExplanation"}) {}

PurchaseTables::PurchaseTables(Database& database)
    : order_head(database, "POOrder",
           {"FInterID", "FBillNo", "FDate", "FSupplyID", "FDeptID", "FEmpID", "FPOStyle",
            "FStatus", "FCheckerID", "FCheckDate"}),
      order_line(database, "POOrderEntry",
           {"FInterID", "FEntryID", "FItemID", "FUnitID", "FQty", "FAuxQty", "FPrice", "FAuxPrice",
            "FTaxRate", "FAmount", "FTaxAmount", "FAllAmount", "FCommitQty", "FDate"}),
      head(database, "ICPurchase",
           {"FInterID", "FTranType", "FBillNo", "FDate", "FSupplyID", "FDeptID", "FEmpID",
            "FPOStyle", "FStatus", "FHookStatus", "FCheckerID", "FCheckDate"}),
      line(database, "ICPurchaseEntry",
           {"FInterID", "FEntryID", "FItemID", "FBatchNo", "FUnitID", "FQty", "FAuxQty", "FSecQty",
            "FPrice", "FAuxPrice", "FTaxRate", "FAmount", "FTaxAmount", "FStdAmount",
            "FStdTaxAmount", "FAllHookQTY", "FAllHookAmount", "FSourceTranType", "FSourceInterID",
            "FSourceEntryID"}) {}

OtherTables::OtherTables(Database& database)
    : task(database, "ICMO",
           {"FInterID", "FBillNo", "FCheckDate", "FPlanCommitDate", "FPlanFinishDate", "FItemID",
            "FAuxPropID", "FUnitID", "FQty", "FAuxQty", "FCommitQty", "FStockQty", "FWorkShop",
            "FBomInterID", "FOrderInterID", "FSourceEntryID", "FGMPBatchNo", "FStatus"}),
      fee_head(database, "ICFeeInvoice",
           {"FInterID", "FTranType", "FBillNo", "FDate", "FSupplyID", "FCustID", "FDeptID",
            "FEmpID", "FCurrencyID", "FExchangeRate", "FPOStyle", "FSaleStyle", "FROB", "FStatus",
            "FCancelLation", "FHookStatus", "FCheckerID", "FCheckDate", "FNote"}),
      fee_line(database, "ICFeeInvoiceEntry",
           {"FInterID", "FEntryID", "FItemID", "FICItemID", "FAuxQty", "FAuxPrice", "FAmount",
            "FTaxRate", "FTaxAmount", "FStdAmount", "FStdTaxAmount"}) {}
// clang-format on

}  // namespace salerpt::accountset::generator
