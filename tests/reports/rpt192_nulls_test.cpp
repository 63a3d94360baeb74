// The batch tracking and what a source row leaves open: texts that become empty, values that stay null,
// measures that must not be, and fields that are not there or of another type.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "tests/reports/rpt192_world.h"

namespace salerpt::testing {
namespace {

enum class Source { kOrder, kTask, kReceiptOfLine, kReceiptOfTask, kIssue };

// A source field that is null, and what stands in the grid for it: "null" or kind and value.
struct OpenValue {
  Source source;
  const char* field;
  const char* grid_field;
  const char* expected;
};

std::string NameOf(Source source) {
  const char* names[] = {"Order", "Task", "ReceiptOfLine", "ReceiptOfTask", "Issue"};
  return names[static_cast<std::size_t>(source)];
}
std::string OpenValueName(const ::testing::TestParamInfo<OpenValue>& info) {
  return NameOf(info.param.source) + "_" + info.param.field + "_as_" + info.param.grid_field;
}

class Rpt192SourceWorld : public Rpt192World {
 protected:
  // One line with one row of each kind; the row of `source` gets `more`.
  void Give(Source source, Entries more) {
    const auto of = [&](Source one) { return one == source ? more : Entries{}; };
    AddOrder(1, 11, 1, of(Source::kOrder));
    AddReceipt(1, 11, 1, 0, 31, of(Source::kReceiptOfLine));
    AddTask(1, 11, 1, 21, of(Source::kTask));
    AddReceipt(9, 9, 9, 21, 32, of(Source::kReceiptOfTask));
    AddIssue(21, 41, of(Source::kIssue));
  }
  GridRow RowOf(Source source) {
    const std::vector<GridRow> grid = Grid();
    const std::size_t places[] = {0, 2, 1, 3, 4};
    const std::size_t place = places[static_cast<std::size_t>(source)];
    if (place < grid.size()) return grid[place];
    ADD_FAILURE() << "the grid has only " << grid.size() << " rows";
    return {};
  }
  RecordsetRef& SetOf(Source source) {
    switch (source) {
      case Source::kOrder:
        return orders_;
      case Source::kTask:
        return tasks_;
      case Source::kReceiptOfLine:
      case Source::kReceiptOfTask:
        return receipts_;
      case Source::kIssue:
        break;
    }
    return issues_;
  }
  static SourceFields FieldsOf(Source source) {
    switch (source) {
      case Source::kOrder:
        return OrderFields();
      case Source::kTask:
        return TaskFields();
      case Source::kReceiptOfLine:
      case Source::kReceiptOfTask:
        return ReceiptFields();
      case Source::kIssue:
        break;
    }
    return IssueFields();
  }
};

// --- Nulls that pass

class Rpt192OpenValue : public Rpt192SourceWorld, public ::testing::WithParamInterface<OpenValue> {};

TEST_P(Rpt192OpenValue, StandsInTheGridAsItShould) {
  Give(GetParam().source, {{GetParam().field, Null()}});
  Fetch();
  const GridRow row = RowOf(GetParam().source);
  const auto found = row.find(GetParam().grid_field);
  EXPECT_EQ(found == row.end() ? "null" : found->second, GetParam().expected);
}

constexpr OpenValue kOpenValues[] = {
    {Source::kOrder, "FCustNumber", "FCustNumber", "text "},
    {Source::kOrder, "FCustShortNumber", "FCustShortNumber", "text "},
    {Source::kOrder, "FCustName", "FCustName", "text "},
    {Source::kOrder, "FModel", "FModel", "text "},
    {Source::kOrder, "FBom", "FBOM", "text "},
    {Source::kOrder, "FAuxPropName", "FAuxPropName", "text "},
    {Source::kOrder, "FTranType", "FTranType", "null"},
    {Source::kOrder, "FDate", "FDate", "null"},
    {Source::kOrder, "FNumber", "FNumber", "null"},
    {Source::kOrder, "FShortNumber", "FShortNumber", "null"},
    {Source::kOrder, "FUnitName", "FUnitName", "null"},
    {Source::kOrder, "FPrice", "FPrice", "null"},
    {Source::kOrder, "FCUUnitName", "FCUUnitName", "null"},
    {Source::kOrder, "FCUUnitPrice", "FCUUnitPrice", "null"},
    {Source::kTask, "FTranType", "FTranType", "null"},
    {Source::kReceiptOfLine, "FInBillNo", "FInBillNo", "text "},
    {Source::kReceiptOfLine, "FInBillNo", "FBillNo", "text "},
    {Source::kReceiptOfLine, "FBatchNo", "FBatchNo", "text "},
    {Source::kReceiptOfLine, "FKFDate", "FKFDate", "text "},
    {Source::kReceiptOfLine, "FInStockInterID", "FInterID", "null"},
    {Source::kReceiptOfLine, "FTranType", "FTranType", "null"},
    {Source::kReceiptOfLine, "FKFPeriod", "FKFPeriod", "null"},
    {Source::kReceiptOfLine, "FPrice", "FPrice2", "null"},
    {Source::kReceiptOfLine, "FCUUnitPrice", "FCUUnitPrice2", "null"},
    {Source::kReceiptOfTask, "FInBillNo", "FInBillNo", "text "},
    {Source::kReceiptOfTask, "FInBillNo", "FBillNo", "text "},
    {Source::kReceiptOfTask, "FBatchNo", "FBatchNo", "text "},
    {Source::kReceiptOfTask, "FKFDate", "FKFDate", "text "},
    {Source::kReceiptOfTask, "FKFPeriod", "FKFPeriod", "null"},
    {Source::kReceiptOfTask, "FPrice", "FPrice2", "null"},
    {Source::kIssue, "FOutBillNo", "FOutBillNo", "text "},
    {Source::kIssue, "FOutBillNo", "FBillNo", "text "},
    {Source::kIssue, "FWorkShop", "FWorkShop", "text "},
    {Source::kIssue, "FModel", "FModel2", "text "},
    {Source::kIssue, "FBatchNo", "FBatchNo2", "text "},
    {Source::kIssue, "FKFDate", "FKFDate2", "text "},
    {Source::kIssue, "FCUUnitName", "FCUUnitName3", "text "},
    {Source::kIssue, "FCUUnitQty", "FCUUnitQty3", "double 0"},
    {Source::kIssue, "FCUUnitPrice", "FCUUnitPrice3", "double 0"},
    {Source::kIssue, "FOutStockInterID", "FInterID", "null"},
    {Source::kIssue, "FTranType", "FTranType", "null"},
    {Source::kIssue, "FNumber", "FNumber2", "null"},
    {Source::kIssue, "FShortNumber", "FShortNumber2", "null"},
    {Source::kIssue, "FName", "FName2", "null"},
    {Source::kIssue, "FKFPeriod", "FKFPeriod2", "null"},
    {Source::kIssue, "FUnitName", "FUnitName3", "null"},
    {Source::kIssue, "FPrice", "FPrice3", "null"},
};
INSTANTIATE_TEST_SUITE_P(Values, Rpt192OpenValue, ::testing::ValuesIn(kOpenValues), OpenValueName);

using Rpt192Nulls = Rpt192SourceWorld;

TEST_F(Rpt192Nulls, CountAnIssueWithoutACommonQuantityAsZero) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21);
  AddIssue(21, 41, {{"FCUUnitQty", Null()}});
  AddIssue(21, 42);
  Fetch();
  EXPECT_EQ(MeasuresOf("item"), (Lines{"10 5 100 8 0 0 0 6 1.5 12"}));
  EXPECT_EQ(MeasuresOf("total"), (Lines{"10 5 100 8 0 0 0 6 1.5 12"}));
}

