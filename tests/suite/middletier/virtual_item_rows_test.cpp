// Orders of virtual items on a generated account set: lines, what is in them and every grouping beside plain
// SQL.
#include "dialogs/unattended.h"
#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// What the report must tell apart and the made-up company has too little of: more virtual items, one without
// a bill of material, one with two in use, one whose lines name a bill that is not in use; bills for two of
// the item; items in it without a price, whole bills of them; lines that name the bill of another item or
// none; currencies; orders of nobody, not audited, cancelled, of area 0; deliveries in part, sent back, not
// audited; a unit without a coefficient; two customers of one name.
constexpr const char* kPrepare = R"sql(
BEGIN;
UPDATE t_ICItem SET FErpClsID=5 WHERE FErpClsID=2 AND FItemID%3=0;
UPDATE t_ICItem SET FErpClsID=5 WHERE FItemID IN (SELECT FItemID FROM t_ICItem i WHERE FErpClsID=1
  AND FNumber LIKE '01.%' AND NOT EXISTS(SELECT 1 FROM ICBOM b WHERE b.FItemID=i.FItemID) LIMIT 2);
INSERT INTO ICBOM(FInterID,FBOMNumber,FItemID,FQty,FStatus)
  SELECT 9000+FItemID,'X'||FItemID,FItemID,2,FItemID%2 FROM t_ICItem WHERE FErpClsID=5 AND FItemID%5<3
  AND FItemID IN (SELECT FItemID FROM ICBOM);
INSERT INTO ICBOMChild(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty)
  SELECT b.FInterID,p,i.FItemID,i.FUnitID,q,q FROM ICBOM b JOIN (SELECT 1 p,3 q,1240 k
  UNION SELECT 2,0.7,1230) JOIN t_ICItem i ON i.FItemID=k+b.FInterID%7 WHERE b.FInterID>9000;
UPDATE ICBOM SET FStatus=0 WHERE FInterID<9000 AND FItemID%2=1 AND FItemID%5<2;
UPDATE SEOrderEntry SET FBomInterID=9000+FItemID WHERE FEntryID%2=0;
UPDATE SEOrderEntry SET FBomInterID=FInterID%6>0 WHERE FInterID%6=0 OR FInterID%7=0;
UPDATE t_ICItem SET FSalePrice=0 WHERE FItemID%4=0 OR FItemID BETWEEN 1245 AND 1249;
UPDATE SEOrder SET FCurrencyID=2,FExchangeRate=6.7681 WHERE FInterID%5=0;
UPDATE SEOrder SET FAreaPS=CASE FInterID%4 WHEN 0 THEN 0 ELSE 20303 END WHERE FInterID%3=0 OR FInterID%4=0;
UPDATE SEOrder SET FCustID=0 WHERE FInterID%17=0;
UPDATE SEOrder SET FStatus=0 WHERE FInterID%8=0;
UPDATE SEOrder SET FCancelLation=1 WHERE FInterID%11=0;
UPDATE ICStockBill SET FStatus=0 WHERE FTranType=21 AND FInterID%5=0;
UPDATE ICStockBillEntry SET FQty=FQty*CASE FInterID%4 WHEN 0 THEN 0.55 ELSE -1 END
  WHERE FInterID%4=0 OR FInterID%29=0;
UPDATE t_MeasureUnit SET FCoefficient=0 WHERE FMeasureUnitID=602;
UPDATE t_Organization SET FName='同名客户' WHERE FItemID IN
  (SELECT FCustID FROM SEOrder WHERE FCustID>0 GROUP BY FCustID ORDER BY count(*) DESC,FCustID LIMIT 2);
CREATE TEMP TABLE told AS SELECT i.FItemID item_id,i.FName own_name,i.FModel own_model,b.FName own_base,
  u.FName own_unit,i.FQtyDecimal own_places,coalesce(nullif(u.FCoefficient,0),1)*1.0 pack
  FROM t_ICItem i JOIN t_MeasureUnit b ON b.FUnitGroupID=i.FUnitGroupID AND b.FStandard=1
  JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID;
