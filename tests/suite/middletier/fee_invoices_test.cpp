// The fee invoice summary and list: a few invoices worked out by hand, and a made-up company.
#include "suite/middletier/fee_invoices.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"
#include "tests/suite/middletier/generated_set.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Suppliers 801 (user 16394), 802 (16395); fees 901 to 903, whose long and short codes run against each
// other, the last of no type and unit; the code of fee 901 is that of an item, too.
constexpr const char* kMasterData = R"sql(
INSERT INTO t_Supplier(FItemID,FNumber,FShortNumber,FName,FRightUserID)
  VALUES (801,'G.01','2','顺达运输','16394'),(802,'G.02','1','联合物流','16395');
INSERT INTO t_SubMessage(FInterID,FTypeID,FID,FName)
  VALUES (3001,300,'1','运输费'),(3002,300,'2','装卸费'),(252,102,'2','赊购'),(101,101,'2','赊销');
INSERT INTO t_Fee(FItemID,FNumber,FShortNumber,FName,FFeeType,FUnit)
  VALUES (901,'01.01','8','汽运费',3001,'吨'),(902,'01.02','6','装车费',3002,'次'),(903,'02.01','7','杂费',0,NULL);
INSERT INTO t_User(FUserID,FName) VALUES (16394,'管理员');
INSERT INTO t_ICItem(FItemID,FNumber,FShortNumber,FName,FUnitGroupID,FUnitID,FOrderUnitID,FSaleUnitID,FStoreUnitID,
    FProductUnitID,FCUUnitID) VALUES (104,'010.01','4','别的',1,1,1,1,1,1,1);
)sql";

// To pay 1 to 4, to receive 5 to 7. 2 is hooked in part, 3 is not audited, 4 red, 6 in dollars, 7 cancelled.
constexpr const char* kInvoices = R"sql(
INSERT INTO ICFeeInvoice(FInterID,FTranType,FBillNo,FDate,FSupplyID,FCustID,FCurrencyID,FExchangeRate,FPOStyle,
    FSaleStyle,FROB,FStatus,FCancelLation,FHookStatus,FCheckerID,FNote)
  VALUES (1,78,'F1','2024-03-05 00:00:00',801,0,1,1,252,0,1,1,0,2,16394,'三月运费'),
         (2,78,'F2','2024-03-31 18:30:00',802,0,1,1,252,0,1,1,0,1,16394,NULL),
         (3,78,'F3','2024-03-10 00:00:00',801,0,1,1,252,0,1,0,0,0,NULL,NULL),
         (4,78,'F4','2024-03-05 00:00:00',801,0,1,1,252,0,-1,1,0,0,16394,NULL),
         (5,79,'F5','2024-03-12 00:00:00',0,201,1,1,0,101,1,1,0,0,16394,NULL),
         (6,79,'F6','2024-03-20 00:00:00',0,202,2,7,0,101,1,1,0,2,16394,NULL),
         (7,79,'F7','2024-03-21 00:00:00',0,202,1,1,0,101,1,1,1,0,16394,NULL),
         (8,80,'F8','2024-03-21 00:00:00',801,0,1,1,0,0,1,1,0,0,16394,NULL),
         (9,78,'F9','2024-04-01 00:00:00',801,0,1,1,252,0,1,1,0,0,16394,NULL);
INSERT INTO ICFeeInvoiceEntry(FInterID,FEntryID,FItemID,FICItemID,FAuxQty,FAuxPrice,FAmount,FTaxRate,FTaxAmount,
    FStdAmount,FStdTaxAmount,FNote)
  VALUES (1,2,902,0,2,50,100,0,0,100,0,NULL),(1,1,901,101,10,20,214,7,14,214,14,'加急'),
         (2,1,901,102,1,30,32.1,7,2.1,32.1,2.1,NULL),(3,1,901,101,1,40,42.8,7,2.8,42.8,2.8,NULL),
         (4,1,901,101,-1,20,-21.4,7,-1.4,-21.4,-1.4,NULL),(5,1,903,103,3,10,30,0,0,30,0,NULL),
         (6,1,901,104,4,5,21.4,7,1.4,149.8,9.8,NULL),(7,1,901,101,9,9,81,0,0,81,0,NULL),
         (8,1,901,101,9,9,81,0,0,81,0,NULL),(9,1,901,101,9,9,81,0,0,81,0,NULL);
)sql";

