// The credit report by quantity: its columns, the lines above the grid, its menu.
#include <gtest/gtest.h>

#include "tests/reports/rpt149_world.h"

namespace salerpt::testing {
namespace {

class Rpt145 : public Rpt145World {
 protected:
  static Lines Columns() {
    return {"客户代码$||1|FNumber|1",
            "客户名称$||1|FName|1",
            "产品代码$||1|FICNumber|1",
            "产品名称$||1|FICName|1",
            "规格型号$||1|FModel|1",
            "单位(基本)$||1|FUnitName|1",
            "信用数量(基本)$||2|FCreditQty|1",
            "产品信用数量占用(基本)$||2|FQty|1",
            "差额(基本)$||2|FBalQty|1",
            "单位(常用)$||1|FSaleUnitName|1",
            "信用数量(常用)$||2|FSaleUnitCreditQty|1",
            "产品信用数量占用(常用)$||2|FSaleUnitQty|1",
            "差额(常用)$||2|FSaleUnitBalQty|1"};
  }
};

TEST_F(Rpt145, GivesItsColumns) {
  Fetch();
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt145, ShowsTheShortCodeOfAnItemWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  Lines columns = Columns();
  columns[2] = "产品代码$||1|FICShortNumber|1";
  EXPECT_EQ(HeaderLines(), columns);
}

TEST_F(Rpt145, TellsManagementItemsAndRange) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"信用管理范围: 销售订单", 0},
                                     {"产品代码范围：所有产品", 1},
                                     {"客户代码范围：所有客户", 2}}));
}

// Whether items are bounded is read from the items' keys, what is printed from the keys of the credit object.
TEST_F(Rpt145, PrintsAnEmptyItemRangeWhereItemsAloneAreBounded) {
  Fetch({{"FICItemIDFrom", "01"}, {"FICItemIDTo", "09"}});
  EXPECT_EQ(
      TitleLines(),
      (TitleList{{"信用管理范围: 销售订单", 0}, {"产品代码范围：  --  ", 1}, {"客户代码范围：所有客户", 2}}));
}

TEST_F(Rpt145, TellsAllItemsWhereTheObjectsAloneAreBounded) {
  Fetch({{"FItemIDFrom", "C1"}, {"FItemIDTo", "C9"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"信用管理范围: 销售订单", 0},
                                     {"产品代码范围：所有产品", 1},
                                     {"客户代码范围: C1 -- C9", 2}}));
}

TEST_F(Rpt145, PrintsTheObjectsAsTheItemRangeWhereBothAreBounded) {
  Fetch({{"FICItemIDFrom", "01"}, {"FICItemIDTo", "09"}, {"FItemIDFrom", "C1"}, {"FItemIDTo", "C9"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"信用管理范围: 销售订单", 0},
                                     {"产品代码范围：C1  --  C9", 1},
                                     {"客户代码范围: C1 -- C9", 2}}));
}

TEST_F(Rpt145, TakesItemsForBoundedWhereOneEndIsSet) {
  for (const char* end : {"FICItemIDFrom", "FICItemIDTo"}) {
    Fetch({{end, "01"}, {"FItemIDFrom", "C1"}});
    ASSERT_EQ(TitleLines().size(), 3U) << end;
    EXPECT_EQ(TitleLines()[1].first, "产品代码范围：C1  --  ") << end;
    EXPECT_EQ(TitleLines()[2].first, "客户代码范围: C1 -- ") << end;
  }
}

TEST_F(Rpt145, OffersItsMenu) {
  EXPECT_EQ(MenuNames(), (Lines{"iViewBillUp", "iViewBillDown"}));
  EXPECT_NE(Call(Report(), "PackMenuInfo").ToObject(), Call(Report(), "PackMenuInfo").ToObject());
}

}  // namespace
}  // namespace salerpt::testing
