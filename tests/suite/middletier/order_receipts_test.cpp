// The tracking of orders through delivery, invoice and receipt: figures by hand, every key of the filter.
#include "suite/middletier/order_receipts.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kOperation = "GetRpt1010Data";

class OrderReceiptsTest : public OrderCompanyTest, public testing::WithParamInterface<KeyCase> {};

TEST_F(OrderReceiptsTest, QuantitiesAndPricesStandInTheUnitOfTheLine) {
  EXPECT_THAT(
      Table(Rows(kOperation, March()),
            {"FBillNo", "FItemNumber", "FUnitName", "FOrderQty", "FOrderPriceFor", "FOrderPrice", "FOutQty",
             "FNotOutQty", "FInvoiceQty", "FNotInvoiceQty", "FSumSort"}),
      ElementsAre("SE001|01.01|箱|2|140.4|140.4|1.25|0.75|1|0.25|0", "SE001|01.02|件|10|11.7|11.7|10|0|4|6|0",
                  "SE005|01.01|件|12|11.7|11.7|12|0|12|0|0", "SE002|01.03|千克|2.5|11.7|81.9|2.5|0|2.5|0|0",
                  "合计|||26.5|||25.75|0.75|19.5|6.25|101"));
}

TEST_F(OrderReceiptsTest, AmountsAreWithTaxAndAPaidOrderLeavesNothingOpen) {
  EXPECT_THAT(
      Table(Rows(kOperation, March()),
            {"FCurrencyName", "FExchangeRate", "FOrderAmountFor", "FOrderAmount", "FInvoiceAmountFor",
             "FInvoiceAmount", "FReceiveAmount", "FOrderNotReceiveAmount", "FInvoiceNotReceiveAmount"}),
      ElementsAre("人民币|1|280.8|280.8|117|117|60|220.8|57", "人民币|1|117|117|46.8|46.8|46.8|70.2|0",
                  "人民币|1|140.4|140.4|140.4|140.4|0|140.4|140.4",
                  "美元|7|29.25|204.75|29.25|210.6|210.6|0|0", "|||742.95||514.8|317.4|431.4|197.4"));
}

TEST_F(OrderReceiptsTest, DepositsBelongToTheOrderOnce) {
  EXPECT_THAT(
      Table(Rows(kOperation, March({{"chkIsShowSum", 1}})),
            {"FBillNo", "FOrderDepositFor", "FOrderDeposit", "FOrderPrePayAmountFor", "FOrderPrePayAmount"}),
      ElementsAre("SE001|100|100|50|50", "SE001|100|100|50|50", "SE001(小计)|100|100|50|50", "SE005|0|0|0|0",
                  "SE005(小计)|0|0|0|0", "SE002|10|70|0|0", "SE002(小计)|10|70|0|0", "合计||170||50"));
}

TEST_F(OrderReceiptsTest, OneCurrencyIsAddedUp) {
  const RecordsetRef rows = Rows(kOperation, March({{"EBillNo", "SE001"}, {"chkIsShowSum", 1}}));
  EXPECT_THAT(Table(rows, {"FCurrencyName", "FExchangeRate", "FOrderQty", "FOrderPrice", "FOrderAmountFor",
                           "FInvoiceAmountFor", "FOrderDepositFor", "FOrderPrePayAmountFor", "FSumSort"}),
              ElementsAre("人民币|1|2|140.4|280.8|117|100|50|0", "人民币|1|10|11.7|117|46.8|100|50|0",
                          "人民币|1|12||397.8|163.8|100|50|102", "人民币||12||397.8|163.8|100|50|101"));
}

TEST_F(OrderReceiptsTest, SumsAndDetailsAreShownAsAsked) {
  const auto shown = [](std::initializer_list<Dictionary::Entry> chosen) {
    return Column(Rows(kOperation, March(chosen)), "FSumSort");
  };
  EXPECT_THAT(shown({}), ElementsAre("0", "0", "0", "0", "101"));
  EXPECT_THAT(shown({{"chkIsShowSum", 1}, {"chkIsShowDetail", 0}}), ElementsAre("102", "102", "102", "101"));
  EXPECT_THAT(shown({{"chkIsShowSum", 0}, {"chkIsShowDetail", 1}}), ElementsAre("0", "0", "0", "0", "101"));
  EXPECT_THAT(shown({{"chkIsShowSum", 0}, {"chkIsShowDetail", 0}}), ElementsAre("101"));
}

