// The credit reports' batches on the small company: figures reckoned by hand.
#include <gtest/gtest.h>

#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

// Customers 201 and 202 are key customers; both employees sell at home. Of 201's first invoice line 20 are
// paid. Bills of each kind beside them: not audited, cancelled, in April, of another kind.
constexpr const char* kCredit = R"sql(
INSERT INTO t_SubMessage(FInterID,FTypeID,FID,FName) VALUES (2801,28,'KH01','重点客户'),(2802,28,'KH02','一般客户'),
  (2901,29,'ZY01','内销业务员'),(2902,29,'ZY02','外销业务员'),(101,101,'FXF02','赊销');
UPDATE t_Organization SET FTypeID=CASE WHEN FItemID<203 THEN 2801 ELSE 2802 END;
UPDATE t_Emp SET FTypeID=2901;
INSERT INTO ICCreditQty VALUES (0,201,101,24),(0,201,102,3),(0,202,101,12),(0,203,103,5),(1,301,101,100),
  (1,302,101,4),(2,401,102,50),(3,2801,101,50),(4,2901,101,60);
INSERT INTO ICCreditAmount VALUES (0,201,1,'A级',100,10),(0,202,2,'B级',50,5),(0,203,1,'C级',20,30),
  (0,203,2,'C级',10,30),(1,301,1,'B级',300,45),(2,402,1,'B级',80,45),(3,2801,1,'A级',500,60),(4,2901,1,NULL,900,0);
INSERT INTO ICCreditDiscount VALUES (0,201,40,2),(0,202,5,3),(0,202,30,1),(1,201,40,50),(3,2801,10,4);

INSERT INTO SEContract(FInterID,FBillNo,FDate,FCustID,FDeptID,FEmpID,FStatus,FCancelLation)
  VALUES (1,'HT1','2024-03-01 00:00:00',201,401,301,1,0),(2,'HT2','2024-03-01 00:00:00',201,401,301,1,1),
         (3,'HT3','2024-03-01 00:00:00',201,401,301,0,0);
INSERT INTO SEContractEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FAmount,FTaxAmount,
    FAllAmount,FStdAllAmount,FReceiveAmountFor,FReceiveAmount)
  VALUES (1,1,101,1,100,100,9,9,900,100,1000,1000,100,100),(2,1,101,1,7,7,9,9,63,7,70,70,0,0),
         (3,1,101,1,8,8,9,9,72,8,80,80,0,0);
INSERT INTO SEOrder(FInterID,FBillNo,FDate,FCustID,FDeptID,FEmpID,FCurrencyID,FExchangeRate,FSaleStyle,FStatus,
    FCancelLation)
  VALUES (1,'SE1','2024-03-02 00:00:00',201,401,302,1,1,101,1,0),(2,'SE2','2024-03-03 00:00:00',202,402,302,2,7,101,1,0),
         (3,'SE3','2024-03-04 00:00:00',202,402,302,2,7,101,0,0),(4,'SE4','2024-03-04 00:00:00',201,401,301,1,1,101,1,1),
         (5,'SE5','2024-03-31 09:00:00',203,402,301,1,1,101,3,0),(6,'SE6','2024-04-01 00:00:00',201,401,302,1,1,101,1,0);
INSERT INTO SEOrderEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FTaxRate,FAmount,FTaxAmount,
    FAllAmount,FStdAllAmount,FReceiveAmountFor,FReceiveAmount)
  VALUES (1,1,101,1,5,5,10,10,17,50,8.5,58.5,58.5,8.5,8.5),(2,1,101,1,3,3,10,10,10,27,3,30,210,10,70),
         (3,1,101,1,9,9,1,1,17,9,1,10,70,0,0),(4,1,101,1,9,9,1,1,17,9,1,10,10,0,0),
         (5,1,103,3,2,2,20,20,0,40,0,40,40,0,0),(6,1,101,1,9,9,1,1,17,9,1,10,10,0,0);
INSERT INTO ICStockBill(FInterID,FTranType,FBillNo,FDate,FSupplyID,FDeptID,FEmpID,FStatus,FUpStockWhenSave,FCancelLation)
  VALUES (1,21,'XO1','2024-03-05 00:00:00',201,401,301,1,0,0),(2,21,'XO2','2024-03-06 00:00:00',202,402,302,0,1,0),
         (3,21,'XO3','2024-03-06 00:00:00',202,402,302,0,0,0),(4,1,'WIN','2024-03-06 00:00:00',201,401,301,1,0,0),
         (5,21,'XO5','2024-03-07 00:00:00',202,402,302,0,1,1);
