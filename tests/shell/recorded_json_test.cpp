// JSON to values and back, and the errors that name the place.
#include <gtest/gtest.h>

#include "runtime/vector.h"
#include "shell/recorded/case_file.h"
#include "shell/recorded/json_value.h"
#include "shell/recorded/shown.h"

namespace salerpt::shell {
namespace {

using Kind = Variant::Kind;

// What `call` raises as an error of the run-time; empty where it raises nothing.
template <typename Act>
std::string ErrorOf(Act&& call) {
  try {
    call();
  } catch (const RuntimeError& failure) {
    return failure.Description();
  }
  return {};
}

Variant AnswerOf(const char* text) {
  const Json document = Json::parse(text);
  return ToAnswer(JsonPlace(document));
}

TEST(JsonPlace, SpellsThePointerWithEscapes) {
  const Json document = Json::parse(R"({"a/b": [1, {"x~y": true}]})");
  std::string pointer;
  JsonPlace(document).Members([&](std::string_view, const JsonPlace& list) {
    list.Elements([&](const JsonPlace& element) {
      if (!element.Value().is_object()) return;
      element.IfPresent("x~y", [&](const JsonPlace& place) { pointer = place.Pointer(); });
    });
  });
  EXPECT_EQ(pointer, "/a~1b/1/x~0y");
}

TEST(JsonPlace, NamesPlaceValueAndWhatWasExpected) {
  const Json document = Json::parse(R"({"drill": "three"})");
  const std::string error = ErrorOf([&] {
    JsonPlace(document).IfPresent("drill", [](const JsonPlace& place) { (void)place.Whole(0, 9); });
  });
  EXPECT_EQ(error, "/drill: \"three\" is not a whole number from 0 to 9");
}

TEST(JsonPlace, CutsLongValuesAtAWholeCharacter) {
  const Json document = Json::parse("[\"" + std::string(57, 'x') + "销售\"]");
  const std::string error = ErrorOf([&] { JsonPlace(document).RequireObject(); });
  EXPECT_EQ(error, "the document: [\"" + std::string(57, 'x') + "… is not an object");
}

TEST(JsonPlace, RefusesBrokenAndOutOfRangeWholeNumbers) {
  for (const char* text : {"1.5", "-1", "10", "1e300", "true", "null"}) {
    const Json document = Json::parse(text);
    EXPECT_NE(ErrorOf([&] { (void)JsonPlace(document).Whole(0, 9); }), "") << text;
  }
  const Json whole = Json::parse("7.0");
  EXPECT_EQ(JsonPlace(whole).Whole(0, 9), 7);
}

TEST(ToConditions, MakesWholeNumbersInt32AndOthersDouble) {
  const Json document = Json::parse(R"({"a": 7, "b": 2.5, "c": 3000000000, "d": -2147483648})");
  const DictionaryRef conditions = ToConditions(JsonPlace(document));
  EXPECT_EQ(conditions->Get("a"), Variant(std::int32_t{7}));
  EXPECT_EQ(conditions->Get("b"), Variant(2.5));
  EXPECT_EQ(conditions->Get("c"), Variant(3000000000.0));
  EXPECT_EQ(conditions->Get("d").GetKind(), Kind::kInt32);
}

TEST(ToConditions, KeepsOrderAndSpellingAndMakesNestedDictionaries) {
  const Json document = Json::parse(R"({"Z": "x", "sumField": {"FName": "客户", "FPropID": 1}, "A": true})");
  const DictionaryRef conditions = ToConditions(JsonPlace(document));
  ASSERT_EQ(conditions->Entries().size(), 3U);
  EXPECT_EQ(conditions->Entries()[0].key, "Z");
  EXPECT_EQ(conditions->Entries()[1].key, "sumField");
  const auto field = As<Dictionary>(conditions->Get("SumField"));
  EXPECT_EQ(field->Get("FName"), Variant("客户"));
  EXPECT_EQ(conditions->Get("A"), Variant(true));
}

TEST(ToConditions, RefusesAnArrayWithItsPlace) {
  const Json document = Json::parse(R"({"SumField": {"x": [1]}})");
  EXPECT_EQ(ErrorOf([&] { ToConditions(JsonPlace(document)); }),
            "/SumField/x: [1] is not a number, a text, a boolean, null or an object");
}

TEST(ToConditions, RefusesNestingWithoutEnd) {
  std::string text = "1";
  for (int i = 0; i < 5000; ++i) text = "{\"a\":" + text + "}";
  const Json document = Json::parse(text);
  EXPECT_NE(ErrorOf([&] { ToConditions(JsonPlace(document)); }).find("nested deeper than 64 levels"),
            std::string::npos);
}

TEST(ToAnswer, MakesRowSetsWithTypedValues) {
  const auto rows = As<Recordset>(AnswerOf(
      R"({"fields": [["FName", 200, 10], ["FQty", 5, 0], ["FAmount", 6, 0], ["FDate", 7, 0], ["FSumSort", 3, 0]],
          "rows": [["名", 2.5, 10.25, "2003-07-01", 0], [null, 3, 1, null, 101]]})"));
  ASSERT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(rows->Value("FName"), Variant("名"));
  EXPECT_EQ(rows->Value("FAmount"), Variant(Currency::FromScaled(102500)));
  EXPECT_EQ(rows->Value("FDate"), Variant(Date::FromYmd(2003, 7, 1)));
  rows->MoveNext();
  EXPECT_TRUE(rows->Value("FName").IsNull());
  EXPECT_EQ(rows->Value("FQty"), Variant(3.0));
  EXPECT_EQ(rows->Value("FSumSort"), Variant(std::int32_t{101}));
}

TEST(ToAnswer, MakesDictionariesOfRowSetsAndVectors) {
  const auto answer = As<Dictionary>(
      AnswerOf(R"({"rsOrder": {"fields": [["FID", 3, 0]], "rows": [[7]]}, "list": [1, "x"], "none": null})"));
  EXPECT_EQ(As<Recordset>(answer->Get("rsOrder"))->Value("FID"), Variant(std::int32_t{7}));
  EXPECT_EQ(As<Vector>(answer->Get("list"))->Item(2), Variant("x"));
  EXPECT_EQ(answer->Get("none").ToObject(), nullptr);
}

TEST(ToRecordset, NamesTheCellThatDoesNotFitItsField) {
  const std::string error = ErrorOf([] {
    AnswerOf(
        R"({"fields": [["FID", 3, 0], ["FDate", 7, 0]], "rows": [[1, "2003-07-01"], [2, "2003-02-30"]]})");
  });
  EXPECT_TRUE(error.starts_with("/rows/1/1: ")) << error;
  EXPECT_NE(error.find("2003-02-30"), std::string::npos) << error;
}

TEST(ToRecordset, RefusesRowsOfAWrongLengthAndUnknownTypes) {
  EXPECT_EQ(ErrorOf([] { AnswerOf(R"({"fields": [["FID", 3, 0]], "rows": [[1, 2]]})"); }),
            "/rows/0: [1,2] is not a row of 1 values");
  EXPECT_EQ(ErrorOf([] { AnswerOf(R"({"fields": [["FID", 9, 0]], "rows": []})"); }),
            "/fields/0: field type 9 is none that a row set can hold");
  EXPECT_EQ(ErrorOf([] { AnswerOf(R"({"fields": [["FID", 3]], "rows": []})"); }),
            "/fields/0: [\"FID\",3] is not a field [name, type, size]");
  EXPECT_EQ(ErrorOf([] { AnswerOf(R"({"fields": [], "rows": [[]]})"); }),
            "/rows/0: a row in a row set without fields");
}

TEST(Show, WritesNumbersAsTheyAre) {
  EXPECT_EQ(Show(std::int16_t{4}).dump(), "4");
  EXPECT_EQ(Show(std::int32_t{-7}).dump(), "-7");
  EXPECT_EQ(Show(12.0).dump(), "12");
  EXPECT_EQ(Show(-0.0).dump(), "0");
  EXPECT_EQ(Show(0.1).dump(), "0.1");
  EXPECT_EQ(Show(1e20).dump(), "1e+20");
  EXPECT_EQ(Show(Currency::FromScaled(120000)).dump(), "12");
  EXPECT_EQ(Show(Currency::FromScaled(-102500)).dump(), "-10.25");
  EXPECT_EQ(Show(Currency::FromScaled(123456789012345)).dump(), "12345678901.2345");
}

TEST(Show, WritesDatesBooleansNothingAndNull) {
  EXPECT_EQ(Show(Date::FromYmd(2003, 7, 1)).dump(), "\"2003-07-01\"");
  EXPECT_EQ(Show(Date::FromYmd(2003, 7, 1, 8, 30)).dump(), "\"2003-07-01 08:30:00\"");
  EXPECT_EQ(Show(true).dump(), "true");
  EXPECT_EQ(Show(Variant()).dump(), "null");
  EXPECT_EQ(Show(Null{}).dump(), "null");
  EXPECT_EQ(Show(ObjectRef()).dump(), "null");
}

TEST(Show, WritesDictionariesAsFirstSpelledAndVectorsAsArrays) {
  auto dictionary = std::make_shared<Dictionary>();
  dictionary->Set("SElECT", "a");
  dictionary->Set("Append", "b");
  dictionary->Set("SELECT", "c");
  auto vector = std::make_shared<Vector>();
  vector->Add(dictionary);
  vector->Add(1.5);
  EXPECT_EQ(Show(vector).dump(), R"([{"SElECT":"c","Append":"b"},1.5])");
}

TEST(Show, RefusesADictionaryThatHoldsItself) {
  auto dictionary = std::make_shared<Dictionary>();
  dictionary->Set("self", dictionary);
  EXPECT_THROW(Show(dictionary), RuntimeError);
  dictionary->Set("self", Null{});
}

TEST(ShowRecordset, ShowsTheRowsUnderTheFilterFromTheFirst) {
  const auto rows = As<Recordset>(AnswerOf(
      R"({"fields": [["FName", 200, 0], ["FSumSort", 2, 0]], "rows": [["a", 0], ["b", 101], ["c", 0]]})"));
  rows->SetFilter("FSumSort=0");
  rows->MoveNext();
  EXPECT_EQ(ShowRecordset(*rows).dump(),
            R"({"fields":[["FName",200,0],["FSumSort",2,0]],"rows":[["a",0],["c",0]]})");
  EXPECT_EQ(rows->Value(0), Variant("a"));
}

TEST(ShowRecordset, ShowsAClosedSetAsNull) {
  const auto rows = As<Recordset>(AnswerOf(R"({"fields": [["FID", 3, 0]], "rows": [[1]]})"));
  rows->Close();
  EXPECT_TRUE(ShowRecordset(*rows).is_null());
}

TEST(ParseCase, TellsLineAndColumnOfBadJson) {
  const std::string error = ErrorOf([] { ParseCase("{\n  \"drill\": ,\n}", "case.json"); });
  EXPECT_TRUE(error.starts_with("case.json: line 2, column 12: syntax error")) << error;
}

TEST(ParseCase, LeavesBytesThatAreNoTextOutOfTheMessage) {
  EXPECT_EQ(ErrorOf([] { ParseCase("{\"a\":\"\xff\"}", "case.json"); }),
            "case.json: line 1, column 7: syntax error while parsing value - invalid string: ill-formed "
            "UTF-8 byte");
}

TEST(ParseCase, RefusesANumberBeyondTheDoubles) {
  EXPECT_EQ(ErrorOf([] { ParseCase("{\"a\": 1e400}", "case.json"); }),
            "case.json: number overflow parsing '1e400'");
}

TEST(ParseCase, RefusesWhatIsNestedTooDeeply) {
  EXPECT_EQ(ErrorOf([] { ParseCase(std::string(100'000, '['), "case.json"); }),
            "case.json: nested deeper than 256 levels");
}

TEST(ParseCase, RefusesAKeyThatStandsTwiceInOneObject) {
  EXPECT_EQ(ErrorOf([] { ParseCase(R"({"a": {"x": 1}, "b": {"x": 2, "x": 3}})", "case.json"); }),
            "case.json: the key \"x\" stands twice in one object");
  EXPECT_EQ(ErrorOf([] { ParseCase(R"({"a": {"x": 1}, "b": {"x": 2}})", "case.json"); }), "");
}

TEST(ReadCaseFile, NamesAFileThatIsNotThere) {
  const std::string error = ErrorOf([] { LoadCase("/nowhere/case.json"); });
  EXPECT_NE(error.find("/nowhere/case.json"), std::string::npos);
}

}  // namespace
}  // namespace salerpt::shell