TEST_F(OrderReceiptsTest, ARowTellsItsOrderLine) {
  const RecordsetRef rows = Rows(kOperation, March());
  const auto fields = {"FInterID",  "FItemID",      "FTranType", "FDate",  "FSendDate",    "FCustNumber",
                       "FCustName", "FExplanation", "FItemName", "FModel", "FAuxPropName", "FDeptNumber",
                       "FDeptName", "FEmpNumber",   "FEmpName",  "FNote"};
  std::string texts;
  for (const char* field : fields) Append(texts, Column(rows, field)[0], "|");
  EXPECT_EQ(texts, "1|101|81|2024-03-05|2024-03-20|C.01|东风商行|急|螺栓|M8|小|D.01|一部|E.01|周明|红|");
  const RecordsetRef short_rows = Rows(kOperation, March({{"bLongNumber", false}}));
  EXPECT_THAT(Table(short_rows, {"FCustNumber", "FItemNumber", "FDeptNumber", "FEmpNumber"})[0], "3|9|01|01");
}

TEST_F(OrderReceiptsTest, TheFieldsStandInTheirOrder) {
  EXPECT_EQ(
      FieldNames(Rows(kOperation, March())),
      "FInterID FItemID FTranType FSumSort FDate FSendDate FBillNo FCustNumber FCustName FExplanation "
      "FItemNumber "
      "FItemName FModel FAuxPropName FUnitName FCurrencyName FDeptNumber FDeptName FEmpNumber FEmpName FNote "
      "FExchangeRate FOrderQty FOrderPriceFor FOrderPrice FOutQty FNotOutQty FInvoiceQty FNotInvoiceQty "
      "FOrderAmountFor FOrderAmount FInvoiceAmountFor FInvoiceAmount FReceiveAmount FOrderNotReceiveAmount "
      "FInvoiceNotReceiveAmount FOrderDepositFor FOrderDeposit FOrderPrePayAmountFor FOrderPrePayAmount");
}

// --- The order of the rows

struct SortCase {
  const char* order;
  std::vector<std::string> bills;
};

TEST_F(OrderReceiptsTest, RowsStandAsAsked) {
  const SortCase cases[] = {
      {"", {"SE001/01.01", "SE001/01.02", "SE005/01.01", "SE002/01.03", "合计/"}},
      {"FOrderbyDate DESC", {"SE002/01.03", "SE005/01.01", "SE001/01.01", "SE001/01.02", "合计/"}},
      {"FOrderbyBillNo ASC", {"SE001/01.01", "SE001/01.02", "SE002/01.03", "SE005/01.01", "合计/"}},
      {"FOrderbyCustNumber ASC", {"SE001/01.01", "SE001/01.02", "SE002/01.03", "SE005/01.01", "合计/"}},
      {"forderbydeptnumber desc,FOrderbyBillNo",
       {"SE002/01.03", "SE001/01.01", "SE001/01.02", "SE005/01.01", "合计/"}},
      {"FOrderbyEmpNumber ASC", {"SE005/01.01", "SE001/01.01", "SE001/01.02", "SE002/01.03", "合计/"}},
      {"FNumber DESC", {"SE001/01.02", "SE001/01.01", "SE005/01.01", "SE002/01.03", "合计/"}},
  };
  for (const SortCase& sort : cases) {
    const RecordsetRef rows = Rows(kOperation, March({{"Orderby", sort.order}}));
    std::vector<std::string> bills;
    for (; !rows->Eof(); rows->MoveNext())
      bills.push_back(Join(rows->Value("FBillNo").ToText(), "/", rows->Value("FItemNumber").ToText()));
    EXPECT_EQ(bills, sort.bills) << sort.order;
  }
}

TEST_F(OrderReceiptsTest, ASubtotalStandsBehindItsOrderWhateverTheOrder) {
  EXPECT_THAT(
      Column(
          Rows(kOperation, March({{"Orderby", "FOrderbyDate DESC,FShortNumber DESC"}, {"chkIsShowSum", 1}})),
          "FBillNo"),
      ElementsAre("SE002", "SE002(小计)", "SE005", "SE005(小计)", "SE001", "SE001", "SE001(小计)", "合计"));
}

TEST_F(OrderReceiptsTest, AnOrderByAnythingElseIsRefused) {
  for (const char* order : {"FDate", "FOrderbyDate; Drop Table SEOrder", "FOrderbyDate UP"}) {
    EXPECT_EQ(NumberRaisedBy([&] {
                Rows(kOperation, March({{"Orderby", order}}));
              }),
              error_number::kInvalidCall);
  }
}

// --- The filter

