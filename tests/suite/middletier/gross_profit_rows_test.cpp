// Sales gross profit on a generated account set: every row of every grouping beside plain SQL.
#include <algorithm>
#include <cmath>

#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// What the report must tell apart and the made-up company has too little of: purchases of goods sold straight
// on that count (-1, 0) and do not (1), with tax (76), not audited, cancelled, of a sales department;
// outbound bills of such goods; rates of tax that differ; two customers of one name. Where a receipt has an
// item twice its price is one, so that the latest price is.
constexpr const char* kPrepare = R"sql(
BEGIN;
CREATE TEMP TABLE straight AS SELECT FInterID,row_number() OVER (ORDER BY FInterID) n FROM ICPurchase WHERE FPOStyle=20300;
UPDATE ICPurchase SET FDeptID=(SELECT min(FDeptID) FROM ICSale WHERE FDeptID>0)
  WHERE FInterID IN (SELECT FInterID FROM straight WHERE n<=2);
UPDATE ICPurchase SET FSubSystemID=-1,FTranType=76 WHERE FInterID IN (SELECT FInterID FROM straight WHERE n=2);
UPDATE ICPurchase SET FSubSystemID=1 WHERE FInterID IN (SELECT FInterID FROM straight WHERE n=3);
UPDATE ICPurchase SET FStatus=0 WHERE FInterID IN (SELECT FInterID FROM straight WHERE n=4);
UPDATE ICPurchase SET FCancelLation=1 WHERE FInterID IN (SELECT FInterID FROM straight WHERE n=5);
DROP TABLE straight;
UPDATE ICStockBill SET FSaleStyle=20296 WHERE FTranType=21 AND FInterID%17=0;
UPDATE t_ICItem SET FTaxRate=FItemID%3*6+5;
UPDATE t_Supplier SET FValueAddRate=FItemID%5+3;
UPDATE t_Organization SET FName=(SELECT FName FROM t_Organization ORDER BY FNumber LIMIT 1)
  WHERE FNumber=(SELECT max(FNumber) FROM t_Organization);
UPDATE ICStockBillEntry AS e SET FPrice=(SELECT f.FPrice FROM ICStockBillEntry f
  WHERE f.FInterID=e.FInterID AND f.FItemID=e.FItemID ORDER BY f.FEntryID LIMIT 1);
UPDATE ICPurchaseEntry AS e SET FPrice=(SELECT f.FPrice FROM ICPurchaseEntry f
  WHERE f.FInterID=e.FInterID AND f.FItemID=e.FItemID ORDER BY f.FEntryID LIMIT 1);
CREATE TEMP TABLE class_at(kind INT,level INT,code TEXT,FName TEXT,PRIMARY KEY(kind,level,code)) WITHOUT ROWID;
INSERT INTO class_at SELECT c.FItemClassID,c.FLevel,t.FNumber,c.FName FROM t_Item t JOIN t_Item c
  ON c.FItemClassID=t.FItemClassID AND c.FDetail=0 AND t.FNumber LIKE c.FNumber||'.%'
  WHERE t.FDetail=1 AND t.FItemClassID IN (1,4);
)sql";

// What the cost rests on, as the dialog writes it.
struct Basis {
  std::int32_t check_state = 3;
  std::int32_t cost = 0;
  std::int32_t include_tax = 0;
  std::int32_t tax_source = 0;
};

std::string LatestPrice(const char* bill, const char* kinds) {
  return Join("coalesce((SELECT x.FPrice FROM ", bill, " r JOIN ", bill, "Entry x USING(FInterID) WHERE ",
              kinds, "r.FROB=1 AND x.FItemID=e.FItemID ORDER BY r.FInterID DESC LIMIT 1),0)");
}

// The cost of `qty`, where it is not that of the bill; `rate` is the tax rate that is taken out.
std::string CostOf(const Basis& basis, const std::string& qty, const std::string& rate,
                   const std::string& latest_price) {
  if (basis.cost == 2) return Join(qty, "*", latest_price);
  const std::string divisor = basis.include_tax != 0 ? Join("/(1+", rate, "/100.0)") : "";
  return Join(qty, "*i.FStockPrice", divisor);
}

