// Growth, flow and structure of sales: the frames filled, rows and ratios by hand.
#include "suite/middletier/sales_analysis.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Bolts and nuts are of one class, rings, a service, of another. Bolts come in red and blue and in boxes of
// twelve. March of 2024: 1 sold, 2 in dollars with tax, on the last evening, 3 sent back; 4 and 5 are those
// of March 2023, 6 to 9 lie a day outside of either; 10 is not audited, 11 cancelled, 12 no invoice of the
// two kinds.
constexpr const char* kSales = R"sql(
DELETE FROM ICSale; DELETE FROM ICSaleEntry;
INSERT INTO t_SubMessage(FInterID,FTypeID,FName) VALUES (10,1,'华东'),(11,1,'华南'),(101,101,'赊销'),(102,101,'分期');
UPDATE t_Organization SET FRegionID=CASE FItemID WHEN 201 THEN 10 WHEN 202 THEN 11 ELSE 0 END;
INSERT INTO t_Item(FItemID,FItemClassID,FLevel,FDetail,FNumber,FFullNumber,FShortNumber,FName)
  VALUES (51,4,1,0,'01','01','01','紧固件'),(52,4,1,0,'02','02','02','密封件');
UPDATE t_ICItem SET FParentID=51 WHERE FItemID IN (101,102);
UPDATE t_ICItem SET FParentID=52,FErpClsID=4 WHERE FItemID=103;
UPDATE t_ICItem SET FCUUnitID=2 WHERE FItemID=101;
DELETE FROM t_AuxItem;
INSERT INTO t_AuxItem(FItemID,FNumber,FName) VALUES (1,'02','红'),(2,'01','蓝');
INSERT INTO ICSale(FInterID,FTranType,FBillNo,FDate,FCustID,FCurrencyID,FExchangeRate,FSaleStyle,FROB,FStatus,FCancelLation)
  VALUES (1,80,'A1','2024-03-01 00:00:00',201,1,1,101,1,1,0),(2,86,'A2','2024-03-31 18:30:00',202,2,7,102,1,1,0),
         (3,80,'A3','2024-03-15 00:00:00',201,1,1,101,-1,3,0),(4,80,'A4','2023-03-31 23:59:59',201,1,1,101,1,1,0),
         (5,80,'A5','2023-03-01 00:00:00',203,1,1,101,1,1,0),(6,80,'A6','2024-02-29 00:00:00',201,1,1,101,1,1,0),
         (7,80,'A7','2024-04-01 00:00:00',201,1,1,101,1,1,0),(8,80,'A8','2023-02-28 23:59:00',201,1,1,101,1,1,0),
         (9,80,'A9','2023-04-01 00:00:00',201,1,1,101,1,1,0),(10,80,'A10','2024-03-10 00:00:00',203,1,1,101,1,0,0),
         (11,80,'A11','2024-03-10 00:00:00',201,1,1,101,1,1,1),(12,79,'A12','2024-03-10 00:00:00',201,1,1,101,1,1,0);
INSERT INTO ICSaleEntry(FInterID,FEntryID,FItemID,FAuxPropID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FAmount,FTaxAmount,
    FStdAmount,FStdTaxAmount)
  VALUES (1,1,101,1,1,24,24,10,10,240,40.8,240,40.8),(1,2,101,2,1,12,12,10,10,130,22.1,130,22.1),
         (1,3,102,0,1,4,4,2.5,2.5,10.126,1.72,10.126,1.72),(2,1,101,1,1,6,6,2.4,2.4,16.7142,2.4286,117,17),
         (3,1,101,1,1,-12,-12,10,10,-120,-20.4,-120,-20.4),(4,1,101,1,1,12,12,8.3,8.3,100,17,100,17),
         (5,1,103,0,3,5,5,10,10,50,8.5,50,8.5),(6,1,102,0,1,1,1,1000,1000,1000,170,1000,170),
         (7,1,102,0,1,1,1,1000,1000,1000,170,1000,170),(8,1,102,0,1,1,1,1000,1000,1000,170,1000,170),
         (9,1,102,0,1,1,1,1000,1000,1000,170,1000,170),(10,1,102,0,1,1,1,7,7,7,1.19,7,1.19),
         (11,1,102,0,1,1,1,9,9,9,1.53,9,1.53),(12,1,102,0,1,1,1,6,6,6,1.02,6,1.02);
)sql";

