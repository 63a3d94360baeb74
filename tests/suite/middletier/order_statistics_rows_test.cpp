// Sales order statistics on a generated account set: every row of every grouping beside plain SQL.
#include <algorithm>

#include "dialogs/unattended.h"
#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// What the report must tell apart and the made-up company has too little of: currencies, one without coins;
// orders of nobody, of no department and employee, not audited, cancelled, moved; a unit without a
// coefficient; two customers of one name.
constexpr const char* kPrepare = R"sql(
BEGIN;
UPDATE SEOrder SET FCurrencyID=2,FExchangeRate=6.7681 WHERE FInterID%5=0;
UPDATE SEOrder SET FCurrencyID=5,FExchangeRate=0.0512 WHERE FInterID%7=0;
UPDATE SEOrder SET FCustID=0 WHERE FInterID%17=0;
UPDATE SEOrder SET FDeptID=0,FEmpID=0 WHERE FInterID%13=0;
UPDATE SEOrder SET FStatus=0 WHERE FInterID%19=0;
UPDATE SEOrder SET FCancelLation=1 WHERE FInterID%11=0;
UPDATE SEOrder SET FAreaPS=20303 WHERE FInterID%3=0;
UPDATE t_MeasureUnit SET FCoefficient=0 WHERE FMeasureUnitID=402;
UPDATE t_Organization SET FName='同名客户' WHERE FItemID IN
  (SELECT FCustID FROM SEOrder WHERE FCustID>0 GROUP BY FCustID ORDER BY count(*) DESC,FCustID LIMIT 2);
CREATE TEMP TABLE order_class(kind INT,level INT,code TEXT,FName TEXT,PRIMARY KEY(kind,level,code)) WITHOUT ROWID;
INSERT INTO order_class SELECT c.FItemClassID,c.FLevel,t.FNumber,c.FName FROM t_Item t JOIN t_Item c
  ON c.FItemClassID=t.FItemClassID AND c.FDetail=0 AND t.FNumber LIKE c.FNumber||'.%'
  WHERE t.FDetail=1 AND t.FItemClassID IN (1,4);
)sql";

// All order lines with what the report groups by, narrows by and sums; conditions follow. The amount in the
// order's currency has the places of that currency.
constexpr const char* kLines =
    "WITH lines AS (SELECT e.FQty qty,half_up(e.FAmount,c.FScale) org,half_up(e.FAmount*b.FExchangeRate,2) "
    "net,"
    "half_up(e.FAllAmount*b.FExchangeRate,2) gross,"
    "e.FQty/(CASE u.FCoefficient WHEN 0 THEN 1.0 ELSE u.FCoefficient*1.0 END) common,date(b.FDate) day,"
    "b.FStatus status,b.FSaleStyle style,s.FName style_name,c.FName currency,c.FNumber currency_code,"
    "i.FNumber item,i.FShortNumber item_short,i.FModel model,i.FErpClsID item_kind,o.FNumber cust,"
    "o.FShortNumber cust_short,o.FName cust_name,o.FCity city,r.FName region,o.FRightUserID seen_by,"
    "d.FNumber dept,d.FShortNumber dept_short,m.FNumber emp,m.FShortNumber emp_short,m.FName emp_name"
    " FROM SEOrder b JOIN SEOrderEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID"
    " JOIN t_Currency c ON c.FCurrencyID=b.FCurrencyID JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID"
    " JOIN t_SubMessage s ON s.FInterID=b.FSaleStyle LEFT JOIN t_Organization o ON o.FItemID=b.FCustID"
    " LEFT JOIN t_SubMessage r ON r.FInterID=o.FRegionID LEFT JOIN t_Department d ON d.FItemID=b.FDeptID"
    " LEFT JOIN t_Emp m ON m.FItemID=b.FEmpID WHERE b.FCancelLation=0";
constexpr const char* kSums = "sum(qty),sum(org),sum(net),sum(gross),sum(common)";
const std::vector<const char*> kNumbers = {"FQty", "FOrgAmount", "FAmount", "FAllAmount", "FCUUnitQty"};
constexpr std::size_t kOrg = 1;
constexpr std::size_t kNet = 2;
constexpr const char* kAudited = " AND status>0";

