#include "suite/middletier/fee_invoices.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/mrpt.h"
#include "suite/middletier/base_currency.h"
#include "suite/middletier/bill_filter.h"
#include "suite/middletier/recordset_sink.h"
#include "suite/middletier/sale_batch.h"
#include "suite/middletier/sort_list.h"
#include "suite/middletier/table_columns.h"

namespace salerpt::middletier {
namespace {

// --- The lines that a filter lets through: v1 the bill, v2 its line, T7 customer, T8 supplier, t4 fee

constexpr std::string_view kFromText =
    " From ICFeeInvoice v1\r\n"
    "Inner Join ICFeeInvoiceEntry v2 On v1.FInterID=v2.FInterID\r\n"
    "Left Join t_Organization T7 On v1.FCustID=T7.FItemID\r\n"
    "Left Join t_Supplier T8 On v1.FSupplyID=T8.FItemID\r\n"
    "Left Join t_Fee t4 On v2.FItemID=t4.FItemID\r\n";

std::string_view StyleCondition(const Dictionary& filter) {
  switch (filter.Get("InvoiceStyle").ToInt32()) {
    case 0:
      return " Where v1.FTranType=78";
    case 1:
      return " Where v1.FTranType=79";
    default:
      return " Where v1.FTranType In (78,79)";
  }
}

// A bill that is hooked in part counts as hooked, as it does in the gross profit of sales.
std::string_view HookCondition(const Dictionary& filter) {
  constexpr int kAll = 2;
  switch (filter.GetValue("HookStatus", kAll).ToInt32()) {
    case 0:
      return " And v1.FHookStatus>0";
    case 1:
      return " And v1.FHookStatus=0";
    default:
      return "";
  }
}

std::string ItemClassCondition(const Dictionary& filter) {
  const Variant& value = filter.Get("BItemClass");
  if (value.IsEmptyText()) return "";
  const std::string code = QuoteSql(value);
  return Join(" And v2.FICItemID In (Select i.FItemID From t_ICItem i Where i.FNumber=", code,
              " Or Left(i.FNumber,Len(", code, ")+1)=", code, "+'.')");
}

// The parties that the user may see, in a select of its own: there the alias of the condition stands for the
// table that holds the lists of users, whichever that is.
struct PartyRight {
  std::string_view bill_column;
  std::string_view table;
  std::string_view alias;
  std::string_view from_key;
  std::string_view where_key;
};

std::string RightCondition(const Dictionary& filter, const PartyRight& right) {
  const std::string condition = filter.Get(right.where_key).TextOrEmpty();
  if (Trim(condition).empty()) return "";
  return Join(" And (v1.", right.bill_column, "=0 Or v1.", right.bill_column, " In (Select ", right.alias,
              ".FItemID From ", right.table, " ", right.alias, " ", filter.Get(right.from_key).TextOrEmpty(),
              " Where ", condition, "))");
}

// What both reports share of the conditions; the rights follow in each.
std::string FilterCondition(const Dictionary& filter) {
  const std::string_view code = CodeColumn(filter);
  return Join(StyleCondition(filter), StateCondition(filter), HookCondition(filter),
              DayCondition(filter.Get("BDate"), filter.Get("EDate")),
              RangeCondition(filter, Join("t4.", code), "BFeeNumber", "EFeeNumber"),
              RangeCondition(filter, Join("T7.", code), "BCust", "ECust"),
              RangeCondition(filter, Join("T8.", code), "BSupply", "ESupply"), ItemClassCondition(filter));
}

// --- The summary

std::string SummaryFill(const Dictionary& filter, std::int16_t scale) {
  constexpr PartyRight kSupplierRight = {"FSupplyID", "t_Supplier", "V1", "DataRightFromSupply",
                                         "DataRightWhereSupply"};
  constexpr PartyRight kCustomerRight = {"FCustID", "t_Organization", "V1", "DataRightFromOrg",
                                         "DataRightWhereOrg"};
  // clang-format off
  return Join(
      "Create Table #T301B(FItemID int not null,FCustID int not null,FSupplyID int not null,\r\n"
      "FAuxQty decimal(23,10) not null,FAmount decimal(18,", scale, ") not null,"
      "FTaxAmount decimal(18,", scale, ") not null)\r\n"
      "Insert Into #T301B(FItemID,FCustID,FSupplyID,FAuxQty,FAmount,FTaxAmount)\r\n"
      "Select v2.FItemID,v1.FCustID,v1.FSupplyID,v2.FAuxQty,"
      "Round(v2.FStdAmount,", scale, "),Round(v2.FStdTaxAmount,", scale, ")\r\n",
      kFromText, FilterCondition(filter), RightCondition(filter, kSupplierRight),
      RightCondition(filter, kCustomerRight));
  // clang-format on
}

// The column of the short codes, which the batch does not make. Its total row is labelled in the column of
// the long codes, which then nobody sees.
void AddShortNumber(tsql::Session& session, std::string_view table) {
  session.Execute(Join("Alter Table ", table, " Add FShortNumber varchar(355) null"));
  session.Execute(Join("Update ", table, " Set FShortNumber=FNumber Where FSumSort<>0"));
}

// Fills the blank fee columns of a batch's detail rows.
bool FillFeeColumns(tsql::Session& session, std::string_view table, bool short_codes) {
  const TableColumns columns(session, table);
  if (columns.Empty()) return false;
  if (short_codes && !columns.Has("FShortNumber")) AddShortNumber(session, table);
  const TableColumns filled(session, table);
  constexpr std::array<std::array<std::string_view, 2>, 4> kFeeColumns = {
      {{"FShortNumber", "t4.FShortNumber"},
       {"FFeeType", "k1.FName"},
       {"FName", "t4.FName"},
       {"FUnit", "t4.FUnit"}}};
  std::string assignments;
  for (const auto& [column, value] : kFeeColumns) {
    if (!filled.Has(column)) continue;
    Append(assignments, assignments.empty() ? "" : ",", "t1.", column, "=Case When IsNull(t1.", column,
           ",'')='' Then IsNull(", value, ",'') Else t1.", column, " End");
  }
  if (assignments.empty()) return true;
  session.Execute(Join("Update t1 Set ", assignments, " From ", table,
                       " t1 Inner Join t_Fee t4 On t1.FNumber=t4.FNumber"
                       " Left Join t_SubMessage k1 On t4.FFeeType=k1.FInterID Where t1.FSumSort=0"));
  return true;
}

// --- The list

// The columns of the list, in their order.
constexpr std::array<std::string_view, 26> kListColumns = {
    "FDate",           "FBillNo",       "FInvType",    "FPOStyle",      "FSaleStyle", "FSupplyFullNumber",
    "FCustFullNumber", "FSupplyNumber", "FCustNumber", "FSupplyName",   "FCustName",  "FFeeFullNumber",
    "FFeeNumber",      "FFeeName",      "FFeeType",    "FCurrencyName", "FUnitName",  "FAuxQty",
    "FAuxPrice",       "FAmount",       "FTaxRate",    "FTaxAmount",    "FAmountEx",  "FCheckerName",
    "FNote",           "FSumSort"};

// FStdAmount, FStdTaxAmount and the keys of the line stay inside.
// clang-format off
constexpr std::string_view kListTable =
    "Create Table #Rpt302(FDate datetime null,FBillNo varchar(355) not null Default(''),\r\n"
    "FInvType varchar(355) not null Default(''),FPOStyle varchar(355) not null Default(''),\r\n"
    "FSaleStyle varchar(355) not null Default(''),FSupplyFullNumber varchar(355) not null Default(''),\r\n"
    "FCustFullNumber varchar(355) not null Default(''),FSupplyNumber varchar(355) not null Default(''),\r\n"
    "FCustNumber varchar(355) not null Default(''),FSupplyName varchar(355) not null Default(''),\r\n"
    "FCustName varchar(355) not null Default(''),FFeeFullNumber varchar(355) not null Default(''),\r\n"
    "FFeeNumber varchar(355) not null Default(''),FFeeName varchar(355) not null Default(''),\r\n"
    "FFeeType varchar(355) not null Default(''),FCurrencyName varchar(355) not null Default(''),\r\n"
    "FUnitName varchar(355) not null Default(''),FAuxQty decimal(23,10) null,FAuxPrice decimal(23,10) null,\r\n"
    "FAmount decimal(23,10) null,FTaxRate decimal(23,10) null,FTaxAmount decimal(23,10) null,\r\n"
    "FAmountEx decimal(23,10) null,FCheckerName varchar(355) not null Default(''),\r\n"
    "FNote varchar(355) not null Default(''),FSumSort smallint not null Default(0),\r\n"
    "FStdAmount decimal(23,10) null,FStdTaxAmount decimal(23,10) null,FInterID int null,FEntryID int null)\r\n";

constexpr std::string_view kListTotal =
    "Insert Into #Rpt302(FBillNo,FCurrencyName,FAuxQty,FAmount,FTaxAmount,FAmountEx,FSumSort)\r\n"
    "Select '合计',IsNull((Select FName From t_Currency Where FCurrencyID=1),''),Sum(FAuxQty),"
    "Sum(FStdAmount),Sum(FStdTaxAmount),Sum(FStdAmount-FStdTaxAmount),101\r\n"
    "From #Rpt302 Having Count(*)>0\r\n";

std::string ListFill(const Dictionary& filter, std::int16_t scale) {
  constexpr PartyRight kSupplierRight = {"FSupplyID", "t_Supplier", "T8", "DataRightFromSupply",
                                         "DataRightWhereSupply"};
  constexpr PartyRight kCustomerRight = {"FCustID", "t_Organization", "T7", "DataRightFromOrg",
                                         "DataRightWhereOrg"};
  return Join(
      kListTable,
      "Insert Into #Rpt302(FDate,FBillNo,FInvType,FPOStyle,FSaleStyle,FSupplyFullNumber,FCustFullNumber,\r\n"
      "FSupplyNumber,FCustNumber,FSupplyName,FCustName,FFeeFullNumber,FFeeNumber,FFeeName,FFeeType,\r\n"
      "FCurrencyName,FUnitName,FAuxQty,FAuxPrice,FAmount,FTaxRate,FTaxAmount,FAmountEx,FCheckerName,FNote,\r\n"
      "FStdAmount,FStdTaxAmount,FInterID,FEntryID)\r\n"
      "Select v1.FDate,v1.FBillNo,Case v1.FTranType When 78 Then '应付费用发票' Else '应收费用发票' End,\r\n"
      "IsNull(p.FName,''),IsNull(s.FName,''),IsNull(T8.FNumber,''),IsNull(T7.FNumber,''),\r\n"
      "IsNull(T8.FShortNumber,''),IsNull(T7.FShortNumber,''),IsNull(T8.FName,''),IsNull(T7.FName,''),\r\n"
      "IsNull(t4.FNumber,''),IsNull(t4.FShortNumber,''),IsNull(t4.FName,''),IsNull(k1.FName,''),\r\n"
      "IsNull(c.FName,''),IsNull(t4.FUnit,''),v2.FAuxQty,v2.FAuxPrice,v2.FAmount,v2.FTaxRate,v2.FTaxAmount,\r\n"
      "v2.FAmount-v2.FTaxAmount,IsNull(u.FName,''),"
      "Case When IsNull(v2.FNote,'')='' Then IsNull(v1.FNote,'') Else v2.FNote End,\r\n"
      "Round(v2.FStdAmount,", scale, "),Round(v2.FStdTaxAmount,", scale, "),v1.FInterID,v2.FEntryID\r\n",
      kFromText,
      "Left Join t_SubMessage k1 On t4.FFeeType=k1.FInterID\r\n"
      "Left Join t_SubMessage p On v1.FPOStyle=p.FInterID\r\n"
      "Left Join t_SubMessage s On v1.FSaleStyle=s.FInterID\r\n"
      "Left Join t_Currency c On v1.FCurrencyID=c.FCurrencyID\r\n"
      "Left Join t_User u On v1.FCheckerID=u.FUserID\r\n",
      FilterCondition(filter), RightCondition(filter, kSupplierRight), RightCondition(filter, kCustomerRight),
      "\r\n", kListTotal);
}
// clang-format on

// One column of an order. A plan that never chose one has the item code in its list, which here is the fee's.
std::string_view OrderColumn(std::string_view name) {
  if (EqualNames(name, "FNumber")) return "FFeeFullNumber";
  if (EqualNames(name, "FShortNumber")) return "FFeeNumber";
  for (const std::string_view column : kListColumns) {
    if (EqualNames(name, column)) return column;
  }
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("\"OrderBy\" names ", name, ", which is no column of the fee invoice list"));
}

// The order of the filter, read and written anew, so that nothing but columns gets into the statement.
std::string OrderText(const Dictionary& filter) {
  const std::vector<SortTerm> terms = ReadSortList(filter.Get("OrderBy").TextOrEmpty());
  if (terms.empty()) return "FDate,FBillNo,";
  std::string text;
  for (const SortTerm& term : terms)
    Append(text, OrderColumn(term.name), term.descending ? " DESC," : " ASC,");
  return text;
}

std::string ListSelect(const Dictionary& filter) {
  std::string columns;
  for (const std::string_view column : kListColumns) Append(columns, columns.empty() ? "" : ",", column);
  return Join("Select ", columns, " From #Rpt302 Order By FSumSort,", OrderText(filter), "FInterID,FEntryID");
}

}  // namespace

RecordsetRef FeeSummary(Server& server, const Dictionary& filter, const Dictionary& request) {
  const std::string fill = SummaryFill(filter, BaseCurrencyScale(server));
  const bool short_codes = !filter.Get("bLongNumber").ToBoolean();
  return server.Converse([&](tsql::Session& session) {
    session.Execute(fill);
    // The batch's conversation lies inside this one and finds #T301B.
    return RunSaleBatch(server, request, [short_codes](tsql::Session& batch, std::string_view table) {
      return FillFeeColumns(batch, table, short_codes);
    });
  });
}

RecordsetRef FeeList(Server& server, const Dictionary& filter) {
  return server.Query(Join(ListFill(filter, BaseCurrencyScale(server)), ListSelect(filter)));
}

}  // namespace salerpt::middletier
