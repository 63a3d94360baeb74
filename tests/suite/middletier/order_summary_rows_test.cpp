// Order execution summary on a generated account set: every row of every grouping beside plain SQL.
#include <algorithm>
#include <map>

#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// What the report must tell apart and the made-up company has too little of: orders of nobody, of no
// department and employee, not audited, cancelled, moved, delivered by invoice (20296); outbound bills of
// another customer, employee and sale style than their order, cancelled, not audited, those out of the stock
// or not; deliveries of another item, from no stock; a unit without a coefficient; two customers of one name.
constexpr const char* kPrepare = R"sql(
BEGIN;
UPDATE SEOrder SET FCustID=0 WHERE FInterID%17=0;
UPDATE SEOrder SET FDeptID=0,FEmpID=0 WHERE FInterID%13=0;
UPDATE SEOrder SET FStatus=0 WHERE FInterID%19=0;
UPDATE SEOrder SET FCancelLation=1 WHERE FInterID%11=0;
UPDATE SEOrder SET FAreaPS=20303 WHERE FInterID%3=0;
UPDATE SEOrder SET FSaleStyle=20296 WHERE FInterID%6=0;
UPDATE ICStockBillEntry SET FOrderInterID=NULL WHERE FOrderInterID%6=0;
UPDATE ICStockBill SET FSupplyID=(SELECT max(FItemID) FROM t_Organization) WHERE FTranType=21 AND FInterID%7=0;
UPDATE ICStockBill SET FEmpID=0 WHERE FTranType=21 AND FInterID%11=0;
UPDATE ICStockBill SET FSaleStyle=102 WHERE FTranType=21 AND FInterID%13=0;
UPDATE ICStockBill SET FStatus=0,FUpStockWhenSave=FInterID%2 WHERE FTranType=21 AND FInterID%5=0;
UPDATE ICStockBill SET FCancelLation=1 WHERE FTranType=21 AND FInterID%3=0;
UPDATE ICStockBillEntry SET FItemID=(SELECT min(FItemID) FROM ICStockBillEntry WHERE FOrderInterID>0)
  WHERE FOrderInterID>0 AND (FInterID+FEntryID)%31=0;
UPDATE ICStockBillEntry SET FDCStockID=0 WHERE FOrderInterID>0 AND (FInterID+FEntryID)%37=0;
UPDATE t_MeasureUnit SET FCoefficient=0 WHERE FMeasureUnitID=402;
CREATE TEMP TABLE twins AS SELECT FCustID FROM SEOrder WHERE FCustID>0 GROUP BY FCustID ORDER BY count(*) DESC,FCustID
  LIMIT 2;
UPDATE t_Organization SET FName='同名客户' WHERE FItemID IN (SELECT FCustID FROM twins);
UPDATE t_Item SET FName='同名客户' WHERE FItemID IN (SELECT FCustID FROM twins);
CREATE TEMP TABLE order_class(kind INT,level INT,code TEXT,FName TEXT,FNumber TEXT,PRIMARY KEY(kind,level,code))
  WITHOUT ROWID;
INSERT INTO order_class SELECT c.FItemClassID,c.FLevel,t.FNumber,c.FName,c.FNumber FROM t_Item t JOIN t_Item c
  ON c.FItemClassID=t.FItemClassID AND c.FDetail=0 AND t.FNumber LIKE c.FNumber||'.%'
  WHERE t.FDetail=1 AND t.FItemClassID IN (1,4,10);
)sql";

