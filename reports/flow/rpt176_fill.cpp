// #Data2 of `Rpt176`: what was sold and what it cost.
#include <string>
#include <string_view>

#include "reports/flow/rpt176.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {
namespace {

// What the cost rests on ("Cost").
enum class CostBasis { kActual, kReferencePrice, kLatestReceipt };

CostBasis CostBasisOf(const Dictionary& filter) {
  switch (FilterInt(filter, "Cost")) {
    case 1:
      return CostBasis::kReferencePrice;
    case 2:
      return CostBasis::kLatestReceipt;
    default:
      return CostBasis::kActual;
  }
}

// Audited bills count with what of them is hooked, invoice and outbound bill against each other.
bool CountsHooked(const Dictionary& filter) {
  return FilterInt(filter, "CheckState") == 0;
}

// Where reference prices include tax it is taken out, at the rate of the supplier or of the item.
bool TakesTaxOut(const Dictionary& filter) {
  return CostBasisOf(filter) == CostBasis::kReferencePrice && FilterNumber(filter, "IncludeTax") != 0;
}
bool TakesSupplierRate(const Dictionary& filter) {
  return TakesTaxOut(filter) && FilterNumber(filter, "TaxSource") == 1;
}

}  // namespace

// The texts stand as they are sent.
// clang-format off

std::string Rpt176::FillText() const {
  return Join(
      " Create Table #Data2( \r\n"
      "     FItemID Int Null,\r\n"
      "     FCustID Int Null, \r\n"
      "     FDeptID Int Null, \r\n"
      "     FQtySale decimal(23,10) Default(0),\r\n"
      "     FIncomeSale decimal(23,10) Default(0),\r\n"
      "     FQtySend decimal(23,10) Default(0), \r\n"
      "     FCostSale decimal(23,10) Default(0)  )\r\n",
      SaleHalf(), StockHalf(), PurchaseHalf());
}

// Invoice lines. The tiny addition to the exchange rate forces decimal arithmetic. Kept: the figures of
// earlier years are reckoned with it.
std::string Rpt176::SaleHalf() const {
  const bool hooked = CountsHooked(Conditions());
  return Join(
      "Insert Into #Data2(FItemID,FCustID,FDeptID,FQtySale,FIncomeSale) \r\n"
      "Select v2.FItemID,v1.FCustID,v1.FDeptID,v2.F", hooked ? "AllHook" : "", "Qty,",
      hooked ? "FAllHookAmount"
             : "     Round(Case v1.FTranType When 80 Then v2.FAmount * (IsNull(v1.FExchangeRate,1)+0.0000000001) Else "
               "     (v2.FAmount - v2.FTaxAmount)* (IsNull(v1.FExchangeRate,1)+0.0000000001)  End,2)",
      "\r\n"
      "From  ICSale v1\r\n"
      "Inner Join ICSaleEntry v2 On v1.FInterID = v2.FInterID\r\n"
      "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      "Left Join t_Department TD On v1.FDeptID = TD.FItemID\r\n"
      "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n",
      right_.from_text, "\r\n"
      "Where v1.FTranType in (80,86) \r\n"
      "     ##CHECKSTATE## \r\n"
      " ##CHECKDATE## ##CHECKITEM####CHECKSALE##\r\n",
      AndIfAny(right_.where_text), "\r\n");
}

// Outbound lines, but those of goods that were bought only when they were sold. FSupplyID is the customer.
std::string Rpt176::StockHalf() const {
  const Dictionary& filter = Conditions();
  std::string select;
  switch (CostBasisOf(filter)) {
    case CostBasis::kActual:
      // Kept: the whole cost of the line, also where only part of it is hooked.
      select = "Select v2.FItemID, v1.FSupplyID,v1.FDeptID, v2.FQty,v2.FAmount";
      break;
    case CostBasis::kReferencePrice:
      select = "Select v2.FItemID, v1.FSupplyID,v1.FDeptID, v2.FQty,v2.FQty*IsNull(t1.FStockPrice,0)";
      if (TakesSupplierRate(filter)) {
        select += "/(1+IsNull(t3.FValueAddRate,0)/100.0)";
      } else if (TakesTaxOut(filter)) {
        select += "/(1+IsNull(t1.FTaxRate,0)/100.0)";
      }
      break;
    case CostBasis::kLatestReceipt:
      select =
          "Select v2.FItemID, v1.FSupplyID,v1.FDeptID, v2.FQty,"
          "v2.FQty*IsNull((Select Top 1 FPrice From ICStockBill t,ICStockBillEntry te"
          " Where t.FInterID=te.FInterID And t.FTranType In(1,2) And t.FROB=1 And te.FItemID=v2.FItemID"
          " Order By t.FInterID Desc),0)";
      break;
  }
  if (CountsHooked(filter)) select = Replace(select, "v2.FQty", "v2.FAllHookQTY");
  return Join(
      "Insert Into #Data2(FItemID,FCustID,FDeptID,FQtySend,FCostSale) \r\n",
      select, "\r\n"
      "From ICStockBill v1\r\n"
      "Inner Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID\r\n"
      "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID\r\n"
      "Left Join t_Department TD On v1.FDeptID = TD.FItemID\r\n"
      "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n",
      // Kept: the party of an outbound bill is a customer, so that the rate of a supplier is mostly none.
      TakesSupplierRate(filter) ? "Left Join t_Supplier t3 On v1.FSupplyID=t3.FItemID\r\n" : "",
      Replace(right_.from_text, "FCustID", "FSupplyID"), "\r\n"
      "Where  v1.FSaleStyle<>20296 And v1.FTranType=21\r\n"
      "     ##CHECKSTOCK## \r\n"
      " ##CHECKDATE## ##CHECKITEM####CHECKSALE##\r\n",
      AndIfAny(Replace(right_.where_text, "FCustID", "FSupplyID")), "\r\n");
}

