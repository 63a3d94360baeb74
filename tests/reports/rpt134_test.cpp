// The customers' sales detail: what the middle tier is asked, columns and lines above the grid.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/reports/rpt134_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

class Rpt134 : public Rpt134World {
 protected:
  static Lines Columns() {
    return {"日期$||0|Fdate|1|0",
            "客户代码$||1|FCustNumber|1|0",
            "客户名称$||1|FCustName|1|0",
            "产品代码$||1|FNumber|1|0",
            "产品名称$||1|FName|1|0",
            "规格型号$||1|FModel|1|0",
            "发票号码$||1|FBillNo|1|0",
            "单位$||1|FAuxUnitName|1|0",
            "币别$||1|FCurrencyName|1|0",
            "汇率$||9|FExchangeRate|1|0",
            "销售数量$||2|FAuxQty|1|0",
            "单位(基本)$||1|FUnitName|1|0",
            "销售数量(基本)$||2|FQty|1|0",
            "单位(常用)$||1|FCUUnitName|1|0",
            "销售数量(常用)$||2|FCUUnitQty|1|0",
            "销售收入$||6|FAmount|1|0",
            "销售收入(本位币)$||6|FAmountFor|1|0"};
  }
};

TEST_F(Rpt134, SendsItsConditionsAndItsNumber) {
  Fetch();
  ExpectSent(134);
}

TEST_F(Rpt134, LeavesEveryConditionOfTheHostInPlace) {
  Fetch({{"BItemNumber", "01"}, {"HookStatus", std::int32_t{2}}, {"SaleType", std::int32_t{201}}});
  const DictionaryRef filter = SentFilter();
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("01"));
  EXPECT_EQ(filter->Get("HookStatus").ToInt32(), 2);
  EXPECT_EQ(filter->Get("SaleType").ToInt32(), 201);
  EXPECT_EQ(filter->Get("BDate"), Variant(Date::FromYmd(2003, 1, 1)));
}

TEST_F(Rpt134, AddsFourKeysAndNoOther) {
  Fetch();
  std::vector<std::string> keys;
  const DictionaryRef sent = SentFilter();
  for (const auto& entry : sent->Entries()) keys.push_back(entry.key);
  std::vector<std::string> expected;
  const DictionaryRef conditions = Conditions();
  for (const auto& entry : conditions->Entries()) expected.push_back(entry.key);
  ASSERT_GE(keys.size(), expected.size());
  std::vector<std::string> added(keys.begin() + static_cast<std::ptrdiff_t>(expected.size()), keys.end());
  std::sort(added.begin(), added.end());
  EXPECT_EQ(added, (std::vector<std::string>{"DataRightFrom", "DataRightWhere", "RptID", "bLongNumber"}));
}

TEST_F(Rpt134, TellsWhichCodeIsInUse) {
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(true));
}

TEST_F(Rpt134, TellsThatTheShortCodeIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("bLongNumber"), Variant(false));
}

TEST_F(Rpt134, HandsOnThatNobodyIsRestricted) {
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(""));
  ASSERT_EQ(rights_->CalledMembers(), std::vector<std::string>{"GetDataRight"});
  EXPECT_EQ(rights_->Calls()[0].arguments[0].ToText(), kProps);
  EXPECT_EQ(rights_->Calls()[0].arguments[1].ToInt32(), 16394);
  EXPECT_EQ(rights_->Calls()[0].arguments[2].ToInt32(), 1);
}

TEST_F(Rpt134, HandsOnWhichCustomersTheUserMaySee) {
  RestrictCustomers();
  Fetch();
  EXPECT_EQ(SentFilter()->Get("DataRightFrom"), Variant(""));
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',t1.FRightUserID)>0 "));
}

TEST_F(Rpt134, ReadsTheDataRightAnewAtEachFetch) {
  Fetch();
  RestrictCustomers();
  Call(Report(), "Refresh");
  EXPECT_EQ(SentFilter()->Get("DataRightWhere"), Variant(" CharIndex('16394',t1.FRightUserID)>0 "));
}

TEST_F(Rpt134, TakesTheConditionsThatTheMiddleTierLeaves) {
  const auto other = std::make_shared<Dictionary>(Entries{{"BItemNumber", "changed"}});
  on_fetch_ = [&](Arguments arguments) { arguments[1] = other; };
  Fetch();
  EXPECT_EQ(GetMember(Report(), "Filter").ToObject(), other);
}

TEST_F(Rpt134, TakesAnErrorInItsConditionsForNoFailure) {
  on_fetch_ = [](Arguments arguments) { As<Dictionary>(arguments[1])->Set("Error", "one line was skipped"); };
  Fetch();
  EXPECT_TRUE(Ok());
  EXPECT_TRUE(HasRows());
}

TEST_F(Rpt134, GivesItsColumns) {
  Fetch();
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt134, PutsTheAuxiliaryPropertyBehindTheModel) {
  Fetch({{"AuxProp", std::int32_t{1}}});
  Lines columns = Columns();
  columns.insert(columns.begin() + 6, "辅助属性$||1|FAuxPropName|1|0");
  EXPECT_EQ(HeaderLines(), columns);
  Fetch({{"AuxProp", std::int32_t{0}}});
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt134, ShowsShortCodesWhereThoseAreInUse) {
  UseShortCode();
  Fetch();
  Lines columns = Columns();
  columns[1] = "客户代码$||1|FCustShortNumber|1|0";
  columns[3] = "产品代码$||1|FShortNumber|1|0";
  EXPECT_EQ(HeaderLines(), columns);
}

TEST_F(Rpt134, HidesTheAmountsByForceWithoutTheirRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  Lines columns = Columns();
  columns[15] = "销售收入$||6|FAmount|1|1";
  columns[16] = "销售收入(本位币)$||6|FAmountFor|1|1";
  EXPECT_EQ(HeaderLines(), columns);
}

TEST_F(Rpt134, AsksForTheFieldRightOfSalesAmounts) {
  Fetch();
  ASSERT_EQ(ledger_->CalledMembers(), std::vector<std::string>{"AccessCheck"});
  std::vector<int> numbers;
  for (const Variant& argument : ledger_->Calls()[0].arguments) numbers.push_back(argument.ToInt32());
  EXPECT_EQ(numbers, (std::vector<int>{1008, 2, 4}));
}

TEST_F(Rpt134, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：所有产品", 2},
                                     {"客户代码范围：所有客户", 3}}));
}

TEST_F(Rpt134, TellsBothEndsOfARange) {
  Fetch({{"BItemNumber", "01"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：01  --  09", 2},
                                     {"客户代码范围: 02 -- 03", 3}}));
}

TEST_F(Rpt134, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"EItemNumber", "09"}, {"BCustNumber", "02"}});
  ASSERT_EQ(TitleLines().size(), 4U);
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：  --  09");
  EXPECT_EQ(TitleLines()[3].first, "客户代码范围: 02 -- ");
}

}  // namespace
}  // namespace salerpt::testing
