#include "dialogs/frm_filter303.h"

#include "runtime/mparse.h"
#include "sqltoolkit/item_level.h"

namespace salerpt {

void FrmFilter303::LoadOwn() {
  form_.Get<Label>("Label7").caption = ResText("类别级次: ");
  constexpr std::int32_t kFirstLevel = 1;
  Groups()->SetLevelBounds(kFirstLevel,
                           GroupPane::ItemMaxLevel(kItemClass).value_or(GroupPane::kDeepestLevel));
}

// Kept: a confirmation that the dates refuse leaves "OK" true while the dialog stays open.
bool FrmFilter303::AcceptRange() {
  filter_->Set("OK", true);
  return TableDialog::AcceptRange();
}

// A cancelled dialog answers so, whatever was refused before.
void FrmFilter303::Cancel() {
  filter_->Set("OK", false);
  TableDialog::Cancel();
}

void FrmFilter303::OnKeyPress(KeyStroke& key) {
  if (key.code == key_code::kEscape) Cancel();
}

}  // namespace salerpt
