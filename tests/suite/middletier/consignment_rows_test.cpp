// The consignment and the instalment list on a generated account set: every row of every grouping beside
// plain SQL, and the periods beside each other.
#include <algorithm>

#include "dialogs/unattended.h"
#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// Two thirds of the outbound bills become consignments and instalment sales; some are not audited, some
// have neither department nor employee, some goods lie in other stocks than the usual or in none; some
// invoices are not audited.
constexpr const char* kPrepare = R"sql(
BEGIN;
UPDATE ICStockBill SET FSaleStyle=CASE FInterID%3 WHEN 0 THEN 103 WHEN 1 THEN 102 ELSE FSaleStyle END WHERE FTranType=21;
UPDATE ICStockBill SET FStatus=0 WHERE FTranType=21 AND FInterID%11=0;
UPDATE ICSale SET FStatus=0 WHERE FInterID%7=0;
UPDATE ICStockBill SET FDeptID=0,FEmpID=0 WHERE FTranType=21 AND FInterID%13=0;
UPDATE ICStockBillEntry SET FDCStockID=CASE FEntryID%4 WHEN 1 THEN (SELECT max(FItemID) FROM t_Stock WHERE FTypeID<>500)
  WHEN 2 THEN 0 ELSE FDCStockID END WHERE FInterID%5=0;
UPDATE t_Organization SET FName=(SELECT FName FROM t_Organization ORDER BY FNumber LIMIT 1)
  WHERE FNumber=(SELECT max(FNumber) FROM t_Organization);
CREATE TEMP TABLE class_at(kind INT,level INT,code TEXT,FName TEXT,PRIMARY KEY(kind,level,code)) WITHOUT ROWID;
INSERT INTO class_at SELECT c.FItemClassID,c.FLevel,t.FNumber,c.FName FROM t_Item t JOIN t_Item c
  ON c.FItemClassID=t.FItemClassID AND c.FDetail=0 AND t.FNumber LIKE c.FNumber||'.%'
  WHERE t.FDetail=1 AND t.FItemClassID IN (1,4);
)sql";

constexpr int kConsignment = 303;
constexpr int kInstalment = 304;

// What the balances are worked out from.
struct Basis {
  int list = kConsignment;
  std::string first = "2024-01-01";
  std::string last = "2024-06-30";
  std::int32_t check_state = 0;
  bool other_stocks = true;
};

std::string StateOf(const Basis& basis) {
  return Join(" AND b.FCancelLation=0", basis.check_state == 0   ? " AND b.FStatus>0"
                                        : basis.check_state == 1 ? " AND b.FStatus=0"
                                                                 : "");
}

// The part of a line's amount that a settled quantity is of the line, in whole cents.
std::string Share(const char* settled) {
  return Join("CASE o.qty WHEN 0 THEN 0 ELSE half_up(o.amount*coalesce(", settled, ",0)/o.qty,2) END");
}

