// Customer sales on a generated account set: every row of the summary's groupings and of the two lists beside
// plain SQL.
#include <algorithm>

#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// The lists have no "sum by" and no kind of bill.
const std::vector<Dictionary::Entry> kEverything = {
    {"BDate", Date::FromYmd(2023, 1, 1)}, {"EDate", Date::FromYmd(2027, 12, 31)}, {"CheckState", 2}};

std::vector<Dictionary::Entry> And(std::vector<Dictionary::Entry> chosen,
                                   const std::vector<Dictionary::Entry>& more) {
  chosen.insert(chosen.end(), more.begin(), more.end());
  return chosen;
}

// --- The summary

// An amount is without tax on kind 80 and with tax on kind 86; each line is brought to base currency and
// rounded to two places before it is summed. Who is nobody's customer is not in it.
constexpr const char* kLines =
    "WITH lines AS (SELECT i.FNumber item, o.FNumber cust, o.FName cust_name, d.FName dept_name, m.FName "
    "emp_name,"
    " i.FModel model, s.FName region, e.FQty qty, e.FQty*1.0/u.FCoefficient common_qty,"
    " half_up((e.FAmount-(b.FTranType=86)*e.FTaxAmount)*b.FExchangeRate,2) amount,"
    " half_up(e.FTaxAmount*b.FExchangeRate,2) tax,"
    " half_up((e.FAmount+(b.FTranType=80)*e.FTaxAmount)*b.FExchangeRate,2) gross"
    " FROM ICSale b JOIN ICSaleEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID"
    " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID JOIN t_Organization o ON o.FItemID=b.FCustID"
    " LEFT JOIN t_Department d ON d.FItemID=b.FDeptID LEFT JOIN t_Emp m ON m.FItemID=b.FEmpID"
    " LEFT JOIN t_SubMessage s ON s.FInterID=o.FRegionID"
    " WHERE b.FTranType IN (80,86) AND b.FCancelLation=0";
const std::vector<const char*> kNumbers = {"FQty", "FCUUnitQty", "FAmount", "FTaxAmount", "FCountAmount"};

std::string ClassAt(int item_class, int level, const char* code) {
  return Join("(SELECT t.name FROM class_at t WHERE t.item_class=", item_class, " AND t.level=", level,
              " AND t.code=", code, "),");
}

struct Shape {
  std::string plain;
  std::vector<std::string> fields;
  std::vector<Group> groups;
  Group total{0, {{0, "合计"}}, 101};

  void Add(const std::string& column, const std::string& field, std::int32_t code) {
    plain += column;
    fields.push_back(field);
    groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, code});
  }
  void AddLevels(int item_class, int from, int to) {
    for (int i = from; i <= to; ++i)
      Add(ClassAt(item_class, i, item_class == 4 ? "item" : "cust"), Join("FName", i), i + 106);
  }
};

Shape ShapeOf(int mode, int from, int to) {
  Shape shape;
  switch (mode) {
    case 1:
      shape.AddLevels(4, from, to);
      break;
    case 2:
      shape.AddLevels(1, from, to);
      break;
    case 3:
      shape.AddLevels(4, from, to);
      shape.Add("cust_name,", "FCustName", to + 107);
      break;
    case 4:
      shape.plain = "cust,";
      shape.fields = {"FCustNumber"};
      shape.Add("cust_name,", "FCustName", from + 105);
      shape.AddLevels(4, from, to);
      shape.total.labels = {{1, "合计"}};
      break;
    case 5:
      shape.plain = "cust,";
      shape.fields = {"FPropNumber"};
      shape.Add("cust_name,", "FProp01", 102);
      shape.total.labels = {{1, "合计"}};
      break;
    case 6:
      shape.Add("dept_name,", "FProp02", 102);
      break;
    case 7:
      shape.Add("emp_name,", "FProp03", 102);
      break;
    default:
      break;
  }
  shape.plain += "item";
  shape.fields.emplace_back("FNumber");
  return shape;
}

struct Case {
  int mode;  // row of "sum by"; 0 is the list by item
  int from;
  int to;

  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
  static std::string Name(const Case& c) { return Join("Mode", c.mode, "Levels", c.from, "To", c.to); }
};

