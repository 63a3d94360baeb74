#include "runtime/variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "runtime/vector.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

using Kind = Variant::Kind;

Currency Money(std::string_view text) {
  return Currency::FromText(text);
}

TEST(Variant, KnowsItsKind) {
  EXPECT_EQ(Variant().GetKind(), Kind::kEmpty);
  EXPECT_EQ(Variant(Null()).GetKind(), Kind::kNull);
  EXPECT_EQ(Variant(true).GetKind(), Kind::kBoolean);
  EXPECT_EQ(Variant(std::int16_t{1}).GetKind(), Kind::kInt16);
  EXPECT_EQ(Variant(1).GetKind(), Kind::kInt32);
  EXPECT_EQ(Variant(1.0).GetKind(), Kind::kDouble);
  EXPECT_EQ(Variant(Currency()).GetKind(), Kind::kCurrency);
  EXPECT_EQ(Variant(Date()).GetKind(), Kind::kDate);
  EXPECT_EQ(Variant("a").GetKind(), Kind::kText);
  EXPECT_EQ(Variant(std::string("a")).GetKind(), Kind::kText);
  EXPECT_EQ(Variant(std::string_view("a")).GetKind(), Kind::kText);
  EXPECT_EQ(Variant(std::make_shared<Vector>()).GetKind(), Kind::kObject);
  EXPECT_EQ(Variant(nullptr).GetKind(), Kind::kObject);
}

TEST(Variant, CountsNumbersAndCurrencyAsNumbers) {
  EXPECT_TRUE(Variant(std::int16_t{1}).IsNumber());
  EXPECT_TRUE(Variant(1).IsNumber());
  EXPECT_TRUE(Variant(1.5).IsNumber());
  EXPECT_TRUE(Variant(Currency()).IsNumber());
  EXPECT_FALSE(Variant(true).IsNumber());
  EXPECT_FALSE(Variant(Date()).IsNumber());
  EXPECT_FALSE(Variant("1").IsNumber());
  EXPECT_FALSE(Variant().IsNumber());
}

TEST(Variant, EmptyAndEmptyTextCompareAsEmptyText) {
  EXPECT_TRUE(Variant().IsEmptyText());
  EXPECT_TRUE(Variant("").IsEmptyText());
  EXPECT_FALSE(Variant(" ").IsEmptyText());
  EXPECT_FALSE(Variant(Null()).IsEmptyText());
  EXPECT_FALSE(Variant(0).IsEmptyText());
  EXPECT_FALSE(Variant(nullptr).IsEmptyText());
}

TEST(Variant, TurnsIntoABoolean) {
  EXPECT_FALSE(Variant().ToBoolean());
  EXPECT_TRUE(Variant(true).ToBoolean());
  EXPECT_FALSE(Variant(0).ToBoolean());
  EXPECT_TRUE(Variant(-1).ToBoolean());
  EXPECT_TRUE(Variant(0.001).ToBoolean());
  EXPECT_TRUE(Variant(Money("0.0001")).ToBoolean());
  EXPECT_TRUE(Variant("tRUE").ToBoolean());
  EXPECT_FALSE(Variant(" False ").ToBoolean());
  EXPECT_TRUE(Variant("2").ToBoolean());
  EXPECT_FALSE(Variant("0").ToBoolean());
}

TEST(Variant, RaisesTypeMismatchForATextThatIsNoBoolean) {
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant("yes").ToBoolean(); }), error_number::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant("").ToBoolean(); }), error_number::kTypeMismatch);
  EXPECT_EQ(DescriptionRaisedBy([] { (void)Variant("yes").ToBoolean(); }),
            "the text \"yes\" cannot be turned into a boolean");
}

