// Values on their way into SQL.
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "error_check.h"
#include "fake_object.h"
#include "runtime/error.h"
#include "runtime/mrpt.h"

namespace salerpt {
namespace {

using namespace std::string_view_literals;

TEST(QuoteSql, GivesTwoApostrophesForNothing) {
  EXPECT_EQ(QuoteSql(Null()), "''");
  EXPECT_EQ(QuoteSql(Variant()), "''");
  EXPECT_EQ(QuoteSql(""), "''");
  EXPECT_EQ(QuoteSql("   "), "''");
}

TEST(QuoteSql, GivesEmptyTextForANullWithoutQuotes) {
  EXPECT_EQ(QuoteSql(Null(), false), "");
}

TEST(QuoteSql, DoublesApostrophes) {
  EXPECT_EQ(QuoteSql("it's", true, true, true), "'it''s'");
  EXPECT_EQ(QuoteSql("'", true), "''''");
  EXPECT_EQ(QuoteSql("a' or '1'='1"), "'a'' or ''1''=''1'");
  EXPECT_EQ(QuoteSql("it's", false), "it''s");
}

TEST(QuoteSql, TrimsBlanksOnBothSides) {
  EXPECT_EQ(QuoteSql("  a b  "), "'a b'");
  EXPECT_EQ(QuoteSql("  a b  ", true, false), "'  a b  '");
  EXPECT_EQ(QuoteSql("\ta\t"), "'\ta\t'");
}

TEST(QuoteSql, RemovesControlCharacters) {
  EXPECT_EQ(QuoteSql("a\0b\r\nc"sv), "'abc'");
  EXPECT_EQ(QuoteSql("a\0b\r\nc"sv, true, true, false), "'a\0b\r\nc'"sv);
  EXPECT_EQ(QuoteSql("a\tb\x01"), "'a\tb\x01'");
}

TEST(QuoteSql, TrimsBeforeItRemovesControlCharacters) {
  EXPECT_EQ(QuoteSql(" a \r\n"), "'a '");
}

TEST(QuoteSql, JoinsApostrophesThatAControlCharacterParted) {
  EXPECT_EQ(QuoteSql("'\0'"sv), "''''''");
}

TEST(QuoteSql, LeavesTextOutsideAsciiAlone) {
  EXPECT_EQ(QuoteSql("客户'单位"), "'客户''单位'");
}

TEST(QuoteSql, WritesOtherKindsAsText) {
  EXPECT_EQ(QuoteSql(12), "'12'");
  EXPECT_EQ(QuoteSql(12.0), "'12'");
  EXPECT_EQ(QuoteSql(Date::FromYmd(2003, 7, 1)), "'2003-07-01'");
  EXPECT_EQ(QuoteSql(Currency::FromScaled(12500)), "'1.25'");
}

TEST(QuoteSql, RaisesForAnObject) {
  EXPECT_EQ(NumberRaisedBy([&] { QuoteSql(Variant(std::make_shared<testing::FakeObject>("Thing"))); }),
            error_number::kTypeMismatch);
}

TEST(QuoteText, KeepsControlCharacters) {
  EXPECT_EQ(QuoteText("a\r\nb"), "'a\r\nb'");
}

TEST(QuoteText, TrimsDoublesAndQuotesAsQuoteSqlDoes) {
  EXPECT_EQ(QuoteText(" it's "), "'it''s'");
  EXPECT_EQ(QuoteText(" it's ", false), "it''s");
  EXPECT_EQ(QuoteText(" it's ", false, false), " it''s ");
  EXPECT_EQ(QuoteText(Null()), "''");
}

TEST(SqlNumber, WritesNumbersBare) {
  EXPECT_EQ(SqlNumber(std::int16_t{-7}), "-7");
  EXPECT_EQ(SqlNumber(2147483647), "2147483647");
  EXPECT_EQ(SqlNumber(12.0), "12");
  EXPECT_EQ(SqlNumber(0.5), "0.5");
  EXPECT_EQ(SqlNumber(Currency::FromScaled(-12500)), "-1.25");
}

TEST(SqlNumber, IsZeroForAnEmptyValue) {
  EXPECT_EQ(SqlNumber(Variant()), "0");
}

TEST(SqlNumber, TakesATextThatIsANumber) {
  EXPECT_EQ(SqlNumber("12"), "12");
  EXPECT_EQ(SqlNumber(" -0.5 "), "-0.5");
}

TEST(SqlNumber, RaisesAndNamesATextThatIsNoNumber) {
  for (const char* text : {"", "abc", "1;drop table t", "1 or 1=1", "0x", "--1"}) {
    EXPECT_EQ(NumberRaisedBy([&] { SqlNumber(text); }), error_number::kTypeMismatch) << text;
  }
  try {
    SqlNumber("1 or 1=1");
  } catch (const RuntimeError& error) {
    EXPECT_NE(error.Description().find("1 or 1=1"), std::string::npos);
  }
}

TEST(SqlNumber, RaisesForANull) {
  EXPECT_EQ(NumberRaisedBy([&] { SqlNumber(Null()); }), error_number::kInvalidNull);
}

TEST(SqlNumber, RaisesForANumberThatIsNotFinite) {
  EXPECT_EQ(NumberRaisedBy([&] { SqlNumber(std::numeric_limits<double>::infinity()); }),
            error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([&] { SqlNumber(std::numeric_limits<double>::quiet_NaN()); }),
            error_number::kOverflow);
}

}  // namespace
}  // namespace salerpt