// All order lines ('O'), and what was delivered of them by outbound bill ('S') or, of goods sold on
// commission, by invoice ('I'). Delivered goods are the customer's, the employee's and of the sale style that
// the delivering bill names, and no branch company's. Everything is narrowed by the order; conditions follow.
constexpr const char* kLines =
    "WITH half AS (SELECT 'O' half,o.FInterID,e.FItemID,o.FCustID party_id,o.FSaleStyle style,o.FEmpID "
    "emp_id,"
    "o.FRelateBrID branch_id,e.FQty ordered,0 sent FROM SEOrder o JOIN SEOrderEntry e USING(FInterID)"
    " UNION ALL SELECT 'S',o.FInterID,d.FItemID,b.FSupplyID,b.FSaleStyle,b.FEmpID,0,0,d.FQty"
    " FROM SEOrder o JOIN ICStockBillEntry d ON d.FOrderInterID=o.FInterID JOIN ICStockBill b"
    " ON b.FInterID=d.FInterID WHERE b.FTranType=21 AND d.FDCStockID IN (SELECT FItemID FROM t_Stock)"
    " AND (b.FStatus>0 OR b.FUpStockWhenSave=1 AND b.FCancelLation=0)"
    " UNION ALL SELECT 'I',o.FInterID,d.FItemID,s.FCustID,s.FSaleStyle,s.FEmpID,0,0,d.FQty"
    " FROM SEOrder o JOIN ICSaleEntry d ON d.FOrderInterID=o.FInterID JOIN ICSale s ON s.FInterID=d.FInterID"
    " WHERE o.FSaleStyle=20296),"
    " lines AS (SELECT h.*,date(o.FDate) day,o.FBillNo bill,o.FStatus status,o.FCancelLation cancelled,"
    "i.FNumber item,i.FShortNumber item_short,i.FModel model,i.FErpClsID item_kind,"
    "CASE u.FCoefficient WHEN 0 THEN 1.0 ELSE u.FCoefficient*1.0 END unit,c.FNumber cust,"
    "c.FShortNumber cust_short,c.FName cust_name,c.FRightUserID seen_by,p.FNumber party,"
    "p.FShortNumber party_short,p.FName party_name,p.FCity city,g.FName region,y.FName style_name,"
    "w.FName seller,k.FNumber company,k.FShortNumber company_short,b.FNumber branch,d.FNumber dept,"
    "d.FShortNumber dept_short,m.FNumber emp,m.FShortNumber emp_short"
    " FROM half h JOIN SEOrder o ON o.FInterID=h.FInterID JOIN t_ICItem i ON i.FItemID=h.FItemID"
    " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID LEFT JOIN t_Organization c ON c.FItemID=o.FCustID"
    " LEFT JOIN t_Organization p ON p.FItemID=h.party_id LEFT JOIN t_SubMessage g ON g.FInterID=p.FRegionID"
    " LEFT JOIN t_SubMessage y ON y.FInterID=h.style LEFT JOIN t_Emp w ON w.FItemID=h.emp_id"
    " LEFT JOIN t_SonCompany k ON k.FItemID=o.FRelateBrID LEFT JOIN t_SonCompany b ON b.FItemID=h.branch_id"
    " LEFT JOIN t_Department d ON d.FItemID=o.FDeptID LEFT JOIN t_Emp m ON m.FItemID=o.FEmpID WHERE 1=1";
constexpr const char* kSums =
    "sum(ordered),sum(sent),sum(ordered)-sum(sent),sum(ordered/unit),sum(sent/unit),sum((ordered-sent)/unit)";
const std::vector<const char*> kNumbers = {"FOrderQty",       "FCommitQty",       "FUnCommitQty",
                                           "FCUUnitOrderQty", "FCUUnitCommitQty", "FCUUnitUnCommitQty"};
// What is invoiced counts whatever the state of order and invoice.
constexpr const char* kAudited = " AND (half='I' OR cancelled=0 AND status>0)";

// Rows of "sum by" have their codes; 0 is the list by item, 6 a host's, `kSaleStyle` the row of code 0, from
// `kFirstProperty` on a host's properties.
struct Case {
  int mode;
  int from = 1;
  int to = 2;

  static std::string Name(const Case& c) { return Join("Mode", c.mode, "Levels", c.from, "To", c.to); }
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
};
constexpr int kCustomer = 5;
constexpr int kBranches = 6;
constexpr int kEmployee = 7;
constexpr int kSaleStyle = 8;
constexpr int kFirstProperty = 9;