// The balances of each item, customer, employee, department and batch. A line that was sent before the period
// opens with what of it is not invoiced until then; what is invoiced up to the end is settled. Quantities
// show with the item's decimals, in both units; what neither opens nor moves does not show.
std::string Balances(const Basis& basis) {
  const std::string before = Join("(date(b.FDate)<'", basis.first, "')");
  const std::string until = Join(" AND date(b.FDate)<='", basis.last, "'");
  const std::string share = Share("s.qty");
  const std::string share_before = Share("s.qty_before");
  return Join(
      "WITH sent AS (SELECT b.FInterID,e.FEntryID,e.FItemID,b.FSupplyID,b.FEmpID,b.FDeptID,e.FBatchNo,",
      before,
      " before,e.FQty qty,half_up(e.FConsignAmount,2) amount FROM ICStockBill b"
      " JOIN ICStockBillEntry e USING(FInterID) LEFT JOIN t_Stock w ON w.FItemID=e.FDCStockID"
      " WHERE b.FTranType=21 AND b.FSaleStyle=",
      basis.list == kConsignment ? 103 : 102, basis.other_stocks ? "" : " AND coalesce(w.FTypeID,500)=500",
      until, StateOf(basis), "), settled AS (SELECT e.FSourceInterID,e.FSourceEntryID,sum(", before,
      "*e.FQty) qty_before,sum(e.FQty) qty"
      " FROM ICSale b JOIN ICSaleEntry e USING(FInterID) WHERE b.FTranType IN (80,86) AND "
      "e.FSourceTranType=21",
      until, StateOf(basis),
      " GROUP BY 1,2), "
      "moved AS (SELECT o.*,before*(o.qty-coalesce(s.qty_before,0)) beg,before*(amount-",
      share_before,
      ") beg_amount,(1-before)*o.qty send,(1-before)*amount send_amount,"
      "coalesce(s.qty,0)-before*coalesce(s.qty_before,0) verif,",
      share, "-before*", share_before,
      " verif_amount"
      " FROM sent o LEFT JOIN settled s ON s.FSourceInterID=o.FInterID AND s.FSourceEntryID=o.FEntryID), "
      "owned AS (SELECT FItemID,FSupplyID,FEmpID,FDeptID,FBatchNo,sum(beg) beg,sum(beg_amount) beg_amount,"
      "sum(send) send,sum(send_amount) send_amount,sum(verif) verif,sum(verif_amount) verif_amount FROM moved"
      " GROUP BY 1,2,3,4,5), "
      "balances AS (SELECT i.FNumber item,i.FShortNumber item_short,i.FModel model,k.FName kind,o.FNumber "
      "cust,"
      "o.FShortNumber cust_short,o.FName cust_name,g.FName region,m.FNumber emp,m.FShortNumber emp_short,"
      "m.FName emp_name,d.FNumber dept,d.FShortNumber dept_short,d.FName dept_name,v.FBatchNo batch,"
      "half_up(beg,i.FQtyDecimal) beg,half_up(beg*1.0/u.FCoefficient,i.FQtyDecimal) beg_common,beg_amount,"
      "half_up(send,i.FQtyDecimal) send,half_up(send*1.0/u.FCoefficient,i.FQtyDecimal) "
      "send_common,send_amount,"
      "half_up(verif,i.FQtyDecimal) verif,half_up(verif*1.0/u.FCoefficient,i.FQtyDecimal) "
      "verif_common,verif_amount"
      " FROM owned v JOIN t_ICItem i ON i.FItemID=v.FItemID JOIN t_Organization o ON o.FItemID=v.FSupplyID"
      " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID LEFT JOIN t_SubMessage k ON "
      "k.FInterID=i.FErpClsID"
      " LEFT JOIN t_SubMessage g ON g.FInterID=o.FRegionID LEFT JOIN t_Emp m ON m.FItemID=v.FEmpID"
      " LEFT JOIN t_Department d ON d.FItemID=v.FDeptID"
      " WHERE (beg<>0 OR abs(beg_amount)>0.001 OR send<>0 OR abs(send_amount)>0.001 OR verif<>0"
      " OR abs(verif_amount)>0.001)");
}

constexpr const char* kSums =
    "sum(beg),sum(beg_common),sum(beg_amount),sum(send),sum(send_common),sum(send_amount),sum(verif),"
    "sum(verif_common),sum(verif_amount),sum(beg)+sum(send)-sum(verif),"
    "sum(beg_common)+sum(send_common)-sum(verif_common),sum(beg_amount)+sum(send_amount)-sum(verif_amount)";
const std::vector<const char*> kNumbers = {"FBegQty",      "FCUBegQty",   "FBegAmount", "FSendQty",
                                           "FCUSendQty",   "FSendAmount", "FVerifQty",  "FCUVerifQty",
                                           "FVerifAmount", "FEndQty",     "FCUEndQty",  "FEndAmount"};

// A property as the dialog describes it, and its value in plain SQL.
struct Property {
  std::int32_t item_class;
  std::int32_t id;
  const char* column;
  const char* table;
  const char* value;
};
constexpr Property kProperties[] = {{1, 101, "FRegionID", "t_SubMessage", "region"},
                                    {4, 101, "FErpClsID", "t_SubMessage", "kind"},
                                    {4, 105, "FModel", "", "model"}};

struct Shape {
  std::string plain;  // the group columns in plain SQL, each with a comma behind
  std::vector<std::string> fields;
  std::vector<Group> groups;
  std::size_t labelled = 0;  // the field of the total's label

