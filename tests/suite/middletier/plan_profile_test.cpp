// The store of filter plans, and the settings of a user.
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include "runtime/mrpt.h"
#include "runtime/vector.h"
#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kFamily = 166;
constexpr const char* kPlans = "ORVMCaculateRpt.Profile";
constexpr const char* kDefault = "默认方案";

struct Value {
  const char* key;
  Variant value;
};

class PlanProfileTest : public CompanyTest {
 protected:
  static VectorRef Rows(std::int32_t family, std::string_view plan, std::initializer_list<Value> values) {
    auto rows = std::make_shared<Vector>();
    for (const Value& value : values) {
      rows->Add(std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{
          {"RptID", family}, {"Plan", plan}, {"Key", value.key}, {"Value", value.value}}));
    }
    return rows;
  }
  static void Save(std::string_view plan, std::initializer_list<Value> values,
                   std::int32_t family = kFamily) {
    Call(CreateObject(kPlans), "SaveProfile", kProps, Rows(family, plan, values));
  }
  // "name*" for the chosen one.
  static std::vector<std::string> List(std::int32_t family = kFamily) {
    const auto rows = As<Recordset>(Call(CreateObject(kPlans), "GetPlanList", kProps, family));
    std::vector<std::string> plans;
    for (; !rows->Eof(); rows->MoveNext()) {
      plans.push_back(rows->Value("FPlan").ToText() + (rows->Value("FStatus").ToInt32() == 1 ? "*" : ""));
    }
    return plans;
  }
  // "key=value" in the order of the store.
  static std::vector<std::string> Values(std::string_view plan, std::int32_t family = kFamily) {
    const auto rows = As<Recordset>(Call(CreateObject(kPlans), "GetPlanValue", kProps, family, plan));
    std::vector<std::string> values;
    for (; !rows->Eof(); rows->MoveNext()) {
      const Variant value = rows->Value("FValue");
      values.push_back(rows->Value("FKey").ToText() + "=" + (value.IsNull() ? "null" : value.ToText()));
    }
    return values;
  }
  static std::string Next(const Variant& family = Variant("166")) {
    return Call(CreateObject(kPlans), "FindChooseValue", kProps, family).ToText();
  }
  void LogInAs(std::int32_t user) {
    Login login;
    login.user_id = user;
    RegisterMiddleTier(runtime_, account_set_, login);
  }
};

TEST_F(PlanProfileTest, AStoreWithoutPlansIsEmpty) {
  EXPECT_THAT(List(), IsEmpty());
  EXPECT_THAT(Values(kDefault), IsEmpty());
  EXPECT_EQ(Next(), "");
}

TEST_F(PlanProfileTest, ValuesComeBackInTheOrderOfSavingAndAsTheyWere) {
  Save("月报", {{"EDate", "2024-03-31"},
                {"BDate", "2024-03-01"},
                {"BItem", " 01.01 "},
                {"OrderBy", ""},
                {"Nothing", Null()},
                {"BLevel", std::int32_t{3}}});
  EXPECT_THAT(Values("月报"), ElementsAre("EDate=2024-03-31", "BDate=2024-03-01", "BItem= 01.01 ",
                                          "OrderBy=", "Nothing=null", "BLevel=3"));
}

TEST_F(PlanProfileTest, ASaveReplacesThePlanAndNoOther) {
  Save("A", {{"BDate", "1"}, {"EDate", "2"}});
  Save("B", {{"BDate", "3"}});
  Save("A", {{"EDate", "4"}});
  EXPECT_THAT(Values("A"), ElementsAre("EDate=4"));
  EXPECT_THAT(Values("B"), ElementsAre("BDate=3"));
}

TEST_F(PlanProfileTest, AKeyGivenTwiceKeepsItsPlaceAndItsLastValue) {
  Save("A", {{"BDate", "1"}, {"EDate", "2"}, {"BDATE", "3"}});
  EXPECT_THAT(Values("A"), ElementsAre("BDate=3", "EDate=2"));
}

