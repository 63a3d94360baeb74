// The consignment and instalment lists: balances of a few bills worked out by hand, and of a made-up company.
#include "suite/middletier/consignment.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"
#include "tests/suite/middletier/generated_set.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kAudited = " AND u1.FStatus>0 And u1.FCancelLation=0 ";
constexpr const char* kNotAudited = " AND u1.FStatus=0 And u1.FCancelLation=0 ";
constexpr const char* kAll = " And u1.FCancelLation=0 ";

// Consigned: 1 in February, 2 and 3 in March, 4 in April; 5 not audited, 6 cancelled, 9 a return of 3. 7 is
// an instalment sale, 8 a sale on credit. Line 2 of bill 1 cannot be parted into thirds to the cent.
constexpr const char* kOutbound = R"sql(
INSERT INTO t_Stock(FItemID,FNumber,FShortNumber,FName,FTypeID) VALUES (601,'S.01','01','成品仓',500),(602,'S.02','02','赠品仓',503);
INSERT INTO ICStockBill(FInterID,FTranType,FBillNo,FDate,FSupplyID,FDeptID,FEmpID,FSaleStyle,FROB,FStatus,FCancelLation)
  VALUES (1,21,'X1','2024-02-10 00:00:00',201,401,301,103,1,1,0),
         (2,21,'X2','2024-03-05 18:30:00',202,402,302,103,1,1,0),
         (3,21,'X3','2024-03-31 23:59:00',201,401,301,103,1,1,0),
         (4,21,'X4','2024-04-01 00:00:00',201,401,301,103,1,1,0),
         (5,21,'X5','2024-03-10 00:00:00',203,401,301,103,1,0,0),
         (6,21,'X6','2024-03-11 00:00:00',203,401,301,103,1,1,1),
         (7,21,'X7','2024-03-12 00:00:00',203,401,301,102,1,1,0),
         (8,21,'X8','2024-03-13 00:00:00',203,401,301,101,1,1,0),
         (9,21,'X9','2024-03-15 00:00:00',201,401,301,103,-1,1,0),
         (10,1,'W1','2024-03-15 00:00:00',201,401,301,103,1,1,0);
INSERT INTO ICStockBillEntry(FInterID,FEntryID,FItemID,FBatchNo,FUnitID,FQty,FAuxQty,FAmount,FConsignAmount,FDCStockID)
  VALUES (1,1,101,'P1',1,24,24,99,240,601),(1,2,102,'',1,3,3,99,10,601),(2,1,101,'P2',1,12,12,99,130,602),
         (3,1,101,'P1',1,6,6,99,60,0),(4,1,101,'P1',1,5,5,99,50,601),(5,1,103,'',3,7,7,99,70,601),
         (6,1,103,'',3,8,8,99,80,601),(7,1,103,'P3',3,2.5,2.5,99,25,601),(8,1,103,'',3,1,1,99,10,601),
         (9,1,101,'P1',1,-2,-2,99,-20,601),(10,1,101,'P1',1,100,100,99,100,601);
)sql";

// Invoice 3 is not audited, 4 cancelled, 5 in April; 7 bills goods before they are sent; 9 is of another
// kind, and line 2 of 8 bills an order, not an outbound line.
constexpr const char* kSettlements = R"sql(
DELETE FROM ICSale; DELETE FROM ICSaleEntry;
INSERT INTO ICSale(FInterID,FTranType,FBillNo,FDate,FCustID,FSaleStyle,FStatus,FCancelLation)
  VALUES (1,80,'I1','2024-02-20 00:00:00',201,103,1,0),(2,86,'I2','2024-03-20 00:00:00',201,103,1,0),
         (3,80,'I3','2024-03-25 00:00:00',201,103,0,0),(4,80,'I4','2024-03-26 00:00:00',201,103,1,1),
         (5,80,'I5','2024-04-05 00:00:00',201,103,1,0),(6,80,'I6','2024-03-31 20:00:00',202,101,1,0),
         (7,80,'I7','2024-02-28 00:00:00',201,103,1,0),(8,80,'I8','2024-03-28 00:00:00',203,102,1,0),
         (9,79,'I9','2024-03-28 00:00:00',201,103,1,0);
