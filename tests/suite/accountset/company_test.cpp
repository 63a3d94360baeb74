// The made-up company: its master data hang together.
#include <gtest/gtest.h>

#include "made_company.h"

namespace salerpt::accountset {
namespace {

using CompanyTest = MadeCompanyTest;

TEST_F(CompanyTest, PutsEveryRowOfATreeUnderAClassOfItsCodeAndLevel) {
  EXPECT_EQ(Count("t_Item i LEFT JOIN t_Item p ON p.FItemID=i.FParentID WHERE i.FParentID<>0 AND (p.FItemID "
                  "IS NULL OR "
                  "p.FDetail<>0 OR p.FItemClassID<>i.FItemClassID OR i.FLevel<>p.FLevel+1 OR "
                  "i.FNumber<>p.FNumber||'.'||i.FShortNumber)"),
            0);
  EXPECT_EQ(Count("t_Item WHERE FParentID=0 AND (FLevel<>1 OR FDetail<>0 OR FNumber<>FShortNumber)"), 0);
  EXPECT_EQ(Count("t_Item WHERE FNumber<>FFullNumber"), 0);
}

TEST_F(CompanyTest, GivesEveryCodeOnceInItsClass) {
  EXPECT_EQ(Count("(SELECT 1 FROM t_Item GROUP BY FItemClassID,FNumber HAVING count(*)>1)"), 0);
  EXPECT_EQ(
      Count("(SELECT 1 FROM t_Item WHERE FDetail=1 GROUP BY FItemClassID,FShortNumber HAVING count(*)>1)"),
      0);
}

TEST_F(CompanyTest, HasItemsAndCustomersOnThreeLevelsAndMore) {
  EXPECT_GT(Count("t_Item WHERE FItemClassID=4 AND FDetail=1 AND FLevel=3"), 10);
  EXPECT_GT(Count("t_Item WHERE FItemClassID=4 AND FDetail=1 AND FLevel=4"), 10);
  EXPECT_GT(Count("t_Item WHERE FItemClassID=1 AND FDetail=1 AND FLevel=3"), 10);
  EXPECT_GT(Count("t_Item WHERE FItemClassID=1 AND FDetail=1 AND FLevel=4"), 10);
  EXPECT_EQ(Count("t_Item WHERE FItemClassID IN (1,4) AND FDetail=1 AND FLevel<3"), 0);
}

TEST_F(CompanyTest, KeepsEveryLeafInTheTableOfItsClass) {
  struct Pair {
    int item_class;
    const char* table;
  };
  for (const Pair& pair :
       {Pair{1, "t_Organization"}, Pair{2, "t_Department"}, Pair{3, "t_Emp"}, Pair{4, "t_ICItem"},
        Pair{5, "t_Stock"}, Pair{8, "t_Supplier"}, Pair{10, "t_SonCompany"}, Pair{2014, "t_Fee"}}) {
    const std::string table = pair.table;
    const std::int64_t leaves =
        Count("t_Item WHERE FDetail=1 AND FItemClassID=" + std::to_string(pair.item_class));
    EXPECT_GT(leaves, 0) << table;
    EXPECT_EQ(Count(table), leaves) << table;
    EXPECT_EQ(Count(table + " t JOIN t_Item i USING(FItemID) WHERE i.FNumber=t.FNumber AND "
                            "i.FShortNumber=t.FShortNumber AND i.FName=t.FName AND i.FParentID=t.FParentID"),
              leaves)
        << table;
  }
}

TEST_F(CompanyTest, MeasuresEveryItemInUnitsOfItsGroup) {
  EXPECT_EQ(
      Count("t_ICItem i LEFT JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FUnitID WHERE u.FUnitGroupID IS NOT "
            "i.FUnitGroupID OR u.FStandard<>1 OR u.FCoefficient<>1"),
      0);
  EXPECT_EQ(Count("t_ICItem i LEFT JOIN t_MeasureUnit u ON u.FMeasureUnitID=i.FSaleUnitID WHERE "
                  "u.FUnitGroupID IS NOT "
                  "i.FUnitGroupID"),
            0);
  EXPECT_EQ(Count("(SELECT 1 FROM t_MeasureUnit WHERE FUnitGroupID>0 GROUP BY FUnitGroupID HAVING "
                  "sum(FStandard)<>1)"),
            0);
  EXPECT_GT(Count("t_ICItem WHERE FSaleUnitID<>FUnitID"), 10);
  EXPECT_EQ(Query(Db(), "SELECT FName FROM t_MeasureUnit WHERE FMeasureUnitID=0"), (std::vector<Row>{{"*"}}));
}

TEST_F(CompanyTest, HasItemsOfEveryKindThatReportsTellApart) {
  EXPECT_GT(Count("t_ICItem WHERE FErpClsID=1"), 0);
  EXPECT_GT(Count("t_ICItem WHERE FErpClsID=2"), 0);
  EXPECT_GT(Count("t_ICItem WHERE FErpClsID=4"), 0);
  EXPECT_GT(Count("t_ICItem WHERE FErpClsID=5"), 0);
  EXPECT_GT(Count("t_ICItem WHERE FModel IS NULL"), 0);
  EXPECT_GT(Count("t_ICItem WHERE FSecUnitID=0"), 0);
  EXPECT_GT(Count("t_ICItem WHERE FSecUnitID>0 AND FSecCoefficient>0"), 0);
  EXPECT_GT(Count("t_ICItem WHERE FBatchManager=1"), 0);
  EXPECT_GT(Count("t_ICItem WHERE FAuxClassID>0"), 0);
}

TEST_F(CompanyTest, GivesWhatIsMadeABillOfMaterial) {
  EXPECT_EQ(Count("t_ICItem i LEFT JOIN ICBOM b USING(FItemID) WHERE (i.FErpClsID IN (2,5)) <> (b.FInterID "
                  "IS NOT NULL)"),
            0);
  EXPECT_EQ(Count("ICBOM b LEFT JOIN ICBOMChild c USING(FInterID) WHERE c.FInterID IS NULL"), 0);
  EXPECT_EQ(Count("ICBOMChild c LEFT JOIN t_ICItem i USING(FItemID) WHERE i.FItemID IS NULL"), 0);
}

TEST_F(CompanyTest, ListsTheLoginUserWithMostCustomersButNotAll) {
  const std::int64_t all = Count("t_Organization");
  const std::int64_t seen = Count("t_Organization WHERE instr(FRightUserID,'16394')>0");
  const std::int64_t narrow = Count("t_Organization WHERE instr(FRightUserID,'16395')>0");
  EXPECT_GT(seen, all * 85 / 100);
  EXPECT_LT(seen, all);
  EXPECT_GT(narrow, all * 30 / 100);
  EXPECT_LT(narrow, all * 80 / 100);
}

TEST_F(CompanyTest, HasCurrenciesWithRatesAndScales) {
  EXPECT_EQ(Query(Db(), "SELECT FCurrencyID,FNumber,FExchangeRate,FScale FROM t_Currency ORDER BY 1"),
            (std::vector<Row>{{"1", "RMB", "1.0", "2"},
                              {"2", "USD", "6.8712", "2"},
                              {"3", "EUR", "7.4385", "2"},
                              {"4", "HKD", "0.8765", "2"},
                              {"5", "JPY", "0.0512", "0"}}));
}

TEST_F(CompanyTest, HasRealAndVirtualStocks) {
  EXPECT_EQ(Count("t_Stock WHERE FTypeID=500"), 4);
  EXPECT_EQ(Count("t_Stock WHERE FTypeID IN (501,502,503)"), 3);
}

}  // namespace
}  // namespace salerpt::accountset
