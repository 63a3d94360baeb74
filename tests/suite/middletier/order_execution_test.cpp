// The order execution detail: lines, deliveries, subtotals worked out by hand; every key of the filter.
#include "suite/middletier/order_execution.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kOperation = "GetRpt137Data_new";

class OrderExecutionTest : public OrderCompanyTest, public testing::WithParamInterface<KeyCase> {};

// Number and item code of the order lines in the rows.
std::vector<std::string> LinesOf(const RecordsetRef& rows) {
  std::vector<std::string> lines;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (rows->Value("FSumSort").ToInt32() != 0 || rows->Value("FTranType").ToInt32() != 81) continue;
    lines.push_back(Join(rows->Value("FOrderBillNo").ToText(), "/", rows->Value("FNumber").ToText()));
  }
  return lines;
}

TEST_F(OrderExecutionTest, EachLineHasItsDeliveriesAndItsSubtotalBehindIt) {
  const RecordsetRef rows = Rows(kOperation, March());
  EXPECT_THAT(Table(rows, {"FTranType", "FInterID", "FOrderBillNo", "FNumber", "FBillNo", "FCommitDate",
                           "FSaleQty", "FCommitQty", "FUnCommitQty", "FSumSort"}),
              ElementsAre("81|1|SE001|01.01|||24||9|0", "21|11|SE001|01.01|X1|2024-03-10||12||0",
                          "21|12|SE001|01.01|X2|2024-03-25||6||0", "21|13|SE001|01.01|X3|2024-03-28||-3||0",
                          "81|1|SE001(小计)|01.01|||24|15|9|102", "81|1|SE001|01.02|||10||0|0",
                          "21|17|SE001|01.02|X7|2024-03-18||10||0", "81|1|SE001(小计)|01.02|||10|10|0|102",
                          "81|5|SE005|01.01|||12||0|0", "80|25|SE005|01.01|I5|2024-03-16||12||0",
                          "81|5|SE005(小计)|01.01|||12|12|0|102", "81|2|SE002|01.03|||2.5||0|0",
                          "21|18|SE002|01.03|X8|2024-04-02||2.5||0", "81|2|SE002(小计)|01.03|||2.5|2.5|0|102",
                          "||合计||||48.5|39.5|9|101"));
}

TEST_F(OrderExecutionTest, CommonUnitsAreTheItems) {
  const RecordsetRef rows = Rows(kOperation, March({{"EItemNumber", "01.01"}, {"EBillNo", "SE001"}}));
  EXPECT_THAT(
      Table(rows, {"FUnitName", "FCUUnitName", "FCUUnitSaleQty", "FCUUnitCommitQty", "FCUUnitUnCommitQty"}),
      ElementsAre("件|箱|2||0.75", "件|箱||1|", "件|箱||0.5|", "件|箱||-0.25|", "件|箱|2|1.25|0.75",
                  "||2|1.25|0.75"));
}

TEST_F(OrderExecutionTest, ARowTellsItsOrderLine) {
  const RecordsetRef rows = Rows(kOperation, March({{"EBillNo", "SE001"}}));
  const auto texts =
      Table(rows, {"FDate", "FSendDate", "FCustNumber", "FShortCustNumber", "FCustName", "FShortNumber",
                   "FName", "FModel", "FAuxPropName", "FNote", "FEmpName", "FDeptName", "FQtyDecimal"});
  EXPECT_EQ(texts[0], "2024-03-05|2024-03-20|C.01|3|东风商行|9|螺栓|M8|小|红|周明|一部|0");
  EXPECT_EQ(texts[1], "2024-03-05|2024-03-20|C.01|3|东风商行|9|螺栓|M8|小|先发|周明|一部|0");
  EXPECT_EQ(texts[5], "2024-03-05|2024-03-12|C.01|3|东风商行|5|螺母||||周明|一部|3");
}

