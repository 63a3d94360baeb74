// The batch tracking puts four sets together: which rows come, in which order, with which totals.
#include <gtest/gtest.h>

#include "tests/reports/rpt192_world.h"

namespace salerpt::testing {
namespace {

class Rpt192Merge : public Rpt192World {
 protected:
  // Order 1, item 11, entry 1: a receipt of its own, a task with a receipt and an issue.
  void GiveOneLine() {
    AddOrder(1, 11, 1);
    AddReceipt(1, 11, 1, 0, 31);
    AddTask(1, 11, 1, 21);
    AddReceipt(9, 9, 9, 21, 32);
    AddIssue(21, 41);
  }
};

// --- The order of the rows

TEST_F(Rpt192Merge, PutsReceiptsOfTheLineBeforeItsTasksAndThoseOfATaskBeforeItsIssues) {
  AddOrder(1, 11, 1);
  AddIssue(22, 44);
  AddIssue(21, 42);
  AddIssue(21, 41);
  AddReceipt(9, 9, 9, 22, 35);
  AddReceipt(1, 11, 1, 0, 33);
  AddReceipt(9, 9, 9, 21, 34);
  AddReceipt(1, 11, 1, 0, 31);
  AddTask(1, 11, 1, 22);
  AddTask(1, 11, 1, 21);
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "receipt 33", "receipt 31", "task 22", "receipt 35", "issue 44",
                           "task 21", "receipt 34", "issue 42", "issue 41", "item 1/11 台灯11(小计)",
                           "all 1/11 SEORD1(小计)", "total 1/11 合计"}));
}

TEST_F(Rpt192Merge, ClosesAnItemThatChangesInsideAnOrderWithOneRow) {
  AddOrder(1, 11, 1);
  AddOrder(1, 12, 2, {{"FQty", 1.0}, {"FCUUnitQty", 0.5}, {"FAmount", 7.0}});
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "item 1/11 台灯11(小计)", "order 1/12", "item 1/12 台灯12(小计)",
                           "all 1/12 SEORD1(小计)", "total 1/12 合计"}));
  EXPECT_EQ(MeasuresOf("item"), (Lines{"10 5 100 0 0 0 0 0 0 0", "1 0.5 7 0 0 0 0 0 0 0"}));
  EXPECT_EQ(MeasuresOf("all"), (Lines{"11 5.5 107 0 0 0 0 0 0 0"}));
}

TEST_F(Rpt192Merge, ClosesEachOfThreeItemsOfAnOrderOnce) {
  AddOrder(1, 11, 1);
  AddOrder(1, 12, 2);
  AddOrder(1, 12, 3);
  AddOrder(1, 13, 4);
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "item 1/11 台灯11(小计)", "order 1/12", "order 1/12",
                           "item 1/12 台灯12(小计)", "order 1/13", "item 1/13 台灯13(小计)",
                           "all 1/13 SEORD1(小计)", "total 1/13 合计"}));
  EXPECT_EQ(MeasuresOf("item"),
            (Lines{"10 5 100 0 0 0 0 0 0 0", "20 10 200 0 0 0 0 0 0 0", "10 5 100 0 0 0 0 0 0 0"}));
}

TEST_F(Rpt192Merge, ClosesAnItemThatComesBackInsideAnOrderEachTime) {
  AddOrder(1, 11, 1);
  AddOrder(1, 12, 2);
  AddOrder(1, 11, 3);
  Fetch();
  EXPECT_EQ(Walk(),
            (Lines{"order 1/11", "item 1/11 台灯11(小计)", "order 1/12", "item 1/12 台灯12(小计)",
                   "order 1/11", "item 1/11 台灯11(小计)", "all 1/11 SEORD1(小计)", "total 1/11 合计"}));
}

TEST_F(Rpt192Merge, ClosesItemAndOrderWhereTheOrderChangesInsideAnItem) {
  AddOrder(1, 11, 1);
  AddOrder(2, 11, 1, {{"FQty", 1.0}});
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "item 1/11 台灯11(小计)", "all 1/11 SEORD1(小计)", "order 2/11",
                           "item 2/11 台灯11(小计)", "all 2/11 SEORD2(小计)", "total 2/11 合计"}));
  EXPECT_EQ(MeasuresOf("item"), (Lines{"10 5 100 0 0 0 0 0 0 0", "1 5 100 0 0 0 0 0 0 0"}));
  EXPECT_EQ(MeasuresOf("all"), (Lines{"10 5 100 0 0 0 0 0 0 0", "1 5 100 0 0 0 0 0 0 0"}));
  EXPECT_EQ(MeasuresOf("total"), (Lines{"11 10 200 0 0 0 0 0 0 0"}));
}

