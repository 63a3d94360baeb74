#include "runtime/mrpt.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "error_check.h"
#include "fake_object.h"
#include "fake_world.h"
#include "runtime/error.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using testing::FakeObject;
using testing::FakePlatform;
using testing::FakeRef;
using testing::LogIn;
using testing::RecordedCall;
using testing::RegisterFake;
using testing::TempFolder;

constexpr const char* kProps = "UserName=abc;UserID=16394;";

// A set of one text field.
RecordsetRef TextRows(std::string_view field, std::initializer_list<Variant> values) {
  const RecordsetRef rows = MakeRecordset();
  rows->AppendField(field, FieldType::kVarChar, 255);
  rows->Open();
  for (const Variant& value : values) {
    rows->AddNew();
    rows->SetValue(0, value);
    rows->Update();
  }
  return rows;
}

RecordsetRef ScaleRows(std::initializer_list<Variant> values) {
  const RecordsetRef rows = MakeRecordset();
  rows->AppendField("FScale", FieldType::kSmallInt, 0);
  rows->Open();
  for (const Variant& value : values) {
    rows->AddNew();
    rows->SetValue(0, value);
    rows->Update();
  }
  return rows;
}

std::vector<std::string> Texts(const RecordedCall& call) {
  std::vector<std::string> texts;
  for (const Variant& argument : call.arguments) texts.push_back(argument.ToText());
  return texts;
}

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

// A world in which somebody has logged in.
class MiddleTier : public ::testing::Test {
 protected:
  MiddleTier() { LogIn(runtime_, kProps); }
  // The system profile: gives `value` for whatever it is asked.
  FakeRef Profile(const Variant& value) {
    const FakeRef profile = RegisterFake(runtime_, "ORVEBSBase.SystemProfile");
    profile->Gives("GetProfile", value);
    return profile;
  }
  Runtime runtime_;
};

using GetRsBySQLTest = MiddleTier;
using ExecuteSQLTest = MiddleTier;
using ProfileTest = MiddleTier;
using AmountScaleTest = MiddleTier;
using ReadSystemProfileTest = MiddleTier;
using ReadUserSettingTest = MiddleTier;
using GeneralLedgerTest = MiddleTier;
using ClearPropertyTest = MiddleTier;

TEST_F(GetRsBySQLTest, SendsLoginAndStatementAndGivesTheRows) {
  const RecordsetRef rows = TextRows("FName", {"one"});
  const FakeRef server = RegisterFake(runtime_, "ORVMReport.ClsReport");
  server->Gives("GetRsBySQL", Variant(rows));
  EXPECT_EQ(GetRsBySQL("select 1"), rows);
  ASSERT_EQ(server->Calls().size(), 1U);
  EXPECT_EQ(server->Calls()[0].member, "GetRsBySQL");
  EXPECT_EQ(Texts(server->Calls()[0]), (std::vector<std::string>{kProps, "select 1"}));
}

TEST_F(GetRsBySQLTest, RaisesTheFailureAgainWithItsOwnSource) {
  RegisterFake(runtime_, "ORVMReport.ClsReport")->Raises("GetRsBySQL", kServerDown);
  try {
    GetRsBySQL("select 1");
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), -2147467259);
    EXPECT_EQ(error.Source(), "ORVMReport.ClsReport:GetRsBySQL");
    EXPECT_EQ(error.Description(), "the server is not there");
  }
}

TEST_F(GetRsBySQLTest, NamesItsSourceWhereTheObjectCannotBeMade) {
  try {
    GetRsBySQL("select 1");
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), error_number::kObjectMaker);
    EXPECT_EQ(error.Source(), "ORVMReport.ClsReport:GetRsBySQL");
  }
}

