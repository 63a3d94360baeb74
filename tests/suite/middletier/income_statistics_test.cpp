// GetPurchaseData: the days of a request, and the columns of its rows that the batch leaves blank.
#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// What the batches here have in common: income and tax of the audited invoices, in base currency.
constexpr const char* kFrom =
    " From ICSale v1 Join ICSaleEntry v2 On v1.FInterID=v2.FInterID\r\n"
    "Left Join t_ICItem t1 On v2.FItemID=t1.FItemID\r\n"
    "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
    "Left Join t_Department t3 On v1.FDeptID=t3.FItemID\r\n"
    " Where v1.FTranType in (80,86) And v1.FStatus>0 And v1.FCancelLation=0 ##CHECKDATE## \r\n";
constexpr const char* kItemColumns =
    "FNumber Varchar(355),FShortNumber Varchar(355) Null,FName Varchar(355) Null,FModel Varchar(355) Null,"
    "FUnitName Varchar(355) Null,FQtyDecimal smallint Null,FPriceDecimal smallint Null,";
constexpr const char* kFigureColumns =
    "FQty decimal(23,10) Null,FCUUnitName Varchar(355) Null,FCUUnitQty decimal(23,10) Null,"
    "FPrice decimal(23,10) Null,FAmount decimal(23,10) Null,FTaxRate decimal(23,10) Null,"
    "FTaxAmount decimal(23,10) Null,FCountAmount decimal(23,10) Null,";
constexpr const char* kLastColumns = "FSumSort smallint not Null Default(0),FID int IDENTITY)\r\n";
constexpr const char* kAmount =
    "Sum(Round((Case v1.FTranType When 80 Then v2.FAmount Else v2.FAmount-v2.FTaxAmount "
    "End)*v1.FExchangeRate,2))";
constexpr const char* kTax = "Sum(Round(v2.FTaxAmount*v1.FExchangeRate,2))";
constexpr const char* kEnd = "Select * From #Data Order by FID\r\nDROP Table #Data";

// The values of the item and figure columns behind FNumber; the common quantity is the batch's own, in
// pieces.
std::string Values(std::string_view common_quantity) {
  return Join("'','','','',4,4,Sum(v2.FQty),'',", common_quantity, ",0,", kAmount, ",0,", kTax, ",0,");
}

DictionaryRef Request(const std::string& select, std::string_view group_by) {
  auto request = std::make_shared<Dictionary>();
  request->Set("Select", select);
  request->Set("GROUPBY", group_by);
  request->Set("EndSel", kEnd);
  return request;
}

// By item, with a grand total.
DictionaryRef ByItem() {
  return Request(
      Join("Create Table #Data(", kItemColumns, kFigureColumns, kLastColumns,
           "Insert Into #Data Select Case When Grouping(t1.FNumber)=1 Then '合计' Else t1.FNumber End,",
           Values("Sum(v2.FQty)"), "Case When Grouping(t1.FNumber)=1 Then 101 Else 0 End", kFrom),
      "Group by t1.FNumber With RollUp ");
}

RecordsetRef Rows(const DictionaryRef& request, const Variant& begin = "2024-03-01",
                  const Variant& end = Date::FromYmd(2024, 3, 31)) {
  Variant sent = request;
  return As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetPurchaseData", "", begin, end, sent));
}

// The cells of a column, all rows.
std::vector<std::string> Column(const RecordsetRef& rows, std::string_view field) {
  rows->MoveFirst();
  return Cells(rows, field);
}

class IncomeStatisticsTest : public CompanyTest {};

// --- Items

TEST_F(IncomeStatisticsTest, EveryItemIsNamedAndTheTotalIsNot) {
  const RecordsetRef rows = Rows(ByItem());
  EXPECT_THAT(Column(rows, "FNumber"), ElementsAre("01.01", "01.02", "01.03", "合计"));
  EXPECT_THAT(Column(rows, "FShortNumber"), ElementsAre("9", "5", "7", ""));
  EXPECT_THAT(Column(rows, "FName"), ElementsAre("螺栓", "螺母", "O'Ring", ""));
  EXPECT_THAT(Column(rows, "FModel"), ElementsAre("M8", "", "R-5", ""));
  EXPECT_THAT(Column(rows, "FUnitName"), ElementsAre("件", "件", "千克", ""));
  EXPECT_THAT(Column(rows, "FQtyDecimal"), ElementsAre("0", "3", "1", "4"));
  EXPECT_THAT(Column(rows, "FPriceDecimal"), ElementsAre("2", "4", "1", "4"));
}