TEST_P(OrderReceiptsTest, AKeyLetsItsLinesThrough) {
  const DictionaryRef filter = March();
  for (const auto& [key, value] : GetParam().filter) filter->Set(key, value);
  const RecordsetRef rows = Rows(kOperation, filter);
  std::vector<std::string> lines;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (rows->Value("FSumSort").ToInt32() == 0)
      lines.push_back(Join(rows->Value("FBillNo").ToText(), "/", rows->Value("FItemID").ToText()));
  }
  EXPECT_EQ(lines, GetParam().lines);
}

const char* kBolts = "SE001/101";
const char* kNuts = "SE001/102";
const char* kService = "SE003/105";
const char* kStraight = "SE005/101";
const char* kRings = "SE002/103";

INSTANTIATE_TEST_SUITE_P(
    Keys, OrderReceiptsTest,
    testing::Values(
        KeyCase{"days", {{"BDate", "2024-03-06"}, {"EDate", "2024-03-30"}}, {kStraight}},
        KeyCase{"items", {{"BItemNumber", "01.02"}, {"EItemNumber", "01.02"}}, {kNuts}},
        KeyCase{"shortItems", {{"bLongNumber", false}, {"BItemNumber", "7"}, {"EItemNumber", "8"}}, {kRings}},
        KeyCase{"customers", {{"BCustNumber", "C.02"}}, {kStraight, kRings}},
        KeyCase{"shortCustomers", {{"bLongNumber", false}, {"ECustNumber", "1"}}, {kStraight}},
        KeyCase{"departments", {{"BDept", "D.02"}, {"EDept", "D.02"}}, {kRings}},
        KeyCase{"employees", {{"BEmp", "E.01"}, {"EEmp", "E.01"}}, {kBolts, kNuts}},
        KeyCase{"orders", {{"BBillNo", "SE002"}, {"EBillNo", "SE004"}}, {kRings}},
        KeyCase{"notAudited", {{"CheckState", 1}}, {kService}},
        KeyCase{"allStates", {{"CheckState", 2}}, {kBolts, kNuts, kService, kStraight, kRings}},
        KeyCase{"open", {{"CloseState", 1}}, {kBolts, kNuts, kStraight}},
        KeyCase{"closed", {{"CloseState", 2}}, {kRings}},
        KeyCase{"oneStyle", {{"SaleType", 20296}}, {kStraight}},
        KeyCase{"allStyles", {{"SaleType", 1}}, {kBolts, kNuts, kStraight, kRings}},
        KeyCase{"services", {{"CheckState", 2}, {"CommodityType", 1}}, {kService}},
        KeyCase{"noServices", {{"CheckState", 2}, {"CommodityType", 2}}, {kBolts, kNuts, kStraight, kRings}},
        KeyCase{"userWithoutRule", {{"UserID", 16394}}, {kBolts, kNuts, kStraight, kRings}},
        KeyCase{"rights",
                {{"DataRightWhere", " CharIndex('16394',t11.FRightUserID)>0 "}},
                {kBolts, kNuts, kStraight}},
        KeyCase{"rightsAndOthers",
                {{"DataRightWhere", " CharIndex('16394',t11.FRightUserID)>0 "}, {"BItemNumber", "01.02"}},
                {kNuts}},
        KeyCase{"nothing", {{"BItemNumber", "99"}}, {}}),
    [](const auto& key_case) { return key_case.param.name; });

class OrderReceiptsUserTest : public OrderReceiptsTest {
 protected:
  OrderReceiptsUserTest() {
    Sql("INSERT INTO t_DataRight(FUserID,FKind,FUsed) VALUES (16395,1,1),(16394,1,0);");
  }
};

TEST_F(OrderReceiptsUserTest, AUserSeesHisCustomersWhereTheRuleIsInForce) {
  EXPECT_THAT(Column(Rows(kOperation, March({{"UserID", 16395}})), "FBillNo"),
              ElementsAre("SE001", "SE001", "SE002", "合计"));
  EXPECT_EQ(Rows(kOperation, March({{"UserID", 16394}}))->RecordCount(), 5);
}

TEST_F(OrderReceiptsTest, MissingDaysAndWrongKindsAreRefused) {
  EXPECT_THAT(DescriptionRaisedBy([&] { Rows(kOperation, March({{"BDate", ""}})); }), HasSubstr("BDate"));
  for (const char* key : {"CheckState", "CloseState", "SaleType", "CommodityType", "chkIsShowSum",
                          "chkIsShowDetail", "UserID", "EDate"}) {
    EXPECT_EQ(NumberRaisedBy([&] {
                Rows(kOperation, March({{key, "1 Or 1=1"}}));
              }),
              error_number::kTypeMismatch)
        << key;
  }
}

}  // namespace
}  // namespace salerpt::middletier
