#include "suite/middletier/recordset_sink.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tests/runtime/error_check.h"

namespace salerpt::middletier {
namespace {

using tsql::Column;
using tsql::TypeKind;
using tsql::Value;

void PourRow(RecordsetSink& sink, const std::vector<Column>& columns, const std::vector<Value>& cells) {
  sink.BeginRows(columns);
  sink.Row(cells);
  sink.EndRows();
}

TEST(RecordsetSink, KeepsTheTypesThatARowSetKnows) {
  RecordsetSink sink;
  sink.BeginRows(std::vector<Column>{{"a", tsql::IntegerType(TypeKind::kBit)},
                                     {"b", tsql::IntegerType(TypeKind::kTinyInt)},
                                     {"c", tsql::IntegerType(TypeKind::kSmallInt)},
                                     {"d", tsql::IntegerType()},
                                     {"e", tsql::IntegerType(TypeKind::kBigInt)},
                                     {"f", tsql::DecimalType(23, 10)},
                                     {"g", tsql::SimpleType(TypeKind::kMoney)},
                                     {"h", tsql::SimpleType(TypeKind::kFloat)},
                                     {"i", tsql::SimpleType(TypeKind::kDateTime)},
                                     {"j", tsql::TextType(30)},
                                     {"k", tsql::TextType(0, TypeKind::kNVarChar)}});
  sink.EndRows();
  const RecordsetRef rows = sink.Take();
  const std::vector<FieldType> expected{FieldType::kBoolean,  FieldType::kSmallInt, FieldType::kSmallInt,
                                        FieldType::kInteger,  FieldType::kNumeric,  FieldType::kNumeric,
                                        FieldType::kCurrency, FieldType::kDouble,   FieldType::kTimestamp,
                                        FieldType::kVarChar,  FieldType::kVarChar};
  ASSERT_EQ(rows->FieldCount(), 11);
  for (int i = 0; i < 11; ++i) EXPECT_EQ(rows->Field(i).type, expected[static_cast<std::size_t>(i)]) << i;
  EXPECT_EQ(rows->Field(9).size, 30);
  EXPECT_EQ(rows->RecordCount(), 0);
}

TEST(RecordsetSink, PoursEachKindOfValue) {
  RecordsetSink sink;
  PourRow(sink,
          {{"FFlag", tsql::IntegerType(TypeKind::kBit)},
           {"FID", tsql::IntegerType()},
           {"FCount", tsql::IntegerType(TypeKind::kBigInt)},
           {"FQty", tsql::DecimalType(23, 10)},
           {"FMoney", tsql::SimpleType(TypeKind::kMoney)},
           {"FDate", tsql::SimpleType(TypeKind::kDateTime)},
           {"FName", tsql::TextType(30)}},
          {Value(std::int64_t{1}), Value(std::int64_t{-7}), Value(std::int64_t{3'000'000'000}), Value(2.5),
           Value(0.1), Value(std::string_view("2024-03-31 18:30:00")), Value(std::string_view("螺栓"))});
  const RecordsetRef rows = sink.Take();
  EXPECT_EQ(rows->Value("FFlag"), Variant(true));
  EXPECT_EQ(rows->Value("FID"), Variant(-7));
  EXPECT_EQ(rows->Value("FCount"), Variant(3e9));
  EXPECT_EQ(rows->Value("FQty"), Variant(2.5));
  EXPECT_EQ(rows->Value("FMoney"), Variant(Currency::FromScaled(1000)));
  EXPECT_EQ(rows->Value("FDate"), Variant(Date::FromYmd(2024, 3, 31, 18, 30)));
  EXPECT_EQ(rows->Value("FName"), Variant("螺栓"));
}

TEST(RecordsetSink, LeavesNullsNull) {
  RecordsetSink sink;
  PourRow(sink, {{"FID", tsql::IntegerType()}, {"FName", tsql::TextType(30)}}, {Value(), Value()});
  const RecordsetRef rows = sink.Take();
  EXPECT_TRUE(rows->Value("FID").IsNull());
  EXPECT_TRUE(rows->Value("FName").IsNull());
}

TEST(RecordsetSink, GivesTheRowsOfTheLastSelect) {
  RecordsetSink sink;
  PourRow(sink, {{"FFirst", tsql::IntegerType()}}, {Value(std::int64_t{1})});
  PourRow(sink, {{"FSecond", tsql::IntegerType()}}, {Value(std::int64_t{2})});
  const RecordsetRef rows = sink.Take();
  ASSERT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Value("FSecond"), Variant(2));
}

TEST(RecordsetSink, StandsOnTheFirstRow) {
  RecordsetSink sink;
  sink.BeginRows(std::vector<Column>{{"FID", tsql::IntegerType()}});
  for (const std::int64_t id : {1, 2, 3}) sink.Row(std::vector<Value>{Value(id)});
  sink.EndRows();
  EXPECT_EQ(sink.Take()->Value("FID"), Variant(1));
}

TEST(RecordsetSink, TellsColumnsWithoutANameAndOfOneNameApartByTheirPlace) {
  RecordsetSink sink;
  PourRow(sink,
          {{"", tsql::IntegerType()},
           {"", tsql::IntegerType()},
           {"a", tsql::IntegerType()},
           {"a", tsql::IntegerType()}},
          {Value(std::int64_t{1}), Value(std::int64_t{2}), Value(std::int64_t{3}), Value(std::int64_t{4})});
  const RecordsetRef rows = sink.Take();
  EXPECT_EQ(rows->Value("Column1"), Variant(1));
  EXPECT_EQ(rows->Value("Column2"), Variant(2));
  EXPECT_EQ(rows->Value("a"), Variant(3));
  EXPECT_EQ(rows->Value("a_4"), Variant(4));
}

TEST(DateOfEngine, ReadsDaysTimesAndMilliseconds) {
  EXPECT_EQ(DateOfEngine("2024-02-29"), Date::FromYmd(2024, 2, 29));
  EXPECT_EQ(DateOfEngine("2024-02-29 00:00:00"), Date::FromYmd(2024, 2, 29));
  EXPECT_DOUBLE_EQ(DateOfEngine("2024-02-29 12:00:00.500").Serial(),
                   Date::FromYmd(2024, 2, 29, 12).Serial() + 0.5 / 86400);
}

TEST(DateOfEngine, NamesATextThatIsNoDate) {
  for (const char* text : {"", "soon", "2024-02", "2024-02-29 1", "2024-0x-01 00:00:00"}) {
    EXPECT_THAT(DescriptionRaisedBy([&] { DateOfEngine(text); }), testing::HasSubstr(text));
  }
}

}  // namespace
}  // namespace salerpt::middletier
