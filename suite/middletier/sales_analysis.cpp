#include "suite/middletier/sales_analysis.h"

#include <string>
#include <string_view>

#include "suite/middletier/base_currency.h"
#include "suite/middletier/bill_filter.h"
#include "suite/middletier/item_columns.h"
#include "suite/middletier/order_lines.h"
#include "suite/middletier/report_frame.h"
#include "suite/middletier/sale_batch.h"
#include "suite/middletier/sale_lines.h"

namespace salerpt::middletier {
namespace {

// --- The periods

Period PeriodOf(const Dictionary& request) {
  const Period period{request.Get("BYear").ToInt32(), request.Get("BPeriod").ToInt32()};
  // The year before must be one that the server's dates know, too.
  if (period.year < 1754 || period.year > 9999) {
    throw RuntimeError(error_number::kInvalidCall, "",
                       Join("year ", period.year, " is not between 1754 and 9999"));
  }
  if (period.period < 1 || period.period > 12) {
    throw RuntimeError(error_number::kInvalidCall, "",
                       Join("period ", period.period, " is not between 1 and 12"));
  }
  return period;
}

// The last moment of a period belongs to it: a bill may carry the time of day.
std::string PeriodCondition(Period period) {
  const bool year_ends = period.period == 12;
  std::string condition =
      Join(" And v1.FDate>='", Date::FromYmd(period.year, period.period, 1).Format('/'), "'");
  if (period.year == 9999 && year_ends) return condition;
  const Date next = Date::FromYmd(period.year + (year_ends ? 1 : 0), year_ends ? 1 : period.period + 1, 1);
  Append(condition, " And v1.FDate<'", next.Format('/'), "'");
  return condition;
}

// --- The invoiced lines. A frame may name the column of a property without its table: those of the tables
// made here have names of their own.

// clang-format off
std::string CreateLinesText(std::int16_t scale) {
  return Join(
      "Create Table #Lines(FLineID int not null,FLineEntryID int not null,FLineAuxPropID int not null,\r\n"
      "  FLineCustID int not null,FThisQty decimal(23,10) not null Default(0),\r\n"
      "  FThisAmount decimal(18,", scale, ") not null Default(0),FLastQty decimal(23,10) not null Default(0),\r\n"
      "  FLastAmount decimal(18,", scale, ") not null Default(0))\r\n");
}

// What parts the rows of an item.
struct Parting {
  std::string_view aux_property;
  std::string_view customer;
};

// The lines of one period, into the quantity and the income of that period. Of all items: a share is one of the
// whole class.
std::string InsertLinesText(const Dictionary& request, const Parting& parting, std::string_view measures,
                            const std::string& days, std::int16_t scale) {
  return Join(
      "Insert Into #Lines(FLineID,FLineEntryID,FLineAuxPropID,FLineCustID,", measures, ")\r\n"
      "Select v1.FInterID,v2.FEntryID,", parting.aux_property, ",", parting.customer, ",v2.FQty,\r\n"
      "  Round(Case v1.FTranType When 80 Then v2.FStdAmount Else v2.FStdAmount-v2.FStdTaxAmount End,", scale, ")\r\n"
      "From ICSale v1\r\n"
      "Inner Join ICSaleEntry v2 On v1.FInterID=v2.FInterID\r\n"
      "Left Join t_Organization T3 On v1.FCustID=T3.FItemID\r\n",
      request.Get("DataRightFrom").TextOrEmpty(), "\r\n"
      "Where v1.FTranType In (80,86)", StateCondition(request),
      RangeCondition(request, Join("T3.", CodeColumn(request)), "BCustNumber", "ECustNumber"), days,
      RightCondition(request), "\r\n");
}

// Numbered in the order in which the rows of an item stand.
constexpr std::string_view kPartsText =
    "Create Table #Parts(FLinePart int IDENTITY,FPartAuxPropID int not null,FPartCustID int not null,\r\n"
    "  FPartAuxProp varchar(355) not null,FPartRegion varchar(355) not null,FPartCustomer varchar(355) not null)\r\n"
    "Insert Into #Parts(FPartAuxPropID,FPartCustID,FPartAuxProp,FPartRegion,FPartCustomer)\r\n"
    "Select d.FLineAuxPropID,d.FLineCustID,IsNull(a.FName,''),IsNull(r.FName,''),IsNull(c.FName,'')\r\n"
    "From (Select Distinct FLineAuxPropID,FLineCustID From #Lines) d\r\n"
    "Left Join t_AuxItem a On d.FLineAuxPropID=a.FItemID\r\n"
    "Left Join t_Organization c On d.FLineCustID=c.FItemID\r\n"
    "Left Join t_SubMessage r On c.FRegionID=r.FInterID\r\n"
    "Order By IsNull(r.FName,''),IsNull(c.FNumber,''),IsNull(a.FNumber,''),d.FLineAuxPropID,d.FLineCustID\r\n";

// --- What the frame leaves empty

// The customers are narrowed down with the lines.
std::string ItemConditions(const Dictionary& request) {
  return Join(RangeCondition(request, Join("t1.", CodeColumn(request)), "BItemNumber", "EItemNumber"),
              CommodityCondition(request, "t1"));
}

constexpr std::string_view kTables =
    " From #Lines s\r\n"
    "Inner Join #Parts p On s.FLineAuxPropID=p.FPartAuxPropID And s.FLineCustID=p.FPartCustID\r\n"
    "Inner Join ICSale v1 On s.FLineID=v1.FInterID\r\n"
    "Inner Join ICSaleEntry v2 On s.FLineID=v2.FInterID And s.FLineEntryID=v2.FEntryID\r\n"
    "Inner Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_Department t3 On v1.FDeptID=t3.FItemID\r\n"
    "Left Join t_Emp t4 On v1.FEmpID=t4.FItemID\r\n"
    "Left Join t_MeasureUnit t5 On t1.FCUUnitID=t5.FMeasureUnitID\r\n";

FrameContents ContentsOf(const Dictionary& request, std::string columns, std::string values) {
  return {.columns = Join("FNumber varchar(355) null,FShortNumber varchar(355) null,FName varchar(355) null,\r\n"
                          "FAuxPropName varchar(355) null,FUnitName varchar(355) null,FCUUnitName varchar(355) null,\r\n"
                          "FQtyDecimal smallint null,FDate datetime null,Fentryid int null,\r\n",
                          columns, "FSumSort smallint not null Default(0),FID int IDENTITY)"),
          .values = Join("'','','','','',4,Null,p.FLinePart,\r\n", values),
          .part = "p.FLinePart",
          .tables = std::string(kTables),
          .where = ItemConditions(request)};
}

FrameContents GrowthContents(const Dictionary& request, std::int16_t scale) {
  const std::string coefficient = CoefficientOf("t5");
  return ContentsOf(
      request,
      Join("FModel varchar(355) null,FThisQty decimal(23,10) null,FCUUnitThisQty decimal(23,10) null,\r\n"
           "FLastQty decimal(23,10) null,FCUUnitLastQty decimal(23,10) null,FQtyAddCent decimal(38,10) null,\r\n"
           "FThisAmount decimal(18,", scale, ") null,FLastAmount decimal(18,", scale, ") null,\r\n"
           "FAmountAddCent decimal(38,10) null,FNote varchar(355) null,\r\n"),
      Join("'',Sum(s.FThisQty),Sum(s.FThisQty/", coefficient, "),Sum(s.FLastQty),Sum(s.FLastQty/", coefficient, "),\r\n"
           "Null,Sum(s.FThisAmount),Sum(s.FLastAmount),Null,'',"));
}

FrameContents FlowContents(const Dictionary& request, std::int16_t scale) {
  return ContentsOf(
      request,
      Join("FRegionName varchar(355) null,FClassName varchar(355) null,FModel varchar(355) null,\r\n"
           "FCustomerName varchar(355) null,FQty decimal(23,10) null,FCUUnitQty decimal(23,10) null,\r\n"
           "FAmount decimal(18,", scale, ") null,\r\n"),
      Join("'','','','',Sum(s.FThisQty),Sum(s.FThisQty/", CoefficientOf("t5"), "),Sum(s.FThisAmount),"));
}

FrameContents StructureContents(const Dictionary& request, std::int16_t scale) {
  return ContentsOf(
      request,
      Join("FClassID int null,FClassName varchar(355) null,FItemModel varchar(355) null,FThisQty decimal(23,10) null,\r\n"
           "FCUUnitThisQty decimal(23,10) null,FThisAmount decimal(18,", scale, ") null,\r\n"
           "FClassAmountCent decimal(38,10) null,FLastAmount decimal(18,", scale, ") null,\r\n"
           "FAmountAddCent decimal(38,10) null,\r\n"),
      Join("Null,'','',Sum(s.FThisQty),Sum(s.FThisQty/", CoefficientOf("t5"), "),Sum(s.FThisAmount),Null,\r\n"
           "Sum(s.FLastAmount),Null,"));
}

// --- The rows, filled

// An item's own columns, the property of the row and the label of a list's total.
void FillRowNames(tsql::Session& session, std::string_view table) {
  DropItemSums(session, table);
  FillItemColumns(session, table, CommonUnit::kCommonUnit);
  session.Execute(Join(
      "Update t1 Set t1.FAuxPropName=p.FPartAuxProp From ", table, " t1\r\n"
      "Inner Join #Parts p On t1.Fentryid=p.FLinePart Where t1.FSumSort=0\r\n"));
}

void FillTotalOfList(tsql::Session& session, std::string_view table, std::string_view label) {
  session.Execute(Join("Update ", table, " Set ", label, " Where FSumSort=101\r\n"));
}

void FillClassName(tsql::Session& session, std::string_view table) {
  session.Execute(Join(
      "Update t1 Set t1.FClassName=IsNull(i.FName,'') From ", table, " t1\r\n"
      "Inner Join t_ICItem t2 On t1.FNumber=t2.FNumber\r\n"
      "Inner Join t_Item i On t2.FParentID=i.FItemID\r\n"));
}

void FillGrowth(tsql::Session& session, std::string_view table, std::string_view growth,
                std::string_view present, std::string_view past) {
  session.Execute(Join(
      "Update ", table, " Set ", growth, "=(", present, "-", past, ")*100/", past, " Where ", past, "<>0\r\n"));
}

// A total row sums what stands between it and the total row before it that is of its own group or of an outer
// one: codes grow from the outer group to the inner. The last row sums everything.
void FillShares(tsql::Session& session, std::string_view table, std::int16_t scale) {
  session.Execute(Join(
      "Update t1 Set t1.FClassID=t2.FParentID From ", table, " t1\r\n"
      "Inner Join t_ICItem t2 On t1.FNumber=t2.FNumber\r\n"
      "Create Table #Classes(FClassID int not null,FAmount decimal(18,", scale, ") not null)\r\n"
      "Insert Into #Classes(FClassID,FAmount)\r\n"
      "Select t1.FParentID,Sum(s.FThisAmount)\r\n"
      "From #Lines s\r\n"
      "Inner Join ICSaleEntry v2 On s.FLineID=v2.FInterID And s.FLineEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t1 On v2.FItemID=t1.FItemID Group By t1.FParentID\r\n"
      "Create Table #Blocks(FRow int not null,FBefore int not null)\r\n"
      "Insert Into #Blocks(FRow,FBefore)\r\n"
      "Select t.FID,IsNull((Select Top 1 p.FID From ", table, " p\r\n"
      "  Where p.FID<t.FID And p.FSumSort>0 And p.FSumSort<=t.FSumSort Order By p.FID Desc),0)\r\n"
      "From ", table, " t Where t.FSumSort>0\r\n"
      "Create Table #Shares(FRow int not null,FAmount decimal(18,", scale, ") not null)\r\n"
      "Insert Into #Shares(FRow,FAmount)\r\n"
      "Select d.FID,c.FAmount From ", table, " d Inner Join #Classes c On d.FClassID=c.FClassID\r\n"
      "Insert Into #Shares(FRow,FAmount)\r\n"
      "Select b.FRow,Sum(c.FAmount)\r\n"
      "From (Select Distinct x.FRow,d.FClassID From #Blocks x\r\n"
      "  Inner Join ", table, " d On d.FID>x.FBefore And d.FID<x.FRow) b\r\n"
      "Inner Join #Classes c On b.FClassID=c.FClassID Group By b.FRow\r\n"
      "Update t1 Set t1.FClassAmountCent=t1.FThisAmount*100/s.FAmount From ", table, " t1\r\n"
      "Inner Join #Shares s On t1.FID=s.FRow Where s.FAmount<>0\r\n"));
}
// clang-format on

// The batch's conversation lies inside this one and finds the tables.
RecordsetRef RunAnalysis(Server& server, const Dictionary& batch, const std::string& lines,
                         const FillRows& fill) {
  return server.Converse([&](tsql::Session& session) {
    session.Execute(Join(lines, kPartsText));
    return RunSaleBatch(server, batch, fill);
  });
}

Parting PartingOf(const Dictionary& request, bool by_customer) {
  return {request.Get("AuxProp").ToInt32() == 1 ? "v2.FAuxPropID" : "0", by_customer ? "v1.FCustID" : "0"};
}

// The lines of the period and of the same one of last year.
std::string PeriodLinesText(const Dictionary& request, std::int16_t scale) {
  const Period period = PeriodOf(request);
  const Parting parting = PartingOf(request, false);
  return Join(CreateLinesText(scale),
              InsertLinesText(request, parting, "FThisQty,FThisAmount", PeriodCondition(period), scale),
              InsertLinesText(request, parting, "FLastQty,FLastAmount",
                              PeriodCondition({period.year - 1, period.period}), scale));
}

}  // namespace

RecordsetRef SalesGrowth(Server& server, const Dictionary& request) {
  const std::int16_t scale = BaseCurrencyScale(server);
  const bool list = !IsGroupedFrame(request);
  const DictionaryRef batch = FillFrame(request, GrowthContents(request, scale));
  return RunAnalysis(server, *batch, PeriodLinesText(request, scale),
                     [list](tsql::Session& session, std::string_view table) {
                       if (table != "#DATA") return false;
                       FillRowNames(session, table);
                       FillGrowth(session, table, "FQtyAddCent", "FThisQty", "FLastQty");
                       FillGrowth(session, table, "FAmountAddCent", "FThisAmount", "FLastAmount");
                       if (list) FillTotalOfList(session, table, "FNumber='合计',FShortNumber='合计'");
                       return true;
                     });
}

RecordsetRef SalesFlow(Server& server, const Dictionary& request) {
  const std::int16_t scale = BaseCurrencyScale(server);
  const bool list = !IsGroupedFrame(request);
  const DictionaryRef batch = FillFrame(request, FlowContents(request, scale));
  const std::string lines =
      Join(CreateLinesText(scale),
           InsertLinesText(request, PartingOf(request, true), "FThisQty,FThisAmount",
                           DayCondition(request.Get("BDate"), request.Get("EDate")), scale));
  return RunAnalysis(server, *batch, lines, [list](tsql::Session& session, std::string_view table) {
    if (table != "#DATA") return false;
    FillRowNames(session, table);
    session.Execute(Join("Update t1 Set t1.FRegionName=p.FPartRegion,t1.FCustomerName=p.FPartCustomer From ",
                         table, " t1", kCrLf,
                         "Inner Join #Parts p On t1.Fentryid=p.FLinePart Where t1.FSumSort=0"));
    FillClassName(session, table);
    if (list) FillTotalOfList(session, table, "FRegionName='合计'");
    return true;
  });
}

RecordsetRef SalesStructure(Server& server, const Dictionary& request) {
  const std::int16_t scale = BaseCurrencyScale(server);
  const bool list = !IsGroupedFrame(request);
  const DictionaryRef batch = FillFrame(request, StructureContents(request, scale));
  return RunAnalysis(server, *batch, PeriodLinesText(request, scale),
                     [list, scale](tsql::Session& session, std::string_view table) {
                       if (table != "#DATA") return false;
                       FillRowNames(session, table);
                       session.Execute(Join("Update t1 Set t1.FItemModel=IsNull(t2.FModel,'') From ", table,
                                            " t1 Inner Join t_ICItem t2 On t1.FNumber=t2.FNumber"));
                       FillClassName(session, table);
                       FillShares(session, table, scale);
                       FillGrowth(session, table, "FAmountAddCent", "FThisAmount", "FLastAmount");
                       if (list) FillTotalOfList(session, table, "FNumber='合计',FShortNumber='合计'");
                       return true;
                     });
}

}  // namespace salerpt::middletier
