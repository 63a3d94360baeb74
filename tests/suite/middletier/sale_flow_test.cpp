// Customer sales and income on a generated account set: the figures are those of plain SQL on the tables.
#include "tests/suite/middletier/generated_set.h"

namespace salerpt::middletier {
namespace {

// Plain SQL rounds some halves of a cent the other way than the server's decimals.
constexpr double kCents = 0.5;

class SaleFlowTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { set_ = std::make_unique<GeneratedSet>(11, 4000); }
  static void TearDownTestSuite() { set_.reset(); }
  SaleFlowTest() { RegisterMiddleTier(runtime_, set_->Get(), Login{}); }

  static std::unique_ptr<GeneratedSet> set_;
  Runtime runtime_;
};

std::unique_ptr<GeneratedSet> SaleFlowTest::set_;

// --- Customer sales

// A filter, and the condition that it is in plain SQL.
struct Narrowing {
  const char* name;
  std::vector<Dictionary::Entry> filter;
  const char* condition;
};

constexpr const char* kPlainLines =
    "SELECT count(*), sum(e.FQty), sum(e.FQty*1.0/u.FCoefficient), sum(round((CASE b.FTranType WHEN 80 THEN "
    "e.FAmount "
    "ELSE e.FAmount-e.FTaxAmount END),c.FScale)), sum(round((CASE b.FTranType WHEN 80 THEN e.FAmount ELSE "
    "e.FAmount-e.FTaxAmount END)*b.FExchangeRate,2)) FROM ICSale b JOIN ICSaleEntry e USING(FInterID) "
    "JOIN t_ICItem i ON i.FItemID=e.FItemID JOIN t_Organization o ON o.FItemID=b.FCustID "
    "JOIN t_Currency c ON c.FCurrencyID=b.FCurrencyID JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FCUUnitID "
    "WHERE b.FTranType IN (80,86) AND b.FCancelLation=0";

class CustomerSalesList : public SaleFlowTest, public testing::WithParamInterface<Narrowing> {};

RecordsetRef List(std::int32_t list, const std::vector<Dictionary::Entry>& entries) {
  auto filter = std::make_shared<Dictionary>();
  filter->Set("BDate", "2023-01-01");
  filter->Set("EDate", "2027-12-31");
  filter->Set("bLongNumber", true);
  filter->Set("RptID", list);
  for (const auto& [key, value] : entries) filter->Set(key, value);
  return As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetRpt134Data", "", filter));
}

constexpr const char* kListFields[] = {"FQty", "FCUUnitQty", "FAmount", "FAmountFor"};

// Number of the detail rows and their sums, in the order of kListFields.
std::vector<double> DetailSums(const RecordsetRef& rows) {
  std::vector<double> sums(1 + std::size(kListFields));
  for (; !rows->Eof(); rows->MoveNext()) {
    if (rows->Value("FSumSort").ToInt32() > 0) continue;
    ++sums[0];
    for (std::size_t i = 1; i < sums.size(); ++i) sums[i] += rows->Value(kListFields[i - 1]).ToDouble();
  }
  return sums;
}

void ExpectSums(const std::vector<double>& sums, const std::vector<double>& plain) {
  EXPECT_EQ(sums[0], plain[0]);
  for (std::size_t i = 1; i < sums.size(); ++i) EXPECT_NEAR(sums[i], plain[i], kCents) << kListFields[i - 1];
}

TEST_P(CustomerSalesList, GivesTheLinesOfTheTables) {
  const std::vector<double> plain = set_->Numbers(Join(kPlainLines, GetParam().condition));
  EXPECT_GT(plain[0], 0);
  ExpectSums(DetailSums(List(134, GetParam().filter)), plain);
}

TEST_P(CustomerSalesList, GivesTheReturnsOfTheTables) {
  ExpectSums(DetailSums(List(135, GetParam().filter)),
             set_->Numbers(Join(kPlainLines, " AND b.FROB=-1", GetParam().condition)));
}

TEST_P(CustomerSalesList, EndsWithTheSumsOfItsLines) {
  const RecordsetRef rows = List(134, GetParam().filter);
  const std::vector<double> sums = DetailSums(rows);
  rows->MoveFirst();
  rows->Move(rows->RecordCount() - 1);
  EXPECT_EQ(rows->Value("FSumSort").ToInt32(), 101);
  EXPECT_NEAR(rows->Value("FQty").ToDouble(), sums[1], 1e-6);
  EXPECT_NEAR(rows->Value("FCUUnitQty").ToDouble(), sums[2], 1e-6);
  EXPECT_NEAR(rows->Value("FAmountFor").ToDouble(), sums[4], 1e-6);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKey, CustomerSalesList,
    testing::Values(Narrowing{"Audited", {}, " AND b.FStatus>0"},
                    Narrowing{"NotAudited", {{"CheckState", 1}}, " AND b.FStatus=0"},
                    Narrowing{"AllStates", {{"CheckState", 2}}, ""},
                    Narrowing{"Days",
                              {{"BDate", "2023-06-15"}, {"EDate", "2024-02-29"}},
                              " AND b.FStatus>0 AND date(b.FDate) BETWEEN '2023-06-15' AND '2024-02-29'"},
                    Narrowing{"Items",
                              {{"BItemNumber", "01.02"}, {"EItemNumber", "02.01"}},
                              " AND b.FStatus>0 AND i.FNumber BETWEEN '01.02' AND '02.01'"},
                    Narrowing{"ShortCodes",
                              {{"bLongNumber", false}, {"BItemNumber", "0005"}, {"ECustNumber", "0020"}},
                              " AND b.FStatus>0 AND i.FShortNumber>='0005' AND o.FShortNumber<='0020'"},
                    Narrowing{"Customers",
                              {{"BCustNumber", "01.01"}, {"ECustNumber", "01.02"}},
                              " AND b.FStatus>0 AND o.FNumber BETWEEN '01.01' AND '01.02'"},
                    Narrowing{"SaleStyle", {{"SaleType", 103}}, " AND b.FStatus>0 AND b.FSaleStyle=103"},
                    Narrowing{"NotMatched", {{"HookStatus", 0}}, " AND b.FStatus>0 AND b.FHookStatus=0"},
                    Narrowing{"Matched", {{"HookStatus", 2}}, " AND b.FStatus>0 AND b.FHookStatus=2"},
                    Narrowing{"Services", {{"CommodityType", 1}}, " AND b.FStatus>0 AND i.FErpClsID=4"},
                    Narrowing{"NoServices", {{"CommodityType", 2}}, " AND b.FStatus>0 AND i.FErpClsID<>4"},
                    Narrowing{"ByProperty", {{"AuxProp", 1}, {"chkNextChoose", 1}}, " AND b.FStatus>0"},
                    Narrowing{"Rights",
                              {{"DataRightWhere", " CharIndex('16395',t1.FRightUserID)>0 "}},
                              " AND b.FStatus>0 AND instr(o.FRightUserID,'16395')>0"},
                    Narrowing{
                        "AllTogether",
                        {{"CheckState", 2},
                         {"BDate", "2023-03-01"},
                         {"BItemNumber", "01.01.01"},
                         {"ECustNumber", "02"},
                         {"CommodityType", 2},
                         {"DataRightWhere", " CharIndex('16395',t1.FRightUserID)>0 "}},
                        " AND date(b.FDate)>='2023-03-01' AND i.FNumber>='01.01.01' AND o.FNumber<='02' AND "
                        "i.FErpClsID<>4 AND instr(o.FRightUserID,'16395')>0"}),
    [](const auto& narrowing) { return std::string(narrowing.param.name); });

// --- Income by item

// One row for each item, and a total.
DictionaryRef IncomeByItem() {
  auto request = std::make_shared<Dictionary>();
  request->Set(
      "Select",
      "Create Table #Data(FNumber Varchar(355),FName Varchar(355) Null,FUnitName Varchar(355) Null,"
      "FCUUnitName Varchar(355) Null,FQtyDecimal smallint Null,FPriceDecimal smallint Null,FQty "
      "decimal(23,10) Null,FCUUnitQty decimal(23,10) Null,FPrice decimal(23,10) Null,FAmount "
      "decimal(23,10) Null,FTaxRate decimal(23,10) Null,FTaxAmount decimal(23,10) Null,FSumSort "
      "smallint not Null Default(0),FID int IDENTITY)\r\n"
      "Insert Into #Data Select Case When Grouping(t1.FNumber)=1 Then '合计' Else t1.FNumber End,'','','',"
      "4,4,Sum(v2.FQty),0,0,Sum(Case v1.FTranType When 80 Then v2.FStdAmount Else "
      "v2.FStdAmount-v2.FStdTaxAmount End),0,Sum(v2.FStdTaxAmount),Case When Grouping(t1.FNumber)=1 Then "
      "101 Else 0 End From ICSale v1 Join ICSaleEntry v2 On v1.FInterID=v2.FInterID Left Join t_ICItem "
      "t1 On v2.FItemID=t1.FItemID Where v1.FTranType in (80,86) And v1.FStatus>0 And "
      "v1.FCancelLation=0 ##CHECKDATE## ");
  request->Set("GROUPBY", "Group by t1.FNumber With RollUp ");
  request->Set("EndSel", "Select * From #Data Order by FID DROP Table #Data");
  return request;
}

// Quantity, common quantity, income and tax of the item with a code; of all items where it is empty.
std::vector<double> PlainIncome(const GeneratedSet& set, const std::string& number) {
  return set.Numbers(Join(
      "SELECT sum(e.FQty), sum(e.FQty*1.0/u.FCoefficient), sum(CASE b.FTranType WHEN 80 THEN e.FStdAmount "
      "ELSE "
      "e.FStdAmount-e.FStdTaxAmount END), sum(e.FStdTaxAmount) FROM ICSale b JOIN ICSaleEntry e "
      "USING(FInterID) JOIN t_ICItem i ON i.FItemID=e.FItemID JOIN t_MeasureUnit u ON "
      "u.FMeasureUnitID=i.FCUUnitID WHERE b.FTranType IN (80,86) AND b.FStatus>0 AND b.FCancelLation=0 AND "
      "date(b.FDate) BETWEEN '2023-03-01' AND '2024-12-31'",
      number.empty() ? "" : Join(" AND i.FNumber='", number, "'")));
}

TEST_F(SaleFlowTest, EveryItemsPriceRateAndCommonQuantityAreThoseOfTheTables) {
  const RecordsetRef rows = As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetPurchaseData", "",
                                               "2023-03-01", "2024-12-31", IncomeByItem()));
  EXPECT_GT(rows->RecordCount(), 20);
  for (; !rows->Eof(); rows->MoveNext()) {
    const bool total = rows->Value("FSumSort").ToInt32() > 0;
    const std::string number = total ? "" : rows->Value("FNumber").ToText();
    const std::vector<double> plain = PlainIncome(*set_, number);
    EXPECT_NEAR(rows->Value("FCUUnitQty").ToDouble(), plain[1], 1e-6) << number;
    EXPECT_NEAR(rows->Value("FTaxRate").ToDouble(), plain[2] == 0 ? 0 : plain[3] / plain[2] * 100, 1e-6)
        << number;
    if (total) {
      EXPECT_TRUE(rows->Value("FPrice").IsNull());
    } else {
      EXPECT_NEAR(rows->Value("FPrice").ToDouble(), plain[0] == 0 ? 0 : plain[2] / plain[0], 1e-6) << number;
      EXPECT_FALSE(rows->Value("FCUUnitName").IsEmptyText()) << number;
    }
  }
}

}  // namespace
}  // namespace salerpt::middletier