// All lines, invoiced ('S'), sent ('O') and bought to be sold straight on ('P'), with what the report groups
// by, narrows by and sums. Of hooked bills the hooked quantity counts. The party is a customer, of 'P' a
// supplier. An outbound bill's customer has no supplier's rate.
std::string Lines(const Basis& basis) {
  const bool hooked = basis.check_state == 0;
  const std::string qty = hooked ? "e.FAllHookQTY" : "e.FQty";
  const std::string state = Join(" AND b.FCancelLation=0", basis.check_state == 0   ? " AND b.FStatus>0"
                                                           : basis.check_state == 1 ? " AND b.FStatus=0"
                                                                                    : "");
  const std::string income =
      hooked ? "e.FAllHookAmount" : "half_up((e.FAmount-(b.FTranType=86)*e.FTaxAmount)*b.FExchangeRate,2)";
  const bool of_supplier = basis.tax_source == 1;
  const std::string sent_cost = basis.cost == 0
                                    ? "e.FAmount"
                                    : CostOf(basis, qty, of_supplier ? "0" : "i.FTaxRate",
                                             LatestPrice("ICStockBill", "r.FTranType IN (1,2) AND "));
  const std::string bought_cost =
      basis.cost == 0
          ? "e.FAmount-(b.FTranType=76)*e.FTaxAmount"
          : CostOf(basis, qty, of_supplier ? "s.FValueAddRate" : "i.FTaxRate", LatestPrice("ICPurchase", ""));
  const auto half = [&state](const char* name, const char* bill, const char* party,
                             const std::string& figures, const char* condition) {
    return Join("SELECT '", name, "' half,e.FItemID,b.", party, " party,b.FDeptID,b.FEmpID,b.FDate,", figures,
                " FROM ", bill, " b JOIN ", bill,
                "Entry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID",
                " LEFT JOIN t_Supplier s ON s.FItemID=b.", party, " WHERE ", condition, state);
  };
  return Join(
      "WITH half AS (",
      half("S", "ICSale", "FCustID",
           Join("b.FSaleStyle style,", qty, " sold,", income, " income,0 sent,0 cost"),
           hooked ? "b.FTranType IN (80,86) AND b.FHookStatus>0" : "b.FTranType IN (80,86)"),
      " UNION ALL ",
      half("O", "ICStockBill", "FSupplyID", Join("b.FSaleStyle,0,0,", qty, ",", sent_cost),
           "b.FTranType=21 AND b.FSaleStyle<>20296"),
      " UNION ALL ",
      half("P", "ICPurchase", "FSupplyID", Join("20296,0,0,", qty, ",", bought_cost),
           "b.FPOStyle=20300 AND b.FSubSystemID IN (-1,0)"),
      "), lines AS (SELECT h.*,i.FNumber item,i.FShortNumber item_short,i.FModel model,k.FName kind,"
      "o.FNumber cust,o.FName cust_name,o.FCity city,g.FName region,d.FNumber dept,d.FShortNumber dept_short,"
      "d.FName dept_name,m.FNumber emp,m.FShortNumber emp_short,coalesce(o.FNumber,s.FNumber) party_code,"
      "coalesce(o.FShortNumber,s.FShortNumber) party_short,coalesce(o.FRightUserID,s.FRightUserID) seen_by,"
      "CASE u.FCoefficient WHEN 0 THEN 1.0 ELSE u.FCoefficient*1.0 END unit FROM half h"
      " JOIN t_ICItem i ON i.FItemID=h.FItemID LEFT JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID"
      " LEFT JOIN t_SubMessage k ON k.FInterID=i.FErpClsID LEFT JOIN t_Organization o ON o.FItemID=h.party"
      " LEFT JOIN t_SubMessage g ON g.FInterID=o.FRegionID LEFT JOIN t_Supplier s ON s.FItemID=h.party"
      " LEFT JOIN t_Department d ON d.FItemID=h.FDeptID LEFT JOIN t_Emp m ON m.FItemID=h.FEmpID WHERE 1=1");
}

constexpr const char* kSums =
    "sum(sold),sum(half_up(income,2)),sum(sent),sum(cost),sum(income)-sum(cost),sum(sold/unit),sum(sent/"
    "unit)";
const std::vector<const char*> kNumbers = {"FQtySale", "FIncomeSale",    "FQtySend",      "FCostSale",
                                           "FProfit",  "FCUUnitQtySale", "FCUUnitQtySend"};

// Prices of a division have six places on the server, times thousands of lines.
constexpr double kPriced = 5e-3;

std::string ClassAt(int item_class, int level) {
  return Join("(SELECT c.FName FROM class_at c WHERE c.kind=", item_class, " AND c.level=", level,
              " AND c.code=", item_class == 4 ? "item" : "cust", "),");
}

