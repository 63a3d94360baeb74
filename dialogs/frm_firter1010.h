// frmFirter1010, the filter dialog of the order outbound and receipt tracking.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dialogs/table_dialog.h"
#include "dialogs/tables/tables.h"

namespace salerpt {

// Its own: an order that is not audited is always open, so "未审核" holds `CmbCloseState` on "未关闭"; and
// the Delete key in the sort grid.
class FrmFirter1010 final : public TableDialog {
 public:
  explicit FrmFirter1010(const DialogTable& table = kFrmFirter1010) : TableDialog(table) {}

  // How often a character occurs in a text.
  static std::int32_t GetChrCount(std::string_view text, std::string_view character);
  // The n-th piece of a text, from 1; empty where there are fewer.
  static std::string GetStrbyChr(std::string_view text, std::string_view character, std::int32_t n);

 protected:
  void LoadOwn() override;
  void RestoreKey(const PlanKey& key, const std::string& value) override;

 private:
  void CoupleCloseState();
};

}  // namespace salerpt
