// Sales income statistics on a generated account set: every row of every grouping beside plain SQL.
#include <algorithm>

#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// Nothing is left out but cancelled invoices.
const std::vector<Dictionary::Entry> kEverything = {{"BDate", Date::FromYmd(2023, 1, 1)},
                                                    {"EDate", Date::FromYmd(2027, 12, 31)},
                                                    {"CheckState", 2},
                                                    {"BillType", 2},
                                                    {"OnlyShowSum", 0}};

// The invoice lines with all that the report groups by and sums. An amount is without tax on kind 80 and with
// tax on kind 86; each line is rounded before it is summed.
constexpr const char* kLines =
    "WITH lines AS (SELECT i.FNumber item, o.FNumber cust, o.FName cust_name, o.FShortNumber cust_short,"
    " d.FNumber dept, d.FName dept_name, d.FShortNumber dept_short, m.FNumber emp, m.FName emp_name,"
    " m.FShortNumber emp_short, a.FName aux, c.FName currency, s.FName region,"
    " half_up(e.FQty,i.FQtyDecimal) qty, half_up(e.FQty*1.0/u.FCoefficient,i.FQtyDecimal) common_qty,"
    " half_up(e.FStdAmount-(b.FTranType=86)*e.FStdTaxAmount,2) amount, half_up(e.FStdTaxAmount,2) tax,"
    " half_up(e.FStdAmount+(b.FTranType=80)*e.FStdTaxAmount,2) gross,"
    " half_up(e.FAmount-(b.FTranType=86)*e.FTaxAmount,c.FScale) bill_amount,"
    " half_up(e.FTaxAmount,c.FScale) bill_tax,"
    " half_up(e.FAmount+(b.FTranType=80)*e.FTaxAmount,c.FScale) bill_gross"
    " FROM ICSale b JOIN ICSaleEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID"
    " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID JOIN t_Currency c ON c.FCurrencyID=b.FCurrencyID"
    " LEFT JOIN t_Organization o ON o.FItemID=b.FCustID LEFT JOIN t_Department d ON d.FItemID=b.FDeptID"
    " LEFT JOIN t_Emp m ON m.FItemID=b.FEmpID LEFT JOIN t_AuxItem a ON a.FItemID=e.FAuxPropID"
    " LEFT JOIN t_SubMessage s ON s.FInterID=o.FRegionID"
    " WHERE b.FTranType IN (80,86) AND b.FCancelLation=0";
constexpr const char* kBaseSums = "sum(qty),sum(common_qty),sum(amount),sum(tax),sum(gross)";
constexpr const char* kBillSums = "sum(qty),sum(common_qty),sum(bill_amount),sum(bill_tax),sum(bill_gross)";
// Who is nobody's customer stands under no class of customers.
constexpr const char* kKnownCustomers = " AND o.FItemID IS NOT NULL";
const std::vector<const char*> kNumbers = {"FQty", "FCUUnitQty", "FAmount", "FTaxAmount", "FCountAmount"};

// Code and name of the class on a level of the code tree that `code` stands under.
std::string ClassAt(int item_class, int level, const char* code) {
  const auto column = [&](const char* name) {
    return Join("(SELECT t.", name, " FROM class_at t WHERE t.item_class=", item_class,
                " AND t.level=", level, " AND t.code=", code, "),");
  };
  return column("number") + column("name");
}

// What a report is grouped by, and what its rows look like then.
struct Shape {
  std::string plain;                // the group columns in plain SQL, each with a comma behind
  std::vector<std::string> fields;  // the report's fields for them
  std::vector<Group> groups;        // their subtotals
  Group total;

  // Groups by the classes of levels `from` to `to`, the first of which is coded `code`.
  void AddLevels(int item_class, int from, int to, std::int32_t code) {
    for (int i = from; i <= to; ++i) {
      plain += ClassAt(item_class, i, item_class == 4 ? "item" : "cust");
      fields.push_back(Join("FNumber", i));
      fields.push_back(Join("FName", i));
      groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, code++});
    }
  }
  void AddParty(const std::string& column, const std::string& word, std::int32_t code) {
    plain += Join(column, ",", column, "_short,", column, "_name,");
    fields.push_back(Join("F", word, "Number"));
    fields.push_back(Join("FShort", word, "Number"));
    fields.push_back(Join("F", word, "Name"));
    groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, code});
  }
};