INSERT INTO ICSaleEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FAmount,FStdAmount,
    FSourceTranType,FSourceInterID,FSourceEntryID)
  VALUES (1,1,101,1,12,12,11,11,132,132,21,1,1),(1,2,102,1,1,1,4,4,4,4,21,1,2),(2,1,101,1,6,6,11,11,66,66,21,1,1),
         (2,2,102,1,1,1,4,4,4,4,21,1,2),(3,1,101,1,3,3,11,11,33,33,21,1,1),(4,1,101,1,3,3,11,11,33,33,21,1,1),
         (5,1,102,1,1,1,4,4,4,4,21,1,2),(6,1,101,1,4,4,11,11,44,44,21,2,1),(7,1,101,1,1,1,11,11,11,11,21,3,1),
         (8,1,103,3,0.5,0.5,11,11,6,6,21,7,1),(8,2,103,3,9,9,11,11,99,99,81,7,1),(9,1,101,1,2,2,11,11,22,22,21,1,1);
)sql";

class ConsignmentTest : public CompanyTest {
 protected:
  ConsignmentTest() {
    Sql(kOutbound);
    Sql(kSettlements);
  }

  RecordsetRef Rows(const DictionaryRef& request) {
    Server server(std::make_shared<accountset::AccountSet>(OpenAgain()), Login{});
    return ConsignmentList(server, *request);
  }
};

// March 2024, audited bills, all stocks.
DictionaryRef MarchRequest() {
  auto request = std::make_shared<Dictionary>();
  request->Set("BDate", "2024-03-01");
  request->Set("Edate", "2024-03-31");
  request->Set("sWheChk", kAudited);
  request->Set("ShowVirtualStock", 1);
  request->Set("FSaleStyle", 103);
  return request;
}

// The rows of #Rpt303 themselves, each as one text.
DictionaryRef RawRequest() {
  const DictionaryRef request = MarchRequest();
  request->Set("SELECT", "SET NOCOUNT ON");
  request->Set(
      "EndSel",
      "Select Convert(varchar(30),FItemID)+'/'+Convert(varchar(30),FCustID)+'/'+Convert(varchar(30),FEmpID)"
      "+'/'+Convert(varchar(30),FDeptID)+'/'+FBatchNo FKey,FQtyDecimal,FBegQty,FCUBegQty,FBegAmount,"
      "FSendQty,FCUSendQty,FSendAmount,FVerifQty,FCUVerifQty,FVerifAmount "
      "From #Rpt303 Order By FItemID,FCustID,FBatchNo");
  return request;
}

std::vector<std::string> Column(const RecordsetRef& rows, std::string_view field) {
  if (rows->RecordCount() > 0) rows->MoveFirst();
  return Cells(rows, field);
}

TEST_F(ConsignmentTest, EveryOwnersGoodsHaveOneRow) {
  const RecordsetRef rows = Rows(RawRequest());
  EXPECT_THAT(Column(rows, "FKey"),
              ElementsAre("101/201/301/401/P1", "101/202/302/402/P2", "102/201/301/401/"));
  EXPECT_THAT(Column(rows, "FQtyDecimal"), ElementsAre("0", "0", "3"));
}

TEST_F(ConsignmentTest, OpeningIsWhatWasSentAndNotSettledBefore) {
  const RecordsetRef rows = Rows(RawRequest());
  EXPECT_THAT(Column(rows, "FBegQty"), ElementsAre("12", "0", "2"));
  EXPECT_THAT(Column(rows, "FCUBegQty"), ElementsAre("1", "0", "2"));
  EXPECT_THAT(Column(rows, "FBegAmount"), ElementsAre("120", "0", "6.67"));
}

TEST_F(ConsignmentTest, SentIsWhatLeftInThePeriodLessWhatCameBack) {
  const RecordsetRef rows = Rows(RawRequest());
  EXPECT_THAT(Column(rows, "FSendQty"), ElementsAre("4", "12", "0"));
  EXPECT_THAT(Column(rows, "FCUSendQty"), ElementsAre(testing::StartsWith("0.33333"), "1", "0"));
  EXPECT_THAT(Column(rows, "FSendAmount"), ElementsAre("40", "130", "0"));
}

