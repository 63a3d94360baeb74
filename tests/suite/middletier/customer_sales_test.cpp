// GetRpt134Data: which lines a filter lets through, and what a line tells.
#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;

constexpr std::int32_t kSales = 134;
constexpr std::int32_t kReturns = 135;

// A filter over March 2024 with `entries` over it.
DictionaryRef Filter(std::int32_t list, std::initializer_list<Dictionary::Entry> entries) {
  auto filter = std::make_shared<Dictionary>();
  filter->Set("BDate", Date::FromYmd(2024, 3, 1));
  filter->Set("EDate", Date::FromYmd(2024, 3, 31));
  filter->Set("bLongNumber", true);
  filter->Set("RptID", list);
  for (const auto& [key, value] : entries) filter->Set(key, value);
  return filter;
}

RecordsetRef Rows(const DictionaryRef& filter) {
  Variant argument = filter;
  return As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetRpt134Data", "", argument));
}

// "XS001 01.02" for each line; the last row is left out.
std::vector<std::string> Lines(const DictionaryRef& filter) {
  const RecordsetRef rows = Rows(filter);
  std::vector<std::string> lines;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (rows->Value("FSumSort").ToInt32() > 0) continue;
    lines.push_back(rows->Value("FBillNo").ToText() + " " + rows->Value("FNumber").ToText());
  }
  return lines;
}
std::vector<std::string> Sales(std::initializer_list<Dictionary::Entry> entries) {
  return Lines(Filter(kSales, entries));
}

class CustomerSalesTest : public CompanyTest {};

TEST_F(CustomerSalesTest, TheAuditedLinesOfTheDaysComeByDateBillAndLineAndTheirSumsBehindThem) {
  const RecordsetRef rows = Rows(Filter(kSales, {}));
  EXPECT_THAT(Cells(rows, "FBillNo"), ElementsAre("XS001", "XS001", "XS006", "XS002", ""));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FNumber"), ElementsAre("01.01", "01.02", "01.03", "01.01", ""));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FSumSort"), ElementsAre("0", "0", "0", "0", "101"));
}

TEST_F(CustomerSalesTest, TheFieldsOfALineAreThere) {
  Sql("INSERT INTO t_AuxItem(FItemID,FName) VALUES (5,'白')");
  Sql("UPDATE ICSaleEntry SET FAuxPropID=5,FUnitID=2,FAuxQty=0.5 WHERE FInterID=2");
  const RecordsetRef rows =
      Rows(Filter(kSales, {{"AuxProp", 1}, {"BCustNumber", "C.02"}, {"ECustNumber", "C.02"}}));
  EXPECT_EQ(rows->Value("Fdate").ToText(), "2024-03-31 18:30:00");
  EXPECT_EQ(rows->Value("FCustNumber"), Variant("C.02"));
  EXPECT_EQ(rows->Value("FCustShortNumber"), Variant("2"));
  EXPECT_EQ(rows->Value("FCustName"), Variant("西岭商行"));
  EXPECT_EQ(rows->Value("FNumber"), Variant("01.01"));
  EXPECT_EQ(rows->Value("FShortNumber"), Variant("9"));
  EXPECT_EQ(rows->Value("FName"), Variant("螺栓"));
  EXPECT_EQ(rows->Value("FModel"), Variant("M8"));
  EXPECT_EQ(rows->Value("FAuxPropName"), Variant("白"));
  EXPECT_EQ(rows->Value("FBillNo"), Variant("XS002"));
  EXPECT_EQ(rows->Value("FAuxUnitName"), Variant("箱"));
  EXPECT_EQ(rows->Value("FAuxQty").ToDouble(), 0.5);
  EXPECT_EQ(rows->Value("FCurrencyName"), Variant("美元"));
  EXPECT_EQ(rows->Value("FExchangeRate").ToDouble(), 7);
  EXPECT_EQ(rows->Value("FUnitName"), Variant("件"));
  EXPECT_EQ(rows->Value("FQty").ToDouble(), 2);
  EXPECT_EQ(rows->Value("FAmount").ToDouble(), 20);
  EXPECT_EQ(rows->Value("FAmountFor").ToDouble(), 140);
  EXPECT_EQ(rows->Value("FQtyDecimal").ToInt32(), 0);
  EXPECT_EQ(rows->Value("FPriceDecimal").ToInt32(), 2);
}

