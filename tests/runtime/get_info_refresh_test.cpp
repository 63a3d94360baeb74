// `GetInfo`: which functions of the host's navigation are visible, for which module the year is closed, and
// whether the system has been started.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "fake_object.h"
#include "runtime/dictionary.h"
#include "runtime/error.h"
#include "runtime/get_info.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "runtime/vector.h"

namespace salerpt {
namespace {

using testing::FakeRef;
using testing::LogIn;
using testing::RegisterFake;
using Lines = std::vector<std::string>;

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

class GetInfoWorld : public ::testing::Test {
 protected:
  static constexpr const char* kProps = "UserName=abc;UserID=16394;";

  GetInfoWorld() {
    host_ = LogIn(runtime_, kProps);
    connection_ = RegisterFake(runtime_, "ORVConnection.AppConnection");
    system_ = RegisterFake(runtime_, "ORVMSystem.System");
    CloseIn("0");
    Start(true);
  }

  // The module in whose period the year is closed, as the system profile tells it.
  void CloseIn(const Variant& value) { connection_->Gives("Execute", ProfileRow(value)); }
  void Start(const Variant& started) { system_->Gives("ISStarted", started); }
  static RecordsetRef ProfileRows() {
    const RecordsetRef rows = MakeRecordset();
    rows->AppendField("FValue", FieldType::kVarChar, 255);
    rows->Open();
    return rows;
  }
  static RecordsetRef ProfileRow(const Variant& value) {
    const RecordsetRef rows = ProfileRows();
    rows->AddNew();
    rows->SetValue(0, value);
    rows->Update();
    rows->MoveFirst();
    return rows;
  }
  void NoMaker(const std::string& prog_id) {
    runtime_.Register(prog_id, [prog_id]() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "no object is registered for " + prog_id);
    });
  }

  // A refresh of a subsystem, or of a function.
  static DictionaryRef OfSubsystem(std::int32_t number) {
    return std::make_shared<Dictionary>(
        std::initializer_list<Dictionary::Entry>{{"FRefreshType", std::int32_t{2}}, {"FSubSysID", number}});
  }
  static DictionaryRef OfFunction(std::int32_t number) {
    return std::make_shared<Dictionary>(
        std::initializer_list<Dictionary::Entry>{{"FRefreshType", std::int32_t{3}}, {"FSubFuncID", number}});
  }
  // The answer, one line for each item: "FDetailFuncID 202501 shown".
  Lines Refresh(const Variant& request) {
    Variant given = request;
    Variant answer;
    EXPECT_NO_THROW(answer = Call(info_, "GetRefreshFunc", given));
    Lines lines;
    const auto items = As<Vector>(answer);
    EXPECT_NE(items, nullptr) << "an answer is always there";
    for (std::int32_t i = 1; items && i <= items->Size(); ++i) {
      const auto item = As<Dictionary>(items->Item(i));
      const auto& entries = item->Entries();
      EXPECT_EQ(entries.size(), 2U) << "item " << i;
      if (entries.size() != 2) continue;
      EXPECT_TRUE(entries[0].value.IsText()) << "item " << i;
      EXPECT_EQ(entries[1].key, "FVisible");
      EXPECT_EQ(entries[1].value.GetKind(), Variant::Kind::kBoolean) << "item " << i;
      lines.push_back(entries[0].key + " " + entries[0].value.ToText() +
                      (entries[1].value.ToBoolean() ? " shown" : " hidden"));
    }
    return lines;
  }
  Lines RefreshFunction(std::int32_t number, bool started) {
    Start(started);
    return Refresh(OfFunction(number));
  }
  Variant CloseModule() {
    Variant module;
    EXPECT_NO_THROW(module = Call(info_, "GetCloseMoudle"));
    EXPECT_EQ(module.GetKind(), Variant::Kind::kInt32);
    return module;
  }
  bool IsStarted() {
    Variant started;
    EXPECT_NO_THROW(started = Call(info_, "GetISStarted"));
    EXPECT_EQ(started.GetKind(), Variant::Kind::kBoolean);
    return started.ToBoolean();
  }

  Runtime runtime_;
  FakeRef host_, connection_, system_;
  ObjectRef info_ = std::make_shared<GetInfo>();
};

using GetInfoCloseModule = GetInfoWorld;
using GetInfoStarted = GetInfoWorld;
using GetInfoRefresh = GetInfoWorld;