TEST(Variant, RoundsWholeNumbersHalfToEven) {
  EXPECT_EQ(Variant(0.5).ToInt32(), 0);
  EXPECT_EQ(Variant(1.5).ToInt32(), 2);
  EXPECT_EQ(Variant(2.5).ToInt32(), 2);
  EXPECT_EQ(Variant(-2.5).ToInt32(), -2);
  EXPECT_EQ(Variant(-1.5).ToInt16(), -2);
  EXPECT_EQ(Variant(2.51).ToInt16(), 3);
  EXPECT_EQ(Variant("12.5").ToInt32(), 12);
  EXPECT_EQ(Variant(Money("3.5")).ToInt32(), 4);
  EXPECT_EQ(Variant(Date(37803.75)).ToInt32(), 37804);
}

TEST(Variant, TurnsTrueIntoMinusOneAndEmptyIntoZero) {
  EXPECT_EQ(Variant(true).ToInt16(), -1);
  EXPECT_EQ(Variant(true).ToInt32(), -1);
  EXPECT_EQ(Variant(true).ToDouble(), -1);
  EXPECT_EQ(Variant(true).ToCurrency(), Money("-1"));
  EXPECT_EQ(Variant(false).ToInt32(), 0);
  EXPECT_EQ(Variant().ToInt16(), 0);
  EXPECT_EQ(Variant().ToInt32(), 0);
  EXPECT_EQ(Variant().ToDouble(), 0);
  EXPECT_EQ(Variant().ToCurrency(), Currency());
}

TEST(Variant, ReadsNumbersFromTexts) {
  EXPECT_EQ(Variant(" 42 ").ToInt32(), 42);
  EXPECT_EQ(Variant("1e3").ToInt32(), 1000);
  EXPECT_EQ(Variant("-3").ToInt16(), -3);
  EXPECT_EQ(Variant("+7").ToInt16(), 7);
  EXPECT_EQ(Variant("12.5").ToDouble(), 12.5);
  EXPECT_EQ(Variant(".5").ToDouble(), 0.5);
  EXPECT_EQ(Variant("1e-400").ToDouble(), 0);
  EXPECT_EQ(Variant("922337203685477.5807").ToCurrency().Scaled(), std::numeric_limits<std::int64_t>::max());
}

TEST(Variant, RaisesTypeMismatchForATextThatIsNoNumber) {
  for (const char* text :
       {"", " ", "abc", "12abc", "1 2", "True", "nan", "inf", "0x10", "1,000", "+-5", "2003-7-1"}) {
    EXPECT_EQ(NumberRaisedBy([text] { (void)Variant(text).ToInt32(); }), error_number::kTypeMismatch) << text;
    EXPECT_EQ(NumberRaisedBy([text] { (void)Variant(text).ToDouble(); }), error_number::kTypeMismatch)
        << text;
    EXPECT_EQ(NumberRaisedBy([text] { (void)Variant(text).ToCurrency(); }), error_number::kTypeMismatch)
        << text;
  }
}

TEST(Variant, NamesTheTextAndTheKindAskedFor) {
  EXPECT_EQ(DescriptionRaisedBy([] { (void)Variant("abc").ToInt32(); }),
            "the text \"abc\" cannot be turned into a 32-bit integer");
}

TEST(Variant, CutsALongTextInAMessageBetweenCharacters) {
  // Three bytes each: 80 bytes would end within the 27th.
  std::string text;
  for (int i = 0; i < 100; ++i) text += "销";
  std::string shown;
  for (int i = 0; i < 26; ++i) shown += "销";
  EXPECT_EQ(DescriptionRaisedBy([&] { (void)Variant(text).ToInt32(); }),
            "the text \"" + shown + "...\" cannot be turned into a 32-bit integer");
}