// March 2024, every audited invoice, long codes.
DictionaryRef MarchFilter() {
  return std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{{"BDate", "2024-03-01"},
                                                                               {"EDate", "2024-03-31"},
                                                                               {"InvoiceStyle", 2},
                                                                               {"CheckState", 0},
                                                                               {"HookStatus", 2},
                                                                               {"bLongNumber", true}});
}

// The batch by fee.
DictionaryRef FeeRequest() {
  auto request = std::make_shared<Dictionary>();
  request->Set(
      "SElECT",
      "CREATE TABLE #DATA(    FNumber varchar(355) null,\r\n     FFeeType varchar(355) null,\r\n"
      "     FName  varchar(355) null,\r\n     FUnit  varchar(355) null,\r\n     FQtyDecimal smallint null, "
      "\r\n"
      "     FPriceDecimal smallint null, \r\n     FAuxQty decimal(23,10) null default (0),\r\n"
      "     FAmount decimal(23,10) null default (0),\r\n     FTaxAmount decimal(23,10) null default (0),\r\n"
      "     FAmountEx decimal(23,10) null default (0),\r\n     FSumSort smallint not null Default(0))\r\n"
      "  INSERT INTO #DATA  SELECT CASE   WHEN GROUPING(t4.FNumber)=1 THEN '合计' \r\n ELSE t4.FNumber END, "
      "'','','',4,4,Sum (v1.FAuxQty), Sum(v1.FAmount), Sum(v1.FTaxAmount),Sum(v1.FAmount)-Sum(v1.FTaxAmount) "
      ","
      " CASE WHEN  GROUPING(t4.FNumber)=1 THEN 101 \r\n ELSE 0 END  From  #T301B v1\r\n"
      "Left Join t_Organization t2 On v1.FCustID=t2.FItemID\r\n"
      "Left Join t_Supplier t3 On v1.FSupplyID=t3.FItemID\r\nLeft Join t_Fee t4 On v1.FItemID=t4.FItemID\r\n"
      "Left Join t_SubMessage k1 On t4.FFeeType=k1.FInterID\r\n WHERE 1=1 ");
  request->Set("GROUPBY", "Group by t4.FNumber WITH ROLLUP ");
  request->Set("EndSel", "SELECT * FROM #DATA  ");
  return request;
}

class FeeInvoicesTest : public CompanyTest {
 protected:
  FeeInvoicesTest() {
    Sql(kMasterData);
    Sql(kInvoices);
  }

  RecordsetRef Summary(const DictionaryRef& filter, const DictionaryRef& request = FeeRequest()) {
    Server server(std::make_shared<accountset::AccountSet>(OpenAgain()), Login{});
    return FeeSummary(server, *filter, *request);
  }
  RecordsetRef List(const DictionaryRef& filter) {
    Server server(std::make_shared<accountset::AccountSet>(OpenAgain()), Login{});
    return FeeList(server, *filter);
  }

  // The bills of both operations under a filter, in the order of the list; the summary must hold the same
  // lines.
  std::vector<std::string> Bills(const DictionaryRef& filter) {
    std::vector<std::string> bills = Cells(List(filter), "FBillNo");
    const DictionaryRef lines = std::make_shared<Dictionary>();
    lines->Set("SELECT", "SET NOCOUNT ON");
    lines->Set("EndSel", "Select Count(*) FLines,IsNull(Sum(FAmount),0) FAmount From #T301B");
    const RecordsetRef counted = Summary(filter, lines);
    const auto total = bills.empty() ? 0 : static_cast<std::int32_t>(bills.size()) - 1;
    EXPECT_EQ(counted->Value("FLines").ToInt32(), total);
    if (!bills.empty()) {
      EXPECT_EQ(bills.back(), "合计");
      bills.pop_back();
    }
    return bills;
  }
};