// --- The close-in module

TEST_F(GetInfoCloseModule, ReadsTheSystemProfileOnTheHostsConnection) {
  CloseIn("100");
  EXPECT_EQ(CloseModule(), Variant(std::int32_t{100}));
  ASSERT_EQ(connection_->CalledMembers(), Lines{"Execute"});
  ASSERT_EQ(connection_->Calls()[0].arguments.size(), 1U);
  EXPECT_EQ(connection_->Calls()[0].arguments[0],
            Variant("Select FValue From t_systemprofile Where FCategory ='IC' And FKey ='CloseInModule'"));
}

TEST_F(GetInfoCloseModule, TakesTheNumberThatTheValueBeginsWith) {
  const struct {
    Variant value;
    std::int32_t module;
  } values[] = {{"101", 101}, {" 103 ", 103}, {"100x", 100}, {"1", 1},    {"0", 0},
                {"-1", 0},    {"", 0},        {"x100", 0},   {Null(), 0}, {"2147483647", 2147483647}};
  for (const auto& [value, module] : values) {
    CloseIn(value);
    EXPECT_EQ(CloseModule(), Variant(module)) << "\"" << value.TextOrEmpty() << "\"";
  }
}

TEST_F(GetInfoCloseModule, TakesAValueThatIsANumber) {
  const RecordsetRef rows = MakeRecordset();
  rows->AppendField("FValue", FieldType::kInteger, 0);
  rows->Open();
  rows->AddNew();
  rows->SetValue(0, std::int32_t{101});
  rows->Update();
  rows->MoveFirst();
  connection_->Gives("Execute", rows);
  EXPECT_EQ(CloseModule(), Variant(std::int32_t{101}));
}

TEST_F(GetInfoCloseModule, IsNoneOnEveryFailure) {
  const Variant none(std::int32_t{0});
  connection_->Gives("Execute", ProfileRows());
  EXPECT_EQ(CloseModule(), none) << "no row";
  connection_->Gives("Execute", nullptr);
  EXPECT_EQ(CloseModule(), none) << "no rows at all";
  connection_->Gives("Execute", Variant());
  EXPECT_EQ(CloseModule(), none) << "no answer";
  connection_->Gives("Execute", std::make_shared<Dictionary>());
  EXPECT_EQ(CloseModule(), none) << "something else than rows";
  const RecordsetRef other = MakeRecordset();
  other->AppendField("FKey", FieldType::kVarChar, 255);
  other->Open();
  other->AddNew();
  other->SetValue(0, "100");
  other->Update();
  other->MoveFirst();
  connection_->Gives("Execute", other);
  EXPECT_EQ(CloseModule(), none) << "no such field";
  CloseIn("99999999999");
  EXPECT_EQ(CloseModule(), none) << "a number that is too large";
  connection_->Raises("Execute", kServerDown);
  EXPECT_EQ(CloseModule(), none) << "the call fails";
  connection_->On("Execute", [](Arguments) -> Variant { throw std::runtime_error("the pipe is closed"); });
  EXPECT_EQ(CloseModule(), none) << "a failure of another kind";
  CloseIn("100");
  NoMaker("ORVConnection.AppConnection");
  EXPECT_EQ(CloseModule(), none) << "no connection";
}

TEST_F(GetInfoCloseModule, IsReadAnewAtEachCall) {
  CloseIn("100");
  EXPECT_EQ(CloseModule(), Variant(std::int32_t{100}));
  CloseIn("101");
  EXPECT_EQ(CloseModule(), Variant(std::int32_t{101}));
}

// --- Whether the system has been started

TEST_F(GetInfoStarted, AsksTheSystemWithTheLogin) {
  Call(info_, "ParseString", kProps);
  EXPECT_TRUE(IsStarted());
  ASSERT_EQ(system_->CalledMembers(), Lines{"ISStarted"});
  EXPECT_EQ(system_->Calls()[0].arguments, std::vector<Variant>{Variant(kProps)});
}

TEST_F(GetInfoStarted, GivesWhatTheSystemAnswers) {
  Start(false);
  EXPECT_FALSE(IsStarted());
  Start(true);
  EXPECT_TRUE(IsStarted());
  Start(std::int32_t{-1});
  EXPECT_TRUE(IsStarted());
  Start(std::int32_t{0});
  EXPECT_FALSE(IsStarted());
}

