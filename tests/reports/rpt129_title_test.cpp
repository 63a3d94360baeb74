// The lines above the grid of the outbound detail.
#include <gtest/gtest.h>

#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

using Lines = std::vector<std::pair<std::string, int>>;

class Rpt129Title : public Rpt129World {
 protected:
  void ExpectGroupingLine(std::int32_t mode, const std::string& caption) {
    Fetch({{"GroupBy", std::int32_t{1}},
           {"SumMode", mode},
           {"BLevel", std::int32_t{2}},
           {"ELevel", std::int32_t{3}},
           {"SumField", std::make_shared<Dictionary>(Entries{{"FName", "客户"},
                                                             {"FPropID", "0"},
                                                             {"FItemClassID", "1"},
                                                             {"FSrcTable", ""},
                                                             {"FSQLColumnName", "FName"}})}});
    EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                   {"截止日期：2003-03-31", 1},
                                   {"产品代码范围：所有产品", 2},
                                   {"批号范围：所有", 3},
                                   {"客户代码范围：所有客户", 4},
                                   {caption, 5}}))
        << "mode " << mode;
  }
};

TEST_F(Rpt129Title, IsNotThereBeforeTheFirstFetch) {
  EXPECT_EQ(GetMember(Report(), "Title").ToObject(), nullptr);
}

TEST_F(Rpt129Title, TellsOpenRangesAsAll) {
  Fetch();
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：所有产品", 2},
                                 {"批号范围：所有", 3},
                                 {"客户代码范围：所有客户", 4}}));
}

TEST_F(Rpt129Title, TellsBothEndsOfARange) {
  Fetch({{"BItemNumber", "01.01"},
         {"EItemNumber", "01.09"},
         {"BBatchNo", "B1"},
         {"EBatchNo", "B9"},
         {"BCustNumber", "02"},
         {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines(), (Lines{{"起始日期：2003-01-01", 0},
                                 {"截止日期：2003-03-31", 1},
                                 {"产品代码范围：01.01  --  01.09", 2},
                                 {"批号范围：B1  --  B9", 3},
                                 {"客户代码范围: 02 -- 03", 4}}));
}

TEST_F(Rpt129Title, LeavesTheOpenEndOfARangeEmpty) {
  Fetch({{"BItemNumber", "01.01"}, {"EBatchNo", "B9"}, {"ECustNumber", "03"}});
  EXPECT_EQ(TitleLines()[2].first, "产品代码范围：01.01  --  ");
  EXPECT_EQ(TitleLines()[3].first, "批号范围：  --  B9");
  EXPECT_EQ(TitleLines()[4].first, "客户代码范围:  -- 03");
  Fetch({{"BBatchNo", "B'1"}});
  EXPECT_EQ(TitleLines()[3].first, "批号范围：B'1  --  ");
}

TEST_F(Rpt129Title, TellsWhatIsGroupedBy) {
  ExpectGroupingLine(1, "汇总依据：2--3级物料类别");
  ExpectGroupingLine(2, "汇总依据：2--3级客户类别");
  ExpectGroupingLine(3, "汇总依据：2--3级物料类别+客户");
  ExpectGroupingLine(4, "汇总依据：客户+2--3级物料类别");
  ExpectGroupingLine(5, "汇总依据：客户");
  ExpectGroupingLine(0, "汇总依据：客户");
}

TEST_F(Rpt129Title, IsMadeAnewByEachFetch) {
  Fetch({{"BBatchNo", "B1"}});
  const auto first = GetMember(Report(), "Title").ToObject();
  Fetch();
  EXPECT_NE(GetMember(Report(), "Title").ToObject(), first);
  EXPECT_EQ(TitleLines()[3].first, "批号范围：所有");
}

}  // namespace
}  // namespace salerpt::testing
