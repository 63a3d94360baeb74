// `GetInfo`: the key that opens the stock look-ups anywhere in the system.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "fake_object.h"
#include "fake_world.h"
#include "runtime/error.h"
#include "runtime/get_info.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using testing::FakeObject;
using testing::FakeRef;
using testing::FakeToolkit;
using testing::LogIn;
using testing::RecordedBox;
using testing::RecordedCall;
using testing::RegisterFake;
using Lines = std::vector<std::string>;

const RuntimeError kServerDown(-2147467259, "Server", "the server is not there");

constexpr std::int32_t kF12 = 123;

// The two look-ups are told apart by the shift state and by the object that they open.
struct StockLookUp {
  const char* name;
  std::int32_t shift;
  const char* prog_id;
};
void PrintTo(const StockLookUp& look_up, std::ostream* out) {
  *out << look_up.name;
}

class GetInfoKeys : public ::testing::Test {
 protected:
  static constexpr const char* kProps = "UserName=abc;UserID=16394;";

  GetInfoKeys() {
    runtime_.SetToolkit(toolkit_);
    LogIn(runtime_, kProps);
    system_ = RegisterFake(runtime_, "ORVMSystem.System", log_);
    ledger_ = RegisterFake(runtime_, "ORVEBCGLView.GLData", log_);
    query_ = RegisterFake(runtime_, "ORVStockQuery.StockQueryFace", log_, &queries_made_);
    status_ = RegisterFake(runtime_, "ORVStockStatus.SSFace", log_, &statuses_made_);
    system_->Gives("ISStarted", true);
    ledger_->Gives("AccessCheck", true);
    query_->Gives("Show", Variant());
    status_->Gives("Show", Variant());
  }

  // No error reaches the host, and it gets no answer.
  void Press(std::int32_t key, std::int32_t shift) {
    Variant answer;
    EXPECT_NO_THROW(answer = Call(info_, "IInputEventListener_OnKeyPressed", static_cast<std::int16_t>(key),
                                  static_cast<std::int16_t>(shift)));
    EXPECT_TRUE(answer.IsEmpty());
  }
  void NoMaker(const std::string& prog_id) {
    runtime_.Register(prog_id, [prog_id]() -> ObjectRef {
      throw RuntimeError(error_number::kObjectMaker, "Maker", "no object is registered for " + prog_id);
    });
  }
  // What was called, in order: "ORVMSystem.System.ISStarted".
  [[nodiscard]] Lines Steps() const {
    Lines steps;
    for (const RecordedCall& call : *log_) steps.push_back(call.object + "." + call.member);
    return steps;
  }
  void ExpectNothingOpened() {
    EXPECT_EQ(queries_made_, 0);
    EXPECT_EQ(statuses_made_, 0);
    EXPECT_TRUE(query_->Calls().empty());
    EXPECT_TRUE(status_->Calls().empty());
  }
  void ExpectNoBox() { EXPECT_TRUE(toolkit_->boxes.empty()); }
  void ExpectBoxOfStart() {
    EXPECT_EQ(toolkit_->boxes,
              (std::vector<RecordedBox>{{"该功能必须在系统启用后才能使用", kBoxInformation, "青岚提示"}}));
  }
  void ExpectBoxOfRight() {
    EXPECT_EQ(toolkit_->boxes,
              (std::vector<RecordedBox>{{"您没有库存查询权限。", kBoxInformation, "青岚提示"}}));
  }

  Runtime runtime_;
  std::shared_ptr<FakeToolkit> toolkit_ = std::make_shared<FakeToolkit>();
  std::shared_ptr<FakeObject::Log> log_ = std::make_shared<FakeObject::Log>();
  FakeRef system_, ledger_, query_, status_;
  int queries_made_ = 0;
  int statuses_made_ = 0;
  ObjectRef info_ = std::make_shared<GetInfo>();
};

class GetInfoStockKey : public GetInfoKeys, public ::testing::WithParamInterface<StockLookUp> {
 protected:
  void PressTheKey() { Press(kF12, GetParam().shift); }
  FakeRef Face() { return GetParam().shift == 0 ? query_ : status_; }
};
INSTANTIATE_TEST_SUITE_P(Opens, GetInfoStockKey,
                         ::testing::Values(StockLookUp{"Query", 0, "ORVStockQuery.StockQueryFace"},
                                           StockLookUp{"Status", 1, "ORVStockStatus.SSFace"}),
                         [](const auto& param_info) { return std::string(param_info.param.name); });

// --- The key

TEST_P(GetInfoStockKey, AsksForStartAndRightAndShowsTheLookUp) {
  PressTheKey();
  EXPECT_EQ(Steps(), (Lines{"ORVMSystem.System.ISStarted", "ORVEBCGLView.GLData.AccessCheck",
                            std::string(GetParam().prog_id) + ".Show"}));
  EXPECT_TRUE(Face()->Calls().at(0).arguments.empty());
  EXPECT_EQ(Face()->Calls().at(0).kind, InvokeKind::kMethod);
  ExpectNoBox();
}

TEST_P(GetInfoStockKey, NamesTheRightByItsThreeNumbers) {
  PressTheKey();
  std::vector<std::int32_t> numbers;
  for (const Variant& argument : ledger_->Calls().at(0).arguments) numbers.push_back(argument.ToInt32());
  EXPECT_EQ(numbers, (std::vector<std::int32_t>{1099, 15, 0x200000}));
}

