// frmFilter189, the filter dialog of the delivery due warning.
#pragma once

#include <memory>

#include "dialogs/table_dialog.h"
#include "dialogs/tables/tables.h"

namespace salerpt {

// Its own: both dates start from the server, plans are saved under the profile object of the warnings, and
// the test switch does not reach it.
class FrmFilter189 final : public TableDialog {
 public:
  explicit FrmFilter189(const DialogTable& table = kFrmFilter189) : TableDialog(table) {}

  void Activate() override {}

 protected:
  std::unique_ptr<PlanPane> MakePlanPane() override;
  void LoadOwn() override;
};

}  // namespace salerpt
