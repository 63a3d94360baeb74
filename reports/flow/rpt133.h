// `Rpt133`: customer sales summary.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"

namespace salerpt {

// "客户单位销售情况汇总表": per item, quantity, income, output tax and the sum of both from sales invoices,
// in base currency; on demand regrouped by class levels, customer, department, employee or a property. The
// leaner sister of `Rpt126`, with which it shares the filter dialog: it knows no bill currency and no
// auxiliary property. A row has no detail report.
//
// Invoices of type 80 carry amounts net of tax, those of type 86 amounts that include it.
//
// The whole report is one T-SQL batch, handed to the middle tier as keys of a request dictionary that run in
// the order "SELECT", "GROUPBY", "UpdateAppend", "EndSel". It reads the invoices directly. Its temporary
// tables:
//   #ItemLevel  class levels of items or customers
//   #DATA       the report rows; FID is the identity and the order
// FSumSort tells what a row is: 0 a detail row, 101 the grand total, any other value above 100 a subtotal.
// The middle tier fills what the batch leaves open: the dates of ##CHECKDATE##, item and unit names, price,
// tax rate, the quantity in the usual unit.
class Rpt133 final : public Report {
 public:
  Rpt133() : Report("Rpt133") {}
  [[nodiscard]] std::span<const Member<Report>> Members() const override { return InterfaceOf("Rpt133"); }

 protected:
  void InitProperty(std::int32_t number) override;
  void BuildTitle() override;
  void BuildConditions() override;
  void FetchData() override;

 private:
  // Which class the level columns show.
  enum class LevelKind { kCustomer, kItem };
  struct LevelTexts;

  // --- rpt133.cpp: columns, batch by item
  void AddGroupColumns(int sum_mode);
  void AddCommonColumns();
  [[nodiscard]] DictionaryRef BuildRequest();
  [[nodiscard]] std::string FromText() const;
  [[nodiscard]] DictionaryRef BuildByItem() const;
  void ReplaceState(Dictionary& request) const;

  // --- rpt133_groupings.cpp: batches by customer, department, employee or another property, and by class
  // levels
  [[nodiscard]] DictionaryRef BuildByProperty() const;
  [[nodiscard]] std::string FromWithSource(int item_class, std::string_view source_join) const;
  [[nodiscard]] DictionaryRef BuildByLevel(LevelKind kind, int sum_mode) const;
  [[nodiscard]] static LevelTexts LevelTextsOf(int sum_mode, int begin_level, int end_level);

  // --- Texts fixed at set-up
  std::string item_filter_template_;
  std::string column_definitions_;
  std::string value_list_;
  std::string where_text_;
  std::string item_word_;
  // From the filter, at each fetch.
  std::string condition_;
};

}  // namespace salerpt
