#include "suite/accountset/decimal.h"

#include <gtest/gtest.h>

namespace salerpt::accountset {
namespace {

void ExpectDecimal(std::optional<Decimal> number, std::int64_t units, int scale) {
  ASSERT_TRUE(number.has_value());
  EXPECT_EQ(number->units, units);
  EXPECT_EQ(number->scale, scale);
}

TEST(Decimal, ReadsDigitsSignAndPoint) {
  ExpectDecimal(ParseDecimal("12.50"), 125, 1);
  ExpectDecimal(ParseDecimal("-0.001"), -1, 3);
  ExpectDecimal(ParseDecimal("+7"), 7, 0);
  ExpectDecimal(ParseDecimal(" 3. "), 3, 0);
  ExpectDecimal(ParseDecimal(".5"), 5, 1);
  ExpectDecimal(ParseDecimal("-11062.06"), -1106206, 2);
}

TEST(Decimal, RefusesWhatIsNoNumber) {
  for (const char* text : {"", " ", "-", ".", "1,000", "1e3", "1.2.3", "12a", "--1", "0x10", "nan", "1 2"}) {
    EXPECT_FALSE(ParseDecimal(text).has_value()) << text;
  }
}

TEST(Decimal, RefusesMoreDigitsThanItHolds) {
  EXPECT_TRUE(ParseDecimal("999999999999999999").has_value());
  EXPECT_FALSE(ParseDecimal("9999999999999999999").has_value());
}

TEST(Decimal, MultipliesExactly) {
  // 0.1 * 3 is 0.3, which doubles do not say.
  ExpectDecimal(Multiply({1, 1}, {3, 0}), 3, 1);
  ExpectDecimal(Multiply({-12, 0}, {255, 2}), -306, 1);
  ExpectDecimal(Multiply({0, 0}, {255, 2}), 0, 0);
}

TEST(Decimal, RefusesAProductThatIsTooLong) {
  EXPECT_FALSE(Multiply({999'999'999'999, 0}, {999'999'999'999, 0}).has_value());
}

TEST(Decimal, BecomesTheNearestDouble) {
  EXPECT_EQ((Decimal{153, 1}).ToDouble(), 15.3);
  EXPECT_EQ((Decimal{-1, 3}).ToDouble(), -0.001);
  EXPECT_EQ((Decimal{9747747934, 3}).ToDouble(), 9747747.934);
}

TEST(Decimal, RoundsHalfAwayFromZero) {
  EXPECT_EQ(Rounded({125, 2}, 1).units, 13);
  EXPECT_EQ(Rounded({-125, 2}, 1).units, -13);
  EXPECT_EQ(Rounded({124, 2}, 1).units, 12);
  EXPECT_EQ(Rounded({5, 0}, 2).units, 500);
}

}  // namespace
}  // namespace salerpt::accountset