TEST_F(ConsignmentTest, SettledIsWhatInvoicesBillValuedAsItWasSent) {
  const RecordsetRef rows = Rows(RawRequest());
  EXPECT_THAT(Column(rows, "FVerifQty"), ElementsAre("7", "4", "1"));
  EXPECT_THAT(Column(rows, "FVerifAmount"), ElementsAre("70", "43.33", "3.34"));
}

TEST_F(ConsignmentTest, ALineThatIsSettledWhollyLeavesNoCent) {
  const DictionaryRef request = RawRequest();
  request->Set("BDate", "2024-04-01");
  request->Set("Edate", "2024-04-30");
  request->Set("Filter", " AND t1.FNumber='01.02'");
  RecordsetRef rows = Rows(request);
  EXPECT_THAT(Column(rows, "FBegAmount"), ElementsAre("3.33"));
  EXPECT_THAT(Column(rows, "FVerifAmount"), ElementsAre("3.33"));
  request->Set("BDate", "2024-05-01");
  request->Set("Edate", "2024-05-31");
  EXPECT_EQ(Rows(request)->RecordCount(), 0);
}

TEST_F(ConsignmentTest, NotAuditedBillsAreALedgerOfTheirOwn) {
  const DictionaryRef request = RawRequest();
  request->Set("sWheChk", kNotAudited);
  const RecordsetRef rows = Rows(request);
  EXPECT_THAT(Column(rows, "FKey"), ElementsAre("103/203/301/401/"));
  EXPECT_THAT(Column(rows, "FSendQty"), ElementsAre("7"));
  EXPECT_THAT(Column(rows, "FVerifQty"), ElementsAre("0"));
}

TEST_F(ConsignmentTest, AllStatesTakeBothBillsAndInvoicesButNoCancelledOnes) {
  const DictionaryRef request = RawRequest();
  request->Set("sWheChk", kAll);
  const RecordsetRef rows = Rows(request);
  EXPECT_THAT(Column(rows, "FSendQty"), ElementsAre("4", "12", "0", "7"));
  EXPECT_THAT(Column(rows, "FVerifQty"), ElementsAre("10", "4", "1", "0"));
}

TEST_F(ConsignmentTest, TheInstalmentListTakesTheBillsOfItsStyle) {
  const DictionaryRef request = RawRequest();
  request->Set("FSaleStyle", 102);
  const RecordsetRef rows = Rows(request);
  EXPECT_THAT(Column(rows, "FKey"), ElementsAre("103/203/301/401/P3"));
  EXPECT_THAT(Column(rows, "FSendQty"), ElementsAre("2.5"));
  EXPECT_THAT(Column(rows, "FVerifQty"), ElementsAre("0.5"));
  EXPECT_THAT(Column(rows, "FVerifAmount"), ElementsAre("5"));
}

TEST_F(ConsignmentTest, VirtualStocksAreLeftOutWhenTheyAreNotAskedFor) {
  const DictionaryRef request = RawRequest();
  request->Set("ShowVirtualStock", 0);
  const RecordsetRef rows = Rows(request);
  EXPECT_THAT(Column(rows, "FKey"), ElementsAre("101/201/301/401/P1", "102/201/301/401/"));
  EXPECT_THAT(Column(rows, "FSendQty"), ElementsAre("4", "0"));
}

TEST_F(ConsignmentTest, AllStocksAreShownWhereNobodyAsked) {
  const auto request = std::make_shared<Dictionary>();
  const DictionaryRef whole = RawRequest();
  for (const auto& [key, value] : whole->Entries()) {
    if (key != "ShowVirtualStock") request->Set(key, value);
  }
  EXPECT_EQ(Rows(request)->RecordCount(), 3);
}

struct Narrowed {
  const char* condition;
  std::vector<std::string> keys;
};

TEST_F(ConsignmentTest, TheConditionNarrowsByItemCustomerEmployeeAndDepartment) {
  for (const Narrowed& expected :
       {Narrowed{" AND t1.FNumber>='01.02'", {"102/201/301/401/"}},
        Narrowed{" AND t1.FShortNumber<='5'", {"102/201/301/401/"}}, Narrowed{" And t1.FErpClsID=4", {}},
        Narrowed{" AND t2.FNumber>='C.02'", {"101/202/302/402/P2"}},
        Narrowed{" AND t3.FNumber<='E.01'", {"101/201/301/401/P1", "102/201/301/401/"}},
        Narrowed{" AND t4.FShortNumber>='02'", {"101/202/302/402/P2"}},
        Narrowed{" AND t1.FNumber<='01.01' AND t2.FNumber<='C.01'", {"101/201/301/401/P1"}}}) {
    const DictionaryRef request = RawRequest();
    request->Set("Filter", expected.condition);
    EXPECT_EQ(Column(Rows(request), "FKey"), expected.keys) << expected.condition;
  }
}

