// Fee invoices on a generated account set, summary and list: every row of every grouping beside plain SQL.
#include <algorithm>

#include "tests/suite/middletier/report_rows.h"

namespace salerpt::middletier {
namespace {

// Eight times the invoices, each time with other parties and fees and a month later; some without a party.
constexpr const char* kPrepare = R"sql(
BEGIN;
CREATE TEMP TABLE place AS SELECT 1 kind,FItemID id,row_number() OVER (ORDER BY FItemID)-1 n FROM t_Organization
  UNION ALL SELECT 8,FItemID,row_number() OVER (ORDER BY FItemID)-1 FROM t_Supplier
  UNION ALL SELECT 2014,FItemID,row_number() OVER (ORDER BY FItemID)-1 FROM t_Fee;
CREATE TEMP TABLE copy AS WITH c(n) AS (VALUES(1) UNION ALL SELECT n+1 FROM c WHERE n<7) SELECT n FROM c;
CREATE TEMP TABLE old_bill AS SELECT * FROM ICFeeInvoice;
CREATE TEMP TABLE old_line AS SELECT * FROM ICFeeInvoiceEntry;
INSERT INTO ICFeeInvoice(FInterID,FTranType,FBillNo,FDate,FSupplyID,FCustID,FCurrencyID,FExchangeRate,FPOStyle,
    FSaleStyle,FROB,FStatus,FCancelLation,FHookStatus,FCheckerID,FNote)
  SELECT b.FInterID+1000*c.n,b.FTranType,b.FBillNo||'-'||c.n,datetime(b.FDate,'+'||c.n||' months'),
    CASE WHEN b.FTranType=78 AND (b.FInterID+c.n)%9>0
      THEN (SELECT id FROM place WHERE kind=8 AND n=(b.FInterID*3+c.n)%10) ELSE 0 END,
    CASE WHEN b.FTranType=79 AND (b.FInterID+c.n)%9>0
      THEN (SELECT id FROM place WHERE kind=1 AND n=(b.FInterID*5+c.n*7)%57) ELSE 0 END,
    b.FCurrencyID,b.FExchangeRate,b.FPOStyle,b.FSaleStyle,b.FROB,b.FStatus,b.FCancelLation,b.FHookStatus,
    b.FCheckerID,CASE c.n WHEN 3 THEN '第三次' END FROM old_bill b, copy c;
INSERT INTO ICFeeInvoiceEntry(FInterID,FEntryID,FItemID,FICItemID,FAuxQty,FAuxPrice,FAmount,FTaxRate,FTaxAmount,
    FStdAmount,FStdTaxAmount,FNote)
  SELECT e.FInterID+1000*c.n,e.FEntryID,(SELECT id FROM place WHERE kind=2014 AND n=(e.FItemID+c.n)%9),e.FICItemID,
    e.FAuxQty,e.FAuxPrice,e.FAmount,e.FTaxRate,e.FTaxAmount,e.FStdAmount,e.FStdTaxAmount,
    CASE WHEN e.FEntryID=2 THEN '装箱' END FROM old_line e, copy c;
CREATE TEMP TABLE class_at(kind INT,level INT,code TEXT,FName TEXT,PRIMARY KEY(kind,level,code)) WITHOUT ROWID;
INSERT INTO class_at SELECT c.FItemClassID,c.FLevel,t.FNumber,c.FName FROM t_Item t JOIN t_Item c
  ON c.FItemClassID=t.FItemClassID AND c.FDetail=0 AND t.FNumber LIKE c.FNumber||'.%'
  WHERE t.FDetail=1 AND t.FItemClassID IN (1,8,2014);
)sql";

constexpr int kPayable = 0;
constexpr int kReceivable = 1;
constexpr int kBoth = 2;

// The lines of one kind of invoice, or of both; amounts in base currency beside those of the bill.
std::string Lines(int style) {
  const char* kinds = style == kPayable ? "78" : style == kReceivable ? "79" : "78,79";
  return Join(
      "WITH lines AS (SELECT b.FInterID,e.FEntryID,date(b.FDate) day,b.FBillNo,f.FNumber fee,"
      "f.FShortNumber fee_short,f.FName fee_name,f.FUnit unit,t.FName fee_type,o.FNumber cust,o.FShortNumber "
      "cust_short,"
      "o.FName cust_name,s.FNumber supp,s.FShortNumber supp_short,s.FName supp_name,og.FName cust_region,"
      "sg.FName supp_region,CASE b.FTranType WHEN 78 THEN '应付费用发票' ELSE '应收费用发票' END inv_type,"
      "p.FName po_style,l.FName sale_style,c.FName currency,u.FName checker,"
      "coalesce(nullif(e.FNote,''),b.FNote) note,e.FAuxQty qty,e.FAuxPrice price,e.FAmount "
      "bill_amount,e.FTaxRate rate,"
      "e.FTaxAmount bill_tax,half_up(e.FStdAmount,2) amount,half_up(e.FStdTaxAmount,2) tax FROM ICFeeInvoice "
      "b"
      " JOIN ICFeeInvoiceEntry e USING(FInterID) LEFT JOIN t_Fee f ON f.FItemID=e.FItemID"
      " LEFT JOIN t_SubMessage t ON t.FInterID=f.FFeeType LEFT JOIN t_Organization o ON o.FItemID=b.FCustID"
      " LEFT JOIN t_Supplier s ON s.FItemID=b.FSupplyID LEFT JOIN t_SubMessage og ON og.FInterID=o.FRegionID"
      " LEFT JOIN t_SubMessage sg ON sg.FInterID=s.FRegionID LEFT JOIN t_SubMessage p ON "
      "p.FInterID=b.FPOStyle"
      " LEFT JOIN t_SubMessage l ON l.FInterID=b.FSaleStyle LEFT JOIN t_Currency c ON "
      "c.FCurrencyID=b.FCurrencyID"
      " LEFT JOIN t_User u ON u.FUserID=b.FCheckerID LEFT JOIN t_ICItem i ON i.FItemID=e.FICItemID"
      " WHERE b.FCancelLation=0 AND b.FTranType IN (",
      kinds, ")");
}
constexpr const char* kSums = "sum(qty),sum(amount),sum(tax),sum(amount)-sum(tax)";
const std::vector<const char*> kNumbers = {"FAuxQty", "FAmount", "FTaxAmount", "FAmountEx"};

struct Shape {
  std::string plain;  // the group columns in plain SQL, each with a comma behind
  std::vector<std::string> fields;
  std::vector<Group> groups;
  std::size_t labelled = 0;  // the field of the total's label