struct Property {
  std::int32_t item_class;
  std::int32_t id;
  const char* column;
  const char* table;
  const char* value;
};
constexpr Property kProperties[] = {{1, 101, "FRegionID", "t_SubMessage", "region"},
                                    {1, 105, "FCity", "", "city"},
                                    {4, 105, "FModel", "", "model"}};
const Property& PropertyOf(const Case& c) {
  return kProperties[c.mode - kFirstProperty];
}

// What the report is grouped by, and what its rows look like then.
struct Shape {
  std::string plain;  // the group columns in plain SQL, each with a comma behind
  std::vector<std::string> fields;
  std::vector<Group> groups;
  int level_class = 0;
  std::size_t first_level = 0;  // its field
  const char* condition = "";

  void Add(const std::string& value, const std::string& field, std::int32_t code) {
    plain += Join(value, ",");
    fields.push_back(field);
    groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, code});
  }
  // What belongs to no branch company stands under blank levels. The labels of levels tell their numbers.
  void AddLevels(int item_class, const Case& c) {
    const char* code = item_class == 4 ? "item" : item_class == 1 ? "party" : "branch";
    level_class = item_class;
    first_level = fields.size();
    for (int i = c.from; i <= c.to; ++i) {
      Add(Join("(SELECT c.FName FROM order_class c WHERE c.kind=", item_class, " AND c.level=", i,
               " AND c.code=", code, ")"),
          Join("FName", i), i + 106);
      groups.back().labels.clear();
    }
    if (item_class == 1) condition = " AND party IS NOT NULL";
  }
};

Shape ShapeOf(const Case& c) {
  Shape shape;
  switch (c.mode) {
    case 0:
      break;
    case 1:
      shape.AddLevels(4, c);
      break;
    case 2:
      shape.AddLevels(1, c);
      break;
    case 3:
      shape.AddLevels(4, c);
      shape.Add("party_name", "FCustName", c.to + 107);
      break;
    case 4:
      shape.Add("party_name", "FCustName", c.from + 105);
      shape.AddLevels(4, c);
      break;
    case kCustomer:
      shape.Add("party_name", "FProp02", 102);
      break;
    case kBranches:
      shape.AddLevels(10, c);
      break;
    case kEmployee:
      shape.Add("seller", "FProp03", 102);
      break;
    case kSaleStyle:
      shape.Add("style_name", "FProp291", 102);
      break;
    default:
      shape.Add(PropertyOf(c).value, Join("FProp", PropertyOf(c).id, PropertyOf(c).item_class), 102);
  }
  shape.plain += "item";
  shape.fields.emplace_back("FNumber");
  return shape;
}

std::vector<const char*> KeysOf(const Shape& shape) {
  std::vector<const char*> keys;
  for (const std::string& field : shape.fields) keys.push_back(field.c_str());
  return keys;
}

class OrderSummary : public ReportRows {
 protected:
  explicit OrderSummary(const Login& login = {}) : ReportRows(login) { UseShortCodes(false); }
  static void UseShortCodes(bool use) {
    Set().Run(Join("UPDATE t_SystemProfile SET FValue='", use ? 1 : 0, "' WHERE FKey='UseShortNumber'"));
  }
  static void SetUpTestSuite() { Set().Run(kPrepare); }
  static void TearDownTestSuite() { Set().Run("ROLLBACK"); }

  static ObjectRef Run(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    std::vector<Dictionary::Entry> chosen = {{"BDate", Date::FromYmd(2023, 1, 1)},
                                             {"EDate", Date::FromYmd(2027, 12, 31)},
                                             {"OnlyShowSum", 0},
                                             {"GroupBy", c.mode > 0 ? 1 : 0},
                                             {"SumMode", c.mode == kSaleStyle ? 0 : c.mode},
                                             {"BLevel", c.from},
                                             {"ELevel", c.to}};
    if (c.mode >= kFirstProperty) chosen.emplace_back("SumField", SumFieldOf(PropertyOf(c)));
    chosen.insert(chosen.end(), more.begin(), more.end());
    return RunReport("ORVSaleRpt.Rpt138", "frmFirter138", chosen);
  }
  static RecordsetRef Fetch(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    return As<Recordset>(GetMember(Run(c, more), "Rs"));
  }