TEST(Variant, RaisesOverflowOutsideOfTheType) {
  EXPECT_EQ(Variant(32767.5 - 0.1).ToInt16(), 32767);
  EXPECT_EQ(Variant(-32768).ToInt16(), -32768);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant(32768).ToInt16(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant(32767.5).ToInt16(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant("-32769").ToInt16(); }), error_number::kOverflow);
  EXPECT_EQ(Variant(2147483647.0).ToInt32(), 2147483647);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant(2147483648.0).ToInt32(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant(-2147483649.0).ToInt32(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant(std::nan("")).ToInt32(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant("1e400").ToDouble(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant(1e15).ToCurrency(); }), error_number::kOverflow);
  EXPECT_EQ(DescriptionRaisedBy([] { (void)Variant(70000).ToInt16(); }),
            "the value 70000 does not fit a 16-bit integer");
}

TEST(Variant, RaisesInvalidNullForEveryConversionOfNull) {
  const Variant null{Null()};
  EXPECT_EQ(NumberRaisedBy([&] { (void)null.ToBoolean(); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { (void)null.ToInt16(); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { (void)null.ToInt32(); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { (void)null.ToDouble(); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { (void)null.ToCurrency(); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { (void)null.ToDate(); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { (void)null.ToText(); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { (void)null.ToObject(); }), error_number::kTypeMismatch);
}

TEST(Variant, RaisesTypeMismatchForAnObjectAsAValue) {
  const Variant object = std::make_shared<Vector>();
  EXPECT_EQ(NumberRaisedBy([&] { (void)object.ToBoolean(); }), error_number::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { (void)object.ToInt32(); }), error_number::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { (void)object.ToDate(); }), error_number::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { (void)object.ToText(); }), error_number::kTypeMismatch);
}

TEST(Variant, TurnsIntoADate) {
  const Date day = Date::FromYmd(2003, 7, 1);
  EXPECT_EQ(Variant(day).ToDate(), day);
  EXPECT_EQ(Variant("2003-7-1").ToDate(), day);
  EXPECT_EQ(Variant(" 2003/07/01 ").ToDate(), day);
  EXPECT_EQ(Variant(37803).ToDate(), day);
  EXPECT_EQ(Variant(37803.25).ToDate(), Date::FromYmd(2003, 7, 1, 6));
  EXPECT_EQ(Variant().ToDate(), Date::FromYmd(1899, 12, 30));
}

TEST(Variant, RaisesWhereThereIsNoSuchDate) {
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant("2003-02-30").ToDate(); }), error_number::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant("").ToDate(); }), error_number::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant(2958466).ToDate(); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { (void)Variant(-657435).ToDate(); }), error_number::kOverflow);
  EXPECT_EQ(Variant(2958465).ToDate(), Date::FromYmd(9999, 12, 31));
  EXPECT_EQ(Variant(-657434).ToDate(), Date::FromYmd(100, 1, 1));
}

TEST(Variant, TurnsIntoText) {
  EXPECT_EQ(Variant().ToText(), "");
  EXPECT_EQ(Variant(true).ToText(), "True");
  EXPECT_EQ(Variant(false).ToText(), "False");
  EXPECT_EQ(Variant(std::int16_t{-5}).ToText(), "-5");
  EXPECT_EQ(Variant(std::numeric_limits<std::int32_t>::min()).ToText(), "-2147483648");
  EXPECT_EQ(Variant(12.0).ToText(), "12");
  EXPECT_EQ(Variant(Money("12.50")).ToText(), "12.5");
  EXPECT_EQ(Variant(Date::FromYmd(2003, 7, 1)).ToText(), "2003-07-01");
  EXPECT_EQ(Variant("销售").ToText(), "销售");
}

TEST(Variant, JoinsNullAsEmptyText) {
  EXPECT_EQ(Variant(Null()).TextOrEmpty(), "");
  EXPECT_EQ(Variant().TextOrEmpty(), "");
  EXPECT_EQ(Variant(5).TextOrEmpty(), "5");
}

TEST(Variant, GivesItsObject) {
  const auto list = std::make_shared<Vector>();
  EXPECT_EQ(Variant(list).ToObject(), list);
  EXPECT_EQ(Variant().ToObject(), nullptr);
  EXPECT_EQ(Variant(nullptr).ToObject(), nullptr);
  EXPECT_EQ(DescriptionRaisedBy([] { (void)Variant(5).ToObject(); }),
            "an object was expected, not a value of kind 32-bit integer");
}

