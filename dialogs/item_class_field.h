// The field of the fee invoices' item class.
#pragma once

#include <cstdint>

#include "dialogs/form.h"

namespace salerpt {

// `txtItemClass`, a code that may be typed, and `cmdItemClass`, which picks one from the base data.
class ItemClassField {
 public:
  // Makes its controls on the form.
  explicit ItemClassField(Form& form);

  // The id of what was picked last; 0 where nothing was.
  [[nodiscard]] std::int32_t ItemID() const { return item_id_; }

 private:
  void Pick();

  TextBox& code_;
  std::int32_t item_id_ = 0;
};

}  // namespace salerpt
