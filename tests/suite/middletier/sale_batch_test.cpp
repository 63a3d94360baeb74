// GetSaleAmountData: the keys of a request in their order, the fill, and what a failure leaves behind.
#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;

constexpr const char* kCreateData =
    "CREATE TABLE #DATA(FNumber varchar(355) null,FShortNumber varchar(355) null,FName varchar(355) null,"
    "FModel varchar(355) null,FUnitName varchar(355) null,FQtyDecimal smallint null,FPriceDecimal smallint "
    "null,"
    "FQty decimal(23,10) null,FCUUnitName varchar(355) null,FSecUnitName varchar(355) null,"
    "FSumSort smallint not null Default(0),FID int IDENTITY)\r\n";

// One line of bolts, one of nuts, one of rings, and a total, in the manner of the outbound summary.
constexpr const char* kFillAndSum =
    "Create Table #DATA2(FItemID int null,FQty decimal(23,10) null)\r\n"
    "Insert Into #DATA2 Select v2.FItemID,v2.FQty From ICSale v1 Join ICSaleEntry v2 On "
    "v1.FInterID=v2.FInterID "
    "Where v1.FStatus=1 And v1.FCancelLation=0 And v1.FTranType In (80,86)\r\n";
constexpr const char* kInsert =
    " SELECT CASE WHEN GROUPING(t1.FNumber)=1 THEN '合计' ELSE t1.FNumber END,'' FShortNumber,'' FName,'' "
    "FModel,"
    "'' FUnitName,4 FQtyDecimal,4 FPriceDecimal,sum(v1.FQty) FQty,'' FCUUnitName,'' FSecUnitName,"
    "CASE WHEN GROUPING(t1.FNumber)=1 THEN 101 ELSE 0 END From #DATA2 v1 Inner Join t_ICItem t1 On "
    "v1.FItemID=t1.FItemID ";
constexpr const char* kGroupBy = "Group by t1.FNumber WITH ROLLUP ";
constexpr const char* kEnd = "SELECT * FROM #DATA  ORDER BY FID \r\nDROP TABLE #DATA  \r\n";

DictionaryRef Request() {
  auto request = std::make_shared<Dictionary>();
  request->Set("SElECT", Join("SET NOCOUNT ON\r\n", kFillAndSum, kCreateData, "INSERT INTO #DATA ", kInsert));
  request->Set("GROUPBY", kGroupBy);
  request->Set("Append", "Drop Table #DATA2 \r\n");
  request->Set("EndSel", kEnd);
  return request;
}

// The same, made in #TemData and moved to #DATA in the asked order.
DictionaryRef SortedRequest(std::string_view order) {
  constexpr const char* kColumns =
      "FNumber,FShortNumber,FName,FModel,FUnitName,FQtyDecimal,FPriceDecimal,FQty,FCUUnitName,FSecUnitName,"
      "FSumSort";
  const DictionaryRef request = Request();
  request->Set("SELECT", Join(kFillAndSum, Replace(kCreateData, "#DATA", "#TemData"), kCreateData,
                              "INSERT INTO #TemData ", kInsert));
  request->Set("Append",
               Join("Insert Into #DATA Select ", kColumns, " From #TemData Where FSumSort=0 Order By ", order,
                    "\r\nInsert Into #DATA Select ", kColumns,
                    " From #TemData Where FSumSort=101\r\nDrop Table #TemData\r\nDrop Table #DATA2"));
  return request;
}

RecordsetRef Answer(const DictionaryRef& request) {
  Variant sent = request;
  return As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "GetSaleAmountData", "", sent));
}

TEST_F(CompanyTest, ABatchGivesTheRowsOfItsLastSelect) {
  const RecordsetRef rows = Answer(Request());
  EXPECT_THAT(Cells(rows, "FNumber"), ElementsAre("01.01", "01.02", "01.03", "合计"));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FQty"), ElementsAre("12", "4", "-3", "13"));
}

struct Filled {
  const char* field;
  std::vector<std::string> cells;
};

