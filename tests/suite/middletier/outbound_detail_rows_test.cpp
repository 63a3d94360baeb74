// Sales outbound detail on a generated account set: lines, subtotals and groupings beside plain SQL.
#include <algorithm>
#include <set>

#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

const std::vector<Dictionary::Entry> kEverything = {{"BDate", Date::FromYmd(2023, 1, 1)},
                                                    {"EDate", Date::FromYmd(2027, 12, 31)},
                                                    {"CheckState", 2},
                                                    {"OnlyShowSum", 0}};

// Outbound lines and invoice lines under one another. An outbound line has cost and sale amount, an invoice
// line its amount without tax in its own currency and in base currency.
std::string Lines(const std::string& outbound, const std::string& invoices) {
  return Join(
      "WITH lines AS (SELECT date(b.FDate) day, b.FBillNo bill, e.FEntryID entry, o.FNumber cust,"
      " o.FShortNumber cust_short, o.FName cust_name, s.FName region, i.FNumber item, i.FName item_name,"
      " i.FModel model, i.FQtyDecimal places, k.FName stock, a.FName aux, e.FBatchNo batch, l.FName unit,"
      " '' currency, e.FAuxQty aux_out, e.FQty out, half_up(e.FAmount,2) cost, half_up(e.FConsignAmount,2) "
      "sale,"
      " 0 aux_commit, 0 commit_qty, 0 bill_amount, 0 base_amount, e.FQty*1.0/u.FCoefficient common_out,"
      " 0 common_commit, e.FSecQty sec_out, 0 sec_commit, half_up(e.FConsignPrice,2) price"
      " FROM ICStockBill b JOIN ICStockBillEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID"
      " LEFT JOIN t_Organization o ON o.FItemID=b.FSupplyID LEFT JOIN t_Stock k ON k.FItemID=e.FDCStockID"
      " LEFT JOIN t_AuxItem a ON a.FItemID=e.FAuxPropID JOIN t_MeasureUnit l ON l.FMeasureUnitID=e.FUnitID"
      " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID LEFT JOIN t_SubMessage s ON "
      "s.FInterID=o.FRegionID"
      " WHERE b.FTranType=21 AND b.FCancelLation=0",
      outbound,
      " UNION ALL SELECT date(b.FDate), b.FBillNo, e.FEntryID, o.FNumber, o.FShortNumber, o.FName, s.FName,"
      " i.FNumber, i.FName, i.FModel, i.FQtyDecimal, NULL, a.FName, e.FBatchNo, l.FName, c.FName, 0, 0, 0, 0,"
      " e.FAuxQty, e.FQty, half_up(e.FAmount-(b.FTranType=86)*e.FTaxAmount,c.FScale),"
      " half_up((e.FAmount-(b.FTranType=86)*e.FTaxAmount)*b.FExchangeRate,2), 0, e.FQty*1.0/u.FCoefficient,"
      " 0, e.FSecQty, 0"
      " FROM ICSale b JOIN ICSaleEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID"
      " LEFT JOIN t_Organization o ON o.FItemID=b.FCustID JOIN t_Currency c ON c.FCurrencyID=b.FCurrencyID"
      " LEFT JOIN t_AuxItem a ON a.FItemID=e.FAuxPropID JOIN t_MeasureUnit l ON l.FMeasureUnitID=e.FUnitID"
      " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID LEFT JOIN t_SubMessage s ON "
      "s.FInterID=o.FRegionID"
      " WHERE b.FTranType IN (80,86) AND b.FCancelLation=0",
      invoices, ") ");
}

const std::vector<const char*> kNumbers = {"FAuxOutQty",       "FOutQty",         "FOutAmount",
                                           "FConsignAmount",   "FAuxCommitQty",   "FCommitQty",
                                           "FCommitAmount",    "FGlCommitAmount", "FCUUnitOutQty",
                                           "FCUUnitCommitQty", "FSecQty",         "FSecInvoiceQty"};
