// What the shared modules do to forms: language resources, fonts, combos, text boxes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/dictionary.h"
#include "runtime/object.h"

namespace salerpt {

// A combo box as the fill operations see it.
class ComboBox {
 public:
  virtual ~ComboBox() = default;
  // Takes all rows away.
  virtual void Clear() = 0;
  // Appends a row: what the user reads, and the code that the row stands for.
  virtual void AddItem(std::string_view text, std::int32_t item_data) = 0;
  // Selects a row by its number, from 0; -1 selects none.
  virtual void SetListIndex(std::int32_t index) = 0;
};

// A control as `ClearTextBoxes` sees it.
class Control {
 public:
  virtual ~Control() = default;
  // The control's type, such as "TextBox" or "ComboBox".
  [[nodiscard]] virtual std::string_view TypeName() const = 0;
  // Called for text boxes only.
  virtual void SetText(std::string_view text) = 0;
};

// "全部" with item data -1, then every order type; the first is selected. Raises what the read raises.
void FillStatusCombo(ComboBox& combo);
// The consignment style alone.
void FillConsignCombo(ComboBox& combo);
// Empties the text of every control whose type name is "TextBox".
void ClearTextBoxes(const std::vector<Control*>& controls);

// Loads a form's strings in the login's language, by the form's resource name. `dictionary` may be nothing;
// the loader gets one that asks for the column headings too, and may give back another, which is the result.
// With the pinned language nothing happens and the result is `dictionary`. Raises what the loader raises.
DictionaryRef LoadFormResources(const ObjectRef& form, DictionaryRef dictionary, std::string_view name);
// Sets a form's font for the language, through a loader that is kept. Raises what the loader raises.
void ApplyFormFont(const ObjectRef& form);

}  // namespace salerpt
