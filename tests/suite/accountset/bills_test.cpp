// The bills of the made-up company: figures that belong together agree.
#include <gtest/gtest.h>

#include "made_company.h"

namespace salerpt::accountset {
namespace {

using BillsTest = MadeCompanyTest;

// True in SQL for two decimals that are not the same.
#define DIFFERS(a, b) "abs((" a ")-(" b "))>=0.00001"

TEST_F(BillsTest, HasBillsOfEveryKind) {
  for (const char* from : {"SEOrder",
                           "POOrder",
                           "ICMO",
                           "ICStockBill WHERE FTranType=1",
                           "ICStockBill WHERE FTranType=2",
                           "ICStockBill WHERE FTranType=24",
                           "ICStockBill WHERE FTranType=21 AND FROB=1",
                           "ICStockBill WHERE FTranType=21 AND FROB=-1",
                           "ICSale WHERE FTranType=80 AND FROB=1",
                           "ICSale WHERE FTranType=86 AND FROB=1",
                           "ICSale WHERE FROB=-1",
                           "ICPurchase WHERE FTranType=75",
                           "ICPurchase WHERE FTranType=76",
                           "ICPurchase WHERE FPOStyle=20300",
                           "ICFeeInvoice WHERE FSupplyID>0",
                           "ICFeeInvoice WHERE FCustID>0",
                           "ICStockBill WHERE FSaleStyle=102",
                           "ICStockBill WHERE FSaleStyle=103",
                           "ICStockBill WHERE FTranType=21 AND FStatus=0",
                           "ICStockBill WHERE FCancelLation=1",
                           "ICSale WHERE FStatus=0",
                           "ICSale WHERE FCancelLation=1",
                           "SEOrder WHERE FStatus=0",
                           "SEOrder WHERE FStatus=3",
                           "SEOrder WHERE FAreaPS=20303",
                           "SEOrder WHERE FRelateBrID>0",
                           "ICSale WHERE FHookStatus=0",
                           "ICSale WHERE FHookStatus=1",
                           "ICSale WHERE FHookStatus=2",
                           "ICInventory",
                           "t_Voucher"}) {
    EXPECT_GT(Count(from), 0) << from;
  }
}

TEST_F(BillsTest, CoversThirtyMonths) {
  EXPECT_EQ(Count("(SELECT DISTINCT substr(FDate,1,7) FROM ICSale)"), 30);
  EXPECT_EQ(Count("(SELECT DISTINCT substr(FDate,1,7) FROM ICStockBill WHERE FTranType=21)"), 30);
  EXPECT_EQ(Count("ICSale WHERE FDate<'2023-01-01' OR FDate>='2025-07-01'"), 0);
}

TEST_F(BillsTest, GivesEveryBillLinesAndEveryLineABill) {
  for (const char* head : {"SEOrder", "ICStockBill", "ICSale", "POOrder", "ICPurchase", "ICFeeInvoice"}) {
    const std::string name = head;
    EXPECT_EQ(Count(name + " h LEFT JOIN " + name + "Entry e USING(FInterID) WHERE e.FInterID IS NULL"), 0)
        << head;
    EXPECT_EQ(Count(name + "Entry e LEFT JOIN " + name + " h USING(FInterID) WHERE h.FInterID IS NULL"), 0)
        << head;
    EXPECT_EQ(Count("(SELECT 1 FROM " + name + "Entry GROUP BY FInterID HAVING max(FEntryID)<>count(*))"), 0)
        << head;
    EXPECT_EQ(Count("(SELECT 1 FROM " + name + " GROUP BY FBillNo HAVING count(*)>1)"), 0) << head;
  }
}

TEST_F(BillsTest, PointsToMasterDataThatExist) {
  EXPECT_EQ(Count("ICSale h LEFT JOIN t_Organization o ON o.FItemID=h.FCustID WHERE o.FItemID IS NULL"), 0);
  EXPECT_EQ(Count("ICStockBill h LEFT JOIN t_Organization o ON o.FItemID=h.FSupplyID WHERE h.FTranType=21 "
                  "AND o.FItemID "
                  "IS NULL"),
            0);
  EXPECT_EQ(Count("ICStockBill h LEFT JOIN t_Supplier o ON o.FItemID=h.FSupplyID WHERE h.FTranType=1 AND "
                  "o.FItemID IS "
                  "NULL"),
            0);
  EXPECT_EQ(Count("ICSale h LEFT JOIN t_Emp e ON e.FItemID=h.FEmpID LEFT JOIN t_Department d ON "
                  "d.FItemID=h.FDeptID WHERE "
                  "e.FItemID IS NULL OR d.FItemID IS NULL OR e.FDepartmentID<>d.FItemID"),
            0);
  EXPECT_EQ(Count("ICSale h LEFT JOIN t_SubMessage s ON s.FInterID=h.FSaleStyle AND s.FTypeID=101 WHERE "
                  "s.FInterID IS "
                  "NULL"),
            0);
  for (const char* table :
       {"SEOrderEntry", "ICStockBillEntry", "ICSaleEntry", "POOrderEntry", "ICPurchaseEntry"}) {
    EXPECT_EQ(Count(std::string(table) +
                    " e LEFT JOIN t_ICItem i USING(FItemID) LEFT JOIN t_MeasureUnit u ON "
                    "u.FMeasureUnitID=e.FUnitID WHERE i.FItemID IS NULL OR u.FUnitGroupID IS NOT "
                    "i.FUnitGroupID"),
              0)
        << table;
  }
}

TEST_F(BillsTest, AgreesOnQuantitiesInBothUnits) {
  for (const char* table : {"SEOrderEntry", "ICStockBillEntry", "ICSaleEntry", "ICPurchaseEntry"}) {
    EXPECT_EQ(Count(std::string(table) + " e JOIN t_MeasureUnit u ON u.FMeasureUnitID=e.FUnitID WHERE " +
                    DIFFERS("e.FAuxQty*u.FCoefficient", "e.FQty")),
              0)
        << table;
  }
}

TEST_F(BillsTest, MakesRedBillsNegativeAndBlueOnesPositive) {
  EXPECT_EQ(Count("ICStockBill h JOIN ICStockBillEntry e USING(FInterID) WHERE e.FQty*h.FROB<=0 OR "
                  "e.FAmount*h.FROB<0"),
            0);
  EXPECT_EQ(Count("ICSale h JOIN ICSaleEntry e USING(FInterID) WHERE e.FQty*h.FROB<=0 OR e.FAmount*h.FROB<0"),
            0);
}

TEST_F(BillsTest, CountsWhatWasDeliveredOfAnOrderLine) {
  EXPECT_EQ(
      Count("SEOrderEntry o LEFT JOIN (SELECT e.FOrderInterID i,e.FOrderEntryID n,sum(e.FQty) q FROM "
            "ICStockBillEntry e JOIN ICStockBill h USING(FInterID) WHERE h.FTranType=21 GROUP BY 1,2) d ON "
            "d.i=o.FInterID AND d.n=o.FEntryID WHERE " DIFFERS("o.FCommitQty", "ifnull(d.q,0)")),
      0);
  EXPECT_EQ(Count("SEOrderEntry WHERE FCommitQty>FQty OR FCommitQty<0"), 0);
  EXPECT_GT(Count("SEOrderEntry WHERE FCommitQty>0 AND FCommitQty<FQty"), 0);
}

TEST_F(BillsTest, DeliversOrderedItemsToTheOrderingCustomer) {
  EXPECT_EQ(
      Count(
          "ICStockBillEntry e JOIN ICStockBill h USING(FInterID) JOIN SEOrderEntry o ON "
          "o.FInterID=e.FOrderInterID AND o.FEntryID=e.FOrderEntryID JOIN SEOrder s ON s.FInterID=o.FInterID "
          "WHERE h.FTranType=21 AND (o.FItemID<>e.FItemID OR o.FUnitID<>e.FUnitID OR h.FSupplyID<>s.FCustID "
          "OR "
          "h.FDate<s.FDate OR e.FOrderBillNo<>s.FBillNo OR h.FSaleStyle<>s.FSaleStyle)"),
      0);
}

TEST_F(BillsTest, CountsWhatWasInvoicedOfAnOrderLine) {
  EXPECT_EQ(Count("SEOrderEntry o LEFT JOIN (SELECT FOrderInterID i,FOrderEntryID n,sum(FQty) "
                  "q,sum(FReceiveAmount) r FROM "
                  "ICSaleEntry GROUP BY 1,2) d ON d.i=o.FInterID AND d.n=o.FEntryID WHERE " DIFFERS(
                      "o.FInvoiceQty", "ifnull(d.q,0)") " OR " DIFFERS("o.FReceiveAmount", "ifnull(d.r,0)")),
            0);
}

TEST_F(BillsTest, HooksInvoiceLinesToTheOutboundLinesThatTheySettle) {
  EXPECT_EQ(
      Count("ICStockBillEntry o JOIN ICStockBill h USING(FInterID) LEFT JOIN (SELECT FSourceInterID "
            "i,FSourceEntryID "
            "n,sum(FQty) q,sum(FAllHookQTY) k FROM ICSaleEntry WHERE FSourceTranType=21 GROUP BY 1,2) d ON "
            "d.i=o.FInterID AND d.n=o.FEntryID WHERE h.FTranType=21 AND (" DIFFERS(
                "o.FQtyInvoice", "ifnull(d.q,0)") " OR " DIFFERS("o.FAllHookQTY", "ifnull(d.k,0)") ")"),
      0);
  EXPECT_EQ(Count("ICStockBillEntry WHERE abs(FQtyInvoice)>abs(FQty)+0.00001 OR "
                  "abs(FAllHookQTY)>abs(FQtyInvoice)+0.00001"),
            0);
  EXPECT_EQ(Count("ICSaleEntry e JOIN ICStockBillEntry o ON o.FInterID=e.FSourceInterID AND "
                  "o.FEntryID=e.FSourceEntryID "
                  "WHERE e.FSourceTranType=21 AND (o.FItemID<>e.FItemID OR o.FBatchNo<>e.FBatchNo)"),
            0);
}

TEST_F(BillsTest, HooksTheAmountThatBelongsToTheQuantity) {
  EXPECT_EQ(Count("ICSaleEntry e JOIN ICSale h USING(FInterID) WHERE e.FAllHookQTY=e.FQty AND "
                  "abs(e.FAllHookAmount-(CASE "
                  "h.FTranType WHEN 80 THEN e.FStdAmount ELSE e.FStdAmount-e.FStdTaxAmount END))>0.00001"),
            0);
  EXPECT_EQ(Count("ICSaleEntry WHERE FAllHookQTY=0 AND FAllHookAmount<>0"), 0);
}

TEST_F(BillsTest, MarksBillsByWhatOfThemIsHooked) {
  for (const char* head : {"ICStockBill", "ICSale"}) {
    const std::string name = head;
    const std::string state =
        "CASE WHEN sum(e.FAllHookQTY<>0)=0 THEN 0 WHEN sum(e.FAllHookQTY<>e.FQty)=0 THEN 2 ELSE 1 END";
    EXPECT_EQ(Count("(SELECT 1 FROM " + name + " h JOIN " + name +
                    "Entry e USING(FInterID) GROUP BY h.FInterID HAVING "
                    "h.FHookStatus<>" +
                    state + ")"),
              0)
        << head;
  }
  EXPECT_EQ(Count("ICSale WHERE FHookStatus>0 AND (FStatus=0 OR FCancelLation=1)"), 0);
}

TEST_F(BillsTest, KeepsAmountsWithoutTaxOnSpecialInvoicesAndWithTaxOnPlainOnes) {
  EXPECT_EQ(Count("ICSaleEntry e JOIN ICSale h USING(FInterID) JOIN t_Currency c USING(FCurrencyID) WHERE "
                  "abs((CASE h.FTranType WHEN 80 THEN e.FAmount ELSE e.FAmount-e.FTaxAmount "
                  "END)-e.FAuxQty*e.FAuxPrice)>"
                  "(CASE c.FScale WHEN 0 THEN 0.50001 ELSE 0.00501 END)"),
            0);
  EXPECT_EQ(Count("ICSaleEntry e JOIN ICSale h USING(FInterID) WHERE "
                  "abs((CASE h.FTranType WHEN 80 THEN e.FStdAmount ELSE e.FStdAmount-e.FStdTaxAmount END)-"
                  "(CASE h.FTranType WHEN 80 THEN e.FAmount ELSE e.FAmount-e.FTaxAmount "
                  "END)*h.FExchangeRate)>0.00501"),
            0);
}

TEST_F(BillsTest, ValuesOutboundLinesAtCostAndAtTheSalePrice) {
  EXPECT_EQ(Count("ICStockBillEntry e JOIN ICStockBill h USING(FInterID) JOIN t_ICItem i USING(FItemID) "
                  "WHERE h.FTranType=21 "
                  "AND abs(e.FAmount-e.FQty*i.FStockPrice)>0.00501"),
            0);
  // In base currency, whatever currency the invoice has later.
  EXPECT_EQ(
      Count("ICStockBillEntry e JOIN ICStockBill h USING(FInterID) JOIN t_Organization o ON "
            "o.FItemID=h.FSupplyID "
            "WHERE h.FTranType=21 AND o.FCyID=1 AND abs(e.FConsignAmount-e.FAuxQty*e.FConsignPrice)>0.00501"),
      0);
}

TEST_F(BillsTest, AddsUpTheAmountsOfAnOrderLine) {
  EXPECT_EQ(Count("SEOrderEntry WHERE " DIFFERS("FAmount+FTaxAmount", "FAllAmount")), 0);
}

TEST_F(BillsTest, BillsInTheCurrencyOfTheCustomerWithItsDecimals) {
  EXPECT_EQ(Count("ICSale h JOIN t_Organization o ON o.FItemID=h.FCustID WHERE h.FCurrencyID<>o.FCyID"), 0);
  EXPECT_EQ(Count("ICSale WHERE FCurrencyID=1 AND FExchangeRate<>1"), 0);
  EXPECT_GT(Count("(SELECT DISTINCT FCurrencyID FROM ICSale)"), 3);
  EXPECT_EQ(Count("ICSaleEntry e JOIN ICSale h USING(FInterID) WHERE h.FCurrencyID=5 AND "
                  "(e.FAmount<>round(e.FAmount) OR e.FTaxAmount<>round(e.FTaxAmount))"),
            0);
}

TEST_F(BillsTest, SettlesStraightSalesWithoutOutboundBillsAgainstPurchases) {
  EXPECT_EQ(Count("ICStockBill WHERE FSaleStyle=20296"), 0);
  EXPECT_GT(Count("ICSale WHERE FSaleStyle=20296"), 0);
  EXPECT_EQ(Count("ICSale"
                  " WHERE FSaleStyle=20296"),
            Count("ICPurchase WHERE FPOStyle=20300"));
  EXPECT_EQ(Count("SEOrder WHERE FSaleStyle=20298"), 0);
}

TEST_F(BillsTest, TiesProductionToTheOrderLine) {
  EXPECT_EQ(Count("ICMO m LEFT JOIN SEOrderEntry o ON o.FInterID=m.FOrderInterID AND "
                  "o.FEntryID=m.FSourceEntryID WHERE "
                  "o.FItemID IS NULL OR o.FItemID<>m.FItemID OR m.FStockQty>m.FQty"),
            0);
  EXPECT_EQ(Count("ICMO m LEFT JOIN (SELECT e.FICMOInterID i,sum(e.FQty) q FROM ICStockBillEntry e JOIN "
                  "ICStockBill h "
                  "USING(FInterID) WHERE h.FTranType=2 GROUP BY 1) r ON r.i=m.FInterID WHERE " DIFFERS(
                      "m.FStockQty", "ifnull(r.q,0)")),
            0);
  EXPECT_EQ(Count("ICStockBillEntry e JOIN ICStockBill h USING(FInterID) LEFT JOIN ICMO m ON "
                  "m.FInterID=e.FICMOInterID WHERE "
                  "h.FTranType IN (2,24) AND m.FInterID IS NULL"),
            0);
}

TEST_F(BillsTest, CountsWhatWasReceivedOfAPurchaseOrderLine) {
  EXPECT_EQ(
      Count("POOrderEntry o LEFT JOIN (SELECT FSourceInterID i,FSourceEntryID n,sum(FQty) q FROM "
            "ICStockBillEntry "
            "WHERE FSourceTranType=71 GROUP BY 1,2) d ON d.i=o.FInterID AND d.n=o.FEntryID WHERE " DIFFERS(
                "o.FCommitQty", "ifnull(d.q,0)") " OR o.FCommitQty>o.FQty"),
      0);
}

TEST_F(BillsTest, GivesBatchesToItemsThatHaveThemAndToNoOthers) {
  EXPECT_EQ(
      Count("ICStockBillEntry e JOIN t_ICItem i USING(FItemID) WHERE (e.FBatchNo<>'')<>i.FBatchManager"), 0);
}

TEST_F(BillsTest, GivesAuxiliaryPropertiesOfTheClassOfTheItem) {
  EXPECT_EQ(Count("ICSaleEntry e JOIN t_ICItem i USING(FItemID) LEFT JOIN t_AuxItem a ON "
                  "a.FItemID=e.FAuxPropID WHERE "
                  "ifnull(a.FItemClassID,0)<>i.FAuxClassID"),
            0);
}

TEST_F(BillsTest, BooksAuditedInvoicesUnderVouchersOfTheirDay) {
  EXPECT_EQ(Count("ICSale h LEFT JOIN t_Voucher v ON v.FVoucherID=h.FVchInterID WHERE (h.FStatus>0 AND "
                  "h.FCancelLation=0)<>"
                  "(v.FVoucherID IS NOT NULL) OR v.FDate<>h.FDate"),
            0);
  EXPECT_EQ(Count("(SELECT 1 FROM t_Voucher GROUP BY FYear,FPeriod HAVING max(FNumber)<>count(*))"), 0);
}

TEST_F(BillsTest, SellsAFewItemsOften) {
  // The tenth of the items that sells best makes more than a quarter of the lines.
  EXPECT_GT(
      Number(Db(),
             "SELECT 100*sum(n)/(SELECT count(*) FROM ICSaleEntry) FROM (SELECT count(*) n FROM ICSaleEntry "
             "GROUP BY FItemID ORDER BY n DESC LIMIT (SELECT count(DISTINCT FItemID)/10 FROM ICSaleEntry))"),
      25);
}

TEST_F(BillsTest, HasReturnsOfAFewPerCent) {
  const std::int64_t all = Count("ICStockBill WHERE FTranType=21");
  const std::int64_t red = Count("ICStockBill WHERE FTranType=21 AND FROB=-1");
  EXPECT_GT(red * 100, all);
  EXPECT_LT(red * 100, all * 8);
}

TEST(SmallestCompany, HasOrdersOfEverySaleStyle) {
  class Folder : public FolderTest {
    void TestBody() override {}

   public:
    using FolderTest::Path;
  };
  const Folder folder;
  Create(folder.Path("a.db"), {5, 100});
  EXPECT_EQ(Query(folder.Path("a.db"), "SELECT DISTINCT FSaleStyle FROM SEOrder ORDER BY 1"),
            (std::vector<Row>{{"100"}, {"101"}, {"102"}, {"103"}, {"20296"}}));
}

}  // namespace
}  // namespace salerpt::accountset