TEST_F(Rpt192Merge, ClosesItemAndOrderOnceWhereBothChange) {
  AddOrder(1, 11, 1);
  AddOrder(2, 12, 1);
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "item 1/11 台灯11(小计)", "all 1/11 SEORD1(小计)", "order 2/12",
                           "item 2/12 台灯12(小计)", "all 2/12 SEORD2(小计)", "total 2/12 合计"}));
}

TEST_F(Rpt192Merge, KeepsLinesOfOneItemInOneSubtotal) {
  AddOrder(1, 11, 1);
  AddOrder(1, 11, 2);
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "order 1/11", "item 1/11 台灯11(小计)", "all 1/11 SEORD1(小计)",
                           "total 1/11 合计"}));
}

TEST_F(Rpt192Merge, NamesASubtotalAfterTheLastOfItsLines) {
  AddOrder(1, 11, 1, {{"FName", "灯"}, {"FOrderBillNo", "A"}});
  AddOrder(1, 11, 2, {{"FName", "大灯"}, {"FOrderBillNo", "B"}});
  AddOrder(1, 12, 3, {{"FName", "表"}, {"FOrderBillNo", "C"}});
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "order 1/11", "item 1/11 大灯(小计)", "order 1/12",
                           "item 1/12 表(小计)", "all 1/12 C(小计)", "total 1/12 合计"}));
}

TEST_F(Rpt192Merge, GivesTheTotalTheLastOrderAndItem) {
  AddOrder(7, 13, 1);
  AddOrder(2, 12, 1);
  AddOrder(2, 11, 2);
  Fetch();
  EXPECT_EQ(Walk().back(), "total 2/11 合计");
}

// --- What belongs to what

TEST_F(Rpt192Merge, TiesReceiptsAndTasksToOrderItemAndEntryAlike) {
  AddOrder(1, 11, 1);
  AddReceipt(2, 11, 1, 0, 31);
  AddReceipt(1, 12, 1, 0, 32);
  AddReceipt(1, 11, 2, 0, 33);
  AddTask(2, 11, 1, 21);
  AddTask(1, 12, 1, 22);
  AddTask(1, 11, 2, 23);
  AddReceipt(9, 9, 9, 21, 34);
  AddIssue(22, 41);
  Fetch();
  EXPECT_EQ(Walk(),
            (Lines{"order 1/11", "item 1/11 台灯11(小计)", "all 1/11 SEORD1(小计)", "total 1/11 合计"}));
}

TEST_F(Rpt192Merge, CountsAReceiptThatBothFiltersFindTwice) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21);
  AddReceipt(1, 11, 1, 21, 31);
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "receipt 31", "task 21", "receipt 31", "item 1/11 台灯11(小计)",
                           "all 1/11 SEORD1(小计)", "total 1/11 合计"}));
  EXPECT_EQ(MeasuresOf("item"), (Lines{"10 5 100 8 8 4 56 0 0 0"}));
  EXPECT_EQ(MeasuresOf("all"), (Lines{"10 5 100 8 8 4 56 0 0 0"}));
  EXPECT_EQ(MeasuresOf("total"), (Lines{"10 5 100 8 8 4 56 0 0 0"}));
}

TEST_F(Rpt192Merge, RepeatsWhatTwoOrderRowsOfOneLineFind) {
  AddOrder(1, 11, 1);
  AddOrder(1, 11, 1);
  AddReceipt(1, 11, 1, 0, 31);
  AddTask(1, 11, 1, 21);
  AddIssue(21, 41);
  Fetch();
  EXPECT_EQ(Walk(),
            (Lines{"order 1/11", "receipt 31", "task 21", "issue 41", "order 1/11", "receipt 31", "task 21",
                   "issue 41", "item 1/11 台灯11(小计)", "all 1/11 SEORD1(小计)", "total 1/11 合计"}));
  EXPECT_EQ(MeasuresOf("total"), (Lines{"20 10 200 16 8 4 56 6 3 12"}));
}

TEST_F(Rpt192Merge, RepeatsReceiptsAndIssuesOfATaskThatStandsTwice) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21);
  AddTask(1, 11, 1, 21);
  AddReceipt(9, 9, 9, 21, 31);
  AddIssue(21, 41);
  Fetch();
  EXPECT_EQ(Walk(),
            (Lines{"order 1/11", "task 21", "receipt 31", "issue 41", "task 21", "receipt 31", "issue 41",
                   "item 1/11 台灯11(小计)", "all 1/11 SEORD1(小计)", "total 1/11 合计"}));
}

TEST_F(Rpt192Merge, TakesATaskOfNumberZeroLikeAnyOther) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 0);
  AddReceipt(9, 9, 9, 0, 31);
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "task 0", "receipt 31", "item 1/11 台灯11(小计)",
                           "all 1/11 SEORD1(小计)", "total 1/11 合计"}));
}