// Bolts are sold in boxes, but counted in pieces.
TEST_F(IncomeStatisticsTest, TheCommonUnitIsNotTheSaleUnit) {
  EXPECT_THAT(Column(Rows(ByItem()), "FCUUnitName"), ElementsAre("件", "件", "千克", ""));
}

// --- Price and rate

// 01.01: 100 + (23.4 - 3.4) * 7 = 240 by 12; 01.02: 10.13 by 4; 01.03: -30 by -3.
TEST_F(IncomeStatisticsTest, APriceIsIncomeByQuantityAndATotalOfSeveralItemsHasNone) {
  const RecordsetRef rows = Rows(ByItem());
  EXPECT_THAT(Column(rows, "FAmount"), ElementsAre("240", "10.13", "-30", "220.13"));
  EXPECT_THAT(Column(rows, "FPrice"), ElementsAre("20", "2.5325", "10", "null"));
}

// Tax: 17 + 3.4 * 7 = 40.8 of 240; 1.72 of 10.13; -5.1 of -30; 37.42 of 220.13.
TEST_F(IncomeStatisticsTest, ARateIsTaxByIncomeInPercentTotalsIncluded) {
  const RecordsetRef rows = Rows(ByItem());
  EXPECT_THAT(Column(rows, "FTaxAmount"), ElementsAre("40.8", "1.72", "-5.1", "37.42"));
  const std::vector<std::string> rates = Column(rows, "FTaxRate");
  ASSERT_EQ(rates.size(), 4u);
  EXPECT_EQ(rates[0], "17");
  EXPECT_NEAR(std::stod(rates[1]), 172 / 10.13, 1e-6);
  EXPECT_EQ(rates[2], "17");
  EXPECT_NEAR(std::stod(rates[3]), 3742 / 220.13, 1e-6);
}

TEST_F(IncomeStatisticsTest, WithoutQuantityThereIsNoPriceAndWithoutIncomeNoRate) {
  const RecordsetRef april = Rows(ByItem(), "2024-04-01", "2024-04-30");
  EXPECT_THAT(Column(april, "FPrice"), ElementsAre("0", "null"));
  EXPECT_THAT(Column(april, "FTaxRate"), ElementsAre("17", "17"));
  Sql("UPDATE ICSaleEntry SET FAmount=0 WHERE FInterID=3");
  EXPECT_THAT(Column(Rows(ByItem(), "2024-04-01", "2024-04-30"), "FTaxRate"), ElementsAre("0", "0"));
}

TEST_F(IncomeStatisticsTest, TheEndOfTheBatchHasTheLastWord) {
  const DictionaryRef request = ByItem();
  request->Set("EndSel", Join("Update #Data Set FTaxRate=Null Where FSumSort=101 ", kEnd));
  EXPECT_EQ(Column(Rows(request), "FTaxRate").back(), "null");
}

// --- By currency

// Bill currency in FAmount, base currency in FAmountFor; the currency is the innermost group.
DictionaryRef ByCurrency(std::string_view property_column, std::string_view property_value,
                         std::string_view property_group, std::string_view all_currencies) {
  return Request(
      Join("Create Table #Data(", property_column, kItemColumns, kFigureColumns,
           "FCurrencyID Varchar(80) Null,FCurrencyName Varchar(80) Null,FAmountFor decimal(23,10) Null,"
           "FTaxAmountFor decimal(23,10) Null,FCountAmountFor decimal(23,10) Null,",
           kLastColumns, "Insert Into #Data Select ", property_value,
           "Case When Grouping(t1.FNumber)=1 Then '合计' Else t1.FNumber End,"
           "'','','','',4,4,Sum(v2.FQty),'',Sum(v2.FQty),0,Sum(Round((Case v1.FTranType When 80 Then "
           "v2.FAmount "
           "Else v2.FAmount-v2.FTaxAmount End),2)),0,Sum(v2.FTaxAmount),0,Case When ",
           all_currencies, " Then '本位币合计' Else cast(v1.FCurrencyID as Varchar(255)) End,'',", kAmount,
           ",", kTax, ",", kTax,
           ",Case When Grouping(t1.FNumber)=1 Then 101 When Grouping(v1.FCurrencyID)=1 Then 106 Else 0 End",
           kFrom),
      Join("Group by t1.FNumber,", property_group, "v1.FCurrencyID With RollUp "));
}
DictionaryRef ByCurrency() {
  return ByCurrency("", "", "", "Grouping(v1.FCurrencyID)=1 ");
}

