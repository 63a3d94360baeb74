// The four row sets of the batch tracking, by hand.
#include "suite/middletier/batch_tracking.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class BatchTrackingTest : public OrderCompanyTest, public testing::WithParamInterface<KeyCase> {
 protected:
  static DictionaryRef Sets(const DictionaryRef& filter) {
    Variant sent = filter;
    return As<Dictionary>(Call(CreateObject("ORVMSaleRpt.Data"), "GetRpt192Data", kProps, sent));
  }
  static RecordsetRef Set(const DictionaryRef& filter, std::string_view name) {
    return As<Recordset>(Sets(filter)->Get(name));
  }
};

TEST_F(BatchTrackingTest, OrderLinesStandByOrderAndItemInBaseCurrency) {
  const RecordsetRef rows = Set(March(), "rsOrder");
  EXPECT_THAT(
      Table(rows, {"FOrderInterID", "FOrderEntryID", "FOrderBillNo", "FNumber", "FUnitName", "FQty", "FPrice",
                   "FCUUnitName", "FCUUnitQty", "FCUUnitPrice", "FAmount"}),
      ElementsAre("1|1|SE001|01.01|件|24|10|箱|2|120|240", "1|2|SE001|01.02|件|10|10|件|10|10|100",
                  "5|1|SE005|01.01|件|12|10|箱|1|120|120", "2|1|SE002|01.03|千克|2.5|70|千克|2.5|70|175"));
  EXPECT_EQ(Table(rows, {"FTranType", "FItemID", "FDate", "FCustNumber", "FCustShortNumber", "FCustName",
                         "FShortNumber", "FName", "FModel", "FAuxPropName", "FBom"})[0],
            "81|101|2024-03-05|C.01|3|东风商行|9|螺栓|M8|小|BOM1");
}

TEST_F(BatchTrackingTest, LinesOfAnItemLieTogetherInTheirOrder) {
  Sql("INSERT INTO "
      "SEOrderEntry(FInterID,FEntryID,FItemID,FUnitID,FQty,FAuxQty,FPrice,FAuxPrice,FAmount,FTaxAmount,"
      "FAllAmount,FStdAllAmount) VALUES (1,3,101,1,1,1,1,1,1,0,1,1);");
  EXPECT_THAT(Table(Set(March({{"EBill", "SE001"}}), "rsOrder"), {"FNumber", "FOrderEntryID"}),
              ElementsAre("01.01|1", "01.01|3", "01.02|2"));
}

TEST_F(BatchTrackingTest, TasksAreThoseOfTheLines) {
  EXPECT_THAT(Table(Set(March(), "rsWorkBill"), {"FOrderInterID", "FOrderEntryID", "FItemID", "FWorkInterID",
                                                 "FTranType", "FWorkBillNo", "FWorkBillQty"}),
              ElementsAre("1|1|101|1|85|W1|20"));
}

TEST_F(BatchTrackingTest, AReceiptIsFoundByItsTaskOrByItsOrderLine) {
  EXPECT_THAT(
      Table(Set(March(), "rsInStock"),
            {"FOrderInterID", "FOrderEntryID", "FItemID", "FWorkInterID", "FInStockInterID", "FTranType",
             "FInBillNo", "FBatchNo", "FKFDate", "FKFPeriod", "FQty", "FPrice", "FCUUnitQty", "FCUUnitPrice",
             "FAmount"}),
      ElementsAre("0|0|101|1|31|2|C1|P1|2024-03-08|30|18|5|1.5|60|90", "1|2|102|0|32|2|C2|||0|3|2|3|2|6.01"));
}

TEST_F(BatchTrackingTest, AReceiptOfACancelledTaskIsNobodys) {
  Sql("UPDATE ICMO SET FCancelLation=1;");
  EXPECT_THAT(Column(Set(March(), "rsInStock"), "FInBillNo"), ElementsAre("C2"));
  EXPECT_EQ(Set(March(), "rsWorkBill")->RecordCount(), 0);
  EXPECT_EQ(Set(March(), "rsOutStock")->RecordCount(), 0);
}

