#include "suite/middletier/order_tracking.h"

#include <string>
#include <string_view>

#include "suite/middletier/bill_filter.h"
#include "suite/middletier/order_lines.h"
#include "suite/middletier/order_production.h"
#include "suite/middletier/sale_batch.h"
#include "suite/middletier/table_columns.h"

namespace salerpt::middletier {
namespace {

// --- Conditions

std::string StyleCondition(const Dictionary& filter) {
  constexpr std::int32_t kFirstStyle = 100;
  constexpr std::int32_t kStyles = 4;
  const std::int32_t place = filter.GetValue("FSaleStyle", kStyles).ToInt32();
  return place < kStyles ? Join(" And v1.FSaleStyle=", kFirstStyle + place) : "";
}

std::string_view ClosedCondition(const Dictionary& filter) {
  constexpr std::int32_t kBoth = 2;
  switch (filter.GetValue("CheckClose", kBoth).ToInt32()) {
    case 0:
      return " And v1.FStatus=3";
    case 1:
      return " And v1.FStatus<>3";
    default:
      return "";
  }
}

std::string Conditions(const Dictionary& filter) {
  const std::string_view code = CodeColumn(filter);
  return Join(StateCondition(filter), ClosedCondition(filter), StyleCondition(filter),
              RangeCondition(filter, Join("tc.", code), "BClientNumber", "EClientNumber"),
              RangeCondition(filter, Join("TD.", code), "BDept", "EDept"),
              RangeCondition(filter, Join("TE.", code), "BEmp", "EEmp"),
              RangeCondition(filter, "v1.FBillNo", "BBillNo", "EBillNo"),
              DayCondition(filter.Get("BDate"), filter.Get("EDate")));
}

bool IsOne(const Dictionary& filter, std::string_view key) {
  return filter.Get(key).ToInt32() == 1;
}

// A grouped report sums all lines, whatever their state. The dialog keeps at least one of the three boxes
// checked.
std::string DropOtherStates(const Dictionary& filter) {
  const bool none = IsOne(filter, "Unexecuted");
  const bool part = IsOne(filter, "Partialexecution");
  const bool full = IsOne(filter, "Fullyexecuted");
  if (IsOne(filter, "GroupBy") || IsOne(filter, "OnlyShowSum") || (!none && !part && !full)) return "";
  return Join("Delete From #T139 Where FState Not In (-1", none ? ",0" : "", part ? ",1" : "",
              full ? ",2" : "", ")\r\n");
}

// --- #T139

// clang-format off
std::string TrackedLines() {
  const std::string coefficient = CoefficientOf("t5");
  return Join(
      "Create Table #Produced(FInterID int not null,FEntryID int not null,FQty decimal(23,10) not null)\r\n"
      "Insert Into #Produced(FInterID,FEntryID,FQty)\r\n"
      "Select k.FOrderInterID,k.FOrderEntryID,Sum(m.FCommitQty) From #Tasks k\r\n"
      "Inner Join ICMO m On k.FInterID=m.FInterID Group By k.FOrderInterID,k.FOrderEntryID\r\n"
      "Create Table #Received(FInterID int not null,FEntryID int not null,FQty decimal(23,10) not null)\r\n"
      "Insert Into #Received(FInterID,FEntryID,FQty)\r\n"
      "Select k.FOrderInterID,k.FOrderEntryID,Sum(e.FQty) From #Receipts k\r\n"
      "Inner Join ICStockBillEntry e On k.FBillID=e.FInterID And k.FBillEntryID=e.FEntryID\r\n"
      "Group By k.FOrderInterID,k.FOrderEntryID\r\n"
      "Create Table #T139(FInterID int not null,FEntryID int not null,FItemID int not null,\r\n"
      "  FQty decimal(23,10) not null,FAuxQty decimal(23,10) not null,\r\n"
      "  FBCommitQty decimal(23,10) not null,FAuxBCommitQty decimal(23,10) not null,\r\n"
      "  FInStockQty decimal(23,10) not null,FInAuxStockQty decimal(23,10) not null,\r\n"
      "  FOutStockQty decimal(23,10) not null,FOutAuxStockQty decimal(23,10) not null,\r\n"
      "  FUnFinishQty decimal(23,10) not null,FUnAuxFinishQty decimal(23,10) not null,FState smallint not null)\r\n"
      "Insert Into #T139(FInterID,FEntryID,FItemID,FQty,FAuxQty,FBCommitQty,FAuxBCommitQty,FInStockQty,\r\n"
      "  FInAuxStockQty,FOutStockQty,FOutAuxStockQty,FUnFinishQty,FUnAuxFinishQty,FState)\r\n"
      "Select k.FInterID,k.FEntryID,v2.FItemID,v2.FQty,v2.FQty/", coefficient, ",\r\n"
      "  IsNull(p.FQty,0),IsNull(p.FQty,0)/", coefficient, ",IsNull(r.FQty,0),IsNull(r.FQty,0)/", coefficient, ",\r\n"
      "  IsNull(d.FQty,0),IsNull(d.FQty,0)/", coefficient, ",v2.FQty-IsNull(d.FQty,0),\r\n"
      "  (v2.FQty-IsNull(d.FQty,0))/", coefficient, ",\r\n"
      "  Case When IsNull(d.FQty,0)<=0 Then 0 When d.FQty<v2.FQty Then 1 Else 2 End\r\n"
      "From #OrderLines k\r\n"
      "Inner Join SEOrderEntry v2 On k.FInterID=v2.FInterID And k.FEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t10 On v2.FItemID=t10.FItemID\r\n"
      "Left Join t_MeasureUnit t5 On t10.FCUUnitID=t5.FMeasureUnitID\r\n"
      "Left Join #Produced p On k.FInterID=p.FInterID And k.FEntryID=p.FEntryID\r\n"
      "Left Join #Received r On k.FInterID=r.FInterID And k.FEntryID=r.FEntryID\r\n"
      "Left Join #Delivered d On k.FInterID=d.FInterID And k.FEntryID=d.FEntryID\r\n");
}

// --- The blank columns of the batch's rows

std::string FillText(std::string_view table, const Dictionary& filter, bool has_short_number) {
  return Join(
      "Update d Set d.FDate=Convert(varchar(10),v1.FDate,120),d.FBillNo=v1.FBillNo,\r\n"
      "  d.FCustNumber=IsNull(tc.", CodeColumn(filter), ",''),d.FCustName=IsNull(tc.FName,''),\r\n"
      "  d.FAdviceConsignDate=IsNull(Convert(varchar(10),", kDueDate, ",120),''),\r\n"
      "  d.FItemShortNumber=t1.FShortNumber,", has_short_number ? "d.FShortNumber=t1.FShortNumber," : "", "\r\n"
      "  d.FName=IsNull(t1.FName,''),d.FModel=IsNull(t1.FModel,''),d.FAuxName=IsNull(t7.FName,''),\r\n"
      "  d.FBaseUnitName=IsNull(t3.FName,''),d.FStockUnitName=IsNull(t5.FName,''),d.FQtyDecimal=t1.FQtyDecimal,\r\n"
      "  d.FExecutionStatus=Case s.FState When 0 Then '未执行' When 1 Then '部分执行' Else '完全执行' End\r\n"
      "From ", table, " d\r\n"
      "Inner Join #T139 s On d.FInterID=s.FInterID And d.FEntryID=s.FEntryID\r\n"
      "Inner Join SEOrder v1 On d.FInterID=v1.FInterID\r\n"
      "Inner Join SEOrderEntry v2 On d.FInterID=v2.FInterID And d.FEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
      "Left Join t_Organization tc On v1.FCustID=tc.FItemID\r\n"
      "Left Join t_MeasureUnit t3 On t1.FUnitGroupID=t3.FUnitGroupID And t3.FStandard=1\r\n"
      "Left Join t_MeasureUnit t5 On t1.FCUUnitID=t5.FMeasureUnitID\r\n"
      "Left Join t_AuxItem t7 On v2.FAuxPropID=t7.FItemID");
}
// clang-format on

bool FillLineColumns(tsql::Session& session, std::string_view table, const Dictionary& filter) {
  const TableColumns columns(session, table);
  if (columns.Empty()) return false;
  const bool short_codes = !filter.Get("bLongNumber").ToBoolean();
  if (short_codes && !columns.Has("FShortNumber")) {
    session.Execute(Join("Alter Table ", table, " Add FShortNumber varchar(355) null"));
  }
  session.Execute(FillText(table, filter, short_codes || columns.Has("FShortNumber")));
  if (!IsOne(filter, "GroupBy") || !IsOne(filter, "SumMode")) {
    session.Execute(Join("Update ", table, " Set FDate='合计' Where FSumSort=101"));
  }
  return true;
}

}  // namespace

RecordsetRef OrderTracking(Server& server, const Dictionary& frames, const Dictionary& filter) {
  const std::string fill = Join(OrderLinesText(filter, "tc", Conditions(filter)), DeliveriesText(),
                                kProductionText, TrackedLines(), DropOtherStates(filter));
  return server.Converse([&](tsql::Session& session) {
    session.Execute(fill);
    // The batch's conversation lies inside this one and finds #T139.
    return RunSaleBatch(server, frames, [&filter](tsql::Session& batch, std::string_view table) {
      return FillLineColumns(batch, table, filter);
    });
  });
}

}  // namespace salerpt::middletier
