// Production and sales tracking of orders on a generated account set: every line of the report beside plain
// SQL.
#include "dialogs/unattended.h"
#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// What the report must tell apart and the made-up company has too little of: orders of nobody, of no
// department and employee, not audited, cancelled; two tasks for one line, cancelled tasks, tasks made in
// part; receipts of a task and of the line alone, not audited, moving the stock all the same, cancelled;
// lines delivered in part, twice, and sent back; lines without a day of delivery; items without a common unit
// or with one that nobody counts.
constexpr const char* kPrepare = R"sql(
BEGIN;
UPDATE SEOrder SET FCustID=0 WHERE FInterID%17=0;
UPDATE SEOrder SET FDeptID=0,FEmpID=0 WHERE FInterID%13=0;
UPDATE SEOrder SET FStatus=0 WHERE FInterID%7=0;
UPDATE SEOrder SET FCancelLation=1 WHERE FInterID%11=0;
UPDATE SEOrderEntry SET FAdviceConsignDate=NULL WHERE FEntryID%5=0;
UPDATE SEOrderEntry SET FDate=NULL WHERE FEntryID%10=0;
UPDATE t_MeasureUnit SET FCoefficient=0 WHERE FMeasureUnitID=402;
UPDATE t_ICItem SET FCUUnitID=999 WHERE FItemID%13=0;
UPDATE ICMO SET FCommitQty=FQty*0.45 WHERE FInterID%4=0;
INSERT INTO ICMO(FInterID,FBillNo,FItemID,FUnitID,FQty,FAuxQty,FCommitQty,FOrderInterID,FSourceEntryID)
  SELECT FInterID+100000,FBillNo||'B',FItemID,FUnitID,7,7,2.5,FOrderInterID,FSourceEntryID
  FROM ICMO WHERE FInterID%5=0;
UPDATE ICMO SET FCancelLation=1 WHERE FInterID%9=0;
UPDATE ICStockBillEntry SET FICMOInterID=0 WHERE FOrderInterID>0 AND FInterID%3=0;
UPDATE ICStockBill SET FStatus=0 WHERE FTranType IN (2,21) AND FInterID%5=0;
UPDATE ICStockBill SET FUpStockWhenSave=1 WHERE FTranType IN (2,21) AND FInterID%10=0;
UPDATE ICStockBill SET FCancelLation=1 WHERE FTranType IN (2,21) AND FInterID%13=0;
UPDATE ICStockBillEntry SET FQty=FQty*0.55 WHERE FInterID%4=0;
UPDATE ICStockBillEntry SET FQty=-FQty WHERE FInterID%29=0;
CREATE TEMP TABLE sent AS SELECT e.FOrderInterID id,e.FOrderEntryID entry,e.FQty qty FROM ICStockBill b
  JOIN ICStockBillEntry e USING(FInterID) WHERE b.FTranType=21 AND (b.FStatus>0 OR b.FUpStockWhenSave=1)
  AND b.FCancelLation=0 AND e.FOrderInterID>0;
INSERT INTO sent SELECT e.FOrderInterID,e.FOrderEntryID,e.FQty FROM ICSale b JOIN ICSaleEntry e USING(FInterID)
  JOIN SEOrder o ON o.FInterID=e.FOrderInterID AND o.FSaleStyle=20296 WHERE b.FStatus>0 AND b.FCancelLation=0
  AND b.FTranType IN (80,86);
CREATE TEMP TABLE made AS SELECT FOrderInterID id,FSourceEntryID entry,FInterID task,FCommitQty qty FROM ICMO
  WHERE FCancelLation=0;
CREATE TEMP TABLE received AS SELECT coalesce(m.FOrderInterID,e.FOrderInterID) id,
  coalesce(m.FSourceEntryID,e.FOrderEntryID) entry,e.FQty qty,coalesce(m.FCancelLation,0) void
  FROM ICStockBill b JOIN ICStockBillEntry e USING(FInterID) LEFT JOIN ICMO m ON m.FInterID=e.FICMOInterID
  WHERE b.FTranType=2 AND (b.FStatus>0 OR b.FUpStockWhenSave=1) AND b.FCancelLation=0;
