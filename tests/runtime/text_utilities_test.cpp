#include "runtime/text_utilities.h"

#include <gtest/gtest.h>

namespace salerpt {
namespace {

TEST(CountParts, CountsSeparators) {
  EXPECT_EQ(CountParts("a,b,c", ","), 2);
  EXPECT_EQ(CountParts("abc", ","), 0);
  EXPECT_EQ(CountParts("", ","), 0);
  EXPECT_EQ(CountParts(",", ","), 1);
}

TEST(CountParts, CountsWithoutOverlap) {
  EXPECT_EQ(CountParts("aaaaa", "aa"), 2);
}

TEST(CountParts, IsZeroForAnEmptySeparator) {
  EXPECT_EQ(CountParts("abc", ""), 0);
}

TEST(NthPart, GivesThePieceCountedFromOne) {
  EXPECT_EQ(NthPart("客户|||单位|||", "|||", 1), "客户");
  EXPECT_EQ(NthPart("客户|||单位|||", "|||", 2), "单位");
  EXPECT_EQ(NthPart("客户|||单位|||", "|||", 3), "");
}

TEST(NthPart, GivesEmptyTextWhereThereAreFewerPieces) {
  EXPECT_EQ(NthPart("a,b", ",", 3), "");
  EXPECT_EQ(NthPart("", ",", 2), "");
  EXPECT_EQ(NthPart("a,b", ",", 0), "");
  EXPECT_EQ(NthPart("a,b", ",", -1), "");
}

TEST(NthPart, GivesTheWholeTextWithoutASeparator) {
  EXPECT_EQ(NthPart("abc", ",", 1), "abc");
  EXPECT_EQ(NthPart("abc", "", 1), "abc");
  EXPECT_EQ(NthPart("abc", "", 2), "");
}

}  // namespace
}  // namespace salerpt
