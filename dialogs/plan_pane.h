// The plan list of a dialog and its toolbar: named, stored sets of the dialog's values.
#pragma once

#include <string>
#include <string_view>

#include "dialogs/plan_list_pane.h"

namespace salerpt {

// `tlbProject` with "TLBSAVE", "TLBDEL", "TLBCLEAR", "TLBVIEW" over `lvwProject`.
class PlanPane final : public PlanListPane {
 public:
  enum class Kind {
    kCurrent,  // asks before it overwrites a named plan, and clears the family's mark for the next run
    kOlder     // saves a named plan under its name without asking
  };
  // Makes its controls on the form. `save_prog_id` is the object that saves.
  PlanPane(Form& form, PlanOwner& owner, Kind kind,
           std::string_view save_prog_id = "ORVMCaculateRpt.Profile");

  void ApplyStrings() override;

 private:
  void OnTool(std::string_view key) override;
  void BeforeSave() override;
  void SaveNamed();
  [[nodiscard]] std::string NameToSave() const;
  void Delete();
  void ClearCodes();

  Form& form_;
  Kind kind_;
};

}  // namespace salerpt