TEST_F(CustomerSalesTest, TheColumnsAreThoseThatTheListShows) {
  const RecordsetRef rows = Rows(Filter(kSales, {}));
  std::vector<std::string> names;
  for (int i = 0; i < rows->FieldCount(); ++i) names.push_back(rows->Field(i).name);
  EXPECT_THAT(
      names, ElementsAre("Fdate", "FCustNumber", "FCustShortNumber", "FCustName", "FNumber", "FShortNumber",
                         "FName", "FModel", "FBillNo", "FAuxUnitName", "FCurrencyName", "FExchangeRate",
                         "FAuxQty", "FUnitName", "FQty", "FCUUnitName", "FCUUnitQty", "FAmount", "FAmountFor",
                         "FQtyDecimal", "FPriceDecimal", "FSumSort"));
}

TEST_F(CustomerSalesTest, TheAuxiliaryPropertyIsShownOnlyWhereItIsAskedFor) {
  EXPECT_LT(Rows(Filter(kSales, {{"AuxProp", 0}}))->FindField("FAuxPropName"), 0);
  EXPECT_EQ(Rows(Filter(kSales, {{"AuxProp", 1}}))->FindField("FAuxPropName"), 8);
}

// A box holds 12.
TEST_F(CustomerSalesTest, TheCommonQuantityIsCountedInTheCommonUnitAndNotInTheSaleUnit) {
  const DictionaryRef bolts = Filter(kSales, {{"EItemNumber", "01.01"}});
  EXPECT_THAT(Cells(Rows(bolts), "FCUUnitName"), ElementsAre("件", "件", ""));
  EXPECT_THAT(Cells(Rows(bolts), "FCUUnitQty"), ElementsAre("10", "2", "12"));
  Sql("UPDATE t_ICItem SET FCUUnitID=2,FSaleUnitID=1 WHERE FItemID=101");
  EXPECT_THAT(Cells(Rows(bolts), "FCUUnitName"), ElementsAre("箱", "箱", ""));
  EXPECT_THAT(Cells(Rows(bolts), "FCUUnitQty"), ElementsAre("0.8333333333", "0.1666666667", "1"));
}

// 10.126 at two decimals; a plain invoice's tax is taken off: 23.4 - 3.4, times 7.
TEST_F(CustomerSalesTest, IncomeIsWithoutTaxInBothCurrencies) {
  const RecordsetRef rows = Rows(Filter(kSales, {}));
  EXPECT_THAT(Cells(rows, "FAmountFor"), ElementsAre("100", "10.13", "-30", "140", "220.13"));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FAmount"), ElementsAre("100", "10.13", "-30", "20", "null"));
}

TEST_F(CustomerSalesTest, EachAmountIsRoundedToTheScaleOfItsOwnCurrency) {
  Sql("UPDATE ICSaleEntry SET FAmount=23.456,FTaxAmount=3.333 WHERE FInterID=2");
  const DictionaryRef dollars = Filter(kSales, {{"BCustNumber", "C.02"}, {"ECustNumber", "C.02"}});
  EXPECT_THAT(Cells(Rows(dollars), "FAmount"), ElementsAre("20.12", "20.12"));
  EXPECT_THAT(Cells(Rows(dollars), "FAmountFor"), ElementsAre("140.86", "140.86"));
  Sql("UPDATE t_Currency SET FScale=1 WHERE FCurrencyID=1");
  EXPECT_THAT(Cells(Rows(dollars), "FAmount"), ElementsAre("20.12", "20.12"));
  EXPECT_THAT(Cells(Rows(dollars), "FAmountFor"), ElementsAre("140.9", "140.9"));
  Sql("UPDATE t_Currency SET FScale=0 WHERE FCurrencyID=2");
  EXPECT_THAT(Cells(Rows(dollars), "FAmount"), ElementsAre("20", "20"));
  EXPECT_THAT(Cells(Rows(dollars), "FAmountFor"), ElementsAre("140.9", "140.9"));
}

