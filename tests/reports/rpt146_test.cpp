// The credit report by amount: its columns, the lines above the grid, its menu.
#include <gtest/gtest.h>

#include "tests/reports/rpt149_world.h"

namespace salerpt::testing {
namespace {

using Rpt146 = Rpt146World;

// The currency stands at the head of each of the three groups.
Lines AmountColumns() {
  return {"客户代码$||1|FNumber|1",
          "客户名称$||1|FName|1",
          "信用级次$||1|FCreditLevel|1",
          "信用占用额度+|+||币别|1|FCurrencyName|1",
          " |金额|6|FStdAmt|1",
          " |折算金额|6|FAmt|1",
          "信用额度+|+||币别|1|FCurrencyName|1",
          " |金额|6|FCreditStdAmt|1",
          " |折算金额|6|FCreditAmt|1",
          "差额+|+||币别|1|FCurrencyName|1",
          " |金额|6|FBalStdAmt|1",
          " |折算金额|6|FBalAmt|1"};
}

TEST_F(Rpt146, GivesItsColumns) {
  Fetch();
  EXPECT_EQ(HeaderLines(), AmountColumns());
}

TEST_F(Rpt146, ShowsTheSameColumnsWhereTheShortCodeIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(HeaderLines(), AmountColumns());
}

TEST_F(Rpt146, TellsManagementItemsAndRange) {
  Fetch({{"CreditTypeName", "销售发票"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"信用管理范围: 销售发票", 0},
                                     {"产品代码范围：所有产品", 1},
                                     {"客户代码范围：所有客户", 2}}));
}

// It has no item range of its own: the objects' range stands for it.
TEST_F(Rpt146, TellsTheObjectsTwice) {
  Fetch({{"FItemIDFrom", "C1"}, {"FItemIDTo", "C9"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"信用管理范围: 销售订单", 0},
                                     {"产品代码范围：C1  --  C9", 1},
                                     {"客户代码范围: C1 -- C9", 2}}));
}

TEST_F(Rpt146, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"FItemIDTo", "C9"}});
  EXPECT_EQ(
      TitleLines(),
      (TitleList{{"信用管理范围: 销售订单", 0}, {"产品代码范围：  --  C9", 1}, {"客户代码范围:  -- C9", 2}}));
}

TEST_F(Rpt146, DoesNotReadAnItemRange) {
  Fetch({{"FICItemIDFrom", "01"}, {"FICItemIDTo", "09"}});
  ASSERT_EQ(TitleLines().size(), 3U);
  EXPECT_EQ(TitleLines()[1].first, "产品代码范围：所有产品");
}

TEST_F(Rpt146, TellsTheEndsThatItsDialogGivesAsNumbers) {
  Fetch({{"FItemIDFrom", std::int32_t{128}}, {"FItemIDTo", std::int32_t{256}}});
  ASSERT_EQ(TitleLines().size(), 3U);
  EXPECT_EQ(TitleLines()[1].first, "产品代码范围：128  --  256");
  EXPECT_EQ(TitleLines()[2].first, "客户代码范围: 128 -- 256");
}

TEST_F(Rpt146, TellsNoCurrency) {
  Fetch({{"FCurrencyName", "美元"}, {"FExchangeRate", 8.28}});
  EXPECT_EQ(TitleLines().size(), 3U);
}

TEST_F(Rpt146, OffersItsMenu) {
  EXPECT_EQ(MenuNames(), (Lines{"iViewBillUp", "iViewBillDown"}));
  EXPECT_NE(Call(Report(), "PackMenuInfo").ToObject(), Call(Report(), "PackMenuInfo").ToObject());
}

}  // namespace
}  // namespace salerpt::testing
