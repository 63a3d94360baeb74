#include "dialogs/frm_firter1010.h"

#include "runtime/text_utilities.h"

namespace salerpt {
namespace {

constexpr int kNotAudited = 1;
constexpr int kOpen = 1;

}  // namespace

void FrmFirter1010::LoadOwn() {
  Box("cmbCheckState").Click.Connect([this] { CoupleCloseState(); });
  form_.Get<OrderGrid>("vsOrder").KeyDown.Connect([this](KeyStroke& key) {
    if (key.code == key_code::kDelete) form_.Get<Button>("cmdDelOrder").Click.Raise();
  });
}

void FrmFirter1010::CoupleCloseState() {
  ListControl& close_state = Box("CmbCloseState");
  const bool is_held = Box("cmbCheckState").ListIndex() == kNotAudited;
  if (is_held) close_state.SetListIndex(kOpen);
  close_state.enabled = !is_held;
}

// The coupling holds against a plan too, which brings the close state behind the audit state.
void FrmFirter1010::RestoreKey(const PlanKey& key, const std::string& value) {
  TableDialog::RestoreKey(key, value);
  if (EqualNames(key.key, "CloseState")) CoupleCloseState();
}

std::int32_t FrmFirter1010::GetChrCount(std::string_view text, std::string_view character) {
  return CountParts(text, character);
}

std::string FrmFirter1010::GetStrbyChr(std::string_view text, std::string_view character, std::int32_t n) {
  return NthPart(text, character, n);
}

}  // namespace salerpt