TEST_F(BatchTrackingTest, IssuesAreThoseOfTheTasks) {
  EXPECT_THAT(Table(Set(March(), "rsOutStock"),
                    {"FWorkInterID", "FOutStockInterID", "FTranType", "FOutBillNo", "FWorkShop", "FNumber",
                     "FShortNumber", "FName", "FModel", "FBatchNo", "FKFDate", "FKFPeriod", "FUnitName",
                     "FQty", "FPrice", "FCUUnitName", "FCUUnitQty", "FCUUnitPrice", "FAmount"}),
              ElementsAre("1|33|24|S1|二部|01.03|7|O'Ring|R-5|M1|2024-02-01|60|千克|4|1.5|千克|4|1.5|6"));
}

TEST_P(BatchTrackingTest, AKeyLetsItsLinesThrough) {
  const DictionaryRef filter = March();
  for (const auto& [key, value] : GetParam().filter) filter->Set(key, value);
  EXPECT_EQ(Table(Set(filter, "rsOrder"), {"FOrderBillNo", "FItemID"}), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, BatchTrackingTest,
    testing::Values(KeyCase{"days", {{"BDate", "2024-03-06"}, {"EDate", "2024-03-30"}}, {"SE005|101"}},
                    KeyCase{"items", {{"BItemNumber", "01.02"}, {"EItemNumber", "01.02"}}, {"SE001|102"}},
                    KeyCase{"shortItems",
                            {{"bLongNumber", false}, {"BItemNumber", "7"}, {"EItemNumber", "8"}},
                            {"SE002|103"}},
                    KeyCase{"customers", {{"BCustNumber", "C.02"}}, {"SE005|101", "SE002|103"}},
                    KeyCase{"shortCustomers", {{"bLongNumber", false}, {"ECustNumber", "1"}}, {"SE005|101"}},
                    KeyCase{"orders", {{"BBill", "SE002"}, {"EBill", "SE004"}}, {"SE002|103"}},
                    KeyCase{"notAudited", {{"CheckState", 1}}, {"SE003|105"}},
                    KeyCase{"allStates",
                            {{"CheckState", 2}},
                            {"SE001|101", "SE001|102", "SE003|105", "SE005|101", "SE002|103"}},
                    KeyCase{"open", {{"CloseState", 1}}, {"SE001|101", "SE001|102", "SE005|101"}},
                    KeyCase{"closed", {{"CloseState", 2}}, {"SE002|103"}},
                    KeyCase{"display", {{"DisplayType", 1}, {"EBill", "SE001"}}, {"SE001|101", "SE001|102"}},
                    KeyCase{"rights",
                            {{"DataRightWhere", " CharIndex('16395',T2.FRightUserID)>0 "}},
                            {"SE001|101", "SE001|102", "SE002|103"}},
                    KeyCase{"rightsAndOthers",
                            {{"DataRightWhere", " CharIndex('16395',T2.FRightUserID)>0 "}, {"CloseState", 2}},
                            {"SE002|103"}}),
    [](const auto& key_case) { return key_case.param.name; });

TEST_F(BatchTrackingTest, TheOtherSetsFollowTheLines) {
  const DictionaryRef sets = Sets(March({{"BBill", "SE002"}}));
  for (const char* name : {"rsWorkBill", "rsInStock", "rsOutStock"})
    EXPECT_EQ(As<Recordset>(sets->Get(name))->RecordCount(), 0) << name;
}

TEST_F(BatchTrackingTest, AnEmptySetHasItsFields) {
  const DictionaryRef sets = Sets(March({{"BItemNumber", "99"}}));
  EXPECT_EQ(
      FieldNames(As<Recordset>(sets->Get("rsOrder"))),
      "FOrderInterID FOrderEntryID FTranType FOrderBillNo FItemID FDate FCustNumber FCustShortNumber "
      "FCustName "
      "FNumber FShortNumber FName FModel FAuxPropName FBom FUnitName FQty FPrice FCUUnitName FCUUnitQty "
      "FCUUnitPrice FAmount");
  EXPECT_EQ(As<Recordset>(sets->Get("rsInStock"))->FieldCount(), 15);
}

TEST_F(BatchTrackingTest, MissingDaysAndWrongKindsAreRefused) {
  EXPECT_THAT(DescriptionRaisedBy([&] { Sets(March({{"EDate", ""}})); }), HasSubstr("EDate"));
  for (const char* key : {"CheckState", "CloseState", "BDate"}) {
    EXPECT_EQ(NumberRaisedBy([&] { Sets(March({{key, "1 Or 1=1"}})); }), error_number::kTypeMismatch) << key;
  }
}

}  // namespace
}  // namespace salerpt::middletier
