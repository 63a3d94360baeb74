// The middle tier on a generated account set: what it gives agrees with plain SQL on the tables.
#include "tests/suite/middletier/generated_set.h"

namespace salerpt::middletier {
namespace {

constexpr std::int16_t kFirstYear = 2023;
constexpr std::int16_t kLastYear = 2026;
constexpr std::int16_t kPeriods = 12;

class GeneratedTest : public testing::Test {
 protected:
  GeneratedTest() { RegisterMiddleTier(runtime_, set_.Get(), Login{}); }

  GeneratedSet set_{7, 3000};
  Runtime runtime_;
};

struct Sums {
  double lines = 0;
  double quantity = 0;
  double amount = 0;
};

Sums SumOfAllPeriods(const DictionaryRef& filter) {
  Sums sums;
  for (std::int16_t year = kFirstYear; year <= kLastYear; ++year) {
    for (std::int16_t period = 1; period <= kPeriods; ++period) {
      const RecordsetRef rows = As<Recordset>(Call(CreateObject("ORVMCaculateRpt.Data"), "GetSaleData", "",
                                                   Variant(year), Variant(period), filter, 0.0));
      const int quantity = rows->FieldIndex("FQty");
      const int amount = rows->FieldIndex("FAmount");
      for (; !rows->Eof(); rows->MoveNext()) {
        ++sums.lines;
        sums.quantity += rows->Double(quantity);
        sums.amount += rows->Double(amount);
      }
    }
  }
  return sums;
}

constexpr const char* kPlainSums =
    "SELECT count(*), sum(e.FQty), sum(round((CASE b.FTranType WHEN 80 THEN e.FAmount ELSE "
    "e.FAmount-e.FTaxAmount END)"
    "*b.FExchangeRate, 2)) FROM ICSale b JOIN ICSaleEntry e USING(FInterID) JOIN t_Organization o ON "
    "o.FItemID=b.FCustID "
    "WHERE b.FTranType IN (80,86) AND b.FCancelLation=0 ";

void ExpectSums(const Sums& sums, const std::vector<double>& plain) {
  EXPECT_GT(sums.lines, 100);
  EXPECT_EQ(sums.lines, plain[0]);
  EXPECT_NEAR(sums.quantity, plain[1], 1e-3);
  EXPECT_NEAR(sums.amount, plain[2], 0.5);  // plain SQL rounds some halves the other way
}

TEST_F(GeneratedTest, ThePeriodsTogetherGiveEveryAuditedInvoiceLine) {
  ExpectSums(SumOfAllPeriods(std::make_shared<Dictionary>()),
             set_.Numbers(std::string(kPlainSums) + "AND b.FStatus>0"));
}

TEST_F(GeneratedTest, NotAuditedLinesAreCountedWhenAllAreAskedFor) {
  const auto filter = std::make_shared<Dictionary>();
  filter->Set("CheckState", 2);
  ExpectSums(SumOfAllPeriods(filter), set_.Numbers(kPlainSums));
}

TEST_F(GeneratedTest, DataRightsLeaveTheCustomersOfTheList) {
  const auto filter = std::make_shared<Dictionary>();
  filter->Set("DataRightWhere", " CharIndex('16394',T4.FRightUserID)>0 ");
  const std::vector<double> plain =
      set_.Numbers(std::string(kPlainSums) + "AND b.FStatus>0 AND instr(o.FRightUserID,'16394')>0");
  const Sums all = SumOfAllPeriods(std::make_shared<Dictionary>());
  const Sums seen = SumOfAllPeriods(filter);
  ExpectSums(seen, plain);
  EXPECT_LT(seen.lines, all.lines);
}

TEST_F(GeneratedTest, EveryItemsBlankColumnsAreFilledFromItsOwnRow) {
  const auto request = std::make_shared<Dictionary>();
  request->Set(
      "SELECT",
      "Create Table #DATA(FNumber varchar(355) null,FShortNumber varchar(355) null,FName varchar(355) null,"
      "FUnitName varchar(355) null,FCUUnitName varchar(355) null,FQtyDecimal smallint null,"
      "FSumSort smallint not null Default(0))\r\n"
      "Insert Into #DATA(FNumber,FShortNumber,FName,FUnitName,FCUUnitName,FQtyDecimal) "
      "Select FNumber,'','','','',4 From t_ICItem");
  request->Set("EndSel", "Select * From #DATA\r\nDrop Table #DATA");
  const RecordsetRef rows =
      As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetSaleAmountData", "", request));
  EXPECT_EQ(rows->RecordCount(), set_.Numbers("SELECT count(*) FROM t_ICItem")[0]);
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string number = rows->Value("FNumber").ToText();
    EXPECT_TRUE(number.ends_with(rows->Value("FShortNumber").ToText())) << number;
    EXPECT_NE(rows->Value("FShortNumber"), Variant("")) << number;
    EXPECT_NE(rows->Value("FName"), Variant("")) << number;
    EXPECT_NE(rows->Value("FUnitName"), Variant("")) << number;
    EXPECT_NE(rows->Value("FCUUnitName"), Variant("")) << number;
  }
}

}  // namespace
}  // namespace salerpt::middletier
