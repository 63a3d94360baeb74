// The lines above the grid of the income statistics.
#include <gtest/gtest.h>

#include "tests/reports/rpt126_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::pair<std::string, int>>;

class Rpt126Title : public Rpt126World {
 protected:
  std::string GroupingLine(std::int32_t mode, const char* name, const DictionaryRef& property) {
    FetchInvoices({{"GroupBy", std::int32_t{1}},
                   {"SumMode", mode},
                   {"SumName", name},
                   {"BLevel", std::int32_t{2}},
                   {"ELevel", std::int32_t{3}},
                   {"SumField", property}});
    const Lines lines = TitleLines();
    EXPECT_EQ(lines.size(), 7U);
    EXPECT_EQ(lines.back().second, 6);
    return lines.back().first;
  }
  // What the dialog writes for a grouping by class levels.
  static DictionaryRef NoProperty() {
    return std::make_shared<Dictionary>(Entries{{"FPropID", std::int32_t{0}}, {"FSQLColumnName", "FName"}});
  }
};

TEST_F(Rpt126Title, TellsOpenRangesAsAll) {
  FetchInvoices();
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：所有产品", 2},
                                 {"客户代码范围：所有客户", 3},
                                 {"部门代码范围：所有部门", 4},
                                 {"业务员代码范围：所有业务员", 5}}));
}

TEST_F(Rpt126Title, TellsBothEndsOfARange) {
  FetchInvoices({{"BItemNumber", "11"},
                 {"EItemNumber", "12"},
                 {"BCustNumber", "21"},
                 {"ECustNumber", "22"},
                 {"BDeptNumber", "31"},
                 {"EDeptNumber", "32"},
                 {"BEmpNumber", "41"},
                 {"EEmpNumber", "42"}});
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：11  --  12", 2},
                                 {"客户代码范围: 21 -- 22", 3},
                                 {"部门代码范围: 31 -- 32", 4},
                                 {"业务员代码范围: 41 -- 42", 5}}));
}

TEST_F(Rpt126Title, LeavesTheOpenEndOfARangeEmpty) {
  FetchInvoices({{"EItemNumber", "12"}, {"BCustNumber", "21"}, {"EDeptNumber", "32"}, {"BEmpNumber", "41"}});
  const Lines lines = TitleLines();
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[2].first, "产品代码范围：  --  12");
  EXPECT_EQ(lines[3].first, "客户代码范围: 21 -- ");
  EXPECT_EQ(lines[4].first, "部门代码范围:  -- 32");
  EXPECT_EQ(lines[5].first, "业务员代码范围: 41 -- ");
}

TEST_F(Rpt126Title, NumbersTheLinesOneAfterTheOther) {
  FetchLevels(1, 1, 2);
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：所有产品", 2},
                                 {"客户代码范围：所有客户", 3},
                                 {"部门代码范围：所有部门", 4},
                                 {"业务员代码范围：所有业务员", 5},
                                 {"汇总依据：1--2级物料类别", 6}}));
}

TEST_F(Rpt126Title, TellsClassLevelsByTheNameOfTheGrouping) {
  EXPECT_EQ(GroupingLine(1, "物料类别", NoProperty()), "汇总依据：2--3级物料类别");
  EXPECT_EQ(GroupingLine(2, "客户类别", NoProperty()), "汇总依据：2--3级客户类别");
  EXPECT_EQ(GroupingLine(3, "物料类别+客户", NoProperty()), "汇总依据：2--3级物料类别+客户");
}

TEST_F(Rpt126Title, CallsLevelsWithoutANameItemClasses) {
  for (const std::int32_t mode : {1, 2, 3}) {
    EXPECT_EQ(GroupingLine(mode, "", NoProperty()), "汇总依据：2--3级物料类别");
  }
}

TEST_F(Rpt126Title, TellsTheCustomerBeforeItemClassesInItsOwnWords) {
  EXPECT_EQ(GroupingLine(4, "客户+物料类别", NoProperty()), "汇总依据：客户+2--3级物料类别");
}

TEST_F(Rpt126Title, TellsAnyOtherGroupingByItsProperty) {
  EXPECT_EQ(GroupingLine(0, "", SumField("客户", 1, 0)), "汇总依据：客户");
  EXPECT_EQ(GroupingLine(6, "部门名", SumField("部门", 2, 0)), "汇总依据：部门");
}

TEST_F(Rpt126Title, FallsBackOnTheNameOfTheGroupingWhereThePropertyHasNone) {
  EXPECT_EQ(GroupingLine(7, "业务员", SumField("", 3, 0)), "汇总依据：业务员");
}

TEST_F(Rpt126Title, IsMadeAnewByAFetchButNotByRefresh) {
  FetchInvoices();
  As<Dictionary>(GetMember(Report(), "Filter"))->Set("BDeptNumber", "05");
  Call(Report(), "Refresh");
  EXPECT_EQ(TitleLines()[4].first, "部门代码范围：所有部门");
  Call(Report(), "GetReportData");
  EXPECT_EQ(TitleLines()[4].first, "部门代码范围: 05 -- ");
}

}  // namespace
}  // namespace salerpt::testing