TEST_F(Rpt192Nulls, OfATasksNumberStayNull) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21, {{"FWorkBillNo", Null()}});
  Fetch();
  const std::vector<GridRow> grid = Grid();
  ASSERT_EQ(grid.size(), 5U);
  EXPECT_EQ(grid[1], (GridRow{{"FInterID", "long 21"},
                              {"FTranType", "long 85"},
                              {"FWorkBillQty", "double 8"},
                              {"FSumSort", "long 0"}}));
}

TEST_F(Rpt192Nulls, InTheKeysOfAReceiptTieItToNothing) {
  AddOrder(1, 11, 1);
  AddTask(1, 11, 1, 21);
  AddReceipt(1, 11, 1, 0, 31, {{"FOrderEntryID", Null()}, {"FWorkInterID", Null()}});
  AddIssue(21, 41, {{"FWorkInterID", Null()}});
  Fetch();
  EXPECT_EQ(Walk(), (Lines{"order 1/11", "task 21", "item 1/11 台灯11(小计)", "all 1/11 SEORD1(小计)",
                           "total 1/11 合计"}));
}

TEST_F(Rpt192Nulls, InARowThatNoFilterFindsDoNoHarm) {
  AddOrder(1, 11, 1);
  AddReceipt(2, 11, 1, 7, 31, {{"FQty", Null()}});
  AddTask(2, 11, 1, 22, {{"FWorkBillQty", Null()}});
  AddIssue(22, 41, {{"FAmount", Null()}});
  Fetch();
  EXPECT_EQ(Rs()->RecordCount(), 4);
}