// A property as the dialog describes it, and its value in plain SQL.
struct Property {
  std::int32_t item_class;
  std::int32_t id;
  const char* column;
  const char* table;
  const char* value;
};
constexpr Property kProperties[] = {{1, 101, "FRegionID", "t_SubMessage", "region"},
                                    {1, 105, "FCity", "", "city"},
                                    {4, 101, "FErpClsID", "t_SubMessage", "kind"},
                                    {4, 105, "FModel", "", "model"}};

// What the report is grouped by, and what its rows look like then.
struct Shape {
  std::string plain;  // the group columns in plain SQL, each with a comma behind
  std::vector<std::string> fields;
  std::vector<Group> groups;
  std::size_t labelled = 0;  // the field of the total's label
  const char* condition = "";

  void AddLevels(int item_class, int from, int to) {
    for (int i = from; i <= to; ++i) {
      plain += ClassAt(item_class, i);
      fields.push_back(Join("FName", i));
      groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, i + 106});
    }
    if (item_class == 1) condition = " AND cust IS NOT NULL";
  }
  // A group told by its name alone, or by a number and a name.
  void AddGroup(const char* values, const std::vector<std::string>& names, std::int32_t code) {
    plain += values;
    fields.insert(fields.end(), names.begin(), names.end());
    groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, code});
    labelled = names.size() - 1;
  }
};

// Rows of "sum by" have their codes; 0 is the list by item, 10 and on the properties.
struct Case {
  int mode;
  int from = 1;
  int to = 2;

  static std::string Name(const Case& c) { return Join("Mode", c.mode, "Levels", c.from, "To", c.to); }
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
};
constexpr int kFirstProperty = 10;

Shape ShapeOf(const Case& c) {
  Shape shape;
  switch (c.mode) {
    case 0:
      break;
    case 1:
    case 2:
      shape.AddLevels(c.mode == 1 ? 4 : 1, c.from, c.to);
      break;
    case 3:
    case 8:
      shape.AddLevels(c.mode == 3 ? 4 : 1, c.from, c.to);
      shape.AddGroup("cust_name,", {"FCustName"}, c.to + 107);
      shape.labelled = 0;
      break;
    case 4:
      shape.AddGroup("cust,cust_name,", {"FCustNumber", "FCustName"}, c.from + 105);
      shape.AddLevels(4, c.from, c.to);
      break;
    case 5:
      shape.AddGroup("cust,cust_name,", {"FPropNumber", "FProp01"}, 102);
      shape.condition = " AND cust IS NOT NULL";
      break;
    case 6:
      shape.AddGroup("'',dept_name,", {"FPropNumber", "FProp02"}, 102);
      shape.condition = " AND dept IS NOT NULL";
      break;
    default: {
      const Property& property = kProperties[c.mode - kFirstProperty];
      const std::string values = Join(property.item_class == 1 ? "cust," : "'',", property.value, ",");
      shape.AddGroup(values.c_str(), {"FPropNumber", Join("FProp", property.id, property.item_class)}, 102);
      shape.condition = " AND cust IS NOT NULL";
    }
  }
  shape.plain += "item";
  shape.fields.emplace_back("FNumber");
  return shape;
}

// The lines that belong to no customer, grouped by customer, have a total row of their own.
void AddTotalOfNobody(std::vector<PlainRow>& rows, const std::string& code, std::size_t levels) {
  const std::string blanks(levels + 1, '|');
  const auto nobody = std::ranges::find(rows, Join("|", blanks, "|", code), &PlainRow::key);
  if (nobody == rows.end()) return;
  rows.insert(nobody + 1, PlainRow{Join("|合计", blanks, "|101"), nobody->numbers});
}

class GrossProfit : public ReportRows {
 protected:
  explicit GrossProfit(const Login& login = {}) : ReportRows(login) {}
  static void SetUpTestSuite() { Set().Run(kPrepare); }
  static void TearDownTestSuite() { Set().Run("ROLLBACK"); }

  static RecordsetRef Fetch(const Case& c, const Basis& basis,
                            const std::vector<Dictionary::Entry>& more = {}) {
    std::vector<Dictionary::Entry> chosen = {{"BDate", Date::FromYmd(2023, 1, 1)},
                                             {"EDate", Date::FromYmd(2027, 12, 31)},
                                             {"OnlyShowSum", 0},
                                             {"GroupBy", c.mode > 0 ? 1 : 0},
                                             {"SumMode", c.mode >= kFirstProperty ? 0 : c.mode},
                                             {"BLevel", c.from},
                                             {"ELevel", c.to},
                                             {"CheckState", basis.check_state},
                                             {"Cost", basis.cost},
                                             {"IncludeTax", basis.include_tax},
                                             {"TaxSource", basis.tax_source}};
    if (c.mode >= kFirstProperty)
      chosen.push_back({"SumField", SumFieldOf(kProperties[c.mode - kFirstProperty])});
    chosen.insert(chosen.end(), more.begin(), more.end());
    return RowsOf("ORVSaleRpt.Rpt176", "frmFirter176", chosen);
  }

