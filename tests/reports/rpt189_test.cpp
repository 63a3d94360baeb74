// The delivery due warning: what the middle tier is asked, the columns by customer and by item, and the lines
// above the grid.
#include <gtest/gtest.h>

#include "tests/reports/rpt189_world.h"

namespace salerpt::testing {
namespace {

class Rpt189 : public Rpt189World {
 protected:
  static Lines ColumnsByCustomer() {
    return {"日期$||0|FDate|1|1|0",
            "单据编号$||1|FBillNo|1|1|0",
            "行号$||1|FEntryID|1|0|0",
            "单据状态$||1|FStatus|1|1|0",
            "客户代码$||1|FCustomerNumber|1|1|0",
            "客户名称$||1|FCustomer|1|1|0",
            "摘要$||1|FExplanation|1|1|0",
            "部门$||1|FDept|1|1|0",
            "业务员$||1|FEmp|1|1|0",
            "物料代码$||1|FItemNumber|1|0|0",
            "物料名称$||1|FItem|1|0|0",
            "规格型号$||1|FModel|1|0|0",
            "辅助属性$||1|FAuxProp|1|0|0",
            "交货日期$||0|FFetchDate|1|0|0",
            "单位$||1|FUnit|1|0|0",
            "签订数量$||2|FQty|1|0|0",
            "出库数量$||2|FStockQty|1|0|0",
            "未出库数量$||2|FUnStockQty|1|0|0"};
  }
  static Lines ColumnsByItem() {
    return {"日期$||0|FDate|1|0|0",
            "单据编号$||1|FBillNo|1|0|0",
            "行号$||1|FEntryID|1|0|0",
            "单据状态$||1|FStatus|1|0|0",
            "物料代码$||1|FItemNumber|1|0|0",
            "物料名称$||1|FItem|1|0|0",
            "规格型号$||1|FModel|1|0|0",
            "辅助属性$||1|FAuxProp|1|0|0",
            "客户代码$||1|FCustomerNumber|1|0|0",
            "客户名称$||1|FCustomer|1|0|0",
            "摘要$||1|FExplanation|1|0|0",
            "部门$||1|FDept|1|0|0",
            "业务员$||1|FEmp|1|0|0",
            "交货日期$||0|FFetchDate|1|0|0",
            "单位$||1|FUnit|1|0|0",
            "签订数量$||2|FQty|1|0|0",
            "出库数量$||2|FStockQty|1|0|0",
            "未出库数量$||2|FUnStockQty|1|0|0"};
  }
};

// --- What it asks

TEST_F(Rpt189, SendsItsConditionsOnceAndHandsOnTheRows) {
  Fetch({{"GroupBy", "客户"}});
  ExpectOneCall();
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

TEST_F(Rpt189, AddsTheDataRightAndTheCodeInUseAndNoOtherKey) {
  Fetch();
  EXPECT_EQ(AddedKeys(), (Lines{"DataRightFrom", "DataRightWhere", "bLongNumber"}));
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
  ExpectCustomersAsked();
}

TEST_F(Rpt189, HandsOnWhichCustomersTheUserMaySee) {
  RestrictCustomers();
  UseShortCode();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',o.FRightUserID)>0 "));
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(false));
}

TEST_F(Rpt189, ReadsTheDataRightAnewAtEachFetch) {
  RestrictCustomers();
  Fetch();
  rights_->Gives("GetDataRight", false);
  Call(Report(), "Refresh");
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(""));
}

TEST_F(Rpt189, LeavesEveryConditionOfTheHostInPlace) {
  Fetch({{"AuditType", "全部"}, {"chkNextChoose", "1"}, {"BDeptNumber", "01"}});
  EXPECT_EQ(SentFilter()->Get("AuditType"), Variant("全部"));
  EXPECT_EQ(SentFilter()->Get("chkNextChoose"), Variant("1"));
  EXPECT_EQ(SentFilter()->Get("BDeptNumber"), Variant("01"));
  EXPECT_EQ(SentFilter()->Get("BDate"), Variant(Date::FromYmd(2003, 1, 1)));
}

TEST_F(Rpt189, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  ExpectTwoTextsOfProgress();
}

// --- Columns

TEST_F(Rpt189, GivesItsColumnsByCustomer) {
  Fetch({{"GroupBy", "客户"}});
  EXPECT_EQ(ColumnLines(), ColumnsByCustomer());
}

TEST_F(Rpt189, GivesItsColumnsByItem) {
  Fetch({{"GroupBy", "物料"}});
  EXPECT_EQ(ColumnLines(), ColumnsByItem());
}

TEST_F(Rpt189, GivesNoColumnUnderAnyOtherGrouping) {
  for (const Variant& grouping :
       {Variant(), Variant(""), Variant("部门"), Variant(" 客户"), Variant(std::int32_t{1})}) {
    Fetch({{"GroupBy", grouping}});
    EXPECT_EQ(ColumnLines(), Lines{}) << grouping.ToText();
    EXPECT_TRUE(HasRows());
  }
  Fetch();
  EXPECT_EQ(ColumnLines(), Lines{});
}

TEST_F(Rpt189, ReplacesTheColumnsAtEachFetch) {
  Fetch({{"GroupBy", "物料"}});
  Fetch({{"GroupBy", "客户"}});
  EXPECT_EQ(ColumnLines(), ColumnsByCustomer());
}

// Other than elsewhere, the kind of merging stands behind the force to hide.
TEST_F(Rpt189, WritesTheKeysOfAColumnInTheirOrder) {
  for (const char* grouping : {"客户", "物料"}) {
    Fetch({{"GroupBy", grouping}});
    ExpectColumnKeys(
        {"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible", "FForceHide", "FMergerType"});
  }
}

TEST_F(Rpt189, ShowsShortCodesWhereThoseAreInUse) {
  UseShortCode();
  Fetch({{"GroupBy", "客户"}});
  Lines columns = ColumnsByCustomer();
  columns[4] = "客户代码$||1|FCustomerShortNumber|1|1|0";
  columns[9] = "物料代码$||1|FItemShortNumber|1|0|0";
  EXPECT_EQ(ColumnLines(), columns);
  Fetch({{"GroupBy", "物料"}});
  columns = ColumnsByItem();
  columns[4] = "物料代码$||1|FItemShortNumber|1|0|0";
  columns[8] = "客户代码$||1|FCustomerShortNumber|1|0|0";
  EXPECT_EQ(ColumnLines(), columns);
}

TEST_F(Rpt189, HasTheSameColumnsWithoutAnyFieldRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch({{"GroupBy", "客户"}});
  EXPECT_EQ(ColumnLines(), ColumnsByCustomer());
  EXPECT_TRUE(ledger_->Calls().empty());
}

// --- Title

TEST_F(Rpt189, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"客户代码范围：所有", 2},
                                     {"", 3},
                                     {"物料代码范围：所有", 4},
                                     {"部门代码范围：所有", 5},
                                     {"", 6},
                                     {"业务员代码范围：所有", 7}}));
}

