// Filter dialogs run without a screen: the conditions that a dialog gives when it is confirmed as it opens.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "runtime/filter_dialog.h"
#include "runtime/runtime.h"

namespace salerpt {

// What a key of a dialog's `Filter` holds when nothing was chosen.
enum class DefaultValue : std::uint8_t {
  kEmptyText,
  kNumber,  // the key's number
  kWord,    // the key's word, as the dialog shows it
  kToday,
  kCurrentYear,
  kCurrentPeriod,
  kBeginLevel,     // 1, as a double
  kEndLevel,       // 5, or the depth of the tree that is grouped by
  kSumName,        // text of the chosen row of "sum by"
  kSumField,       // its description
  kItemCodeOrder,  // the item code, ascending; nothing where only totals of an ungrouped list are asked
  kTaxInPrice,     // the system's purchase tax options
  kTaxRateOption
};

struct DialogKey {
  std::string_view key;
  DefaultValue value;
  std::int32_t number = 0;
  std::string_view word = "";
};

// The description of the property that a row of "sum by" groups by, as the dialog writes it into "SumField".
struct SumFieldRow {
  std::int32_t code;  // the row of "sum by"
  std::string_view name;
  // Base-data class; 0: the key is not written.
  std::int32_t item_class_id;
  // "SumMode" as written: a row that is described stands under 0 in some dialogs.
  std::int32_t sum_mode;
  std::int32_t prop_id = 0;
  std::string_view sql_column_name = "FName";
  std::string_view src_table = "";
  std::string_view src_field = "";
  std::string_view display_field = "";
};

// A dialog as data: keys in writing order, and the rows of "sum by" in list order with their texts.
struct DialogTable {
  struct GroupByRow {
    std::string_view text;
    std::int32_t code;
    // The base-data class whose levels the row shows; 0 for a row without levels.
    std::int32_t level_class = 0;
  };

  std::string_view name;
  std::span<const DialogKey> keys;
  std::span<const GroupByRow> group_by = {};
  std::span<const SumFieldRow> sum_fields = {};
  // Rows of "sum by" that group by a property of the base data stand under code 0; the property is chosen as
  // "SumField".
  bool has_properties = false;
  // What stands in place of this table when receivable invoices are chosen ("InvoiceStyle" 1).
  const DialogTable* receivable = nullptr;
};

// The tables of the dialogs that can be run so; null for any other name.
const DialogTable* FindDialogTable(std::string_view name);

// Confirms with its defaults and, over them, what was chosen.
class UnattendedDialog final : public FilterDialog {
 public:
  explicit UnattendedDialog(const DialogTable& table);

  // True for a key that this dialog writes (without regard to case), "SumField" included.
  [[nodiscard]] bool HasKey(std::string_view key) const;
  // The value that a key gets when nothing is chosen for it. Raises invalid call for a key that the dialog
  // does not write.
  [[nodiscard]] Variant Default(std::string_view key) const;
  // Chooses a value for a key of the dialog. Raises invalid call for any other key.
  void Choose(std::string_view key, Variant value);

  // The rows of "sum by" under what is chosen so far.
  [[nodiscard]] const DialogTable& Table() const;
  [[nodiscard]] std::string_view Name() const override { return table_.name; }
  void SetRptID(std::int32_t /*family*/) override {}
  // Writes `Filter`: "OK" true, then the keys in their order. "SumName" and "SumField" follow "SumMode"
  // unless chosen.
  void Confirm() override;
  // There is no plan store behind an unattended dialog: the plan is not looked up, the defaults are
  // confirmed.
  void ShowFinish(std::string_view /*plan*/) override { Confirm(); }
  [[nodiscard]] DictionaryRef Filter() const override { return filter_; }

 private:
  [[nodiscard]] Variant ValueOf(const DialogKey& key) const;
  [[nodiscard]] std::int32_t Chosen(std::string_view key, std::int32_t preset) const;
  [[nodiscard]] std::int32_t ChosenSumMode() const;
  [[nodiscard]] std::int32_t WrittenSumMode() const;

  const DialogTable& table_;
  Dictionary chosen_;
  DictionaryRef filter_;
};

// Registers the unattended dialogs under their class names.
void RegisterUnattendedDialogs(Runtime& runtime);

}  // namespace salerpt