TEST_F(CompanyTest, BlankItemColumnsOfDetailRowsAreFilledAndTotalRowsStayAsTheyAre) {
  const RecordsetRef rows = Answer(Request());
  for (const Filled& expected :
       {Filled{"FShortNumber", {"9", "5", "7", ""}}, Filled{"FName", {"螺栓", "螺母", "O'Ring", ""}},
        Filled{"FModel", {"M8", "", "R-5", ""}}, Filled{"FUnitName", {"件", "件", "千克", ""}},
        Filled{"FCUUnitName", {"箱", "件", "千克", ""}}, Filled{"FSecUnitName", {"千克", "", "", ""}},
        Filled{"FQtyDecimal", {"0", "3", "1", "4"}}, Filled{"FPriceDecimal", {"2", "4", "1", "4"}}}) {
    rows->MoveFirst();
    EXPECT_EQ(Cells(rows, expected.field), expected.cells) << expected.field;
  }
}

TEST_F(CompanyTest, OnlyTheColumnsThatTheTableHasAreFilled) {
  const DictionaryRef request = Request();
  request->Set("SELECT",
               "CREATE TABLE #DATA(FNumber varchar(355) null,FName varchar(355) null)\r\n"
               "INSERT INTO #DATA Select '01.01',''");
  request->Set("GROUPBY", "");
  request->Set("Append", "");
  request->Set("EndSel", "SELECT * FROM #DATA\r\nDROP TABLE #DATA");
  EXPECT_THAT(Cells(Answer(request), "FName"), ElementsAre("螺栓"));
}

TEST_F(CompanyTest, ATableWithoutItemCodesIsLeftAlone) {
  const DictionaryRef request = Request();
  request->Set("SELECT", "CREATE TABLE #DATA(FName varchar(355) null)\r\nINSERT INTO #DATA Select 'x'");
  request->Set("GROUPBY", "");
  request->Set("Append", "");
  request->Set("EndSel", "SELECT * FROM #DATA\r\nDROP TABLE #DATA");
  EXPECT_THAT(Cells(Answer(request), "FName"), ElementsAre("x"));
}

TEST_F(CompanyTest, ATextThatTheBatchWroteItselfIsKept) {
  const DictionaryRef request = Request();
  request->Set(
      "SELECT",
      "CREATE TABLE #DATA(FNumber varchar(355) null,FName varchar(355) null,FModel varchar(355) null)\r\n"
      "INSERT INTO #DATA Select '01.01','own name',null");
  request->Set("GROUPBY", "");
  request->Set("Append", "");
  request->Set("EndSel", "SELECT * FROM #DATA\r\nDROP TABLE #DATA");
  const RecordsetRef rows = Answer(request);
  EXPECT_EQ(rows->Value("FName"), Variant("own name"));
  EXPECT_EQ(rows->Value("FModel"), Variant("M8"));
}

TEST_F(CompanyTest, ACodeThatIsNoItemStaysBlank) {
  const DictionaryRef request = Request();
  request->Set("SELECT",
               "CREATE TABLE #DATA(FNumber varchar(355) null,FName varchar(355) null)\r\n"
               "INSERT INTO #DATA Select '99.99',''");
  request->Set("GROUPBY", "");
  request->Set("Append", "");
  request->Set("EndSel", "SELECT * FROM #DATA\r\nDROP TABLE #DATA");
  EXPECT_THAT(Cells(Answer(request), "FName"), ElementsAre(""));
}

// Short codes 9, 5, 7: an order by them is another than the order by long codes.
TEST_F(CompanyTest, AnOrderMayGoByAColumnThatTheBatchLeavesBlank) {
  const RecordsetRef rows = Answer(SortedRequest("FShortNumber ASC"));
  EXPECT_THAT(Cells(rows, "FShortNumber"), ElementsAre("5", "7", "9", ""));
  rows->MoveFirst();
  EXPECT_THAT(Cells(rows, "FName"), ElementsAre("螺母", "O'Ring", "螺栓", ""));
}

TEST_F(CompanyTest, ATableThatIsMadeOnlyInAppendIsFilledBehindIt) {
  const DictionaryRef request = Request();
  request->Set("SELECT",
               "Create Table #DATA2(FNumber varchar(355) null)\r\nInsert Into #DATA2 Select '01.02'");
  request->Set("GROUPBY", "");
  request->Set("Append",
               "Select FNumber,Convert(varchar(355),'') FName Into #DATA From #DATA2\r\nDrop Table #DATA2");
  request->Set("EndSel", "SELECT * FROM #DATA\r\nDROP TABLE #DATA");
  EXPECT_THAT(Cells(Answer(request), "FName"), ElementsAre("螺母"));
}

