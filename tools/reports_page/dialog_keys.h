// What a filter dialog tells about itself: its keys, and the rows by which it sums.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/recorded/json_place.h"

namespace salerpt::tools {

using shell::Json;

// One key of `Filter`.
struct DialogKey {
  std::string key;
  // "text", "date", "number", "boolean", "object".
  std::string kind;
  // As the page shows it: `1`, "today", empty for an empty text.
  std::string by_default;
  // The caption of the control that sets it; empty where it has none.
  std::string caption;
  // Rows of the combo box that sets it, as "0 全部"; empty for other controls.
  std::vector<std::string> choices;
};

// A row of "sum by".
struct Grouping {
  // What the user gives to get it: "SumMode=8", "GroupBy=物料"; empty for the plain list.
  std::string choice;
  std::string text;
  // What a confirmation gives.
  Json filter;
  // A check box of the plain list, such as "AuxProp=1", and no row of "sum by".
  bool is_option = false;
};

struct DialogKeys {
  std::vector<DialogKey> keys;
  // The plain list first, where there is one. One that the dialog is confirmed with as it opens is always
  // there.
  std::vector<Grouping> groupings;
  // Fields of the sort pane, as "出库金额 `FOutAmount`".
  std::vector<std::string> sort_fields;
};

// Runs the dialog of a class: as it opens, and once for each of its controls with that control changed, which
// tells the keys that hang on it.
DialogKeys ReadDialogKeys(std::string_view dialog);

}  // namespace salerpt::tools