// --- The batch over #Rpt303

constexpr const char* kColumns =
    "      FNumber  VARCHAR(355) null, FShortNumber  VARCHAR(355) null,\r\n"
    "     FName  VARCHAR(355) null,FModel  VARCHAR(355) null,\r\n"
    "     FUnitName  VARCHAR(355) null,FCUUnitName  VARCHAR(355) null,\r\n"
    "     FQtyDecimal smallint null,FPriceDecimal smallint null,\r\n"
    "     FBegQty     decimal(23,10)  null,  FBegPrice   decimal(23,10)  null,\r\n"
    "     FCUBegQty     decimal(23,10)  null,FCUBegPrice   decimal(23,10)  null,\r\n"
    "     FBegAmount  decimal(18,2)  null,\r\n     FSendQty     decimal(23,10)  null,\r\n"
    "     FSendPrice   decimal(23,10)  null,\r\n     FCUSendQty     decimal(23,10)  null,\r\n"
    "     FCUSendPrice   decimal(23,10)  null,\r\n     FSendAmount  decimal(18,2)  null,\r\n"
    "     FVerifQty     decimal(23,10)  null,\r\n     FVerifPrice   decimal(23,10)  null,\r\n"
    "     FCUVerifQty     decimal(23,10)  null,\r\n     FCUVerifPrice   decimal(23,10)  null,\r\n"
    "     FVerifAmount  decimal(18,2)  null,\r\n     FEndQty     decimal(23,10)  null,\r\n"
    "     FEndPrice   decimal(23,10)  null,\r\n     FCUEndQty     decimal(23,10)  null,\r\n"
    "     FCUEndPrice   decimal(23,10)  null,\r\n     FEndAmount  decimal(18,2)  null,\r\n"
    "     FSumSort smallint not null Default(0),\r\n     FID int IDENTITY)\r\n";
constexpr const char* kValues =
    "'','','','','',4,4, Sum (round(FBegQty,v1.FQtyDecimal)),0,Sum (round(FCUBegQty,v1.FQtyDecimal)),0,"
    "Sum(round(FBegAmount,2)), Sum (round(FSendQty,v1.FQtyDecimal)),0,Sum "
    "(round(FCUSendQty,v1.FQtyDecimal)),0,"
    "Sum(round(FSendAmount,2)), Sum (round(FVerifQty,v1.FQtyDecimal)),0,"
    "Sum (round(FCUVerifQty,v1.FQtyDecimal)),0,Sum(round(FVerifAmount,2)), 0,0,0, 0,0, ";
constexpr const char* kFrom =
    " FROM #Rpt303 v1 \r\n Inner Join t_ICItem t1 on v1.FItemID=t1.FItemID  \r\n"
    " Inner Join t_Organization t2 on v1.FCustID=t2.FItemID \r\n"
    " Left  Join t_Emp t3 on v1.FEmpID=t3.FItemID \r\n"
    " Left  Join t_DepartMent t4 on  v1.FDeptID=t4.FItemID \r\n WHERE  1=1 ";

DictionaryRef ItemRequest() {
  const DictionaryRef request = MarchRequest();
  request->Set("SElECT",
               Join("\r\n    SET NOCOUNT ON\r\nCREATE TABLE #DATA(", kColumns,
                    "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING(t1.FNumber)=1 THEN '合计' \r\n"
                    " ELSE t1.FNumber END, \r\n",
                    kValues, "\r\n CASE  WHEN GROUPING(t1.FNumber)=1 THEN 101 \r\n ELSE 0 END ", kFrom));
  request->Set("GROUPBY", "Group by t1.FNumber WITH ROLLUP ");
  request->Set("EndSel", "SELECT * FROM #DATA  \r\n ORDER BY FID \r\nDROP TABLE #DATA  \r\n");
  return request;
}

