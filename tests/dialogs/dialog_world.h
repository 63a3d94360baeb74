// The suite as a dialog meets it: a login, an empty plan store in which a test puts a plan, the log.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "runtime/recordset.h"
#include "tests/runtime/fake_object.h"
#include "tests/runtime/fake_world.h"

namespace salerpt::testing {

// It is 2003-07-01. The long code is in use, code trees are five levels deep.
class DialogWorld {
 public:
  DialogWorld() {
    runtime.SetPlatform(std::make_shared<FakePlatform>("/nowhere"));
    runtime.SetToolkit(toolkit);
    LogIn(runtime, "UserID=16394;");
    profile = RegisterFake(runtime, "ORVEBSBase.SystemProfile");
    profile->Gives("GetProfile", 0);
    data = RegisterFake(runtime, "ORVMSaleRpt.Data");
    data->Gives("GetItemMaxLevel", 5).Gives("GetItemPropDesc", std::make_shared<Vector>());
    plans = RegisterFake(runtime, "ORVMCaculateRpt.Profile");
    plans->On("GetPlanList", [](Arguments) -> Variant { return Rows("FPlan", "FStatus", {}); });
    plans->On("GetPlanValue", [this](Arguments) -> Variant { return Rows("FKey", "FValue", plan); });
    plans->Gives("UpdateNextChooseValue", Variant()).Gives("SaveProfile", Variant());
    usage = RegisterFake(runtime, "ORV_APFC.FrameData");
    usage->Gives("WriteMGLog", Variant());
    usage->OnAssign("PropString", [](Arguments) { return Variant(); });
  }

  // The names counted in the usage log.
  [[nodiscard]] std::vector<std::string> Counted() const {
    std::vector<std::string> names;
    for (const RecordedCall& call : usage->Calls()) {
      if (call.member == "WriteMGLog") names.push_back(call.arguments[1].ToText());
    }
    return names;
  }

  Runtime runtime;
  std::shared_ptr<FakeToolkit> toolkit = std::make_shared<FakeToolkit>();
  FakeRef profile;
  FakeRef data;
  FakeRef plans;
  FakeRef usage;
  // What every stored plan holds.
  std::map<std::string, std::string> plan;

 private:
  static RecordsetRef Rows(std::string_view first, std::string_view second,
                           const std::map<std::string, std::string>& values) {
    constexpr std::int32_t kWidth = 255;
    const RecordsetRef rows = MakeRecordset();
    rows->AppendField(first, FieldType::kVarChar, kWidth);
    rows->AppendField(second, FieldType::kVarChar, kWidth);
    rows->Open();
    for (const auto& [key, value] : values) {
      rows->AddNew();
      rows->SetValue(first, key);
      rows->SetValue(second, value);
      rows->Update();
    }
    return rows;
  }
};

}  // namespace salerpt::testing
