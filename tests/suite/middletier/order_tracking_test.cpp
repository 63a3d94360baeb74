// The production and sales tracking: the rows of #T139 by hand, the columns that are filled, the states.
#include "suite/middletier/order_tracking.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// The report's plain list, its columns shortened to those that the middle tier reads.
constexpr const char* kSelect =
    "SET NOCOUNT ON\r\nCREATE TABLE #DATA(FInterID int Not Null,FEntryID int Not Null,FDate varchar(10) Not "
    "Null,\r\n"
    "FBillNo nvarchar(255) Not Null,FCustNumber varchar(80) Null,FCustName varchar(255) Null,\r\n"
    "FAdviceConsignDate varchar(10) null,FItemID int Not Null,FItemNumber varchar(355) null,\r\n"
    "FItemShortNumber varchar(355) null,FName varchar(255) Null,FModel varchar(255) Null,FAuxName "
    "varchar(80) Null,\r\n"
    "FBaseUnitName varchar(355) null,FStockUnitName varchar(355) null,FQty Decimal(23,10) Not Null "
    "Default(0),\r\n"
    "FAuxQty Decimal(23,10),FBCommitQty Decimal(23,10),FAuxBCommitQty Decimal(23,10),FInStockQty "
    "Decimal(23,10),\r\n"
    "FInAuxStockQty Decimal(23,10),FOutStockQty Decimal(23,10),FOutAuxStockQty Decimal(23,10),\r\n"
    "FUnFinishQty Decimal(23,10),FUnAuxFinishQty Decimal(23,10),FQtyDecimal smallint null,\r\n"
    "FExecutionStatus Varchar(20),FSumSort smallint not null Default(0))\r\n"
    "INSERT INTO #DATA SELECT CASE WHEN GROUPING(V1.FInterID)=1 THEN 0 ELSE V1.FInterID END,\r\n"
    "CASE WHEN GROUPING(V1.FEntryID)=1 THEN 0 ELSE V1.FEntryID END,'','','','','',\r\n"
    "CASE WHEN GROUPING(V1.FItemID)=1 THEN 0 ELSE V1.FItemID END,\r\n"
    "CASE WHEN GROUPING(t1.FNumber)=1 THEN '' ELSE t1.FNumber "
    "END,'','','','','','',Sum(V1.FQty),Sum(V1.FAuxQty),\r\n"
    "Sum(V1.FBCommitQty),Sum(V1.FAuxBCommitQty),Sum(V1.FInStockQty),Sum(V1.FInAuxStockQty),Sum(V1."
    "FOutStockQty),\r\n"
    "Sum(V1.FOutAuxStockQty),Sum(V1.FUnFinishQty),Sum(V1.FUnAuxFinishQty),4,'',\r\n"
    " CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n ELSE 0 END  FROM #T139 v1\r\n"
    "Join t_ICItem t1 On v1.FItemID=t1.FItemID\r\n WHERE 1=1 \r\n";
constexpr const char* kGroupBy =
    " group by V1.FInterID,V1.FEntryID,V1.FItemID,t1.FNumber \r\n"
    " WITH ROLLUP having (grouping(v1.FInterID)=1 and grouping(v1.FEntryID)=1 and grouping(v1.FItemID)=1 and "
    "grouping(t1.FNumber)=1) \r\n"
    "or(grouping(v1.FInterID)=0 and grouping(v1.FEntryID)=0 and grouping(v1.FItemID)=0 and "
    "grouping(t1.FNumber)=0) "
    "\r\n";

class OrderTrackingTest : public OrderCompanyTest, public testing::WithParamInterface<KeyCase> {
 protected:
  static DictionaryRef Frames() {
    auto frames = std::make_shared<Dictionary>();
    frames->Set("SElECT", kSelect);
    frames->Set("GROUPBY", kGroupBy);
    frames->Set("EndSel",
                "SELECT * FROM #DATA  \r\n order by  FSumSort,FInterID,FEntryID,FItemNumber  "
                "DROP TABLE #DATA  ");
    return frames;
  }
  static RecordsetRef Tracked(const DictionaryRef& filter) {
    Variant frames = Frames();
    Variant sent = filter;
    return As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetRpt139Data", kProps, frames, sent));
  }
};

