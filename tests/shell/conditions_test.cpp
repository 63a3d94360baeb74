#include "shell/conditions.h"

#include <gtest/gtest.h>

#include "dialogs/dialogs.h"
#include "dialogs/unattended.h"
#include "runtime/error.h"
#include "shell/filter_file.h"
#include "shell/suggest.h"

namespace salerpt::shell {
namespace {

template <typename Action>
std::string ErrorOf(Action&& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Description();
  }
  return "no error";
}

// The dialog's dates are those of this clock.
class Clock : public Platform {
 public:
  [[nodiscard]] Date Now() const override { return Date::FromYmd(2024, 5, 6, 7, 8, 9); }
};

class Conditions : public ::testing::Test {
 protected:
  Conditions() {
    runtime_.SetPlatform(std::make_shared<Clock>());
    RegisterDialogs(runtime_);
  }

  DictionaryRef Of(const std::vector<std::string>& arguments) {
    std::vector<Choice> choices;
    for (const std::string& argument : arguments) choices.push_back(ParseChoice(argument));
    return Confirmed(choices);
  }
  DictionaryRef OfFile(const std::string& json) { return Confirmed(ParseFilter(json, "f.json")); }

  static DictionaryRef Confirmed(const std::vector<Choice>& choices) {
    return ConfirmedFilter("frmFirter128", TypedConditions("frmFirter128", choices));
  }

  Runtime runtime_;
};

TEST_F(Conditions, AreTheDefaultsOfTheDialogWhereNothingIsChosen) {
  const auto filter = Of({});
  EXPECT_EQ(filter->Get("OK"), Variant(true));
  EXPECT_EQ(filter->Get("BDate"), Variant("2024-05-06"));
  EXPECT_EQ(filter->Get("EDate"), Variant("2024-05-06"));
  EXPECT_EQ(filter->Get("BItemNumber"), Variant(""));
}

TEST_F(Conditions, HoldAChosenWholeNumberAsA32BitInteger) {
  EXPECT_EQ(Of({"SumMode=8"})->Get("SumMode"), Variant(8));
  EXPECT_EQ(Of({"FROB=-0"})->Get("FROB"), Variant(0));
}

TEST_F(Conditions, FindAKeyWithoutRegardToCase) {
  EXPECT_EQ(Of({"summode=2"})->Get("SumMode"), Variant(2));
  EXPECT_EQ(Of({"ORDERBY=FOutQty Desc"})->Get("Orderby"), Variant("FOutQty Desc"));
}

TEST_F(Conditions, KeepACodeOfDigitsATextWithItsZeros) {
  EXPECT_EQ(Of({"BItemNumber=0101"})->Get("BItemNumber"), Variant("0101"));
}

TEST_F(Conditions, HoldADateAsTheDialogDoes) {
  EXPECT_EQ(Of({"BDate=2024-01-05"})->Get("BDate"), Variant("2024-01-05"));
  EXPECT_EQ(Of({"BDate=2024-1-5"})->Get("BDate"), Variant("2024-01-05"));
}

TEST_F(Conditions, TakeTheTextBehindTheFirstEqualSign) {
  EXPECT_EQ(Of({"ECustNumber=a=b"})->Get("ECustNumber"), Variant("a=b"));
  EXPECT_EQ(Of({"ECustNumber="})->Get("ECustNumber"), Variant(""));
}

TEST_F(Conditions, FollowTheChosenGroupingWithItsField) {
  const auto field = As<Dictionary>(Of({"SumMode=7"})->Get("SumField"));
  EXPECT_EQ(field->Get("FPropID"), Variant(29));
  EXPECT_EQ(field->Get("FSrcTable"), Variant("t_SubMessage"));
}

TEST_F(Conditions, LetTheLaterOfTwoChoicesStand) {
  EXPECT_EQ(Of({"SumMode=1", "SumMode=2"})->Get("SumMode"), Variant(2));
}

TEST_F(Conditions, RefuseADayThatIsNone) {
  EXPECT_EQ(ErrorOf([&] { Of({"BDate=2024-13-01"}); }), "BDate=2024-13-01: a date YYYY-MM-DD was expected");
  EXPECT_EQ(ErrorOf([&] { Of({"EDate=2023-02-29"}); }), "EDate=2023-02-29: a date YYYY-MM-DD was expected");
  EXPECT_EQ(ErrorOf([&] { Of({"EDate="}); }), "EDate=: a date YYYY-MM-DD was expected");
}

TEST_F(Conditions, RefuseATextForANumber) {
  EXPECT_EQ(ErrorOf([&] { Of({"SumMode=x"}); }), "SumMode=x: a whole number was expected");
  EXPECT_EQ(ErrorOf([&] { Of({"BLevel=1.5"}); }), "BLevel=1.5: a whole number was expected");
  EXPECT_EQ(ErrorOf([&] { Of({"BLevel=99999999999"}); }), "BLevel=99999999999: a whole number was expected");
  EXPECT_EQ(ErrorOf([&] { Of({"BLevel="}); }), "BLevel=: a whole number was expected");
  EXPECT_EQ(ErrorOf([&] { Of({"BLevel=1 "}); }), "BLevel=1 : a whole number was expected");
}

TEST_F(Conditions, RefuseAGroupingThatIsNotInTheList) {
  const std::string error = ErrorOf([&] { Of({"SumMode=99"}); });
  EXPECT_TRUE(error.starts_with("SumMode=99: one of 1 (物料类别), 2 (客户类别)")) << error;
}

TEST_F(Conditions, NameAnUnknownKeyAndTheKnownOnes) {
  const std::string error = ErrorOf([&] { Of({"BDat=2024-01-01"}); });
  EXPECT_TRUE(error.starts_with(
      "BDat=2024-01-01: frmFirter128 has no key \"BDat\"; did you mean BDate?; known: BDate, EDate, "))
      << error;
}

TEST_F(Conditions, RefuseAnArgumentThatIsNoPair) {
  EXPECT_EQ(ErrorOf([] { ParseChoice("BDate"); }), "\"BDate\": KEY=VALUE was expected");
  EXPECT_EQ(ErrorOf([] { ParseChoice("=1"); }), "\"=1\": KEY=VALUE was expected");
}

TEST_F(Conditions, RefuseAnObjectOnTheCommandLine) {
  EXPECT_EQ(ErrorOf([&] { Of({"SumField=客户"}); }),
            "SumField=客户: an object (give it with --filter) was expected");
}

TEST_F(Conditions, ComeFromAFileWithNestedObjectsAsDictionaries) {
  const auto filter = OfFile(R"({"SumMode": 5, "BDate": "2024-01-01", "BItemNumber": 12,
                                 "SumField": {"FName": "等级", "FPropID": 3, "FRate": 1.5, "FUsed": true}})");
  EXPECT_EQ(filter->Get("SumMode"), Variant(5));
  EXPECT_EQ(filter->Get("BItemNumber"), Variant("12"));
  const auto field = As<Dictionary>(filter->Get("SumField"));
  EXPECT_EQ(field->Get("FName"), Variant("等级"));
  EXPECT_EQ(field->Get("FPropID"), Variant(3));
  EXPECT_EQ(field->Get("FRate"), Variant(1.5));
  EXPECT_EQ(field->Get("FUsed"), Variant(true));
}

