// Columns and title lines of the order production and sales tracking as the host gets them.
#include <gtest/gtest.h>

#include "tests/reports/rpt139_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::string>;
using TitleList = std::vector<std::pair<std::string, int>>;

class Rpt139Header : public Rpt139World {
 protected:
  static Lines CommonColumns() {
    return {"日期$||1|FDate|1|0",
            "订单编号$||1|FBillNo|1|0",
            "客户代码$||1|FCustNumber|1|0",
            "客户名称$||1|FCustName|1|0",
            "交货日期$||1|FAdviceConsignDate|1|0",
            "产品代码$||1|FItemNumber|1|0",
            "产品名称$||1|FName|1|0",
            "规格型号$||1|FModel|1|0",
            "辅助属性$||1|FAuxName|1|0",
            "单位（基本）$||1|FBaseUnitName|1|0",
            "单位（常用）$||1|FStockUnitName|1|0",
            "订单数量+||数量(基本)|2|FQty|1|0",
            " |数量(常用)|2|FAuxQty|1|0",
            "生产数量+||数量(基本)|2|FBCommitQty|1|0",
            " |数量(常用)|2|FAuxBCommitQty|1|0",
            "入库数量+||数量(基本)|2|FInStockQty|1|0",
            " |数量(常用)|2|FInAuxStockQty|1|0",
            "出库数量+||数量(基本)|2|FOutStockQty|1|0",
            " |数量(常用)|2|FOutAuxStockQty|1|0",
            "未执行数量+||数量(基本)|2|FUnFinishQty|1|0",
            " |数量(常用)|2|FUnAuxFinishQty|1|0"};
  }
  static Lines WithStatus(Lines columns = CommonColumns()) {
    columns.emplace_back("行执行状态$||1|FExecutionStatus|1|0");
    return columns;
  }
  static Lines Behind(Lines groups) {
    const Lines common = CommonColumns();
    groups.insert(groups.end(), common.begin(), common.end());
    return groups;
  }
};
using Rpt139Title = Rpt139World;

TEST_F(Rpt139Header, GivesItsColumnsWithTheStateOfTheLine) {
  Fetch();
  EXPECT_EQ(HeaderLines(), WithStatus());
}

// The rows carry the short code under another name; the host finds it where the rows bring this field.
TEST_F(Rpt139Header, NamesTheShortCodeAsTheOtherReportsDo) {
  UseShortCode();
  Fetch();
  Lines columns = WithStatus();
  columns[5] = "产品代码$||1|FShortNumber|1|0";
  EXPECT_EQ(HeaderLines(), columns);
}

TEST_F(Rpt139Header, PutsTheLevelsFirstAndLeavesTheStateOut) {
  FetchLevels(1, 2);
  EXPECT_EQ(HeaderLines(), Behind({"1级产品类别$||1|FName1|1|0", "2级产品类别$||1|FName2|1|0"}));
  FetchLevels(3, 3);
  EXPECT_EQ(HeaderLines(), Behind({"3级产品类别$||1|FName3|1|0"}));
}

TEST_F(Rpt139Header, HasNoLevelsWhereThePlainFrameRuns) {
  Fetch({{"GroupBy", std::int32_t{1}},
         {"SumMode", std::int32_t{2}},
         {"BLevel", std::int32_t{1}},
         {"ELevel", std::int32_t{1}}});
  EXPECT_EQ(HeaderLines(), CommonColumns());
}

TEST_F(Rpt139Header, LeavesTheStateOutWhereTotalsOnlyAreShownAndHidesNothing) {
  Fetch({{"OnlyShowSum", std::int32_t{1}}});
  EXPECT_EQ(HeaderLines(), CommonColumns());
  FetchLevels(1, 1, {{"OnlyShowSum", std::int32_t{1}}});
  EXPECT_EQ(HeaderLines(), Behind({"1级产品类别$||1|FName1|1|0"}));
}

TEST_F(Rpt139Header, KnowsNoFieldRight) {
  ledger_->Gives("AccessCheck", false);
  Fetch();
  EXPECT_EQ(HeaderLines(), WithStatus());
}

TEST_F(Rpt139Header, WritesNoMergeKind) {
  Fetch();
  const auto column = As<Dictionary>(As<Vector>(GetMember(Report(), "Header"))->Item(1));
  EXPECT_FALSE(column->Lookup("FMergerType"));
}

TEST_F(Rpt139Title, TellsRanges) {
  Fetch();
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2003-01-01", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：所有产品", 2},
                                     {"客户代码范围：所有客户", 3}}));
  Fetch({{"BItemNumber", "01"},
         {"EItemNumber", "09"},
         {"EClientNumber", "03"},
         {"BCustNumber", "77"},
         {"BDate", "2004-2-9"}});
  EXPECT_EQ(TitleLines(), (TitleList{{"起始日期：2004-02-09", 0},
                                     {"截止日期：2003-03-31", 1},
                                     {"产品代码范围：01  --  09", 2},
                                     {"客户代码范围：  --  03", 3}}));
}

TEST_F(Rpt139Title, TellsTheLevelsWhereRowsAreGrouped) {
  FetchLevels(1, 2);
  ASSERT_EQ(TitleLines().size(), 5U);
  EXPECT_EQ(TitleLines()[4], (std::pair<std::string, int>{"汇总依据：1--2产品类别", 4}));
}

}  // namespace
}  // namespace salerpt::testing