constexpr const char* kValues =
    "aux_out,out,cost,sale,aux_commit,commit_qty,bill_amount,base_amount,common_out,common_commit,sec_out,"
    "sec_commit";
constexpr const char* kSums =
    "sum(aux_out),sum(out),sum(cost),sum(sale),sum(aux_commit),sum(commit_qty),sum(bill_amount),sum(base_"
    "amount),"
    "sum(common_out),sum(common_commit),sum(sec_out),sum(sec_commit)";
// Subtotals by item and by day sum what the lines show: quantities at the item's decimals.
constexpr const char* kShownSums =
    "sum(half_up(aux_out,places)),sum(half_up(out,places)),sum(cost),sum(sale),sum(half_up(aux_commit,places)"
    "),"
    "sum(half_up(commit_qty,places)),sum(bill_amount),sum(base_amount),sum(half_up(common_out,places)),"
    "sum(half_up(common_commit,places)),sum(half_up(sec_out,places)),sum(half_up(sec_commit,places))";

// What a choice in the dialog is in plain SQL: for both kinds of bill, and the choices themselves.
struct Choice {
  const char* name;
  std::vector<Dictionary::Entry> chosen;
  std::string condition;
};

class OutboundRows : public ReportRows {
 protected:
  static RecordsetRef Fetch(const std::vector<Dictionary::Entry>& more) {
    std::vector<Dictionary::Entry> chosen = kEverything;
    chosen.insert(chosen.end(), more.begin(), more.end());
    return RowsOf("ORVSaleRpt.Rpt129", "frmFirter129", chosen);
  }
  static RecordsetRef FetchLines(int item_sum, int date_sum, std::vector<Dictionary::Entry> more = {}) {
    more.emplace_back("GroupBy", 0);
    more.emplace_back("chkShowItemSum", item_sum);
    more.emplace_back("chkShowDateSum", date_sum);
    return Fetch(more);
  }
  static std::vector<PlainRow> Of(const std::string& select, int keys, const std::string& condition = "") {
    return Plain(Lines(condition, condition) + select, keys);
  }
  static void ExpectLines(const RecordsetRef& rows, const std::string& condition = "") {
    ExpectRows(Sorted(Pick(rows, 0, 0, {"FBillNo", "FEntryID", "FNumber"}, kNumbers)),
               Sorted(Of(Join("SELECT bill,entry,item,", kValues, " FROM lines"), 3, condition)));
  }
  static void ExpectTotal(const RecordsetRef& rows, const char* label, const char* sums) {
    ExpectRows(Pick(rows, 101, 200, {label, "FSumSort"}, kNumbers),
               Of(Join("SELECT '合计',101,", sums, " FROM lines"), 2));
    const std::vector<PlainRow> all = Pick(rows, 0, 200, {"FSumSort"}, {});
    EXPECT_EQ(all.back().key, "101");
  }
};

// --- Line by line

TEST_F(OutboundRows, EveryLineIsThatOfItsBill) {
  for (const auto& [item_sum, date_sum] : {std::pair(0, 0), std::pair(1, 0), std::pair(0, 1)})
    ExpectLines(FetchLines(item_sum, date_sum));
}

TEST_F(OutboundRows, EveryLineTellsDayCustomerItemStockPropertyBatchUnitAndCurrency) {
  const std::vector<const char*> fields = {
      "FBillNo", "FEntryID", "FDate",   "FCustNumber",  "FCustShortNumber", "FCustName",    "FNumber",
      "FName",   "FModel",   "FDStock", "FAuxPropName", "FBatchNo",         "FAuxUnitName", "FCurrencyName"};
  ExpectRows(
      Sorted(Pick(FetchLines(1, 0), 0, 0, fields, {"FQtyDecimal", "FSaleUnitPrice"})),
      Sorted(Of("SELECT bill,entry,day,cust,cust_short,cust_name,item,item_name,model,stock,aux,batch,unit,"
                "currency,places,price FROM lines",
                14)));
}