// Level i is coded i+106, what is behind the levels 107 more than the last one.
Shape ShapeOf(int mode, int from, int to) {
  Shape shape;
  switch (mode) {
    case 1:
      shape.AddLevels(4, from, to, from + 106);
      break;
    case 2:
      shape.AddLevels(1, from, to, from + 106);
      break;
    case 3:
      shape.AddLevels(4, from, to, from + 106);
      shape.AddParty("cust", "Cust", to + 107);
      break;
    case 4:
      shape.AddParty("cust", "Cust", from + 105);
      shape.AddLevels(4, from, to, from + 106);
      break;
    case 5:
      shape.AddParty("cust", "Cust", 102);
      break;
    case 6:
      shape.AddParty("dept", "Dept", 102);
      break;
    case 7:
      shape.AddParty("emp", "Emp", 102);
      break;
    default:
      break;
  }
  const std::size_t labelled = mode == 0 ? 0 : mode >= 4 ? 2 : 1;
  shape.total = {0, {{labelled, "合计"}}, 101};
  return shape;
}

struct Case {
  int mode;  // row of "sum by"; 0 is the list by item
  int from;
  int to;
  bool aux_prop;
  bool currency;

  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
  static std::string Name(const Case& c) {
    return Join("Mode", c.mode, "Levels", c.from, "To", c.to, c.aux_prop ? "ByProperty" : "",
                c.currency ? "InBillCurrency" : "");
  }
};

class IncomeRows : public ReportRows {
 protected:
  static RecordsetRef Fetch(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    std::vector<Dictionary::Entry> chosen = kEverything;
    for (const Dictionary::Entry& entry :
         std::vector<Dictionary::Entry>{{"GroupBy", c.mode > 0 ? 1 : 0},
                                        {"SumMode", c.mode},
                                        {"BLevel", c.from},
                                        {"ELevel", c.to},
                                        {"AuxProp", c.aux_prop ? 1 : 0},
                                        {"CurrencyShow", c.currency ? 1 : 0}})
      chosen.push_back(entry);
    chosen.insert(chosen.end(), more.begin(), more.end());
    return RowsOf("ORVSaleRpt.Rpt126", "frmFirter126", chosen);
  }