TEST_F(CustomerSalesTest, AHalfIsRoundedAwayFromZero) {
  Sql("UPDATE ICSaleEntry SET FAmount=1.005 WHERE FInterID=1");
  Sql("UPDATE ICSaleEntry SET FAmount=-1.005 WHERE FInterID=6");
  EXPECT_THAT(Cells(Rows(Filter(kSales, {})), "FAmountFor"),
              ElementsAre("1.01", "1.01", "-1.01", "140", "141.01"));
}

TEST_F(CustomerSalesTest, SeveralCurrenciesHaveNoSumOfTheirOwnAndOneHas) {
  const RecordsetRef mixed = Rows(Filter(kSales, {}));
  EXPECT_THAT(Cells(mixed, "FCurrencyName"), ElementsAre("人民币", "人民币", "人民币", "美元", ""));
  const DictionaryRef one = Filter(kSales, {{"ECustNumber", "C.01"}});
  EXPECT_THAT(Cells(Rows(one), "FCurrencyName"), ElementsAre("人民币", "人民币", "人民币"));
  EXPECT_THAT(Cells(Rows(one), "FAmount"), ElementsAre("100", "10.13", "110.13"));
}

TEST_F(CustomerSalesTest, TheLastRowIsLabelledUnderBothCodesAndSumsTheQuantitiesAsTheyAre) {
  Sql("UPDATE ICSaleEntry SET FQty=4.1234567 WHERE FInterID=1 AND FEntryID=2");
  const RecordsetRef rows = Rows(Filter(kSales, {}));
  rows->Move(rows->RecordCount() - 1);
  EXPECT_EQ(rows->Value("FCustNumber"), Variant("合计"));
  EXPECT_EQ(rows->Value("FCustShortNumber"), Variant("合计"));
  EXPECT_EQ(rows->Value("FCustName"), Variant(""));
  EXPECT_TRUE(rows->Value("Fdate").IsNull());
  EXPECT_NEAR(rows->Value("FQty").ToDouble(), 13.1234567, 1e-9);
  EXPECT_NEAR(rows->Value("FAuxQty").ToDouble(), 13, 1e-9);
  EXPECT_EQ(rows->Value("FQtyDecimal").ToInt32(), 3);
  EXPECT_EQ(rows->Value("FPriceDecimal").ToInt32(), 4);
}

TEST_F(CustomerSalesTest, NoLinesGiveNoRowsAtAll) {
  EXPECT_EQ(Rows(Filter(kSales, {{"BItemNumber", "99"}}))->RecordCount(), 0);
}

TEST_F(CustomerSalesTest, ALineWithoutCustomerCurrencyOrUnitsIsThereAllTheSame) {
  Sql("UPDATE ICSale SET FCustID=999,FCurrencyID=99,FExchangeRate=1 WHERE FInterID=6");
  Sql("UPDATE t_ICItem SET FCUUnitID=88,FUnitGroupID=88 WHERE FItemID=103");
  const RecordsetRef rows = Rows(Filter(kSales, {{"BItemNumber", "01.03"}}));
  EXPECT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(rows->Value("FCustNumber"), Variant(""));
  EXPECT_EQ(rows->Value("FCurrencyName"), Variant(""));
  EXPECT_EQ(rows->Value("FUnitName"), Variant(""));
  EXPECT_EQ(rows->Value("FCUUnitQty").ToDouble(), -3);
  EXPECT_EQ(rows->Value("FAmount").ToDouble(), -30);
}

// --- The returns

TEST_F(CustomerSalesTest, TheReturnsAreTheLinesOfRedInvoicesWithTheirSign) {
  const RecordsetRef rows = Rows(Filter(kReturns, {}));
  EXPECT_THAT(Cells(rows, "FBillNo"), ElementsAre("XS006", ""));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FQty"), ElementsAre("-3", "-3"));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FAmount"), ElementsAre("-30", "-30"));
}