  // The report's rows beside those that plain SQL gives under a condition.
  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const std::string& condition = kAudited) {
    ASSERT_NE(rows, nullptr);
    const Shape shape = ShapeOf(c);
    std::vector<const char*> keys = KeysOf(shape);
    std::string columns = "1";
    for (std::size_t i = 2; i <= keys.size(); ++i) columns += Join(",", static_cast<int>(i));
    const std::vector<PlainRow> plain = Plain(Join(kLines, shape.condition, condition, ") SELECT ",
                                                   shape.plain, ",", kSums, " FROM lines GROUP BY ", columns),
                                              static_cast<int>(keys.size()));
    EXPECT_FALSE(plain.empty());
    std::vector<PlainRow> expected =
        RolledUp(InOrderOf(plain, Pick(rows, 0, 0, keys, {})), shape.groups, {0, {{0, "合计"}}, 101});
    LabelLevels(expected, c, shape);
    keys.push_back("FSumSort");
    ExpectRows(Pick(rows, 0, 200, keys, kNumbers), expected);
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

  // The number of a class is that of the item above the subtotal; of customers and branch companies there is
  // one only where a customer has the item's code.
  static void LabelLevels(std::vector<PlainRow>& rows, const Case& c, const Shape& shape) {
    if (shape.level_class == 0) return;
    std::map<std::string, std::string> numbers;
    for (const PlainRow& row :
         Plain(Join("SELECT level,code,FName,FNumber FROM order_class WHERE kind=", shape.level_class), 4)) {
      const std::size_t end = row.key.rfind('|');
      numbers[row.key.substr(0, end)] = row.key.substr(end + 1);
    }
    std::string item;
    for (PlainRow& row : rows) {
      std::vector<std::string> fields = Split(row.key);
      const int code = std::stoi(fields.back());
      if (code == 0) item = fields[fields.size() - 2];
      const int level = code - 106;
      if (level < c.from || level > c.to) continue;
      std::string& name = fields[shape.first_level + static_cast<std::size_t>(level - c.from)];
      const auto number = numbers.find(Join(level, "|", item, "|", name));
      name += number == numbers.end() ? "(小计)" : Join("[", number->second, "](小计)");
      row.key.clear();
      for (const std::string& field : fields)
        row.key += (row.key.empty() && &field == &fields[0] ? "" : "|") + field;
    }
  }
  static std::vector<std::string> Split(const std::string& key) {
    std::vector<std::string> fields(1);
    for (const char sign : key) {
      if (sign == '|') {
        fields.emplace_back();
      } else {
        fields.back() += sign;
      }
    }
    return fields;
  }
};

// --- Every row of every grouping

class SummaryGroupings : public OrderSummary, public testing::WithParamInterface<Case> {
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
  // The common unit is the one in which the quantities are.
  static void ExpectItemsTold(const RecordsetRef& rows) {
    const std::vector<PlainRow> items = Plain(
        "SELECT i.FNumber,i.FShortNumber,i.FName,i.FModel,b.FName,u.FName,i.FQtyDecimal,i.FPriceDecimal"
        " FROM t_ICItem i JOIN t_MeasureUnit b ON b.FUnitGroupID=i.FUnitGroupID AND b.FStandard=1"
        " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID ORDER BY 1",
        8);
    for (const PlainRow& row : Pick(rows, 0, 0,
                                    {"FNumber", "FShortNumber", "FName", "FModel", "FUnitName", "FCUUnitName",
                                     "FQtyDecimal", "FPriceDecimal"},
                                    {})) {
      EXPECT_TRUE(std::ranges::binary_search(items, row.key, {}, &PlainRow::key)) << row.key;
    }
  }
};