TEST_F(OutboundRows, EveryLineNamesBaseCommonAndSecondaryUnitAndTheShortCodeOfItsItem) {
  const std::vector<PlainRow> items = Plain(
      "SELECT i.FNumber,i.FShortNumber,b.FName,u.FName,CASE s.FName WHEN '*' THEN '' ELSE s.FName END FROM "
      "t_ICItem i"
      " JOIN t_MeasureUnit b ON b.FUnitGroupID=i.FUnitGroupID AND b.FStandard=1 JOIN t_MeasureUnit u ON"
      " u.FMeasureUnitID=i.FSaleUnitID LEFT JOIN t_MeasureUnit s ON s.FMeasureUnitID=i.FSecUnitID ORDER BY 1",
      5);
  for (const PlainRow& row :
       Pick(FetchLines(0, 0), 0, 0, {"FNumber", "FShortNumber", "FUnitName", "FCUUnitName", "FSecUnitName"},
            {}))
    EXPECT_TRUE(std::ranges::binary_search(items, row.key, {}, &PlainRow::key)) << row.key;
}

TEST_F(OutboundRows, BehindTheLinesOfAnItemStandsItsSubtotal) {
  const RecordsetRef rows = FetchLines(1, 0);
  ExpectRows(
      Pick(rows, 100, 100, {"FNumber", "FName"}, kNumbers),
      Of(Join("SELECT item,item_name||'(小计)',", kShownSums, " FROM lines GROUP BY item ORDER BY item"), 2));
  ExpectTotal(rows, "FName", kShownSums);
  std::set<std::string> done;
  for (const PlainRow& row : Pick(rows, 0, 100, {"FNumber", "FSumSort"}, {})) {
    const std::string item = row.key.substr(0, row.key.find('|'));
    EXPECT_FALSE(done.contains(item)) << item;
    if (row.key.ends_with("|100")) done.insert(item);
  }
}

TEST_F(OutboundRows, BehindTheLinesOfADayStandsItsSubtotal) {
  const RecordsetRef rows = FetchLines(0, 1);
  ExpectRows(Pick(rows, 100, 100, {"FDate", "FNumber", "FName"}, kNumbers),
             Of(Join("SELECT day||'(小计)','','',", kShownSums, " FROM lines GROUP BY day ORDER BY day"), 3));
  ExpectTotal(rows, "FDate", kShownSums);
  std::set<std::string> done;
  for (const PlainRow& row : Pick(rows, 0, 100, {"FDate", "FSumSort"}, {})) {
    const std::string day = row.key.substr(0, 10);
    EXPECT_FALSE(done.contains(day)) << day;
    if (row.key.ends_with("|100")) done.insert(day);
  }
}

TEST_F(OutboundRows, WithoutSubtotalsTheTotalSumsTheLinesAsTheyAre) {
  const RecordsetRef rows = FetchLines(0, 0);
  EXPECT_TRUE(Pick(rows, 100, 100, {"FNumber"}, {}).empty());
  ExpectTotal(rows, "FName", kSums);
}

TEST_F(OutboundRows, LinesStandByDayBillAndLineOrAsAskedFor) {
  const std::vector<const char*> keys = {"FDate", "FBillNo", "FEntryID", "FNumber"};
  const char* columns = "SELECT day,bill,entry,item FROM lines ORDER BY ";
  ExpectRows(Pick(FetchLines(0, 0), 0, 0, keys, {}), Of(Join(columns, "day,bill,entry"), 4));
  ExpectRows(Pick(FetchLines(1, 0), 0, 0, keys, {}), Of(Join(columns, "item,day,bill,entry"), 4));
  ExpectRows(Pick(FetchLines(0, 1), 0, 0, keys, {}), Of(Join(columns, "day,item,bill,entry"), 4));
  ExpectRows(Pick(FetchLines(0, 0, {{"OrderBy", "FBillNo DESC"}}), 0, 0, keys, {}),
             Of(Join(columns, "bill DESC,entry"), 4));
  ExpectRows(Pick(FetchLines(1, 0, {{"OrderBy", "FNumber ASC"}}), 0, 0, keys, {}),
             Of(Join(columns, "item,day,bill,entry"), 4));
  ExpectRows(Pick(FetchLines(1, 0, {{"OrderBy", "FNumber ASC,FBillNo DESC"}}), 0, 0, keys, {}),
             Of(Join(columns, "item,bill DESC,entry"), 4));
}