INSERT INTO ICStockBillEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FConsignAmount,FOrderInterID,FOrderEntryID)
  VALUES (1,1,101,1,6,6,60,NULL,NULL),(2,1,101,1,1,1,10,2,1),(3,1,101,1,9,9,90,NULL,NULL),(4,1,101,1,9,9,90,NULL,NULL),
         (5,1,101,1,9,9,90,NULL,NULL);
UPDATE ICSaleEntry SET FStdTaxAmount=FTaxAmount WHERE FInterID IN (1,3,6);
UPDATE ICSaleEntry SET FSourceTranType=21,FSourceInterID=1,FSourceEntryID=1,FReceiveAmountFor=20,FReceiveAmount=20
  WHERE FInterID=1 AND FEntryID=1;
)sql";

using Entries = std::initializer_list<Dictionary::Entry>;
using Lines = std::vector<std::string>;

class SaleCreditTest : public CompanyTest {
 protected:
  SaleCreditTest() { Sql(kCredit); }

  static DictionaryRef Answer(std::string_view operation, Entries chosen) {
    auto filter = std::make_shared<Dictionary>(
        Entries{{"BDate", "2024-03-01"}, {"EDate", "2024-03-31"}, {"FDate", "2024-04-05"}, {"FGroupID", 3}});
    for (const auto& [key, value] : chosen) filter->Set(key, value);
    auto result = std::make_shared<Dictionary>();
    Call(CreateObject("ORVMSaleCredit.clsGetData"), operation, filter, result);
    return result;
  }
  static RecordsetRef Rows(std::string_view operation, Entries chosen) {
    const DictionaryRef result = Answer(operation, chosen);
    EXPECT_EQ(result->Get("Error").TextOrEmpty(), "");
    return Query(result->Get("Sql").ToText());
  }
  static std::string Error(std::string_view operation, Entries chosen) {
    const DictionaryRef result = Answer(operation, chosen);
    EXPECT_EQ(Query(result->Get("Sql").ToText())->RecordCount(), 0);
    EXPECT_EQ(result->Get("ErrorSource"), Variant(Join("ORVMSaleCredit.clsGetData:", operation)));
    return result->Get("Error").TextOrEmpty();
  }

  static Lines Quantities(Entries chosen) {
    return Table(Rows("GetCreditRptByQty", chosen),
                 {"FNumber", "FICNumber", "FCreditQty", "FQty", "FBalQty"});
  }
  static Lines Amounts(Entries chosen) {
    return Table(Rows("GetCreditRptByAmt", chosen), {"FNumber", "FCurrencyName", "FStdAmt", "FCreditStdAmt",
                                                     "FBalStdAmt", "FAmt", "FCreditAmt", "FBalAmt"});
  }
  static Lines Terms(Entries chosen) {
    return Table(Rows("GetCreditRptByDate", chosen),
                 {"FNumber", "FCreditTime", "FCreditLevel", "FAmount", "FDiscountRate", "FDicAmount"});
  }
};

// --- Quantity

TEST_F(SaleCreditTest, GivesTheColumnsOfTheHeaders) {
  EXPECT_EQ(FieldNames(Rows("GetCreditRptByQty", {})),
            "FNumber FName FICNumber FICShortNumber FICName FModel FUnitName FCreditQty FQty FBalQty "
            "FSaleUnitName FSaleUnitCreditQty FSaleUnitQty FSaleUnitBalQty");
  EXPECT_EQ(FieldNames(Rows("GetCreditRptByAmt", {})),
            "FNumber FName FCreditLevel FCurrencyName FStdAmt FAmt FCreditStdAmt FCreditAmt FBalStdAmt "
            "FBalAmt");
  EXPECT_EQ(FieldNames(Rows("GetCreditRptByDate", {})),
            "FNumber FName FCreditTime FCreditLevel FAmount FDiscountRate FDicAmount");
}

TEST_F(SaleCreditTest, SetsInvoicedQuantitiesAgainstTheLimits) {
  EXPECT_EQ(Quantities({}),
            (Lines{"C.01|01.01|24|10|14", "C.01|01.02|3|4|-1", "C.02|01.01|12|2|10", "C.O'3|01.03|5|-3|8"}));
}