// Rows of "sum by" have their codes; 0 is the list by item, `kSaleStyle` the row of code 0.
struct Case {
  int mode;
  bool by_currency = false;
  int from = 1;
  int to = 2;

  static std::string Name(const Case& c) {
    return Join("Mode", c.mode, c.by_currency ? "ByCurrency" : "", "Levels", c.from, "To", c.to);
  }
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
};
constexpr int kCustomer = 5;
constexpr int kEmployee = 6;
constexpr int kSaleStyle = 7;

bool IsProperty(const Case& c) {
  return c.mode >= kCustomer;
}

// What the report is grouped by, and what its rows look like then.
struct Shape {
  std::string plain;  // the group columns in plain SQL, each with a comma behind
  std::vector<std::string> fields;
  std::vector<Group> groups;
  // The code whose rows close the blocks that an order moves; the inner groups stay as they are.
  std::int32_t block = 0;
  const char* condition = "";

  void Add(const std::string& value, const std::string& field, std::int32_t code, bool labelled = true) {
    plain += Join(value, ",");
    fields.push_back(field);
    std::vector<Label> labels;
    if (labelled) labels.push_back({fields.size() - 1, "(小计)"});
    groups.push_back({fields.size(), labels, code});
  }
  void AddLevels(int item_class, const Case& c) {
    for (int i = c.from; i <= c.to; ++i)
      Add(Join("(SELECT c.FName FROM order_class c WHERE c.kind=", item_class, " AND c.level=", i,
               " AND c.code=", item_class == 4 ? "item" : "cust", ")"),
          Join("FName", i), i + 106);
    if (item_class == 1) condition = " AND cust IS NOT NULL";
  }
  // By item the currency's name has no label, under the customer none either, and behind the first level it
  // has one only where that is level 1.
  void AddCurrency(const Case& c) {
    switch (c.mode) {
      case 0:
        return Add("currency", "FCurrencyName", 106, false);
      case 1:
      case 2:
        return Add("currency", "FCurrencyName", c.from + 105);
      case 3:
        return Add("currency", "FCurrencyName", c.from + 105, c.from == 1);
      case 4:
        return Add("currency", "FCurrencyName", c.to + 106, false);
      default:
        return Add("currency", "FCurrencyName", 102);
    }
  }
};

Shape ShapeOf(const Case& c) {
  Shape shape;
  if (c.by_currency) shape.AddCurrency(c);
  switch (c.mode) {
    case 0:
      break;
    case 1:
    case 2:
      shape.AddLevels(c.mode == 1 ? 4 : 1, c);
      break;
    case 3:
      shape.AddLevels(4, c);
      shape.Add("cust_name", "FCustName", c.to + 107);
      break;
    case 4:
      shape.Add("cust_name", "FCustName", c.from + 105);
      shape.AddLevels(4, c);
      break;
    default: {
      const std::int32_t code = c.by_currency ? 103 : 102;
      if (c.mode == kCustomer) shape.Add("cust_name", "FProp01", code);
      if (c.mode == kEmployee) shape.Add("emp_name", "FProp03", code);
      if (c.mode == kSaleStyle) shape.Add("style_name", "FProp2929", code);
    }
  }
  shape.plain += "item";
  shape.fields.emplace_back("FNumber");
  shape.block = shape.groups.empty() ? 0 : shape.groups.front().code;
  return shape;
}

std::vector<const char*> KeysOf(const Shape& shape) {
  std::vector<const char*> keys;
  for (const std::string& field : shape.fields) keys.push_back(field.c_str());
  return keys;
}

bool HasCode(const PlainRow& row, std::int32_t code) {
  return row.key.ends_with(Join("|", code));
}