  void AddLevels(int kind, const char* code, int from, int to) {
    for (int i = from; i <= to; ++i) {
      plain += Join("(SELECT c.FName FROM class_at c WHERE c.kind=", kind, " AND c.level=", i,
                    " AND c.code=", code, "),");
      fields.push_back(Join("FName", i));
      groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, i + 106});
    }
  }
  void AddParty(bool supplier, std::int32_t code) {
    plain += supplier ? "supp_name," : "cust_name,";
    fields.emplace_back("FCustName");
    groups.push_back({fields.size(), {{fields.size() - 1, "(小计)"}}, code});
  }
  void AddProperty(const char* values, const char* field) {
    plain += values;
    fields = {"FPropNumber", field};
    groups.push_back({2, {{1, "(小计)"}}, 105});
    labelled = 1;
  }
};

// Rows of "sum by" have their codes; 0 is the list by fee, 10 the region of the party.
struct Case {
  int style;
  int mode;
  int from = 1;
  int to = 2;

  static std::string Name(const Case& c) {
    return Join("Style", c.style, "Mode", c.mode, "Levels", c.from, "To", c.to);
  }
  friend void PrintTo(const Case& c, std::ostream* out) { *out << Name(c); }
};
constexpr int kRegion = 10;

Shape ShapeOf(const Case& c) {
  const bool supplier = c.style == kPayable;
  Shape shape;
  switch (c.mode) {
    case 0:
      break;
    case 1:
      shape.AddLevels(2014, "fee", c.from, c.to);
      break;
    case 2:
      shape.AddProperty("'',fee_type,", "FProp02014");
      break;
    case 3:
      shape.AddLevels(supplier ? 8 : 1, supplier ? "supp" : "cust", c.from, c.to);
      break;
    case 4:
      shape.AddLevels(2014, "fee", c.from, c.to);
      shape.AddParty(supplier, c.to + 107);
      break;
    case 5:
      shape.AddParty(supplier, c.from + 105);
      shape.AddLevels(2014, "fee", c.from, c.to);
      break;
    case 6:
      // With both kinds of invoice the dialog's list is that of payable ones.
      if (c.style == kReceivable) {
        shape.AddProperty("cust,cust_name,", "FProp01");
      } else {
        shape.AddProperty("'',supp_name,", "FProp08");
      }
      break;
    default:
      if (supplier) {
        shape.AddProperty("'',supp_region,", "FProp1018");
      } else {
        shape.AddProperty("cust,cust_region,", "FProp1011");
      }
  }
  shape.plain += "fee";
  shape.fields.emplace_back("FNumber");
  return shape;
}

