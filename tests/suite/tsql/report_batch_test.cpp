// The outbound summary by customer class, as its report sends it, on a company small enough to reckon by
// hand.
#include <gmock/gmock.h>

#include "tests/suite/tsql/memory_world.h"

namespace salerpt::tsql::test {
namespace {

using testing::ElementsAre;

// Two classes of customers, North (with Ann and Bob) and South (with Cid); two items, sold by the piece and
// by the dozen.
constexpr const char* kCompany = R"sql(
CREATE TABLE ICStockBill(FInterID INTEGER PRIMARY KEY, FTranType INT, FDate DATETIME, FSupplyID INT, FSaleStyle INT, FStatus SMALLINT, FCancelLation BIT);
CREATE TABLE ICStockBillEntry(FInterID INT, FEntryID INT, FItemID INT, FQty DECIMAL(23,10), FAmount DECIMAL(23,10), FConsignAmount DECIMAL(23,10), FSecQty DECIMAL(23,10), PRIMARY KEY(FInterID, FEntryID)) WITHOUT ROWID;
CREATE TABLE ICSale(FInterID INTEGER PRIMARY KEY, FTranType INT, FDate DATETIME, FCustID INT, FExchangeRate FLOAT, FStatus SMALLINT, FCancelLation BIT);
CREATE TABLE ICSaleEntry(FInterID INT, FEntryID INT, FItemID INT, FQty DECIMAL(23,10), FAmount DECIMAL(23,10), FTaxAmount DECIMAL(23,10), FSecQty DECIMAL(23,10), PRIMARY KEY(FInterID, FEntryID)) WITHOUT ROWID;
CREATE TABLE t_ICItem(FItemID INTEGER PRIMARY KEY, FNumber VARCHAR(80) COLLATE NOCASE, FSaleUnitID INT);
CREATE TABLE t_Organization(FItemID INTEGER PRIMARY KEY, FNumber VARCHAR(80) COLLATE NOCASE, FName VARCHAR(80) COLLATE NOCASE);
CREATE TABLE t_MeasureUnit(FMeasureUnitID INTEGER PRIMARY KEY, FCoefficient DECIMAL(23,10));
CREATE TABLE t_Item(FItemID INTEGER PRIMARY KEY, FNumber VARCHAR(80) COLLATE NOCASE, FFullNumber VARCHAR(80) COLLATE NOCASE, FName VARCHAR(80) COLLATE NOCASE, FLevel SMALLINT, FItemClassID INT, FDetail BIT);
INSERT INTO t_MeasureUnit VALUES(1,1),(2,12);
INSERT INTO t_ICItem VALUES(11,'P.1',1),(12,'P.2',2);
INSERT INTO t_Organization VALUES(21,'N.1','Ann'),(22,'N.2','Bob'),(23,'S.1','Cid');
INSERT INTO t_Item VALUES(31,'N','N','North',1,1,0),(32,'S','S','South',1,1,0),(21,'N.1','N.1','Ann',2,1,1),(22,'N.2','N.2','Bob',2,1,1),(23,'S.1','S.1','Cid',2,1,1);
INSERT INTO ICStockBill VALUES(1,21,'2024-01-05 10:00:00',21,101,1,0),(2,21,'2024-01-31 23:00:00',22,101,1,0),(3,21,'2024-01-10 00:00:00',23,101,1,0),(4,21,'2024-02-01 00:00:00',23,101,1,0),(5,21,'2024-01-10 00:00:00',23,101,0,0),(6,1,'2024-01-10 00:00:00',23,101,1,0);
INSERT INTO ICStockBillEntry VALUES(1,1,11,10,100.005,150,0),(1,2,12,24,20,30,2),(2,1,11,5,50,75,0),(3,1,11,1,10,15.5,0),(4,1,11,99,999,999,0),(5,1,11,99,999,999,0),(6,1,11,99,999,999,0);
INSERT INTO ICSale VALUES(1,80,'2024-01-20 00:00:00',21,1,1,0),(2,86,'2024-01-21 00:00:00',23,2,1,0);
INSERT INTO ICSaleEntry VALUES(1,1,11,4,60.005,10,0),(2,1,11,1,15.5,2.25,0);
)sql";

constexpr const char* kFill = R"sql(SET NOCOUNT ON
 Create Table #DATA2 (      FIndex int IDENTITY,
     FItemID int null,
     FCustID int null,
     /*OTHERCOL*/
     FOutQty Decimal(23,10) not null Default(0),
     FOutAmount Decimal(18,2) not null Default(0),
     FConsignAmount Decimal(18,2) not null Default(0),
     FCommitQty Decimal(23,10) not null Default(0),
     FCommitAmount Decimal(18,2) not null Default(0),FSaleStyle  int,FSecQty decimal(23, 10) null,FSecInvoiceQty decimal(23, 10) null)
