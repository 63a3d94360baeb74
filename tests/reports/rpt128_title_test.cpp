// The lines above the grid of the outbound summary.
#include <gtest/gtest.h>

#include "tests/reports/rpt128_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::pair<std::string, int>>;

class Rpt128Title : public Rpt128World {
 protected:
  // The last line of a grouping; the others are those of open ranges.
  void ExpectGroupingLine(std::int32_t mode, const std::string& caption) {
    Fetch({{"GroupBy", std::int32_t{1}},
           {"SumMode", mode},
           {"BLevel", std::int32_t{2}},
           {"ELevel", std::int32_t{3}},
           {"SumField", std::make_shared<Dictionary>(Entries{{"FName", "销售方式"},
                                                             {"FPropID", "29"},
                                                             {"FItemClassID", "1"},
                                                             {"FSrcTable", ""},
                                                             {"FSQLColumnName", "FName"}})}});
    EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                   {"截止日期：2003-03-31", 1},
                                   {"产品代码范围：所有产品", 2},
                                   {"客户代码范围：所有客户", 3},
                                   {caption, 4}}))
        << "mode " << mode;
  }
};

TEST_F(Rpt128Title, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Title").ToObject(), nullptr);
}

TEST_F(Rpt128Title, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：所有产品", 2},
                                 {"客户代码范围：所有客户", 4}}));
}

TEST_F(Rpt128Title, TellsBothEndsOfARange) {
  Fetch({{"BItemNumber", "01.01"}, {"EItemNumber", "01.09"}, {"BCustNumber", "02"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：01.01  --  01.09", 2},
                                 {"客户代码范围: 02 -- 03", 4}}));
}

TEST_F(Rpt128Title, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"BItemNumber", "01.01"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：01.01  --  ", 2},
                                 {"客户代码范围:  -- 03", 4}}));
  Fetch({{"EItemNumber", "01.09"}, {"BCustNumber", "02"}});
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：  --  01.09");
  EXPECT_EQ(TitleLines()[3].first, "客户代码范围: 02 -- ");
}

TEST_F(Rpt128Title, TellsAValueAsItWasGivenAndNotAsItEntersSql) {
  Fetch({{"BItemNumber", "O'Neil"}, {"EItemNumber", "P"}});
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：O'Neil  --  P");
}

TEST_F(Rpt128Title, NumbersTheRangeOfCustomersOneLowerBeforeAGrouping) {
  Fetch({{"GroupBy", std::int32_t{1}},
         {"SumMode", std::int32_t{9}},
         {"BCustNumber", "02"},
         {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：所有产品", 2},
                                 {"客户代码范围: 02 -- 03", 3},
                                 {"汇总依据：部门", 4}}));
}

TEST_F(Rpt128Title, TellsWhatIsGroupedBy) {
  ExpectGroupingLine(1, "汇总依据：2--3级物料类别");
  ExpectGroupingLine(2, "汇总依据：2--3级客户类别");
  ExpectGroupingLine(3, "汇总依据：2--3级物料类别+客户");
  ExpectGroupingLine(4, "汇总依据：客户+2--3级物料类别");
  ExpectGroupingLine(5, "汇总依据：销售方式");
  ExpectGroupingLine(6, "汇总依据：销售方式");
  ExpectGroupingLine(7, "汇总依据：销售方式");
  ExpectGroupingLine(8, "汇总依据：2--3级客户类别+客户");
  ExpectGroupingLine(9, "汇总依据：部门");
  ExpectGroupingLine(10, "汇总依据：部门+业务员");
  ExpectGroupingLine(11, "汇总依据：客户+业务员");
  ExpectGroupingLine(12, "汇总依据：业务员+客户+2--3级物料类别");
  ExpectGroupingLine(99, "汇总依据：销售方式");
}

TEST_F(Rpt128Title, WritesTheKeysOfALineInTheirTypes) {
  Fetch();
  const auto line = As<Dictionary>(As<Vector>(GetMember(Report(), "Title"))->Item(1));
  ASSERT_EQ(line->Entries().size(), 2U);
  EXPECT_EQ(line->Get("FCaption").GetKind(), Variant::Kind::kText);
  EXPECT_EQ(line->Get("FIndex").GetKind(), Variant::Kind::kInt16);
}

TEST_F(Rpt128Title, IsMadeAnewByAFetchButNotByRefresh) {
  Fetch();
  As<Dictionary>(GetMember(Report(), "Filter"))->Set("BItemNumber", "05");
  Call(Report(), "Refresh");
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：所有产品");
  Call(Report(), "GetReportData");
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：05  --  ");
}

}  // namespace
}  // namespace salerpt::testing