  void AddLevels(int item_class, int from, int to) {
    for (int i = from; i <= to; ++i) {
      plain += Join("(SELECT c.FName FROM class_at c WHERE c.kind=", item_class, " AND c.level=", i,
                    " AND c.code=", item_class == 4 ? "item" : "cust", "),");
      fields.push_back(Join("FName", i));
      groups.push_back({fields.size(), {{fields.size() - 1, "小计"}}, i + 106});
    }
  }
  void AddCustomer(std::int32_t code) {
    plain += "cust_name,";
    fields.emplace_back("FCustName");
    groups.push_back({fields.size(), {{fields.size() - 1, "小计"}}, code});
  }
  void AddProperty(const std::string& values, const std::string& field) {
    plain += values;
    fields = {"FPropNumber", field};
    groups.push_back({2, {{1, "(小计)"}}, 102});
    labelled = 1;
  }
};

// Rows of "sum by" have their codes; 0 is the list by item, 10 and on the properties, 20 the batches.
struct Case {
  int mode;
  int from = 1;
  int to = 2;

  static std::string Name(const Case& c) { return Join("Mode", c.mode, "Levels", c.from, "To", c.to); }
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
};
constexpr int kFirstProperty = 10;
constexpr int kBatches = 20;

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
      shape.AddLevels(4, c.from, c.to);
      shape.AddCustomer(c.to + 107);
      break;
    case 4:
      shape.AddCustomer(c.from + 105);
      shape.AddLevels(4, c.from, c.to);
      break;
    case 5:
      shape.AddProperty("cust,cust_name,", "FProp01");
      break;
    case 6:
      shape.AddProperty("'',emp_name,", "FProp03");
      break;
    case 7:
      shape.AddProperty("'',dept_name,", "FProp02");
      break;
    case kBatches:
      // The item is the outer group; its label, its code and the word, is put in by ExpectRowsOf.
      shape.plain = "item,batch";
      shape.fields = {"FNumber", "FBatchNo"};
      shape.groups = {{1, {{1, "小计"}}, 102}};
      shape.labelled = 1;
      return shape;
    default: {
      const Property& p = kProperties[c.mode - kFirstProperty];
      shape.AddProperty(Join(p.item_class == 1 ? "cust," : "'',", p.value, ","),
                        Join("FProp", p.id, p.item_class));
    }
  }
  shape.plain += "item";
  shape.fields.emplace_back("FNumber");
  return shape;
}

class Consignment : public ReportRows {
 protected:
  explicit Consignment(const Login& login = {}) : ReportRows(login) {}
  static void SetUpTestSuite() { Set().Run(kPrepare); }
  static void TearDownTestSuite() { Set().Run("ROLLBACK"); }

  static RecordsetRef Fetch(const Case& c, const Basis& basis,
                            const std::vector<Dictionary::Entry>& more = {}) {
    std::vector<Dictionary::Entry> chosen = {{"BDate", basis.first},
                                             {"EDate", basis.last},
                                             {"OnlyShowSum", 0},
                                             {"GroupBy", c.mode > 0 ? 1 : 0},
                                             {"SumMode", c.mode >= kFirstProperty ? 0 : c.mode},
                                             {"BLevel", c.from},
                                             {"ELevel", c.to},
                                             {"CheckState", basis.check_state},
                                             {"ShowVirtualStock", basis.other_stocks ? 1 : 0}};
    if (c.mode >= kFirstProperty && c.mode < kBatches)
      chosen.push_back({"SumField", SumFieldOf(kProperties[c.mode - kFirstProperty])});
    chosen.insert(chosen.end(), more.begin(), more.end());
    const DictionaryRef filter = ConfirmedFilter("FrmFilter303", chosen);
    // No row of "sum by" offers the batches: hosts ask for them.
    if (c.mode == kBatches) filter->Set("SumMode", 6);

    const ObjectRef report = CreateObject("ORVSaleRpt.Rpt303");
    SetMember(report, "RptID", basis.list);
    SetMember(report, "Filter", filter);
    Call(report, "GetReportData");
    const auto result = As<Dictionary>(GetMember(report, "Result"));
    EXPECT_TRUE(result->Get("OK").ToBoolean()) << result->Get("Error").TextOrEmpty();
    return As<Recordset>(GetMember(report, "Rs"));
  }

