#include "suite/middletier/order_due.h"

#include <string>
#include <string_view>

#include "suite/middletier/bill_filter.h"
#include "suite/middletier/order_lines.h"

namespace salerpt::middletier {
namespace {

std::string_view AuditCondition(const Dictionary& filter) {
  const std::string audit = filter.Get("AuditType").TextOrEmpty();
  if (audit == "已审核") return " And v1.FStatus>0";
  if (audit == "未审核") return " And v1.FStatus=0";
  if (audit.empty() || audit == "全部") return "";
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("\"AuditType\" is ", audit, "; 全部, 已审核 or 未审核 was expected"));
}

// What is closed or cancelled will not be delivered any more.
constexpr std::string_view kStillToCome =
    " And v1.FCancelLation=0 And v1.FStatus<>3 And v1.FClosed=0 And v2.FMrpClosed=0";

std::string Conditions(const Dictionary& filter) {
  const std::string_view code = CodeColumn(filter);
  return Join(kStillToCome, AuditCondition(filter), CommodityCondition(filter, "t10"),
              RangeCondition(filter, Join("o.", code), "BCustomerNumber", "ECustomerNumber"),
              RangeCondition(filter, Join("t10.", code), "BItemNumber", "EItemNumber"),
              RangeCondition(filter, Join("TD.", code), "BDeptNumber", "EDeptNumber"),
              RangeCondition(filter, Join("TE.", code), "BSalesNumber", "ESalesNumber"),
              DayCondition(kDueDate, filter.Get("BDate"), filter.Get("EDate")));
}

// By customer, the lines of an order lie together: their head is shown once.
std::string OrderOf(const Dictionary& filter) {
  const std::string group = filter.Get("GroupBy").TextOrEmpty();
  const std::string_view code = CodeColumn(filter);
  constexpr std::string_view kByOrder = "v1.FDate,v1.FBillNo,v1.FInterID,v2.FEntryID";
  if (group == "客户") return Join("Order By o.", code, ",", kByOrder);
  if (group == "物料") return Join("Order By t10.", code, ",", kDueDate, ",", kByOrder);
  return Join("Order By ", kDueDate, ",", kByOrder);
}

// clang-format off
std::string DueRows(const Dictionary& filter) {
  const std::string coefficient = CoefficientOf("t4");
  return Join(
      "Select v1.FDate,v1.FBillNo,v2.FEntryID,Case When v1.FStatus>0 Then '已审核' Else '未审核' End FStatus,\r\n"
      "  IsNull(o.FNumber,'') FCustomerNumber,IsNull(o.FShortNumber,'') FCustomerShortNumber,\r\n"
      "  IsNull(o.FName,'') FCustomer,IsNull(v1.FExplanation,'') FExplanation,IsNull(TD.FName,'') FDept,\r\n"
      "  IsNull(TE.FName,'') FEmp,t10.FNumber FItemNumber,t10.FShortNumber FItemShortNumber,\r\n"
      "  IsNull(t10.FName,'') FItem,IsNull(t10.FModel,'') FModel,IsNull(t7.FName,'') FAuxProp,\r\n"
      "  ", kDueDate, " FFetchDate,IsNull(t4.FName,'') FUnit,v2.FQty/", coefficient, " FQty,\r\n"
      "  IsNull(d.FQty,0)/", coefficient, " FStockQty,(v2.FQty-IsNull(d.FQty,0))/", coefficient, " FUnStockQty,\r\n"
      "  t10.FQtyDecimal\r\n"
      "From #OrderLines k\r\n"
      "Inner Join SEOrder v1 On k.FInterID=v1.FInterID\r\n"
      "Inner Join SEOrderEntry v2 On k.FInterID=v2.FInterID And k.FEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t10 On v2.FItemID=t10.FItemID\r\n"
      "Left Join t_Organization o On v1.FCustID=o.FItemID\r\n"
      "Left Join t_Department TD On v1.FDeptID=TD.FItemID\r\n"
      "Left Join t_Emp TE On v1.FEmpID=TE.FItemID\r\n"
      "Left Join t_MeasureUnit t4 On v2.FUnitID=t4.FMeasureUnitID\r\n"
      "Left Join t_AuxItem t7 On v2.FAuxPropID=t7.FItemID\r\n"
      "Left Join #Delivered d On k.FInterID=d.FInterID And k.FEntryID=d.FEntryID\r\n"
      "Where v2.FQty>IsNull(d.FQty,0)\r\n",
      OrderOf(filter));
}
// clang-format on

}  // namespace

RecordsetRef OrdersDue(Server& server, const Dictionary& filter) {
  return server.Query(
      Join(OrderLinesText(filter, "o", Conditions(filter)), DeliveriesText(), DueRows(filter)));
}

}  // namespace salerpt::middletier