TEST_F(IncomeStatisticsTest, ACurrencyIsNamedByItsNumber) {
  EXPECT_THAT(Column(Rows(ByCurrency()), "FCurrencyName"),
              ElementsAre("人民币", "美元", "本位币合计", "人民币", "本位币合计", "人民币", "本位币合计",
                          "本位币合计"));
}

TEST_F(IncomeStatisticsTest, TotalsOverCurrenciesAreInBaseCurrency) {
  const RecordsetRef rows = Rows(ByCurrency());
  EXPECT_THAT(Column(rows, "FAmount"),
              ElementsAre("100", "20", "240", "10.13", "10.13", "-30", "-30", "220.13"));
  EXPECT_THAT(Column(rows, "FTaxAmount"),
              ElementsAre("17", "3.4", "40.8", "1.72", "1.72", "-5.1", "-5.1", "37.42"));
  EXPECT_THAT(Column(rows, "FPrice"), ElementsAre("10", "10", "20", "2.5325", "2.5325", "10", "10", "null"));
}

TEST_F(IncomeStatisticsTest, ASubtotalOfOneItemNamesIt) {
  const RecordsetRef rows = Rows(ByCurrency());
  EXPECT_THAT(Column(rows, "FName"),
              ElementsAre("螺栓", "螺栓", "螺栓", "螺母", "螺母", "O'Ring", "O'Ring", ""));
}

TEST_F(IncomeStatisticsTest, ACurrencyThatTheAccountSetDoesNotKnowIsPassedOn) {
  Sql("UPDATE ICSale SET FCurrencyID=9 WHERE FInterID=2");
  EXPECT_EQ(Column(Rows(ByCurrency()), "FCurrencyName")[1], "9");
}

// An item's property over all its currencies has no currency at all; it is in base currency like the others.
TEST_F(IncomeStatisticsTest, APropertyOverItsCurrenciesIsInBaseCurrencyToo) {
  const RecordsetRef rows =
      Rows(ByCurrency("FAuxPropID Varchar(355) Null,FAuxPropName Varchar(255),",
                      "Case When Grouping(v2.FAuxPropID)=1 Then -1 Else v2.FAuxPropID End,'',",
                      "v2.FAuxPropID,", "Grouping(v1.FCurrencyID)=1 And Grouping(v2.FAuxPropID)=1 "));
  rows->MoveFirst();
  rows->Move(2);
  EXPECT_EQ(rows->Value("FAuxPropID"), Variant("0"));
  EXPECT_TRUE(rows->Value("FCurrencyID").IsNull());
  EXPECT_EQ(rows->Value("FCurrencyName"), Variant("本位币合计"));
  EXPECT_EQ(rows->Value("FAmount").ToDouble(), 240);
}

TEST_F(IncomeStatisticsTest, WithoutCurrenciesTheBlankNameStaysBlank) {
  const DictionaryRef request = ByItem();
  std::string select =
      Replace(request->Get("Select").ToText(), "FSumSort smallint",
              "FCurrencyID Varchar(80) Null,FCurrencyName Varchar(80) Null,FSumSort smallint");
  select = Replace(select, "Case When Grouping(t1.FNumber)=1 Then 101",
                   "'','',Case When Grouping(t1.FNumber)=1 Then 101");
  request->Set("Select", select);
  EXPECT_THAT(Column(Rows(request), "FCurrencyName"), ElementsAre("", "", "", ""));
}

// --- By auxiliary property

