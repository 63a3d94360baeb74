#include "bench/by_hand.h"

namespace salerpt::bench {
namespace {

// Where a reader would throw the cells away, so does this one: but it does read them.
void ReadCells(sqlite3_stmt* select) {
  for (int i = 0; i < sqlite3_column_count(select); ++i) static_cast<void>(sqlite3_column_text(select, i));
}

}  // namespace

std::int64_t RunByHand(sqlite3* connection, const QueryByHand& query, std::string& error) {
  const auto tell = [&] { error = sqlite3_errmsg(connection); };
  if (sqlite3_exec(connection, query.tables, nullptr, nullptr, nullptr) != SQLITE_OK) tell();
  sqlite3_stmt* select = nullptr;
  if (sqlite3_prepare_v2(connection, query.rows, -1, &select, nullptr) != SQLITE_OK) tell();
  std::int64_t rows = 0;
  for (; select != nullptr && sqlite3_step(select) == SQLITE_ROW; ++rows) ReadCells(select);
  sqlite3_finalize(select);
  sqlite3_exec(connection, query.drops, nullptr, nullptr, nullptr);
  return rows;
}

// The finest group is summed once and the higher levels from it; the rows carry the item's master data and
// come in order.
const QueryByHand kOutboundByCustomerClass = {
    R"sql(
create temp table fine as
select c.FName FName1, i.FNumber FNumber, sum(OutQty) OutQty, sum(OutAmount) OutAmount, sum(ConsignAmount) ConsignAmount,
       sum(InvoiceQty) InvoiceQty, sum(InvoiceAmount) InvoiceAmount, sum(OutQty/u.FCoefficient) CUOutQty,
       sum(InvoiceQty/u.FCoefficient) CUInvoiceQty
from (select e.FItemID, b.FSupplyID FCustID, e.FQty OutQty, round(e.FAmount,3) OutAmount,
             round(e.FConsignAmount,3) ConsignAmount, 0 InvoiceQty, 0 InvoiceAmount
      from ICStockBill b join ICStockBillEntry e on b.FInterID=e.FInterID
      where b.FTranType=21 and b.FStatus>0 and b.FCancelLation=0 and b.FDate>='2010-01-01' and b.FDate<'2026-01-01'
      union all
      select e.FItemID, b.FCustID, 0, 0, 0, e.FQty,
             round(case b.FTranType when 80 then e.FAmount else e.FAmount-e.FTaxAmount end*b.FExchangeRate,3)
      from ICSale b join ICSaleEntry e on b.FInterID=e.FInterID
      where b.FTranType in (80,86) and b.FStatus>0 and b.FCancelLation=0 and b.FDate>='2010-01-01' and b.FDate<'2026-01-01') d
join t_ICItem i on d.FItemID=i.FItemID
join t_MeasureUnit u on i.FSaleUnitID=u.FMeasureUnitID
join t_Item o on d.FCustID=o.FItemID
join t_Item c on o.FParentID=c.FItemID
group by c.FName, i.FNumber;
create temp table report as
select FName1, FNumber, OutQty, OutAmount, ConsignAmount, InvoiceQty, InvoiceAmount, CUOutQty, CUInvoiceQty, 0 FSumSort from fine
union all
select FName1, null, sum(OutQty), sum(OutAmount), sum(ConsignAmount), sum(InvoiceQty), sum(InvoiceAmount), sum(CUOutQty),
       sum(CUInvoiceQty), 107 from fine group by FName1
union all
select null, null, sum(OutQty), sum(OutAmount), sum(ConsignAmount), sum(InvoiceQty), sum(InvoiceAmount), sum(CUOutQty),
       sum(CUInvoiceQty), 101 from fine;
)sql",
    R"sql(
select r.*, OutQty-InvoiceQty, OutAmount-InvoiceAmount, CUOutQty-CUInvoiceQty, i.FShortNumber, i.FName, i.FModel, u.FName
from report r left join t_ICItem i on r.FNumber=i.FNumber left join t_MeasureUnit u on i.FUnitID=u.FMeasureUnitID
order by r.FName1 is null, r.FName1, r.FNumber is null, r.FNumber;
)sql",
    "drop table fine; drop table report"};

// Quantity in two units, income, tax, both, price and rate, item master data, total row last.
const QueryByHand kIncomeByItem = {
    R"sql(
create temp table report as
select i.FNumber FNumber, i.FShortNumber FShortNumber, i.FName FName, i.FModel FModel, u.FName FUnitName,
       sum(round(e.FQty,i.FQtyDecimal)) FQty, c.FName FCUUnitName,
       sum(round(e.FQty*1.0/(case when ifnull(c.FCoefficient,0)=0 then 1 else c.FCoefficient end),i.FQtyDecimal)) FCUUnitQty,
       sum(round(case b.FTranType when 80 then e.FStdAmount else e.FStdAmount-e.FStdTaxAmount end,3)) FAmount,
       sum(round(e.FStdTaxAmount,3)) FTaxAmount,
       sum(round(case b.FTranType when 80 then e.FStdAmount+e.FStdTaxAmount else e.FStdAmount end,3)) FCountAmount
from ICSale b join ICSaleEntry e on b.FInterID=e.FInterID
left join t_ICItem i on e.FItemID=i.FItemID
left join t_Organization o on b.FCustID=o.FItemID
left join t_MeasureUnit u on i.FUnitGroupID=u.FUnitGroupID and u.FStandard=1
left join t_MeasureUnit c on i.FCUUnitID=c.FMeasureUnitID
where b.FTranType in (80,86) and b.FStatus>0 and b.FCancelLation=0 and b.FDate>='2010-01-01' and b.FDate<'2026-01-01'
group by i.FNumber;
)sql",
    R"sql(
