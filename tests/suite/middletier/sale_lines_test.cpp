// GetSaleData: which lines a period and a filter let through, and what a line tells.
#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;

DictionaryRef Filter(std::initializer_list<Dictionary::Entry> entries) {
  auto filter = std::make_shared<Dictionary>(entries);
  if (!filter->Lookup("bLongNumber")) filter->Set("bLongNumber", true);
  return filter;
}

RecordsetRef Lines(std::int16_t year, std::int16_t period, const DictionaryRef& filter) {
  Variant year_argument = year;
  Variant period_argument = period;
  Variant filter_argument = filter;
  Variant time = 0.0;
  return As<Recordset>(Call(CreateObject("ORVMCaculateRpt.Data"), "GetSaleData", "", year_argument,
                            period_argument, filter_argument, time));
}

// "XS001/2" for each line of March 2024.
std::vector<std::string> March(const DictionaryRef& filter) {
  const RecordsetRef rows = Lines(2024, 3, filter);
  std::vector<std::string> lines;
  for (; !rows->Eof(); rows->MoveNext()) {
    lines.push_back(rows->Value("FBillNo").ToText() + "/" + rows->Value("FEntryID").ToText());
  }
  return lines;
}

TEST_F(CompanyTest, APeriodGivesItsAuditedLinesByDateBillAndLine) {
  EXPECT_THAT(March(Filter({})), ElementsAre("XS001/1", "XS001/2", "XS006/1", "XS002/1"));
}

TEST_F(CompanyTest, AMonthEndsWithItsLastDayAndTheNextBeginsAtMidnight) {
  EXPECT_THAT(Cells(Lines(2024, 4, Filter({})), "FBillNo"), ElementsAre("XS003"));
  EXPECT_EQ(Lines(2024, 2, Filter({}))->RecordCount(), 0);
  EXPECT_EQ(Lines(2023, 3, Filter({}))->RecordCount(), 0);
}

TEST_F(CompanyTest, DecemberEndsWithTheYear) {
  Sql("UPDATE ICSale SET FDate='2024-12-31 23:59:59' WHERE FInterID=1");
  Sql("UPDATE ICSale SET FDate='2025-01-01 00:00:00' WHERE FInterID=6");
  EXPECT_THAT(Cells(Lines(2024, 12, Filter({})), "FEntryID"), ElementsAre("1", "2"));
  EXPECT_THAT(Cells(Lines(2025, 1, Filter({})), "FBillNo"), ElementsAre("XS006"));
}

TEST_F(CompanyTest, TheFieldsOfALineAreThere) {
  const RecordsetRef rows = Lines(2024, 3, Filter({}));
  EXPECT_EQ(rows->Value("FInterID"), Variant(1));
  EXPECT_EQ(rows->Value("FEntryID"), Variant(1));
  EXPECT_EQ(rows->Value("FDate"), Variant(Date::FromYmd(2024, 3, 5)));
  EXPECT_EQ(rows->Value("FVoucherNo"), Variant("记-12"));
  EXPECT_EQ(rows->Value("FNote"), Variant("三月货款"));
  EXPECT_EQ(rows->Value("FTranType"), Variant(80));
  EXPECT_EQ(rows->Value("FItemID"), Variant(101));
  EXPECT_EQ(rows->Value("FNumber"), Variant("01.01"));
  EXPECT_EQ(rows->Value("FShortNumber"), Variant("9"));
  EXPECT_EQ(rows->Value("FName"), Variant("螺栓"));
  EXPECT_EQ(rows->Value("FModel"), Variant("M8"));
  EXPECT_EQ(rows->Value("FUnitName"), Variant("件"));
  EXPECT_EQ(rows->Value("FQtyDecimal").ToInt32(), 0);
  EXPECT_EQ(rows->Value("FPriceDecimal").ToInt32(), 2);
  EXPECT_EQ(rows->Value("FQty").ToDouble(), 10);
  EXPECT_EQ(rows->Value("FPrice").ToDouble(), 10);
  EXPECT_EQ(rows->Value("FAmount").ToDouble(), 100);
}

TEST_F(CompanyTest, ALineWithoutVoucherHasAnEmptyVoucherNumber) {
  EXPECT_THAT(Cells(Lines(2024, 3, Filter({})), "FVoucherNo"), ElementsAre("记-12", "记-12", "", ""));
}

// 10.126 rounded to 10.13; a plain invoice's tax is taken off before its rate of 7 is counted: (23.4 - 3.4)
// * 7.
TEST_F(CompanyTest, IncomeIsWithoutTaxInBaseCurrencyRoundedToItsScale) {
  EXPECT_THAT(Cells(Lines(2024, 3, Filter({})), "FAmount"), ElementsAre("100", "10.13", "-30", "140"));
}

TEST_F(CompanyTest, AmountsFollowTheScaleOfTheBaseCurrency) {
  Sql("UPDATE t_Currency SET FScale=3 WHERE FCurrencyID=1");
  EXPECT_THAT(Cells(Lines(2024, 3, Filter({})), "FAmount"), ElementsAre("100", "10.126", "-30", "140"));
}