// The frames as the reports send them.
constexpr const char* kListFrame =
    "SET NOCOUNT ON\r\n\r\nCREATE TABLE #DATA(\r\n\r\n  INSERT INTO #DATA  \r\n Select ";
constexpr const char* kListEnd =
    "SELECT * FROM #DATA  \r\n Order by FSumSort,FDate,FNumber,Fentryid \r\nDROP TABLE #DATA  \r\n";
constexpr const char* kRegionFrame =
    "SET NOCOUNT ON\r\n\r\nCREATE TABLE #DATA(\r\n  FProp1011 varchar(355) null,\r\n\r\n"
    "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING( tt2.FName)=1 THEN '合计' \r\n"
    " WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355), tt2.FName)+'(小计)' \r\n"
    " ELSE CONVERT(varchar(355), tt2.FName) END, \r\n t1.FNumber, \r\n\r\n"
    " CASE WHEN GROUPING( tt2.FName)=1 THEN 101\r\n WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END "
    " Left Join t_SubMessage tt2 On FRegionID=tt2.FInterID\r\n";
constexpr const char* kRegionGroups = " GROUP BY  tt2.FName,t1.FNumber WITH ROLLUP ";
constexpr const char* kGroupEnd = "SELECT * FROM #DATA  \r\nDROP TABLE #DATA  \r\n";

class SalesAnalysisTest : public OrderCompanyTest, public testing::WithParamInterface<KeyCase> {
 protected:
  SalesAnalysisTest() { Sql(kSales); }
  // Of March 2024, as period and as days.
  static DictionaryRef List(std::initializer_list<Dictionary::Entry> chosen = {}) {
    const DictionaryRef request = March({{"BYear", 2024}, {"BPeriod", 3}});
    for (const auto& [key, value] : chosen) request->Set(key, value);
    request->Set("Select", kListFrame);
    request->Set("GROUPBY", "");
    request->Set("EndSel", kListEnd);
    return request;
  }
  static DictionaryRef ByRegion(std::initializer_list<Dictionary::Entry> chosen = {}) {
    const DictionaryRef request = List(chosen);
    request->Set("Select", kRegionFrame);
    request->Set("GROUPBY", kRegionGroups);
    request->Set("EndSel", kGroupEnd);
    return request;
  }
};

// --- Growth

TEST_F(SalesAnalysisTest, ItemsOfEitherPeriodStandBesideLastYear) {
  const RecordsetRef rows = Rows("GetRpt140Data", List());
  EXPECT_THAT(Table(rows, {"FNumber", "FShortNumber", "FName", "FModel", "FUnitName", "FCUUnitName",
                           "FQtyDecimal", "FAuxPropName", "FNote", "FSumSort"}),
              ElementsAre("01.01|9|螺栓|M8|件|箱|0|||0", "01.02|5|螺母||件|件|3|||0",
                          "01.03|7|O'Ring|R-5|千克|千克|1|||0", "合计|合计|||||4|||101"));
  EXPECT_THAT(Table(rows, {"FThisQty", "FCUUnitThisQty", "FLastQty", "FCUUnitLastQty", "FQtyAddCent"}),
              ElementsAre("30|2.5|12|1|150", "4|4|0|0|", "0|0|5|5|-100", "34|6.5|17|6|100"));
  EXPECT_THAT(Table(rows, {"FThisAmount", "FLastAmount", "FAmountAddCent"}),
              ElementsAre("350|100|250", "10.13|0|", "0|50|-100", "360.13|150|140.0866666667"));
}

TEST_F(SalesAnalysisTest, EachPropertyOfAnItemHasARow) {
  EXPECT_THAT(
      Table(Rows("GetRpt140Data", List({{"AuxProp", 1}})),
            {"FNumber", "FAuxPropName", "FThisQty", "FLastQty", "FThisAmount", "FLastAmount", "FQtyAddCent"}),
      ElementsAre("01.01|蓝|12|0|130|0|", "01.01|红|18|12|220|100|50", "01.02||4|0|10.13|0|",
                  "01.03||0|5|0|50|-100", "合计||34|17|360.13|150|100"));
}

