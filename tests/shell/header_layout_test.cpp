#include "shell/header_layout.h"

#include <gmock/gmock.h>

namespace salerpt::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

void Add(Vector& header, const std::string& caption, std::string_view second, std::string_view field,
         bool visible = true, std::int16_t force_hide = 0) {
  AddHeader(header, caption, second, ColumnType::kQuantity, field, visible, ForceHide{force_hide});
}

std::vector<std::string> Spans(const std::vector<SheetColumn>& columns) {
  std::vector<std::string> texts;
  for (const HeadSpan& span : HeadSpans(columns)) {
    texts.push_back(std::to_string(span.first) + "+" + std::to_string(span.count) + " " +
                    std::string(span.text));
  }
  return texts;
}

TEST(HeaderLayout, FreesACaptionOfTheDollarMark) {
  Vector header;
  Add(header, "产品代码$", "", "FNumber");
  Add(header, "摘要", "", "FNote");
  const auto columns = LayOutHeader(header);
  ASSERT_EQ(columns.size(), 2u);
  EXPECT_EQ(columns[0].caption, "产品代码");
  EXPECT_EQ(columns[0].field, "FNumber");
  EXPECT_EQ(columns[1].caption, "摘要");
  EXPECT_FALSE(HasSecondLine(columns));
}

TEST(HeaderLayout, SpansAGroupOverOneColumnMoreThanItHasMarks) {
  Vector header;
  Add(header, "名称$", "", "FName");
  Add(header, "销售数量+|+|+|+|", "本期(基本)", "F1");
  Add(header, " ", "本期(常用)", "F2");
  Add(header, " ", "上年同期(基本)", "F3");
  Add(header, " ", "上年同期(常用)", "F4");
  Add(header, " ", "+/- %", "F5");
  Add(header, "出库+|", "数量", "F6");
  Add(header, " ", "金额", "F7");
  Add(header, "备注$", "", "F8");
  const auto columns = LayOutHeader(header);
  EXPECT_THAT(Spans(columns), ElementsAre("0+1 名称", "1+5 销售数量", "6+2 出库", "8+1 备注"));
  EXPECT_TRUE(HasSecondLine(columns));
  EXPECT_EQ(columns[5].Heading(), "销售数量/+/- %");
  EXPECT_EQ(columns[8].Heading(), "备注");
}

TEST(HeaderLayout, LeavesOutHiddenColumns) {
  Vector header;
  Add(header, "内码$", "", "FInterID", false);
  Add(header, "出库金额$", "", "FOutAmount", true, 1);
  Add(header, "名称$", "", "FName");
  const auto columns = LayOutHeader(header);
  ASSERT_EQ(columns.size(), 1u);
  EXPECT_EQ(columns[0].field, "FName");
}

TEST(HeaderLayout, KeepsTheGroupHeadingOverWhatIsShownOfTheGroup) {
  Vector header;
  Add(header, "销售收入+|+|", "本期", "F1", true, 1);
  Add(header, " ", "上期", "F2");
  Add(header, " ", "增长", "F3");
  EXPECT_THAT(Spans(LayOutHeader(header)), ElementsAre("0+2 销售收入"));
}

TEST(HeaderLayout, KeepsTwoNeighbouringGroupsOfOneNameApart) {
  Vector header;
  Add(header, "数量+|", "a", "F1");
  Add(header, " ", "b", "F2");
  Add(header, "数量+|", "c", "F3");
  Add(header, " ", "d", "F4");
  EXPECT_THAT(Spans(LayOutHeader(header)), ElementsAre("0+2 数量", "2+2 数量"));
}

TEST(HeaderLayout, EndsAGroupAtACaptionOfItsOwn) {
  Vector header;
  Add(header, "数量+|+|", "a", "F1");
  Add(header, "名称$", "", "F2");
  Add(header, "型号$", "", "F3");
  EXPECT_THAT(Spans(LayOutHeader(header)), ElementsAre("0+1 数量", "1+1 名称", "2+1 型号"));
}

TEST(HeaderLayout, ReadsRowsWithoutTheOptionalKeys) {
  Vector header;
  AddHeader(header, "日期$", "", ColumnType::kDate, "FDate", true);
  const auto columns = LayOutHeader(header);
  ASSERT_EQ(columns.size(), 1u);
  EXPECT_EQ(columns[0].type, ColumnType::kDate);
  EXPECT_FALSE(columns[0].IsNumber());
}

TEST(HeaderLayout, GivesNothingForAnEmptyHeader) {
  EXPECT_THAT(LayOutHeader(Vector()), IsEmpty());
  EXPECT_THAT(HeadSpans({}), IsEmpty());
}

}  // namespace
}  // namespace salerpt::shell