CREATE TEMP TABLE sold AS WITH sent AS (SELECT e.FOrderInterID id,e.FOrderEntryID entry,e.FQty qty
  FROM ICStockBill b JOIN ICStockBillEntry e USING(FInterID) WHERE b.FTranType=21 AND b.FCancelLation=0
  AND (b.FStatus>0 OR b.FUpStockWhenSave=1) AND e.FOrderInterID>0
  UNION ALL SELECT e.FOrderInterID,e.FOrderEntryID,e.FQty FROM ICSale b JOIN ICSaleEntry e USING(FInterID)
  JOIN SEOrder o ON o.FInterID=e.FOrderInterID AND o.FSaleStyle=20296 WHERE b.FTranType IN (80,86)
  AND b.FStatus>0 AND b.FCancelLation=0),
  went AS (SELECT id,entry,sum(qty) qty FROM sent GROUP BY 1,2)
  SELECT e.FInterID id,e.FEntryID entry,date(b.FDate) day,b.FBillNo bill,b.FStatus status,b.FSaleStyle style,
  y.FName style_name,b.FAreaPS area,o.FNumber cust,o.FShortNumber cust_short,o.FName cust_name,
  r.FName region,o.FRightUserID seen_by,i.FItemID virtual_id,i.FNumber item,i.FShortNumber item_short,
  i.FName name,i.FModel model,e.FQty sale,half_up(e.FAmount*b.FExchangeRate,2) amount,
  coalesce(w.qty,0) sent,coalesce(
  (SELECT FInterID FROM ICBOM m WHERE m.FInterID=e.FBomInterID AND m.FItemID=e.FItemID),
  (SELECT min(FInterID) FROM ICBOM m WHERE m.FItemID=e.FItemID AND m.FStatus=1)) bom
  FROM SEOrder b JOIN SEOrderEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID
  JOIN t_SubMessage y ON y.FInterID=b.FSaleStyle LEFT JOIN went w ON w.id=e.FInterID AND w.entry=e.FEntryID
  LEFT JOIN t_Organization o ON o.FItemID=b.FCustID LEFT JOIN t_SubMessage r ON r.FInterID=o.FRegionID
  WHERE i.FErpClsID=5 AND b.FCancelLation=0;
CREATE TEMP TABLE shown AS SELECT *,0 place,'' child,0 child_sale,0 child_amount FROM sold
  JOIN told ON item_id=virtual_id;
WITH weighed AS (SELECT s.id,s.entry,s.amount,c.FEntryID place,c.FItemID item_id,
  1.0*s.sale*c.FQty/coalesce(nullif(m.FQty,0),1) qty,CASE sum(c.FQty*i.FSalePrice)
  OVER (PARTITION BY s.id,s.entry) WHEN 0 THEN 1.0*c.FQty ELSE 1.0*c.FQty*i.FSalePrice END weight
  FROM sold s JOIN ICBOM m ON m.FInterID=s.bom JOIN ICBOMChild c ON c.FInterID=m.FInterID
  JOIN t_ICItem i ON i.FItemID=c.FItemID),
  shares AS (SELECT *,sum(weight) OVER (PARTITION BY id,entry ORDER BY place) upto,
  sum(weight) OVER (PARTITION BY id,entry) whole FROM weighed)
  INSERT INTO shown SELECT s.*,t.*,c.place,t.own_name,c.qty,
  half_up(c.amount*upto/whole,2)-half_up(c.amount*(upto-weight)/whole,2) FROM shares c
  JOIN sold s ON s.id=c.id AND s.entry=c.entry JOIN told t ON t.item_id=c.item_id;
UPDATE shown SET sale=0,amount=0,sent=0 WHERE place>0;
)sql";

const std::vector<const char*> kNumbers = {
    "FSaleQty", "FChildSaleQty",  "FSaleAmount",         "FChildSaleAmount", "FCommitQty",
    "FDiffQty", "FCUUnitSaleQty", "FCUUnitChildSaleQty", "FCUUnitCommitQty", "FCUUnitDiffQty"};
const std::vector<const char*> kPlainNumbers = {
    "sale",        "child_sale",        "amount",      "child_amount",      "sent", "sale-sent",
    "sale/s.pack", "child_sale/s.pack", "sent/s.pack", "(sale-sent)/s.pack"};
