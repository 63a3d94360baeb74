// The batch tracking builds its grid itself: the fields, and each kind of row field by field.
#include <gtest/gtest.h>

#include "tests/reports/rpt192_world.h"

namespace salerpt::testing {
namespace {

class Rpt192Rows : public Rpt192World {
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

// --- Fields

TEST_F(Rpt192Rows, HaveTheirFieldsInTheirOrder) {
  Fetch();
  Lines fields;
  const RecordsetRef rows = Rs();
  for (int i = 0; i < rows->FieldCount(); ++i) {
    fields.push_back(rows->Field(i).name + " " + std::to_string(static_cast<int>(rows->Field(i).type)));
  }
  // 3 is a 32-bit integer, 5 a double, 7 a date, 200 a text.
  EXPECT_EQ(fields, (Lines{"FInterID 3",
                           "FTranType 3",
                           "FBillNo 200",
                           "FItemID 3",
                           "FDate 7",
                           "FCustNumber 200",
                           "FCustShortNumber 200",
                           "FCustName 200",
                           "FOrderBillNo 200",
                           "FNumber 200",
                           "FShortNumber 200",
                           "FName 200",
                           "FModel 200",
                           "FBOM 200",
                           "FUnitName 200",
                           "FQty 5",
                           "FPrice 5",
                           "FCUUnitName 200",
                           "FCUUnitQty 5",
                           "FCUUnitPrice 5",
                           "FAmount 5",
                           "FWorkBillNo 200",
                           "FWorkBillQty 5",
                           "FInBillNo 200",
                           "FBatchNo 200",
                           "FKFDate 200",
                           "FKFPeriod 3",
                           "FQty2 5",
                           "FPrice2 5",
                           "FCUUnitQty2 5",
                           "FCUUnitPrice2 5",
                           "FInAmount 5",
                           "FOutBillNo 200",
                           "FWorkShop 200",
                           "FNumber2 200",
                           "FShortNumber2 200",
                           "FName2 200",
                           "FModel2 200",
                           "FBatchNo2 200",
                           "FKFDate2 200",
                           "FKFPeriod2 3",
                           "FUnitName3 200",
                           "FQty3 5",
                           "FPrice3 5",
                           "FCUUnitName3 200",
                           "FCUUnitQty3 5",
                           "FCUUnitPrice3 5",
                           "FOutAmount 5",
                           "FSumSort 3",
                           "FAuxPropName 200"}));
}

TEST_F(Rpt192Rows, HoldTextsOf355CharactersAndOtherValuesWithoutASize) {
  Fetch();
  const RecordsetRef rows = Rs();
  Lines others;
  for (int i = 0; i < rows->FieldCount(); ++i) {
    const FieldInfo& field = rows->Field(i);
    const int size = field.type == FieldType::kVarChar ? 355 : 0;
    if (field.size != size) others.push_back(field.name + " " + std::to_string(field.size));
  }
  EXPECT_EQ(others, Lines{});
}

// --- The rows of one line, field by field; what is not named is null

TEST_F(Rpt192Rows, WritesTheOrderLine) {
  AddOrder(1, 11, 1);
  Fetch();
  EXPECT_EQ(First("order"), (GridRow{{"FInterID", "long 1"},          {"FTranType", "long 81"},
                                     {"FBillNo", "text SEORD1"},      {"FItemID", "long 11"},
                                     {"FOrderBillNo", "text SEORD1"}, {"FDate", "date 2003-07-15"},
                                     {"FCustNumber", "text 01.001"},  {"FCustShortNumber", "text 001"},
                                     {"FCustName", "text 东方商厦"},  {"FNumber", "text 02.11"},
                                     {"FShortNumber", "text 11"},     {"FName", "text 台灯11"},
                                     {"FModel", "text TD-40"},        {"FBOM", "text BOM-7"},
                                     {"FUnitName", "text 只"},        {"FQty", "double 10"},
                                     {"FPrice", "double 10"},         {"FCUUnitName", "text 对"},
                                     {"FCUUnitQty", "double 5"},      {"FCUUnitPrice", "double 20"},
                                     {"FAmount", "double 100"},       {"FAuxPropName", "text 红色"},
                                     {"FSumSort", "long 0"}}));
}

TEST_F(Rpt192Rows, WritesAReceiptOfTheOrderLine) {
  AddOrder(1, 11, 1);
  AddReceipt(1, 11, 1, 0, 31);
  Fetch();
  EXPECT_EQ(First("receipt"), (GridRow{{"FInterID", "long 31"},
                                       {"FTranType", "long 2"},
                                       {"FBillNo", "text CIN31"},
                                       {"FInBillNo", "text CIN31"},
                                       {"FBatchNo", "text B0307"},
                                       {"FKFDate", "text 2003-07-20"},
                                       {"FKFPeriod", "long 90"},
                                       {"FQty2", "double 4"},
                                       {"FPrice2", "double 7"},
                                       {"FCUUnitQty2", "double 2"},
                                       {"FCUUnitPrice2", "double 14"},
                                       {"FInAmount", "double 28"},
                                       {"FSumSort", "long 0"}}));
}

TEST_F(Rpt192Rows, WritesATask) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21);
  Fetch();
  EXPECT_EQ(First("task"), (GridRow{{"FInterID", "long 21"},
                                    {"FTranType", "long 85"},
                                    {"FBillNo", "text WORK21"},
                                    {"FWorkBillNo", "text WORK21"},
                                    {"FWorkBillQty", "double 8"},
                                    {"FSumSort", "long 0"}}));
}

TEST_F(Rpt192Rows, WritesAReceiptOfATaskLikeOneOfTheOrderLine) {
  AddOrder(1, 11, 1);
  AddReceipt(1, 11, 1, 0, 31);
  Fetch();
  const GridRow of_the_line = First("receipt");
  ClearSets();
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21);
  AddReceipt(9, 9, 9, 21, 31);
  Fetch();
  EXPECT_EQ(First("receipt"), of_the_line);
}

