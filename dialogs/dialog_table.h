// A filter dialog as data: its controls, the keys that it writes, the keys of its plans.
//
// One table per dialog (tables/…), interpreted by `TableDialog`. What a table cannot say stands in a file of
// the dialog's own.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace salerpt {

// How a dialog is built: which keys move the focus, whether a name list helps while typing, how plans are
// saved.
enum class DialogFamily : std::uint8_t {
  kDateRange,  // current dialogs over a range of dates
  kPeriod,     // current dialogs over one accounting period
  kOlder       // the older ones, over dates or periods
};

// What shows above the code fields.
enum class RangePane : std::uint8_t {
  kDates,       // `DtpBDate`, `DtpEDate`
  kPeriod,      // `txtPeriod(0)` year, `txtPeriod(1)` period, with `updBYear`, `updBPeriod`
  kPeriodRange  // and `txtPeriod(2)`, `txtPeriod(3)`, with `updEYear`, `updEPeriod`
};

// What the button beside a code field opens.
enum class LookUp : std::uint8_t {
  kBaseData,     // the class's look-up; the code in use comes back
  kNumber,       // the class's look-up; the long code comes back under both code rules
  kOrderNumber,  // the list of orders
  kBatchNumber   // the batches of the item range
};

// A pair of text boxes, `txtItem(index)` and `txtItem(index + 1)`, with their buttons: the ends of one range
// of codes.
struct CodeRange {
  int index;
  LookUp look_up;
  // The base-data class; 0 for what is no base data.
  std::int32_t item_class_id;
  // The label in front; empty where the dialog shows none.
  std::string_view caption;
};

// A combo box with a closed list, filled at load; `start` is the row then selected.
struct ComboBoxRows {
  std::string_view control;
  std::span<const std::string_view> rows;
  int start = 0;
};

struct CheckBoxCaption {
  std::string_view control;
  std::string_view caption;
  // Its value as the form is made, before any plan.
  int start = 0;
};
// A label (made where no other control has the name) and its text.
struct LabelCaption {
  std::string_view control;
  std::string_view caption;
};

// Where a key of `Filter` takes its value.
enum class KeySource : std::uint8_t {
  kDate,         // date picker, "YYYY-MM-DD"
  kText,         // text box, as typed
  kTrimmedText,  // text box, blanks trimmed
  kNumber,       // text box, its number (a double)
  kCheck,        // check box, 0 or 1
  kListIndex,    // combo box, row from 0
  kItemData,     // combo box, item data of the row
  kListText,     // combo box, text of the row
  kHookStatus,   // combo box: -1 all, 0 not matched, 2 matched
  kSumMode,      // the group-by pane: code of the row
  kSumName,      //   its text
  kSumField,     //   its description; may set "SumMode" to 0
  kOrder,        // the sort pane's text
  kSaveDefault   // writes nothing: here a dialog saves the default plan, where that is not at the end
};
// "BItemNumber" from `txtItem(0)`. Panes need no control name.
struct FilterKey {
  std::string_view key;
  KeySource source;
  std::string_view control = "";
};

// What a plan stores of a control.
enum class PlanSource : std::uint8_t {
  kDate,       // "YYYY-MM-DD"
  kCode,       // text with apostrophes doubled
  kText,       // text as it stands
  kCheck,      // 0 or 1
  kListIndex,  // row from 0
  kListText,   // text of the row
  kOrder       // the sort text
};
// What a control gets where the plan has no row for its key.
enum class PlanDefault : std::uint8_t {
  kText,  // the given text
  kToday,
  kCurrentYear,
  kCurrentPeriod,
  kUnchanged  // what the control shows
};
struct PlanKey {
  std::string_view key;
  PlanSource source;
  std::string_view control = "";
  PlanDefault absent = PlanDefault::kText;
  std::string_view text = "";
};

// --- The group-by pane

// A row of `cmbGroupBy`.
struct GroupByRow {
  std::string_view text;
  std::int32_t code;
};
// What a code does at confirmation. A code without a row here, and no property, gets a description without
// class and name.
struct SumFieldRow {
  std::int32_t code;
  std::string_view name;
  // Base-data class; 0: the key is not written.
  std::int32_t item_class_id;
  // True where "SumMode" becomes 0: the report then takes the row as a plain dimension.
  bool clears_sum_mode = false;
  std::int32_t prop_id = 0;
  std::string_view sql_column_name = "FName";
  std::string_view src_table = "";
  std::string_view src_field = "";
  std::string_view display_field = "";
  // False where the name is written as it stands, without ResText.
  bool translated = true;
};
struct GroupByTable {
  std::span<const GroupByRow> rows;
  std::span<const SumFieldRow> sum_fields;
  // Condition of the property descriptions that follow the rows under code 0; empty where there are none.
  std::string_view properties = "";
  // The member of the description list (from 1) that the row at a list index stands for: the index less this.
  int property_offset = 0;
  // Name of the label in front of the end level.
  std::string_view end_level_label = "Label6";
};

// --- The sort pane

struct SortField {
  std::string_view caption;
  std::string_view field;
  // Under short codes; empty where both rules have the same.
  std::string_view short_caption = "";
  std::string_view short_field = "";
};

// --- The dialog

struct DialogTable {
  std::string_view name;
  DialogFamily family;
  RangePane range = RangePane::kDates;
  // The tab control: `mstFilter` in most.
  std::string_view tabs = "mstFilter";
  std::span<const CodeRange> codes;
  std::span<const ComboBoxRows> combos;
  std::span<const CheckBoxCaption> checks = {};
  std::span<const LabelCaption> labels;
  // The label between the ends of a range.
  std::string_view range_to = "至: ";
  // Box of the sale styles, and the row that it leaves out; 0 for none. Empty where the dialog has no box.
  std::string_view sale_types = "";
  std::int32_t hidden_sale_type = 0;
  // Box of the order types; empty where the dialog has none.
  std::string_view order_types = "";
  const GroupByTable* group_by = nullptr;
  std::span<const SortField> sort_fields = {};
  std::span<const FilterKey> keys;
  std::span<const PlanKey> plan;
  // The keys in restoring order, where that is not the saving order (with "ELevel" before "BLevel").
  std::span<const std::string_view> restore = {};
  // The box whose start row the user's settings hold; empty for none.
  std::string_view remembered = "";
  // Name of the form's resources, in dialogs whose texts stand in the form's design; empty where the code
  // sets the texts and the font.
  std::string_view resources = "";
};

}  // namespace salerpt