TEST_F(ExecuteSQLTest, SendsLoginAndStatement) {
  const FakeRef server = RegisterFake(runtime_, "ORVMReport.ClsReport");
  server->Gives("ExecSQL", Variant());
  ExecuteSQL("delete from t");
  ASSERT_EQ(server->Calls().size(), 1U);
  EXPECT_EQ(server->Calls()[0].member, "ExecSQL");
  EXPECT_EQ(Texts(server->Calls()[0]), (std::vector<std::string>{kProps, "delete from t"}));
}

TEST_F(ExecuteSQLTest, RaisesTheFailureAgainWithItsOwnSource) {
  RegisterFake(runtime_, "ORVMReport.ClsReport")->Raises("ExecSQL", kServerDown);
  try {
    ExecuteSQL("delete from t");
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), -2147467259);
    EXPECT_EQ(error.Source(), "ORVMReport.ClsReport:ExecuteSQL");
    EXPECT_EQ(error.Description(), "the server is not there");
  }
}

TEST_F(ProfileTest, GivesThePeriodsOfAYear) {
  const FakeRef profile = Profile("13");
  EXPECT_EQ(GetMaxPeriod(), 13);
  EXPECT_EQ(Texts(profile->Calls().at(0)), (std::vector<std::string>{kProps, "GL", "PeriodCount"}));
}

TEST_F(ProfileTest, GivesNoPeriodsOnAnyFailure) {
  EXPECT_EQ(GetMaxPeriod(), 0);  // no such object
  const FakeRef profile = Profile(Null());
  EXPECT_EQ(GetMaxPeriod(), 0);
  profile->Gives("GetProfile", "twelve");
  EXPECT_EQ(GetMaxPeriod(), 0);
  profile->Raises("GetProfile", kServerDown);
  EXPECT_EQ(GetMaxPeriod(), 0);
}

TEST_F(ProfileTest, GivesNoPeriodsWithoutALogin) {
  Profile("12");
  EXPECT_EQ(GetMaxPeriod(), 12);
  runtime_.host_object = nullptr;
  EXPECT_EQ(GetMaxPeriod(), 0);
}

TEST_F(ProfileTest, GivesTheTaxRateAsAFraction) {
  const FakeRef profile = Profile(17);
  EXPECT_DOUBLE_EQ(GetTaxRate(), 0.17);
  EXPECT_EQ(Texts(profile->Calls().at(0)), (std::vector<std::string>{kProps, "GL", "TaxRate"}));
  profile->Gives("GetProfile", "6.5");
  EXPECT_DOUBLE_EQ(GetTaxRate(), 0.065);
}

TEST_F(ProfileTest, GivesNoTaxRateOnAnyFailure) {
  EXPECT_EQ(GetTaxRate(), 0);
  const FakeRef profile = Profile(Null());
  EXPECT_EQ(GetTaxRate(), 0);
  profile->Raises("GetProfile", kServerDown);
  EXPECT_EQ(GetTaxRate(), 0);
}

TEST_F(ProfileTest, UsesTheLongCodeWhereTheShortCodeIsSwitchedOff) {
  const FakeRef profile = Profile("0");
  EXPECT_TRUE(IsLongNumber());
  EXPECT_EQ(Texts(profile->Calls().at(0)), (std::vector<std::string>{kProps, "IC", "UseShortNumber"}));
  profile->Gives("GetProfile", 0);
  EXPECT_TRUE(IsLongNumber());
  profile->Gives("GetProfile", 1);
  EXPECT_FALSE(IsLongNumber());
  profile->Gives("GetProfile", "1");
  EXPECT_FALSE(IsLongNumber());
}

TEST_F(ProfileTest, TakesANullForTheShortCodeSwitchedOn) {
  Profile(Null());
  EXPECT_FALSE(IsLongNumber());
}

TEST_F(ProfileTest, UsesTheLongCodeOnAnyFailure) {
  EXPECT_TRUE(IsLongNumber());
  const FakeRef profile = Profile("yes");
  EXPECT_TRUE(IsLongNumber());
  profile->Raises("GetProfile", kServerDown);
  EXPECT_TRUE(IsLongNumber());
}

