// The analyses of sales on a generated account set: every row of every report and grouping beside plain SQL.
#include <map>

#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// What the reports must tell apart and the made-up company has too little of: services, invoices that are not
// audited or cancelled, sent-back goods, a unit without a coefficient, amounts with more digits than money
// has, items without a class, nobody's customers (report_rows.h).
constexpr const char* kPrepare = R"sql(
BEGIN;
UPDATE t_ICItem SET FErpClsID=4 WHERE FItemID%7=0;
UPDATE t_ICItem SET FParentID=0 WHERE FItemID%19=0;
UPDATE ICSale SET FStatus=0 WHERE FInterID%9=0;
UPDATE ICSale SET FCancelLation=1 WHERE FInterID%13=0;
UPDATE ICSale SET FDate=date(FDate)||' 23:59:59' WHERE FInterID%4=0;
UPDATE ICSaleEntry SET FQty=-FQty,FStdAmount=-FStdAmount,FStdTaxAmount=-FStdTaxAmount WHERE FInterID%8=0;
UPDATE ICSaleEntry SET FStdAmount=FStdAmount+0.0049 WHERE FInterID%5=0;
UPDATE t_MeasureUnit SET FCoefficient=0 WHERE FMeasureUnitID=602;
CREATE TEMP TABLE sold AS SELECT date(b.FDate) day,b.FStatus status,y.FName style,i.FNumber item,
  i.FShortNumber item_short,i.FName name,i.FModel model,coalesce(k.FName,'') class_name,i.FParentID class,
  i.FErpClsID kind,n.FName base,u.FName unit,i.FQtyDecimal places,e.FAuxPropID aux_id,coalesce(a.FName,'') aux,
  coalesce(a.FNumber,'') aux_code,coalesce(o.FItemID,0) cust_id,o.FNumber cust,o.FShortNumber cust_short,
  o.FName cust_name,r.FName region,o.FRightUserID seen_by,e.FQty qty,
  1.0*e.FQty/coalesce(nullif(u.FCoefficient,0),1) common,
  half_up(e.FStdAmount-(b.FTranType=86)*e.FStdTaxAmount,2) amount
  FROM ICSale b JOIN ICSaleEntry e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID
  JOIN t_MeasureUnit n ON n.FUnitGroupID=i.FUnitGroupID AND n.FStandard=1
  JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID JOIN t_SubMessage y ON y.FInterID=b.FSaleStyle
  LEFT JOIN t_Item k ON k.FItemID=i.FParentID LEFT JOIN t_AuxItem a ON a.FItemID=e.FAuxPropID
  LEFT JOIN t_Organization o ON o.FItemID=b.FCustID LEFT JOIN t_SubMessage r ON r.FInterID=o.FRegionID
  WHERE b.FTranType IN (80,86) AND b.FCancelLation=0;
)sql";

constexpr const char* kAudited = " AND status>0";

enum class Kind { kGrowth = 140, kFlow = 142, kStructure = 143 };

// Codes of "SumMode", 0 being the list; what follows them are properties.
struct Case {
  Kind kind;
  int mode;
  int from = 1, to = 2;
  bool aux_prop = false;
  static std::string Name(const Case& c) {
    return Join("Rpt", static_cast<int>(c.kind), "Mode", c.mode, "Levels", c.from, "To", c.to,
                c.aux_prop ? "ByProperty" : "");
  }
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
};
constexpr int kFirstProperty = 100;
struct Property {
  int item_class, id;
  const char *column, *table, *value;
};
constexpr Property kProperties[] = {{1, 101, "FRegionID", "t_SubMessage", "region"},
                                    {4, 105, "FModel", "", "model"},
                                    {29, 13, "FSaleStyle", "t_SubMessage", "style"}};

// The period as the reports ask for it, and as days in plain SQL.
struct Asked {
  int year = 2025, period = 3;
  std::string bills = kAudited;  // conditions on invoices and customers
  std::string items = "";        // conditions on items
  std::vector<Dictionary::Entry> chosen = {};
};

std::string IsIn(int year, int period) {
  char month[8];
  snprintf(month, sizeof month, "%04d-%02d", year, period);
  return Join("substr(day,1,7)='", month, "'");
}

