// `Rpt129`: sales outbound detail.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "销售出库明细表": every line of the sales outbound bills and of the sales invoices of a range of days, with
// subtotals by item and by day as the filter asks; on demand summed by class levels, customer or a property.
// Summaries of outbound bills and orders open it over one of their rows.
//
// The whole report is one T-SQL batch, handed to the middle tier as keys of a request dictionary that run in
// the order "Select", "GROUPBY", "Append", "EndSel". Its temporary tables:
//   #DATA2      one row per bill line, outbound and invoice lines mixed
//   #ItemLevel  class levels of items or customers
//   #DATA       the report rows; there is no identity, the order comes from the last select
// FSumSort tells what a row is: 0 a bill line (grouped: an item), 100 a subtotal by item or by day, 101 the
// grand total; in a grouped report any other value above 101 is a subtotal.
class Rpt129 final : public Report {
 public:
  Rpt129() : Report("Rpt129") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt129"); }

 protected:
  void InitProperty(std::int32_t number) override;
  void PrepareDialog(FilterDialog& dialog) override;
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  // --- rpt129.cpp: set-up, columns
  void AddGroupColumns();
  void AddCommonColumns();
  [[nodiscard]] DictionaryRef BuildRequest() const;
  void ReplacePlaceholders(Dictionary& request) const;

  // --- rpt129_detail.cpp: bill lines with subtotals by item and by day
  [[nodiscard]] bool ShowsItemSum() const;
  [[nodiscard]] bool ShowsDateSum() const;
  [[nodiscard]] DictionaryRef BuildDetail() const;
  [[nodiscard]] std::string ToggledAppendText() const;
  [[nodiscard]] std::string EndText() const;

  // --- rpt129_groupings.cpp: sums by class levels, customer or property
  struct LevelTexts;
  [[nodiscard]] DictionaryRef BuildByLevel(int sum_mode) const;
  [[nodiscard]] DictionaryRef BuildByProperty() const;
  [[nodiscard]] static LevelTexts LevelTextsOf(int sum_mode, int begin_level, int end_level);
  [[nodiscard]] std::string GroupedValueList(std::string_view sum_sort, bool by_customer) const;

  // --- Texts fixed at set-up; a fetch works on copies.
  std::string item_filter_template_;
  std::string fill_text_;
  std::string column_definitions_;
  std::string value_list_;
  std::string from_text_;
  std::string where_text_;
  std::string append_text_;
  std::string item_word_;
  int amount_scale_ = 2;
  // From the filter, at each new filter.
  std::string condition_;
};

}  // namespace salerpt
