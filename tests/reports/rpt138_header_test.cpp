// Columns and title lines of the order execution summary as the host gets them.
#include <gtest/gtest.h>

#include "tests/reports/rpt138_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

class Rpt138Header : public Rpt138World {
 protected:
  static Lines CommonColumns() {
    return {"产品代码$||1|FNumber|1",
            "产品名称$||1|FName|1",
            "规格型号$||1|FModel|1",
            "单位(基本)$||1|FUnitName|1",
            "订单数量(基本)$||2|FOrderQty|1",
            "发货数量(基本)$||2|FCommitQty|1",
            "尚未出库(基本)$||2|FUnCommitQty|1",
            "单位(常用)$||1|FCUUnitName|1",
            "订单数量(常用)$||2|FCUUnitOrderQty|1",
            "发货数量(常用)$||2|FCUUnitCommitQty|1",
            "尚未出库(常用)$||2|FCUUnitUnCommitQty|1"};
  }
  void ExpectColumns(const Lines& groups, const Lines& common = CommonColumns()) {
    Lines all = groups;
    all.insert(all.end(), common.begin(), common.end());
    EXPECT_EQ(HeaderLines(), all);
  }
};

class Rpt138Title : public Rpt138World {
 protected:
  void ExpectGroupingLine(const char* caption) {
    ASSERT_EQ(TitleLines().size(), 5U);
    EXPECT_EQ(TitleLines()[4], (std::pair<std::string, int>{caption, 4}));
  }
};

TEST_F(Rpt138Header, GivesTheCommonColumnsItemByItem) {
  Fetch();
  ExpectColumns({});
}

TEST_F(Rpt138Header, ShowsTheShortCodeWhereThatIsInUse) {
  UseShortCode();
  Fetch();
  Lines common = CommonColumns();
  common[0] = "产品代码$||1|FShortNumber|1";
  ExpectColumns({}, common);
}

TEST_F(Rpt138Header, PutsTheColumnsOfTheGroupsFirst) {
  FetchLevels(1, 1, 2);
  ExpectColumns({"1级物料类别$||1|FName1|1", "2级物料类别$||1|FName2|1"});
  FetchLevels(2, 2, 2);
  ExpectColumns({"2级客户类别$||1|FName2|1"});
  FetchLevels(3, 1, 1);
  ExpectColumns({"1级物料类别$||1|FName1|1", "客户$||1|FCustName|1"});
  FetchLevels(4, 1, 2);
  ExpectColumns({"客户$||1|FCustName|1", "1级物料类别$||1|FName1|1", "2级物料类别$||1|FName2|1"});
  FetchLevels(6, 1, 2);
  ExpectColumns({"1级分支机构类别$||1|FName1|1", "2级分支机构类别$||1|FName2|1"});
}

TEST_F(Rpt138Header, NamesThePropertyGroupedByAndItsColumn) {
  FetchBy(0, SaleStyle());
  ExpectColumns({"销售方式$||1|FProp291|1"});
  FetchBy(5, Customer());
  ExpectColumns({"客户$||1|FProp02|1"});
  FetchBy(7, Employee());
  ExpectColumns({"业务员$||1|FProp03|1"});
  FetchBy(8, Property("型号", 4, 7, "FModel"));
  ExpectColumns({"型号$||1|FProp74|1"});
}

TEST_F(Rpt138Header, HidesWhatDescribesAnItemWhereAGroupingShowsTotalsOnly) {
  FetchLevels(1, 1, 1, {{"OnlyShowSum", std::int32_t{1}}});
  Lines common = CommonColumns();
  common[0] = "产品代码$||1|FNumber|0";
  common[1] = "产品名称$||1|FName|0";
  common[2] = "规格型号$||1|FModel|0";
  common[3] = "单位(基本)$||1|FUnitName|0";
  common[7] = "单位(常用)$||1|FCUUnitName|0";
  ExpectColumns({"1级物料类别$||1|FName1|1"}, common);
  Fetch({{"OnlyShowSum", std::int32_t{1}}});
  ExpectColumns({});
}

TEST_F(Rpt138Header, KnowsNoFieldRightAndNoForcedHiding) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  ExpectColumns({});
  const auto column = As<Dictionary>(As<Vector>(GetMember(Report(), "Header"))->Item(1));
  EXPECT_FALSE(column->Lookup("FForceHide"));
  EXPECT_FALSE(column->Lookup("FMergerType"));
}

TEST_F(Rpt138Title, TellsRanges) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：所有产品", 2},
                                     {"客户代码范围：所有客户", 3}}));
  Fetch({{"BItemNumber", "01"}, {"EItemNumber", "09"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：01 -- 09", 2},
                                     {"客户代码范围:  -- 03", 3}}));
}

TEST_F(Rpt138Title, TellsTheLevelsThatAreGroupedBy) {
  FetchLevels(1, 1, 2, {{"SumName", "物料类别"}});
  ExpectGroupingLine("汇总依据：1--2级物料类别");
  FetchLevels(2, 2, 3, {{"SumName", "客户类别"}});
  ExpectGroupingLine("汇总依据：2--3级客户类别");
  FetchLevels(4, 1, 2, {{"SumName", "客户+物料类别"}});
  ExpectGroupingLine("汇总依据：客户+1--2级物料类别");
  FetchLevels(6, 1, 1, {{"SumName", "分支机构类别"}});
  ExpectGroupingLine("汇总依据：1--1级分支机构类别");
}

// Behind the levels a customer is none of the properties, whatever its code.
TEST_F(Rpt138Title, TellsLevelsWithTheCustomerBehindThemByTheirOwnName) {
  FetchLevels(3, 1, 2, {{"SumName", "物料类别+客户"}});
  ExpectGroupingLine("汇总依据：1--2级物料类别+客户");
}

TEST_F(Rpt138Title, TellsAPropertyByItsName) {
  FetchBy(0, SaleStyle(), {{"SumName", "销售方式"}});
  ExpectGroupingLine("汇总依据：销售方式");
  FetchBy(5, Customer(), {{"SumName", "客户"}});
  ExpectGroupingLine("汇总依据：客户");
  FetchBy(7, Employee(), {{"SumName", "业务员"}});
  ExpectGroupingLine("汇总依据：业务员");
}

}  // namespace
}  // namespace salerpt::testing
