#include "suite/middletier/sale_credit.h"

#include <string_view>

#include "runtime/mrpt.h"
#include "suite/middletier/account_switches.h"
#include "suite/middletier/base_currency.h"
#include "suite/middletier/bill_filter.h"
#include "suite/middletier/order_lines.h"

namespace salerpt::middletier {
namespace {

constexpr std::int32_t kBaseCurrency = 1;

[[noreturn]] void Refuse(std::string_view key, const Variant& value, std::string_view expected) {
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join(key, " is ", value.TextOrEmpty(), "; ", expected, " was expected"));
}

// Whether there is a limit of the kind at all.
bool HasLimits(Server& server, std::string_view table) {
  return server.Query(Join("Select Top 1 FCreditClass From ", table))->RecordCount() > 0;
}

// --- Holders of credit

struct Holders {
  std::int32_t credit_class;
  std::string_view name;
  std::string_view table;
  std::string_view key;
  bool has_short_code;
  std::string_view condition;
};
constexpr Holders kHolders[] = {
    {0, "a customer", "t_Organization", "FItemID", true, ""},
    {1, "an employee", "t_Emp", "FItemID", true, ""},
    {2, "a department", "t_Department", "FItemID", true, ""},
    {3, "a class of customers", "t_SubMessage", "FInterID", false, " And t1.FTypeID=28"},
    {4, "a class of employees", "t_SubMessage", "FInterID", false, " And t1.FTypeID=29"},
};
// Of a class that does not exist there is nobody: its report has no rows.
constexpr Holders kNobody = {-1, "a holder", "t_Organization", "FItemID", true, " And 1=0"};

const Holders& HoldersOf(const Dictionary& filter) {
  const std::int32_t credit_class = filter.Get("FCreditClass").ToInt32();
  for (const Holders& holders : kHolders) {
    if (holders.credit_class == credit_class) return holders;
  }
  return kNobody;
}

std::string_view CodeOf(const Holders& holders, bool long_codes) {
  if (!holders.has_short_code) return "FID";
  return long_codes ? "FNumber" : "FShortNumber";
}

// Customers are shown to those who may see them.
std::string RightOf(Server& server, const Holders& holders) {
  if (holders.credit_class != 0) return "";
  const std::int32_t user = server.GetLogin().user_id;
  if (!DataRightInForce(server, user, RightKind::kCustomers)) return "";
  return Join(" And CharIndex('", user, "',t1.FRightUserID)>0");
}

// Makes `#Holders`(FItemID, FNumber, FName).
// clang-format off
std::string HoldersText(Server& server, const Holders& holders, std::string_view code, std::string_view range) {
  return Join(
      "Create Table #Holders(FItemID int not null,FNumber varchar(355) not null,FName varchar(355) not null)\r\n"
      "Insert Into #Holders(FItemID,FNumber,FName)\r\n"
      "Select t1.", holders.key, ",IsNull(t1.", code, ",''),IsNull(t1.FName,'')\r\n"
      "From ", holders.table, " t1\r\n"
      "Where 1=1", holders.condition, range, RightOf(server, holders), "\r\n");
}
// clang-format on

// The code of a holder that the filter names by its number.
std::string CodeOfNumber(Server& server, const Holders& holders, std::string_view code, std::string_view key,
                         const Variant& value) {
  const RecordsetRef rows =
      server.Query(Join("Select IsNull(t1.", code, ",'') FCode From ", holders.table, " t1 Where t1.",
                        holders.key, "=", value.ToInt32(), holders.condition));
  if (rows->RecordCount() == 0) Refuse(key, value, Join("the number of ", holders.name));
  return rows->Value(0).ToText();
}

std::string NumberRange(Server& server, const Holders& holders, std::string_view code,
                        const Dictionary& filter) {
  std::string range;
  const auto add = [&](std::string_view key, std::string_view relation) {
    const Variant& value = filter.Get(key);
    if (Trim(value.TextOrEmpty()).empty() || value.ToInt32() == 0) return;
    Append(range, " And t1.", code, relation, QuoteSql(CodeOfNumber(server, holders, code, key, value)));
  };
  add("FItemIDFrom", ">=");
  add("FItemIDTo", "<=");
  return range;
}

// --- Bills

// The bills that use credit up: v1 is the bill, v2 its line.
struct Bills {
  std::string_view tables;
  std::string_view customer;
  std::string_view condition;
};
constexpr Bills kBills[] = {
    {"SEContract v1\r\nInner Join SEContractEntry v2 On v1.FInterID=v2.FInterID\r\n", "v1.FCustID",
     "v1.FStatus>0"},
    {"SEOrder v1\r\nInner Join SEOrderEntry v2 On v1.FInterID=v2.FInterID\r\n", "v1.FCustID", "v1.FStatus>0"},
    {"ICStockBill v1\r\nInner Join ICStockBillEntry v2 On v1.FInterID=v2.FInterID\r\n", "v1.FSupplyID",
     "v1.FTranType=21 And (v1.FStatus>0 Or v1.FUpStockWhenSave>0)"},
    {"ICSale v1\r\nInner Join ICSaleEntry v2 On v1.FInterID=v2.FInterID\r\n", "v1.FCustID",
     "v1.FTranType In (80,86) And v1.FStatus>0"},
};
enum Group { kContracts, kOrders, kOutbound, kInvoices };

Group GroupOf(const Dictionary& filter) {
  const Variant& group = filter.Get("FGroupID");
  const std::int32_t number = group.ToInt32();
  if (number < kContracts || number > kInvoices) Refuse("FGroupID", group, "0 to 3");
  return static_cast<Group>(number);
}

// Whose credit a bill uses, and the join that tells.
struct BillHolder {
  std::string column;
  std::string join;
};

BillHolder HolderOf(const Holders& holders, const Bills& bills) {
  switch (holders.credit_class) {
    case 1:
      return {"v1.FEmpID", ""};
    case 2:
      return {"v1.FDeptID", ""};
    case 3:
      return {"h.FTypeID", Join("Inner Join t_Organization h On ", bills.customer, "=h.FItemID\r\n")};
    case 4:
      return {"h.FTypeID", "Inner Join t_Emp h On v1.FEmpID=h.FItemID\r\n"};
    default:
      return {std::string(bills.customer), ""};
  }
}

// --- Quantities

// clang-format off
std::string UsedQuantities(const Holders& holders, Group group, const Dictionary& filter) {
  const Bills& bills = kBills[group];
  const BillHolder holder = HolderOf(holders, bills);
  return Join(
      "Create Table #Used(FItemID int not null,FICItemID int not null,FQty decimal(23,10) not null)\r\n"
      "Insert Into #Used(FItemID,FICItemID,FQty)\r\n"
      "Select ", holder.column, ",v2.FItemID,Sum(v2.FQty)\r\n"
      "From ", bills.tables, holder.join,
      "Where ", bills.condition, " And v1.FCancelLation=0",
      DayCondition(filter.Get("BDate"), filter.Get("EDate")), "\r\n"
      "Group By ", holder.column, ",v2.FItemID\r\n");
}

std::string QuantityRows(const Holders& holders, bool long_codes, const Dictionary& filter) {
  const std::string coefficient = CoefficientOf("t4");
  return Join(
      "Select h.FNumber,h.FName,t2.FNumber FICNumber,t2.FShortNumber FICShortNumber,IsNull(t2.FName,'') FICName,\r\n"
      "  t2.FModel,IsNull(t3.FName,'') FUnitName,l.FCreditQty,IsNull(u.FQty,0) FQty,\r\n"
      "  l.FCreditQty-IsNull(u.FQty,0) FBalQty,IsNull(t4.FName,'') FSaleUnitName,\r\n"
      "  l.FCreditQty/", coefficient, " FSaleUnitCreditQty,IsNull(u.FQty,0)/", coefficient, " FSaleUnitQty,\r\n"
      "  (l.FCreditQty-IsNull(u.FQty,0))/", coefficient, " FSaleUnitBalQty\r\n"
      "From ICCreditQty l\r\n"
      "Inner Join #Holders h On l.FItemID=h.FItemID\r\n"
      "Inner Join t_ICItem t2 On l.FICItemID=t2.FItemID\r\n"
      "Left Join t_MeasureUnit t3 On t2.FUnitGroupID=t3.FUnitGroupID And t3.FStandard=1\r\n"
      "Left Join t_MeasureUnit t4 On t2.FSaleUnitID=t4.FMeasureUnitID\r\n"
      "Left Join #Used u On l.FItemID=u.FItemID And l.FICItemID=u.FICItemID\r\n"
      "Where l.FCreditClass=", holders.credit_class,
      RangeCondition(filter, long_codes ? "t2.FNumber" : "t2.FShortNumber", "FICItemIDFrom", "FICItemIDTo"), "\r\n"
      "Order By h.FNumber,h.FItemID,", long_codes ? "t2.FNumber" : "t2.FShortNumber", ",t2.FItemID\r\n"
      "Drop Table #Used\r\n"
      "Drop Table #Holders");
}
// clang-format on

// --- Amounts

// What is converted into.
struct Conversion {
  std::int32_t currency;
  std::string rate;  // base currency in one of it, as a number of the batch
  std::int32_t scale;
};

Conversion ConversionOf(Server& server, const Dictionary& filter, const Variant& rate) {
  const Variant& wanted = filter.Get("FCurrencyID");
  const std::int32_t currency = Trim(wanted.TextOrEmpty()).empty() ? kBaseCurrency : wanted.ToInt32();
  if (currency == kBaseCurrency || currency == 0) return {kBaseCurrency, "1", BaseCurrencyScale(server)};
  const RecordsetRef rows =
      server.Query(Join("Select FExchangeRate,FScale From t_Currency Where FCurrencyID=", currency));
  if (rows->RecordCount() == 0) Refuse("FCurrencyID", wanted, "the number of a currency");
  const bool given = !Trim(rate.TextOrEmpty()).empty() && rate.ToDouble() != 0;
  const Variant used = given ? rate : rows->Value(0);
  if (used.ToDouble() <= 0) Refuse("the rate of exchange", used, "a number above 0");
  return {currency, Join("Convert(decimal(23,10),", NumberText(used.ToDouble()), ")"),
          rows->Value(1).ToInt32()};
}

// What is owed for a line of a bill, in the bill's currency and in base currency.
struct Owed {
  std::string_view joins;
  std::string_view currency;
  std::string amount;
  std::string base_amount;
};

// clang-format off
// What was received for outbound lines, by the invoices that were made from them.
constexpr std::string_view kPaid =
    "Create Table #Paid(FInterID int not null,FEntryID int not null,FAmount decimal(23,10) not null)\r\n"
    "Insert Into #Paid(FInterID,FEntryID,FAmount)\r\n"
    "Select v2.FSourceInterID,v2.FSourceEntryID,Sum(v2.FReceiveAmount)\r\n"
    "From ICSale v1\r\n"
    "Inner Join ICSaleEntry v2 On v1.FInterID=v2.FInterID\r\n"
    "Where v1.FTranType In (80,86) And v1.FStatus>0 And v1.FCancelLation=0 And v2.FSourceTranType=21\r\n"
    "Group By v2.FSourceInterID,v2.FSourceEntryID\r\n";

// The sale amount of an outbound line is without tax: its order tells the rate, or else the item.
Owed OutboundOwed(std::int16_t scale) {
  const std::string amount = Join(
      "Round(v2.FConsignAmount*(1+IsNull(e.FTaxRate,t2.FTaxRate)/100),", scale, ")-IsNull(p.FAmount,0)");
  return {"Inner Join t_ICItem t2 On v2.FItemID=t2.FItemID\r\n"
          "Left Join SEOrderEntry e On v2.FOrderInterID=e.FInterID And v2.FOrderEntryID=e.FEntryID\r\n"
          "Left Join #Paid p On v2.FInterID=p.FInterID And v2.FEntryID=p.FEntryID\r\n",
          "1", amount, amount};
}

Owed OwedOf(Group group, std::int16_t scale) {
  switch (group) {
    case kOutbound:
      return OutboundOwed(scale);
    case kInvoices:
      return {"", "v1.FCurrencyID",
              "v2.FAmount+(Case v1.FTranType When 80 Then v2.FTaxAmount Else 0 End)-v2.FReceiveAmountFor",
              "v2.FStdAmount+(Case v1.FTranType When 80 Then v2.FStdTaxAmount Else 0 End)-v2.FReceiveAmount"};
    default:
      return {"", "v1.FCurrencyID", "v2.FAllAmount-v2.FReceiveAmountFor", "v2.FStdAllAmount-v2.FReceiveAmount"};
  }
}

// Makes `#Used`: what is owed, by holder, currency and day.
std::string UsedAmounts(const Holders& holders, Group group, std::int16_t scale, std::string_view days) {
  const Bills& bills = kBills[group];
  const BillHolder holder = HolderOf(holders, bills);
  const Owed owed = OwedOf(group, scale);
  return Join(
      group == kOutbound ? kPaid : "",
      "Create Table #Used(FItemID int not null,FCurrencyID int not null,FDate datetime not null,\r\n"
      "  FAmountFor decimal(23,10) not null,FAmount decimal(23,10) not null)\r\n"
      "Insert Into #Used(FItemID,FCurrencyID,FDate,FAmountFor,FAmount)\r\n"
      "Select ", holder.column, ",", owed.currency, ",v1.FDate,Sum(", owed.amount, "),Sum(", owed.base_amount, ")\r\n"
      "From ", bills.tables, holder.join, owed.joins,
      "Where ", bills.condition, " And v1.FCancelLation=0", days, "\r\n"
      "Group By ", holder.column, ",", group == kOutbound ? "" : "v1.FCurrencyID,", "v1.FDate\r\n");
}

// Makes `#Targets`: the currency of the limit that a holder's bills in a currency use. The base currency has
// the lowest number.
std::string Targets(const Holders& holders) {
  return Join(
      "Create Table #Targets(FItemID int not null,FCurrencyID int not null,FLimitID int not null)\r\n"
      "Insert Into #Targets(FItemID,FCurrencyID,FLimitID)\r\n"
      "Select u.FItemID,u.FCurrencyID,\r\n"
      "  IsNull(Max(Case When l.FCurrencyID=u.FCurrencyID Then l.FCurrencyID Else Null End),Min(l.FCurrencyID))\r\n"
      "From #Used u\r\n"
      "Inner Join ICCreditAmount l On u.FItemID=l.FItemID\r\n"
      "Where l.FCreditClass=", holders.credit_class, "\r\n"
      "Group By u.FItemID,u.FCurrencyID\r\n");
}

// Makes `#Taken`: what of each limit is used, in its currency.
constexpr std::string_view kTaken =
    "Create Table #Taken(FItemID int not null,FLimitID int not null,FAmount decimal(23,10) null)\r\n"
    "Insert Into #Taken(FItemID,FLimitID,FAmount)\r\n"
    "Select u.FItemID,t.FLimitID,Round(Sum(Case When u.FCurrencyID=t.FLimitID Then u.FAmountFor\r\n"
    "  When t.FLimitID=1 Then u.FAmount\r\n"
    "  Else u.FAmount/Convert(decimal(23,10),c.FExchangeRate) End),IsNull(Max(c.FScale),2))\r\n"
    "From #Used u\r\n"
    "Inner Join #Targets t On u.FItemID=t.FItemID And u.FCurrencyID=t.FCurrencyID\r\n"
    "Left Join t_Currency c On t.FLimitID=c.FCurrencyID\r\n"
    "Group By u.FItemID,t.FLimitID\r\n";

// A currency that the account set does not know has no rate: nothing is converted then.
std::string AmountRows(const Holders& holders, const Conversion& conversion) {
  return Join(
      "Create Table #Rows(FItemID int not null,FCurrencyID int not null,FCreditLevel varchar(355) null,\r\n"
      "  FStdAmt decimal(23,10) null,FCreditStdAmt decimal(23,10) null,FRate decimal(23,10) null,\r\n"
      "  FAmt decimal(23,10) null,FCreditAmt decimal(23,10) null)\r\n"
      "Insert Into #Rows(FItemID,FCurrencyID,FCreditLevel,FStdAmt,FCreditStdAmt,FRate)\r\n"
      "Select l.FItemID,l.FCurrencyID,l.FCreditLevel,\r\n"
      "  Case When u.FItemID Is Null Then 0 Else u.FAmount End,l.FCreditAmount,\r\n"
      "  Case l.FCurrencyID When 1 Then 1 When ", conversion.currency, " Then ", conversion.rate,
      " Else Convert(decimal(23,10),c.FExchangeRate) End\r\n"
      "From ICCreditAmount l\r\n"
      "Inner Join #Holders h On l.FItemID=h.FItemID\r\n"
      "Left Join t_Currency c On l.FCurrencyID=c.FCurrencyID\r\n"
      "Left Join #Taken u On l.FItemID=u.FItemID And l.FCurrencyID=u.FLimitID\r\n"
      "Where l.FCreditClass=", holders.credit_class, "\r\n"
      "Update #Rows Set FAmt=Round(FStdAmt*FRate/", conversion.rate, ",", conversion.scale, "),\r\n"
      "  FCreditAmt=Round(FCreditStdAmt*FRate/", conversion.rate, ",", conversion.scale, ")\r\n"
      "Select h.FNumber,h.FName,r.FCreditLevel,IsNull(c.FName,'') FCurrencyName,r.FStdAmt,r.FAmt,r.FCreditStdAmt,\r\n"
      "  r.FCreditAmt,r.FCreditStdAmt-r.FStdAmt FBalStdAmt,r.FCreditAmt-r.FAmt FBalAmt\r\n"
      "From #Rows r\r\n"
      "Inner Join #Holders h On r.FItemID=h.FItemID\r\n"
      "Left Join t_Currency c On r.FCurrencyID=c.FCurrencyID\r\n"
      "Order By h.FNumber,h.FItemID,r.FCurrencyID\r\n"
      "Drop Table #Rows\r\n"
      "Drop Table #Taken\r\n"
      "Drop Table #Targets\r\n"
      "Drop Table #Used\r\n"
      "Drop Table #Holders");
}

// --- Terms

// Makes `#Aged`: what is owed by limit and day, converted, with the days within which the best discount that
// is still left has to be paid.
std::string Aged(const Holders& holders, const Conversion& conversion, std::string_view day) {
  return Join(
      "Create Table #Aged(FItemID int not null,FLimitID int not null,FDays int null,FAmount decimal(23,10) not null)\r\n"
      "Insert Into #Aged(FItemID,FLimitID,FDays,FAmount)\r\n"
      "Select u.FItemID,t.FLimitID,Min(d.FDays),\r\n"
      "  Case When u.FCurrencyID=", conversion.currency, " Then u.FAmountFor\r\n"
      "  Else u.FAmount/", conversion.rate, " End\r\n"
      "From #Used u\r\n"
      "Inner Join #Targets t On u.FItemID=t.FItemID And u.FCurrencyID=t.FCurrencyID\r\n"
      "Left Join ICCreditDiscount d On u.FItemID=d.FItemID And d.FCreditClass=", holders.credit_class, "\r\n"
      "  And d.FDays>=DateDiff(day,u.FDate,'", day, "')\r\n"
      "Group By u.FItemID,t.FLimitID,u.FCurrencyID,u.FDate,u.FAmountFor,u.FAmount\r\n");
}

std::string TermRows(const Holders& holders, const Conversion& conversion) {
  return Join(
      "Create Table #Rows(FItemID int not null,FLimitID int not null,FDays int null,FAmount decimal(23,10) not null)\r\n"
      "Insert Into #Rows(FItemID,FLimitID,FDays,FAmount)\r\n"
      "Select FItemID,FLimitID,FDays,Round(Sum(FAmount),", conversion.scale, ") From #Aged\r\n"
      "Group By FItemID,FLimitID,FDays Having Round(Sum(FAmount),", conversion.scale, ")<>0\r\n"
      "Select h.FNumber,h.FName,l.FCreditTime,l.FCreditLevel,r.FAmount,\r\n"
      "  Convert(float,IsNull(d.FDiscountRate,0)) FDiscountRate,\r\n"
      "  Round(r.FAmount*(1-IsNull(d.FDiscountRate,0)/100),", conversion.scale, ") FDicAmount\r\n"
      "From #Rows r\r\n"
      "Inner Join #Holders h On r.FItemID=h.FItemID\r\n"
      "Inner Join ICCreditAmount l On r.FItemID=l.FItemID And r.FLimitID=l.FCurrencyID\r\n"
      "Left Join ICCreditDiscount d On r.FItemID=d.FItemID And r.FDays=d.FDays And d.FCreditClass=l.FCreditClass\r\n"
      "Where l.FCreditClass=", holders.credit_class, " And l.FCreditTime>0\r\n"
      "Order By h.FNumber,h.FItemID,r.FLimitID,Case When r.FDays Is Null Then 1 Else 0 End,r.FDays\r\n"
      "Drop Table #Rows\r\n"
      "Drop Table #Aged\r\n"
      "Drop Table #Targets\r\n"
      "Drop Table #Used\r\n"
      "Drop Table #Holders");
}
// clang-format on

}  // namespace