class OrderStatistics : public ReportRows {
 protected:
  explicit OrderStatistics(const Login& login = {}) : ReportRows(login) { UseShortCodes(false); }
  static void UseShortCodes(bool use) {
    Set().Run(Join("UPDATE t_SystemProfile SET FValue='", use ? 1 : 0, "' WHERE FKey='UseShortNumber'"));
  }
  static void SetUpTestSuite() { Set().Run(kPrepare); }
  static void TearDownTestSuite() { Set().Run("ROLLBACK"); }

  static std::vector<Dictionary::Entry> Chosen(const Case& c, const std::vector<Dictionary::Entry>& more) {
    std::vector<Dictionary::Entry> chosen = {{"BDate", Date::FromYmd(2023, 1, 1)},
                                             {"EDate", Date::FromYmd(2027, 12, 31)},
                                             {"OnlyShowSum", 0},
                                             {"Orderby", ""},
                                             {"GroupBy", c.mode > 0 ? 1 : 0},
                                             {"SumMode", c.mode == kSaleStyle ? 0 : c.mode},
                                             {"ChkByCurrency", c.by_currency ? 1 : 0},
                                             {"BLevel", c.from},
                                             {"ELevel", c.to}};
    chosen.insert(chosen.end(), more.begin(), more.end());
    return chosen;
  }
  static ObjectRef Run(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    return RunReport("ORVSaleRpt.Rpt136", "frmFirter136", Chosen(c, more));
  }
  static RecordsetRef Fetch(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    return As<Recordset>(GetMember(Run(c, more), "Rs"));
  }
  static RecordsetRef Sort(const Case& c) { return Fetch(c, {{"Orderby", "FAmount DESC"}}); }

  static std::vector<PlainRow> RowsOf(const RecordsetRef& rows, const Case& c) {
    const Shape shape = ShapeOf(c);
    std::vector<const char*> keys = KeysOf(shape);
    keys.push_back("FSumSort");
    return Pick(rows, 0, 200, keys, kNumbers);
  }

  // The rows that plain SQL gives under a condition, the details in the order of `rows`.
  static std::vector<PlainRow> Expected(const RecordsetRef& rows, const Case& c,
                                        const std::string& condition = kAudited) {
    const Shape shape = ShapeOf(c);
    const std::vector<const char*> keys = KeysOf(shape);
    std::string columns = "1";
    for (std::size_t i = 2; i <= keys.size(); ++i) columns += Join(",", static_cast<int>(i));
    const std::vector<PlainRow> plain = Plain(Join(kLines, shape.condition, condition, ") SELECT ",
                                                   shape.plain, ",", kSums, " FROM lines GROUP BY ", columns),
                                              static_cast<int>(keys.size()));
    EXPECT_FALSE(plain.empty());
    std::vector<PlainRow> expected =
        RolledUp(InOrderOf(plain, Pick(rows, 0, 0, keys, {})), shape.groups, {0, {{0, "合计"}}, 101});
    // Over all currencies only the base currency can be summed; under currency and customer the plain sum of
    // all stays.
    if (c.by_currency && c.mode != 4 && !expected.empty())
      expected.back().numbers[kOrg] = expected.back().numbers[kNet];
    return expected;
  }

  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const std::string& condition = kAudited) {
    ASSERT_NE(rows, nullptr);
    ExpectRows(RowsOf(rows, c), Expected(rows, c, condition));
  }
};

// --- Every row of every grouping

