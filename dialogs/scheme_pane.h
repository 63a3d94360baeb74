// The plan list of the credit dialogs.
#pragma once

#include <cstdint>
#include <string_view>

#include "dialogs/plan_list_pane.h"

namespace salerpt {

// `tlbProject` with "TLBSAVE", "TLBDEL", "TLBSAVEAS", "TLBVIEW" over `LvwScheme`. Its plans know no mark for
// the next run.
class SchemePane final : public PlanListPane {
 public:
  // Makes its controls on the form.
  SchemePane(Form& form, PlanOwner& owner);

  void ApplyStrings() override;
  // The list of a plan family, and the rows that the store gave for it. Raises what the store raises.
  void FillPlanListView(std::int32_t rpt_id, RecordsetRef& result);

 private:
  void OnTool(std::string_view key) override;
  void SaveNamed(bool under_new_name);
  [[nodiscard]] bool HasRow(std::string_view text) const;
  void Delete();
};

}  // namespace salerpt