TEST_F(Conditions, TellThePointerAndTheValueOfAWrongTypeInAFile) {
  EXPECT_EQ(ErrorOf([&] { OfFile(R"({"SumMode": "5"})"); }),
            "f.json: /SumMode: \"5\": a whole number was expected");
  EXPECT_EQ(ErrorOf([&] { OfFile(R"({"SumMode": 1.5})"); }),
            "f.json: /SumMode: 1.5: a whole number was expected");
  EXPECT_EQ(ErrorOf([&] { OfFile(R"({"BDate": "2024-02-30"})"); }),
            "f.json: /BDate: \"2024-02-30\": a date YYYY-MM-DD was expected");
  EXPECT_EQ(ErrorOf([&] { OfFile(R"({"BDate": 20240201})"); }),
            "f.json: /BDate: 20240201: a date YYYY-MM-DD was expected");
  EXPECT_EQ(ErrorOf([&] { OfFile(R"({"BItemNumber": true})"); }),
            "f.json: /BItemNumber: true: a text was expected");
  EXPECT_EQ(ErrorOf([&] { OfFile(R"({"SumField": 1})"); }),
            "f.json: /SumField: 1: an object (give it with --filter) was expected");
}

TEST(FilterFile, RefusesWhatAConditionCannotBe) {
  EXPECT_EQ(ErrorOf([] { ParseFilter(R"({"SumField": {"FName": null}})", "f.json"); }),
            "f.json: /SumField/FName: null: a number, a text, a boolean or an object was expected");
  EXPECT_EQ(ErrorOf([] { ParseFilter(R"({"BDate": ["2024-01-01"]})", "f.json"); }),
            "f.json: /BDate: [\"2024-01-01\"]: a number, a text, a boolean or an object was expected");
  EXPECT_EQ(ErrorOf([] { ParseFilter("[1]", "f.json"); }),
            "f.json: [1]: an object of keys and values was expected");
}

