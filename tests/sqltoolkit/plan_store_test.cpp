// The plan store, as the modules speak to it.
#include "sqltoolkit/plan_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "runtime/dictionary.h"
#include "runtime/runtime.h"
#include "tests/runtime/error_check.h"
#include "tests/runtime/fake_object.h"

namespace salerpt {
namespace {

using ::testing::ElementsAre;
using testing::FakeRef;
using testing::LogIn;
using testing::RegisterFake;
using Values = std::vector<Variant>;

const RuntimeError kServerDown(-3, "Server", "the server is down");

RecordsetRef Rows(std::string_view first, std::string_view second, FieldType second_type,
                  const std::vector<std::pair<Variant, Variant>>& values) {
  RecordsetRef rows = MakeRecordset();
  rows->AppendField(first, FieldType::kVarChar, 80);
  rows->AppendField(second, second_type, 80);
  rows->Open();
  for (const auto& [a, b] : values) {
    rows->AddNew();
    rows->SetValue(0, a);
    rows->SetValue(1, b);
    rows->Update();
  }
  return rows;
}

class ListOfPlans final : public PlanList {
 public:
  void Clear() override { rows.clear(), selected.clear(); }
  void Add(std::string_view key, std::string_view text) override { rows.push_back(Join(key, "=", text)); }
  bool SelectKey(std::string_view key) override {
    selected = key;
    return true;
  }
  std::vector<std::string> rows;
  std::string selected;
};

class PlanStore : public ::testing::Test {
 protected:
  PlanStore() { LogIn(runtime_, "UserID=16394"); }
  void Store(const std::vector<std::pair<Variant, Variant>>& plans) {
    profile_->Gives("GetPlanList", Rows("FPlan", "FStatus", FieldType::kInteger, plans));
  }
  static RecordsetRef Plan(const std::vector<std::pair<Variant, Variant>>& values) {
    return Rows("FKey", "FValue", FieldType::kVarChar, values);
  }

