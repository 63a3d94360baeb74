#include "runtime/base_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "error_check.h"
#include "fake_object.h"
#include "fake_world.h"
#include "runtime/cls_pass.h"
#include "runtime/dictionary.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

using ::testing::ElementsAre;
using testing::FakeObject;
using testing::FakeRef;
using testing::FakeToolkit;
using testing::RecordedBox;
using testing::RecordedCall;
using testing::RegisterFake;
using Names = std::vector<std::string>;
using Values = std::vector<Variant>;

constexpr std::int16_t kDataType = 1;

class LookupBaseDataTest : public ::testing::Test {
 protected:
  LookupBaseDataTest() {
    runtime_.SetToolkit(toolkit_);
    picked_->Gives("Number", "01.001");
    look_up_->Gives("ReturnObject", picked_);
    data_->Gives("Refresh", Variant());
    for (const char* member :
         {"ItemLookUp", "UnitLookup", "SubMesLookup", "CurrencyLookup", "AccountLookup", "SettTypeLookup"}) {
      view_->Gives(member, look_up_);
    }
  }
  // "object.member" of each call, in order.
  [[nodiscard]] Names Steps() const {
    Names steps;
    for (const RecordedCall& call : *log_) steps.push_back(call.object + "." + call.member);
    return steps;
  }
  // The one call on the view object.
  [[nodiscard]] const RecordedCall& Shown() const { return view_->Calls().at(0); }
  [[nodiscard]] Dictionary& Options() const { return *As<Dictionary>(Shown().arguments.at(3)); }

  Runtime runtime_;
  std::shared_ptr<FakeToolkit> toolkit_ = std::make_shared<FakeToolkit>();
  std::shared_ptr<FakeObject::Log> log_ = std::make_shared<FakeObject::Log>();
  int views_ = 0;
  FakeRef data_ = RegisterFake(runtime_, "ORVEBCGLView.GLData", log_);
  FakeRef view_ = RegisterFake(runtime_, "ORVEBCGLView.GLView", log_, &views_);
  FakeRef look_up_ = std::make_shared<FakeObject>("LookUp");
  FakeRef picked_ = std::make_shared<FakeObject>("Picked");
};

// --- The road of each class

class ItemClassTest : public LookupBaseDataTest, public ::testing::WithParamInterface<std::int32_t> {};