// What a report is grouped by.
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
  if (c.mode >= kFirstProperty) {
    const Property& property = kProperties[c.mode - kFirstProperty];
    shape.Add(property.value, Join("FProp", property.id, property.item_class), 102);
  }
  return shape;
}

// What a row tells beside its groups, as fields and as plain SQL.
struct Told {
  std::vector<const char*> fields;
  std::vector<const char*> plain;
};

Told ToldBy(const Case& c) {
  Told told{{"FNumber", "FShortNumber", "FName", "FUnitName", "FCUUnitName", "FAuxPropName", "FQtyDecimal"},
            {"item", "item_short", "name", "base", "unit", c.aux_prop ? "aux" : "''", "places"}};
  const auto add = [&told](const char* field, const char* plain) {
    told.fields.push_back(field);
    told.plain.push_back(plain);
  };
  add(c.kind == Kind::kStructure ? "FItemModel" : "FModel", "model");
  if (c.kind != Kind::kGrowth) add("FClassName", "class_name");
  if (c.kind == Kind::kFlow) {
    add("FRegionName", "coalesce(region,'')");
    add("FCustomerName", "coalesce(cust_name,'')");
  }
  return told;
}
constexpr std::size_t kPlaces = 6;  // FQtyDecimal among them
constexpr std::size_t kRegion = 9;

std::vector<const char*> NumbersOf(Kind kind) {
  switch (kind) {
    case Kind::kGrowth:
      return {"FThisQty",       "FCUUnitThisQty", "FThisAmount", "FLastQty",
              "FCUUnitLastQty", "FLastAmount",    "FQtyAddCent", "FAmountAddCent"};
    case Kind::kFlow:
      return {"FQty", "FCUUnitQty", "FAmount"};
    case Kind::kStructure:
      return {"FThisQty",    "FCUUnitThisQty",   "FThisAmount",
              "FLastAmount", "FClassAmountCent", "FAmountAddCent"};
  }
  return {};
}

double Percent(double part, double whole) {
  return whole == 0 ? 0 : part * 100 / whole;
}

class SalesAnalysisRows : public ReportRows {
 protected:
  explicit SalesAnalysisRows(const Login& login = {}) : ReportRows(login) { UseShortCodes(false); }
  static void UseShortCodes(bool use) {
    Set().Run(Join("UPDATE t_SystemProfile SET FValue='", use ? 1 : 0, "' WHERE FKey='UseShortNumber'"));
  }
  static void SetUpTestSuite() { Set().Run(kPrepare); }
  static void TearDownTestSuite() { Set().Run("ROLLBACK"); }

  static RecordsetRef Fetch(const Case& c, const Asked& asked = {}) {
    auto filter = std::make_shared<Dictionary>();
    filter->Set("OK", true);
    filter->Set("BYear", asked.year);
    filter->Set("BPeriod", asked.period);
    filter->Set("BDate", Date::FromYmd(asked.year, asked.period, 1));
    filter->Set("EDate", Date::FromYmd(asked.year, asked.period + 1, 15));
    filter->Set("CheckState", 0);
    filter->Set("AuxProp", c.aux_prop ? 1 : 0);
    filter->Set("GroupBy", c.mode > 0 ? 1 : 0);
    filter->Set("SumMode", c.mode < kFirstProperty ? c.mode : 3);
    filter->Set("BLevel", c.from);
    filter->Set("ELevel", c.to);
    if (c.mode >= kFirstProperty) filter->Set("SumField", SumFieldOf(kProperties[c.mode - kFirstProperty]));
    for (const auto& [key, value] : asked.chosen) filter->Set(key, value);
    const ObjectRef report = CreateObject(Join("ORVSaleRpt.Rpt", static_cast<int>(c.kind)));
    SetMember(report, "Filter", filter);
    Call(report, "GetReportData");
    const auto result = As<Dictionary>(GetMember(report, "Result"));
    EXPECT_TRUE(result->Get("OK").ToBoolean()) << result->Get("Error").TextOrEmpty();
    return As<Recordset>(GetMember(report, "Rs"));
  }