TEST_F(SalesAnalysisTest, DecemberEndsWithTheYearAndFebruaryWithItsLastDay) {
  Sql("UPDATE ICSale SET FDate='2023-12-31 12:00:00' WHERE FInterID=6; UPDATE ICSale SET FDate='2024-01-01 "
      "00:00:00' "
      "WHERE FInterID=7;");
  EXPECT_THAT(
      Table(Rows("GetRpt140Data", List({{"BYear", "2023"}, {"BPeriod", "12"}})), {"FNumber", "FThisQty"}),
      ElementsAre("01.02|1", "合计|1"));
  Sql("UPDATE ICSale SET FDate='2024-02-29 23:00:00' WHERE FInterID=6;");
  EXPECT_THAT(Table(Rows("GetRpt140Data", List({{"BPeriod", 2}})), {"FNumber", "FThisQty", "FLastQty"}),
              ElementsAre("01.02|1|1", "合计|1|1"));
}

TEST_F(SalesAnalysisTest, GroupsAddUpAndGrowByTheirSums) {
  EXPECT_THAT(
      Table(Rows("GetRpt140Data", ByRegion()), {"FProp1011", "FNumber", "FName", "FThisQty", "FCUUnitThisQty",
                                                "FThisAmount", "FLastAmount", "FAmountAddCent", "FSumSort"}),
      testing::UnorderedElementsAre("华东|01.01|螺栓|24|2|250|100|150|0", "华东|01.02|螺母|4|4|10.13|0||0",
                                    "华东(小计)|||28|6|260.13|100|160.13|102",
                                    "华南|01.01|螺栓|6|0.5|100|0||0", "华南(小计)|||6|0.5|100|0||102",
                                    "|01.03|O'Ring|0|0|0|50|-100|0", "|||0|0|0|50|-100|102",
                                    "合计|||34|6.5|360.13|150|140.0866666667|101"));
}

// --- Flow

TEST_F(SalesAnalysisTest, TheFlowHasARowForEachCustomerOfAnItem) {
  const RecordsetRef rows = Rows("GetRpt142Data", List());
  EXPECT_THAT(
      Table(rows, {"FRegionName", "FClassName", "FNumber", "FName", "FModel", "FCustomerName", "FUnitName",
                   "FQty", "FCUUnitName", "FCUUnitQty", "FAmount", "FSumSort"}),
      ElementsAre("华东|紧固件|01.01|螺栓|M8|东风商行|件|24|箱|2|250|0",
                  "华南|紧固件|01.01|螺栓|M8|西岭商行|件|6|箱|0.5|100|0",
                  "华东|紧固件|01.02|螺母||东风商行|件|4|件|4|10.13|0", "合计|||||||34||6.5|360.13|101"));
}

TEST_F(SalesAnalysisTest, TheFlowIsPartedByPropertiesToo) {
  EXPECT_THAT(
      Table(Rows("GetRpt142Data", List({{"AuxProp", 1}, {"BCustNumber", "C.01"}, {"ECustNumber", "C.01"}})),
            {"FNumber", "FCustomerName", "FAuxPropName", "FQty", "FAmount"}),
      ElementsAre("01.01|东风商行|蓝|12|130", "01.01|东风商行|红|12|120", "01.02|东风商行||4|10.13",
                  "|||28|260.13"));
}

TEST_F(SalesAnalysisTest, CustomersOfARegionStandInTheOrderOfTheirCodes) {
  Sql("UPDATE t_Organization SET FRegionID=10");
  EXPECT_THAT(
      Table(Rows("GetRpt142Data", List({{"EItemNumber", "01.01"}})), {"FRegionName", "FCustomerName"}),
      ElementsAre("华东|东风商行", "华东|西岭商行", "合计|"));
}

TEST_F(SalesAnalysisTest, TheFlowKeepsItsCustomersInGroups) {
  EXPECT_THAT(Table(Rows("GetRpt142Data", ByRegion({{"BDate", "2023-03-01"}})),
                    {"FProp1011", "FNumber", "FCustomerName", "FQty", "FSumSort"}),
              testing::IsSupersetOf({"华东|01.01|东风商行|36|0", "华南|01.01|西岭商行|6|0",
                                     "|01.03|南港商行|5|0", "华南(小计)|||6|102"}));
}

// --- Structure

