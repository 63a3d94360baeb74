// What the recorded suite answers and what it notes.
#include <gtest/gtest.h>

#include "runtime/mmts.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/vector.h"
#include "shell/recorded/json_value.h"
#include "shell/recorded/recorded_suite.h"

namespace salerpt::shell {
namespace {

// A world with the suite of a case.
struct World {
  explicit World(const char* text = "{}") {
    const Json document = Json::parse(text);
    suite = std::make_shared<RecordedSuite>(ReadRecordedCase(JsonPlace(document)));
    suite->Register(runtime);
  }
  Runtime runtime;
  std::shared_ptr<RecordedSuite> suite;
};

std::string CaseError(const char* text) {
  const Json document = Json::parse(text);
  try {
    ReadRecordedCase(JsonPlace(document));
  } catch (const RuntimeError& failure) {
    return failure.Description();
  }
  return {};
}

TEST(RecordedSuite, GivesTheDefaultLogin) {
  World world;
  EXPECT_EQ(GetPropsString(),
            "UserName=test;UserID=16394;ConnectString={Provider=SQLOLEDB;Data Source=x};LANGUAGE=chs;");
  EXPECT_EQ(GetUserName(), "test");
  EXPECT_TRUE(GetSharedProperty("NoSuchProperty").IsEmpty());
  EXPECT_TRUE(world.suite->Noted().calls.empty());
}

TEST(RecordedSuite, GivesTheLoginOfTheCase) {
  World world(R"({"props": "UserName=abc;UserID=7;"})");
  EXPECT_EQ(GetPropsString(), "UserName=abc;UserID=7;");
  EXPECT_EQ(GetUserName(), "abc");
}

TEST(RecordedSuite, AnswersTheDefaultSettings) {
  World world;
  EXPECT_TRUE(IsLongNumber());
  EXPECT_EQ(GetMaxPeriod(), 12);
  EXPECT_EQ(AmountScale(), 2);
  EXPECT_EQ(ReadSystemProfile("IC", "SecUnit", "0"), "0");
  EXPECT_TRUE(world.suite->Noted().calls.empty());
}

TEST(RecordedSuite, MergesSettingsOverTheDefaultWithoutRegardToCase) {
  World world(
      R"({"profile": {"ic/useshortnumber": 1, "IC/SecUnit": "1", "GL/TaxRate": 17, "IC/Blank": null}})");
  EXPECT_FALSE(IsLongNumber());
  EXPECT_EQ(GetMaxPeriod(), 12);
  EXPECT_DOUBLE_EQ(GetTaxRate(), 0.17);
  EXPECT_EQ(ReadSystemProfile("IC", "SECUNIT", "0"), "1");
  EXPECT_EQ(ReadSystemProfile("IC", "Blank", "absent"), "");
  EXPECT_EQ(ReadSystemProfile("GL", "PeriodCount", "absent"), "12");
}

TEST(RecordedSuite, GivesNullForASettingThatIsNotThere) {
  World world;
  const Variant value = Call(CreateObject("ORVEBSBase.SystemProfile"), "GetProfile", "", "IC", "NoSuchKey");
  EXPECT_TRUE(value.IsNull());
}

TEST(RecordedSuite, AnswersSelectsOfSettingsThroughAnyObject) {
  World world(R"({"profile": {"IC/POOrderTaxInPrice": 1, "IC/PurTaxRateOption": 2}})");
  const RecordsetRef rows = GetRsBySQL(
      "Select FValue,FKey From t_SystemProfile Where FCategory='IC' And FKey "
      "In('POOrderTaxInPrice','PurTaxRateOption')");
  ASSERT_EQ(rows->RecordCount(), 2);
  rows->SetFilter("FKey='PurTaxRateOption'");
  EXPECT_EQ(rows->Value("FValue"), Variant("2"));
  EXPECT_TRUE(world.suite->Noted().calls.empty());
}

TEST(RecordedSuite, GivesNoRowForAScaleOfNull) {
  World world(R"({"amountScale": null})");
  const auto rows = As<Recordset>(Call(CreateObject("ORVMPurchaseRpt.Data"), "GetData", GetPropsString(),
                                       "select  FScale from t_currency where FCurrencyID=1"));
  EXPECT_EQ(rows->RecordCount(), 0);
}

TEST(RecordedSuite, NotesOtherReadsThroughTheScalesObject) {
  World world;
  Call(CreateObject("ORVMPurchaseRpt.Data"), "GetData", GetPropsString(), "select 1");
  EXPECT_EQ(world.suite->Noted().calls.dump(),
            R"([{"object":"ORVMPurchaseRpt.Data","member":"GetData","args":["<props>","select 1"]}])");
}

TEST(RecordedSuite, AnswersDataRightsOffUnlessTheCaseSaysOn) {
  World world(R"({"dataRight": {"1": true, "4": false}})");
  const ObjectRef item_info = CreateObject("ORVEBSGLItem.ItemInfo");
  const auto right = [&](std::int32_t kind) {
    return Call(item_info, "GetDataRight", GetPropsString(), std::int16_t{16394}, kind);
  };
  EXPECT_EQ(right(1), Variant(true));
  EXPECT_EQ(right(2), Variant(false));
  EXPECT_EQ(right(4), Variant(false));
}

TEST(RecordedSuite, GrantsAccessUnlessTheCaseDenies) {
  World world(R"({"access": {"1008,2,4": false}})");
  EXPECT_FALSE(AccessCheck(1008, 2, 4));
  EXPECT_TRUE(AccessCheck(1008, 2, 16));
}

TEST(RecordedSuite, NotesLogLinesApartFromCalls) {
  World world;
  WriteLog("SysRptLog0017", 3, "销售出库汇总表查询");
  EXPECT_EQ(world.suite->Noted().log.dump(), R"([["SysRptLog0017",3,"销售出库汇总表查询"]])");
  EXPECT_TRUE(world.suite->Noted().calls.empty());
}

TEST(RecordedSuite, NotesArgumentsAsTheyWereBeforeTheCall) {
  World world(R"({"replies": {"GetRpt137Data_new": {"Error": "no rows", "FILTER": 2}}})");
  auto conditions = std::make_shared<Dictionary>();
  conditions->Set("Filter", std::int32_t{1});
  Variant filter = conditions;
  Call(CreateObject("ORVMSaleRpt.Data"), "GetRpt137Data_new", GetPropsString(), filter);
  conditions->Set("Later", true);
  EXPECT_EQ(world.suite->Noted().calls[0]["args"].dump(), R"(["<props>",{"Filter":1}])");
  EXPECT_EQ(conditions->Get("Error"), Variant("no rows"));
  EXPECT_EQ(conditions->Get("Filter"), Variant(std::int32_t{2}));
}

TEST(RecordedSuite, GivesAnEmptyRowSetForWhatIsNotAnswered) {
  World world;
  const auto rows = As<Recordset>(Call(CreateObject("ORVMSaleRpt.Data"), "AnyMember", GetPropsString()));
  EXPECT_TRUE(rows->IsOpen());
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_TRUE(rows->Eof());
  rows->SetFilter(" FSumSort <>102 ");
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_THROW(rows->MoveNext(), RuntimeError);
}

TEST(RecordedSuite, GivesTheAnswersOfAnArrayOneACallAndThenEmptyRowSets) {
  World world(R"({"answers": {"getdata": ["a", 2, {"K": "v"}]}})");
  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  const auto next = [&] { return Call(data, "GetData", GetPropsString(), "select 1"); };
  EXPECT_EQ(next(), Variant("a"));
  EXPECT_EQ(next(), Variant(std::int32_t{2}));
  EXPECT_EQ(As<Dictionary>(next())->Get("K"), Variant("v"));
  EXPECT_EQ(As<Recordset>(next())->RecordCount(), 0);
}

TEST(RecordedSuite, GivesASingleAnswerFreshAtEveryCall) {
  World world(R"({"answers": {"GetData": {"fields": [["FID", 3, 0]], "rows": [[1], [2]]}}})");
  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  for (int i = 0; i < 2; ++i) {
    const auto rows = As<Recordset>(Call(data, "GetData", GetPropsString(), "select 1"));
    ASSERT_EQ(rows->RecordCount(), 2);
    EXPECT_EQ(rows->Value("FID"), Variant(std::int32_t{1}));
    rows->MoveNext();
  }
}

TEST(RecordedSuite, RaisesAFaultAndNotesTheCall) {
  World world(
      R"({"faults": {"GetSaleAmountData": {"number": -2147217900, "source": "Srv", "description": "语法错误"}}})");
  try {
    Call(CreateObject("ORVMSaleRpt.Data"), "GetSaleAmountData", GetPropsString());
    FAIL() << "no error was raised";
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.Number(), -2147217900);
    EXPECT_EQ(failure.Source(), "Srv");
    EXPECT_EQ(failure.Description(), "语法错误");
  }
  EXPECT_EQ(world.suite->Noted().calls.size(), 1U);
}

TEST(RecordedSuite, TakesNumbersOfFaultsAboveTheSignedRange) {
  World world(R"({"faults": {"GetData": {"number": 2147745892, "source": "", "description": ""}}})");
  try {
    Call(CreateObject("ORVMSaleRpt.Data"), "GetData");
    FAIL() << "no error was raised";
  } catch (const RuntimeError& failure) {
    EXPECT_EQ(failure.Number(), error_number::kDataRight);
  }
}

TEST(RecordedSuite, FailsProfileReadsByTheFaultOfGetProfile) {
  World world(R"({"profile": {"IC/UseShortNumber": 1}, "faults": {"GetProfile": {"description": "x"}}})");
  EXPECT_EQ(GetMaxPeriod(), 0);
  EXPECT_TRUE(IsLongNumber());
  EXPECT_THROW(ReadSystemProfile("GL", "PeriodCount", ""), RuntimeError);
  EXPECT_TRUE(world.suite->Noted().calls.empty());
}

TEST(RecordedSuite, FailsSelectsOfSettingsByTheFaultOfExecute) {
  World world(R"({"faults": {"Execute": {"description": "x"}}})");
  EXPECT_THROW(ReadSystemProfile("GL", "PeriodCount", ""), RuntimeError);
}

TEST(RecordedSuite, FailsDataRightsByTheFaultOfApplyDataRight) {
  World world(R"({"faults": {"ApplyDataRight": {"description": "x"}}})");
  EXPECT_THROW(Call(CreateObject("ORVEBSGLItem.ItemInfo"), "GetDataRight", "", 1, 1), RuntimeError);
}

TEST(RecordedSuite, NotesMessageBoxesAndAnswersOk) {
  World world;
  EXPECT_EQ(world.runtime.GetToolkit().MessageBox("没有设信用公式", kBoxInformation, "青岚提示"),
            BoxAnswer::kOk);
  EXPECT_EQ(world.suite->Noted().boxes.dump(),
            R"([{"text":"没有设信用公式","title":"青岚提示","style":64}])");
}

TEST(RecordedSuite, HandsOutARecordingOnce) {
  World world;
  Call(CreateObject("ORVMSaleRpt.Data"), "First");
  EXPECT_EQ(world.suite->TakeRecording().calls.size(), 1U);
  Call(CreateObject("ORVMSaleRpt.Data"), "Second");
  const Recording second = world.suite->TakeRecording();
  ASSERT_EQ(second.calls.size(), 1U);
  EXPECT_EQ(second.calls[0]["member"], "Second");
}

TEST(RecordedCase, NamesThePlaceOfAWrongValue) {
  EXPECT_EQ(CaseError(R"({"props": 1})"), "/props: 1 is not a text");
  EXPECT_EQ(CaseError(R"({"profile": {"IC": 1}})"), "/profile/IC: the key is not of the form CATEGORY/KEY");
  EXPECT_EQ(CaseError(R"({"profile": {"IC/A": true}})"),
            "/profile/IC~1A: true is not a text, a number or null");
  EXPECT_EQ(CaseError(R"({"amountScale": "2"})"),
            "/amountScale: \"2\" is not a whole number from 0 to 32767");
  EXPECT_EQ(CaseError(R"({"dataRight": {"1": 1}})"), "/dataRight/1: 1 is not true or false");
  EXPECT_EQ(CaseError(R"({"dataRight": {"x": true}})"),
            "/dataRight/x: the key is not the number of a kind of data right");
  EXPECT_EQ(CaseError(R"({"access": {"1,2": true}})"),
            "/access/1,2: the key is not three whole numbers \"a,b,c\"");
  EXPECT_EQ(CaseError(R"({"replies": {"X": 1}})"), "/replies/X: 1 is not an object");
  EXPECT_EQ(CaseError(R"({"faults": {"X": {"number": "1"}}})"),
            "/faults/X/number: \"1\" is not a whole number from -2147483648 to 4294967295");
  EXPECT_TRUE(CaseError(R"({"faults": {"X": {"text": "1"}}})").starts_with("/faults/X/text: unknown key"));
  EXPECT_EQ(CaseError(R"({"answers": {"X": [{"fields": [["F", 3, 0]], "rows": [[1, 2]]}]}})"),
            "/answers/X/0/rows/0: [1,2] is not a row of 1 values");
}

}  // namespace
}  // namespace salerpt::shell