  static std::vector<PlainRow> RowsOf(const RecordsetRef& rows, const Case& c) {
    const Shape shape = ShapeOf(c);
    std::vector<const char*> keys = KeysOf(shape, c);
    keys.push_back("FSumSort");
    return Pick(rows, 0, 200, keys, NumbersOf(c.kind));
  }

  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const Asked& asked = {}) {
    const std::vector<PlainRow> expected = Expected(rows, c, asked);
    EXPECT_FALSE(expected.empty());
    ExpectRows(RowsOf(rows, c), expected);
  }

 private:
  static Variant SumFieldOf(const Property& property) {
    auto field = std::make_shared<Dictionary>();
    field->Set("FItemClassID", property.item_class);
    field->Set("FName", "属性");
    field->Set("FPropID", property.id);
    field->Set("FSQLColumnName", property.column);
    field->Set("FSrcTable", property.table);
    field->Set("FSrcField", "FInterID");
    field->Set("FDisplayField", "FName");
    return field;
  }
  static std::vector<const char*> KeysOf(const Shape& shape, const Case& c) {
    std::vector<const char*> keys;
    for (const std::string& field : shape.fields) keys.push_back(field.c_str());
    for (const char* field : ToldBy(c).fields) keys.push_back(field);
    return keys;
  }
  static std::string DaysOf(const Case& c, const Asked& asked) {
    const std::string now = IsIn(asked.year, asked.period);
    if (c.kind != Kind::kFlow) return Join("(", now, " OR ", IsIn(asked.year - 1, asked.period), ")");
    const std::string to = Date::FromYmd(asked.year, asked.period + 1, 15).ToText();
    return Join("(", now, " OR ", IsIn(asked.year, asked.period + 1), " AND day<='", to, "')");
  }

  // The details with `numbers`, rolled up: a list by item, region, customer and property, groups in the
  // report's own order.
  static std::vector<PlainRow> RollUp(const RecordsetRef& rows, const Case& c, const Asked& asked,
                                      const std::string& numbers) {
    const Shape shape = ShapeOf(c);
    std::string keys = shape.plain;
    for (const char* plain : ToldBy(c).plain) Append(keys, plain, ",");
    const bool by_customer = c.kind == Kind::kFlow;
    std::string columns = "item";
    for (std::size_t i = 1; i <= shape.fields.size(); ++i) Append(columns, ",", static_cast<int>(i));
    if (by_customer) columns += ",coalesce(region,''),coalesce(cust,''),cust_id";
    if (c.aux_prop) columns += ",aux_code,aux_id";
    const std::vector<PlainRow> plain =
        Plain(Join("SELECT ", keys, numbers, " FROM sold WHERE ", DaysOf(c, asked), asked.bills, asked.items,
                   c.mode == 2 ? " AND cust IS NOT NULL" : "", " GROUP BY ", columns, " ORDER BY ", columns),
              static_cast<int>(shape.fields.size() + ToldBy(c).fields.size()));
    const std::size_t told = shape.fields.size();
    std::vector<Group> groups = shape.groups;
    for (Group& group : groups) group.labels.push_back({told + kPlaces, "4"});
    Group total{0, {{told + kPlaces, "4"}, {0, "合计"}}, 101};
    if (c.mode == 0) {
      // A list names its total in the first column that it shows.
      total.labels = {{kPlaces, "4"}, {by_customer ? kRegion : 0, "合计"}};
      if (!by_customer) total.labels.push_back({1, "合计"});
      return RolledUp(plain, {}, total);
    }
    return RolledUp(InOrderOf(plain, Pick(rows, 0, 0, KeysOf(shape, c), {})), groups, total);
  }

  static std::vector<PlainRow> Expected(const RecordsetRef& rows, const Case& c, const Asked& asked) {
    const std::string now = c.kind == Kind::kFlow ? "1" : IsIn(asked.year, asked.period);
    const auto sum = [&now](const char* column, const char* sign) {
      return Join("sum(CASE WHEN ", sign, "(", now, ") THEN ", column, " ELSE 0 END)");
    };
    std::vector<PlainRow> expected =
        RollUp(rows, c, asked,
               Join(sum("qty", ""), ",", sum("common", ""), ",", sum("amount", ""), ",", sum("qty", "NOT "),
                    ",", sum("common", "NOT "), ",", sum("amount", "NOT ")));
    const std::vector<double> wholes =
        c.kind == Kind::kStructure ? ClassIncomes(rows, c, asked) : std::vector<double>(expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      std::vector<double>& n = expected[i].numbers;
      switch (c.kind) {
        case Kind::kGrowth:
          n.push_back(Percent(n[0] - n[3], n[3]));
          n.push_back(Percent(n[2] - n[5], n[5]));
          break;
        case Kind::kFlow:
          n.resize(3);
          break;
        case Kind::kStructure:
          n = {n[0], n[1], n[2], n[5], Percent(n[2], wholes[i]), Percent(n[2] - n[5], n[5])};
          break;
      }
    }
    return expected;
  }

  // The income of the classes that are in each row, each class once: how many lines a row has of a class
  // tells whether it is in it.
  static std::vector<double> ClassIncomes(const RecordsetRef& rows, const Case& c, const Asked& asked) {
    const std::vector<PlainRow> classes =
        Plain(Join("SELECT class,sum(CASE WHEN ", IsIn(asked.year, asked.period),
                   " THEN amount ELSE 0 END) FROM sold WHERE ", DaysOf(c, asked), asked.bills,
                   " GROUP BY class ORDER BY class"),
              1);
    std::string counts;
    for (const PlainRow& one : classes) Append(counts, counts.empty() ? "" : ",", "sum(class=", one.key, ")");
    std::vector<double> wholes;
    for (const PlainRow& row : RollUp(rows, c, asked, counts)) {
      double whole = 0;
      for (std::size_t i = 0; i < classes.size(); ++i)
        whole += row.numbers[i] > 0 ? classes[i].numbers[0] : 0;
      wholes.push_back(std::abs(whole) < kExact ? 0 : whole);
    }
    return wholes;
  }
};

