#include "shell/text_width.h"

#include <gtest/gtest.h>

namespace salerpt::shell {
namespace {

TEST(TextWidth, CountsOneColumnForALatinCharacter) {
  EXPECT_EQ(TextWidth(""), 0u);
  EXPECT_EQ(TextWidth("Rpt128"), 6u);
  EXPECT_EQ(TextWidth("é€"), 2u);
}

TEST(TextWidth, CountsTwoColumnsForAChineseCharacter) {
  EXPECT_EQ(TextWidth("销售"), 4u);
  EXPECT_EQ(TextWidth("A类"), 3u);
  EXPECT_EQ(TextWidth("𠀀"), 2u);
}

TEST(TextWidth, CountsTwoColumnsForFullWidthMarks) {
  EXPECT_EQ(TextWidth("：（，"), 6u);
  EXPECT_EQ(TextWidth("()"), 2u);
}

TEST(TextWidth, CountsNothingForACombiningMark) {
  EXPECT_EQ(TextWidth("e\u0301"), 1u);
}

TEST(TextWidth, CountsAByteThatBeginsNoCharacterAsOne) {
  EXPECT_EQ(TextWidth("\xFF"), 1u);
  EXPECT_EQ(TextWidth("\xE4\xB8"), 2u);
  EXPECT_EQ(TextWidth("\xE4xy"), 3u);
}

TEST(TextWidth, FillsWithBlanksOnTheAskedSide) {
  std::string text;
  AppendLeft(text, "杯", 4);
  text += '|';
  AppendRight(text, "杯", 4);
  text += '|';
  AppendCentred(text, "杯", 5);
  EXPECT_EQ(text, "杯  |  杯| 杯  ");
}

TEST(TextWidth, LeavesATextThatIsTooLongWhole) {
  std::string text;
  AppendLeft(text, "销售数量", 3);
  AppendRight(text, "12345", 3);
  AppendCentred(text, "abc", 1);
  EXPECT_EQ(text, "销售数量12345abc");
}

}  // namespace
}  // namespace salerpt::shell