TEST_F(Rpt189, TellsBothEndsOfARange) {
  Fetch({{"BCustomerNumber", "02"},
         {"ECustomerNumber", "03"},
         {"BItemNumber", "01"},
         {"EItemNumber", "09"},
         {"BDeptNumber", "11"},
         {"EDeptNumber", "12"},
         {"BSalesNumber", "21"},
         {"ESalesNumber", "22"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"客户代码范围：02  --  03", 2},
                                     {"", 3},
                                     {"物料代码范围：01  --  09", 4},
                                     {"部门代码范围：11  --  12", 5},
                                     {"", 6},
                                     {"业务员代码范围：21  --  22", 7}}));
}

TEST_F(Rpt189, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"BCustomerNumber", "02"}, {"EItemNumber", "09"}, {"BDeptNumber", "11"}, {"ESalesNumber", "22"}});
  const TitleList title = TitleLines();
  ASSERT_EQ(title.size(), 8U);
  EXPECT_EQ(title[2].first, "客户代码范围：02  --  ");
  EXPECT_EQ(title[4].first, "物料代码范围：  --  09");
  EXPECT_EQ(title[5].first, "部门代码范围：11  --  ");
  EXPECT_EQ(title[7].first, "业务员代码范围：  --  22");
}

TEST_F(Rpt189, TellsNothingOfTheCustomersThatOtherReportsGoBy) {
  Fetch({{"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines().at(2).first, "客户代码范围：所有");
}

}  // namespace
}  // namespace salerpt::testing