// Purchase invoice lines of goods that were bought only when they were sold. FSupplyID is the supplier: in a
// report by customer these lines belong to nobody. Kept: the actual cost is the amount in the currency of the
// purchase.
std::string Rpt176::PurchaseHalf() const {
  const Dictionary& filter = Conditions();
  std::string select;
  switch (CostBasisOf(filter)) {
    case CostBasis::kActual:
      select =
          "Select v2.FItemID, v1.FSupplyID,v1.FDeptID, v2.FQty,"
          "Case FTranType When 76 Then v2.FAmount-v2.FTaxAmount Else v2.FAmount End";
      break;
    case CostBasis::kReferencePrice:
      select = "Select v2.FItemID, v1.FSupplyID,v1.FDeptID, v2.FQty,v2.FQty*IsNull(t1.FStockPrice,0)";
      if (TakesSupplierRate(filter)) {
        select += "/(1+IsNull(t2.FValueAddRate,0)/100.0)";
      } else if (TakesTaxOut(filter)) {
        select += "/(1+IsNull(t1.FTaxRate,0)/100.0)";
      }
      break;
    case CostBasis::kLatestReceipt:
      select =
          "Select v2.FItemID, v1.FSupplyID,v1.FDeptID, v2.FQty,"
          "v2.FQty*IsNull((Select Top 1 FPrice From ICPurchase t,ICPurchaseEntry te"
          " Where t.FInterID=te.FInterID And t.FROB=1 And te.FItemID=v2.FItemID"
          " Order By t.FInterID Desc),0)";
      break;
  }
  if (CountsHooked(filter)) select = Replace(select, "v2.FQty", "v2.FAllHookQTY");
  return Join("Insert Into #Data2(FItemID,FCustID,FDeptID,FQtySend,FCostSale) \r\n",
              select, "\r\n"
              "From ICPurchase v1\r\n"
              "Inner Join ICPurchaseEntry v2 On v1.FInterID = v2.FInterID\r\n"
              "Inner Join t_ICItem t1 On v2.FItemID = t1.FItemID\r\n"
              "Left Join t_Supplier t2 On v1.FSupplyID=t2.FItemID\r\n"
              "Left Join t_Department TD On v1.FDeptID = TD.FItemID\r\n"
              "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n",
              Replace(right_.from_text, "FCustID", "FSupplyID"), "\r\n"
              "Where  v1.FPOStyle=20300 And v1.FSubSystemID In (-1,0)\r\n"
              "     ##CHECKSTOCK## \r\n"
              " ##CHECKDATE## ##CHECKITEM####CHECKPURCHASE##\r\n",
              AndIfAny(Replace(right_.where_text, "FCustID", "FSupplyID")), "\r\n");
}

// The rows of #Data2 with item, customer or department, and usual unit.
std::string Rpt176::FromText() const {
  constexpr int kDepartment = 2;
  const DictionaryRef sum_field = FilterSumField(Conditions());
  return Join(" From  #Data2 v1 Join  t_ICItem t1 On v1.FItemID=t1.FItemID\r\n",
              FilterInt(*sum_field, "FItemClassID") == kDepartment
                  ? "Left Join t_Department t2 On v1.FDeptID=t2.FItemID\r\n"
                  : "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n",
              "Left Join t_MeasureUnit t3 On t1.FSaleUnitID = t3.FMeasureUnitID\r\n");
}
// clang-format on

}  // namespace salerpt