TEST_F(PlanProfileTest, ThePlanSavedLastIsTheChosenOne) {
  Save(kDefault, {{"BDate", "1"}});
  EXPECT_THAT(List(), ElementsAre("默认方案*"));
  Save("A", {{"BDate", "1"}});
  EXPECT_THAT(List(), ElementsAre("A*", kDefault));
  Save(kDefault, {{"BDate", "1"}});
  EXPECT_THAT(List(), ElementsAre("A", "默认方案*"));
}

TEST_F(PlanProfileTest, PlansBelongToTheirFamilyAndTheirUser) {
  Save("A", {{"BDate", "1"}, {"chkNextChoose", "1"}});
  EXPECT_THAT(List(167), IsEmpty());
  EXPECT_THAT(Values("A", 167), IsEmpty());
  EXPECT_EQ(Next("167"), "");
  LogInAs(16395);
  EXPECT_THAT(List(), IsEmpty());
  EXPECT_THAT(Values("A"), IsEmpty());
  EXPECT_EQ(Next(), "");
  Save("A", {{"BDate", "9"}});
  LogInAs(16394);
  EXPECT_THAT(Values("A"), ElementsAre("BDate=1", "chkNextChoose=1"));
  EXPECT_EQ(Next(), "A");
}

TEST_F(PlanProfileTest, BothNamesOfTheStoreAreOneStore) {
  Call(CreateObject("ORVMYWARAPRpt.Profile"), "SaveProfile", kProps, Rows(189, "A", {{"BDate", "1"}}));
  EXPECT_THAT(Values("A", 189), ElementsAre("BDate=1"));
}

TEST_F(PlanProfileTest, ThePlanWithTheBoxCheckedIsTheNextOne) {
  Save("A", {{"chkNextChoose", "0"}});
  EXPECT_EQ(Next(), "");
  Save("A", {{"chkNextChoose", "1"}});
  EXPECT_EQ(Next("166"), "A");
  EXPECT_EQ(Next(kFamily), "A");
  Save("B", {{"chkNextChoose", "1"}});
  EXPECT_EQ(Next(), "B");
  EXPECT_THAT(Values("A"), ElementsAre("chkNextChoose=0"));
  Save("B", {{"BDate", "1"}});
  EXPECT_EQ(Next(), "");
}

TEST_F(PlanProfileTest, ClearingTheMarkLeavesThePlans) {
  Save("A", {{"BDate", "1"}, {"chkNextChoose", "1"}});
  Save("A", {{"chkNextChoose", "1"}}, 167);
  Call(CreateObject(kPlans), "UpdateNextChooseValue", kProps, kFamily);
  EXPECT_EQ(Next(), "");
  EXPECT_THAT(Values("A"), ElementsAre("BDate=1", "chkNextChoose=0"));
  EXPECT_THAT(List(), ElementsAre("A*"));
  EXPECT_EQ(Next("167"), "A");
}

TEST_F(PlanProfileTest, ADeletedPlanTakesItsMarkAlong) {
  Save("A", {{"BDate", "1"}, {"chkNextChoose", "1"}});
  Save("B", {{"BDate", "2"}});
  Call(CreateObject(kPlans), "DelPlan", kProps, kFamily, "A");
  Call(CreateObject(kPlans), "DelPlan", kProps, kFamily, "no such plan");
  EXPECT_THAT(List(), ElementsAre("B*"));
  EXPECT_THAT(Values("A"), IsEmpty());
  EXPECT_EQ(Next(), "");
}