TEST_F(SaleCreditTest, TellsTheItemAndReckonsInItsSaleUnit) {
  EXPECT_EQ(Table(Rows("GetCreditRptByQty", {{"FGroupID", 2}, {"FItemIDTo", "C.01"}}),
                  {"FName", "FICShortNumber", "FICName", "FModel", "FUnitName", "FSaleUnitName",
                   "FSaleUnitCreditQty", "FSaleUnitQty", "FSaleUnitBalQty"}),
            (Lines{"东风商行|9|螺栓|M8|件|箱|2|0.5|1.5", "东风商行|5|螺母||件|件|3|0|3"}));
}

TEST_F(SaleCreditTest, TakesTheBillsOfTheGroup) {
  EXPECT_EQ(Quantities({{"FGroupID", 0}, {"FICItemIDTo", "01.01"}}),
            (Lines{"C.01|01.01|24|100|-76", "C.02|01.01|12|0|12"}));
  EXPECT_EQ(Quantities({{"FGroupID", 1}}),
            (Lines{"C.01|01.01|24|5|19", "C.01|01.02|3|0|3", "C.02|01.01|12|3|9", "C.O'3|01.03|5|2|3"}));
  EXPECT_EQ(Quantities({{"FGroupID", 2}, {"FICItemIDTo", "01.01"}}),
            (Lines{"C.01|01.01|24|6|18", "C.02|01.01|12|1|11"}));
}

TEST_F(SaleCreditTest, TakesTheDaysWithBothEnds) {
  EXPECT_EQ(Quantities({{"EDate", "2024-03-30"}, {"FItemIDFrom", "C.02"}, {"FItemIDTo", "C.02"}}),
            (Lines{"C.02|01.01|12|0|12"}));
  EXPECT_EQ(Quantities({{"BDate", "2024-03-31"}, {"FItemIDTo", "C.01"}, {"FICItemIDTo", "01.01"}}),
            (Lines{"C.01|01.01|24|0|24"}));
}

TEST_F(SaleCreditTest, GroupsByTheHolderOfTheClass) {
  EXPECT_EQ(Quantities({{"FCreditClass", 1}}), (Lines{"E.01|01.01|100|10|90", "E.02|01.01|4|2|2"}));
  EXPECT_EQ(Quantities({{"FCreditClass", 1}, {"FGroupID", 1}}),
            (Lines{"E.01|01.01|100|0|100", "E.02|01.01|4|8|-4"}));
  EXPECT_EQ(Quantities({{"FCreditClass", 2}}), (Lines{"D.01|01.02|50|4|46"}));
  EXPECT_EQ(Quantities({{"FCreditClass", 3}}), (Lines{"KH01|01.01|50|12|38"}));
  EXPECT_EQ(Quantities({{"FCreditClass", 3}, {"FGroupID", 2}}), (Lines{"KH01|01.01|50|7|43"}));
  EXPECT_EQ(Quantities({{"FCreditClass", 4}}), (Lines{"ZY01|01.01|60|12|48"}));
  EXPECT_EQ(Quantities({{"FCreditClass", 5}}), Lines{});
}

TEST_F(SaleCreditTest, TakesRangesOfCodes) {
  EXPECT_EQ(Quantities({{"FItemIDFrom", "C.02"}}), (Lines{"C.02|01.01|12|2|10", "C.O'3|01.03|5|-3|8"}));
  EXPECT_EQ(Quantities({{"FItemIDFrom", "C.O'3"}, {"FItemIDTo", "C.O'3"}}), (Lines{"C.O'3|01.03|5|-3|8"}));
  EXPECT_EQ(Quantities({{"FICItemIDFrom", "01.02"}, {"FICItemIDTo", "01.02"}}), (Lines{"C.01|01.02|3|4|-1"}));
  EXPECT_EQ(Quantities({{"FItemIDFrom", "KH02"}, {"FCreditClass", 3}}), Lines{});
}