std::vector<std::string> Column(const RecordsetRef& rows, std::string_view field) {
  if (rows->RecordCount() > 0) rows->MoveFirst();
  return Cells(rows, field);
}

struct Filled {
  const char* field;
  std::vector<std::string> cells;
};

// --- Which invoices

struct Narrowed {
  const char* key;
  Variant value;
  std::vector<std::string> bills;
};

TEST_F(FeeInvoicesTest, EveryKeyOfTheFilterNarrowsTheLines) {
  EXPECT_THAT(Bills(MarchFilter()), ElementsAre("F1", "F1", "F4", "F5", "F6", "F2"));
  for (const Narrowed& expected :
       {Narrowed{"BDate", "2024-03-06", {"F5", "F6", "F2"}},
        Narrowed{"EDate", "2024-03-30", {"F1", "F1", "F4", "F5", "F6"}},
        Narrowed{"EDate", Date::FromYmd(2024, 4, 1), {"F1", "F1", "F4", "F5", "F6", "F2", "F9"}},
        Narrowed{"InvoiceStyle", 0, {"F1", "F1", "F4", "F2"}}, Narrowed{"InvoiceStyle", 1, {"F5", "F6"}},
        Narrowed{"CheckState", 1, {"F3"}},
        Narrowed{"CheckState", 2, {"F1", "F1", "F4", "F3", "F5", "F6", "F2"}},
        Narrowed{"HookStatus", 0, {"F1", "F1", "F6", "F2"}}, Narrowed{"HookStatus", 1, {"F4", "F5"}},
        Narrowed{"BFeeNumber", "01.02", {"F1", "F5"}},
        Narrowed{"EFeeNumber", "01.02", {"F1", "F1", "F4", "F6", "F2"}}, Narrowed{"BCust", "C.02", {"F6"}},
        Narrowed{"ECust", "C.01", {"F5"}}, Narrowed{"BSupply", "G.02", {"F2"}},
        Narrowed{"ESupply", "G.01", {"F1", "F1", "F4"}},
        Narrowed{"BItemClass", "01", {"F1", "F4", "F5", "F2"}}, Narrowed{"BItemClass", "01.02", {"F2"}},
        Narrowed{"BItemClass", "01.", {}}, Narrowed{"BItemClass", "%", {}}}) {
    const DictionaryRef filter = MarchFilter();
    filter->Set(expected.key, expected.value);
    EXPECT_EQ(Bills(filter), expected.bills) << expected.key << " " << expected.value.ToText();
  }
}

TEST_F(FeeInvoicesTest, ShortCodesAreComparedWhereTheyAreInUse) {
  for (const Narrowed& expected :
       {Narrowed{"BFeeNumber", "7", {"F1", "F4", "F5", "F6", "F2"}}, Narrowed{"EFeeNumber", "6", {"F1"}},
        Narrowed{"BCust", "3", {"F5"}}, Narrowed{"ESupply", "1", {"F2"}},
        Narrowed{"BItemClass", "01.03", {"F5"}}}) {
    const DictionaryRef filter = MarchFilter();
    filter->Set("bLongNumber", false);
    filter->Set(expected.key, expected.value);
    EXPECT_EQ(Bills(filter), expected.bills) << expected.key;
  }
}

TEST_F(FeeInvoicesTest, KeysTogetherNarrowTogether) {
  const DictionaryRef filter = MarchFilter();
  filter->Set("InvoiceStyle", 0);
  filter->Set("HookStatus", 0);
  filter->Set("BFeeNumber", "01.01");
  filter->Set("EFeeNumber", "01.01");
  filter->Set("ESupply", "G.01");
  filter->Set("BItemClass", "01.01");
  EXPECT_THAT(Bills(filter), ElementsAre("F1"));
}

