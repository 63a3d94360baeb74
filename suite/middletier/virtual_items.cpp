#include "suite/middletier/virtual_items.h"

#include <string>
#include <string_view>

#include "suite/middletier/base_currency.h"
#include "suite/middletier/bill_filter.h"
#include "suite/middletier/item_columns.h"
#include "suite/middletier/order_lines.h"
#include "suite/middletier/report_frame.h"
#include "suite/middletier/sale_batch.h"

namespace salerpt::middletier {
namespace {

// --- The order lines

// The user's customers, in a select of their own: the condition calls the customer as this statement calls
// the order.
std::string CustomerRight(const Dictionary& request) {
  const std::string condition = RightCondition(request);
  if (condition.empty()) return "";
  return Join(" And v1.FCustID In (Select v1.FItemID From t_Organization v1 ",
              request.Get("DataRightFrom").TextOrEmpty(), " Where 1=1", condition, ")");
}

std::string Conditions(const Dictionary& request) {
  const std::string_view code = CodeColumn(request);
  return Join(" And t10.FErpClsID=5", StateCondition(request), SaleStyleCondition(request),
              OrderTypeCondition(request),
              RangeCondition(request, Join("t10.", code), "BItemNumber", "EItemNumber"),
              RangeCondition(request, Join("t2.", code), "BCustNumber", "ECustNumber"),
              DayCondition(request.Get("BDate"), request.Get("EDate")), CustomerRight(request));
}

std::string LinesText(const Dictionary& request) {
  const DictionaryRef without_rights = request.Copy();
  without_rights->Set("DataRightFrom", "");
  without_rights->Set("DataRightWhere", "");
  return OrderLinesText(*without_rights, "t2", Conditions(request));
}

// --- What a line has ordered, and what is in it

// clang-format off
std::string MeasuresText(std::int16_t scale) {
  const std::string coefficient = CoefficientOf("u");
  return Join(
      // The bill of material of each line.
      "Create Table #Boms(FInterID int not null,FEntryID int not null,FBomID int not null,FQty decimal(23,10) not null)\r\n"
      "Insert Into #Boms(FInterID,FEntryID,FBomID,FQty)\r\n"
      "Select k.FInterID,k.FEntryID,b.FInterID,Case When b.FQty=0 Then 1 Else b.FQty End\r\n"
      "From #OrderLines k\r\n"
      "Inner Join SEOrderEntry v2 On k.FInterID=v2.FInterID And k.FEntryID=v2.FEntryID\r\n"
      "Left Join ICBOM n On v2.FBomInterID=n.FInterID And v2.FItemID=n.FItemID\r\n"
      "Inner Join ICBOM b On b.FInterID=IsNull(n.FInterID,(Select Min(x.FInterID) From ICBOM x\r\n"
      "  Where x.FItemID=v2.FItemID And x.FStatus=1))\r\n"
      // What the line orders of each item in it. Items without a price count by their quantity alone.
      "Create Table #Children(FInterID int not null,FEntryID int not null,FPlace int not null,FItemID int not null,\r\n"
      "  FQty decimal(23,10) not null,FWeight decimal(23,10) not null,FAmount decimal(18,", scale, ") not null)\r\n"
      "Insert Into #Children(FInterID,FEntryID,FPlace,FItemID,FQty,FWeight,FAmount)\r\n"
      "Select m.FInterID,m.FEntryID,c.FEntryID,c.FItemID,v2.FQty*c.FQty/m.FQty,c.FQty*t.FSalePrice,0\r\n"
      "From #Boms m\r\n"
      "Inner Join SEOrderEntry v2 On m.FInterID=v2.FInterID And m.FEntryID=v2.FEntryID\r\n"
      "Inner Join ICBOMChild c On m.FBomID=c.FInterID\r\n"
      "Inner Join t_ICItem t On c.FItemID=t.FItemID\r\n"
      "Create Table #Weights(FInterID int not null,FEntryID int not null,FWeight decimal(23,10) not null)\r\n"
      "Insert Into #Weights(FInterID,FEntryID,FWeight)\r\n"
      "Select FInterID,FEntryID,Sum(FWeight) From #Children Group By FInterID,FEntryID\r\n"
      "Update c Set c.FWeight=Abs(c.FQty) From #Children c\r\n"
      "Inner Join #Weights w On c.FInterID=w.FInterID And c.FEntryID=w.FEntryID Where w.FWeight=0\r\n"
      // The share of all items up to this one, less that of those before it: what is rounded off of one falls
      // to the next, and the last one takes the rest.
      "Create Table #Shares(FInterID int not null,FEntryID int not null,FPlace int not null,\r\n"
      "  FBefore decimal(23,10) not null,FUpTo decimal(23,10) not null,FAll decimal(23,10) not null)\r\n"
      "Insert Into #Shares(FInterID,FEntryID,FPlace,FBefore,FUpTo,FAll)\r\n"
      "Select c.FInterID,c.FEntryID,c.FPlace,Sum(Case When o.FPlace<c.FPlace Then o.FWeight Else 0 End),\r\n"
      "  Sum(Case When o.FPlace<=c.FPlace Then o.FWeight Else 0 End),Sum(o.FWeight)\r\n"
      "From #Children c Inner Join #Children o On c.FInterID=o.FInterID And c.FEntryID=o.FEntryID\r\n"
      "Group By c.FInterID,c.FEntryID,c.FPlace\r\n"
      "Create Table #Virtual(FInterID int not null,FEntryID int not null,FSaleQty decimal(23,10) not null,\r\n"
      "  FSaleAmount decimal(18,", scale, ") not null,FCommitQty decimal(23,10) not null,FCoefficient decimal(23,10) not null)\r\n"
      "Insert Into #Virtual(FInterID,FEntryID,FSaleQty,FSaleAmount,FCommitQty,FCoefficient)\r\n"
      "Select k.FInterID,k.FEntryID,v2.FQty,\r\n"
      "  Round(v2.FAmount*Convert(decimal(23,10),IsNull(v1.FExchangeRate,1)),", scale, "),IsNull(d.FQty,0),", coefficient, "\r\n"
      "From #OrderLines k\r\n"
      "Inner Join SEOrder v1 On k.FInterID=v1.FInterID\r\n"
      "Inner Join SEOrderEntry v2 On k.FInterID=v2.FInterID And k.FEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t On v2.FItemID=t.FItemID\r\n"
      "Left Join t_MeasureUnit u On t.FSaleUnitID=u.FMeasureUnitID\r\n"
      "Left Join #Delivered d On k.FInterID=d.FInterID And k.FEntryID=d.FEntryID\r\n"
      "Update c Set c.FAmount=Case When s.FAll=0 Then 0 Else\r\n"
      "  Round(p.FSaleAmount*s.FUpTo/s.FAll,", scale, ")-Round(p.FSaleAmount*s.FBefore/s.FAll,", scale, ") End\r\n"
      "From #Children c\r\n"
      "Inner Join #Shares s On c.FInterID=s.FInterID And c.FEntryID=s.FEntryID And c.FPlace=s.FPlace\r\n"
      "Inner Join #Virtual p On c.FInterID=p.FInterID And c.FEntryID=p.FEntryID\r\n");
}

// --- What the frame leaves empty

// Behind the columns of the groups.
std::string ColumnsText(std::int16_t scale, bool has_customer) {
  return Join(
      "FNumber varchar(355) null,FDate datetime null,FCustNumber varchar(355) null,",
      has_customer ? "" : "FCustName varchar(355) null,", "FBillNo varchar(355) null,FShortNumber varchar(355) null,\r\n"
      "FName varchar(355) null,FChildName varchar(355) null,FModel varchar(355) null,FUnitName varchar(355) null,\r\n"
      "FQtyDecimal smallint null,FSaleQty decimal(23,10) null,FChildSaleQty decimal(23,10) null,\r\n"
      "FSaleAmount decimal(18,", scale, ") null,FChildSaleAmount decimal(18,", scale, ") null,\r\n"
      "FCommitQty decimal(23,10) null,FDiffQty decimal(23,10) null,FCUUnitName varchar(355) null,\r\n"
      "FCUUnitSaleQty decimal(23,10) null,FCUUnitChildSaleQty decimal(23,10) null,FCUUnitCommitQty decimal(23,10) null,\r\n"
      "FCUUnitDiffQty decimal(23,10) null,Fentryid int null,FSumSort smallint not null Default(0),FID int IDENTITY)\r\n");
}

// Behind the code of the item, whose own columns are filled later.
std::string GroupValues(bool has_customer) {
  return Join(
      "Null,'',", has_customer ? "" : "'',", "'','','','','','',4,Sum(s.FSaleQty),Sum(s.FChildSaleQty),Sum(s.FSaleAmount),\r\n"
      "Sum(s.FChildSaleAmount),Sum(s.FCommitQty),Sum(s.FSaleQty-s.FCommitQty),'',Sum(s.FCUUnitSaleQty),\r\n"
      "Sum(s.FCUUnitChildSaleQty),Sum(s.FCUUnitCommitQty),Sum(s.FCUUnitSaleQty-s.FCUUnitCommitQty),0,\r\n");
}

// One row for each line in #Sums, with what is in it.
const std::string_view kSumsText =
    "Create Table #Sums(FLineID int not null,FLineEntryID int not null,FSaleQty decimal(23,10) not null,\r\n"
    "  FChildSaleQty decimal(23,10) not null,FSaleAmount decimal(23,10) not null,FChildSaleAmount decimal(23,10) not null,\r\n"
    "  FCommitQty decimal(23,10) not null,FCUUnitSaleQty decimal(23,10) not null,\r\n"
    "  FCUUnitChildSaleQty decimal(23,10) not null,FCUUnitCommitQty decimal(23,10) not null)\r\n"
    "Insert Into #Sums(FLineID,FLineEntryID,FSaleQty,FChildSaleQty,FSaleAmount,FChildSaleAmount,FCommitQty,\r\n"
    "  FCUUnitSaleQty,FCUUnitChildSaleQty,FCUUnitCommitQty)\r\n"
    "Select p.FInterID,p.FEntryID,p.FSaleQty,IsNull(c.FQty,0),p.FSaleAmount,IsNull(c.FAmount,0),p.FCommitQty,\r\n"
    "  p.FSaleQty/p.FCoefficient,IsNull(c.FCUUnitQty,0),p.FCommitQty/p.FCoefficient\r\n"
    "From #Virtual p\r\n"
    "Left Join (Select h.FInterID,h.FEntryID,Sum(h.FQty) FQty,Sum(h.FAmount) FAmount,\r\n"
    "    Sum(h.FQty/(Case When IsNull(u.FCoefficient,0)=0 Then 1 Else u.FCoefficient End)) FCUUnitQty\r\n"
    "  From #Children h Inner Join t_ICItem t On h.FItemID=t.FItemID\r\n"
    "  Left Join t_MeasureUnit u On t.FSaleUnitID=u.FMeasureUnitID Group By h.FInterID,h.FEntryID) c\r\n"
    "  On p.FInterID=c.FInterID And p.FEntryID=c.FEntryID\r\n";

constexpr std::string_view kGroupFrom =
    " From #Sums s\r\n"
    "Join SEOrder v1 On s.FLineID=v1.FInterID\r\n"
    "Join SEOrderEntry v2 On s.FLineID=v2.FInterID And s.FLineEntryID=v2.FEntryID\r\n"
    "Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_Department t3 On v1.FDeptID=t3.FItemID\r\n"
    "Left Join t_Emp t4 On v1.FEmpID=t4.FItemID\r\n"
    "Left Join t_Currency t5 On v1.FCurrencyID=t5.FCurrencyID\r\n"
    "Left Join t_MeasureUnit t6 On t1.FSaleUnitID=t6.FMeasureUnitID\r\n";

// The rows of the plain list, numbered in their order: the frame's own order does not tell lines of one day and
// item apart.
std::string ListText(const Dictionary& request) {
  const std::string coefficient = CoefficientOf("u");
  return Join(
      "Create Table #Rows(FPlace int IDENTITY,FInterID int not null,FEntryID int not null,FChildPlace int not null,\r\n"
      "  FItemID int not null,FSaleQty decimal(23,10) null,FChildSaleQty decimal(23,10) null,\r\n"
      "  FSaleAmount decimal(23,10) null,FChildSaleAmount decimal(23,10) null,FCommitQty decimal(23,10) null)\r\n"
      "Insert Into #Rows(FInterID,FEntryID,FChildPlace,FItemID,FSaleQty,FChildSaleQty,FSaleAmount,FChildSaleAmount,FCommitQty)\r\n"
      "Select r.FInterID,r.FEntryID,r.FChildPlace,r.FItemID,r.FSaleQty,r.FChildSaleQty,r.FSaleAmount,r.FChildSaleAmount,\r\n"
      "  r.FCommitQty\r\n"
      "From (Select p.FInterID,p.FEntryID,0 FChildPlace,v2.FItemID,p.FSaleQty,Null FChildSaleQty,p.FSaleAmount,\r\n"
      "    Null FChildSaleAmount,p.FCommitQty\r\n"
      "  From #Virtual p Inner Join SEOrderEntry v2 On p.FInterID=v2.FInterID And p.FEntryID=v2.FEntryID\r\n"
      "  Union All\r\n"
      "  Select c.FInterID,c.FEntryID,c.FPlace,c.FItemID,Null,c.FQty,Null,c.FAmount,Null From #Children c) r\r\n"
      "Inner Join SEOrder v1 On r.FInterID=v1.FInterID\r\n"
      "Order By v1.FDate,v1.FBillNo,r.FInterID,r.FEntryID,r.FChildPlace\r\n"
      "Create Table #List(", ColumnsText(10, false), "\r\n"
      "Insert Into #List(FNumber,FDate,FCustNumber,FCustName,FBillNo,FShortNumber,FName,FChildName,FModel,FUnitName,\r\n"
      "  FQtyDecimal,FSaleQty,FChildSaleQty,FSaleAmount,FChildSaleAmount,FCommitQty,FDiffQty,FCUUnitName,FCUUnitSaleQty,\r\n"
      "  FCUUnitChildSaleQty,FCUUnitCommitQty,FCUUnitDiffQty,Fentryid)\r\n"
      "Select t1.FNumber,v1.FDate,IsNull(t2.", CodeColumn(request), ",''),IsNull(t2.FName,''),v1.FBillNo,t1.FShortNumber,\r\n"
      "  IsNull(t1.FName,''),Case When r.FChildPlace=0 Then '' Else IsNull(t.FName,'') End,IsNull(t.FModel,''),\r\n"
      "  IsNull(b.FName,''),t.FQtyDecimal,r.FSaleQty,r.FChildSaleQty,r.FSaleAmount,r.FChildSaleAmount,r.FCommitQty,\r\n"
      "  r.FSaleQty-r.FCommitQty,IsNull(u.FName,''),r.FSaleQty/", coefficient, ",r.FChildSaleQty/", coefficient, ",\r\n"
      "  r.FCommitQty/", coefficient, ",(r.FSaleQty-r.FCommitQty)/", coefficient, ",r.FPlace\r\n"
      "From #Rows r\r\n"
      "Inner Join SEOrder v1 On r.FInterID=v1.FInterID\r\n"
      "Inner Join SEOrderEntry v2 On r.FInterID=v2.FInterID And r.FEntryID=v2.FEntryID\r\n"
      "Inner Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
      "Inner Join t_ICItem t On r.FItemID=t.FItemID\r\n"
      "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      "Left Join t_MeasureUnit b On t.FUnitGroupID=b.FUnitGroupID And b.FStandard=1\r\n"
      "Left Join t_MeasureUnit u On t.FSaleUnitID=u.FMeasureUnitID\r\n"
      "Insert Into #List(FNumber,FShortNumber,FQtyDecimal,FSaleQty,FChildSaleQty,FSaleAmount,FChildSaleAmount,FCommitQty,\r\n"
      "  FDiffQty,FCUUnitSaleQty,FCUUnitChildSaleQty,FCUUnitCommitQty,FCUUnitDiffQty,FSumSort)\r\n"
      "Select '合计','合计',Max(FQtyDecimal),Sum(FSaleQty),Sum(FChildSaleQty),Sum(FSaleAmount),Sum(FChildSaleAmount),\r\n"
      "  Sum(FCommitQty),Sum(FDiffQty),Sum(FCUUnitSaleQty),Sum(FCUUnitChildSaleQty),Sum(FCUUnitCommitQty),\r\n"
      "  Sum(FCUUnitDiffQty),101\r\n"
      "From #List Having Count(*)>0\r\n");
}

constexpr std::string_view kListValues =
    "FNumber,FDate,FCustNumber,FCustName,FBillNo,FShortNumber,FName,FChildName,FModel,FUnitName,FQtyDecimal,FSaleQty,\r\n"
    "FChildSaleQty,FSaleAmount,FChildSaleAmount,FCommitQty,FDiffQty,FCUUnitName,FCUUnitSaleQty,FCUUnitChildSaleQty,\r\n"
    "FCUUnitCommitQty,FCUUnitDiffQty,Fentryid,FSumSort From #List Order By FID\r\n";
// clang-format on

// --- The frame, filled

std::string FillList(std::string_view select, std::int16_t scale) {
  const ListFrame frame = ReadListFrame(select);
  return Join(frame.table, ColumnsText(scale, false), frame.insert, kListValues);
}

// Its groups may bring the customer's name with them.
std::string FillGroups(std::string_view select, std::int16_t scale) {
  const GroupFrame frame = ReadGroupFrame(select);
  const bool has_customer = HoldsWord(frame.table, "FCustName");
  return Join(frame.table, ColumnsText(scale, has_customer), frame.insert, GroupValues(has_customer),
              frame.cases, frame.rest, kGroupFrom, frame.joins);
}

}  // namespace

RecordsetRef VirtualItemOrders(Server& server, const Dictionary& request) {
  const std::int16_t scale = BaseCurrencyScale(server);
  const std::string frame = request.Get("Select").TextOrEmpty();
  const bool grouped = IsGroupedFrame(request);
  const std::string fill = Join(LinesText(request), DeliveriesText(), MeasuresText(scale),
                                grouped ? std::string(kSumsText) : ListText(request));
  const DictionaryRef batch = request.Copy();
  batch->Set("Select", grouped ? FillGroups(frame, scale) : FillList(frame, scale));
  return server.Converse([&](tsql::Session& session) {
    session.Execute(fill);
    // The batch's conversation lies inside this one and finds the tables.
    return RunSaleBatch(server, *batch, [grouped](tsql::Session& rows, std::string_view table) {
      return !grouped || FillItemColumns(rows, table, CommonUnit::kSaleUnit);
    });
  });
}

}  // namespace salerpt::middletier
