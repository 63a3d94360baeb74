// A login with a plan store in memory, and a user with prepared answers.
#pragma once

#include <algorithm>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "runtime/vector.h"
#include "tests/runtime/fake_object.h"
#include "tests/runtime/fake_world.h"

namespace salerpt::testing {

// Answers boxes and input boxes from queues: boxes with OK, input boxes cancelled where a queue is empty.
class AnsweringToolkit : public FakeToolkit {
 public:
  std::deque<BoxAnswer> answers;
  std::deque<std::string> typed;
  std::vector<RecordedBox> inputs;  // prompt, 0, title
  std::vector<std::string> keys;
  int beeps = 0;

  BoxAnswer MessageBox(std::string_view text, int style, std::string_view title) override {
    FakeToolkit::MessageBox(text, style, title);
    return Next(answers, BoxAnswer::kOk);
  }
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view /*preset*/) override {
    inputs.push_back({std::string(prompt), 0, std::string(title)});
    return Next(typed, std::string());
  }
  void SendKeys(std::string_view sent) override { keys.emplace_back(sent); }
  void Beep() override { ++beeps; }

 private:
  template <typename T>
  static T Next(std::deque<T>& queue, T absent) {
    if (queue.empty()) return absent;
    T next = std::move(queue.front());
    queue.pop_front();
    return next;
  }
};

// The store under "ORVMCaculateRpt.Profile": it keeps what it is given, names as they come.
class StoredPlans {
 public:
  using Values = std::vector<std::pair<std::string, Variant>>;
  struct Plan {
    std::string name;
    Values values;
    Variant status = 0;
  };

  explicit StoredPlans(Runtime& runtime) : object_(RegisterFake(runtime, "ORVMCaculateRpt.Profile", log)) {
    object_->On("GetPlanList", [this](Arguments) -> Variant { return ListRows(); });
    object_->On("GetPlanValue", [this](Arguments given) -> Variant { return ValueRows(given[2].ToText()); });
    object_->On("SaveProfile", [this](Arguments given) -> Variant {
      Keep(*As<Vector>(given[1]));
      return {};
    });
    object_->On("DelPlan", [this](Arguments given) -> Variant {
      std::erase_if(plans, [&](const Plan& plan) { return plan.name == given[2].ToText(); });
      return {};
    });
    object_->Gives("UpdateNextChooseValue", Variant());
  }

  // All calls fail from now on.
  void BreakDown() {
    const RuntimeError down(-3, "Server", "the server is down");
    for (const char* member :
         {"GetPlanList", "GetPlanValue", "SaveProfile", "DelPlan", "UpdateNextChooseValue"}) {
      object_->Raises(member, down);
    }
  }
  // The calls since the last time, "DelPlan 145 A" for those that name a plan.
  [[nodiscard]] std::vector<std::string> TakeCalls() {
    std::vector<std::string> calls;
    for (const RecordedCall& call : *log) {
      const bool is_own = call.object == "ORVMCaculateRpt.Profile";
      std::string text = is_own ? call.member : Join(call.object, ".", call.member);
      for (std::size_t i = 1; i < call.arguments.size(); ++i) {
        if (!call.arguments[i].IsObject()) Append(text, " ", call.arguments[i].ToText());
      }
      calls.push_back(text);
    }
    log->clear();
    return calls;
  }

  std::vector<Plan> plans;
  // The rows of the last save: "145|默认方案|BDate=2003-07-01".
  std::vector<std::string> saved;
  std::shared_ptr<FakeObject::Log> log = std::make_shared<FakeObject::Log>();

 private:
  [[nodiscard]] Plan* Find(std::string_view name) {
    const auto found =
        std::find_if(plans.begin(), plans.end(), [name](const Plan& plan) { return plan.name == name; });
    return found == plans.end() ? nullptr : &*found;
  }
  [[nodiscard]] RecordsetRef ListRows() const {
    RecordsetRef rows = MakeRecordset();
    rows->AppendField("FPlan", FieldType::kVarChar, 80);
    rows->AppendField("FStatus", FieldType::kInteger, 4);
    rows->Open();
    for (const Plan& plan : plans) {
      rows->AddNew();
      rows->SetValue(0, plan.name);
      rows->SetValue(1, plan.status);
      rows->Update();
    }
    return rows;
  }
  [[nodiscard]] RecordsetRef ValueRows(const std::string& name) {
    RecordsetRef rows = MakeRecordset();
    rows->AppendField("FKey", FieldType::kVarChar, 80);
    rows->AppendField("FValue", FieldType::kVarChar, 255);
    rows->Open();
    if (const Plan* plan = Find(name)) {
      for (const auto& [key, value] : plan->values) {
        rows->AddNew();
        rows->SetValue(0, key);
        rows->SetValue(1, value);
        rows->Update();
      }
    }
    return rows;
  }
  void Keep(const Vector& rows) {
    saved.clear();
    for (std::int32_t i = 1; i <= rows.Size(); ++i) {
      const auto row = As<Dictionary>(rows.Item(i));
      const std::string name = row->Get("Plan").ToText();
      if (Find(name) == nullptr) plans.push_back({name, {}, 0});
      Plan& plan = *Find(name);
      if (i == 1) plan.values.clear();
      plan.values.emplace_back(row->Get("Key").ToText(), row->Get("Value"));
      saved.push_back(Join(row->Get("RptID").ToText(), "|", name, "|", row->Get("Key").ToText(), "=",
                           row->Get("Value").ToText()));
    }
  }

  FakeRef object_;
};

// The world of a dialog with plans. The clock stands on 2003-07-01.
struct StoredPlansWorld {
  StoredPlansWorld() {
    runtime.SetToolkit(toolkit);
    runtime.SetPlatform(std::make_shared<FakePlatform>(folder.Path()));
    LogIn(runtime, "UserID=16394");
  }
  Runtime runtime;
  TempFolder folder;
  std::shared_ptr<AnsweringToolkit> toolkit = std::make_shared<AnsweringToolkit>();
  StoredPlans store{runtime};
};

}  // namespace salerpt::testing