TEST_F(GetInfoStarted, IsFalseOnEveryFailure) {
  Call(info_, "ParseString", kProps);
  Start(Null());
  EXPECT_FALSE(IsStarted()) << "null";
  Start("perhaps");
  EXPECT_FALSE(IsStarted()) << "no answer to the question";
  system_->Raises("ISStarted", kServerDown);
  EXPECT_FALSE(IsStarted()) << "the call fails";
  system_->On("ISStarted", [](Arguments) -> Variant { throw std::runtime_error("the pipe is closed"); });
  EXPECT_FALSE(IsStarted()) << "a failure of another kind";
  NoMaker("ORVMSystem.System");
  EXPECT_FALSE(IsStarted()) << "no system";
}

// --- Refresh of a subsystem

TEST_F(GetInfoRefresh, ShowsTheYearEndOfTheSubsystemThatIsClosedIn) {
  const struct {
    std::int32_t subsystem;
    const char* shown_for;
  } subsystems[] = {{20, "100"}, {21, "101"}, {23, "103"}};
  for (const auto& [subsystem, shown_for] : subsystems) {
    for (const std::string module : {"100", "101", "102", "103", "1", "20", "2080"}) {
      CloseIn(module);
      EXPECT_EQ(Refresh(OfSubsystem(subsystem)), Lines{"FSubFuncID " + std::to_string(subsystem) + "80 " +
                                                       (module == shown_for ? "shown" : "hidden")})
          << "closed in " << module;
    }
  }
}

TEST_F(GetInfoRefresh, HidesTheYearEndWhereNoModuleIsClosedIn) {
  for (const char* module : {"0", "", "-100", "none"}) {
    CloseIn(module);
    EXPECT_EQ(Refresh(OfSubsystem(20)), Lines{"FSubFuncID 2080 hidden"}) << module;
    EXPECT_EQ(Refresh(OfSubsystem(21)), Lines{"FSubFuncID 2180 hidden"}) << module;
    EXPECT_EQ(Refresh(OfSubsystem(23)), Lines{"FSubFuncID 2380 hidden"}) << module;
  }
}

TEST_F(GetInfoRefresh, HidesTheYearEndWhereTheProfileCannotBeRead) {
  connection_->Raises("Execute", kServerDown);
  EXPECT_EQ(Refresh(OfSubsystem(20)), Lines{"FSubFuncID 2080 hidden"});
  NoMaker("ORVConnection.AppConnection");
  EXPECT_EQ(Refresh(OfSubsystem(23)), Lines{"FSubFuncID 2380 hidden"});
}

TEST_F(GetInfoRefresh, SaysNothingOfAnotherSubsystem) {
  CloseIn("100");
  for (const std::int32_t subsystem : {0, 2, 19, 22, 24, 2080, -20}) {
    EXPECT_EQ(Refresh(OfSubsystem(subsystem)), Lines{}) << subsystem;
  }
  EXPECT_TRUE(connection_->Calls().empty());
}

TEST_F(GetInfoRefresh, DoesNotAskForTheStartOfTheSystemForASubsystem) {
  Refresh(OfSubsystem(20));
  EXPECT_TRUE(system_->Calls().empty());
}

// --- Refresh of a function

class GetInfoFunction : public GetInfoWorld, public ::testing::WithParamInterface<std::int32_t> {};

// Functions of a module: its opening balances go, its daily work comes, when the system is started.
class GetInfoModuleFunction : public GetInfoFunction {};
INSTANTIATE_TEST_SUITE_P(Of, GetInfoModuleFunction, ::testing::Values(2025, 2125, 2215, 2325));

TEST_P(GetInfoModuleFunction, ShowsSixEntriesBeforeTheStartAndOneAfterIt) {
  const std::string id = "FDetailFuncID " + std::to_string(GetParam());
  Lines before = {id + "01 shown", id + "02 shown", id + "03 shown", id + "04 shown",
                  id + "05 shown", id + "06 shown", id + "15 hidden"};
  Lines after = {id + "01 hidden", id + "02 hidden", id + "03 hidden", id + "04 hidden",
                 id + "05 hidden", id + "06 hidden", id + "15 shown"};
  if (GetParam() == 2125) {
    before.push_back(id + "07 shown");
    after.push_back(id + "07 hidden");
  }
  EXPECT_EQ(RefreshFunction(GetParam(), false), before);
  EXPECT_EQ(RefreshFunction(GetParam(), true), after);
}