  // The report's rows beside those that plain SQL gives under a condition.
  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const Basis& basis,
                           const std::string& condition = "") {
    ASSERT_NE(rows, nullptr);
    const Shape shape = ShapeOf(c);
    std::string columns = "1";
    std::vector<const char*> keys;
    for (const std::string& field : shape.fields) {
      if (!keys.empty()) columns += Join(",", static_cast<int>(keys.size()) + 1);
      keys.push_back(field.c_str());
    }
    const std::vector<PlainRow> plain = Plain(Join(Balances(basis), condition, ") SELECT ", shape.plain, ",",
                                                   kSums, " FROM balances GROUP BY ", columns),
                                              static_cast<int>(keys.size()));
    EXPECT_FALSE(plain.empty());
    std::vector<PlainRow> expected = RolledUp(InOrderOf(plain, Pick(rows, 0, 0, keys, {})), shape.groups,
                                              {0, {{shape.labelled, "合计"}}, 101});
    for (PlainRow& row : expected) {
      if (c.mode == kBatches && row.key.ends_with("|102"))
        row.key.insert(row.key.find('|') + 1, row.key.substr(0, row.key.find('|')));
    }
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
};

// --- Every row of every grouping, in both lists

class ConsignmentGroupings : public Consignment, public testing::WithParamInterface<std::tuple<int, Case>> {
 protected:
  static const Case& Grouping() { return std::get<1>(GetParam()); }
  static Basis List() { return {.list = std::get<0>(GetParam())}; }
};

TEST_P(ConsignmentGroupings, EveryRowIsThatOfTheTables) {
  ExpectRowsOf(Fetch(Grouping(), List()), Grouping(), List());
}

// Closing balances and prices, of details as of totals.
TEST_P(ConsignmentGroupings, ClosingBalanceAndPricesFollowFromTheFiguresOfTheRow) {
  const RecordsetRef rows = Fetch(Grouping(), List());
  const std::vector<PlainRow> figures = Pick(rows, 0, 200, {"FNumber"}, kNumbers);
  EXPECT_GT(figures.size(), 5);
  for (const PlainRow& row : figures) {
    const std::vector<double>& n = row.numbers;
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(n[9 + i], n[i] + n[3 + i] - n[6 + i], 1e-6) << row.key;
  }
  const std::vector<PlainRow> prices = Pick(rows, 0, 200, {"FNumber"},
                                            {"FBegPrice", "FCUBegPrice", "FSendPrice", "FCUSendPrice",
                                             "FVerifPrice", "FCUVerifPrice", "FEndPrice", "FCUEndPrice"});
  for (std::size_t row = 0; row < prices.size(); ++row) {
    for (std::size_t i = 0; i < 8; ++i) {
      // Blocks of quantity, common quantity and amount.
      const double quantity = figures[row].numbers[i / 2 * 3 + i % 2];
      const double amount = figures[row].numbers[i / 2 * 3 + 2];
      EXPECT_NEAR(prices[row].numbers[i], quantity == 0 ? 0 : amount / quantity, 1e-5) << prices[row].key;
    }
  }
}

TEST_P(ConsignmentGroupings, EveryDetailTellsItsItemAndTheyComeInTheOrderOfTheirCodes) {
  const std::vector<PlainRow> items = Plain(
      "SELECT i.FNumber,i.FShortNumber,i.FName,i.FModel,b.FName,u.FName,i.FQtyDecimal,i.FPriceDecimal"
      " FROM t_ICItem i JOIN t_MeasureUnit b ON b.FUnitGroupID=i.FUnitGroupID AND b.FStandard=1"
      " JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID ORDER BY 1",
      8);
  const RecordsetRef rows = Fetch(Grouping(), List());
  const std::vector<PlainRow> details = Pick(rows, 0, 0,
                                             {"FNumber", "FShortNumber", "FName", "FModel", "FUnitName",
                                              "FCUUnitName", "FQtyDecimal", "FPriceDecimal"},
                                             {});
  const Shape shape = ShapeOf(Grouping());
  std::vector<const char*> keys;
  for (const std::string& field : shape.fields) keys.push_back(field.c_str());
  keys.pop_back();
  const std::vector<PlainRow> groups = Pick(rows, 0, 0, keys, {});
  for (std::size_t i = 0; i < details.size(); ++i) {
    EXPECT_TRUE(std::ranges::binary_search(items, details[i].key, {}, &PlainRow::key)) << details[i].key;
    if (i == 0 || groups[i].key != groups[i - 1].key) continue;
    EXPECT_LE(details[i - 1].key, details[i].key) << groups[i].key;
  }
}