// A group without a name has a label too. Of a customer's property, what belongs to no customer has a total
// row of its own.
void ShowNobody(std::vector<PlainRow>& rows, const Case& c, const Shape& shape) {
  for (const Group& group : shape.groups) {
    const auto place = std::ptrdiff_t(group.fields) - 1;
    const std::string code = Join("|", group.code);
    for (PlainRow& row : rows) {
      if (!row.key.ends_with(code)) continue;
      std::size_t at = 0;
      for (std::ptrdiff_t i = 0; i < place; ++i) at = row.key.find('|', at) + 1;
      if (row.key[at] == '|') row.key.insert(at, "(小计)");
    }
  }
  if (!shape.plain.starts_with("cust,")) return;
  const auto nobody = std::ranges::find(rows, "|(小计)||105", &PlainRow::key);
  ASSERT_NE(nobody, rows.end()) << Case::Name(c);
  rows.insert(nobody + 1, PlainRow{"|合计||101", nobody->numbers});
}

class Fees : public ReportRows {
 protected:
  explicit Fees(const Login& login = {}) : ReportRows(login) {}
  static void SetUpTestSuite() { Set().Run(kPrepare); }
  static void TearDownTestSuite() { Set().Run("ROLLBACK"); }

  static void UseShortCodes(bool use) {
    Set().Run(Join("UPDATE t_SystemProfile SET FValue='", use ? 1 : 0, "' WHERE FKey='UseShortNumber'"));
  }

  static ObjectRef Report(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    std::vector<Dictionary::Entry> chosen = {{"BDate", Date::FromYmd(2023, 1, 1)},
                                             {"EDate", Date::FromYmd(2027, 12, 31)},
                                             {"OnlyShowSum", 0},
                                             {"CheckState", 2},
                                             {"InvoiceStyle", c.style},
                                             {"GroupBy", c.mode > 0 ? 1 : 0},
                                             {"SumMode", c.mode == kRegion ? 0 : c.mode},
                                             {"BLevel", c.from},
                                             {"ELevel", c.to}};
    if (c.mode == kRegion) chosen.push_back({"SumField", RegionOf(c.style == kPayable ? 8 : 1)});
    chosen.insert(chosen.end(), more.begin(), more.end());
    return RunReport("ORVSaleRpt.Rpt301", "frmFirter301", chosen);
  }
  static RecordsetRef Fetch(const Case& c, const std::vector<Dictionary::Entry>& more = {}) {
    return As<Recordset>(GetMember(Report(c, more), "Rs"));
  }
  static RecordsetRef List(int style, const std::vector<Dictionary::Entry>& more = {}) {
    std::vector<Dictionary::Entry> chosen = {{"BDate", Date::FromYmd(2023, 1, 1)},
                                             {"EDate", Date::FromYmd(2027, 12, 31)},
                                             {"CheckState", 2},
                                             {"InvoiceStyle", style}};
    chosen.insert(chosen.end(), more.begin(), more.end());
    return RowsOf("ORVSaleRpt.Rpt302", "frmFirter302", chosen);
  }

  // The summary's rows beside those that plain SQL gives under a condition.
  static void ExpectRowsOf(const RecordsetRef& rows, const Case& c, const std::string& condition = "") {
    ASSERT_NE(rows, nullptr);
    const Shape shape = ShapeOf(c);
    std::string columns = "1";
    std::vector<const char*> keys;
    for (const std::string& field : shape.fields) {
      if (!keys.empty()) columns += Join(",", static_cast<int>(keys.size()) + 1);
      keys.push_back(field.c_str());
    }
    const std::vector<PlainRow> plain = Plain(Join(Lines(c.style), condition, ") SELECT ", shape.plain, ",",
                                                   kSums, " FROM lines GROUP BY ", columns),
                                              static_cast<int>(keys.size()));
    std::vector<PlainRow> expected = RolledUp(InOrderOf(plain, Pick(rows, 0, 0, keys, {})), shape.groups,
                                              {0, {{shape.labelled, "合计"}}, 101});
    if (condition.empty()) {
      EXPECT_FALSE(plain.empty());
      ShowNobody(expected, c, shape);
    }
    keys.push_back("FSumSort");
    ExpectRows(Pick(rows, 0, 200, keys, kNumbers), expected);
  }