TEST_F(AmountScaleTest, ReadsTheDecimalsOfTheBaseCurrency) {
  const FakeRef server = RegisterFake(runtime_, "ORVMPurchaseRpt.Data");
  server->Gives("GetData", Variant(ScaleRows({std::int16_t{4}})));
  EXPECT_EQ(AmountScale(), 4);
  EXPECT_EQ(Texts(server->Calls().at(0)),
            (std::vector<std::string>{kProps, "select  FScale from t_currency where FCurrencyID=1"}));
}

TEST_F(AmountScaleTest, TakesTheFirstRow) {
  RegisterFake(runtime_, "ORVMPurchaseRpt.Data")
      ->Gives("GetData", Variant(ScaleRows({std::int16_t{0}, std::int16_t{6}})));
  EXPECT_EQ(AmountScale(), 0);
}

TEST_F(AmountScaleTest, IsTwoWithoutARow) {
  RegisterFake(runtime_, "ORVMPurchaseRpt.Data")->Gives("GetData", Variant(ScaleRows({})));
  EXPECT_EQ(AmountScale(), 2);
}

TEST_F(AmountScaleTest, RaisesWhatTheReadRaises) {
  const FakeRef server = RegisterFake(runtime_, "ORVMPurchaseRpt.Data");
  server->Raises("GetData", kServerDown);
  EXPECT_EQ(NumberRaisedBy([&] { AmountScale(); }), -2147467259);
  server->Gives("GetData", Variant(ScaleRows({Null()})));
  EXPECT_EQ(NumberRaisedBy([&] { AmountScale(); }), error_number::kInvalidNull);
  server->Gives("GetData", Variant());
  EXPECT_EQ(NumberRaisedBy([&] { AmountScale(); }), error_number::kObjectNotSet);
}

TEST_F(ReadSystemProfileTest, ReadsOneValueOnTheHostsConnection) {
  const FakeRef connection = RegisterFake(runtime_, "ORVConnection.AppConnection");
  connection->Gives("Execute", Variant(TextRows("FValue", {"1"})));
  EXPECT_EQ(ReadSystemProfile("IC", "SecUnit", "0"), "1");
  EXPECT_EQ(
      Texts(connection->Calls().at(0)),
      (std::vector<std::string>{"select * from t_systemprofile where FCategory='IC' and fkey ='SecUnit'"}));
}

TEST_F(ReadSystemProfileTest, QuotesCategoryAndKey) {
  const FakeRef connection = RegisterFake(runtime_, "ORVConnection.AppConnection");
  connection->Gives("Execute", Variant(TextRows("FValue", {})));
  ReadSystemProfile("I'C", " Key ", "");
  EXPECT_EQ(
      Texts(connection->Calls().at(0)),
      (std::vector<std::string>{"select * from t_systemprofile where FCategory='I''C' and fkey ='Key'"}));
}

TEST_F(ReadSystemProfileTest, GivesEmptyTextForANullAndTheDefaultWithoutARow) {
  const FakeRef connection = RegisterFake(runtime_, "ORVConnection.AppConnection");
  connection->Gives("Execute", Variant(TextRows("FValue", {Null()})));
  EXPECT_EQ(ReadSystemProfile("IC", "SecUnit", "0"), "");
  connection->Gives("Execute", Variant(TextRows("FValue", {})));
  EXPECT_EQ(ReadSystemProfile("IC", "SecUnit", "0"), "0");
}

TEST_F(ReadSystemProfileTest, RaisesWhatTheReadRaises) {
  EXPECT_EQ(NumberRaisedBy([&] { ReadSystemProfile("IC", "SecUnit", "0"); }), error_number::kObjectMaker);
  const FakeRef connection = RegisterFake(runtime_, "ORVConnection.AppConnection");
  connection->Raises("Execute", kServerDown);
  EXPECT_EQ(NumberRaisedBy([&] { ReadSystemProfile("IC", "SecUnit", "0"); }), -2147467259);
  connection->Gives("Execute", Variant(TextRows("FOther", {"1"})));
  EXPECT_EQ(NumberRaisedBy([&] { ReadSystemProfile("IC", "SecUnit", "0"); }), error_number::kNoSuchField);
}

