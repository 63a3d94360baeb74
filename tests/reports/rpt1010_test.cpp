// The tracking of orders through delivery, invoice and receipt: what the middle tier is asked, columns with
// their groups, and the lines above the grid.
#include <gtest/gtest.h>

#include "tests/reports/rpt1010_world.h"

namespace salerpt::testing {
namespace {

class Rpt1010 : public Rpt1010World {
 protected:
  static Lines Columns() {
    return {"订单日期$||0|Fdate|1|1",
            "订单编号$||1|FBillNo|1|1",
            "客户代码$||1|FCustNumber|1|1",
            "客户名称$||1|FCustName|1|1",
            "摘要$||1|FExplanation|1|1",
            "物料代码$||1|FItemNumber|1|0",
            "物料名称$||1|FItemName|1|0",
            "规格型号$||1|FModel|1|0",
            "辅助属性$||1|FAuxPropName|1|0",
            "交货日期$||0|FSendDate|1|0",
            "单位$||1|FUnitName|1|0",
            "币别$||1|FCurrencyName|1|0",
            "汇率$||1|FExchangeRate|1|0",
            "签订+|+|+|+||数量|2|FOrderQty|1|0",
            " |含税单价|4|FOrderPriceFor|1|0",
            " |含税单价(综合本位币)|4|FOrderPrice|1|0",
            " |价税合计|40|FOrderAmountFor|1|0",
            " |价税合计(综合本位币)|40|FOrderAmount|1|0",
            "出库+||出库数量|2|FOutQty|1|0",
            " |未出库数量|2|FNotOutQty|1|0",
            "开票+|+|+||已开票数量|2|FInvoiceQty|1|0",
            " |开票价税合计|40|FInvoiceAmountFor|1|0",
            " |开票价税合计(综合本位币)|40|FInvoiceAmount|1|0",
            " |出库未开票数量|2|FNotInvoiceQty|1|0",
            "收款+|+||已收款(综合本位币)|40|FReceiveAmount|1|0",
            " |订单未收款(综合本位币)|40|FOrderNotReceiveAmount|1|0",
            " |开票未收款(综合本位币)|40|FInvoiceNotReceiveAmount|1|0",
            "订金+|+|+||订单订金|40|FOrderDepositFor|1|1",
            " |订单订金(综合本位币)|40|FOrderDeposit|1|1",
            " |已下推预收款|40|FOrderPrePayAmountFor|1|1",
            " |已下推预收款(综合本位币)|40|FOrderPrePayAmount|1|1",
            "部门代码$||1|FDeptNumber|0|0",
            "部门$||1|FDeptName|1|0",
            "业务代码$||1|FEmpNumber|0|0",
            "业务员$||1|FEmpName|1|0",
            "备注$||1|FNote|1|0"};
  }
};

// --- What it asks

TEST_F(Rpt1010, SendsItsConditionsOnceAndHandsOnTheRows) {
  Fetch();
  ExpectOneCall();
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

TEST_F(Rpt1010, AddsItsNumberTheUserAndTheCodeInUse) {
  Fetch();
  EXPECT_TRUE(SentFilter()->Get("RptID").IsNumber());
  EXPECT_EQ(SentFilter()->Get("RptID").ToInt32(), 1010);
  EXPECT_TRUE(SentFilter()->Get("UserID").IsNumber());
  EXPECT_EQ(SentFilter()->Get("UserID").ToInt32(), 16394);
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
  Lines added = AddedKeys();
  std::erase_if(added, [](const std::string& key) { return key.starts_with("DataRight"); });
  EXPECT_EQ(added, (Lines{"RptID", "UserID", "bLongNumber"}));
}

TEST_F(Rpt1010, TellsThatTheShortCodeIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(false));
}

TEST_F(Rpt1010, SendsTheNumberOfTheFamilyThatTheHostSet) {
  LetMember(Report(), "ExtFirter", "134");
  Fetch();
  EXPECT_EQ(SentFilter()->Get("RptID").ToInt32(), 134);
}

TEST_F(Rpt1010, AsksForTheRightsOnCustomers) {
  Fetch();
  ExpectCustomersAsked();
}

// The middle tier has the user's number; what the user may see goes along with it.
TEST_F(Rpt1010, HandsOnWhichCustomersTheUserMaySee) {
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',t11.FRightUserID)>0 "));
}

TEST_F(Rpt1010, ReadsTheDataRightAnewAtEachFetch) {
  RestrictCustomers();
  Fetch();
  rights_->Gives("GetDataRight", false);
  Call(Report(), "Refresh");
  EXPECT_EQ(SentFilter()->Get("DataRightWhere").ToText(), "");
}

TEST_F(Rpt1010, LeavesEveryConditionOfTheHostInPlace) {
  Fetch({{"BDept", "01"}, {"BBill", "SEORD1"}, {"DisplayType", std::int32_t{2}}});
  EXPECT_EQ(SentFilter()->Get("BDept"), Variant("01"));
  EXPECT_EQ(SentFilter()->Get("BBill"), Variant("SEORD1"));
  EXPECT_EQ(SentFilter()->Get("DisplayType").ToInt32(), 2);
  EXPECT_EQ(SentFilter()->Get("BDate"), Variant(Date::FromYmd(2003, 1, 1)));
}

TEST_F(Rpt1010, ShowsItsTwoTextsInTheProgressDialogAndTakesItAway) {
  ExpectTwoTextsOfProgress();
}

// --- Rows

TEST_F(Rpt1010, HidesSubtotalsAndKeepsTheTotalUnderDisplayOne) {
  rows_ = SumRows({0, 102, 0, 102, 101});
  Fetch({{"DisplayType", std::int32_t{1}}});
  EXPECT_EQ(rows_->Filter(), " FSumSort <>102 ");
  EXPECT_EQ(rows_->RecordCount(), 3);
}

TEST_F(Rpt1010, ShowsAllRowsUnderEveryOtherDisplay) {
  for (const Variant& display : {Variant(), Variant(std::int32_t{0}), Variant(std::int32_t{2})}) {
    rows_ = SumRows({0, 102, 101});
    Fetch({{"DisplayType", display}});
    EXPECT_EQ(rows_->Filter(), "");
    EXPECT_EQ(rows_->RecordCount(), 3);
  }
}

TEST_F(Rpt1010, ShowsAllRowsWhereNothingIsSaidAboutTheDisplay) {
  rows_ = SumRows({0, 102, 101});
  Fetch();
  EXPECT_EQ(rows_->RecordCount(), 3);
}

// --- Columns

TEST_F(Rpt1010, GivesItsColumns) {
  Fetch();
  EXPECT_EQ(ColumnLines(), Columns());
}

TEST_F(Rpt1010, WritesTheKeysOfAColumnInTheirOrder) {
  Fetch();
  ExpectColumnKeys({"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible", "FMergerType"});
}

TEST_F(Rpt1010, HasTheSameColumnsWhereShortCodesAreInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(ColumnLines(), Columns());
}

TEST_F(Rpt1010, HasTheSameColumnsWithoutAnyFieldRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  EXPECT_EQ(ColumnLines(), Columns());
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_F(Rpt1010, SpansWithEachGroupAsManyColumnsAsItOpens) {
  Fetch();
  const auto header = As<Vector>(GetMember(Report(), "Header"));
  int open = 0;
  for (std::int32_t i = 1; i <= header->Size(); ++i) {
    const auto column = As<Dictionary>(header->Item(i));
    const std::string caption = column->Get("FColCaption").ToText();
    if (caption == " ") {
      --open;
      EXPECT_GE(open, 0) << "column " << i;
      continue;
    }
    EXPECT_EQ(open, 0) << "before column " << i;
    for (std::size_t at = caption.find("+|"); at != std::string::npos; at = caption.find("+|", at + 2))
      ++open;
    EXPECT_EQ(column->Get("FHeadSecond").ToText().empty(), caption.ends_with('$')) << "column " << i;
  }
  EXPECT_EQ(open, 0);
}

TEST_F(Rpt1010, KeepsItsColumnsWhereNothingIsFound) {
  rows_ = SumRows({});
  Fetch();
  EXPECT_EQ(ColumnLines(), Columns());
}

// --- Title

TEST_F(Rpt1010, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"物料代码范围：所有产品", 2},
                                     {"客户代码范围：所有客户", 3},
                                     {"部门代码范围：所有部门", 4},
                                     {"业务员代码范围：所有业务员", 5}}));
}

TEST_F(Rpt1010, TellsBothEndsOfARange) {
  Fetch({{"BItemNumber", "01"},
         {"EItemNumber", "09"},
         {"BCustNumber", "02"},
         {"ECustNumber", "03"},
         {"BDept", "11"},
         {"EDept", "12"},
         {"BEmp", "21"},
         {"EEmp", "22"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"物料代码范围：01  --  09", 2},
                                     {"客户代码范围: 02 -- 03", 3},
                                     {"部门代码范围: 11 -- 12", 4},
                                     {"业务员代码范围: 21 -- 22", 5}}));
}

TEST_F(Rpt1010, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"EItemNumber", "09"}, {"BCustNumber", "02"}, {"EDept", "12"}, {"BEmp", "21"}});
  const TitleList title = TitleLines();
  ASSERT_EQ(title.size(), 6U);
  EXPECT_EQ(title[2].first, "物料代码范围：  --  09");
  EXPECT_EQ(title[3].first, "客户代码范围: 02 -- ");
  EXPECT_EQ(title[4].first, "部门代码范围:  -- 12");
  EXPECT_EQ(title[5].first, "业务员代码范围: 21 -- ");
}

}  // namespace
}  // namespace salerpt::testing