TEST_F(FeeInvoicesTest, KeysThatAreNotThereMeanAuditedInvoicesToPayWhateverTheirHooks) {
  const auto filter = std::make_shared<Dictionary>();
  filter->Set("BDate", Date::FromYmd(2024, 3, 1));
  filter->Set("EDate", Date::FromYmd(2024, 3, 31));
  EXPECT_THAT(Bills(filter), ElementsAre("F1", "F1", "F4", "F2"));
}

// --- Rights: the summary names the party V1, the list T8 and T7

TEST_F(FeeInvoicesTest, ASuppliersRightLeavesTheBillsOfCustomersAlone) {
  const DictionaryRef filter = MarchFilter();
  filter->Set("DataRightFromSupply", "");
  filter->Set("DataRightWhereSupply", " CharIndex('16394',T8.FRightUserID)>0 ");
  EXPECT_THAT(Column(List(filter), "FBillNo"), ElementsAre("F1", "F1", "F4", "F5", "F6", "合计"));
  filter->Set("DataRightWhereSupply", " CharIndex('16394',V1.FRightUserID)>0 ");
  EXPECT_THAT(Column(Summary(filter), "FAuxQty"), ElementsAre("13", "2", "3", "18"));
}

TEST_F(FeeInvoicesTest, ACustomersRightLeavesTheBillsOfSuppliersAlone) {
  const DictionaryRef filter = MarchFilter();
  filter->Set("DataRightWhereOrg", " CharIndex('16394',T7.FRightUserID)>0 ");
  EXPECT_THAT(Column(List(filter), "FBillNo"), ElementsAre("F1", "F1", "F4", "F5", "F2", "合计"));
  filter->Set("DataRightWhereOrg", " CharIndex('16394',V1.FRightUserID)>0 ");
  EXPECT_THAT(Column(Summary(filter), "FAuxQty"), ElementsAre("10", "2", "3", "15"));
}

TEST_F(FeeInvoicesTest, BothRightsHoldTogetherAndWithTheOtherKeys) {
  const DictionaryRef filter = MarchFilter();
  filter->Set("DataRightWhereSupply", " CharIndex('16395',V1.FRightUserID)>0 ");
  filter->Set("DataRightWhereOrg", " CharIndex('16394',V1.FRightUserID)>0 ");
  EXPECT_THAT(Column(Summary(filter), "FNumber"), ElementsAre("01.01", "02.01", "合计"));
  filter->Set("EFeeNumber", "01.01");
  EXPECT_THAT(Column(Summary(filter), "FAuxQty"), ElementsAre("1", "1"));
  filter->Set("DataRightWhereSupply",
              " CharIndex('9',V1.FRightUserID)>0 Or CharIndex('16394',V1.FRightUserID)>0 ");
  filter->Set("InvoiceStyle", 1);
  EXPECT_EQ(Summary(filter)->RecordCount(), 0);
}

TEST_F(FeeInvoicesTest, AnUnknownSupplierIsNobodysToSee) {
  Sql("UPDATE ICFeeInvoice SET FSupplyID=899 WHERE FInterID=2");
  const DictionaryRef filter = MarchFilter();
  filter->Set("InvoiceStyle", 0);
  EXPECT_THAT(Bills(filter), ElementsAre("F1", "F1", "F4", "F2"));
  filter->Set("DataRightWhereSupply", " CharIndex('1',T8.FRightUserID)>0 ");
  EXPECT_THAT(Column(List(filter), "FBillNo"), ElementsAre("F1", "F1", "F4", "合计"));
}

// --- The summary

