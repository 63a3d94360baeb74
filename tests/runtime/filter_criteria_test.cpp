#include "runtime/filter_criteria.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "runtime/case_blind.h"
#include "runtime/row_hash.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Row = std::tuple<std::string, CriterionTest, LiteralKind, std::string, bool>;

std::vector<Row> Read(std::string_view text) {
  FilterCriteria criteria;
  criteria.Parse(text);
  std::vector<Row> rows;
  for (const Criterion& c : criteria.All()) {
    rows.emplace_back(std::string(c.field), c.test, c.kind, std::string(c.literal), c.begins_group);
  }
  return rows;
}

constexpr bool kFirst = true;
constexpr bool kJoined = false;

TEST(FilterCriteria, ReadsAConjunctionOfNumbers) {
  EXPECT_THAT(Read("FOrderInterID=12 and FItemID=-5 And FOrderEntryID=+3"),
              ElementsAre(Row("FOrderInterID", CriterionTest::kEqual, LiteralKind::kNumber, "12", kFirst),
                          Row("FItemID", CriterionTest::kEqual, LiteralKind::kNumber, "-5", kJoined),
                          Row("FOrderEntryID", CriterionTest::kEqual, LiteralKind::kNumber, "+3", kJoined)));
}

TEST(FilterCriteria, ReadsEveryTest) {
  EXPECT_THAT(Read("A=1 and A<>1 and A<1 and A>1 and A<=1 and A>=1 and A like '1'"),
              ElementsAre(Row("A", CriterionTest::kEqual, LiteralKind::kNumber, "1", kFirst),
                          Row("A", CriterionTest::kNotEqual, LiteralKind::kNumber, "1", kJoined),
                          Row("A", CriterionTest::kLess, LiteralKind::kNumber, "1", kJoined),
                          Row("A", CriterionTest::kGreater, LiteralKind::kNumber, "1", kJoined),
                          Row("A", CriterionTest::kAtMost, LiteralKind::kNumber, "1", kJoined),
                          Row("A", CriterionTest::kAtLeast, LiteralKind::kNumber, "1", kJoined),
                          Row("A", CriterionTest::kLike, LiteralKind::kText, "1", kJoined)));
}

TEST(FilterCriteria, ReadsEveryKindOfLiteral) {
  EXPECT_THAT(Read("A=.5e-3 Or A='x' OR A=#2003-07-01# or A=NULL or A=true or A=False"),
              ElementsAre(Row("A", CriterionTest::kEqual, LiteralKind::kNumber, ".5e-3", kFirst),
                          Row("A", CriterionTest::kEqual, LiteralKind::kText, "x", kFirst),
                          Row("A", CriterionTest::kEqual, LiteralKind::kDate, "2003-07-01", kFirst),
                          Row("A", CriterionTest::kEqual, LiteralKind::kNull, "NULL", kFirst),
                          Row("A", CriterionTest::kEqual, LiteralKind::kBoolean, "true", kFirst),
                          Row("A", CriterionTest::kEqual, LiteralKind::kBoolean, "False", kFirst)));
}

TEST(FilterCriteria, SkipsBlanksBetweenWords) {
  EXPECT_THAT(Read(" FSumSort <>102 "),
              ElementsAre(Row("FSumSort", CriterionTest::kNotEqual, LiteralKind::kNumber, "102", kFirst)));
}

TEST(FilterCriteria, MakesDoubledApostrophesSingle) {
  EXPECT_THAT(Read("A='O''Neil''s' And B='''' And C=''"),
              ElementsAre(Row("A", CriterionTest::kEqual, LiteralKind::kText, "O'Neil's", kFirst),
                          Row("B", CriterionTest::kEqual, LiteralKind::kText, "'", kJoined),
                          Row("C", CriterionTest::kEqual, LiteralKind::kText, "", kJoined)));
}

TEST(FilterCriteria, ReadsNamesInBracketsAndNamesThatBeginLikeKeywords) {
  EXPECT_THAT(Read("[And x]=1 And OrderBy=2 And 名称=3"),
              ElementsAre(Row("And x", CriterionTest::kEqual, LiteralKind::kNumber, "1", kFirst),
                          Row("OrderBy", CriterionTest::kEqual, LiteralKind::kNumber, "2", kJoined),
                          Row("名称", CriterionTest::kEqual, LiteralKind::kNumber, "3", kJoined)));
}

TEST(FilterCriteria, BindsAndBeforeOr) {
  EXPECT_THAT(Read("A=1 And B=2 Or C=3 And D=4"),
              ElementsAre(Row("A", CriterionTest::kEqual, LiteralKind::kNumber, "1", kFirst),
                          Row("B", CriterionTest::kEqual, LiteralKind::kNumber, "2", kJoined),
                          Row("C", CriterionTest::kEqual, LiteralKind::kNumber, "3", kFirst),
                          Row("D", CriterionTest::kEqual, LiteralKind::kNumber, "4", kJoined)));
}

TEST(FilterCriteria, TakesBracketsAroundGroups) {
  EXPECT_EQ(Read("(A=1 And B=2) Or (C=3)"), Read("A=1 And B=2 Or C=3"));
  EXPECT_EQ(Read("((A=1) And (B=2 And C=3))"), Read("A=1 And B=2 And C=3"));
  EXPECT_EQ(Read("((A=1 Or B=2) Or C=3)"), Read("A=1 Or B=2 Or C=3"));
}

TEST(FilterCriteria, HasNoneForATextOfBlanks) {
  EXPECT_THAT(Read(""), IsEmpty());
  EXPECT_THAT(Read(" \t\r\n "), IsEmpty());
}