TEST_F(CompanyTest, UpdateAppendRunsBehindAppendAndBeforeTheFinalSelect) {
  const DictionaryRef request = Request();
  request->Set("Append", "Update #DATA Set FModel=FModel+'A' Drop Table #DATA2");
  request->Set("UpdateAppend",
               "declare @iMaxID int select @iMaxID=max(FID) from #DATA "
               "Update #DATA Set FModel=FModel+'B' Where FID=@iMaxID");
  request->Set(
      "EndSel",
      "declare @iMaxID int Update #DATA Set FModel=FModel+'C' SELECT FModel FROM #DATA Order By FID");
  EXPECT_THAT(Cells(Answer(request), "FModel"), ElementsAre("M8AC", "AC", "R-5AC", "ABC"));
}

TEST_F(CompanyTest, TheItemFilterMarkBecomesNothing) {
  const DictionaryRef request = Request();
  request->Set("SELECT", Join(request->Get("SELECT").ToText(), " Where 1=1 ##ITEMFILTER## "));
  request->Set("ITEMFILTER", " FItemID In (SELECT DISTINCT ##ITEMID## FROM #DATA2 )");
  EXPECT_EQ(Answer(request)->RecordCount(), 4);
}

TEST_F(CompanyTest, TheRequestComesBackAsItWas) {
  const DictionaryRef request = Request();
  Answer(request);
  ASSERT_EQ(request->Entries().size(), 4u);
  EXPECT_EQ(request->Entries()[1].key, "GROUPBY");
  EXPECT_FALSE(request->Lookup("Error"));
}

TEST_F(CompanyTest, WhatABatchForgetsToDropIsGoneAfterwards) {
  const DictionaryRef request = Request();
  request->Set("Append", "");
  request->Set("EndSel", "SELECT * FROM #DATA");
  Answer(request);
  ExpectNoTable("#DATA");
  ExpectNoTable("#DATA2");
  EXPECT_EQ(Answer(request)->RecordCount(), 4);
}

class FailingPart : public CompanyTest, public testing::WithParamInterface<const char*> {};

TEST_P(FailingPart, IsRaisedWithTheServersWordsAndLeavesNothingBehind) {
  const DictionaryRef request = Request();
  request->Set(GetParam(), Join(request->Get(GetParam()).TextOrEmpty(), "\r\nUpdate t_NoSuch Set FName=1"));
  const auto error = RaisedBy([&] { Answer(request); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 208);
  EXPECT_EQ(error->Source(), "ORVMSaleRpt.Data:GetSaleAmountData");
  EXPECT_EQ(error->Description(), "Invalid object name 't_NoSuch'.");
  ExpectNoTable("#DATA");
  ExpectNoTable("#DATA2");
  EXPECT_EQ(Answer(Request())->RecordCount(), 4);
}

INSTANTIATE_TEST_SUITE_P(EveryPart, FailingPart,
                         testing::Values("GROUPBY", "Append", "UpdateAppend", "EndSel"),
                         [](const auto& part) { return std::string(part.param); });

TEST_F(CompanyTest, ARequestThatIsNothingIsRefused) {
  EXPECT_EQ(
      NumberRaisedBy([] { Call(CreateObject("ORVMSaleRpt.Data"), "GetSaleAmountData", "", Variant()); }),
      error_number::kInvalidCall);
}

TEST_F(CompanyTest, ARequestThatIsNoDictionaryIsRefused) {
  EXPECT_EQ(NumberRaisedBy(
                [] { Call(CreateObject("ORVMSaleRpt.Data"), "GetSaleAmountData", "", MakeRecordset()); }),
            error_number::kTypeMismatch);
}

TEST_F(CompanyTest, ARequestWithoutSelectIsRefusedByTheKeysName) {
  EXPECT_THAT(DescriptionRaisedBy([] { Answer(std::make_shared<Dictionary>()); }),
              testing::HasSubstr("SELECT"));
}

TEST_F(CompanyTest, AnEndWithoutRowsIsRefusedByTheKeysName) {
  const DictionaryRef request = Request();
  request->Set("EndSel", "DROP TABLE #DATA");
  EXPECT_THAT(DescriptionRaisedBy([&] { Answer(request); }), testing::HasSubstr("EndSel"));
}

}  // namespace
}  // namespace salerpt::middletier
