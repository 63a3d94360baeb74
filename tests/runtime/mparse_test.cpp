#include "runtime/mparse.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

#include "error_check.h"
#include "fake_object.h"
#include "runtime/error.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using testing::LogIn;

TEST(CutAt, GivesTheTextBeforeTheSeparatorAndLeavesTheRest) {
  std::string_view text = "a=b=c";
  EXPECT_EQ(CutAt(text, '='), "a");
  EXPECT_EQ(text, "b=c");
}

TEST(CutAt, GivesAllOfATextWithoutSeparatorAndLeavesNothing) {
  std::string_view text = "abc";
  EXPECT_EQ(CutAt(text, '='), "abc");
  EXPECT_EQ(text, "");
}

TEST(CutAt, GivesNothingOfAnEmptyText) {
  std::string_view text;
  EXPECT_EQ(CutAt(text, '='), "");
  EXPECT_EQ(text, "");
}

TEST(CutAt, GivesNothingBeforeASeparatorThatStandsFirst) {
  std::string_view text = ";b";
  EXPECT_EQ(CutAt(text, ';'), "");
  EXPECT_EQ(text, "b");
}

TEST(PropertyCollection, KeepsSignsInsideOfBraces) {
  const PropertyCollection properties("a=1;b={x=y;z};c=3");
  EXPECT_EQ(properties.Get("a"), "1");
  EXPECT_EQ(properties.Get("b"), "x=y;z");
  EXPECT_EQ(properties.Get("c"), "3");
}

TEST(PropertyCollection, LeavesOutBlanksAroundNamesAndValues) {
  const PropertyCollection properties("  a = 1 ; b = 2 ;c= { in side } ");
  EXPECT_EQ(properties.Get("a"), "1");
  EXPECT_EQ(properties.Get("b"), "2");
  EXPECT_EQ(properties.Get("c"), "in side");
}

TEST(PropertyCollection, DropsWhatStandsBehindAClosingBrace) {
  const PropertyCollection properties("a={1}junk;b=2");
  EXPECT_EQ(properties.Get("a"), "1");
  EXPECT_EQ(properties.Get("b"), "2");
}

TEST(PropertyCollection, TakesABraceThatIsNotFirstAsPartOfTheValue) {
  const PropertyCollection properties("a=x{1;b}=2");
  EXPECT_EQ(properties.Get("a"), "x{1");
  EXPECT_EQ(properties.Get("b}"), "2");
}

TEST(PropertyCollection, ReadsAnOpenBraceToTheEndOfTheText) {
  const PropertyCollection properties("a={1;b=2");
  EXPECT_EQ(properties.Get("a"), "1;b=2");
}

TEST(PropertyCollection, GivesAnEmptyValueToANameWithoutOne) {
  const PropertyCollection properties("a=;b={};c");
  EXPECT_EQ(properties.Get("a"), "");
  EXPECT_EQ(properties.Get("b"), "");
  EXPECT_EQ(properties.Get("c"), "");
}

TEST(PropertyCollection, EndsAtTheFirstEmptyName) {
  const PropertyCollection properties("a=1; =2;b=3");
  EXPECT_EQ(properties.Get("a"), "1");
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(properties.Get("b")); }), error_number::kInvalidCall);
}

TEST(PropertyCollection, FindsNamesWithoutRegardToCase) {
  EXPECT_EQ(PropertyCollection("UserID=16394").Get("USERid"), "16394");
}

TEST(PropertyCollection, RaisesAndNamesAMissingProperty) {
  try {
    static_cast<void>(PropertyCollection("a=1").Get("nosuchname"));
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), error_number::kInvalidCall);
    EXPECT_NE(error.Description().find("nosuchname"), std::string::npos);
  }
}

TEST(PropertyCollection, RaisesForANameGivenTwiceInAnyCase) {
  EXPECT_EQ(NumberRaisedBy([] { PropertyCollection("a=1;b=2;A=3"); }), error_number::kDuplicateKey);
}

TEST(PropertyCollection, KeepsTheEntriesBeforeANameGivenTwice) {
  PropertyCollection properties;
  EXPECT_EQ(NumberRaisedBy([&] { properties.Parse("a=1;a=2;c=3"); }), error_number::kDuplicateKey);
  EXPECT_EQ(properties.Text(), "a=1;a=2;c=3");
  EXPECT_EQ(properties.Get("a"), "1");
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(properties.Get("c")); }), error_number::kInvalidCall);
}