CREATE TEMP TABLE measured AS WITH
  s AS (SELECT id,entry,sum(qty) qty FROM sent GROUP BY 1,2),
  p AS (SELECT id,entry,sum(qty) qty FROM made GROUP BY 1,2),
  r AS (SELECT id,entry,sum(qty) qty FROM received WHERE void=0 GROUP BY 1,2)
  SELECT e.*,coalesce(p.qty,0) made,coalesce(r.qty,0) received,coalesce(s.qty,0) sent FROM SEOrderEntry e
  LEFT JOIN s ON s.id=e.FInterID AND s.entry=e.FEntryID LEFT JOIN p ON p.id=e.FInterID AND p.entry=e.FEntryID
  LEFT JOIN r ON r.id=e.FInterID AND r.entry=e.FEntryID;
CREATE TEMP TABLE tracked AS SELECT e.FInterID id,e.FEntryID entry,date(b.FDate) day,b.FBillNo bill,
  b.FStatus status,b.FSaleStyle style,o.FNumber cust,o.FShortNumber cust_short,o.FName cust_name,
  o.FRightUserID seen_by,d.FNumber dept,d.FShortNumber dept_short,m.FNumber emp,m.FShortNumber emp_short,
  date(coalesce(e.FAdviceConsignDate,e.FDate)) due,i.FNumber item,i.FShortNumber item_short,i.FName name,
  i.FModel model,a.FName aux,i.FErpClsID kind,s.FName base_unit,u.FName unit,i.FQtyDecimal places,
  CASE WHEN e.sent<=0 THEN 0 WHEN e.sent<e.FQty THEN 1 ELSE 2 END state,
  CASE coalesce(u.FCoefficient,0) WHEN 0 THEN 1.0 ELSE u.FCoefficient*1.0 END pack,
  e.FQty ordered,e.made,e.received,e.sent
  FROM SEOrder b JOIN measured e USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID
  LEFT JOIN t_MeasureUnit s ON s.FUnitGroupID=i.FUnitGroupID AND s.FStandard=1
  LEFT JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID LEFT JOIN t_AuxItem a ON a.FItemID=e.FAuxPropID
  LEFT JOIN t_Organization o ON o.FItemID=b.FCustID LEFT JOIN t_Department d ON d.FItemID=b.FDeptID
  LEFT JOIN t_Emp m ON m.FItemID=b.FEmpID WHERE b.FCancelLation=0;
)sql";

// A line, as the report tells it; the total rows have neither line nor places of their own.
const std::vector<const char*> kLine = {"FDate",
                                        "FBillNo",
                                        "FInterID",
                                        "FEntryID",
                                        "FCustNumber",
                                        "FCustName",
                                        "FAdviceConsignDate",
                                        "FItemNumber",
                                        "FItemShortNumber",
                                        "FName",
                                        "FModel",
                                        "FAuxName",
                                        "FBaseUnitName",
                                        "FStockUnitName",
                                        "FQtyDecimal",
                                        "FExecutionStatus"};
constexpr const char* kPlainLine =
    "day,bill,id,entry,cust,cust_name,due,item,item_short,name,model,aux,base_unit,unit,places,"
    "CASE state WHEN 0 THEN '未执行' WHEN 1 THEN '部分执行' ELSE '完全执行' END,";
const std::vector<const char*> kQuantities = {
    "FQty",           "FAuxQty",      "FBCommitQty",     "FAuxBCommitQty", "FInStockQty",
    "FInAuxStockQty", "FOutStockQty", "FOutAuxStockQty", "FUnFinishQty",   "FUnAuxFinishQty"};
constexpr const char* kPlainQuantities =
    "half_up(ordered,places),half_up(ordered/pack,places),half_up(made,places),half_up(made/pack,places),"
    "half_up(received,places),half_up(received/pack,places),half_up(sent,places),half_up(sent/pack,places),"
    "half_up(ordered-sent,places),half_up((ordered-sent)/pack,places)";
constexpr const char* kAudited = " AND status>0";

// Levels of item classes; none for the plain list.
struct Case {
  int from = 0;
  int to = 0;

  static std::string Name(const Case& c) {
    return c.from == 0 ? "Plain" : Join("Levels", c.from, "To", c.to);
  }
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
};
constexpr Case kPlain = {};

class OrderTrackingRows : public ReportRows {
 protected:
  explicit OrderTrackingRows(const Login& login = {}) : ReportRows(login) { UseShortCodes(false); }
  static void UseShortCodes(bool use) {
    Set().Run(Join("UPDATE t_SystemProfile SET FValue='", use ? 1 : 0, "' WHERE FKey='UseShortNumber'"));
  }
  static void SetUpTestSuite() { Set().Run(kPrepare); }
  static void TearDownTestSuite() { Set().Run("ROLLBACK"); }