TEST_P(ItemClassTest, RefreshesAndOpensTheItemLookUp) {
  EXPECT_EQ(LookupBaseData(GetParam(), "01", "", kDataType), look_up_);
  EXPECT_EQ(Steps(), (Names{"ORVEBCGLView.GLData.Refresh", "ORVEBCGLView.GLView.ItemLookUp"}));
  EXPECT_TRUE(data_->Calls().at(0).arguments.empty());
  const Values& arguments = Shown().arguments;
  ASSERT_EQ(arguments.size(), 4U);
  EXPECT_EQ(arguments[0], Variant(GetParam()));
  EXPECT_EQ(arguments[1], Variant("01"));
  EXPECT_EQ(arguments[2], Variant(""));
  ASSERT_EQ(Options().Entries().size(), 3U);
  EXPECT_EQ(Options().Entries()[0].key, "BeShortNumber");
  EXPECT_EQ(Options().Entries()[1].key, "GetDataType");
  EXPECT_EQ(Options().Entries()[2].key, "Search");
  EXPECT_EQ(Options().Get("BeShortNumber"), Variant(false));
  EXPECT_EQ(Options().Get("GetDataType"), Variant(kDataType));
  EXPECT_EQ(Options().Get("Search"), Variant("01"));
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_P(ItemClassTest, ReadsItemsAloneAnewUnderACondition) {
  LookupBaseData(GetParam(), "01", " x2.FErpClsID <>1 ", kDataType);
  EXPECT_EQ(Shown().arguments.at(2), Variant(" x2.FErpClsID <>1 "));
  EXPECT_EQ(Options().Get("Refresh"), GetParam() == 4 ? Variant(true) : Variant());
}

INSTANTIATE_TEST_SUITE_P(All, ItemClassTest, ::testing::Values(1, 2, 3, 4, 5, 8, 10, 2014));

TEST_F(LookupBaseDataTest, AsksForShortCodesWhereTheyAreInUse) {
  runtime_.gLongNumber = false;
  LookupBaseData(1, "", "", 7);
  EXPECT_EQ(Options().Get("BeShortNumber"), Variant(true));
  EXPECT_EQ(Options().Get("GetDataType"), Variant(std::int16_t{7}));
  EXPECT_EQ(Options().Get("Search"), Variant(""));
}

class AuxiliaryClassTest : public LookupBaseDataTest, public ::testing::WithParamInterface<std::int32_t> {};

TEST_P(AuxiliaryClassTest, GoesToTheAuxiliaryLookUp) {
  EXPECT_EQ(LookupBaseData(GetParam(), "01", "left out", kDataType), look_up_);
  EXPECT_EQ(Steps(), Names{"ORVEBCGLView.GLView.SubMesLookup"});
  EXPECT_EQ(Shown().arguments, (Values{GetParam(), "01"}));
}

INSTANTIATE_TEST_SUITE_P(Bounds, AuxiliaryClassTest, ::testing::Values(20, 21, 30, 129, 131, 501, 999));

class NoClassTest : public LookupBaseDataTest, public ::testing::WithParamInterface<std::int32_t> {};

TEST_P(NoClassTest, GivesNothingWithoutACall) {
  EXPECT_EQ(LookupBaseData(GetParam(), "01", "", kDataType), nullptr);
  EXPECT_TRUE(log_->empty());
  EXPECT_EQ(views_, 0);
  EXPECT_TRUE(toolkit_->boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(All, NoClassTest,
                         ::testing::Values(-1, 0, 6, 9, 11, 14, 19, 1000, 1001, 2013, 2015));

TEST_F(LookupBaseDataTest, OpensUnitsByTheNumberOfTheirGroup) {
  EXPECT_EQ(LookupBaseData(7, "kg", "103", kDataType), look_up_);
  EXPECT_EQ(Steps(), Names{"ORVEBCGLView.GLView.UnitLookup"});
  EXPECT_EQ(Shown().arguments, (Values{103, "kg"}));
}

TEST_F(LookupBaseDataTest, TakesAGroupThatIsNoNumberForNone) {
  LookupBaseData(7, "", "", kDataType);
  LookupBaseData(7, "", "weights", kDataType);
  LookupBaseData(7, "", " 12 weights", kDataType);
  EXPECT_EQ(view_->Calls().at(0).arguments.at(0), Variant(0));
  EXPECT_EQ(view_->Calls().at(1).arguments.at(0), Variant(0));
  EXPECT_EQ(view_->Calls().at(2).arguments.at(0), Variant(12));
}

TEST_F(LookupBaseDataTest, OpensCurrenciesAccountsAndSettlementTypes) {
  EXPECT_EQ(LookupBaseData(12, "a", "x", kDataType), look_up_);
  EXPECT_EQ(LookupBaseData(13, "b", "x", kDataType), look_up_);
  EXPECT_EQ(LookupBaseData(130, "c", "x", kDataType), look_up_);
  EXPECT_EQ(Steps(), (Names{"ORVEBCGLView.GLView.CurrencyLookup", "ORVEBCGLView.GLView.AccountLookup",
                            "ORVEBCGLView.GLView.SettTypeLookup"}));
  EXPECT_EQ(view_->Calls()[0].arguments, Values{"a"});
  EXPECT_EQ(view_->Calls()[1].arguments, Values{"b"});
  EXPECT_EQ(view_->Calls()[2].arguments, Values{"c"});
  EXPECT_EQ(views_, 1);
  EXPECT_EQ(runtime_.gl_view, view_);
}

// --- Left without a choice, or failed

TEST_F(LookupBaseDataTest, GivesNothingWhereTheUserCancels) {
  look_up_->Gives("ReturnObject", nullptr);
  for (const std::int32_t class_id : {1, 7, 12, 13, 30, 130}) {
    EXPECT_EQ(LookupBaseData(class_id, "", "", kDataType), nullptr) << class_id;
  }
  look_up_->Gives("ReturnObject", Variant());
  EXPECT_EQ(LookupBaseData(1, "", "", kDataType), nullptr);
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_F(LookupBaseDataTest, GivesNothingWhereThereIsNoLookUp) {
  view_->Gives("ItemLookUp", nullptr);
  EXPECT_EQ(LookupBaseData(1, "", "", kDataType), nullptr);
  EXPECT_TRUE(toolkit_->boxes.empty());
}

class FailingLookUpTest : public LookupBaseDataTest {
 protected:
  void ExpectBox(const std::string& description) {
    EXPECT_THAT(toolkit_->boxes,
                ElementsAre(RecordedBox{"基础资料很有可能没有授权\r\n" + description, 64, "青岚提示"}));
    toolkit_->boxes.clear();
  }
  static RuntimeError Failure() { return {-7, "GLView", "no right"}; }
};

TEST_F(FailingLookUpTest, IsToldOnEveryRoad) {
  const std::vector<std::pair<std::int32_t, const char*>> roads{
      {1, "ItemLookUp"},      {7, "UnitLookup"},     {30, "SubMesLookup"},
      {12, "CurrencyLookup"}, {13, "AccountLookup"}, {130, "SettTypeLookup"}};
  for (const auto& [class_id, member] : roads) {
    view_->Raises(member, Failure());
    EXPECT_EQ(LookupBaseData(class_id, "", "", kDataType), nullptr) << member;
    ExpectBox("no right");
  }
}

TEST_F(FailingLookUpTest, IsToldWhereTheRefreshFails) {
  data_->Raises("Refresh", Failure());
  EXPECT_EQ(LookupBaseData(4, "", "", kDataType), nullptr);
  ExpectBox("no right");
  EXPECT_TRUE(view_->Calls().empty());
}

TEST_F(FailingLookUpTest, IsToldWhereTheChoiceCannotBeRead) {
  look_up_->Raises("ReturnObject", Failure());
  EXPECT_EQ(LookupBaseData(4, "", "", kDataType), nullptr);
  ExpectBox("no right");
}

TEST_F(FailingLookUpTest, IsToldWhereTheViewObjectIsNotInstalled) {
  runtime_.Register("ORVEBCGLView.GLView", []() -> ObjectRef { throw Failure(); });
  EXPECT_EQ(LookupBaseData(12, "", "", kDataType), nullptr);
  ExpectBox("no right");
  EXPECT_EQ(runtime_.gl_view, nullptr);
}

TEST_F(FailingLookUpTest, IsToldForAGroupBeyondTheNumbers) {
  EXPECT_EQ(LookupBaseData(7, "", "99999999999", kDataType), nullptr);
  EXPECT_EQ(toolkit_->boxes.size(), 1U);
}

// --- ORVBaseList.BaseList

class ShowBaseListTest : public ::testing::Test {
 protected:
  ShowBaseListTest() {
    runtime_.SetToolkit(toolkit_);
    list_->OnAssign("KeyWord", [](Arguments) { return Variant(); });
    list_->OnAssign("Filter", [](Arguments) { return Variant(); });
    list_->On("Show", [this](Arguments) -> Variant {
      EXPECT_EQ(toolkit_->messages_run, 0);
      return rows_;
    });
  }
  void ExpectCalls() const {
    EXPECT_EQ(list_->CalledMembers(), (Names{"KeyWord", "Filter", "Show"}));
    EXPECT_EQ(list_->Calls()[0].arguments, Values{"key"});
    EXPECT_EQ(list_->Calls()[1].arguments, Values{" FBatchNo>''"});
    EXPECT_EQ(list_->Calls()[2].arguments, (Values{4, 0}));
    EXPECT_EQ(toolkit_->messages_run, 1);
    EXPECT_EQ(made_, 1);
  }

  Runtime runtime_;
  std::shared_ptr<FakeToolkit> toolkit_ = std::make_shared<FakeToolkit>();
  int made_ = 0;
  FakeRef list_ = RegisterFake(runtime_, "ORVBaseList.BaseList", nullptr, &made_);
  RecordsetRef rows_ = MakeRecordset();
};

TEST_F(ShowBaseListTest, GivesTheRowsThatThePersonPicked) {
  EXPECT_EQ(ShowBaseList(4, "key", " FBatchNo>''"), rows_);
  ExpectCalls();
}

TEST_F(ShowBaseListTest, IsOpenedByTheRelayInTheSameWay) {
  clsPass relay;
  EXPECT_EQ(relay.QuickLookUpBase(4, "key", " FBatchNo>''"), rows_);
  ExpectCalls();
}

TEST_F(ShowBaseListTest, GivesNothingWhereNothingWasPicked) {
  rows_ = nullptr;
  EXPECT_EQ(ShowBaseList(4, "key", " FBatchNo>''"), nullptr);
  ExpectCalls();
  list_->Gives("Show", Variant());
  EXPECT_EQ(ShowBaseList(4, "", ""), nullptr);
}

TEST_F(ShowBaseListTest, RaisesWhatTheListRaises) {
  list_->Raises("Show", RuntimeError(-8, "BaseList", "no rows"));
  EXPECT_EQ(NumberRaisedBy([] { ShowBaseList(4, "", ""); }), -8);
  Runtime without_list;
  EXPECT_EQ(NumberRaisedBy([] { ShowBaseList(4, "", ""); }), error_number::kObjectMaker);
}

}  // namespace
}  // namespace salerpt