// Random maps, printed with the forms and blanks that the grammar allows, come back whole.
TEST(PropertyCollection, GivesBackWhateverWasPrinted) {
  std::mt19937 random(20030701);
  const auto pick = [&random](int below) {
    return static_cast<int>(random() % static_cast<unsigned>(below));
  };
  const std::string name_letters = "abcdefgh_ {}单位";
  const std::string value_letters = "xyz=; {'\"0189客户";
  const auto text_of = [&](const std::string& letters, int most) {
    std::string text;
    for (int i = pick(most + 1); i > 0; --i)
      text += letters[static_cast<std::size_t>(pick(static_cast<int>(letters.size())))];
    return std::string(Trim(text));
  };
  for (int round = 0; round < 2000; ++round) {
    std::map<std::string, std::string, NameLess> expected;
    for (int i = pick(8); i > 0; --i) {
      if (std::string name = text_of(name_letters, 6); !name.empty())
        expected[name] = text_of(value_letters, 12);
    }
    std::string text;
    for (const auto& [name, value] : expected) {
      const bool braces = value.find(';') != std::string::npos || value.starts_with('{') || pick(2) == 0;
      const std::string blanks(static_cast<std::size_t>(pick(3)), ' ');
      Append(text, blanks, name, blanks, "=", blanks, braces ? "{" : "", value, braces ? "}" : "",
             braces && pick(3) == 0 ? "left over" : "", blanks, ";");
    }
    const PropertyCollection properties(text);
    for (const auto& [name, value] : expected) EXPECT_EQ(properties.Get(UpperCase(name)), value) << text;
  }
}

TEST(ParseString, IsTrueForAnEmptyTextAndLeavesNoProperty) {
  Runtime runtime;
  EXPECT_TRUE(ParseString(""));
  EXPECT_EQ(NumberRaisedBy([] { GetProperty("UserID"); }), error_number::kInvalidCall);
}

TEST(ParseString, ThrowsTheEarlierPropertiesAway) {
  Runtime runtime;
  ParseString("a=1;b=2");
  ParseString("b=3");
  EXPECT_EQ(GetProperty("b"), "3");
  EXPECT_EQ(NumberRaisedBy([] { GetProperty("a"); }), error_number::kInvalidCall);
}

TEST(ParseString, LeavesNothingOfAnEarlierLoginWhenItFails) {
  Runtime runtime;
  ParseString("UserID=1");
  EXPECT_EQ(NumberRaisedBy([] { ParseString("a=1;a=2;UserID=2"); }), error_number::kDuplicateKey);
  EXPECT_EQ(NumberRaisedBy([] { GetUserID(); }), error_number::kInvalidCall);
}

TEST(GetProperty, RaisesObjectNotSetBeforeParseString) {
  Runtime runtime;
  EXPECT_EQ(NumberRaisedBy([] { GetProperty("UserID"); }), error_number::kObjectNotSet);
}

TEST(GetUserID, GivesTheNumber) {
  Runtime runtime;
  ParseString("UserName=abc;UserID=16394;LANGUAGE=chs;");
  EXPECT_EQ(GetUserID(), 16394);
}

TEST(GetUserID, RaisesOverflowBeyondSixteenBits) {
  Runtime runtime;
  ParseString("UserID=32768");
  EXPECT_EQ(NumberRaisedBy([] { GetUserID(); }), error_number::kOverflow);
}

TEST(GetUserID, RaisesTypeMismatchForAText) {
  Runtime runtime;
  ParseString("UserID=abc");
  EXPECT_EQ(NumberRaisedBy([] { GetUserID(); }), error_number::kTypeMismatch);
}

TEST(GetPropertyFromText, GivesThePinnedLanguageWhateverTheLoginSays) {
  Runtime runtime;
  LogIn(runtime, "LANGUAGE=eng");
  EXPECT_EQ(GetPropertyFromText("language"), "chs");
}

TEST(GetPropertyFromText, NeedsNoLoginForTheLanguage) {
  Runtime runtime;
  EXPECT_EQ(GetPropertyFromText("LANGUAGE"), "chs");
}

TEST(GetPropertyFromText, FindsAValueWithoutRegardToCase) {
  Runtime runtime;
  LogIn(runtime, "UserName=abc;AcctID=7;Last=z");
  EXPECT_EQ(GetPropertyFromText("ACCTID"), "7");
  EXPECT_EQ(GetPropertyFromText("last"), "z");
}

TEST(GetPropertyFromText, GivesTheRestOfATextWithoutAnEnd) {
  Runtime runtime;
  LogIn(runtime, "Last=z y ");
  EXPECT_EQ(GetPropertyFromText("Last"), "z y ");
}

TEST(GetPropertyFromText, MatchesInsideALongerName) {
  Runtime runtime;
  LogIn(runtime, "SubUserID=1;UserID=2");
  EXPECT_EQ(GetPropertyFromText("UserID"), "1");
}

TEST(GetPropertyFromText, StopsAtASemicolonEvenInsideBraces) {
  Runtime runtime;
  LogIn(runtime, "ConnectString={Provider=x;Data Source=y};");
  EXPECT_EQ(GetPropertyFromText("ConnectString"), "{Provider=x");
  EXPECT_EQ(GetPropertyFromText("Data Source"), "y}");
}

TEST(GetPropertyFromText, GivesEmptyTextForANameThatIsNotThere) {
  Runtime runtime;
  LogIn(runtime, "UserID=2;");
  EXPECT_EQ(GetPropertyFromText("User"), "");
  EXPECT_EQ(GetPropertyFromText("XUserID"), "");
}

TEST(ResText, GivesItsArgumentBack) {
  EXPECT_EQ(ResText("请选择过滤条件！"), "请选择过滤条件！");
  EXPECT_EQ(ResText(""), "");
}

}  // namespace
}  // namespace salerpt