class CustomerSummary : public ReportRows {
 protected:
  static RecordsetRef Fetch(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    const std::vector<Dictionary::Entry> grouping = {
        {"OnlyShowSum", 0},  {"BillType", 2},    {"GroupBy", c.mode > 0 ? 1 : 0},
        {"SumMode", c.mode}, {"BLevel", c.from}, {"ELevel", c.to}};
    return RowsOf("ORVSaleRpt.Rpt133", "frmFirter126", And(And(kEverything, grouping), more));
  }

  static void ExpectShape(const RecordsetRef& rows, const Shape& shape, const std::string& condition) {
    std::string columns = "1";
    for (int i = 2; i <= static_cast<int>(shape.fields.size()); ++i) columns += Join(",", i);
    const std::vector<PlainRow> details =
        Plain(Join(kLines, condition, ") SELECT ", shape.plain,
                   ",sum(qty),sum(common_qty),sum(amount),sum(tax),sum(gross) FROM lines GROUP BY ", columns),
              static_cast<int>(shape.fields.size()));
    std::vector<const char*> keys;
    for (const std::string& field : shape.fields) keys.push_back(field.c_str());
    const std::vector<PlainRow> expected =
        RolledUp(InOrderOf(details, Pick(rows, 0, 0, keys, kNumbers)), shape.groups, shape.total);
    keys.push_back("FSumSort");
    ExpectRows(Pick(rows, 0, 200, keys, kNumbers), expected);
  }

  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const std::string& condition = "") {
    ExpectShape(rows, ShapeOf(c.mode, c.from, c.to), condition);
  }
};

class CustomerGroupings : public CustomerSummary, public testing::WithParamInterface<Case> {};

TEST_P(CustomerGroupings, EveryRowIsThatOfTheTables) {
  const RecordsetRef rows = Fetch(GetParam());
  EXPECT_GT(rows->RecordCount(), 40);
  ExpectRowsOf(rows, GetParam());
}

TEST_P(CustomerGroupings, PriceAndRateFollowFromTheAmountsOfTheRow) {
  for (const PlainRow& row : Pick(Fetch(GetParam()), 0, 200, {"FUnitName", "FSumSort"},
                                  {"FQty", "FAmount", "FTaxAmount", "FPrice", "FTaxRate"})) {
    const std::vector<double>& n = row.numbers;
    const bool of_one_item = !row.key.starts_with("|");
    EXPECT_EQ(of_one_item, row.key.ends_with("|0")) << row.key;
    EXPECT_NEAR(n[3], of_one_item && n[0] != 0 ? n[1] / n[0] : 0, 1e-6) << row.key;
    EXPECT_NEAR(n[4], n[1] == 0 ? 0 : n[2] * 100 / n[1], 1e-6) << row.key;
  }
}

TEST_P(CustomerGroupings, EveryDetailTellsItsItemAndTheItemsOfAGroupAscend) {
  const std::vector<PlainRow> items = Plain(
      "SELECT i.FNumber,i.FShortNumber,i.FName,i.FModel,b.FName,u.FName,i.FQtyDecimal,i.FPriceDecimal"
      " FROM t_ICItem i JOIN t_MeasureUnit b ON b.FUnitGroupID=i.FUnitGroupID AND b.FStandard=1"
      " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID ORDER BY 1",
      8);
  const std::vector<PlainRow> rows = Pick(Fetch(GetParam()), 0, 200,
                                          {"FNumber", "FShortNumber", "FName", "FModel", "FUnitName",
                                           "FCUUnitName", "FQtyDecimal", "FPriceDecimal"},
                                          {});
  std::string last;
  for (const PlainRow& row : rows) {
    const bool detail = std::isdigit(static_cast<unsigned char>(row.key.front())) != 0;
    if (detail) {
      EXPECT_TRUE(std::ranges::binary_search(items, row.key, {}, &PlainRow::key)) << row.key;
      EXPECT_LT(last, row.key);
    }
    last = detail ? row.key : "";
  }
}

