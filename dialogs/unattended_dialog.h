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
  kZero,
  kOne,
  kToday,
  kCurrentYear,
  kCurrentPeriod,
  kBeginLevel,    // 1, as a double
  kEndLevel,      // 5, or the depth of the tree that is grouped by
  kSumName,       // text of the chosen row of "sum by"
  kSumField,      // its description
  kAllSaleTypes,  // "全部"
  kItemCodeOrder  // the item code, ascending; nothing where only totals of an ungrouped list are asked
};

struct DialogKey {
  std::string_view key;
  DefaultValue value;
};

// The description of the property that a row of "sum by" groups by, as the dialog writes it into "SumField".
struct SumFieldRow {
  std::int32_t code;  // "SumMode"
  std::string_view name;
  // Base-data class; 0: the key is not written.
  std::int32_t item_class_id;
  std::int32_t prop_id;
  std::string_view sql_column_name;
  std::string_view src_table;
  std::string_view src_field;
  std::string_view display_field;
};

// A dialog as data: keys in writing order, and the rows of "sum by" in list order with their texts.
struct DialogTable {
  std::string_view name;
  std::span<const DialogKey> keys;
  struct GroupByRow {
    std::string_view text;
    std::int32_t code;
  };
  std::span<const GroupByRow> group_by;
  std::span<const SumFieldRow> sum_fields;
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

  const DialogTable& table_;
  Dictionary chosen_;
  DictionaryRef filter_;
};

// Registers the unattended dialogs under their class names.
void RegisterUnattendedDialogs(Runtime& runtime);

}  // namespace salerpt
