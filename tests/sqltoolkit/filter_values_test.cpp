// Conditions as reports read them from a filter.
#include "sqltoolkit/filter_values.h"

#include <gtest/gtest.h>

#include <memory>

#include "runtime/runtime.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

const Dictionary& Filter() {
  static const Dictionary filter{{"Text", "01.02"},
                                 {"Null", Null()},
                                 {"Blank", ""},
                                 {"Whole", std::int32_t{12}},
                                 {"Double", 12.0},
                                 {"Broken", 2.5},
                                 {"NumberText", " 7"},
                                 {"Word", "abc"},
                                 {"Date", Date(37803.0)},
                                 {"DateText", "2003-7-1"},
                                 {"Evening", Date(37803.75)}};
  return filter;
}

TEST(FilterText, GivesTextsAndNumbersInPlainDigits) {
  EXPECT_EQ(FilterText(Filter(), "Text"), "01.02");
  EXPECT_EQ(FilterText(Filter(), "Whole"), "12");
  EXPECT_EQ(FilterText(Filter(), "Double"), "12");
}

TEST(FilterText, IsEmptyForAnAbsentOrNullKey) {
  EXPECT_EQ(FilterText(Filter(), "NoSuchKey"), "");
  EXPECT_EQ(FilterText(Filter(), "Null"), "");
}

TEST(FilterText, KnowsAKeyInAnyCase) {
  EXPECT_EQ(FilterText(Filter(), "TEXT"), "01.02");
}

TEST(FilterNumber, ReadsNumbersAndNumberTexts) {
  EXPECT_EQ(FilterNumber(Filter(), "Whole"), 12);
  EXPECT_EQ(FilterNumber(Filter(), "Broken"), 2.5);
  EXPECT_EQ(FilterNumber(Filter(), "NumberText"), 7);
}

TEST(FilterNumber, ReadsAnAbsentKeyAsZero) {
  EXPECT_EQ(FilterNumber(Filter(), "NoSuchKey"), 0);
  EXPECT_EQ(FilterNumber(Filter(), "Null"), 0);
  EXPECT_EQ(FilterNumber(Filter(), "Blank"), 0);
}

TEST(FilterNumber, RefusesATextThatIsNoNumberByName) {
  EXPECT_EQ(NumberRaisedBy([] { FilterNumber(Filter(), "Word"); }), error_number::kTypeMismatch);
  const std::string description = DescriptionRaisedBy([] { FilterNumber(Filter(), "Word"); });
  EXPECT_NE(description.find("Word"), std::string::npos) << description;
  EXPECT_NE(description.find("abc"), std::string::npos) << description;
}

TEST(FilterInt, GivesAWholeNumber) {
  EXPECT_EQ(FilterInt(Filter(), "Double"), 12);
  EXPECT_EQ(FilterInt(Filter(), "NoSuchKey"), 0);
}

TEST(FilterDay, WritesTheDayWithSlashes) {
  EXPECT_EQ(FilterDay(Filter(), "Date"), "2003/07/01");
  EXPECT_EQ(FilterDay(Filter(), "DateText"), "2003/07/01");
}

TEST(FilterDay, DropsTheTimeOfDay) {
  EXPECT_EQ(FilterDay(Filter(), "Evening"), "2003/07/01");
}

TEST(FilterDay, IsEmptyForAnAbsentKey) {
  EXPECT_EQ(FilterDay(Filter(), "NoSuchKey"), "");
  EXPECT_EQ(FilterDay(Filter(), "Blank"), "");
}

TEST(FilterDay, RefusesATextThatIsNoDateByName) {
  EXPECT_EQ(NumberRaisedBy([] { FilterDay(Filter(), "Word"); }), error_number::kTypeMismatch);
  const std::string description = DescriptionRaisedBy([] { FilterDay(Filter(), "Word"); });
  EXPECT_NE(description.find("Word"), std::string::npos) << description;
  EXPECT_NE(description.find("abc"), std::string::npos) << description;
}

TEST(FilterSumField, GivesTheDictionaryThatStandsThere) {
  Dictionary filter;
  const auto field = std::make_shared<Dictionary>();
  filter.Set("SumField", field);
  EXPECT_EQ(FilterSumField(filter), field);
}

TEST(FilterSumField, IsADictionaryWithoutKeysWhereThereIsNone) {
  Dictionary filter;
  ASSERT_NE(FilterSumField(filter), nullptr);
  EXPECT_TRUE(FilterSumField(filter)->Entries().empty());
  filter.Set("SumField", nullptr);
  ASSERT_NE(FilterSumField(filter), nullptr);
  EXPECT_FALSE(FilterSumField(filter)->Lookup("FName"));
}

TEST(CodeField, IsTheCodeInUse) {
  Runtime runtime;
  runtime.gLongNumber = true;
  EXPECT_EQ(CodeField(), "FNumber");
  runtime.gLongNumber = false;
  EXPECT_EQ(CodeField(), "FShortNumber");
}

}  // namespace
}  // namespace salerpt