TEST_F(Rpt192Merge, GathersTheMeasuresOfItemOrderAndAll) {
  GiveOneLine();
  AddOrder(1, 12, 2);
  AddReceipt(1, 12, 2, 0, 33, {{"FQty", 1.0}, {"FCUUnitQty", 0.5}, {"FAmount", 7.5}});
  AddOrder(2, 12, 1);
  AddTask(2, 12, 1, 22, {{"FWorkBillQty", 2.0}});
  AddIssue(22, 42, {{"FQty", -1.0}, {"FCUUnitQty", -0.5}, {"FAmount", -2.25}});
  Fetch();
  EXPECT_EQ(MeasuresOf("item"), (Lines{"10 5 100 8 8 4 56 3 1.5 6", "10 5 100 0 1 0.5 7.5 0 0 0",
                                       "10 5 100 2 0 0 0 -1 -0.5 -2.25"}));
  EXPECT_EQ(MeasuresOf("all"), (Lines{"20 10 200 8 9 4.5 63.5 3 1.5 6", "10 5 100 2 0 0 0 -1 -0.5 -2.25"}));
  EXPECT_EQ(MeasuresOf("total"), (Lines{"30 15 300 10 9 4.5 63.5 2 1 3.75"}));
}

// --- Empty sets

TEST_F(Rpt192Merge, GivesAnEmptyGridWithoutOrdersEvenWhereTheOtherSetsHaveRows) {
  AddReceipt(1, 11, 1, 21, 31);
  AddTask(1, 11, 1, 21);
  AddIssue(21, 41);
  Fetch();
  ASSERT_TRUE(HasRows());
  EXPECT_EQ(Rs()->RecordCount(), 0);
  EXPECT_EQ(Rs()->FieldCount(), 50);
  EXPECT_EQ(ColumnLines().size(), 41U);
}

TEST_F(Rpt192Merge, GivesAnEmptyGridWhereAllSetsAreEmpty) {
  Fetch({{"DisplayType", std::int32_t{1}}});
  ASSERT_TRUE(HasRows());
  EXPECT_EQ(Rs()->RecordCount(), 0);
}

TEST_F(Rpt192Merge, GivesOrdersWithNothingTiedToThem) {
  AddOrder(1, 11, 1);
  Fetch();
  EXPECT_EQ(MeasuresOf("total"), (Lines{"10 5 100 0 0 0 0 0 0 0"}));
}

// --- Subtotals hidden

TEST_F(Rpt192Merge, HidesBothKindsOfSubtotalsAndKeepsTheTotal) {
  GiveOneLine();
  AddOrder(1, 12, 2);
  AddOrder(2, 12, 1);
  Fetch({{"DisplayType", std::int32_t{1}}});
  EXPECT_EQ(Rs()->Filter(), " FSumSort <>102 ");
  EXPECT_EQ(Rs()->RecordCount(), 8);
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "receipt 31", "task 21", "receipt 32", "issue 41", "order 1/12",
                           "order 2/12", "total 2/12 合计"}));
  Rs()->SetFilter("");
  EXPECT_EQ(Rs()->RecordCount(), 13) << "hidden, not left out";
}

TEST_F(Rpt192Merge, HidesSubtotalsWhereTheDisplayIsGivenAsText) {
  AddOrder(1, 11, 1);
  Fetch({{"DisplayType", "1"}});
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "total 1/11 合计"}));
}

TEST_F(Rpt192Merge, ShowsSubtotalsUnderEveryOtherDisplay) {
  AddOrder(1, 11, 1);
  for (const Variant& display : {Variant(), Variant(std::int32_t{0}), Variant(std::int32_t{2})}) {
    Fetch({{"DisplayType", display}});
    EXPECT_EQ(Rs()->Filter(), "");
    EXPECT_EQ(Rs()->RecordCount(), 4);
  }
}

// --- Fetched again

TEST_F(Rpt192Merge, BeginsEachFetchWithTotalsOfZero) {
  GiveOneLine();
  Fetch();
  const std::vector<GridRow> first = Grid();
  const ObjectRef rows = Rs();
  ClearSets();
  GiveOneLine();
  Call(Report(), "Refresh");
  EXPECT_TRUE(Ok()) << Error();
  EXPECT_NE(ObjectRef(Rs()), rows);
  EXPECT_EQ(Grid(), first);
}

TEST_F(Rpt192Merge, BeginsAnewAfterAFetchThatBrokeOffHalfWay) {
  AddOrder(1, 11, 1);
  AddOrder(2, 11, 1, {{"FQty", Null()}});
  Run();
  ExpectFailedFetch();
  ClearSets();
  AddOrder(3, 12, 1);
  Fetch();
  EXPECT_EQ(Walk(),
            (Lines{"order 3/12", "item 3/12 台灯12(小计)", "all 3/12 SEORD3(小计)", "total 3/12 合计"}));
  EXPECT_EQ(MeasuresOf("total"), (Lines{"10 5 100 0 0 0 0 0 0 0"}));
}

}  // namespace
}  // namespace salerpt::testing
