// The order that a dialog asks for, as a list of columns and directions.
#include "suite/middletier/sort_list.h"

#include <gtest/gtest.h>

#include "tests/runtime/error_check.h"

namespace salerpt::middletier {
namespace {

std::string Read(std::string_view list) {
  std::string text;
  for (const SortTerm& term : ReadSortList(list)) text += term.name + (term.descending ? "-" : "+") + " ";
  return text;
}

TEST(SortList, ReadsColumnsAndDirections) {
  EXPECT_EQ(Read("FDate ASC,FBillNo DESC"), "FDate+ FBillNo- ");
  EXPECT_EQ(Read(" FDate  asc , FBillNo desc "), "FDate+ FBillNo- ");
}

TEST(SortList, TakesAColumnAloneAscending) {
  EXPECT_EQ(Read("FDate,FBillNo"), "FDate+ FBillNo+ ");
}

TEST(SortList, HasNoTermsForAnEmptyList) {
  EXPECT_EQ(Read(""), "");
  EXPECT_EQ(Read("  "), "");
}

TEST(SortList, RefusesAnyOtherWord) {
  EXPECT_EQ(NumberRaisedBy([] { ReadSortList("FDate UP"); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([] { ReadSortList("FDate ASC DESC"); }), error_number::kInvalidCall);
  EXPECT_NE(DescriptionRaisedBy([] { ReadSortList("FDate UP"); }).find("UP"), std::string::npos);
}

}  // namespace
}  // namespace salerpt::middletier