TEST_F(FeeInvoicesTest, TheSummaryIsInBaseCurrencyAndItsFeesAreNamed) {
  const RecordsetRef rows = Summary(MarchFilter());
  for (const Filled& expected :
       {Filled{"FNumber", {"01.01", "01.02", "02.01", "合计"}},
        Filled{"FFeeType", {"运输费", "装卸费", "", ""}}, Filled{"FName", {"汽运费", "装车费", "杂费", ""}},
        Filled{"FUnit", {"吨", "次", "", ""}}, Filled{"FQtyDecimal", {"4", "4", "4", "4"}},
        Filled{"FAuxQty", {"14", "2", "3", "19"}}, Filled{"FAmount", {"374.5", "100", "30", "504.5"}},
        Filled{"FTaxAmount", {"24.5", "0", "0", "24.5"}}, Filled{"FAmountEx", {"350", "100", "30", "480"}}}) {
    EXPECT_EQ(Column(rows, expected.field), expected.cells) << expected.field;
  }
  EXPECT_LT(rows->FindField("FShortNumber"), 0);
}

TEST_F(FeeInvoicesTest, ShortCodesGetTheirColumn) {
  const DictionaryRef filter = MarchFilter();
  filter->Set("bLongNumber", false);
  EXPECT_THAT(Column(Summary(filter), "FShortNumber"), ElementsAre("8", "6", "7", "合计"));
}

TEST_F(FeeInvoicesTest, TheTableHoldsTheFeeAndThePartyOfEachLine) {
  const auto request = std::make_shared<Dictionary>();
  request->Set("SELECT", "SET NOCOUNT ON");
  request->Set("EndSel", "Select * From #T301B Order By FSupplyID,FCustID,FItemID,FAmount");
  const RecordsetRef rows = Summary(MarchFilter(), request);
  EXPECT_THAT(Column(rows, "FItemID"), ElementsAre("903", "901", "901", "901", "902", "901"));
  EXPECT_THAT(Column(rows, "FCustID"), ElementsAre("201", "202", "0", "0", "0", "0"));
  EXPECT_THAT(Column(rows, "FSupplyID"), ElementsAre("0", "0", "801", "801", "801", "802"));
  EXPECT_THAT(Column(rows, "FAmount"), ElementsAre("30", "149.8", "-21.4", "214", "100", "32.1"));
  EXPECT_THAT(Column(rows, "FTaxAmount"), ElementsAre("0", "9.8", "-1.4", "14", "0", "2.1"));
}

TEST_F(FeeInvoicesTest, AllPartsOfTheBatchRunInTheirOrder) {
  const DictionaryRef request = FeeRequest();
  request->Set("Append", "Update #DATA Set FName=FName+'1'");
  request->Set("UpdateAppend", "delete from #data where FSumSort=101");
  request->Set("EndSel", "Update #DATA Set FName=FName+'2' SELECT * FROM #DATA  ");
  EXPECT_THAT(Column(Summary(MarchFilter(), request), "FName"),
              ElementsAre("汽运费12", "装车费12", "杂费12"));
}

TEST_F(FeeInvoicesTest, NoLinesMakeNoRows) {
  const DictionaryRef filter = MarchFilter();
  filter->Set("BDate", "2030-01-01");
  filter->Set("EDate", "2030-01-31");
  EXPECT_EQ(Summary(filter)->RecordCount(), 0);
  EXPECT_EQ(List(filter)->RecordCount(), 0);
  EXPECT_GE(List(filter)->FindField("FFeeFullNumber"), 0);
}

TEST_F(FeeInvoicesTest, AFailedBatchLeavesNoTablesBehind) {
  Server server(std::make_shared<accountset::AccountSet>(OpenAgain()), Login{});
  const DictionaryRef request = FeeRequest();
  request->Set("EndSel", "Select * From t_NoSuch");
  EXPECT_EQ(DescriptionRaisedBy([&] { FeeSummary(server, *MarchFilter(), *request); }),
            "Invalid object name 't_NoSuch'.");
  EXPECT_EQ(FeeSummary(server, *MarchFilter(), *FeeRequest())->RecordCount(), 4);
  EXPECT_THAT(DescriptionRaisedBy([&] { FeeSummary(server, *MarchFilter(), Dictionary()); }),
              HasSubstr("SELECT"));
}

