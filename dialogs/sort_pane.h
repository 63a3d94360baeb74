// The sort pane: an ordered list of report columns, each ascending or descending, as one sort text.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "dialogs/dialog_table.h"
#include "dialogs/form.h"

namespace salerpt {

// `listOrderFields` with the fields on offer, the grid `vsOrder` with the chosen ones, `cmdAdd`, `cmdUp`,
// `cmdDown`, `cmdDelOrder`, on tab 1 of the dialog's tab control.
class SortPane {
 public:
  // Makes its controls on the form.
  SortPane(Form& form, std::span<const SortField> fields, std::string_view tabs);
  virtual ~SortPane() = default;

  void ApplyStrings();
  // Fills the list of the fields on offer; `with_code` tells whether the item code is among them, in a dialog
  // where it comes and goes.
  virtual void FieldListBuild(bool with_code);
  // The sort text: fields joined by commas, each with " ASC" or " DESC"; empty where tab 1 is not enabled.
  [[nodiscard]] std::string ComposeOrderBy();
  // Fills the grid from a sort text; "NULL" is the item code, ascending. No row is selected then.
  void RestoreOrderGrid(std::string_view text);

 protected:
  // Called for each used row while the text is composed.
  virtual void OnComposed(std::string_view /*field*/) {}
  virtual void AfterCompose() {}
  // Appends to the list of the fields on offer, under the code rule in use.
  void Offer(std::span<const SortField> fields);
  // Takes the row of a field out of the grid.
  void RemoveField(std::string_view field);
  [[nodiscard]] ListControl& Fields() const { return form_.Get<ListControl>("listOrderFields"); }
  [[nodiscard]] OrderGrid& Grid() const { return form_.Get<OrderGrid>("vsOrder"); }
  [[nodiscard]] std::span<const SortField> Table() const { return fields_; }

 private:
  void Add();
  void Select(int row);
  void Mark(int row);
  void Move(int step);
  void Delete();
  void Toggle(int row, int column);
  [[nodiscard]] std::string FindFieldCaption(std::string_view field) const;
  void EnableMoves(bool enabled);
  [[nodiscard]] TabControl::Tab& SortTab() const;
  [[nodiscard]] int RowCount() const { return static_cast<int>(Grid().rows.size()); }

  Form& form_;
  std::span<const SortField> fields_;
  std::string tabs_;
  // The selected row, from 1; 0 for none.
  int order_row_ = 0;
};

}  // namespace salerpt
