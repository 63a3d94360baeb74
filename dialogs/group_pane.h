// The group-by and level pane: whether a report groups its rows, by what, and down to which class level.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/dialog_table.h"
#include "dialogs/form.h"
#include "runtime/dictionary.h"
#include "runtime/event.h"
#include "runtime/vector.h"

namespace salerpt {

// `chkGroupBy`, `chkOnlyShowSum`, `cmbGroupBy`, `txtlevel(0)`, `txtlevel(1)` with `udBLevel`, `udELevel`, and
// their labels. The frame `Frame1` holds all but the two boxes, which stay in reach of the user while the
// frame is not.
class GroupPane {
 public:
  // The deepest level where the code tree does not tell its own.
  static constexpr std::int32_t kDeepestLevel = 5;

  // Makes its controls on the form; `tabs` is the tab control whose tab 1 is the sort pane.
  GroupPane(Form& form, const GroupByTable& table, std::string_view tabs);

  void ApplyStrings();
  // Fills `cmbGroupBy`; no row is selected by it. A property list that cannot be read stays empty.
  void LoadGroupByItems();
  // The same with another table's rows (a dialog whose rows hang on a choice).
  void SetTable(const GroupByTable& table);
  // The up-downs' bounds as a form load sets them.
  void SetLevelBounds(std::int32_t min, std::int32_t max);
  // The `chkGroupBy` click rule, which plans run after they have set the boxes.
  void ApplyGroupBy();
  // At confirmation a level of 0 becomes 1.
  void FixZeroLevels();

  // Whether rows of properties follow those of the table.
  [[nodiscard]] bool OffersProperties() const { return !table_->properties.empty(); }
  // Code and text of the selected row; 0 and empty where none is.
  [[nodiscard]] std::int32_t SumMode() const;
  [[nodiscard]] std::string SumName() const;
  // The description of the selected row, as the report reads it; sets "SumMode" of `filter` to 0 where the
  // table says so.
  [[nodiscard]] DictionaryRef SumField(Dictionary& filter) const;

  // How deep the code tree of a class is, asked anew each time; nothing where the middle tier does not
  // answer.
  [[nodiscard]] static std::optional<std::int32_t> ItemMaxLevel(std::int32_t item_class_id);
  // The class whose deepest level a code's levels may reach; 0 for a code without levels.
  [[nodiscard]] virtual std::int32_t LevelClass(std::int32_t code) const;
  virtual ~GroupPane() = default;

  // After the `chkGroupBy` rule, with whether the box is checked: the sort pane rebuilds its list.
  Event<bool> GroupingChanged;

 protected:
  [[nodiscard]] const ListControl& Rows() const { return form_.Get<ListControl>("cmbGroupBy"); }

 private:
  void MakeLevel(int index, std::string_view up_down);
  void OnGroupByClick();
  void EnableSortTab();
  void OnLevelChange(int index);
  void OnLevelValidate(int index);
  [[nodiscard]] TextBox& Level(int index) const { return form_.Get<TextBox>("txtlevel", index); }
  [[nodiscard]] double LevelNumber(int index) const;
  // The member of the property descriptions that the selected row stands for; nothing beyond their list.
  [[nodiscard]] DictionaryRef SelectedProperty() const;

  Form& form_;
  const GroupByTable* table_;
  std::string tabs_;
  std::string end_level_label_;
  // The property descriptions, from 1.
  VectorRef properties_;
};

}  // namespace salerpt