TEST_P(GetInfoStockKey, AsksForTheStartWithTheLoginThatWasParsed) {
  Call(info_, "ParseString", kProps);
  PressTheKey();
  EXPECT_EQ(system_->Calls().at(0).arguments, std::vector<Variant>{Variant(kProps)});
}

TEST_P(GetInfoStockKey, MakesTheLookUpAnewEachTime) {
  PressTheKey();
  PressTheKey();
  EXPECT_EQ(GetParam().shift == 0 ? queries_made_ : statuses_made_, 2);
  EXPECT_EQ(GetParam().shift == 0 ? statuses_made_ : queries_made_, 0);
  EXPECT_EQ(Face()->CalledMembers(), (Lines{"Show", "Show"}));
}

TEST_P(GetInfoStockKey, TakesNumbersOfAnyKind) {
  Call(info_, "IInputEventListener_OnKeyPressed", kF12, GetParam().shift);
  EXPECT_EQ(Face()->CalledMembers(), Lines{"Show"});
}

TEST_F(GetInfoKeys, DoesNothingWithAnotherShiftState) {
  for (const std::int32_t shift : {2, 3, 4, 5, 6, 7, -1, 123}) Press(kF12, shift);
  EXPECT_EQ(Steps(), Lines{});
  ExpectNothingOpened();
  ExpectNoBox();
}

TEST_F(GetInfoKeys, DoesNothingWithAnotherKey) {
  for (const std::int32_t key : {0, 1, 9, 13, 27, 112, 118, 119, 122, 124, -123}) {
    for (const std::int32_t shift : {0, 1, 2}) Press(key, shift);
  }
  EXPECT_EQ(Steps(), Lines{});
  ExpectNothingOpened();
  ExpectNoBox();
}

TEST_F(GetInfoKeys, DoesNothingWithAnotherKeyWhereTheSystemIsNotStarted) {
  system_->Gives("ISStarted", false);
  ledger_->Gives("AccessCheck", false);
  Press(122, 0);
  Press(kF12, 2);
  ExpectNoBox();
}

// --- Not started, no right

TEST_P(GetInfoStockKey, SaysThatTheSystemMustBeStartedFirst) {
  system_->Gives("ISStarted", false);
  PressTheKey();
  ExpectBoxOfStart();
  EXPECT_TRUE(ledger_->Calls().empty()) << "it stops here";
  ExpectNothingOpened();
}

TEST_P(GetInfoStockKey, SaysThatTheUserHasNoRight) {
  ledger_->Gives("AccessCheck", false);
  PressTheKey();
  ExpectBoxOfRight();
  ExpectNothingOpened();
}

TEST_P(GetInfoStockKey, SaysOneThingOnlyWhereBothAreMissing) {
  system_->Gives("ISStarted", false);
  ledger_->Gives("AccessCheck", false);
  PressTheKey();
  ExpectBoxOfStart();
}

// --- Each object failing

TEST_P(GetInfoStockKey, TakesASystemThatCannotBeAskedForOneThatIsNotStarted) {
  system_->Raises("ISStarted", kServerDown);
  PressTheKey();
  ExpectBoxOfStart();
  ExpectNothingOpened();
}

TEST_P(GetInfoStockKey, TakesASystemThatCannotBeMadeForOneThatIsNotStarted) {
  NoMaker("ORVMSystem.System");
  PressTheKey();
  ExpectBoxOfStart();
  ExpectNothingOpened();
}

TEST_P(GetInfoStockKey, StaysClosedWhereTheRightCannotBeAskedFor) {
  ledger_->Raises("AccessCheck", kServerDown);
  PressTheKey();
  ExpectBoxOfRight();
  ExpectNothingOpened();
}

TEST_P(GetInfoStockKey, StaysClosedWhereTheObjectOfRightsCannotBeMade) {
  NoMaker("ORVEBCGLView.GLData");
  PressTheKey();
  ExpectBoxOfRight();
  ExpectNothingOpened();
}

TEST_P(GetInfoStockKey, StaysClosedWhereTheAnswerIsNoRight) {
  ledger_->Gives("AccessCheck", Null());
  PressTheKey();
  ExpectBoxOfRight();
  ExpectNothingOpened();
}

TEST_P(GetInfoStockKey, SaysNothingWhereTheLookUpCannotBeMade) {
  NoMaker(GetParam().prog_id);
  PressTheKey();
  EXPECT_EQ(Steps(), (Lines{"ORVMSystem.System.ISStarted", "ORVEBCGLView.GLData.AccessCheck"}));
  ExpectNoBox();
}

TEST_P(GetInfoStockKey, SaysNothingWhereTheLookUpFails) {
  Face()->Raises("Show", kServerDown);
  PressTheKey();
  ExpectNoBox();
  Face()->On("Show", [](Arguments) -> Variant { throw std::runtime_error("the pipe is closed"); });
  PressTheKey();
  ExpectNoBox();
}

TEST_P(GetInfoStockKey, OpensAgainAfterAFailure) {
  ledger_->Raises("AccessCheck", kServerDown);
  PressTheKey();
  ledger_->Gives("AccessCheck", true);
  toolkit_->boxes.clear();
  PressTheKey();
  EXPECT_EQ(Face()->CalledMembers(), Lines{"Show"});
  ExpectNoBox();
}

}  // namespace
}  // namespace salerpt
