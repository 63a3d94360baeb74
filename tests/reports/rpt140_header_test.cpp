// The columns and title lines of the growth analysis.
#include <gtest/gtest.h>

#include "tests/reports/rpt140_world.h"

namespace salerpt::testing {
namespace {

using Titles = std::vector<std::pair<std::string, int>>;

class Rpt140Header : public Rpt140World {
 protected:
  // Columns before the ones of the report.
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
        "产品名称$||1|FName|1",
        "规格型号$||1|FModel|1",
        "单位(基本)$||1|FUnitName|1",
        "单位(常用)$||1|FCUUnitName|1",
        "销售数量+|+|+|+||本期(基本)|2|FThisQty|1",
        " |本期(常用)|2|FCUUnitThisQty|1",
        " |上年同期(基本)|2|FLastQty|1",
        " |上年同期(常用)|2|FCUUnitLastQty|1",
        " |+/- %|8|FQtyAddCent|1",
        "销售收入+|+||本期|40|FThisAmount|1",
        " |上年同期|40|FLastAmount|1",
        " |+/- %|8|FAmountAddCent|1",
        "备注$||1|FNote|1",
    };
  }
};
using Rpt140Title = Rpt140World;

TEST_F(Rpt140Header, IsEmptyBeforeTheFirstFetch) {
  const auto header = As<Vector>(GetMember(Report(), "Header"));
  EXPECT_TRUE(!header || header->Size() == 0);
}

TEST_F(Rpt140Header, GivesTheColumnsInTwoLines) {
  Fetch();
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt140Header, CountsTheColumnsThatAGroupHeadingSpans) {
  Fetch();
  const Lines lines = HeaderLines();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto spanned = static_cast<std::size_t>(CountOf(lines[i], "+|"));
    if (spanned == 0) continue;
    ASSERT_LT(i + spanned, lines.size());
    for (std::size_t further = 1; further <= spanned; ++further) {
      EXPECT_TRUE(lines[i + further].starts_with(" |")) << lines[i + further];
    }
    EXPECT_FALSE(lines[i + spanned + 1].starts_with(" |"));
  }
}

TEST_F(Rpt140Header, WritesTheseKeysForEachColumn) {
  Fetch({{"AuxProp", kYes}});
  const auto header = As<Vector>(GetMember(Report(), "Header"));
  for (std::int32_t i = 1; i <= header->Size(); ++i) {
    const auto column = As<Dictionary>(header->Item(i));
    Lines keys;
    for (const auto& [key, value] : column->Entries()) keys.push_back(key);
    EXPECT_EQ(keys, (Lines{"FColCaption", "FHeadSecond", "FColType", "FColName", "FVisible"}));
  }
}

TEST_F(Rpt140Header, ShowsTheAuxiliaryPropertyWhereItIsAskedFor) {
  Fetch({{"AuxProp", kYes}});
  Lines expected = Columns();
  expected.insert(expected.begin() + 3, "辅助属性$||1|FAuxPropName|1");
  EXPECT_EQ(HeaderLines(), expected);
  for (const std::int32_t aux_prop : {0, 2}) {
    Fetch({{"AuxProp", aux_prop}});
    EXPECT_EQ(HeaderLines(), Columns());
  }
}

TEST_F(Rpt140Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  EXPECT_EQ(HeaderLines()[0], "产品代码$||1|FShortNumber|1");
}

TEST_F(Rpt140Header, HidesCodeAndNameWhereTotalsOnlyOfAGroupingAreShown) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", kYes}});
  Lines expected = Columns();
  expected[0].back() = '0';
  expected[1].back() = '0';
  expected.insert(expected.begin(), "1级物料类别$||1|FName1|1");
  EXPECT_EQ(HeaderLines(), expected);
}

TEST_F(Rpt140Header, ShowsCodeAndNameWhereTotalsOnlyAreShownWithoutAGrouping) {
  for (const std::int32_t group_by : {0, 2}) {
    Fetch({{"GroupBy", group_by}, {"OnlyShowSum", kYes}});
    EXPECT_EQ(HeaderLines(), Columns());
  }
  Fetch({{"OnlyShowSum", kYes}});
  EXPECT_EQ(HeaderLines(), Columns()) << "a grouping that is not there is none";
}

TEST_F(Rpt140Header, PutsTheGroupingFirst) {
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

TEST_F(Rpt140Header, HasNoGroupColumnsForAnyGroupByButOne) {
  FetchLevels(1, 1, 2, {{"GroupBy", std::int32_t{0}}});
  EXPECT_EQ(HeaderLines(), Columns());
  FetchLevels(1, 1, 2, {{"GroupBy", std::int32_t{2}}});
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt140Header, IsMadeAnewByEachFetch) {
  FetchLevels(1, 1, 2);
  Fetch();
  EXPECT_EQ(HeaderLines(), Columns());
  Call(Report(), "Refresh");
  EXPECT_EQ(HeaderLines(), Columns());
}

TEST_F(Rpt140Title, TellsThePeriodItemsAndCustomers) {
  Fetch();
  EXPECT_EQ(
      TitleLines(),
      (Titles{
          {"年份：2003", 0}, {"期间：3", 1}, {"产品代码范围：所有产品", 2}, {"客户代码范围：所有客户", 3}}));
}

TEST_F(Rpt140Title, TellsTheBounds) {
  Fetch({{"BItemNumber", "01"}, {"EItemNumber", "09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (Titles{{"年份：2003", 0},
                                  {"期间：3", 1},
                                  {"产品代码范围：01  --  09", 2},
                                  {"客户代码范围: 02 -- 03", 3}}));
}

TEST_F(Rpt140Title, TellsABoundThatStandsAlone) {
  Fetch({{"BItemNumber", "01"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：01  --  ");
  EXPECT_EQ(TitleLines()[3].first, "客户代码范围:  -- 03");
  Fetch({{"EItemNumber", "09"}, {"BCustNumber", "02"}});
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：  --  09");
  EXPECT_EQ(TitleLines()[3].first, "客户代码范围: 02 -- ");
}

TEST_F(Rpt140Title, IsTheSameForAGrouping) {
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