TEST_F(SaleCreditTest, TakesTheCodesInUse) {
  const Lines by_short_code = {"1|01.03|5|-3|8", "2|01.01|12|2|10"};
  EXPECT_EQ(Quantities({{"bLongNumber", false}, {"FItemIDTo", "2"}}), by_short_code);
  EXPECT_EQ(Quantities({{"bLongNumber", false}, {"FICItemIDTo", "5"}}), (Lines{"3|01.02|3|4|-1"}));
  Sql("UPDATE t_SystemProfile SET FValue='1' WHERE FKey='UseShortNumber'");
  EXPECT_EQ(Quantities({{"FItemIDTo", "2"}}), by_short_code);
  EXPECT_EQ(Quantities({{"FCreditClass", 3}}), (Lines{"KH01|01.01|50|12|38"}));
}

TEST_F(SaleCreditTest, ShowsNobodyWhomTheUserMayNotSee) {
  Sql("INSERT INTO t_DataRight(FUserID,FKind,FUsed) VALUES (16394,1,1)");
  EXPECT_EQ(Quantities({}), (Lines{"C.01|01.01|24|10|14", "C.01|01.02|3|4|-1", "C.O'3|01.03|5|-3|8"}));
  EXPECT_EQ(Amounts({{"FItemIDFrom", 202}, {"FItemIDTo", 202}}), Lines{});
  EXPECT_EQ(Quantities({{"FCreditClass", 3}}), (Lines{"KH01|01.01|50|12|38"}));
}

// --- Amount

TEST_F(SaleCreditTest, SetsWhatIsOwedAgainstTheLimits) {
  EXPECT_EQ(Amounts({{"FGroupID", 1}}),
            (Lines{"C.01|人民币|50|100|50|50|100|50", "C.02|美元|20|50|30|140|350|210",
                   "C.O'3|人民币|40|20|-20|40|20|-20", "C.O'3|美元|0|10|10|0|70|70"}));
  EXPECT_EQ(Amounts({{"FGroupID", 0}, {"FItemIDTo", 201}}), (Lines{"C.01|人民币|900|100|-800|900|100|-800"}));
}

TEST_F(SaleCreditTest, ReckonsOutboundBillsWithTaxAndWithoutWhatIsPaid) {
  // 60 with 17 per cent less 20; 10 with the order's 10 per cent, at 7.
  EXPECT_EQ(Amounts({{"FGroupID", 2}, {"FItemIDTo", 202}}),
            (Lines{"C.01|人民币|50.2|100|49.8|50.2|100|49.8", "C.02|美元|1.57|50|48.43|10.99|350|339.01"}));
}

TEST_F(SaleCreditTest, ReckonsInvoicesOfBothKinds) {
  // 100 + 17 + 10.126 + 1.72 less 20; a plain invoice holds its tax.
  EXPECT_EQ(Amounts({}),
            (Lines{"C.01|人民币|108.85|100|-8.85|108.85|100|-8.85", "C.02|美元|23.4|50|26.6|163.8|350|186.2",
                   "C.O'3|人民币|-35.1|20|55.1|-35.1|20|55.1", "C.O'3|美元|0|10|10|0|70|70"}));
}

TEST_F(SaleCreditTest, ConvertsByTheRateOfTheFilter) {
  EXPECT_EQ(Amounts({{"FGroupID", 1}, {"FCurrencyID", 2}, {"FExchangeRate", 6.5}, {"FItemIDTo", 202}}),
            (Lines{"C.01|人民币|50|100|50|7.69|15.38|7.69", "C.02|美元|20|50|30|20|50|30"}));
  EXPECT_EQ(Amounts({{"FGroupID", 1}, {"FCurrencyID", 2}, {"FItemIDTo", 201}}),
            (Lines{"C.01|人民币|50|100|50|7.14|14.29|7.15"}));
  EXPECT_EQ(Amounts({{"FGroupID", 1}, {"FCurrencyID", 1}, {"FExchangeRate", 1}, {"FItemIDTo", 201}}),
            (Lines{"C.01|人民币|50|100|50|50|100|50"}));
}