// --- Nulls that fail

struct SourceFieldName {
  Source source;
  const char* field;
};
std::string FieldName(const ::testing::TestParamInfo<SourceFieldName>& info) {
  return NameOf(info.param.source) + "_" + info.param.field;
}

class Rpt192NullMeasure : public Rpt192SourceWorld, public ::testing::WithParamInterface<SourceFieldName> {};

TEST_P(Rpt192NullMeasure, FailsTheFetch) {
  Give(GetParam().source, {{GetParam().field, Null()}});
  Run();
  ExpectFailedFetch();
}

constexpr SourceFieldName kMeasureFields[] = {
    {Source::kOrder, "FQty"},
    {Source::kOrder, "FCUUnitQty"},
    {Source::kOrder, "FAmount"},
    {Source::kTask, "FWorkBillQty"},
    {Source::kReceiptOfLine, "FQty"},
    {Source::kReceiptOfLine, "FCUUnitQty"},
    {Source::kReceiptOfLine, "FAmount"},
    {Source::kReceiptOfTask, "FQty"},
    {Source::kReceiptOfTask, "FCUUnitQty"},
    {Source::kReceiptOfTask, "FAmount"},
    {Source::kIssue, "FQty"},
    {Source::kIssue, "FAmount"},
};
INSTANTIATE_TEST_SUITE_P(Measures, Rpt192NullMeasure, ::testing::ValuesIn(kMeasureFields), FieldName);

// --- Fields that the middle tier forgets

class Rpt192MissingField : public Rpt192SourceWorld, public ::testing::WithParamInterface<SourceFieldName> {};

TEST_P(Rpt192MissingField, FailsTheFetchByName) {
  SetOf(GetParam().source) = NewSet(FieldsOf(GetParam().source), GetParam().field);
  Give(GetParam().source, {});
  Run();
  ExpectFailedFetch();
  const auto is_like = [](char a, char b) { return std::toupper(a) == std::toupper(b); };
  const std::string error = Error();
  const std::string_view field = GetParam().field;
  EXPECT_NE(std::search(error.begin(), error.end(), field.begin(), field.end(), is_like), error.end())
      << error;
}

