// Orders of virtual items: the frames filled, rows and shares by hand.
#include "suite/middletier/virtual_items.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A set of two bolts, a nut and a ring; SE011 names its bill of material, SE012 does not and is in dollars.
constexpr const char* kSets = R"sql(
UPDATE t_ICItem SET FSalePrice=10 WHERE FItemID IN (101,102,103);
UPDATE t_ICItem SET FSaleUnitID=1 WHERE FItemID=101;
INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID,FUnitGroupID,FUnitID,FOrderUnitID,FSaleUnitID,
    FStoreUnitID,FProductUnitID,FCUUnitID,FQtyDecimal)
  VALUES (106,'03.01','2','礼盒','L',5,1,1,1,2,1,1,2,0);
INSERT INTO ICBOM(FInterID,FBOMNumber,FItemID,FStatus) VALUES (5,'BOM5',106,0),(6,'BOM6',106,1);
INSERT INTO ICBOMChild(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty)
  VALUES (6,1,101,1,2,2),(6,2,102,1,1,1),(6,3,103,3,0.5,0.5),(5,1,102,1,3,3);
INSERT INTO SEOrder(FInterID,FBillNo,FDate,FCustID,FEmpID,FCurrencyID,FExchangeRate,FSaleStyle,FAreaPS,FStatus)
  VALUES (11,'SE011','2024-03-20 00:00:00',201,301,1,1,101,20302,1),(12,'SE012','2024-03-20 00:00:00',202,302,2,7,102,20303,1),
         (13,'SE013','2024-03-21 00:00:00',203,301,1,1,101,20302,0);
INSERT INTO SEOrderEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FAmount,FTaxAmount,FAllAmount,
    FStdAllAmount,FBomInterID)
  VALUES (11,1,106,1,12,12,10,10,100,17,117,117,5),(12,1,106,1,24,24,10,10,100,17,117,819,0),
         (13,1,106,1,1,1,10,10,10,1.7,11.7,11.7,6);
INSERT INTO ICStockBill(FInterID,FTranType,FBillNo,FDate,FSupplyID,FStatus) VALUES (41,21,'X41','2024-03-22 00:00:00',202,1);
INSERT INTO ICStockBillEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FOrderInterID,FOrderEntryID)
  VALUES (41,1,106,1,6,6,12,1);
)sql";

// The frames as the report sends them.
constexpr const char* kListFrame =
    "SET NOCOUNT ON\r\n\r\nCreate Table #Data(\r\n Insert Into #Data  \r\n Select ";
constexpr const char* kListEnd =
    "Select * From #Data  \r\n Order by FSumSort,FDate,FNumber,Fentryid DROP Table #Data  ";
constexpr const char* kPropertyFrame =
    "SET NOCOUNT ON\r\n\r\nCREATE TABLE #DATA(\r\n  FProp029 varchar(355) null,\r\n\r\n"
    "Insert Into #Data Select CASE   WHEN GROUPING( tt2.FName)=1 THEN '合计' \r\n"
    " WHEN GROUPING(t1.FNumber)=1 THEN CONVERT(varchar(355), tt2.FName)+'(小计)' \r\n"
    " ELSE CONVERT(varchar(355), tt2.FName) END, \r\n t1.FNumber, \r\n\r\n"
    " CASE WHEN GROUPING( tt2.FName)=1 THEN 101\r\n WHEN  GROUPING(t1.FNumber)=1 THEN 102 ELSE 0 END "
    "Left Join t_SubMessage tt2 On FSaleStyle=tt2.FInterID\r\n";
constexpr const char* kPropertyGroups = " GROUP BY  tt2.FName,t1.FNumber WITH ROLLUP ";
constexpr const char* kGroupEnd = "SELECT * FROM #DATA  \r\n Order by FID DROP TABLE #DATA  ";

class VirtualItemsTest : public OrderCompanyTest, public testing::WithParamInterface<KeyCase> {
 protected:
  VirtualItemsTest() {
    Sql(kSets);
    Sql("INSERT INTO t_SubMessage(FInterID,FTypeID,FName) VALUES (101,101,'赊销'),(102,101,'分期');");
  }
  static DictionaryRef List(std::initializer_list<Dictionary::Entry> chosen = {}) {
    const DictionaryRef request = March(chosen);
    request->Set("Select", kListFrame);
    request->Set("GROUPBY", "");
    request->Set("EndSel", kListEnd);
    return request;
  }
  static DictionaryRef ByStyle() {
    const DictionaryRef request = March();
    request->Set("Select", kPropertyFrame);
    request->Set("GROUPBY", kPropertyGroups);
    request->Set("EndSel", kGroupEnd);
    return request;
  }
};