DictionaryRef ByProperty() {
  return Request(
      Join("Create Table #Data(FAuxPropID Varchar(355) Null,FAuxPropName Varchar(255),", kItemColumns,
           kFigureColumns, kLastColumns,
           "Insert Into #Data Select Case When Grouping(v2.FAuxPropID)=1 Then -1 Else v2.FAuxPropID End,'',"
           "Case When Grouping(t1.FNumber)=1 Then '合计' Else t1.FNumber End,",
           Values("Sum(v2.FQty)"),
           "Case When Grouping(t1.FNumber)=1 Then 101 When Grouping(v2.FAuxPropID)=1 Then 106 Else 0 End",
           kFrom),
      "Group by t1.FNumber,v2.FAuxPropID With RollUp ");
}

TEST_F(IncomeStatisticsTest, APropertyIsNamedByItsNumberAndASubtotalOfAnItemSaysSo) {
  Sql("INSERT INTO t_AuxItem(FItemID,FName) VALUES (5,'白')");
  Sql("UPDATE ICSaleEntry SET FAuxPropID=5 WHERE FInterID=1 AND FEntryID=1");
  const RecordsetRef rows = Rows(ByProperty());
  EXPECT_THAT(Column(rows, "FNumber"),
              ElementsAre("01.01", "01.01", "01.01", "01.02", "01.02", "01.03", "01.03", "合计"));
  EXPECT_THAT(Column(rows, "FAuxPropName"), ElementsAre("", "白", "小计", "", "小计", "", "小计", ""));
  EXPECT_THAT(Column(rows, "FPrice"), ElementsAre("70", "10", "20", "2.5325", "2.5325", "10", "10", "null"));
  EXPECT_THAT(Column(rows, "FUnitName"), ElementsAre("件", "件", "件", "件", "件", "千克", "千克", ""));
}

// --- By customer: short codes

TEST_F(IncomeStatisticsTest, TheShortCodeOfACustomerIsFoundByItsCode) {
  Sql("INSERT INTO t_Item(FItemID,FItemClassID,FLevel,FDetail,FNumber,FFullNumber,FShortNumber,FName) "
      "SELECT FItemID,1,1,1,FNumber,FNumber,FShortNumber,FName FROM t_Organization");
  const RecordsetRef rows = Rows(Request(
      Join("Create Table #Data(FCustName Varchar(355) Null,FCustNumber Varchar(355) Null,"
           "FShortCustNumber Varchar(355) Null,",
           kItemColumns, kFigureColumns, kLastColumns,
           "Insert Into #Data Select NULL,t2.FNumber,NULL,t1.FNumber,", Values("Sum(v2.FQty)"),
           "Case When Grouping(t2.FNumber)=1 Then 101 When Grouping(t1.FNumber)=1 Then 106 Else 0 End",
           kFrom),
      "Group by t2.FNumber,t1.FNumber With RollUp "));
  EXPECT_THAT(Column(rows, "FShortCustNumber"), ElementsAre("3", "3", "3", "2", "2", "1", "1", "null"));
}

TEST_F(IncomeStatisticsTest, TheShortCodeIsFoundWhereTheCodeStandsInTheColumnOfTheName) {
  Sql("INSERT INTO t_Item(FItemID,FItemClassID,FLevel,FDetail,FNumber,FFullNumber,FShortNumber,FName) "
      "SELECT FItemID,2,1,1,FNumber,FNumber,'S'||FShortNumber,FName FROM t_Department");
  const RecordsetRef rows = Rows(Request(
      Join("Create Table #Data(FDeptName Varchar(355) Null,FDeptNumber Varchar(355) Null,"
           "FShortDeptNumber Varchar(355) Null,",
           kItemColumns, kFigureColumns, kLastColumns,
           "Insert Into #Data Select Case When Grouping(t3.FNumber)=1 Then '合计' When "
           "Grouping(t1.FNumber)=1 Then t3.FNumber+'(小计)' Else t3.FNumber End,NULL,NULL,t1.FNumber,",
           Values("Sum(v2.FQty)"),
           "Case When Grouping(t3.FNumber)=1 Then 101 When Grouping(t1.FNumber)=1 Then 102 Else 0 End",
           kFrom),
      "Group by t3.FNumber,t1.FNumber With RollUp "));
  EXPECT_THAT(Column(rows, "FDeptName"),
              ElementsAre("null", "null", "D.01", "D.01", "D.01(小计)", "D.02", "D.02(小计)", "合计"));
  EXPECT_THAT(Column(rows, "FShortDeptNumber"),
              ElementsAre("null", "null", "S01", "S01", "S01", "S02", "S02", "null"));
}