class OrderGroupings : public OrderStatistics, public testing::WithParamInterface<Case> {
 protected:
  static void ExpectItemsInOrder(const RecordsetRef& rows, const Shape& shape) {
    std::vector<const char*> keys = KeysOf(shape);
    const std::vector<PlainRow> items = Pick(rows, 0, 0, {"FNumber"}, {});
    keys.pop_back();
    const std::vector<PlainRow> groups = Pick(rows, 0, 0, keys, {});
    for (std::size_t i = 1; i < items.size(); ++i) {
      if (groups[i].key != groups[i - 1].key) continue;
      EXPECT_LT(items[i - 1].key, items[i].key) << groups[i].key;
    }
  }
  static void ExpectItemsTold(const RecordsetRef& rows) {
    const std::vector<PlainRow> items = Plain(
        "SELECT i.FNumber,i.FShortNumber,i.FName,i.FModel,b.FName,u.FName,i.FQtyDecimal,i.FPriceDecimal"
        " FROM t_ICItem i JOIN t_MeasureUnit b ON b.FUnitGroupID=i.FUnitGroupID AND b.FStandard=1"
        " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID ORDER BY 1",
        8);
    for (const PlainRow& row : Pick(rows, 0, 0,
                                    {"FNumber", "FShortNumber", "FName", "FModel", "FUnitName", "FCUUnitName",
                                     "FQtyDecimal", "FPriceDecimal"},
                                    {})) {
      EXPECT_TRUE(std::ranges::binary_search(items, row.key, {}, &PlainRow::key)) << row.key;
    }
  }
  // The total over all currencies has no places of its own.
  static void ExpectPlaces(const RecordsetRef& rows) {
    const std::vector<PlainRow> places = Plain(
        "SELECT FName,FScale FROM t_Currency UNION SELECT FName||'(小计)',FScale FROM t_Currency"
        " UNION SELECT '合计','' ORDER BY 1,2",
        2);
    for (const PlainRow& row : Pick(rows, 0, 200, {"FCurrencyName", "FAmountDecimal"}, {}))
      EXPECT_NE(std::ranges::find(places, row.key, &PlainRow::key), places.end()) << row.key;
  }
};

TEST_P(OrderGroupings, EveryRowIsThatOfTheTables) {
  const RecordsetRef rows = Fetch(GetParam());
  ExpectRowsOf(rows, GetParam());
  ExpectItemsInOrder(rows, ShapeOf(GetParam()));
  ExpectItemsTold(rows);
  if (GetParam().by_currency) ExpectPlaces(rows);
}

TEST_P(OrderGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const std::vector<PlainRow> totals = RowsOf(Fetch(GetParam(), {{"OnlyShowSum", 1}}), GetParam());
  std::vector<PlainRow> whole = RowsOf(Fetch(GetParam()), GetParam());
  std::erase_if(whole, [](const PlainRow& row) { return HasCode(row, 0); });
  EXPECT_FALSE(totals.empty());
  ExpectRows(totals, whole, 0);
}

TEST_P(OrderGroupings, NoOrdersGiveNoRows) {
  EXPECT_EQ(Fetch(GetParam(), {{"BDate", Date::FromYmd(2030, 1, 1)}, {"EDate", Date::FromYmd(2030, 1, 31)}})
                ->RecordCount(),
            0);
}

// --- With an order

// Whole blocks move, each closed by its row of `code`, by the amount of that row, the greatest first; what
// no such row closes stands behind.
std::vector<PlainRow> ByAmount(const std::vector<PlainRow>& rows, std::int32_t code) {
  std::vector<std::vector<PlainRow>> blocks(1);
  for (const PlainRow& row : rows) {
    blocks.back().push_back(row);
    if (HasCode(row, code)) blocks.emplace_back();
  }
  std::stable_sort(blocks.begin(), blocks.end() - 1, [](const auto& a, const auto& b) {
    return a.back().numbers[kNet] > b.back().numbers[kNet];
  });
  std::vector<PlainRow> sorted;
  for (const auto& block : blocks) sorted.insert(sorted.end(), block.begin(), block.end());
  return sorted;
}

TEST_P(OrderGroupings, AnOrderMovesTheBlocksOfTheOutermostGroup) {
  const Case& c = GetParam();
  if (c.by_currency && (IsProperty(c) || c.mode == 0 || c.mode == 4)) return;
  const RecordsetRef rows = Sort(c);
  ExpectRows(RowsOf(rows, c), ByAmount(Expected(rows, c), ShapeOf(c).block));
  ExpectItemsTold(rows);
  if (c.by_currency) ExpectPlaces(rows);
}