TEST_F(VirtualItemsTest, ALineStandsBeforeWhatIsInIt) {
  EXPECT_THAT(Table(Rows("GetRpt300Data", List()),
                    {"FBillNo", "FNumber", "FName", "FChildName", "FSaleQty", "FChildSaleQty", "FSaleAmount",
                     "FChildSaleAmount", "FCommitQty", "FDiffQty", "FSumSort"}),
              ElementsAre("SE011|03.01|礼盒||12||100||0|12|0", "SE011|03.01|礼盒|螺母||36||100|||0",
                          "SE012|03.01|礼盒||24||700||6|18|0", "SE012|03.01|礼盒|螺栓||48||400|||0",
                          "SE012|03.01|礼盒|螺母||24||200|||0", "SE012|03.01|礼盒|O'Ring||12||100|||0",
                          "|合计|||36|120|800|800|6|30|101"));
}

TEST_F(VirtualItemsTest, SharesAddUpToTheAmountOfTheLine) {
  Sql("UPDATE t_ICItem SET FSalePrice=0; UPDATE SEOrderEntry SET FAmount=0.05,FQty=1 WHERE FInterID=12; "
      "UPDATE SEOrder SET FExchangeRate=1 WHERE FInterID=12; UPDATE ICBOMChild SET FQty=1 WHERE FInterID=6;");
  const RecordsetRef rows = Rows("GetRpt300Data", List({{"BCustNumber", "C.02"}, {"ECustNumber", "C.02"}}));
  EXPECT_THAT(Column(rows, "FChildSaleAmount"), ElementsAre("null", "0.02", "0.01", "0.02", "0.05"));
}

TEST_F(VirtualItemsTest, QuantitiesStandInTheSaleUnitToo) {
  EXPECT_THAT(Table(Rows("GetRpt300Data", List({{"BCustNumber", "C.02"}})),
                    {"FModel", "FUnitName", "FCUUnitName", "FCUUnitSaleQty", "FCUUnitChildSaleQty",
                     "FCUUnitCommitQty", "FCUUnitDiffQty", "FCustNumber", "FCustName", "FShortNumber"})[0],
              "L|件|箱|2||0.5|1.5|C.02|西岭商行|2");
}

TEST_F(VirtualItemsTest, AGroupHasARowForEachVirtualItem) {
  EXPECT_THAT(
      Table(Rows("GetRpt300Data", ByStyle()),
            {"FProp029", "FNumber", "FName", "FUnitName", "FCUUnitName", "FSaleQty", "FChildSaleQty",
             "FSaleAmount", "FChildSaleAmount", "FCommitQty", "FDiffQty", "FCUUnitDiffQty", "FSumSort"}),
      testing::UnorderedElementsAre(
          "赊销|03.01|礼盒|件|箱|12|36|100|100|0|12|1|0", "赊销(小计)|||||12|36|100|100|0|12|1|102",
          "分期|03.01|礼盒|件|箱|24|84|700|700|6|18|1.5|0", "分期(小计)|||||24|84|700|700|6|18|1.5|102",
          "合计|||||36|120|800|800|6|30|2.5|101"));
}

