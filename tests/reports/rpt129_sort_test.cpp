// The order of the rows of the outbound detail: the final select, to the letter.
#include <gtest/gtest.h>

#include "tests/reports/rpt129_world.h"

namespace salerpt::testing {
namespace {

class Rpt129Sort : public Rpt129World {
 protected:
  // What the rows are ordered by.
  std::string OrderOf(std::int32_t item_sum, std::int32_t date_sum, const char* order_by) {
    const std::string end =
        Fetch({{"chkShowItemSum", item_sum}, {"chkShowDateSum", date_sum}, {"OrderBy", order_by}})
            .at("EndSel");
    const std::string begin = "From #DATA  \r\n Order by ";
    const std::string tail = "\r\nDROP TABLE #DATA  \r\n";
    const std::size_t from = end.find(begin);
    if (from == std::string::npos || end.size() < tail.size() ||
        end.substr(end.size() - tail.size()) != tail) {
      ADD_FAILURE() << Shown(end);
      return "";
    }
    return end.substr(from + begin.size(), end.size() - tail.size() - from - begin.size());
  }
  std::string PlainOrder(const char* order_by) { return OrderOf(0, 0, order_by); }
  std::string ItemOrder(const char* order_by) { return OrderOf(1, 0, order_by); }
  std::string DateOrder(const char* order_by) { return OrderOf(0, 1, order_by); }
};

TEST_F(Rpt129Sort, GoesByDateAndBillWhereNoOrderIsAsked) {
  EXPECT_EQ(PlainOrder(""), "FSumSort, FDate,FBillNo,Fentryid ");
  EXPECT_EQ(ItemOrder(""), "FOrderNumber,FNumber,FSumSort, FDate,FBillNo,Fentryid ");
}

TEST_F(Rpt129Sort, GoesByItemAndBillWithinADate) {
  EXPECT_EQ(DateOrder(""), "FOrderNumber,FDate,FSumSort, FNumber,FBillNo,Fentryid ");
}

TEST_F(Rpt129Sort, GoesByTheAskedOrderBehindTheTotals) {
  EXPECT_EQ(PlainOrder("FNumber ASC,FDate DESC"), "FSumSort, FNumber ASC,FDate DESC");
  EXPECT_EQ(ItemOrder("FName DESC"), "FOrderNumber,FNumber,FSumSort, FName DESC");
  EXPECT_EQ(DateOrder("FName DESC"), "FOrderNumber,FDate,FSumSort, FName DESC");
}

TEST_F(Rpt129Sort, KeepsTheLinesOfABillInTheirOrder) {
  EXPECT_EQ(PlainOrder("FBillNo DESC"), "FSumSort, FBillNo DESC, Fentryid");
  EXPECT_EQ(ItemOrder("FDate ASC,FBillNo ASC"),
            "FOrderNumber,FNumber,FSumSort, FDate ASC,FBillNo ASC, Fentryid");
  EXPECT_EQ(DateOrder("FBillNo ASC,FName ASC"),
            "FOrderNumber,FDate,FSumSort, FBillNo ASC,FName ASC, Fentryid");
}

TEST_F(Rpt129Sort, TakesTheItemOutOfTheOrderWhereItemsHaveSubtotals) {
  EXPECT_EQ(ItemOrder("FDate ASC,FNumber ASC"), "FOrderNumber,FNumber,FSumSort, FDate ASC");
  EXPECT_EQ(ItemOrder("FDate ASC,FNumber DESC"), "FOrderNumber,FNumber,FSumSort, FDate ASC");
  EXPECT_EQ(ItemOrder("FNumber ASC,FDate DESC"), "FOrderNumber,FNumber,FSumSort, FDate DESC");
  EXPECT_EQ(ItemOrder("FNumber DESC,FDate DESC"), "FOrderNumber,FNumber,FSumSort, FDate DESC");
  EXPECT_EQ(ItemOrder("FBillNo ASC,FNumber DESC,FDate ASC"),
            "FOrderNumber,FNumber,FSumSort, FBillNo ASC,FDate ASC, Fentryid");
}

TEST_F(Rpt129Sort, TakesTheDateOutOfTheOrderWhereDatesHaveSubtotals) {
  EXPECT_EQ(DateOrder("FNumber ASC,FDate ASC"), "FOrderNumber,FDate,FSumSort, FNumber ASC");
  EXPECT_EQ(DateOrder("FNumber ASC,FDate DESC"), "FOrderNumber,FDate,FSumSort, FNumber ASC");
  EXPECT_EQ(DateOrder("FDate ASC,FBillNo ASC"), "FOrderNumber,FDate,FSumSort, FBillNo ASC, Fentryid");
  EXPECT_EQ(DateOrder("FDate DESC,FBillNo ASC"), "FOrderNumber,FDate,FSumSort, FBillNo ASC, Fentryid");
}

TEST_F(Rpt129Sort, LeavesTheDateInTheOrderOfItemsAndTheItemInTheOrderOfDates) {
  EXPECT_EQ(ItemOrder("FDate DESC"), "FOrderNumber,FNumber,FSumSort, FDate DESC");
  EXPECT_EQ(DateOrder("FNumber DESC"), "FOrderNumber,FDate,FSumSort, FNumber DESC");
}

TEST_F(Rpt129Sort, FallsBackWhereNothingOfTheOrderIsLeft) {
  EXPECT_EQ(ItemOrder("FNumber ASC"), "FOrderNumber,FNumber,FSumSort, FDate,FBillNo,Fentryid");
  EXPECT_EQ(ItemOrder("FNumber DESC"), "FOrderNumber,FNumber,FSumSort, FDate,FBillNo,Fentryid");
  EXPECT_EQ(DateOrder("FDate ASC"), "FOrderNumber,FDate,FSumSort, FNumber,FBillNo,Fentryid");
  EXPECT_EQ(DateOrder("FDate DESC"), "FOrderNumber,FDate,FSumSort, FNumber,FBillNo,Fentryid");
}

TEST_F(Rpt129Sort, GoesByItemsWhereBothSubtotalsAreAsked) {
  EXPECT_EQ(OrderOf(1, 1, "FDate ASC,FNumber ASC"), "FOrderNumber,FNumber,FSumSort, FDate ASC");
}

TEST_F(Rpt129Sort, TakesNeitherShortCodeNorCustomerForTheItemsCode) {
  EXPECT_EQ(ItemOrder("FShortNumber ASC"), "FOrderNumber,FNumber,FSumSort, FShortNumber ASC");
  EXPECT_EQ(ItemOrder("FCustNumber DESC"), "FOrderNumber,FNumber,FSumSort, FCustNumber DESC");
}

TEST_F(Rpt129Sort, NeedsNoTableOfAnOrder) {
  for (const auto& [key, text] : Fetch({{"OrderBy", "FNumber ASC"}})) {
    EXPECT_EQ(text.find("#Tem"), std::string::npos) << "under " << key;
  }
}

}  // namespace
}  // namespace salerpt::testing