  // The report's rows beside those that plain SQL gives under a condition.
  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const Basis& basis,
                           const std::string& condition = "") {
    ASSERT_NE(rows, nullptr);
    const Shape shape = ShapeOf(c);
    std::string columns = "1";
    std::vector<const char*> keys;
    for (std::size_t i = 0; i < shape.fields.size(); ++i) {
      if (i > 0) columns += Join(",", static_cast<int>(i) + 1);
      keys.push_back(shape.fields[i].c_str());
    }
    const std::vector<PlainRow> plain = Plain(Join(Lines(basis), shape.condition, condition, ") SELECT ",
                                                   shape.plain, ",", kSums, " FROM lines GROUP BY ", columns),
                                              static_cast<int>(keys.size()));
    EXPECT_FALSE(plain.empty());
    std::vector<PlainRow> expected = RolledUp(InOrderOf(plain, Pick(rows, 0, 0, keys, {})), shape.groups,
                                              {0, {{shape.labelled, "合计"}}, 101});
    if (c.mode == 4)
      AddTotalOfNobody(expected, Join(c.from + 105), static_cast<std::size_t>(c.to - c.from + 1));
    keys.push_back("FSumSort");
    ExpectRows(Pick(rows, 0, 200, keys, kNumbers), expected, basis.cost == 0 ? kExact : kPriced);
  }

 private:
  static DictionaryRef SumFieldOf(const Property& property) {
    auto field = std::make_shared<Dictionary>();
    field->Set("FItemClassID", property.item_class);
    field->Set("FName", "属性");
    field->Set("FPropID", property.id);
    field->Set("FSQLColumnName", property.column);
    field->Set("FSrcTable", property.table);
    field->Set("FSrcField", *property.table == 0 ? "" : "FInterID");
    field->Set("FDisplayField", *property.table == 0 ? "" : "FName");
    return field;
  }
};

// --- Every row of every grouping

class GrossProfitGroupings : public GrossProfit, public testing::WithParamInterface<Case> {};

TEST_P(GrossProfitGroupings, EveryRowIsThatOfTheTables) {
  ExpectRowsOf(Fetch(GetParam(), {}), GetParam(), {});
}

TEST_P(GrossProfitGroupings, EveryRowOfHookedBillsIsThatOfTheTables) {
  ExpectRowsOf(Fetch(GetParam(), {.check_state = 0}), GetParam(), {.check_state = 0});
}

// The rate of profit is a text of whole per cent; the unit cost is told of items, not of groups.
TEST_P(GrossProfitGroupings, RateAndUnitCostFollowFromTheFiguresOfTheRow) {
  const std::vector<PlainRow> rows = Pick(Fetch(GetParam(), {}), 0, 200, {"FSumSort", "FRate"},
                                          {"FIncomeSale", "FProfit", "FCostSale", "FQtySend", "FUnitCost"});
  for (const PlainRow& row : rows) {
    const std::vector<double>& n = row.numbers;
    const std::string code = row.key.substr(0, row.key.find('|'));
    const std::string rate = n[0] == 0 ? "" : Join(static_cast<int>(std::lround(n[1] / n[0] * 100)), "%");
    EXPECT_EQ(row.key, Join(code, "|", rate));
    EXPECT_NEAR(n[4], code == "0" && n[3] != 0 ? n[2] / n[3] : 0, kExact) << row.key;
  }
}

