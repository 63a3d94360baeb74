// Credit of the made-up company, its contracts, and the classes that both are told by.
#include <gtest/gtest.h>

#include <sstream>

#include "made_company.h"

namespace salerpt::accountset {
namespace {

using CreditTest = MadeCompanyTest;

TEST_F(CreditTest, PutsEveryCustomerAndEmployeeIntoAClass) {
  EXPECT_EQ(Count("t_Organization o LEFT JOIN t_SubMessage m ON m.FInterID=o.FTypeID AND m.FTypeID=28 WHERE "
                  "m.FInterID IS NULL"),
            0);
  EXPECT_EQ(Count("t_Emp e LEFT JOIN t_SubMessage m ON m.FInterID=e.FTypeID AND m.FTypeID=29 WHERE "
                  "m.FInterID IS NULL"),
            0);
  EXPECT_EQ(Count("(SELECT DISTINCT FTypeID FROM t_Emp)"), 4);
}

TEST_F(CreditTest, GivesCreditToHoldersOfEveryClass) {
  const char* const kOwners[] = {"t_Organization WHERE FTypeID=2801 AND FItemID", "t_Emp WHERE FItemID",
                                 "t_Department WHERE FItemID", "t_SubMessage WHERE FTypeID=28 AND FInterID",
                                 "t_SubMessage WHERE FTypeID=29 AND FInterID"};
  for (int credit_class = 0; credit_class < 5; ++credit_class) {
    SCOPED_TRACE(credit_class);
    const std::string rows = " WHERE FCreditClass=" + std::to_string(credit_class);
    for (const char* table : {"ICCreditAmount", "ICCreditQty", "ICCreditDiscount"}) {
      EXPECT_GE(Count(table + rows), 3) << table;
      EXPECT_EQ(Count(std::string(table) + " c" + rows + " AND NOT EXISTS (SELECT 1 FROM " +
                      kOwners[credit_class] + "=c.FItemID)"),
                0)
          << table;
    }
  }
}

TEST_F(CreditTest, SetsLimitsTermsAndDiscountsThatMakeSense) {
  EXPECT_EQ(Count("ICCreditAmount WHERE FCreditAmount<10000 OR FCreditAmount%10000<>0 OR FCreditLevel NOT IN "
                  "('A级','B级','C级') OR FCreditTime NOT IN (30,45,60)"),
            0);
  EXPECT_EQ(Count("(SELECT DISTINCT FCreditLevel FROM ICCreditAmount)"), 3);
  EXPECT_EQ(Count("ICCreditAmount a JOIN t_Organization o USING(FItemID) WHERE a.FCreditClass=0 AND "
                  "a.FCurrencyID<>o.FCyID"),
            0);
  EXPECT_EQ(Count("ICCreditAmount WHERE FCreditClass>0 AND FCurrencyID<>1"), 0);
  EXPECT_EQ(Count("ICCreditQty WHERE FCreditQty<10 OR FCreditQty%10<>0"), 0);
  EXPECT_EQ(Count("ICCreditQty q LEFT JOIN t_ICItem i ON i.FItemID=q.FICItemID WHERE i.FItemID IS NULL"), 0);
  EXPECT_EQ(Count("ICCreditDiscount d JOIN ICCreditAmount a USING(FCreditClass,FItemID) WHERE "
                  "d.FDays>a.FCreditTime OR d.FDiscountRate NOT BETWEEN 1 AND 3"),
            0);
}

TEST_F(CreditTest, HasKeyCustomersBeyondTheirLimitAndSomeBelow) {
  const std::string use =
      "(SELECT a.FItemID,a.FCreditAmount lim,(SELECT sum(e.FAllAmount)/30.0 FROM SEOrder o JOIN SEOrderEntry "
      "e "
      "USING(FInterID) WHERE o.FCustID=a.FItemID AND o.FStatus>0 AND NOT o.FCancelLation) monthly FROM "
      "ICCreditAmount a WHERE a.FCreditClass=0)";
  EXPECT_GT(Count(use + " WHERE monthly<lim"), 0);
  EXPECT_EQ(Count(use + " WHERE monthly*2.6+10000<lim"), 0);
}

TEST_F(CreditTest, HasContractsWithTheKeyCustomers) {
  EXPECT_GT(Count("SEContract"), 20);
  EXPECT_EQ(Count("SEContract c JOIN t_Organization o ON o.FItemID=c.FCustID WHERE o.FTypeID<>2801 OR "
                  "o.FCyID<>c.FCurrencyID"),
            0);
  EXPECT_GT(Count("SEContract WHERE FStatus=0"), 0);
  EXPECT_GT(Count("SEContract WHERE FStatus>0 AND NOT FCancelLation"), 20);
  EXPECT_EQ(Count("SEContract c LEFT JOIN SEContractEntry e USING(FInterID) WHERE e.FInterID IS NULL"), 0);
  EXPECT_EQ(
      Count("SEContract WHERE FDate NOT GLOB '202[3-5]-[01][0-9]-[0-3][0-9] 00:00:00' OR FEndDate<=FDate"),
      0);
  EXPECT_EQ(Count("SEContractEntry WHERE FQty<=0 OR abs(FAmount+FTaxAmount-FAllAmount)>0.001 OR "
                  "FReceiveAmountFor>FAllAmount OR FReceiveAmount>FStdAllAmount+0.001"),
            0);
  EXPECT_EQ(Count("SEContractEntry e JOIN SEContract c USING(FInterID) WHERE c.FCurrencyID=1 AND "
                  "abs(e.FAllAmount-e.FStdAllAmount)>0.001"),
            0);
  EXPECT_GT(Count("SEContractEntry WHERE FReceiveAmountFor>0"), 0);
}

class ImportedCreditTest : public FolderTest {};

TEST_F(ImportedCreditTest, IsGivenToNobody) {
  const auto csv =
      WriteFile("shop.csv",
                "InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,Country\r\n"
                "536365,85123A,HOLDER,6,2010-12-01 08:26,2.55,17850,United Kingdom\r\n");
  std::ostringstream rejects;
  Import(Path("shop.db"), csv, rejects);
  for (const char* table : {"ICCreditAmount", "ICCreditQty", "ICCreditDiscount", "SEContract"})
    EXPECT_EQ(Number(Path("shop.db"), std::string("SELECT count(*) FROM ") + table), 0) << table;
}

}  // namespace
}  // namespace salerpt::accountset