// The profile object and the dictionary behind it.
struct UserProfile {
  FakeRef profile;
  FakeRef settings;
};
UserProfile MakeUserProfile(Runtime& runtime, const Variant& value,
                            std::shared_ptr<FakeObject::Log> log = nullptr) {
  UserProfile made{RegisterFake(runtime, "ORVEBCBASE.UserProfile", log),
                   std::make_shared<FakeObject>("Settings", log)};
  made.settings->Gives("GetValue", value);
  made.profile->Gives("Load", Variant()).Gives("Dictionary", Variant(made.settings));
  return made;
}

TEST_F(ReadUserSettingTest, LoadsTheProfileAndReadsTheKey) {
  const auto log = std::make_shared<FakeObject::Log>();
  MakeUserProfile(runtime_, "0", log);
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", "1"), Variant("0"));
  ASSERT_EQ(log->size(), 3U);
  EXPECT_EQ((*log)[0].member, "Load");
  EXPECT_EQ(Texts((*log)[0]), (std::vector<std::string>{"ORV", "Filter"}));
  EXPECT_EQ((*log)[1].member, "Dictionary");
  EXPECT_EQ((*log)[2].member, "GetValue");
  EXPECT_EQ(Texts((*log)[2]), (std::vector<std::string>{"ShowList", "1"}));
}

TEST_F(ReadUserSettingTest, GivesABooleanWhereTheDefaultIsOne) {
  MakeUserProfile(runtime_, "1");
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", false), Variant(true));
}

TEST_F(ReadUserSettingTest, GivesTextForAnyOtherDefault) {
  MakeUserProfile(runtime_, 12);
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "Width", 10), Variant("12"));
}

TEST_F(ReadUserSettingTest, GivesTheDefaultOnAnyFailure) {
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", "1"), Variant("1"));  // no such object
  const UserProfile made = MakeUserProfile(runtime_, "0");
  made.settings->Raises("GetValue", kServerDown);
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", true), Variant(true));
  made.profile->Gives("Dictionary", Variant());
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", "1"), Variant("1"));
}

TEST_F(ReadUserSettingTest, GivesTheDefaultForAValueThatIsNoBoolean) {
  MakeUserProfile(runtime_, "perhaps");
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", true), Variant(true));
}

TEST_F(ReadUserSettingTest, ReadsOnAfterALoadThatFailed) {
  const UserProfile made = MakeUserProfile(runtime_, "0");
  made.profile->Raises("Load", kServerDown);
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", "1"), Variant("0"));
}

TEST_F(GeneralLedgerTest, MakesTheObjectOnceAndKeepsIt) {
  int made = 0;
  const FakeRef ledger = RegisterFake(runtime_, "ORVEBCGLView.GLData", nullptr, &made);
  ledger->Gives("AccessCheck", true);
  EXPECT_EQ(made, 0);
  EXPECT_TRUE(AccessCheck(1099, 15, 0x200000));
  ledger->Gives("AccessCheck", 0);
  EXPECT_FALSE(AccessCheck(1099, 15, 0x200000));
  EXPECT_EQ(GLDataObject(), ledger);
  EXPECT_EQ(made, 1);
  EXPECT_EQ(Texts(ledger->Calls().at(0)), (std::vector<std::string>{"1099", "15", "2097152"}));
}

TEST_F(GeneralLedgerTest, AccessCheckRaisesWhatTheCallRaises) {
  EXPECT_EQ(NumberRaisedBy([&] { AccessCheck(1, 2, 3); }), error_number::kObjectMaker);
  RegisterFake(runtime_, "ORVEBCGLView.GLData")->Raises("AccessCheck", kServerDown);
  EXPECT_EQ(NumberRaisedBy([&] { AccessCheck(1, 2, 3); }), -2147467259);
}