TEST_P(GrossProfitGroupings, EveryDetailTellsItsItemAndTheyComeInTheOrderOfTheirCodes) {
  const std::vector<PlainRow> items = Plain(
      "SELECT i.FNumber,i.FShortNumber,i.FName,i.FModel,b.FName,u.FName,i.FQtyDecimal,i.FPriceDecimal"
      " FROM t_ICItem i JOIN t_MeasureUnit b ON b.FUnitGroupID=i.FUnitGroupID AND b.FStandard=1"
      " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID ORDER BY 1",
      8);
  const RecordsetRef rows = Fetch(GetParam(), {});
  const std::vector<PlainRow> details = Pick(rows, 0, 0,
                                             {"FNumber", "FShortNumber", "FName", "FModel", "FUnitName",
                                              "FCUUnitName", "FQtyDecimal", "FPriceDecimal"},
                                             {});
  const Shape shape = ShapeOf(GetParam());
  std::vector<const char*> keys;
  for (const std::string& field : shape.fields) keys.push_back(field.c_str());
  keys.pop_back();
  const std::vector<PlainRow> groups = Pick(rows, 0, 0, keys, {});
  for (std::size_t i = 0; i < details.size(); ++i) {
    EXPECT_TRUE(std::ranges::binary_search(items, details[i].key, {}, &PlainRow::key)) << details[i].key;
    if (i == 0 || groups[i].key != groups[i - 1].key) continue;
    EXPECT_LT(details[i - 1].key, details[i].key) << groups[i].key;
  }
}

TEST_P(GrossProfitGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const std::vector<const char*> keys = {"FNumber", "FRate", "FSumSort"};
  const std::vector<PlainRow> totals =
      Pick(Fetch(GetParam(), {}, {{"OnlyShowSum", 1}}), 0, 200, keys, kNumbers);
  EXPECT_FALSE(totals.empty());
  ExpectRows(totals, Pick(Fetch(GetParam(), {}), 101, 200, keys, kNumbers), 0);
}

TEST_P(GrossProfitGroupings, NoBillsGiveNoRows) {
  EXPECT_EQ(
      Fetch(GetParam(), {}, {{"BDate", Date::FromYmd(2030, 1, 1)}, {"EDate", Date::FromYmd(2030, 1, 31)}})
          ->RecordCount(),
      0);
}

INSTANTIATE_TEST_SUITE_P(All, GrossProfitGroupings,
                         testing::Values(Case{0}, Case{1}, Case{1, 1, 1}, Case{1, 2, 3}, Case{2},
                                         Case{2, 1, 3}, Case{3}, Case{3, 2, 2}, Case{4}, Case{4, 2, 3},
                                         Case{8}, Case{8, 2, 3}, Case{5}, Case{6}, Case{10}, Case{11},
                                         Case{12}, Case{13}),
                         [](const auto& test) { return Case::Name(test.param); });

// --- States of the bills and bases of the cost

class GrossProfitBases : public GrossProfit, public testing::WithParamInterface<std::tuple<int, Basis>> {};

TEST_P(GrossProfitBases, EveryRowIsThatOfTheTables) {
  const auto& [mode, basis] = GetParam();
  ExpectRowsOf(Fetch({mode}, basis), {mode}, basis);
}

std::vector<Basis> Bases() {
  std::vector<Basis> bases;
  for (const std::int32_t state : {0, 1, 2, 3}) {
    for (const std::int32_t cost : {0, 1, 2}) bases.push_back({state, cost, 0, 0});
  }
  for (const std::int32_t state : {0, 2}) {
    for (const std::int32_t include_tax : {1, -1}) {
      for (const std::int32_t tax_source : {0, 1, 2}) bases.push_back({state, 1, include_tax, tax_source});
    }
    // Without tax in the prices the rate's source does not matter; nor do both where the price is no
    // reference.
    bases.push_back({state, 1, 0, 1});
    bases.push_back({state, 0, 1, 1});
    bases.push_back({state, 2, 1, 1});
  }
  return bases;
}
std::string NameOf(const std::tuple<int, Basis>& bases) {
  const auto& [mode, b] = bases;
  const char* tax = b.include_tax < 0 ? "MinusTax" : b.include_tax > 0 ? "Tax" : "NoTax";
  return Join("Mode", mode, "State", b.check_state, "Cost", b.cost, tax, "Source", b.tax_source);
}
INSTANTIATE_TEST_SUITE_P(All, GrossProfitBases,
                         testing::Combine(testing::Values(0), testing::ValuesIn(Bases())),
                         [](const auto& test) { return NameOf(test.param); });

// --- The filter, key by key

// A choice in the dialog, and the condition that it is in plain SQL.
struct Choice {
  const char* name;
  std::vector<Dictionary::Entry> chosen;
  const char* condition;
  bool short_codes = false;
};