TEST(FilterCriteria, ForgetsWhatItReadBefore) {
  FilterCriteria criteria;
  criteria.Parse("A=1 And B=2");
  criteria.Parse("C='x'");
  ASSERT_EQ(criteria.All().size(), 1U);
  EXPECT_EQ(criteria.All()[0].field, "C");
}

struct BadFilter {
  std::string text;
  std::string message;
};
class BadFilters : public ::testing::TestWithParam<BadFilter> {};

TEST_P(BadFilters, AreRefusedWithThePlaceAndWhatWasExpected) {
  const auto error = RaisedBy([] { Read(GetParam().text); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), error_number::kWrongArguments);
  EXPECT_EQ(error->Source(), "ADODB.Recordset");
  EXPECT_THAT(error->Description(), HasSubstr(GetParam().text));
  EXPECT_THAT(error->Description(), HasSubstr(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    Filter, BadFilters,
    ::testing::Values(
        BadFilter{"FItemID", "at character 8 one of = <> < > <= >= Like was expected"},
        BadFilter{"=1", "at character 1 a field name was expected"},
        BadFilter{"A=", "at character 3 a number, 'text', #date#, Null, True or False was expected"},
        BadFilter{"A=abc", "at character 3 a number, 'text', #date#, Null, True or False was expected"},
        BadFilter{"A=-", "at character 3 a number"},
        BadFilter{"A=1e", "at character 3 a number with digits behind the E was expected"},
        BadFilter{"A=1 B=2", "at character 5 \"And\", \"Or\" or the end of the filter was expected"},
        BadFilter{"A=1 And", "at character 8 a field name was expected"},
        BadFilter{"名=1 与", "at character 5 \"And\", \"Or\" or the end of the filter was expected"},
        BadFilter{"A='x", "at character 3 an apostrophe at the end of the text was expected"},
        BadFilter{"A='x''", "at character 3 an apostrophe at the end of the text was expected"},
        BadFilter{"A=#2003-07-01", "at character 3 \"#\" behind the date was expected"},
        BadFilter{"[A=1", "at character 1 \"]\" behind the field name was expected"},
        BadFilter{"[]=1", "at character 1 a field name between \"[\" and \"]\" was expected"},
        BadFilter{"(A=1", "at character 5 \")\" was expected"},
        BadFilter{"A=1)", "at character 4 \"And\", \"Or\" or the end of the filter was expected"},
        BadFilter{"()", "at character 2 a field name was expected"},
        BadFilter{"(A=1 Or B=2) And C=3", "at character 18 \"Or\" instead of \"And\""},
        BadFilter{"C=3 And (A=1 Or B=2)",
                  "at character 9 a bracket without \"Or\" behind \"And\" was expected"},
        BadFilter{"A==1", "at character 3 a number"}));

TEST(FilterCriteria, RefusesBracketsTooDeep) {
  const std::string deepest = std::string(64, '(') + "A=1" + std::string(64, ')');
  EXPECT_EQ(Read(deepest), Read("A=1"));
  EXPECT_THAT(DescriptionRaisedBy([&] { Read("(" + deepest + ")"); }),
              HasSubstr("at character 65 no further bracket inside of 64 brackets was expected"));
}

TEST(CaseBlind, ComparesLongTextsWithoutRegardToAsciiCase) {
  EXPECT_TRUE(EqualCaseBlind("abcdefghIJKLmnop@[`{", "ABCDEFGHijklMNOP@[`{"));
  EXPECT_FALSE(EqualCaseBlind("abcdefghi", "abcdefghj"));
  EXPECT_FALSE(EqualCaseBlind("abc", "abcd"));
  // Neighbours of the letters, 32 apart, stay different.
  EXPECT_FALSE(EqualCaseBlind("@", "`"));
  EXPECT_FALSE(EqualCaseBlind("[", "{"));
  // Bytes of other characters stay as they are.
  EXPECT_FALSE(EqualCaseBlind("\xC3\xA9", "\xC3\x89"));
}

TEST(CaseBlind, OrdersByUpperCase) {
  EXPECT_EQ(CompareCaseBlind("abc", "ABC"), 0);
  EXPECT_LT(CompareCaseBlind("a", "B"), 0);
  EXPECT_GT(CompareCaseBlind("b", "A"), 0);
  EXPECT_LT(CompareCaseBlind("ab", "abc"), 0);
  EXPECT_GT(CompareCaseBlind("\xE4", "z"), 0);
}

TEST(CaseBlind, MatchesWildcardsAnywhere) {
  EXPECT_TRUE(MatchesPattern("Kettle", "ket*"));
  EXPECT_TRUE(MatchesPattern("Kettle", "*TT%"));
  EXPECT_TRUE(MatchesPattern("Kettle", "kettle*"));
  EXPECT_TRUE(MatchesPattern("", "*"));
  EXPECT_TRUE(MatchesPattern("aXbXXc", "a*x*xc"));
  EXPECT_FALSE(MatchesPattern("Kettle", "ket"));
  EXPECT_FALSE(MatchesPattern("Kettle", "*tt"));
  EXPECT_FALSE(MatchesPattern("", "a*"));
}

TEST(CaseBlind, HashesEqualTextsAlike) {
  EXPECT_EQ(HashCaseBlind(0, "Kettle of steel"), HashCaseBlind(0, "KETTLE OF STEEL"));
  EXPECT_NE(HashCaseBlind(0, "ab"), HashCaseBlind(0, "ba"));
  EXPECT_NE(HashCaseBlind(HashCaseBlind(0, "a"), "bc"), HashCaseBlind(HashCaseBlind(0, "ab"), "c"));
}

}  // namespace
}  // namespace salerpt