struct Figures {
  const char* field;
  std::vector<std::string> cells;  // bolts, nuts, total
};

TEST_F(ConsignmentTest, TheBatchGetsItemColumnsClosingColumnsAndPrices) {
  const RecordsetRef rows = Rows(ItemRequest());
  for (const Figures& expected :
       {Figures{"FNumber", {"01.01", "01.02", "合计"}}, Figures{"FName", {"螺栓", "螺母", ""}},
        Figures{"FShortNumber", {"9", "5", ""}}, Figures{"FModel", {"M8", "", ""}},
        Figures{"FUnitName", {"件", "件", ""}}, Figures{"FCUUnitName", {"箱", "件", ""}},
        Figures{"FQtyDecimal", {"0", "3", "4"}}, Figures{"FPriceDecimal", {"2", "4", "4"}},
        Figures{"FBegQty", {"12", "2", "14"}}, Figures{"FBegAmount", {"120", "6.67", "126.67"}},
        Figures{"FSendQty", {"16", "0", "16"}}, Figures{"FSendAmount", {"170", "0", "170"}},
        Figures{"FVerifQty", {"11", "1", "12"}}, Figures{"FVerifAmount", {"113.33", "3.34", "116.67"}},
        Figures{"FEndQty", {"17", "1", "18"}}, Figures{"FEndAmount", {"176.67", "3.33", "180"}},
        // Boxes are rounded by the batch: 1 and 0, 0.33 and 1, 0.58 and 0.33.
        Figures{"FCUBegQty", {"1", "2", "3"}}, Figures{"FCUSendQty", {"1", "0", "1"}},
        Figures{"FCUVerifQty", {"1", "1", "2"}}, Figures{"FCUEndQty", {"1", "1", "2"}},
        Figures{"FBegPrice", {"10", "3.335", "9.0478571429"}},
        Figures{"FCUBegPrice", {"120", "3.335", "42.2233333333"}},
        Figures{"FSendPrice", {"10.625", "0", "10.625"}}, Figures{"FCUSendPrice", {"170", "0", "170"}},
        Figures{"FVerifPrice", {"10.3027272727", "3.34", "9.7225"}},
        Figures{"FCUVerifPrice", {"113.33", "3.34", "58.335"}},
        Figures{"FEndPrice", {"10.3923529412", "3.33", "10"}},
        Figures{"FCUEndPrice", {"176.67", "3.33", "90"}}}) {
    EXPECT_EQ(Column(rows, expected.field), expected.cells) << expected.field;
  }
}

TEST_F(ConsignmentTest, SubtotalsCloseAndOnlyTotalsMayBeAskedFor) {
  const DictionaryRef request = MarchRequest();
  request->Set(
      "SElECT",
      Join("SET NOCOUNT ON\r\nCREATE TABLE #DATA( FBatchNo   VARCHAR(355) null,", kColumns,
           " INSERT INTO #DATA ( FBatchNo,FNumber,FShortNumber,FName,FModel,FUnitName,FCUUnitName,\r\n"
           " FQtyDecimal,FPriceDecimal,FBegQty,FBegPrice,FCUBegQty,FCUBegPrice,FBegAmount,"
           "FSendQty,FSendPrice,FCUSendQty,FCUSendPrice,FSendAmount,FVerifQty,FVerifPrice,"
           "FCUVerifQty,FCUVerifPrice,FVerifAmount,FEndQty,FEndPrice,FCUEndQty,FCUEndPrice,FEndAmount,"
           "FSumSort) SELECT CASE  WHEN GROUPING(t1.FNumber)=1  THEN '合计'"
           " WHEN GROUPING(v1.FBatchNo)=1 THEN  t1.FNumber+'小计' ELSE v1.FBatchNo END,  t1.FNumber,",
           kValues,
           " CASE WHEN GROUPING(t1.FNumber)=1 THEN 101"
           " WHEN  GROUPING(v1.FBatchNo)=1 THEN 102 ELSE 0 END ",
           kFrom));
  request->Set("GROUPBY", " GROUP BY t1.FNumber,v1.FBatchNo WITH ROLLUP");
  request->Set("EndSel", "SELECT * FROM #DATA   ORDER BY FID ");
  RecordsetRef rows = Rows(request);
  EXPECT_THAT(Column(rows, "FBatchNo"), ElementsAre("P1", "P2", "01.01小计", "", "01.02小计", "合计"));
  EXPECT_THAT(Column(rows, "FEndQty"), ElementsAre("9", "8", "17", "1", "1", "18"));
  EXPECT_THAT(Column(rows, "FEndPrice"),
              ElementsAre("10", "10.83375", "10.3923529412", "3.33", "3.33", "10"));
  request->Set("EndSel", "SELECT * FROM #DATA  WHERE FSumSort>100 ORDER BY FID ");
  EXPECT_THAT(Column(Rows(request), "FEndAmount"), ElementsAre("176.67", "3.33", "180"));
}