TEST_F(CompanyTest, ThePriceIsIncomeByQuantity) {
  EXPECT_THAT(Cells(Lines(2024, 3, Filter({})), "FPrice"), ElementsAre("10", "2.5325", "10", "70"));
}

TEST_F(CompanyTest, ALineWithoutQuantityHasNoPrice) {
  const RecordsetRef rows = Lines(2024, 4, Filter({}));
  EXPECT_EQ(rows->Value("FAmount").ToDouble(), 5);
  EXPECT_EQ(rows->Value("FPrice").ToDouble(), 0);
}

TEST_F(CompanyTest, CheckStatePicksAuditedOrNotAndNeverCancelledBills) {
  EXPECT_THAT(March(Filter({{"CheckState", 0}})), ElementsAre("XS001/1", "XS001/2", "XS006/1", "XS002/1"));
  EXPECT_THAT(March(Filter({{"CheckState", 1}})), ElementsAre("XS004/1"));
  EXPECT_THAT(March(Filter({{"CheckState", 2}})),
              ElementsAre("XS001/1", "XS001/2", "XS004/1", "XS006/1", "XS002/1"));
}

TEST_F(CompanyTest, ItemCodesNarrowByTheLongCode) {
  EXPECT_THAT(March(Filter({{"BItemNumber", "01.02"}})), ElementsAre("XS001/2", "XS006/1"));
  EXPECT_THAT(March(Filter({{"EItemNumber", "01.01"}})), ElementsAre("XS001/1", "XS002/1"));
  EXPECT_THAT(March(Filter({{"BItemNumber", "01.02"}, {"EItemNumber", "01.02"}})), ElementsAre("XS001/2"));
}

TEST_F(CompanyTest, ItemCodesNarrowByTheShortCodeWhereThatIsInUse) {
  EXPECT_THAT(March(Filter({{"bLongNumber", false}, {"BItemNumber", "6"}, {"EItemNumber", "8"}})),
              ElementsAre("XS006/1"));
}

TEST_F(CompanyTest, CustomerCodesNarrow) {
  EXPECT_THAT(March(Filter({{"BCustNumber", "C.01"}, {"ECustNumber", "C.01"}})),
              ElementsAre("XS001/1", "XS001/2"));
  EXPECT_THAT(March(Filter({{"bLongNumber", false}, {"BCustNumber", "1"}, {"ECustNumber", "2"}})),
              ElementsAre("XS006/1", "XS002/1"));
}

TEST_F(CompanyTest, ACodeWithAnApostropheIsACodeLikeAnyOther) {
  EXPECT_THAT(March(Filter({{"BCustNumber", "C.O'3"}, {"ECustNumber", "C.O'3"}})), ElementsAre("XS006/1"));
}

TEST_F(CompanyTest, EmployeeCodesNarrowAndLeaveOutBillsWithoutOne) {
  EXPECT_THAT(March(Filter({{"BEmpNumber", "E.01"}})), ElementsAre("XS001/1", "XS001/2", "XS002/1"));
  EXPECT_THAT(March(Filter({{"BEmpNumber", "E.02"}})), ElementsAre("XS002/1"));
}

TEST_F(CompanyTest, DepartmentCodesNarrow) {
  EXPECT_THAT(March(Filter({{"EDptNumber", "D.01"}})), ElementsAre("XS001/1", "XS001/2"));
}

TEST_F(CompanyTest, TheDataRightNarrowsToTheCustomersThatTheUserMaySee) {
  EXPECT_THAT(
      March(Filter({{"DataRightFrom", ""}, {"DataRightWhere", " CharIndex('16394',T4.FRightUserID)>0 "}})),
      ElementsAre("XS001/1", "XS001/2", "XS006/1"));
}

TEST_F(CompanyTest, TheDataRightsJoinsAreTaken) {
  EXPECT_THAT(March(Filter({{"DataRightFrom", " Inner Join t_Emp t98 On v1.FEmpID=t98.FItemID "},
                            {"DataRightWhere", " t98.FNumber='E.02' "}})),
              ElementsAre("XS002/1"));
}

TEST_F(CompanyTest, AFailingDataRightIsRaisedWithTheServersWords) {
  const auto error = RaisedBy([] { Lines(2024, 3, Filter({{"DataRightWhere", "T4.FNoSuch=1"}})); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 207);
  EXPECT_EQ(error->Source(), "ORVMCaculateRpt.Data:GetSaleData");
  EXPECT_EQ(error->Description(), "Invalid column name 'FNoSuch'.");
}

TEST_F(CompanyTest, APeriodThatIsNoneIsRefusedByItsNumber) {
  EXPECT_THAT(DescriptionRaisedBy([] { Lines(2024, 13, Filter({})); }), testing::HasSubstr("13"));
  EXPECT_THAT(DescriptionRaisedBy([] { Lines(2024, 0, Filter({})); }), testing::HasSubstr("0"));
  EXPECT_THAT(DescriptionRaisedBy([] { Lines(24, 3, Filter({})); }), testing::HasSubstr("24"));
}

TEST_F(CompanyTest, AFilterThatIsNothingIsRefused) {
  EXPECT_EQ(NumberRaisedBy([] { Lines(2024, 3, nullptr); }), error_number::kInvalidCall);
}

}  // namespace
}  // namespace salerpt::middletier