Insert Into #DATA2 (FItemID,FCustID,/*COLNAME*/FOutQty,FOutAmount,FConsignAmount,FSaleStyle,FSecQty,FSecInvoiceQty)
Select v2.FItemID, v1.FSupplyID,/*COLVALUE*/ v2.FQty,round(v2.FAmount,2),round(v2.FConsignAmount,2),FSaleStyle,FSecQty,0 FSecInvoiceQty
From ICStockBill v1
Join ICStockBillEntry v2 On v1.FInterID = v2.FInterID
Join t_ICItem t1 On v2.FItemID = t1.FItemID
Left Join t_Organization t2 On v1.FSupplyID=t2.FItemID
/*JOINTABLE*/
 Where v1.FTranType =21
  AND v1.FStatus>0 And v1.FCancelLation=0   AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='2024/01/01'
 AND convert(datetime,convert(varchar(30),v1.FDate,111)) <='2024/01/31'
 Insert Into #DATA2 (FItemID,FCustID,/*COLNAME*/FCommitQty,FCommitAmount,FSecQty,FSecInvoiceQty)
 Select v2.FItemID,v1.FCustID,/*COLVALUE*/v2.FQty, Round(case v1.FTranType when 80 then v2.FAmount * isnull(v1.FExchangeRate,1) else  (v2.FAmount - v2.FTaxAmount)* isnull(v1.FExchangeRate,1)  end,2),0,v2.FSecQty
 FROM  ICSale v1
Join ICSaleEntry v2 On v1.FInterID = v2.FInterID
Join t_ICItem t1 On v2.FItemID = t1.FItemID
Left Join t_Organization t2 On v1.FCustID = t2.FItemID
 Where v1.FTranType in (80,86)
  AND v1.FStatus>0 And v1.FCancelLation=0   AND convert(datetime,convert(varchar(30),v1.FDate,111)) >='2024/01/01'
 AND convert(datetime,convert(varchar(30),v1.FDate,111)) <='2024/01/31'
)sql";

constexpr const char* kLevels = R"sql(CREATE TABLE #ItemLevel(
 FNumber1 Varchar(355),
 FName1 Varchar(355),
 FItemID int,
 FNumber VARCHAR(355))
 Insert Into #ItemLevel SELECT
 Case When CharIndex('.',FFullNumber)-1= -1 or FLevel<2 THEN FFullNumber ELSE SUBSTRING(FNumber, 1,CharIndex('.',FFullNumber)-1)  END,
 '',
 FItemID,FNumber From t_Item
 Where FItemClassID=1
 AND FDetail=1
 Update t0 SET t0.FName1=t1.FName
 From #ItemLevel t0 left join t_Item t1 On t0.FNumber1=t1.FNumber  AND t1.FItemClassID=1 AND t1.FDetail=0
)sql";

constexpr const char* kSummary = R"sql(CREATE TABLE #DATA(
FName1 varchar(355) Null,
FCustName varchar(355) Null,
       FNumber  varchar(355) null,
     FOutQty decimal(23, 10) null,
     FOutAmount decimal(18,2) null,
     FCommitQty decimal(23, 10) null,
     FCommitAmount decimal(18,2) null,
     FNotCommitAmount decimal(18,2) null,
     FCUUnitOutQty decimal(23, 10) null,
     FSumSort smallint not null Default(0),
     FID int IDENTITY )
