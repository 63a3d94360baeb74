// The batch tracking: its columns and the lines above the grid.
#include <gtest/gtest.h>

#include "tests/reports/rpt192_world.h"

namespace salerpt::testing {
namespace {

class Rpt192Header : public Rpt192World {
 protected:
  static Lines Columns() {
    return {"订单日期$||0|FDate|1|0|0",
            "客户代码$||1|FCustNumber|1|0|0",
            "客户名称$||1|FCustName|1|0|0",
            "产品代码$||1|FNumber|1|0|0",
            "产品名称$||1|FName|1|0|0",
            "产品规格型号$||1|FModel|1|0|0",
            "辅助属性$||1|FAuxPropName|1|0|0",
            "销售订单号$||1|FOrderBillNo|1|0|0",
            "客户BOM号$||1|FBom|1|0|0",
            "产品单位(基本)$||1|FUnitName|1|0|0",
            "订单数量(基本)$||2|FQty|1|0|0",
            "订单单价(基本)$||4|FPrice|1|0|0",
            "产品单位(常用)$||1|FCUUnitName|1|0|0",
            "订单数量(常用)$||2|FCUUnitQty|1|0|0",
            "订单单价(常用)$||4|FCUUnitPrice|1|0|0",
            "订单金额$||6|FAmount|1|0|0",
            "生产任务号$||1|FWorkBillNo|1|0|0",
            "生产任务单数量(基本)$||2|FWorkBillQty|1|0|0",
            "入库单号$||1|FInBillNo|1|0|0",
            "产品批号$||1|FBatchNo|1|0|0",
            "产品生产/采购日期$||0|FKFDate|1|0|0",
            "产品保质期$||10|FKFPeriod|1|0|0",
            "入库数量(基本)$||2|FQty2|1|0|0",
            "入库单价(基本)$||4|FPrice2|1|0|0",
            "入库数量(常用)$||2|FCUUnitQty2|1|0|0",
            "入库单价(常用)$||4|FCUUnitPrice2|1|0|0",
            "入库金额$||6|FInAmount|1|0|0",
            "出库单号$||1|FOutBillNo|1|0|0",
            "生产车间$||1|FWorkShop|1|0|0",
            "物料代码$||1|FNumber2|1|0|0",
            "物料名称$||1|FName2|1|0|0",
            "物料规格型号$||1|FModel2|1|0|0",
            "物料批号$||1|FBatchNo2|1|0|0",
            "物料生产/采购日期$||0|FKFDate3|1|0|0",
            "物料保质期$||10|FKFPeriod3|1|0|0",
            "物料单位(基本)$||1|FUnitName3|1|0|0",
            "领料数量(基本)$||2|FQty3|1|0|0",
            "领料单价(基本)$||4|FPrice3|1|0|0",
            "领料数量(常用)$||2|FCUUnitQty3|1|0|0",
            "领料单价(常用)$||4|FCUUnitPrice3|1|0|0",
            "领料金额$||6|FOutAmount|1|0|0"};
  }
};

TEST_F(Rpt192Header, GivesItsColumns) {
  Fetch();
  EXPECT_EQ(ColumnLines(), Columns());
}

TEST_F(Rpt192Header, WritesTheKeysOfAColumnInTheirOrder) {
  Fetch();
  ExpectColumnKeys(
      {"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible", "FMergerType", "FForceHide"});
}

TEST_F(Rpt192Header, ShowsShortCodesWhereThoseAreInUse) {
  UseShortCode();
  Fetch();
  Lines columns = Columns();
  columns[1] = "客户代码$||1|FCustShortNumber|1|0|0";
  columns[3] = "产品代码$||1|FShortNumber|1|0|0";
  columns[29] = "物料代码$||1|FShortNumber2|1|0|0";
  EXPECT_EQ(ColumnLines(), columns);
}

TEST_F(Rpt192Header, HidesPricesAndAmountsByForceWithoutTheirRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  Lines columns = Columns();
  for (const std::size_t place : {11, 14, 15, 23, 25, 26, 37, 39, 40}) columns[place].back() = '1';
  EXPECT_EQ(columns[11], "订单单价(基本)$||4|FPrice|1|0|1");
  EXPECT_EQ(columns[40], "领料金额$||6|FOutAmount|1|0|1");
  EXPECT_EQ(ColumnLines(), columns);
}

TEST_F(Rpt192Header, AsksForTheRightToSeeAmounts) {
  Fetch();
  ASSERT_EQ(ledger_->CalledMembers(), Lines{"AccessCheck"});
  std::vector<int> numbers;
  for (const Variant& argument : ledger_->Calls()[0].arguments) numbers.push_back(argument.ToInt32());
  EXPECT_EQ(numbers, (std::vector<int>{1008, 17, 4}));
}

TEST_F(Rpt192Header, ReplacesTheColumnsAtEachFetch) {
  Fetch();
  Fetch();
  EXPECT_EQ(ColumnLines(), Columns());
}

TEST_F(Rpt192Header, NamesColumnsThatFindTheirFieldWithoutRegardToCaseButTwoThatFindNone) {
  Fetch();
  Lines without_field;
  const auto header = As<Vector>(GetMember(Report(), "Header"));
  for (std::int32_t i = 1; i <= header->Size(); ++i) {
    const std::string field = As<Dictionary>(header->Item(i))->Get("FColName").ToText();
    if (Rs()->FindField(field) < 0) without_field.push_back(field);
  }
  EXPECT_EQ(without_field, (Lines{"FKFDate3", "FKFPeriod3"}));
}

using Rpt192Title = Rpt192World;

TEST_F(Rpt192Title, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"物料代码范围：所有物料", 2},
                                     {"客户代码范围：所有客户", 3},
                                     {"销售订单范围：所有销售订单", 4}}));
}

TEST_F(Rpt192Title, TellsBothEndsOfARange) {
  Fetch({{"BItemNumber", "01"},
         {"EItemNumber", "09"},
         {"BCustNumber", "02"},
         {"ECustNumber", "03"},
         {"BBill", "SEORD1"},
         {"EBill", "SEORD9"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"物料代码范围：01  --  09", 2},
                                     {"客户代码范围: 02 -- 03", 3},
                                     {"销售订单范围: SEORD1 -- SEORD9", 4}}));
}

TEST_F(Rpt192Title, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"EItemNumber", "09"}, {"BCustNumber", "02"}, {"EBill", "SEORD9"}});
  ASSERT_EQ(TitleLines().size(), 5U);
  EXPECT_EQ(TitleLines()[2].first, "物料代码范围：  --  09");
  EXPECT_EQ(TitleLines()[3].first, "客户代码范围: 02 -- ");
  EXPECT_EQ(TitleLines()[4].first, "销售订单范围:  -- SEORD9");
}

TEST_F(Rpt192Title, StaysAtARefresh) {
  Fetch();
  const ObjectRef title = GetMember(Report(), "Title").ToObject();
  Call(Report(), "Refresh");
  EXPECT_EQ(GetMember(Report(), "Title").ToObject(), title);
}

}  // namespace
}  // namespace salerpt::testing