TEST_P(SummaryGroupings, EveryRowIsThatOfTheTables) {
  const RecordsetRef rows = Fetch(GetParam());
  ExpectRowsOf(rows, GetParam());
  ExpectItemsInOrder(rows, ShapeOf(GetParam()));
  ExpectItemsTold(rows);
}

TEST_P(SummaryGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const Shape shape = ShapeOf(GetParam());
  std::vector<const char*> keys = KeysOf(shape);
  const std::vector<PlainRow> totals = Pick(Fetch(GetParam(), {{"OnlyShowSum", 1}}), 0, 200, keys, kNumbers);
  EXPECT_FALSE(totals.empty());
  ExpectRows(totals, Pick(Fetch(GetParam()), 101, 200, keys, kNumbers), 0);
}

TEST_P(SummaryGroupings, NoOrdersGiveNoRows) {
  EXPECT_EQ(Fetch(GetParam(), {{"BDate", Date::FromYmd(2030, 1, 1)}, {"EDate", Date::FromYmd(2030, 1, 31)}})
                ->RecordCount(),
            0);
}

INSTANTIATE_TEST_SUITE_P(All, SummaryGroupings,
                         testing::Values(Case{0}, Case{1, 1, 1}, Case{1}, Case{1, 1, 3}, Case{1, 2, 3},
                                         Case{1, 3, 3}, Case{2, 1, 1}, Case{2}, Case{2, 2, 3}, Case{3, 1, 1},
                                         Case{3}, Case{3, 2, 3}, Case{4, 1, 1}, Case{4}, Case{4, 2, 3},
                                         Case{5}, Case{6, 1, 1}, Case{6}, Case{7}, Case{8}, Case{9}, Case{10},
                                         Case{11}),
                         [](const auto& test) { return Case::Name(test.param); });

// --- The filter, key by key

// A choice in the dialog, and the condition that it is in plain SQL.
struct Choice {
  const char* name;
  std::vector<Dictionary::Entry> chosen;
  std::string condition;
  bool short_codes = false;
};

