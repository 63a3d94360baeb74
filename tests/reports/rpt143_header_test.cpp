// The columns and title lines of the structure analysis. What it sends and how it lives it shares with the
// growth analysis and is tested there.
#include <gtest/gtest.h>

#include "tests/reports/rpt140_world.h"

namespace salerpt::testing {
namespace {

using Titles = std::vector<std::pair<std::string, int>>;

class Rpt143Header : public Rpt143World {
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
        "产品代码$||1|FNumber|1",
        "产品类别$||1|FClassName|1",
        "产品名称$||1|FName|1",
        "规格型号$||1|FItemModel|1",
        "单位(基本)$||1|FUnitName|1",
        "单位(常用)$||1|FCUUnitName|1",
        "销售数量(基本)$||2|FThisQty|1",
        "销售数量(常用)$||2|FCUUnitThisQty|1",
        "销售收入$||40|FThisAmount|1",
        "占同类销售%$||8|FClassAmountCent|1",
        "上年同期销售额$||40|FLastAmount|1",
        "增长%$||8|FAmountAddCent|1",
    };
  }
};
using Rpt143Title = Rpt143World;

TEST_F(Rpt143Header, GivesTheColumnsInOneLine) {
  Fetch();
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt143Header, WritesTheseKeysForEachColumn) {
  Fetch({{"AuxProp", kYes}});
  const auto header = As<Vector>(GetMember(Report(), "Header"));
  for (std::int32_t i = 1; i <= header->Size(); ++i) {
    const auto column = As<Dictionary>(header->Item(i));
    Lines keys;
    for (const auto& [key, value] : column->Entries()) keys.push_back(key);
    EXPECT_EQ(keys, (Lines{"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible"}));
  }
}

TEST_F(Rpt143Header, ShowsTheAuxiliaryPropertyWhereItIsAskedFor) {
  Fetch({{"AuxProp", kYes}});
  Lines expected = Columns();
  expected.insert(expected.begin() + 4, "辅助属性$||1|FAuxPropName|1");
  EXPECT_EQ(HeaderLines(), expected);
  for (const std::int32_t aux_prop : {0, 2}) {
    Fetch({{"AuxProp", aux_prop}});
    EXPECT_EQ(HeaderLines(), Columns());
  }
}

TEST_F(Rpt143Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(HeaderLines()[0], "产品代码$||1|FShortNumber|1");
}

TEST_F(Rpt143Header, HidesCodeAndNameWhereTotalsOnlyOfAGroupingAreShown) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", kYes}});
  Lines expected = Columns();
  expected[0].back() = '0';
  expected[2].back() = '0';
  expected.insert(expected.begin(), "1级物料类别$||1|FName1|1");
  EXPECT_EQ(HeaderLines(), expected);
}

TEST_F(Rpt143Header, ShowsCodeAndNameWhereTotalsOnlyAreShownWithoutAGrouping) {
  Fetch({{"OnlyShowSum", kYes}});
  EXPECT_EQ(HeaderLines(), Columns());
  Fetch({{"GroupBy", std::int32_t{0}}, {"OnlyShowSum", kYes}});
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt143Header, PutsTheGroupingFirst) {
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

TEST_F(Rpt143Header, HasNoGroupColumnsForAnyGroupByButOne) {
  FetchLevels(1, 1, 2, {{"GroupBy", std::int32_t{2}}});
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt143Title, TellsThePeriodItemsAndCustomers) {
  Fetch();
  EXPECT_EQ(
      TitleLines(),
      (Titles{
          {"年份：2003", 0}, {"期间：3", 1}, {"产品代码范围：所有产品", 2}, {"客户代码范围：所有客户", 3}}));
}

TEST_F(Rpt143Title, TellsTheBounds) {
  Fetch({{"BItemNumber", "01"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (Titles{{"年份：2003", 0},
                                  {"期间：3", 1},
                                  {"产品代码范围：01  --  09", 2},
                                  {"客户代码范围: 02 -- 03", 3}}));
}

TEST_F(Rpt143Title, TellsABoundThatStandsAlone) {
  Fetch({{"BItemNumber", "01"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：01  --  ");
  EXPECT_EQ(TitleLines()[3].first, "客户代码范围:  -- 03");
}

TEST_F(Rpt143Title, IsTheSameForAGrouping) {
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