constexpr const char* kAudited = " AND status>0";

// Rows of "sum by" have their codes; 0 is the plain list, what follows the customer are properties.
struct Case {
  int mode;
  int from = 1, to = 2;
  static std::string Name(const Case& c) { return Join("Mode", c.mode, "Levels", c.from, "To", c.to); }
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
};
constexpr int kCustomer = 5;
constexpr int kFirstProperty = 100;
struct Property {
  int item_class, id;
  const char *column, *table, *value;
};
constexpr Property kProperties[] = {{1, 11, "FRegionID", "t_SubMessage", "region"},
                                    {4, 12, "FModel", "", "model"},
                                    {29, 13, "FSaleStyle", "t_SubMessage", "style_name"}};

// What the report is grouped by.
struct Shape {
  std::string plain;  // the group columns in plain SQL, each with a comma behind
  std::vector<std::string> fields;
  std::vector<Group> groups;

  void Add(const std::string& value, const std::string& field, std::int32_t code) {
    plain += Join(value, ",");
    fields.push_back(field);
    groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, code});
  }
  void AddLevels(int item_class, const Case& c) {
    for (int i = c.from; i <= c.to; ++i)
      Add(Join("(SELECT a.name FROM class_at a WHERE a.item_class=", item_class, " AND a.level=", i,
               " AND a.code=", item_class == 4 ? "item" : "cust", ")"),
          Join("FName", i), i + 106);
  }
};

Shape ShapeOf(const Case& c) {
  Shape shape;
  if (c.mode == 4) shape.Add("cust_name", "FCustName", c.from + 105);
  if (c.mode == 1 || c.mode == 3 || c.mode == 4) shape.AddLevels(4, c);
  if (c.mode == 2) shape.AddLevels(1, c);
  if (c.mode == 3) shape.Add("cust_name", "FCustName", c.to + 107);
  if (c.mode == kCustomer) shape.Add("cust_name", "FProp01", 102);
  if (c.mode >= kFirstProperty) {
    const Property& property = kProperties[c.mode - kFirstProperty];
    shape.Add(property.value, Join("FProp", property.id, property.item_class), 102);
  }
  return shape;
}