TEST_F(OrderTrackingTest, ALineTellsWhatWasOrderedMadeReceivedAndSent) {
  EXPECT_THAT(Table(Tracked(March()), {"FInterID", "FEntryID", "FQty", "FBCommitQty", "FInStockQty",
                                       "FOutStockQty", "FUnFinishQty", "FExecutionStatus", "FSumSort"}),
              ElementsAre("1|1|24|18|18|15|9|部分执行|0", "1|2|10|0|3|10|0|完全执行|0",
                          "2|1|2.5|0|0|2.5|0|完全执行|0", "5|1|12|0|0|12|0|完全执行|0",
                          "0|0|48.5|18|21|39.5|9||101"));
}

TEST_F(OrderTrackingTest, TheSecondOfEachPairIsInTheCommonUnit) {
  EXPECT_EQ(Table(Tracked(March()), {"FBaseUnitName", "FStockUnitName", "FAuxQty", "FAuxBCommitQty",
                                     "FInAuxStockQty", "FOutAuxStockQty", "FUnAuxFinishQty"})[0],
            "件|箱|2|1.5|1.5|1.25|0.75");
}

TEST_F(OrderTrackingTest, TheTextsOfALineAreFilled) {
  const RecordsetRef rows = Tracked(March());
  EXPECT_EQ(Table(rows, {"FDate", "FBillNo", "FCustNumber", "FCustName", "FAdviceConsignDate", "FItemNumber",
                         "FItemShortNumber", "FName", "FModel", "FAuxName", "FQtyDecimal"})[0],
            "2024-03-05|SE001|C.01|东风商行|2024-03-20|01.01|9|螺栓|M8|小|0");
  EXPECT_THAT(Column(rows, "FDate"), testing::Contains("合计"));
  EXPECT_LT(rows->FindField("FShortNumber"), 0);
}

TEST_F(OrderTrackingTest, ShortCodesGetTheColumnThatShowsThem) {
  const RecordsetRef rows = Tracked(March({{"bLongNumber", false}}));
  EXPECT_EQ(Table(rows, {"FShortNumber", "FCustNumber"})[0], "9|3");
}

TEST_F(OrderTrackingTest, ClassLevelsLabelTheirOwnTotal) {
  EXPECT_THAT(Column(Tracked(March({{"GroupBy", 1}, {"SumMode", 1}})), "FDate"),
              testing::Not(testing::Contains("合计")));
}

TEST_P(OrderTrackingTest, AKeyLetsItsLinesThrough) {
  const DictionaryRef filter = March();
  for (const auto& [key, value] : GetParam().filter) filter->Set(key, value);
  std::vector<std::string> lines = Table(Tracked(filter), {"FBillNo", "FItemID"});
  lines.pop_back();
  EXPECT_EQ(lines, GetParam().lines);
}

const char* kBolts = "SE001|101";
const char* kNuts = "SE001|102";
const char* kRings = "SE002|103";
const char* kService = "SE003|105";
const char* kStraight = "SE005|101";