TEST_F(Rpt192Rows, WritesAnIssueOfATask) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21);
  AddIssue(21, 41);
  Fetch();
  EXPECT_EQ(
      First("issue"),
      (GridRow{{"FInterID", "long 41"},       {"FTranType", "long 24"},        {"FBillNo", "text SOUT41"},
               {"FOutBillNo", "text SOUT41"}, {"FWorkShop", "text 一车间"},    {"FNumber2", "text 05.01"},
               {"FShortNumber2", "text 01"},  {"FName2", "text 电线"},         {"FModel2", "text 2x0.5"},
               {"FBatchNo2", "text M0306"},   {"FKFDate2", "text 2003-06-01"}, {"FKFPeriod2", "long 365"},
               {"FUnitName3", "text 米"},     {"FQty3", "double 3"},           {"FPrice3", "double 2"},
               {"FCUUnitName3", "text 卷"},   {"FCUUnitQty3", "double 1.5"},   {"FCUUnitPrice3", "double 4"},
               {"FOutAmount", "double 6"},    {"FSumSort", "long 0"}}));
}

TEST_F(Rpt192Rows, ClosesTheLastItemAndOrderAndEndsWithTheTotal) {
  GiveOneLine();
  Fetch();
  const std::vector<GridRow> grid = Grid();
  ASSERT_EQ(grid.size(), 8U);
  GridRow item{{"FQty", "double 10"},        {"FCUUnitQty", "double 5"}, {"FAmount", "double 100"},
               {"FWorkBillQty", "double 8"}, {"FQty2", "double 8"},      {"FCUUnitQty2", "double 4"},
               {"FInAmount", "double 56"},   {"FQty3", "double 3"},      {"FCUUnitQty3", "double 1.5"},
               {"FOutAmount", "double 6"},   {"FInterID", "long 1"},     {"FItemID", "long 11"}};
  GridRow order = item;
  GridRow total = item;
  item.insert({{"FName", "text 台灯11(小计)"}, {"FSumSort", "long 102"}});
  order.insert({{"FOrderBillNo", "text SEORD1(小计)"}, {"FSumSort", "long 102"}});
  total.insert({{"FOrderBillNo", "text 合计"}, {"FSumSort", "long 101"}});
  EXPECT_EQ(grid[5], item);
  EXPECT_EQ(grid[6], order);
  EXPECT_EQ(grid[7], total);
}

}  // namespace
}  // namespace salerpt::testing