// --- The common quantity where the batch counts none. A box of bolts holds 12.

std::vector<double> Quantities(const RecordsetRef& rows) {
  std::vector<double> quantities;
  for (const std::string& cell : Column(rows, "FCUUnitQty")) quantities.push_back(std::stod(cell));
  return quantities;
}

void ExpectQuantities(const RecordsetRef& rows, const std::vector<double>& expected) {
  EXPECT_THAT(Quantities(rows), testing::Pointwise(testing::DoubleNear(1e-8), expected));
}

class CommonQuantityTest : public IncomeStatisticsTest {
 protected:
  CommonQuantityTest() { Sql("UPDATE t_ICItem SET FCUUnitID=2 WHERE FItemID=101"); }
};

TEST_F(CommonQuantityTest, IsTheBaseQuantityInTheCommonUnitAndTheTotalSumsIt) {
  const DictionaryRef request = ByItem();
  request->Set("Select", Replace(request->Get("Select").ToText(), "'',Sum(v2.FQty),0,", "'',0,0,"));
  const RecordsetRef rows = Rows(request);
  EXPECT_THAT(Column(rows, "FCUUnitName"), ElementsAre("箱", "件", "千克", ""));
  ExpectQuantities(rows, {1, 4, -3, 2});
}

TEST_F(CommonQuantityTest, IsTheBatchsOwnWhereItCountsOne) {
  ExpectQuantities(Rows(ByItem()), {12, 4, -3, 13});
}

TEST_F(CommonQuantityTest, AUnitThatIsNoneCountsAsTheBaseUnit) {
  Sql("UPDATE t_ICItem SET FCUUnitID=88 WHERE FItemID=101");
  Sql("UPDATE t_MeasureUnit SET FCoefficient=0 WHERE FMeasureUnitID=3");
  const DictionaryRef request = ByItem();
  request->Set("Select", Replace(request->Get("Select").ToText(), "'',Sum(v2.FQty),0,", "'',0,0,"));
  ExpectQuantities(Rows(request), {12, 4, -3, 13});
}

// Department, customer, item: each total row sums the details in front of it up to the next wider total.
TEST_F(CommonQuantityTest, EveryLevelOfTotalsSumsItsOwnDetails) {
  const RecordsetRef rows =
      Rows(Request(Join("Create Table #Data(FName1 Varchar(355) Null,FCustName Varchar(355) Null,",
                        kItemColumns, kFigureColumns, kLastColumns,
                        "Insert Into #Data Select t3.FNumber,t2.FNumber,t1.FNumber,", Values("0"),
                        "Case When Grouping(t3.FNumber)=1 Then 106 When Grouping(t2.FNumber)=1 Then 107 "
                        "When Grouping(t1.FNumber)=1 Then 108 Else 0 End",
                        kFrom),
                   "Group by t3.FNumber,t2.FNumber,t1.FNumber With RollUp "));
  EXPECT_THAT(Column(rows, "FSumSort"),
              ElementsAre("0", "108", "107", "0", "0", "108", "107", "0", "108", "107", "106"));
  const double bolts = 10.0 / 12;
  const double few_bolts = 2.0 / 12;
  ExpectQuantities(rows, {-3, -3, -3, bolts, 4, bolts + 4, bolts + 4, few_bolts, few_bolts, few_bolts, 2});
}

// A customer's number with its name rolled up has the code of the grand total.
TEST_F(CommonQuantityTest, TheLastRowIsTheGrandTotalEvenWhereOthersHaveItsCode) {
  const RecordsetRef rows = Rows(Request(
      Join("Create Table #Data(FCustNumber Varchar(355) Null,FCustName Varchar(355) Null,", kItemColumns,
           kFigureColumns, kLastColumns, "Insert Into #Data Select t2.FNumber,t2.FName,t1.FNumber,",
           Values("0"),
           "Case When Grouping(t2.FName)=1 Then 101 When Grouping(t1.FNumber)=1 Then 106 Else 0 End", kFrom),
      "Group by t2.FNumber,t2.FName,t1.FNumber With RollUp "));
  const double bolts = 10.0 / 12;
  const double few_bolts = 2.0 / 12;
  ExpectQuantities(rows, {bolts, 4, bolts + 4, bolts + 4, few_bolts, few_bolts, few_bolts, -3, -3, -3, 2});
}

