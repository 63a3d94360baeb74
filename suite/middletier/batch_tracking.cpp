#include "suite/middletier/batch_tracking.h"

#include <memory>
#include <string>
#include <string_view>

#include "suite/middletier/account_switches.h"
#include "suite/middletier/base_currency.h"
#include "suite/middletier/bill_filter.h"
#include "suite/middletier/order_lines.h"
#include "suite/middletier/order_production.h"
#include "suite/middletier/recordset_sink.h"

namespace salerpt::middletier {
namespace {

std::string Conditions(const Dictionary& filter, bool long_codes) {
  const std::string_view code = long_codes ? "FNumber" : "FShortNumber";
  return Join(StateCondition(filter), CloseCondition(filter),
              RangeCondition(filter, Join("t10.", code), "BItemNumber", "EItemNumber"),
              RangeCondition(filter, Join("T2.", code), "BCustNumber", "ECustNumber"),
              RangeCondition(filter, "v1.FBillNo", "BBill", "EBill"),
              DayCondition(filter.Get("BDate"), filter.Get("EDate")));
}

// clang-format off
std::string OrderRows(std::int16_t scale) {
  constexpr std::string_view kRate = "Convert(decimal(23,10),IsNull(v1.FExchangeRate,1))";
  const std::string coefficient = CoefficientOf("t5");
  return Join(
      "Select v1.FInterID FOrderInterID,v2.FEntryID FOrderEntryID,v1.FTranType,v1.FBillNo FOrderBillNo,v2.FItemID,\r\n"
      "  v1.FDate,t2.FNumber FCustNumber,t2.FShortNumber FCustShortNumber,t2.FName FCustName,t10.FNumber,\r\n"
      "  t10.FShortNumber,IsNull(t10.FName,'') FName,t10.FModel,t7.FName FAuxPropName,b.FBOMNumber FBom,\r\n"
      "  IsNull(t3.FName,'') FUnitName,v2.FQty,v2.FPrice*", kRate, " FPrice,IsNull(t5.FName,'') FCUUnitName,\r\n"
      "  v2.FQty/", coefficient, " FCUUnitQty,v2.FPrice*", kRate, "*", coefficient, " FCUUnitPrice,\r\n"
      "  Round(v2.FAmount*", kRate, ",", scale, ") FAmount\r\n"
      "From #OrderLines k\r\n"
      "Inner Join SEOrder v1 On k.FInterID=v1.FInterID\r\n"
      "Inner Join SEOrderEntry v2 On k.FInterID=v2.FInterID And k.FEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t10 On v2.FItemID=t10.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      "Left Join t_MeasureUnit t3 On t10.FUnitGroupID=t3.FUnitGroupID And t3.FStandard=1\r\n"
      "Left Join t_MeasureUnit t5 On t10.FCUUnitID=t5.FMeasureUnitID\r\n"
      "Left Join t_AuxItem t7 On v2.FAuxPropID=t7.FItemID\r\n"
      "Left Join ICBOM b On v2.FBomInterID=b.FInterID\r\n"
      "Order By v1.FDate,v1.FBillNo,v1.FInterID,t10.FNumber,v2.FItemID,v2.FEntryID");
}

constexpr std::string_view kTaskRows =
    "Select m.FOrderInterID,m.FSourceEntryID FOrderEntryID,m.FItemID,m.FInterID FWorkInterID,m.FTranType,\r\n"
    "  m.FBillNo FWorkBillNo,m.FQty FWorkBillQty\r\n"
    "From #Tasks k Inner Join ICMO m On k.FInterID=m.FInterID\r\n"
    "Order By m.FOrderInterID,m.FSourceEntryID,m.FBillNo,m.FInterID";

// A receipt that a task brought is found by the task alone: by the order line it would count again.
std::string ReceiptRows(std::int16_t scale) {
  const std::string coefficient = CoefficientOf("t5");
  return Join(
      "Select Case When k.FWorkInterID=0 Then k.FOrderInterID Else 0 End FOrderInterID,\r\n"
      "  Case When k.FWorkInterID=0 Then k.FOrderEntryID Else 0 End FOrderEntryID,e.FItemID,k.FWorkInterID,\r\n"
      "  b.FInterID FInStockInterID,b.FTranType,\r\n"
      "  b.FBillNo FInBillNo,e.FBatchNo,Convert(varchar(10),e.FKFDate,120) FKFDate,e.FKFPeriod,e.FQty,e.FPrice,\r\n"
      "  e.FQty/", coefficient, " FCUUnitQty,e.FPrice*", coefficient, " FCUUnitPrice,Round(e.FAmount,", scale, ") FAmount\r\n"
      "From #Receipts k\r\n"
      "Inner Join ICStockBillEntry e On k.FBillID=e.FInterID And k.FBillEntryID=e.FEntryID\r\n"
      "Inner Join ICStockBill b On k.FBillID=b.FInterID\r\n"
      "Inner Join t_ICItem t10 On e.FItemID=t10.FItemID\r\n"
      "Left Join t_MeasureUnit t5 On t10.FCUUnitID=t5.FMeasureUnitID\r\n"
      "Order By k.FOrderInterID,k.FOrderEntryID,k.FWorkInterID,b.FDate,b.FBillNo,b.FInterID,e.FEntryID");
}

std::string IssueRows(std::int16_t scale) {
  const std::string coefficient = CoefficientOf("t5");
  return Join(
      "Select k.FInterID FWorkInterID,b.FInterID FOutStockInterID,b.FTranType,b.FBillNo FOutBillNo,\r\n"
      "  w.FName FWorkShop,t10.FNumber,t10.FShortNumber,IsNull(t10.FName,'') FName,t10.FModel,e.FBatchNo,\r\n"
      "  Convert(varchar(10),e.FKFDate,120) FKFDate,e.FKFPeriod,IsNull(t3.FName,'') FUnitName,e.FQty,e.FPrice,\r\n"
      "  t5.FName FCUUnitName,e.FQty/", coefficient, " FCUUnitQty,e.FPrice*", coefficient, " FCUUnitPrice,\r\n"
      "  Round(e.FAmount,", scale, ") FAmount\r\n"
      "From #Tasks k\r\n"
      "Inner Join ICMO m On k.FInterID=m.FInterID\r\n"
      "Inner Join ICStockBillEntry e On e.FICMOInterID=k.FInterID\r\n"
      "Inner Join ICStockBill b On e.FInterID=b.FInterID\r\n"
      "Inner Join t_ICItem t10 On e.FItemID=t10.FItemID\r\n"
      "Left Join t_Department w On m.FWorkShop=w.FItemID\r\n"
      "Left Join t_MeasureUnit t3 On t10.FUnitGroupID=t3.FUnitGroupID And t3.FStandard=1\r\n"
      "Left Join t_MeasureUnit t5 On t10.FCUUnitID=t5.FMeasureUnitID\r\n"
      "Where b.FTranType=24 And (b.FStatus>0 Or b.FUpStockWhenSave>0) And b.FCancelLation=0\r\n"
      "Order By k.FInterID,b.FDate,b.FBillNo,b.FInterID,e.FEntryID");
}
// clang-format on

RecordsetRef RowsOf(tsql::Session& session, std::string_view batch) {
  RecordsetSink sink;
  session.Execute(batch, sink);
  return sink.Take();
}

}  // namespace

DictionaryRef BatchTracking(Server& server, const Dictionary& filter) {
  const std::int16_t scale = BaseCurrencyScale(server);
  const std::string lines =
      Join(OrderLinesText(filter, "T2", Conditions(filter, LongCodesInUse(server, filter))), kProductionText);
  return server.Converse([&](tsql::Session& session) {
    session.Execute(lines);
    auto sets = std::make_shared<Dictionary>();
    sets->Set("rsOrder", RowsOf(session, OrderRows(scale)));
    sets->Set("rsWorkBill", RowsOf(session, kTaskRows));
    sets->Set("rsInStock", RowsOf(session, ReceiptRows(scale)));
    sets->Set("rsOutStock", RowsOf(session, IssueRows(scale)));
    return sets;
  });
}

}  // namespace salerpt::middletier