  // The list's lines beside those of the tables; the total is in base currency.
  static void ExpectListOf(const RecordsetRef& rows, int style, const std::string& condition = "",
                           const std::string& order = "fee") {
    ASSERT_NE(rows, nullptr);
    const std::vector<PlainRow> lines = Plain(
        Join(
            Lines(style), condition,
            ") SELECT day,FBillNo,inv_type,po_style,sale_style,supp,cust,supp_short,cust_short,supp_name,"
            "cust_name,fee,fee_short,fee_name,fee_type,currency,unit,checker,note,qty,price,bill_amount,rate,"
            "bill_tax,bill_amount-bill_tax FROM lines ORDER BY ",
            order, ",FInterID,FEntryID"),
        19);
    ExpectRows(
        Pick(rows, 0, 0,
             {"FDate", "FBillNo", "FInvType", "FPOStyle", "FSaleStyle", "FSupplyFullNumber",
              "FCustFullNumber", "FSupplyNumber", "FCustNumber", "FSupplyName", "FCustName", "FFeeFullNumber",
              "FFeeNumber", "FFeeName", "FFeeType", "FCurrencyName", "FUnitName", "FCheckerName", "FNote"},
             {"FAuxQty", "FAuxPrice", "FAmount", "FTaxRate", "FTaxAmount", "FAmountEx"}),
        lines);
    ExpectRows(Pick(rows, 1, 200, {"FBillNo", "FCurrencyName", "FSumSort"}, kNumbers),
               Plain(Join(Lines(style), condition, ") SELECT '合计','人民币',101,", kSums,
                          " FROM lines HAVING count(*)>0"),
                     3));
  }

 private:
  static DictionaryRef RegionOf(std::int32_t item_class) {
    auto field = std::make_shared<Dictionary>();
    field->Set("FItemClassID", item_class);
    field->Set("FName", "区域");
    field->Set("FPropID", 101);
    field->Set("FSQLColumnName", "FRegionID");
    field->Set("FSrcTable", "t_SubMessage");
    field->Set("FSrcField", "FInterID");
    field->Set("FDisplayField", "FName");
    return field;
  }
};

// --- Every row of every grouping

class FeeGroupings : public Fees, public testing::WithParamInterface<Case> {};

TEST_P(FeeGroupings, EveryRowIsThatOfTheTables) {
  ExpectRowsOf(Fetch(GetParam()), GetParam());
}

TEST_P(FeeGroupings, EveryDetailTellsItsFeeAndTheyComeInTheOrderOfTheirCodes) {
  const std::vector<PlainRow> fees = Plain(
      "SELECT f.FNumber,f.FName,k.FName,f.FUnit FROM t_Fee f JOIN t_SubMessage k ON k.FInterID=f.FFeeType "
      "ORDER BY 1",
      4);
  const RecordsetRef rows = Fetch(GetParam());
  const std::vector<PlainRow> details = Pick(rows, 0, 0, {"FNumber", "FName", "FFeeType", "FUnit"}, {});
  const Shape shape = ShapeOf(GetParam());
  std::vector<const char*> keys;
  for (const std::string& field : shape.fields) keys.push_back(field.c_str());
  keys.pop_back();
  const std::vector<PlainRow> groups = Pick(rows, 0, 0, keys, {});
  for (std::size_t i = 0; i < details.size(); ++i) {
    EXPECT_TRUE(std::ranges::binary_search(fees, details[i].key, {}, &PlainRow::key)) << details[i].key;
    if (i == 0 || groups[i].key != groups[i - 1].key) continue;
    EXPECT_LT(details[i - 1].key, details[i].key) << groups[i].key;
  }
}

TEST_P(FeeGroupings, OnlyTheTotalsAreThoseOfTheWholeReport) {
  const std::vector<const char*> keys = {"FNumber", "FSumSort"};
  const std::vector<PlainRow> totals = Pick(Fetch(GetParam(), {{"OnlyShowSum", 1}}), 0, 200, keys, kNumbers);
  EXPECT_FALSE(totals.empty());
  ExpectRows(totals, Pick(Fetch(GetParam()), 101, 200, keys, kNumbers), 0);
}

