#include "runtime/currency.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

constexpr Currency kMost = Currency::FromScaled(std::numeric_limits<std::int64_t>::max());
constexpr Currency kLeast = Currency::FromScaled(std::numeric_limits<std::int64_t>::min());
constexpr Currency kSmallest = Currency::FromScaled(1);

TEST(Currency, IsZeroAtFirst) {
  EXPECT_EQ(Currency().Scaled(), 0);
}

TEST(Currency, PrintsWithoutTrailingZeros) {
  EXPECT_EQ(Currency::FromScaled(0).ToText(), "0");
  EXPECT_EQ(Currency::FromScaled(125000).ToText(), "12.5");
  EXPECT_EQ(Currency::FromScaled(-30000).ToText(), "-3");
  EXPECT_EQ(Currency::FromScaled(1).ToText(), "0.0001");
  EXPECT_EQ(Currency::FromScaled(-1).ToText(), "-0.0001");
  EXPECT_EQ(Currency::FromScaled(10203040).ToText(), "1020.304");
}

TEST(Currency, PrintsItsBounds) {
  EXPECT_EQ(kMost.ToText(), "922337203685477.5807");
  EXPECT_EQ(kLeast.ToText(), "-922337203685477.5808");
}

TEST(Currency, ReadsPlainDecimals) {
  EXPECT_EQ(Currency::FromText("12.5").Scaled(), 125000);
  EXPECT_EQ(Currency::FromText("-3").Scaled(), -30000);
  EXPECT_EQ(Currency::FromText("+0.0001").Scaled(), 1);
  EXPECT_EQ(Currency::FromText(".5").Scaled(), 5000);
  EXPECT_EQ(Currency::FromText("7.").Scaled(), 70000);
  EXPECT_EQ(Currency::FromText("  42 ").Scaled(), 420000);
  EXPECT_EQ(Currency::FromText("000.00000").Scaled(), 0);
}

TEST(Currency, ReadsExponents) {
  EXPECT_EQ(Currency::FromText("1e3").Scaled(), 10000000);
  EXPECT_EQ(Currency::FromText("12.5E+2").Scaled(), 12500000);
  EXPECT_EQ(Currency::FromText("-25e-1").Scaled(), -25000);
  EXPECT_EQ(Currency::FromText("1e-4").Scaled(), 1);
  EXPECT_EQ(Currency::FromText("9e-6").Scaled(), 0);
  EXPECT_EQ(Currency::FromText("9e-99999999999").Scaled(), 0);
  EXPECT_EQ(Currency::FromText("0e99999999999").Scaled(), 0);
}

TEST(Currency, RoundsATextHalfToEven) {
  EXPECT_EQ(Currency::FromText("0.00005").Scaled(), 0);
  EXPECT_EQ(Currency::FromText("0.00015").Scaled(), 2);
  EXPECT_EQ(Currency::FromText("-0.00015").Scaled(), -2);
  EXPECT_EQ(Currency::FromText("0.00025").Scaled(), 2);
  EXPECT_EQ(Currency::FromText("0.000250001").Scaled(), 3);
  EXPECT_EQ(Currency::FromText("0.000249999").Scaled(), 2);
  EXPECT_EQ(Currency::FromText("1.99999").Scaled(), 20000);
}

TEST(Currency, ReadsItsBoundsExactly) {
  EXPECT_EQ(Currency::FromText("922337203685477.5807"), kMost);
  EXPECT_EQ(Currency::FromText("-922337203685477.5808"), kLeast);
}

TEST(Currency, RaisesOverflowForATextBeyondItsBounds) {
  for (const char* text : {"922337203685477.5808", "-922337203685477.5809", "922337203685477.58075", "1e15",
                           "1e99999999999", "99999999999999999999999"}) {
    EXPECT_EQ(NumberRaisedBy([text] { Currency::FromText(text); }), error_number::kOverflow) << text;
  }
}

TEST(Currency, RaisesTypeMismatchForATextThatIsNoNumber) {
  for (const char* text :
       {"", " ", "abc", "1x", "1 2", "-", ".", "1e", "e3", "--1", "1,5", "nan", "inf", "1.2.3"}) {
    EXPECT_EQ(NumberRaisedBy([text] { Currency::FromText(text); }), error_number::kTypeMismatch) << text;
  }
}

TEST(Currency, NamesTheTextThatIsNoNumber) {
  EXPECT_EQ(DescriptionRaisedBy([] { Currency::FromText("12 yuan"); }),
            "the text \"12 yuan\" is not a number; a currency was expected");
}

TEST(Currency, RoundsADoubleHalfToEven) {
  EXPECT_EQ(Currency::FromDouble(12.5).Scaled(), 125000);
  EXPECT_EQ(Currency::FromDouble(0.1 + 0.2).Scaled(), 3000);
  // 2^-5 is 0.03125 and 3 * 2^-5 is 0.09375: both lie exactly between two neighbours.
  EXPECT_EQ(Currency::FromDouble(0.03125).Scaled(), 312);
  EXPECT_EQ(Currency::FromDouble(0.09375).Scaled(), 938);
  EXPECT_EQ(Currency::FromDouble(-0.09375).Scaled(), -938);
}

TEST(Currency, RaisesOverflowForADoubleBeyondItsBounds) {
  for (const double value :
       {1e15, -1e15, 922337203685478.0, std::numeric_limits<double>::infinity(), std::nan("")}) {
    EXPECT_EQ(NumberRaisedBy([value] { Currency::FromDouble(value); }), error_number::kOverflow) << value;
  }
  EXPECT_EQ(Currency::FromDouble(-922337203685477.5808), kLeast);
}

TEST(Currency, AddsAndSubtractsExactly) {
  Currency sum;
  for (int i = 0; i < 10; ++i) sum += Currency::FromScaled(1000);
  EXPECT_EQ(sum, Currency::FromScaled(10000));
  EXPECT_EQ(Currency::FromScaled(5) - Currency::FromScaled(8), Currency::FromScaled(-3));
}

TEST(Currency, RaisesOverflowWhereASumDoesNotFit) {
  EXPECT_EQ(NumberRaisedBy([] { kMost + kSmallest; }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { kLeast - kSmallest; }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { Currency() - kLeast; }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([] { kLeast + kLeast; }), error_number::kOverflow);
  EXPECT_EQ(kLeast + kMost, Currency::FromScaled(-1));
  EXPECT_EQ(kMost - kMost, Currency());
  EXPECT_EQ(Currency::FromScaled(-1) - kLeast, kMost);
}

TEST(Currency, ComparesByValue) {
  EXPECT_LT(Currency::FromText("-1"), Currency::FromText("0.5"));
  EXPECT_EQ(Currency::FromText("0.50"), Currency::FromText("0.5"));
}

TEST(Currency, GivesItsDouble) {
  EXPECT_EQ(Currency::FromText("12.34").ToDouble(), 12.34);
  EXPECT_EQ(Currency::FromText("-0.0001").ToDouble(), -0.0001);
}

}  // namespace
}  // namespace salerpt