std::string CreditByQuantity(Server& server, const Dictionary& filter) {
  if (!HasLimits(server, "ICCreditQty")) return "";
  const Holders& holders = HoldersOf(filter);
  const bool long_codes = LongCodesInUse(server, filter);
  const std::string_view code = CodeOf(holders, long_codes);
  return Join(HoldersText(server, holders, code,
                          RangeCondition(filter, Join("t1.", code), "FItemIDFrom", "FItemIDTo")),
              UsedQuantities(holders, GroupOf(filter), filter), QuantityRows(holders, long_codes, filter));
}

std::string CreditByAmount(Server& server, const Dictionary& filter) {
  if (!HasLimits(server, "ICCreditAmount")) return "";
  const Holders& holders = HoldersOf(filter);
  const std::string_view code = CodeOf(holders, LongCodesInUse(server, filter));
  const Conversion conversion = ConversionOf(server, filter, filter.Get("FExchangeRate"));
  return Join(HoldersText(server, holders, code, NumberRange(server, holders, code, filter)),
              UsedAmounts(holders, GroupOf(filter), BaseCurrencyScale(server),
                          DayCondition(filter.Get("BDate"), filter.Get("EDate"))),
              Targets(holders), kTaken, AmountRows(holders, conversion));
}

std::string CreditByTerm(Server& server, const Dictionary& filter) {
  if (!HasLimits(server, "ICCreditAmount Where FCreditTime>0")) return "";
  const Holders& holders = HoldersOf(filter);
  const std::string_view code = CodeOf(holders, LongCodesInUse(server, filter));
  const Variant rate = filter.Get(filter.Lookup("FRate") ? "FRate" : "FExchangeRate");
  const Conversion conversion = ConversionOf(server, filter, rate);
  const Variant& date = filter.Get("FDate");
  if (date.IsNull() || date.IsEmptyText()) {
    throw RuntimeError(error_number::kInvalidCall, "", "FDate is missing; a date was expected");
  }
  const std::string day = date.ToDate().Format('/');
  return Join(HoldersText(server, holders, code, NumberRange(server, holders, code, filter)),
              UsedAmounts(holders, kInvoices, BaseCurrencyScale(server),
                          Join(" And convert(datetime,convert(varchar(30),v1.FDate,111))<='", day, "'")),
              Targets(holders), Aged(holders, conversion, day), TermRows(holders, conversion));
}

}  // namespace salerpt::middletier