INSTANTIATE_TEST_SUITE_P(
    Keys, OrderTrackingTest,
    testing::Values(
        KeyCase{"days", {{"BDate", "2024-03-06"}, {"EDate", "2024-03-30"}}, {kStraight}},
        KeyCase{"customers", {{"BClientNumber", "C.02"}}, {kRings, kStraight}},
        KeyCase{"shortCustomers", {{"bLongNumber", false}, {"EClientNumber", "1"}}, {kStraight}},
        KeyCase{"departments", {{"BDept", "D.02"}, {"EDept", "D.02"}}, {kRings}},
        KeyCase{"employees", {{"BEmp", "E.01"}, {"EEmp", "E.01"}}, {kBolts, kNuts}},
        KeyCase{"orders", {{"BBillNo", "SE002"}, {"EBillNo", "SE004"}}, {kRings}},
        KeyCase{"creditSale", {{"FSaleStyle", 1}}, {kBolts, kNuts}},
        KeyCase{"instalmentSale", {{"FSaleStyle", 2}}, {kRings}},
        KeyCase{"allStyles", {{"FSaleStyle", 4}}, {kBolts, kNuts, kRings, kStraight}},
        KeyCase{"notAudited", {{"CheckState", 1}}, {kService}},
        KeyCase{"allStates", {{"CheckState", 2}}, {kBolts, kNuts, kRings, kService, kStraight}},
        KeyCase{"closed", {{"CheckClose", 0}}, {kRings}},
        KeyCase{"open", {{"CheckClose", 1}}, {kBolts, kNuts, kStraight}},
        KeyCase{"openAndClosed", {{"CheckClose", 2}}, {kBolts, kNuts, kRings, kStraight}},
        KeyCase{"untouched", {{"CheckState", 2}, {"Unexecuted", 1}}, {kService}},
        KeyCase{"inPart", {{"CheckState", 2}, {"Partialexecution", 1}}, {kBolts}},
        KeyCase{"inFull", {{"CheckState", 2}, {"Fullyexecuted", 1}}, {kNuts, kRings, kStraight}},
        KeyCase{
            "twoStates", {{"CheckState", 2}, {"Unexecuted", 1}, {"Partialexecution", 1}}, {kBolts, kService}},
        KeyCase{"statesOfAGroupedReport",
                {{"GroupBy", 1}, {"Partialexecution", 1}},
                {kBolts, kNuts, kRings, kStraight}},
        KeyCase{"statesOfSums",
                {{"OnlyShowSum", 1}, {"Partialexecution", 1}},
                {kBolts, kNuts, kRings, kStraight}},
        KeyCase{"rights",
                {{"DataRightWhere", " CharIndex('16395',tc.FRightUserID)>0 "}},
                {kBolts, kNuts, kRings}},
        KeyCase{"rightsAndOthers",
                {{"DataRightWhere", " CharIndex('16395',tc.FRightUserID)>0 "}, {"Partialexecution", 1}},
                {kBolts}}),
    [](const auto& key_case) { return key_case.param.name; });

TEST_F(OrderTrackingTest, WithoutLinesThereIsOnlyWhatTheBatchMakes) {
  EXPECT_LE(Tracked(March({{"BDate", "2020-01-01"}, {"EDate", "2020-01-01"}}))->RecordCount(), 1);
}

TEST_F(OrderTrackingTest, MissingDaysAndWrongKindsAreRefused) {
  EXPECT_THAT(DescriptionRaisedBy([&] { Tracked(March({{"BDate", ""}})); }), HasSubstr("BDate"));
  for (const char* key : {"CheckState", "CheckClose", "FSaleStyle", "Unexecuted", "GroupBy", "EDate"}) {
    EXPECT_EQ(NumberRaisedBy([&] {
                Tracked(March({{key, "1 Or 1=1"}}));
              }),
              error_number::kTypeMismatch)
        << key;
  }
}

TEST_F(OrderTrackingTest, AFailedBatchLeavesNoTablesBehind) {
  Variant frames = Frames();
  As<Dictionary>(frames)->Set("EndSel", "Select * From t_NoSuch");
  Variant filter = March();
  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  EXPECT_EQ(DescriptionRaisedBy([&] { Call(data, "GetRpt139Data", kProps, frames, filter); }),
            "Invalid object name 't_NoSuch'.");
  ExpectNoTable("#T139");
  EXPECT_EQ(Tracked(March())->RecordCount(), 5);
}

}  // namespace
}  // namespace salerpt::middletier
