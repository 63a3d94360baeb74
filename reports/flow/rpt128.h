// `Rpt128`: sales outbound summary.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"
#include "sqltoolkit/report_header.h"

namespace salerpt {

// "销售出库汇总表": per item, what left the warehouse on sales outbound bills against what was invoiced, with
// quantities in three units and amounts in the base currency; on demand regrouped by class levels, customer,
// sale style, employee or department.
//
// The whole report is one T-SQL batch, handed to the middle tier as keys of a request dictionary that run in
// the order "SELECT", "GROUPBY", "Append", "UpdateAppend", "EndSel". Its temporary tables:
//   #DATA2      one row per source bill line, outbound and invoice lines mixed
//   #ItemLevel  class levels of items or customers
//   #DATA       the report rows; FID is the identity and the order
//   #TemData, #TemOrder   rows in rollup order and the order of their blocks, where the user asked for an
//   order
// FSumSort tells what a row is: 0 a detail row, 101 the grand total, any other value above 100 a subtotal.
class Rpt128 final : public Report {
 public:
  Rpt128() : Report("Rpt128") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt128"); }
  // A `Rpt129` over the item, and the customer or sale style, of the row.
  ObjectRef GetDetailReport(std::int32_t row) override;

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  // Which class the level columns show.
  enum class LevelKind { kCustomer, kItem };
  struct LevelTexts;
  // A value of a bill's own that rows are grouped by: the column in #DATA2 and where it comes from.
  struct OwnGroup;

  // --- rpt128.cpp: columns, batch by item
  void AddGroupColumns(int sum_mode);
  void AddCommonColumns(ForceHide out_amount, ForceHide invoice_amount);
  [[nodiscard]] DictionaryRef BuildRequest();
  [[nodiscard]] DictionaryRef BuildByItem();
  void ReplacePlaceholders(Dictionary& request) const;

  // --- rpt128_levels.cpp: batches by class levels
  [[nodiscard]] DictionaryRef BuildByLevel(LevelKind kind, int sum_mode);
  [[nodiscard]] static LevelTexts LevelTextsOf(int sum_mode, int begin_level, int end_level);

  // --- rpt128_groupings.cpp: builders that group by one property, or by property and employee
  [[nodiscard]] DictionaryRef BuildByProperty();
  [[nodiscard]] DictionaryRef BuildBySaleStyle();
  [[nodiscard]] DictionaryRef BuildByEmployee();
  [[nodiscard]] DictionaryRef BuildByDepartment();
  [[nodiscard]] DictionaryRef BuildWithEmployee(int sum_mode);
  [[nodiscard]] DictionaryRef BuildByOwnGroup(const OwnGroup& group);
  [[nodiscard]] DictionaryRef GroupedRequest(std::string_view fill, const std::string& create,
                                             std::string insert, std::string_view insert_tail,
                                             std::string_view group_by);

  // --- Texts fixed at set-up. The fetch alters the fill and update texts in place, and a repeated fetch
  // works on what the last one left; a new filter from the dialog starts clean. Kept: hosts rest on one batch
  // per set-up.
  std::string item_filter_template_;
  std::string fill_text_;
  std::string column_definitions_;
  std::string value_list_;
  std::string from_text_;
  std::string where_text_;
  std::string update_text_;
  std::string item_word_;
  int amount_scale_ = 2;
  // From the filter, at each fetch.
  std::string condition_;
};

}  // namespace salerpt
