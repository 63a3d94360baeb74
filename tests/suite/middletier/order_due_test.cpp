// The delivery due warning: what is due and not delivered, by hand; every key of the filter.
#include "suite/middletier/order_due.h"

#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kOperation = "GetRpt189Data";

// Until the end of the century: SE001's bolts, SE003 and SE006 are open.
class OrdersDueTest : public OrderCompanyTest, public testing::WithParamInterface<KeyCase> {
 protected:
  static DictionaryRef Ever(std::initializer_list<Dictionary::Entry> chosen = {}) {
    const DictionaryRef filter = March(chosen);
    filter->Set("BDate", "1900-01-01");
    filter->Set("EDate", "2099-12-31");
    return filter;
  }
};

TEST_F(OrdersDueTest, LinesThatAreNotDeliveredInFull) {
  EXPECT_THAT(
      Table(Rows(kOperation, Ever()), {"FDate", "FBillNo", "FEntryID", "FStatus", "FCustomerNumber",
                                       "FCustomerShortNumber", "FCustomer", "FExplanation", "FDept", "FEmp"}),
      ElementsAre("2024-03-05|SE001|1|已审核|C.01|3|东风商行|急|一部|周明",
                  "2024-03-10|SE003|1|未审核|C.O'3|1|南港商行||一部|周明",
                  "2024-04-01|SE006|1|已审核|C.01|3|东风商行||一部|周明"));
}

TEST_F(OrdersDueTest, QuantitiesStandInTheUnitOfTheLine) {
  EXPECT_THAT(
      Table(Rows(kOperation, Ever()), {"FItemNumber", "FItemShortNumber", "FItem", "FModel", "FAuxProp",
                                       "FFetchDate", "FUnit", "FQty", "FStockQty", "FUnStockQty"}),
      ElementsAre("01.01|9|螺栓|M8|小|2024-03-20|箱|2|1.25|0.75", "02.01|3|安装|||2099-01-01|件|1|0|1",
                  "01.01|9|螺栓|M8||2099-01-02|件|1|0|1"));
}

TEST_F(OrdersDueTest, WhatIsClosedIsNotToCome) {
  Sql("UPDATE SEOrderEntry SET FMrpClosed=1 WHERE FInterID=6; UPDATE SEOrder SET FStatus=3 WHERE "
      "FInterID=1;");
  EXPECT_THAT(Column(Rows(kOperation, Ever()), "FBillNo"), ElementsAre("SE003"));
  Sql("UPDATE SEOrder SET FCancelLation=1 WHERE FInterID=3;");
  EXPECT_EQ(Rows(kOperation, Ever())->RecordCount(), 0);
}

TEST_F(OrdersDueTest, ADueDayIsTheDeliveryDayNotTheOrders) {
  const auto due = [](const char* begin, const char* end) {
    return Column(Rows(kOperation, March({{"BDate", begin}, {"EDate", end}})), "FBillNo");
  };
  EXPECT_THAT(due("2024-03-20", "2024-03-20"), ElementsAre("SE001"));
  EXPECT_THAT(due("2024-03-05", "2024-03-19"), ElementsAre());
  EXPECT_THAT(due("2099-01-01", "2099-01-02"), ElementsAre("SE003", "SE006"));
}

TEST_F(OrdersDueTest, RowsStandByCustomerOrByItem) {
  const auto order = [](const char* group, bool long_number) {
    return Column(Rows(kOperation, Ever({{"GroupBy", group}, {"bLongNumber", long_number}})), "FBillNo");
  };
  EXPECT_THAT(order("客户", true), ElementsAre("SE001", "SE006", "SE003"));
  EXPECT_THAT(order("客户", false), ElementsAre("SE003", "SE001", "SE006"));
  EXPECT_THAT(order("物料", true), ElementsAre("SE001", "SE006", "SE003"));
  EXPECT_THAT(order("物料", false), ElementsAre("SE003", "SE001", "SE006"));
  EXPECT_THAT(order("其他", true), ElementsAre("SE001", "SE003", "SE006"));
}

TEST_P(OrdersDueTest, AKeyLetsItsLinesThrough) {
  const DictionaryRef filter = Ever();
  for (const auto& [key, value] : GetParam().filter) filter->Set(key, value);
  EXPECT_EQ(Column(Rows(kOperation, filter), "FBillNo"), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, OrdersDueTest,
    testing::Values(
        KeyCase{"customers", {{"BCustomerNumber", "C.01"}, {"ECustomerNumber", "C.01"}}, {"SE001", "SE006"}},
        KeyCase{"shortCustomers", {{"bLongNumber", false}, {"ECustomerNumber", "1"}}, {"SE003"}},
        KeyCase{"items", {{"BItemNumber", "01.02"}}, {"SE003"}},
        KeyCase{"shortItems", {{"bLongNumber", false}, {"BItemNumber", "9"}}, {"SE001", "SE006"}},
        KeyCase{"departments", {{"BDeptNumber", "D.02"}}, {}},
        KeyCase{"lastDepartment", {{"EDeptNumber", "D.01"}}, {"SE001", "SE003", "SE006"}},
        KeyCase{
            "employees", {{"BSalesNumber", "E.01"}, {"ESalesNumber", "E.01"}}, {"SE001", "SE003", "SE006"}},
        KeyCase{"laterEmployees", {{"BSalesNumber", "E.02"}}, {}},
        KeyCase{"audited", {{"AuditType", "已审核"}}, {"SE001", "SE006"}},
        KeyCase{"notAudited", {{"AuditType", "未审核"}}, {"SE003"}},
        KeyCase{"allAudits", {{"AuditType", "全部"}, {"chkNextChoose", ""}}, {"SE001", "SE003", "SE006"}},
        KeyCase{"services", {{"CommodityType", 1}}, {"SE003"}},
        KeyCase{"noServices", {{"CommodityType", 2}}, {"SE001", "SE006"}},
        KeyCase{"rights", {{"DataRightWhere", " CharIndex('16395',o.FRightUserID)>0 "}}, {"SE001", "SE006"}},
        KeyCase{"rightsAndOthers",
                {{"DataRightWhere", " CharIndex('16395',o.FRightUserID)>0 "}, {"EDate", "2024-12-31"}},
                {"SE001"}}),
    [](const auto& key_case) { return key_case.param.name; });

TEST_F(OrdersDueTest, MissingDaysAndUnknownWordsAreRefused) {
  EXPECT_THAT(DescriptionRaisedBy([&] { Rows(kOperation, March({{"BDate", ""}})); }), HasSubstr("BDate"));
  EXPECT_THAT(DescriptionRaisedBy([&] {
                Rows(kOperation, Ever({{"AuditType", "审核中"}}));
              }),
              testing::AllOf(HasSubstr("AuditType"), HasSubstr("审核中")));
  EXPECT_EQ(NumberRaisedBy([&] {
              Rows(kOperation, Ever({{"CommodityType", "x"}}));
            }),
            error_number::kTypeMismatch);
}

}  // namespace
}  // namespace salerpt::middletier
