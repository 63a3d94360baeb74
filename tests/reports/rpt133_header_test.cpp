// Columns and title lines of the customer sales summary as the host gets them.
#include <gtest/gtest.h>

#include "tests/reports/rpt133_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

class Rpt133Header : public Rpt133World {
 protected:
  static Lines CommonColumns() {
    return {"产品代码$||1|FNumber|1",       "产品名称$||1|FName|1",        "规格型号$||1|FModel|1",
            "单位(基本)$||1|FUnitName|1",   "数量(基本)$||2|FQty|1",       "单价(基本)$||4|FPrice|1",
            "单位(常用)$||1|FCUUnitName|1", "数量(常用)$||2|FCUUnitQty|1", "销售收入$||6|FAmount|1",
            "税率(%)$||8|FTaxRate|1",       "销项税额$||6|FTaxAmount|1",   "合计$||6|FCountAmount|1"};
  }
  void ExpectColumns(const Lines& groups, const Lines& common = CommonColumns()) {
    Lines all = groups;
    all.insert(all.end(), common.begin(), common.end());
    EXPECT_EQ(HeaderLines(), all);
  }
};
using Rpt133Title = Rpt133World;

TEST_F(Rpt133Header, GivesTheCommonColumnsItemByItem) {
  Fetch();
  ExpectColumns({});
}

TEST_F(Rpt133Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  Lines common = CommonColumns();
  common[0] = "产品代码$||1|FShortNumber|1";
  ExpectColumns({}, common);
}

TEST_F(Rpt133Header, PutsTheColumnsOfTheGroupsFirst) {
  FetchLevels(1, 1, 2);
  ExpectColumns({"1级物料类别$||1|FName1|1", "2级物料类别$||1|FName2|1"});
  FetchLevels(2, 2, 2);
  ExpectColumns({"2级客户类别$||1|FName2|1"});
  FetchLevels(3, 1, 1);
  ExpectColumns({"1级物料类别$||1|FName1|1", "客户$||1|FCustName|1"});
  FetchLevels(4, 1, 1);
  ExpectColumns({"客户$||1|FCustName|1", "1级物料类别$||1|FName1|1"});
}

TEST_F(Rpt133Header, NamesThePropertyGroupedByAndItsColumn) {
  FetchBy(SumField("客户", 1, 0));
  ExpectColumns({"客户$||1|FProp01|1"});
  FetchBy(SumField("部门", 2, 0));
  ExpectColumns({"部门$||1|FProp02|1"});
}

TEST_F(Rpt133Header, HidesWhatDescribesAnItemWhereAGroupingShowsTotalsOnly) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", std::int32_t{1}}});
  Lines common = CommonColumns();
  common[0] = "产品代码$||1|FNumber|0";
  common[1] = "产品名称$||1|FName|0";
  common[2] = "规格型号$||1|FModel|0";
  common[3] = "单位(基本)$||1|FUnitName|0";
  common[6] = "单位(常用)$||1|FCUUnitName|0";
  ExpectColumns({"1级物料类别$||1|FName1|1"}, common);
  Fetch({{"OnlyShowSum", std::int32_t{1}}});
  ExpectColumns({});
}

TEST_F(Rpt133Header, KnowsNoFieldRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  ExpectColumns({});
  EXPECT_TRUE(ledger_->Calls().empty());
}

TEST_F(Rpt133Title, TellsRanges) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：所有产品", 2},
                                     {"客户代码范围：所有客户", 4}}));
  Fetch({{"BItemNumber", "01"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：01  --  ", 2},
                                     {"客户代码范围:  -- 03", 4}}));
}

TEST_F(Rpt133Title, TellsEveryLevelGroupingInTheSameWords) {
  for (const std::int32_t mode : {1, 2, 3, 4}) {
    FetchLevels(mode, 2, 3, {{"SumName", "客户类别"}});
    EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                       {"截止日期：2003-03-31", 1},
                                       {"产品代码范围：所有产品", 2},
                                       {"客户代码范围：所有客户", 3},
                                       {"汇总依据：2--3级物料类别", 4}}))
        << "mode " << mode;
  }
}

TEST_F(Rpt133Title, TellsAnyOtherGroupingByItsProperty) {
  FetchBy(SumField("业务员", 3, 0));
  ASSERT_EQ(TitleLines().size(), 5U);
  EXPECT_EQ(TitleLines()[4], (std::pair<std::string, int>{"汇总依据：业务员", 4}));
}

}  // namespace
}  // namespace salerpt::testing