TEST_P(ConsignmentGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const std::vector<const char*> keys = {"FNumber", "FSumSort"};
  const std::vector<PlainRow> totals =
      Pick(Fetch(Grouping(), List(), {{"OnlyShowSum", 1}}), 0, 200, keys, kNumbers);
  EXPECT_FALSE(totals.empty());
  ExpectRows(totals, Pick(Fetch(Grouping(), List()), 101, 200, keys, kNumbers), 0);
}

TEST_P(ConsignmentGroupings, NothingIsShownBeforeTheFirstBill) {
  EXPECT_EQ(
      Fetch(Grouping(), {.list = List().list, .first = "2020-01-01", .last = "2020-12-31"})->RecordCount(),
      0);
}

INSTANTIATE_TEST_SUITE_P(All, ConsignmentGroupings,
                         testing::Combine(testing::Values(kConsignment, kInstalment),
                                          testing::Values(Case{0}, Case{1}, Case{1, 2, 3}, Case{2},
                                                          Case{2, 1, 3}, Case{3}, Case{3, 2, 2}, Case{4},
                                                          Case{4, 2, 3}, Case{5}, Case{6}, Case{7}, Case{10},
                                                          Case{11}, Case{12}, Case{kBatches})),
                         [](const auto& test) {
                           return Join("List", std::get<0>(test.param), Case::Name(std::get<1>(test.param)));
                         });

// --- Period after period

class ConsignmentPeriods : public Consignment, public testing::WithParamInterface<std::tuple<int, Case>> {};