  // The rows of a report beside those that plain SQL gives under a condition.
  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const std::string& condition = "") {
    Shape shape = ShapeOf(c.mode, c.from, c.to);
    shape.plain += "item";
    shape.fields.emplace_back("FNumber");
    if (c.mode == 0) shape.total.labels = {{0, "合计"}};
    const bool by_currency = c.currency && c.mode == 0;
    if (c.aux_prop) AddAuxProp(shape, c);
    if (by_currency) AddCurrency(shape);
    std::vector<PlainRow> details =
        Plain(Join(kLines, condition, c.mode == 2 ? kKnownCustomers : "", ") SELECT ", shape.plain, ",",
                   c.currency ? kBillSums : kBaseSums, by_currency ? ",sum(amount),sum(tax),sum(gross)" : "",
                   " FROM lines GROUP BY ", Columns(shape.fields.size())),
              static_cast<int>(shape.fields.size()));

    std::vector<const char*> keys;
    for (const std::string& field : shape.fields) keys.push_back(field.c_str());
    std::vector<const char*> numbers = kNumbers;
    if (by_currency) numbers.insert(numbers.end(), {"FAmountFor", "FTaxAmountFor", "FCountAmountFor"});
    details = InOrderOf(details, Pick(rows, 0, 0, keys, numbers));
    std::vector<PlainRow> expected = RolledUp(details, shape.groups, shape.total);
    if (by_currency) ShowBaseCurrencyInTotals(expected);
    keys.push_back("FSumSort");
    ExpectRows(Pick(rows, 0, 200, keys, numbers), expected);
  }

  // Codes ascend as texts do; what has no value stands first.
  static void ExpectAscending(const RecordsetRef& rows, const Case& c) {
    const Shape shape = ShapeOf(c.mode, c.from, c.to);
    std::vector<const char*> keys;
    for (const std::string& field : shape.fields) {
      if (field.starts_with("FNumber") || (field.ends_with("Number") && !field.starts_with("FShort")))
        keys.push_back(field.c_str());
    }
    keys.push_back("FNumber");
    std::vector<PlainRow> details = Pick(rows, 0, 0, keys, {});
    // A code that goes on behind a point stands behind the one that ends there.
    for (PlainRow& row : details) std::ranges::replace(row.key, '|', ' ');
    EXPECT_TRUE(std::ranges::is_sorted(details, {}, &PlainRow::key));
  }

  static void ExpectPricesAndRates(const RecordsetRef& rows) {
    const std::vector<const char*> fields = {"FQty", "FAmount", "FTaxAmount", "FPrice", "FTaxRate"};
    for (const PlainRow& row : Pick(rows, 0, 200, {"FNumber", "FUnitName", "FSumSort"}, fields)) {
      const std::vector<double>& n = row.numbers;
      // A row of one item has a price, and names its unit; one of several has neither.
      const bool of_one_item = row.key.find("||") == std::string::npos;
      EXPECT_NEAR(n[3], of_one_item && n[0] != 0 ? n[1] / n[0] : 0, 1e-6) << row.key;
      EXPECT_NEAR(n[4], row.key.ends_with("|101") || n[1] == 0 ? 0 : n[2] * 100 / n[1], 1e-6) << row.key;
    }
  }

  static void ExpectItemsTold(const RecordsetRef& rows) {
    const std::vector<PlainRow> items = Plain(
        "SELECT i.FNumber,i.FShortNumber,i.FName,i.FModel,b.FName,u.FName,i.FQtyDecimal,i.FPriceDecimal"
        " FROM t_ICItem i JOIN t_MeasureUnit b ON b.FUnitGroupID=i.FUnitGroupID AND b.FStandard=1"
        " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID ORDER BY 1",
        8);
    for (const PlainRow& row : Pick(rows, 0, 0,
                                    {"FNumber", "FShortNumber", "FName", "FModel", "FUnitName", "FCUUnitName",
                                     "FQtyDecimal", "FPriceDecimal"},
                                    {}))
      EXPECT_TRUE(std::ranges::binary_search(items, row.key, {}, &PlainRow::key)) << row.key;
  }

 private:
  static std::string Columns(std::size_t count) {
    std::string columns = "1";
    for (int i = 2; i <= static_cast<int>(count); ++i) columns += Join(",", i);
    return columns;
  }

  static void AddAuxProp(Shape& shape, const Case& c) {
    shape.plain += ",aux";
    shape.fields.emplace_back("FAuxPropName");
    const std::size_t item = shape.fields.size() - 1;
    std::vector<Label> labels = {{item, "小计"}};
    // Behind levels and customer an item's own subtotal has the code of a customer's, and its label.
    if (c.mode == 3) labels.push_back({item - 2, "(小计)"});
    shape.groups.push_back({item, labels, c.mode == 0 ? 106 : c.mode < 5 ? c.to + 107 : 103});
  }

  static void AddCurrency(Shape& shape) {
    shape.plain += ",currency";
    shape.fields.emplace_back("FCurrencyName");
    const std::size_t place = shape.fields.size() - 1;
    for (Group& group : shape.groups) group.labels.push_back({place, "本位币合计"});
    shape.groups.push_back({place, {{place, "本位币合计"}}, 106});
    shape.total.labels.push_back({place, "本位币合计"});
  }

  // Currencies are not added together: a total row is in base currency.
  static void ShowBaseCurrencyInTotals(std::vector<PlainRow>& rows) {
    for (PlainRow& row : rows) {
      if (!row.key.ends_with("|0")) std::copy_n(row.numbers.begin() + 5, 3, row.numbers.begin() + 2);
    }
  }
};

// --- Every row of every grouping

class IncomeGroupings : public IncomeRows, public testing::WithParamInterface<Case> {};

