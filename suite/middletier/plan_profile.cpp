#include <array>
#include <memory>
#include <span>
#include <vector>

#include "runtime/dictionary.h"
#include "runtime/mrpt.h"
#include "runtime/vector.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// The row of a plan that says whether it runs next time without a dialog.
constexpr std::string_view kNextChoose = "chkNextChoose";

// Names and values as the user has written them: who calls has doubled their apostrophes, as for an SQL text,
// and doubles them again for what comes back. A store that kept them doubled would not find a plan again by
// the name that it lists, and a code with an apostrophe would grow with every save.
std::string Undoubled(std::string_view text) {
  return Replace(text, "''", "'");
}

// A family's number, which comes as a number or as a text.
std::int32_t FamilyOf(const Variant& rpt_id) {
  return rpt_id.IsText() ? Variant(Val(*rpt_id.TextIf())).ToInt32() : rpt_id.ToInt32();
}

std::string FamilyCondition(const Server& server, std::int32_t family) {
  return Join(" Where FUserID=", server.GetLogin().user_id, " And FRptID=", family);
}

std::string PlanCondition(const Server& server, std::int32_t family, std::string_view plan) {
  return Join(FamilyCondition(server, family), " And FPlan=", QuoteText(plan));
}

// No plan of the family is the next one, and none shows that it is.
std::string ClearNextText(const Server& server, std::int32_t family) {
  const std::string of_family = FamilyCondition(server, family);
  return Join("Update t_RptPlan Set FNextChoose=0", of_family, "\r\n", "Update t_RptPlanValue Set FValue='0'",
              of_family, " And FKey='", kNextChoose, "'\r\n");
}

std::string DeleteText(const Server& server, std::int32_t family, std::string_view plan) {
  const std::string of_plan = PlanCondition(server, family, plan);
  return Join("Delete From t_RptPlanValue", of_plan, "\r\n", "Delete From t_RptPlan", of_plan, "\r\n");
}

struct Plan {
  std::int32_t family = 0;
  std::string name;
  Dictionary values;
};

// The rows of a save by plan, in the order in which they came. A key that comes twice keeps its first place
// and its last value.
std::vector<std::unique_ptr<Plan>> PlansOf(const Vector& rows) {
  std::vector<std::unique_ptr<Plan>> plans;
  for (std::int32_t i = 1; i <= rows.Size(); ++i) {
    const auto row = As<Dictionary>(rows.Item(i));
    const std::int32_t family = FamilyOf(row->Get("RptID"));
    const std::string name = Undoubled(Trim(row->Get("Plan").TextOrEmpty()));
    // A save is of one plan; others would follow it.
    if (plans.empty() || plans.back()->family != family || plans.back()->name != name) {
      plans.push_back(std::make_unique<Plan>());
      plans.back()->family = family;
      plans.back()->name = name;
    }
    const Variant& value = row->Get("Value");
    plans.back()->values.Set(row->Get("Key").TextOrEmpty(),
                             value.IsNull() ? value : Variant(Undoubled(value.TextOrEmpty())));
  }
  return plans;
}

std::string SaveText(const Server& server, const Plan& plan) {
  const bool is_next = Val(plan.values.Get(kNextChoose).TextOrEmpty()) == 1;
  const std::string of_plan =
      Join(server.GetLogin().user_id, ",", plan.family, ",", QuoteText(plan.name), ",");
  std::string text = DeleteText(server, plan.family, plan.name);
  if (is_next) text += ClearNextText(server, plan.family);
  Append(text, "Update t_RptPlan Set FStatus=0", FamilyCondition(server, plan.family), "\r\n");
  Append(text, "Insert Into t_RptPlan(FUserID,FRptID,FPlan,FStatus,FNextChoose) Values (", of_plan, "1,",
         is_next ? 1 : 0, ")\r\n");
  int index = 0;
  for (const Dictionary::Entry& entry : plan.values.Entries()) {
    Append(text, "Insert Into t_RptPlanValue(FUserID,FRptID,FPlan,FIndex,FKey,FValue) Values (", of_plan,
           ++index, ",", QuoteText(entry.key), ",",
           entry.value.IsNull() ? "Null" : QuoteText(entry.value, true, false), ")\r\n");
  }
  return text;
}

