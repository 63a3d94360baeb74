// The columns and title lines of the flow analysis. What it sends and how it lives it shares with the growth
// analysis and is tested there.
#include <gtest/gtest.h>

#include "tests/reports/rpt140_world.h"

namespace salerpt::testing {
namespace {

using Titles = std::vector<std::pair<std::string, int>>;

class Rpt142Header : public Rpt142World {
 protected:
  void ExpectGroupColumns(std::int32_t mode, const DictionaryRef& property, const Lines& groups) {
    SCOPED_TRACE(mode);
    Lines expected = groups;
    for (const std::string& line : Columns()) expected.push_back(line);
    FetchLevels(mode, 2, 3, {{"SumField", property}});
    EXPECT_EQ(HeaderLines(), expected);
  }
  static Lines Columns() {
    return {
        "所属地区$||1|FRegionName|1",   "产品类别$||1|FClassName|1",
        "产品代码$||1|FNumber|1",       "产品名称$||1|FName|1",
        "规格型号$||1|FModel|1",        "销售客户$||1|FCustomerName|1",
        "单位(基本)$||1|FUnitName|1",   "销售数量(基本)$||2|FQty|1",
        "单位(常用)$||1|FCUUnitName|1", "销售数量(常用)$||2|FCUUnitQty|1",
        "销售收入$||40|FAmount|1",
    };
  }
};
using Rpt142Title = Rpt142World;

TEST_F(Rpt142Header, GivesTheColumnsInOneLine) {
  Fetch();
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt142Header, WritesTheseKeysForEachColumn) {
  Fetch({{"AuxProp", kYes}});
  const auto header = As<Vector>(GetMember(Report(), "Header"));
  for (std::int32_t i = 1; i <= header->Size(); ++i) {
    const auto column = As<Dictionary>(header->Item(i));
    Lines keys;
    for (const auto& [key, value] : column->Entries()) keys.push_back(key);
    EXPECT_EQ(keys, (Lines{"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible"}));
  }
}

TEST_F(Rpt142Header, ShowsTheAuxiliaryPropertyWhereItIsAskedFor) {
  Fetch({{"AuxProp", kYes}});
  Lines expected = Columns();
  expected.insert(expected.begin() + 5, "辅助属性$||1|FAuxPropName|1");
  EXPECT_EQ(HeaderLines(), expected);
  for (const std::int32_t aux_prop : {0, 2}) {
    Fetch({{"AuxProp", aux_prop}});
    EXPECT_EQ(HeaderLines(), Columns());
  }
}

TEST_F(Rpt142Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(HeaderLines()[2], "产品代码$||1|FShortNumber|1");
}

TEST_F(Rpt142Header, HidesCodeAndNameWhereTotalsOnlyOfAGroupingAreShown) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", kYes}});
  Lines expected = Columns();
  expected[2].back() = '0';
  expected[3].back() = '0';
  expected.insert(expected.begin(), "1级物料类别$||1|FName1|1");
  EXPECT_EQ(HeaderLines(), expected);
}

TEST_F(Rpt142Header, ShowsCodeAndNameWhereTotalsOnlyAreShownWithoutAGrouping) {
  Fetch({{"OnlyShowSum", kYes}});
  EXPECT_EQ(HeaderLines(), Columns());
  Fetch({{"GroupBy", std::int32_t{0}}, {"OnlyShowSum", kYes}});
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt142Header, PutsTheGroupingFirst) {
  const DictionaryRef none = SumField("", 1, "");
  ExpectGroupColumns(1, none, {"2级物料类别$||1|FName2|1", "3级物料类别$||1|FName3|1"});
  ExpectGroupColumns(2, none, {"2级客户类别$||1|FName2|1", "3级客户类别$||1|FName3|1"});
  ExpectGroupColumns(4, none,
                     {"客户$||1|FCustName|1", "2级物料类别$||1|FName2|1", "3级物料类别$||1|FName3|1"});
  for (const std::int32_t mode : {0, 3, 5, 99}) {
    ExpectGroupColumns(mode, none,
                       {"2级物料类别$||1|FName2|1", "3级物料类别$||1|FName3|1", "客户$||1|FCustName|1"});
    ExpectGroupColumns(mode, SumField("区域", 1, "FRegionID"), {"区域$||1|FProp71|1"});
  }
}

TEST_F(Rpt142Header, HasNoGroupColumnsForAnyGroupByButOne) {
  FetchLevels(1, 1, 2, {{"GroupBy", std::int32_t{2}}});
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt142Title, TellsThePeriodItemsAndCustomers) {
  Fetch();
  EXPECT_EQ(TitleLines(), (Titles{{"起始日期：2003-03-01", 0},
                                  {"截止日期：2003-03-31", 1},
                                  {"产品代码范围：所有产品", 2},
                                  {"客户代码范围：所有客户", 3}}));
}

TEST_F(Rpt142Title, TellsTheBounds) {
  Fetch({{"BItemNumber", "01"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (Titles{{"起始日期：2003-03-01", 0},
                                  {"截止日期：2003-03-31", 1},
                                  {"产品代码范围：01  --  09", 2},
                                  {"客户代码范围: 02 -- 03", 3}}));
}

TEST_F(Rpt142Title, TellsABoundThatStandsAlone) {
  Fetch({{"BItemNumber", "01"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：01  --  ");
  EXPECT_EQ(TitleLines()[3].first, "客户代码范围:  -- 03");
}

TEST_F(Rpt142Title, IsTheSameForAGrouping) {
  Fetch();
  const Titles plain = TitleLines();
  for (const std::int32_t mode : {1, 2, 4, 5}) {
    FetchLevels(mode, 1, 2, {{"SumName", "物料类别"}});
    EXPECT_EQ(TitleLines(), plain);
  }
  FetchBy(SumField("区域", 1, "FRegionID"));
  EXPECT_EQ(TitleLines(), plain);
}

}  // namespace
}  // namespace salerpt::testing