class GetInfoListFunction : public GetInfoFunction {};
INSTANTIATE_TEST_SUITE_P(Of, GetInfoListFunction, ::testing::Values(4751, 2557));

TEST_P(GetInfoListFunction, ShowsFourEntriesBeforeTheStartAndOneAfterIt) {
  const std::string id = "FDetailFuncID " + std::to_string(GetParam());
  EXPECT_EQ(RefreshFunction(GetParam(), false),
            (Lines{id + "00 shown", id + "01 shown", id + "02 shown", id + "03 shown", id + "15 hidden"}));
  EXPECT_EQ(RefreshFunction(GetParam(), true),
            (Lines{id + "00 hidden", id + "01 hidden", id + "02 hidden", id + "03 hidden", id + "15 shown"}));
}

class GetInfoPairFunction : public GetInfoFunction {};
INSTANTIATE_TEST_SUITE_P(Of, GetInfoPairFunction, ::testing::Values(620118, 620217));

TEST_P(GetInfoPairFunction, ShowsOneEntryBeforeTheStartAndAnotherAfterIt) {
  const std::string id = "FDetailFuncID " + std::to_string(GetParam());
  EXPECT_EQ(RefreshFunction(GetParam(), false), (Lines{id + "01 shown", id + "02 hidden"}));
  EXPECT_EQ(RefreshFunction(GetParam(), true), (Lines{id + "01 hidden", id + "02 shown"}));
}

TEST_F(GetInfoRefresh, SaysNothingOfAnotherFunction) {
  for (const std::int32_t function :
       {0, 20, 25, 2024, 2026, 2225, 2315, 4752, 2558, 620117, 620218, 212507}) {
    EXPECT_EQ(RefreshFunction(function, false), Lines{}) << function;
    EXPECT_EQ(RefreshFunction(function, true), Lines{}) << function;
  }
}

TEST_F(GetInfoRefresh, TakesASystemThatCannotBeAskedForOneThatIsNotStarted) {
  system_->Raises("ISStarted", kServerDown);
  const Lines expected = {"FDetailFuncID 62011801 shown", "FDetailFuncID 62011802 hidden"};
  EXPECT_EQ(Refresh(OfFunction(620118)), expected);
  NoMaker("ORVMSystem.System");
  EXPECT_EQ(Refresh(OfFunction(620118)), expected);
}

TEST_F(GetInfoRefresh, AsksForTheStartOfTheSystemOnceWithTheLogin) {
  Refresh(OfFunction(2125));
  ASSERT_EQ(system_->CalledMembers(), Lines{"ISStarted"});
  EXPECT_EQ(system_->Calls()[0].arguments, std::vector<Variant>{Variant(kProps)});
  EXPECT_TRUE(connection_->Calls().empty()) << "the profile is of subsystems";
}

// --- The request

TEST_F(GetInfoRefresh, SaysNothingOfAnotherKindOfRefresh) {
  for (const std::int32_t type : {0, 1, 4, -2, 23}) {
    const auto request = std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{
        {"FRefreshType", type}, {"FSubSysID", std::int32_t{20}}, {"FSubFuncID", std::int32_t{2025}}});
    EXPECT_EQ(Refresh(request), Lines{}) << type;
    EXPECT_EQ(request->Get("DelAll"), Variant(false)) << type;
  }
}

TEST_F(GetInfoRefresh, TakesAnAbsentNumberForZero) {
  EXPECT_EQ(Refresh(std::make_shared<Dictionary>()), Lines{});
  for (const std::int32_t type : {2, 3}) {
    EXPECT_EQ(Refresh(std::make_shared<Dictionary>(
                  std::initializer_list<Dictionary::Entry>{{"FRefreshType", type}})),
              Lines{})
        << type;
  }
}

TEST_F(GetInfoRefresh, ReadsNumbersThatStandAsTexts) {
  CloseIn("101");
  EXPECT_EQ(Refresh(std::make_shared<Dictionary>(
                std::initializer_list<Dictionary::Entry>{{"FRefreshType", "2"}, {"FSubSysID", "21"}})),
            Lines{"FSubFuncID 2180 shown"});
  EXPECT_EQ(Refresh(std::make_shared<Dictionary>(
                std::initializer_list<Dictionary::Entry>{{"FRefreshType", "3"}, {"FSubFuncID", "620217"}})),
            (Lines{"FDetailFuncID 62021701 hidden", "FDetailFuncID 62021702 shown"}));
}