// --- The days

TEST_F(IncomeStatisticsTest, DaysAreCountedFromMorningToNight) {
  const auto quantity = [](const Variant& begin, const Variant& end) {
    return Column(Rows(ByItem(), begin, end), "FQty");
  };
  EXPECT_THAT(quantity("2024-03-31", "2024-03-31"), ElementsAre("2", "2"));
  EXPECT_THAT(quantity("2024/3/1", "2024/3/30"), ElementsAre("10", "4", "-3", "11"));
  EXPECT_THAT(quantity(Date::FromYmd(2024, 3, 6), Date::FromYmd(2024, 3, 30, 23, 59, 59)),
              ElementsAre("-3", "-3"));
  EXPECT_EQ(Rows(ByItem(), "2024-03-31", "2024-03-01")->RecordCount(), 0);
}

TEST_F(IncomeStatisticsTest, TheDaysCountInEveryTextOfTheRequest) {
  const DictionaryRef request = ByItem();
  request->Set("Append", "Update #Data Set FModel=(Select Count(*) From ICSale v1 Where 1=1 ##CHECKDATE## )");
  EXPECT_EQ(Column(Rows(request, "2024-03-31", "2024-03-31"), "FModel")[0], "1");
  request->Set(
      "UpdateAppend",
      "Update #Data Set FModel=FModel+'/'+Convert(varchar(9),(Select Count(*) From ICSale v1 Where 1=1 "
      "##CHECKDATE##))");
  request->Set(
      "EndSel",
      "Select FModel+(Select '/'+Max(v1.FBillNo) From ICSale v1 Where 1=1 ##CHECKDATE##) FModel From "
      "#Data");
  EXPECT_EQ(Column(Rows(request, "2024-03-31", "2024-03-31"), "FModel")[0], "1/1/XS002");
}

TEST_F(IncomeStatisticsTest, TheRequestComesBackAsItWas) {
  const DictionaryRef request = ByItem();
  request->Set("CurrencyShow", 0);
  Rows(request);
  EXPECT_EQ(request->Entries().size(), 4u);
  EXPECT_THAT(request->Get("Select").ToText(), HasSubstr("##CHECKDATE##"));
}

TEST_F(IncomeStatisticsTest, AMissingDayIsRefusedByItsName) {
  for (const Variant& missing : {Variant(), Variant(""), Variant(Null())}) {
    EXPECT_THAT(DescriptionRaisedBy([&] { Rows(ByItem(), missing); }), HasSubstr("BDate"));
    EXPECT_THAT(DescriptionRaisedBy([&] { Rows(ByItem(), "2024-03-01", missing); }), HasSubstr("EDate"));
  }
}

TEST_F(IncomeStatisticsTest, ADayThatIsNoneIsRefusedAndNeverBecomesSql) {
  EXPECT_EQ(NumberRaisedBy([] { Rows(ByItem(), "2024-03-01' Or 1=1 --"); }), error_number::kTypeMismatch);
}

TEST_F(IncomeStatisticsTest, ARequestThatIsNothingIsRefused) {
  EXPECT_EQ(NumberRaisedBy([] { Rows(nullptr); }), error_number::kInvalidCall);
}

TEST_F(IncomeStatisticsTest, AFailingPartIsRaisedAndLeavesNothingBehind) {
  const DictionaryRef request = ByItem();
  request->Set("EndSel", "Select * From #Data Where FNoSuch=1");
  const auto error = RaisedBy([&] { Rows(request); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Source(), "ORVMSaleRpt.Data:GetPurchaseData");
  EXPECT_EQ(error->Description(), "Invalid column name 'FNoSuch'.");
  ExpectNoTable("#Data");
}

}  // namespace
}  // namespace salerpt::middletier