TEST_P(FeeGroupings, NoInvoicesGiveNoRows) {
  EXPECT_EQ(Fetch(GetParam(), {{"BDate", Date::FromYmd(2030, 1, 1)}, {"EDate", Date::FromYmd(2030, 1, 31)}})
                ->RecordCount(),
            0);
}

TEST_P(FeeGroupings, AFeeOpensItsInvoicesAndATotalNothing) {
  const ObjectRef report = Report(GetParam());
  const auto rows = As<Recordset>(GetMember(report, "Rs"));
  for (const std::int32_t row : {0, rows->RecordCount() / 2, rows->RecordCount() - 1}) {
    rows->MoveFirst();
    rows->Move(row);
    const bool total = rows->Value("FSumSort").ToInt32() > 0;
    const std::string fee = rows->Value("FNumber").TextOrEmpty();
    const ObjectRef detail = Call(report, "GetDetailReport", row).ToObject();
    EXPECT_EQ(detail == nullptr, total) << fee;
    // The list stands in the order of its bills: nobody chose another one.
    if (detail)
      ExpectListOf(As<Recordset>(GetMember(detail, "Rs")), GetParam().style,
                   Join(" AND f.FNumber='", fee, "'"), "day,FBillNo");
  }
}

std::vector<Case> Groupings() {
  std::vector<Case> cases;
  for (const int style : {kPayable, kReceivable, kBoth}) {
    for (const int mode : {0, 1, 2, 3, 4, 5, kRegion}) cases.push_back({style, mode});
    // Of both styles together there is neither a supplier nor a customer to sum by.
    if (style != kBoth) cases.push_back({style, 6});
    cases.push_back({style, 1, 2, 3});
    cases.push_back({style, 3, 1, 1});
    cases.push_back({style, 4, 1, 1});
    cases.push_back({style, 5, 2, 2});
  }
  return cases;
}
INSTANTIATE_TEST_SUITE_P(All, FeeGroupings, testing::ValuesIn(Groupings()),
                         [](const auto& test) { return Case::Name(test.param); });

// By fee the rows do not depend on how names and totals are labelled: short codes stand in their own column.
TEST_F(Fees, ShortCodesAreThoseOfTheFees) {
  UseShortCodes(true);
  const RecordsetRef rows = Fetch({kBoth, 0});
  UseShortCodes(false);
  ExpectRows(
      Pick(rows, 0, 0, {"FShortNumber"}, kNumbers),
      Plain(Join(Lines(kBoth), ") SELECT fee_short,", kSums, " FROM lines GROUP BY fee ORDER BY fee"), 1));
  EXPECT_EQ(Pick(rows, 101, 101, {"FShortNumber"}, {}).at(0).key, "合计");
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
      {"Audited", {{"CheckState", 0}}, " AND b.FStatus>0"},
      {"NotAudited", {{"CheckState", 1}}, " AND b.FStatus=0"},
      {"Days",
       {{"BDate", Date::FromYmd(2023, 6, 15)}, {"EDate", Date::FromYmd(2024, 2, 29)}},
       " AND date(b.FDate) BETWEEN '2023-06-15' AND '2024-02-29'"},
      {"FromFee", {{"BFeeNumber", "01.003"}}, " AND f.FNumber>='01.003'"},
      {"Fees",
       {{"BFeeNumber", "01.01"}, {"EFeeNumber", "02.006"}},
       " AND f.FNumber BETWEEN '01.01' AND '02.006'"},
      {"Customers", {{"BCust", "01"}, {"ECust", "03"}}, " AND o.FNumber BETWEEN '01' AND '03'"},
      {"ToCustomer", {{"ECust", "02"}}, " AND o.FNumber<='02'"},
      {"Suppliers",
       {{"BSupply", "01.0002"}, {"ESupply", "01.0007"}},
       " AND s.FNumber BETWEEN '01.0002' AND '01.0007'"},
      {"FromSupplier", {{"BSupply", "02"}}, " AND s.FNumber>='02'"},
      {"Hooked", {{"HookStatus", 0}}, " AND b.FHookStatus>0"},
      {"NotHooked", {{"HookStatus", 1}}, " AND b.FHookStatus=0"},
      {"HookedOrNot", {{"HookStatus", 2}}, " AND 1=1"},
      {"ClassOfItems", {{"BItemClass", "01.01"}}, " AND i.FNumber LIKE '01.01.%'"},
      {"NoSuchFee", {{"BFeeNumber", "09"}}, " AND f.FNumber>='09'"},
      {"HookedFees",
       {{"HookStatus", 0}, {"BFeeNumber", "01.002"}, {"CheckState", 0}},
       " AND b.FHookStatus>0 AND f.FNumber>='01.002' AND b.FStatus>0"},
      {"SuppliersOfDays",
       {{"ESupply", "01.0006"}, {"BDate", Date::FromYmd(2024, 1, 1)}},
       " AND s.FNumber<='01.0006' AND date(b.FDate)>='2024-01-01'"},
      {"ShortCodes",
       {{"BFeeNumber", "002"}, {"EFeeNumber", "008"}, {"ESupply", "0008"}},
       " AND f.FShortNumber BETWEEN '002' AND '008' AND s.FShortNumber<='0008'",
       true},
      {"ShortCodesOfCustomers",
       {{"BCust", "0010"}, {"ECust", "0040"}},
       " AND o.FShortNumber BETWEEN '0010' AND '0040'",
       true}};
  return choices;
}