TEST_F(OutboundRows, OnlyTheTotalIsTheTotalAlone) {
  for (const auto& [item_sum, date_sum] : {std::pair(0, 0), std::pair(1, 0), std::pair(0, 1)}) {
    ExpectRows(Pick(FetchLines(item_sum, date_sum, {{"OnlyShowSum", 1}}), 0, 200, {"FSumSort"}, kNumbers),
               Pick(FetchLines(item_sum, date_sum), 101, 200, {"FSumSort"}, kNumbers), 0);
  }
}

// Sums over nothing still give a row, which tells nothing.
TEST_F(OutboundRows, NoLinesGiveATotalOfNothing) {
  for (const auto& [item_sum, date_sum] : {std::pair(0, 0), std::pair(1, 0), std::pair(0, 1)}) {
    const std::vector<PlainRow> rows =
        Pick(FetchLines(item_sum, date_sum, {{"BItemNumber", "99"}}), 0, 200, {"FSumSort"}, kNumbers);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].key, "101");
    EXPECT_EQ(rows[0].numbers, std::vector<double>(kNumbers.size()));
  }
}

// --- The groupings

// A name that several items, customers or classes have is one group: the report groups by names.
std::string ClassAt(int level) {
  return Join("(SELECT t.name FROM class_at t WHERE t.item_class=4 AND t.level=", level,
              " AND t.code=item),");
}

struct Case {
  int mode;
  int from;
  int to;
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
  static std::string Name(const Case& c) { return Join("Mode", c.mode, "Levels", c.from, "To", c.to); }
};

class OutboundGroupings : public OutboundRows, public testing::WithParamInterface<Case> {
 protected:
  static RecordsetRef FetchGroups(const Case& c, std::vector<Dictionary::Entry> more = {}) {
    more.insert(more.end(), {{"GroupBy", 1}, {"SumMode", c.mode}, {"BLevel", c.from}, {"ELevel", c.to}});
    return Fetch(more);
  }

  static void ExpectGroups(const RecordsetRef& rows, const Case& c, const std::string& condition = "") {
    std::string plain;
    std::vector<std::string> fields;
    std::vector<Group> groups;
    const auto add = [&](const std::string& column, const std::string& field, std::int32_t code) {
      plain += column;
      fields.push_back(field);
      groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, code});
    };
    Group total{0, {{0, "合计"}}, 101};
    if (c.mode == 4) add("cust_name,", "FCustName", c.from + 105);
    if (c.mode == 5) add("cust_name,", "FProp01", 102);
    for (int i = c.from; i <= c.to && c.mode < 5; ++i) add(ClassAt(i), Join("FName", i), i + 106);
    if (c.mode == 3) {
      add("cust_name,", "FCustName", c.to + 107);
      total.labels.push_back({fields.size() - 1, "合计"});
    }
    fields.emplace_back("FNumber");
    std::string columns = "1";
    for (int i = 2; i <= static_cast<int>(fields.size()); ++i) columns += Join(",", i);
    // Grouped by customer, lines without one fall out.
    const std::vector<PlainRow> details =
        Of(Join("SELECT ", plain, "item,", kSums, " FROM lines", c.mode == 5 ? " WHERE cust IS NOT NULL" : "",
                " GROUP BY ", columns),
           static_cast<int>(fields.size()), condition);
    std::vector<const char*> keys;
    for (const std::string& field : fields) keys.push_back(field.c_str());
    const std::vector<PlainRow> expected =
        RolledUp(InOrderOf(details, Pick(rows, 0, 0, keys, kNumbers)), groups, total);
    keys.push_back("FSumSort");
    ExpectRows(Pick(rows, 0, 200, keys, kNumbers), expected);
  }
};