TEST_F(CustomerSalesTest, TheReturnsComeCustomerByCustomerByTheCodeInUse) {
  Sql("UPDATE ICSale SET FROB=-1");
  EXPECT_THAT(Lines(Filter(kReturns, {})),
              ElementsAre("XS001 01.01", "XS001 01.02", "XS002 01.01", "XS006 01.03"));
  EXPECT_THAT(Lines(Filter(kReturns, {{"bLongNumber", false}})),
              ElementsAre("XS006 01.03", "XS002 01.01", "XS001 01.01", "XS001 01.02"));
}

// --- The filter, key by key

TEST_F(CustomerSalesTest, DaysAreCountedFromMorningToNight) {
  EXPECT_THAT(Sales({{"BDate", Date::FromYmd(2024, 3, 20)}}), ElementsAre("XS006 01.03", "XS002 01.01"));
  EXPECT_THAT(Sales({{"EDate", "2024-03-20"}}), ElementsAre("XS001 01.01", "XS001 01.02", "XS006 01.03"));
  EXPECT_THAT(Sales({{"BDate", "2024/3/31"}, {"EDate", "2024-04-01"}}),
              ElementsAre("XS002 01.01", "XS003 01.03"));
  EXPECT_THAT(Sales({{"BDate", "2024-03-31"}, {"EDate", "2024-03-01"}}), ElementsAre());
}

TEST_F(CustomerSalesTest, ItemAndCustomerCodesNarrowByTheCodeInUse) {
  EXPECT_THAT(Sales({{"BItemNumber", "01.02"}}), ElementsAre("XS001 01.02", "XS006 01.03"));
  EXPECT_THAT(Sales({{"EItemNumber", "01.01"}}), ElementsAre("XS001 01.01", "XS002 01.01"));
  EXPECT_THAT(Sales({{"BCustNumber", "C.O'3"}}), ElementsAre("XS006 01.03"));
  EXPECT_THAT(Sales({{"ECustNumber", "C.01"}}), ElementsAre("XS001 01.01", "XS001 01.02"));
  EXPECT_THAT(Sales({{"bLongNumber", false}, {"BItemNumber", "6"}, {"EItemNumber", "8"}}),
              ElementsAre("XS006 01.03"));
  EXPECT_THAT(Sales({{"bLongNumber", false}, {"BCustNumber", "1"}, {"ECustNumber", "2"}}),
              ElementsAre("XS006 01.03", "XS002 01.01"));
}

TEST_F(CustomerSalesTest, CheckStatePicksAuditedOrNotAndNeverCancelledBills) {
  EXPECT_THAT(Sales({{"CheckState", 0}}),
              ElementsAre("XS001 01.01", "XS001 01.02", "XS006 01.03", "XS002 01.01"));
  EXPECT_THAT(Sales({{"CheckState", 1}}), ElementsAre("XS004 01.02"));
  EXPECT_THAT(Sales({{"CheckState", 2}}),
              ElementsAre("XS001 01.01", "XS001 01.02", "XS004 01.02", "XS006 01.03", "XS002 01.01"));
}

TEST_F(CustomerSalesTest, SaleTypeAboveOnePicksOneStyle) {
  Sql("UPDATE ICSale SET FSaleStyle=102 WHERE FInterID=2");
  EXPECT_THAT(Sales({{"SaleType", 102}, {"SaleTypeName", "分期收款销售"}}), ElementsAre("XS002 01.01"));
  EXPECT_EQ(Sales({{"SaleType", 1}, {"SaleTypeName", "全部"}}).size(), 4u);
  EXPECT_EQ(Sales({{"SaleType", 0}}).size(), 4u);
}

TEST_F(CustomerSalesTest, HookStatusPicksMatchedOrNot) {
  Sql("UPDATE ICSale SET FHookStatus=2 WHERE FInterID=2");
  Sql("UPDATE ICSale SET FHookStatus=1 WHERE FInterID=6");
  EXPECT_THAT(Sales({{"HookStatus", 0}}), ElementsAre("XS001 01.01", "XS001 01.02"));
  EXPECT_THAT(Sales({{"HookStatus", 2}}), ElementsAre("XS002 01.01"));
  EXPECT_EQ(Sales({{"HookStatus", -1}}).size(), 4u);
  EXPECT_EQ(Sales({}).size(), 4u);
}