TEST(FilterFile, RefusesANumberBeyondTheDoubles) {
  EXPECT_EQ(ErrorOf([] { ParseFilter(R"({"SumMode": 1e400})", "f.json"); }), "f.json: a number is too large");
}

TEST(FilterFile, RefusesWhatIsNestedTooDeeply) {
  std::string json = "1";
  for (int i = 0; i < 100'000; ++i) json = R"({"a":)" + std::move(json);
  EXPECT_EQ(ErrorOf([&json] { ParseFilter(json, "f.json"); }), "f.json: nested deeper than 64 levels");
}

TEST(FilterFile, TellsTheLineOfWhatIsNoJson) {
  EXPECT_EQ(ErrorOf([] { ParseFilter("{\n  \"BDate\": oops\n}", "f.json"); }),
            "f.json: line 2, column 12: this is no JSON");
  EXPECT_EQ(ErrorOf([] { ParseFilter("", "f.json"); }), "f.json: line 1, column 1: this is no JSON");
}

TEST(FilterFile, RefusesAKeyThatStandsThereTwice) {
  EXPECT_EQ(ErrorOf([] { ParseFilter(R"({"BDate": "2024-01-01", "bdate": "2024-01-02"})", "f.json"); }),
            "f.json: the key \"bdate\" stands there twice");
  EXPECT_EQ(ErrorOf([] { ParseFilter(R"({"a": {"x": 1}, "b": {"x": 1}})", "f.json"); }), "no error");
}

TEST(FilterFile, NamesAFileThatCannotBeRead) {
  EXPECT_EQ(ErrorOf([] { ReadFilterFile("/nowhere/f.json"); }),
            "/nowhere/f.json: cannot be read: No such file or directory");
}

TEST(TypedValue, ReadsBooleansWhereTheDefaultIsOne) {
  EXPECT_EQ(TypedValue(ParseChoice("k=TRUE"), false), Variant(true));
  EXPECT_EQ(ErrorOf([] { TypedValue(ParseChoice("k=1"), false); }), "k=1: true or false was expected");
}

TEST(TypedValue, ReadsADateWhereTheDefaultIsOne) {
  EXPECT_EQ(TypedValue(ParseChoice("k=2024-02-29"), Date()), Variant(Date::FromYmd(2024, 2, 29)));
}

TEST(TypedValue, ReadsABrokenNumberWhereTheDefaultMayBeOne) {
  EXPECT_EQ(TypedValue(ParseChoice("k=1.5"), 0.5), Variant(1.5));
  EXPECT_EQ(TypedValue(ParseChoice("k=2"), 0.5), Variant(2));
}

TEST(TypedValue, GoesByTheLookOfTheTextWhereThereIsNoDefault) {
  EXPECT_EQ(TypedValue(ParseChoice("k=12"), {}), Variant(12));
  EXPECT_EQ(TypedValue(ParseChoice("k=1.5"), {}), Variant(1.5));
  EXPECT_EQ(TypedValue(ParseChoice("k=3000000000"), {}), Variant(3e9));
  EXPECT_EQ(TypedValue(ParseChoice("k=true"), {}), Variant(true));
  EXPECT_EQ(TypedValue(ParseChoice("k=x1"), {}), Variant("x1"));
}

TEST(NearestName, FindsANameDespiteASlip) {
  const std::vector<std::string_view> known = {"BDate", "EDate", "SumMode"};
  EXPECT_EQ(NearestName("bdat", known), "BDate");
  EXPECT_EQ(NearestName("SumMoed", known), "SumMode");
}

TEST(NearestName, FindsNothingForAnUnlikeName) {
  const std::vector<std::string_view> known = {"BDate", "SumMode"};
  EXPECT_EQ(NearestName("Colour", known), "");
  EXPECT_EQ(NearestName("", known), "");
}

}  // namespace
}  // namespace salerpt::shell