TEST_P(CustomerGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const std::vector<const char*> keys = {"FNumber", "FSumSort"};
  ExpectRows(Pick(Fetch(GetParam(), {{"OnlyShowSum", 1}}), 0, 200, keys, kNumbers),
             Pick(Fetch(GetParam()), 101, 200, keys, kNumbers), 0);
}

TEST_P(CustomerGroupings, NoInvoicesGiveNoRows) {
  EXPECT_EQ(Fetch(GetParam(), {{"BItemNumber", "99"}})->RecordCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, CustomerGroupings,
                         testing::Values(Case{0, 1, 1}, Case{1, 1, 1}, Case{1, 1, 3}, Case{1, 2, 2},
                                         Case{2, 1, 2}, Case{2, 2, 3}, Case{3, 1, 1}, Case{3, 1, 3},
                                         Case{4, 1, 2}, Case{4, 2, 3}, Case{5, 1, 1}, Case{6, 1, 1},
                                         Case{7, 1, 1}),
                         [](const auto& test) { return Case::Name(test.param); });

// A choice in the dialog, and the condition that it is in plain SQL.
struct Choice {
  const char* name;
  std::vector<Dictionary::Entry> chosen;
  std::string condition;
};

const std::vector<Choice>& SummaryChoices() {
  static const std::vector<Choice> choices = {
      {"Audited", {{"CheckState", 0}}, " AND b.FStatus>0"},
      {"NotAudited", {{"CheckState", 1}}, " AND b.FStatus=0"},
      {"Days",
       {{"BDate", Date::FromYmd(2023, 6, 15)}, {"EDate", Date::FromYmd(2024, 2, 29)}},
       " AND date(b.FDate) BETWEEN '2023-06-15' AND '2024-02-29'"},
      {"Items",
       {{"BItemNumber", "01.02"}, {"EItemNumber", "02.99"}},
       " AND i.FNumber BETWEEN '01.02' AND '02.99'"},
      {"Customers",
       {{"BCustNumber", "01.03"}, {"ECustNumber", "03"}},
       " AND o.FNumber BETWEEN '01.03' AND '03'"},
      {"Departments",
       {{"BDeptNumber", "01.02"}, {"EDeptNumber", "02.05"}},
       " AND d.FNumber BETWEEN '01.02' AND '02.05'"},
      {"Employees",
       {{"BEmpNumber", "01.005"}, {"EEmpNumber", "01.020"}},
       " AND m.FNumber BETWEEN '01.005' AND '01.020'"},
      {"AuditedItemsOfACustomer",
       {{"BItemNumber", "01"}, {"EItemNumber", "02"}, {"BCustNumber", "01"}, {"CheckState", 0}},
       " AND i.FNumber BETWEEN '01' AND '02' AND o.FNumber>='01' AND b.FStatus>0"},
      {"SaleStyle", {{"SaleType", 103}}, " AND b.FSaleStyle=103"},
      {"Blue", {{"BillType", 0}}, " AND b.FROB=1"},
      {"Red", {{"BillType", 1}}, " AND b.FROB=-1"},
      {"Matched", {{"HookStatus", 2}}, " AND b.FHookStatus=2"},
      {"Services", {{"CommodityType", 1}}, " AND i.FErpClsID=4"}};
  return choices;
}

class SummaryNarrowed : public CustomerSummary, public testing::WithParamInterface<std::size_t> {};

TEST_P(SummaryNarrowed, ToTheLinesOfTheChoiceInEveryBuilder) {
  const Choice& choice = SummaryChoices()[GetParam()];
  for (const int mode : {0, 3, 6})
    ExpectRowsOf(Fetch({mode, 1, 2}, choice.chosen), {mode, 1, 2}, choice.condition);
}

INSTANTIATE_TEST_SUITE_P(All, SummaryNarrowed, testing::Range(std::size_t{0}, SummaryChoices().size()),
                         [](const auto& test) { return std::string(SummaryChoices()[test.param].name); });

// What stands in the dialog for the income statistics, and is not for this report.
TEST_F(CustomerSummary, CurrencyAndAuxiliaryPropertyChangeNothing) {
  for (int mode = 0; mode <= 7; ++mode) {
    ExpectRowsOf(Fetch({mode, 1, 2}, {{"AuxProp", 1}, {"CurrencyShow", 1}}), {mode, 1, 2});
  }
}

TEST_F(CustomerSummary, PropertiesGroupByTheirColumnOrByTheTextInTheirTable) {
  const auto property = [](int item_class, int id, const char* column, const char* table) {
    auto field = std::make_shared<Dictionary>();
    field->Set("FItemClassID", item_class);
    field->Set("FPropID", id);
    field->Set("FSQLColumnName", column);
    field->Set("FSrcTable", table);
    field->Set("FSrcField", "FInterID");
    field->Set("FDisplayField", "FName");
    return std::vector<Dictionary::Entry>{{"SumField", Variant(field)}};
  };
  Shape model;
  model.Add("model,", "FProp1054", 102);
  model.plain += "item";
  model.fields.emplace_back("FNumber");
  ExpectShape(Fetch({8, 1, 1}, property(4, 105, "FModel", "")), model, "");
  Shape region;
  region.plain = "cust,";
  region.fields = {"FPropNumber"};
  region.Add("region,", "FProp1011", 102);
  region.total.labels = {{1, "合计"}};
  region.plain += "item";
  region.fields.emplace_back("FNumber");
  ExpectShape(Fetch({8, 1, 1}, property(1, 101, "FRegionID", "t_SubMessage")), region, "");
}

class NarrowCustomerSummary : public CustomerSummary {
 protected:
  NarrowCustomerSummary() { RegisterMiddleTier(runtime_, Set().Get(), {.user_id = 16395}); }
};

TEST_F(NarrowCustomerSummary, AUserSeesTheCustomersThatNameHimInEveryGrouping) {
  for (int mode = 0; mode <= 7; ++mode)
    ExpectRowsOf(Fetch({mode, 1, 2}), {mode, 1, 2}, " AND instr(o.FRightUserID,'16395')>0");
}

// --- The two lists

constexpr const char* kListFields =
    "SELECT "
    "o.FNumber,o.FShortNumber,o.FName,i.FNumber,i.FShortNumber,i.FName,i.FModel,b.FBillNo,l.FName,c.FName,"
    "g.FName,u.FName,i.FQtyDecimal,i.FPriceDecimal,'0',b.FExchangeRate,e.FAuxQty,e.FQty,e.FQty*1.0/"
    "u.FCoefficient,"
    "half_up(e.FAmount-(b.FTranType=86)*e.FTaxAmount,c.FScale),"
    "half_up((e.FAmount-(b.FTranType=86)*e.FTaxAmount)*b.FExchangeRate,2)"
    " FROM ICSale b JOIN ICSaleEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID"
    " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID JOIN t_MeasureUnit l ON l.FMeasureUnitID=e.FUnitID"
    " JOIN t_MeasureUnit g ON g.FUnitGroupID=i.FUnitGroupID AND g.FStandard=1"
    " JOIN t_Currency c ON c.FCurrencyID=b.FCurrencyID LEFT JOIN t_Organization o ON o.FItemID=b.FCustID"
    " WHERE b.FTranType IN (80,86) AND b.FCancelLation=0";

struct List {
  const char* report;
  const char* dialog;
  const char* condition;
  const char* order;
};
constexpr List kLists[] = {
    {"ORVSaleRpt.Rpt134", "frmFirter134", "", " ORDER BY b.FDate,b.FBillNo,e.FEntryID"},
    {"ORVSaleRpt.Rpt135", "frmFirter135", " AND b.FROB=-1",
     " ORDER BY o.FNumber,b.FDate,b.FBillNo,e.FEntryID"}};

class CustomerList : public ReportRows, public testing::WithParamInterface<List> {
 protected:
  static void ExpectLines(const std::vector<Dictionary::Entry>& chosen, const std::string& condition) {
    const List& list = GetParam();
    ExpectRows(Pick(RowsOf(list.report, list.dialog, And(kEverything, chosen)), 0, 0,
                    {"FCustNumber", "FCustShortNumber", "FCustName", "FNumber", "FShortNumber", "FName",
                     "FModel", "FBillNo", "FAuxUnitName", "FCurrencyName", "FUnitName", "FCUUnitName",
                     "FQtyDecimal", "FPriceDecimal", "FSumSort"},
                    {"FExchangeRate", "FAuxQty", "FQty", "FCUUnitQty", "FAmount", "FAmountFor"}),
               Plain(Join(kListFields, list.condition, condition, list.order), 15));
  }
};

TEST_P(CustomerList, EveryLineIsThatOfTheTablesInItsOrder) {
  ExpectLines({}, "");
}

TEST_P(CustomerList, TheChoicesOfTheDialogNarrowIt) {
  ExpectLines({{"CheckState", 0}}, " AND b.FStatus>0");
  ExpectLines({{"BDate", Date::FromYmd(2023, 9, 1)}, {"EDate", Date::FromYmd(2024, 9, 30)}},
              " AND date(b.FDate) BETWEEN '2023-09-01' AND '2024-09-30'");
  ExpectLines({{"BItemNumber", "01.02"}, {"ECustNumber", "04"}},
              " AND i.FNumber>='01.02' AND o.FNumber<='04'");
  ExpectLines({{"SaleType", 100}, {"HookStatus", 2}}, " AND b.FSaleStyle=100 AND b.FHookStatus=2");
  ExpectLines({{"CommodityType", 2}, {"AuxProp", 1}}, " AND i.FErpClsID<>4");
}

TEST_P(CustomerList, TheAuxiliaryPropertyOfEveryLineIsNamed) {
  const List& list = GetParam();
  ExpectRows(
      Pick(RowsOf(list.report, list.dialog, And(kEverything, {{"AuxProp", 1}})), 0, 0,
           {"FBillNo", "FNumber", "FAuxPropName"}, {"FQty"}),
      Plain(Join("SELECT b.FBillNo,i.FNumber,(SELECT a.FName FROM t_AuxItem a WHERE "
                 "a.FItemID=e.FAuxPropID),e.FQty "
                 "FROM ICSale b JOIN ICSaleEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID"
                 " LEFT JOIN t_Organization o ON o.FItemID=b.FCustID"
                 " WHERE b.FTranType IN (80,86) AND b.FCancelLation=0",
                 list.condition, list.order),
            3));
}

TEST_P(CustomerList, ADataRightNarrowsItTogetherWithTheChoices) {
  RegisterMiddleTier(runtime_, Set().Get(), {.user_id = 16395});
  ExpectLines({}, " AND instr(o.FRightUserID,'16395')>0");
  ExpectLines({{"EItemNumber", "02"}}, " AND instr(o.FRightUserID,'16395')>0 AND i.FNumber<='02'");
}

TEST_P(CustomerList, ShortCodesNarrowIt) {
  Set().Run("UPDATE t_SystemProfile SET FValue='1' WHERE FKey='UseShortNumber'");
  ExpectRows(
      Sorted(Pick(RowsOf(GetParam().report, GetParam().dialog,
                         And(kEverything, {{"BItemNumber", "0030"}, {"ECustNumber", "0040"}})),
                  0, 0, {"FBillNo", "FShortNumber", "FCustShortNumber"}, {"FQty"})),
      Sorted(
          Plain(Join("SELECT b.FBillNo,i.FShortNumber,o.FShortNumber,e.FQty FROM ICSale b JOIN ICSaleEntry e "
                     "USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID JOIN t_Organization o ON "
                     "o.FItemID=b.FCustID WHERE b.FTranType IN (80,86) AND b.FCancelLation=0 AND "
                     "i.FShortNumber>='0030' AND o.FShortNumber<='0040'",
                     GetParam().condition, " ORDER BY o.FShortNumber,b.FDate,b.FBillNo,e.FEntryID"),
                3)));
  Set().Run("UPDATE t_SystemProfile SET FValue='0' WHERE FKey='UseShortNumber'");
}

INSTANTIATE_TEST_SUITE_P(All, CustomerList, testing::ValuesIn(kLists),
                         [](const auto& test) { return std::string(test.param.report + 11); });

}  // namespace
}  // namespace salerpt::middletier
