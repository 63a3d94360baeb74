// The credit term report: its columns, the lines above the grid, its menu.
#include <gtest/gtest.h>

#include "tests/reports/rpt149_world.h"

namespace salerpt::testing {
namespace {

class Rpt149 : public Rpt149World {
 protected:
  // The line of the credit class, second of the title.
  std::string RangeLine(std::int32_t credit_class, const Variant& from, const Variant& to) {
    Fetch({{"FCreditClass", credit_class}, {"FItemIDFrom", from}, {"FItemIDTo", to}});
    const TitleList lines = TitleLines();
    if (lines.size() != 5) return "not five lines";
    EXPECT_EQ(lines[1].second, 1);
    return lines[1].first;
  }
  // The two lines of the currency, last of the title.
  TitleList CurrencyLines(Entries more) {
    Fetch(more);
    const TitleList lines = TitleLines();
    if (lines.size() != 5) return lines;
    return {lines.begin() + 3, lines.end()};
  }
};

// --- Columns

TEST_F(Rpt149, GivesItsColumns) {
  Fetch();
  EXPECT_EQ(HeaderLines(),
            (Lines{"客户代码$||1|FNumber|1", "客户名称$||1|FName|1", "信用期限(天)$||1|FCreditTime|1",
                   "信用级次$||1|FCreditLevel|1", "客户欠款余额+|+||金额|6|FAmount|1",
                   " |现金折扣|1|FDiscountRate|1", " |折后金额|6|FDicAmount|1"}));
}

TEST_F(Rpt149, ShowsTheSameColumnsWhereTheShortCodeIsInUse) {
  Fetch();
  const Lines columns = HeaderLines();
  report_ = nullptr;
  UseShortCode();
  Fetch();
  EXPECT_EQ(HeaderLines(), columns);
}

// --- Title

TEST_F(Rpt149, TellsDateRangeManagementCurrencyAndRate) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"计算日期：2003-07-01", 0},
                                     {"客户代码范围：所有客户", 1},
                                     {"信用管理范围: 销售订单", 2},
                                     {"折算币别: 本位币", 3},
                                     {"折算汇率: 1.00", 4}}));
}

TEST_F(Rpt149, TellsADateThatIsNoText) {
  Fetch({{"FDate", Date::FromYmd(2003, 12, 31)}});
  ASSERT_FALSE(TitleLines().empty());
  EXPECT_EQ(TitleLines()[0].first, "计算日期：2003-12-31");
}

TEST_F(Rpt149, TellsAnOpenRangeAsAll) {
  EXPECT_EQ(RangeLine(0, "", ""), "客户代码范围：所有客户");
  EXPECT_EQ(RangeLine(1, "", ""), "业务员代码范围：所有业务员");
  EXPECT_EQ(RangeLine(2, "", ""), "部门代码范围：所有部门");
  EXPECT_EQ(RangeLine(3, "", ""), "客户类别范围：所有客户类别");
  EXPECT_EQ(RangeLine(4, "", ""), "业务员类别范围：业务员类别");
}

TEST_F(Rpt149, TellsBothEndsOfARange) {
  EXPECT_EQ(RangeLine(0, "01", "09"), "客户代码范围: 01 -- 09");
  EXPECT_EQ(RangeLine(1, "01", "09"), "业务员代码范围: 01 -- 09");
  EXPECT_EQ(RangeLine(2, "01", "09"), "部门代码范围: 01 -- 09");
  EXPECT_EQ(RangeLine(3, "01", "09"), "客户类别范围: 01 -- 09");
  EXPECT_EQ(RangeLine(4, "01", "09"), "业务员类别范围: 01 -- 09");
}

TEST_F(Rpt149, LeavesTheOpenEndOfARangeEmpty) {
  EXPECT_EQ(RangeLine(0, "01", ""), "客户代码范围: 01 -- ");
  EXPECT_EQ(RangeLine(2, "", "09"), "部门代码范围:  -- 09");
}

TEST_F(Rpt149, TellsTheEndsThatItsDialogGivesAsNumbers) {
  EXPECT_EQ(RangeLine(0, std::int32_t{128}, std::int32_t{256}), "客户代码范围: 128 -- 256");
}

TEST_F(Rpt149, TellsAnAbsentRangeAsAll) {
  const auto filter = std::make_shared<Dictionary>(Entries{{"FDate", "2003-07-01"}});
  SetMember(Report(), "Filter", filter);
  Call(Report(), "GetReportData");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_EQ(TitleLines(), (TitleList{{"计算日期：2003-07-01", 0},
                                     {"客户代码范围：所有客户", 1},
                                     {"信用管理范围: ", 2},
                                     {"折算币别: 本位币", 3},
                                     {"折算汇率: 1.00", 4}}));
}

TEST_F(Rpt149, TellsTheCurrencyAndItsRate) {
  EXPECT_EQ(CurrencyLines({{"FCurrencyName", "美元"}, {"FExchangeRate", 8.28}}),
            (TitleList{{"折算币别: 美元", 3}, {"折算汇率: 8.28", 4}}));
}

TEST_F(Rpt149, TellsTheRateUnderTheNameThatItsDialogGivesIt) {
  EXPECT_EQ(CurrencyLines({{"FCurrencyName", "美元"}, {"FRate", 8.27}}),
            (TitleList{{"折算币别: 美元", 3}, {"折算汇率: 8.27", 4}}));
}

TEST_F(Rpt149, PrefersTheExchangeRateToTheRateOfItsDialog) {
  EXPECT_EQ(CurrencyLines({{"FRate", 8.27}, {"FExchangeRate", 8.28}, {"FCurrencyName", "美元"}}),
            (TitleList{{"折算币别: 美元", 3}, {"折算汇率: 8.28", 4}}));
}

TEST_F(Rpt149, TellsTheRateOfTheBaseCurrencyByNameAsItStands) {
  EXPECT_EQ(CurrencyLines({{"FCurrencyName", "本位币"}, {"FRate", std::int32_t{1}}}),
            (TitleList{{"折算币别: 本位币", 3}, {"折算汇率: 1", 4}}));
}

TEST_F(Rpt149, TellsTheBaseCurrencyAtOneWhateverTheRateWithoutAName) {
  EXPECT_EQ(CurrencyLines({{"FCurrencyName", ""}, {"FExchangeRate", 8.28}, {"FRate", 8.27}}),
            (TitleList{{"折算币别: 本位币", 3}, {"折算汇率: 1.00", 4}}));
}

// --- Menu

TEST_F(Rpt149, OffersItsMenu) {
  EXPECT_EQ(MenuNames(), (Lines{"iViewBillUp", "iViewBillDown", "iDecimal"}));
  EXPECT_NE(Call(Report(), "PackMenuInfo").ToObject(), Call(Report(), "PackMenuInfo").ToObject());
}

}  // namespace
}  // namespace salerpt::testing