constexpr SourceFieldName kNeededFields[] = {
    {Source::kOrder, "FOrderInterID"},
    {Source::kOrder, "FOrderEntryID"},
    {Source::kOrder, "FTranType"},
    {Source::kOrder, "FOrderBillNo"},
    {Source::kOrder, "FItemID"},
    {Source::kOrder, "FDate"},
    {Source::kOrder, "FCustNumber"},
    {Source::kOrder, "FCustShortNumber"},
    {Source::kOrder, "FCustName"},
    {Source::kOrder, "FNumber"},
    {Source::kOrder, "FShortNumber"},
    {Source::kOrder, "FName"},
    {Source::kOrder, "FModel"},
    {Source::kOrder, "FBom"},
    {Source::kOrder, "FUnitName"},
    {Source::kOrder, "FQty"},
    {Source::kOrder, "FPrice"},
    {Source::kOrder, "FCUUnitName"},
    {Source::kOrder, "FCUUnitQty"},
    {Source::kOrder, "FCUUnitPrice"},
    {Source::kOrder, "FAmount"},
    {Source::kOrder, "FAuxPropName"},
    {Source::kTask, "FOrderInterID"},
    {Source::kTask, "FItemID"},
    {Source::kTask, "FOrderEntryID"},
    {Source::kTask, "FWorkInterID"},
    {Source::kTask, "FTranType"},
    {Source::kTask, "FWorkBillNo"},
    {Source::kTask, "FWorkBillQty"},
    {Source::kReceiptOfLine, "FOrderInterID"},
    {Source::kReceiptOfLine, "FItemID"},
    {Source::kReceiptOfLine, "FOrderEntryID"},
    {Source::kReceiptOfLine, "FWorkInterID"},
    {Source::kReceiptOfLine, "FInStockInterID"},
    {Source::kReceiptOfLine, "FTranType"},
    {Source::kReceiptOfLine, "FInBillNo"},
    {Source::kReceiptOfLine, "FBatchNo"},
    {Source::kReceiptOfLine, "FKFDate"},
    {Source::kReceiptOfLine, "FKFPeriod"},
    {Source::kReceiptOfLine, "FQty"},
    {Source::kReceiptOfLine, "FPrice"},
    {Source::kReceiptOfLine, "FCUUnitQty"},
    {Source::kReceiptOfLine, "FCUUnitPrice"},
    {Source::kReceiptOfLine, "FAmount"},
    {Source::kIssue, "FWorkInterID"},
    {Source::kIssue, "FOutStockInterID"},
    {Source::kIssue, "FTranType"},
    {Source::kIssue, "FOutBillNo"},
    {Source::kIssue, "FWorkShop"},
    {Source::kIssue, "FNumber"},
    {Source::kIssue, "FShortNumber"},
    {Source::kIssue, "FName"},
    {Source::kIssue, "FModel"},
    {Source::kIssue, "FBatchNo"},
    {Source::kIssue, "FKFDate"},
    {Source::kIssue, "FKFPeriod"},
    {Source::kIssue, "FUnitName"},
    {Source::kIssue, "FQty"},
    {Source::kIssue, "FPrice"},
    {Source::kIssue, "FCUUnitName"},
    {Source::kIssue, "FCUUnitQty"},
    {Source::kIssue, "FCUUnitPrice"},
    {Source::kIssue, "FAmount"},
};
INSTANTIATE_TEST_SUITE_P(Fields, Rpt192MissingField, ::testing::ValuesIn(kNeededFields), FieldName);

// --- Fields of another type or spelling

using Rpt192Source = Rpt192World;

TEST_F(Rpt192Source, IsReadWithoutRegardToTheCaseOfItsFields) {
  SourceFields fields = OrderFields();
  for (SourceField& field : fields) {
    if (field.name == "FBom") field.name = "FBOM";
    if (field.name == "FOrderInterID") field.name = "forderinterid";
  }
  orders_ = NewSet(fields);
  AddOrder(1, 11, 1);
  Fetch();
  EXPECT_EQ(First("order").at("FBOM"), "text BOM-7");
  EXPECT_EQ(First("order").at("FInterID"), "long 1");
}

TEST_F(Rpt192Source, MayHoldAmountsQuantitiesAndDatesInTheServersTypes) {
  SourceFields fields = OrderFields();
  for (SourceField& field : fields) {
    if (field.name == "FAmount") field.type = FieldType::kCurrency;
    if (field.name == "FQty" || field.name == "FPrice") field.type = FieldType::kNumeric;
    if (field.name == "FDate") field.type = FieldType::kTimestamp;
  }
  orders_ = NewSet(fields);
  AddOrder(1, 11, 1, {{"FAmount", Currency::FromDouble(100.25)}, {"FQty", 2.5}});
  Fetch();
  const GridRow order = First("order");
  EXPECT_EQ(order.at("FAmount"), "double 100.25");
  EXPECT_EQ(order.at("FQty"), "double 2.5");
  EXPECT_EQ(order.at("FDate"), "date 2003-07-15");
  EXPECT_EQ(First("total").at("FAmount"), "double 100.25");
}

}  // namespace
}  // namespace salerpt::testing
