// A suite in which a dialog opens: a plan store, the sale data, the base-data look-ups.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dialogs/table_dialog.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "tests/runtime/fake_list.h"
#include "tests/runtime/fake_object.h"
#include "tests/runtime/fake_world.h"

namespace salerpt::testing {

using PlanValues = std::vector<std::pair<std::string, std::string>>;
// The entries of a dictionary in order, as texts.
using TextEntries = std::vector<std::pair<std::string, std::string>>;

inline TextEntries Texts(const Dictionary& dictionary) {
  TextEntries entries;
  for (const Dictionary::Entry& entry : dictionary.Entries()) {
    entries.emplace_back(entry.key, entry.value.IsObject() ? "(object)" : entry.value.TextOrEmpty());
  }
  return entries;
}

// Rows of texts, on the first one.
inline RecordsetRef TextRows(const std::vector<std::string>& fields,
                             const std::vector<std::vector<std::string>>& values) {
  const RecordsetRef rows = MakeRecordset();
  for (const std::string& field : fields) rows->AppendField(field, FieldType::kVarChar, 255);
  rows->Open();
  for (const std::vector<std::string>& row : values) {
    rows->AddNew();
    for (std::size_t field = 0; field < row.size(); ++field) {
      rows->SetText(static_cast<int>(field), row[field]);
    }
    rows->Update();
  }
  if (rows->RecordCount() > 0) rows->MoveFirst();
  return rows;
}

// Today is 2003-07-01; long codes are in use; every class has three levels; look-ups are cancelled.
class DialogSuiteTest : public ::testing::Test {
 protected:
  DialogSuiteTest() {
    folder_.Write("ErpSwitch.sss", "");
    runtime_.SetPlatform(std::make_shared<FakePlatform>(folder_.Path()));
    runtime_.SetToolkit(toolkit_);
    LogIn(runtime_, "ConnectString={PROVIDER=x;UID=sa};UserName=abc;UserID=16394", "abc");
    RegisterFake(runtime_, "ORVEBSBase.SystemProfile")->Gives("GetProfile", 0);
    sale_data_->On("GetItemMaxLevel", [this](Arguments arguments) -> Variant {
      level_classes_.push_back(arguments[1].ToInt32());
      return 3;
    });
    sale_data_->Gives("GetItemPropDesc", std::make_shared<Vector>());
    sale_data_->Gives("GetSaleType", TextRows({"FInterID", "FName"}, {}));
    look_up_->Gives("ReturnObject", nullptr).Gives("returnok", false);
    view_->Gives("ItemLookUp", look_up_);
    gl_data_->Gives("Refresh", Variant());
    for (const FakeRef& store : {profile_, warning_profile_}) {
      store->On("GetPlanList", [this](Arguments) -> Variant { return PlanList(); });
      store->On("GetPlanValue", [this](Arguments arguments) -> Variant {
        std::vector<std::vector<std::string>> values;
        for (const auto& [key, value] : plans_[arguments[2].ToText()]) values.push_back({key, value});
        return TextRows({"FKey", "FValue"}, values);
      });
      store->Gives("UpdateNextChooseValue", Variant());
      store->On("SaveProfile", [this](Arguments arguments) -> Variant {
        saved_.push_back(As<Vector>(arguments[1]));
        return Variant();
      });
    }
  }

  // What the user picks from the next look-ups.
  void Pick(std::string_view number, std::int32_t item_id = 0) {
    const auto picked = std::make_shared<FakeObject>("Picked");
    picked->Gives("Number", number).Gives("ItemID", item_id);
    look_up_->Gives("ReturnObject", picked).Gives("returnok", true);
  }
  // The rows of the last save, as key and value; their plan and family are checked.
  [[nodiscard]] PlanValues Saved(std::string_view plan, std::int32_t family) const {
    PlanValues values;
    if (saved_.empty()) return values;
    for (std::int32_t i = 1; i <= saved_.back()->Size(); ++i) {
      const auto row = As<Dictionary>(saved_.back()->Item(i));
      EXPECT_EQ(row->Get("Plan"), Variant(plan));
      EXPECT_EQ(row->Get("RptID"), Variant(family));
      values.emplace_back(row->Get("Key").ToText(), row->Get("Value").ToText());
    }
    return values;
  }

  TempFolder folder_;
  Runtime runtime_;
  std::shared_ptr<ListToolkit> toolkit_ = std::make_shared<ListToolkit>();
  FakeRef profile_ = RegisterFake(runtime_, "ORVMCaculateRpt.Profile");
  FakeRef warning_profile_ = RegisterFake(runtime_, "ORVMYWARAPRpt.Profile");
  FakeRef sale_data_ = RegisterFake(runtime_, "ORVMSaleRpt.Data");
  FakeRef report_data_ = RegisterFake(runtime_, "ORVMReport.ClsReport");
  FakeRef gl_data_ = RegisterFake(runtime_, "ORVEBCGLView.GLData");
  FakeRef view_ = RegisterFake(runtime_, "ORVEBCGLView.GLView");
  FakeRef look_up_ = std::make_shared<FakeObject>("LookUp");
  // Stored plans by name.
  std::map<std::string, PlanValues> plans_;
  std::vector<VectorRef> saved_;
  // The classes whose depth was asked for.
  std::vector<std::int32_t> level_classes_;

 private:
  [[nodiscard]] RecordsetRef PlanList() const {
    std::vector<std::vector<std::string>> rows;
    for (const auto& [name, values] : plans_) rows.push_back({name, "0"});
    return TextRows({"FPlan", "FStatus"}, rows);
  }
};

}  // namespace salerpt::testing