  static RecordsetRef Fetch(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    std::vector<Dictionary::Entry> chosen = {{"BDate", Date::FromYmd(2023, 1, 1)},
                                             {"EDate", Date::FromYmd(2027, 12, 31)},
                                             {"GroupBy", c.from > 0 ? 1 : 0}};
    if (c.from > 0) chosen.insert(chosen.end(), {{"BLevel", c.from}, {"ELevel", c.to}});
    chosen.insert(chosen.end(), more.begin(), more.end());
    return As<Recordset>(GetMember(RunReport("ORVSaleRpt.Rpt139", "FrmFilter139", chosen), "Rs"));
  }

  static std::vector<PlainRow> RowsOf(const RecordsetRef& rows, const Case& c) {
    std::vector<std::string> levels = LevelsOf(c);
    std::vector<const char*> keys = KeysOf(levels);
    keys.push_back("FSumSort");
    return Pick(rows, 0, 200, keys, kQuantities);
  }

  // The plain list stands by order and line, class levels as the rollup wrote them.
  static std::vector<PlainRow> Expected(const RecordsetRef& rows, const Case& c, const std::string& condition,
                                        bool short_codes = false) {
    const std::vector<std::string> levels = LevelsOf(c);
    std::string line = kPlainLine;
    if (short_codes) line.replace(line.find(",cust,"), 6, ",cust_short,");
    std::string columns;
    for (int i = c.from; i <= c.to && c.from > 0; ++i)
      Append(columns, "(SELECT a.name FROM class_at a WHERE a.item_class=4 AND a.level=", i,
             " AND a.code=item),");
    std::vector<PlainRow> lines = Plain(Join("SELECT ", columns, line, kPlainQuantities,
                                             " FROM tracked WHERE 1=1", condition, " ORDER BY id,entry"),
                                        static_cast<int>(levels.size() + kLine.size()));
    EXPECT_FALSE(lines.empty());
    if (!levels.empty()) lines = InOrderOf(std::move(lines), Pick(rows, 0, 0, KeysOf(levels), {}));

    const auto total = [&levels](Label label) {
      std::vector<Label> labels = {label};
      labels.push_back({levels.size() + 2, "0"});
      labels.push_back({levels.size() + 3, "0"});
      labels.push_back({levels.size() + 14, "4"});
      return labels;
    };
    std::vector<Group> groups;
    for (std::size_t i = 0; i < levels.size(); ++i)
      groups.push_back({i + 1, total({i, "(小计)"}), c.from + 106 + static_cast<int>(i)});
    std::vector<PlainRow> expected = RolledUp(lines, groups, {0, total({0, "合计"}), 101});
    LabelItemsWithoutClass(expected, c);
    return expected;
  }
  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const std::string& condition = kAudited) {
    ASSERT_NE(rows, nullptr);
    ExpectRows(RowsOf(rows, c), Expected(rows, c, condition));
  }

 private:
  static std::vector<std::string> LevelsOf(const Case& c) {
    std::vector<std::string> levels;
    for (int i = c.from; i <= c.to && c.from > 0; ++i) levels.push_back(Join("FName", i));
    return levels;
  }
  static std::vector<const char*> KeysOf(const std::vector<std::string>& levels) {
    std::vector<const char*> keys;
    for (const std::string& level : levels) keys.push_back(level.c_str());
    keys.insert(keys.end(), kLine.begin(), kLine.end());
    return keys;
  }
  // The subtotal of items that have no class on a level has the label alone.
  static void LabelItemsWithoutClass(std::vector<PlainRow>& rows, const Case& c) {
    for (PlainRow& row : rows) {
      const int level = std::stoi(row.key.substr(row.key.rfind('|') + 1)) - 106;
      if (c.from == 0 || level < c.from || level > c.to) continue;
      std::size_t field = 0;
      for (int i = c.from; i < level; ++i) field = row.key.find('|', field) + 1;
      if (row.key[field] == '|') row.key.insert(field, "(小计)");
    }
  }
};

// --- Every row of the list and of the class levels

class OrderTrackingGroupings : public OrderTrackingRows, public testing::WithParamInterface<Case> {};

