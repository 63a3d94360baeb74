#include "dialogs/frm_firter128.h"

#include "dialogs/usage_log.h"

namespace salerpt {

class FrmFirter128::OutboundSortPane final : public SortPane {
 public:
  using SortPane::SortPane;

  // A confirmation begins: the sort text that is composed first is counted. One that saves the default plan
  // composes twice.
  void CountNext() { is_counting_ = true; }

  // The code stands first in the table.
  void FieldListBuild(bool with_code) override {
    Fields().Clear();
    Offer(with_code ? Table() : Table().subspan(1));
    // Kept: the row is looked for under the long code's field alone, so under short codes it stays.
    if (!with_code) RemoveField("FNumber");
  }

 protected:
  void OnComposed(std::string_view field) override {
    if (!is_counting_) return;
    if (field == "FOutAmount") WriteUsageLog("XSCKHZ_PX2");
    if (field == "FCUUnitOutQty") WriteUsageLog("XSCKHZ_PX1");
    if (field == "FConsignAmount") WriteUsageLog("XSCKHZ_PX3");
  }
  void AfterCompose() override { is_counting_ = false; }

 private:
  bool is_counting_ = false;
};

std::unique_ptr<SortPane> FrmFirter128::MakeSortPane() {
  auto pane = std::make_unique<OutboundSortPane>(form_, Table().sort_fields, Table().tabs);
  sorting_ = pane.get();
  return pane;
}

void FrmFirter128::Confirm() {
  if (sorting_ != nullptr) sorting_->CountNext();
  TableDialog::Confirm();
}

}  // namespace salerpt