TEST_F(OrderExecutionTest, TheFieldsStandInTheirOrderAndKinds) {
  const RecordsetRef rows = Rows(kOperation, March());
  EXPECT_EQ(
      FieldNames(rows),
      "FInterID FItemID FTranType FDate FSendDate FCommitDate FCustNumber FShortCustNumber FCustName FNumber "
      "FShortNumber FName FModel FAuxPropName FOrderBillNo FUnitName FCUUnitName FNote FBillNo FEmpName "
      "FDeptName "
      "FSaleQty FCUUnitSaleQty FCommitQty FCUUnitCommitQty FUnCommitQty FCUUnitUnCommitQty FSumSort "
      "FQtyDecimal");
  for (int i = 0; i < rows->FieldCount(); ++i) {
    const FieldType type = i < 3 || i > 26 ? FieldType::kInteger
                           : i < 6         ? FieldType::kTimestamp
                           : i < 21        ? FieldType::kVarChar
                                           : FieldType::kNumeric;
    EXPECT_EQ(rows->Field(i).type, type) << rows->Field(i).name;
    if (type == FieldType::kVarChar) {
      EXPECT_EQ(rows->Field(i).size, 355) << rows->Field(i).name;
    }
  }
}

TEST_P(OrderExecutionTest, AKeyLetsItsLinesThrough) {
  const DictionaryRef filter = March();
  for (const auto& [key, value] : GetParam().filter) filter->Set(key, value);
  EXPECT_EQ(LinesOf(Rows(kOperation, filter)), GetParam().lines);
}

const char* kBolts = "SE001/01.01";
const char* kNuts = "SE001/01.02";
const char* kService = "SE003/02.01";
const char* kStraight = "SE005/01.01";
const char* kRings = "SE002/01.03";

INSTANTIATE_TEST_SUITE_P(
    Keys, OrderExecutionTest,
    testing::Values(
        KeyCase{"days", {{"BDate", "2024-03-06"}, {"EDate", "2024-03-30"}}, {kStraight}},
        KeyCase{"lastDay", {{"BDate", "2024-03-31"}, {"EDate", "2024-03-31"}}, {kRings}},
        KeyCase{"items", {{"BItemNumber", "01.02"}, {"EItemNumber", "01.02"}}, {kNuts}},
        KeyCase{"shortItems", {{"bLongNumber", false}, {"BItemNumber", "7"}, {"EItemNumber", "8"}}, {kRings}},
        KeyCase{"customers", {{"BCustNumber", "C.02"}}, {kStraight, kRings}},
        KeyCase{"apostrophe", {{"BCustNumber", "C.O'3"}, {"ECustNumber", "C.O'3"}}, {kStraight}},
        KeyCase{"shortCustomers", {{"bLongNumber", false}, {"ECustNumber", "2"}}, {kStraight, kRings}},
        KeyCase{"firstBranch", {{"BCompanyNumber", "B.02"}}, {kRings}},
        KeyCase{"lastBranch", {{"ECompanyNumber", "B.01"}}, {kBolts, kNuts}},
        KeyCase{"shortBranch", {{"bLongNumber", false}, {"ECompanyNumber", "1"}}, {kRings}},
        KeyCase{"departments", {{"BDept", "D.02"}, {"EDept", "D.02"}}, {kRings}},
        KeyCase{"employees", {{"BEmp", "E.01"}, {"EEmp", "E.01"}}, {kBolts, kNuts}},
        KeyCase{"orders", {{"BBillNo", "SE002"}, {"EBillNo", "SE004"}}, {kRings}},
        KeyCase{"customerName", {{"CustName", "西岭商行"}}, {kRings}},
        KeyCase{"notAudited", {{"CheckState", 1}}, {kService}},
        KeyCase{"allStates", {{"CheckState", 2}}, {kBolts, kNuts, kService, kStraight, kRings}},
        KeyCase{"open", {{"CloseState", 1}}, {kBolts, kNuts, kStraight}},
        KeyCase{"closed", {{"CloseState", 2}}, {kRings}},
        KeyCase{"allStyles", {{"SaleType", 1}}, {kBolts, kNuts, kStraight, kRings}},
        KeyCase{"oneStyle", {{"SaleType", 102}}, {kRings}},
        KeyCase{"oneType", {{"OrderType", 20303}}, {kRings}},
        KeyCase{"allTypes", {{"OrderType", -1}}, {kBolts, kNuts, kStraight, kRings}},
        KeyCase{"late", {{"Implement", 1}}, {kBolts}}, KeyCase{"wasLate", {{"Implement", 2}}, {kNuts}},
        KeyCase{"services", {{"CheckState", 2}, {"CommodityType", 1}}, {kService}},
        KeyCase{"noServices", {{"CheckState", 2}, {"CommodityType", 2}}, {kBolts, kNuts, kStraight, kRings}},
        KeyCase{"display", {{"DisplayType", 1}, {"chkNextChoose", 1}}, {kBolts, kNuts, kStraight, kRings}},
        KeyCase{"rights",
                {{"DataRightWhere", " CharIndex('16395',t11.FRightUserID)>0 "}},
                {kBolts, kNuts, kRings}},
        KeyCase{"rightsAndOthers",
                {{"DataRightWhere", " CharIndex('16395',t11.FRightUserID)>0 "},
                 {"CloseState", 2},
                 {"BEmp", "E.02"}},
                {kRings}},
        KeyCase{"rightJoin",
                {{"DataRightFrom",
                  "Inner Join t_Currency r On v1.FCurrencyID=r.FCurrencyID And r.FNumber='USD'"}},
                {kRings}},
        KeyCase{"nothing", {{"BItemNumber", "99"}}, {}}),
    [](const auto& key_case) { return key_case.param.name; });