TEST_F(GetInfoRefresh, ReadsOfARequestWhatItsKindNames) {
  CloseIn("100");
  const auto entries = [](std::int32_t type) {
    return std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{
        {"FRefreshType", type}, {"FSubSysID", std::int32_t{20}}, {"FSubFuncID", std::int32_t{620118}}});
  };
  EXPECT_EQ(Refresh(entries(2)), Lines{"FSubFuncID 2080 shown"});
  EXPECT_EQ(Refresh(entries(3)), (Lines{"FDetailFuncID 62011801 hidden", "FDetailFuncID 62011802 shown"}));
}

TEST_F(GetInfoRefresh, NeverDeletesAll) {
  for (const DictionaryRef& request : {OfSubsystem(20), OfSubsystem(22), OfFunction(2025), OfFunction(1)}) {
    Refresh(request);
    EXPECT_EQ(request->Get("DelAll"), Variant(false));
    request->Set("DelAll", true);
    Refresh(request);
    EXPECT_EQ(request->Get("DelAll"), Variant(false)) << "whatever the host left in it";
    EXPECT_EQ(request->Entries().size(), 3U) << "nothing else is written";
  }
}

TEST_F(GetInfoRefresh, AnswersInAListOfItsOwnEachTime) {
  Variant request = OfFunction(620118);
  const ObjectRef first = Call(info_, "GetRefreshFunc", request).ToObject();
  const ObjectRef second = Call(info_, "GetRefreshFunc", request).ToObject();
  EXPECT_NE(first, second);
  EXPECT_EQ(As<Vector>(Variant(first))->Size(), 2);
}

TEST_F(GetInfoRefresh, ParsesTheLogin) {
  Call(info_, "ParseString", "UserID=1;");
  Refresh(OfSubsystem(22));
  EXPECT_EQ(GetMember(info_, "PropsString"), Variant(kProps));
  EXPECT_EQ(Call(info_, "GetProperty", "UserID"), Variant("16394"));
}

// --- Failures: an empty answer, and no error for the host

TEST_F(GetInfoRefresh, IsEmptyWithoutALogin) {
  host_->Raises("PropsString", kServerDown);
  for (const DictionaryRef& request : {OfSubsystem(20), OfFunction(2025)}) {
    EXPECT_EQ(Refresh(request), Lines{});
    EXPECT_EQ(request->Get("DelAll"), Variant(false));
  }
}

TEST_F(GetInfoRefresh, IsEmptyWithoutAHostAndWithoutAPropertyStore) {
  runtime_.host_object = nullptr;
  EXPECT_EQ(Refresh(OfFunction(2025)), Lines{});
}

TEST_F(GetInfoRefresh, IsEmptyForALoginThatGivesANameTwice) {
  LogIn(runtime_, "UserID=1;UserID=2;");
  EXPECT_EQ(Refresh(OfFunction(2025)), Lines{});
}

TEST_F(GetInfoRefresh, IsEmptyForARequestThatIsNotReadable) {
  const Dictionary::Entry function{"FRefreshType", std::int32_t{3}};
  const Dictionary::Entry faults[] = {{"FSubFuncID", "many"},
                                      {"FSubFuncID", 3e9},
                                      {"FSubFuncID", Null()},
                                      {"FSubSysID", "many"},
                                      {"FRefreshType", "full"}};
  for (const Dictionary::Entry& fault : faults) {
    const auto request = std::make_shared<Dictionary>(std::initializer_list<Dictionary::Entry>{function});
    request->Set(fault.key, fault.value);
    EXPECT_EQ(Refresh(request), Lines{}) << fault.key << " " << fault.value.TextOrEmpty();
    EXPECT_EQ(request->Get("DelAll"), Variant(false));
  }
}

TEST_F(GetInfoRefresh, IsEmptyWithoutARequest) {
  EXPECT_EQ(Refresh(nullptr), Lines{});
  EXPECT_EQ(Refresh(Variant()), Lines{});
}

}  // namespace
}  // namespace salerpt