// What the dialog opens with: the code of the item, which subtotals do not have.
TEST_P(OrderGroupings, TheOrderOfTheDialogKeepsEveryRow) {
  const Case& c = GetParam();
  if (c.by_currency && (IsProperty(c) || c.mode == 4)) return;
  const RecordsetRef rows = Fetch(c, {{"Orderby", "FNumber ASC"}});
  ExpectRows(Sorted(RowsOf(rows, c)), Sorted(Expected(rows, c)));
  EXPECT_TRUE(HasCode(RowsOf(rows, c).back(), 101));
}

INSTANTIATE_TEST_SUITE_P(All, OrderGroupings,
                         testing::Values(Case{0}, Case{0, true}, Case{1, false, 1, 1}, Case{1},
                                         Case{1, false, 1, 3}, Case{1, false, 2, 3}, Case{1, false, 3, 3},
                                         Case{1, true, 1, 1}, Case{1, true}, Case{1, true, 2, 3},
                                         Case{2, false, 1, 1}, Case{2}, Case{2, false, 2, 3}, Case{2, true},
                                         Case{2, true, 2, 2}, Case{3, false, 1, 1}, Case{3},
                                         Case{3, false, 2, 3}, Case{3, true}, Case{3, true, 2, 3},
                                         Case{4, false, 1, 1}, Case{4}, Case{4, false, 2, 3},
                                         Case{4, true, 1, 1}, Case{4, true}, Case{4, true, 2, 3}, Case{5},
                                         Case{5, true}, Case{6}, Case{6, true}, Case{7}, Case{7, true}),
                         [](const auto& test) { return Case::Name(test.param); });

TEST_F(OrderStatistics, AnOrderMovesTheItemsWithinTheirCurrency) {
  const Case c = {0, true};
  std::vector<PlainRow> expected = Expected(Fetch(c), c);
  auto begin = expected.begin();
  for (auto row = begin; row != expected.end(); ++row) {
    if (HasCode(*row, 0)) continue;
    std::stable_sort(begin, row,
                     [](const auto& a, const auto& b) { return a.numbers[kNet] > b.numbers[kNet]; });
    begin = row + 1;
  }
  ExpectRows(RowsOf(Sort(c), c), expected);
}

// The subtotals of currency and innermost class share a code: innermost blocks move, and the subtotals
// between them come once more behind.
TEST_F(OrderStatistics, AnOrderUnderCurrencyAndCustomerBringsTheSubtotalsBetweenTwice) {
  for (const Case& c : {Case{4, true, 1, 1}, Case{4, true, 1, 2}, Case{4, true, 2, 3}}) {
    const RecordsetRef rows = Sort(c);
    std::vector<PlainRow> expected = Expected(Fetch(c), c);
    const std::vector<PlainRow> once = expected;
    for (const PlainRow& row : once) {
      if (!HasCode(row, 0) && !HasCode(row, 101) && !HasCode(row, c.to + 106)) expected.push_back(row);
    }
    ExpectRows(Sorted(RowsOf(rows, c)), Sorted(expected));
  }
}