const std::vector<Choice>& Choices() {
  static const std::vector<Choice> choices = {
      {"Days",
       {{"BDate", Date::FromYmd(2023, 6, 15)}, {"EDate", Date::FromYmd(2024, 5, 10)}},
       " AND date(FDate) BETWEEN '2023-06-15' AND '2024-05-10'"},
      {"FromItem", {{"BItemNumber", "01.02"}}, " AND item>='01.02'"},
      {"ToItem", {{"EItemNumber", "01.02"}}, " AND item<='01.02'"},
      {"FromCustomer", {{"BCustNumber", "01.0005"}}, " AND party_code>='01.0005'"},
      {"ToCustomer", {{"ECustNumber", "03"}}, " AND party_code<='03'"},
      {"Departments", {{"BDept", "01.02"}, {"EDept", "01.04"}}, " AND dept BETWEEN '01.02' AND '01.04'"},
      {"FromDepartment", {{"BDept", "01.05"}}, " AND dept>='01.05'"},
      {"Employees", {{"BEmp", "01.005"}, {"EEmp", "01.020"}}, " AND emp BETWEEN '01.005' AND '01.020'"},
      {"ToEmployee", {{"EEmp", "01.010"}}, " AND emp<='01.010'"},
      {"AllSaleStyles", {{"SaleType", 1}}, ""},
      {"Consigned", {{"SaleType", 103}, {"SaleTypeName", "委托代销"}}, " AND half<>'P' AND style=103"},
      {"SoldStraightOn", {{"SaleType", 20296}}, " AND style=20296"},
      {"CashSalesOfADepartment",
       {{"SaleType", 100}, {"BDept", "01.02"}, {"EDept", "01.02"}},
       " AND half<>'P' AND style=100 AND dept='01.02'"},
      {"ItemsOfCustomers",
       {{"BItemNumber", "01"}, {"EItemNumber", "02"}, {"BCustNumber", "01"}, {"ECustNumber", "02"}},
       " AND item BETWEEN '01' AND '02' AND party_code BETWEEN '01' AND '02'"},
      {"EmployeesOfDays",
       {{"BEmp", "01.005"}, {"BDate", Date::FromYmd(2024, 1, 1)}},
       " AND emp>='01.005' AND date(FDate)>='2024-01-01'"},
      {"ShortCodes",
       {{"BItemNumber", "0005"}, {"EItemNumber", "0060"}, {"BCustNumber", "0004"}, {"ECustNumber", "0040"}},
       " AND item_short BETWEEN '0005' AND '0060' AND party_short BETWEEN '0004' AND '0040'",
       true},
      {"ShortCodesOfPeople",
       {{"BDept", "02"}, {"EDept", "05"}, {"BEmp", "005"}, {"EEmp", "020"}},
       " AND dept_short BETWEEN '02' AND '05' AND emp_short BETWEEN '005' AND '020'",
       true}};
  return choices;
}

class GrossProfitChoices : public GrossProfit,
                           public testing::WithParamInterface<std::tuple<int, std::size_t>> {};

TEST_P(GrossProfitChoices, NarrowTheLines) {
  const auto& [mode, place] = GetParam();
  const Choice& choice = Choices()[place];
  Set().Run(Join("UPDATE t_SystemProfile SET FValue='", choice.short_codes ? 1 : 0,
                 "' WHERE FKey='UseShortNumber'"));
  ExpectRowsOf(Fetch({mode}, {}, choice.chosen), {mode}, {}, choice.condition);
}

INSTANTIATE_TEST_SUITE_P(All, GrossProfitChoices,
                         testing::Combine(testing::Values(0, 8),
                                          testing::Range(std::size_t{0}, Choices().size())),
                         [](const auto& test) {
                           return Join("Mode", std::get<0>(test.param),
                                       Choices()[std::get<1>(test.param)].name);
                         });

// --- Data rights: whose lists name the user, customers and in the purchases suppliers

class GrossProfitSeen : public GrossProfit, public testing::WithParamInterface<Case> {
 protected:
  GrossProfitSeen() : GrossProfit({.user_name = "业务员", .user_id = 16395}) {}
};

TEST_P(GrossProfitSeen, OnlyThePartiesThatTheUserMaySeeCount) {
  ExpectRowsOf(Fetch(GetParam(), {}), GetParam(), {}, " AND instr(seen_by,'16395')>0");
}

INSTANTIATE_TEST_SUITE_P(All, GrossProfitSeen,
                         testing::Values(Case{0}, Case{1}, Case{2}, Case{3}, Case{4}, Case{8}, Case{5},
                                         Case{6}, Case{12}),
                         [](const auto& test) { return Case::Name(test.param); });

}  // namespace
}  // namespace salerpt::middletier