TEST_F(OrderExecutionTest, ALineWithoutDeliveriesIsLateToday) {
  Sql("UPDATE SEOrderEntry SET FAdviceConsignDate=date('now','localtime')||' 00:00:00' WHERE FInterID=6;");
  const DictionaryRef april = March({{"BDate", "2024-04-01"}, {"EDate", "2024-04-01"}, {"Implement", 1}});
  EXPECT_EQ(Rows(kOperation, april)->RecordCount(), 0);
  Sql("UPDATE SEOrderEntry SET FAdviceConsignDate=date('now','localtime','-2 days')||' 00:00:00' WHERE "
      "FInterID=6;");
  EXPECT_EQ(LinesOf(Rows(kOperation, april)), std::vector<std::string>{"SE006/01.01"});
}

TEST_F(OrderExecutionTest, WithoutLinesThereIsNoTotal) {
  const RecordsetRef rows = Rows(kOperation, March({{"BDate", "2020-01-01"}, {"EDate", "2020-01-01"}}));
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_EQ(rows->FieldCount(), 29);
}

TEST_F(OrderExecutionTest, MissingDaysAndWrongKindsAreRefused) {
  EXPECT_THAT(DescriptionRaisedBy([&] { Rows(kOperation, March({{"BDate", ""}})); }), HasSubstr("BDate"));
  EXPECT_THAT(DescriptionRaisedBy([&] {
                Rows(kOperation, March({{"EDate", Variant()}}));
              }),
              HasSubstr("EDate"));
  for (const char* key :
       {"CheckState", "CloseState", "SaleType", "OrderType", "Implement", "CommodityType", "BDate"}) {
    EXPECT_EQ(NumberRaisedBy([&] {
                Rows(kOperation, March({{key, "1 Or 1=1"}}));
              }),
              error_number::kTypeMismatch)
        << key;
  }
  EXPECT_THAT(DescriptionRaisedBy([&] { Rows(kOperation, nullptr); }), HasSubstr("filter"));
}

TEST_F(OrderExecutionTest, TheFilterComesBackAsItWent) {
  const DictionaryRef filter = March();
  Rows(kOperation, filter);
  EXPECT_EQ(filter->Entries().size(), 3U);
}

}  // namespace
}  // namespace salerpt::middletier
