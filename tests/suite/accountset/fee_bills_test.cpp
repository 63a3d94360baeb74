// The fee invoices of the made-up company, and its consigned goods: they have what the lists tell apart.
#include <gtest/gtest.h>

#include "made_company.h"

namespace salerpt::accountset {
namespace {

using FeeBillsTest = MadeCompanyTest;

TEST_F(FeeBillsTest, StandOnBothSidesInEveryState) {
  for (const char* side : {"FTranType=78 AND FSupplyID>0 AND FCustID=0 AND FPOStyle>0 AND FSaleStyle=0",
                           "FTranType=79 AND FSupplyID=0 AND FCustID>0 AND FPOStyle=0 AND FSaleStyle>0"}) {
    for (const char* state : {"FStatus=0", "FStatus>0", "FCancelLation=1", "FHookStatus=0", "FHookStatus=1",
                              "FHookStatus=2", "FROB=1", "FROB=-1"}) {
      EXPECT_GT(Count(std::string("ICFeeInvoice WHERE ") + side + " AND " + state), 0) << side << state;
    }
  }
}

TEST_F(FeeBillsTest, AreHookedOnlyWhereTheyAreAuditedAndValid) {
  EXPECT_EQ(Count("ICFeeInvoice WHERE FHookStatus>0 AND (FStatus=0 OR FCancelLation=1)"), 0);
}

TEST_F(FeeBillsTest, AreNegativeWhereTheyAreRed) {
  EXPECT_EQ(Count("ICFeeInvoice h JOIN ICFeeInvoiceEntry e USING(FInterID) WHERE e.FAuxQty*h.FROB<=0 OR "
                  "e.FStdAmount*h.FROB<=0"),
            0);
}

TEST_F(FeeBillsTest, KeepAmountsThatIncludeTheirTax) {
  EXPECT_EQ(
      Count("ICFeeInvoice h JOIN ICFeeInvoiceEntry e USING(FInterID) JOIN t_Currency c USING(FCurrencyID) "
            "WHERE abs((e.FAmount-e.FTaxAmount)*(100+e.FTaxRate)/100-e.FAmount)>"
            "(CASE c.FScale WHEN 0 THEN 1.1 ELSE 0.011 END)"),
      0);
  EXPECT_GT(Count("ICFeeInvoiceEntry WHERE FTaxRate=0"), 0);
  EXPECT_GT(Count("ICFeeInvoiceEntry WHERE FTaxRate>0"), 0);
}

TEST_F(FeeBillsTest, AreInTheCurrencyOfTheCustomer) {
  EXPECT_EQ(Count("ICFeeInvoice h LEFT JOIN t_Organization o ON o.FItemID=h.FCustID WHERE "
                  "h.FCurrencyID<>ifnull(o.FCyID,1)"),
            0);
  EXPECT_GT(Count("ICFeeInvoice WHERE FCurrencyID>1"), 0);
  EXPECT_EQ(Count("ICFeeInvoice h JOIN ICFeeInvoiceEntry e USING(FInterID) WHERE "
                  "abs(e.FStdAmount-e.FAmount*h.FExchangeRate)>0.02"),
            0);
}

TEST_F(FeeBillsTest, NameTheItemThatTheFeeWasPaidForAsARule) {
  EXPECT_GT(Count("ICFeeInvoiceEntry e JOIN t_ICItem i ON i.FItemID=e.FICItemID"), 20);
  EXPECT_GT(Count("ICFeeInvoiceEntry WHERE FICItemID=0"), 5);
  EXPECT_EQ(Count("ICFeeInvoiceEntry e LEFT JOIN t_ICItem i ON i.FItemID=e.FICItemID WHERE e.FICItemID>0 AND "
                  "i.FItemID IS NULL"),
            0);
}

TEST_F(FeeBillsTest, UseFeesOnTwoLevelsOfClasses) {
  EXPECT_EQ(Count("t_Item WHERE FItemClassID=2014 AND FDetail=0 AND FLevel=2"), 1);
  EXPECT_GT(
      Count("ICFeeInvoiceEntry e JOIN t_Item i USING(FItemID) WHERE i.FItemClassID=2014 AND i.FLevel=3"), 0);
}

TEST_F(FeeBillsTest, StandBesideConsignedAndInstalmentGoodsInEveryState) {
  for (const char* style : {"102", "103"}) {
    for (const char* state : {"FStatus=0 AND FCancelLation=0", "FStatus>0", "FCancelLation=1",
                              "FHookStatus=0", "FHookStatus=1", "FHookStatus=2"}) {
      EXPECT_GT(
          Count(std::string("ICStockBill WHERE FTranType=21 AND FSaleStyle=") + style + " AND " + state), 0)
          << style << state;
    }
    const std::string lines = std::string(
                                  "ICStockBill h JOIN ICStockBillEntry e USING(FInterID) LEFT JOIN "
                                  "t_Stock s ON s.FItemID=e.FDCStockID WHERE h.FTranType=21 AND "
                                  "h.FSaleStyle=") +
                              style;
    EXPECT_GT(Count(lines + " AND e.FBatchNo<>''"), 0) << style;
    EXPECT_GT(Count(lines + " AND e.FBatchNo=''"), 0) << style;
    // Settled in a later month than they were sent.
    EXPECT_GT(
        Count("ICSale i JOIN ICSaleEntry e USING(FInterID) JOIN ICStockBill h ON e.FSourceTranType=21 AND "
              "h.FInterID=e.FSourceInterID WHERE substr(i.FDate,1,7)>substr(h.FDate,1,7) AND "
              "h.FSaleStyle=" +
              std::string(style)),
        0)
        << style;
  }
  EXPECT_GT(
      Count("ICStockBill h JOIN ICStockBillEntry e USING(FInterID) JOIN t_Stock s ON s.FItemID=e.FDCStockID "
            "WHERE h.FTranType=21 AND h.FSaleStyle IN (102,103) AND s.FTypeID<>500"),
      0);
}

}  // namespace
}  // namespace salerpt::accountset