TEST_F(PlanProfileTest, DoubledApostrophesAreOfTheCallAndNotOfTheNameOrTheValue) {
  Save("O''Neil", {{"BItem", "R''1"}, {"chkNextChoose", "1"}});
  EXPECT_THAT(List(), ElementsAre("O'Neil*"));
  EXPECT_THAT(Values("O''Neil"), ElementsAre("BItem=R'1", "chkNextChoose=1"));
  EXPECT_EQ(Next(), "O'Neil");
  Call(CreateObject(kPlans), "DelPlan", kProps, kFamily, "O''Neil");
  EXPECT_THAT(List(), IsEmpty());
}

TEST_F(PlanProfileTest, ASaveThatFailsLeavesThePlanAndItsMarkAsTheyWere) {
  Save("A", {{"BDate", "1"}, {"chkNextChoose", "1"}});
  const auto error = RaisedBy([] { Save("A", {{"BDate", "2"}, {"EItem", std::string(3000, 'x')}}); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Source(), "ORVMCaculateRpt.Profile:SaveProfile");
  EXPECT_THAT(Values("A"), ElementsAre("BDate=1", "chkNextChoose=1"));
  EXPECT_EQ(Next(), "A");
  Save("A", {{"BDate", "3"}});
  EXPECT_THAT(Values("A"), ElementsAre("BDate=3"));
}

TEST_F(PlanProfileTest, ASaveThatIsKilledLeavesThePlanAsItWas) {
  Save("A", {{"BDate", "1"}, {"EDate", "2"}});
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    // Everything is written, nothing is committed yet.
    const auto account_set = std::make_shared<accountset::AccountSet>(OpenAgain());
    sqlite3_commit_hook(
        account_set->Connection(), [](void*) { return kill(getpid(), SIGKILL); }, nullptr);
    Runtime runtime;
    RegisterMiddleTier(runtime, account_set, Login{});
    Save("A", {{"BDate", "9"}});
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_THAT(Values("A"), ElementsAre("BDate=1", "EDate=2"));
}

TEST_F(PlanProfileTest, ASaveWhileAnotherProgramWritesIsToldAsAnError) {
  const accountset::AccountSet other = OpenAgain();
  ASSERT_EQ(sqlite3_exec(other.Connection(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_busy_timeout(account_set_->Connection(), 0);
  EXPECT_THAT(DescriptionRaisedBy([] {
                Save("A", {{"BDate", "1"}});
              }),
              testing::HasSubstr("another program is writing to it"));
  ASSERT_EQ(sqlite3_exec(other.Connection(), "ROLLBACK", nullptr, nullptr, nullptr), SQLITE_OK);
  Save("A", {{"BDate", "1"}});
  EXPECT_THAT(Values("A"), ElementsAre("BDate=1"));
}

// --- ORVEBCBASE.UserProfile

void WriteSetting(std::string_view section, std::string_view key, const Variant& value) {
  const ObjectRef profile = CreateObject("ORVEBCBASE.UserProfile");
  Call(profile, "Load", "ORV", section);
  As<Dictionary>(GetMember(profile, "Dictionary"))->Set(key, value);
  Call(profile, "Save");
}

TEST_F(PlanProfileTest, ASettingThatNobodyWroteTakesItsDefault) {
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", "1"), Variant("1"));
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", true), Variant(true));
}

TEST_F(PlanProfileTest, SettingsAreKeptByUserProfileAndSection) {
  WriteSetting("Filter", "ShowList", "0");
  WriteSetting("Filter", "It's", "a 'b'");
  WriteSetting("Filter", "Wide", true);
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", "1"), Variant("0"));
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "It's", ""), Variant("a 'b'"));
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "Wide", false), Variant(true));
  EXPECT_EQ(ReadUserSetting("ORV", "List", "ShowList", "1"), Variant("1"));
  EXPECT_EQ(ReadUserSetting("OTHER", "Filter", "ShowList", "1"), Variant("1"));
  LogInAs(16395);
  EXPECT_EQ(ReadUserSetting("ORV", "Filter", "ShowList", "1"), Variant("1"));
}

}  // namespace
}  // namespace salerpt::middletier