TEST_F(GeneralLedgerTest, WritesOneLineInTheLog) {
  const FakeRef ledger = RegisterFake(runtime_, "ORVEBCGLView.GLData");
  ledger->Gives("WriteLog", Variant());
  WriteLog("SysRptLog0017", 3, "销售出库汇总表查询");
  ASSERT_EQ(ledger->Calls().size(), 1U);
  EXPECT_EQ(ledger->Calls()[0].member, "WriteLog");
  EXPECT_EQ(Texts(ledger->Calls()[0]),
            (std::vector<std::string>{"SysRptLog0017", "3", "销售出库汇总表查询"}));
}

TEST_F(GeneralLedgerTest, LosesALogLineThatFailsWithoutAWord) {
  EXPECT_NO_THROW(WriteLog("SysRptLog0017", 3, "text"));  // no such object
  const FakeRef ledger = RegisterFake(runtime_, "ORVEBCGLView.GLData");
  ledger->Raises("WriteLog", kServerDown);
  EXPECT_NO_THROW(WriteLog("SysRptLog0017", 3, "text"));
  EXPECT_EQ(ledger->Calls().size(), 1U);
}

TEST_F(ClearPropertyTest, RemovesANumberedPropertyOfThisProcess) {
  runtime_.SetPlatform(std::make_shared<FakePlatform>("/"));
  const FakeRef store = RegisterFake(runtime_, "ORVPropsMgr.ShareProps");
  store->On("DelProperty", [](Arguments arguments) {
    arguments[2] = "old value";
    return Variant();
  });
  ClearProperty(32);
  ASSERT_EQ(store->Calls().size(), 1U);
  EXPECT_EQ(store->Calls()[0].arguments, (std::vector<Variant>{4711, 32, Variant()}));
}

TEST_F(ClearPropertyTest, RaisesWhatTheStoreRaises) {
  EXPECT_EQ(NumberRaisedBy([&] { ClearProperty(32); }), error_number::kObjectMaker);
}

// A folder in which the settings stand.
class DebugSwitchTest : public ::testing::Test {
 protected:
  DebugSwitchTest() {
    runtime_.SetPlatform(std::make_shared<FakePlatform>(folder_.Path()));
    runtime_.ini_file.SetFileName("JXCQ7SaleRpt.INI");
  }
  Runtime runtime_;
  TempFolder folder_;
};

TEST_F(DebugSwitchTest, ReadsTheSwitchAndSetsTheFileNameBack) {
  folder_.Write("C:\\RptTest.Ini", "[Para]\r\nDebug=1\r\n");
  EXPECT_EQ(ReadDebugSwitch(), 1);
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(DebugSwitchTest, IsZeroWithoutTheFile) {
  EXPECT_EQ(ReadDebugSwitch(), 0);
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(DebugSwitchTest, TakesTheNumberThatTheValueBeginsWith) {
  folder_.Write("C:\\RptTest.Ini", "[Para]\nDebug=2 on\n");
  EXPECT_EQ(ReadDebugSwitch(), 2);
  folder_.Write("C:\\RptTest.Ini", "[Para]\nDebug=on\n");
  EXPECT_EQ(ReadDebugSwitch(), 0);
}

TEST_F(DebugSwitchTest, SetsTheFileNameBackWhereTheNumberIsTooLarge) {
  folder_.Write("C:\\RptTest.Ini", "[Para]\nDebug=99999999999\n");
  EXPECT_EQ(NumberRaisedBy([&] { ReadDebugSwitch(); }), error_number::kOverflow);
  EXPECT_EQ(runtime_.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST(NoticeTitle, IsTheNoticeOfTheSystem) {
  EXPECT_EQ(NoticeTitle(), "系统提示");
  EXPECT_EQ(kHintTitle, "青岚提示");
}

}  // namespace
}  // namespace salerpt