TEST_P(OutboundGroupings, EveryRowIsThatOfTheTables) {
  ExpectGroups(FetchGroups(GetParam()), GetParam());
  ExpectGroups(FetchGroups(GetParam(), {{"chkShowItemSum", 0}, {"chkShowDateSum", 1}, {"AuxProp", 0}}),
               GetParam());
}

TEST_P(OutboundGroupings, EveryDetailNamesItsItem) {
  const std::vector<PlainRow> items =
      Plain("SELECT FNumber,FShortNumber,FName,FModel FROM t_ICItem ORDER BY 1", 4);
  for (const PlainRow& row :
       Pick(FetchGroups(GetParam()), 0, 0, {"FNumber", "FShortNumber", "FName", "FModel"}, {}))
    EXPECT_TRUE(std::ranges::binary_search(items, row.key, {}, &PlainRow::key)) << row.key;
}

TEST_P(OutboundGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  ExpectRows(Pick(FetchGroups(GetParam(), {{"OnlyShowSum", 1}}), 0, 200, {"FSumSort"}, kNumbers),
             Pick(FetchGroups(GetParam()), 101, 200, {"FSumSort"}, kNumbers), 0);
}

TEST_P(OutboundGroupings, ChoicesNarrowTheLines) {
  ExpectGroups(FetchGroups(GetParam(), {{"BItemNumber", "01.02"}, {"ECustNumber", "03"}, {"CheckState", 0}}),
               GetParam(), " AND i.FNumber>='01.02' AND o.FNumber<='03' AND b.FStatus>0");
  RegisterMiddleTier(runtime_, Set().Get(), {.user_id = 16395});
  ExpectGroups(FetchGroups(GetParam(), {{"FROB", 1}}), GetParam(),
               " AND b.FROB=1 AND instr(o.FRightUserID,'16395')>0");
}