// --- The list

TEST_F(FeeInvoicesTest, TheListTellsEachLineAndClosesWithATotalInBaseCurrency) {
  const RecordsetRef rows = List(MarchFilter());
  for (const Filled& expected :
       {Filled{"FDate",
               {"2024-03-05", "2024-03-05", "2024-03-05", "2024-03-12", "2024-03-20", "2024-03-31 18:30:00",
                "null"}},
        Filled{"FBillNo", {"F1", "F1", "F4", "F5", "F6", "F2", "合计"}},
        Filled{"FInvType",
               {"应付费用发票", "应付费用发票", "应付费用发票", "应收费用发票", "应收费用发票",
                "应付费用发票", ""}},
        Filled{"FPOStyle", {"赊购", "赊购", "赊购", "", "", "赊购", ""}},
        Filled{"FSaleStyle", {"", "", "", "赊销", "赊销", "", ""}},
        Filled{"FSupplyFullNumber", {"G.01", "G.01", "G.01", "", "", "G.02", ""}},
        Filled{"FCustFullNumber", {"", "", "", "C.01", "C.02", "", ""}},
        Filled{"FSupplyNumber", {"2", "2", "2", "", "", "1", ""}},
        Filled{"FCustNumber", {"", "", "", "3", "2", "", ""}},
        Filled{"FSupplyName", {"顺达运输", "顺达运输", "顺达运输", "", "", "联合物流", ""}},
        Filled{"FCustName", {"", "", "", "东风商行", "西岭商行", "", ""}},
        Filled{"FFeeFullNumber", {"01.01", "01.02", "01.01", "02.01", "01.01", "01.01", ""}},
        Filled{"FFeeNumber", {"8", "6", "8", "7", "8", "8", ""}},
        Filled{"FFeeName", {"汽运费", "装车费", "汽运费", "杂费", "汽运费", "汽运费", ""}},
        Filled{"FFeeType", {"运输费", "装卸费", "运输费", "", "运输费", "运输费", ""}},
        Filled{"FCurrencyName", {"人民币", "人民币", "人民币", "人民币", "美元", "人民币", "人民币"}},
        Filled{"FUnitName", {"吨", "次", "吨", "", "吨", "吨", ""}},
        Filled{"FAuxQty", {"10", "2", "-1", "3", "4", "1", "19"}},
        Filled{"FAuxPrice", {"20", "50", "20", "10", "5", "30", "null"}},
        Filled{"FAmount", {"214", "100", "-21.4", "30", "21.4", "32.1", "504.5"}},
        Filled{"FTaxRate", {"7", "0", "7", "0", "7", "7", "null"}},
        Filled{"FTaxAmount", {"14", "0", "-1.4", "0", "1.4", "2.1", "24.5"}},
        Filled{"FAmountEx", {"200", "100", "-20", "30", "20", "30", "480"}},
        Filled{"FCheckerName", {"管理员", "管理员", "管理员", "管理员", "管理员", "管理员", ""}},
        Filled{"FNote", {"加急", "三月运费", "", "", "", "", ""}},
        Filled{"FSumSort", {"0", "0", "0", "0", "0", "0", "101"}}}) {
    EXPECT_EQ(Column(rows, expected.field), expected.cells) << expected.field;
  }
}

struct Ordered {
  const char* order;
  std::vector<std::string> bills;
};

TEST_F(FeeInvoicesTest, TheOrderIsTheOneAskedForAndTheTotalStaysLast) {
  for (const Ordered& expected :
       {Ordered{"FDate DESC,FFeeFullNumber DESC", {"F2", "F6", "F5", "F1", "F1", "F4", "合计"}},
        Ordered{"FAmount ASC", {"F4", "F6", "F5", "F2", "F1", "F1", "合计"}},
        Ordered{"fcustname desc , FBillNo", {"F6", "F5", "F1", "F1", "F2", "F4", "合计"}},
        Ordered{"FNumber ASC", {"F1", "F2", "F4", "F6", "F1", "F5", "合计"}},
        Ordered{"FShortNumber ASC", {"F1", "F5", "F1", "F2", "F4", "F6", "合计"}}}) {
    const DictionaryRef filter = MarchFilter();
    filter->Set("OrderBy", expected.order);
    EXPECT_EQ(Column(List(filter), "FBillNo"), expected.bills) << expected.order;
  }
}