class VirtualItemRows : public ReportRows {
 protected:
  explicit VirtualItemRows(const Login& login = {}) : ReportRows(login) { UseShortCodes(false); }
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
                                             {"SumMode", c.mode < kFirstProperty ? c.mode : 0},
                                             {"BLevel", c.from},
                                             {"ELevel", c.to}};
    if (c.mode >= kFirstProperty) {
      const Property& property = kProperties[c.mode - kFirstProperty];
      auto field = std::make_shared<Dictionary>();
      field->Set("FItemClassID", property.item_class);
      field->Set("FName", "属性");
      field->Set("FPropID", property.id);
      field->Set("FSQLColumnName", property.column);
      field->Set("FSrcTable", property.table);
      field->Set("FSrcField", "FInterID");
      field->Set("FDisplayField", "FName");
      chosen.emplace_back("SumField", Variant(field));
    }
    chosen.insert(chosen.end(), more.begin(), more.end());
    return RunReport("ORVSaleRpt.Rpt300", "frmFirter300", chosen);
  }
  static RecordsetRef Fetch(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    return As<Recordset>(GetMember(Run(c, more), "Rs"));
  }

  static std::vector<PlainRow> RowsOf(const RecordsetRef& rows, const Case& c) {
    if (c.mode == 0) {
      return Pick(rows, 0, 200,
                  {"FNumber", "FDate", "FCustNumber", "FCustName", "FBillNo", "FShortNumber", "FName",
                   "FChildName", "FModel", "FUnitName", "FCUUnitName", "FQtyDecimal", "FSumSort"},
                  kNumbers);
    }
    const Shape shape = ShapeOf(c);
    std::vector<const char*> keys = KeysOf(shape);
    keys.push_back("FSumSort");
    return Pick(rows, 0, 200, keys, kNumbers);
  }
  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const std::string& condition = kAudited,
                           bool short_codes = false) {
    ExpectRows(RowsOf(rows, c),
               c.mode == 0 ? ExpectedList(condition, short_codes) : ExpectedGroups(rows, c, condition));
  }

 private:
  // Of a group: its item, told as the item master tells it; the total rows have no item.
  static std::vector<const char*> KeysOf(const Shape& shape) {
    std::vector<const char*> keys;
    for (const std::string& field : shape.fields) keys.push_back(field.c_str());
    for (const char* field :
         {"FNumber", "FShortNumber", "FName", "FModel", "FUnitName", "FCUUnitName", "FQtyDecimal"})
      keys.push_back(field);
    return keys;
  }

  // By day and item, each line before what is in it.
  static std::vector<PlainRow> ExpectedList(const std::string& condition, bool short_codes) {
    std::string numbers;
    for (const char* number : kPlainNumbers) Append(numbers, ",", number);
    const std::vector<PlainRow> lines =
        Plain(Join("SELECT item,day,", short_codes ? "cust_short" : "cust",
                   ",cust_name,bill,item_short,name,child,own_model,own_base,own_unit,own_places", numbers,
                   " FROM shown s WHERE 1=1", condition, " ORDER BY day,item,bill,id,entry,place"),
              12);
    EXPECT_FALSE(lines.empty());
    const char* places = "0";
    for (const PlainRow& line : lines) places = line.key.ends_with("|2") ? "2" : places;
    return RolledUp(lines, {}, {0, {{0, "合计"}, {5, "合计"}, {11, places}}, 101});
  }

  static std::vector<PlainRow> ExpectedGroups(const RecordsetRef& rows, const Case& c,
                                              const std::string& condition) {
    const Shape shape = ShapeOf(c);
    const std::size_t places = shape.fields.size() + 6;
    std::string columns = "1";
    for (std::size_t i = 2; i <= places + 1; ++i) Append(columns, ",", static_cast<int>(i));
    std::string sums;
    for (const char* number : kPlainNumbers) Append(sums, ",sum(", number, ")");
    const std::vector<PlainRow> plain =
        Plain(Join("SELECT ", shape.plain, "item,item_short,name,model,v.own_base,v.own_unit,v.own_places",
                   sums, " FROM shown s JOIN told v ON v.item_id=s.virtual_id WHERE 1=1", condition,
                   c.mode == 2 ? " AND cust IS NOT NULL" : "", " GROUP BY ", columns),
              static_cast<int>(places + 1));
    EXPECT_FALSE(plain.empty());
    std::vector<Group> groups = shape.groups;
    for (Group& group : groups) group.labels.push_back({places, "4"});
    return RolledUp(InOrderOf(plain, Pick(rows, 0, 0, KeysOf(shape), {})), groups,
                    {0, {{0, "合计"}, {places, "4"}}, 101});
  }
};

// --- Every row of the list and of every grouping

class VirtualItemGroupings : public VirtualItemRows, public testing::WithParamInterface<Case> {};

TEST_P(VirtualItemGroupings, EveryRowIsThatOfTheTables) {
  ExpectRowsOf(Fetch(GetParam()), GetParam());
}

TEST_P(VirtualItemGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const std::vector<PlainRow> totals = RowsOf(Fetch(GetParam(), {{"OnlyShowSum", 1}}), GetParam());
  std::vector<PlainRow> whole = RowsOf(Fetch(GetParam()), GetParam());
  std::erase_if(whole, [](const PlainRow& row) { return row.key.ends_with("|0"); });
  EXPECT_FALSE(totals.empty());
  ExpectRows(totals, whole, 0);
}

TEST_P(VirtualItemGroupings, NoOrdersGiveNoRows) {
  EXPECT_EQ(Fetch(GetParam(), {{"BDate", Date::FromYmd(2030, 1, 1)}, {"EDate", Date::FromYmd(2030, 1, 31)}})
                ->RecordCount(),
            0);
}