TEST_F(OrderStatistics, TheServerRejectsAnOrderUnderCurrencyAndProperty) {
  for (const int mode : {kCustomer, kEmployee, kSaleStyle}) {
    const ObjectRef report = CreateObject("ORVSaleRpt.Rpt136");
    SetMember(report, "Filter",
              ConfirmedFilter("frmFirter136", Chosen({mode, true}, {{"Orderby", "FNumber ASC"}})));
    Call(report, "GetReportData");
    const auto result = As<Dictionary>(GetMember(report, "Result"));
    EXPECT_FALSE(result->Get("OK").ToBoolean());
    EXPECT_NE(result->Get("Error").TextOrEmpty().find("TemData"), std::string::npos)
        << result->Get("Error").TextOrEmpty();
  }
}

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
      {"NotAudited", {{"CheckState", 1}}, " AND status=0"},
      {"AnyState", {{"CheckState", 2}}, ""},
      {"Days",
       {{"BDate", Date::FromYmd(2023, 6, 15)}, {"EDate", Date::FromYmd(2024, 5, 10)}},
       " AND status>0 AND day BETWEEN '2023-06-15' AND '2024-05-10'"},
      {"FromItem", {{"BItemNumber", "01.02"}}, " AND status>0 AND item>='01.02'"},
      {"ToItem", {{"EItemNumber", "01.02"}}, " AND status>0 AND item<='01.02'"},
      {"FromCustomer", {{"BCustNumber", "01.02"}}, " AND status>0 AND cust>='01.02'"},
      {"ToCustomer", {{"ECustNumber", "02"}}, " AND status>0 AND cust<='02'"},
      {"FromDepartment", {{"BDepartNumber", "01.04"}}, " AND status>0 AND dept>='01.04'"},
      {"ToDepartment", {{"EDepartNumber", "01.04"}}, " AND status>0 AND dept<='01.04'"},
      {"FromEmployee", {{"BEmpNumber", "01.009"}}, " AND status>0 AND emp>='01.009'"},
      {"ToEmployee", {{"EEmpNumber", "01.016"}}, " AND status>0 AND emp<='01.016'"},
      {"FromCurrency", {{"BCurrencyNumber", "JPY"}}, " AND status>0 AND currency_code>='JPY'"},
      {"ToCurrency", {{"ECurrencyNumber", "EUR"}}, " AND status>0 AND currency_code<='EUR'"},
      {"AllSaleStyles", {{"SaleType", 1}}, kAudited},
      {"Consigned", {{"SaleType", 103}, {"SaleTypeName", "委托代销"}}, " AND status>0 AND style=103"},
      {"OrderTypeIsNotAsked", {{"OrderType", 20303}, {"OrderTypeName", "调拨"}}, kAudited},
      {"NextTimeWithoutDialog", {{"chkNextChoose", 1}}, kAudited},
      {"Services", {{"CommodityType", 1}}, " AND status>0 AND item_kind=4"},
      {"NoServices", {{"CommodityType", 2}}, " AND status>0 AND item_kind<>4"},
      {"ItemsOfCustomers",
       {{"BItemNumber", "01"}, {"EItemNumber", "02"}, {"BCustNumber", "01"}, {"ECustNumber", "02"}},
       " AND status>0 AND item BETWEEN '01' AND '02' AND cust BETWEEN '01' AND '02'"},
      {"CurrencyOfEmployees",
       {{"BCurrencyNumber", "JPY"}, {"ECurrencyNumber", "JPY"}, {"EEmpNumber", "01.016"}},
       " AND status>0 AND currency_code='JPY' AND emp<='01.016'"},
      {"ShortCodes",
       {{"BItemNumber", "0005"}, {"EItemNumber", "0060"}, {"BCustNumber", "0004"}, {"ECustNumber", "0040"}},
       " AND status>0 AND item_short BETWEEN '0005' AND '0060' AND cust_short BETWEEN '0004' AND '0040'",
       true},
      {"ShortCodesOfPeople",
       {{"BDepartNumber", "02"},
        {"EDepartNumber", "05"},
        {"BEmpNumber", "005"},
        {"EEmpNumber", "018"},
        {"BCurrencyNumber", "JPY"}},
       " AND status>0 AND dept_short BETWEEN '02' AND '05' AND emp_short BETWEEN '005' AND '018'"
       " AND currency_code>='JPY'",
       true}};
  return choices;
}

class OrderChoices : public OrderStatistics,
                     public testing::WithParamInterface<std::tuple<Case, std::size_t>> {};

TEST_P(OrderChoices, NarrowTheLines) {
  const auto& [c, place] = GetParam();
  const Choice& choice = Choices()[place];
  UseShortCodes(choice.short_codes);
  ExpectRowsOf(Fetch(c, choice.chosen), c, choice.condition);
}

INSTANTIATE_TEST_SUITE_P(All, OrderChoices,
                         testing::Combine(testing::Values(Case{0}, Case{2}, Case{3, true}, Case{kEmployee}),
                                          testing::Range(std::size_t{0}, Choices().size())),
                         [](const auto& test) {
                           return Join(Case::Name(std::get<0>(test.param)),
                                       Choices()[std::get<1>(test.param)].name);
                         });

// --- Data rights: customers whose lists name the user