TEST_F(SalesAnalysisTest, AnItemHasItsShareInItsClass) {
  const RecordsetRef rows = Rows("GetRpt143Data", List());
  EXPECT_THAT(Table(rows, {"FNumber", "FClassName", "FName", "FItemModel", "FUnitName", "FCUUnitName",
                           "FThisQty", "FCUUnitThisQty", "FThisAmount"}),
              ElementsAre("01.01|紧固件|螺栓|M8|件|箱|30|2.5|350", "01.02|紧固件|螺母||件|件|4|4|10.13",
                          "01.03|密封件|O'Ring|R-5|千克|千克|0|0|0", "合计||||||34|6.5|360.13"));
  EXPECT_THAT(Table(rows, {"FClassAmountCent", "FLastAmount", "FAmountAddCent"}),
              ElementsAre("97.1871268709|100|250", "2.8128731291|0|", "|50|-100", "100|150|140.0866666667"));
}

TEST_F(SalesAnalysisTest, AShareIsOneOfTheWholeClass) {
  EXPECT_THAT(Table(Rows("GetRpt143Data", List({{"BItemNumber", "01.02"}, {"EItemNumber", "01.02"}})),
                    {"FNumber", "FClassAmountCent"}),
              ElementsAre("01.02|2.8128731291", "合计|2.8128731291"));
  // Of what the user may see, and of the customers asked for.
  EXPECT_THAT(Table(Rows("GetRpt143Data", List({{"ECustNumber", "C.01"}})), {"FNumber", "FClassAmountCent"}),
              ElementsAre("01.01|96.1057932572", "01.02|3.8942067428", "合计|100"));
}

TEST_F(SalesAnalysisTest, ATotalRowCountsEachOfItsClassesOnce) {
  // 100 of rings, beside the 360.13 of bolts and nuts.
  Sql("INSERT INTO ICSale(FInterID,FTranType,FBillNo,FDate,FCustID,FSaleStyle,FStatus) VALUES "
      "(20,80,'B1','2024-03-02 00:00:00',202,101,1); INSERT INTO "
      "ICSaleEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,"
      "FAuxQty,FPrice,FAuxPrice,FAmount,FStdAmount) VALUES (20,1,103,3,1,1,100,100,100,100);");
  EXPECT_THAT(
      Table(Rows("GetRpt143Data", ByRegion()), {"FProp1011", "FNumber", "FThisAmount", "FClassAmountCent"}),
      testing::UnorderedElementsAre("华东|01.01|250|69.4193763363", "华东|01.02|10.13|2.8128731291",
                                    "华东(小计)||260.13|72.2322494655", "华南|01.01|100|27.7677505345",
                                    "华南|01.03|100|100", "华南(小计)||200|43.4659770065", "|01.03|0|0",
                                    "||0|0", "合计||460.13|100"));
}

// --- The filter