TEST_F(SaleCreditTest, UsesAnotherLimitWhereThereIsNoneInTheBillsCurrency) {
  // The invoice in dollars uses the department's limit in base currency.
  EXPECT_EQ(Amounts({{"FCreditClass", 2}}), (Lines{"D.02|人民币|140|80|-60|140|80|-60"}));
  // 50 + 20 dollars at 7.
  EXPECT_EQ(Amounts({{"FCreditClass", 3}, {"FGroupID", 1}}), (Lines{"KH01|人民币|190|500|310|190|500|310"}));
  // A dollar bill uses the dollar limit where there is one.
  Sql("UPDATE SEOrder SET FCustID=203 WHERE FInterID=2");
  EXPECT_EQ(Amounts({{"FGroupID", 1}, {"FItemIDFrom", 203}}),
            (Lines{"C.O'3|人民币|40|20|-20|40|20|-20", "C.O'3|美元|20|10|-10|140|70|-70"}));
}

TEST_F(SaleCreditTest, TakesNumbersOfHoldersByTheirCodes) {
  // Numbers in another order than the codes.
  Sql("INSERT INTO t_Organization(FItemID,FNumber,FShortNumber,FName) VALUES (5,'C.015','8','中')");
  EXPECT_EQ(Amounts({{"FItemIDFrom", 5}, {"FItemIDTo", "202"}, {"FGroupID", 1}}),
            (Lines{"C.02|美元|20|50|30|140|350|210"}));
  EXPECT_EQ(Amounts({{"FItemIDFrom", 0}, {"FItemIDTo", ""}, {"FCreditClass", 1}}),
            (Lines{"E.01|人民币|108.85|300|191.15|108.85|300|191.15"}));
  EXPECT_EQ(
      Amounts({{"FItemIDFrom", 2801}, {"FItemIDTo", 2801}, {"FCreditClass", 3}, {"FGroupID", 1}}).size(), 1U);
}

TEST_F(SaleCreditTest, ConvertsNothingWithoutARate) {
  Sql("DELETE FROM t_Currency WHERE FCurrencyID=2");
  EXPECT_EQ(Amounts({{"FGroupID", 1}, {"FItemIDFrom", 202}, {"FItemIDTo", 202}}),
            (Lines{"C.02||20|50|30|||"}));
}

// --- Term

TEST_F(SaleCreditTest, SplitsWhatIsOwedByTheDiscountThatIsLeft) {
  // 31, 5 and 4 or 16 days old.
  EXPECT_EQ(Terms({}),
            (Lines{"C.01|10|A级|108.85|2|106.67", "C.02|5|B级|140|3|135.8", "C.O'3|30|C级|-29.25|0|-29.25"}));
  EXPECT_EQ(Terms({{"FDate", "2024-04-06"}, {"FItemIDFrom", 202}, {"FItemIDTo", 202}}),
            (Lines{"C.02|5|B级|140|1|138.6"}));
  EXPECT_EQ(Terms({{"FDate", "2024-05-31"}, {"FItemIDFrom", 202}, {"FItemIDTo", 202}}),
            (Lines{"C.02|5|B级|140|0|140"}));
}

TEST_F(SaleCreditTest, ShowsARowForEachStretchOfDays) {
  Sql("UPDATE ICSale SET FCustID=202,FDate='2024-03-10 00:00:00' WHERE FInterID=3");
  EXPECT_EQ(Terms({{"FItemIDFrom", 202}, {"FItemIDTo", 202}}),
            (Lines{"C.02|5|B级|140|3|135.8", "C.02|5|B级|5.85|1|5.79"}));
}

TEST_F(SaleCreditTest, LeavesOutWhatIsInvoicedLaterOrPaid) {
  EXPECT_EQ(Terms({{"FDate", "2024-03-30"}, {"FItemIDFrom", 202}, {"FItemIDTo", 202}}), Lines{});
  EXPECT_EQ(Terms({{"FDate", "2024-03-31"}, {"FItemIDFrom", 202}, {"FItemIDTo", 202}}),
            (Lines{"C.02|5|B级|140|3|135.8"}));
  Sql("UPDATE ICSaleEntry SET FReceiveAmountFor=23.4,FReceiveAmount=140 WHERE FInterID=2");
  EXPECT_EQ(Terms({{"FItemIDFrom", 202}, {"FItemIDTo", 202}}), Lines{});
}

TEST_F(SaleCreditTest, ConvertsWhatIsOwed) {
  EXPECT_EQ(Terms({{"FCurrencyID", 2}, {"FRate", 6.5}, {"FItemIDTo", 202}}),
            (Lines{"C.01|10|A级|16.75|2|16.42", "C.02|5|B级|23.4|3|22.7"}));
  EXPECT_EQ(Terms({{"FCurrencyID", 2}, {"FExchangeRate", 6.5}, {"FItemIDTo", 201}}),
            (Lines{"C.01|10|A级|16.75|2|16.42"}));
  EXPECT_EQ(Terms({{"FCurrencyID", 2}, {"FItemIDTo", 201}}), (Lines{"C.01|10|A级|15.55|2|15.24"}));
}

