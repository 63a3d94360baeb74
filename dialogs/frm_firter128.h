// frmFirter128, the filter dialog of the sales outbound summary.
#pragma once

#include <memory>

#include "dialogs/table_dialog.h"
#include "dialogs/tables/tables.h"

namespace salerpt {

// Its own is the sort pane: a grouped report has no item code to sort by, so the code is offered only where
// the rows are not grouped; and what a confirmation sorts by is counted in the usage log.
class FrmFirter128 final : public TableDialog {
 public:
  explicit FrmFirter128(const DialogTable& table = kFrmFirter128) : TableDialog(table) {}

  void Confirm() override;

 protected:
  std::unique_ptr<SortPane> MakeSortPane() override;

 private:
  class OutboundSortPane;
  // The sort pane, which its base owns.
  OutboundSortPane* sorting_ = nullptr;
};

}  // namespace salerpt