  Runtime runtime_;
  int made_ = 0;
  FakeRef profile_ = RegisterFake(runtime_, "ORVMCaculateRpt.Profile", nullptr, &made_);
  ListOfPlans list_;
};

// --- The list

TEST_F(PlanStore, ListsTheDefaultPlanWhereTheStoreHasNone) {
  Store({});
  LoadPlanList(166, list_);
  EXPECT_THAT(list_.rows, ElementsAre("默认方案=默认方案"));
  EXPECT_EQ(list_.selected, "");
  ASSERT_EQ(profile_->Calls().size(), 1U);
  EXPECT_EQ(profile_->Calls()[0].arguments, (Values{"UserID=16394", 166}));
}

TEST_F(PlanStore, ListsTheStoredPlansInTheStoresOrder) {
  Store({{"b", 0}, {"a", 0}});
  LoadPlanList(166, list_);
  EXPECT_THAT(list_.rows, ElementsAre("默认方案=默认方案", "Pb=b", "Pa=a"));
}

TEST_F(PlanStore, ListsAStoredDefaultPlanOnce) {
  Store({{"a", 0}, {"默认方案", 1}});
  LoadPlanList(166, list_);
  EXPECT_THAT(list_.rows, ElementsAre("默认方案=默认方案", "Pa=a"));
  EXPECT_EQ(list_.selected, "");
}

TEST_F(PlanStore, SelectsTheChosenPlan) {
  Store({{"a", 0}, {"b", 1}, {"c", Null{}}});
  LoadPlanList(166, list_);
  EXPECT_EQ(list_.selected, "Pb");
}

TEST_F(PlanStore, GivesTheRowsOfTheStore) {
  Store({{"a", 0}});
  EXPECT_EQ(LoadPlanList(166, list_)->RecordCount(), 1);
}

TEST_F(PlanStore, FillsTheListAnew) {
  Store({{"a", 1}});
  LoadPlanList(166, list_);
  Store({});
  LoadPlanList(166, list_);
  EXPECT_THAT(list_.rows, ElementsAre("默认方案=默认方案"));
  EXPECT_EQ(made_, 2) << "the object is made for each call";
}

TEST_F(PlanStore, LeavesTheListWhereTheStoreFails) {
  Store({{"a", 1}});
  LoadPlanList(166, list_);
  profile_->Raises("GetPlanList", kServerDown);
  EXPECT_EQ(NumberRaisedBy([&] { LoadPlanList(166, list_); }), -3);
  profile_->Gives("GetPlanList", nullptr);
  EXPECT_EQ(NumberRaisedBy([&] { LoadPlanList(166, list_); }), error_number::kObjectNotSet);
  EXPECT_THAT(list_.rows, ElementsAre("默认方案=默认方案", "Pa=a"));
}

// --- Values

TEST_F(PlanStore, ReadsTheRowsOfAPlan) {
  profile_->Gives("GetPlanValue", Plan({{"BDate", "2003-07-01"}}));
  EXPECT_EQ(PlanKeyValue(GetPlanRows(166, "a"), "BDate", ""), "2003-07-01");
  EXPECT_EQ(profile_->Calls()[0].arguments, (Values{"UserID=16394", 166, "a"}));
  profile_->Raises("GetPlanValue", kServerDown);
  EXPECT_EQ(NumberRaisedBy([] { GetPlanRows(166, "a"); }), -3);
}

TEST_F(PlanStore, GivesTheDefaultForAKeyThatThePlanLacks) {
  EXPECT_EQ(PlanKeyValue(Plan({}), "ELevel", "5"), "5");
  EXPECT_EQ(PlanKeyValue(Plan({{"BLevel", "2"}}), "ELevel", "5"), "5");
}

TEST_F(PlanStore, GivesEmptyTextForANull) {
  EXPECT_EQ(PlanKeyValue(Plan({{"ELevel", Null{}}}), "ELevel", "5"), "");
}

TEST_F(PlanStore, GivesEmptyTextWhereItFails) {
  EXPECT_EQ(PlanKeyValue(nullptr, "ELevel", "5"), "");
  EXPECT_EQ(PlanKeyValue(Rows("A", "B", FieldType::kVarChar, {{"ELevel", "3"}}), "ELevel", "5"), "");
}

TEST_F(PlanStore, TakesAnyKey) {
  const RecordsetRef rows = Plan({{"it's", "1"}, {"b", "2"}});
  EXPECT_EQ(PlanKeyValue(rows, "it's", ""), "1");
  EXPECT_EQ(PlanKeyValue(rows, "b", ""), "2");
  EXPECT_EQ(PlanKeyValue(rows, "' Or FKey='b", "none"), "none");
}

TEST_F(PlanStore, LeavesTheFilterOfTheLastKey) {
  const RecordsetRef rows = Plan({{"a", "1"}, {"b", "2"}});
  PlanKeyValue(rows, "b", "");
  EXPECT_EQ(rows->Filter(), "FKey='b'");
  EXPECT_EQ(rows->RecordCount(), 1);
}

// --- Delete, save

TEST_F(PlanStore, DeletesAPlanByItsName) {
  profile_->Gives("DelPlan", Variant());
  DeletePlan(166, "默认方案");
  EXPECT_EQ(profile_->Calls()[0].arguments, (Values{"UserID=16394", 166, "默认方案"}));
  profile_->Raises("DelPlan", kServerDown);
  EXPECT_EQ(NumberRaisedBy([] { DeletePlan(166, "a"); }), -3);
}

TEST_F(PlanStore, WritesARowForEachKey) {
  Vector rows;
  AddPlanRow(rows, 166, "a", "BDate", "2003-07-01");
  AddPlanRow(rows, 166, "a", "BItem", "");
  ASSERT_EQ(rows.Size(), 2);
  std::vector<std::string> keys;
  for (const Dictionary::Entry& entry : As<Dictionary>(rows.Item(1))->Entries()) keys.push_back(entry.key);
  EXPECT_THAT(keys, ElementsAre("RptID", "Plan", "Key", "Value"));
  EXPECT_EQ(As<Dictionary>(rows.Item(1))->Get("RptID"), Variant(166));
  EXPECT_EQ(As<Dictionary>(rows.Item(1))->Get("Value"), Variant("2003-07-01"));
  EXPECT_EQ(As<Dictionary>(rows.Item(2))->Get("Key"), Variant("BItem"));
}

}  // namespace
}  // namespace salerpt