const std::vector<Choice>& Choices() {
  const std::string audited = kAudited;
  static const std::vector<Choice> choices = {
      {"NotAudited", {{"CheckState", 1}}, " AND (half='I' OR cancelled=0 AND status=0)"},
      {"AnyState", {{"CheckState", 2}}, " AND (half='I' OR cancelled=0)"},
      {"Open", {{"CloseState", 1}}, audited + " AND (half='I' OR status<>3)"},
      {"Closed", {{"CloseState", 2}}, audited + " AND (half='I' OR status=3)"},
      {"DaysOfTheOrder",
       {{"BDate", Date::FromYmd(2023, 6, 15)}, {"EDate", Date::FromYmd(2024, 5, 10)}},
       audited + " AND day BETWEEN '2023-06-15' AND '2024-05-10'"},
      {"FromItem", {{"BItemNumber", "01.02"}}, audited + " AND item>='01.02'"},
      {"ToItem", {{"EItemNumber", "01.02"}}, audited + " AND item<='01.02'"},
      {"FromCustomer", {{"BCustNumber", "01.02"}}, audited + " AND cust>='01.02'"},
      {"ToCustomer", {{"ECustNumber", "02"}}, audited + " AND cust<='02'"},
      {"FromCompanyIsAnUpperBound",
       {{"BCompanyNumber", "01.002"}},
       audited + " AND half='O' AND company<='01.002'"},
      {"ToCompany", {{"ECompanyNumber", "01.001"}}, audited + " AND half='O' AND company<='01.001'"},
      {"Companies",
       {{"BCompanyNumber", "01.002"}, {"ECompanyNumber", "01.003"}},
       audited + " AND half='O' AND company<='01.002'"},
      {"FromDepartment", {{"BDept", "01.04"}}, audited + " AND dept>='01.04'"},
      {"ToDepartment", {{"EDept", "01.04"}}, audited + " AND dept<='01.04'"},
      {"FromEmployee", {{"BEmp", "01.009"}}, audited + " AND emp>='01.009'"},
      {"ToEmployee", {{"EEmp", "01.016"}}, audited + " AND emp<='01.016'"},
      {"FromOrder", {{"BBillNo", "SEORD000070"}}, audited + " AND bill>='SEORD000070'"},
      {"ToOrder", {{"EBillNo", "SEORD000070"}}, audited + " AND bill<='SEORD000070'"},
      {"AllSaleStyles", {{"SaleType", 1}}, audited},
      {"ByInstalments",
       {{"SaleType", 102}, {"SaleTypeName", "分期收款销售"}},
       audited + " AND (half='I' OR style=102)"},
      {"SoldOnCommission",
       {{"SaleType", 20296}, {"CheckState", 2}},
       " AND (half='I' OR cancelled=0 AND style=20296)"},
      {"OrderTypeIsNotAsked", {{"OrderType", 20303}, {"OrderTypeName", "调拨"}}, audited},
      {"NextTimeWithoutDialog", {{"chkNextChoose", 1}}, audited},
      {"Services", {{"CommodityType", 1}}, audited + " AND item_kind=4"},
      {"NoServices", {{"CommodityType", 2}}, audited + " AND item_kind<>4"},
      {"ItemsOfCustomers",
       {{"BItemNumber", "01"}, {"EItemNumber", "02"}, {"BCustNumber", "01"}, {"ECustNumber", "02"}},
       audited + " AND item BETWEEN '01' AND '02' AND cust BETWEEN '01' AND '02'"},
      {"ClosedOfEmployees",
       {{"CloseState", 2}, {"BEmp", "01.005"}, {"EEmp", "01.016"}},
       audited + " AND (half='I' OR status=3) AND emp BETWEEN '01.005' AND '01.016'"},
      {"ShortCodes",
       {{"BItemNumber", "0005"}, {"EItemNumber", "0060"}, {"BCustNumber", "0004"}, {"ECustNumber", "0040"}},
       audited + " AND item_short BETWEEN '0005' AND '0060' AND cust_short BETWEEN '0004' AND '0040'",
       true},
      {"ShortCodesOfPeople",
       {{"BDept", "02"}, {"EDept", "05"}, {"BEmp", "005"}, {"EEmp", "018"}, {"BCompanyNumber", "002"}},
       audited + " AND dept_short BETWEEN '02' AND '05' AND emp_short BETWEEN '005' AND '018'"
                 " AND half='O' AND company_short<='002'",
       true}};
  return choices;
}

class SummaryChoices : public OrderSummary,
                       public testing::WithParamInterface<std::tuple<Case, std::size_t>> {};

TEST_P(SummaryChoices, NarrowTheOrdersAndTheirDeliveries) {
  const auto& [c, place] = GetParam();
  const Choice& choice = Choices()[place];
  UseShortCodes(choice.short_codes);
  // The classes of customers are those of the customers asked for: a delivery to another has none.
  const std::string parties = c.mode == 2 ? Replace(choice.condition, "cust", "party") : "";
  ExpectRowsOf(Fetch(c, choice.chosen), c, choice.condition + parties);
}

INSTANTIATE_TEST_SUITE_P(All, SummaryChoices,
                         testing::Combine(testing::Values(Case{0}, Case{2}, Case{kSaleStyle}),
                                          testing::Range(std::size_t{0}, Choices().size())),
                         [](const auto& test) {
                           return Join(Case::Name(std::get<0>(test.param)),
                                       Choices()[std::get<1>(test.param)].name);
                         });

TEST_F(OrderSummary, BranchCompaniesAreBoundedFromAbove) {
  for (const Case& c : {Case{4}, Case{kBranches}, Case{kBranches, 1, 1}}) {
    ExpectRowsOf(Fetch(c, {{"BCompanyNumber", "01.001"}, {"ECompanyNumber", "01.002"}}), c,
                 Join(kAudited, " AND half='O' AND company<='01.001'"));
  }
}

// --- Data rights: orders of customers whose lists name the user

class SummarySeen : public OrderSummary, public testing::WithParamInterface<Case> {
 protected:
  SummarySeen() : OrderSummary({.user_name = "业务员", .user_id = 16395}) {}
};