TEST_F(VirtualItemsTest, ClassLevelsWithCustomersKeepTheFramesOwnColumns) {
  const DictionaryRef request = March();
  request->Set("Select",
               "SET NOCOUNT ON\r\n\r\nCREATE TABLE #ItemLevel(FName1 Varchar(355),FItemID int)\r\n"
               "Insert Into #ItemLevel Select '套装',FItemID From t_ICItem\r\n"
               "IF object_id('tempdb..#DATA') IS NOT NULL DROP TABLE  #DATA   CREATE TABLE #DATA(\r\n"
               "FName1 varchar(355) Null,\r\nFCustName varchar(355) Null,\r\n\r\n"
               "Insert Into #Data Select tt1.FName1,t2.FName,t1.FNumber,\r\nCASE\r\n"
               "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n  WHEN   Grouping(t2.FName)=1 THEN  107\r\n"
               "  WHEN   Grouping(t1.FNumber)=1 THEN 108\r\n  ELSE   0 END \r\n"
               "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID\r\n");
  request->Set("GROUPBY",
               "  Group By tt1.FName1,t2.FName,t1.FNumber WITH ROLLUP\r\n"
               "Update #Data Set FName1='合计' WHERE FSumSort=106\r\nUpdate #Data Set FSumSort=101   WHERE "
               "FSumSort=106\r\n");
  request->Set("EndSel", "SELECT * FROM #DATA  \r\n Order by FID DROP TABLE #DATA  DROP TABLE #ItemLevel");
  EXPECT_THAT(Table(Rows("GetRpt300Data", request),
                    {"FName1", "FCustName", "FNumber", "FName", "FSaleQty", "FSumSort"}),
              testing::UnorderedElementsAre("套装|东风商行|03.01|礼盒|12|0", "套装|东风商行|||12|108",
                                            "套装|西岭商行|03.01|礼盒|24|0", "套装|西岭商行|||24|108",
                                            "套装||||36|107", "合计||||36|101"));
}

TEST_P(VirtualItemsTest, AKeyLetsItsLinesThrough) {
  const DictionaryRef request = List();
  for (const auto& [key, value] : GetParam().filter) request->Set(key, value);
  const RecordsetRef rows = Rows("GetRpt300Data", request);
  std::vector<std::string> lines;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (rows->Value("FSumSort").ToInt32() == 0 && !rows->Value("FSaleQty").IsNull())
      lines.push_back(rows->Value("FBillNo").ToText());
  }
  EXPECT_EQ(lines, GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, VirtualItemsTest,
    testing::Values(KeyCase{"days", {{"BDate", "2024-03-21"}, {"CheckState", 2}}, {"SE013"}},
                    KeyCase{"items", {{"BItemNumber", "03.02"}}, {}},
                    KeyCase{"shortItems", {{"bLongNumber", false}, {"EItemNumber", "2"}}, {"SE011", "SE012"}},
                    KeyCase{"customers", {{"ECustNumber", "C.01"}}, {"SE011"}},
                    KeyCase{"shortCustomers", {{"bLongNumber", false}, {"ECustNumber", "2"}}, {"SE012"}},
                    KeyCase{"notAudited", {{"CheckState", 1}}, {"SE013"}},
                    KeyCase{"allStates", {{"CheckState", 2}}, {"SE011", "SE012", "SE013"}},
                    KeyCase{"oneStyle", {{"SaleType", 102}}, {"SE012"}},
                    KeyCase{"oneType", {{"OrderType", 20303}}, {"SE012"}},
                    KeyCase{
                        "rights", {{"DataRightWhere", " CharIndex('16394',v1.FRightUserID)>0 "}}, {"SE011"}},
                    KeyCase{"rightsAndOthers",
                            {{"DataRightWhere", " CharIndex('16394',v1.FRightUserID)>0 "}, {"CheckState", 1}},
                            {"SE013"}}),
    [](const auto& key_case) { return key_case.param.name; });

TEST_F(VirtualItemsTest, NoLinesNoTotal) {
  EXPECT_EQ(Rows("GetRpt300Data", List({{"BItemNumber", "99"}}))->RecordCount(), 0);
}

TEST_F(VirtualItemsTest, WhatIsNoFrameIsRefused) {
  DictionaryRef request = List();
  request->Set("Select", "Select 1");
  EXPECT_THAT(DescriptionRaisedBy([&] { Rows("GetRpt300Data", request); }), HasSubstr("#Data"));
  request = ByStyle();
  request->Set("Select", kListFrame);
  EXPECT_THAT(DescriptionRaisedBy([&] { Rows("GetRpt300Data", request); }), HasSubstr("FSumSort"));
  EXPECT_THAT(DescriptionRaisedBy([&] { Rows("GetRpt300Data", List({{"BDate", ""}})); }), HasSubstr("BDate"));
  for (const char* key : {"CheckState", "SaleType", "OrderType", "EDate"}) {
    EXPECT_EQ(NumberRaisedBy([&] {
                Rows("GetRpt300Data", List({{key, "1 Or 1=1"}}));
              }),
              error_number::kTypeMismatch)
        << key;
  }
}

}  // namespace
}  // namespace salerpt::middletier