TEST_P(IncomeGroupings, EveryRowIsThatOfTheTables) {
  const RecordsetRef rows = Fetch(GetParam());
  EXPECT_GT(rows->RecordCount(), 40);
  ExpectRowsOf(rows, GetParam());
  ExpectAscending(rows, GetParam());
  ExpectPricesAndRates(rows);
  ExpectItemsTold(rows);
}

class IncomeModes : public IncomeRows, public testing::WithParamInterface<int> {};

TEST_P(IncomeModes, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const Case c{GetParam(), 1, 2, true, GetParam() == 0};
  const std::vector<const char*> keys = {"FNumber", "FSumSort"};
  ExpectRows(Pick(Fetch(c, {{"OnlyShowSum", 1}}), 0, 200, keys, kNumbers),
             Pick(Fetch(c), 101, 200, keys, kNumbers), 0);
}

TEST_P(IncomeModes, NoInvoicesGiveNoRows) {
  const Case c{GetParam(), 1, 2, false, false};
  EXPECT_EQ(
      Fetch(c, {{"BDate", Date::FromYmd(2030, 1, 1)}, {"EDate", Date::FromYmd(2030, 1, 31)}})->RecordCount(),
      0);
}

INSTANTIATE_TEST_SUITE_P(All, IncomeModes, testing::Range(0, 8));

std::vector<Case> Groupings() {
  std::vector<Case> cases;
  for (const bool aux_prop : {false, true}) {
    cases.push_back({0, 1, 2, aux_prop, false});
    cases.push_back({0, 1, 2, aux_prop, true});
    // The currency is no level of a grouped report; there it only changes the amounts.
    for (int mode = 1; mode <= 7; ++mode) cases.push_back({mode, 1, 2, aux_prop, aux_prop});
  }
  for (int mode = 1; mode <= 4; ++mode) {
    cases.push_back({mode, 1, 1, false, false});
    cases.push_back({mode, 2, 3, true, false});
    cases.push_back({mode, 1, 3, false, false});
  }
  return cases;
}
INSTANTIATE_TEST_SUITE_P(All, IncomeGroupings, testing::ValuesIn(Groupings()),
                         [](const auto& test) { return Case::Name(test.param); });

// --- The filter, key by key

// A choice in the dialog, and the condition that it is in plain SQL.
struct Choice {
  const char* name;
  std::vector<Dictionary::Entry> chosen;
  std::string condition;
};

const std::vector<Choice>& Choices() {
  static const std::vector<Choice> choices = {
      {"Audited", {{"CheckState", 0}}, " AND b.FStatus>0"},
      {"NotAudited", {{"CheckState", 1}}, " AND b.FStatus=0"},
      {"Days",
       {{"BDate", Date::FromYmd(2023, 6, 15)}, {"EDate", Date::FromYmd(2024, 2, 29)}},
       " AND date(b.FDate) BETWEEN '2023-06-15' AND '2024-02-29'"},
      {"FromItem", {{"BItemNumber", "01.02"}}, " AND i.FNumber>='01.02'"},
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
      {"SaleStyle", {{"SaleType", 103}, {"SaleTypeName", "委托代销"}}, " AND b.FSaleStyle=103"},
      {"AllSaleStyles", {{"SaleType", 1}}, ""},
      {"NotMatched", {{"HookStatus", 0}}, " AND b.FHookStatus=0"},
      {"Matched", {{"HookStatus", 2}}, " AND b.FHookStatus=2"},
      {"Blue", {{"BillType", 0}}, " AND b.FROB=1"},
      {"Red", {{"BillType", 1}}, " AND b.FROB=-1"},
      {"Services", {{"CommodityType", 1}}, " AND i.FErpClsID=4"},
      {"NoServices", {{"CommodityType", 2}}, " AND i.FErpClsID<>4"},
      {"NextTimeWithoutDialog", {{"chkNextChoose", 1}}, ""},
      {"ItemsOfACustomer",
       {{"BItemNumber", "01"},
        {"EItemNumber", "02"},
        {"BCustNumber", "01"},
        {"ECustNumber", "02"},
        {"CheckState", 0}},
       " AND i.FNumber BETWEEN '01' AND '02' AND o.FNumber BETWEEN '01' AND '02' AND b.FStatus>0"},
      {"RedOfADepartment", {{"BillType", 1}, {"BDeptNumber", "01"}}, " AND b.FROB=-1 AND d.FNumber>='01'"}};
  return choices;
}