INSERT INTO  #DATA
SELECT tt1.FName1,t2.FName,t1.FNumber,sum(isnull(v1.FOutQty,0)) FOutQty,sum(isnull(v1.FOutAmount,0)) FOutAmount,sum(isnull(v1.FCommitQty,0)) FCommitQty,sum(isnull(v1.FCommitAmount,0)) FCommitAmount,0 FNotCommitAmount,
 SUM(ISNULL(v1.FOutQty,0)/(Case When ISNULL(t3.FCoefficient,0)=0 Then 1 Else t3.FCoefficient End )) FCUUnitOutQty,
 CASE  WHEN   Grouping(tt1.FName1)=1 THEN 106
  WHEN   Grouping(t2.FName)=1 THEN  107  WHEN   Grouping(t1.FNumber)=1 THEN 108  ELSE   0 END
 From #DATA2 v1
 Inner Join t_ICItem t1 On v1.FItemID=t1.FItemID
 Left Join t_Organization t2 On v1.FCustID=t2.FItemID
 Inner Join T_MeasureUnit t3 On t1.FSaleUnitID = t3.FMeasureUnitID
 Inner Join #ItemLevel tt1
 On t2.FItemID=tt1.FItemID WHERE 1=1
  Group By tt1.FName1,t2.FName,t1.FNumber WITH ROLLUP
 Update #DATA set  FNotCommitAmount = isnull(FOutAmount,0) - isnull(FCommitAmount,0)
Drop Table #DATA2
Update t1 Set  FName1=ISNULL(FName1,'')+'['+
ISNULL((Select FNumber1 from #ItemLevel where FName1=t1.FName1 and FNumber=(select top 1 FNumber from #data where FID<t1.FID and len(FNumber)>0 order by FID desc)),'')
+'](小计)'  from #data t1 WHERE FSumSort=107
Update #data Set  FName1=Replace(FName1,'[]','')  WHERE FSumSort=107
Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort=108
Update #Data Set FName1='合计' WHERE FSumSort=106
Update #Data Set FSumSort=101   WHERE FSumSort=106
SELECT FName1,FCustName,FNumber,FOutQty,FOutAmount,FCommitQty,FCommitAmount,FNotCommitAmount,FCUUnitOutQty,FSumSort,FID FROM #DATA
 Order by FID
DROP TABLE #DATA
DROP TABLE #ItemLevel
)sql";

TEST(ReportBatch, SumsOutboundAndInvoicesByCustomerClass) {
  MemoryWorld world(kCompany);
  const std::vector<std::string> rows = world.Rows(std::string(kFill) + kLevels + kSummary);
  // Of the two amounts on a half cent, 100.005 rounds to 100.01 and 60.005 to 60.01; the invoice in foreign
  // money counts (15.50 - 2.25) times 2. The code in a class's brackets is found through the item number,
  // which no customer bears: it is empty and its brackets go.
  EXPECT_THAT(
      rows,
      ElementsAre("North|Ann|P.1|10.0000000000|100.01|4.0000000000|60.01|40.00|10.0000000000|0|1",
                  "North|Ann|P.2|24.0000000000|20.00|0.0000000000|0.00|20.00|2.0000000000|0|2",
                  "North|Ann(小计)|NULL|34.0000000000|120.01|4.0000000000|60.01|60.00|12.0000000000|108|3",
                  "North|Bob|P.1|5.0000000000|50.00|0.0000000000|0.00|50.00|5.0000000000|0|4",
                  "North|Bob(小计)|NULL|5.0000000000|50.00|0.0000000000|0.00|50.00|5.0000000000|108|5",
                  "North(小计)|NULL|NULL|39.0000000000|170.01|4.0000000000|60.01|110.00|17.0000000000|107|6",
                  "South|Cid|P.1|1.0000000000|10.00|1.0000000000|26.50|-16.50|1.0000000000|0|7",
                  "South|Cid(小计)|NULL|1.0000000000|10.00|1.0000000000|26.50|-16.50|1.0000000000|108|8",
                  "South(小计)|NULL|NULL|1.0000000000|10.00|1.0000000000|26.50|-16.50|1.0000000000|107|9",
                  "合计|NULL|NULL|40.0000000000|180.01|5.0000000000|86.51|93.50|18.0000000000|101|10"));
}

TEST(ReportBatch, LeavesNothingBehind) {
  MemoryWorld world(kCompany);
  const std::string batch = std::string(kFill) + kLevels + kSummary;
  const std::vector<std::string> first = world.Rows(batch);
  EXPECT_EQ(world.Rows(batch), first);
}

TEST(ReportBatch, GivesNoRowWhereNothingWasSold) {
  MemoryWorld world(kCompany);
  sqlite3_exec(world.Connection(), "DELETE FROM ICStockBill; DELETE FROM ICSale", nullptr, nullptr, nullptr);
  EXPECT_THAT(world.Rows(std::string(kFill) + kLevels + kSummary), testing::IsEmpty());
}

}  // namespace
}  // namespace salerpt::tsql::test