class OrdersSeen : public OrderStatistics, public testing::WithParamInterface<Case> {
 protected:
  OrdersSeen() : OrderStatistics({.user_name = "业务员", .user_id = 16395}) {}
};

TEST_P(OrdersSeen, OnlyTheCustomersThatTheUserMaySeeCount) {
  ExpectRowsOf(Fetch(GetParam()), GetParam(), " AND status>0 AND instr(seen_by,'16395')>0");
  ExpectRowsOf(Fetch(GetParam(), {{"ECustNumber", "02"}, {"CheckState", 2}}), GetParam(),
               " AND cust<='02' AND instr(seen_by,'16395')>0");
}

INSTANTIATE_TEST_SUITE_P(All, OrdersSeen,
                         testing::Values(Case{0}, Case{0, true}, Case{1}, Case{2, true}, Case{3},
                                         Case{4, true}, Case{5}, Case{7, true}),
                         [](const auto& test) { return Case::Name(test.param); });

// --- Drill into the outbound detail

class OrderDrill : public OrderStatistics, public testing::WithParamInterface<std::tuple<int, bool>> {};

TEST_P(OrderDrill, ShowsTheLinesOfTheItemForTheCustomersOfTheFilter) {
  const auto& [mode, short_codes] = GetParam();
  UseShortCodes(short_codes);
  const ObjectRef report = Run({mode}, {{"BDate", Date::FromYmd(2023, 2, 1)},
                                        {"EDate", Date::FromYmd(2024, 12, 31)},
                                        {"BCustNumber", short_codes ? "0003" : "01"},
                                        {"ECustNumber", short_codes ? "0045" : "02"}});
  const std::vector<PlainRow> rows =
      Pick(As<Recordset>(GetMember(report, "Rs")), 0, 200, {"FNumber", "FSumSort"}, {});
  const auto lines = [code = short_codes ? "o.FShortNumber BETWEEN '0003' AND '0045'"
                                         : "o.FNumber BETWEEN '01' AND '02'"](
                         const char* bill, const char* party, const char* kinds, const char* quantities) {
    return Join("SELECT b.FBillNo,e.FEntryID,i.FNumber item,", quantities, " FROM ", bill, " b JOIN ", bill,
                "Entry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID JOIN t_Organization o ON "
                "o.FItemID=b.",
                party, " WHERE b.FTranType IN ", kinds, " AND b.FStatus>0 AND b.FCancelLation=0 AND ", code,
                " AND date(b.FDate) BETWEEN '2023-02-01' AND '2024-12-31'");
  };
  const std::string all = Join(lines("ICStockBill", "FSupplyID", "(21)", "e.FQty,0"), " UNION ALL ",
                               lines("ICSale", "FCustID", "(80,86)", "0,e.FQty"));
  std::size_t details = 0;
  for (std::size_t i = 0; i < rows.size(); i += 17) {
    const ObjectRef detail = Call(report, "GetDetailReport", static_cast<std::int32_t>(i)).ToObject();
    EXPECT_EQ(detail != nullptr, HasCode(rows[i], 0)) << rows[i].key;
    if (detail == nullptr) continue;
    const std::string item = rows[i].key.substr(0, rows[i].key.find('|'));
    const std::vector<PlainRow> shown = Pick(As<Recordset>(GetMember(detail, "Rs")), 0, 0,
                                             {"FBillNo", "FEntryID", "FNumber"}, {"FOutQty", "FCommitQty"});
    ExpectRows(Sorted(shown), Sorted(Plain(Join("SELECT * FROM (", all, ") WHERE item='", item, "'"), 3)));
    details += shown.size();
  }
  EXPECT_GT(details, 0u);
}

INSTANTIATE_TEST_SUITE_P(All, OrderDrill, testing::Combine(testing::Values(0, 1, kCustomer), testing::Bool()),
                         [](const auto& test) {
                           return Join("Mode", std::get<0>(test.param),
                                       std::get<1>(test.param) ? "ShortCodes" : "");
                         });

}  // namespace
}  // namespace salerpt::middletier