TEST_F(CustomerSalesTest, CommodityTypePicksServicesOrAllElse) {
  Sql("UPDATE t_ICItem SET FErpClsID=4 WHERE FItemID=103");
  EXPECT_THAT(Sales({{"CommodityType", 1}}), ElementsAre("XS006 01.03"));
  EXPECT_THAT(Sales({{"CommodityType", 2}}), ElementsAre("XS001 01.01", "XS001 01.02", "XS002 01.01"));
  EXPECT_EQ(Sales({{"CommodityType", 0}}).size(), 4u);
}

TEST_F(CustomerSalesTest, ThePlanSwitchOfTheDialogChangesNothing) {
  EXPECT_EQ(Sales({{"chkNextChoose", 1}}), Sales({{"chkNextChoose", 0}}));
}

TEST_F(CustomerSalesTest, DataRightsNarrowToTheCustomersThatTheUserMaySee) {
  EXPECT_THAT(Sales({{"DataRightFrom", ""}, {"DataRightWhere", " CharIndex('16394',t1.FRightUserID)>0 "}}),
              ElementsAre("XS001 01.01", "XS001 01.02", "XS006 01.03"));
  EXPECT_THAT(Sales({{"DataRightFrom", " Inner Join t_Emp t98 On v1.FEmpID=t98.FItemID "},
                     {"DataRightWhere", " t98.FNumber='E.02' "}}),
              ElementsAre("XS002 01.01"));
}

TEST_F(CustomerSalesTest, TheKeysOfAFilterHoldTogether) {
  EXPECT_THAT(Sales({{"CheckState", 2},
                     {"BItemNumber", "01.02"},
                     {"ECustNumber", "C.01"},
                     {"EDate", "2024-03-09"},
                     {"DataRightWhere", " CharIndex('16394',t1.FRightUserID)>0 "}}),
              ElementsAre("XS001 01.02"));
}

TEST_F(CustomerSalesTest, TheFilterComesBackAsItWas) {
  const DictionaryRef filter = Filter(kSales, {});
  Rows(filter);
  EXPECT_EQ(filter->Entries().size(), 4u);
}

// --- Failures

TEST_F(CustomerSalesTest, AFilterThatIsNothingIsRefused) {
  EXPECT_EQ(NumberRaisedBy([] { Rows(nullptr); }), error_number::kInvalidCall);
}

TEST_F(CustomerSalesTest, AnotherListIsRefusedByItsNumber) {
  EXPECT_THAT(DescriptionRaisedBy([] { Rows(Filter(133, {})); }), testing::HasSubstr("133"));
}

TEST_F(CustomerSalesTest, AMissingDayIsRefusedByItsName) {
  EXPECT_THAT(DescriptionRaisedBy([] {
                Rows(Filter(kSales, {{"BDate", ""}}));
              }),
              testing::HasSubstr("BDate"));
  EXPECT_THAT(DescriptionRaisedBy([] {
                Rows(Filter(kSales, {{"EDate", Null()}}));
              }),
              testing::HasSubstr("EDate"));
}

TEST_F(CustomerSalesTest, AValueThatIsNoNumberIsRefusedAndNeverBecomesSql) {
  for (const char* key : {"SaleType", "HookStatus", "CommodityType", "CheckState"}) {
    EXPECT_EQ(NumberRaisedBy([key] {
                Rows(Filter(kSales, {{key, "2 Or 1=1"}}));
              }),
              error_number::kTypeMismatch)
        << key;
  }
}

TEST_F(CustomerSalesTest, AFailingDataRightIsRaisedWithTheServersWords) {
  const auto error = RaisedBy([] { Rows(Filter(kSales, {{"DataRightWhere", "t1.FNoSuch=1"}})); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Source(), "ORVMSaleRpt.Data:GetRpt134Data");
  EXPECT_EQ(error->Description(), "Invalid column name 'FNoSuch'.");
  ExpectNoTable("#Lines");
}

}  // namespace
}  // namespace salerpt::middletier
