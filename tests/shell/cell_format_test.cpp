#include "shell/cell_format.h"

#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/shell/sample_sheet.h"

namespace salerpt::shell {
namespace {

std::string Fixed(double value, int decimals) {
  std::string text;
  AppendFixed(text, value, decimals);
  return text;
}
std::string Money(std::int64_t ten_thousandths, int decimals) {
  std::string text;
  AppendFixed(text, Currency::FromScaled(ten_thousandths), decimals);
  return text;
}
std::string Exact(double value) {
  std::string text;
  AppendExact(text, value);
  return text;
}

TEST(AppendFixed, RoundsADecimalHalfAwayFromZero) {
  EXPECT_EQ(Fixed(2.675, 2), "2.68");
  EXPECT_EQ(Fixed(-2.675, 2), "-2.68");
  EXPECT_EQ(Fixed(0.5, 0), "1");
  EXPECT_EQ(Fixed(2.674, 2), "2.67");
}

TEST(AppendFixed, FillsWithZeros) {
  EXPECT_EQ(Fixed(12, 3), "12.000");
  EXPECT_EQ(Fixed(0, 2), "0.00");
}

TEST(AppendFixed, GivesNoSignToAZero) {
  EXPECT_EQ(Fixed(-0.001, 2), "0.00");
  EXPECT_EQ(Fixed(-0.0, 0), "0");
  EXPECT_EQ(Money(-49, 2), "0.00");
}

TEST(AppendFixed, LeavesLargeNumbersAsTheyAre) {
  EXPECT_EQ(Fixed(1e17, 0), "100000000000000000");
}

TEST(AppendFixed, RoundsMoneyExactly) {
  EXPECT_EQ(Money(12345, 4), "1.2345");
  EXPECT_EQ(Money(12345, 3), "1.235");
  EXPECT_EQ(Money(12349, 2), "1.23");
  EXPECT_EQ(Money(12350, 2), "1.24");
  EXPECT_EQ(Money(-12350, 2), "-1.24");
  EXPECT_EQ(Money(5000, 0), "1");
  EXPECT_EQ(Money(100, 2), "0.01");
  EXPECT_EQ(Money(12345, 6), "1.234500");
}

TEST(AppendFixed, ReachesTheEndsOfMoney) {
  EXPECT_EQ(Money(std::numeric_limits<std::int64_t>::min(), 4), "-922337203685477.5808");
  EXPECT_EQ(Money(std::numeric_limits<std::int64_t>::max(), 2), "922337203685477.58");
}

TEST(AppendExact, WritesPlainDigitsOnly) {
  EXPECT_EQ(Exact(0.1), "0.1");
  EXPECT_EQ(Exact(12), "12");
  EXPECT_EQ(Exact(-0.0), "0");
  EXPECT_EQ(Exact(1e21), "1000000000000000000000");
  EXPECT_EQ(Exact(1e-7), "0.0000001");
}

struct RowTexts {
  std::vector<std::string> shown, exact;
};

RowTexts Row(const Sheet& sheet, int row) {
  SheetRows rows(sheet);
  for (int i = 0; i <= row; ++i) EXPECT_TRUE(rows.Next());
  RowTexts texts;
  for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
    rows.AppendShown(texts.shown.emplace_back(), i);
    rows.AppendExactly(texts.exact.emplace_back(), i);
  }
  return texts;
}

TEST(SheetRows, ShowsQuantityAndPriceWithTheDecimalsOfTheRow) {
  const auto first = Row(SampleSheet(), 0).shown;
  EXPECT_EQ(first[2], "10.125");
  EXPECT_EQ(first[3], "2.5");
  EXPECT_EQ(Row(SampleSheet(), 1).shown[3], "4");
  EXPECT_EQ(Row(SampleSheet(), 3).shown[2], "3.278846");
  EXPECT_EQ(Row(SampleSheet(), 3).shown[3], "6.5000");
}

TEST(SheetRows, ShowsAmountsWithTwoDecimals) {
  EXPECT_EQ(Row(SampleSheet(), 0).shown[4], "25.31");
  EXPECT_EQ(Row(SampleSheet(), 0).exact[4], "25.3125");
}

TEST(SheetRows, ShowsBaseAmountsAtTheScaleOfTheBaseCurrency) {
  Sheet sheet = SampleSheet();
  sheet.columns[4].type = ColumnType::kBaseAmount;
  sheet.amount_scale = 3;
  EXPECT_EQ(Row(sheet, 0).shown[4], "25.313");
}

TEST(SheetRows, ShowsADateAsADayAndGivesItsTimeExactly) {
  EXPECT_EQ(Row(SampleSheet(), 1).shown[1], "2024-03-02");
  EXPECT_EQ(Row(SampleSheet(), 1).exact[1], "2024-03-02 08:30:00");
}

TEST(SheetRows, ShowsADateThatIsHeldAsATextAsADay) {
  Sheet sheet = SampleSheet();
  sheet.columns[0].type = ColumnType::kDate;
  sheet.rows->MoveFirst();
  sheet.rows->SetValue("FName", "2024-03-01 00:00:00");
  EXPECT_EQ(Row(sheet, 0).shown[0], "2024-03-01");
}

TEST(SheetRows, NeverHidesADigitOfAQuantity) {
  const Sheet sheet = SampleSheet();
  sheet.rows->MoveFirst();
  sheet.rows->MoveNext();
  sheet.rows->SetValue("FQty", 19.75);  // an item without decimals, in a larger unit
  EXPECT_EQ(Row(sheet, 1).shown[3], "19.75");
  sheet.rows->MoveFirst();
  sheet.rows->MoveNext();
  sheet.rows->SetValue("FQty", 1.0 / 3);
  EXPECT_EQ(Row(sheet, 1).shown[3], "0.3333");
}

TEST(SheetRows, GivesNothingForANull) {
  EXPECT_EQ(Row(SampleSheet(), 1).shown[2], "");
  EXPECT_EQ(Row(SampleSheet(), 1).exact[2], "");
}

TEST(SheetRows, TellsTotalsFromDetails) {
  const Sheet sheet = SampleSheet();
  SheetRows rows(sheet);
  std::vector<std::int32_t> codes;
  std::vector<bool> totals;
  while (rows.Next()) {
    codes.push_back(rows.SumSort());
    totals.push_back(rows.IsTotal());
  }
  EXPECT_EQ(codes, (std::vector<std::int32_t>{0, 0, 106, 101}));
  EXPECT_EQ(totals, (std::vector<bool>{false, false, true, true}));
}

TEST(SheetRows, WalksTheRowsAgainAfterRewind) {
  const Sheet sheet = SampleSheet();
  SheetRows rows(sheet);
  while (rows.Next()) {
  }
  rows.Rewind();
  int count = 0;
  while (rows.Next()) ++count;
  EXPECT_EQ(count, 4);
}

TEST(SheetRows, WalksNothingWhereThereAreNoRows) {
  Sheet sheet = SampleSheet();
  sheet.rows = nullptr;
  EXPECT_FALSE(SheetRows(sheet).Next());
  sheet.rows = SampleRows();
  sheet.rows->SetFilter("FSumSort=7");
  EXPECT_FALSE(SheetRows(sheet).Next());
}

// Some reports keep columns whose field their rows do not have.
TEST(SheetRows, LeavesAColumnEmptyThatTheRowsDoNotHave) {
  Sheet sheet = SampleSheet();
  sheet.columns[0].field = "FMissing";
  SheetRows rows(sheet);
  ASSERT_TRUE(rows.Next());
  EXPECT_TRUE(rows.IsNull(0));
  std::string text;
  rows.AppendShown(text, 0);
  rows.AppendExactly(text, 0);
  EXPECT_EQ(text, "");
}

}  // namespace
}  // namespace salerpt::shell