TEST_P(OrderTrackingGroupings, EveryRowIsThatOfTheTables) {
  ExpectRowsOf(Fetch(GetParam()), GetParam());
}

TEST_P(OrderTrackingGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const std::vector<PlainRow> totals = RowsOf(Fetch(GetParam(), {{"OnlyShowSum", 1}}), GetParam());
  std::vector<PlainRow> whole = RowsOf(Fetch(GetParam()), GetParam());
  std::erase_if(whole, [](const PlainRow& row) { return row.key.ends_with("|0"); });
  EXPECT_FALSE(totals.empty());
  ExpectRows(totals, whole, 0);
}

// Sums are of all lines, whatever is asked of their state.
TEST_P(OrderTrackingGroupings, TheStatesNarrowNoSums) {
  const RecordsetRef rows =
      Fetch(GetParam(), {{"OnlyShowSum", 1}, {"Unexecuted", 0}, {"Partialexecution", 0}});
  ExpectRows(RowsOf(rows, GetParam()), RowsOf(Fetch(GetParam(), {{"OnlyShowSum", 1}}), GetParam()), 0);
}

TEST_P(OrderTrackingGroupings, NoOrdersGiveNoRows) {
  EXPECT_EQ(Fetch(GetParam(), {{"BDate", Date::FromYmd(2030, 1, 1)}, {"EDate", Date::FromYmd(2030, 1, 31)}})
                ->RecordCount(),
            0);
}

INSTANTIATE_TEST_SUITE_P(All, OrderTrackingGroupings,
                         testing::Values(kPlain, Case{1, 1}, Case{1, 2}, Case{1, 3}, Case{2, 2}, Case{2, 3},
                                         Case{3, 3}),
                         [](const auto& test) { return Case::Name(test.param); });

// --- The filter, key by key

// A choice in the dialog, and the condition that it is in plain SQL; `state` is one that sums do not have.
struct Choice {
  const char* name;
  std::vector<Dictionary::Entry> chosen;
  const char* condition;
  const char* state = "";
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
      {"FromCustomer", {{"BClientNumber", "01.02"}}, " AND status>0 AND cust>='01.02'"},
      {"ToCustomer", {{"EClientNumber", "02"}}, " AND status>0 AND cust<='02'"},
      {"FromDepartment", {{"BDept", "01.04"}}, " AND status>0 AND dept>='01.04'"},
      {"ToDepartment", {{"EDept", "01.04"}}, " AND status>0 AND dept<='01.04'"},
      {"FromEmployee", {{"BEmp", "01.009"}}, " AND status>0 AND emp>='01.009'"},
      {"ToEmployee", {{"EEmp", "01.016"}}, " AND status>0 AND emp<='01.016'"},
      {"FromOrder", {{"BBillNo", "SEORD000060"}}, " AND status>0 AND bill>='SEORD000060'"},
      {"ToOrder", {{"EBillNo", "SEORD000060"}}, " AND status>0 AND bill<='SEORD000060'"},
      {"CashSales", {{"FSaleStyle", 0}}, " AND status>0 AND style=100"},
      {"CreditSales", {{"FSaleStyle", 1}}, " AND status>0 AND style=101"},
      {"Instalments", {{"FSaleStyle", 2}}, " AND status>0 AND style=102"},
      {"Consigned", {{"FSaleStyle", 3}}, " AND status>0 AND style=103"},
      {"AllSaleStyles", {{"FSaleStyle", 4}}, kAudited},
      {"Closed", {{"CheckClose", 0}}, " AND status=3"},
      {"Open", {{"CheckClose", 1}}, " AND status>0 AND status<>3"},
      {"Services", {{"CommodityType", 1}}, " AND status>0 AND kind=4"},
      {"NoServices", {{"CommodityType", 2}}, " AND status>0 AND kind<>4"},
      {"Untouched", {{"Partialexecution", 0}, {"Fullyexecuted", 0}}, kAudited, " AND state=0"},
      {"InPart", {{"Unexecuted", 0}, {"Fullyexecuted", 0}}, kAudited, " AND state=1"},
      {"InFull", {{"Unexecuted", 0}, {"Partialexecution", 0}}, kAudited, " AND state=2"},
      {"NotInFull", {{"Fullyexecuted", 0}}, kAudited, " AND state<2"},
      {"Touched", {{"Unexecuted", 0}}, kAudited, " AND state>0"},
      {"NotInPart", {{"Partialexecution", 0}}, kAudited, " AND state<>1"},
      {"ItemClass", {{"Mode", 1}, {"ItemClassNumber", "01.01"}}, " AND status>0 AND item LIKE '01.01.%'"},
      {"ItemClassNotCodes",
       {{"Mode", 1}, {"ItemClassNumber", "01.01"}, {"BItemNumber", "01.02"}, {"EItemNumber", "01.02"}},
       " AND status>0 AND item LIKE '01.01.%'"},
      {"NoItemClass", {{"Mode", 1}, {"BItemNumber", "01.02"}}, kAudited},
      {"CodesNotItemClass",
       {{"ItemClassNumber", "01.01"}, {"BItemNumber", "01.02"}},
       " AND status>0 AND item>='01.02'"},
      {"GroupByListIndexIsNotAsked", {{"GroupByListIndex", 1}}, kAudited},
      {"OpenInPart",
       {{"CheckClose", 1}, {"Unexecuted", 0}, {"Fullyexecuted", 0}},
       " AND status>0 AND status<>3",
       " AND state=1"},
      {"ItemsOfCustomers",
       {{"BItemNumber", "01"}, {"EItemNumber", "02"}, {"BClientNumber", "01"}, {"EClientNumber", "02"}},
       " AND status>0 AND item BETWEEN '01' AND '02' AND cust BETWEEN '01' AND '02'"},
      {"ShortCodes",
       {{"BItemNumber", "0005"},
        {"EItemNumber", "0060"},
        {"BClientNumber", "0004"},
        {"EClientNumber", "0040"}},
       " AND status>0 AND item_short BETWEEN '0005' AND '0060' AND cust_short BETWEEN '0004' AND '0040'",
       "",
       true},
      {"ShortCodesOfPeople",
       {{"BDept", "02"}, {"EDept", "05"}, {"BEmp", "005"}, {"EEmp", "018"}},
       " AND status>0 AND dept_short BETWEEN '02' AND '05' AND emp_short BETWEEN '005' AND '018'",
       "",
       true}};
  return choices;
}