TEST_P(SummarySeen, OnlyOrdersOfCustomersThatTheUserMaySeeCount) {
  ExpectRowsOf(Fetch(GetParam()), GetParam(), Join(kAudited, " AND instr(seen_by,'16395')>0"));
  ExpectRowsOf(Fetch(GetParam(), {{"EItemNumber", "02"}, {"CheckState", 2}}), GetParam(),
               " AND (half='I' OR cancelled=0) AND item<='02' AND instr(seen_by,'16395')>0");
}

INSTANTIATE_TEST_SUITE_P(All, SummarySeen,
                         testing::Values(Case{0}, Case{1}, Case{2}, Case{3}, Case{4}, Case{5}, Case{6},
                                         Case{8}, Case{9}),
                         [](const auto& test) { return Case::Name(test.param); });

// --- Drill into the order execution detail

// `customer` is the field that tells the customer of a row, none where the rows tell none.
struct Drill {
  int mode;
  const char* customer;
  bool short_codes = false;
};

class SummaryDrill : public OrderSummary, public testing::WithParamInterface<Drill> {};

TEST_P(SummaryDrill, ShowsTheOrderLinesOfTheItemAndOfTheCustomerThatTheRowTells) {
  const Drill& drill = GetParam();
  UseShortCodes(drill.short_codes);
  const ObjectRef report = Run({drill.mode}, {{"BDate", Date::FromYmd(2023, 2, 1)},
                                              {"EDate", Date::FromYmd(2024, 12, 31)},
                                              {"EBillNo", "SEORD000120"},
                                              {"CloseState", 2}});
  const char* customer = drill.customer == nullptr ? "FNumber" : drill.customer;
  const std::vector<PlainRow> rows =
      Pick(As<Recordset>(GetMember(report, "Rs")), 0, 200, {"FSumSort", "FNumber", customer}, {});
  std::size_t details = 0;
  for (std::size_t i = 0; i < rows.size(); i += 17) {
    const ObjectRef detail = Call(report, "GetDetailReport", static_cast<std::int32_t>(i)).ToObject();
    EXPECT_EQ(detail != nullptr, rows[i].key.starts_with("0|")) << rows[i].key;
    const std::size_t end = rows[i].key.rfind('|');
    const std::string name = rows[i].key.substr(end + 1);
    // Nobody's row narrows nothing, and of two customers of one name the first one's number is found.
    if (detail == nullptr || name.empty() || name == "同名客户") continue;
    std::vector<PlainRow> shown = Pick(As<Recordset>(GetMember(detail, "Rs")), 0, 0,
                                       {"FTranType", "FOrderBillNo", "FNumber"}, {"FSaleQty"});
    std::erase_if(shown, [](const PlainRow& row) { return !row.key.starts_with("81|"); });
    ExpectRows(Sorted(shown),
               Sorted(Plain(Join(kLines,
                                 " AND half='O' AND cancelled=0 AND status=3 AND bill<='SEORD000120'"
                                 " AND day BETWEEN '2023-02-01' AND '2024-12-31' AND item='",
                                 rows[i].key.substr(2, end - 2), "'",
                                 drill.customer == nullptr ? "" : Join(" AND cust_name='", name, "'"),
                                 ") SELECT 81,bill,item,ordered FROM lines"),
                            3)));
    details += shown.size();
  }
  EXPECT_GT(details, 0u);
}

INSTANTIATE_TEST_SUITE_P(All, SummaryDrill,
                         testing::Values(Drill{0, nullptr}, Drill{0, nullptr, true}, Drill{1, nullptr},
                                         Drill{2, nullptr}, Drill{3, "FCustName"}, Drill{4, "FCustName"},
                                         Drill{kCustomer, "FProp02"}, Drill{kBranches, nullptr}),
                         [](const auto& test) {
                           return Join("Mode", test.param.mode, test.param.short_codes ? "ShortCodes" : "");
                         });

}  // namespace
}  // namespace salerpt::middletier
