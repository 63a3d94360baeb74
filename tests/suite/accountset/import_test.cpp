#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "suite/accountset/accountset.h"
#include "support.h"

namespace salerpt::accountset {
namespace {

const std::string kHeader =
    "InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,Country\n";

class ImportTest : public FolderTest {
 protected:
  // Imports these lines and keeps what was reported.
  void ImportLines(const std::string& lines) { ImportFile(WriteFile("shop.csv", kHeader + lines)); }
  void ImportFile(const std::filesystem::path& csv) {
    std::ostringstream rejects;
    report_ = Import(Db(), csv, rejects);
    rejects_ = rejects.str();
  }
  [[nodiscard]] std::filesystem::path Db() const { return Path("shop.db"); }

  ImportReport report_;
  std::string rejects_;
};

TEST_F(ImportTest, MakesAnInvoiceAndTheOutboundBillThatItSettles) {
  ImportLines(
      "536365,85123A,LANTERN,6,2010-12-01 08:26:00,2.55,17850,United Kingdom\n"
      "536365,71053,HOLDER,2,2010-12-01 08:26:00,3.39,17850,United Kingdom\n");
  EXPECT_EQ(report_.lines, 2);
  EXPECT_EQ(report_.bills, 1);
  EXPECT_EQ(report_.red_bills, 0);
  EXPECT_EQ(report_.items, 2);
  EXPECT_EQ(report_.customers, 1);
  EXPECT_EQ(report_.rejected, 0);
  EXPECT_EQ(Query(Db(), "SELECT FTranType,FBillNo,FDate,FROB,FStatus,FCancelLation,FHookStatus FROM ICSale"),
            (std::vector<Row>{{"86", "536365", "2010-12-01 00:00:00", "1", "1", "0", "2"}}));
  EXPECT_EQ(Query(Db(), "SELECT FTranType,FDate,FROB,FStatus,FCancelLation,FHookStatus FROM ICStockBill"),
            (std::vector<Row>{{"21", "2010-12-01 00:00:00", "1", "1", "0", "2"}}));
  const std::vector<Row> lines = {{"1", "85123A", "6", "2.55", "15.3", "6"},
                                  {"2", "71053", "2", "3.39", "6.78", "2"}};
  EXPECT_EQ(
      Query(Db(),
            "SELECT e.FEntryID,i.FShortNumber,e.FQty,e.FPrice,e.FAmount,e.FAllHookQTY FROM ICSaleEntry e "
            "JOIN t_ICItem i USING(FItemID) ORDER BY 1"),
      lines);
  EXPECT_EQ(
      Query(Db(),
            "SELECT e.FEntryID,i.FShortNumber,e.FQty,e.FConsignPrice,e.FConsignAmount,e.FAllHookQTY FROM "
            "ICStockBillEntry e JOIN t_ICItem i USING(FItemID) ORDER BY 1"),
      lines);
}

TEST_F(ImportTest, HooksEveryInvoiceLineToItsOutboundLine) {
  ImportLines(
      "1,A,a,1,2011-01-01,1,1,X\n"
      "2,A,a,2,2011-01-02,1,1,X\n"
      "1,B,b,3,2011-01-01,1,1,X\n");
  EXPECT_EQ(Query(Db(),
                  "SELECT h.FBillNo,e.FEntryID,o.FQty FROM ICSale h JOIN ICSaleEntry e USING(FInterID) JOIN "
                  "ICStockBillEntry o ON o.FInterID=e.FSourceInterID AND o.FEntryID=e.FSourceEntryID JOIN "
                  "ICStockBill b ON b.FInterID=o.FInterID AND b.FTranType=e.FSourceTranType AND "
                  "b.FBillNo='XOUT'||h.FBillNo AND b.FSaleStyle=h.FSaleStyle ORDER BY 1,2"),
            (std::vector<Row>{{"1", "1", "1"}, {"1", "2", "3"}, {"2", "1", "2"}}));
}

TEST_F(ImportTest, TakesNumbersThatBeginWithCForReturns) {
  ImportLines(
      "C536379,D,Discount,-1,2010-12-01 09:41:00,27.5,14527,United Kingdom\n"
      "536380,22961,JAM,24,2010-12-01 09:41:00,1.45,17809,United Kingdom\n"
      "A563185,B,Adjust bad debt,1,2011-08-12 14:50:00,11062.06,,United Kingdom\n");
  EXPECT_EQ(report_.red_bills, 1);
  EXPECT_EQ(Query(Db(),
                  "SELECT h.FBillNo,h.FROB,o.FROB,e.FQty,e.FAmount FROM ICSale h JOIN ICSaleEntry e "
                  "USING(FInterID) JOIN ICStockBill o USING(FInterID) ORDER BY h.FInterID"),
            (std::vector<Row>{{"C536379", "-1", "-1", "-1", "-27.5"},
                              {"536380", "1", "1", "24", "34.8"},
                              {"A563185", "1", "1", "1", "11062.06"}}));
}

TEST_F(ImportTest, KeepsPricesOfZeroAndBelow) {
  ImportLines(
      "1,A,a,-9600,2011-01-01,0,,United Kingdom\n"
      "2,B,b,1,2011-01-01,-11062.06,,United Kingdom\n");
  EXPECT_EQ(Query(Db(), "SELECT FQty,FPrice,FAmount FROM ICSaleEntry ORDER BY FInterID"),
            (std::vector<Row>{{"-9600", "0", "0"}, {"1", "-11062.06", "-11062.06"}}));
  EXPECT_EQ(Number(Db(), "SELECT sum(FROB) FROM ICSale"), 2);
}

TEST_F(ImportTest, TakesCodesThatDifferInCaseForOneItem) {
  ImportLines(
      "1,85123a,first name,1,2011-01-01,1,1,X\n"
      "1,85123A,second name,2,2011-01-01,1,1,X\n"
      "1,m,Manual,1,2011-01-01,1,1,X\n");
  EXPECT_EQ(report_.items, 2);
  EXPECT_EQ(Query(Db(), "SELECT FNumber,FShortNumber,FName FROM t_ICItem ORDER BY FItemID"),
            (std::vector<Row>{{"8.85123a", "85123a", "first name"}, {"M.m", "m", "Manual"}}));
  EXPECT_EQ(Number(Db(), "SELECT count(DISTINCT FItemID) FROM ICSaleEntry"), 2);
}

TEST_F(ImportTest, NamesAnItemByItsFirstDescription) {
  ImportLines(
      "1,A,,1,2011-01-01,1,1,X\n"
      "1,A,later,2,2011-01-01,1,1,X\n"
      "1,A,last,2,2011-01-01,1,1,X\n"
      "1,B,,2,2011-01-01,1,1,X\n");
  EXPECT_EQ(Query(Db(), "SELECT FName FROM t_ICItem ORDER BY FItemID"), (std::vector<Row>{{"later"}, {"B"}}));
}

TEST_F(ImportTest, PutsItemsUnderTheirFirstCharacterInCapitals) {
  ImportLines(
      "1,gift_1,g,1,2011-01-01,1,1,X\n"
      "1,G2,g,1,2011-01-01,1,1,X\n"
      "1,\xC3\xA9t\xC3\xA9,e,1,2011-01-01,1,1,X\n");
  EXPECT_EQ(
      Query(Db(),
            "SELECT FNumber,FName,FLevel,FParentID FROM t_Item WHERE FItemClassID=4 AND FDetail=0 ORDER BY "
            "FItemID"),
      (std::vector<Row>{{"G", "G", "1", "0"}, {"\xC3\xA9", "\xC3\xA9", "1", "0"}}));
  EXPECT_EQ(Number(Db(),
                   "SELECT count(*) FROM t_Item i JOIN t_Item c ON c.FItemID=i.FParentID AND c.FDetail=0 AND "
                   "i.FNumber=c.FNumber||'.'||i.FShortNumber WHERE i.FItemClassID=4 AND i.FDetail=1 AND "
                   "i.FLevel=2"),
            3);
}

TEST_F(ImportTest, PutsCustomersUnderTheCountryOfTheirFirstLine) {
  ImportLines(
      "1,A,a,1,2011-01-01,1,12346,Iceland\n"
      "2,A,a,1,2011-01-02,1,12346,Norway\n"
      "3,A,a,1,2011-01-03,1,12347,Norway\n");
  EXPECT_EQ(
      Query(Db(),
            "SELECT o.FShortNumber,c.FName FROM t_Organization o JOIN t_Item c ON c.FItemID=o.FParentID "
            "ORDER BY 1"),
      (std::vector<Row>{{"12346", "Iceland"}, {"12347", "Norway"}}));
}

TEST_F(ImportTest, GivesLinesWithoutACustomerToTheUnspecifiedOne) {
  ImportLines(
      "1,A,a,1,2011-01-01,1,,United Kingdom\n"
      "2,A,a,1,2011-01-02,1,1,Unspecified\n");
  EXPECT_EQ(Query(Db(),
                  "SELECT o.FShortNumber,c.FName,h.FBillNo FROM t_Organization o JOIN t_Item c ON "
                  "c.FItemID=o.FParentID JOIN ICSale h ON h.FCustID=o.FItemID ORDER BY 3"),
            (std::vector<Row>{{"00000", "Unspecified", "1"}, {"1", "Unspecified", "2"}}));
  EXPECT_EQ(Number(Db(), "SELECT count(*) FROM t_Item WHERE FItemClassID=1 AND FDetail=0"), 1);
}

TEST_F(ImportTest, TakesCustomerAndDateOfTheFirstLineOfAnInvoice) {
  ImportLines(
      "1,A,a,1,2011-01-01 10:00:00,1,12346,Iceland\n"
      "2,A,a,1,2011-01-05 10:00:00,1,12347,Norway\n"
      "1,B,b,1,2011-01-03 12:00:00,1,12348,Iceland\n");
  EXPECT_EQ(Query(Db(),
                  "SELECT h.FBillNo,o.FShortNumber,h.FDate,count(*) FROM ICSale h JOIN t_Organization o ON "
                  "o.FItemID=h.FCustID JOIN ICSaleEntry e USING(FInterID) GROUP BY h.FInterID ORDER BY 1"),
            (std::vector<Row>{{"1", "12346", "2011-01-01 00:00:00", "2"},
                              {"2", "12347", "2011-01-05 00:00:00", "1"}}));
  EXPECT_EQ(report_.customers, 3);
}

TEST_F(ImportTest, KeepsAmountsToTheLastDigit) {
  ImportLines(
      "1,A,a,3,2011-01-01,0.001,1,X\n"
      "1,B,b,3,2011-01-01,0.1,1,X\n"
      "1,C,c,7,2011-01-01,1.05,1,X\n");
  EXPECT_EQ(
      Query(Db(), "SELECT FAmount FROM ICSaleEntry WHERE FAmount IN (0.003,0.3,7.35) ORDER BY FEntryID"),
      (std::vector<Row>{{"0.003"}, {"0.3"}, {"7.35"}}));
  EXPECT_EQ(Cell(Db(), "SELECT FScale FROM t_Currency WHERE FCurrencyID=1"), "3");
}

TEST_F(ImportTest, GivesTheBaseCurrencyTwoDecimalsWhenTheyAreEnough) {
  ImportLines("1,A,a,3,2011-01-01,2.5,1,X\n");
  EXPECT_EQ(Cell(Db(), "SELECT FScale FROM t_Currency WHERE FCurrencyID=1"), "2");
}

TEST_F(ImportTest, SetsThePeriodsFromTheDates) {
  ImportLines(
      "1,A,a,3,2011-12-09,2.5,1,X\n"
      "2,A,a,3,2010-12-01,2.5,1,X\n");
  EXPECT_EQ(
      Query(Db(),
            "SELECT FKey,FValue FROM t_SystemProfile WHERE FCategory='IC' AND (FKey LIKE 'Start%' OR FKey "
            "LIKE 'Current%') ORDER BY 1"),
      (std::vector<Row>{
          {"CurrentPeriod", "12"}, {"CurrentYear", "2011"}, {"StartPeriod", "12"}, {"StartYear", "2010"}}));
}

TEST_F(ImportTest, GivesAllBillsASaleStyleOfTheEnumeration) {
  ImportLines("1,A,a,3,2011-12-09,2.5,1,X\n");
  EXPECT_EQ(Number(Db(),
                   "SELECT count(*) FROM ICSale h JOIN t_SubMessage s ON s.FInterID=h.FSaleStyle AND "
                   "s.FTypeID=101 JOIN ICStockBill b ON b.FSaleStyle=h.FSaleStyle"),
            1);
}

TEST_F(ImportTest, ReadsPackedFiles) {
  ImportFile(WriteGzip("shop.csv.gz", kHeader + "1,A,a,3,2011-12-09,2.5,1,X\n"));
  EXPECT_EQ(report_.lines, 1);
}

TEST_F(ImportTest, ReadsQuotesLineEndsAndTheByteOrderMark) {
  ImportFile(WriteFile("shop.csv",
                       "\xEF\xBB\xBF"
                       "InvoiceNo,StockCode,Description,Quantity,InvoiceDate,UnitPrice,CustomerID,Country\r\n"
                       "1,A,\"5\"\" PLATE, BLUE\",3,2011-12-09,2.5,1,X\r\n"));
  EXPECT_EQ(Cell(Db(), "SELECT FName FROM t_ICItem"), "5\" PLATE, BLUE");
}

TEST_F(ImportTest, ListsRejectedLinesAndKeepsTheOthers) {
  ImportLines(
      "1,A,a,3,2011-12-09,2.5,1,X\n"
      "1,A,a,3,2011-12-09\n"
      "1,A,a,three,2011-12-09,2.5,1,X\n"
      "1,A,a,3,09.12.2011,2.5,1,X\n"
      "1,A,a,3,2011-12-09,,1,X\n"
      "1,\"A,a,3,2011-12-09,2.5,1,X\n"
      "1,B,b,4,2011-12-09,2.5,1,X\n");
  const std::string csv = Path("shop.csv").string();
  EXPECT_EQ(report_.lines, 2);
  EXPECT_EQ(report_.rejected, 5);
  EXPECT_EQ(rejects_, csv + ":3: 5 columns where 8 were expected: \"1\"\n" + csv +
                          ":4: Quantity is no number: \"three\"\n" + csv +
                          ":5: InvoiceDate is no date (YYYY-MM-DD HH:MM:SS was expected): \"09.12.2011\"\n" +
                          csv + ":6: UnitPrice is no number: \"\"\n" + csv +
                          ":7: a quote opens and never closes: \"1,\"A,a,3,2011-12-09,2.5,1,X\"\n");
  EXPECT_EQ(Number(Db(), "SELECT count(*) FROM ICSaleEntry"), 2);
}

TEST_F(ImportTest, TellsHowFarItIs) {
  const auto csv = WriteFile("shop.csv", kHeader + "1,A,a,3,2011-12-09,2.5,1,X\n");
  std::ostringstream rejects;
  int calls = 0;
  Import(Db(), csv, rejects, [&](std::int64_t done, std::int64_t total) {
    ++calls;
    EXPECT_GE(total, done);
  });
  EXPECT_GE(calls, 1);
}

}  // namespace
}  // namespace salerpt::accountset