select r.*, FAmount/FQty, 100*FTaxAmount/FAmount, 0 FSumSort from report r
union all
select '合计', null, null, null, null, sum(FQty), null, sum(FCUUnitQty), sum(FAmount), sum(FTaxAmount), sum(FCountAmount), null, null, 101
from report
order by 14, 1;
)sql",
    "drop table report"};

const QueryByHand kCustomerLines = {
    R"sql(
create temp table report as
select b.FDate FDate, o.FNumber FCustNumber, o.FName FCustName, i.FNumber FNumber, i.FName FName, i.FModel FModel,
       b.FBillNo FBillNo, l.FName FAuxUnitName, y.FName FCurrencyName, b.FExchangeRate FExchangeRate,
       e.FAuxQty FAuxQty, u.FName FUnitName, e.FQty FQty, c.FName FCUUnitName,
       e.FQty*1.0/(case when ifnull(c.FCoefficient,0)=0 then 1 else c.FCoefficient end) FCUUnitQty,
       case b.FTranType when 80 then e.FAmount else e.FAmount-e.FTaxAmount end FAmount,
       case b.FTranType when 80 then e.FStdAmount else e.FStdAmount-e.FStdTaxAmount end FAmountFor
from ICSale b join ICSaleEntry e on b.FInterID=e.FInterID
join t_ICItem i on e.FItemID=i.FItemID
left join t_Organization o on b.FCustID=o.FItemID
left join t_Currency y on b.FCurrencyID=y.FCurrencyID
left join t_MeasureUnit l on e.FUnitID=l.FMeasureUnitID
left join t_MeasureUnit u on i.FUnitID=u.FMeasureUnitID
left join t_MeasureUnit c on i.FCUUnitID=c.FMeasureUnitID
where b.FTranType in (80,86) and b.FStatus>0 and b.FCancelLation=0 and b.FDate>='2010-01-01' and b.FDate<'2026-01-01';
)sql",
    R"sql(
select r.*, 0 FSumSort from report r
union all
select null, '合计', null, null, null, null, null, null, null, null, sum(FAuxQty), null, sum(FQty), null, sum(FCUUnitQty), null,
       sum(FAmountFor), 101
from report
order by 18, 1, 2;
)sql",
    "drop table report"};

const QueryByHand kOrderExecution = {
    R"sql(
create temp table report as
select i.FNumber FNumber, i.FShortNumber FShortNumber, i.FName FName, i.FModel FModel, u.FName FUnitName,
       sum(d.Ordered) FOrderQty, sum(d.Delivered) FCommitQty, c.FName FCUUnitName,
       sum(d.Ordered*1.0/(case when ifnull(c.FCoefficient,0)=0 then 1 else c.FCoefficient end)) FCUUnitOrderQty,
       sum(d.Delivered*1.0/(case when ifnull(c.FCoefficient,0)=0 then 1 else c.FCoefficient end)) FCUUnitCommitQty
from (select e.FItemID FItemID, e.FQty Ordered, 0 Delivered
      from SEOrder o join SEOrderEntry e on o.FInterID=e.FInterID
      where o.FStatus>0 and o.FCancelLation=0 and o.FDate>='2010-01-01' and o.FDate<'2026-01-01'
      union all
      select e.FItemID, 0, e.FQty
      from SEOrder o
      join SEOrderEntry l on l.FInterID=o.FInterID
      join ICStockBillEntry e on e.FOrderInterID=l.FInterID and e.FOrderEntryID=l.FEntryID
      join ICStockBill b on b.FInterID=e.FInterID
      where b.FTranType=21 and (b.FStatus>0 or (b.FUpStockWhenSave>0 and b.FCancelLation<1))
        and o.FStatus>0 and o.FCancelLation=0 and o.FDate>='2010-01-01' and o.FDate<'2026-01-01') d
join t_ICItem i on d.FItemID=i.FItemID
left join t_MeasureUnit u on i.FUnitID=u.FMeasureUnitID
left join t_MeasureUnit c on i.FCUUnitID=c.FMeasureUnitID
group by i.FNumber;
)sql",
    R"sql(
select r.*, FOrderQty-FCommitQty, FCUUnitOrderQty-FCUUnitCommitQty, 0 FSumSort from report r
union all
select '合计', null, null, null, null, sum(FOrderQty), sum(FCommitQty), null, sum(FCUUnitOrderQty), sum(FCUUnitCommitQty),
       sum(FOrderQty)-sum(FCommitQty), sum(FCUUnitOrderQty)-sum(FCUUnitCommitQty), 101
from report
order by 13, 1;
)sql",
    "drop table report"};

}  // namespace salerpt::bench