class IncomeChoices : public IncomeRows, public testing::WithParamInterface<std::tuple<int, std::size_t>> {};

TEST_P(IncomeChoices, NarrowTheLines) {
  const auto& [mode, place] = GetParam();
  const Choice& choice = Choices()[place];
  const Case c{mode, 1, 2, false, mode == 0};
  ExpectRowsOf(Fetch(c, choice.chosen), c, choice.condition);
}

INSTANTIATE_TEST_SUITE_P(All, IncomeChoices,
                         testing::Combine(testing::Values(0, 3, 7),
                                          testing::Range(std::size_t{0}, Choices().size())),
                         [](const auto& test) {
                           return Join("Mode", std::get<0>(test.param),
                                       Choices()[std::get<1>(test.param)].name);
                         });

// --- Short codes, data rights, other properties

TEST_F(IncomeRows, ShortCodesNarrowItemsCustomersDepartmentsAndEmployees) {
  Set().Run("UPDATE t_SystemProfile SET FValue='1' WHERE FKey='UseShortNumber'");
  for (int mode = 0; mode <= 7; ++mode) {
    const Case c{mode, 1, 2, false, false};
    ExpectRowsOf(Fetch(c, {{"BItemNumber", "0010"},
                           {"EItemNumber", "0070"},
                           {"BCustNumber", "0005"},
                           {"ECustNumber", "0050"},
                           {"BDeptNumber", "02"},
                           {"EEmpNumber", "022"}}),
                 c,
                 " AND i.FShortNumber BETWEEN '0010' AND '0070' AND o.FShortNumber BETWEEN '0005' AND '0050'"
                 " AND d.FShortNumber>='02' AND m.FShortNumber<='022'");
  }
  Set().Run("UPDATE t_SystemProfile SET FValue='0' WHERE FKey='UseShortNumber'");
}

class NarrowIncomeRows : public IncomeRows {
 protected:
  NarrowIncomeRows() { RegisterMiddleTier(runtime_, Set().Get(), {.user_id = 16395}); }
};

TEST_F(NarrowIncomeRows, AUserSeesTheCustomersThatNameHimInEveryGrouping) {
  const std::string seen = " AND instr(o.FRightUserID,'16395')>0";
  for (int mode = 0; mode <= 7; ++mode) {
    const Case c{mode, 1, 2, true, false};
    ExpectRowsOf(Fetch(c), c, seen);
    ExpectRowsOf(Fetch(c, {{"EItemNumber", "02"}, {"BillType", 0}}), c,
                 seen + " AND i.FNumber<='02' AND b.FROB=1");
  }
}

TEST_F(IncomeRows, APropertyOfTheCustomerGroupsByItsTextInItsOwnTable) {
  auto region = std::make_shared<Dictionary>();
  region->Set("FName", "区域");
  region->Set("FItemClassID", 1);
  region->Set("FPropID", 101);
  region->Set("FSQLColumnName", "FRegionID");
  region->Set("FSrcTable", "t_SubMessage");
  region->Set("FSrcField", "FInterID");
  region->Set("FDisplayField", "FName");
  const RecordsetRef rows = Fetch({8, 1, 2, false, false}, {{"SumField", Variant(region)}});
  const std::vector<PlainRow> details =
      Plain(Join(kLines, ") SELECT region,item,", kBaseSums, " FROM lines GROUP BY 1,2"), 2);
  const std::vector<PlainRow> expected =
      RolledUp(InOrderOf(details, Pick(rows, 0, 0, {"FProp1011", "FNumber"}, kNumbers)),
               {{1, {{0, "(小计)"}}, 102}}, {0, {{0, "合计"}}, 101});
  ExpectRows(Pick(rows, 0, 200, {"FProp1011", "FNumber", "FSumSort"}, kNumbers), expected);
}

}  // namespace
}  // namespace salerpt::middletier
