#include "sqltoolkit/plan_store.h"

#include <memory>

#include "runtime/dictionary.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

constexpr std::string_view kProfile = "ORVMCaculateRpt.Profile";

ObjectRef ProfileObject() {
  return ObjectFactory::CreateServerObject(kProfile);
}

// A status may be null where the store has never marked the plan.
bool IsChosen(const Variant& status) {
  return !status.IsNull() && status.ToInt32() == 1;
}

}  // namespace

RecordsetRef LoadPlanList(std::int32_t rpt_id, PlanList& list) {
  RecordsetRef rows = As<Recordset>(Call(ProfileObject(), "GetPlanList", GetPropsString(), rpt_id));
  internal::Required(rows, "GetPlanList");
  const int plan = rows->FieldIndex("FPlan");
  const int status = rows->FieldIndex("FStatus");
  list.Clear();
  const std::string default_plan = ResText(kDefaultPlan);
  list.Add(default_plan, default_plan);
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    const std::string name = rows->Value(plan).TextOrEmpty();
    if (name == kDefaultPlan) continue;
    const std::string key = Join("P", name);
    list.Add(key, name);
    if (IsChosen(rows->Value(status))) list.SelectKey(key);
  }
  return rows;
}

RecordsetRef GetPlanRows(std::int32_t rpt_id, std::string_view plan) {
  return As<Recordset>(Call(ProfileObject(), "GetPlanValue", GetPropsString(), rpt_id, plan));
}

std::string PlanKeyValue(const RecordsetRef& rows, std::string_view key, std::string_view absent) {
  try {
    internal::Required(rows, "Filter");
    rows->SetFilter(Join("FKey=", QuoteText(key)));
    if (rows->Eof()) return std::string(absent);
    return rows->Value("FValue").TextOrEmpty();
  } catch (const RuntimeError&) {
    return {};
  }
}

void DeletePlan(std::int32_t rpt_id, std::string_view plan) {
  Call(ProfileObject(), "DelPlan", GetPropsString(), rpt_id, plan);
}

void AddPlanRow(Vector& rows, std::int32_t rpt_id, std::string_view plan, std::string_view key,
                std::string_view value) {
  auto row = std::make_shared<Dictionary>();
  row->Set("RptID", rpt_id);
  row->Set("Plan", plan);
  row->Set("Key", key);
  row->Set("Value", value);
  rows.Add(row);
}

}  // namespace salerpt