class OrderTrackingChoices : public OrderTrackingRows,
                             public testing::WithParamInterface<std::tuple<Case, std::size_t>> {};

TEST_P(OrderTrackingChoices, NarrowTheLines) {
  const auto& [c, place] = GetParam();
  const Choice& choice = Choices()[place];
  UseShortCodes(choice.short_codes);
  const RecordsetRef rows = Fetch(c, choice.chosen);
  ExpectRows(RowsOf(rows, c),
             Expected(rows, c, Join(choice.condition, c.from == 0 ? choice.state : ""), choice.short_codes));
  if (!choice.short_codes) return;
  // The column that shows the code reads it under this name.
  for (const PlainRow& row : Pick(rows, 0, 0, {"FShortNumber", "FItemShortNumber"}, {}))
    EXPECT_EQ(row.key.substr(0, row.key.find('|')), row.key.substr(row.key.find('|') + 1));
}

INSTANTIATE_TEST_SUITE_P(All, OrderTrackingChoices,
                         testing::Combine(testing::Values(kPlain, Case{1, 2}),
                                          testing::Range(std::size_t{0}, Choices().size())),
                         [](const auto& test) {
                           return Join(Case::Name(std::get<0>(test.param)),
                                       Choices()[std::get<1>(test.param)].name);
                         });

// --- Data rights: customers whose lists name the user

class OrdersTrackedSeen : public OrderTrackingRows, public testing::WithParamInterface<Case> {
 protected:
  OrdersTrackedSeen() : OrderTrackingRows({.user_name = "业务员", .user_id = 16395}) {}
};

TEST_P(OrdersTrackedSeen, OnlyTheCustomersThatTheUserMaySeeCount) {
  ExpectRowsOf(Fetch(GetParam()), GetParam(), " AND status>0 AND instr(seen_by,'16395')>0");
  ExpectRowsOf(Fetch(GetParam(), {{"EClientNumber", "02"}, {"CheckState", 2}}), GetParam(),
               " AND cust<='02' AND instr(seen_by,'16395')>0");
}

INSTANTIATE_TEST_SUITE_P(All, OrdersTrackedSeen, testing::Values(kPlain, Case{1, 2}, Case{2, 3}),
                         [](const auto& test) { return Case::Name(test.param); });

}  // namespace
}  // namespace salerpt::middletier