TEST_F(SaleCreditTest, GivesTermsToOtherHolders) {
  EXPECT_EQ(Terms({{"FCreditClass", 3}}), (Lines{"KH01|60|A级|140|4|134.4", "KH01|60|A级|108.85|0|108.85"}));
  EXPECT_EQ(Terms({{"FCreditClass", 2}}), (Lines{"D.02|45|B级|140|0|140"}));
  // Without a term there is nothing to stand against.
  EXPECT_EQ(Terms({{"FCreditClass", 4}}), Lines{});
}

// --- What is missing or wrong

TEST_F(SaleCreditTest, GivesNoBatchWithoutLimits) {
  Sql("UPDATE ICCreditAmount SET FCreditTime=0");
  EXPECT_EQ(Answer("GetCreditRptByDate", {})->Get("Sql"), Variant(""));
  EXPECT_EQ(Amounts({{"FItemIDTo", 201}}).size(), 1U);
  Sql("DELETE FROM ICCreditAmount");
  EXPECT_EQ(Answer("GetCreditRptByAmt", {})->Get("Sql"), Variant(""));
  EXPECT_EQ(Answer("GetCreditRptByDate", {})->Get("Sql"), Variant(""));
  EXPECT_EQ(Quantities({{"FICItemIDTo", "01.01"}}).size(), 2U);
  Sql("DELETE FROM ICCreditQty");
  EXPECT_EQ(Answer("GetCreditRptByQty", {})->Get("Sql"), Variant(""));
  EXPECT_FALSE(Answer("GetCreditRptByQty", {})->Lookup("Error"));
}

TEST_F(SaleCreditTest, TellsWhatIsWrong) {
  EXPECT_EQ(Error("GetCreditRptByQty", {{"BDate", ""}}), "BDate is missing; a date was expected");
  EXPECT_EQ(Error("GetCreditRptByAmt", {{"EDate", Null()}}), "EDate is missing; a date was expected");
  EXPECT_EQ(Error("GetCreditRptByDate", {{"FDate", ""}}), "FDate is missing; a date was expected");
  EXPECT_EQ(Error("GetCreditRptByQty", {{"FGroupID", 4}}), "FGroupID is 4; 0 to 3 was expected");
  EXPECT_EQ(Error("GetCreditRptByAmt", {{"FCurrencyID", 9}}),
            "FCurrencyID is 9; the number of a currency was expected");
  EXPECT_EQ(Error("GetCreditRptByAmt", {{"FCurrencyID", 2}, {"FExchangeRate", -1}}),
            "the rate of exchange is -1; a number above 0 was expected");
  EXPECT_EQ(Error("GetCreditRptByAmt", {{"FItemIDTo", 999}}),
            "FItemIDTo is 999; the number of a customer was expected");
  EXPECT_EQ(Error("GetCreditRptByDate", {{"FCreditClass", 4}, {"FItemIDFrom", 2801}}),
            "FItemIDFrom is 2801; the number of a class of employees was expected");
  EXPECT_NE(Error("GetCreditRptByAmt", {{"FItemIDFrom", "C.01"}}), "");
  EXPECT_NE(Error("GetCreditRptByQty", {{"FCreditClass", "abc"}}), "");
}

TEST_F(SaleCreditTest, LeavesTheFilterAsItWas) {
  const auto filter = std::make_shared<Dictionary>(
      Entries{{"BDate", "2024-03-01"}, {"EDate", "2024-03-31"}, {"FCreditClass", 0}, {"FGroupID", 1}});
  Call(CreateObject("ORVMSaleCredit.clsGetData"), "GetCreditRptByQty", filter,
       std::make_shared<Dictionary>());
  EXPECT_EQ(filter->Entries().size(), 4U);
  EXPECT_THROW(Call(CreateObject("ORVMSaleCredit.clsGetData"), "GetCreditRptByQty", filter, Variant()),
               RuntimeError);
}

}  // namespace
}  // namespace salerpt::middletier