INSTANTIATE_TEST_SUITE_P(All, VirtualItemGroupings,
                         testing::Values(Case{0}, Case{1, 1, 1}, Case{1}, Case{1, 2, 3}, Case{2, 1, 1},
                                         Case{2}, Case{2, 2, 3}, Case{3, 1, 1}, Case{3}, Case{3, 2, 3},
                                         Case{4, 1, 1}, Case{4}, Case{4, 2, 3}, Case{kCustomer},
                                         Case{kFirstProperty}, Case{kFirstProperty + 1},
                                         Case{kFirstProperty + 2}),
                         [](const auto& test) { return Case::Name(test.param); });

// Hosts give the levels under names of their own.
TEST_F(VirtualItemRows, TheLevelsOfTheHostGoBeforeThoseOfTheDialog) {
  const ObjectRef report = Run({1, 1, 2});
  As<Dictionary>(GetMember(report, "Filter"))->Set("LngBLevel", 2);
  As<Dictionary>(GetMember(report, "Filter"))->Set("LngELevel", 3);
  Call(report, "GetReportData");
  ExpectRowsOf(As<Recordset>(GetMember(report, "Rs")), {1, 2, 3});
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
      {"Consigned", {{"SaleType", 103}, {"SaleTypeName", "委托代销"}}, " AND status>0 AND style=103"},
      {"AreaZero", {{"OrderType", 0}}, " AND status>0 AND area=0"},
      {"Moved", {{"OrderType", 20303}, {"OrderTypeName", "调拨"}}, " AND status>0 AND area=20303"},
      {"ItemsOfCustomers",
       {{"BItemNumber", "01"}, {"EItemNumber", "02"}, {"BCustNumber", "01"}, {"ECustNumber", "02"}},
       " AND status>0 AND item BETWEEN '01' AND '02' AND cust BETWEEN '01' AND '02'"},
      {"MovedOnCredit",
       {{"OrderType", 20303}, {"SaleType", 101}, {"CheckState", 2}},
       " AND area=20303 AND style=101"},
      {"ShortCodes",
       {{"BItemNumber", "0005"}, {"EItemNumber", "0060"}, {"BCustNumber", "0004"}, {"ECustNumber", "0040"}},
       " AND status>0 AND item_short BETWEEN '0005' AND '0060' AND cust_short BETWEEN '0004' AND '0040'",
       true}};
  return choices;
}

class VirtualItemChoices : public VirtualItemRows,
                           public testing::WithParamInterface<std::tuple<Case, std::size_t>> {};

TEST_P(VirtualItemChoices, NarrowTheLines) {
  const auto& [c, place] = GetParam();
  const Choice& choice = Choices()[place];
  UseShortCodes(choice.short_codes);
  ExpectRowsOf(Fetch(c, choice.chosen), c, choice.condition, choice.short_codes);
}

INSTANTIATE_TEST_SUITE_P(All, VirtualItemChoices,
                         testing::Combine(testing::Values(Case{0}, Case{2}, Case{3}, Case{kCustomer}),
                                          testing::Range(std::size_t{0}, Choices().size())),
                         [](const auto& test) {
                           return Join(Case::Name(std::get<0>(test.param)),
                                       Choices()[std::get<1>(test.param)].name);
                         });

// --- Data rights: customers whose lists name the user

class VirtualItemsSeen : public VirtualItemRows, public testing::WithParamInterface<Case> {
 protected:
  VirtualItemsSeen() : VirtualItemRows({.user_name = "业务员", .user_id = 16395}) {}
};

TEST_P(VirtualItemsSeen, OnlyTheCustomersThatTheUserMaySeeCount) {
  ExpectRowsOf(Fetch(GetParam()), GetParam(), " AND status>0 AND instr(seen_by,'16395')>0");
  ExpectRowsOf(Fetch(GetParam(), {{"ECustNumber", "02"}, {"CheckState", 2}}), GetParam(),
               " AND cust<='02' AND instr(seen_by,'16395')>0");
}

INSTANTIATE_TEST_SUITE_P(All, VirtualItemsSeen,
                         testing::Values(Case{0}, Case{1}, Case{2}, Case{3}, Case{4}, Case{kCustomer},
                                         Case{kFirstProperty}),
                         [](const auto& test) { return Case::Name(test.param); });

}  // namespace
}  // namespace salerpt::middletier