TEST_P(OutboundGroupings, NoLinesGiveNoRows) {
  EXPECT_EQ(FetchGroups(GetParam(), {{"BItemNumber", "99"}})->RecordCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, OutboundGroupings,
                         testing::Values(Case{1, 1, 1}, Case{1, 1, 3}, Case{1, 2, 2}, Case{3, 1, 2},
                                         Case{3, 2, 3}, Case{4, 1, 2}, Case{4, 2, 3}, Case{5, 1, 1}),
                         [](const auto& test) { return Case::Name(test.param); });

// The levels are joined on the item, and classes of customers hold no items.
TEST_F(OutboundRows, ClassesOfCustomersHaveNoRows) {
  EXPECT_EQ(Fetch({{"GroupBy", 1}, {"SumMode", 2}, {"BLevel", 1}, {"ELevel", 2}})->RecordCount(), 0);
}

TEST_F(OutboundRows, PropertiesGroupByTheirColumnOrByTheTextInTheirTable) {
  const auto expect = [](const char* field, const char* plain, int item_class, int id, const char* column,
                         const char* table) {
    auto property = std::make_shared<Dictionary>();
    property->Set("FItemClassID", item_class);
    property->Set("FPropID", id);
    property->Set("FSQLColumnName", column);
    property->Set("FSrcTable", table);
    property->Set("FSrcField", "FInterID");
    property->Set("FDisplayField", "FName");
    const RecordsetRef rows = Fetch({{"GroupBy", 1}, {"SumMode", 0}, {"SumField", Variant(property)}});
    const std::vector<PlainRow> details =
        Of(Join("SELECT ", plain, ",item,", kSums, " FROM lines WHERE cust IS NOT NULL GROUP BY 1,2"), 2);
    ExpectRows(Pick(rows, 0, 200, {field, "FNumber", "FSumSort"}, kNumbers),
               RolledUp(InOrderOf(details, Pick(rows, 0, 0, {field, "FNumber"}, kNumbers)),
                        {{1, {{0, "(小计)"}}, 102}}, {0, {{0, "合计"}}, 101}));
  };
  expect("FProp1011", "region", 1, 101, "FRegionID", "t_SubMessage");
  expect("FProp1054", "model", 4, 105, "FModel", "");
}

// --- The filter, key by key

const std::vector<Choice>& Choices() {
  static const std::vector<Choice> choices = {
      {"Audited", {{"CheckState", 0}}, " AND b.FStatus>0"},
      {"NotAudited", {{"CheckState", 1}}, " AND b.FStatus=0"},
      {"Blue", {{"FROB", 1}}, " AND b.FROB=1"},
      {"Red", {{"FROB", 2}}, " AND b.FROB=-1"},
      {"Days",
       {{"BDate", Date::FromYmd(2023, 6, 15)}, {"EDate", Date::FromYmd(2024, 2, 29)}},
       " AND date(b.FDate) BETWEEN '2023-06-15' AND '2024-02-29'"},
      {"Items",
       {{"BItemNumber", "01.02"}, {"EItemNumber", "02.99"}},
       " AND i.FNumber BETWEEN '01.02' AND '02.99'"},
      {"Customers",
       {{"BCustNumber", "01.03"}, {"ECustNumber", "03"}},
       " AND o.FNumber BETWEEN '01.03' AND '03'"},
      {"Batches",
       {{"BBatchNo", "P2301-06"}, {"EBatchNo", "P2312"}},
       " AND e.FBatchNo BETWEEN 'P2301-06' AND 'P2312'"},
      {"UpToABatch", {{"EBatchNo", "P2301-06"}}, " AND e.FBatchNo<='P2301-06'"},
      {"SaleStyle", {{"SaleType", 103}}, " AND b.FSaleStyle=103"},
      {"Services", {{"CommodityType", 1}}, " AND i.FErpClsID=4"},
      {"NoServices", {{"CommodityType", 2}}, " AND i.FErpClsID<>4"},
      {"NextTimeWithoutDialog", {{"chkNextChoose", 1}}, ""},
      {"BatchesOfACustomer",
       {{"BBatchNo", "P"}, {"BCustNumber", "01"}, {"ECustNumber", "03"}, {"CheckState", 0}},
       " AND e.FBatchNo>='P' AND o.FNumber BETWEEN '01' AND '03' AND b.FStatus>0"}};
  return choices;
}

class OutboundNarrowed : public OutboundRows, public testing::WithParamInterface<std::size_t> {};

TEST_P(OutboundNarrowed, ToTheLinesOfTheChoice) {
  const Choice& choice = Choices()[GetParam()];
  ExpectLines(FetchLines(1, 0, choice.chosen), choice.condition);
  ExpectLines(FetchLines(0, 1, choice.chosen), choice.condition);
}

INSTANTIATE_TEST_SUITE_P(All, OutboundNarrowed, testing::Range(std::size_t{0}, Choices().size()),
                         [](const auto& test) { return std::string(Choices()[test.param].name); });

TEST_F(OutboundRows, ADataRightNarrowsTheLinesTogetherWithAChoice) {
  RegisterMiddleTier(runtime_, Set().Get(), {.user_id = 16395});
  ExpectLines(FetchLines(1, 0), " AND instr(o.FRightUserID,'16395')>0");
  ExpectLines(FetchLines(0, 0, {{"EItemNumber", "02"}}),
              " AND instr(o.FRightUserID,'16395')>0 AND i.FNumber<='02'");
}

TEST_F(OutboundRows, ShortCodesNarrowItemsAndCustomers) {
  Set().Run("UPDATE t_SystemProfile SET FValue='1' WHERE FKey='UseShortNumber'");
  const RecordsetRef rows = FetchLines(1, 0, {{"BItemNumber", "0030"}, {"ECustNumber", "0040"}});
  Set().Run("UPDATE t_SystemProfile SET FValue='0' WHERE FKey='UseShortNumber'");
  ExpectLines(rows, " AND i.FShortNumber>='0030' AND o.FShortNumber<='0040'");
}

}  // namespace
}  // namespace salerpt::middletier