TEST_F(ConsignmentTest, APeriodBeforeAllGoodsHasNoRowsAndNoTotal) {
  const DictionaryRef request = ItemRequest();
  request->Set("BDate", "2020-01-01");
  request->Set("Edate", "2020-01-31");
  EXPECT_EQ(Rows(request)->RecordCount(), 0);
}

TEST_F(ConsignmentTest, WhatTheRequestLacksIsNamed) {
  for (const char* missing : {"BDate", "Edate", "FSaleStyle"}) {
    const auto request = std::make_shared<Dictionary>();
    const DictionaryRef whole = ItemRequest();
    for (const auto& [key, value] : whole->Entries()) {
      if (key != missing) request->Set(key, value);
    }
    EXPECT_THAT(DescriptionRaisedBy([&] { Rows(request); }), HasSubstr(missing));
  }
  const DictionaryRef request = MarchRequest();
  EXPECT_THAT(DescriptionRaisedBy([&] { Rows(request); }), HasSubstr("SELECT"));
}

TEST_F(ConsignmentTest, ValuesOfTheWrongKindAreRefused) {
  for (const char* key : {"BDate", "Edate", "FSaleStyle", "ShowVirtualStock"}) {
    const DictionaryRef request = ItemRequest();
    request->Set(key, "1 Or 1=1");
    EXPECT_EQ(NumberRaisedBy([&] { Rows(request); }), error_number::kTypeMismatch) << key;
  }
}

TEST_F(ConsignmentTest, AFailedBatchLeavesNoTablesBehind) {
  Server server(std::make_shared<accountset::AccountSet>(OpenAgain()), Login{});
  const DictionaryRef request = ItemRequest();
  request->Set("EndSel", "Select * From t_NoSuch");
  EXPECT_EQ(DescriptionRaisedBy([&] { ConsignmentList(server, *request); }),
            "Invalid object name 't_NoSuch'.");
  EXPECT_EQ(ConsignmentList(server, *ItemRequest())->RecordCount(), 3);
}

// --- The made-up company

class GeneratedConsignmentTest : public testing::TestWithParam<int> {
 protected:
  static void SetUpTestSuite() {
    set_ = std::make_unique<GeneratedSet>(3, 10000);
    server_ = std::make_unique<Server>(set_->Get(), Login{});
  }
  static void TearDownTestSuite() {
    server_.reset();
    set_.reset();
  }

  static DictionaryRef Request(std::string_view begin, std::string_view end, std::string_view state) {
    const DictionaryRef request = RawRequest();
    request->Set("BDate", begin);
    request->Set("Edate", end);
    request->Set("sWheChk", state);
    request->Set("FSaleStyle", GetParam());
    return request;
  }

  // Sums over all rows, in the order of #Rpt303.
  static std::vector<double> Sums(const DictionaryRef& request) {
    request->Set("EndSel",
                 "Select Sum(FBegQty),Sum(FBegAmount),Sum(FSendQty),Sum(FSendAmount),Sum(FVerifQty),"
                 "Sum(FVerifAmount),Count(*) From #Rpt303");
    const RecordsetRef rows = ConsignmentList(*server_, *request);
    std::vector<double> sums;
    for (int i = 0; i < rows->FieldCount(); ++i) sums.push_back(rows->Value(i).ToDouble());
    return sums;
  }

  static std::unique_ptr<GeneratedSet> set_;
  static std::unique_ptr<Server> server_;
};
std::unique_ptr<GeneratedSet> GeneratedConsignmentTest::set_;
std::unique_ptr<Server> GeneratedConsignmentTest::server_;