TEST(Variant, GivesItsTextWithoutConversion) {
  const Variant text("abc");
  ASSERT_NE(text.TextIf(), nullptr);
  EXPECT_EQ(*text.TextIf(), "abc");
  EXPECT_EQ(Variant(5).TextIf(), nullptr);
}

TEST(Variant, IsEqualForTheSameKindAndValueOnly) {
  EXPECT_EQ(Variant(1), Variant(1));
  EXPECT_FALSE(Variant(1) == Variant(1.0));
  EXPECT_FALSE(Variant() == Variant(""));
  EXPECT_FALSE(Variant() == Variant(Null()));
  EXPECT_FALSE(Variant("a") == Variant("A"));
}

TEST(Val, ReadsTheNumberAtTheBeginning) {
  EXPECT_EQ(Val("147"), 147);
  EXPECT_EQ(Val(" 12abc"), 12);
  EXPECT_EQ(Val("-3.5 x"), -3.5);
  EXPECT_EQ(Val("1e3"), 1000);
  EXPECT_EQ(Val("1e"), 1);
  EXPECT_EQ(Val("1.2.3"), 1.2);
  EXPECT_EQ(Val("+.5"), 0.5);
}

TEST(Val, SkipsBlanksWithinTheNumber) {
  EXPECT_EQ(Val(" 1 61\t5 198th"), 1615198);
}

TEST(Val, GivesZeroWhereThereIsNoNumber) {
  for (const char* text : {"", " ", "abc", "-", ".", "e3", "nan", "inf"}) EXPECT_EQ(Val(text), 0) << text;
}

TEST(Val, RaisesOverflowForANumberThatNoDoubleHolds) {
  EXPECT_EQ(NumberRaisedBy([] { Val("1e400"); }), error_number::kOverflow);
}

TEST(NumberText, PrintsWholeNumbersWithoutAPoint) {
  EXPECT_EQ(NumberText(0), "0");
  EXPECT_EQ(NumberText(-0.0), "0");
  EXPECT_EQ(NumberText(12), "12");
  EXPECT_EQ(NumberText(-100), "-100");
  EXPECT_EQ(NumberText(999999999999999), "999999999999999");
}

TEST(NumberText, PrintsTheShortestTextThatGivesTheNumberBack) {
  EXPECT_EQ(NumberText(0.1), "0.1");
  EXPECT_EQ(NumberText(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(NumberText(1234.5678), "1234.5678");
  EXPECT_EQ(NumberText(0.00001), "0.00001");
}

TEST(NumberText, PrintsVeryLargeAndSmallNumbersWithAnExponent) {
  EXPECT_EQ(NumberText(1e20), "1E+20");
  EXPECT_EQ(NumberText(1e15), "1E+15");
  EXPECT_EQ(NumberText(-1.5e300), "-1.5E+300");
  EXPECT_EQ(NumberText(1e-15), "1E-15");
}

TEST(KindName, NamesEveryKind) {
  EXPECT_EQ(KindName(Kind::kEmpty), "empty");
  EXPECT_EQ(KindName(Kind::kNull), "null");
  EXPECT_EQ(KindName(Kind::kBoolean), "boolean");
  EXPECT_EQ(KindName(Kind::kInt16), "16-bit integer");
  EXPECT_EQ(KindName(Kind::kInt32), "32-bit integer");
  EXPECT_EQ(KindName(Kind::kDouble), "double");
  EXPECT_EQ(KindName(Kind::kCurrency), "currency");
  EXPECT_EQ(KindName(Kind::kDate), "date");
  EXPECT_EQ(KindName(Kind::kText), "text");
  EXPECT_EQ(KindName(Kind::kObject), "object");
}

}  // namespace
}  // namespace salerpt