TEST_F(FeeInvoicesTest, AnOrderByAnythingButColumnsIsRefused) {
  for (const char* order : {"FNoSuch ASC", "FDate SIDEWAYS", "1;Drop Table t_Fee", "FDate ASC,,FBillNo ASC",
                            "FDate ASC)--", "FStdAmount ASC"}) {
    const DictionaryRef filter = MarchFilter();
    filter->Set("OrderBy", order);
    EXPECT_EQ(NumberRaisedBy([&] { List(filter); }), error_number::kInvalidCall) << order;
  }
}

TEST_F(FeeInvoicesTest, ValuesOfTheWrongKindAreRefused) {
  for (const char* key : {"BDate", "EDate", "InvoiceStyle", "CheckState", "HookStatus", "bLongNumber"}) {
    const DictionaryRef filter = MarchFilter();
    filter->Set(key, "1 Or 1=1");
    EXPECT_EQ(NumberRaisedBy([&] { List(filter); }), error_number::kTypeMismatch) << key;
    EXPECT_EQ(NumberRaisedBy([&] { Summary(filter); }), error_number::kTypeMismatch) << key;
  }
}

TEST_F(FeeInvoicesTest, CodesAreValuesAndNeverSql) {
  for (const char* key : {"BFeeNumber", "EFeeNumber", "BCust", "ECust", "BSupply", "ESupply", "BItemClass"}) {
    const DictionaryRef filter = MarchFilter();
    filter->Set(key, "' Or '1'='1");
    EXPECT_LT(List(filter)->RecordCount(), 8) << key;
    EXPECT_LT(Summary(filter)->RecordCount(), 5) << key;
  }
  EXPECT_THAT(Column(Query("Select FName From t_Fee"), "FName"), testing::SizeIs(3));
}

// --- The made-up company

class GeneratedFeesTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { set_ = std::make_unique<GeneratedSet>(3, 10000); }
  static void TearDownTestSuite() { set_.reset(); }
  static std::unique_ptr<GeneratedSet> set_;
};
std::unique_ptr<GeneratedSet> GeneratedFeesTest::set_;

struct Case {
  std::initializer_list<Dictionary::Entry> keys;
  const char* condition;  // b the bill, f the fee, o the customer, s the supplier, i the item
};