TEST_P(GeneratedConsignmentTest, QuantitiesAreThoseOfTheBills) {
  const std::vector<double> sums = Sums(Request("2024-07-01", "2024-12-31", kAudited));
  const std::string style = std::to_string(GetParam());
  const std::string sent =
      "SELECT sum(e.FQty),sum(e.FConsignAmount) FROM ICStockBill b JOIN ICStockBillEntry e USING(FInterID) "
      "WHERE "
      "b.FTranType=21 AND b.FStatus>0 AND b.FCancelLation=0 AND b.FSaleStyle=" +
      style;
  const std::string settled =
      "SELECT sum(e.FQty),sum(1.0*o.FConsignAmount*e.FQty/o.FQty) FROM ICSale i JOIN ICSaleEntry e "
      "USING(FInterID) "
      "JOIN ICStockBillEntry o ON "
      "o.FInterID=e.FSourceInterID AND o.FEntryID=e.FSourceEntryID JOIN ICStockBill b ON "
      "b.FInterID=o.FInterID "
      "WHERE e.FSourceTranType=21 AND i.FStatus>0 AND i.FCancelLation=0 AND b.FStatus>0 AND "
      "b.FCancelLation=0 "
      "AND b.FSaleStyle=" +
      style;
  const std::vector<double> sent_before = set_->Numbers(sent + " AND b.FDate<'2024-07-01'");
  const std::vector<double> settled_before = set_->Numbers(settled + " AND i.FDate<'2024-07-01'");
  const char* period = ".FDate>='2024-07-01' AND %.FDate<'2025-01-01'";
  const std::vector<double> sent_now = set_->Numbers(sent + " AND b" + Replace(period, "%", "b"));
  const std::vector<double> settled_now = set_->Numbers(settled + " AND i" + Replace(period, "%", "i"));
  EXPECT_GT(sums[0], 0);
  EXPECT_GT(sums[2], 0);
  EXPECT_GT(sums[4], 0);
  EXPECT_NEAR(sums[0], sent_before[0] - settled_before[0], 1e-6);
  EXPECT_NEAR(sums[2], sent_now[0], 1e-6);
  EXPECT_NEAR(sums[4], settled_now[0], 1e-6);
  EXPECT_NEAR(sums[1], sent_before[1] - settled_before[1], 0.5);
  EXPECT_NEAR(sums[3], sent_now[1], 1e-6);
  EXPECT_NEAR(sums[5], settled_now[1], 0.5);
}

TEST_P(GeneratedConsignmentTest, OnePeriodClosesWhereTheNextOneOpens) {
  const std::vector<double> march = Sums(Request("2024-03-01", "2024-03-31", kAudited));
  const std::vector<double> april = Sums(Request("2024-04-01", "2024-04-30", kAudited));
  EXPECT_NEAR(march[0] + march[2] - march[4], april[0], 1e-6);
  EXPECT_NEAR(march[1] + march[3] - march[5], april[1], 1e-6);
}

TEST_P(GeneratedConsignmentTest, InTheEndIsLeftWhatNobodyInvoiced) {
  const std::vector<double> sums = Sums(Request("2023-01-01", "2025-12-31", kAll));
  const std::vector<double> open = set_->Numbers(
      "SELECT sum(e.FQty-e.FQtyInvoice) FROM ICStockBill b JOIN ICStockBillEntry e USING(FInterID) WHERE "
      "b.FTranType=21 AND b.FCancelLation=0 AND b.FSaleStyle=" +
      std::to_string(GetParam()));
  EXPECT_NEAR(sums[0] + sums[2] - sums[4], open[0], 1e-6);
}

TEST_P(GeneratedConsignmentTest, EveryRowIsAnOwnersOnlyOne) {
  const DictionaryRef request = Request("2024-07-01", "2024-12-31", kAudited);
  request->Set(
      "EndSel",
      "Select FItemID From #Rpt303 Group By FItemID,FCustID,FEmpID,FDeptID,FBatchNo Having Count(*)>1");
  EXPECT_EQ(ConsignmentList(*server_, *request)->RecordCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(BothLists, GeneratedConsignmentTest, testing::Values(103, 102));

}  // namespace
}  // namespace salerpt::middletier