// --- Every row of the lists and of every grouping

class SalesAnalysisGroupings : public SalesAnalysisRows, public testing::WithParamInterface<Case> {};

TEST_P(SalesAnalysisGroupings, EveryRowIsThatOfTheTables) {
  ExpectRowsOf(Fetch(GetParam()), GetParam());
}

TEST_P(SalesAnalysisGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  Asked asked;
  asked.chosen = {{"OnlyShowSum", 1}};
  const std::vector<PlainRow> totals = RowsOf(Fetch(GetParam(), asked), GetParam());
  std::vector<PlainRow> whole = RowsOf(Fetch(GetParam()), GetParam());
  std::erase_if(whole, [](const PlainRow& row) { return row.key.ends_with("|0"); });
  EXPECT_FALSE(totals.empty());
  ExpectRows(totals, whole, 0);
}

TEST_P(SalesAnalysisGroupings, NoSalesGiveNoRows) {
  EXPECT_EQ(Fetch(GetParam(), {.year = 2040, .period = 1})->RecordCount(), 0);
}

std::vector<Case> AllCases() {
  std::vector<Case> cases;
  for (const Kind kind : {Kind::kGrowth, Kind::kFlow, Kind::kStructure}) {
    for (const bool aux_prop : {false, true}) {
      cases.push_back({.kind = kind, .mode = 0, .aux_prop = aux_prop});
      for (const int mode : {1, 2, 3, 4}) cases.push_back({.kind = kind, .mode = mode, .aux_prop = aux_prop});
      for (int i = 0; i < 3; ++i)
        cases.push_back({.kind = kind, .mode = kFirstProperty + i, .aux_prop = aux_prop});
    }
    for (const int mode : {1, 2, 3, 4}) {
      cases.push_back({.kind = kind, .mode = mode, .from = 1, .to = 1});
      cases.push_back({.kind = kind, .mode = mode, .from = 2, .to = 3});
    }
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(All, SalesAnalysisGroupings, testing::ValuesIn(AllCases()),
                         [](const auto& test) { return Case::Name(test.param); });

TEST_F(SalesAnalysisRows, EachPeriodHasItsOwnYearBefore) {
  for (const Kind kind : {Kind::kGrowth, Kind::kStructure}) {
    for (const auto& [year, period] : {std::pair{2024, 2}, {2025, 2}, {2024, 11}, {2023, 6}}) {
      const Asked asked{.year = year, .period = period};
      ExpectRowsOf(Fetch({kind, 0}, asked), {kind, 0}, asked);
      ExpectRowsOf(Fetch({kind, 1}, asked), {kind, 1}, asked);
    }
  }
}

// --- The filter, key by key

struct Choice {
  const char* name;
  Asked asked;
  bool short_codes = false;
};

const std::vector<Choice>& Choices() {
  static const std::vector<Choice> choices = {
      {"NotAudited", {.bills = " AND status=0", .chosen = {{"CheckState", 1}}}},
      {"AnyState", {.bills = "", .chosen = {{"CheckState", 2}}}},
      {"FromItem", {.items = " AND item>='01.02'", .chosen = {{"BItemNumber", "01.02"}}}},
      {"ToItem", {.items = " AND item<='01.02'", .chosen = {{"EItemNumber", "01.02"}}}},
      {"FromCustomer", {.bills = " AND status>0 AND cust>='01.02'", .chosen = {{"BCustNumber", "01.02"}}}},
      {"ToCustomer", {.bills = " AND status>0 AND cust<='02'", .chosen = {{"ECustNumber", "02"}}}},
      {"Services", {.items = " AND kind=4", .chosen = {{"CommodityType", 1}}}},
      {"Goods", {.items = " AND kind<>4", .chosen = {{"CommodityType", 2}}}},
      {"GoodsOfCustomers",
       {.bills = " AND cust BETWEEN '01' AND '02'",
        .items = " AND kind<>4 AND item BETWEEN '01' AND '02'",
        .chosen = {{"BItemNumber", "01"},
                   {"EItemNumber", "02"},
                   {"BCustNumber", "01"},
                   {"ECustNumber", "02"},
                   {"CommodityType", 2},
                   {"CheckState", 2},
                   {"chkNextChoose", 1}}}},
      {"ShortCodes",
       {.bills = " AND status>0 AND cust_short BETWEEN '0004' AND '0060'",
        .items = " AND item_short BETWEEN '0005' AND '0150'",
        .chosen = {{"BItemNumber", "0005"},
                   {"EItemNumber", "0150"},
                   {"BCustNumber", "0004"},
                   {"ECustNumber", "0060"}}},
       true}};
  return choices;
}

class SalesAnalysisChoices : public SalesAnalysisRows,
                             public testing::WithParamInterface<std::tuple<Case, std::size_t>> {};

TEST_P(SalesAnalysisChoices, NarrowTheRows) {
  const auto& [c, place] = GetParam();
  const Choice& choice = Choices()[place];
  UseShortCodes(choice.short_codes);
  ExpectRowsOf(Fetch(c, choice.asked), c, choice.asked);
}

INSTANTIATE_TEST_SUITE_P(
    All, SalesAnalysisChoices,
    testing::Combine(testing::Values(Case{Kind::kGrowth, 0}, Case{Kind::kFlow, 0}, Case{Kind::kStructure, 0},
                                     Case{.kind = Kind::kFlow, .mode = 1, .aux_prop = true},
                                     Case{Kind::kStructure, 3}, Case{Kind::kGrowth, 2},
                                     Case{Kind::kStructure, 2}),
                     testing::Range(std::size_t{0}, Choices().size())),
    [](const auto& test) {
      return Join(Case::Name(std::get<0>(test.param)), Choices()[std::get<1>(test.param)].name);
    });

// --- Data rights: customers whose lists name the user

class SalesAnalysisSeen : public SalesAnalysisRows, public testing::WithParamInterface<Case> {
 protected:
  SalesAnalysisSeen() : SalesAnalysisRows({.user_name = "业务员", .user_id = 16395}) {}
};

TEST_P(SalesAnalysisSeen, OnlyTheCustomersThatTheUserMaySeeCount) {
  const Asked mine{.bills = " AND status>0 AND instr(seen_by,'16395')>0"};
  ExpectRowsOf(Fetch(GetParam(), mine), GetParam(), mine);
  const Asked narrow{.bills = " AND cust<='02' AND instr(seen_by,'16395')>0",
                     .chosen = {{"ECustNumber", "02"}, {"CheckState", 2}}};
  ExpectRowsOf(Fetch(GetParam(), narrow), GetParam(), narrow);
}

INSTANTIATE_TEST_SUITE_P(All, SalesAnalysisSeen,
                         testing::Values(Case{Kind::kGrowth, 0}, Case{Kind::kFlow, 0},
                                         Case{Kind::kStructure, 0}, Case{Kind::kGrowth, 4},
                                         Case{Kind::kFlow, 2}, Case{Kind::kStructure, 1},
                                         Case{Kind::kStructure, kFirstProperty}),
                         [](const auto& test) { return Case::Name(test.param); });

}  // namespace
}  // namespace salerpt::middletier