// `ORVMCaculateRpt.Profile` and `ORVMYWARAPRpt.Profile`: the stored filter plans of the user who is logged
// in, one store behind both names. A plan is a name within a family of reports and its values by key.
class PlanProfile final : public SuiteObject<PlanProfile> {
 public:
  static constexpr std::string_view kClassName = "ORVMCaculateRpt.Profile";
  using SuiteObject::SuiteObject;

  // The plans of a family by name; `FStatus` 1 is the chosen one, which is the plan saved last.
  static Variant GetPlanList(PlanProfile& self, Arguments arguments) {
    return self.GetServer().Query(Join("Select FPlan,FStatus From t_RptPlan",
                                       FamilyCondition(self.GetServer(), FamilyOf(arguments[1])),
                                       " Order By FPlan"));
  }

  // The values of a plan in the order in which they were saved; no rows for a plan that is not there.
  static Variant GetPlanValue(PlanProfile& self, Arguments arguments) {
    return self.GetServer().Query(
        Join("Select FKey,FValue From t_RptPlanValue",
             PlanCondition(self.GetServer(), FamilyOf(arguments[1]), Undoubled(arguments[2].TextOrEmpty())),
             " Order By FIndex"));
  }

  // Puts the rows in place of what the plan held, and makes it the chosen one. Its row "chkNextChoose" 1
  // makes it the next one, in place of any other. A save that fails leaves the plan as it was.
  static Variant SaveProfile(PlanProfile& self, Arguments arguments) {
    const auto rows = As<Vector>(arguments[1]);
    internal::Required(rows, "SaveProfile");
    std::string text;
    for (const auto& plan : PlansOf(*rows)) text += SaveText(self.GetServer(), *plan);
    if (!text.empty()) self.GetServer().ExecuteWhole(text);
    return {};
  }

  static Variant DelPlan(PlanProfile& self, Arguments arguments) {
    self.GetServer().ExecuteWhole(
        DeleteText(self.GetServer(), FamilyOf(arguments[1]), Undoubled(arguments[2].TextOrEmpty())));
    return {};
  }

  // The name of the plan to run without a dialog; empty where the family has none.
  static Variant FindChooseValue(PlanProfile& self, Arguments arguments) {
    const RecordsetRef rows = self.GetServer().Query(
        Join("Select FPlan From t_RptPlan", FamilyCondition(self.GetServer(), FamilyOf(arguments[1])),
             " And FNextChoose=1"));
    return rows->RecordCount() == 0 ? std::string() : rows->Value(0).TextOrEmpty();
  }

  static Variant UpdateNextChooseValue(PlanProfile& self, Arguments arguments) {
    self.GetServer().ExecuteWhole(ClearNextText(self.GetServer(), FamilyOf(arguments[1])));
    return {};
  }

  static std::span<const Member<PlanProfile>> Members() {
    static constexpr std::array<Member<PlanProfile>, 6> kMembers{{
        {"GetPlanList", InvokeKind::kMethod, "(props As String, rptID As Long) As Recordset", GetPlanList, 2},
        {"GetPlanValue", InvokeKind::kMethod, "(props As String, rptID As Long, plan As String) As Recordset",
         GetPlanValue, 3},
        {"SaveProfile", InvokeKind::kMethod, "(props As String, rows As Vector)", SaveProfile, 2},
        {"DelPlan", InvokeKind::kMethod, "(props As String, rptID As Long, plan As String)", DelPlan, 3},
        {"FindChooseValue", InvokeKind::kMethod, "(props As String, rptID As Variant) As String",
         FindChooseValue, 2},
        {"UpdateNextChooseValue", InvokeKind::kMethod, "(props As String, rptID As Long)",
         UpdateNextChooseValue, 2},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakePlanProfile(ServerRef server) {
  return std::make_shared<PlanProfile>(std::move(server));
}

}  // namespace salerpt::middletier