// In base units and amounts; the common units are rounded block by block.
TEST_P(ConsignmentPeriods, OneOpensAsTheOneBeforeItClosed) {
  const auto& [list, grouping] = GetParam();
  const std::vector<std::pair<std::string, std::string>> periods = {{"2023-01-01", "2023-06-30"},
                                                                    {"2023-07-01", "2024-02-29"},
                                                                    {"2024-03-01", "2024-03-31"},
                                                                    {"2024-04-01", "2025-12-31"}};
  Shape shape = ShapeOf(grouping);
  std::vector<const char*> keys;
  for (const std::string& field : shape.fields) keys.push_back(field.c_str());
  keys.push_back("FSumSort");
  const auto balances = [&](const RecordsetRef& rows, const char* quantity, const char* amount) {
    std::vector<PlainRow> open = Pick(rows, 0, 200, keys, {quantity, amount});
    std::erase_if(open, [](const PlainRow& row) { return row.numbers[0] == 0 && row.numbers[1] == 0; });
    return open;
  };
  std::vector<PlainRow> closed;
  for (const auto& [first, last] : periods) {
    const RecordsetRef rows = Fetch(grouping, {.list = list, .first = first, .last = last});
    ExpectRows(balances(rows, "FBegQty", "FBegAmount"), closed, 1e-6);
    closed = balances(rows, "FEndQty", "FEndAmount");
    EXPECT_FALSE(closed.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(All, ConsignmentPeriods,
                         testing::Combine(testing::Values(kConsignment, kInstalment),
                                          testing::Values(Case{0}, Case{3}, Case{5}, Case{kBatches})),
                         [](const auto& test) {
                           return Join("List", std::get<0>(test.param), Case::Name(std::get<1>(test.param)));
                         });

// --- The filter, key by key

// A choice in the dialog, and the condition that it is in plain SQL.
struct Choice {
  const char* name;
  Basis basis;
  std::vector<Dictionary::Entry> chosen;
  const char* condition;
  bool short_codes = false;
};

const std::vector<Choice>& Choices() {
  static const std::vector<Choice> choices = {
      {"NotAudited", {.check_state = 1}, {}, ""},
      {"AllStates", {.check_state = 2}, {}, ""},
      {"UsualStocksOnly", {.other_stocks = false}, {}, ""},
      {"AllDays", {.first = "2023-01-01", .last = "2027-12-31"}, {}, ""},
      {"OneDay", {.first = "2024-03-15", .last = "2024-03-15"}, {}, ""},
      {"Items", {}, {{"BItemNumber", "01.02"}, {"EItemNumber", "02"}}, " AND item BETWEEN '01.02' AND '02'"},
      {"ToItem", {}, {{"EItemNumber", "01.02"}}, " AND item<='01.02'"},
      {"Customers",
       {},
       {{"BCustNumber", "01.02"}, {"ECustNumber", "03"}},
       " AND cust BETWEEN '01.02' AND '03'"},
      {"FromCustomer", {}, {{"BCustNumber", "02"}}, " AND cust>='02'"},
      {"Departments",
       {},
       {{"BDptNumber", "01.02"}, {"EDptNumber", "01.04"}},
       " AND dept BETWEEN '01.02' AND '01.04'"},
      {"Employees",
       {},
       {{"BEmpNumber", "01.005"}, {"EEmpNumber", "01.020"}},
       " AND emp BETWEEN '01.005' AND '01.020'"},
      {"Services", {.first = "2023-01-01"}, {{"CommodityType", 1}}, " AND i.FErpClsID=4"},
      {"NoServices", {}, {{"CommodityType", 2}}, " AND i.FErpClsID<>4"},
      {"NextTimeWithoutDialog", {}, {{"chkNextChoose", 1}}, ""},
      {"NotAuditedOfUsualStocks",
       {.check_state = 2, .other_stocks = false},
       {{"BItemNumber", "01"}, {"BDptNumber", "01.03"}},
       " AND item>='01' AND dept>='01.03'"},
      {"CustomersOfAnEmployee",
       {},
       {{"ECustNumber", "03"}, {"BEmpNumber", "01.010"}},
       " AND cust<='03' AND emp>='01.010'"},
      {"ShortCodes",
       {},
       {{"BItemNumber", "0005"}, {"EItemNumber", "0060"}, {"BCustNumber", "0004"}, {"EEmpNumber", "020"}},
       " AND item_short BETWEEN '0005' AND '0060' AND cust_short>='0004' AND emp_short<='020'",
       true}};
  return choices;
}

class ConsignmentChoices : public Consignment,
                           public testing::WithParamInterface<std::tuple<int, std::size_t>> {};

TEST_P(ConsignmentChoices, NarrowTheBalances) {
  const auto& [mode, place] = GetParam();
  Choice choice = Choices()[place];
  choice.basis.list = mode == 2 ? kInstalment : kConsignment;
  Set().Run(Join("UPDATE t_SystemProfile SET FValue='", choice.short_codes ? 1 : 0,
                 "' WHERE FKey='UseShortNumber'"));
  ExpectRowsOf(Fetch({mode}, choice.basis, choice.chosen), {mode}, choice.basis, choice.condition);
}

INSTANTIATE_TEST_SUITE_P(All, ConsignmentChoices,
                         testing::Combine(testing::Values(0, 2, kBatches),
                                          testing::Range(std::size_t{0}, Choices().size())),
                         [](const auto& test) {
                           return Join("Mode", std::get<0>(test.param),
                                       Choices()[std::get<1>(test.param)].name);
                         });

// --- Data rights

class ConsignmentSeen : public Consignment, public testing::WithParamInterface<Case> {
 protected:
  ConsignmentSeen() : Consignment({.user_name = "业务员", .user_id = 16395}) {}
};

TEST_P(ConsignmentSeen, OnlyTheCustomersThatTheUserMaySeeCount) {
  ExpectRowsOf(Fetch(GetParam(), {}), GetParam(), {}, " AND instr(o.FRightUserID,'16395')>0");
}

INSTANTIATE_TEST_SUITE_P(All, ConsignmentSeen,
                         testing::Values(Case{0}, Case{1}, Case{2}, Case{3}, Case{4}, Case{5}, Case{6},
                                         Case{11}, Case{kBatches}),
                         [](const auto& test) { return Case::Name(test.param); });

}  // namespace
}  // namespace salerpt::middletier