TEST_P(SalesAnalysisTest, AKeyLetsItsRowsThrough) {
  const DictionaryRef request = List();
  for (const auto& [key, value] : GetParam().filter) request->Set(key, value);
  for (const auto& [operation, amount] : {std::pair{"GetRpt140Data", "FThisAmount"},
                                          {"GetRpt142Data", "FAmount"},
                                          {"GetRpt143Data", "FThisAmount"}}) {
    const RecordsetRef rows = Rows(operation, request);
    std::vector<std::string> lines;
    for (; !rows->Eof(); rows->MoveNext()) {
      if (rows->Value("FSumSort").ToInt32() == 101 && rows->Value(amount).ToDouble() != 0)
        lines.push_back(rows->Value(amount).ToText());
    }
    EXPECT_EQ(lines, GetParam().lines) << operation;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Keys, SalesAnalysisTest,
    testing::Values(KeyCase{"nothing", {}, {"360.13"}}, KeyCase{"notAudited", {{"CheckState", 1}}, {"7"}},
                    KeyCase{"allStates", {{"CheckState", 2}}, {"367.13"}},
                    KeyCase{"fromItem", {{"BItemNumber", "01.02"}}, {"10.13"}},
                    KeyCase{"toItem", {{"EItemNumber", "01.01"}}, {"350"}},
                    KeyCase{"shortItem", {{"bLongNumber", false}, {"BItemNumber", "9"}}, {"350"}},
                    KeyCase{"fromCustomer", {{"BCustNumber", "C.02"}}, {"100"}},
                    KeyCase{"toCustomer", {{"ECustNumber", "C.01"}}, {"260.13"}},
                    KeyCase{"quotedCustomer", {{"BCustNumber", "C.O'3"}, {"CheckState", 2}}, {"7"}},
                    KeyCase{"shortCustomer", {{"bLongNumber", false}, {"ECustNumber", "2"}}, {"100"}},
                    KeyCase{"services", {{"CommodityType", 1}}, {}},
                    KeyCase{"goods", {{"CommodityType", 2}}, {"360.13"}},
                    KeyCase{"next", {{"chkNextChoose", 1}}, {"360.13"}},
                    KeyCase{
                        "rights", {{"DataRightWhere", " CharIndex('16394',T3.FRightUserID)>0 "}}, {"260.13"}},
                    KeyCase{"rightsAndOthers",
                            {{"DataRightWhere", " CharIndex('16394',T3.FRightUserID)>0 "}, {"CheckState", 1}},
                            {"7"}},
                    KeyCase{"rightsByJoin",
                            {{"DataRightFrom", "Inner Join t_Organization R On T3.FItemID=R.FItemID"},
                             {"DataRightWhere", "R.FNumber='C.02'"}},
                            {"100"}}),
    [](const auto& key_case) { return key_case.param.name; });

TEST_F(SalesAnalysisTest, NothingSoldNoRows) {
  for (const char* operation : {"GetRpt140Data", "GetRpt142Data", "GetRpt143Data"}) {
    EXPECT_EQ(Rows(operation, List({{"BItemNumber", "99"}}))->RecordCount(), 0) << operation;
    EXPECT_EQ(Rows(operation, ByRegion({{"BItemNumber", "99"}}))->RecordCount(), 0) << operation;
  }
}

TEST_F(SalesAnalysisTest, TheRequestComesBackAsItWas) {
  const DictionaryRef request = ByRegion();
  Rows("GetRpt143Data", request);
  EXPECT_EQ(request->Get("Select"), Variant(kRegionFrame));
  EXPECT_EQ(request->Get("GROUPBY"), Variant(kRegionGroups));
  EXPECT_THAT(request->Get("Error").TextOrEmpty(), IsEmpty());
  for (const char* table : {"#Lines", "#Parts", "#Classes", "#Blocks", "#Shares", "#DATA"})
    ExpectNoTable(table);
}

TEST_F(SalesAnalysisTest, WhatIsNoFrameIsRefused) {
  const auto refusal = [](const DictionaryRef& request) {
    return DescriptionRaisedBy([&] { Rows("GetRpt140Data", request); });
  };
  DictionaryRef request = List();
  request->Set("Select", "Select 1");
  EXPECT_THAT(refusal(request), HasSubstr("#Data"));
  request->Set("Select", "INSERT INTO #ItemLevel Select ");
  EXPECT_THAT(refusal(request), HasSubstr("#Data"));
  request = ByRegion();
  request->Set("Select", kListFrame);
  EXPECT_THAT(refusal(request), HasSubstr("FSumSort"));
  request = ByRegion();
  request->Set("GROUPBY", "Group By t1.FNumber");
  EXPECT_THAT(refusal(request), HasSubstr("rollup"));
}

TEST_F(SalesAnalysisTest, MissingAndWrongValuesAreRefused) {
  const auto refusal = [](const char* operation, const DictionaryRef& request) {
    return DescriptionRaisedBy([&] { Rows(operation, request); });
  };
  for (const char* operation : {"GetRpt140Data", "GetRpt143Data"}) {
    const DictionaryRef without_period = March();
    without_period->Set("Select", kListFrame);
    EXPECT_EQ(refusal(operation, without_period), "year 0 is not between 1754 and 9999");
    EXPECT_EQ(refusal(operation, List({{"BPeriod", 13}})), "period 13 is not between 1 and 12");
    EXPECT_EQ(Rows(operation, List({{"BYear", 9999}, {"BPeriod", 12}}))->RecordCount(), 0);
    EXPECT_EQ(Rows(operation, List({{"BYear", 1754}, {"BPeriod", 1}}))->RecordCount(), 0);
  }
  EXPECT_THAT(refusal("GetRpt142Data", List({{"EDate", ""}})), HasSubstr("EDate"));
  for (const char* operation : {"GetRpt140Data", "GetRpt142Data", "GetRpt143Data"}) {
    for (const char* key : {"CheckState", "CommodityType", "AuxProp"}) {
      EXPECT_EQ(NumberRaisedBy([&] {
                  Rows(operation, List({{key, "1 Or 1=1"}}));
                }),
                error_number::kTypeMismatch)
          << operation << " " << key;
    }
  }
}

}  // namespace
}  // namespace salerpt::middletier