class FeeChoices : public Fees, public testing::WithParamInterface<std::tuple<int, std::size_t>> {};

TEST_P(FeeChoices, NarrowTheLinesOfTheSummary) {
  const auto& [style, place] = GetParam();
  const Choice& choice = Choices()[place];
  UseShortCodes(choice.short_codes);
  ExpectRowsOf(Fetch({style, 0}, choice.chosen), {style, 0}, choice.condition);
  // Grouped by levels no label of a group without a name is in the way: all fees have a class.
  ExpectRowsOf(Fetch({style, 1, 1, 1}, choice.chosen), {style, 1, 1, 1}, choice.condition);
  UseShortCodes(false);
}

TEST_P(FeeChoices, NarrowTheLinesOfTheList) {
  const auto& [style, place] = GetParam();
  const Choice& choice = Choices()[place];
  UseShortCodes(choice.short_codes);
  std::vector<Dictionary::Entry> chosen = choice.chosen;
  chosen.push_back({"OrderBy", choice.short_codes ? "FShortNumber ASC" : "FNumber ASC"});
  ExpectListOf(List(style, chosen), style, choice.condition, choice.short_codes ? "fee_short" : "fee");
  UseShortCodes(false);
}

INSTANTIATE_TEST_SUITE_P(All, FeeChoices,
                         testing::Combine(testing::Values(kPayable, kReceivable, kBoth),
                                          testing::Range(std::size_t{0}, Choices().size())),
                         [](const auto& test) {
                           return Join("Style", std::get<0>(test.param),
                                       Choices()[std::get<1>(test.param)].name);
                         });

// --- The list's order

TEST_F(Fees, TheListComesInTheOrderAskedFor) {
  ExpectListOf(List(kBoth, {{"OrderBy", ""}}), kBoth, "", "day,FBillNo");
  ExpectListOf(List(kBoth, {{"OrderBy", "FDate DESC,FBillNo"}}), kBoth, "", "day DESC,FBillNo");
  ExpectListOf(List(kBoth, {{"OrderBy", "FShortNumber DESC"}}), kBoth, "", "fee_short DESC");
}

// --- Data rights

class FeesSeen : public Fees, public testing::WithParamInterface<int> {
 protected:
  FeesSeen() : Fees({.user_name = "业务员", .user_id = 16395}) {}
  static constexpr const char* kSeen =
      " AND (b.FCustID=0 OR instr(o.FRightUserID,'16395')>0) AND (b.FSupplyID=0 OR "
      "instr(s.FRightUserID,'16395')>0)";
};

TEST_P(FeesSeen, OnlyThePartiesThatTheUserMaySeeCount) {
  for (const int mode : {0, 1}) {
    const Case c{GetParam(), mode, 1, 1};
    ExpectRowsOf(Fetch(c), c, kSeen);
  }
  ExpectListOf(List(GetParam()), GetParam(), kSeen, "day,FBillNo");
  EXPECT_LT(List(GetParam())->RecordCount(),
            static_cast<int>(Plain(Join(Lines(GetParam()), ") SELECT fee FROM lines"), 1).size()));
}

INSTANTIATE_TEST_SUITE_P(All, FeesSeen, testing::Values(kPayable, kReceivable, kBoth));

}  // namespace
}  // namespace salerpt::middletier