TEST_F(GeneratedFeesTest, SummaryAndListAgreeWithTheTables) {
  Server server(set_->Get(), Login{});
  for (const Case& wanted :
       {Case{{{"InvoiceStyle", 0}}, "b.FTranType=78 AND b.FStatus>0"},
        Case{{{"InvoiceStyle", 1}}, "b.FTranType=79 AND b.FStatus>0"},
        Case{{{"InvoiceStyle", 2}, {"CheckState", 2}}, "1"},
        Case{{{"InvoiceStyle", 2}, {"CheckState", 1}}, "b.FStatus=0"},
        Case{{{"InvoiceStyle", 2}, {"HookStatus", 0}}, "b.FStatus>0 AND b.FHookStatus IN (1,2)"},
        Case{{{"InvoiceStyle", 2}, {"HookStatus", 1}}, "b.FStatus>0 AND b.FHookStatus=0"},
        Case{{{"InvoiceStyle", 2}, {"BDate", "2024-02-01"}, {"EDate", "2024-09-30"}},
             "b.FStatus>0 AND b.FDate>='2024-02-01' AND b.FDate<'2024-10-01'"},
        Case{{{"InvoiceStyle", 2}, {"BFeeNumber", "01"}, {"EFeeNumber", "01.9"}},
             "b.FStatus>0 AND f.FNumber LIKE '01.%'"},
        Case{{{"InvoiceStyle", 2}, {"BItemClass", "01.02"}}, "b.FStatus>0 AND i.FNumber LIKE '01.02.%'"},
        Case{{{"InvoiceStyle", 1}, {"BCust", "01"}, {"ECust", "02"}},
             "b.FTranType=79 AND b.FStatus>0 AND o.FNumber LIKE '01.%'"},
        Case{{{"InvoiceStyle", 0}, {"BSupply", "02"}},
             "b.FTranType=78 AND b.FStatus>0 AND s.FNumber LIKE '02.%'"}}) {
    const auto filter = std::make_shared<Dictionary>();
    filter->Set("BDate", "2023-01-01");
    filter->Set("EDate", "2025-12-31");
    filter->Set("bLongNumber", true);
    for (const auto& [key, value] : wanted.keys) filter->Set(key, value);
    const std::vector<double> plain = set_->Numbers(Join(
        "SELECT count(*),sum(e.FAuxQty),sum(e.FStdAmount),sum(e.FStdTaxAmount) FROM ICFeeInvoice b JOIN "
        "ICFeeInvoiceEntry e USING(FInterID) JOIN t_Fee f ON f.FItemID=e.FItemID LEFT JOIN t_Organization o "
        "ON o.FItemID=b.FCustID LEFT JOIN t_Supplier s ON s.FItemID=b.FSupplyID LEFT JOIN t_ICItem i ON "
        "i.FItemID=e.FICItemID WHERE b.FCancelLation=0 AND ",
        wanted.condition));
    ASSERT_GT(plain[0], 0) << wanted.condition;
    const RecordsetRef list = FeeList(server, *filter);
    EXPECT_EQ(list->RecordCount(), plain[0] + 1) << wanted.condition;
    const RecordsetRef summary = FeeSummary(server, *filter, *FeeRequest());
    for (const RecordsetRef& total : {list, summary}) {
      while (total->Value("FSumSort") != Variant(std::int16_t{101})) total->MoveNext();
      EXPECT_NEAR(total->Value("FAuxQty").ToDouble(), plain[1], 1e-6) << wanted.condition;
      EXPECT_NEAR(total->Value("FAmount").ToDouble(), plain[2], 1e-6) << wanted.condition;
      EXPECT_NEAR(total->Value("FTaxAmount").ToDouble(), plain[3], 1e-6) << wanted.condition;
      EXPECT_NEAR(total->Value("FAmountEx").ToDouble(), plain[2] - plain[3], 1e-6) << wanted.condition;
    }
  }
}

TEST_F(GeneratedFeesTest, RightsHideTheBillsOfPartiesThatAreNotListed) {
  Server server(set_->Get(), Login{});
  const auto filter = std::make_shared<Dictionary>();
  filter->Set("BDate", "2023-01-01");
  filter->Set("EDate", "2025-12-31");
  filter->Set("InvoiceStyle", 2);
  filter->Set("DataRightWhereSupply", " CharIndex('16395',T8.FRightUserID)>0 ");
  filter->Set("DataRightWhereOrg", " CharIndex('16395',T7.FRightUserID)>0 ");
  const std::vector<double> plain = set_->Numbers(
      "SELECT count(*) FROM ICFeeInvoice b JOIN ICFeeInvoiceEntry e USING(FInterID) LEFT JOIN t_Organization "
      "o ON "
      "o.FItemID=b.FCustID LEFT JOIN t_Supplier s ON s.FItemID=b.FSupplyID WHERE b.FCancelLation=0 AND "
      "b.FStatus>0 AND instr(ifnull(o.FRightUserID,s.FRightUserID),'16395')>0");
  EXPECT_EQ(FeeList(server, *filter)->RecordCount(), plain[0] + 1);
}

}  // namespace
}  // namespace salerpt::middletier
